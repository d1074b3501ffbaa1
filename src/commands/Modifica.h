// The end of every change a command makes to the job: the undo snapshot, then the drawing
// made again from the tables.
#pragma once

namespace varena {

struct Sessione;

// `rigenera` false for a change whose display-list records are already in place (a line
// appended with its records, a point, a name): a redraw is enough.
void FineModifica(Sessione& s, bool rigenera = true);

}  // namespace varena
