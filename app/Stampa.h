// The plot sent to a printer through the system's print service: the print dialog, the
// scale, then the pages of the plot stream drawn by our own spooler on the printer.
#pragma once

#include <QString>

class QPrinter;
class QWidget;

namespace varena {

struct Sessione;

// What a printer that refused the job leaves said, under the title "Stampa".
void StampanteRifiuta(Sessione& s);

// The sheet the printer holds, at 1:`scala`, around the view's centre; with pagination on
// (`StampaPaginato.ini`) the pages around it, each asked for. False, with a message, when
// the printer refused the job; `ModoStampa` is 0 after it in any case.
bool StampaSuStampante(Sessione& s, QPrinter& stampante, double scala);

// `ANTEPRIMA_STAMPA` in the desktop: the print dialog, the scale, the plot.
void StampaConDialogo(QWidget* padre, Sessione& s);

}  // namespace varena
