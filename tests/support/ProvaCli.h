// varena-cli run inside a test, with its output and its error stream read back.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "Comandi.h"
#include "core/CodicePagina.h"
#include "store/Cfg.h"
#include "support/Supporto.h"

namespace varena::prova {

struct EsitoCli {
  int stato;
  std::string out, err;
};

inline EsitoCli Cli(const std::vector<std::string>& argomenti) {
  std::ostringstream out, err;
  const int stato = cli::Esegui(argomenti, out, err);
  return {stato, out.str(), err.str()};
}

// A root for varena-cli: the documents at its top, the program in "programma", and an empty
// "lavori/" for the jobs.
struct RadiceCli {
  CartellaTemporanea radice;
  CartelleDelProgramma cartelle{radice.Percorso(), radice / "programma"};
  std::string lavori = radice / "lavori/";
  RadiceCli() { std::filesystem::create_directories(lavori); }
};

// The settings member of a new session, in the code page of the disk.
inline std::string CfgNuovo() {
  Sessione s;
  return Utf8InCp1252(TestoCfg(s));
}

}  // namespace varena::prova
