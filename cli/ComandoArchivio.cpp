// archivia and xvr: the job as one `.VRZ` archive, and as the whole-job text `.XVR`, written
// where the user says; the job itself is read where it stands and left as it is.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "store/Archivio.h"
#include "store/TestoLavoro.h"

namespace varena::cli {

namespace {

// The job read where it stands, then `scrivi` makes the output, written whole beside its
// place and renamed there; a failure says why.
int Esporta(const Argomenti& a, std::ostream& out, std::ostream& err, const char* uso,
            void (*scrivi)(Sessione&, const std::string&)) {
  if (a.Posizionali.size() != 2) {
    err << uso;
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  const std::string destinazione = PercorsoAssoluto(a.Posizionali[1]);
  if (!Protetto(s, [&] { scrivi(s, destinazione); })) return 2;
  out << destinazione << " (" << LunghezzaFile(destinazione) << " byte)\n";
  return ui.Errori == 0 ? 0 : 2;
}

int ComandoArchivia(const Argomenti& a, std::ostream& out, std::ostream& err) {
  return Esporta(a, out, err, "uso: varena-cli archivia LAVORO.CFG ARCHIVIO.VRZ\n",
                 [](Sessione& s, const std::string& destinazione) {
                   s.RoutineCorrente = "ZipFile";
                   ScriviArchivioLavoro(s.NomeLavoro, Foglia(s.NomeLavoro), destinazione);
                 });
}

int ComandoXvr(const Argomenti& a, std::ostream& out, std::ostream& err) {
  return Esporta(a, out, err, "uso: varena-cli xvr LAVORO.CFG TESTO.XVR\n",
                 [](Sessione& s, const std::string& destinazione) {
                   ScriviByte(destinazione, Utf8InCp1252(TestoTuttoIla7(s)));
                 });
}

const RegistraComando kArchivia("archivia", "archivia LAVORO.CFG ARCHIVIO.VRZ", ComandoArchivia);
const RegistraComando kXvr("xvr", "xvr LAVORO.CFG TESTO.XVR", ComandoXvr);

}  // namespace

}  // namespace varena::cli
