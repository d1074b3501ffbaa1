// Save, save as, new job and the close question.
#include "store/Salvataggio.h"

#include <algorithm>
#include <array>
#include <optional>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Archivio.h"
#include "store/Carica.h"
#include "store/Cfg.h"
#include "store/Provvisorio.h"
#include "store/Salva.h"
#include "store/SalvataggioInterrotto.h"
#include "store/Slot.h"
#include "store/TestoLavoro.h"
#include "store/Undo.h"

namespace varena {

namespace {

bool Estensione(int slot) { return EstensioneFile(slot)[0] != '\0'; }

// The base path with its folder as it stands on disk, so that the names formed from it are
// the ones the directory holds.
std::string BaseSuDisco(const std::string& base) {
  const std::string n = NormalizzaPercorso(base);
  if (n.find('/') == std::string::npos) return n;
  const std::string dir = Cartella(n);
  const auto trovata = TrovaFile(dir);
  const std::string cartella = trovata ? *trovata : dir;
  return (cartella == "/" ? "" : cartella) + "/" + Foglia(n);
}

void EliminaSenzaErrori(const std::string& percorso) {
  try {
    EliminaFileEsatto(percorso);
  } catch (const std::exception&) {
    // Only a leftover temporary: the error that stopped the save is the one to report.
  }
}

// The answer of the save dialog without its ".CFG"; no value when nothing is left.
std::optional<std::string> NomeScelto(const std::string& scelta) {
  std::string nome = NormalizzaPercorso(scelta);
  // The legacy dialog always gave the extension back; a dialog that does not is not cut.
  if (nome.size() >= 4 && UgualeSenzaCaso(std::string_view(nome).substr(nome.size() - 4), ".CFG"))
    nome.resize(nome.size() - 4);
  if (Rifila(nome).empty()) return std::nullopt;
  return PercorsoAssoluto(nome);
}

// The name chosen in the "Salva Con Nome ..." dialog, after the overwrite question.
std::optional<std::string> ChiediNome(Sessione& s, const std::string& iniziale) {
  const auto scelta = s.Ui->ScegliFile(true, kTitoloSalvaConNome, kFiltroLavori, s.Imp.Cartella_Default, iniziale);
  if (!scelta) return std::nullopt;
  const auto nome = NomeScelto(*scelta);
  if (!nome) return std::nullopt;
  if (EsisteFile(*nome + ".CFG")) {
    const std::string domanda = "Il file :\r\n" + *nome + "\r\nè esistente!\r\nSalvare ugualmente?";
    if (s.Ui->Domanda(domanda, kTitoloSalvaConNome, Bottoni::SiNo, Icona::Avviso, Risposta::No) != Risposta::Si)
      return std::nullopt;
  }
  return nome;
}

// "Salva sempre anche nella cartella": the saved job mirrored into the folder of the setting.
// A member the save no longer has (the lines of a job without lines) goes from the copy as
// well, so that the copy opens as the job itself does. It runs after the save is complete:
// a copy that fails is reported and leaves the save as done.
void SalvaUnaCopiaInDropBox(Sessione& s) {
  const std::string cartella = Rifila(NormalizzaPercorso(s.Imp.Cartella_Copia_Salvataggio));
  if (cartella.empty()) return;
  s.RoutineCorrente = "SalvaUnaCopiaInDropBox";
  Protetto(s, [&] {
    if (!NuovaCartella(cartella)) throw ErroreVarena(kErrorePercorso);
    const std::string base = BaseSuDisco(s.NomeOriginale);
    if (StessoFile(Cartella(base), cartella)) return;  // the job already lives there
    const std::string copia = BaseSuDisco(cartella + "/" + Foglia(base));
    const FileLavoro salvato = ElencaFileLavoro(base), vecchia = ElencaFileLavoro(copia);
    for (int slot = 0; slot < NumeroSlot; ++slot) {
      if (!Estensione(slot)) continue;
      const auto k = static_cast<size_t>(slot);
      if (!salvato.Membro[k].empty()) {
        CopiaFile(salvato.Membro[k], copia + EstensioneFile(slot) + kSuffissoNuovo);
        RinominaFile(copia + EstensioneFile(slot) + kSuffissoNuovo, copia + EstensioneFile(slot));
      } else if (!vecchia.Membro[k].empty()) {
        EliminaFileEsatto(vecchia.Membro[k]);
      }
    }
  });
}

// The job goes on in a fresh provisional copy of its original: the old copy goes, the new
// one is loaded and becomes generation 1.
bool RiapriDallOriginale(Sessione& s, const char* routine) {
  EliminaProvviso(s);
  ImpostaNomeProvvisorio(s);
  s.RoutineCorrente = routine;
  if (!Protetto(s, [&] { CopiaInProvvisorio(s); })) return false;
  AzzeraTabelleLavoro(s);
  CaricaLavoro(s);
  return VR_SalvaUndo(s);
}

// Every member of the provisional copy copied beside the original, before any original is
// touched: a failure here (a full disk, a file that cannot be written) leaves the originals
// and their backups as they were. The copies by slot; none for a member read with an error,
// which the save leaves alone.
std::array<std::string, NumeroSlot> CopieAccanto(const Sessione& s, const std::string& base) {
  const FileLavoro provvisorio = ElencaFileLavoro(s.NomeLavoro);
  std::array<std::string, NumeroSlot> pronti;
  try {
    for (int slot = 0; slot < NumeroSlot; ++slot) {
      const auto k = static_cast<size_t>(slot);
      if (!Estensione(slot) || s.MembroGuasto[k]) continue;
      const std::string tmp = base + EstensioneFile(slot) + kSuffissoNuovo;
      if (!provvisorio.Membro[k].empty()) {
        CopiaFile(provvisorio.Membro[k], tmp);
        pronti[k] = tmp;
      } else if (slot == SlotCfg) {
        // Without its settings the job could not be opened again: an empty one stands in.
        ScriviByte(tmp, "");
        pronti[k] = tmp;
      } else {
        EliminaFileEsatto(tmp);  // left by a save that was interrupted
      }
    }
  } catch (...) {
    for (const std::string& tmp : pronti)
      if (!tmp.empty()) EliminaSenzaErrori(tmp);
    throw;
  }
  return pronti;
}

// What goes where: one generation of backups, the older ones going, the originals taking
// their names and the copies the originals'. A member read with an error keeps its file and
// its backup.
std::vector<VoceGiornale> VociDelSalvataggio(const Sessione& s, const std::string& base,
                                             const std::array<std::string, NumeroSlot>& pronti) {
  const FileLavoro originale = ElencaFileLavoro(base);
  std::vector<VoceGiornale> voci;
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const auto k = static_cast<size_t>(slot);
    if (!Estensione(slot) || s.MembroGuasto[k]) continue;
    if (originale.Membro[k].empty() && originale.Backup[k].empty() && pronti[k].empty()) continue;
    VoceGiornale v;
    v.Membro = Foglia(originale.Membro[k]);
    v.BackupVecchio = Foglia(originale.Backup[k]);
    v.Backup = Foglia(base) + EstensioneBackup(slot);
    v.Copia = Foglia(pronti[k]);
    v.Destinazione = Foglia(base) + EstensioneFile(slot);
    voci.push_back(std::move(v));
  }
  return voci;
}

// The members a save leaves as they stand, one name a line, as the folder spells them.
std::string NomiConservati(const Sessione& s, const std::string& base) {
  if (std::none_of(s.MembroGuasto.begin(), s.MembroGuasto.end(), [](bool g) { return g; })) return {};
  const FileLavoro originale = ElencaFileLavoro(base);
  std::string nomi;
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const std::string& membro = originale.Membro[static_cast<size_t>(slot)];
    if (Estensione(slot) && s.MembroGuasto[static_cast<size_t>(slot)])
      nomi += "\n" + Foglia(membro.empty() ? base + EstensioneFile(slot) : membro);
  }
  return nomi;
}

}  // namespace

// The default job, by its name in any letter case, or by its folder on disk, which a link
// may reach under another name. Job paths are absolute and normal from the moment they come
// in, so that no spelling of the name ("./", "..", a relative path) saves over it in place.
bool LavoroNuovo(const Sessione& s) {
  const std::string n = PercorsoAssoluto(Rifila(s.NomeOriginale));
  if (n.empty()) return true;
  const std::string nuovo = NomeLavoroNuovo(s);
  if (Maiuscolo(n) == Maiuscolo(nuovo)) return true;
  return Maiuscolo(Foglia(n)) == Maiuscolo(Foglia(nuovo)) && StessoFile(Cartella(n), Cartella(nuovo));
}

std::string NomeMaiuscolo(const std::string& base) {
  const std::string n = BaseSuDisco(base);
  const size_t k = n.find_last_of('/');
  return k == std::string::npos ? Maiuscolo(n) : n.substr(0, k + 1) + Maiuscolo(n.substr(k + 1));
}

bool VR_DaProvvisoAOriginale(Sessione& s) {
  s.RoutineCorrente = "VR_DaProvvisoAOriginale";
  s.FileSalvati.clear();
  std::string conservati;
  const bool salvato = Protetto(s, [&] {
    if (!NuovaCartella(Cartella(s.NomeOriginale))) throw ErroreVarena(kErrorePercorso);
    const std::string base = BaseSuDisco(s.NomeOriginale);
    // The text and the archive are members of the provisional copy like the others, so that
    // they reach the job's folder through the same journalled renames.
    SalvaTuttoIla7(s);
    if (s.Imp.SalvaUnaCopiaZip != 0) SalvaZippatoInProvvisorio(s);
    s.RoutineCorrente = "VR_DaProvvisoAOriginale";
    const std::array<std::string, NumeroSlot> pronti = CopieAccanto(s, base);
    conservati = NomiConservati(s, base);
    SostituisciMembri(base, VociDelSalvataggio(s, base, pronti));
    for (int slot = 0; slot < NumeroSlot; ++slot)
      if (!pronti[static_cast<size_t>(slot)].empty()) s.FileSalvati.push_back(base + EstensioneFile(slot));
    AggiungiTesto(s.CartellaLavoro + "LavoriRecenti.txt", s.NomeOriginale + ".CFG\r\n");
  });
  if (salvato && !conservati.empty())
    s.Ui->Messaggio(
        "Questi file del Lavoro, letti con un errore, non sono stati salvati e restano com'erano:" + conservati,
        "Salva Lavoro", Icona::Avviso);
  if (salvato) SalvaUnaCopiaInDropBox(s);
  return salvato;
}

bool Salva(Sessione& s) {
  if (!VR_SalvaUndo(s)) return false;
  if (LavoroNuovo(s)) return VR_SalvaConNome(s);
  return VR_DaProvvisoAOriginale(s);
}

bool VR_SalvaConNome(Sessione& s) {
  if (!VR_SalvaUndo(s)) return false;
  s.RoutineCorrente = "VR_SalvaConNome";
  const auto nome = ChiediNome(s, s.NomeOriginale);
  if (!nome) return false;
  const std::string vecchio = Rifila(s.NomeOriginale).empty() ? std::string() : NomeMaiuscolo(s.NomeOriginale);
  const std::string nuovo = NomeMaiuscolo(*nome);
  s.RoutineCorrente = "VR_SalvaConNome";
  const bool copiato = Protetto(s, [&] {
    if (!NuovaCartella(Cartella(nuovo))) throw ErroreVarena(kErrorePercorso);
    if (vecchio.empty()) return;
    const FileLavoro origine = ElencaFileLavoro(vecchio);
    for (int slot = 1; slot < NumeroSlot; ++slot) {
      const std::string& membro = origine.Membro[static_cast<size_t>(slot)];
      if (!membro.empty()) CopiaFile(membro, BaseSuDisco(nuovo) + EstensioneFile(slot));
    }
  });
  if (!copiato) return false;
  s.NomeOriginale = nuovo;
  // The copy's `.INF` names the job it came from: from now on that is the new one.
  if (!Protetto(s, [&] { SalvaInf(s); })) return false;
  if (!VR_DaProvvisoAOriginale(s)) return false;
  return RiapriDallOriginale(s, "VR_SalvaConNome");
}

bool VR_CreaNuovoLavoroVuoto(Sessione& s) {
  s.RoutineCorrente = "VR_CreaNuovoLavoroVuoto";
  const auto nome = ChiediNome(s, "");
  if (!nome) return false;
  s.RoutineCorrente = "VR_CreaNuovoLavoroVuoto";
  const bool scritto = Protetto(s, [&] {
    if (!NuovaCartella(Cartella(*nome))) throw ErroreVarena(kErrorePercorso);
    ScriviTesto(*nome + ".CFG", TestoCfg(s));
  });
  if (!scritto) return false;
  s.NomeOriginale = *nome;
  return RiapriDallOriginale(s, "VR_CreaNuovoLavoroVuoto");
}

bool ChiusuraLavoro(Sessione& s, bool programma) {
  if (Rifila(s.NomeLavoro).empty()) return true;
  const char* titolo = programma ? "Chiusura Programma" : "Chiusura Lavoro Aperto";
  const char* domanda = programma ? "Salvare il Lavoro?" : "Salvare le modifiche al Lavoro Attuale?";
  const Risposta r = s.Ui->Domanda(domanda, titolo, Bottoni::SiNoAnnulla, Icona::Domanda, Risposta::Si);
  if (r == Risposta::Annulla) return false;
  if (r == Risposta::Si && !Salva(s)) return false;
  EliminaProvviso(s);
  return true;
}

}  // namespace varena
