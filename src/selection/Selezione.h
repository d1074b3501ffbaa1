// The selection: not a list but the state byte of each row of each table, 1 for selected.
// The ways of taking rows (one by one, by window, all, by kind, colour or layer), the count,
// the mirror into the display list that paints selected records inverted, and the two list
// files that carry a selection over: `.uls` for the entities, `selepunt.ini` for points.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "view/Zoom.h"

namespace varena {

struct Sessione;

// The kinds that have state bytes, in the order of their slots.
inline constexpr int kGeneriSelezione[] = {1, 2, 3, 4, 5, 6, 9, 12, 13};

// The state byte of a row, or null for a kind without one or a row out of range.
uint8_t* ByteStato(Sessione& s, int tipo, int32_t riga);
uint8_t StatoDi(const Sessione& s, int tipo, int32_t riga);

// A live row that may be taken: not deleted, and not frozen unless the command is the
// thaw (141), which exists to reach frozen rows. A point counts as frozen when its symbol
// and its name both are, as it is then neither drawn nor found.
bool Selezionabile(const Sessione& s, int tipo, int32_t riga);

// A frozen entity is neither drawn nor found; a point is frozen when its symbol and its name
// both are.
bool Congelato(const Sessione& s, int tipo, size_t riga);

// `MarcaEntita`: `ValoreSelezione` into the state byte, and the row kept as the last one.
void MarcaEntita(Sessione& s, int tipo, int32_t riga);
// The same with the value given.
void MarcaEntita(Sessione& s, int tipo, int32_t riga, uint8_t valore);

// The rows selected over every kind (and over the points alone).
int64_t ContaSelezionati(const Sessione& s);
int64_t ContaPuntiSelezionati(const Sessione& s);

// `Stato` of every display-list record from the state byte of its row: what a regeneration
// would copy, without making the list again.
void SpecchiaSelezione(Sessione& s);
// Every state byte 0, and the list's mirror with them.
void AzzeraSelezione(Sessione& s);

// The dialog's buttons. Each writes `ValoreSelezione` into the rows it takes and returns
// how many rows it went over. Points take part only when `PuntiInSelezione` is 1.
int64_t SelezionaTutto(Sessione& s);
// One kind: 1 (points, only with `PuntiInSelezione`), 2, 3, 4, 5, 6, 9 (contour vertices), 13.
int64_t SelezionaGenere(Sessione& s, int tipo);
int64_t SelezionaColore(Sessione& s, int32_t colore);
int64_t SelezionaPiano(Sessione& s, std::string_view piano);

// The window from the first corner (x1, y1) to the second (x2, y2). Drawn left to right
// (x2 > x1) a row is taken only when wholly inside; drawn right to left, when it touches
// the box. Tests are inclusive. `soloPunti`: the points alone, whatever
// `PuntiInSelezione` says (the window of `SelezPunti`).
int64_t SelezionaFinestra(Sessione& s, double x1, double y1, double x2, double y2, bool soloPunti = false);

// The rectangle on the sheet of the rows selected (a circle or an arc by its whole circle, a
// text by its insertion point); none when nothing is selected.
std::optional<Rettangolo> IngombroSelezione(const Sessione& s);

// The colour and the layer of a row, as the selections by colour and by layer compare
// them; false for a kind that has none.
bool ColoreDi(const Sessione& s, int tipo, int32_t riga, int32_t& colore);
bool PianoDi(const Sessione& s, int tipo, int32_t riga, std::string& piano);

// `.uls`: in the folder of the job as the user knows it, `NomeGruppo` as base (the job's
// name when that is empty). Kind after kind in the slot order 1 to 13, the number of rows
// selected of the kind, then each row, one integer a line. Empty when no job is open.
std::string PercorsoUls(const Sessione& s);
void ScriviUls(Sessione& s);
// The rows listed are marked again. False when there is no list to read.
bool CaricaUls(Sessione& s);

// `temp\selepunt.ini` of the working root: the names of the points selected, one a line.
std::string PercorsoSelePunt(const Sessione& s);
void SalvaSelePunt(Sessione& s);
// Every live point bearing a listed name is marked. Returns the points marked.
int64_t CaricaSelePunt(Sessione& s);

}  // namespace varena
