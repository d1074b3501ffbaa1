// Triangles closed by a network of lines, each a facet on `PROFALDE`.
#include "terrain/FaldeDaLinee.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "terrain/Falde.h"
#include "view/IndiceAlbero.h"

namespace varena {

namespace {

// The live point nearest to (x, y); of equal ones the first in the table.
class PuntiVicini {
 public:
  explicit PuntiVicini(const Sessione& s) : s_(s) {
    albero_.Costruisci(s.ContaEntita[SlotPunti], [&s](int64_t i, double& a, double& b, double& c, double& d) {
      const auto k = static_cast<size_t>(i);
      if (!IdentVivo(s.PuntoIdent[k])) return false;
      a = c = s.PuntoX[k], b = d = s.PuntoY[k];
      return true;
    });
  }
  int32_t Vicino(double x, double y) const {
    int64_t meglio = -1;
    double dist = INFINITY;
    albero_.Visita(
        x, y,
        [&](int64_t i) {
          const auto k = static_cast<size_t>(i);
          const double d = std::hypot(s_.PuntoX[k] - x, s_.PuntoY[k] - y);
          if (d < dist || (d == dist && i < meglio)) dist = d, meglio = i;
        },
        [&] { return dist; });
    return static_cast<int32_t>(meglio);
  }

 private:
  const Sessione& s_;
  IndiceAlbero albero_;
};

void AggiungiFalda(Sessione& s, const std::array<int32_t, 3>& t) {
  DimensionaFalde(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
  double* x[3] = {&s.FaldaX1[r], &s.FaldaX2[r], &s.FaldaX3[r]};
  double* y[3] = {&s.FaldaY1[r], &s.FaldaY2[r], &s.FaldaY3[r]};
  double* z[3] = {&s.FaldaZ1[r], &s.FaldaZ2[r], &s.FaldaZ3[r]};
  for (int k = 0; k < 3; ++k) {
    const auto p = static_cast<size_t>(t[static_cast<size_t>(k)]);
    *x[k] = s.PuntoX[p], *y[k] = s.PuntoY[p];
    // 9999 is the height of a point that has none.
    *z[k] = std::fabs(s.PuntoZ[p] - 9999) < 0.001 ? 0.0 : s.PuntoZ[p];
  }
  s.FaldaIdent[r] = 0;
  s.FaldaColore[r] = s.Imp.Colore_Default;
  s.FaldaPiano[r] = "PROFALDE";
}

}  // namespace

void FaldeDaLinee(Sessione& s, bool aggiungi, bool daTripf) {
  s.RoutineCorrente = "FaldeDaLinee";
  Protetto(s, [&] {
    if (!aggiungi) {
      for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) s.FaldaIdent[r] = -1;
      SegnaModificato(s, SlotFalde);
    }
    const PuntiVicini vicini(s);
    auto inRete = [&](size_t r) {
      return IdentVivo(s.LineaIdent[r]) && (s.StatoLinea[r] == 1 || Rifila(s.LineaPiano[r]) == "TRIFALDE");
    };
    std::set<std::pair<int32_t, int32_t>> lati;
    int64_t linee = 0;
    for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++r) {
      if (!inRete(r)) continue;
      const int32_t a = vicini.Vicino(s.LineaX1[r], s.LineaY1[r]), b = vicini.Vicino(s.LineaX2[r], s.LineaY2[r]);
      ++linee;
      if (a < 0 || b < 0 || a == b) continue;
      lati.insert({std::max(a, b), std::min(a, b)});
    }
    MostraPrompt(s, "Numero Linee triangolate = " + std::to_string(linee));
    // Every two sides that share a point, closed by a third side of the network.
    std::vector<std::vector<int32_t>> vicinato(static_cast<size_t>(s.ContaEntita[SlotPunti]));
    for (const auto& [a, b] : lati) vicinato[static_cast<size_t>(a)].push_back(b), vicinato[static_cast<size_t>(b)].push_back(a);
    std::set<std::array<int32_t, 3>> triangoli;
    for (size_t p = 0; p < vicinato.size(); ++p) {
      const std::vector<int32_t>& v = vicinato[p];
      for (size_t i = 0; i < v.size(); ++i)
        for (size_t j = i + 1; j < v.size(); ++j)
          if (lati.count({std::max(v[i], v[j]), std::min(v[i], v[j])})) {
            std::array<int32_t, 3> t{static_cast<int32_t>(p), v[i], v[j]};
            std::sort(t.begin(), t.end());
            triangoli.insert(t);
          }
    }
    for (const auto& t : triangoli) AggiungiFalda(s, t);
    if (daTripf) {
      for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++r)
        if (inRete(r)) s.LineaIdent[r] = -1;
      std::fill(s.StatoLinea.begin(), s.StatoLinea.end(), uint8_t{0});
      SegnaModificato(s, SlotLinee);
    }
  });
  AggiornaFalde(s);
  EliminaFaldeIncluse(s, daTripf);
}

namespace {

struct Lato {
  int64_t Millimetri;  // the length as the sorted text list held it, to the millimetre
  int32_t A, B;        // the smaller row first
  double Lunghezza;
};

// Whether the crossing of the two lines lies inside `l`: its distance from the midpoint,
// plus the tolerance, below half the length.
bool Dentro(const Sessione& s, const Lato& l, double x, double y) {
  const auto a = static_cast<size_t>(l.A), b = static_cast<size_t>(l.B);
  const double mx = (s.PuntoX[a] + s.PuntoX[b]) / 2, my = (s.PuntoY[a] + s.PuntoY[b]) / 2;
  return std::hypot(x - mx, y - my) + 0.001 < l.Lunghezza / 2;
}

bool Incrocio(const Sessione& s, const Lato& p, const Lato& q, double& x, double& y) {
  const auto a = static_cast<size_t>(p.A), b = static_cast<size_t>(p.B);
  const auto c = static_cast<size_t>(q.A), d = static_cast<size_t>(q.B);
  const double x1 = s.PuntoX[a], y1 = s.PuntoY[a], dx1 = s.PuntoX[b] - x1, dy1 = s.PuntoY[b] - y1;
  const double x2 = s.PuntoX[c], y2 = s.PuntoY[c], dx2 = s.PuntoX[d] - x2, dy2 = s.PuntoY[d] - y2;
  const double den = dx1 * dy2 - dy1 * dx2;
  if (den == 0) return false;  // parallel: their lines never cross
  const double t = ((x2 - x1) * dy2 - (y2 - y1) * dx2) / den;
  x = x1 + t * dx1, y = y1 + t * dy1;
  return true;
}

}  // namespace

void TRIPF(Sessione& s) {
  s.RoutineCorrente = "TRIPF";
  std::vector<int32_t> pf;
  for (int32_t i = 0; i < s.ContaEntita[SlotPunti]; ++i) {
    const auto k = static_cast<size_t>(i);
    if (IdentVivo(s.PuntoIdent[k]) && s.PuntoCongelaNome[k] == 0 && s.PuntoNome[k].rfind("PF", 0) == 0) pf.push_back(i);
  }
  // Each point proposes its eleven nearest among the later ones, by the millimetre and then
  // by the text of the row, as the sorted list of texts ordered them.
  std::vector<Lato> lati;
  for (size_t i = 0; i < pf.size(); ++i) {
    const auto a = static_cast<size_t>(pf[i]);
    if (s.PuntoCongelaSimbolo[a] != 0) continue;
    std::vector<std::pair<std::pair<int64_t, std::string>, Lato>> proposte;
    for (size_t j = i + 1; j < pf.size(); ++j) {
      const auto b = static_cast<size_t>(pf[j]);
      const double d = std::hypot(s.PuntoX[b] - s.PuntoX[a], s.PuntoY[b] - s.PuntoY[a]);
      if (!(d > 0.001)) continue;
      const auto mm = static_cast<int64_t>(std::llround(d * 1000));
      proposte.push_back({{mm, std::to_string(pf[j])}, {mm, std::min(pf[i], pf[j]), std::max(pf[i], pf[j]), d}});
    }
    std::sort(proposte.begin(), proposte.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
    for (size_t k = 0; k < proposte.size() && k < 11; ++k) lati.push_back(proposte[k].second);
  }
  std::sort(lati.begin(), lati.end(), [](const Lato& x, const Lato& y) {
    return std::tie(x.Millimetri, x.A, x.B) < std::tie(y.Millimetri, y.A, y.B);
  });
  lati.erase(std::unique(lati.begin(), lati.end(), [](const Lato& x, const Lato& y) { return x.A == y.A && x.B == y.B; }),
             lati.end());
  // Of two edges that cross, the longer goes; of two of one length, the earlier.
  std::vector<bool> via(lati.size(), false);
  for (size_t i = 0; i < lati.size(); ++i) {
    for (size_t j = i + 1; j < lati.size() && !via[i]; ++j) {
      if (via[j]) continue;
      double x = 0, y = 0;
      if (!Incrocio(s, lati[i], lati[j], x, y) || !Dentro(s, lati[i], x, y) || !Dentro(s, lati[j], x, y)) continue;
      if (lati[j].Lunghezza > lati[i].Lunghezza) via[j] = true;
      else via[i] = true;
    }
  }
  for (size_t i = 0; i < lati.size(); ++i) {
    if (via[i]) continue;
    const auto a = static_cast<size_t>(lati[i].A), b = static_cast<size_t>(lati[i].B);
    DimensionaLinee(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotLinee]++);
    s.LineaIdent[r] = 0;
    s.LineaX1[r] = s.PuntoX[a], s.LineaY1[r] = s.PuntoY[a], s.LineaZ1[r] = s.PuntoZ[a];
    s.LineaX2[r] = s.PuntoX[b], s.LineaY2[r] = s.PuntoY[b], s.LineaZ2[r] = s.PuntoZ[b];
    s.LineaColore[r] = s.Imp.Colore_Default;
    s.LineaTratteggio[r] = 1;
    s.LineaPiano[r] = "TRIFALDE";
  }
  FaldeDaLinee(s, false, true);
}

void EliminaFaldeIncluse(Sessione& s, bool soloFiduciali) {
  s.RoutineCorrente = "EliminaFaldeIncluse";
  Protetto(s, [&] {
    const int32_t n = s.ContaEntita[SlotPunti];
    for (int32_t f = 0; f < s.ContaEntita[SlotFalde]; ++f) {
      const auto r = static_cast<size_t>(f);
      if (!IdentVivo(s.FaldaIdent[r])) continue;
      const double xs[3] = {s.FaldaX1[r], s.FaldaX2[r], s.FaldaX3[r]};
      const double ys[3] = {s.FaldaY1[r], s.FaldaY2[r], s.FaldaY3[r]};
      const double x0 = std::min({xs[0], xs[1], xs[2]}), x1 = std::max({xs[0], xs[1], xs[2]});
      const double y0 = std::min({ys[0], ys[1], ys[2]}), y1 = std::max({ys[0], ys[1], ys[2]});
      for (int32_t i = 0; i < n; ++i) {
        const auto k = static_cast<size_t>(i);
        const double x = s.PuntoX[k], y = s.PuntoY[k];
        // Outside the facet's box by more than the tolerance: it cannot be inside.
        if (soloFiduciali && s.PuntoNome[k].rfind("PF", 0) != 0) continue;
        if (!IdentVivo(s.PuntoIdent[k]) || x < x0 - 0.001 || x > x1 + 0.001 || y < y0 - 0.001 || y > y1 + 0.001) continue;
        bool vertice = false;
        for (int v = 0; v < 3; ++v) vertice |= std::hypot(x - xs[v], y - ys[v]) <= 0.1;
        if (!vertice && PuntoInternoFalda(s, f, x, y)) {
          s.FaldaIdent[r] = -1;
          break;
        }
      }
    }
    SegnaModificato(s, SlotFalde);
  });
}

}  // namespace varena
