// Files and folders as the job store needs them: whole-file reads and writes, members
// matched without regard to letter case, paths written with "\" normalised.
#pragma once

#include <functional>
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
// A path the way every job path is kept: normalised, made absolute against the current
// folder, "." and ".." resolved by their names, no trailing separator. A blank path stays
// blank. Whatever folder the program is later run from, the path names the same file.
std::string PercorsoAssoluto(std::string_view percorso);

// The path as it stands on disk: exact if it exists, else each component matched without
// regard to letter case. No value when nothing matches. A name holding a NUL byte names no
// file anywhere in this layer: nothing is read, and a write fails with "Bad file name or
// number".
std::optional<std::string> TrovaFile(std::string_view percorso);
bool EsisteFile(std::string_view percorso);
bool EsisteCartella(std::string_view percorso);
// Where to write `percorso`: an existing file of another case is reused, else the folder is
// matched without regard to case and the leaf kept as given.
std::string PercorsoPerScrivere(std::string_view percorso);

// The whole content of a file as bytes; no value when the file is absent.
// A file that exists but cannot be read fails with the common error texts.
std::optional<std::string> LeggiByte(std::string_view percorso);
// The same in pieces, `avanzamento` told the bytes read and the total after each: a file of
// gigabytes keeps the window alive and can be stopped. When it answers false the reading
// ends there and what was read is given.
std::optional<std::string> LeggiByte(std::string_view percorso,
                                     const std::function<bool(int64_t fatto, int64_t totale)>& avanzamento);
// Every write lands first beside its file, under the name + `kSuffissoTemporaneo`, and is
// renamed into place only when complete: a failed or interrupted write leaves the old file
// whole, and a file shared by a hard link is replaced, never changed under its other names.
void ScriviByte(std::string_view percorso, std::string_view byte);
// The same write with the bytes handed over a piece at a time, to the function given to
// `produci`: a file of hundreds of megabytes never sits whole in memory.
using ProduttoreByte = std::function<void(const std::function<void(std::string_view)>& scrivi)>;
void ScriviByte(std::string_view percorso, const ProduttoreByte& produci);
// Text through the code page: UTF-8 in memory, Windows-1252 on disk.
void ScriviTesto(std::string_view percorso, std::string_view utf8);
void AggiungiTesto(std::string_view percorso, std::string_view utf8);
inline constexpr const char* kSuffissoTemporaneo = ".~vr";
// The lines of a text file in UTF-8, without their ends. Absent file: no lines.
std::vector<std::string> RigheFile(std::string_view percorso);
std::vector<std::string> RigheTesto(std::string_view testo);

// `CaricaFileIntero`: a text file as one string, each line followed by CR LF. An absent
// file yields nothing.
std::string CaricaFileIntero(std::string_view percorso);

// `NuovaCartella`: makes one folder level if absent. False when it could not.
bool NuovaCartella(std::string_view percorso);

// Copies through a temporary beside the target, as the writes do.
void CopiaFile(std::string_view da, std::string_view a);
bool EliminaFile(std::string_view percorso);  // true when something was removed
void RinominaFile(std::string_view da, std::string_view a);
int64_t LunghezzaFile(std::string_view percorso);  // -1 when absent

// Exact paths, no matching of letter case: for the files the program names itself, where a
// directory scan per absent name would cost more than the work.
bool EliminaFileEsatto(std::string_view percorso);  // true when something was removed
// Renames `da` to `a`, replacing a file `a` in one step, both names taken as given: a save
// that records what goes where must land on exactly the names it recorded.
void RinominaFileEsatto(std::string_view da, std::string_view a);
// `a` becomes a second name of `da` (a hard link), replacing any file `a` atomically.
// False when the file system refuses; the caller then copies.
bool CollegaFile(std::string_view da, std::string_view a);
// Both names lead to the same file on disk.
bool StessoFile(std::string_view a, std::string_view b);

// Test seam for fault injection: when set, it is asked before each operation that changes
// the disk, with the path it is about to change; true makes that operation fail as a full
// disk or a refused file would (a write fails with half its bytes in its temporary).
// Not set in a normal run, where it costs one test of an empty function.
enum class OperazioneFile { Scrittura, Copia, Rinomina, Collegamento, Eliminazione };
using SondaGuasti = std::function<bool(OperazioneFile, std::string_view percorso)>;
void ImpostaSondaGuasti(SondaGuasti sonda);

}  // namespace varena

namespace varena {

// A whole binary file in one uninitialised buffer: the record files are read in one go.
struct DatiFile {
  std::unique_ptr<unsigned char[]> Byte;
  size_t Lunghezza = 0;
};
std::optional<DatiFile> LeggiDati(std::string_view percorso);

}  // namespace varena
