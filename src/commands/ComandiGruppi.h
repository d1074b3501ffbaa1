// The commands of the group library and of the user's symbols: the dialog of the groups,
// the base of a new group (259) and its selection (265), the paste at a click (260), and the
// origin of a new symbol once its strokes are selected (256).
#pragma once

namespace varena {

struct Sessione;

// `GestioneGruppi`: the groups of the library, a name box, new, paste, delete.
bool ApriGestioneGruppi(Sessione& s);
// `MenuSimboli` ("Selezione Simbolo"): the symbols by code, the one in the box made the
// current symbol of `INCOLLA_SIMBOLO` (a double click in the list), or pasted at once.
bool ApriMenuSimboli(Sessione& s);
void subNuovoGruppo(Sessione& s);    // 259: the base, then the selection of 265
void subIncollaGruppo(Sessione& s);  // 260: one copy at each click
void subNuovoSimbolo(Sessione& s);   // 256: the origin, once the strokes are confirmed
// 265 confirmed: the selection written as the group named in the dialog, about the base of
// 259. The command ends: the group is saved once.
void SalvaGruppoSelezionato(Sessione& s);

}  // namespace varena
