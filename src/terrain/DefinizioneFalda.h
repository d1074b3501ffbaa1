// A facet defined by hand: three clicks on points, refused (unless the user insists) when it
// overlaps a facet there is.
#pragma once

namespace varena {

struct Sessione;

// The clicks of code 188 (DEFINIZIONE_FALDA).
void subDefinizioneFalde(Sessione& s);

// Whether the triangle overlaps a live facet: their sides cross, or one holds the other.
// Facets that only share a side or a vertex do not overlap.
bool FaldaSovrapposta(const Sessione& s, const double x[3], const double y[3]);

}  // namespace varena
