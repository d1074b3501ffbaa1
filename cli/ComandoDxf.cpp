// dxf-in and dxf-out: a drawing read into a job, or a job written as a drawing, with the
// choices of the two dialogs given as options, so that both run in batch.
#include <string>

#include "Comandi.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfLettura.h"
#include "exchange/DxfScrittura.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "view/Rigenera.h"

namespace varena::cli {

namespace {

// The kinds as the drawing names them, in the order of the dialog's checks.
constexpr const char* kTipiDxf[] = {"POLYLINE", "LINE", "POINT", "TEXT", "CIRCLE", "ARC"};

// "--kinds LINE,TEXT": false when a word names no kind. LWPOLYLINE goes with POLYLINE, as
// one check of the dialog drives both.
bool LeggiTipi(const std::string& elenco, OpzioniDxfIn& o, std::ostream& err) {
  for (const std::string& parola : Dividi(elenco, ',')) {
    std::string t = Maiuscolo(Rifila(parola));
    if (t == "LWPOLYLINE") t = "POLYLINE";
    bool noto = false;
    for (size_t i = 0; i < std::size(kTipiDxf); ++i)
      if (t == kTipiDxf[i]) o.Check[i] = noto = true;
    if (!noto) {
      err << "Tipo di entità sconosciuto: " << parola << " (POLYLINE, LINE, POINT, TEXT, CIRCLE, ARC)\n";
      return false;
    }
  }
  return true;
}

int ComandoDxfIn(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const char* uso =
      "uso: varena-cli dxf-in LAVORO.CFG FILE.DXF [--kinds LINE,POLYLINE,POINT,TEXT,CIRCLE,ARC]\n"
      "                [--layers PIANO1,PIANO2] [--numera PRIMO] [--passo N] [--quota-elevazione]\n";
  if (a.Posizionali.size() != 2) {
    err << uso;
    return 64;
  }
  OpzioniDxfIn o;
  if (a.Ha("--kinds") || !a.Valore("--kinds").empty()) {
    if (!LeggiTipi(a.Valore("--kinds"), o, err)) return 64;
  } else {
    for (size_t i = 0; i < std::size(kTipiDxf); ++i) o.Check[i] = true;
  }
  if (a.Ha("--layers") || !a.Valore("--layers").empty()) o.Piani = Dividi(a.Valore("--layers"), ',');
  if (!a.Valore("--numera").empty()) {
    o.Check[DxfNumeraPunti] = true;
    o.PrimoNome = a.Valore("--numera");
  }
  if (!a.Valore("--passo").empty()) o.Passo = Val(a.Valore("--passo"));
  o.Check[DxfQuotaElevazione] = a.Ha("--quota-elevazione");

  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  EsitoDxfIn esito;
  if (!ImportaDxf(s, a.Posizionali[1], o, &esito)) {
    EliminaProvviso(s);
    return 1;
  }
  const bool salvato = Salva(s);
  EliminaProvviso(s);
  static const char* nomi[] = {"Polilinee (linee)", "Linee", "Punti", "Testi", "Cerchi", "Archi"};
  for (size_t i = 0; i < std::size(nomi); ++i)
    if (o.Check[i]) out << nomi[i] << ": " << esito.Righe[i] << "\n";
  return salvato && ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kDxfIn("dxf-in",
                             "dxf-in LAVORO.CFG FILE.DXF [--kinds TIPI] [--layers PIANI] [--numera PRIMO] "
                             "[--passo N] [--quota-elevazione]",
                             ComandoDxfIn, {"--kinds", "--layers", "--numera", "--passo"});

// The checks of the export dialog, as flags.
struct FlagDxfOut {
  const char* flag;
  bool OpzioniDxfOut::*campo;
};
constexpr FlagDxfOut kFlagDxfOut[] = {
    {"--simboli", &OpzioniDxfOut::Simboli},
    {"--nomi", &OpzioniDxfOut::Nomi},
    {"--quote", &OpzioniDxfOut::Quote},
    {"--descrizioni", &OpzioniDxfOut::Descrizioni},
    {"--coincidenti", &OpzioniDxfOut::Coincidenti},
    {"--curve", &OpzioniDxfOut::Curve},
    {"--descrizioni-piani", &OpzioniDxfOut::DescrizioniPiani},
    {"--piani-semplificati", &OpzioniDxfOut::PianiSemplificati},
    {"--punti-planimetrici", &OpzioniDxfOut::PuntiPlanimetrici},
    {"--escludi-simboli", &OpzioniDxfOut::EscludiSimboli},
    {"--3d", &OpzioniDxfOut::TreD},
    {"--linee-senza-quota", &OpzioniDxfOut::LineeSenzaQuota},
    {"--assegna-colore", &OpzioniDxfOut::AssegnaColore},
    {"--assegna-tratteggio", &OpzioniDxfOut::AssegnaTratteggio},
    {"--completo", &OpzioniDxfOut::Completo},
};
// The layer fields, by their index.
constexpr const char* kPianiDxfOut[] = {"--piano-nomi", "--piano-simboli", "--piano-quote", "--piano-descrizioni",
                                        "--piano-curve", nullptr, nullptr, "--piano-entita", nullptr,
                                        "--altezza-caratteri"};

int ComandoDxfOut(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 2) {
    err << "uso: varena-cli dxf-out LAVORO.CFG FILE.DXF [--simboli] [--nomi] [--quote] [--descrizioni]\n"
           "                [--coincidenti] [--curve] [--descrizioni-piani] [--piani-semplificati]\n"
           "                [--punti-planimetrici] [--escludi-simboli] [--3d] [--linee-senza-quota]\n"
           "                [--assegna-colore] [--assegna-tratteggio] [--completo] [--font NOME]\n"
           "                [--piano-nomi P] [--piano-simboli P] [--piano-quote P] [--piano-descrizioni P]\n"
           "                [--piano-curve P] [--piano-entita P] [--altezza-caratteri H]\n";
    return 64;
  }
  OpzioniDxfOut o;
  for (const FlagDxfOut& f : kFlagDxfOut) o.*f.campo = a.Ha(f.flag);
  o.Font = a.Valore("--font");
  for (size_t k = 0; k < std::size(kPianiDxfOut); ++k)
    if (kPianiDxfOut[k] && !a.Valore(kPianiDxfOut[k]).empty()) o.Text1[k] = a.Valore(kPianiDxfOut[k]);
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  RigeneraLista(s);
  if (!DxfOut(s, o, a.Posizionali[1])) return 2;
  out << a.Posizionali[1] << "\n";
  return ui.Errori == 0 ? 0 : 2;
}

std::vector<std::string> ConValoreDxfOut() {
  std::vector<std::string> v{"--font"};
  for (const char* p : kPianiDxfOut)
    if (p) v.emplace_back(p);
  return v;
}

const RegistraComando kDxfOut("dxf-out", "dxf-out LAVORO.CFG FILE.DXF [opzioni del dialogo Esporta DXF]",
                              ComandoDxfOut, ConValoreDxfOut());

}  // namespace

}  // namespace varena::cli
