// The dialogs of the drawing commands: the text properties, the choice of a picture, the
// hatch settings, the parameters of a series and the traced contour. A dialog left open
// while the user clicks is read at each click, as if confirmed.
#pragma once

#include "commands/StatoDisegno.h"

namespace varena {

struct Sessione;

bool ApriProprietaTesto(Sessione& s);
bool ApriFormSelezionaImmagine(Sessione& s);
// `Imputa2` of the hatch: `Angolo_Campitura` and `Distanza_Campitura`. The other commands
// that open a dialog of that name bring their own fields.
bool ApriImputa2(Sessione& s);
bool ApriParametriSerie(Sessione& s);
// The contour just traced, as a table of vertices; for the hatch, the hatch is made first.
bool ApriFormSelezionaContorno(Sessione& s);

// What the next click uses: the open dialog's fields, else the last confirmed, else the
// defaults of the settings.
ProprietaTestoScelte ProprietaTestoCorrenti(Sessione& s);
ImmagineScelta ImmagineCorrente(Sessione& s);
// The open dialog's fields into the settings.
void LeggiParametriSerie(Sessione& s);
void LeggiParametriCampitura(Sessione& s);

}  // namespace varena
