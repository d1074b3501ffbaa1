// The row builders of the commands: one row appended to a table, with the drawing
// defaults in force, and its records to the display list, so that no regeneration is
// needed for a plain addition.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "survey/Primitive.h"

namespace varena {

struct Sessione;

// `ScriviLinea`: a line from `a` to `b` in `Colore_Default`, `Tratteggio_Default` and the
// layer given. Returns its row.
int32_t ScriviLinea(Sessione& s, const PuntoXYZ& a, const PuntoXYZ& b, std::string_view piano);

// A point named `nome` on `piano`, drawn as its class of the point configuration ("PF",
// the stations, the others) says. Returns its row.
int32_t ScriviPunto(Sessione& s, std::string_view nome, const PuntoXYZ& p, std::string_view descrizione,
                    std::string_view piano);

// After a point named `nome`: the new-point dialog, when open, offers the name that follows
// as its numbering asks, or `nome` again when the numbering is off, for the user to change.
void ProponiProssimoNome(Sessione& s, const std::string& nome);

// A point computed by a command, through the new-point dialog: its name (the next free one
// when the dialog is closed or its name empty), description and layer; the next name
// offered, and the undo snapshot. Returns its row.
int32_t InserisciPuntoNuovo(Sessione& s, const PuntoXYZ& p);

}  // namespace varena
