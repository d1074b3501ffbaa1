// The section table on disk (`.SEZ`) and the default layout (`glainalploz.ini`): list
// statements, one block a section, the layout first, then the stations.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sections/Sezione.h"

namespace varena {

class LettoreLista;
struct Sessione;

// The marks that open and close each section's block.
inline constexpr const char* kInizioSezione = "<INIZIO SEZIONE>";
inline constexpr const char* kFineSezione = "<FINE SEZIONE>";

// The layout of a section as statements (UTF-8, CR LF), and the reader of the same.
std::string TestoConfigurazione(const ConfigurazioneSezione& c);
ConfigurazioneSezione LeggiConfigurazione(LettoreLista& in);

// The whole member, UTF-8: the live sections in table order.
std::string TestoSezioni(const Sessione& s);
// Every block of a member, UTF-8. A section whose index is empty takes `primaRiga` plus its
// place in the file. A block that does not read, or holds more than 500 stations, fails with
// the text of the error: no section of the member is then taken.
std::vector<Sezione> LeggiSezioni(const std::string& testo, int32_t primaRiga);

// `Carica Sezioni`: the member read into the table. A member that does not read is kept as
// it stands, to be written back unchanged, and the user is told.
void CaricaSezioni(Sessione& s);
// The bytes of the member for the saver; none when no live section is left.
std::optional<std::string> ByteSezioni(const Sessione& s);

// Appends a section to the table; the new row's number.
int32_t AggiungiSezione(Sessione& s, Sezione z);

// The default layout beside the program; the built-in one when the file is absent or does
// not read.
std::string PercorsoConfigurazioneDefault(const Sessione& s);
ConfigurazioneSezione CaricaConfigurazione(Sessione& s, const std::string& percorso);
bool SalvaConfigurazione(Sessione& s, const std::string& percorso, const ConfigurazioneSezione& c);

}  // namespace varena
