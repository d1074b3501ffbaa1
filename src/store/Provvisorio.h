// The provisional copy in which all work on a job happens: its name, the copy in, and its
// removal at close.
#pragma once

#include <ctime>
#include <string>

namespace varena {

struct Sessione;

// Year, day, month, then the time without ":" - as the legacy short date gave them.
std::string TimbroTempo(std::time_t quando);

// `NomeLavoro` := working root + "PROVVISO/" + leaf of `NomeOriginale` + "_" + time stamp.
void ImpostaNomeProvvisorio(Sessione& s);

// Every member of the original with some content is copied to the provisional name; then
// the `.INF` records where the copy came from.
void CopiaInProvvisorio(Sessione& s);

// Removes the provisional members, undo generations and journal of `NomeLavoro`, and the
// file by which the field-book tool learns the name of the job's book.
void EliminaProvviso(Sessione& s);

// That file: the suite's data root is the documents folder, the working root's parent.
std::string FileLibrettoPredefinito(const Sessione& s);

}  // namespace varena
