// The whole job as one text `.XVR`, written at each save for other tools and as a copy that
// outlives a change of the binary layout; read back for its points and lines only.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

// The text of the whole job, UTF-8: header, settings, every kind's rows, field book,
// sections, the small text members of `NomeLavoro`, the contour vertices.
std::string TestoTuttoIla7(Sessione& s);

// The statement of the point of row `r` with its tag first ("<PUNTO>" in the text, "P" in
// the hand-over file of the copy commands): every field of the row, CR LF at the end.
void IstruzionePunto(const Sessione& s, size_t r, const char* tag, std::string& out);

// `SalvaTuttoIla7`: the text as the member `.XVR` of the provisional copy, which the save
// then puts beside the job (the previous one becoming `.XVK`) like every other member. A
// file that already holds the same bytes is left as it stands.
void SalvaTuttoIla7(Sessione& s);

// The statements of a text read into the tables: each "<PUNTO>" and "<LINEA>" appends a
// row, everything else is passed over. The field book of the job is dropped. The number of
// rows appended.
int64_t LeggiTuttoIla7(Sessione& s, std::string_view testoUtf8);

// `CaricaTuttoILA7`: the file `percorso` added to the job, then a snapshot and a zoom to
// all. False, with a message, when the file is not there or adds nothing.
bool CaricaTuttoILA7(Sessione& s, const std::string& percorso);

// The menu command: the text beside the job, or one chosen by the user.
void AzioneImportaXvr(Sessione& s);

inline constexpr const char* kTitoloImportaXvr = "Importa XVR";

}  // namespace varena
