// Scripts: a text of actions, one a line, that drive a job click by click exactly as the
// mouse, the keyboard and the dialogs would, through the same calls the desktop makes.
// Every prompt, message, question and dialog is printed as it happens.
//
//   TAG <name>                          a command tag, as a menu or a toolbar sends it
//   CLICK <button> <east> <north> [shift]  left, right, middle (or 1, 2, 4); metres
//   MOVE <east> <north>                 the pointer moves there
//   KEY <name>                          ESC, F1..F12, DELETE, INSERT, HOME, END, PAGEUP,
//                                       PAGEDOWN, UP, DOWN, LEFT, RIGHT, SPACE, NUM+, NUM-,
//                                       NUM/, a letter or a digit; CTRL+ in front for Ctrl
//   TYPE <text>                         typed in the box beside the drawing, then Enter
//   ANSWER <yes|no|cancel|ok|text>      queued for the next question or value prompt
//   FIELD [<dialog>.]<field> <text>     typed into a field of an open dialog
//   PASTE [<dialog>.]<field> <text>     pasted into it: no key press sees the text
//   PRESS [<dialog>.]<button>           a button of an open dialog
//   VIEW <east> <north> <height>        the view, as a zoom would set it
//   SAVE                                the job saved over its original
//   # comment
#pragma once

#include <deque>
#include <functional>
#include <istream>
#include <ostream>
#include <string>

#include "core/Porte.h"

namespace varena {

struct Sessione;

// The interface of a script: what is shown goes to `out` as one line each; questions and
// value prompts take the queued answers, or their defaults when none is left.
class InterfacciaScript : public Interfaccia {
 public:
  explicit InterfacciaScript(std::ostream& out) : out_(out) {}
  void Accoda(std::string risposta) { risposte_.push_back(std::move(risposta)); }
  size_t RisposteInAttesa() const { return risposte_.size(); }

  void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) override;
  Risposta Domanda(std::string_view testo, std::string_view titolo, Bottoni bottoni, Icona icona,
                   Risposta predefinita) override;
  std::optional<std::string> ScegliFile(bool salva, std::string_view titolo, std::string_view filtro,
                                        std::string_view cartella, std::string_view file) override;
  std::optional<std::string> Imputa(std::string_view testo, std::string_view titolo,
                                    std::string_view predefinito) override;
  void Prompt(std::string_view testo) override;
  void Progresso(int64_t, int64_t) override {}
  void MostraDialogo(const Dialogo& d) override;
  void NascondiDialogo(const Dialogo& d) override;
  void MenuContestuale(std::string_view nome) override;

  int Errori = 0;  // critical boxes shown

 private:
  std::ostream& out_;
  std::deque<std::string> risposte_;
};

// How a script ended.
struct EsitoScript {
  int Codice = 0;     // 0 done; 2 a line asked for what was not there; 64 a line not understood
  int Riga = 0;       // the line that stopped it
  std::string Errore;
};

// Runs the lines of `script` on `s`, whose interface must be `ui`. SAVE saves the job as the
// program's save does (`Salva`), or through `salva` when one is given. Stops at the first
// line that cannot be run.
EsitoScript EseguiScript(Sessione& s, InterfacciaScript& ui, std::istream& script, std::ostream& out,
                         const std::function<bool(Sessione&)>& salva = {});

}  // namespace varena
