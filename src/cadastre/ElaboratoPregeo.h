// `FormImportaElaboraDatPregeo`: the rows of a `.DAT` Pregeo has computed, listed for the
// user to pick the ones the field book takes: its notes and its points with coordinates.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

struct RigaElaborato {
  std::string Testo;  // as the list shows it, the values of a point in columns
  std::string Libro;  // the book row it becomes
};
// The note rows and the rows 8 with a name and numeric coordinates, in file order. A point
// becomes "8|name|Nord|Est|Quota|", coordinates to at most six decimals, the height to three
// (no height: 0); a note keeps its text and gets "|0.00|0.00|0.00|".
std::vector<RigaElaborato> RigheElaborato(std::string_view testo);

// The rows picked in `testo` among `quante`: numbers from 1 and ranges, as "1-3,5"; nothing
// typed picks them all. None when the text names no such rows.
std::optional<std::vector<size_t>> RigheScelte(std::string_view testo, size_t quante);

// The menu's action: a `.DAT` chosen, its rows in the dialog; "Aggiungi" appends the rows
// picked to the book as one step.
void AzioneImportaElaboraDat(Sessione& s);

}  // namespace varena
