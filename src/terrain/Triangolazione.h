// The hand-off of the selected points and of the breaklines to the triangulator, its start,
// and the facets read back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

// The program folder's hand-off file of that name.
std::string FileConsegna(const Sessione& s, const char* nome);

// Steps 1 and 2 of the hand-off: of each cluster of selected points closer than 0.025 the
// last survives; the survivors but the planimetric ones ("<P!>") are written to
// `provviso.tom` in table order. Every selection flag it looks at is cleared. The rows of
// the points written, in file order; none (and no file) when they exceed the bound, or
// when one has a coordinate that is not a number (said in a message).
std::vector<int32_t> PreparaConsegna(Sessione& s, bool& troppi);

// `FormDSQ`: the lines of `DISCONTI` whose ends both stand on rows of `provviso.tom`, joined
// into chains and written to `provviso.dsq`, one line a chain. The rows of the file are
// 1-based. Returns the chains; none when `provviso.tom` is absent.
std::vector<std::string> FormDSQ(Sessione& s);

// The joining of breakline pieces (each two rows, the smaller first, sorted, no duplicates)
// into chains, as `FormDSQ` does it.
std::vector<std::vector<int32_t>> UnisciCatene(std::vector<std::vector<int32_t>> voci);

// Step 9: `provviso.EQU`, when present, replaces the facet table, or with `aggiungi` comes
// after the facets there. A file that is not a whole number of records goes to the error
// report and changes nothing. True when read.
bool LeggiFaldeConsegna(Sessione& s, bool aggiungi = false);

// The whole chain of the commands that compute the facets: `daCapo` deletes an old answer
// first and the new facets replace the old; otherwise they are added to the old ones (a
// new piece of ground beside a model already made). The triangulator is `varena-mesh`,
// started through the `Processi` port in the program folder. True when new facets came back.
bool VR_TriangolaPunti(Sessione& s, bool daCapo);

// The facet commands work only while the facets are shown; otherwise "Falde NON Attive!".
bool FaldeAttive(Sessione& s);

}  // namespace varena
