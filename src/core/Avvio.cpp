// Start-up sequence of the program.
#include "core/Avvio.h"

#include <cstdlib>
#include <filesystem>

#include "core/CodicePagina.h"
#include "core/Configura.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Salvaini.h"
#include "core/Sessione.h"
#include "core/SimboliUtente.h"
#include "core/Testo.h"
#include "exchange/Importatori.h"
#include "store/Archivio.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/SalvataggioInterrotto.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"

namespace fs = std::filesystem;

namespace varena {

namespace {

std::string Ambiente(const char* nome) {
  const char* v = std::getenv(nome);
  return v ? std::string(v) : std::string();
}

std::string SenzaSeparatoreFinale(std::string p) {
  while (p.size() > 1 && p.back() == '/') p.pop_back();
  return p;
}

// The documents folder of the desktop, as `xdg-user-dirs` records it.
std::string CartellaDocumentiUtente() {
  const std::string casa = Ambiente("HOME").empty() ? "/tmp" : Ambiente("HOME");
  std::string config = Ambiente("XDG_CONFIG_HOME");
  if (config.empty()) config = casa + "/.config";
  for (const std::string& riga : RigheFile(config + "/user-dirs.dirs")) {
    if (!IniziaCon(riga, "XDG_DOCUMENTS_DIR=")) continue;
    std::string v = Sostituisci(riga.substr(18), "\"", "");
    v = Sostituisci(v, "$HOME", casa);
    if (!v.empty()) return SenzaSeparatoreFinale(v);
  }
  return casa + "/Documents";
}

}  // namespace

void ImpostaCartelle(Sessione& s) {
  const std::string doc = Ambiente("VARENA_DOCUMENTI");
  // Absolute, as every path built on them must be: a job under a working root named from the
  // current folder would be recorded by a name that means nothing from another one.
  s.CartellaDocumenti = PercorsoAssoluto(doc.empty() ? CartellaDocumentiUtente() : doc);
  s.CartellaLavoro = s.CartellaDocumenti + "/VR2000/";
  std::string prog = Ambiente("VARENA_PROGRAMMA");
  if (prog.empty()) {
    std::string dati = Ambiente("XDG_DATA_HOME");
    if (dati.empty()) dati = (Ambiente("HOME").empty() ? "/tmp" : Ambiente("HOME")) + "/.local/share";
    prog = dati + "/varena";
  }
  s.CartellaProgramma = PercorsoAssoluto(prog);
}

bool CreaAlberoCartelle(Sessione& s) {
  s.RoutineCorrente = "VarenaLoad";
  const std::string& d = s.CartellaDocumenti;
  const std::string& p = s.CartellaProgramma;
  std::error_code ec;
  fs::create_directories(p, ec);  // the program's own data folder must exist to be written
  // A fresh account may have no documents folder yet: it is the root of everything else.
  fs::create_directories(d, ec);
  for (const std::string& cartella :
       {d + "/VR2000", d + "/VR2000/IMPORTA", p + "/GUIDA", d + "/VR2000/ESEMPI", d + "/VR2000/TEMP",
        d + "/VR2000/TEMP1", d + "/VR2000/LAVORI", d + "/VR2000/GRUPPI", d + "/VR2000/IMMAGINI",
        d + "/VR2000/PROVVISO", d + "/VR2000/MODELLI_STAMPA", d + "/VR2000/LAVORI/NUOVO", d + "/SONDAIII",
        d + "/SONDAIII/MENU"}) {
    if (!NuovaCartella(cartella)) {
      MostraErroreComune(s, std::string(kErrorePermesso) + ": " + cartella);
      return false;
    }
  }
  return true;
}

void InizializzaDefault(Sessione& s) {
  s.RoutineCorrente = "InizializzaDefault";
  s.Vista.RapportoVista = 1.7;
  CaricaToolbarBottoni(s);
  ConfiguraLeggi(s);
  CaricaSalvaini(s);
  CaricaCodici(s, PercorsoCodici(s));
  CaricaColori(s, PercorsoColori(s));
  CaricaSpessori(s, PercorsoSpessori(s));
  // Scratch selection lists of an earlier run are not carried over.
  s.RoutineCorrente = "InizializzaDefault";
  if (!s.SolaLettura) {
    Protetto(s, [&] {
      std::error_code ec;
      std::vector<fs::path> via;
      for (fs::directory_iterator it(s.CartellaLavoro, ec), fine; !ec && it != fine; it.increment(ec))
        if (Maiuscolo(it->path().extension().string()) == ".ULS") via.push_back(it->path());
      for (const fs::path& f : via) fs::remove(f, ec);
    });
  }
  // What the legacy start does once the entity tables exist; none of it reads them.
  if (s.Toolbar.NumeroColonne < 1) s.Toolbar.NumeroColonne = 16;
  CaricaPiani1(s);
  CaricaTratteggi(s);
  CaricaConfiguraPunti(s);
  CaricaSimboli(s);
  CaricaArchivioNote(s);
  CaricaComuni(s);
  s.RoutineCorrente = "DOPOCARICACOMUNI";
}

NomeConEstensione DividiNomeComune(const std::string& testo) {
  const std::string maiuscolo = Maiuscolo(testo);
  const size_t punto = maiuscolo.find_last_of('.');
  if (punto == std::string::npos) return {"", maiuscolo};
  return {maiuscolo.substr(0, punto), maiuscolo.substr(punto + 1)};
}

namespace {

std::string LeggiComune(const std::string& percorso) {
  const auto byte = LeggiByte(percorso);
  if (!byte) return {};
  LettoreLista in(Cp1252InUtf8(*byte));
  return in.Fine() ? std::string() : in.LeggiTesto();
}

// The job handed over, absolute: its extension as `DividiNomeComune` finds it, its name
// upper-cased as it always was but for the folders above it, named as they stand on disk on
// this system.
NomeConEstensione NomeDaComune(const std::string& letto) {
  const std::string percorso = PercorsoAssoluto(letto);
  NomeConEstensione n = DividiNomeComune(percorso);
  if (!n.Nome.empty()) n.Nome = NomeMaiuscolo(percorso.substr(0, n.Nome.size()));
  return n;
}

}  // namespace

void ApriLavoroIniziale(Sessione& s, const std::string& rigaComando) {
  s.RoutineCorrente = "DOPOCARICACOMUNI";
  const std::string comune = s.CartellaLavoro + "COMMON.CFG";
  const std::string comuneProgramma = s.CartellaProgramma + "/COMMON.CFG";
  const std::string riga = Rifila(Sostituisci(rigaComando, "\"", " "));
  Protetto(s, [&] {
    if (!riga.empty()) {
      ScriviTesto(comune, IstruzioneLista().Testo(riga).Riga());
    } else if (s.Imp.RiapriUltimoLavoro == 1) {
      const std::vector<std::string> recenti = RigheFile(s.CartellaLavoro + "LavoriRecenti.txt");
      if (!recenti.empty()) ScriviTesto(comune, IstruzioneLista().Testo(recenti.back()).Riga());
    }
  });
  s.RoutineCorrente = "DOPOCARICACOMUNI1";
  bool importato = false;
  Protetto(s, [&] {
    if (!EsisteFile(comune)) return;
    const std::string letto = LeggiComune(comune);
    const NomeConEstensione n = NomeDaComune(letto);
    s.NomeOriginale = n.Nome;
    s.RoutineCorrente = "DOPOCARICACOMUNI2";
    if (n.Estensione.empty()) return;
    if (n.Estensione == "VRZ") {
      // A job kept as one archive opens as the job it holds; its name as the disk spells it.
      const std::string archivio = PercorsoAssoluto(letto);
      EliminaFile(comune);
      importato = true;
      if (!Esplodi_VRZ(s, TrovaFile(archivio).value_or(archivio))) s.NomeOriginale.clear();
      return;
    }
    if (const auto tipo = TipoDaEstensione(n.Estensione)) {
      s.TipoFile = NomeTipo(*tipo);
      ImportaFile(s, *tipo, n.Nome + "." + n.Estensione);
      importato = true;
      return;
    }
    s.RoutineCorrente = "DOPOCARICACOMUNI3";
    EliminaProvviso(s);
    EliminaFile(comune);
  });
  if (importato) return;
  Protetto(s, [&] {
    if (!EsisteFile(comune) && EsisteFile(comuneProgramma))
      s.NomeOriginale = NomeDaComune(LeggiComune(comuneProgramma)).Nome;
  });
  if (Rifila(s.NomeOriginale).empty()) return;
  s.TipoFile = "CFG";
  ImpostaNomeProvvisorio(s);
  s.RoutineCorrente = "VarenaLoad2";
  if (!Protetto(s, [&] {
        RiprendiSalvataggio(s);
        CopiaInProvvisorio(s);
      }))
    return;
  CaricaLavoro(s);
  VR_SalvaUndo(s);
  Protetto(s, [&] {
    EliminaFile(comune);
    EliminaFile(comuneProgramma);
  });
}

bool AvviaSessione(Sessione& s) {
  s.RoutineCorrente = "VarenaLoad";
  ImpostaCartelle(s);
  if (!s.SolaLettura && !CreaAlberoCartelle(s)) return false;
  InizializzaDefault(s);
  s.RoutineCorrente = "VarenaLoad1";
  ClearAllTables(s);
  return true;
}

void VarenaLoad(Sessione& s, const std::string& rigaComando) {
  if (AvviaSessione(s)) ApriLavoroIniziale(s, rigaComando);
}

}  // namespace varena
