// The framing of a survey on the fiducial points: the roto-translation (and, if asked, the
// similarity) that brings the survey's PF onto their official coordinates, with what is
// left at each point. Pure computation: the drawing is moved by the commands.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

// A fiducial measured in the survey and the same point from the archive.
struct CoppiaPF {
  std::string Nome;
  PuntoXYZ Rilievo, Ufficiale;
  bool Esclusa = false;  // left out of the fit by the user; its residual is still shown
};

struct ResiduoPF {
  double DNord = 0, DEst = 0, Distanza = 0;  // official minus framed
};

struct EsitoInquadramento {
  bool Riuscito = false;
  std::string Motivo;  // why not, for the user
  // The transform as the roto-translation of the drawing takes it: a survey point at
  // azimuth a and distance d from `Origine` goes to azimuth a + `Rotazione` and distance
  // d * `Scala` from `NuovaOrigine`.
  PuntoXYZ Origine, NuovaOrigine;
  double Rotazione = 0;  // radians, clockwise as azimuths
  double Scala = 1;
  std::vector<ResiduoPF> Residui;  // one a pair, in the order given
  double Sqm = 0;                  // root mean square of the distances of the pairs used
  int Peggiore = -1;               // the pair used with the largest distance
  int Usati = 0;

  PuntoXYZ Applica(const PuntoXYZ& p) const;
};

// Least squares on the pairs not left out (at least two). With two pairs and no scale it is
// the two-point framing to the last bit: the first PF falls on its official place and the
// direction to the second is turned onto the official one.
EsitoInquadramento Inquadra(std::span<const CoppiaPF> coppie, bool conScala);

}  // namespace varena
