// The snapshot routine every command calls at its last step.
#include "commands/Modifica.h"

#include "core/Sessione.h"
#include "store/Undo.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"

namespace varena {

void FineModifica(Sessione& s, bool rigenera) {
  // The snapshot regenerates and repaints by itself.
  if (VR_SalvaUndo(s)) return;
  if (rigenera)
    Rigenerazione1(s);
  else
    Ridisegna(s);
}

}  // namespace varena
