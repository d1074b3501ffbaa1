// Where a table or setting file was read from, for the report of the settings in force.
#pragma once

#include <string>

namespace varena {

enum class StatoFile {
  Letto,    // read from the file
  Creato,   // absent: written with the defaults, then read back
  Assente,  // absent and not written: the defaults in memory
  Errato,   // read with an error: what came before the error, or the defaults
};
const char* NomeStato(StatoFile stato);

struct OrigineFile {
  std::string Nome;      // the file's usual name, "COLORI.ini"
  std::string Percorso;  // where it was read, or looked for
  StatoFile Stato = StatoFile::Assente;
};

}  // namespace varena
