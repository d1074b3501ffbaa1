// The colour table `COLORI.ini` of the program folder and the line thicknesses
// `SPESSORI1.ini` of the working root, both indexed by the colour of an entity.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "view/Superficie.h"

namespace varena {

struct Sessione;

inline constexpr int kMassimoColori = 257;

inline constexpr ColoreRGB ImpaccaRGB(int rosso, int verde, int blu) {
  return (static_cast<ColoreRGB>(rosso) << 16) | (static_cast<ColoreRGB>(verde) << 8) | static_cast<ColoreRGB>(blu);
}

struct TabellaColori {
  // Index 1..257 by line order; index 0 and the indexes the file does not reach are black.
  std::array<ColoreRGB, kMassimoColori + 1> Colore{};
  // The fourth value of each row, kept as read (the default rows number themselves).
  std::array<int32_t, kMassimoColori + 1> Quarto{};
  int NumeroColori = 0;
  // The packed colour of an index; black outside the table.
  ColoreRGB operator[](int indice) const {
    return indice >= 0 && indice <= kMassimoColori ? Colore[static_cast<size_t>(indice)] : 0;
  }
};

inline constexpr const char* kTestoColori =
    "255,0,0,1\r\n255,255,0,2\r\n0,255,0,3\r\n0,255,255,4\r\n0,0,255,5\r\n255,0,255,6\r\n"
    "255,255,255,7\r\n65,65,65,8\r\n128,128,128,9\r\n";

// Entries 0..256, each 1.0 until a line of the file gives it a value.
inline constexpr int kMassimoSpessori = 256;
struct TabellaSpessori {
  std::array<float, kMassimoSpessori + 1> Spessore;
  int Letti = 0;
  TabellaSpessori() { Spessore.fill(1.0f); }
};

std::string PercorsoColori(const Sessione& s);
std::string PercorsoSpessori(const Sessione& s);

// `CaricaColori`: creates the file with the nine default rows when absent, then reads
// "red,green,blue,fourth" rows into 1, 2, ... A row past 257 is the table-bound error; the
// rows before it stay. A component outside 0..255 is taken to the nearer end.
void CaricaColori(Sessione& s, const std::string& percorso);
// `CaricaSpessori`: every entry 1.0, then one number a line into 1, 2, ... up to 256.
// An absent file leaves them all at 1.0 and is not created: the thickness dialog writes it.
void CaricaSpessori(Sessione& s, const std::string& percorso);

}  // namespace varena
