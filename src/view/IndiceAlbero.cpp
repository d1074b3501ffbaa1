#include "view/IndiceAlbero.h"

#include <limits>

#include "core/Conversioni.h"

namespace varena {

namespace {

// The bits of a 16-bit value spread to the even places of 32.
uint32_t Sparsi(uint32_t v) {
  v = (v | (v << 8)) & 0x00FF00FFu;
  v = (v | (v << 4)) & 0x0F0F0F0Fu;
  v = (v | (v << 2)) & 0x33333333u;
  v = (v | (v << 1)) & 0x55555555u;
  return v;
}

// The position along a Z curve of a cell of a 65536 x 65536 grid: boxes near each other on
// the sheet come near each other in the order, and so in the same nodes.
uint32_t CurvaZ(uint32_t x, uint32_t y) { return Sparsi(x) | (Sparsi(y) << 1); }

float Giu(double v) {
  float f = static_cast<float>(v);
  if (static_cast<double>(f) > v) f = std::nextafter(f, -std::numeric_limits<float>::infinity());
  return f;
}
float Su(double v) {
  float f = static_cast<float>(v);
  if (static_cast<double>(f) < v) f = std::nextafter(f, std::numeric_limits<float>::infinity());
  return f;
}

}  // namespace

void IndiceAlbero::Svuota() {
  n_ = 0;
  voci_ = 0;
  x0_.clear(), y0_.clear(), x1_.clear(), y1_.clear();
  indice_.clear();
  livelli_.clear();
  aggiunti_.clear();
  rimossi_ = 0;
}

void IndiceAlbero::Ordina(std::vector<Scatola>& scatole) {
  voci_ = scatole.size();
  if (voci_ == 0) return;
  double minX = scatole[0].X0, minY = scatole[0].Y0, maxX = scatole[0].X1, maxY = scatole[0].Y1;
  for (const Scatola& b : scatole) {
    minX = std::min(minX, b.X0), minY = std::min(minY, b.Y0);
    maxX = std::max(maxX, b.X1), maxY = std::max(maxY, b.Y1);
  }
  // Stored from the lower left corner: a survey's millions of metres keep their millimetres
  // in 32 bits once the origin is taken off.
  ox_ = minX, oy_ = minY;
  const double lx = std::max(maxX - minX, 1e-9), ly = std::max(maxY - minY, 1e-9);
  // The curve's position in the high half, the entry in the low one: one sort of plain
  // integers orders the entries.
  std::vector<uint64_t> ordine(voci_);
  for (size_t i = 0; i < voci_; ++i) {
    const Scatola& b = scatole[i];
    const double cx = ((b.X0 + b.X1) / 2 - minX) / lx, cy = ((b.Y0 + b.Y1) / 2 - minY) / ly;
    const uint64_t h = CurvaZ(std::min(InteroSaturato<uint32_t>(cx * 65535), 65535u),
                               std::min(InteroSaturato<uint32_t>(cy * 65535), 65535u));
    ordine[i] = h << 32 | static_cast<uint64_t>(i);
  }
  std::sort(ordine.begin(), ordine.end());

  // Every level above the entries, down to a root that is always a node.
  size_t totale = voci_, livello = voci_;
  do {
    livello = (livello + kNodo - 1) / kNodo;
    totale += livello;
  } while (livello > 1);
  x0_.resize(totale), y0_.resize(totale), x1_.resize(totale), y1_.resize(totale), indice_.resize(totale);
  for (size_t k = 0; k < voci_; ++k) {
    const Scatola& b = scatole[static_cast<size_t>(ordine[k] & 0xFFFFFFFFu)];
    // Rounded outwards, so that a stored box always holds the true one.
    x0_[k] = Giu(b.X0 - ox_), y0_[k] = Giu(b.Y0 - oy_);
    x1_[k] = Su(b.X1 - ox_), y1_[k] = Su(b.Y1 - oy_);
    indice_[k] = b.Id;
  }
  livelli_.push_back(voci_);
  size_t inizio = 0, fine = voci_, pos = voci_;
  while (fine - inizio > 1 || livelli_.size() == 1) {
    for (size_t primo = inizio; primo < fine; primo += kNodo) {
      const size_t ultimo = std::min(primo + kNodo, fine);
      float a = x0_[primo], b = y0_[primo], c = x1_[primo], d = y1_[primo];
      for (size_t j = primo + 1; j < ultimo; ++j) {
        a = std::min(a, x0_[j]), b = std::min(b, y0_[j]);
        c = std::max(c, x1_[j]), d = std::max(d, y1_[j]);
      }
      x0_[pos] = a, y0_[pos] = b, x1_[pos] = c, y1_[pos] = d;
      indice_[pos] = static_cast<int64_t>(primo);
      ++pos;
    }
    inizio = fine;
    fine = pos;
    livelli_.push_back(fine);
  }
  x0_.resize(pos), y0_.resize(pos), x1_.resize(pos), y1_.resize(pos), indice_.resize(pos);
}

}  // namespace varena
