// Growth and clearing of the entity tables.
#include "core/Tabelle.h"

#include <algorithm>

namespace varena {

void RigheCambiate::Segna(int32_t da, int32_t a) {
  if (Tutte || a < da) return;
  // Rows marked one after the other (a run of grow calls, a loop over a selection) join the
  // run before them.
  if (!Tratti.empty() && da >= Tratti.back().first && da <= static_cast<int64_t>(Tratti.back().second) + 1) {
    Tratti.back().second = std::max(Tratti.back().second, a);
    return;
  }
  // Past this many runs, sorting and merging them costs more than the whole slot does.
  if (Tratti.size() >= 65536) {
    SegnaTutte();
    return;
  }
  Tratti.emplace_back(da, a);
}

namespace {

// The legacy growth: when row `count` is beyond the upper bound, grow to count + 1 + margin.
// A vector of n elements stands for an array of upper bound n - 1.
template <class Tab, class Col>
void Cresci(Tab& tab, const Col& chiave, int32_t conta, int margine) {
  const int64_t necessario = static_cast<int64_t>(conta) + 1;
  const int64_t limite = static_cast<int64_t>(chiave.size()) - 1;
  if (necessario > limite) RidimensionaTabella(tab, static_cast<size_t>(necessario + margine + 1));
}

template <class Tab>
void Iniziale(Tab& tab) {
  tab.PerOgniColonna([](auto& c) {
    c.clear();
    c.shrink_to_fit();
    c.resize(kLimiteIniziale + 1);
  });
}

}  // namespace

void AzzeraTabelle(TabelleEntita& t) {
  Iniziale<TabellaPunti>(t);
  Iniziale<TabellaLinee>(t);
  Iniziale<TabellaCerchi>(t);
  Iniziale<TabellaArchi>(t);
  Iniziale<TabellaTesti>(t);
  Iniziale<TabellaFalde>(t);
  Iniziale<TabellaSette>(t);
  Iniziale<TabellaCurve>(t);
  Iniziale<TabellaBitmap>(t);
  Iniziale<TabellaSezioni>(t);
  t.ContaEntita.fill(0);
  SegnaTuttoModificato(t);
}

void DimensionaPunti(TabelleEntita& t) {
  SegnaRiga(t, SlotPunti, t.ContaEntita[SlotPunti]);
  Cresci<TabellaPunti>(t, t.PuntoIdent, t.ContaEntita[SlotPunti], 10);
}
void DimensionaLinee(TabelleEntita& t) {
  SegnaRiga(t, SlotLinee, t.ContaEntita[SlotLinee]);
  Cresci<TabellaLinee>(t, t.LineaIdent, t.ContaEntita[SlotLinee], 10);
}
void DimensionaCerchi(TabelleEntita& t) {
  SegnaRiga(t, SlotCerchi, t.ContaEntita[SlotCerchi]);
  Cresci<TabellaCerchi>(t, t.CerchioIdent, t.ContaEntita[SlotCerchi], 10);
}
void DimensionaArchi(TabelleEntita& t) {
  SegnaRiga(t, SlotArchi, t.ContaEntita[SlotArchi]);
  Cresci<TabellaArchi>(t, t.ArcoIdent, t.ContaEntita[SlotArchi], 10);
}
void DimensionaTesti(TabelleEntita& t) {
  SegnaRiga(t, SlotTesti, t.ContaEntita[SlotTesti]);
  Cresci<TabellaTesti>(t, t.TestoIdent, t.ContaEntita[SlotTesti], 10);
}
void DimensionaFalde(TabelleEntita& t) {
  SegnaRiga(t, SlotFalde, t.ContaEntita[SlotFalde]);
  Cresci<TabellaFalde>(t, t.FaldaIdent, t.ContaEntita[SlotFalde], 10);
}
// Contorno-7 and bitmaps grow exactly to the row asked for, with no margin.
void DimensionaSette(TabelleEntita& t) {
  SegnaRiga(t, SlotSette, t.ContaEntita[SlotSette]);
  Cresci<TabellaSette>(t, t.SetteIdent, t.ContaEntita[SlotSette], 0);
}
void DimensionaCurve(TabelleEntita& t) {
  SegnaRiga(t, SlotCurve, t.ContaEntita[SlotCurve]);
  Cresci<TabellaCurve>(t, t.CurvaFlag, t.ContaEntita[SlotCurve], 10);
}
void DimensionaBitmap(TabelleEntita& t) {
  SegnaRiga(t, SlotBitmap, t.ContaEntita[SlotBitmap]);
  Cresci<TabellaBitmap>(t, t.BitmapIdent, t.ContaEntita[SlotBitmap], 0);
}

// Sections are large rows: they grow by a margin of 5.
void DimensionaSezioni(TabelleEntita& t) {
  SegnaRiga(t, SlotSezioni, t.ContaEntita[SlotSezioni]);
  Cresci<TabellaSezioni>(t, t.SezioneIdent, t.ContaEntita[SlotSezioni], 5);
}

void PreparaRighe(TabelleEntita& t, int slot, int64_t righe) {
  SegnaRighe(t, slot, t.ContaEntita[static_cast<size_t>(slot)], righe - 1);
  const auto n = static_cast<size_t>(std::max<int64_t>(righe, 0) + 11);
  auto almeno = [n](auto& tab, const auto& chiave) {
    if (chiave.size() < n) RidimensionaTabella(tab, n);
  };
  switch (slot) {
    case SlotPunti: almeno(static_cast<TabellaPunti&>(t), t.PuntoIdent); break;
    case SlotLinee: almeno(static_cast<TabellaLinee&>(t), t.LineaIdent); break;
    case SlotCerchi: almeno(static_cast<TabellaCerchi&>(t), t.CerchioIdent); break;
    case SlotArchi: almeno(static_cast<TabellaArchi&>(t), t.ArcoIdent); break;
    case SlotTesti: almeno(static_cast<TabellaTesti&>(t), t.TestoIdent); break;
    case SlotFalde: almeno(static_cast<TabellaFalde&>(t), t.FaldaIdent); break;
    case SlotCurve: almeno(static_cast<TabellaCurve&>(t), t.CurvaFlag); break;
    default: break;
  }
}

namespace {

const Colonna<int16_t>* ColonnaIdent(const TabelleEntita& t, int slot) {
  switch (slot) {
    case SlotPunti: return &t.PuntoIdent;
    case SlotLinee: return &t.LineaIdent;
    case SlotCerchi: return &t.CerchioIdent;
    case SlotArchi: return &t.ArcoIdent;
    case SlotTesti: return &t.TestoIdent;
    case SlotFalde: return &t.FaldaIdent;
    case SlotSette: return &t.SetteIdent;
    case SlotBitmap: return &t.BitmapIdent;
    case SlotSezioni: return &t.SezioneIdent;
    default: return nullptr;  // kinds without a deletion field
  }
}

}  // namespace

bool RigaViva(const TabelleEntita& t, int slot, int64_t r) {
  if (slot < 0 || slot >= NumeroSlot || r < 0 || r >= t.ContaEntita[static_cast<size_t>(slot)]) return false;
  const Colonna<int16_t>* ident = ColonnaIdent(t, slot);
  if (!ident) return true;
  return static_cast<size_t>(r) < ident->size() && IdentVivo((*ident)[static_cast<size_t>(r)]);
}

int64_t RigheVive(const TabelleEntita& t, int slot) {
  const Colonna<int16_t>* ident = ColonnaIdent(t, slot);
  if (!ident) return t.ContaEntita[slot];
  const auto n = static_cast<size_t>(std::max(t.ContaEntita[slot], 0));
  return std::count_if(ident->begin(), ident->begin() + static_cast<std::ptrdiff_t>(std::min(n, ident->size())),
                       IdentVivo);
}

}  // namespace varena
