// A packed R-tree over boxes, for the nearest-entity searches: the boxes sorted along a
// space-filling curve, sixteen to a node, and a best-first walk that meets the boxes in order of
// their distance from a point. Whatever the distance of the nearest entity, a search opens
// only the nodes nearer than it.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace varena {

class IndiceAlbero {
 public:
  // Builds the tree over rows 0 .. n-1; `angoli(i, ...)` gives the corners of row i's box
  // (in any order), or false to leave the row out. A box with a coordinate that is not a
  // number is left out too: it is never met.
  template <class Angoli>
  void Costruisci(int64_t n, Angoli angoli);
  void Svuota();
  // The number of boxes it was built over: rows after these are not in it.
  int64_t Elementi() const { return n_; }

  // After a change of rows, `n` in all: `mappa(i)` gives the new row of row i, or -1 when
  // it is gone or changed; `nuovi` lists the rows new or changed. Their old entries are
  // left out, the new ones kept apart and met first by every walk; when those grow many the
  // tree is built again.
  template <class Mappa, class Angoli>
  void Aggiorna(int64_t n, Mappa mappa, const std::vector<int64_t>& nuovi, Angoli angoli);

  // Meets the boxes in order of increasing distance from (x, y), calling `valuta(indice)`,
  // as long as that distance does not exceed `soglia()`, read again after each call. The
  // rows changed since the tree was built come first, whatever their distance.
  template <class Valuta, class Soglia>
  void Visita(double x, double y, Valuta valuta, Soglia soglia) const;

 private:
  struct Scatola {
    double X0, Y0, X1, Y1;
    int64_t Id;
  };
  void Ordina(std::vector<Scatola>& scatole);
  // The distance from (x, y) to box `k`, squared.
  double Distanza2(size_t k, double x, double y) const {
    const double dx = std::max({static_cast<double>(x0_[k]) - x, 0.0, x - static_cast<double>(x1_[k])});
    const double dy = std::max({static_cast<double>(y0_[k]) - y, 0.0, y - static_cast<double>(y1_[k])});
    return dx * dx + dy * dy;
  }

  static constexpr size_t kNodo = 16;
  int64_t n_ = 0;      // boxes given
  size_t voci_ = 0;    // boxes kept, at the front of the arrays
  double ox_ = 0, oy_ = 0;  // the origin the boxes are stored from, in 32 bits, rounded outwards
  std::vector<float> x0_, y0_, x1_, y1_;
  std::vector<int64_t> indice_;    // an entry: its row; a node: the position of its first child
  std::vector<size_t> livelli_;    // the end of each level, entries first, the root last
  mutable std::vector<std::pair<double, size_t>> coda_;
  std::vector<int64_t> aggiunti_;  // rows changed since the tree was built
  int64_t rimossi_ = 0;            // entries that hold -1 since
};

// The trees of the searches by kind: points at the North offset of their labels, the
// display-list lines of kind 2, the list lines of facets, contours, sections, images and the
// extract, the boxes of circles and of arcs' circles, the insertions of texts. Rows beyond
// `Elementi()` of each were added since, and are searched one by one.
struct IndiciVicinanza {
  IndiceAlbero Punti, Linee, AltreLinee, Cerchi, Archi, Testi;
};

template <class Angoli>
void IndiceAlbero::Costruisci(int64_t n, Angoli angoli) {
  Svuota();
  n_ = std::max<int64_t>(n, 0);
  std::vector<Scatola> scatole;
  scatole.reserve(static_cast<size_t>(n_));
  for (int64_t i = 0; i < n_; ++i) {
    double a = 0, b = 0, c = 0, d = 0;  // set by `angoli`; a caller that returns false may leave them
    if (!angoli(i, a, b, c, d)) continue;
    if (!std::isfinite(a) || !std::isfinite(b) || !std::isfinite(c) || !std::isfinite(d)) continue;
    scatole.push_back({std::min(a, c), std::min(b, d), std::max(a, c), std::max(b, d), i});
  }
  Ordina(scatole);
}

template <class Valuta, class Soglia>
void IndiceAlbero::Visita(double x, double y, Valuta valuta, Soglia soglia) const {
  for (int64_t i : aggiunti_) valuta(i);
  if (voci_ == 0) return;
  const double px = x - ox_, py = y - oy_;
  auto maggiore = [](const std::pair<double, size_t>& a, const std::pair<double, size_t>& b) { return a.first > b.first; };
  coda_.clear();
  const size_t radice = livelli_.back() - 1;
  coda_.emplace_back(Distanza2(radice, px, py), radice);
  while (!coda_.empty()) {
    std::pop_heap(coda_.begin(), coda_.end(), maggiore);
    const auto [d2, k] = coda_.back();
    coda_.pop_back();
    const double s = soglia();
    if (d2 > s * s) return;
    if (k < voci_) {
      if (indice_[k] >= 0) valuta(indice_[k]);
      continue;
    }
    // The level of node k, and its children in the level below.
    size_t livello = 1;
    while (k >= livelli_[livello]) ++livello;
    const auto primo = static_cast<size_t>(indice_[k]);
    const size_t fine = std::min(primo + kNodo, livelli_[livello - 1]);
    for (size_t c = primo; c < fine; ++c) {
      coda_.emplace_back(Distanza2(c, px, py), c);
      std::push_heap(coda_.begin(), coda_.end(), maggiore);
    }
  }
}

template <class Mappa, class Angoli>
void IndiceAlbero::Aggiorna(int64_t n, Mappa mappa, const std::vector<int64_t>& nuovi, Angoli angoli) {
  const auto soglia = static_cast<size_t>(std::max<int64_t>(1024, n / 8));
  if (livelli_.empty() || aggiunti_.size() + nuovi.size() > soglia || rimossi_ > n / 4 + 1024) {
    Costruisci(n, angoli);
    return;
  }
  for (size_t k = 0; k < voci_; ++k)
    if (indice_[k] >= 0 && (indice_[k] = mappa(indice_[k])) < 0) ++rimossi_;
  for (int64_t& i : aggiunti_) i = mappa(i);
  std::erase(aggiunti_, int64_t{-1});
  n_ = std::max<int64_t>(n, 0);
  for (int64_t i : nuovi) {
    double a = 0, b = 0, c = 0, d = 0;  // set by `angoli`; a caller that returns false may leave them
    if (angoli(i, a, b, c, d) && std::isfinite(a) && std::isfinite(b) && std::isfinite(c) && std::isfinite(d))
      aggiunti_.push_back(i);
  }
}

}  // namespace varena
