// The two dialogs of a section: `Sezioni` ("Configura Sezioni / Profili") for its layout,
// with the default and the named layouts on disk, and `EditaPunti` for its stations, one
// at a time. Both work on a copy and put it back whole with OK.
#pragma once

#include <cstdint>

namespace varena {

struct Sessione;

void ApriDialogoSezioni(Sessione& s, int32_t riga);
void ApriEditaPunti(Sessione& s, int32_t riga);

// The clicks of the commands that open them on the section under the pointer.
void subConfiguraSezione(Sessione& s);
void subEditaPuntiSezione(Sessione& s);

}  // namespace varena
