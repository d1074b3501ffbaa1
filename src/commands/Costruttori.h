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

// `ScriviLinea` with every attribute of line `modello` (colour, type, layer, length label,
// truncation, frozen flag): a parallel or a copy of it.
int32_t ScriviLineaCome(Sessione& s, const PuntoXYZ& a, const PuntoXYZ& b, int32_t modello);

// `ScriviCerchio`: a circle in `Colore_Default`, `Tratteggio_Default` and the layer given.
int32_t ScriviCerchio(Sessione& s, const PuntoXYZ& centro, double raggio, std::string_view piano);
// A circle with the attributes of circle `modello`.
int32_t ScriviCerchioCome(Sessione& s, const PuntoXYZ& centro, double raggio, int32_t modello);

// `ScriviArco`: an arc from azimuth `inizio` clockwise through `ampiezza`, both in gon, the
// amplitude made positive by whole turns; the height runs from `zInizio` to `zFine`.
int32_t ScriviArco(Sessione& s, const PuntoXYZ& centro, double raggio, double inizio, double ampiezza,
                   double zInizio, double zFine, std::string_view piano);
// An arc with the attributes of arc `modello`.
int32_t ScriviArcoCome(Sessione& s, const PuntoXYZ& centro, double raggio, double inizio, double ampiezza,
                       int32_t modello);

// `ScriviTesto`: a text whose foot stands at (x, y), turned by `rotazione` gon
// counter-clockwise from East.
int32_t ScriviTesto(Sessione& s, double x, double y, std::string_view testo, double altezza, double rotazione,
                    int32_t colore, std::string_view font, std::string_view piano);

// A picture of `larghezza` by `altezza` pixels at `scala` metres a pixel, its top left
// corner at (x, y).
int32_t ScriviImmagine(Sessione& s, std::string_view file, double x, double y, double larghezza, double altezza,
                       double scala, std::string_view piano);
// After a point named `nome`: the new-point dialog, when open, offers the name that follows
// as its numbering asks, or `nome` again when the numbering is off, for the user to change.
void ProponiProssimoNome(Sessione& s, const std::string& nome);

// A point computed by a command, through the new-point dialog: its name (the next free one
// when the dialog is closed or its name empty), description and layer; the next name
// offered, and the undo snapshot. Returns its row.
int32_t InserisciPuntoNuovo(Sessione& s, const PuntoXYZ& p);

}  // namespace varena
