// The division of a parcel: a cut line that the surveyor moves, by the pointer or by a step,
// until the part cut off has the wanted area. There is no search for a target: the area is
// shown after every move, and the surveyor steps and reads.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

struct TaglioArea {
  int Incroci = 0;         // crossings found, at most 2
  PuntoXYZ C1, C2;         // the first two crossings, in the order of the sides
  std::size_t I1 = 0, I2 = 0;  // the sides they are on (side i runs from vertex i to i + 1)
  double AreaParte = 0;    // the part from C1 through the vertices after side I1 to C2
};

// The contour (its n vertices; the first closes it again) cut by the infinite line A-B.
// Fewer than two crossings: a part of 0.
TaglioArea TagliaContorno(std::span<const PuntoXYZ> vertici, const PuntoXYZ& a, const PuntoXYZ& b);

// The state of the division while its dialog is up: the contour is its only copy.
struct StatoDivisione {
  std::vector<PuntoXYZ> Vertici;
  bool Rotazione = false;     // the line turns about `Perno`; else it keeps `Azimut` and translates
  int Punti = 0;              // points given so far after the contour: direction or pivot, then P
  PuntoXYZ Primo, Perno, P;   // the first direction point, the pivot, the moved point
  double Azimut = 0;          // of the line when it translates, radians
  PuntoXYZ A, B;              // the cut as drawn: its two crossings once found
  double AreaTotale = 0, AreaParte = 0;

  // The line through P as the mode says, cut against the contour; A and B become the
  // crossings when there are two.
  void Taglia();
};

}  // namespace varena
