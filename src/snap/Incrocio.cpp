// Line with line, line with circle, circle with circle.
#include "snap/Incrocio.h"

#include <cmath>

#include "core/Tabelle.h"

namespace varena {

namespace {

bool Rotondo(const RisultatoVicina& r) { return r.VicinaTipo == SlotCerchi || r.VicinaTipo == SlotArchi; }
bool Diritto(const RisultatoVicina& r) {
  switch (r.VicinaTipo) {
    case SlotLinee:
    case SlotFalde:
    case SlotSette:
    case SlotSezioni:
    case SlotBitmap:
    case 14: return true;
    default: return false;
  }
}

const PuntoXYZ& PiuVicino(const PuntoXYZ& a, const PuntoXYZ& b, double x, double y) {
  return Distanza2D(x, y, a.X, a.Y) <= Distanza2D(x, y, b.X, b.Y) ? a : b;
}

Esito RettaTonda(const RisultatoVicina& retta, const RisultatoVicina& tondo, double x, double y, PuntoXYZ& punto) {
  PuntoXYZ piede, primo, secondo;
  const Esito e = RettaCerchio(retta.Inizio, retta.Fine, tondo.Centro.X, tondo.Centro.Y, std::fabs(tondo.Raggio), piede,
                               primo, secondo);
  if (e >= 2) return e;
  punto = PiuVicino(primo, secondo, x, y);
  return e;
}

}  // namespace

Esito IncrociaEntita(const RisultatoVicina& a, const RisultatoVicina& b, double x, double y, PuntoXYZ& punto) {
  if (Diritto(a) && Diritto(b)) {
    double xi = 0, yi = 0;
    const Esito e = IncrocioRette(a.Inizio, a.Fine, b.Inizio, b.Fine, xi, yi);
    if (e >= 2) return e;
    // The height of the first entity at the crossing.
    punto = {xi, yi, QuotaInterpolata(a.Inizio, a.Fine, xi, yi)};
    return e;
  }
  if (Diritto(a) && Rotondo(b)) return RettaTonda(a, b, x, y, punto);
  if (Rotondo(a) && Diritto(b)) return RettaTonda(b, a, x, y, punto);
  if (Rotondo(a) && Rotondo(b)) {
    // Each crossing lies at one radius from each centre: the distance triangle on the
    // two centres.
    PuntoXYZ destra, sinistra;
    const Esito e = PuntiBilatera(a.Centro, b.Centro, std::fabs(a.Raggio), std::fabs(b.Raggio), destra, sinistra);
    if (e >= 2) return e;
    punto = PiuVicino(destra, sinistra, x, y);
    return e;
  }
  return kNessunaSoluzione;
}

}  // namespace varena
