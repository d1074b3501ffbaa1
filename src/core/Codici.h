// The point codes `VRPUNTI.COD` of the working root, and the note archive of the
// Contorno-7 comments: two small lists of texts read at start.
#pragma once

#include <string>
#include <vector>

namespace varena {

struct Sessione;

inline constexpr int kMassimoCodici = 501;  // rows 0..500

struct CodicePunto {
  std::string Codice;
  std::string Descrizione;
};

struct TabellaCodici {
  std::vector<CodicePunto> Righe;
};

// The codes written when the file is missing; code 11 has never been in the list.
extern const char* const kTestoCodici;

std::string PercorsoCodici(const Sessione& s);

// `CaricaCodici`: count to 0, create the file when absent, then read statements of a code
// and a description. A 502nd statement is the table-bound error; the rows before it stay.
void CaricaCodici(Sessione& s, const std::string& percorso);
// The description of a code, or nothing.
const CodicePunto* CercaCodice(const TabellaCodici& t, const std::string& codice);

// The note archive: one comment text a line. The old misspelling "FABRICATO" is in the
// defaults, as users have it in their files.
struct ArchivioNote {
  std::vector<std::string> Note;
};
extern const char* const kTestoArchivioNote;
std::string PercorsoArchivioNote(const Sessione& s);
void CaricaArchivioNote(Sessione& s);

}  // namespace varena
