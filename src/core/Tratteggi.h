// The line types of `linee.ini` in the program folder: `TabellaTratteggi`, each style with
// its name, its sample in characters and its elements in metres.
#pragma once

#include <array>
#include <string>

#include "core/Conversioni.h"

namespace varena {

struct Sessione;

inline constexpr int kMassimoTratteggi = 51;  // indexes 0..50; the file fills 1, 2, ...
inline constexpr int kMassimoElementi = 20;

struct Tratteggio {
  std::string NomeTratteggio;     // behind "*" up to the first comma
  std::string DisegnoTratteggio;  // the sample behind that comma, as the dialogs show it
  // Element 0 holds how many follow: above 0 a stroke, below 0 a gap, 0 a dot.
  std::array<double, kMassimoElementi + 1> Elementi{};
  double AngoloElemento = 0;  // gon from the line's azimuth; 0 for plain styles
  double ScalaElemento = 0;   // the numeric value the sample begins with
  int NumeroElementi() const { return InteroSaturato<int>(Elementi[0]); }
};

struct TabellaTratteggi {
  // Index 0 is no style at all: the plain line.
  std::array<Tratteggio, kMassimoTratteggi> Stili{};
  int NumeroTratteggi = 0;
};

// The file written when it is missing, line by line as it reaches the disk.
extern const char* const kTestoTratteggi;

std::string PercorsoTratteggi(const Sessione& s);

// `cARICAtRATTEGGI`: creates `linee.ini` when absent, then reads its pairs of lines into
// styles 1, 2, ... A 51st style is the table-bound error; the styles before it stay. A
// pattern line that does not begin "A," or holds something that is not a number gives a
// style with fewer elements.
void CaricaTratteggi(Sessione& s);

// The file as the saver writes it: "*" + name + "," + sample, and "A," + the elements.
std::string TestoTratteggi(const TabellaTratteggi& t);
// Writes `linee.ini` from the table, then the settings, which remember the default style.
void SalvaTratteggi(Sessione& s);

}  // namespace varena
