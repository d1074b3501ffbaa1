// A uniform grid over boxes in world coordinates, so that a redraw or a search touches only
// what lies near the view instead of scanning the whole drawing.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace varena {

class IndiceGriglia {
 public:
  // Builds the grid over `n` boxes given by their corners (in any order).
  template <class Angoli>
  void Costruisci(int64_t n, Angoli angoli);
  void Svuota();
  int64_t Elementi() const { return n_; }

  // After a change of `n` boxes in all: `mappa(i)` gives the new index of box i, or -1 when
  // it is gone or changed; `nuovi` lists the indexes whose boxes are new or changed. Their
  // old places are left out, the new boxes are kept apart and offered to every search, and
  // when those grow many the grid is built again.
  template <class Mappa, class Angoli>
  void Aggiorna(int64_t n, Mappa mappa, const std::vector<int64_t>& nuovi, Angoli angoli);

  // The indexes of the boxes that may touch the rectangle, in increasing order, each once.
  void Cerca(double xmin, double ymin, double xmax, double ymax, std::vector<int64_t>& risultato) const;

 private:
  static bool Misurabile(double a, double b, double c, double d) {
    return std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d);
  }
  void Prepara(double xmin, double ymin, double xmax, double ymax, int64_t n);
  void Celle(double xmin, double ymin, double xmax, double ymax, int& c0, int& r0, int& c1, int& r1) const;

  int64_t n_ = 0;
  double x0_ = 0, y0_ = 0, lato_ = 1;
  int colonne_ = 0, righe_ = 0;
  std::vector<uint32_t> inizio_;      // cell -> first entry in voci_, one more at the end
  std::vector<int64_t> voci_;         // box indexes by cell
  std::vector<int64_t> grandi_;       // boxes spanning too many cells: always candidates
  std::vector<int64_t> esclusi_;      // boxes that cannot be placed, in increasing order
  // Boxes changed since the grid was built, with their corners; their places in the cells
  // hold -1, as do those of boxes gone.
  struct Aggiunto {
    int64_t Id;
    double X0, Y0, X1, Y1;
  };
  std::vector<Aggiunto> aggiunti_;
  int64_t rimossi_ = 0;
  mutable std::vector<uint64_t> visti_;  // one bit per box, for a query
};

template <class Angoli>
void IndiceGriglia::Costruisci(int64_t n, Angoli angoli) {
  Svuota();
  n_ = n;
  if (n <= 0) return;
  double xmin = 1e300, ymin = 1e300, xmax = -1e300, ymax = -1e300;
  for (int64_t i = 0; i < n; ++i) {
    double a, b, c, d;
    angoli(i, a, b, c, d);
    if (!Misurabile(a, b, c, d)) {  // not a number, or an overflow: never found
      esclusi_.push_back(i);
      continue;
    }
    xmin = std::min({xmin, a, c});
    ymin = std::min({ymin, b, d});
    xmax = std::max({xmax, a, c});
    ymax = std::max({ymax, b, d});
  }
  Prepara(xmin, ymin, xmax, ymax, n);
  // Two passes: count per cell, then fill, so the grid is two flat arrays.
  std::vector<uint32_t> conta(static_cast<size_t>(colonne_) * static_cast<size_t>(righe_) + 1, 0);
  auto perCella = [&](auto&& f) {
    for (int64_t i = 0; i < n; ++i) {
      double a, b, c, d;
      angoli(i, a, b, c, d);
      if (!Misurabile(a, b, c, d)) continue;
      int c0, r0, c1, r1;
      Celle(std::min(a, c), std::min(b, d), std::max(a, c), std::max(b, d), c0, r0, c1, r1);
      if (static_cast<int64_t>(c1 - c0 + 1) * (r1 - r0 + 1) > 16) {
        f(i, -1);
        continue;
      }
      for (int r = r0; r <= r1; ++r)
        for (int k = c0; k <= c1; ++k) f(i, r * colonne_ + k);
    }
  };
  perCella([&](int64_t, int cella) {
    if (cella >= 0) ++conta[static_cast<size_t>(cella)];
  });
  inizio_.assign(conta.size(), 0);
  for (size_t k = 1; k < conta.size(); ++k) inizio_[k] = inizio_[k - 1] + conta[k - 1];
  voci_.assign(inizio_.back(), 0);
  std::vector<uint32_t> pos(inizio_.begin(), inizio_.end() - 1);
  perCella([&](int64_t i, int cella) {
    if (cella < 0)
      grandi_.push_back(i);
    else
      voci_[pos[static_cast<size_t>(cella)]++] = i;
  });
}

template <class Mappa, class Angoli>
void IndiceGriglia::Aggiorna(int64_t n, Mappa mappa, const std::vector<int64_t>& nuovi, Angoli angoli) {
  const auto soglia = static_cast<size_t>(std::max<int64_t>(1024, n / 8));
  if (colonne_ == 0 || aggiunti_.size() + nuovi.size() > soglia || rimossi_ > n / 4 + 1024) {
    Costruisci(n, angoli);
    return;
  }
  for (int64_t& v : voci_)
    if (v >= 0 && (v = mappa(v)) < 0) ++rimossi_;
  auto rimappa = [&mappa](std::vector<int64_t>& v) {
    for (int64_t& i : v) i = mappa(i);
    std::erase(v, int64_t{-1});
  };
  rimappa(grandi_);
  rimappa(esclusi_);
  for (Aggiunto& a : aggiunti_) a.Id = mappa(a.Id);
  std::erase_if(aggiunti_, [](const Aggiunto& a) { return a.Id < 0; });
  n_ = n;
  for (int64_t i : nuovi) {
    double a, b, c, d;
    angoli(i, a, b, c, d);
    if (Misurabile(a, b, c, d))
      aggiunti_.push_back({i, std::min(a, c), std::min(b, d), std::max(a, c), std::max(b, d)});
    else
      esclusi_.insert(std::lower_bound(esclusi_.begin(), esclusi_.end(), i), i);
  }
  visti_.assign(static_cast<size_t>((n + 63) / 64), 0);
}

}  // namespace varena
