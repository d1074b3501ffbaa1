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

}  // namespace varena
