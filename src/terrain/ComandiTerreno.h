// The terrain's tags that act at once: the network of the fiducial points, and facets from
// the selected lines.
#pragma once

namespace varena {

struct Sessione;

// TRIPF, FALDE_DA_LINEE, AGGIUNGI_FALDE_DA_LINEE.
void AzioneTRIPF(Sessione& s);
void AzioneFaldeDaLinee(Sessione& s);

}  // namespace varena
