// The choices of the PUN file of the point list: the columns, the separator, "8|" first and
// the separator once more at the end of a row.
#pragma once

class QWidget;

namespace varena {

struct OpzioniEsportazione;

// The dialog opens with the choices of `o`. False when the user cancelled; else `o` holds
// the new choices.
bool ChiediOpzioniPun(QWidget* genitore, OpzioniEsportazione& o);

}  // namespace varena
