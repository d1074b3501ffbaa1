// The TAF archive: the columns of a line, the import, and the look-up of one point.
#include "exchange/TafLettura.h"

#include <algorithm>

#include "commands/Costruttori.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfLettura.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

// Columns `da` to `a`, counted from 1 and both included; what the line lacks reads empty.
std::string_view Colonne(std::string_view riga, size_t da, size_t a) {
  if (riga.size() < da) return {};
  return riga.substr(da - 1, std::min(riga.size(), a) - (da - 1));
}

std::string Testo(std::string_view riga, size_t da, size_t a) { return Rifila(Cp1252InUtf8(Colonne(riga, da, a))); }

// The right `n` characters of a field, blanks included, as the name takes them.
std::string Destra(std::string_view campo, size_t n) {
  const std::string c(campo);
  return c.size() <= n ? std::string(n - c.size(), ' ') + c : c.substr(c.size() - n);
}

// The name is built from the columns of the number, sheet, annex and municipality, and a
// blank anywhere in it counts as "0": a sheet " 12" is "012", no annex is "0".
std::string NomeRiga(std::string_view riga) {
  std::string nome = "PF" + Cp1252InUtf8(Destra(Colonne(riga, 14, 17), 2)) + "/" +
                     Cp1252InUtf8(Destra(Colonne(riga, 6, 10), 3) + Destra(Colonne(riga, 11, 12), 1)) + "/" +
                     Rifila(Cp1252InUtf8(Colonne(riga, 1, 5)));
  std::replace(nome.begin(), nome.end(), ' ', '0');
  return nome;
}

std::string_view SenzaFineRiga(std::string_view riga) {
  while (!riga.empty() && (riga.back() == '\r' || riga.back() == '\n')) riga.remove_suffix(1);
  return riga;
}

// The lines of the bytes, each without its end.
template <class F>
void PerOgniRiga(std::string_view byte, F&& f) {
  int64_t numero = 0;
  while (!byte.empty()) {
    const size_t fine = byte.find('\n');
    const std::string_view riga = SenzaFineRiga(byte.substr(0, fine));
    byte = fine == std::string_view::npos ? std::string_view() : byte.substr(fine + 1);
    if (!f(riga, ++numero)) return;
  }
}

}  // namespace

std::optional<PuntoTaf> LeggiRigaTaf(std::string_view riga) {
  riga = SenzaFineRiga(riga);
  if (riga.size() < kColonneCoordinateTaf) return std::nullopt;
  // A position that is not a number is no position: garbage must not become a point at 0.
  if (!TestoNumerico(Colonne(riga, 102, 113)) || !TestoNumerico(Colonne(riga, 115, 126))) return std::nullopt;
  PuntoTaf p;
  p.Nome = NomeRiga(riga);
  p.Comune = Testo(riga, 1, 5);
  p.Foglio = Testo(riga, 6, 10);
  p.Allegato = Testo(riga, 11, 12);
  p.Numero = Testo(riga, 14, 17);
  p.Descrizione = Testo(riga, 31, 95);
  p.Nord = Val(Colonne(riga, 102, 113));
  p.Est = Val(Colonne(riga, 115, 126));
  p.Attendibilita = InteroCorto(Val(Colonne(riga, 128, 129)));
  p.Annotazione = Testo(riga, 166, 225);
  p.Quota = Val(Colonne(riga, 240, 249));
  return p;
}

EsitoTaf CaricaPuntiTaf(Sessione& s, std::string_view byte, std::string_view piano) {
  EsitoTaf e;
  PerOgniRiga(byte, [&](std::string_view riga, int64_t numero) {
    const std::optional<PuntoTaf> p = LeggiRigaTaf(riga);
    if (!p) {
      if (!Rifila(riga).empty() && riga != "\x1A") e.RigheCorte.push_back(numero);
      return true;
    }
    const int32_t r = ScriviPunto(s, p->Nome, {p->Est, p->Nord, p->Quota}, p->Descrizione, piano);
    const auto k = static_cast<size_t>(r);
    s.PuntoFont[k] = "Arial";
    s.PuntoAttendibilita[k] = p->Attendibilita;
    ++e.Punti;
    return true;
  });
  return e;
}

bool ImportaTaf(Sessione& s, const std::string& percorso, EsitoTaf* esito) {
  s.RoutineCorrente = "CaricaPuntiTaf";
  const auto prima = s.ContaEntita;
  EsitoTaf e;
  const bool ok = Protetto(s, [&] {
    const auto byte = LeggiByte(percorso);
    if (!byte) throw ErroreVarena(std::string(kErroreFileNonTrovato) + ": " + percorso);
    e = CaricaPuntiTaf(s, *byte);
    if (e.Punti > 0) RicostruisciPianiDxf(s);
  });
  if (!ok) {
    s.ContaEntita = prima;
    return false;
  }
  if (esito) *esito = e;
  if (!e.RigheCorte.empty()) {
    std::string righe;
    for (size_t k = 0; k < e.RigheCorte.size() && k < 10; ++k) righe += (k ? ", " : "") + std::to_string(e.RigheCorte[k]);
    if (e.RigheCorte.size() > 10) righe += " ...";
    s.Ui->Messaggio("Righe senza coordinate, non caricate: " + righe + "\n" + percorso, "File TAF",
                    Icona::Avviso);
  }
  if (e.Punti == 0 && e.RigheCorte.empty())
    s.Ui->Messaggio("Nessun punto letto:\n" + percorso, "File TAF", Icona::Avviso);
  return e.Punti > 0;
}

void IncludiTaf(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "CaricaPuntiTaf";
  Protetto(s, [&] {
    if (const auto byte = LeggiByte(percorso)) CaricaPuntiTaf(s, *byte, "INCLUSI");
  });
}

std::string FileArchivioPF(const Sessione& s, std::string_view nome) {
  const std::string comune = nome.size() > 10 ? Rifila(nome.substr(10, 4)) : std::string();
  return s.Imp.Cartella_Fiducial + "/dati/" + comune + ".taf";
}

std::optional<PuntoTaf> CercaPFInArchivio(const Sessione& s, std::string_view nome, bool* corta) {
  if (corta) *corta = false;
  const std::string cercato = Maiuscolo(Rifila(nome));
  if (cercato.size() < 11) return std::nullopt;
  const std::optional<std::string> file = TrovaFile(FileArchivioPF(s, cercato));
  if (!file) return std::nullopt;
  const std::optional<std::string> byte = LeggiByte(*file);
  if (!byte) return std::nullopt;
  std::optional<PuntoTaf> trovato;
  PerOgniRiga(*byte, [&](std::string_view riga, int64_t) {
    if (Maiuscolo(NomeRiga(riga)) != cercato) return true;
    trovato = LeggiRigaTaf(riga);
    if (!trovato && corta) *corta = true;
    return false;
  });
  return trovato;
}

}  // namespace varena
