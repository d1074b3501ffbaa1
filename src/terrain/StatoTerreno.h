// The state of the terrain work that a job keeps while it is open: facet display and labels,
// and the label heights.
#pragma once

#include <cstdint>

namespace varena {

struct StatoTerreno {
  bool FaldeAttive = true;      // the facet commands work only while the facets are shown
  bool EtichetteFalde = false;  // the number, area, cut and fill of each facet on the drawing
  double AltezzaNumero = 1.0;   // height of the facet's number label
  double AltezzaValori = 1.0;   // height of the area, cut and fill labels
  int32_t FaldaScelta = -1;     // the first facet picked by the edge flip
};

}  // namespace varena
