// A live facet written straight into its table, for the tests of the terrain and of what
// is drawn through it.
#pragma once

#include "core/Sessione.h"

namespace varena::prova {

inline void MettiFalda(Sessione& s, double x1, double y1, double z1, double x2, double y2, double z2, double x3,
                       double y3, double z3) {
  DimensionaFalde(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
  s.FaldaIdent[r] = 0;
  s.FaldaX1[r] = x1, s.FaldaY1[r] = y1, s.FaldaZ1[r] = z1, s.FaldaX2[r] = x2, s.FaldaY2[r] = y2, s.FaldaZ2[r] = z2;
  s.FaldaX3[r] = x3, s.FaldaY3[r] = y3, s.FaldaZ3[r] = z3;
}

}  // namespace varena::prova
