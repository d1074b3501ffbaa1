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

// Defaults first, then the file if it exists. A line with an unknown key is skipped, a
// missing key keeps its default, a value is cut at its first comma.
void ConfiguraLeggi(Sessione& s);
// Every row again, in table order, with a point as decimal mark.
void ConfiguraScrivi(Sessione& s);
std::string TestoConfigura(const Sessione& s);

// The settings a job starts with, the working root applied.
void ImpostazioniDefault(Sessione& s);

}  // namespace varena
