#include "view/IndiceGriglia.h"

#include <algorithm>
#include <cmath>

namespace varena {

void IndiceGriglia::Svuota() {
  n_ = 0;
  colonne_ = righe_ = 0;
  inizio_.clear();
  voci_.clear();
  grandi_.clear();
  visti_.clear();
}

void IndiceGriglia::Prepara(double xmin, double ymin, double xmax, double ymax, int64_t n) {
  if (xmin > xmax) xmin = xmax = ymin = ymax = 0;  // nothing measurable
  const double larghezza = std::max(xmax - xmin, 1e-6), altezza = std::max(ymax - ymin, 1e-6);
  // About two boxes a cell on average, at most some four million cells.
  const double celle = std::clamp(static_cast<double>(n) / 2.0, 1.0, 4.0e6);
  lato_ = std::sqrt(larghezza * altezza / celle);
  lato_ = std::max({lato_, larghezza / 2048.0, altezza / 2048.0});
  colonne_ = std::max(1, static_cast<int>(std::ceil(larghezza / lato_)));
  righe_ = std::max(1, static_cast<int>(std::ceil(altezza / lato_)));
  x0_ = xmin;
  y0_ = ymin;
  visti_.assign(static_cast<size_t>((n + 63) / 64), 0);
}

void IndiceGriglia::Celle(double xmin, double ymin, double xmax, double ymax, int& c0, int& r0, int& c1,
                          int& r1) const {
  auto colonna = [this](double x) {
    const double k = std::floor((x - x0_) / lato_);
    return static_cast<int>(std::clamp(k, 0.0, static_cast<double>(colonne_ - 1)));
  };
  auto riga = [this](double y) {
    const double k = std::floor((y - y0_) / lato_);
    return static_cast<int>(std::clamp(k, 0.0, static_cast<double>(righe_ - 1)));
  };
  c0 = colonna(xmin);
  c1 = colonna(xmax);
  r0 = riga(ymin);
  r1 = riga(ymax);
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
    out.resize(static_cast<size_t>(n_));
    for (int64_t i = 0; i < n_; ++i) out[static_cast<size_t>(i)] = i;
    return;
  }
  std::vector<int64_t> trovati;
  for (int r = r0; r <= r1; ++r)
    for (int k = c0; k <= c1; ++k) {
      const size_t cella = static_cast<size_t>(r) * static_cast<size_t>(colonne_) + static_cast<size_t>(k);
      for (uint32_t j = inizio_[cella]; j < inizio_[cella + 1]; ++j) {
        const int64_t i = voci_[j];
        uint64_t& parola = visti_[static_cast<size_t>(i >> 6)];
        const uint64_t bit = uint64_t{1} << (i & 63);
        if (parola & bit) continue;
        parola |= bit;
        trovati.push_back(i);
      }
    }
  for (int64_t i : grandi_) trovati.push_back(i);
  for (int64_t i : trovati) visti_[static_cast<size_t>(i >> 6)] &= ~(uint64_t{1} << (i & 63));
  std::sort(trovati.begin(), trovati.end());
  trovati.erase(std::unique(trovati.begin(), trovati.end()), trovati.end());
  out.swap(trovati);
}

}  // namespace varena
