// The table of job file kinds: extension, backup extension and record length of each slot.
#pragma once

#include <array>
#include <string>

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

// `ApriEntita`'s record count: file length over record length, rounded half to even, so a
// partial tail can count as one record.
int64_t NumeroRecord(int64_t lunghezzaFile, int lunghezzaRecord);

}  // namespace varena
