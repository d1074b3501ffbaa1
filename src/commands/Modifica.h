// The end of every change a command makes to the job: the undo snapshot, which makes the
// drawing again from the tables. The tables changed in place are marked by the caller
// (`SegnaModificato`); rows appended are marked by their grow routine.
#pragma once

namespace varena {

struct Sessione;

// Without a job open no snapshot can be taken: the drawing is then made again here, or only
// repainted (`rigenera` false) for a change whose display-list records are already in
// place (a line appended with its records, a point, a name).
void FineModifica(Sessione& s, bool rigenera = true);

}  // namespace varena
