#include "view/StiliLinea.h"

#include <algorithm>
#include <cmath>

#include "core/Conversioni.h"
#include "survey/Primitive.h"

namespace varena {

namespace {

constexpr double kPi = PiGreco;

// One repeat of a line type, its elements cut to those a repeat holds: where each starts, the
// length of the repeat and of its longest element. True when an element draws (is no gap).
template <size_t N>
bool MisuraRipetizione(std::span<const double>& elementi, double (&inizi)[N], double& giro, double& massimo) {
  if (elementi.size() > N) elementi = elementi.first(N);
  bool pieno = false;
  for (size_t k = 0; k < elementi.size(); ++k) {
    const double e = elementi[k];
    inizi[k] = giro;
    giro += std::fabs(e);
    massimo = std::max(massimo, std::fabs(e));
    pieno = pieno || e >= 0;
  }
  return pieno;
}

}  // namespace

PercorsoMotivo::PercorsoMotivo(double x1, double y1, double x2, double y2, const StileLinea& stile)
    : x1_(x1), y1_(y1), x2_(x2), y2_(y2), stile_(stile) {
  const double dx = x2 - x1, dy = y2 - y1;
  L_ = std::sqrt(dx * dx + dy * dy);
  const bool pieno = MisuraRipetizione(stile_.Elementi, inizi_, giro_, massimo_);
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

PercorsoArco::PercorsoArco(double xc, double yc, double r, double inizio, double ampiezza, const StileLinea& stile)
    : xc_(xc), yc_(yc), r_(r), inizio_(inizio), stile_(stile) {
  if (!(r > 0) || !(ampiezza > 0) || !std::isfinite(r) || !std::isfinite(ampiezza) || !std::isfinite(inizio)) return;
  // Past a full turn a curve only runs over itself: the work is that of one turn.
  ampiezza_ = std::min(ampiezza, 2.0 * kPi);
  corde_ = NumeroCorde(r_, ampiezza_);
  const bool pieno = MisuraRipetizione(stile_.Elementi, inizi_, giro_, massimo_);
  const bool pochiPezzi = giro_ > 0 && Lunghezza() / giro_ * static_cast<double>(stile_.Elementi.size()) < kMassimoPezzi;
  if (stile_.Elementi.empty() || !pochiPezzi)
    modo_ = Modo::Corde;
  else
    modo_ = pieno ? Modo::Motivo : Modo::Nulla;
}

double PercorsoArco::Massimo() const { return modo_ == Modo::Corde ? Lunghezza() / corde_ : massimo_; }

int PercorsoArco::Dentro(double xmin, double ymin, double xmax, double ymax, double tratti[3][2]) const {
  if (modo_ == Modo::Nulla) return 0;
  // Nearest and farthest points of the rectangle from the centre: the circle must pass
  // between them.
  const double dx = std::max({xmin - xc_, 0.0, xc_ - xmax}), dy = std::max({ymin - yc_, 0.0, yc_ - ymax});
  const double fx = std::max(std::fabs(xmin - xc_), std::fabs(xmax - xc_));
  const double fy = std::max(std::fabs(ymin - yc_), std::fabs(ymax - yc_));
  if (std::hypot(dx, dy) > r_ || std::hypot(fx, fy) < r_) return 0;
  if (dx == 0 && dy == 0) {
    // The centre in the rectangle: any angle may be in it.
    tratti[0][0] = 0, tratti[0][1] = Lunghezza();
    return 1;
  }
  // Seen from a centre outside it, the rectangle spans less than half a turn about the
  // azimuth of its middle.
  const double medio = std::atan2((xmin + xmax) / 2 - xc_, (ymin + ymax) / 2 - yc_);
  double lo = 0, hi = 0;
  for (double x : {xmin, xmax})
    for (double y : {ymin, ymax}) {
      const double rel = std::remainder(std::atan2(x - xc_, y - yc_) - medio, 2.0 * kPi);
      lo = std::min(lo, rel), hi = std::max(hi, rel);
    }
  lo += medio, hi += medio;
  // That span, a turn earlier or later, against the sweep.
  int n = 0;
  const double giro = 2.0 * kPi, fine = inizio_ + ampiezza_;
  for (double k = std::floor((inizio_ - hi) / giro); n < 3 && lo + k * giro <= fine; k += 1) {
    const double a0 = std::max(lo + k * giro, inizio_), a1 = std::min(hi + k * giro, fine);
    if (a0 > a1) continue;
    tratti[n][0] = (a0 - inizio_) * r_, tratti[n][1] = (a1 - inizio_) * r_;
    ++n;
  }
  return n;
}

void PercorsoArco::Riquadro(double& xmin, double& ymin, double& xmax, double& ymax) const {
  Punto(inizio_, xmin, ymin);
  xmax = xmin, ymax = ymin;
  auto aggiungi = [&](double a) {
    double x, y;
    Punto(a, x, y);
    xmin = std::min(xmin, x), xmax = std::max(xmax, x), ymin = std::min(ymin, y), ymax = std::max(ymax, y);
  };
  aggiungi(inizio_ + ampiezza_);
  for (int q = 0; q < 4; ++q) {
    const double a = q * kPi / 2;
    // The turns from the start to that point, clockwise.
    const double dopo = a - inizio_ - 2.0 * kPi * std::floor((a - inizio_) / (2.0 * kPi));
    if (dopo <= ampiezza_) aggiungi(a);
  }
}

void EspandiArco(double xc, double yc, double r, double inizio, double ampiezza, const StileLinea& stile,
                 std::vector<TrattoArco>& out) {
  const PercorsoArco p(xc, yc, r, inizio, ampiezza, stile);
  p.Pezzi(0, p.Lunghezza(), [&out](const TrattoArco& t) { out.push_back(t); });
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
