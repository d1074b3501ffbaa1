// A group file: the input stands as a group of the library and is pasted into the example
// job as a click pastes it (rows added, undo generation, regeneration), then painted. The
// rows it reports added must be the rows the tables gained.
#include "Bersagli.h"
#include "commands/Gruppi.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "store/Carica.h"

namespace varena::fuzz {

void FuzzGgg(const Ambiente& a, std::string_view byte) {
  Sessione s;
  a.Prepara(s);
  ScriviFileFuzz(PercorsoGruppo(s, "PROVA"), byte);
  InizializzaDefault(s);
  s.NomeOriginale = a.Esempio();
  VR_ApriLavoro(s);
  int64_t prima = 0, dopo = 0;
  for (int32_t n : s.ContaEntita) prima += n;
  const int64_t aggiunte = IncollaGruppo(s, "PROVA", 1725000, 5031000);
  for (int32_t n : s.ContaEntita) dopo += n;
  Dipingi(s);
  Verifica(aggiunte == dopo - prima, "Righe incollate %lld, righe aggiunte %lld\n", static_cast<long long>(aggiunte),
           static_cast<long long>(dopo - prima));
}

}  // namespace varena::fuzz
