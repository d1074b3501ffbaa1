// Contorno-7: the survey structures (cadastral contours, traverses, right-angle traverses,
// levellings, sections) as lists of point names, and the lines they are drawn with, made
// again from the points at every regeneration so that a structure follows its points.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;
class IndiceNomi;

// The kinds that are no plain contour.
inline constexpr const char* kPoligonale = "POLIGONALE";
inline constexpr const char* kSquadro = "SQUADRO";
inline constexpr const char* kCogo = "COGO";
inline constexpr const char* kLivellazioneRaggiante = "LIVELLAZIONE RAGGIANTE";
inline constexpr const char* kLivellazioneDalMezzo = "LIVELLAZIONE DAL MEZZO";
inline constexpr const char* kSezione = "SEZIONE";

// The letters of a line code, as Pregeo writes them: the pen of a side new ("N", 250),
// removed ("R", 1) or changed ("V", 3), and its line type ("C" 1, "T" 2, "P" 3).
void CodiceLinea(std::string_view campo, int32_t& penna, int& stile);

// The kinds whose pen is fixed at creation, as the office program draws them.
bool TipoStrutturaRilievo(std::string_view commento);

// `subAggiungiSetteSingolo`: one record appended as given. Returns its row.
int32_t subAggiungiSetteSingolo(Sessione& s, const std::string& contorno, const std::string& commento,
                                const std::string& particella, int32_t colore, int16_t tratteggio);
// `DefinizioneContornoSette`: a record of `elenco` ("|A|B|...|") with the pending kind,
// label and pen, then its lines drawn unless `disegna` is false (a reader that makes many
// and regenerates once). Returns its row.
int32_t DefinizioneContornoSette(Sessione& s, const std::string& elenco, bool disegna = true);

// One record's lines, the points found through `indice`.
void RigeneraSetteSingolo(Sessione& s, int32_t riga, const IndiceNomi& indice);
// `RigeneraSetteSette`, record by record as a regeneration goes: the lines of a live record
// to the display list; a record of no vertex draws nothing. The points by name are looked up
// once for all the records of one regeneration.
void RigeneraSetteRiga(Sessione& s, int32_t riga);

}  // namespace varena
