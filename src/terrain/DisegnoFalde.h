// The facets in the display list: their outline and, when asked, their labels.
#pragma once

#include <cstdint>

namespace varena {

struct Sessione;

void RigeneraFalda(Sessione& s, int32_t riga);

}  // namespace varena
