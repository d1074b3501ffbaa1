// inquadra: a job framed in batch on its fiducial points. Each PF named is found in the
// drawing and in the fiducial archive; the fit (rigid, or with scale) moves and turns the
// whole drawing, the job is saved and the residuals are printed. Any PF missing leaves the
// job as it was.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "survey/InquadraDisegno.h"

namespace varena::cli {

namespace {

constexpr const char* kUso = "inquadra LAVORO.CFG PF1 PF2 [PF3 ...] [--scala] [--archivio CARTELLA]";

int ComandoInquadra(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() < 3) {
    err << "uso: varena-cli " << kUso << "\n";
    return 64;
  }
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  // The folder that holds dati/, in place of the one the settings name (read with the job).
  if (const std::string c = a.Valore("--archivio"); !c.empty()) s.Imp.Cartella_Fiducial = c;
  std::string errore;
  const std::vector<std::string> nomi(a.Posizionali.begin() + 1, a.Posizionali.end());
  const std::vector<CoppiaPF> coppie = CoppieDaArchivio(s, nomi, errore);
  EsitoInquadramento e;
  if (errore.empty()) {
    e = Inquadra(coppie, a.Ha("--scala"));
    if (!e.Riuscito) errore = e.Motivo;
  }
  if (!errore.empty()) {
    EliminaProvviso(s);
    err << errore << "\n";
    return 2;
  }
  const bool salvato = InquadraTuttoIlDisegno(s, e) && Salva(s);
  EliminaProvviso(s);
  out << TabellaResidui(coppie, e) << "\n";
  return salvato && ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kInquadra("inquadra", kUso, ComandoInquadra, {"--archivio"});

}  // namespace

}  // namespace varena::cli
