#include "core/SimboliUtente.h"

#include <algorithm>
#include <cmath>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"

namespace varena {

void TabellaSimboli::Indicizza() {
  indice_.clear();
  for (size_t i = 0; i < Righe.size();) {
    size_t j = i + 1;
    while (j < Righe.size() && Righe[j].Simbolo == Righe[i].Simbolo) ++j;
    // A symbol whose rows were split keeps its first run, as a scan from the top finds it.
    const int n = Righe[i].Simbolo;
    if (std::none_of(indice_.begin(), indice_.end(), [n](const auto& v) { return v.first == n; }))
      indice_.push_back({n, {i, j}});
    i = j;
  }
  std::sort(indice_.begin(), indice_.end());
}

std::span<const RigaSimbolo> TabellaSimboli::Simbolo(int numero) const {
  const auto it = std::lower_bound(indice_.begin(), indice_.end(), numero,
                                   [](const auto& v, int n) { return v.first < n; });
  if (it == indice_.end() || it->first != numero) return {};
  return std::span<const RigaSimbolo>(Righe).subspan(it->second.first, it->second.second - it->second.first);
}

std::vector<int> TabellaSimboli::Numeri() const {
  std::vector<std::pair<size_t, int>> primi;
  for (const auto& [n, tratto] : indice_) primi.push_back({tratto.first, n});
  std::sort(primi.begin(), primi.end());
  std::vector<int> numeri;
  for (const auto& p : primi) numeri.push_back(p.second);
  return numeri;
}

std::string PercorsoSimboli(const Sessione& s) { return s.CartellaProgramma + "/TipoPunto1.ini"; }

TabellaSimboli LeggiSimboli(const std::string& testoUtf8) {
  TabellaSimboli t;
  LettoreLista in(testoUtf8);
  try {
    const double conta = in.Fine() ? 0 : in.LeggiNumero();
    while (static_cast<double>(t.Righe.size()) < conta && !in.Fine()) {
      RigaSimbolo r;
      for (double* campo : {&r.TipoElemento, &r.Distanza1, &r.Angolo1, &r.Distanza2, &r.Angolo2, &r.Ampiezza})
        *campo = in.LeggiNumero();
      r.Simbolo = in.LeggiI16();
      t.Righe.push_back(r);
    }
  } catch (const ErroreVarena&) {
    // A row cut short ends the table; the rows before it stand.
  }
  t.Indicizza();
  return t;
}

std::string TestoSimboli(const TabellaSimboli& t) {
  std::string testo = IstruzioneLista().Numero(static_cast<double>(t.Righe.size())).Riga();
  for (const RigaSimbolo& r : t.Righe)
    testo += IstruzioneLista()
                 .Numero(r.TipoElemento)
                 .Numero(r.Distanza1)
                 .Numero(r.Angolo1)
                 .Numero(r.Distanza2)
                 .Numero(r.Angolo2)
                 .Numero(r.Ampiezza)
                 .Numero(r.Simbolo)
                 .Riga();
  return testo;
}

void CaricaSimboli(Sessione& s) {
  s.RoutineCorrente = "CaricaSimboli";
  Protetto(s, [&] {
    const auto file = TrovaFile(PercorsoSimboli(s));
    s.Simboli = file ? LeggiSimboli(Cp1252InUtf8(LeggiByte(*file).value_or(""))) : TabellaSimboli{};
  });
}

void ScomponiSimboloUtente(const TabellaSimboli& t, int numero, double s, double rotazione,
                           std::vector<ElementoSimbolo>& out) {
  using E = ElementoSimbolo;
  auto polare = [&](double d, double a, double& x, double& y) {
    const double az = (a + rotazione) * GonToRad;
    x = s * d * std::sin(az), y = s * d * std::cos(az);
  };
  for (const RigaSimbolo& r : t.Simbolo(numero)) {
    double x1, y1, x2, y2;
    polare(r.Distanza1, r.Angolo1, x1, y1);
    if (r.TipoElemento == 1) {
      polare(r.Distanza2, r.Angolo2, x2, y2);
      out.push_back({E::Linea, x1, y1, x2, y2});
    } else if (r.TipoElemento == 2) {
      out.push_back({E::Cerchio, x1, y1, s * r.Distanza2, 0});
    } else if (r.TipoElemento == 3) {
      out.push_back({E::Arco, x1, y1, s * r.Distanza2, (r.Angolo2 + rotazione) * GonToRad, r.Ampiezza * GonToRad});
    }
  }
}

void ScomponiSimboloPunto(const TabellaSimboli& t, int codice, double s, bool carta, std::vector<ElementoSimbolo>& out) {
  if (codice < 0)
    ScomponiSimboloUtente(t, -codice, s, 0, out);
  else
    ScomponiSimbolo(codice, s, carta, out);
}

namespace {

// The rows of symbol `numero` replaced by `nuove` (none: the symbol goes) in the file, and the
// table read again.
bool RiscriviSimbolo(Sessione& s, int numero, const std::vector<RigaSimbolo>& nuove, const char* routine) {
  TabellaSimboli t = s.Simboli;
  std::erase_if(t.Righe, [numero](const RigaSimbolo& r) { return r.Simbolo == numero; });
  t.Righe.insert(t.Righe.end(), nuove.begin(), nuove.end());
  s.RoutineCorrente = routine;
  if (!Protetto(s, [&] { ScriviTesto(PercorsoPerScrivere(PercorsoSimboli(s)), TestoSimboli(t)); })) return false;
  CaricaSimboli(s);
  return true;
}

}  // namespace

bool NuovoSimbolo(Sessione& s, const PuntoXYZ& o, int numero) {
  std::vector<RigaSimbolo> nuove;
  double riferimento = 0;
  auto polare = [&](double x, double y, double& d, double& a) {
    const AzimutEDistanza p = AzimutDistanza(o.X, o.Y, x, y);
    d = p.Distanza, a = p.Azimut * RadToGon;
    riferimento = std::max(riferimento, d);
  };
  const auto n16 = static_cast<int16_t>(numero);
  for (int32_t i = 0; i < s.ContaEntita[SlotLinee]; ++i) {
    const auto k = static_cast<size_t>(i);
    if (!IdentVivo(s.LineaIdent[k]) || s.StatoLinea[k] != 1) continue;
    RigaSimbolo r{.TipoElemento = 1, .Simbolo = n16};
    polare(s.LineaX1[k], s.LineaY1[k], r.Distanza1, r.Angolo1);
    polare(s.LineaX2[k], s.LineaY2[k], r.Distanza2, r.Angolo2);
    nuove.push_back(r);
  }
  auto curva = [&](double tipo, double x, double y, double raggio, double inizio, double ampiezza) {
    RigaSimbolo r{.TipoElemento = tipo, .Distanza2 = raggio, .Angolo2 = inizio, .Ampiezza = ampiezza, .Simbolo = n16};
    polare(x, y, r.Distanza1, r.Angolo1);
    riferimento = std::max(riferimento, r.Distanza1 + raggio);
    nuove.push_back(r);
  };
  for (int32_t i = 0; i < s.ContaEntita[SlotCerchi]; ++i) {
    const auto k = static_cast<size_t>(i);
    if (IdentVivo(s.CerchioIdent[k]) && s.StatoCerchio[k] == 1)
      curva(2, s.CerchioX[k], s.CerchioY[k], s.CerchioRaggio[k], 0, 0);
  }
  for (int32_t i = 0; i < s.ContaEntita[SlotArchi]; ++i) {
    const auto k = static_cast<size_t>(i);
    if (IdentVivo(s.ArcoIdent[k]) && s.StatoArco[k] == 1)
      curva(3, s.ArcoX[k], s.ArcoY[k], s.ArcoRaggio[k], s.ArcoInizio[k], s.ArcoFine[k]);
  }
  if (nuove.empty() || !(riferimento > 0) || !std::isfinite(riferimento)) {
    s.Ui->Messaggio("Nessuna Linea Selezionata!", "Simbolo Nuovo", Icona::Avviso);
    return false;
  }
  for (RigaSimbolo& r : nuove) {
    r.Distanza1 /= riferimento;
    r.Distanza2 /= riferimento;
  }
  // A number given again redefines that symbol: its old rows go, the new ones stand last.
  return RiscriviSimbolo(s, n16, nuove, "NuovoSimbolo");
}

bool EliminaSimbolo(Sessione& s, int numero) {
  if (s.Simboli.Simbolo(numero).empty()) return false;
  return RiscriviSimbolo(s, numero, {}, "EliminaSimbolo");
}

}  // namespace varena
