// The terrain settings a job keeps in its `.CFG`: the contour interval and reference height,
// the smoothing limits, the curve colours and switch, and the label sizes of curves and
// facets. They stand in rows of block A (the same rows SALVAINI5.INI carries from one job to
// the next), where the legacy program leaves them at 0. A dialog sets them.
#pragma once

namespace varena {

struct BloccoCfg;
struct Sessione;
struct StatoTerreno;

// The values put back in range: an interval of 0 becomes 1 (a negative one its size), a
// deviation limit below 30 gon becomes 30, a step below 1 becomes 1; a colour below 1 and a
// label height of 0 or less are a row never set, and read as the defaults.
void CorreggiImpostazioniTerreno(StatoTerreno& t);

// The settings as the rows of block A give them, put back in range.
void ImpostazioniDaBloccoA(Sessione& s);
// The settings into block A. A row is written only when it no longer reads as its setting,
// so that a job opened and saved keeps its `.CFG` to the byte.
void ImpostazioniInBloccoA(Sessione& s);

// IMPOSTAZIONI_TERRENO: every setting above and the switches of the curve and facet labels in
// one dialog; OK puts them back in range, works the facets again against the reference
// height and draws again.
bool ApriFormImpostazioniTerreno(Sessione& s);

}  // namespace varena
