// Angle constants and the way numbers of measures are read from what the user types and
// shown back: radians inside the computations, gon and metres on the screen.
#pragma once

#include <cmath>
#include <string>
#include <string_view>

namespace varena {

// The one value of pi of the program, and the two conversions built on it. Computed, not
// written as literals, so that every angle of a job agrees to the last bit with the
// azimuths worked out from them.
inline const double PiGreco = 4.0 * std::atan(1.0);
inline const double RadToGon = 200.0 / PiGreco;
inline const double GonToRad = PiGreco / 200.0;

// A numeric text box: a comma becomes a point, then the leading number is taken; letters
// after it are ignored, an empty text is 0.
double LeggiNumero(std::string_view testo);

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
