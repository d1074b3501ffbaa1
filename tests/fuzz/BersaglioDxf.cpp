// The DXF reader: the input is a drawing imported into the example job with every kind and
// layer, as the import dialog loads it, then the undo snapshot, regeneration and redraw.
#include "Bersagli.h"
#include "core/Sessione.h"
#include "exchange/DxfLettura.h"
#include "store/Undo.h"

namespace varena::fuzz {

void FuzzDxf(const Ambiente& a, std::string_view byte) {
  Sessione s;
  ApriEsempio(a, s);
  OpzioniDxfIn o;
  o.Check.fill(true);
  // The first byte chooses between every layer and the layers the file itself names.
  if (Scelta(byte, 2) == 1) {
    std::string errore;
    if (const auto f = RiduciDxf(byte, errore)) o.Piani = PianiDxf(*f);
  }
  const std::string percorso = a.Radice() + "/disegno.dxf";
  ScriviFileFuzz(percorso, byte);
  if (ImportaDxf(s, percorso, o)) VR_SalvaUndo(s);
  Dipingi(s);
}

}  // namespace varena::fuzz
