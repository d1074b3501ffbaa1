// libretto: the rows of a job's field book and their fields as the book's readers split them.
#include <string>

#include "Comandi.h"
#include "Json.h"
#include "Terminale.h"
#include "cadastre/Libretto.h"
#include "core/Errori.h"
#include "core/Sessione.h"

namespace varena::cli {

namespace {

// The fields of one row; false, with the error's text, when the row cannot be split.
bool Campi(const std::string& riga, CampiLibretto& c, std::string& errore) {
  try {
    CampiRiga(riga, c);
    return true;
  } catch (const ErroreVarena& e) {
    errore = e.what();
    return false;
  }
}

void RigaJson(size_t n, const std::string& riga, std::ostream& out, int& errori) {
  CampiLibretto c;
  std::string errore;
  out << "{\"riga\":" << n << ",\"tipo\":" << TipoRiga(riga) << ",\"testo\":" << JsonTesto(riga);
  if (!Campi(riga, c, errore)) {
    ++errori;
    out << ",\"errore\":" << JsonTesto(errore) << "}";
    return;
  }
  out << ",\"campi\":[";
  for (int k = 0; k <= c.UltimoCampo; ++k) out << (k ? "," : "") << JsonTesto(c.Campo[static_cast<size_t>(k)]);
  out << "],\"ultimo\":" << c.UltimoCampo << ",\"vertici\":" << c.NumeroVerticiRiga << "}";
}

void RigaTesto(size_t n, const std::string& riga, std::ostream& out, int& errori) {
  CampiLibretto c;
  std::string errore;
  out << n << "\t" << TipoRiga(riga) << "\t" << riga << "\n";
  if (!Campi(riga, c, errore)) {
    ++errori;
    out << "\terrore: " << errore << "\n";
    return;
  }
  for (int k = 1; k <= c.UltimoCampo; ++k) out << "\t" << k << ": " << c.Campo[static_cast<size_t>(k)] << "\n";
  if (c.NumeroVerticiRiga) out << "\tvertici: " << c.NumeroVerticiRiga << "\n";
}

void RigaZeroJson(const Sessione& s, std::ostream& out) {
  const DatiRigaZero& d = s.RigaZero;
  out << "{\"data\":" << JsonTesto(d.Data) << ",\"campoDue\":" << JsonTesto(d.CampoDue)
      << ",\"codiceComune\":" << JsonTesto(d.CodiceComune) << ",\"nomeComune\":" << JsonTesto(d.NomeComune)
      << ",\"foglio\":" << JsonTesto(d.Foglio) << ",\"dataBreve\":" << JsonTesto(d.DataBreve)
      << ",\"anno\":" << JsonTesto(d.Anno) << ",\"fileEstratto\":" << JsonTesto(s.FileEstratto)
      << ",\"codiceLibretto\":" << JsonTesto(s.CodiceLibretto)
      << ",\"codiceIscrizione\":" << JsonTesto(s.CodiceIscrizione) << "}";
}

int ComandoLibretto(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 1) {
    err << "uso: varena-cli libretto LAVORO[.CFG] [--json]\n";
    return 64;
  }
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  // The heading as the book's readers take it; the rows themselves are listed as stored.
  const std::vector<std::string> righe = s.LibrettoMisure;
  DatiDaRigaZero(s);
  ValoriRigheSei(s);
  int errori = 0;
  if (a.Ha("--json")) {
    out << "{\"lavoro\":" << JsonTesto(s.NomeOriginale) << ",\"rigaZero\":";
    RigaZeroJson(s, out);
    out << ",\"righe\":[";
    for (size_t n = 0; n < righe.size(); ++n) {
      out << (n ? ",\n" : "\n");
      RigaJson(n, righe[n], out, errori);
    }
    out << "]}\n";
  } else {
    const DatiRigaZero& d = s.RigaZero;
    out << "Libretto: " << righe.size() << " righe\n";
    out << "Data: " << d.Data << "  Comune: " << d.CodiceComune << (d.NomeComune.empty() ? "" : " " + d.NomeComune)
        << "  Foglio: " << d.Foglio << "\n";
    for (size_t n = 0; n < righe.size(); ++n) RigaTesto(n, righe[n], out, errori);
  }
  if (errori) err << "Righe non divise: " << errori << "\n";
  return errori || ui.Errori ? 2 : 0;
}

const RegistraComando kLibretto("libretto", "libretto LAVORO[.CFG] [--json]", ComandoLibretto);

}  // namespace

}  // namespace varena::cli
