// The dialogs of the office computations: the triangle solver, the resection, the area
// division, the staking-out table and the eccentric station. Their rows in the dialog table
// point here.
#pragma once

namespace varena {

struct Sessione;

bool ApriTriangoli(Sessione& s);
bool ApriCalcoloPothenot(Sessione& s);

// The clicks of the resection: the three known points (211).
void subCalcolaPothenot(Sessione& s);

}  // namespace varena
