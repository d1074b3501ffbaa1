// script: a job driven by a text of actions, as the mouse and the keyboard would drive it.
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "Comandi.h"
#include "Terminale.h"
#include "commands/Script.h"
#include "core/Avvio.h"
#include "core/ProcessiSistema.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "view/Rigenera.h"

namespace varena::cli {

namespace {

// A folder of this run alone, removed at its end: what a run writes for the user (the
// display toggles, the last selection) must not reach the next run, nor the user's own.
class CartellaDellaCorsa {
 public:
  CartellaDellaCorsa() {
    std::error_code e;
    std::string modello = (std::filesystem::temp_directory_path(e) / "varena-script-XXXXXX").string();
    if (!e && mkdtemp(modello.data())) percorso_ = modello;
  }
  ~CartellaDellaCorsa() {
    std::error_code e;
    if (!percorso_.empty()) std::filesystem::remove_all(percorso_, e);
  }
  const std::string& Percorso() const { return percorso_; }

 private:
  std::string percorso_;
};

int ComandoScript(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Ha("--dialoghi") && a.Posizionali.empty()) {
    ElencaDialoghi(out);
    return 0;
  }
  if (a.Posizionali.size() != 2) {
    err << "uso: varena-cli script LAVORO[.CFG] SCRIPT [--rigoroso]\n"
           "     varena-cli script --dialoghi\n";
    return 64;
  }
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  std::ifstream testo(a.Posizionali[1], std::ios::binary);
  if (!testo) {
    err << "Script non trovato: " << a.Posizionali[1] << "\n";
    return 1;
  }
  const CartellaDellaCorsa corsa;
  if (corsa.Percorso().empty()) {
    err << "Impossibile creare la cartella temporanea dello script\n";
    return 1;
  }
  Sessione s;
  InterfacciaScript ui(out);
  s.Ui = &ui;
  ProcessiSistema processi(s.Clip);  // the triangulator a script's commands start
  s.Proc = &processi;
  s.CartellaUtente = corsa.Percorso();
  if (!ApriInCopia(s, *base)) return 1;
  RigeneraLista(s);
  OpzioniScript opzioni;
  opzioni.Rigoroso = a.Ha("--rigoroso");
  const EsitoScript esito = EseguiScript(s, ui, testo, out, opzioni);
  EliminaProvviso(s);
  if (esito.Codice != 0) {
    err << a.Posizionali[1] << ", riga " << esito.Riga << ": " << esito.Errore << "\n";
    return esito.Codice;
  }
  return ui.Errori ? 2 : 0;
}

const RegistraComando kScript("script", "script LAVORO[.CFG] SCRIPT [--rigoroso] | script --dialoghi", ComandoScript);

}  // namespace

}  // namespace varena::cli
