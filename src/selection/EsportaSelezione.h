// The selection as command lines of an outside CAD, for pasting on its command line:
// points with their names, lines and circles.
#pragma once

#include <string>

namespace varena {

struct Sessione;

// `EsportaSelezione`: one line a selected row, ended by "\r": "_point x,y,z", then
// "_text x,y h 0 name" for its name, "_line x1,y1,z1 x2,y2,z2 " and "_circle x,y r".
// Commas are the coordinate separators: any comma of a number or a name becomes a point.
std::string EsportaSelezione(const Sessione& s);

}  // namespace varena
