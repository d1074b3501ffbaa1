// The slot table, as the job files have always been named.
#include "store/Slot.h"

#include <filesystem>

#include "core/File.h"
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

FileLavoro ElencaFileLavoro(const std::string& base) {
  FileLavoro f;
  const auto cartella = TrovaFile(Cartella(base));
  if (!cartella) return f;
  const std::string foglia = Foglia(base);
  std::error_code ec;
  for (std::filesystem::directory_iterator it(*cartella, ec), fine; !ec && it != fine; it.increment(ec)) {
    const std::string nome = it->path().filename().string();
    // The undo generations "name(n).EXT" share the folder: the length and the dot after the
    // leaf set them aside before any comparison of letters.
    if (nome.size() <= foglia.size() || nome[foglia.size()] != '.') continue;
    if (!UgualeSenzaCaso(std::string_view(nome).substr(0, foglia.size()), foglia)) continue;
    const std::string_view est = std::string_view(nome).substr(foglia.size());
    for (int slot = 0; slot < NumeroSlot; ++slot) {
      const auto k = static_cast<size_t>(slot);
      if (EstensioneFile(slot)[0] == '\0') continue;
      // An exact spelling wins over another case of the same name.
      if (UgualeSenzaCaso(est, EstensioneFile(slot))) {
        std::string percorso = it->path().string();
        if (f.Membro[k].empty()) {
          f.Membro[k] = std::move(percorso);
        } else {
          if (est == EstensioneFile(slot)) std::swap(f.Membro[k], percorso);
          f.Doppioni.push_back(std::move(percorso));
        }
      }
      if (UgualeSenzaCaso(est, EstensioneBackup(slot)) && (f.Backup[k].empty() || est == EstensioneBackup(slot)))
        f.Backup[k] = it->path().string();
    }
  }
  return f;
}

int64_t NumeroRecord(int64_t lunghezzaFile, int lunghezzaRecord) {
  if (lunghezzaRecord <= 0 || lunghezzaFile <= 0) return 0;
  return ArrotondaPari(static_cast<double>(lunghezzaFile) / lunghezzaRecord);
}

}  // namespace varena
