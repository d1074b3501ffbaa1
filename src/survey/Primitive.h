// The plane primitives every survey computation is written on: azimuths, crossings, feet,
// interpolated heights, distance triangles, circles and polygons. Pure functions: angles in
// radians (gon only where a record or the user gives gon), X East first, Y North second.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "survey/Convenzioni.h"

namespace varena {

struct TabelleEntita;

// The outcome of a primitive that can fail; anything below 2 counts as success.
using Esito = int16_t;
inline constexpr Esito kRiuscito = 1;
inline constexpr Esito kNessunaSoluzione = 4;
inline constexpr Esito kResezioneDegenere = 8;

struct PuntoXYZ {
  double X = 0, Y = 0, Z = 0;
};

// National-grid coordinates run to millions of metres, where a double keeps about a
// nanometre and a product of two coordinates not even a millimetre. So every formula that
// multiplies or subtracts coordinates works on differences from a local origin, the first
// known point of the figure, and adds the origin back to its result: the answer is then as
// good at 1,700,000 / 5,000,000 as beside 0 / 0.
struct OrigineLocale {
  double X0 = 0, Y0 = 0;
  explicit OrigineLocale(const PuntoXYZ& primo) : X0(primo.X), Y0(primo.Y) {}
  PuntoXYZ Locale(const PuntoXYZ& p) const { return {p.X - X0, p.Y - Y0, p.Z}; }
  PuntoXYZ Globale(const PuntoXYZ& p) const { return {p.X + X0, p.Y + Y0, p.Z}; }
};

// The one polar conversion: from (x, y) by azimuth `azimut` (radians, clockwise from North)
// and distance `d`. Z is left 0.
PuntoXYZ Polare(double x, double y, double azimut, double d);

struct AzimutEDistanza {
  double Azimut;    // radians, 0 to just under a turn; `PiGreco` for two coincident points
  double Distanza;  // plan distance
};

// Half-angle form: no special case for a due East or West direction, and an azimuth that
// is always defined.
AzimutEDistanza AzimutDistanza(double x1, double y1, double x2, double y2);
inline AzimutEDistanza AzimutDistanza(const PuntoXYZ& a, const PuntoXYZ& b) {
  return AzimutDistanza(a.X, a.Y, b.X, b.Y);
}

double Distanza2D(double x1, double y1, double x2, double y2);

// Crossing of the infinite lines A-B and C-D. Writes `x`, `y` only on success; on nearly
// parallel lines (raw determinant below 1e-7) it returns `kNessunaSoluzione` and leaves
// them as they were, which some callers rely on.
Esito IncrocioRette(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& c, const PuntoXYZ& d,
                    double& x, double& y);

struct Piede {
  PuntoXYZ F;               // the foot, with the height of A-B at that place
  double DistanzaPF = 0;    // unsigned
  double DistanzaAF = 0;
  double LunghezzaAB = 0;
};

// Foot of P on the line A-B. Nothing is written on failure (A and B in the same place).
Esito PiedePerpendicolare(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p, Piede& piede);

// Height of the line A-B at (x, y), extrapolated beyond its ends. A point within 0.1 mm of
// an end takes the height of the other end: the end tests are crossed on purpose.
double QuotaInterpolata(const PuntoXYZ& a, const PuntoXYZ& b, double x, double y);

// The point at `ra` from A and `rb` from B, to the right of the direction A to B, with the
// height of its foot on A-B. No tolerance: a triangle that does not close by one
// millimetre fails. The point is written only on success.
Esito PuntoBilatera(const PuntoXYZ& a, const PuntoXYZ& b, double ra, double rb, PuntoXYZ& punto);
// Both solutions: right of A to B, then right of B to A.
Esito PuntiBilatera(const PuntoXYZ& a, const PuntoXYZ& b, double ra, double rb, PuntoXYZ& destra,
                    PuntoXYZ& sinistra);

// The line A-B against the circle of centre (xc, yc) and radius `r`: the foot of the centre
// and the two crossings, equal when the line is tangent within 1e-6. The crossings take
// the height of A-B at their place. The foot is written whenever it exists, even when the
// line misses the circle.
Esito RettaCerchio(const PuntoXYZ& a, const PuntoXYZ& b, double xc, double yc, double r, PuntoXYZ& piede,
                   PuntoXYZ& primo, PuntoXYZ& secondo);

// Shortest plan distance from P to the segment A-B.
double DistanzaDaSegmento(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p);

// 1 when Q lies within half the chord A-B from the chord's middle, else 2: which side of
// the chord an arc runs.
int16_t LatoCorda(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& q);

// Centre and radius of the circle tangent to the three sides. Written only on success.
Esito CerchioInscritto(const PuntoXYZ& p1, const PuntoXYZ& p2, const PuntoXYZ& p3, double& xc, double& yc,
                       double& raggio);

struct AreaEPerimetro {
  double Area = 0;                 // always positive, whatever the turning sense
  double Perimetro = 0;            // plan
  double PerimetroInclinato = 0;   // along the slope of each side
  PuntoXYZ Medio;                  // plain mean of the vertices, not the centroid
};

// A closed contour given by its n vertices: the first closes it again after the last.
// No value with fewer than three vertices.
std::optional<AreaEPerimetro> AreaPerimetro(std::span<const PuntoXYZ> vertici);

// `punto` turned about `perno` by `gon`, clockwise as azimuths grow. Z stays.
PuntoXYZ RuotaPunto(const PuntoXYZ& punto, const PuntoXYZ& perno, double gon);

struct PosizioneInArco {
  bool Dentro = false;
  int16_t Estremo = 0;  // 1 at the start, 2 at the end, 0 elsewhere
};

// Whether the direction from the arc's centre to (x, y) falls within the arc. The arc as
// its record holds it: start azimuth and amplitude, both in gon.
PosizioneInArco AngoloInArco(double xc, double yc, double inizioGon, double ampiezzaGon, double x, double y);

// The next free point name after `nome`: the numeric tail grows by the step, again and
// again, until no point that is not deleted bears the name. Empty when automatic numbering
// is off or the step is empty.
std::string ProssimoNomePunto(const TabelleEntita& t, std::string_view nome, bool numerazioneAutomatica,
                              std::string_view passo);

// A name made safe as a point, file or section name.
std::string NomePulito(std::string_view nome);

}  // namespace varena
