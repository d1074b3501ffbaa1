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

// `LineePuntiEstremi`: the lines both of whose ends lie on named points, the measures the
// drawing holds. `kCodiceMisurate` asks for them as pairs of names, for the measured
// distances from a station; any other code as the plan distance of each pair.
inline constexpr int kCodiceMisurate = 222;
struct EstremiLinee {
  // The stations at either end of the tied lines, once each in drawing order: names ending
  // in "00", as stations are named throughout the program.
  std::vector<std::string> Stazioni;
  std::vector<std::string> Righe;  // one a tied line
};
EstremiLinee LineePuntiEstremi(const Sessione& s, int codice);

// `INFO_MISURATE`: the list with the distances; its button writes the `.LXC` and asks the
// manager for the measured distances.
void AzioneInfoMisurate(Sessione& s);
// `MISURATE_DA_STAZIONE`: the list as pairs and its stations; the button hands the station
// picked to the manager. "Non è stata trovata nessuna Stazione nel Disegno!" with none.
void AzioneMisurateDaStazione(Sessione& s);

}  // namespace varena
