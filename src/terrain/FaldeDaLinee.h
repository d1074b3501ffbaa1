// Facets from a network of lines: the lines selected or on `TRIFALDE` (those of the
// triangulation of the fiducial points) become the triangles they close; and the removal of
// facets that hold a point of the network.
#pragma once

namespace varena {

struct Sessione;

// `FaldeDaLinee`: `aggiungi` keeps the facets there are; `daTripf` then deletes the lines of
// `TRIFALDE` and the selected ones, which were only the network.
void FaldeDaLinee(Sessione& s, bool aggiungi, bool daTripf);

// `TRIPF`: the fiducial points (names beginning "PF") triangulated by their shortest edges
// that cross no shorter one, the edges as lines of `TRIFALDE`, then `FaldeDaLinee`.
void TRIPF(Sessione& s);

// `EliminaFaldeIncluse`: a facet with a live point inside it, farther than 0.1 from its
// three vertices, is deleted. After `TRIPF` only the fiducial points count: the others
// were never part of its network.
void EliminaFaldeIncluse(Sessione& s, bool soloFiduciali = false);

}  // namespace varena
