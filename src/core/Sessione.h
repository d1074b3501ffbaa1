// One job at a time: the entity tables, the settings, the view, the command state and the
// ports, in one object that every routine receives by reference.
#pragma once

#include <array>
#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cadastre/StatoEstratto.h"
#include "cadastre/StatoLibretto.h"
#include "core/AltreImpostazioni.h"
#include "core/Codici.h"
#include "core/Colori.h"
#include "commands/StatoComandi.h"
#include "commands/StatoModifica.h"
#include "core/Comuni.h"
#include "core/Dialoghi.h"
#include "core/Impostazioni.h"
#include "core/ImpostazioniUtente.h"
#include "core/OrigineFile.h"
#include "core/Piani.h"
#include "core/SimboliUtente.h"
#include "core/Porte.h"
#include "core/Tabelle.h"
#include "core/Tratteggi.h"
#include "selection/StatoSelezione.h"
#include "store/Cfg.h"
#include "terrain/StatoTerreno.h"
#include "view/Elastico.h"
#include "view/IndiceAlbero.h"
#include "view/IndiceGriglia.h"
#include "view/ListaDisegno.h"
#include "view/StatoRigenerazione.h"
#include "view/StatoVista.h"
#include "view/Superficie.h"

namespace varena {

// The entity tables and the state of the interaction are its bases, so that their fields
// read as the routines name them: `s.PuntoX[i]`, `s.PassoComando`, `s.Punto1X`,
// `s.ValoreSelezione`, `s.FattoreScala`.
struct Sessione : TabelleEntita, StatoComandi, StatoSelezione, StatoModifica, StatoLibretto, StatoEstratto {
  Sessione();
  Sessione(const Sessione&) = delete;
  Sessione& operator=(const Sessione&) = delete;

  // Folders. `CartellaLavoro` is the working root and ends with a separator.
  std::string CartellaDocumenti;
  std::string CartellaLavoro;
  std::string CartellaProgramma;
  // Where a run that must leave the user's files alone (a script) keeps what it writes for
  // the user: the per-user toggles and the last selection. Empty: the program data folder
  // and the job's folder.
  std::string CartellaUtente;

  // The job: where it lives for the user, and its provisional copy; both without extension.
  std::string NomeOriginale;
  std::string NomeLavoro;
  std::string TipoFile = "CFG";  // the kind of input chosen at opening
  std::string Edizione;          // the tag read from `.CFG`, in force through a load
  // Rows of each slot that the last load left out for values that are not numbers.
  std::array<int32_t, NumeroSlot> RigheNonValide{};
  // Reading in place for a report: nothing may be created or removed, neither beside the
  // job nor among the tables and settings, which then stand at their defaults when absent.
  bool SolaLettura = false;

  CfgLavoro Cfg;
  Impostazioni Imp;
  StatoVista Vista;

  // The display list, made by regeneration (whole, or the rows changed), and the grids that keep a redraw to
  // what is near the view.
  ElencoDisegno ListaDisegno;
  IndiceGriglia IndiceLista;
  IndiceGriglia IndicePunti;
  // The trees of the nearest-entity searches, made with the grids.
  IndiciVicinanza Vicinanza;
  // Where each row's records stand in the list, for the regeneration after an edit.
  StatoRigenerazione Rigenerazione;
  int32_t ImmagineInCima = -1;  // the image painted over the others
  bool EvidenziaTutto = false;  // every point symbol in the highlight colour
  int16_t ModoStampa = 0;       // 5: the drawing routines write the plot stream
  // Point heights: decimals shown, and mode 1 shows the depth below the reference height.
  int DecimaliQuota = 2;
  int16_t ModoQuota = 0;
  double QuotaRiferimento = 0;
  // Facets: their display, labels and the hand-off to the triangulator.
  StatoTerreno Terreno;
  // The armed command's code; 0 when none waits for the pointer.
  int32_t ComandoCorrente = 0;

  std::vector<Piano> Piani;
  std::string PianoCorrente = "0";

  // Reference tables and the smaller setting files, read at start.
  TabellaColori Colori;
  TabellaSpessori Spessori;
  TabellaTratteggi Tratteggi;
  TabellaCodici Codici;
  TabellaComuni Comuni;
  ArchivioNote Note;
  ToolbarBottoni Toolbar;
  ConfigurazionePunti ConfiguraPunti;
  TabellaSimboli Simboli;  // the user's point symbols, for the whole program
  StampaPaginato Paginato;
  // Where each of them, and each setting file, was read from.
  std::vector<OrigineFile> FileRiferimento;

  // The field book, one text row each; its count is also `ContaEntita[15]`.
  std::vector<std::string> LibrettoMisure;
  std::string Testo126;
  std::string TestoCel;
  // Members whose meaning belongs to later work, kept as read so that a save loses nothing.
  std::map<int, std::string> MembriConservati;
  // The members the last load read with an error: the tables hold only part of them, so no
  // snapshot and no save writes them again, and a save leaves them and their backups as
  // they stand.
  std::array<bool, NumeroSlot> MembroGuasto{};

  // The undo generations share unchanged members through hard links; false gives each
  // generation copies of its own, as on a file system without links.
  bool CollegaGenerazioni = true;
  // The files the last save put in place beside the original, for the reports.
  std::vector<std::string> FileSalvati;

  // The text of the status prompt under the drawing, as last shown (`MostraPrompt`).
  std::string Prompt;

  // The modeless dialogs open, in the order they were opened.
  std::vector<std::unique_ptr<Dialogo>> Dialoghi;
  // The per-user toggles (the display of names, heights, lines ...).
  ImpostazioniUtente PreferenzeUtente;
  // Rubber bands and guides on screen, and the temporary polyline of a command.
  varena::Elastico Elastico;
  varena::SpezzataTemporanea SpezzataTemporanea;

  // The routine tag of the common error path, and the last error it showed.
  std::string RoutineCorrente;
  std::string UltimoErrore;

  // The clock of time stamps and of the field book's date; tests set a fixed one.
  std::function<std::time_t()> Orologio = [] { return std::time(nullptr); };

  // Ports: never null; they point at the mute defaults until the owner sets them.
  Interfaccia* Ui;
  Processi* Proc = nullptr;
  // The drawing surface of the main window; none in a headless run.
  Superficie* Schermo = nullptr;
  Appunti* Clip;

 private:
  InterfacciaMuta uiMuta_;
  AppuntiInterni clipInterni_;
};

// A file of the program's own folder, by its name there ("temp/Associa.EMP").
std::string FileProgramma(const Sessione& s, std::string_view nome);
// Whether the program's folder may be written: not in a read-only run, and not by a session
// that has none (a bare job in a test or a benchmark, whose files would land at the root).
bool ScriveNelProgramma(const Sessione& s);

// `ClearAllTables`: every table back to its initial capacity, every count 0, the job-level
// texts empty. Memory only, no file: cheap for the loaders and the tests.
void ClearAllTables(Sessione& s);
// The clearing of a job as the program does it when another job takes its place: the
// drawing defaults in force are kept in SALVAINI5.INI and SALVAINI.INI for the next one,
// then `ClearAllTables`.
void AzzeraTabelleLavoro(Sessione& s);

// Shows a text in the status prompt and keeps it, so that a zoom can put it back.
void MostraPrompt(Sessione& s, std::string_view testo);

// `AggiungiRigaLibretto`: the one entry point that appends a field-book row, trimmed.
void AggiungiRigaLibretto(Sessione& s, const std::string& riga);

}  // namespace varena
