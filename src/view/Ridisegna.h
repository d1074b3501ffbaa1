// Redraw: the surface cleared and painted from the display list and the point table.
#pragma once

#include <cstdint>
#include <cstddef>
#include <string_view>
#include <vector>

#include "view/Superficie.h"

namespace varena {

struct Sessione;

// `Ridise gna` on the main surface `s.Schermo`: view set-up, painting, the extent's height,
// the redraw time in the prompt. Without a surface only the view and its history move on.
void Ridisegna(Sessione& s);

// `Disegna1` on any surface whose user scale is already set: images, the list, the points.
void Disegna1(Sessione& s, Superficie& sup);

// State that one point passes to the next during a redraw: the size of the symbol painted
// before is read before this point's own size, a behaviour old drawings depend on.
struct StatoPunti {
  double DimensionePrecedente = 0;
  bool Carta = false;  // drawing for paper: no culling, dots as small crosses
  // A label sized as a share of the view is a share of this many view heights: the
  // surface's reference height over its own (the screen's over a window's).
  double QuotaEtichette = 1;
  // When the labels in view would cover the surface many times over, a point's labels are
  // drawn only where no label stands yet: cells of one label line, marked as they fill.
  bool Sfoltisci = false;
  double Cella = 0, X0 = 0, Y0 = 0;
  int Colonne = 0, Righe = 0;
  std::vector<uint8_t> Occupate;
};
void DisegnaPuntoAperto(Sessione& s, Superficie& sup, int32_t riga, StatoPunti& stato);

// `DisegnaPuntoNuovo`: one label of a point at (x, y) view coordinates, |h| metres high. A
// label of positive h is printed one line of 1.5 h higher; one of negative h (a size given
// as a share of the view) is printed at (x, y).
void DisegnaPuntoNuovo(Sessione& s, Superficie& sup, double x, double y, double h, std::string_view testo,
                       std::string_view font, int32_t colore);

}  // namespace varena
