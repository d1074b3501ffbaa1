// The job's contour polylines (`.DUE`) as the curves read them. A text accepted must write
// back to a text that reads to the same polylines, and every way of drawing them through
// their vertices must give finite points for finite vertices.
#include <cmath>

#include "Bersagli.h"
#include "terrain/Curve.h"

namespace varena::fuzz {

void FuzzDue(const Ambiente&, std::string_view byte) {
  std::vector<Spezzata> lette;
  try {
    lette = LeggiDue(byte);
  } catch (const std::exception&) {
    return;  // refused with its reason: the curves stay as they were
  }
  const std::string scritto = ScriviDue(lette);
  Verifica(ScriviDue(LeggiDue(scritto)) == scritto, "Le spezzate scritte non si rileggono uguali\n");
  std::vector<double> x, y;
  for (const Spezzata& p : lette) {
    bool finite = true;
    for (size_t k = 0; k < p.X.size(); ++k) finite = finite && std::isfinite(p.X[k]) && std::isfinite(p.Y[k]);
    // The magnitudes a survey has: far beyond them the arithmetic of any curve overflows.
    for (size_t k = 0; k < p.X.size(); ++k) finite = finite && std::fabs(p.X[k]) < 1e12 && std::fabs(p.Y[k]) < 1e12;
    if (p.X.size() > 200) continue;  // a Bezier of so many points is the fuzzer's time, not ours
    for (MetodoSpline m : {MetodoSpline::Bezier, MetodoSpline::BSpline, MetodoSpline::BSplineChiusa,
                           MetodoSpline::Interpolante}) {
      x.clear(), y.clear();
      PuntiSpline(p, m, 3, x, y);
      for (size_t k = 0; finite && k < x.size(); ++k)
        Verifica(std::isfinite(x[k]) && std::isfinite(y[k]), "Punto non finito dalla spline %d\n", static_cast<int>(m));
    }
  }
}

}  // namespace varena::fuzz
