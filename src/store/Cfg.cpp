// Reading and writing of the `.CFG` blocks, driven by the table of statement shapes.
#include "store/Cfg.h"

#include <algorithm>

#include "cadastre/Estratto.h"
#include "core/CodicePagina.h"
#include "core/Conversioni.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "terrain/ImpostazioniTerreno.h"

namespace varena {

namespace {

void Ripeti(std::vector<std::string>& f, int volte, const char* forma) {
  for (int i = 0; i < volte; ++i) f.emplace_back(forma);
}

void Singole(std::vector<std::string>& f, std::initializer_list<const char*> forme) {
  for (const char* t : forme) f.emplace_back(t);
}

}  // namespace

// Block A as the files list it. The grouping of items into statements fixes how many
// empty labels the file holds; where the description leaves it open, values named one by
// one ("two f64", "two strings", "followed by two i16") are read as single statements,
// and only "statement of" groups items on one line.
const std::vector<std::string>& FormaBloccoA() {
  static const std::vector<std::string> forma = [] {
    std::vector<std::string> f;
    Singole(f, {"i", "i", "s", "i", "d", "d", "d", "i", "i", "i", "i", "i"});  // 1
    Ripeti(f, 16, "lii");                                                    // 2
    Ripeti(f, 10, "s");                                                      // 3: ports
    Singole(f, {"s", "i"});
    Ripeti(f, 10, "dddd");  // 4
    Singole(f, {"dddd", "d"});
    Ripeti(f, 5, "s");  // 5
    Ripeti(f, 16, "s");
    Singole(f, {"d"});
    Ripeti(f, 10, "iii");  // 6
    Singole(f, {"iii", "i", "d", "d", "dd", "s", "iii"});
    Ripeti(f, 10, "si");                                        // 7
    Singole(f, {"s", "s", "dd", "s", "id", "is", "is", "d"});  // 8
    Singole(f, {"i", "l"});                                     // 9
    Ripeti(f, 7, "d");
    Singole(f, {"i", "ddd", "i", "dddd", "i", "i"});
    Singole(f, {"i", "d", "d", "i", "i", "d", "d", "i", "d", "d", "d", "ddd", "s", "i", "d", "d",  // 10
                "dd", "i", "d", "d", "i", "i", "d", "i", "i", "i", "s", "s"});
    return f;
  }();
  return forma;
}

// The three rows of section 10 that the files written now label: the i16 and the two
// single f64 just before the six closing singles (the basin colour, then the label sizes
// of the contour heights and of the facet areas).
const std::vector<EtichettaA>& EtichetteBloccoA() {
  static const std::vector<EtichettaA> etichette = [] {
    const size_t n = FormaBloccoA().size();
    const size_t primaDelleSei = n - 2 - 6;
    return std::vector<EtichettaA>{{primaDelleSei - 3, "ColoreInvasoFalda"},
                                   {primaDelleSei - 2, "DimensioneQuotaCurve"},
                                   {primaDelleSei - 1, "DimensioneAreaTriangoli"}};
  }();
  return etichette;
}

// After the associated files (24) this program adds one statement of its own: 25, the
// decimals of the exported coordinates. The legacy program stops reading before it.
const std::vector<std::string>& FormaBloccoB() {
  static const std::vector<std::string> forma = {
      "d",   "l", "ddidd", "s", "dd", "l", "s", "i", "d", "ss", "s", "b", "d", "d", "ddd", "s", "b",
      "idddlis", "l", "i", "s", "i", "s", "s", "i"};
  return forma;
}

namespace {

BloccoCfg BloccoVuoto(const std::vector<std::string>& forma) {
  BloccoCfg b;
  for (const std::string& f : forma) {
    IstruzioneCfg ist;
    for (char t : f) ist.Valori.push_back({t, 0, {}});
    b.Istruzioni.push_back(std::move(ist));
  }
  return b;
}

// An item of the wrong kind for its place. A quote left open swallows the end of its line
// and the item after it, and from there on every item stands one place late: each setting
// would take its neighbour's value. The first item out of place stops the read.
class VoceFuoriPosto : public ErroreVarena {
 public:
  explicit VoceFuoriPosto(size_t riga) : ErroreVarena(std::string(kErroreTipo) + ": riga " + std::to_string(riga)) {}
};

// A string stands between quotes within one line, or bare when it is not a number; a
// number stands bare, or is left out.
bool AlSuoPosto(const std::string& voce, bool virgolette, char tipo) {
  if (tipo == 's') return virgolette ? voce.find_first_of("\r\n") == std::string::npos : !EUnNumero(voce);
  return !virgolette && (voce.empty() || EUnNumero(voce));
}

std::string LeggiVoce(LettoreLista& in, char tipo) {
  std::string voce = in.Elemento();
  if (!AlSuoPosto(voce, in.TraVirgolette(), tipo)) throw VoceFuoriPosto(in.RigaElemento());
  return voce;
}

void LeggiValore(LettoreLista& in, ValoreCfg& v) {
  std::string voce = LeggiVoce(in, v.Tipo);
  if (v.Tipo == 's') {
    v.Testo = std::move(voce);
    return;
  }
  const double x = Val(voce);
  switch (v.Tipo) {
    case 'i': v.Numero = InteroCorto(x); break;
    case 'l': v.Numero = InteroLungo(x); break;
    case 'b': v.Numero = static_cast<double>(std::clamp<int64_t>(ArrotondaPari(x), 0, 255)); break;
    default: v.Numero = x; break;
  }
}

void ScriviValore(IstruzioneLista& riga, const ValoreCfg& v) {
  if (v.Tipo == 's')
    riga.Testo(v.Testo);
  else
    riga.Numero(v.Numero);
}

}  // namespace

CfgLavoro::CfgLavoro() : A(BloccoVuoto(FormaBloccoA())), B(BloccoVuoto(FormaBloccoB())) {
  for (const EtichettaA& e : EtichetteBloccoA()) A.Istruzioni[e.Istruzione].Etichetta = e.Testo;
  // Section 2 numbers its sixteen rows 1..16.
  for (size_t i = 0; i < 16; ++i) A(12 + i, 0).Numero = static_cast<double>(i + 1);
  // Section 3: the ten port strings and the current port.
  static const char* porte[10] = {"COM2:9600,N,8,1,RS,CS65535,DS,CD", "COM2:9600,N,8,1",
                                  "COM1:9600,N,8,1,CS65535,DS,CD", "COM1:9600,E,7,1,CS65535,DS65535",
                                  "COM2:9600,E,7,1", "LPT1:", "LPT2:", "LPT3:", "STAMPANTE", ""};
  for (size_t i = 0; i < 10; ++i) A(28 + i, 0).Testo = porte[i];
  A(38, 0).Testo = "STAMPANTE";
  // Block B: the drawing defaults a new job starts with.
  VB(B_FattoreZoom, 0).Numero = 50;
  VB(B_ColoreSfondo, 0).Numero = 7;
  for (size_t k : {0, 1, 3, 4}) VB(B_DimensioniPunti, k).Numero = 1.0;
  VB(B_FontPunti, 0).Testo = "Courier New";
  VB(B_Testo, 0).Numero = 5.0;
  VB(B_ColoreDefault, 0).Numero = 1;
  VB(B_PianoCorrente, 0).Testo = "0";
  VB(B_RapportoVista, 0).Numero = 1.7;
  VB(B_TipoDistanza, 0).Numero = 1;
  VB(B_MostraDescrizione, 0).Numero = 1;
  VB(B_PianoCorrente2, 0).Testo = "0";
  VB(B_Parametri, 0).Testo = "7";
}

void LeggiBloccoA(LettoreLista& in, BloccoCfg& a) {
  for (IstruzioneCfg& ist : a.Istruzioni) {
    ist.Etichetta = LeggiVoce(in, 's');
    for (ValoreCfg& v : ist.Valori) LeggiValore(in, v);
  }
}

void LeggiBloccoB(LettoreLista& in, BloccoCfg& b) {
  for (size_t i = 0; i < b.Istruzioni.size(); ++i) {
    // Statements 18 on were added over the years: an older file simply ends before them,
    // and they keep the values they had. Ours after the associated files belong to the job
    // that wrote them: one that ends before them has them at 0, not at the last job's value.
    if (i >= kPrimaFacoltativaB && in.Fine()) {
      for (size_t k = std::max<size_t>(i, B_FileAssociati); k < b.Istruzioni.size(); ++k)
        for (ValoreCfg& v : b.Istruzioni[k].Valori) v.Numero = 0;
      return;
    }
    for (ValoreCfg& v : b.Istruzioni[i].Valori) LeggiValore(in, v);
    // Statements 7 and 21 carry the one current layer: a file that ends before 21 keeps
    // the layer of 7, not the one of an earlier file.
    if (i + 1 == B_PianoCorrente)
      b.Istruzioni[B_PianoCorrente2 - 1].Valori[0].Testo = b.Istruzioni[i].Valori[0].Testo;
  }
}

std::string ScriviBloccoA(const BloccoCfg& a) {
  std::string testo;
  for (const IstruzioneCfg& ist : a.Istruzioni) {
    IstruzioneLista riga;
    riga.Testo(ist.Etichetta);
    for (const ValoreCfg& v : ist.Valori) ScriviValore(riga, v);
    testo += riga.Riga();
  }
  return testo;
}

std::string ScriviBloccoB(const BloccoCfg& b) {
  std::string testo;
  for (size_t i = 0; i < b.Istruzioni.size(); ++i) {
    const IstruzioneCfg& ist = b.Istruzioni[i];
    // Our own statements after the associated files stand only once set: the job that never
    // sets them keeps the file the legacy program writes.
    if (i >= B_FileAssociati &&
        std::all_of(ist.Valori.begin(), ist.Valori.end(), [](const ValoreCfg& v) { return v.Numero == 0; }))
      continue;
    IstruzioneLista riga;
    for (const ValoreCfg& v : ist.Valori) ScriviValore(riga, v);
    testo += riga.Riga();
  }
  return testo;
}

void ApplicaBloccoB(Sessione& s) {
  const CfgLavoro& c = s.Cfg;
  s.Imp.FATTORE_DI_ZOOM = c.VB(B_FattoreZoom, 0).Numero;
  if (s.Imp.FATTORE_DI_ZOOM < 1) s.Imp.FATTORE_DI_ZOOM = 1.0;  // a zoom step below 1 would grow the view
  s.Imp.Colore_Default = InteroSaturato<int32_t>(c.VB(B_ColoreDefault, 0).Numero);
  s.PianoCorrente = c.VB(B_PianoCorrente, 0).Testo;
  s.Vista.RapportoVista = c.VB(B_RapportoVista, 0).Numero;
  s.Imp.TIPODISTANZA = InteroSaturato<uint8_t>(c.VB(B_TipoDistanza, 0).Numero);
  s.Vista.CentroEst = c.VB(B_Vista, 0).Numero;
  s.Vista.CentroNord = c.VB(B_Vista, 1).Numero;
  s.Vista.AltezzaVista = c.VB(B_Vista, 2).Numero;
  s.Imp.MostraDescrizione = InteroSaturato<int32_t>(c.VB(B_MostraDescrizione, 0).Numero);
  if (!Rifila(c.VB(B_PianoCorrente2, 0).Testo).empty()) s.PianoCorrente = c.VB(B_PianoCorrente2, 0).Testo;
  RicordaBloccoB(s);
}

void RaccogliBloccoB(Sessione& s) {
  CfgLavoro& c = s.Cfg;
  const SettaggiB& letti = c.AlCaricamento;
  if (s.Imp.FATTORE_DI_ZOOM != letti.FattoreZoom) c.VB(B_FattoreZoom, 0).Numero = s.Imp.FATTORE_DI_ZOOM;
  if (s.Imp.Colore_Default != letti.ColoreDefault) c.VB(B_ColoreDefault, 0).Numero = s.Imp.Colore_Default;
  if (s.Imp.TIPODISTANZA != letti.TipoDistanza) c.VB(B_TipoDistanza, 0).Numero = s.Imp.TIPODISTANZA;
  if (s.Imp.MostraDescrizione != letti.MostraDescrizione)
    c.VB(B_MostraDescrizione, 0).Numero = s.Imp.MostraDescrizione;
  // Two statements name the current layer, and the second wins at load.
  if (s.PianoCorrente != letti.PianoCorrente) {
    c.VB(B_PianoCorrente, 0).Testo = s.PianoCorrente;
    c.VB(B_PianoCorrente2, 0).Testo = s.PianoCorrente;
  }
  c.VB(B_RapportoVista, 0).Numero = s.Vista.RapportoVista;
  c.VB(B_Vista, 0).Numero = s.Vista.CentroEst;
  c.VB(B_Vista, 1).Numero = s.Vista.CentroNord;
  c.VB(B_Vista, 2).Numero = s.Vista.AltezzaVista;
}

void RicordaBloccoB(Sessione& s) {
  s.Cfg.AlCaricamento = {s.Imp.FATTORE_DI_ZOOM, s.Imp.Colore_Default, s.Imp.TIPODISTANZA, s.Imp.MostraDescrizione,
                         s.PianoCorrente};
}

void CaricaCFGProvvisorio(Sessione& s) {
  s.RoutineCorrente = "CaricaCFGProvvisorio";
  Protetto(s, [&] {
    const auto byte = LeggiByte(s.NomeLavoro + ".CFG");
    if (!byte) return;
    LettoreLista in(Cp1252InUtf8(*byte));
    BloccoCfg a = s.Cfg.A, b = s.Cfg.B;
    bool bloccoB = false;
    // A file that breaks off still gives what it had, block B (which carries the view)
    // included.
    auto prendi = [&] {
      s.Cfg.A = std::move(a);
      ImpostazioniDaBloccoA(s);
      if (!bloccoB) return;
      s.Cfg.B = std::move(b);
      ApplicaBloccoB(s);
    };
    try {
      s.Edizione = LeggiVoce(in, 's');
      LeggiBloccoA(in, a);
      bloccoB = s.Edizione == "VR2020" || s.Edizione == "VR2000";
      if (bloccoB) LeggiBloccoB(in, b);
    } catch (const VoceFuoriPosto&) {
      // Items out of place give nothing: every later value would stand in its neighbour's
      // setting. Like any member read with an error, the file is then never written back.
      throw;
    } catch (...) {
      prendi();
      throw;
    }
    prendi();
  });
}

std::string TestoCfg(Sessione& s) {
  RaccogliBloccoB(s);
  ImpostazioniInBloccoA(s);
  ScriviParametriEstratto(s);
  IstruzioneLista tag;
  tag.Testo(kEdizioneCorrente);
  return tag.Riga() + ScriviBloccoA(s.Cfg.A) + ScriviBloccoB(s.Cfg.B);
}

}  // namespace varena
