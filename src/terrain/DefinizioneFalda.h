// Facets edited by hand: one defined by three clicks on points, refused (unless the user
// insists) when it overlaps a facet there is; two neighbours flipped across their common side.
#pragma once

#include <cstdint>

namespace varena {

struct Sessione;

// The clicks of code 188 (DEFINIZIONE_FALDA).
void subDefinizioneFalde(Sessione& s);

// The clicks of code 399 (INVERTI_FALDE): two facets that share a side take the other
// diagonal of the quadrilateral they make.
void subInvertiFalde(Sessione& s);

// The live, unfrozen facet under (x, y), or -1.
int32_t FaldaSottoIlPuntatore(const Sessione& s, double x, double y);

// Whether the triangle overlaps a live facet: their sides cross, or one holds the other.
// Facets that only share a side or a vertex do not overlap.
bool FaldaSovrapposta(const Sessione& s, const double x[3], const double y[3]);

}  // namespace varena
