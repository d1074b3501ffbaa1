// The small constructions the drawing commands and their rubber bands share: the centre of
// three points, the arc through three points, the side of a click, the turn of a text
// along a direction.
#pragma once

#include "survey/Primitive.h"

namespace varena {

// The centre of the circle through three points: the crossing of the perpendicular
// bisectors of a-b and b-c, each drawn `mezzo` metres to either side of its midpoint. False
// when they do not meet (three points in a row).
bool CentroTrePunti(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& c, double mezzo, PuntoXYZ& centro);

// An azimuth in gon brought into 0 .. 400.
double GonPositivo(double gon);

// An arc about `centro` as its record holds it: start azimuth and a positive amplitude, gon.
struct ArcoGon {
  double Inizio = 0;
  double Ampiezza = 0;
  bool Rovesciato = false;  // it runs from `b` to `a`
};
// The arc from `a` to `b` about `centro` that passes by `per`: clockwise from `a` when `per`
// lies on that side, else clockwise from `b`.
ArcoGon ArcoPerTrePunti(const PuntoXYZ& centro, const PuntoXYZ& a, const PuntoXYZ& per, const PuntoXYZ& b);

// Of the two directions square to `azimut` (radians), the one on the side of the click
// (x, y) seen from `da`: the right one on a tie.
double AzimutVersoLato(double azimut, const PuntoXYZ& da, double x, double y);

// The rotation of a text (gon, counter-clockwise from East) that runs along `azimut`
// (radians, clockwise from North).
double RotazioneLungo(double azimut);

}  // namespace varena
