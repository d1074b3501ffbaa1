// Start-up: where the program's data lives, the folder tree it makes, the defaults, and
// the job named on the command line, in `COMMON.CFG` or remembered from the last run.
#pragma once

#include <string>

namespace varena {

struct Sessione;

// `CartellaDocumenti` from $VARENA_DOCUMENTI or the user's documents folder,
// `CartellaLavoro` beneath it, `CartellaProgramma` from $VARENA_PROGRAMMA or the per-user
// data folder. Nothing is created.
void ImpostaCartelle(Sessione& s);

// The folder tree under the working root, in its fixed order. False when a folder could not
// be made (the common error box has been shown).
bool CreaAlberoCartelle(Sessione& s);

// `InizializzaDefault`: constants, defaults, settings and tables read at start, in the
// legacy order: toolbar layout, `Configura.ini`, SALVAINI, point codes, colours,
// thicknesses; then the current layer of PIANI.INI, line types, point configuration, note
// archive and municipalities. Missing tables are created, unless the session may not write.
void InizializzaDefault(Sessione& s);

// A job path as `COMMON.CFG` hands it over: upper-cased, split at its last ".".
struct NomeConEstensione {
  std::string Nome;
  std::string Estensione;
};
NomeConEstensione DividiNomeComune(const std::string& testo);

// How every entry point starts, the desktop program and each command of varena-cli alike:
// the folders (made, unless the session may not write), the defaults, the settings and the
// tables in force, SALVAINI among them, and empty entity tables. False when the folder tree
// could not be made (the error box has been shown).
bool AvviaSessione(Sessione& s);

// `VarenaLoad` without the window: `AvviaSessione`, then the job of the command line, of
// `COMMON.CFG` or of the last run.
void VarenaLoad(Sessione& s, const std::string& rigaComando);

// The part of `VarenaLoad` that picks and opens the job. The path handed over is made
// absolute against the current folder: the job is recorded by that name in its `.INF` and
// in `LavoriRecenti.txt`, which are read again from anywhere.
void ApriLavoroIniziale(Sessione& s, const std::string& rigaComando);

}  // namespace varena
