// The job archive `.VRZ`, opened as the user opens one while the example job is open: an
// archive refused leaves that job open as it was; one accepted is loaded, painted and closed.
// Nothing may be written outside the root (the guard of `Ambiente` stops the run).
#include "Bersagli.h"
#include "core/Sessione.h"
#include "store/Archivio.h"
#include "store/Provvisorio.h"

namespace varena::fuzz {

void FuzzVrz(const Ambiente& a, std::string_view byte) {
  const std::string archivio = a.Lavori() + "/ARCHIVIO.VRZ";
  ScriviFileFuzz(archivio, byte);
  Sessione s;
  ApriEsempio(a, s);
  const std::string aperto = s.NomeLavoro;
  const int32_t punti = s.ContaEntita[SlotPunti];
  const bool accettato = Esplodi_VRZ(s, archivio);
  Verifica(accettato || (s.NomeLavoro == aperto && s.NomeOriginale == a.Esempio() && s.ContaEntita[SlotPunti] == punti),
           "Un archivio rifiutato ha cambiato il lavoro aperto\n");
  Dipingi(s);
  EliminaProvviso(s);
}

}  // namespace varena::fuzz
