// The field book made from the drawing: the `.LXC` exchange file of the points, lines and
// contours, handed to the field-book manager, and the book it makes read back.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

// The rows of the `.LXC`: the live points, the live lines that are not frozen, the live
// contours with a kind.
std::vector<std::string> RigheLXC(const Sessione& s);
// `SalvaGraficaxLibretto`: the book saved with its extract row, then `<job>.LXC` beside it.
// The path written; none when a file could not be written (already said).
std::optional<std::string> SalvaGraficaxLibretto(Sessione& s);

// `LIBRETTO_DA_DISEGNO`: the question on numeric descriptions, the `.LXC`, the manager, and
// the book it wrote loaded back.
void AzioneLibrettoDaDisegno(Sessione& s);
// `INFO_MISURATE`: the `.LXC`, and the manager asked for the measured distances.
void AzioneInfoMisurate(Sessione& s);

}  // namespace varena
