// The dialogs of the office computations: the triangle solver, the resection, the area
// division, the staking-out table and the eccentric station. Their rows in the dialog table
// point here.
#pragma once

namespace varena {

struct Sessione;

bool ApriTriangoli(Sessione& s);

}  // namespace varena
