// The journal of a save, and the taking up of a save cut short.
#include "store/SalvataggioInterrotto.h"

#include <sys/stat.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Slot.h"

namespace fs = std::filesystem;

namespace varena {

namespace {

constexpr const char* kIntestazione = "VR2020 SALVATAGGIO";

std::string In(const std::string& cartella, const std::string& nome) { return cartella + "/" + nome; }

struct Misura {
  bool Esiste = false;
  int64_t Lunghezza = 0;
  uint64_t Inode = 0;
};

Misura MisuraFile(const std::string& percorso) {
  struct stat st {};
  if (::stat(percorso.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) return {};
  return {true, static_cast<int64_t>(st.st_size), static_cast<uint64_t>(st.st_ino)};
}

// The new member stands where it goes: the very file the save made, by its inode.
bool NuovaAlPosto(const std::string& cartella, const VoceGiornale& v) {
  if (v.Copia.empty()) return false;
  const Misura m = MisuraFile(In(cartella, v.Destinazione));
  return m.Esiste && m.Inode == v.Inode && m.Lunghezza == v.Lunghezza;
}

bool CopiaPronta(const std::string& cartella, const VoceGiornale& v) {
  const Misura m = MisuraFile(In(cartella, v.Copia));
  return m.Esiste && m.Lunghezza == v.Lunghezza;
}

// The original member has not yet become its backup.
bool OriginaleAlPosto(const std::string& cartella, const VoceGiornale& v) {
  if (v.Membro.empty() || !MisuraFile(In(cartella, v.Membro)).Esiste) return false;
  return !(v.Membro == v.Destinazione && NuovaAlPosto(cartella, v));
}

bool TutteLeCopie(const std::string& cartella, const std::vector<VoceGiornale>& voci) {
  return std::all_of(voci.begin(), voci.end(), [&](const VoceGiornale& v) {
    return v.Copia.empty() || CopiaPronta(cartella, v) || NuovaAlPosto(cartella, v);
  });
}

// Forward, in the order of the save itself, so that a run cut short at any point leaves a
// state of that same save, which a second run finishes. Each step asks the disk first.
void Completa(const std::string& cartella, const std::vector<VoceGiornale>& voci, const std::string& giornale) {
  for (const VoceGiornale& v : voci) {
    if (v.BackupVecchio.empty() || !MisuraFile(In(cartella, v.BackupVecchio)).Esiste) continue;
    // Under the backup's own name, once the original has moved there, stands the original.
    if (v.Membro.empty() || v.BackupVecchio != v.Backup || OriginaleAlPosto(cartella, v))
      EliminaFileEsatto(In(cartella, v.BackupVecchio));
  }
  for (const VoceGiornale& v : voci)
    if (OriginaleAlPosto(cartella, v)) RinominaFileEsatto(In(cartella, v.Membro), In(cartella, v.Backup));
  for (const VoceGiornale& v : voci)
    if (!v.Copia.empty() && MisuraFile(In(cartella, v.Copia)).Esiste)
      RinominaFileEsatto(In(cartella, v.Copia), In(cartella, v.Destinazione));
  EliminaFileEsatto(giornale);
}

// Back: the copies go, and every original that became a backup returns to its name. The
// older backups the save had already removed are not brought back: the job is.
void Annulla(const std::string& cartella, const std::vector<VoceGiornale>& voci, const std::string& giornale) {
  for (const VoceGiornale& v : voci) {
    if (!v.Copia.empty() && MisuraFile(In(cartella, v.Copia)).Esiste) EliminaFileEsatto(In(cartella, v.Copia));
    if (!v.Membro.empty() && !OriginaleAlPosto(cartella, v) && MisuraFile(In(cartella, v.Backup)).Esiste)
      RinominaFileEsatto(In(cartella, v.Backup), In(cartella, v.Membro));
    // A new member stays only where its original could not be given back.
    if (NuovaAlPosto(cartella, v) && (v.Membro.empty() || OriginaleAlPosto(cartella, v)))
      EliminaFileEsatto(In(cartella, v.Destinazione));
  }
  EliminaFileEsatto(giornale);
}

std::string TestoGiornale(const std::vector<VoceGiornale>& voci) {
  std::string testo = IstruzioneLista().Testo(kIntestazione).Riga();
  for (const VoceGiornale& v : voci)
    testo += IstruzioneLista()
                 .Testo(v.Membro)
                 .Testo(v.BackupVecchio)
                 .Testo(v.Backup)
                 .Testo(v.Copia)
                 .Testo(v.Destinazione)
                 .Testo(std::to_string(v.Lunghezza))
                 .Testo(std::to_string(v.Inode))
                 .Riga();
  return testo;
}

// A name the journal may give: a file of this job in its folder, or none.
bool NomeDelLavoro(std::string_view nome, std::string_view foglia) {
  if (nome.empty()) return true;
  return nome.size() > foglia.size() && nome[foglia.size()] == '.' &&
         UgualeSenzaCaso(nome.substr(0, foglia.size()), foglia) && nome.find('/') == std::string_view::npos;
}

template <class T>
T Cifre(const std::string& testo) {
  T n{};
  const auto [fine, errore] = std::from_chars(testo.data(), testo.data() + testo.size(), n);
  if (testo.empty() || errore != std::errc() || fine != testo.data() + testo.size()) throw ErroreVarena(kErroreFormato);
  return n;
}

// A journal that does not read as the save writes it is not guessed at: the files stay as
// they stand, and the error says so.
std::vector<VoceGiornale> LeggiGiornale(const std::string& percorso, const std::string& foglia) {
  std::vector<VoceGiornale> voci;
  try {
    const std::vector<std::string> righe = RigheTesto(LeggiByte(percorso).value_or(std::string()));
    if (righe.empty() || LettoreLista(righe[0]).LeggiTesto() != kIntestazione) throw ErroreVarena(kErroreFormato);
    for (size_t k = 1; k < righe.size(); ++k) {
      if (Rifila(righe[k]).empty()) continue;
      LettoreLista in(righe[k]);
      VoceGiornale v;
      for (std::string* nome : {&v.Membro, &v.BackupVecchio, &v.Backup, &v.Copia, &v.Destinazione}) {
        *nome = in.LeggiTesto();
        if (!NomeDelLavoro(*nome, foglia)) throw ErroreVarena(kErroreFormato);
      }
      v.Lunghezza = Cifre<int64_t>(in.LeggiTesto());
      v.Inode = Cifre<uint64_t>(in.LeggiTesto());
      if (!in.Fine() || (!v.Membro.empty() && v.Backup.empty()) || (!v.Copia.empty() && v.Destinazione.empty()))
        throw ErroreVarena(kErroreFormato);
      voci.push_back(std::move(v));
    }
  } catch (const std::exception&) {
    throw ErroreVarena(kErroreFormato);
  }
  return voci;
}

bool FinisceSenzaCaso(std::string_view testo, std::string_view fine) {
  return testo.size() >= fine.size() && UgualeSenzaCaso(testo.substr(testo.size() - fine.size()), fine);
}

// What a save of the job `foglia` leaves in its folder: the journal, and the copies and
// temporaries, by name.
struct Avanzi {
  std::string Giornale;
  std::vector<std::string> File;
};

Avanzi CercaAvanzi(const std::string& cartella, const std::string& foglia) {
  Avanzi a;
  std::error_code ec;
  for (fs::directory_iterator it(cartella, ec), fine; !ec && it != fine; it.increment(ec)) {
    const std::string nome = it->path().filename().string();
    if (nome.size() <= foglia.size() || nome[foglia.size()] != '.') continue;
    if (!UgualeSenzaCaso(std::string_view(nome).substr(0, foglia.size()), foglia)) continue;
    std::error_code e;
    if (!it->is_regular_file(e)) continue;  // a save leaves files only
    std::string_view resto = std::string_view(nome).substr(foglia.size());
    const bool temporaneo = FinisceSenzaCaso(resto, kSuffissoTemporaneo);
    if (temporaneo) resto.remove_suffix(std::strlen(kSuffissoTemporaneo));
    if (UgualeSenzaCaso(resto, kSuffissoGiornale)) {
      // A journal still in its temporary was never complete: the save had not begun to move.
      if (temporaneo)
        a.File.push_back(nome);
      else
        a.Giornale = nome;
      continue;
    }
    if (!FinisceSenzaCaso(resto, kSuffissoNuovo)) continue;
    resto.remove_suffix(std::strlen(kSuffissoNuovo));
    for (int slot = 0; slot < NumeroSlot; ++slot)
      if (EstensioneFile(slot)[0] != '\0' && UgualeSenzaCaso(resto, EstensioneFile(slot))) {
        a.File.push_back(nome);
        break;
      }
  }
  return a;
}

std::string TestoRipresa(Ripresa esito, const std::string& foglia, bool soloLettura) {
  const bool avanti = esito == Ripresa::Completata;
  std::string t = "L'ultimo salvataggio del Lavoro " + foglia + " si era interrotto: ";
  if (soloLettura)
    return t + "alla prossima apertura sarà " + (avanti ? "completato" : "annullato") +
           "; ora i file sono letti come stanno.";
  return t +
         (avanti ? "è stato completato, il Lavoro è quello salvato." : "è stato annullato, il Lavoro è com'era prima.");
}

// A member missing beside its backup: the trace of a save of another program cut short, or
// of a file removed by hand; a save that dropped a kind leaves it too, so nothing is moved.
// A backup of no bytes has nothing to lose.
void AvvisaMancanti(Sessione& s) {
  const FileLavoro f = ElencaFileLavoro(s.NomeOriginale);
  const std::string foglia = Foglia(s.NomeOriginale);
  std::string elenco;
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const auto k = static_cast<size_t>(slot);
    if (EstensioneFile(slot)[0] == '\0' || !f.Membro[k].empty() || f.Backup[k].empty()) continue;
    if (LunghezzaFile(f.Backup[k]) <= 0) continue;
    elenco += "\n" + foglia + EstensioneFile(slot) + " (" + Foglia(f.Backup[k]) + ")";
  }
  if (elenco.empty()) return;
  s.Ui->Messaggio("Del Lavoro " + foglia + " mancano questi file, dei quali resta la copia di sicurezza:" + elenco +
                      "\nSe l'ultimo salvataggio li ha tolti perché vuoti, va bene così; se mancano per errore, "
                      "rinominare le copie prima di salvare, perché il salvataggio le sostituisce.",
                  "Apri Lavoro", Icona::Avviso);
}

}  // namespace

void SostituisciMembri(const std::string& base, std::vector<VoceGiornale> voci) {
  const std::string cartella = Cartella(base);
  for (VoceGiornale& v : voci) {
    if (v.Copia.empty()) continue;
    const Misura m = MisuraFile(In(cartella, v.Copia));
    if (!m.Esiste) throw ErroreVarena(kErroreFileNonTrovato);
    v.Lunghezza = m.Lunghezza;
    v.Inode = m.Inode;
  }
  const std::string giornale = base + kSuffissoGiornale;
  ScriviByte(giornale, TestoGiornale(voci));
  Completa(cartella, voci, giornale);
}

Ripresa RiprendiSalvataggio(Sessione& s) {
  if (Rifila(s.NomeOriginale).empty()) return Ripresa::Nessuna;
  s.RoutineCorrente = "RiprendiSalvataggio";
  const auto cartella = TrovaFile(Cartella(s.NomeOriginale));
  if (!cartella) return Ripresa::Nessuna;
  const std::string foglia = Foglia(s.NomeOriginale);
  Avanzi avanzi = CercaAvanzi(*cartella, foglia);
  if (avanzi.Giornale.empty() && avanzi.File.empty()) {
    AvvisaMancanti(s);
    return Ripresa::Nessuna;
  }
  Ripresa esito = Ripresa::Annullata;
  std::vector<VoceGiornale> voci;
  if (!avanzi.Giornale.empty()) {
    voci = LeggiGiornale(In(*cartella, avanzi.Giornale), foglia);
    if (TutteLeCopie(*cartella, voci)) esito = Ripresa::Completata;
    // The copies the journal names are its own to move or remove.
    std::erase_if(avanzi.File, [&](const std::string& nome) {
      return std::any_of(voci.begin(), voci.end(), [&](const VoceGiornale& v) { return v.Copia == nome; });
    });
  }
  if (!s.SolaLettura) {
    for (const std::string& nome : avanzi.File) EliminaFileEsatto(In(*cartella, nome));
    // The journal goes last: until then a second opening takes the same way.
    if (!avanzi.Giornale.empty()) {
      const std::string giornale = In(*cartella, avanzi.Giornale);
      esito == Ripresa::Completata ? Completa(*cartella, voci, giornale) : Annulla(*cartella, voci, giornale);
    }
  }
  s.Ui->Messaggio(TestoRipresa(esito, foglia, s.SolaLettura), kTitoloSalvataggioInterrotto,
                  s.SolaLettura ? Icona::Critico : Icona::Avviso);
  // Without a journal the job's files were not touched: what they lack is older than the save.
  if (avanzi.Giornale.empty()) AvvisaMancanti(s);
  return esito;
}

}  // namespace varena
