// A save cut short (the program killed or stopped half way) is finished or undone the next
// time the job is opened: before it changes any file of the job, the save writes beside it a
// journal of what goes where, and removes it once everything is in place.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

// One member in a save. Every name is a file of the job's folder.
struct VoceGiornale {
  std::string Membro;         // the original member as it stood; "" when the job had none
  std::string BackupVecchio;  // the older backup as it stood, which the save removes; "" when none
  std::string Backup;         // where the original goes
  std::string Copia;          // the new member waiting beside the job; "" when the save has none
  std::string Destinazione;   // where the new member goes
  int64_t Lunghezza = 0;      // of the new member
  uint64_t Inode = 0;         // of the new member: a rename keeps it, so it is known in its place
};

// A copy waits under its member's name + `kSuffissoNuovo`; the journal is the job's base
// path + `kSuffissoGiornale`.
inline constexpr const char* kSuffissoNuovo = ".~nuovo";
inline constexpr const char* kSuffissoGiornale = ".~salvataggio";

// The part of a save that changes the job's files, once every copy named in `voci` stands:
// the journal, the older backups removed, the originals renamed to the backups, the copies
// renamed into place, the journal removed. `base`: the job's base path, folder as on disk.
void SostituisciMembri(const std::string& base, std::vector<VoceGiornale> voci);

enum class Ripresa { Nessuna, Completata, Annullata };

// At the opening of the job `NomeOriginale`. A save with a journal is completed when every
// new member it names is there, else undone from the backups; the copies of a save that
// stopped before its journal are removed (the job's files were not touched yet). The user is
// told which. When there was nothing to take up, members missing while their backups stand
// are named to the user, for a job never opens silently without them. A session that may not
// write (`SolaLettura`) changes nothing and says what the opening will do. A journal that
// cannot be read throws, and every file stays as it stands.
Ripresa RiprendiSalvataggio(Sessione& s);

inline constexpr const char* kTitoloSalvataggioInterrotto = "Salvataggio interrotto";

}  // namespace varena
