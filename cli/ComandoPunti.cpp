// punti: the point table of a job as the point list shows it, in columns or as CSV.
#include <algorithm>
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "cadastre/ElencoPunti.h"
#include "core/Sessione.h"

namespace varena::cli {

namespace {

std::string CampoCsv(const std::string& t) {
  if (t.find_first_of(",\"\r\n") == std::string::npos) return t;
  std::string q = "\"";
  for (char c : t) q += c == '"' ? std::string("\"\"") : std::string(1, c);
  return q + "\"";
}

int ComandoPunti(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 1) {
    err << "uso: varena-cli punti LAVORO[.CFG] [--csv]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  const std::vector<int32_t> righe = RigheElencoPunti(s);
  const bool csv = a.Ha("--csv");
  // Columns as wide as their widest cell, numbers to the right.
  std::vector<size_t> larghezza(NumeroColonneElenco);
  if (!csv)
    for (int c = 0; c < NumeroColonneElenco; ++c) {
      larghezza[static_cast<size_t>(c)] = std::string(TitoloColonnaElenco(c)).size();
      for (size_t i = 0; i < righe.size(); ++i)
        larghezza[static_cast<size_t>(c)] = std::max(larghezza[static_cast<size_t>(c)], CellaElencoPunti(s, righe, i, c).size());
    }
  auto riga = [&](auto&& cella) {
    std::string r;
    for (int c = 0; c < NumeroColonneElenco; ++c) {
      const std::string t = cella(c);
      if (csv) {
        r += (c ? "," : "") + CampoCsv(t);
        continue;
      }
      const bool numero = c != ColonnaNome && c != ColonnaDescrizione && c != ColonnaPiano;
      const std::string spazio(larghezza[static_cast<size_t>(c)] - std::min(t.size(), larghezza[static_cast<size_t>(c)]), ' ');
      r += (c ? "  " : "") + (numero ? spazio + t : t + (c + 1 < NumeroColonneElenco ? spazio : ""));
    }
    out << r << "\n";
  };
  riga([](int c) { return std::string(TitoloColonnaElenco(c)); });
  for (size_t i = 0; i < righe.size(); ++i) riga([&](int c) { return CellaElencoPunti(s, righe, i, c); });
  return ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kPunti("punti", "punti LAVORO[.CFG] [--csv]", ComandoPunti);

}  // namespace

}  // namespace varena::cli
