// The crossing of two picked entities, for the intersection snap: their carriers meet (the
// infinite line of a segment, the whole circle of an arc) and of two crossings the one
// nearer to the pointer is taken.
#pragma once

#include "snap/RisultatoVicina.h"
#include "survey/Primitive.h"

namespace varena {

// `a` and `b` as the general search gave them. A status below 2 writes `punto`; kinds
// without a carrier (points, texts) and carriers that do not meet give `kNessunaSoluzione`.
Esito IncrociaEntita(const RisultatoVicina& a, const RisultatoVicina& b, double x, double y, PuntoXYZ& punto);

}  // namespace varena
