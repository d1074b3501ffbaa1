#include "view/ListaDisegno.h"

#include <algorithm>

#include "core/Testo.h"

namespace varena {

void ElencoDisegno::Svuota() {
  for (auto* v : {&X1, &Y1, &Z1, &X2, &Y2, &Z2}) v->clear();
  Tipo.clear();
  Riga.clear();
  Colore.clear();
  Stato.clear();
  Altezza.clear();
  Rotazione.clear();
  Primitiva.clear();
  Penna.clear();
  Tratto.clear();
  Spessore.clear();
  testo_.clear();
  font_.clear();
  piano_.clear();
  testi_.clear();
  motivi_.clear();
}

int32_t ElencoDisegno::Nome(std::string_view n) {
  // Runs of records share their layer and font: the last two names answer most lookups.
  for (int k = 0; k < 2; ++k)
    if (recenti_[k] >= 0 && nomi_[static_cast<size_t>(recenti_[k])] == n) return recenti_[k];
  const int32_t i = Cerca(n);
  recenti_[1] = recenti_[0];
  recenti_[0] = i;
  return i;
}

int32_t ElencoDisegno::Cerca(std::string_view n) {
  auto it = indiceNomi_.find(std::string(n));
  if (it != indiceNomi_.end()) return it->second;
  const auto i = static_cast<int32_t>(nomi_.size());
  nomi_.emplace_back(n);
  indiceNomi_.emplace(std::string(n), i);
  return i;
}

int64_t ElencoDisegno::Aggiungi(const RecordDisegno& r) {
  X1.push_back(r.X1);
  Y1.push_back(r.Y1);
  Z1.push_back(r.Z1);
  X2.push_back(r.X2);
  Y2.push_back(r.Y2);
  Z2.push_back(r.Z2);
  Tipo.push_back(r.Tipo);
  Riga.push_back(r.Riga);
  Colore.push_back(r.Colore);
  Stato.push_back(r.Stato);
  Altezza.push_back(r.Altezza);
  Rotazione.push_back(r.Rotazione);
  Primitiva.push_back(r.Primitiva);
  Penna.push_back(r.Penna);
  Tratto.push_back(r.Tratto < 0 ? int16_t{0} : r.Tratto);
  Spessore.push_back(r.Spessore < 1 ? 1.0f : r.Spessore);
  if (r.Testo.empty()) {
    testo_.push_back(-1);
  } else {
    testo_.push_back(static_cast<int32_t>(testi_.size()));
    testi_.emplace_back(r.Testo);
  }
  font_.push_back(Nome(r.Font));
  piano_.push_back(Nome(Rifila(r.Piano).empty() ? std::string_view("0") : r.Piano));
  return Conta() - 1;
}

int64_t ElencoDisegno::AggiungiMotivo(const RecordDisegno& r, MotivoLinea m) {
  RecordDisegno b = r;
  b.Primitiva = PrimMotivo;
  m.Record = Aggiungi(b);
  motivi_.push_back(m);
  return m.Record;
}

const MotivoLinea* ElencoDisegno::Motivo(int64_t i) const {
  if (i < 0 || i >= Conta() || Primitiva[static_cast<size_t>(i)] != PrimMotivo) return nullptr;
  const auto it = std::lower_bound(motivi_.begin(), motivi_.end(), i,
                                   [](const MotivoLinea& m, int64_t record) { return m.Record < record; });
  return it != motivi_.end() && it->Record == i ? &*it : nullptr;
}

const std::string& ElencoDisegno::Testo(int64_t i) const {
  static const std::string vuoto;
  const int32_t k = testo_[static_cast<size_t>(i)];
  return k < 0 ? vuoto : testi_[static_cast<size_t>(k)];
}

template <class F>
void ElencoDisegno::Colonne(const ElencoDisegno& b, F&& f) {
  f(X1, b.X1), f(Y1, b.Y1), f(Z1, b.Z1), f(X2, b.X2), f(Y2, b.Y2), f(Z2, b.Z2), f(Tipo, b.Tipo), f(Riga, b.Riga);
  f(Colore, b.Colore), f(Stato, b.Stato), f(Altezza, b.Altezza), f(Rotazione, b.Rotazione);
  f(Primitiva, b.Primitiva), f(Penna, b.Penna), f(Tratto, b.Tratto), f(Spessore, b.Spessore);
}

void ElencoDisegno::CopiaRecord(int64_t i, const ElencoDisegno& nuovi, int64_t j) {
  const auto k = static_cast<size_t>(i);
  font_[k] = Nome(nuovi.Font(j));
  piano_[k] = Nome(nuovi.Piano(j));
  const std::string& testo = nuovi.Testo(j);
  if (testo.empty()) {
    testo_[k] = -1;
  } else if (testo_[k] >= 0) {
    testi_[static_cast<size_t>(testo_[k])] = testo;
  } else {
    testo_[k] = static_cast<int32_t>(testi_.size());
    testi_.push_back(testo);
  }
}

void ElencoDisegno::SostituisciAlPosto(const std::vector<Sostituzione>& sost, const ElencoDisegno& nuovi) {
  // The patterns of the runs replaced go, those of the new runs come at their places.
  auto dentro = [&sost](int64_t i) {
    auto it = std::upper_bound(sost.begin(), sost.end(), i, [](int64_t v, const Sostituzione& r) { return v < r.Da; });
    return it != sost.begin() && i < std::prev(it)->Da + std::prev(it)->Quanti;
  };
  std::erase_if(motivi_, [&](const MotivoLinea& m) { return dentro(m.Record); });
  for (const Sostituzione& r : sost) {
    const auto da = static_cast<std::ptrdiff_t>(r.Da), dn = static_cast<std::ptrdiff_t>(r.DaNuovi);
    const auto q = static_cast<std::ptrdiff_t>(r.Quanti);
    Colonne(nuovi, [&](auto& c, const auto& o) { std::copy(o.begin() + dn, o.begin() + dn + q, c.begin() + da); });
    for (int64_t k = 0; k < r.Quanti; ++k) {
      CopiaRecord(r.Da + k, nuovi, r.DaNuovi + k);
      if (const MotivoLinea* m = nuovi.Motivo(r.DaNuovi + k)) {
        MotivoLinea copia = *m;
        copia.Record = r.Da + k;
        motivi_.push_back(copia);
      }
    }
  }
  std::sort(motivi_.begin(), motivi_.end(), [](const MotivoLinea& a, const MotivoLinea& b) { return a.Record < b.Record; });
}

void ElencoDisegno::Sostituisci(const std::vector<Sostituzione>& sost, const ElencoDisegno& nuovi) {
  if (std::all_of(sost.begin(), sost.end(), [](const Sostituzione& r) { return r.Quanti == r.QuantiNuovi; })) {
    SostituisciAlPosto(sost, nuovi);
    return;
  }
  // The list made again of its runs kept and the new ones, in order. Texts and patterns are
  // taken along with their records; names are looked up again in this list's table.
  ElencoDisegno vecchio;
  std::swap(vecchio, *this);
  nomi_ = vecchio.nomi_;
  indiceNomi_ = vecchio.indiceNomi_;
  int64_t totale = vecchio.Conta();
  for (const Sostituzione& r : sost) totale += r.QuantiNuovi - r.Quanti;
  Colonne(vecchio, [&](auto& c, const auto&) { c.reserve(static_cast<size_t>(totale)); });
  testo_.reserve(static_cast<size_t>(totale)), font_.reserve(static_cast<size_t>(totale));
  piano_.reserve(static_cast<size_t>(totale));
  auto accoda = [&](const ElencoDisegno& da, int64_t primo, int64_t quanti, bool proprio) {
    const auto p = static_cast<std::ptrdiff_t>(primo), q = static_cast<std::ptrdiff_t>(quanti);
    const int64_t base = Conta();
    Colonne(da, [&](auto& c, const auto& o) { c.insert(c.end(), o.begin() + p, o.begin() + p + q); });
    for (int64_t k = 0; k < quanti; ++k) {
      const auto j = static_cast<size_t>(primo + k);
      if (proprio) {
        font_.push_back(da.font_[j]);
        piano_.push_back(da.piano_[j]);
      } else {
        font_.push_back(Nome(da.Font(primo + k)));
        piano_.push_back(Nome(da.Piano(primo + k)));
      }
      const int32_t t = da.testo_[j];
      if (t < 0) {
        testo_.push_back(-1);
      } else {
        testo_.push_back(static_cast<int32_t>(testi_.size()));
        // The old list's texts are its own to give away; the new runs' are only lent.
        if (proprio)
          testi_.push_back(std::move(vecchio.testi_[static_cast<size_t>(t)]));
        else
          testi_.push_back(da.testi_[static_cast<size_t>(t)]);
      }
    }
    auto m = std::lower_bound(da.motivi_.begin(), da.motivi_.end(), primo,
                              [](const MotivoLinea& x, int64_t v) { return x.Record < v; });
    for (; m != da.motivi_.end() && m->Record < primo + quanti; ++m) {
      MotivoLinea copia = *m;
      copia.Record = base + (m->Record - primo);
      motivi_.push_back(copia);
    }
  };
  int64_t pos = 0;
  for (const Sostituzione& r : sost) {
    accoda(vecchio, pos, r.Da - pos, true);
    accoda(nuovi, r.DaNuovi, r.QuantiNuovi, false);
    pos = r.Da + r.Quanti;
  }
  accoda(vecchio, pos, vecchio.Conta() - pos, true);
}

}  // namespace varena
