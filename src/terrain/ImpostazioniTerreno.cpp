// Where the terrain settings stand in block A, and the rules by which they are read back.
#include "terrain/ImpostazioniTerreno.h"

#include <cmath>

#include "core/Conversioni.h"
#include "core/Sessione.h"
#include "store/Cfg.h"

namespace varena {

namespace {

// The settings read from the rows or set by the user, side by side for the comparison.
struct ValoriTerreno {
  StatoTerreno T;
  double Quota = 0;
};

// One setting: its row (0-based statement of block A) and item, and how it goes in and out.
struct Posto {
  size_t Istruzione, Voce;
  double (*Prendi)(const ValoriTerreno&);
  void (*Metti)(ValoriTerreno&, double);
};

template <class I>
I Intero(double v) {
  return InteroSaturato<I>(v);
}

// The rows of the last section of block A around the three the files label ("ColoreInvasoFalda",
// "DimensioneQuotaCurve", "DimensioneAreaTriangoli", statements 142 to 144 counted from 1):
// 138 the reference curve switch, 139 and 140 the interval and the reference height, 141 the
// deviation limit and the step, 143 the curve labels, 144 the facet values' labels, 145 the
// curve decimals, 147 the facet numbers' labels, 148 to 150 the colours above, below and at
// the reference. 142 and 146 keep what they hold.
const Posto kPosti[] = {
    {137, 0, [](const ValoriTerreno& i) -> double { return i.T.CurvaRiferimento; },
     [](ValoriTerreno& i, double v) { i.T.CurvaRiferimento = Intero<int16_t>(v); }},
    {138, 0, [](const ValoriTerreno& i) { return i.T.Equidistanza; },
     [](ValoriTerreno& i, double v) { i.T.Equidistanza = v; }},
    {139, 0, [](const ValoriTerreno& i) { return i.Quota; }, [](ValoriTerreno& i, double v) { i.Quota = v; }},
    {140, 0, [](const ValoriTerreno& i) { return i.T.LimiteDeviazione; },
     [](ValoriTerreno& i, double v) { i.T.LimiteDeviazione = v; }},
    {140, 1, [](const ValoriTerreno& i) { return i.T.PassoCurva; },
     [](ValoriTerreno& i, double v) { i.T.PassoCurva = v; }},
    {142, 0, [](const ValoriTerreno& i) { return i.T.AltezzaEtichettaCurve; },
     [](ValoriTerreno& i, double v) { i.T.AltezzaEtichettaCurve = v; }},
    {143, 0, [](const ValoriTerreno& i) { return i.T.AltezzaValori; },
     [](ValoriTerreno& i, double v) { i.T.AltezzaValori = v; }},
    {144, 0, [](const ValoriTerreno& i) -> double { return i.T.DecimaliCurve; },
     [](ValoriTerreno& i, double v) { i.T.DecimaliCurve = Intero<int16_t>(v); }},
    {146, 0, [](const ValoriTerreno& i) { return i.T.AltezzaNumero; },
     [](ValoriTerreno& i, double v) { i.T.AltezzaNumero = v; }},
    {147, 0, [](const ValoriTerreno& i) -> double { return i.T.ColoreCurvaSopra; },
     [](ValoriTerreno& i, double v) { i.T.ColoreCurvaSopra = Intero<int16_t>(v); }},
    {148, 0, [](const ValoriTerreno& i) -> double { return i.T.ColoreCurvaSotto; },
     [](ValoriTerreno& i, double v) { i.T.ColoreCurvaSotto = Intero<int16_t>(v); }},
    {149, 0, [](const ValoriTerreno& i) -> double { return i.T.ColoreCurvaBase; },
     [](ValoriTerreno& i, double v) { i.T.ColoreCurvaBase = Intero<int16_t>(v); }},
};

void Leggi(const BloccoCfg& a, ValoriTerreno& i) {
  for (const Posto& p : kPosti) p.Metti(i, a(p.Istruzione, p.Voce).Numero);
  CorreggiImpostazioniTerreno(i.T);
  if (!std::isfinite(i.Quota)) i.Quota = 0;
}

template <class T>
void SeNonPositivo(T& valore, T predefinito) {
  if (!(valore > 0)) valore = predefinito;
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
  ValoriTerreno i{s.Terreno, s.QuotaRiferimento};
  Leggi(s.Cfg.A, i);
  s.Terreno = i.T;
  s.QuotaRiferimento = i.Quota;
}

void ImpostazioniInBloccoA(Sessione& s) {
  const ValoriTerreno ora{s.Terreno, s.QuotaRiferimento};
  ValoriTerreno righe = ora;
  Leggi(s.Cfg.A, righe);
  for (const Posto& p : kPosti)
    if (p.Prendi(righe) != p.Prendi(ora) && std::isfinite(p.Prendi(ora)))
      s.Cfg.A(p.Istruzione, p.Voce).Numero = p.Prendi(ora);
}

}  // namespace varena
