// Hatching: a closed contour filled with real lines, at the angle and spacing of the hatch
// settings. The lines are plain lines of the job: nothing ties them to the contour after.
#pragma once

#include <span>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

struct Sessione;

// At most this many vertices of a contour take part in a hatch; the rest are left out.
inline constexpr size_t kMassimoVerticiCampitura = 1000;
// A hatch of more scan lines than this is refused: the spacing is surely mistyped.
inline constexpr double kMassimoPassiCampitura = 100000;

struct SegmentoCampitura {
  PuntoXYZ A, B;  // `A` first along the hatch direction
};

// The segments of the hatch of the closed contour `vertici` (the last vertex joins the
// first): lines of azimuth `angoloGon`, `passo` apart, swept square to that direction from
// the vertex farthest back, each cut by the contour's edges and paired in, out, in, out.
// A scan line keeps what lies inside the contour both just before and just after it: no
// hatch line runs along an edge, whichever side of the contour the edge is on, and a line
// through a corner goes on as far as the inside does on both sides.
std::vector<SegmentoCampitura> SegmentiCampitura(std::span<const PuntoXYZ> vertici, double angoloGon, double passo);

// The contour traced by clicks: each click one more vertex of the temporary polyline.
void subSelezionaContorno(Sessione& s);
// `subCalcolaSelezione`: the hatch of the traced contour with `Angolo_Campitura` and
// `Distanza_Campitura`, written as lines in the drawing defaults, one snapshot for all.
// Returns how many lines were written.
size_t subCalcolaSelezione(Sessione& s);

}  // namespace varena
