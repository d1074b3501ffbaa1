// The keys of the main window (`Comandi a Mano`) and the text box beside the drawing.
#pragma once

#include <string_view>

namespace varena {

struct Sessione;

enum class Tasto {
  Carattere,  // a letter, a digit or a sign: `Carattere` below, in upper case
  Esc,
  Invio,
  Canc,
  Ins,
  Inizio,
  Fine,
  PagSu,
  PagGiu,
  Su,
  Giu,
  Sinistra,
  Destra,
  Spazio,
  NumPiu,
  NumMeno,
  NumDiviso,
  F1, F2, F3, F4, F5, F6, F7, F8, F9, F10, F11, F12,
};

struct EventoTasto {
  Tasto T = Tasto::Carattere;
  char Carattere = 0;
  bool Ctrl = false;
  bool Shift = false;
};

// Key down on the main window. The view keys first, whether or not a command runs; then,
// unless the key is Esc, nothing more when the text box has the focus (`casellaAttiva`);
// the delete and Esc of the point dialog; the snap letters of an armed command; the
// function keys; Esc, the repeat key. False when the key was not used: the desktop then
// types it into the text box.
bool TastoGiu(Sessione& s, const EventoTasto& e, bool casellaAttiva = false);

// Enter in the text box: "_" and a letter runs that display toggle; any other text is the
// name of a point to centre the view on.
void InvioCasella(Sessione& s, std::string_view testo);

}  // namespace varena
