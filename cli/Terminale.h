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
// as the files on disk spell it. An archive ".VRZ" stands for its job: its path is kept whole,
// and `ApriInCopia` and `CaricaInLettura` open it as the job it holds.
std::optional<std::string> BaseLavoro(const std::string& argomento);

// `BaseLavoro`, and the message when the job is not there.
std::optional<std::string> TrovaLavoro(const std::string& argomento, std::ostream& err);

// Opens the job at `base` as the program opens it, in a provisional copy where all the work is
// done: only a save brings it back over the original. False when the program's settings could
// not be set up (already said).
bool ApriInCopia(Sessione& s, const std::string& base);

// Reads the job where it stands, writing nothing anywhere. False, with a message, when the
// job is not there.
bool CaricaInLettura(Sessione& s, const std::string& argomento, std::ostream& err);

}  // namespace varena::cli
