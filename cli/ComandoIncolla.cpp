// incolla: the text a file holds, pasted into a job as the clipboard's text would be: an
// outside CAD's listing, or with --tabella a spreadsheet's rows; with --copia the file stands
// for the program's own hand-over file. One undo step, then the save.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "exchange/Incolla.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"

namespace varena::cli {

namespace {

int ComandoIncolla(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 2) {
    err << "uso: varena-cli incolla LAVORO.CFG FILE [--tabella | --copia]\n";
    return 64;
  }
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  const std::optional<std::string> testo = LeggiByte(a.Posizionali[1]);
  if (!testo) {
    err << a.Posizionali[1] << " Non è stato trovato!\n";
    return 1;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  AppuntiInterni appunti;
  s.Clip = &appunti;
  const int32_t prima = s.ContaEntita[SlotPunti] + s.ContaEntita[SlotLinee] + s.ContaEntita[SlotCerchi] +
                        s.ContaEntita[SlotArchi] + s.ContaEntita[SlotTesti];
  if (a.Ha("--copia")) {
    IncollaDaFile(s, a.Posizionali[1]);
  } else {
    appunti.Scrivi(*testo);
    if (a.Ha("--tabella")) IncollaDaTabella(s);
    else DaCad(s);
  }
  const int32_t dopo = s.ContaEntita[SlotPunti] + s.ContaEntita[SlotLinee] + s.ContaEntita[SlotCerchi] +
                       s.ContaEntita[SlotArchi] + s.ContaEntita[SlotTesti];
  out << "Entità incollate: " << dopo - prima << "\n";
  const bool salvato = dopo == prima || Salva(s);
  EliminaProvviso(s);
  return salvato && ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kIncolla("incolla", "incolla LAVORO.CFG FILE [--tabella | --copia]", ComandoIncolla);

}  // namespace

}  // namespace varena::cli
