// Provisional copy of a job under the working root.
#include "store/Provvisorio.h"

#include <filesystem>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Slot.h"

namespace fs = std::filesystem;

namespace varena {

std::string TimbroTempo(std::time_t quando) {
  std::tm tm{};
  localtime_r(&quando, &tm);
  char buf[32];
  std::snprintf(buf, sizeof buf, "%04d%02d%02d%02d%02d%02d", tm.tm_year + 1900, tm.tm_mday, tm.tm_mon + 1,
                tm.tm_hour, tm.tm_min, tm.tm_sec);
  return buf;
}

void ImpostaNomeProvvisorio(Sessione& s) {
  s.NomeLavoro = s.CartellaLavoro + "PROVVISO/" + Foglia(s.NomeOriginale) + "_" + TimbroTempo(s.Orologio());
  // A new provisional copy holds none of the tables yet.
  SegnaTuttoModificato(s);
}

void CopiaInProvvisorio(Sessione& s) {
  s.RoutineCorrente = "CopiaInProvvisorio";
  // One look at the original's folder, instead of a search for each of the 25 names.
  const FileLavoro originale = ElencaFileLavoro(s.NomeOriginale);
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const std::string& membro = originale.Membro[static_cast<size_t>(slot)];
    if (!membro.empty() && LunghezzaFile(membro) > 0) CopiaFile(membro, s.NomeLavoro + EstensioneFile(slot));
  }
  IstruzioneLista inf;
  inf.Testo(s.NomeOriginale);
  ScriviTesto(s.NomeLavoro + EstensioneFile(SlotInf), inf.Riga());
}

void EliminaProvviso(Sessione& s) {
  if (Rifila(s.NomeLavoro).empty()) return;
  s.RoutineCorrente = "EliminaProvviso";
  Protetto(s, [&] {
    const auto cartella = TrovaFile(Cartella(s.NomeLavoro));
    if (!cartella) return;
    const std::string foglia = Maiuscolo(Foglia(s.NomeLavoro));
    // Undo generations "name(n).EXT", the journal "name_ILN.*" and the members "name.*".
    std::error_code ec;
    std::vector<fs::path> via;
    for (fs::directory_iterator it(*cartella, ec), fine; !ec && it != fine; it.increment(ec)) {
      const std::string nome = Maiuscolo(it->path().filename().string());
      if (IniziaCon(nome, foglia + "(") || IniziaCon(nome, foglia + "_ILN.") || IniziaCon(nome, foglia + "."))
        via.push_back(it->path());
    }
    for (const fs::path& p : via) fs::remove(p, ec);
    // The book it names is gone with the provisional copy.
    if (!s.CartellaDocumenti.empty()) EliminaFile(FileLibrettoPredefinito(s));
  });
}

std::string FileLibrettoPredefinito(const Sessione& s) {
  return s.CartellaDocumenti + "/ZN_Suite/VR2000/ZN_SuiteMappa/FileVR2000Default.TXT";
}

}  // namespace varena
