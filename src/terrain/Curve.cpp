// Contour lines from the facets: the cut of each facet at each level, the chaining of the
// cuts, the smoothing into the curve table, and the commands on the curves.
#include "terrain/Curve.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <numbers>

#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/FileTabella.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "terrain/ImpostazioniTerreno.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

struct Segmento {
  double X1, Y1, X2, Y2, Quota;
};

// Enough for any survey a machine holds; past it the interval is surely a mistake.
constexpr size_t kMassimoSegmenti = 50'000'000;

// The point of the edge from (xa, ya, za) to (xb, yb, zb) at height `livello`.
inline void SuLato(double xa, double ya, double za, double xb, double yb, double zb, double livello, double& x,
                   double& y) {
  if (zb == za) {
    x = xb, y = yb;  // an edge along the level: its far end, the near one comes from the other edge
    return;
  }
  const double t = (livello - za) / (zb - za);
  x = xa + t * (xb - xa);
  y = ya + t * (yb - ya);
}

// The first multiple of the interval at or above `z`, as a count of intervals.
inline double PrimoLivello(double z, double e) {
  double k = std::ceil(z / e);
  if ((k - 1) * e >= z) k -= 1;
  if (k * e < z) k += 1;
  return k;
}

// The cuts of one facet, its vertices sorted by height.
void TagliaFalda(double x[3], double y[3], double z[3], double e, double q, bool riferimento,
                 std::vector<Segmento>& out) {
  // Three compare-and-swap steps, equal heights keeping their order.
  auto scambia = [&](int a, int b) {
    if (z[a] > z[b]) std::swap(x[a], x[b]), std::swap(y[a], y[b]), std::swap(z[a], z[b]);
  };
  scambia(1, 2), scambia(0, 1), scambia(1, 2);
  if (!(z[2] > z[0])) return;  // flat: no level crosses it
  // A facet across a million levels: the interval is a mistake, not a survey.
  if ((z[2] - z[0]) / e > 1e6) throw ErroreVarena(kErroreIndice);
  double k = PrimoLivello(z[0], e);
  auto taglia = [&](double livello, double quota) {
    Segmento sg;
    SuLato(x[0], y[0], z[0], x[2], y[2], z[2], livello, sg.X1, sg.Y1);
    if (livello <= z[1])
      SuLato(x[0], y[0], z[0], x[1], y[1], z[1], livello, sg.X2, sg.Y2);
    else
      SuLato(x[1], y[1], z[1], x[2], y[2], z[2], livello, sg.X2, sg.Y2);
    sg.Quota = quota;
    out.push_back(sg);
    if (out.size() > kMassimoSegmenti) throw ErroreVarena(kErroreIndice);
  };
  for (double livello = k * e; livello <= z[2]; k += 1, livello = k * e) taglia(livello, livello == q ? kQuotaRiferimentoDue : livello);
  if (riferimento && z[0] < q && q < z[2]) taglia(q, kQuotaRiferimentoDue);
}

// The cuts chained as the older program chained them: from the first segment not yet used,
// scans of the segments in order, each one of the same height with an end within 0.001 of
// the head or of the tail added there, until a scan adds nothing. The scans are followed
// through an index of the ends by cell: from where the scan stands, the next segment that
// touches is the one of smallest number not below it, and when there is none the next scan
// starts from the first.
class Catena {
 public:
  explicit Catena(const std::vector<Segmento>& sg) : sg_(sg), usato_(sg.size(), 0) {
    size_t nb = 16;
    while (nb < sg.size() * 2) nb <<= 1;
    maschera_ = nb - 1;
    testa_.assign(nb, -1);
    succ_.assign(sg.size() * 2, -1);
    for (size_t e = 0; e < sg.size() * 2; ++e) {
      double x, y;
      Estremo(static_cast<int32_t>(e), x, y);
      const size_t b = Secchio(Cella(x), Cella(y), sg[e / 2].Quota);
      succ_[e] = testa_[b];
      testa_[b] = static_cast<int32_t>(e);
    }
  }

  std::vector<Spezzata> Tutte() {
    std::vector<Spezzata> out;
    for (size_t k = 0; k < sg_.size(); ++k)
      if (!usato_[k]) out.push_back(Da(k));
    return out;
  }

 private:
  static constexpr double kTolleranza = 0.001;
  // Cells ten times the tolerance: an end near a point is nearly always in the point's own
  // cell, and the cells looked at are just those the tolerance reaches.
  static constexpr double kCella = 0.01;
  const std::vector<Segmento>& sg_;
  std::vector<uint8_t> usato_;
  std::vector<int32_t> testa_, succ_;
  size_t maschera_ = 0;

  void Estremo(int32_t e, double& x, double& y) const {
    const Segmento& s = sg_[static_cast<size_t>(e / 2)];
    x = (e & 1) ? s.X2 : s.X1;
    y = (e & 1) ? s.Y2 : s.Y1;
  }
  static int64_t Cella(double v) {
    // Coordinates beyond any survey (or not numbers) share the outermost cells.
    const double c = std::floor(v / kCella);
    return c > -1e18 && c < 1e18 ? static_cast<int64_t>(c) : c > 0 ? int64_t{1} << 60 : -(int64_t{1} << 60);
  }
  size_t Secchio(int64_t ix, int64_t iy, double quota) const {
    uint64_t q;
    std::memcpy(&q, &quota, sizeof q);
    uint64_t h = static_cast<uint64_t>(ix) * 0x9E3779B97F4A7C15ull ^ static_cast<uint64_t>(iy) * 0xC2B2AE3D27D4EB4Full ^
                 q * 0x165667B19E3779F9ull;
    h ^= h >> 29;
    return static_cast<size_t>(h) & maschera_;
  }
  static bool Vicino(double xa, double ya, double xb, double yb) {
    return std::fabs(xa - xb) < kTolleranza && std::fabs(ya - yb) < kTolleranza;
  }
  // The smallest unused segment of height `quota` with an end near (x, y): the smallest not
  // below `da` in `dopo`, the smallest of all in `primo`.
  void Cerca(double x, double y, double quota, size_t da, size_t& dopo, size_t& primo) const {
    const int64_t x0 = Cella(x - kTolleranza), x1 = Cella(x + kTolleranza);
    const int64_t y0 = Cella(y - kTolleranza), y1 = Cella(y + kTolleranza);
    for (int64_t cx = x0; cx <= x1; ++cx)
      for (int64_t cy = y0; cy <= y1; ++cy)
        for (int32_t e = testa_[Secchio(cx, cy, quota)]; e >= 0; e = succ_[static_cast<size_t>(e)]) {
          const auto k = static_cast<size_t>(e / 2);
          if (usato_[k] || sg_[k].Quota != quota) continue;
          double ex, ey;
          Estremo(e, ex, ey);
          if (!Vicino(ex, ey, x, y)) continue;
          primo = std::min(primo, k);
          if (k >= da) dopo = std::min(dopo, k);
        }
  }

  Spezzata Da(size_t k) {
    usato_[k] = 1;
    const double quota = sg_[k].Quota;
    // The head side is kept reversed, so both ends grow at the back of a vector.
    std::vector<double> tx{sg_[k].X1}, ty{sg_[k].Y1}, cx{sg_[k].X2}, cy{sg_[k].Y2};
    size_t da = 0;
    const size_t nessuno = sg_.size();
    while (true) {
      size_t dopo = nessuno, primo = nessuno;
      Cerca(tx.back(), ty.back(), quota, da, dopo, primo);
      Cerca(cx.back(), cy.back(), quota, da, dopo, primo);
      const size_t j = dopo != nessuno ? dopo : primo;
      if (j == nessuno) break;
      const Segmento& s = sg_[j];
      if (Vicino(s.X1, s.Y1, tx.back(), ty.back())) tx.push_back(s.X2), ty.push_back(s.Y2);
      else if (Vicino(s.X2, s.Y2, tx.back(), ty.back())) tx.push_back(s.X1), ty.push_back(s.Y1);
      else if (Vicino(s.X1, s.Y1, cx.back(), cy.back())) cx.push_back(s.X2), cy.push_back(s.Y2);
      else cx.push_back(s.X1), cy.push_back(s.Y1);
      usato_[j] = 1;
      da = j + 1;
    }
    Spezzata p;
    p.Quota = quota;
    p.X.assign(tx.rbegin(), tx.rend());
    p.Y.assign(ty.rbegin(), ty.rend());
    p.X.insert(p.X.end(), cx.begin(), cx.end());
    p.Y.insert(p.Y.end(), cy.begin(), cy.end());
    return p;
  }
};

// The vertices of a polyline without repeats.
void SenzaDoppi(const Spezzata& p, std::vector<double>& x, std::vector<double>& y) {
  for (size_t i = 0; i < p.X.size(); ++i)
    if (x.empty() || p.X[i] != x.back() || p.Y[i] != y.back()) x.push_back(p.X[i]), y.push_back(p.Y[i]);
}

std::string FileDue(const Sessione& s) { return s.NomeLavoro + ".DUE"; }

bool CurveAttive(Sessione& s) {
  if (s.Terreno.CurveAttive) return true;
  s.Ui->Messaggio("Curve NON Attive!", "Curve Livello", Icona::Avviso);
  return false;
}

// A curve row appended: the flag and its two values.
void Riga(Sessione& s, uint8_t flag, double a, double b) {
  DimensionaCurve(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotCurve]);
  s.CurvaFlag[r] = flag, s.CurvaX[r] = a, s.CurvaY[r] = b, s.StatoCurva[r] = 0;
  s.ContaEntita[SlotCurve] = static_cast<int32_t>(r + 1);
}

// The head of a curve; the height of the reference curve is the reference height.
double QuotaDaDue(const Sessione& s, double quota) { return quota < -1500 ? s.QuotaRiferimento : quota; }

// Azimuth in gon from a to b, 999 when they coincide.
double AzimutGon(double xa, double ya, double xb, double yb) {
  const double dx = xb - xa, dy = yb - ya;
  if (dx == 0 && dy == 0) return 999;
  double a = std::atan2(dx, dy) * 200.0 / std::numbers::pi;
  if (a < 0) a += 400;
  return a;
}

// One polyline smoothed, a cubic a span, into the curve table.
void Liscia(Sessione& s, const Spezzata& p) {
  const StatoTerreno& t = s.Terreno;
  std::vector<double> x, y;
  SenzaDoppi(p, x, y);
  const size_t n = x.size();
  if (n < 2) return;  // a cut that is one point draws nothing
  const double quota = QuotaDaDue(s, p.Quota);
  const int32_t colore = ColoreCurva(s, p.Quota);
  Riga(s, 2, quota, colore);
  const bool chiusa = std::fabs(x[0] - x[n - 1]) < 0.0001 && std::fabs(y[0] - y[n - 1]) < 0.0001;
  // The tangent at each vertex: from the one before to the one after, round the ring when
  // the curve closes; none at the open ends.
  std::vector<double> tangente(n, 999);
  for (size_t i = 0; i < n; ++i) {
    size_t a = i, b = i;
    if (i == 0 || i == n - 1) {
      if (!chiusa || n < 3) continue;
      a = n - 2, b = 1;
    } else {
      a = i - 1, b = i + 1;
    }
    tangente[i] = AzimutGon(x[a], y[a], x[b], y[b]);
  }
  const double rad = std::numbers::pi / 200.0;
  for (size_t i = 0; i + 1 < n; ++i) {
    const double l = std::hypot(x[i + 1] - x[i], y[i + 1] - y[i]);
    const double theta = AzimutGon(x[i], y[i], x[i + 1], y[i + 1]);
    const double a = l / 2;
    auto pendenza = [&](double tg, bool& nota) {
      nota = tg != 999;
      if (!nota) return 0.0;
      double d = theta - tg;
      while (d > 200) d -= 400;
      while (d <= -200) d += 400;
      if (std::fabs(d) > t.LimiteDeviazione) d = std::copysign(t.LimiteDeviazione, d);
      return std::tan(d * rad);
    };
    bool n1 = false, n2 = false;
    double t1 = pendenza(tangente[i], n1), t2 = pendenza(tangente[i + 1], n2);
    if (!n1) t1 = -t2 / 2;
    if (!n2) t2 = -t1 / 2;
    const double ca = (t2 + t1) / (4 * a * a), cb = (t2 - t1) / (4 * a), cc = -(t2 + t1) / 4, cd = (t1 - t2) * a / 4;
    Riga(s, 0, x[i], y[i]);
    const double mx = (x[i] + x[i + 1]) / 2, my = (y[i] + y[i + 1]) / 2;
    const double phi = (theta - 100) * rad, c = std::cos(phi), sn = std::sin(phi);
    const double passo = l / 10;
    for (double j = 1; j <= 10; j += t.PassoCurva) {
      const double u = j * passo - a, v = ((ca * u + cb) * u + cc) * u + cd;
      Riga(s, 0, u * c + mx + v * sn, v * c + my - u * sn);
    }
  }
  Riga(s, 1, quota, colore);
}

// `.tre` goes with every generation; the curve table starts empty.
void AzzeraCurve(Sessione& s) {
  EliminaFile(s.NomeLavoro + ".tre");
  s.ContaEntita[SlotCurve] = 0;
  SegnaModificato(s, SlotCurve);
}

}  // namespace

int32_t ColoreCurva(const Sessione& s, double quota) {
  const StatoTerreno& t = s.Terreno;
  if (quota < -1500 || quota == s.QuotaRiferimento) return t.ColoreCurvaBase;
  return quota < s.QuotaRiferimento ? t.ColoreCurvaSotto : t.ColoreCurvaSopra;
}

bool GeneraSpezzate(Sessione& s) {
  s.RoutineCorrente = "GeneraSpezzate";
  int64_t vive = 0, congelate = 0;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r)
    if (IdentVivo(s.FaldaIdent[r])) ++vive, congelate += s.FaldaCongela[r] != 0;
  if (vive == 0 || vive == congelate) {
    s.Ui->Messaggio(vive == 0 ? "Nessuna Falda nel disegno!!!" : "Tutte le falde congelate!!!",
                    "Impossibile generare curve livello", Icona::Avviso);
    return false;
  }
  StatoTerreno& t = s.Terreno;
  CorreggiImpostazioniTerreno(t);
  return Protetto(s, [&] {
    EliminaFile(FileDue(s));
    std::vector<Segmento> sg;
    for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
      if (!IdentVivo(s.FaldaIdent[r]) || s.FaldaCongela[r] != 0) continue;
      double z[3] = {s.FaldaZ1[r], s.FaldaZ2[r], s.FaldaZ3[r]};
      if (!std::isfinite(z[0]) || !std::isfinite(z[1]) || !std::isfinite(z[2])) continue;
      // Most facets of a survey lie between two levels: they are passed over on their
      // heights alone.
      const double basso = std::min({z[0], z[1], z[2]}), alto = std::max({z[0], z[1], z[2]});
      if (PrimoLivello(basso, t.Equidistanza) * t.Equidistanza > alto &&
          !(t.CurvaRiferimento == 1 && basso < s.QuotaRiferimento && s.QuotaRiferimento < alto))
        continue;
      double x[3] = {s.FaldaX1[r], s.FaldaX2[r], s.FaldaX3[r]};
      double y[3] = {s.FaldaY1[r], s.FaldaY2[r], s.FaldaY3[r]};
      TagliaFalda(x, y, z, t.Equidistanza, s.QuotaRiferimento, t.CurvaRiferimento == 1, sg);
    }
    // Numbers only: the text is the same in every code page.
    ScriviByte(FileDue(s), ScriviDue(Catena(sg).Tutte()));
  });
}

namespace {

// The plain form of a number (at most 15 significant digits, 0 for what is not a number)
// appended in place: the file of a large survey holds millions of them.
void Aggiungi(std::string& testo, double v) {
  if (!std::isfinite(v) || v == 0.0) {
    testo += '0';
    return;
  }
  char buf[40];
  const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 15);
  testo.append(buf, r.ptr);
}

}  // namespace

std::string ScriviDue(const std::vector<Spezzata>& spezzate) {
  std::string testo;
  for (const Spezzata& p : spezzate) {
    Aggiungi(testo, p.Quota);
    testo += "\r\n" + std::to_string(p.X.size()) + "\r\n";
    for (size_t i = 0; i < p.X.size(); ++i) {
      Aggiungi(testo, p.X[i]);
      testo += ',';
      Aggiungi(testo, p.Y[i]);
      testo += "\r\n";
    }
  }
  return testo;
}

std::vector<Spezzata> LeggiDue(std::string_view testo) {
  std::vector<Spezzata> out;
  const std::vector<std::string> righe = RigheTesto(testo);
  size_t i = 0;
  auto prossima = [&]() -> const std::string& {
    if (i >= righe.size()) throw ErroreVarena(kErroreFineFile);
    return righe[i++];
  };
  while (i < righe.size()) {
    if (Rifila(righe[i]).empty()) {
      ++i;  // a blank line between blocks, or at the end
      continue;
    }
    Spezzata p;
    const std::string& q = prossima();
    if (!EUnNumero(Rifila(q))) throw ErroreVarena(kErroreTipo);
    p.Quota = Val(q);
    const std::string conto = Rifila(prossima());
    const double n = Val(conto);
    // The count must be one: a wrong one would read the next block's lines as vertices.
    if (!EUnNumero(conto) || n < 0 || n != std::floor(n) || n > static_cast<double>(righe.size()))
      throw ErroreVarena(kErroreTipo);
    for (size_t k = 0; k < static_cast<size_t>(n); ++k) {
      const std::vector<std::string> xy = Dividi(prossima() + ",", ',');
      if (!EUnNumero(Rifila(xy[0])) || !EUnNumero(Rifila(xy[1]))) throw ErroreVarena(kErroreTipo);
      p.X.push_back(Val(xy[0]));
      p.Y.push_back(Val(xy[1]));
    }
    out.push_back(std::move(p));
  }
  return out;
}

void CalcolaContur(Sessione& s) {
  s.RoutineCorrente = "CalcolaContur";
  CorreggiImpostazioniTerreno(s.Terreno);
  const auto byte = LeggiByte(FileDue(s));
  if (!byte) return;
  std::vector<Spezzata> spezzate;
  if (!Protetto(s, [&] { spezzate = LeggiDue(*byte); })) return;
  AzzeraCurve(s);
  for (const Spezzata& p : spezzate) Liscia(s, p);
}

namespace {

constexpr int kPuntiSpline = 100;

// A clamped uniform B-spline of degree `g` through de Boor's scheme.
void BSplineAperta(const std::vector<double>& px, const std::vector<double>& py, int g, std::vector<double>& x,
                   std::vector<double>& y) {
  const int n = static_cast<int>(px.size());
  g = std::clamp(g, 1, n - 1);
  std::vector<double> nodi;
  for (int k = 0; k <= g; ++k) nodi.push_back(0);
  for (int k = 1; k < n - g; ++k) nodi.push_back(static_cast<double>(k) / (n - g));
  for (int k = 0; k <= g; ++k) nodi.push_back(1);
  std::vector<double> dx(static_cast<size_t>(g + 1)), dy(static_cast<size_t>(g + 1));
  for (int m = 0; m < kPuntiSpline; ++m) {
    const double u = static_cast<double>(m) / (kPuntiSpline - 1);
    int k = g;
    while (k < n - 1 && nodi[static_cast<size_t>(k + 1)] <= u) ++k;
    for (int j = 0; j <= g; ++j) dx[static_cast<size_t>(j)] = px[static_cast<size_t>(j + k - g)], dy[static_cast<size_t>(j)] = py[static_cast<size_t>(j + k - g)];
    for (int r = 1; r <= g; ++r)
      for (int j = g; j >= r; --j) {
        const double a0 = nodi[static_cast<size_t>(j + k - g)], a1 = nodi[static_cast<size_t>(j + 1 + k - r)];
        const double a = a1 > a0 ? (u - a0) / (a1 - a0) : 0;
        const auto J = static_cast<size_t>(j);
        dx[J] = (1 - a) * dx[J - 1] + a * dx[J];
        dy[J] = (1 - a) * dy[J - 1] + a * dy[J];
      }
    x.push_back(dx[static_cast<size_t>(g)]), y.push_back(dy[static_cast<size_t>(g)]);
  }
}

}  // namespace

void PuntiSpline(const Spezzata& p, MetodoSpline metodo, int grado, std::vector<double>& x, std::vector<double>& y) {
  std::vector<double> px, py;
  SenzaDoppi(p, px, py);
  const size_t n = px.size();
  if (n < 2) return;
  switch (metodo) {
    case MetodoSpline::Bezier: {
      // De Casteljau's construction: the Bernstein form without its large coefficients.
      std::vector<double> bx, by;
      for (int m = 0; m < kPuntiSpline; ++m) {
        const double u = static_cast<double>(m) / (kPuntiSpline - 1);
        bx = px, by = py;
        for (size_t r = 1; r < n; ++r)
          for (size_t j = 0; j + r < n; ++j) bx[j] = (1 - u) * bx[j] + u * bx[j + 1], by[j] = (1 - u) * by[j] + u * by[j + 1];
        x.push_back(bx[0]), y.push_back(by[0]);
      }
      return;
    }
    case MetodoSpline::BSpline: BSplineAperta(px, py, 3, x, y); return;
    case MetodoSpline::BSplineChiusa: {
      // The uniform cubic round the ring of vertices, the last (repeating the first) left out.
      size_t m = n;
      if (m > 2 && px[0] == px[m - 1] && py[0] == py[m - 1]) --m;
      auto P = [&](int64_t i, const std::vector<double>& v) { return v[static_cast<size_t>(((i % static_cast<int64_t>(m)) + static_cast<int64_t>(m)) % static_cast<int64_t>(m))]; };
      for (int k = 0; k < kPuntiSpline; ++k) {
        const double u = static_cast<double>(k) * static_cast<double>(m) / (kPuntiSpline - 1);
        int64_t i = static_cast<int64_t>(std::floor(u));
        if (i >= static_cast<int64_t>(m)) i = static_cast<int64_t>(m) - 1;
        const double t = u - static_cast<double>(i);
        const double b0 = (1 - t) * (1 - t) * (1 - t) / 6, b1 = (3 * t * t * t - 6 * t * t + 4) / 6;
        const double b2 = (-3 * t * t * t + 3 * t * t + 3 * t + 1) / 6, b3 = t * t * t / 6;
        x.push_back(b0 * P(i - 1, px) + b1 * P(i, px) + b2 * P(i + 1, px) + b3 * P(i + 2, px));
        y.push_back(b0 * P(i - 1, py) + b1 * P(i, py) + b2 * P(i + 1, py) + b3 * P(i + 2, py));
      }
      return;
    }
    case MetodoSpline::Interpolante: {
      // Through every vertex: Catmull-Rom cubics, the ends repeating their vertex; a degree
      // of 1 is the polyline itself.
      const auto segmenti = static_cast<double>(n - 1);
      for (int k = 0; k < kPuntiSpline; ++k) {
        const double u = static_cast<double>(k) * segmenti / (kPuntiSpline - 1);
        size_t i = std::min(static_cast<size_t>(u), n - 2);
        const double t = u - static_cast<double>(i);
        auto valore = [&](const std::vector<double>& v) {
          const double p0 = v[i == 0 ? 0 : i - 1], p1 = v[i], p2 = v[i + 1], p3 = v[std::min(i + 2, n - 1)];
          if (grado <= 1) return p1 + t * (p2 - p1);
          return 0.5 * (2 * p1 + (p2 - p0) * t + (2 * p0 - 5 * p1 + 4 * p2 - p3) * t * t + (3 * p1 - p0 - 3 * p2 + p3) * t * t * t);
        };
        x.push_back(valore(px)), y.push_back(valore(py));
      }
      return;
    }
  }
}

void Spliner(Sessione& s, MetodoSpline metodo, int grado) {
  s.RoutineCorrente = "Spliner";
  if (!GeneraSpezzate(s)) return;
  s.RoutineCorrente = "Spliner";
  const auto byte = LeggiByte(FileDue(s));
  if (!byte) {
    s.Ui->Messaggio("File *.DUE non trovato", "Errore", Icona::Critico);
    return;
  }
  std::vector<Spezzata> spezzate;
  if (!Protetto(s, [&] { spezzate = LeggiDue(*byte); })) return;
  AzzeraCurve(s);
  std::vector<double> x, y;
  for (const Spezzata& p : spezzate) {
    x.clear(), y.clear();
    PuntiSpline(p, metodo, grado, x, y);
    if (x.empty()) continue;
    const double quota = QuotaDaDue(s, p.Quota);
    const int32_t colore = ColoreCurva(s, p.Quota);
    Riga(s, 2, quota, colore);
    for (size_t i = 0; i < x.size(); ++i) Riga(s, 0, x[i], y[i]);
    Riga(s, 1, quota, colore);
  }
}

void RigeneraCurva(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  StatoTerreno& t = s.Terreno;
  const size_t n = static_cast<size_t>(s.ContaEntita[SlotCurve]);
  // The head of the curve this row belongs to: from the one found for the row before, or
  // looked for backwards.
  int64_t testa = -1;
  if (t.RigaCurvaVista == static_cast<int64_t>(riga) - 1 && t.TestaCurvaVista >= 0 &&
      static_cast<size_t>(t.TestaCurvaVista) < n && s.CurvaFlag[static_cast<size_t>(t.TestaCurvaVista)] == 2)
    testa = t.TestaCurvaVista;
  if (s.CurvaFlag[r] == 2) testa = riga;
  for (int64_t k = riga; testa < 0 && k >= 0; --k)
    if (s.CurvaFlag[static_cast<size_t>(k)] == 2) testa = k;
  t.RigaCurvaVista = riga, t.TestaCurvaVista = testa;
  if (!t.CurveAttive || testa < 0 || s.CurvaFlag[r] == 2) return;
  const auto h = static_cast<size_t>(testa);
  RecordDisegno b;
  b.Tipo = SlotCurve;
  b.Riga = riga;
  const double colore = s.CurvaY[h];
  const int32_t indice = std::isfinite(colore) ? static_cast<int32_t>(std::clamp(colore, -1.0, 32767.0)) : 1;
  b.Colore = ColoreVisibile(s, indice);
  b.Penna = static_cast<int16_t>(indice);
  b.Stato = s.StatoCurva[r];
  b.Piano = "0";
  b.Z1 = b.Z2 = s.CurvaX[h];
  if (s.CurvaFlag[r] == 0 && r + 1 < n && s.CurvaFlag[r + 1] == 0) {
    b.X1 = s.CurvaX[r], b.Y1 = s.CurvaY[r], b.X2 = s.CurvaX[r + 1], b.Y2 = s.CurvaY[r + 1];
    s.ListaDisegno.Aggiungi(b);
  } else if (s.CurvaFlag[r] == 1 && t.EtichetteCurve && r > h + 1) {
    b.Primitiva = PrimTesto;
    b.X1 = b.X2 = s.CurvaX[r - 1], b.Y1 = b.Y2 = s.CurvaY[r - 1];
    b.Altezza = static_cast<float>(t.AltezzaEtichettaCurve);
    b.Font = "Arial";
    const std::string maschera =
        t.DecimaliCurve <= 0 ? std::string("#########0") : "#########0." + std::string(static_cast<size_t>(std::min(t.DecimaliCurve, 9)), '0');
    // The record only points at its text: the label must outlive the adding.
    const std::string etichetta = FormatoMaschera(s.CurvaX[r], maschera);
    b.Testo = etichetta;
    s.ListaDisegno.Aggiungi(b);
  }
}

void AzioneGeneraCurve(Sessione& s) {
  if (!CurveAttive(s)) return;
  if (!GeneraSpezzate(s)) return;
  CalcolaContur(s);
  FineModifica(s);
}

void AzioneEsplodiCurve(Sessione& s) {
  if (!CurveAttive(s)) return;
  if (s.Ui->Domanda("Si Vuole esplodere tutte le curve di livello?", "Esplodi Curve Livello", Bottoni::SiNo,
                    Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  const size_t n = static_cast<size_t>(s.ContaEntita[SlotCurve]);
  double quota = 0, colore = 1;
  for (size_t r = 0; r < n; ++r) {
    if (s.CurvaFlag[r] == 2) {
      quota = s.CurvaX[r], colore = s.CurvaY[r];
      continue;
    }
    if (s.CurvaFlag[r] != 0 || r + 1 >= n || s.CurvaFlag[r + 1] != 0) continue;
    const int32_t l = ScriviLinea(s, {s.CurvaX[r], s.CurvaY[r], quota}, {s.CurvaX[r + 1], s.CurvaY[r + 1], quota}, "CURVEESP");
    s.LineaColore[static_cast<size_t>(l)] = std::isfinite(colore) ? InteroLungo(colore) : 1;
  }
  FineModifica(s);
}

void AzioneEliminaCurveEsplose(Sessione& s) {
  if (s.Ui->Domanda("Eliminare le entità del piano CURVEESP ?", "Elimina Curve Esplose", Bottoni::SiNo,
                    Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++r)
    if (IdentVivo(s.LineaIdent[r]) && Maiuscolo(Rifila(s.LineaPiano[r])) == "CURVEESP") {
      s.LineaIdent[r] = -1;
      SegnaRiga(s, SlotLinee, static_cast<int64_t>(r));
    }
  FineModifica(s);
}

namespace {

void ColoraDaDialogo(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "FormColoraCurve");
  if (!d) return;
  StatoTerreno& t = s.Terreno;
  t.ColoreCurvaSopra = InteroLungo(d->Numero("ColoreCurvaSopra"));
  t.ColoreCurvaSotto = InteroLungo(d->Numero("ColoreCurvaSotto"));
  t.ColoreCurvaBase = InteroLungo(d->Numero("ColoreCurvaBase"));
  CorreggiImpostazioniTerreno(t);  // no colour below 1
  ChiudiDialogo(s, "FormColoraCurve");
  // The head and the closing row of each curve carry its colour.
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotCurve]); ++r)
    if (s.CurvaFlag[r] == 1 || s.CurvaFlag[r] == 2) s.CurvaY[r] = ColoreCurva(s, s.CurvaX[r]);
  SegnaModificato(s, SlotCurve);
  FineModifica(s);
}

void SplineDaDialogo(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "frmSplines");
  if (!d) return;
  const std::string m = Maiuscolo(Rifila(d->Valore("Metodo")));
  const MetodoSpline metodo = m == "BEZIER"          ? MetodoSpline::Bezier
                              : m == "BSPLINE CHIUSA" ? MetodoSpline::BSplineChiusa
                              : m == "INTERPOLANTE"   ? MetodoSpline::Interpolante
                                                      : MetodoSpline::BSpline;
  StatoTerreno& t = s.Terreno;
  t.Equidistanza = d->Numero("Equidistanza");
  const int grado = static_cast<int>(std::clamp(d->Numero("Grado"), 1.0, 9.0));
  ChiudiDialogo(s, "frmSplines");
  Spliner(s, metodo, grado);
  FineModifica(s);
}

}  // namespace

bool ApriFormColoraCurve(Sessione& s) {
  if (!CurveAttive(s)) return false;
  const StatoTerreno& t = s.Terreno;
  Dialogo d;
  d.Nome = "FormColoraCurve";
  d.Titolo = "Colora Curve";
  d.AggiungiCampo("ColoreCurvaSopra", "Sopra la quota di riferimento :", std::to_string(t.ColoreCurvaSopra));
  d.AggiungiCampo("ColoreCurvaSotto", "Sotto la quota di riferimento :", std::to_string(t.ColoreCurvaSotto));
  d.AggiungiCampo("ColoreCurvaBase", "Alla quota di riferimento :", std::to_string(t.ColoreCurvaBase));
  d.AggiungiBottone("OK", "OK", ColoraDaDialogo);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "FormColoraCurve"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriFrmSplines(Sessione& s) {
  if (!CurveAttive(s)) return false;
  Dialogo d;
  d.Nome = "frmSplines";
  d.Titolo = "Curve di Livello";
  d.AggiungiCampo("Equidistanza", "Equidistanza :", FormaSemplice(s.Terreno.Equidistanza));
  d.AggiungiCampo("Metodo", "Metodo :", "BSpline");
  d.Campo("Metodo")->Scelte = {"Bezier", "BSpline", "BSpline Chiusa", "Interpolante"};
  d.AggiungiCampo("Grado", "Grado :", "3");
  d.AggiungiBottone("OK", "OK", SplineDaDialogo);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "frmSplines"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
