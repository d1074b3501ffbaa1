#include "view/IndiceGriglia.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/Conversioni.h"

namespace varena {

void IndiceGriglia::Svuota() {
  n_ = 0;
  colonne_ = righe_ = 0;
  inizio_.clear();
  voci_.clear();
  grandi_.clear();
  esclusi_.clear();
  aggiunti_.clear();
  rimossi_ = 0;
  visti_.clear();
}

void IndiceGriglia::Prepara(double xmin, double ymin, double xmax, double ymax, int64_t n) {
  if (xmin > xmax) xmin = xmax = ymin = ymax = 0;  // nothing measurable
  // Finite corners may still lie further apart than a double can say.
  constexpr double kMassimo = std::numeric_limits<double>::max();
  const double larghezza = std::clamp(xmax - xmin, 1e-6, kMassimo), altezza = std::clamp(ymax - ymin, 1e-6, kMassimo);
  // About two boxes a cell on average, at most some four million cells; the side is taken
  // as a product of roots, which does not overflow where the area would.
  const double celle = std::clamp(static_cast<double>(n) / 2.0, 1.0, 4.0e6);
  lato_ = std::sqrt(larghezza) * std::sqrt(altezza / celle);
  lato_ = std::max({lato_, larghezza / 2048.0, altezza / 2048.0});
  colonne_ = std::clamp(InteroSaturato<int>(std::ceil(larghezza / lato_)), 1, 2048);
  righe_ = std::clamp(InteroSaturato<int>(std::ceil(altezza / lato_)), 1, 2048);
  x0_ = xmin;
  y0_ = ymin;
  visti_.assign(static_cast<size_t>((n + 63) / 64), 0);
}

void IndiceGriglia::Celle(double xmin, double ymin, double xmax, double ymax, int& c0, int& r0, int& c1,
                          int& r1) const {
  // A distance beyond any double is infinite, and falls in the last cell.
  auto cella = [this](double v, double origine, int quante) {
    return std::clamp(InteroSaturato<int>(std::floor((v - origine) / lato_)), 0, quante - 1);
  };
  c0 = cella(xmin, x0_, colonne_);
  c1 = cella(xmax, x0_, colonne_);
  r0 = cella(ymin, y0_, righe_);
  r1 = cella(ymax, y0_, righe_);
}

void IndiceGriglia::Cerca(double xmin, double ymin, double xmax, double ymax, std::vector<int64_t>& out) const {
  out.clear();
  if (n_ <= 0 || colonne_ == 0) return;
  // A query wholly outside the grid still clamps to its border cells; the caller's own test
  // rejects what does not touch the view.
  int c0, r0, c1, r1;
  Celle(xmin, ymin, xmax, ymax, c0, r0, c1, r1);
  const int64_t celle = static_cast<int64_t>(c1 - c0 + 1) * (r1 - r0 + 1);
  if (celle * 4 > static_cast<int64_t>(inizio_.size())) {
    // Most of the grid is in view: every box, in order, is cheaper than the cells.
    out.reserve(static_cast<size_t>(n_));
    auto escluso = esclusi_.begin();
    for (int64_t i = 0; i < n_; ++i) {
      if (escluso != esclusi_.end() && *escluso == i) {
        ++escluso;
        continue;
      }
      out.push_back(i);
    }
    return;
  }
  std::vector<int64_t> trovati;
  for (int r = r0; r <= r1; ++r)
    for (int k = c0; k <= c1; ++k) {
      const size_t cella = static_cast<size_t>(r) * static_cast<size_t>(colonne_) + static_cast<size_t>(k);
      for (uint32_t j = inizio_[cella]; j < inizio_[cella + 1]; ++j) {
        const int64_t i = voci_[j];
        if (i < 0) continue;  // a box gone or changed since the grid was built
        uint64_t& parola = visti_[static_cast<size_t>(i >> 6)];
        const uint64_t bit = uint64_t{1} << (i & 63);
        if (parola & bit) continue;
        parola |= bit;
        trovati.push_back(i);
      }
    }
  for (int64_t i : grandi_) trovati.push_back(i);
  for (const Aggiunto& a : aggiunti_)
    if (a.X0 <= xmax && a.X1 >= xmin && a.Y0 <= ymax && a.Y1 >= ymin) trovati.push_back(a.Id);
  for (int64_t i : trovati) visti_[static_cast<size_t>(i >> 6)] &= ~(uint64_t{1} << (i & 63));
  std::sort(trovati.begin(), trovati.end());
  trovati.erase(std::unique(trovati.begin(), trovati.end()), trovati.end());
  out.swap(trovati);
}

}  // namespace varena
