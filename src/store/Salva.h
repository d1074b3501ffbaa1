// The per-kind savers: each writes its member of `NomeLavoro` from the tables, keeping only
// the rows that a reload should see.
#pragma once

namespace varena {

struct Sessione;

void SalvaPunti(Sessione& s);   // live rows, not in layer "INCLUSI"
void SalvaLinee(Sessione& s);   // live rows, not in layer "ZZZ"
void SalvaCerchi(Sessione& s);
void SalvaArchi(Sessione& s);
void SalvaTesti(Sessione& s);
void SalvaFalde(Sessione& s);
void SalvaSette(Sessione& s);   // every row, deleted ones too
void SalvaCurve(Sessione& s);   // every row; the old file becomes the backup
void SalvaInf(Sessione& s);
void SalvaSezioni(Sessione& s);
void SalvaBitmap(Sessione& s);
void SalvaLibretto(Sessione& s);
void SalvaListaL(Sessione& s);  // the point list for other tools
void Salva126(Sessione& s);
void SalvaCel(Sessione& s);
void SalvaCfg(Sessione& s);
void SalvaPiani(Sessione& s);

// Every member of the job into `NomeLavoro`, in the fixed order. False when one failed
// (the common error box has been shown).
bool SalvaTutto(Sessione& s);

}  // namespace varena
