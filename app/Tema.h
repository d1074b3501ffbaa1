// The light and the dark look of the window. The drawing keeps its own background colour,
// which belongs to the job's settings, whatever the theme.
#pragma once

#include <QString>

namespace varena {

enum class Tema { Sistema, Chiaro, Scuro };

// "chiaro", "scuro", anything else the desktop's own.
Tema TemaDaNome(const QString& nome);
QString NomeTema(Tema t);
// Sets the palette of the whole program; `Sistema` goes back to the desktop's.
void ApplicaTema(Tema t);
// Whether the palette in force is a dark one (its windows darker than their text).
bool PaletteScura();

}  // namespace varena
