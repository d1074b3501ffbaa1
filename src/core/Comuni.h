// The municipalities of the Pregeo archive file "comunt.dat", read once when first needed.
#pragma once

#include <string>
#include <vector>

namespace varena {

struct Sessione;

struct Comune {
  std::string Codice;  // the record's first character joined to its characters 2-5, trimmed
  std::string Resto;   // the rest of the record, trimmed: the name and the other fields
};

struct TabellaComuni {
  std::vector<Comune> Righe;
  int NumeroComuni() const { return static_cast<int>(Righe.size()); }
};

// Under the archive folder of the Pregeo setting; found in any letter case.
std::string PercorsoComuni(const Sessione& s);

// `CaricaComuni`: skipped when the table already holds rows. The file is read whole and cut
// at every "@B"; an absent file leaves the table empty. The file is never written.
void CaricaComuni(Sessione& s);

}  // namespace varena
