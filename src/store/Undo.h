// Undo and redo by whole-job snapshots on disk: the journal `_ILN.UND` and the numbered
// generations "name(n).EXT" of the provisional copy.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace varena {

struct Sessione;

// `Passo`, the current generation, and `UltimoPasso`, the highest one a redo may reach.
struct DiarioUndo {
  int64_t Passo = 0;
  int64_t UltimoPasso = 0;
};

std::string PercorsoDiario(const Sessione& s);                    // `NomeLavoro` + "_ILN.UND"
std::string RadiceGenerazione(const Sessione& s, int64_t passo);  // `NomeLavoro` + "(n)"
// No value when the journal is absent.
std::optional<DiarioUndo> LeggiDiario(const Sessione& s);
void ScriviDiario(const Sessione& s, const DiarioUndo& d);

// `VR_ SalvaUndo`: the commit point of every edit. Writes what changed into the provisional
// copy, makes it generation `Passo` + 1 (members that did not change are shared with the
// earlier generations, not copied), and drops any redo. The view numbers come out as they
// went in. False when it failed (the error box has been shown); a failure while writing the
// members leaves the journal as it was. `completo` is the snapshot as it was first made:
// every member rewritten and copied into the generation, nothing shared.
bool VR_SalvaUndo(Sessione& s, bool completo = false);

// Restore generation `Passo` - 1 (or + 1) into the provisional copy, exactly its file set,
// and reload the tables. Quietly false when there is nothing to undo (redo).
bool VR_UNDO(Sessione& s);
bool VR_REDO(Sessione& s);

// Before a member of the provisional copy is handed to a program that writes files in place,
// it gets a file of its own, so that the undo generations sharing it stay as they were.
void StaccaMembro(Sessione& s, int slot);

}  // namespace varena
