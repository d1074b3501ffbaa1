// export: the job's points or drawing written to one of the small text formats, as the menu
// and the point list write them. The list's formats take its rows in the order of an
// optional sort; the job itself is only read.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "cadastre/ElencoPunti.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Esportazioni.h"

namespace varena::cli {

namespace {

std::string NomiFormati() {
  std::string n;
  for (const DescrizioneEsportazione& d : FormatiEsportazione()) n += (n.empty() ? "" : "|") + std::string(d.Parola);
  return n;
}

// "--ordina Nord" or "--ordina -Nord" (descending): the list's sort by a column title's first word.
bool Ordina(const Sessione& s, std::vector<int32_t>& righe, std::string nome) {
  const bool crescente = nome.empty() || nome[0] != '-';
  if (!crescente) nome.erase(0, 1);
  for (int c = 0; c < NumeroColonneElenco; ++c) {
    const std::string titolo = TitoloColonnaElenco(c);
    if (UgualeSenzaCaso(titolo.substr(0, titolo.find(' ')), nome)) {
      OrdinaElencoPunti(s, righe, c, crescente);
      return true;
    }
  }
  return nome.empty();
}

int ComandoExport(const Argomenti& a, std::ostream&, std::ostream& err) {
  const std::string uso = "uso: varena-cli export LAVORO.CFG USCITA --format " + NomiFormati() +
                          " [--decimali N] [--ordina [-]COLONNA] [--colonne 1,2,3,4,5] [--separatore VIRGOLA]"
                          " [--anteponi] [--separatore-finale]\n";
  const DescrizioneEsportazione* d = TrovaFormatoEsportazione(Minuscolo(a.Valore("--format")));
  if (a.Posizionali.size() != 2 || !d) {
    if (!a.Valore("--format").empty() && !d) err << "Formato sconosciuto: " << a.Valore("--format") << "\n";
    err << uso;
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  std::vector<int32_t> righe = RigheElencoPunti(s);
  if (!Ordina(s, righe, a.Valore("--ordina"))) {
    err << "Colonna sconosciuta: " << a.Valore("--ordina") << "\n" << uso;
    return 64;
  }
  OpzioniEsportazione o;
  const std::string decimali = a.Valore("--decimali");
  o.Decimali = decimali.empty() ? DecimaliEsportazione(s) : InteroLungo(Val(decimali));
  if (a.Ha("--colonne")) {
    o.Colonne.clear();
    for (const std::string& c : Dividi(a.Valore("--colonne"), ','))
      if (const int n = InteroLungo(Val(c)); n >= 1 && n <= 7) o.Colonne.push_back(n);
  }
  o.Separatore = Maiuscolo(a.Valore("--separatore", o.Separatore));
  o.Anteponi = a.Ha("--anteponi");
  o.SepFinale = a.Ha("--separatore-finale");
  if (!ScriviEsportazione(s, d->Formato, a.Posizionali[1], righe, o)) return 2;
  return ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kExport("export",
                              "export LAVORO.CFG USCITA --format FORMATO [--decimali N] [--ordina [-]COLONNA] "
                              "[opzioni del file PUN]",
                              ComandoExport, {"--format", "--decimali", "--ordina", "--colonne", "--separatore"});

}  // namespace

}  // namespace varena::cli
