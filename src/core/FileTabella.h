// The small text files of tables and settings: read when present, created with their
// default content when absent, and a record of where each one was read from.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/Errori.h"
#include "core/OrigineFile.h"
#include "core/Sessione.h"

namespace varena {

// One entry per name, in the order the files were first read.
void RegistraOrigine(Sessione& s, const std::string& nome, const std::string& percorso, StatoFile stato);
// A file whose reading failed; named with `percorso` if it was not recorded yet.
void MarcaErrato(Sessione& s, const std::string& nome, const std::string& percorso);
const OrigineFile* TrovaOrigine(const Sessione& s, std::string_view nome);

// A table file is text: a control byte other than tab and the line ends (and the old
// end-of-file mark at the very end) means it is something else, and reading stops there
// with "Invalid file format" before any row is taken.
void ControllaTesto(std::string_view byte);

// The text of a setting file in UTF-8, checked; no value when it is absent.
std::optional<std::string> LeggiTestoImpostazioni(Sessione& s, const std::string& nome, const std::string& percorso);

// The text of a table file in UTF-8, checked. When it is absent it is written first with
// `predefinito` and read back, unless the session may not write (`SolaLettura`): then the
// defaults are used as they stand.
std::string LeggiOCreaTabella(Sessione& s, const std::string& nome, const std::string& percorso,
                              std::string_view predefinito);

// A text that is a whole number in the legacy reading: blanks around, a sign, digits, a
// point, an exponent. "12abc" and "" are not numbers.
bool EUnNumero(std::string_view testo);
// The numbers of one row split at `separatore`. Empty fields at the end of the row are
// dropped; any other field that is not a number fails with "Type mismatch".
std::vector<double> NumeriRiga(std::string_view riga, char separatore);

// The common shape of a table load, under the routine tag `routine`: `dest` first takes
// the defaults (the default text read by `leggi`), then the file's rows. A failure keeps the
// rows read before it, or the defaults when there were none, and goes to the common error
// path; the file itself is never touched.
template <class T, class Leggi, class Vuota>
void CaricaTabellaTesto(Sessione& s, const char* routine, const std::string& nome, const std::string& percorso,
                        std::string_view predefinito, T& dest, Leggi leggi, Vuota vuota) {
  s.RoutineCorrente = routine;
  dest = T{};
  leggi(std::string(predefinito), dest);
  const bool fatto = Protetto(s, [&] {
    const std::string testo = LeggiOCreaTabella(s, nome, percorso, predefinito);
    T nuova{};
    try {
      leggi(testo, nuova);
    } catch (...) {
      if (!vuota(nuova)) dest = std::move(nuova);
      throw;
    }
    dest = std::move(nuova);
  });
  if (!fatto) MarcaErrato(s, nome, percorso);
}

}  // namespace varena
