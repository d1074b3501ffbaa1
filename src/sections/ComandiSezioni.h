// The section commands: a section captured from picked points (through the terrain model
// when it has facets), the project height of a section, and the default layout applied,
// loaded and saved.
#pragma once

#include <cstdint>
#include <vector>

#include "sections/Sezione.h"

namespace varena {

struct Sessione;

// The clicks of code 373 (SEZIONI_CATTURA_PUNTI): a vertex each; the right button ends it.
void subSezioniCatturaPunti(Sessione& s);
void FineCatturaSezione(Sessione& s);
// Code 368 (CATTURA_SPEZZATA): a click on a line; the section runs along the chain of lines
// that meet end to end with it, from its western end, its heights from the lines or from
// the facets.
void subCatturaSpezzata(Sessione& s);
// Code 382 (SEZIONI_IN_SERIE): the clicks of an axis like those of 373; the right button
// asks the spacing and the width, and makes a cross section through the facets every
// spacing along the axis, square to it.
void FineSezioniInSerie(Sessione& s);
// Code 380 (SEZIONI_SOMMA): two sections clicked; the second goes on the end of the first
// and is deleted.
void subSommaSezioni(Sessione& s);
// Code 381 (SEZIONI_DIVIDI): a section clicked and the station asked where it is cut in
// two; the second part is a new section under the first.
void subDividiSezione(Sessione& s);

// The stations of a section along a polyline through the facets: one at each vertex and one
// where the line crosses a side, each with the height of the facet it lies on. Stations
// outside every facet are left out.
std::vector<StazioneSezione> StazioniSuFalde(const Sessione& s, const std::vector<double>& x,
                                             const std::vector<double>& y);

// The options of the dialog `Sezioni` for the sections made from the plan, kept among the
// user's settings (section "SEZIONI"), 1 on: stations renumbered in order, new points at
// the stations, lines along the trace.
inline constexpr const char* kRinumeraPunti = "SEZIONI_RINUMERA_PUNTI";
inline constexpr const char* kGeneraPunti = "GENERA_PUNTI";
inline constexpr const char* kGeneraLinee = "GENERA_LINEE";
bool ImpostazioneSezioni(Sessione& s, const char* chiave);

// The row of the section under the click of a command on sections; -1 for none, and with
// no section at all the user is told and the command ends.
int32_t SezioneCliccata(Sessione& s);

// The working copy of a section, and its return to the table with the regeneration and the
// undo snapshot every finished edit takes.
Sezione ScompattaSezione(const Sessione& s, int32_t riga);
void CompattaSezione(Sessione& s, int32_t riga, Sezione z);

// Profiles along the runs of the levellings from the middle; with none, "Livellazione
// assente!".
void AzioneSezioniDaLivellazione(Sessione& s);
void AzioneApplicaDefaultSezioni(Sessione& s);
void AzioneSalvaDefaultSezioni(Sessione& s);
void AzioneCaricaDefaultSezioni(Sessione& s);

}  // namespace varena
