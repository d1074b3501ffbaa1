// The station from known points: the three-point resection (Snellius/Pothenot) and the
// eccentric station reduced to a centre and its orientation points.
#pragma once

#include <string>

#include "survey/Primitive.h"

namespace varena {

struct EsitoPothenot {
  Esito Stato = kRiuscito;  // kResezioneDegenere when refused
  PuntoXYZ Stazione;        // Z = 0; written only on success
  std::string Motivo;       // why it was refused, for the user
};

// The station that saw 1 and 2 at the angle `alfaGon`, 2 and 3 at `betaGon`, both clockwise.
// Refused: known points in one place, an alfa of 0 or 200 gon, and a station on (or within a
// thousandth of the figure of) the circle through the three points, where every point of the
// circle sees the same angles and the formula would answer with a wild point.
EsitoPothenot Pothenot(const PuntoXYZ& p1, const PuntoXYZ& p2, const PuntoXYZ& p3, double alfaGon, double betaGon);

}  // namespace varena
