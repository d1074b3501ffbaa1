// The cut of a parcel and the area of the part cut off.
#include "survey/DivisioneAree.h"

#include <cmath>

namespace varena {

TaglioArea TagliaContorno(std::span<const PuntoXYZ> v, const PuntoXYZ& a, const PuntoXYZ& b) {
  TaglioArea t;
  const std::size_t n = v.size();
  if (n < 3) return t;
  for (std::size_t i = 0; i < n && t.Incroci < 2; ++i) {
    const PuntoXYZ& p = v[i];
    const PuntoXYZ& q = v[(i + 1) % n];
    PuntoXYZ x;
    // Parallel sides are skipped by the crossing itself; a crossing counts when it stands on
    // the side, within half its length of the middle.
    if (IncrocioRette(p, q, a, b, x.X, x.Y) != kRiuscito || LatoCorda(p, q, x) != 1) continue;
    x.Z = QuotaInterpolata(p, q, x.X, x.Y);
    if (t.Incroci++ == 0) {
      t.C1 = x;
      t.I1 = i;
    } else {
      t.C2 = x;
      t.I2 = i;
    }
  }
  if (t.Incroci < 2) return t;
  // The part: C1, the vertices I1 + 1 to I2 (the ends of the sides between), C2, and back to
  // C1. The trapezia are measured from C1, so that grid coordinates keep their square
  // centimetres.
  std::vector<PuntoXYZ> parte{t.C1};
  for (std::size_t k = t.I1 + 1; k <= t.I2; ++k) parte.push_back(v[k % n]);
  parte.push_back(t.C2);
  const OrigineLocale o(t.C1);
  double somma = 0;
  for (std::size_t k = 0; k < parte.size(); ++k) {
    const PuntoXYZ pi = o.Locale(parte[k]), pj = o.Locale(parte[(k + 1) % parte.size()]);
    somma += (pi.Y + pj.Y) / 2 * (pj.X - pi.X);
  }
  t.AreaParte = std::fabs(somma);
  return t;
}

void StatoDivisione::Taglia() {
  PuntoXYZ a, b;
  if (Rotazione) {
    a = Perno;
    b = P;
  } else {
    const double sx = 10 * std::sin(Azimut), sy = 10 * std::cos(Azimut);
    a = {P.X + sx, P.Y + sy, 0};
    b = {P.X - sx, P.Y - sy, 0};
  }
  const TaglioArea t = TagliaContorno(Vertici, a, b);
  if (t.Incroci < 2) {
    // No cut: the part is 0 and the line drawn stays where it was.
    AreaParte = 0;
    return;
  }
  A = t.C1;
  B = t.C2;
  AreaParte = t.AreaParte;
}

}  // namespace varena
