// The surveyor's constructions of a new point from known points and field measures: the
// free station on a base, the foot with its signs, the opening and the square offset, the
// irradiation, the crossings, the forward intersection, the polar offset and the walk along
// a line. Pure functions written on the primitives; angles the user types are in gon.
#pragma once

#include <cstdint>
#include <string>

#include "survey/Primitive.h"

namespace varena {

// A known point as a click took it: its name ("*" for a free place) and coordinates.
struct PuntoNoto {
  std::string Nome = "*";
  PuntoXYZ P;
  int32_t Riga = -1;  // its row in the point table; -1 for a free place
};

// The record the constructions fill click by click, and their last result.
struct SchedaCostruzione {
  PuntoNoto Primo, Secondo, Terzo, Quarto;
  // Kept from one construction to the next: the crossing of two parallel lines leaves it
  // as it stood.
  PuntoXYZ PuntoNuovo;
  // The name of the last free station, which the next irradiation starts from.
  std::string UltimaStazione;
};

// The height of the foot of P on the line A-B: the height every construction off a base
// gives its point. A's height when A and B stand in one place.
double QuotaDelPiede(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p);

struct RisultatoStazioneLibera {
  Esito Stato = kNessunaSoluzione;
  double BaseReale = 0;     // A-B as the coordinates give it
  double BaseMisurata = 0;  // A-B as the two distances and the angle between them give it
  PuntoXYZ Stazione;        // written only on success
};

// The station from which A was seen at distance `d1` and reading `r1Gon`, B at `d2` and
// `r2Gon`. The measured triangle is laid on the known base centred on its middle, so that a
// scale difference between the two is shared equally by both ends. The measured base is
// given even when the triangle does not close.
RisultatoStazioneLibera StazioneLibera(const PuntoXYZ& a, const PuntoXYZ& b, double d1, double d2, double r1Gon,
                                       double r2Gon);

struct PiedeConSegni {
  Esito Stato = kNessunaSoluzione;
  PuntoXYZ F;           // the foot, with the height of A-B there
  double Ascissa = 0;   // A to F, negative when F lies behind A
  double Distacco = 0;  // the line to P, negative when P lies left of A to B
  double Azimut = 0;    // of A to B, radians
  double Lunghezza = 0; // of A to B
};
PiedeConSegni PiedeSegnato(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p);

// At distance `d` from the origin A, `angoloGon` clockwise from the direction A to B.
PuntoXYZ PuntoApertura(const PuntoXYZ& a, const PuntoXYZ& b, double angoloGon, double d);

// `lato1` along the direction A to B turned by `angoloGon`, then `lato2` square to its right
// (a negative one to its left). No point for a negative `lato1`.
Esito PuntoSquadro(const PuntoXYZ& a, const PuntoXYZ& b, double lato1, double lato2, double angoloGon,
                   PuntoXYZ& punto);

// The orientation correction of a station, in gon from 0 to 400: what is added to a reading
// to make it an azimuth, from the reading taken on the orientation point.
double CorrezioneOrientamento(const PuntoXYZ& stazione, const PuntoXYZ& orientamento, double letturaGon);

// A point measured from a station: azimuthal reading, distance taken as horizontal, zenith
// reading, instrument height over the station and prism height.
PuntoXYZ Irraggia(const PuntoXYZ& stazione, double correzioneGon, double letturaGon, double distanza,
                  double zenitGon, double altezzaStazione, double altezzaPrisma);

// The crossing of the lines A-B and C-D, with the height of A-B there. On parallel lines the
// plan position of `nuovo` stays what it was and only its height is taken again.
Esito PuntoIncrocio(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& c, const PuntoXYZ& d, PuntoXYZ& nuovo);

PuntoXYZ PuntoMedio(const PuntoXYZ& a, const PuntoXYZ& b);

// Forward intersection: the angle `alfaGon` at A from B, clockwise, and `betaGon` at B from
// A, counter-clockwise; positive angles meet right of the base. Written only on success.
Esito PuntoInAvanti(const PuntoXYZ& a, const PuntoXYZ& b, double alfaGon, double betaGon, PuntoXYZ& punto);

// The polar offset of the origin, at the origin's height.
PuntoXYZ PolariCartesiane(const PuntoXYZ& origine, double azimutGon, double distanza);

// Where a direction read at a station meets the line A-B. The station was oriented on
// `orientamento` with the reading `letturaOrientamentoGon`; its instrument stands
// `altezzaStrumento` over it. The height comes from the zenith reading over the plan
// distance. Written only on success.
Esito IntersecaDirezione(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& stazione,
                         const PuntoXYZ& orientamento, double letturaOrientamentoGon, double letturaGon,
                         double zenitGon, double altezzaStrumento, PuntoXYZ& punto);

// `d` from A towards B, on the slope of A-B.
PuntoXYZ PuntoADistanza(const PuntoXYZ& a, const PuntoXYZ& b, double d);

}  // namespace varena
