// What the last regeneration made of each kind, so that the one after an edit remakes only
// the records of the rows that changed.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "core/Tabelle.h"

namespace varena {

struct StatoRigenerazione {
  // False until a whole regeneration has made the list, and again after a clear.
  bool Valida = false;
  // The settings every record depends on (background, widths, line types, labels), as
  // they stood: when they change, every row is made again.
  uint64_t Impronta = 0;
  // The records of the list as it was left: a list grown since by other means (a line
  // appended for speed) is made again whole.
  int64_t Conta = 0;
  // For each kind in the list, the first record of each of its rows and, last, the end of
  // its records; empty for the kinds not in the list.
  std::array<std::vector<int64_t>, NumeroSlot> Primo{};
  // Where the frame of the extent begins: it stands last.
  int64_t PrimoCornice = 0;
  // Counts the regenerations: what a kind prepares once for all its rows serves one of them.
  uint64_t Passata = 0;
};

}  // namespace varena
