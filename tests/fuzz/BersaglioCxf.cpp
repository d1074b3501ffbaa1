// The cadastral sheet: the input is a CXF file imported into the example job as the command
// line opens one, then the undo snapshot, regeneration and redraw.
#include "Bersagli.h"
#include "core/Sessione.h"
#include "exchange/CxfLettura.h"
#include "store/Undo.h"

namespace varena::fuzz {

void FuzzCxf(const Ambiente& a, std::string_view byte) {
  Sessione s;
  ApriEsempio(a, s);
  const std::string percorso = a.Radice() + "/foglio.cxf";
  ScriviFileFuzz(percorso, byte);
  if (ImportaCxf(s, percorso)) VR_SalvaUndo(s);
  Dipingi(s);
}

}  // namespace varena::fuzz
