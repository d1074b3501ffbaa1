// The size in pixels of a picture file, read from its header: PNG, GIF, BMP and JPEG, the
// kinds a scanned map comes in. Nothing is decoded.
#pragma once

#include <optional>
#include <string_view>

namespace varena {

struct DimensioniPixel {
  int Larghezza = 0;
  int Altezza = 0;
};

// No value for a file of another kind, or one cut short before its size.
std::optional<DimensioniPixel> DimensioniImmagine(std::string_view byte);

}  // namespace varena
