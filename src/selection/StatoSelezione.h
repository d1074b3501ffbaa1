// What the selection keeps between two clicks: the add or remove mode of the dialogs,
// whether points take part, the count shown, the last row marked and the base of the list
// file that repeats the selection. The selection itself is the state bytes of the tables.
#pragma once

#include <cstdint>
#include <string>

namespace varena {

struct StatoSelezione {
  // Written by `MarcaEntita`: 1 selects, 0 takes away.
  int32_t ValoreSelezione = 1;
  // 1 when points take part ("Punti SI "), read from the per-user store when the dialog
  // opens and written back by its button.
  uint8_t PuntiInSelezione = 1;
  // The rows selected, as the dialogs last showed them.
  int64_t ContaSelezione = 0;
  // The base of the list file `.uls` (and of a group `.GGG`). Empty: the job's own name,
  // so that each job keeps its own last selection.
  std::string NomeGruppo;
  // The row `MarcaEntita` marked last, for the commands that want one entity.
  uint8_t UltimaSelezioneTipo = 0;
  int32_t UltimaSelezioneRiga = -1;
  // The dialog's confirmation has been given: the clicks now belong to the command's own
  // steps. Cleared each time the dialog is built for a new selection.
  bool SelezioneConfermata = false;
  // The layer of the entity clicked by the selection by layer, offered by `SelezPerPiano`.
  std::string PianoDaSelezionare;
  // `SelezPunti`: the symbol pasted by action 118 and the label size written by 111, 117,
  // 122 and 126.
  int16_t SimboloCorrente = 1;
  double DimensioneEtichetta = 0;
};

}  // namespace varena
