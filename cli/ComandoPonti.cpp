// The file halves of the bridges to Pregeo, in batch: the `.LXC` of a job's drawing, the
// self-prepared extract of its contours and points, and a Pregeo proposal drawn into it.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "cadastre/Autoallestito.h"
#include "cadastre/LibrettoDaDisegno.h"
#include "cadastre/Pregeo.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"

namespace varena::cli {

namespace {

// lxc: written beside the job, the job itself read in place and left untouched.
int ComandoLxc(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 1) {
    err << "uso: varena-cli lxc LAVORO[.CFG]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  std::string testo;
  for (const std::string& riga : RigheLXC(s)) testo += riga + "\r\n";
  const std::string percorso = s.NomeOriginale + ".LXC";
  if (!Protetto(s, [&] { ScriviTesto(percorso, testo); })) return 2;
  out << percorso << "\n";
  return 0;
}

int ComandoAutoallestito(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 2) {
    err << "uso: varena-cli autoallestito LAVORO[.CFG] NOME [--cartella CARTELLA]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  if (const std::string c = a.Valore("--cartella"); !c.empty()) s.Imp.Cartella_Estratti = c;
  const auto percorso = ScriviAutoallestito(s, a.Posizionali[1]);
  if (!percorso) return 2;
  out << *percorso << "\n";
  return 0;
}

// dat: the sides of the proposal drawn into the job, which is saved.
int ComandoDat(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 2) {
    err << "uso: varena-cli dat LAVORO[.CFG] FILE.DAT\n";
    return 64;
  }
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  const std::string dat = PercorsoAssoluto(a.Posizionali[1]);
  if (!EsisteFile(dat)) {
    err << "Il file " << dat << " NON è stato trovato!\n";
    return 1;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  const int32_t prima = s.ContaEntita[SlotLinee];
  const bool fatto = CaricaDATconNomefile(s, dat) && Salva(s);
  EliminaProvviso(s);
  out << "Linee: " << s.ContaEntita[SlotLinee] - prima << "\n";
  return fatto && ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kLxc("lxc", "lxc LAVORO[.CFG]", ComandoLxc);
const RegistraComando kAutoallestito("autoallestito", "autoallestito LAVORO[.CFG] NOME [--cartella CARTELLA]",
                                     ComandoAutoallestito, {"--cartella"});
const RegistraComando kDat("dat", "dat LAVORO[.CFG] FILE.DAT", ComandoDat);

}  // namespace

}  // namespace varena::cli
