// The section table: the input stands as the example job's `.SEZ`, which is opened as the
// user opens a job (load, first undo generation, regeneration), painted, then saved: a member
// that reads must come back as the writer writes it, one that does not as it stood.
#include "Bersagli.h"
#include "core/CodicePagina.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "sections/FileSezioni.h"
#include "store/Salvataggio.h"

namespace varena::fuzz {

void FuzzSez(const Ambiente& a, std::string_view byte) {
  ScriviFileFuzz(a.Esempio() + ".SEZ", byte);
  Sessione s;
  ApriEsempio(a, s);
  Dipingi(s);
  const bool letto = s.MembriConservati.count(SlotSezioni) == 0;
  const std::string atteso = letto ? Utf8InCp1252(TestoSezioni(s)) : std::string(byte);
  Salva(s);
  const auto scritto = LeggiByte(a.Esempio() + ".SEZ");
  Verifica(scritto.value_or("") == atteso || (letto && atteso.empty() && !scritto),
           "Il membro delle sezioni salvato non è quello letto\n");
}

}  // namespace varena::fuzz
