// The per-kind savers: each writes its member of `NomeLavoro` from the tables, keeping only
// the rows that a reload should see, and `SalvaTutto`, which writes the whole job.
#pragma once

namespace varena {

struct Sessione;

// Rows of an included drawing, on layer "INCLUSI", are never written: a reload reads them
// again from where they came.
void SalvaPunti(Sessione& s);   // live rows, not in layer "INCLUSI"
void SalvaLinee(Sessione& s);   // live rows, not in layer "ZZZ" or "INCLUSI"
void SalvaCerchi(Sessione& s);  // live rows, not in layer "INCLUSI"; the same for arcs and texts
void SalvaArchi(Sessione& s);
void SalvaTesti(Sessione& s);
void SalvaFalde(Sessione& s);
void SalvaSette(Sessione& s);   // every row, deleted ones too
void SalvaCurve(Sessione& s);   // every row; the old file becomes the backup
void SalvaInf(Sessione& s);
void SalvaSezioni(Sessione& s);
void SalvaBitmap(Sessione& s);
void SalvaLibretto(Sessione& s);
void SalvaListaL(Sessione& s);  // the point list for other tools, not in layer "INCLUSI"
void Salva126(Sessione& s);
void SalvaCel(Sessione& s);
void SalvaCfg(Sessione& s);
void SalvaPiani(Sessione& s);

// Every member of the job into `NomeLavoro`, in the fixed order, so that the files hold
// what the tables hold. Only what changed is written: the record members of the slots
// marked in `SlotModificato` (the point list `.L` goes with the points), and the text
// members whose bytes differ from the file; every other member is left as it stands,
// still shared with the undo generations. `completo` writes every member again. A member
// the load read with an error (`MembroGuasto`) is never written: it stays as it was read.
// False when one failed (the common error box has been shown); the marks then stay.
bool SalvaTutto(Sessione& s, bool completo = false);

}  // namespace varena
