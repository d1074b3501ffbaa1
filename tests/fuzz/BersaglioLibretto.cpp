// The field book: the input stands as the example job's book, which is opened, split row by
// row by the shared grammar, turned into the drawing's scheme and structures, regenerated and
// painted; then saved and read again, and every row must come back as it was held.
#include "Bersagli.h"
#include "cadastre/Libretto.h"
#include "cadastre/LibrettoDisegno.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Salva.h"
#include "store/Undo.h"
#include "view/Rigenera.h"

namespace varena::fuzz {

void FuzzLibretto(const Ambiente& a, std::string_view byte) {
  ScriviFileFuzz(a.Esempio() + ".TXT", byte);
  Sessione s;
  ApriEsempio(a, s);
  CampiLibretto c;
  for (const std::string& riga : s.LibrettoMisure) {
    try {
      CampiRiga(riga, c);
    } catch (const ErroreVarena&) {
      // A row of too many fields: the readers end under the common error path.
    }
  }
  DatiDaRigaZero(s);
  ValoriRigheSei(s);
  AssumeTuttoDaTXT(s);
  DescrizioniDaLibrettoMisure(s);
  RigeneraLista(s);
  Dipingi(s);
  const std::vector<std::string> tenute = s.LibrettoMisure;
  SalvaLibretto(s);
  CaricaLibretto(s);
  // A book of no rows writes no file, and the reading falls back on the program's own.
  Verifica(tenute.empty() || s.LibrettoMisure == tenute,
           "Il libretto salvato e riletto non ha le righe tenute: %zu righe, ne tornano %zu\n", tenute.size(),
           s.LibrettoMisure.size());
}

}  // namespace varena::fuzz
