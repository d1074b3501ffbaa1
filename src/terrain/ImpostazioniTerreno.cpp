// Where the terrain settings stand in block A, the rules by which they are read back, and
// the dialog that sets them.
#include "terrain/ImpostazioniTerreno.h"

#include <cmath>
#include <limits>
#include <type_traits>

#include "commands/Modifica.h"
#include "core/Conversioni.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Cfg.h"
#include "terrain/Falde.h"

namespace varena {

namespace {

// The settings read from the rows or set by the user, side by side for the comparison.
struct ValoriTerreno : StatoTerreno {
  double Quota = 0;
};

// One setting: its field of the dialog, its row (0-based statement of block A) and item,
// and how it goes in and out as a number.
struct Impostazione {
  const char* Nome;
  const char* Etichetta;
  size_t Istruzione, Voce;
  bool Interruttore;  // 0 or 1
  double (*Prendi)(const ValoriTerreno&);
  void (*Metti)(ValoriTerreno&, double);
};
// The switches of the labels and of the facets and curves shown belong to the display, not
// to the job's file.
constexpr size_t kSoloDialogo = std::numeric_limits<size_t>::max();

template <auto Campo>
double Prendi(const ValoriTerreno& v) {
  return static_cast<double>(v.*Campo);
}

template <auto Campo>
void Metti(ValoriTerreno& v, double x) {
  auto& c = v.*Campo;
  using T = std::remove_reference_t<decltype(c)>;
  if constexpr (std::is_same_v<T, bool>)
    c = x != 0;
  else if constexpr (std::is_integral_v<T>)
    c = InteroSaturato<T>(x);
  else
    c = x;
}

template <auto Campo>
constexpr Impostazione Voce(const char* nome, const char* etichetta, size_t istruzione, size_t voce = 0,
                            bool interruttore = false) {
  return {nome, etichetta, istruzione, voce, interruttore, Prendi<Campo>, Metti<Campo>};
}

// The rows of the last section of block A around the three the files label ("ColoreInvasoFalda",
// "DimensioneQuotaCurve", "DimensioneAreaTriangoli", statements 142 to 144 counted from 1):
// 138 the reference curve switch, 139 and 140 the interval and the reference height, 141 the
// deviation limit and the step, 143 the curve labels, 144 the facet values' labels, 145 the
// curve decimals, 147 the facet numbers' labels, 148 to 150 the colours above, below and at
// the reference. 142 and 146 keep what they hold. The table counts from 0: one less.
using S = StatoTerreno;
const Impostazione kImpostazioni[] = {
    Voce<&S::Equidistanza>("Equidistanza", "Equidistanza :", 138),
    Voce<&ValoriTerreno::Quota>("QuotaRiferimento", "Quota di riferimento :", 139),
    Voce<&S::CurvaRiferimento>("CurvaRiferimento", "Curva alla quota di riferimento :", 137, 0, true),
    Voce<&S::LimiteDeviazione>("LimiteDeviazione", "Limite deviazione (gon) :", 140, 0),
    Voce<&S::PassoCurva>("PassoCurva", "Passo curva :", 140, 1),
    Voce<&S::ColoreCurvaSopra>("ColoreCurvaSopra", "Colore sopra la quota di riferimento :", 147),
    Voce<&S::ColoreCurvaSotto>("ColoreCurvaSotto", "Colore sotto la quota di riferimento :", 148),
    Voce<&S::ColoreCurvaBase>("ColoreCurvaBase", "Colore alla quota di riferimento :", 149),
    Voce<&S::EtichetteCurve>("EtichetteCurve", "Etichette curve :", kSoloDialogo, 0, true),
    Voce<&S::AltezzaEtichettaCurve>("AltezzaEtichettaCurve", "Altezza etichette curve :", 142),
    Voce<&S::DecimaliCurve>("DecimaliCurve", "Decimali curve :", 144),
    Voce<&S::CurveAttive>("CurveAttive", "Curve attive :", kSoloDialogo, 0, true),
    Voce<&S::FaldeAttive>("FaldeAttive", "Falde attive :", kSoloDialogo, 0, true),
    Voce<&S::EtichetteFalde>("EtichetteFalde", "Etichette falde :", kSoloDialogo, 0, true),
    Voce<&S::AltezzaNumero>("AltezzaNumero", "Altezza numero falde :", 146),
    Voce<&S::AltezzaValori>("AltezzaValori", "Altezza valori falde :", 143),
};

void Correggi(ValoriTerreno& v) {
  CorreggiImpostazioniTerreno(v);
  if (!std::isfinite(v.Quota)) v.Quota = 0;
}

void Leggi(const BloccoCfg& a, ValoriTerreno& v) {
  for (const Impostazione& i : kImpostazioni)
    if (i.Istruzione != kSoloDialogo) i.Metti(v, a(i.Istruzione, i.Voce).Numero);
  Correggi(v);
}

ValoriTerreno Attuali(const Sessione& s) {
  ValoriTerreno v;
  static_cast<StatoTerreno&>(v) = s.Terreno;
  v.Quota = s.QuotaRiferimento;
  return v;
}

void Imposta(Sessione& s, const ValoriTerreno& v) {
  s.Terreno = v;
  s.QuotaRiferimento = v.Quota;
}

template <class T>
void SeNonPositivo(T& valore, T predefinito) {
  if (!(valore > 0)) valore = predefinito;
}

constexpr const char* kDialogo = "FormImpostazioniTerreno";

// OK: the values typed, put back in range; the facets worked again against the reference
// height, which their cut and fill depend on, and drawn again with the curves.
void ImpostaDaDialogo(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  ValoriTerreno v = Attuali(s);
  for (const Impostazione& i : kImpostazioni) i.Metti(v, d->Numero(i.Nome));
  Correggi(v);
  ChiudiDialogo(s, kDialogo);
  Imposta(s, v);
  AggiornaFalde(s);
  // The curves drawn again too: whether they show, their labels, the labels' height and
  // decimals are all in this dialog.
  SegnaModificato(s, SlotCurve);
  FineModifica(s);
}

}  // namespace

void CorreggiImpostazioniTerreno(StatoTerreno& t) {
  if (t.Equidistanza == 0 || !std::isfinite(t.Equidistanza)) t.Equidistanza = 1;
  // A negative interval would never reach the facet's height.
  t.Equidistanza = std::fabs(t.Equidistanza);
  if (!(t.LimiteDeviazione >= 30)) t.LimiteDeviazione = 30;
  if (!(t.PassoCurva >= 1)) t.PassoCurva = 1;
  const StatoTerreno d;
  SeNonPositivo(t.ColoreCurvaSopra, d.ColoreCurvaSopra);
  SeNonPositivo(t.ColoreCurvaSotto, d.ColoreCurvaSotto);
  SeNonPositivo(t.ColoreCurvaBase, d.ColoreCurvaBase);
  SeNonPositivo(t.AltezzaEtichettaCurve, d.AltezzaEtichettaCurve);
  SeNonPositivo(t.AltezzaNumero, d.AltezzaNumero);
  SeNonPositivo(t.AltezzaValori, d.AltezzaValori);
}

void ImpostazioniDaBloccoA(Sessione& s) {
  ValoriTerreno v = Attuali(s);
  Leggi(s.Cfg.A, v);
  Imposta(s, v);
}

void ImpostazioniInBloccoA(Sessione& s) {
  const ValoriTerreno ora = Attuali(s);
  ValoriTerreno righe = ora;
  Leggi(s.Cfg.A, righe);
  for (const Impostazione& i : kImpostazioni)
    if (i.Istruzione != kSoloDialogo && i.Prendi(righe) != i.Prendi(ora) && std::isfinite(i.Prendi(ora)))
      s.Cfg.A(i.Istruzione, i.Voce).Numero = i.Prendi(ora);
}

bool ApriFormImpostazioniTerreno(Sessione& s) {
  const ValoriTerreno v = Attuali(s);
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = "Impostazioni Terreno";
  for (const Impostazione& i : kImpostazioni) {
    d.AggiungiCampo(i.Nome, i.Etichetta, FormaSemplice(i.Prendi(v)));
    if (i.Interruttore) d.Campo(i.Nome)->Scelte = {"0", "1"};
  }
  d.AggiungiBottone("OK", "OK", ImpostaDaDialogo);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, kDialogo); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
