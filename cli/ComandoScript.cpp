// script: a job driven by a text of actions, as the mouse and the keyboard would drive it.
#include <fstream>

#include "Comandi.h"
#include "Terminale.h"
#include "commands/Script.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "view/Rigenera.h"

namespace varena::cli {

namespace {

int ComandoScript(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 2) {
    err << "uso: varena-cli script LAVORO[.CFG] SCRIPT\n";
    return 64;
  }
  const auto base = BaseLavoro(a.Posizionali[0]);
  if (!base) {
    err << "Lavoro non trovato: " << a.Posizionali[0] << "\n";
    return 1;
  }
  std::ifstream testo(a.Posizionali[1], std::ios::binary);
  if (!testo) {
    err << "Script non trovato: " << a.Posizionali[1] << "\n";
    return 1;
  }
  Sessione s;
  InterfacciaScript ui(out);
  s.Ui = &ui;
  if (!AvviaSessione(s)) return 1;
  // The job is opened as the program opens it: in a provisional copy, where all the work
  // is done; only SAVE brings it back over the original.
  s.NomeOriginale = *base;
  VR_ApriLavoro(s);
  RigeneraLista(s);
  const EsitoScript esito = EseguiScript(s, ui, testo, out);
  EliminaProvviso(s);
  if (esito.Codice != 0) {
    err << a.Posizionali[1] << ", riga " << esito.Riga << ": " << esito.Errore << "\n";
    return esito.Codice;
  }
  return ui.Errori ? 2 : 0;
}

const RegistraComando kScript("script", "script LAVORO[.CFG] SCRIPT", ComandoScript);

}  // namespace

}  // namespace varena::cli
