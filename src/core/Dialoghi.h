// The modeless dialogs of the core: a caption, named fields that hold typed text and named
// buttons that run their action. The open ones are kept in the session; the interface is
// told when one opens, changes or closes, and shows it as it can. A test or a script fills
// the fields and presses the buttons exactly as the user would.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

struct CampoDialogo {
  std::string Nome;       // how scripts and code name it
  std::string Etichetta;  // what the user reads beside it
  std::string Testo;      // what the user typed, as typed
  // A value the dialog shows (the head of a computation): nothing can be typed into it.
  bool SoloLettura = false;
  // The dialog turns a "," into "." as the key goes down, and reads the text as it stands:
  // a comma that got in another way (pasted) ends the number. The other fields keep the
  // comma as typed and read it as a point.
  bool VirgolaAlTasto = false;
  // Values offered in a drop-down list; any other text may still be typed.
  std::vector<std::string> Scelte;
};

struct BottoneDialogo {
  std::string Nome;
  std::string Etichetta;
  // Runs on a press. It may close its own dialog, or open others.
  std::function<void(Sessione&)> Azione;
};

struct Dialogo {
  std::string Nome;    // the form's name: one dialog of a name is open at a time
  std::string Titolo;  // the caption
  std::vector<CampoDialogo> Campi;
  std::vector<BottoneDialogo> Bottoni;
  std::string BottoneEsc;  // the button Esc presses; empty: Esc does nothing here
  // A dialog of the command in progress: it closes with the working dialogs, when another
  // tag arrives or the command ends.
  bool DiLavoro = false;

  CampoDialogo* Campo(std::string_view nome);
  const CampoDialogo* Campo(std::string_view nome) const;
  // The text of a field, empty when there is no such field.
  std::string Valore(std::string_view nome) const;
  // The number typed in a field, a comma read as a point (but in a field that turns the
  // comma at the key press); 0 when it holds none.
  double Numero(std::string_view nome) const;
  const BottoneDialogo* Bottone(std::string_view nome) const;

  // Building helpers.
  Dialogo& AggiungiCampo(std::string nome, std::string etichetta, std::string testo = {});
  // A field the user only reads.
  Dialogo& AggiungiDato(std::string nome, std::string etichetta, std::string testo);
  Dialogo& AggiungiBottone(std::string nome, std::string etichetta, std::function<void(Sessione&)> azione);
};

// Opens `d`, closing first a dialog of the same name; returns the one now open.
Dialogo& ApriDialogo(Sessione& s, Dialogo d);
// Closes the dialog of that name, if open (a name matched without regard to case).
void ChiudiDialogo(Sessione& s, std::string_view nome);
Dialogo* TrovaDialogo(Sessione& s, std::string_view nome);
bool DialogoAperto(const Sessione& s, std::string_view nome);

// The core writes into a field of an open dialog (a proposed name, a computed value) and
// the interface is told.
void AggiornaCampo(Sessione& s, std::string_view dialogo, std::string_view campo, std::string testo);

// What the user does. An empty dialog name means the most recently opened dialog that has
// such a field (or button). False when there is no such dialog, field or button, or when the
// field is one the user only reads. `ScriviCampo` is text typed key by key; `IncollaCampo`
// text pasted, which no key press has seen.
bool ScriviCampo(Sessione& s, std::string_view dialogo, std::string_view campo, std::string testo);
bool IncollaCampo(Sessione& s, std::string_view dialogo, std::string_view campo, std::string testo);
bool PremiBottone(Sessione& s, std::string_view dialogo, std::string_view bottone);

}  // namespace varena
