// varena-cli run inside a test, with its output and its error stream read back.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "Comandi.h"

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

}  // namespace varena::prova
