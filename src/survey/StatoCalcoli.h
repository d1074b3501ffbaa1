// What the office computations keep between the clicks and the buttons of their dialogs.
#pragma once

#include "survey/DivisioneAree.h"

namespace varena {

struct StatoCalcoli {
  StatoDivisione Divisione;
};

}  // namespace varena
