// Extent of the drawing and the zoom that frames it.
#pragma once

#include <optional>

namespace varena {

struct Sessione;

struct Rettangolo {
  double XMin, YMin, XMax, YMax;
};

// The box of what `TuttoTutto` frames: live, unfrozen points first, then circles, arc ends
// and texts. No value when there is nothing to measure.
std::optional<Rettangolo> IngombroDisegno(const Sessione& s);

// Extent of every live entity of the tables, for reports.
std::optional<Rettangolo> IngombroEntita(const Sessione& s);

// Frames the whole drawing: centre and height from the extent; 100 around (50, 50) when
// there is nothing.
void TuttoTutto(Sessione& s);

}  // namespace varena
