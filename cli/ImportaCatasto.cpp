// The CXF and TAF imports of the command line.
#include "ImportaCatasto.h"

#include "Terminale.h"
#include "core/Avvio.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/CxfLettura.h"
#include "exchange/TafLettura.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"

namespace varena::cli {

int ImportaCatasto(const std::string& lavoro, const std::string& file, const std::string& formato, std::ostream& out,
                   std::ostream& err) {
  const std::string f = Minuscolo(formato);
  if (f != "cxf" && f != "taf") {
    err << "Formato non riconosciuto: " << formato << "\n";
    return 64;
  }
  const auto base = BaseLavoro(lavoro);
  if (!base) {
    err << "Lavoro non trovato: " << lavoro << "\n";
    return 1;
  }
  if (!EsisteFile(file)) {
    err << "File non trovato: " << file << "\n";
    return 1;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!AvviaSessione(s)) return 2;
  s.NomeOriginale = *base;
  s.TipoFile = "CFG";
  VR_ApriLavoro(s);
  bool letto = false;
  if (f == "cxf") {
    EsitoCxf e;
    letto = ImportaCxf(s, file, &e);
    if (letto) out << "Testi " << e.Testi << ", punti " << e.Punti << ", linee " << e.Linee << "\n";
  } else {
    EsitoTaf e;
    letto = ImportaTaf(s, file, &e);
    if (letto) out << "Punti " << e.Punti << "\n";
  }
  const bool salvato = letto && Salva(s);
  EliminaProvviso(s);
  return salvato && ui.Errori == 0 ? 0 : 2;
}

}  // namespace varena::cli
