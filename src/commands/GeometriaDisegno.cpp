// Constructions shared by the drawing commands.
#include "commands/GeometriaDisegno.h"

#include <cmath>

namespace varena {

bool CentroTrePunti(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& c, double mezzo, PuntoXYZ& centro) {
  auto bisettrice = [mezzo](const PuntoXYZ& p, const PuntoXYZ& q, PuntoXYZ& u, PuntoXYZ& v) {
    const double mx = (p.X + q.X) / 2, my = (p.Y + q.Y) / 2;
    const double az = AzimutDistanza(p, q).Azimut + PiGreco / 2;
    u = Polare(mx, my, az, mezzo);
    v = Polare(mx, my, az + PiGreco, mezzo);
  };
  PuntoXYZ u1, v1, u2, v2;
  bisettrice(a, b, u1, v1);
  bisettrice(b, c, u2, v2);
  double x = 0, y = 0;
  if (IncrocioRette(u1, v1, u2, v2, x, y) >= 2) return false;
  centro = {x, y, 0};
  return true;
}

double GonPositivo(double gon) {
  gon = std::fmod(gon, 400.0);
  return gon < 0 ? gon + 400.0 : gon;
}

ArcoGon ArcoPerTrePunti(const PuntoXYZ& centro, const PuntoXYZ& a, const PuntoXYZ& per, const PuntoXYZ& b) {
  const double da = AzimutDistanza(centro, a).Azimut * RadToGon;
  const double db = AzimutDistanza(centro, b).Azimut * RadToGon;
  const double dp = AzimutDistanza(centro, per).Azimut * RadToGon;
  ArcoGon arco{da, GonPositivo(db - da), false};
  if (GonPositivo(dp - da) > arco.Ampiezza) arco = {db, 400.0 - arco.Ampiezza, true};
  return arco;
}

double AzimutVersoLato(double azimut, const PuntoXYZ& da, double x, double y) {
  // The cross product of the direction with the way to the click: negative on the right.
  const double croce = std::sin(azimut) * (y - da.Y) - std::cos(azimut) * (x - da.X);
  return croce <= 0 ? azimut + PiGreco / 2 : azimut - PiGreco / 2;
}

double RotazioneLungo(double azimut) { return GonPositivo(100.0 - azimut * RadToGon); }

}  // namespace varena
