// Scripts: a text of actions, one a line, that drive a job click by click exactly as the
// mouse, the keyboard and the dialogs would, through the same calls the desktop makes.
// Every prompt, message, question and dialog is printed as it happens.
//
//   TAG <name>                          a command tag, as a menu or a toolbar sends it
//   CLICK <button> <east> <north> [shift]  left, right, middle (or 1, 2, 4); metres
//   CLICK <button> @<point> [shift]     at the point of that name
//   MOVE <east> <north> | MOVE @<point> the pointer moves there
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
//   SAVEAS <path>                       the job saved as another
//   EXPECT prompt <text>                checks of what the program shows and holds: the
//   EXPECT messaggio <text>             last prompt, the last message, a field of an open
//   EXPECT campo [<dialog>.]<field> <text>  dialog, a field of a row of the tables
//   EXPECT riga <slot> <row> <field> <value>
//   # comment
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <istream>
#include <optional>
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
  // The next file choice takes this path, ahead of the queued answers.
  void FileSuccessivo(std::string percorso) { file_ = std::move(percorso); }

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
  void AggiornaDialogo(const Dialogo& d) override;
  void NascondiDialogo(const Dialogo& d) override;
  void MenuContestuale(std::string_view nome) override;

  int Errori = 0;  // critical boxes shown
  // What the user last saw, as printed: the prompt (a cleared one is empty) and the message.
  std::string UltimoPrompt, UltimoMessaggio;
  // Everything shown so far: messages, questions, prompts for a value or a file, dialogs
  // opened, changed or closed, menus. A click after which it has not moved showed nothing.
  uint64_t Mostrati = 0;
  // In strict mode a question or a prompt that found no answer queued is a fault of the
  // script: its text, kept until the runner reads it.
  bool Rigoroso = false;
  std::string SenzaRisposta;

 private:
  std::optional<std::string> Risposta_();
  void RichiestaSenzaRisposta(std::string_view tipo, std::string_view testo);

  std::ostream& out_;
  std::deque<std::string> risposte_;
  std::optional<std::string> file_;
};

struct OpzioniScript {
  // A left click the command drops (nothing changes: no prompt, step, row, selection, view,
  // dialog or message), a question with no answer queued, a prompt cancelled for lack of an
  // answer: each stops the script with status 1, as a failed EXPECT does.
  bool Rigoroso = false;
  // SAVE; the program's save (`Salva`) when empty.
  std::function<bool(Sessione&)> Salva;
};

// How a script ended.
struct EsitoScript {
  // 0 done; 1 an EXPECT that does not hold, or a fault of strict mode; 2 a line asked for
  // what was not there; 64 a line not understood
  int Codice = 0;
  int Riga = 0;  // the line that stopped it
  std::string Errore;
};

// Runs the lines of `script` on `s`, whose interface must be `ui`. Stops at the first line
// that cannot be run.
EsitoScript EseguiScript(Sessione& s, InterfacciaScript& ui, std::istream& script, std::ostream& out,
                         const OpzioniScript& opzioni = {});

// Every dialog of the dialog table with its fields and buttons, as a script names them:
// "Nome [caption]", then one line a field ("  campo Nome \"label\"", `dato` for one the user
// only reads) and one a button ("  bottone Nome \"label\"").
void ElencaDialoghi(std::ostream& out);

}  // namespace varena
