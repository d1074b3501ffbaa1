// The table of job file kinds: extension, backup extension and record length of each slot.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/Tabelle.h"

namespace varena {

struct DatiSlot {
  const char* EstensioneFile;
  const char* EstensioneBackup;
  int LunghezzaRecord;  // 0 for a text member or an unused slot
};

// Slots 25..30 stay empty: every loop over the slots skips an empty extension.
const std::array<DatiSlot, NumeroSlot>& TabellaSlot();
inline const char* EstensioneFile(int slot) { return TabellaSlot()[static_cast<size_t>(slot)].EstensioneFile; }
inline const char* EstensioneBackup(int slot) { return TabellaSlot()[static_cast<size_t>(slot)].EstensioneBackup; }
inline int LunghezzaRecord(int slot) { return TabellaSlot()[static_cast<size_t>(slot)].LunghezzaRecord; }

// The members and backups of one base path as they stand on disk, found with one scan of
// the folder and without regard to letter case: the path of each slot's file, empty when
// absent. The snapshot and the save consult it instead of asking for each name in turn.
struct FileLavoro {
  std::array<std::string, NumeroSlot> Membro;
  std::array<std::string, NumeroSlot> Backup;
  // Members standing a second time under another letter case: on this system both can
  // exist, and a loader might pick either.
  std::vector<std::string> Doppioni;
};
FileLavoro ElencaFileLavoro(const std::string& base);

// `ApriEntita`'s record count: file length over record length, rounded half to even, so a
// partial tail can count as one record.
int64_t NumeroRecord(int64_t lunghezzaFile, int lunghezzaRecord);

}  // namespace varena
