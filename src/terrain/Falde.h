// One facet's area, volumes and label anchors, the test of a point inside a facet, and the
// recomputation of every facet.
#pragma once

#include <cstdint>

namespace varena {

struct Sessione;

struct ValoriFalda {
  double Area = 0, Sterro = 0, Riporto = 0;
  double NumeroX = 0, NumeroY = 0, InsAreaX = 0, InsAreaY = 0, InsSteX = 0, InsSteY = 0, InsRiportoX = 0,
         InsRiportoY = 0;
};

// `CalcolaFalda`: the plan area and the cut and fill of a facet against the reference height
// `q`, and where its labels stand.
ValoriFalda CalcolaFalda(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                         double z3, double q, double altezzaNumero, double altezzaValori);

// `PuntoInternoFalda`: whether (x, y) lies in facet `riga`, on its sides included.
bool PuntoInternoFalda(const Sessione& s, int32_t riga, double x, double y);

// `AggiornaFalde`: every live facet recomputed; those of area below 0.001 are deleted.
void AggiornaFalde(Sessione& s);

}  // namespace varena
