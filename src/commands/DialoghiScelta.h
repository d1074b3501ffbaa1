// The pickers of the current layer (`MenuPiani`), line type (`MenuTratteggi`) and colour
// (`FormSelezColore`): opened by their own tags and keys, and first by the commands that
// write the choice into a selection (`CAMBIA_PIANO`, `CAMBIA_TRATTEGGIO`,
// `CAMBIA_COLORE_DEFAULT`), which go on to the selection only once it is made.
#pragma once

namespace varena {

struct Sessione;

// The layers of the job, to be picked into `Piano`; `OK` makes it the current layer.
bool ApriMenuPiani(Sessione& s);
// The line types of `linee.ini`, each with its index, name, sample and elements, to be
// picked (by index or name) into `Tratteggio`; `OK` makes it the current line type.
bool ApriMenuTratteggi(Sessione& s);
// An index of the colour table in `Colore`; `OK` makes it the current colour.
bool ApriFormSelezColore(Sessione& s);

}  // namespace varena
