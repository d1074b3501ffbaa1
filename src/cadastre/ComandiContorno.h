// The commands of the field book and of the survey structures: the book's heights, scheme and
// whole drawing, the structures picked point by point and confirmed in their dialog, and the
// deletion of the structures by kind.
#pragma once

#include <string>

namespace varena {

struct Sessione;

// HPS_DA_LIBRETTO, SCHEMA_DA_LIBRETTO, DISEGNO_DA_LIBRETTO.
void AzioneHPSDaLibretto(Sessione& s);
void AzioneSchemaDaLibretto(Sessione& s);
void AzioneDisegnoDaLibretto(Sessione& s);
// ELIMINA_CONTORNI_7, ELIMINA_SQUADRI, ELIMINA_LIVELLAZIONI, ELIMINA_PV_PD: each asks first.
void AzioneEliminaStrutture(Sessione& s);

// The clicks of the structures (codes 190, 230, 298, 299, 300, 430): each point picked is
// one more vertex, until the right button opens `ContornoSette`.
void subContornoSette(Sessione& s);
// The kind a structure command makes; empty for a plain contour.
std::string TipoDelComando(int32_t codice);
// `ContornoSette`: the vertices picked, to add to, insert into, delete from and confirm.
bool ApriContornoSette(Sessione& s);
// `SelezionaContorno7`: the live records by "Commento" and "Punti Contorno"; the one whose
// place in the list is typed in `Riga` is shown selected.
bool ApriSelezionaContorno7(Sessione& s);

}  // namespace varena
