// The slot table, as the job files have always been named.
#include "store/Slot.h"

#include "core/Testo.h"

namespace varena {

const std::array<DatiSlot, NumeroSlot>& TabellaSlot() {
  static const std::array<DatiSlot, NumeroSlot> tabella = {{
      {".VRZ", ".VRK", 0},   {".LLL", ".LLK", 256}, {".LIN", ".LIK", 128}, {".CER", ".CEK", 128},
      {".ARC", ".ARK", 128}, {".TES", ".TEK", 256}, {".EQU", ".EQK", 256}, {".HAT", ".HAK", 0},
      {".DUE", ".DUK", 0},   {".CUV", ".CUK", 17},  {".CFG", ".CFK", 0},   {".INF", ".INK", 1},
      {".SEZ", ".SEK", 1},   {".BTM", ".BTK", 256}, {".EDM", ".EDK", 0},   {".TXT", ".TXK", 0},
      {".EMP", ".EMK", 0},   {".PNG", ".PNK", 0},   {".SMP", ".SMK", 0},   {".XVR", ".XVK", 0},
      {".L", ".K", 0},       {".FOT", ".FOK", 0},   {".126", ".12K", 0},   {".CEL", ".CKK", 0},
      {".PIA", ".PIK", 0},   {"", "", 0},           {"", "", 0},           {"", "", 0},
      {"", "", 0},           {"", "", 0},           {"", "", 0},
  }};
  return tabella;
}

int64_t NumeroRecord(int64_t lunghezzaFile, int lunghezzaRecord) {
  if (lunghezzaRecord <= 0 || lunghezzaFile <= 0) return 0;
  return ArrotondaPari(static_cast<double>(lunghezzaFile) / lunghezzaRecord);
}

}  // namespace varena
