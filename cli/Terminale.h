// What the command line shares between its commands: an interface that writes the boxes
// to the error stream, and the reading of a job in place.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "core/Porte.h"

namespace varena {
struct Sessione;
}

namespace varena::cli {

// Boxes go to the error stream; questions take their default; critical boxes are counted.
class InterfacciaTerminale : public InterfacciaMuta {
 public:
  explicit InterfacciaTerminale(std::ostream& err) : err_(err) {}
  void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) override;
  int Errori = 0;

 private:
  std::ostream& err_;
};

// The job's base path from a name given with or without ".CFG", in any letter case: absolute,
// as the files on disk spell it.
std::optional<std::string> BaseLavoro(const std::string& argomento);

// Reads the job where it stands, writing nothing anywhere. False, with a message, when the
// job is not there.
bool CaricaInLettura(Sessione& s, const std::string& argomento, std::ostream& err);

}  // namespace varena::cli
