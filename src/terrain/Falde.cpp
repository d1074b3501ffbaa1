// The values of each facet, recomputed from its three vertices.
#include "terrain/Falde.h"

#include <cmath>
#include <utility>

#include "core/Sessione.h"

namespace varena {

namespace {

double AreaTre(double x1, double y1, double x2, double y2, double x3, double y3) {
  return std::fabs((y3 + y2) * (x3 - x2) + (y1 + y2) * (x2 - x1) + (y3 + y1) * (x1 - x3)) / 2.0;
}

// The point of the edge from (x1, y1, z1) towards (x2, y2, z2) at height q, measured in plan
// from the first end along the edge's direction.
void AQuota(double x1, double y1, double z1, double x2, double y2, double z2, double q, double& x, double& y) {
  const double d = std::hypot(x2 - x1, y2 - y1);
  const double t = std::fabs((q - z1) * d / (z2 - z1));
  const double az = std::atan2(x2 - x1, y2 - y1);
  x = x1 + t * std::sin(az);
  y = y1 + t * std::cos(az);
}

double Erone(double a, double b, double c) {
  const double p = (a + b + c) / 2.0;
  const double v = p * (p - a) * (p - b) * (p - c);
  return v > 0 ? std::sqrt(v) : 0.0;
}

}  // namespace

ValoriFalda CalcolaFalda(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                         double z3, double q, double altezzaNumero, double altezzaValori) {
  ValoriFalda v;
  v.NumeroX = (x1 + x2 + x3) / 3.0;
  v.NumeroY = (y1 + y2 + y3) / 3.0;
  // Three compare-and-swap steps; equal heights keep their order.
  auto scambia = [](double& xa, double& ya, double& za, double& xb, double& yb, double& zb) {
    if (za > zb) std::swap(xa, xb), std::swap(ya, yb), std::swap(za, zb);
  };
  scambia(x2, y2, z2, x3, y3, z3);
  scambia(x1, y1, z1, x2, y2, z2);
  scambia(x2, y2, z2, x3, y3, z3);
  v.Area = AreaTre(x1, y1, x2, y2, x3, y3);
  const double V = ((z1 + z2 + z3) / 3.0 - q) * v.Area;
  if (V < 0) v.Riporto = std::fabs(V);
  else v.Sterro = std::fabs(V);
  if (z1 < q && z3 > q) {
    // The branch follows the middle height alone, and the net prism is added whole on the
    // other side: the cut and fill the surveyors' reports have always shown.
    double ax, ay, bx, by;
    if (z2 > q) {
      AQuota(x1, y1, z1, x2, y2, z2, q, ax, ay);
      AQuota(x1, y1, z1, x3, y3, z3, q, bx, by);
      v.Riporto = std::fabs(((q + z1 + q) / 3.0 - q) * AreaTre(x1, y1, ax, ay, bx, by));
      v.Sterro = std::fabs(V) + v.Riporto;
    } else if (z2 < q) {
      AQuota(x1, y1, z1, x3, y3, z3, q, ax, ay);
      AQuota(x2, y2, z2, x3, y3, z3, q, bx, by);
      v.Sterro = std::fabs(((q + z3 + q) / 3.0 - q) * AreaTre(x3, y3, ax, ay, bx, by));
      v.Riporto = std::fabs(V) + v.Sterro;
    }
  }
  v.InsAreaX = v.InsSteX = v.InsRiportoX = v.NumeroX;
  v.InsAreaY = v.NumeroY - 1.3 * altezzaNumero;
  v.InsSteY = v.InsAreaY - 1.3 * altezzaValori;
  v.InsRiportoY = v.InsSteY - 1.3 * altezzaValori;
  return v;
}

bool PuntoInternoFalda(const Sessione& s, int32_t riga, double x, double y) {
  const auto r = static_cast<size_t>(riga);
  const double ax = s.FaldaX1[r], ay = s.FaldaY1[r], bx = s.FaldaX2[r], by = s.FaldaY2[r];
  const double cx = s.FaldaX3[r], cy = s.FaldaY3[r];
  const double ab = std::hypot(bx - ax, by - ay), bc = std::hypot(cx - bx, cy - by), ca = std::hypot(ax - cx, ay - cy);
  const double pa = std::hypot(x - ax, y - ay), pb = std::hypot(x - bx, y - by), pc = std::hypot(x - cx, y - cy);
  const double somma = Erone(ab, pa, pb) + Erone(bc, pb, pc) + Erone(ca, pc, pa);
  return std::fabs(somma - Erone(ab, bc, ca)) < 0.001;
}

void AggiornaFalde(Sessione& s) {
  s.RoutineCorrente = "AggiornaFalde";
  const StatoTerreno& t = s.Terreno;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
    if (!IdentVivo(s.FaldaIdent[r])) continue;
    const ValoriFalda v = CalcolaFalda(s.FaldaX1[r], s.FaldaY1[r], s.FaldaZ1[r], s.FaldaX2[r], s.FaldaY2[r],
                                       s.FaldaZ2[r], s.FaldaX3[r], s.FaldaY3[r], s.FaldaZ3[r], s.QuotaRiferimento,
                                       t.AltezzaNumero, t.AltezzaValori);
    if (!(v.Area >= 0.001)) {
      s.FaldaIdent[r] = -1;
      continue;
    }
    s.FaldaAreaDiBase[r] = v.Area, s.FaldaVolumeSterro[r] = v.Sterro, s.FaldaVolumeRiporto[r] = v.Riporto;
    s.FaldaNumeroX1[r] = v.NumeroX, s.FaldaNumeroY1[r] = v.NumeroY;
    s.FaldaInsAreaX1[r] = v.InsAreaX, s.FaldaInsAreaY1[r] = v.InsAreaY;
    s.FaldaInsSteX1[r] = v.InsSteX, s.FaldaInsSteY1[r] = v.InsSteY;
    s.FaldaInsRiportoX1[r] = v.InsRiportoX, s.FaldaInsRiportoY1[r] = v.InsRiportoY;
  }
  SegnaModificato(s, SlotFalde);
}

}  // namespace varena
