// The whole-job text `.XVR`, imported into the example job as the menu command does, the job
// then painted and saved: whatever the text, only its points and lines come in, and the save
// writes the job's own text again.
#include "Bersagli.h"
#include "core/Sessione.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "store/TestoLavoro.h"

namespace varena::fuzz {

void FuzzXvr(const Ambiente& a, std::string_view byte) {
  const std::string testo = a.Lavori() + "/ALTRO.XVR";
  ScriviFileFuzz(testo, byte);
  Sessione s;
  ApriEsempio(a, s);
  const auto prima = s.ContaEntita;
  CaricaTuttoILA7(s, testo);
  for (int slot = 0; slot < NumeroSlot; ++slot)
    Verifica(slot == SlotPunti || slot == SlotLinee || slot == SlotLibretto || s.ContaEntita[slot] == prima[slot],
             "L'importazione ha cambiato le righe dello slot %d\n", slot);
  Dipingi(s);
  Salva(s);
  EliminaProvviso(s);
}

}  // namespace varena::fuzz
