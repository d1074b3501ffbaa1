// The dispatcher of the tags, the arming and the end of commands, and the snap modes asked
// by a key or a tag. Every user action that is not a pointer event comes through here.
#pragma once

#include <cstdint>
#include <string_view>

#include "view/Zoom.h"

namespace varena {

struct Sessione;

// `Esegui_Comando_TAG`: runs the tag in `ComandoTag`. The guards, in order: upper case; the
// list of commands when `INFOCOMANDI` is on; the zoom tags, which leave the armed command
// alone; the snap tags, likewise; `CONFIGURAZIONE`; the working dialogs closed (but for
// `FINE_CONTORNO`); the quick colours "COLORE_n"; then the table, first match. An unknown
// tag does nothing.
void Esegui_Comando_TAG(Sessione& s);
// The same, for a tag given here.
void EseguiTag(Sessione& s, std::string_view tag);

// Starts the command whose code stands in `ComandoCorrente`: step 0, the snap of the last
// command (1 read as 16) or the command's own, the dialog it opens first, the first prompt.
// A dialog cancelled leaves `ComandoCorrente` 0.
void ArmaComando(Sessione& s);
// `InterrompiComando`, the end of every command: rubber bands, selection, zoom, prompt
// and working dialogs cleared, the code kept for repeat, a redraw.
void InterrompiComando(Sessione& s);
// The repeat of Esc and of the right button: the last command armed again.
void RipetiComando(Sessione& s);

// The dialog the armed command's tag opens before the first prompt (`MenuPiani` for
// `CAMBIA_PIANO` ...); empty when none. While it is open, a command on a selection waits
// for its answer before `Selezentita`.
std::string_view DialogoIniziale(const Sessione& s);
// That dialog has been answered and closed. Confirmed, a command on a selection goes on to
// `Selezentita`; cancelled, the command ends. Nothing when no command waits for it (the
// dialog was opened by a tag of its own, as `MENU_PIANI` or F7 open the layers).
void DialogoInizialeRisposto(Sessione& s, std::string_view dialogo, bool confermato);

// The sixteen dialogs of the command in progress, closed when another tag arrives.
void ChiudiDialoghiLavoro(Sessione& s);
// `SnapPunto` and the dialogs in which a snap point is typed.
void ChiudiSnapPunto(Sessione& s);

// A snap mode asked by a letter or a tag: it lasts one click. Modes that need a previous
// point become free at step 0; 3, 11, 12, 15 and 19 open their dialogs; 18 lays the command
// aside and asks for the point to memorise.
void ImpostaSnap(Sessione& s, int16_t modo);

// What a zoom leaves to do: a redraw or a regeneration.
void EseguiSeguito(Sessione& s, Seguito seguito);

// The display toggles N, Q, S, W, L, A: a change of the job, followed by the snapshot.
void AlternaVisualizzazione(Sessione& s, char tag);

// The settings the end of a command keeps (`SALVAINI.INI`); nothing for a session without
// a working root.
void SalvaImpostazioniComando(Sessione& s);

}  // namespace varena
