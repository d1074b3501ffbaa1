// The layers as a panel shows them: each with its colour, the live entities on it and how
// many of them are frozen; and the changes made to a whole layer, which are changes of the
// job with their undo snapshot, as the same changes on a selection are.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

struct VocePiano {
  std::string Nome;
  int32_t Colore = 1;        // the layer table's colour; 1 for a layer only the entities name
  int64_t Entita = 0;        // live entities on the layer
  int64_t Congelate = 0;     // of those, the frozen ones: neither drawn nor found
  bool Corrente = false;     // the layer new entities take
  bool NellaTabella = false; // false: named by entities, absent from `.PIA`
};

// The layers of the table in their order, then those that only entities name, in the order
// met. Names compare trimmed and without regard to case, as the selection by layer does.
std::vector<VocePiano> ElencoPiani(const Sessione& s);

// Freezes (or thaws) every live entity of the layer: lines, circles, arcs, texts, facets,
// images, and the symbol, name, height and description of points. False, and nothing
// done, when the layer has none.
bool CongelaPiano(Sessione& s, std::string_view piano, bool congela);

// The layer's colour in the table (the layer is added to it when only entities named it),
// and the colour of every live entity of the layer, as the colour change of a selection
// gives it. False when the colour is not one of the table's.
bool ColorePiano(Sessione& s, std::string_view piano, int32_t colore);

// The layer new entities take, spelt as the table spells it.
void ScegliPianoCorrente(Sessione& s, std::string_view piano);

}  // namespace varena
