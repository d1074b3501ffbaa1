// Files and folders as the job store needs them: whole-file reads and writes, members
// matched without regard to letter case, paths written with "\" normalised.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

// "\" becomes "/"; a legacy drive prefix such as "c:" is left to the caller's settings.
std::string NormalizzaPercorso(std::string_view percorso);
std::string Cartella(std::string_view percorso);  // with no trailing separator
std::string Foglia(std::string_view percorso);

// The path as it stands on disk: exact if it exists, else each component matched without
// regard to letter case. No value when nothing matches.
std::optional<std::string> TrovaFile(std::string_view percorso);
bool EsisteFile(std::string_view percorso);
bool EsisteCartella(std::string_view percorso);
// Where to write `percorso`: an existing file of another case is reused, else the folder is
// matched without regard to case and the leaf kept as given.
std::string PercorsoPerScrivere(std::string_view percorso);

// The whole content of a file as bytes; no value when the file is absent.
// A file that exists but cannot be read fails with the common error texts.
std::optional<std::string> LeggiByte(std::string_view percorso);
void ScriviByte(std::string_view percorso, std::string_view byte);
// Text through the code page: UTF-8 in memory, Windows-1252 on disk.
void ScriviTesto(std::string_view percorso, std::string_view utf8);
void AggiungiTesto(std::string_view percorso, std::string_view utf8);
// The lines of a text file in UTF-8, without their ends. Absent file: no lines.
std::vector<std::string> RigheFile(std::string_view percorso);
std::vector<std::string> RigheTesto(std::string_view testo);

// `CaricaFileIntero`: a text file as one string, each line followed by CR LF. An absent
// file yields nothing.
std::string CaricaFileIntero(std::string_view percorso);

// `NuovaCartella`: makes one folder level if absent. False when it could not.
bool NuovaCartella(std::string_view percorso);

void CopiaFile(std::string_view da, std::string_view a);
bool EliminaFile(std::string_view percorso);  // true when something was removed
void RinominaFile(std::string_view da, std::string_view a);
int64_t LunghezzaFile(std::string_view percorso);  // -1 when absent

}  // namespace varena

namespace varena {

// A whole binary file in one uninitialised buffer: the record files are read in one go.
struct DatiFile {
  std::unique_ptr<unsigned char[]> Byte;
  size_t Lunghezza = 0;
};
std::optional<DatiFile> LeggiDati(std::string_view percorso);

}  // namespace varena
