// Test helpers: a temporary folder, records built byte by byte, and a session that records
// what it shows. Fixtures are written here with plain streams, never with the code under test.
#pragma once

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "core/File.h"
#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"

namespace varena::prova {

class CartellaTemporanea {
 public:
  CartellaTemporanea();
  ~CartellaTemporanea();
  CartellaTemporanea(const CartellaTemporanea&) = delete;
  CartellaTemporanea& operator=(const CartellaTemporanea&) = delete;
  const std::string& Percorso() const { return percorso_; }
  std::string operator/(const std::string& nome) const { return percorso_ + "/" + nome; }

 private:
  std::string percorso_;
};

// A fixed-length record, built field by field at explicit offsets.
class Record {
 public:
  explicit Record(size_t lunghezza, char riempi = '\0') : byte_(lunghezza, riempi) {}
  Record& I16(size_t off, int16_t v) { return Metti(off, v); }
  Record& F32(size_t off, float v) { return Metti(off, v); }
  Record& F64(size_t off, double v) { return Metti(off, v); }
  Record& U8(size_t off, uint8_t v) { return Metti(off, v); }
  // A text field: the bytes given, then blanks to the width.
  Record& Car(size_t off, size_t larghezza, const std::string& byte) {
    for (size_t i = 0; i < larghezza; ++i) byte_[off + i] = i < byte.size() ? byte[i] : ' ';
    return *this;
  }
  const std::string& Byte() const { return byte_; }

 private:
  template <class T>
  Record& Metti(size_t off, T v) {
    std::memcpy(byte_.data() + off, &v, sizeof v);
    return *this;
  }
  std::string byte_;
};

void ScriviFileProva(const std::string& percorso, const std::string& byte);
std::string LeggiFileProva(const std::string& percorso);
bool Esiste(const std::string& percorso);

// A point record with the usual values, for tests that change one field.
Record RecordPuntoBase(const std::string& nome, double x, double y, double z);

// `s` over the working root `cartella`, speaking through `ui`, with a fixed clock
// (21 November 2026, 10:30:15 local time).
void PreparaSessione(Sessione& s, Interfaccia& ui, const CartellaTemporanea& cartella);

// A session over a temporary working root, with a recording interface.
struct SessioneProva {
  CartellaTemporanea cartella;
  InterfacciaRegistrata ui;
  Sessione s;
  SessioneProva();
  // The path of a job `nome` in the temporary folder, without extension.
  std::string Lavoro(const std::string& nome) const { return cartella / nome; }
};

std::time_t OrologioFisso();

// The members of a job as they stand: extension of the slot table -> bytes, for the
// extensions whose file exists under exactly `base` + extension.
std::map<std::string, std::string> MembriDi(const std::string& base);
// The same for the backup extensions.
std::map<std::string, std::string> BackupDi(const std::string& base);
// Every file name in a folder (not recursive).
std::vector<std::string> NomiIn(const std::string& cartella);

// The fault seam of the file layer, set for the life of the object.
struct SondaProva {
  explicit SondaProva(SondaGuasti sonda) { ImpostaSondaGuasti(std::move(sonda)); }
  ~SondaProva() { ImpostaSondaGuasti(nullptr); }
  SondaProva(const SondaProva&) = delete;
  SondaProva& operator=(const SondaProva&) = delete;
};

// The documents' and the program's folders the command line and the start-up find, pointed
// at the given ones for the life of the object.
struct CartelleDelProgramma {
  CartelleDelProgramma(const std::string& documenti, const std::string& programma);
  ~CartelleDelProgramma();
  CartelleDelProgramma(const CartelleDelProgramma&) = delete;
  CartelleDelProgramma& operator=(const CartelleDelProgramma&) = delete;
};

// The example job copied under `cartella` as RILIEVO.*; its path without extension.
std::string CopiaEsempio(const std::string& cartella);

// `n` bytes no text table holds: NUL, control and high bytes, commas and line ends.
std::string Spazzatura(size_t n);

// A line of the fiducial archive, the columns its reader takes: PF `numero` of sheet 12 of
// municipality A123, at the given North and East (12 wide), without its line end.
std::string RigaFiduciale(int numero, const std::string& nord = "    2000.000", const std::string& est = "    1000.000");

// A `.CFG` written by hand: the tag, block A with its 152 statements (each with its empty
// label, strings "x", numbers 1), block B up to statement 17 with `vista` as statement 15
// ("E,N,H"), then `coda` as it stands.
std::string CfgManuale(const std::string& edizione, const std::string& vista, const std::string& coda = "");
std::string BloccoAManuale();

}  // namespace varena::prova
