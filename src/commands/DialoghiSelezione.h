// The dialogs of the selection: `Selezentita` for the commands on entities, `SelezPerPiano`
// for a layer, `SelezPunti` for the actions on points, `DN` for the label sizes; and what a
// click does while a selection is being made.
#pragma once

#include <cstdint>
#include <string>

namespace varena {

struct Sessione;

// The caption of `Selezentita` for a command code.
std::string TitoloSelezione(int32_t codice);

bool ApriSelezentita(Sessione& s);
bool ApriSelezPerPiano(Sessione& s);
bool ApriSelezPunti(Sessione& s);
bool ApriDN(Sessione& s);

// A click while `FaseSelezione` is set: by the phase, the entity toggled, a window corner,
// a colour or a layer taken, or the entity opened in its editor.
void ClicDiSelezione(Sessione& s);
// A click while an action of `SelezPunti` waits: the nearest point added or taken away.
void ClicSelezPunti(Sessione& s, double x, double y);

// After a change of the state bytes: the list's mirror, the redraw, the counts shown.
void DopoSelezione(Sessione& s);

}  // namespace varena
