// The fiducial archive: the input is a TAF file imported into the example job, then the
// same bytes as the archive of a municipality, where the framing looks a PF up by its name.
#include "Bersagli.h"
#include "core/Sessione.h"
#include "exchange/TafLettura.h"
#include "store/Undo.h"

namespace varena::fuzz {

void FuzzTaf(const Ambiente& a, std::string_view byte) {
  Sessione s;
  ApriEsempio(a, s);
  const std::string percorso = a.Radice() + "/punti.taf";
  ScriviFileFuzz(percorso, byte);
  if (ImportaTaf(s, percorso)) VR_SalvaUndo(s);
  ScriviFileFuzz(FileArchivioPF(s, "PF01/0120/A123"), byte);
  CercaPFInArchivio(s, "PF01/0120/A123");
  Dipingi(s);
}

}  // namespace varena::fuzz
