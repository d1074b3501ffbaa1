// One job at a time: the entity tables, the settings, the view, the command state and the
// ports, in one object that every routine receives by reference.
#pragma once

#include <array>
#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/Impostazioni.h"
#include "core/Piani.h"
#include "core/Porte.h"
#include "core/Tabelle.h"
#include "store/Cfg.h"
#include "view/StatoVista.h"
#include "view/Superficie.h"

namespace varena {

struct Sessione : TabelleEntita {
  Sessione();
  Sessione(const Sessione&) = delete;
  Sessione& operator=(const Sessione&) = delete;

  // Folders. `CartellaLavoro` is the working root and ends with a separator.
  std::string CartellaDocumenti;
  std::string CartellaLavoro;
  std::string CartellaProgramma;

  // The job: where it lives for the user, and its provisional copy; both without extension.
  std::string NomeOriginale;
  std::string NomeLavoro;
  std::string TipoFile = "CFG";  // the kind of input chosen at opening
  std::string Edizione;          // the tag read from `.CFG`, in force through a load
  // Reading a job in place for a report: nothing may be created beside it.
  bool SolaLettura = false;

  CfgLavoro Cfg;
  Impostazioni Imp;
  StatoVista Vista;

  std::vector<Piano> Piani;
  std::string PianoCorrente = "0";

  // The field book, one text row each; its count is also `ContaEntita[15]`.
  std::vector<std::string> LibrettoMisure;
  std::string Testo126;
  std::string TestoCel;
  // Members whose meaning belongs to later work, kept as read so that a save loses nothing.
  std::map<int, std::string> MembriConservati;

  // The undo generations share unchanged members through hard links; false gives each
  // generation copies of its own, as on a file system without links.
  bool CollegaGenerazioni = true;
  // The files the last save put in place beside the original, for the reports.
  std::vector<std::string> FileSalvati;

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

// `ClearAllTables`: every table back to its initial capacity, every count 0, the job-level
// texts empty.
void ClearAllTables(Sessione& s);

// `AggiungiRigaLibretto`: the one entry point that appends a field-book row, trimmed.
void AggiungiRigaLibretto(Sessione& s, const std::string& riga);

}  // namespace varena
