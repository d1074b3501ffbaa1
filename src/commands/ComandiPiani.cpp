// The whole-layer changes of the layer panel.
#include "commands/ComandiPiani.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "commands/Modifica.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "selection/Selezione.h"

namespace varena {

namespace {

bool StessoPiano(std::string_view a, std::string_view b) { return UgualeSenzaCaso(Rifila(a), Rifila(b)); }

// Calls `fai(slot, row)` on every live row of every kind that has a layer, with its layer.
template <class Fai>
void PerOgniRiga(const Sessione& s, Fai fai) {
  auto kind = [&](int slot, const auto& ident, const auto& piano) {
    const auto n = static_cast<size_t>(std::max(s.ContaEntita[static_cast<size_t>(slot)], 0));
    for (size_t r = 0; r < n && r < ident.size() && r < piano.size(); ++r)
      if (IdentVivo(ident[r])) fai(slot, r, piano[r]);
  };
  kind(SlotPunti, s.PuntoIdent, s.PuntoPiano);
  kind(SlotLinee, s.LineaIdent, s.LineaPiano);
  kind(SlotCerchi, s.CerchioIdent, s.CerchioPiano);
  kind(SlotArchi, s.ArcoIdent, s.ArcoPiano);
  kind(SlotTesti, s.TestoIdent, s.TestoPiano);
  kind(SlotFalde, s.FaldaIdent, s.FaldaPiano);
  kind(SlotBitmap, s.BitmapIdent, s.BitmapPiano);
}

void Congela(Sessione& s, int slot, size_t r, int16_t v) {
  switch (slot) {
    case SlotPunti:
      s.PuntoCongelaSimbolo[r] = s.PuntoCongelaNome[r] = s.PuntoCongelaQuota[r] = s.PuntoCongelaDescrizione[r] = v;
      break;
    case SlotLinee: s.LineaCongela[r] = v; break;
    case SlotCerchi: s.CerchioCongela[r] = v; break;
    case SlotArchi: s.ArcoCongela[r] = v; break;
    case SlotTesti: s.TestoCongela[r] = v; break;
    case SlotFalde: s.FaldaCongela[r] = v; break;
    case SlotBitmap: s.BitmapCongela[r] = v; break;
    default: break;
  }
}

void Colora(Sessione& s, int slot, size_t r, int32_t c) {
  switch (slot) {
    case SlotPunti:
      s.PuntoColoreSimbolo[r] = s.PuntoColoreNome[r] = s.PuntoColoreQuota[r] = s.PuntoColoreDescrizione[r] = c;
      break;
    case SlotLinee: s.LineaColore[r] = c; break;
    case SlotCerchi: s.CerchioColore[r] = c; break;
    case SlotArchi: s.ArcoColore[r] = c; break;
    case SlotTesti: s.TestoColore[r] = c; break;
    case SlotFalde: s.FaldaColore[r] = c; break;
    default: break;  // an image has no colour
  }
}

// Marks every kind that `fai` changed, then takes the snapshot.
template <class Fai>
bool CambiaPiano(Sessione& s, std::string_view piano, Fai fai) {
  std::array<bool, 32> cambiato{};
  PerOgniRiga(s, [&](int slot, size_t r, const std::string& p) {
    if (StessoPiano(p, piano)) cambiato[static_cast<size_t>(slot)] |= fai(slot, r);
  });
  bool fatto = false;
  for (size_t slot = 0; slot < cambiato.size(); ++slot)
    if (cambiato[slot]) {
      SegnaModificato(s, static_cast<int>(slot));
      fatto = true;
    }
  return fatto;
}

}  // namespace

std::vector<VocePiano> ElencoPiani(const Sessione& s) {
  std::vector<VocePiano> elenco;
  // Each layer by the form in which names compare, so that a sheet of thousands of layers
  // is listed in one pass; the first entry of a name keeps it.
  std::unordered_map<std::string, size_t> posto;
  auto chiave = [](std::string_view nome) { return Maiuscolo(Rifila(nome)); };
  auto trova = [&](std::string_view nome) -> VocePiano* {
    const auto it = posto.find(chiave(nome));
    return it == posto.end() ? nullptr : &elenco[it->second];
  };
  auto aggiungi = [&](VocePiano v) {
    posto.emplace(chiave(v.Nome), elenco.size());
    elenco.push_back(std::move(v));
  };
  for (const Piano& p : s.Piani) {
    if (trova(p.Nome)) continue;
    aggiungi({Rifila(p.Nome), p.Colore, 0, 0, false, true});
  }
  // Rows of one layer mostly follow one another: the layer of the row before is tried first.
  std::string ultimo;
  size_t indice = 0;
  PerOgniRiga(s, [&](int slot, size_t r, const std::string& p) {
    if (elenco.empty() || p != ultimo) {
      VocePiano* v = trova(p);
      if (!v) {
        aggiungi({Rifila(p).empty() ? "0" : Rifila(p), 1, 0, 0, false, false});
        v = &elenco.back();
      }
      indice = static_cast<size_t>(v - elenco.data());
      ultimo = p;
    }
    ++elenco[indice].Entita;
    if (Congelato(s, slot, r)) ++elenco[indice].Congelate;
  });
  for (VocePiano& v : elenco) v.Corrente = StessoPiano(v.Nome, s.PianoCorrente);
  return elenco;
}

bool CongelaPiano(Sessione& s, std::string_view piano, bool congela) {
  s.RoutineCorrente = "CongelaPiano";
  const int16_t v = congela ? -1 : 0;
  const bool fatto = CambiaPiano(s, piano, [&](int slot, size_t r) {
    Congela(s, slot, r, v);
    return true;
  });
  if (fatto) FineModifica(s);
  return fatto;
}

bool ColorePiano(Sessione& s, std::string_view piano, int32_t colore) {
  s.RoutineCorrente = "ColorePiano";
  if (colore < 1 || colore > kMassimoColori) return false;
  Piano* voce = nullptr;
  for (Piano& p : s.Piani)
    if (StessoPiano(p.Nome, piano)) voce = &p;
  if (!voce && static_cast<int>(s.Piani.size()) < kMassimoPiani) {
    s.Piani.push_back(LeggiRigaPiano(kRigaPianoDefault));
    voce = &s.Piani.back();
    voce->Nome = Rifila(piano);
  }
  if (voce) {
    voce->Colore = colore;
    SegnaModificato(s, SlotPiani);
  }
  CambiaPiano(s, piano, [&](int slot, size_t r) {
    Colora(s, slot, r, colore);
    return slot != SlotBitmap;
  });
  FineModifica(s);
  return true;
}

void ScegliPianoCorrente(Sessione& s, std::string_view piano) {
  s.PianoCorrente = Rifila(piano);
  for (const Piano& p : s.Piani)
    if (StessoPiano(p.Nome, piano)) s.PianoCorrente = Rifila(p.Nome);
}

}  // namespace varena
