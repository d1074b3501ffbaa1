#include "view/StiliLinea.h"

#include <algorithm>
#include <cmath>

#include "core/Conversioni.h"
#include "survey/Primitive.h"

namespace varena {

namespace {

const double kPi = PiGreco;

}  // namespace

PercorsoMotivo::PercorsoMotivo(double x1, double y1, double x2, double y2, const StileLinea& stile)
    : x1_(x1), y1_(y1), x2_(x2), y2_(y2), stile_(stile) {
  const double dx = x2 - x1, dy = y2 - y1;
  L_ = std::sqrt(dx * dx + dy * dy);
  if (stile_.Elementi.size() > std::size(inizi_)) stile_.Elementi = stile_.Elementi.first(std::size(inizi_));
  bool pieno = false;
  for (size_t k = 0; k < stile_.Elementi.size(); ++k) {
    const double e = stile_.Elementi[k];
    inizi_[k] = giro_;
    giro_ += std::fabs(e);
    massimo_ = std::max(massimo_, std::fabs(e));
    pieno = pieno || e >= 0;
  }
  const bool pochiPezzi = giro_ > 0 && L_ / giro_ * static_cast<double>(stile_.Elementi.size()) < kMassimoPezzi;
  if (stile_.Elementi.empty() || !pochiPezzi || !std::isfinite(L_)) {
    modo_ = Modo::Piena;
    return;
  }
  // Gaps only, or a line of no length, give nothing.
  modo_ = pieno && L_ > 0 ? Modo::Motivo : Modo::Nulla;
  const double az = AzimutDistanza(x1, y1, x2, y2).Azimut;
  sa_ = std::sin(az), ca_ = std::cos(az);
  const double obliquo = stile_.AngoloGon * kPi / 200.0;
  so_ = std::sin(az + obliquo), co_ = std::cos(az + obliquo);
}

Tratto PercorsoMotivo::Pezzo(double d, double utile, double e, bool ultimo) const {
  const double px = x1_ + d * sa_, py = y1_ + d * ca_;
  if (e == 0) return {px, py, px, py};
  // An aslant stroke stands at its angle; the walk goes on along the line.
  if (stile_.AngoloGon != 0) return {px, py, px + utile * so_, py + utile * co_};
  return {px, py, ultimo ? x2_ : px + utile * sa_, ultimo ? y2_ : py + utile * ca_};
}

bool PercorsoMotivo::Dentro(double xmin, double ymin, double xmax, double ymax, double& da, double& a) const {
  da = 0, a = L_;
  if (!(L_ > 0)) return xmin <= x1_ && x1_ <= xmax && ymin <= y1_ && y1_ <= ymax;
  // The line as (x1, y1) + d u, clipped against each pair of sides in turn.
  const double u[2] = {(x2_ - x1_) / L_, (y2_ - y1_) / L_}, o[2] = {x1_, y1_};
  const double lo[2] = {xmin, ymin}, hi[2] = {xmax, ymax};
  for (int k = 0; k < 2; ++k) {
    if (u[k] == 0) {
      if (o[k] < lo[k] || o[k] > hi[k]) return false;
      continue;
    }
    double t0 = (lo[k] - o[k]) / u[k], t1 = (hi[k] - o[k]) / u[k];
    if (t0 > t1) std::swap(t0, t1);
    da = std::max(da, t0);
    a = std::min(a, t1);
  }
  return da <= a;
}

bool PercorsoMotivo::Riquadro(double& xmin, double& ymin, double& xmax, double& ymax) const {
  bool trovato = false;
  auto aggiungi = [&](const Tratto& t) {
    if (!trovato) xmin = xmax = t.X1, ymin = ymax = t.Y1;
    trovato = true;
    xmin = std::min({xmin, t.X1, t.X2}), xmax = std::max({xmax, t.X1, t.X2});
    ymin = std::min({ymin, t.Y1, t.Y2}), ymax = std::max({ymax, t.Y1, t.Y2});
  };
  if (modo_ != Modo::Motivo) {
    Pezzi(0, 0, aggiungi);
    return trovato;
  }
  // The first repeat, then the last two; where they overlap a piece only counts twice.
  Pezzi(0, giro_, aggiungi);
  Pezzi(std::max(giro_, L_ - 2 * giro_), L_, aggiungi);
  return trovato;
}

void EspandiLinea(double x1, double y1, double x2, double y2, const StileLinea& stile, std::vector<Tratto>& out) {
  const PercorsoMotivo m(x1, y1, x2, y2, stile);
  m.Pezzi(0, m.Lunghezza(), [&out](const Tratto& t) { out.push_back(t); });
}

int NumeroCorde(double r, double angolo) {
  // The sagitta r(1 - cos(a/2)) stays within half a millimetre, between 8 and 4096 chords
  // to the full turn; and no chord is shorter than the finest detail of the drawing.
  const double tolleranza = 0.0005;
  double passo = tolleranza >= r ? kPi / 4 : 2.0 * std::acos(1.0 - tolleranza / r);
  passo = std::clamp(passo, 2.0 * kPi / 4096.0, 2.0 * kPi / 8.0);
  const double perSagitta = std::ceil(angolo / passo - 1e-9), perLunghezza = std::ceil(r * angolo / kCordaMinima);
  return std::max(1, InteroSaturato<int>(std::min(perSagitta, perLunghezza), 1));
}

double AmpiezzaInUnGiro(double gon) {
  if (!(gon > 400.0)) return gon;
  const double resto = std::fmod(gon, 400.0);
  return resto > 0 ? resto : 400.0;
}

void EspandiArco(double xc, double yc, double r, double inizio, double ampiezza, const StileLinea& stile,
                 std::vector<TrattoArco>& out) {
  if (!(r > 0) || !(ampiezza > 0) || !std::isfinite(r) || !std::isfinite(ampiezza) || !std::isfinite(inizio)) return;
  // Past a full turn a curve only runs over itself: the work is that of one turn.
  const double giroPieno = 2.0 * kPi;
  ampiezza = std::min(ampiezza, giroPieno);
  auto punto = [&](double a, double& x, double& y) {
    x = xc + r * std::sin(a);
    y = yc + r * std::cos(a);
  };
  auto corde = [&](double a0, double a1) {
    const int n = NumeroCorde(r, a1 - a0);
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
