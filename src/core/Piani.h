// The layer table of the job, member `.PIA`: one "|"-separated line per layer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

struct Piano {
  std::string Nome = "0";
  int16_t Flag1 = 0;
  int32_t Colore = 1;
  int32_t Tratteggio = 0;
  int32_t Spessore = 1;
  std::string Font = "Arial";
  int16_t Flag6 = 0;
  int16_t Flag7 = 0;
  int16_t Flag8 = 0;
};

inline constexpr int kMassimoPiani = 257;
inline constexpr const char* kRigaPianoDefault = "0|0|1|0|1|Arial|0|0|";

// One `.PIA` line, with its repairs.
Piano LeggiRigaPiano(const std::string& riga);
std::string ScriviRigaPiano(const Piano& p);

// `Carica Piani`: reads the `.PIA` of `NomeLavoro`, creating it with the default line
// when absent. More than 257 layers is the table-bound error; the rows before it stay.
// A member that fails before its first layer (not text at all) leaves the default layer.
void CaricaPiani(Sessione& s);

// `PIANI.INI` in the working root: one string, the layer that is current when the program
// starts. Created with "0" when absent.
inline constexpr const char* kTestoPianoDefault = "\"0\"\r\n";
std::string PercorsoPianoDefault(const Sessione& s);
// `Carica Piani 1`: sets `PianoCorrente` from it.
void CaricaPiani1(Sessione& s);

}  // namespace varena
