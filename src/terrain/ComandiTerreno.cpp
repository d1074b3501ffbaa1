// Each tag checks that the facets are shown, does its work, and ends as every edit does:
// the snapshot, the regeneration.
#include "terrain/ComandiTerreno.h"

#include "commands/Modifica.h"
#include "core/Sessione.h"
#include "terrain/FaldeDaLinee.h"
#include "terrain/Triangolazione.h"

namespace varena {

void AzioneTRIPF(Sessione& s) {
  if (!FaldeAttive(s)) return;
  TRIPF(s);
  FineModifica(s);
}

void AzioneFaldeDaLinee(Sessione& s) {
  if (!FaldeAttive(s)) return;
  FaldeDaLinee(s, s.ComandoTag == "AGGIUNGI_FALDE_DA_LINEE", false);
  FineModifica(s);
}

}  // namespace varena
