// A section handed to another program: its values as a table for a spreadsheet
// (`TEMPSQUANTI.TMP` and the clipboard), its drawing as plain lines and texts in the
// hand-over file `CopiaInFile.TXT`, which the paste of any job (or a sibling tool) reads.
#pragma once

#include <cstdint>
#include <string>

namespace varena {

struct Sessione;
struct Sezione;

// One line a station, fields at tabs: name, progressive, partial distance, East, North,
// terrain and project heights, red height; then the cut, fill and total areas.
std::string TabellaValoriSezione(const Sezione& z);
std::string PercorsoValoriSezione(const Sessione& s);

// The section's records of the display list as the hand-over file's "L" and "T" statements,
// in sheet metres, each with its layer and colour.
std::string TestoCopiaSezione(const Sessione& s, int32_t riga);

// Code 384 (SEZIONI_COPIA_VALORI) and 385 (SEZIONI_COPIA_IN_FILE): the click on a section.
void subCopiaValoriSezione(Sessione& s);
void subCopiaSezioneInFile(Sessione& s);

}  // namespace varena
