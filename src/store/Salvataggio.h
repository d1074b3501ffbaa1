// Saving the provisional copy back to where the user keeps the job: save, save as, a new
// empty job, and the question asked when a job is closed.
#pragma once

#include <string>

namespace varena {

struct Sessione;

// The default job NUOVO, or no job at all: what a save must ask a name for.
bool LavoroNuovo(const Sessione& s);

// The command "save": a snapshot, then the copy back to the original; the default job
// NUOVO (in any letter case) and a job with no name go through save-as. True when the job
// was saved.
bool Salva(Sessione& s);

// The provisional members become the original's, with one generation of backups: every
// original member is renamed to its backup name (the older backups go), then the members
// of the provisional copy take their place. The copies are made first under temporary
// names beside the originals and renamed into place at the end, so that at every moment the
// original set, its backups or the provisional copy is whole. Appends the job to
// `LavoriRecenti.txt`. True when done; `FileSalvati` lists the members put in place.
bool VR_DaProvvisoAOriginale(Sessione& s);

// Save as: asks for the name, copies the old original set to it, saves there, and goes on
// in a new provisional copy of the new job (rows compacted, undo numbering restarted).
bool VR_SalvaConNome(Sessione& s);

// A new job of a name asked for: the current settings as its `.CFG`, no entities.
bool VR_CreaNuovoLavoroVuoto(Sessione& s);

// The question at the close of the program (`programma`) or of the open job: Yes saves,
// No does not, Cancel keeps the job open. Then the provisional copy is removed. False when
// the job stays open: Cancel, or a save that did not happen (the work is never thrown away
// unsaved after the user asked to keep it).
bool ChiusuraLavoro(Sessione& s, bool programma);

// The job's base path as save-as stores it: the leaf in upper case, the folder as it stands
// on disk (upper-casing a whole path would name another folder on this system).
std::string NomeMaiuscolo(const std::string& base);

inline constexpr const char* kTitoloSalvaConNome = "Salva Con Nome ...";
inline constexpr const char* kFiltroLavori = "File VR2000 (*.CFG)|*.CFG|";

}  // namespace varena
