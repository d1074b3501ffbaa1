// Picture sizes from the headers of the usual formats.
#include "view/DimensioniImmagine.h"

#include <cstdint>
#include <cstdlib>

namespace varena {

namespace {

uint32_t Byte(std::string_view b, size_t i) { return static_cast<unsigned char>(b[i]); }
uint32_t Grande16(std::string_view b, size_t i) { return Byte(b, i) << 8 | Byte(b, i + 1); }
uint32_t Grande32(std::string_view b, size_t i) { return Grande16(b, i) << 16 | Grande16(b, i + 2); }
uint32_t Piccolo16(std::string_view b, size_t i) { return Byte(b, i) | Byte(b, i + 1) << 8; }
uint32_t Piccolo32(std::string_view b, size_t i) { return Piccolo16(b, i) | Piccolo16(b, i + 2) << 16; }

std::optional<DimensioniPixel> Valide(int64_t larghezza, int64_t altezza) {
  if (larghezza <= 0 || altezza <= 0 || larghezza > 1000000 || altezza > 1000000) return std::nullopt;
  return DimensioniPixel{static_cast<int>(larghezza), static_cast<int>(altezza)};
}

std::optional<DimensioniPixel> Jpeg(std::string_view b) {
  size_t i = 2;
  while (i + 4 <= b.size()) {
    if (Byte(b, i) != 0xFF) return std::nullopt;
    const uint32_t marca = Byte(b, i + 1);
    // Fill bytes, and the markers that stand alone without a length.
    if (marca == 0xFF) {
      ++i;
      continue;
    }
    if (marca == 0x01 || (marca >= 0xD0 && marca <= 0xD7)) {
      i += 2;
      continue;
    }
    const uint32_t lunghezza = Grande16(b, i + 2);
    if (lunghezza < 2) return std::nullopt;
    // The start of a frame, of any coding but the tables that share the range.
    const bool telaio = marca >= 0xC0 && marca <= 0xCF && marca != 0xC4 && marca != 0xC8 && marca != 0xCC;
    if (telaio) {
      if (i + 9 > b.size()) return std::nullopt;
      return Valide(Grande16(b, i + 7), Grande16(b, i + 5));
    }
    i += 2 + lunghezza;
  }
  return std::nullopt;
}

}  // namespace

std::optional<DimensioniPixel> DimensioniImmagine(std::string_view b) {
  if (b.size() >= 24 && b.substr(0, 8) == std::string_view("\x89PNG\r\n\x1a\n", 8) && b.substr(12, 4) == "IHDR")
    return Valide(Grande32(b, 16), Grande32(b, 20));
  if (b.size() >= 10 && (b.substr(0, 6) == "GIF87a" || b.substr(0, 6) == "GIF89a"))
    return Valide(Piccolo16(b, 6), Piccolo16(b, 8));
  if (b.size() >= 26 && b.substr(0, 2) == "BM") {
    // The old OS/2 header holds 16-bit sizes; the others 32-bit, a negative height for a
    // picture stored top down.
    if (Piccolo32(b, 14) == 12) return Valide(Piccolo16(b, 18), Piccolo16(b, 20));
    return Valide(static_cast<int32_t>(Piccolo32(b, 18)), std::llabs(static_cast<int32_t>(Piccolo32(b, 22))));
  }
  if (b.size() >= 4 && Byte(b, 0) == 0xFF && Byte(b, 1) == 0xD8) return Jpeg(b);
  return std::nullopt;
}

}  // namespace varena
