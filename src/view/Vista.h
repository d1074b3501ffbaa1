// The mapping between metres on the sheet and the drawing surface, the view set-up that
// starts every redraw, and the record of views that the previous-view key walks back.
#pragma once

#include <string>

namespace varena {

struct Sessione;
struct StatoVista;

// A position on the surface, in metres from the view centre, narrowed for the surface.
struct PuntoVista {
  float X, Y;
};

struct PuntoMondo {
  double Est, Nord;
};

// The centre is subtracted in 64 bits before the narrowing: a cadastral coordinate of five
// million metres has no millimetres left in a 32-bit float, the small difference has.
PuntoVista InVista(const StatoVista& v, double est, double nord);
// A pointer position comes back in view coordinates; the centre is added in 64 bits.
PuntoMondo InMondo(const StatoVista& v, double xv, double yv);

// `Ri genera1`: text step, the smallest view of one metre, the surface's proportions, the
// four edges, and the user scale of a surface that is not minimised. Without a surface the
// proportions fall back to 1.6.
void Rigenera1(Sessione& s);

// Called by the redraw once it has painted: one row of the previous-view record.
void AggiungiStoriaVista(StatoVista& v);
// Called by the redraw after painting: the extent's height never stays below the view's,
// so that the extent frame and the scale read-outs always have a sensible size.
void AggiornaIngombroAltezza(StatoVista& v);

}  // namespace varena
