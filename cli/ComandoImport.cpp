// import: a file of points, or of another outside format, read into a job as the importing
// command of the desktop reads it, with the choices of its dialog given as options. One row
// of the table for each format.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/CxfLettura.h"
#include "exchange/ImportaPunti.h"
#include "exchange/TafLettura.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"

namespace varena::cli {

namespace {

// One format: it reads `file` into the job open in `s`, and writes to `out` what came in.
// False when nothing could be read (the job is then saved as it was: not at all).
using LettoreImport = bool (*)(Sessione& s, const std::string& file, const Argomenti& a, std::ostream& out);

bool ImportaFormatoPunti(FormatoPunti f, Sessione& s, const std::string& file, const Argomenti& a, std::ostream& out) {
  OpzioniTesto o;
  // A text table takes an order of columns or one of the user's stored lists ("DAT3").
  if (*FormatoDi(f).Colonne) {
    const std::string colonne = a.Valore("--colonne", FormatoDi(f).Colonne);
    const auto scelta = LeggiSceltaColonne(s, colonne);
    if (!scelta) {
      s.Ui->Messaggio("Colonne non valide: " + colonne, FormatoDi(f).Routine, Icona::Avviso);
      return false;
    }
    o.Colonne = scelta->Colonne;
  }
  o.Prefisso = a.Valore("--prefisso");
  EsitoLettura e;
  const int64_t libretto = static_cast<int64_t>(s.LibrettoMisure.size());
  if (!ImportaPunti(s, f, file, o, &e)) return false;
  out << "Punti: " << e.Punti << "\n";
  if (e.Altre > 0) out << "Linee e cerchi: " << e.Altre << "\n";
  if (const int64_t righe = static_cast<int64_t>(s.LibrettoMisure.size()) - libretto; righe > 0)
    out << "Righe del libretto: " << righe << "\n";
  if (e.TotaleDanneggiate > 0) out << "Righe non lette: " << e.TotaleDanneggiate << "\n";
  return true;
}

template <FormatoPunti F>
bool Punti(Sessione& s, const std::string& file, const Argomenti& a, std::ostream& out) {
  return ImportaFormatoPunti(F, s, file, a, out);
}

bool Cxf(Sessione& s, const std::string& file, const Argomenti&, std::ostream& out) {
  EsitoCxf e;
  if (!ImportaCxf(s, file, &e)) return false;
  out << "Testi " << e.Testi << ", punti " << e.Punti << ", linee " << e.Linee << "\n";
  return true;
}

bool Taf(Sessione& s, const std::string& file, const Argomenti&, std::ostream& out) {
  EsitoTaf e;
  if (!ImportaTaf(s, file, &e)) return false;
  out << "Punti " << e.Punti << "\n";
  return true;
}

struct FormatoImport {
  const char* Nome;
  LettoreImport Leggi;
};

constexpr FormatoImport kFormati[] = {
    {"ril", Punti<FormatoPunti::Ril>},       {"sho", Punti<FormatoPunti::Sho>}, {"gsi", Punti<FormatoPunti::Gsi>},
    {"asc", Punti<FormatoPunti::Asc>},
    {"csv", Punti<FormatoPunti::Csv>},       {"xyz", Punti<FormatoPunti::Xyz>}, {"txt", Punti<FormatoPunti::Txt>},
    {"nuvola", Punti<FormatoPunti::Nuvola>}, {"vr4", Punti<FormatoPunti::Vr4>},
    {"cxf", Cxf},                            {"taf", Taf},
};

std::string NomiFormati() {
  std::string n;
  for (const FormatoImport& f : kFormati) n += (n.empty() ? "" : "|") + std::string(f.Nome);
  return n;
}

int ComandoImport(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const std::string uso = "uso: varena-cli import LAVORO.CFG FILE --format " + NomiFormati() +
                          " [--colonne NYXZD|DAT1..DAT7] [--prefisso PF]\n";
  const std::string nome = Minuscolo(a.Valore("--format"));
  const FormatoImport* formato = nullptr;
  for (const FormatoImport& f : kFormati)
    if (nome == f.Nome) formato = &f;
  if (a.Posizionali.size() != 2 || !formato) {
    if (!nome.empty() && !formato) err << "Formato sconosciuto: " << a.Valore("--format") << "\n";
    err << uso;
    return 64;
  }
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  if (!formato->Leggi(s, a.Posizionali[1], a, out)) {
    EliminaProvviso(s);
    return 1;
  }
  const bool salvato = Salva(s);
  EliminaProvviso(s);
  return salvato && ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kImport("import", "import LAVORO.CFG FILE --format FORMATO [opzioni del dialogo]", ComandoImport,
                              {"--format", "--colonne", "--prefisso"});

}  // namespace

}  // namespace varena::cli
