// `Rigenera sezione`: a section as lines and texts of the display list, in sheet metres,
// with its rows of values under the datum line and its frame.
#pragma once

#include <cstdint>

namespace varena {

struct Sessione;

// One row of the section table; the frame it draws is kept in the row, for picking.
void RigeneraSezione(Sessione& s, int32_t riga);

// The width of the column of row titles at the left of a section, in sheet metres: 2 cm of
// paper at the scale of lengths.
double ScalaSezione(double scalaLunghezze);

}  // namespace varena
