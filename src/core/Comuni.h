// The municipalities of the Pregeo archive file "comunt.dat", read once when first needed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

struct Comune {
  std::string Codice;  // the record's first character joined to its characters 2-5, trimmed
  std::string Resto;   // the rest of the record, trimmed: the name and the other fields
};

struct TabellaComuni {
  std::vector<Comune> Righe;
  std::vector<Comune> Sigle;  // Pregeo's "prosigle": a code and its name (in `Resto`) a row
  int NumeroComuni() const { return static_cast<int>(Righe.size()); }
};

// Under the archive folder of the Pregeo setting; found in any letter case.
std::string PercorsoComuni(const Sessione& s);

// `CaricaComuni`: skipped when the table already holds rows. The file is read whole and cut
// at every "@B"; an absent file leaves the table empty. The file is never written.
void CaricaComuni(Sessione& s);

// Pregeo's "prosigle", under the folder of its programs ("EXE" of the Pregeo setting).
std::string PercorsoProsigle(const Sessione& s);
// The rows of that table, as UTF-8 text: one a line, the code first, then the name, blanks,
// tabs, ";" or "|" between them. Lines of no name are not rows.
std::vector<Comune> LeggiProsigle(std::string_view testo);
// Read when the list is empty; an absent file leaves it so.
void CaricaProsigle(Sessione& s);
// The name of a municipality's code: "prosigle" first, "comunt.dat" after; empty when
// neither has it.
std::string NomeComune(Sessione& s, std::string_view codice);

}  // namespace varena
