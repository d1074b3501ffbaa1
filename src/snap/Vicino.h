// The nearest-entity searches. There is no pick aperture: a click resolves to the nearest
// entity however far it is, within limits of hundreds of view heights. Each search gives
// the same row as a scan of its table from row 0 up in which a later row at an equal
// distance wins; trees keep a click to what is near it.
#pragma once

#include <cstdint>
#include <string_view>

#include "snap/RisultatoVicina.h"

namespace varena {

struct Sessione;

// The outcome of a search of one kind; `Riga` -1 when nothing qualifies.
struct Vicina {
  int32_t Riga = -1;       // row of the entity's table
  int64_t RigaLista = -1;  // the display-list record, for the kinds searched in the list
  double Distanza = 0;
};

// Limits, in view heights: points are sought ten times as far as the rest.
inline constexpr double kLimitePunti = 2000;
inline constexpr double kLimiteEntita = 200;
inline constexpr double kLimiteGenerale = 1000;

// A point, at `X` and `Y` + `PuntoSpoY` (the East offset of the label is not added: a
// quirk that stands). Skipped: deleted points, and points whose symbol and name are both
// frozen.
Vicina IlPiuVicinoPunto(const Sessione& s, double x, double y);
// Display-list lines of kind 2, by distance to the segment; `Riga` is the line's row.
Vicina IlPiuVicinoLinea(const Sessione& s, double x, double y);
// Circles, by the distance to the centre less the radius, taken absolute.
Vicina IlPiuVicinoCerchio(const Sessione& s, double x, double y);
// Arcs, by the distance to the curve: to the circle where the pointer's direction from the
// centre falls within the arc, to the nearer end elsewhere.
Vicina IlPiuVicinoArco(const Sessione& s, double x, double y);
// Texts, by the distance to the insertion point.
Vicina IlPiuVicinoTesto(const Sessione& s, double x, double y);
// Display-list lines of kinds 6, 7, 12, 14 (`Riga` is then the list record, as the
// commands that highlight it want) and the frames of images, kind 13 (`Riga` the image).
Vicina IlPiuVicinoFalda(const Sessione& s, double x, double y);
Vicina IlPiuVicinoSette(const Sessione& s, double x, double y);
Vicina IlPiuVicinoSezione(const Sessione& s, double x, double y);
Vicina IlPiuVicinoEstratto(const Sessione& s, double x, double y);
Vicina IlPiuVicinoBitMap(const Sessione& s, double x, double y);
// The row of the section table whose drawing is nearest; -1 when none is drawn.
int32_t RigaSezioneVicina(const Sessione& s, double x, double y);

// The first live point whose trimmed name equals the trimmed `nome`; -1 when none.
int32_t IlPiuVicinoPerNome(const Sessione& s, std::string_view nome);

// The general search: the nearest entity of every kind, in the order image, facet,
// contour, section, extract, line, circle, arc, text, point, a later kind winning a tie
// (but a contour only when strictly nearer), and its notable points. `punto1` is the
// command's last point, for the foot and the tangent.
RisultatoVicina LapiuvicinaBitMap(const Sessione& s, double x, double y, const PuntoXYZ& punto1);

// The steps that complete the record once the entity is known.
void IlPiuVicinoFine(RisultatoVicina& r, double x, double y);
void IlPiuVicinoQuadrante(const Sessione& s, RisultatoVicina& r, double x, double y);
void IlPiuVicinoOrtogonale(RisultatoVicina& r, double x, double y, const PuntoXYZ& punto1);
void IlPiuVicinoVicino(RisultatoVicina& r, double x, double y);
void LaPiuVicinaTangente(RisultatoVicina& r, double x, double y, const PuntoXYZ& punto1);

}  // namespace varena
