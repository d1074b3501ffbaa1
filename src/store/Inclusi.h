// Drawings included in a job as a reference: another job (`.CFG`) or a table of fiducial
// points (`.TAF`), named in `FileAssociati`, read anew at every load onto layer "INCLUSI",
// which no save writes into the job.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

// The layer of every row an included drawing brings: rows on it are never saved.
inline constexpr const char* kPianoInclusi = "INCLUSI";
bool PianoIncluso(std::string_view piano);

// The names of a `FileAssociati` list, blank ones left out.
std::vector<std::string> ElencoInclusi(std::string_view associati);

// Every included drawing the job names read onto "INCLUSI": a job's points, lines,
// circles, arcs and texts, a table's points. Only the drawing's own entities come: what
// it includes in turn does not, so no chain of inclusions can loop. A drawing that is gone
// is passed over (said once, at opening); one read with an error keeps what was read, and
// says which drawing it was.
void CaricaDisegniInclusi(Sessione& s);
// Whether the job names any drawing to include: its load then cannot be shortened.
bool NominaInclusi(const Sessione& s);

// At opening: the included drawings that are no longer there, in one message.
void AvvisaInclusiMancanti(Sessione& s);

// Whether including `percorso` would bring the job back into itself: the job itself, or a
// job that already includes this one. The message shown says which.
bool InclusioneCircolare(Sessione& s, const std::string& percorso);

}  // namespace varena
