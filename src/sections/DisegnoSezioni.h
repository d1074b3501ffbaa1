// `Rigenera sezione`: a section as lines and texts of the display list, in sheet metres,
// with its rows of values under the datum line and its frame.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "sections/Sezione.h"

namespace varena {

struct Sessione;

// One row of the section table; the frame it draws is kept in the row, for picking.
void RigeneraSezione(Sessione& s, int32_t riga);

// The progressive of each station along the plan line, 0 at the first.
std::vector<double> Progressive(const Sezione& z);

// The width of the column of row titles at the left of a section, in sheet metres: 2 cm of
// paper at the scale of lengths.
double ScalaSezione(double scalaLunghezze);

// The areas between terrain and project, square metres of the ground (heights not
// exaggerated): cut where the terrain stands above the project, fill where below. A stretch
// where the two cross is split at the crossing.
struct AreeSezione {
  double Sterro = 0, Riporto = 0;
};
AreeSezione AreeSterroRiporto(const Sezione& z);
// The same zone by zone: a run of stretches of one sign, from progressive `Da` to `A`.
struct ZonaArea {
  bool Sterro;
  double Area, Da, A;
};
std::vector<ZonaArea> ZoneSterroRiporto(const Sezione& z);

// The plan distance from the previous live section of the table, between the middles of
// the two lines of stations; none for the first.
std::optional<double> DistanzaDaPrecedente(const Sessione& s, int32_t riga);

}  // namespace varena
