// Qt's own words (the buttons of the message boxes, the file dialogs, the headers of the
// folder views) in Italian, as the rest of the program speaks.
#pragma once

namespace varena {

// Installs Qt's Italian translations in the running application. False when they are not
// on this machine (Debian's qt6-translations-l10n): Qt's words then stay in English.
bool CaricaTraduzioniQt();

}  // namespace varena
