// lavori: the archive of jobs of the working root as the open window lists it, one row a job,
// tab-separated; a job no longer on disk is marked. With --recenti, the recent jobs instead.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "store/Registro.h"

namespace varena::cli {

namespace {

int ComandoLavori(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (!a.Posizionali.empty()) {
    err << "uso: varena-cli lavori [--recenti]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  ImpostaCartelle(s);
  if (a.Ha("--recenti")) {
    for (const std::string& r : LavoriRecenti(s)) out << r << "\n";
    return 0;
  }
  out << "Nome Lavoro\tPercorso Completo\tDescrizione\tData\n";
  for (const VoceArchivio& v : CaricaGriglia(s))
    out << v.Nome << "\t" << v.Percorso << "\t" << v.Descrizione << "\t" << v.Data << (v.Mancante ? "\tMANCANTE" : "")
        << "\n";
  return 0;
}

const RegistraComando kLavori("lavori", "lavori [--recenti]", ComandoLavori);

}  // namespace

}  // namespace varena::cli
