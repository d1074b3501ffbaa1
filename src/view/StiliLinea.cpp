#include "view/StiliLinea.h"

#include <algorithm>
#include <cmath>

#include "survey/Primitive.h"

namespace varena {

namespace {

constexpr double kPi = PiGreco;

}  // namespace

void EspandiLinea(double x1, double y1, double x2, double y2, const StileLinea& stile, std::vector<Tratto>& out) {
  const double dx = x2 - x1, dy = y2 - y1;
  const double L = std::sqrt(dx * dx + dy * dy);
  double giro = 0;
  for (double e : stile.Elementi) giro += std::fabs(e);
  const bool pochiPezzi = giro > 0 && L / giro * static_cast<double>(stile.Elementi.size()) < kMassimoPezzi;
  if (stile.Elementi.empty() || !pochiPezzi || !std::isfinite(L)) {
    out.push_back({x1, y1, x2, y2});
    return;
  }
  const double az = AzimutDistanza(x1, y1, x2, y2).Azimut;
  const double sa = std::sin(az), ca = std::cos(az);
  const double obliquo = stile.AngoloGon * kPi / 200.0;
  const double so = std::sin(az + obliquo), co = std::cos(az + obliquo);
  double fatto = 0;  // length of line walked
  double px = x1, py = y1;
  while (fatto < L) {
    for (double e : stile.Elementi) {
      const double passo = std::fabs(e);
      const bool ultimo = fatto + passo >= L;
      const double utile = ultimo ? L - fatto : passo;
      fatto += passo;
      if (e > 0) {
        // An aslant stroke stands at its angle; the walk goes on along the line.
        if (stile.AngoloGon != 0)
          out.push_back({px, py, px + utile * so, py + utile * co});
        else
          out.push_back({px, py, ultimo ? x2 : px + utile * sa, ultimo ? y2 : py + utile * ca});
      } else if (e == 0) {
        out.push_back({px, py, px, py});
      }
      px += utile * sa;
      py += utile * ca;
      if (ultimo) return;
    }
  }
}

void EspandiArco(double xc, double yc, double r, double inizio, double ampiezza, const StileLinea& stile,
                 std::vector<TrattoArco>& out) {
  if (!(r > 0) || !(ampiezza > 0) || !std::isfinite(r) || !std::isfinite(ampiezza)) return;
  // Chords of a plain curve: the sagitta r(1 - cos(a/2)) stays within half a millimetre,
  // between 8 and 4096 chords to the full turn.
  const double tolleranza = 0.0005;
  double passo = tolleranza >= r ? kPi / 4 : 2.0 * std::acos(1.0 - tolleranza / r);
  passo = std::clamp(passo, 2.0 * kPi / 4096.0, 2.0 * kPi / 8.0);
  auto punto = [&](double a, double& x, double& y) {
    x = xc + r * std::sin(a);
    y = yc + r * std::cos(a);
  };
  auto corde = [&](double a0, double a1) {
    const int n = std::max(1, static_cast<int>(std::ceil((a1 - a0) / passo - 1e-9)));
    double xa, ya;
    punto(a0, xa, ya);
    for (int k = 1; k <= n; ++k) {
      const double a = k == n ? a1 : a0 + (a1 - a0) * k / n;
      double xb, yb;
      punto(a, xb, yb);
      out.push_back({xa, ya, xb, yb, (a0 + (a1 - a0) * (k - 1) / n - inizio) / ampiezza, (a - inizio) / ampiezza});
      xa = xb;
      ya = yb;
    }
  };
  double giro = 0;
  for (double e : stile.Elementi) giro += std::fabs(e);
  const double lunghezza = r * ampiezza;
  if (stile.Elementi.empty() || giro <= 0 || lunghezza / giro * static_cast<double>(stile.Elementi.size()) >= kMassimoPezzi) {
    corde(inizio, inizio + ampiezza);
    return;
  }
  // Each element turned into an angle along the curve.
  double a = inizio;
  const double fine = inizio + ampiezza;
  while (a < fine) {
    for (double e : stile.Elementi) {
      const double b = std::min(a + std::fabs(e) / r, fine);
      if (e > 0) {
        corde(a, b);
      } else if (e == 0) {
        double x, y;
        punto(a, x, y);
        out.push_back({x, y, x, y, (a - inizio) / ampiezza, (a - inizio) / ampiezza});
      }
      a = b;
      if (a >= fine) return;
    }
  }
}

void ScomponiSimbolo(int c, double s, bool carta, std::vector<ElementoSimbolo>& out) {
  using E = ElementoSimbolo;
  const double q = s / 4;
  if (c >= 91) {
    out.push_back({E::Riquadro, 0, 0, q, 0});
    out.push_back({E::Cerchio, 0, 0, q, 0});
    c -= 96;
  }
  if (c >= 61) {
    out.push_back({E::Riquadro, 0, 0, q, 0});
    c -= 64;
  }
  if (c > 40) {
    // A triangle with its vertices at 0.4 s, the first one due North.
    for (int k = 0; k < 3; ++k) {
      const double a0 = k * 2 * kPi / 3, a1 = (k + 1) * 2 * kPi / 3;
      out.push_back({E::Linea, 0.4 * s * std::sin(a0), 0.4 * s * std::cos(a0), 0.4 * s * std::sin(a1),
                     0.4 * s * std::cos(a1)});
    }
    c -= 42;
  }
  if (c >= 31) {
    out.push_back({E::Cerchio, 0, 0, q, 0});
    c -= 32;
  }
  const double m = s / 2;
  switch (c) {
    case 0:
      if (carta) {
        const double k = s / 100;
        out.push_back({E::Linea, -k, 0, k, 0});
        out.push_back({E::Linea, 0, -k, 0, k});
      } else {
        out.push_back({E::Punto, 0, 0, 0, 0});
      }
      break;
    case 2:
      out.push_back({E::Linea, -m, 0, m, 0});
      out.push_back({E::Linea, 0, -m, 0, m});
      break;
    case 3:
      out.push_back({E::Linea, -m, -m, m, m});
      out.push_back({E::Linea, -m, m, m, -m});
      break;
    case 4: out.push_back({E::Linea, 0, 0, 0, m}); break;
    case 5:
      for (int k = 0; k < 8; ++k)
        out.push_back({E::Linea, 0, 0, m * std::sin(k * kPi / 4), m * std::cos(k * kPi / 4)});
      break;
    default: break;  // 1 and anything else: no base
  }
}

}  // namespace varena
