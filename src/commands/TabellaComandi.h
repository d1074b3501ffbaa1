// The command table: every tag the menus, the toolbars, the keyboard and the dialogs send,
// with the code it arms, its first prompt, the snap it sets, the dialog it opens first, and
// where the desktop lists it. Dispatch, arming and the menus all read this one table. A
// second table gives, by code, the routine that owns the steps and the rubber band shown.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

enum class GenereComando : uint8_t {
  Arma,    // stores a code and waits for the pointer
  Subito,  // acts at once
  Zoom,    // a view change: the armed command goes on undisturbed
  Snap,    // a snap mode for the next click: the armed command goes on
};

// `Snap` of an arming row: keep the mode in force (the last command's), or set one.
inline constexpr int16_t kSnapInVigore = 0;

struct VoceComando {
  std::string_view Tag;
  GenereComando Genere;
  int16_t Codice;            // the code armed (the mode, for a snap tag); 0 when none
  std::string_view Prompt;   // the first prompt
  int16_t Snap;              // kSnapInVigore, or the mode set at arming
  // The dialog opened before the first prompt. "Imputa" is the value prompt of the
  // interface, asked with `Domanda`; any other name is a dialog of the dialog table.
  std::string_view Dialogo;
  std::string_view Domanda;
  // What a tag that acts at once does; none for the tags of work that is not here yet,
  // which are known and do nothing.
  void (*Azione)(Sessione&);
  std::string_view Menu;     // the menu the desktop lists it under; empty: no menu entry
  std::string_view Voce;     // the entry's caption
  // The key on the drawing that does the same, as the user reads it on the keyboard ("F9",
  // "Pag Su", the letter of a snap), or "_N" for what is typed in the text box; empty: none.
  std::string_view Tasto = {};
};

std::span<const VoceComando> TabellaComandi();
// The row of a tag (already in upper case), or null.
const VoceComando* CercaTag(std::string_view tag);
// The first row that arms `codice`, or null.
const VoceComando* VocePerCodice(int32_t codice);
int32_t IndiceVoce(const VoceComando* voce);

// What follows the pointer while a command waits for its next click.
enum class FormaElastico : uint8_t {
  Nessuna,
  Linea,          // from `Punto1` to the pointer, at step 1
  Cerchio3P,      // 132: on the diameter at step 1, through three points at step 2
  CerchioCentro,  // 133: about `Punto1`, through the pointer
  CerchioRaggio,  // 134: about the pointer, of the radius typed
  Arco3P,         // 135: a line at step 1, the arc through three points at step 2
  ArcoSerie,      // 186: about the series' centre
  ArcoCentro,     // 137: about the centre, from `Punto1`
};

struct SchedaCodice {
  int32_t Codice;
  // The routine that owns the steps; none for a command whose work is not here yet: it arms
  // and prompts, and its clicks change nothing.
  void (*Routine)(Sessione&);
  FormaElastico Elastico;
  // A prompt made at arming from the state (the height copied by 320 ...), in place of the
  // row's.
  std::string (*PromptDinamico)(const Sessione&);
};

// The card of a code, or null when the code has none.
const SchedaCodice* SchedaPerCodice(int32_t codice);

// Whether the core does the work of a tag, which the desktop then offers: a tag that acts at
// once has its action or a dialog with a builder; a command on a selection has work on the
// rows once they are confirmed; any other command has a routine for its clicks. A dialog
// opened before the first prompt that has no builder yet is skipped, and the command runs
// with the values in force.
bool TagEseguibile(std::string_view tag);

// Codes of commands on a selection: `Selezentita` opens before any prompt.
bool CodiceDiSelezione(int32_t codice);
// Codes whose right button shows a dialog instead of ending the command.
bool CodiceDiContorno(int32_t codice);

}  // namespace varena
