// `Configura.ini`: the environment settings, one "section,key,value" line each.
#pragma once

#include <string>
#include <vector>

namespace varena {

struct Sessione;

// One row of the settings table: section, key, and how its value is read and written.
struct VoceConfigura {
  const char* Sezione;
  const char* Chiave;
  char Tipo;              // s string, i i16, l i32, b u8, d f64, f f32
  const char* Maschera;   // number mask of the writer, or nullptr for the plain form
};
const std::vector<VoceConfigura>& TabellaConfigura();

std::string PercorsoConfigura(const Sessione& s);

// Defaults first, then the file if it exists. The section is not looked at; a line with an
// unknown key is skipped, a missing key keeps its default, a value is cut at its first comma
// and read by its leading number. A zoom factor below 1 becomes 1. A file that is not text
// leaves every default.
void ConfiguraLeggi(Sessione& s);
// Every row again, in table order, with a point as decimal mark.
void ConfiguraScrivi(Sessione& s);
std::string TestoConfigura(const Sessione& s);
// The value of row `riga` of the table as the writer prints it.
std::string ValoreConfigura(const Sessione& s, size_t riga);

// The settings a job starts with, the working root applied: the folders of the legacy
// installation default to "PREGEO", "PREGEO/ESTRATTI", "PREGEO/ARCH" and "FIDUCIAL" under it.
void ImpostazioniDefault(Sessione& s);

}  // namespace varena
