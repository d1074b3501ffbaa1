// Angle constants and the way numbers of measures are read from what the user types and
// shown back: radians inside the computations, gon and metres on the screen.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

namespace varena {

// The one value of pi of the program, and the two conversions built on it. Pi is the double
// that 4 atan(1) gives, to the last bit, so that every angle of a job agrees with the
// azimuths worked out from atan. Constants of the compiler, not values computed at start:
// a constant of another file built on them at static initialisation would otherwise read
// them before they are set (0) under one compiler and after under another.
inline constexpr double PiGreco = 0x1.921fb54442d18p+1;
inline constexpr double RadToGon = 200.0 / PiGreco;
inline constexpr double GonToRad = PiGreco / 200.0;

// A numeric text box: a comma becomes a point, then the leading number is taken; letters
// after it are ignored, an empty text is 0.
double LeggiNumero(std::string_view testo);
// Whether a box holds a number and nothing else (blanks around it allowed, a comma read as
// the decimal point): the test of the boxes that refuse what is not a measure.
bool TestoNumerico(std::string_view testo);

// A number of the survey dialogs and their reports through its mask: every decimal place
// of the mask is shown, zeros included, so that an angle of 50 gon reads "50.0000" and a
// height of 10.2 m "10.200": a measure is never taken for one read to fewer places. The
// integer part follows the mask as everywhere else.
std::string FormatoRilievo(double valore, std::string_view maschera);
// Azimuths and angles in gon: four decimals ("#########0.###0").
std::string TestoGon(double gon);
// Distances and heights in metres: three decimals ("#########0.##0").
std::string TestoMetri(double metri);
// Up to four decimals and no leading zero ("##########.####").
std::string TestoQuattroDecimali(double valore);

}  // namespace varena
