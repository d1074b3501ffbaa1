// The resection and the eccentric station.
#include "survey/Resezione.h"

#include <algorithm>
#include <cmath>

namespace varena {

namespace {

constexpr double kPuntiCoincidenti = 0.001;  // metres: two known points closer are one
// How near the circle through the three points a station may stand, as a fraction of the
// figure: N and D below fall to 0 in proportion to the station's distance from the circle
// (about 3/4 of it for a well-shaped figure), and a station a thousandth of the figure off
// the circle already turns a tenth of a milligon of reading into decimetres.
constexpr double kCerchioPericoloso = 1e-3;

}  // namespace

EsitoPothenot Pothenot(const PuntoXYZ& p1, const PuntoXYZ& p2, const PuntoXYZ& p3, double alfaGon, double betaGon) {
  EsitoPothenot e;
  auto rifiuta = [&e](const char* motivo) {
    e.Stato = kResezioneDegenere;
    e.Motivo = motivo;
    return e;
  };
  const double l12 = Distanza2D(p1.X, p1.Y, p2.X, p2.Y), l23 = Distanza2D(p2.X, p2.Y, p3.X, p3.Y),
               l13 = Distanza2D(p1.X, p1.Y, p3.X, p3.Y);
  if (std::min({l12, l23, l13}) < kPuntiCoincidenti) return rifiuta("Punti noti coincidenti!");
  const double k = GonToRad;
  const double ta = std::tan(k * alfaGon);
  if (std::fabs(ta) < 1e-7) return rifiuta("Angolo Alfa non ammissibile (0 o 200 gon)!");
  const double tb = std::tan(k * (alfaGon + betaGon));
  // On the first known point, so that grid coordinates keep their millimetres.
  const OrigineLocale o(p1);
  const PuntoXYZ a = o.Locale(p1), b = o.Locale(p2), c = o.Locale(p3);
  const double n = (a.X - c.X) / tb + (b.X - a.X) / ta + c.Y - b.Y;
  const double d = (a.Y - c.Y) / tb + (b.Y - a.Y) / ta + b.X - c.X;
  if (d == 0 || std::hypot(n, d) < kCerchioPericoloso * std::max({l12, l23, l13}))
    return rifiuta("Stazione sul cerchio pericoloso: il punto è indeterminato!");
  double phi = 0;  // the azimuth from the station to point 1
  if (n == 0) {
    phi = d > 0 ? 0 : PiGreco;
  } else {
    phi = std::atan(n / d);
    if (d < 0) phi += PiGreco;
    if (phi < 0) phi += 2 * PiGreco;
  }
  const double t0 = std::tan(phi), t1 = std::tan(k * alfaGon + phi);
  const double y = (a.Y * n / d + b.X - a.X - b.Y * t1) / (t0 - t1);
  // X along the sight to point 1, unless that sight runs nearly East-West: its tangent is
  // then huge and would multiply the last bits of Y; the sight to point 2 is then the
  // steadier, as the two differ by alfa.
  const double x = std::fabs(t0) <= std::fabs(t1) ? (y - a.Y) * t0 + a.X : (y - b.Y) * t1 + b.X;
  if (!std::isfinite(x) || !std::isfinite(y)) return rifiuta("Stazione sul cerchio pericoloso: il punto è indeterminato!");
  e.Stazione = o.Globale({x, y, 0});
  e.Stazione.Z = 0;
  return e;
}

}  // namespace varena
