// Job registry, recent jobs, provisional copies and included drawings.
#include "store/Registro.h"

#include <algorithm>
#include <filesystem>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Archivio.h"
#include "store/Carica.h"
#include "store/Cfg.h"
#include "store/Inclusi.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"

namespace fs = std::filesystem;

namespace varena {

namespace {

std::string SenzaCfg(std::string p) {
  if (p.size() > 4 && UgualeSenzaCaso(p.substr(p.size() - 4), ".CFG")) p.resize(p.size() - 4);
  return p;
}

bool RigaScelta(Sessione& s, const std::string& voce) {
  if (!Rifila(voce).empty()) return true;
  s.Ui->Messaggio("Selezionare una riga!", "Lavori Aperti", Icona::Informazione);
  return false;
}

std::string ProvvisorioDiVoce(const std::string& voce) {
  const size_t k = voce.find(" - ");
  return k == std::string::npos ? voce : voce.substr(0, k);
}

}  // namespace

std::vector<VoceArchivio> CaricaGriglia(const Sessione& s) {
  std::vector<VoceArchivio> righe;
  for (const std::string& riga : RigheFile(s.CartellaLavoro + "VRLAVORI.LAV")) {
    if (Rifila(riga).empty()) continue;
    std::vector<std::string> campi = Dividi(", , , " + Sostituisci(riga, "\"", ""), ',');
    campi.resize(std::max<size_t>(campi.size(), 6));
    VoceArchivio v;
    v.Percorso = Sostituisci(Rifila(campi[3]), "\\\\", "\\");
    if (!FinisceCon(Maiuscolo(v.Percorso), ".CFG")) v.Percorso += ".CFG";
    v.Nome = Foglia(SenzaCfg(v.Percorso));
    v.Descrizione = Rifila(campi[4]);
    v.Data = Rifila(campi[5]);
    const auto cfg = TrovaFile(NormalizzaPercorso(v.Percorso));
    v.Mancante = !cfg || !EsisteFile(*cfg);
    righe.push_back(std::move(v));
  }
  return righe;
}

std::vector<std::string> LavoriRecenti(const Sessione& s) {
  std::vector<std::string> righe;
  for (const std::string& r : RigheFile(s.CartellaLavoro + "LavoriRecenti.txt"))
    if (!Rifila(r).empty()) righe.push_back(Rifila(r));
  return righe;
}

bool SvuotaLavoriRecenti(Sessione& s) {
  if (s.Ui->Domanda("Eliminare Lavori Recenti ?? ", "Eliminazione Lavori Recenti", Bottoni::SiNo, Icona::Domanda,
                    Risposta::No) != Risposta::Si)
    return false;
  s.RoutineCorrente = "SvuotaLavoriRecenti";
  return Protetto(s, [&] { EliminaFile(s.CartellaLavoro + "LavoriRecenti.txt"); });
}

std::vector<LavoroProvvisorio> ElencaLavoriAperti(const Sessione& s) {
  std::vector<LavoroProvvisorio> elenco;
  std::error_code ec;
  const auto cartella = TrovaFile(s.CartellaLavoro + "PROVVISO");
  if (!cartella) return elenco;
  std::vector<std::string> nomi;
  for (fs::directory_iterator it(*cartella, ec), fine; !ec && it != fine; it.increment(ec)) {
    const std::string nome = it->path().filename().string();
    const std::string M = Maiuscolo(nome);
    // Undo generations are "name(n).CFG": they are not jobs of their own.
    if (FinisceCon(M, ".CFG") && M.find(").CFG") == std::string::npos) nomi.push_back(nome);
  }
  std::sort(nomi.begin(), nomi.end());
  for (const std::string& nome : nomi) {
    LavoroProvvisorio l;
    l.Provvisorio = *cartella + "/" + SenzaCfg(nome);
    if (const auto byte = LeggiByte(l.Provvisorio + ".INF")) {
      LettoreLista in(Cp1252InUtf8(*byte));
      if (!in.Fine()) l.Originale = in.LeggiTesto();
    }
    l.Voce = l.Provvisorio + " - " + l.Originale;
    elenco.push_back(std::move(l));
  }
  return elenco;
}

bool RecuperaLavoroAperto(Sessione& s, const std::string& voce) {
  if (!RigaScelta(s, voce)) return false;
  AzzeraTabelleLavoro(s);
  s.NomeLavoro = ProvvisorioDiVoce(voce);
  s.NomeOriginale.clear();
  s.TipoFile = "CFG";
  CaricaLavoro(s);
  return VR_SalvaUndo(s);
}

bool SalvaLavoroAperto(Sessione& s, const std::string& voce) {
  if (!RigaScelta(s, voce)) return false;
  s.NomeLavoro = ProvvisorioDiVoce(voce);
  s.NomeOriginale.clear();
  // The copy is saved as it stands: what the last load found damaged was another job's.
  s.MembroGuasto.fill(false);
  CaricaInf(s);
  if (Rifila(s.NomeOriginale).empty()) return false;
  const bool fatto = VR_DaProvvisoAOriginale(s);
  if (fatto) EliminaProvviso(s);
  ClearAllTables(s);
  s.NomeLavoro.clear();
  s.NomeOriginale.clear();
  return fatto;
}

void EliminaTuttiProvvisori(Sessione& s) {
  s.RoutineCorrente = "EliminaTuttiProvvisori";
  Protetto(s, [&] {
    const auto cartella = TrovaFile(s.CartellaLavoro + "PROVVISO");
    if (!cartella) return;
    std::error_code ec;
    std::vector<fs::path> via;
    for (fs::directory_iterator it(*cartella, ec), fine; !ec && it != fine; it.increment(ec))
      if (it->is_regular_file(ec)) via.push_back(it->path());
    for (const fs::path& p : via) fs::remove(p, ec);
  });
}

bool EliminaLavoro(Sessione& s, const std::string& percorsoCfg) {
  const std::string base = SenzaCfg(NormalizzaPercorso(percorsoCfg));
  if (s.Ui->Domanda("Eliminare definitivamente il Lavoro " + Foglia(base), "Elimina Lavoro", Bottoni::SiNo,
                    Icona::Domanda, Risposta::No) != Risposta::Si)
    return false;
  s.RoutineCorrente = "EliminaLavoro";
  return Protetto(s, [&] {
    const auto cartella = TrovaFile(Cartella(base));
    if (!cartella) return;
    const std::string foglia = Maiuscolo(Foglia(base)) + ".";
    std::error_code ec;
    std::vector<fs::path> via;
    for (fs::directory_iterator it(*cartella, ec), fine; !ec && it != fine; it.increment(ec))
      if (IniziaCon(Maiuscolo(it->path().filename().string()), foglia)) via.push_back(it->path());
    for (const fs::path& p : via) fs::remove(p, ec);
  });
}

bool ApriLavoroScelto(Sessione& s, const std::string& percorso) {
  const std::string n = PercorsoAssoluto(percorso);
  if (FinisceCon(Maiuscolo(n), ".VRZ")) return Esplodi_VRZ(s, n);
  if (!FinisceCon(Maiuscolo(n), ".CFG")) {
    s.Ui->Messaggio("Formato non riconosciuto:\n" + n, "Apri Lavoro", Icona::Avviso);
    return false;
  }
  s.NomeOriginale = SenzaCfg(n);
  s.TipoFile = "CFG";
  VR_ApriLavoro(s);
  return true;
}

bool IncludiDisegno(Sessione& s, const std::vector<std::string>& percorsi) {
  // Only a drawing not yet listed is checked: one listed before stays removable.
  const std::vector<std::string> gia = DisegniInclusi(s);
  for (const std::string& p : percorsi)
    if (std::find(gia.begin(), gia.end(), p) == gia.end() && InclusioneCircolare(s, p)) return false;
  std::string associati;
  for (const std::string& p : percorsi) associati += p + "|";
  s.Cfg.VB(B_FileAssociati, 0).Testo = associati;
  SegnaModificato(s, SlotCfg);
  if (!VR_SalvaUndo(s)) return false;
  ClearAllTables(s);
  CaricaLavoro(s);
  return true;
}

std::vector<std::string> DisegniInclusi(const Sessione& s) {
  return ElencoInclusi(s.Cfg.VB(B_FileAssociati, 0).Testo);
}

bool TogliDisegnoIncluso(Sessione& s, const std::string& percorso) {
  std::vector<std::string> inclusi = DisegniInclusi(s);
  const auto togli = std::find(inclusi.begin(), inclusi.end(), percorso);
  if (togli == inclusi.end()) return false;
  inclusi.erase(togli);
  return IncludiDisegno(s, inclusi);
}

}  // namespace varena
