// The station from known points: the three-point resection (Snellius/Pothenot) and the
// eccentric station reduced to a centre and its orientation points.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

struct EsitoPothenot {
  Esito Stato = kRiuscito;  // kResezioneDegenere when refused
  PuntoXYZ Stazione;        // Z = 0; written only on success
  std::string Motivo;       // why it was refused, for the user
};

// The station that saw 1 and 2 at the angle `alfaGon`, 2 and 3 at `betaGon`, both clockwise.
// Refused: known points in one place, an alfa of 0 or 200 gon, and a station on (or within a
// thousandth of the figure of) the circle through the three points, where every point of the
// circle sees the same angles and the formula would answer with a wild point.
EsitoPothenot Pothenot(const PuntoXYZ& p1, const PuntoXYZ& p2, const PuntoXYZ& p3, double alfaGon, double betaGon);

}  // namespace varena

namespace varena {

// A row of the eccentric station's first table: the centre first, then the orientation
// points, each with the direction read on it from the eccentric station (gon).
struct RigaFuoriCentro {
  std::string Ruolo;  // "Centro" or "Orientamento"
  std::string Nome;
  double Nord = 0, Est = 0, Direzione = 0;
};

// The station reduced from one orientation point.
struct StazioneRidotta {
  bool Riuscita = false;  // false when the eccentricity cannot be seen at that distance
  PuntoXYZ S;
  double CO = 0;          // orientation correction, gon 0..400
  double Distanza = 0;    // centre to orientation point
  double Azimut = 0;      // centre to orientation point, gon
  double AngoloV = 0;     // the angle between centre and point at the station, up to 200 gon
  double DR = 0;          // azimuth from the centre to the station, gon 0..400
};

struct EsitoFuoriCentro {
  std::vector<StazioneRidotta> Righe;  // one per orientation point
  bool Media = false;                  // at least one row reduced
  PuntoXYZ S;                          // the mean station, Z = 0
  double CO = 0;                       // from the mean station to the centre, less the direction to it
};

// The eccentric station at `eccentricita` from the centre (row 0) reduced with each
// orientation point, and the plain mean of the stations.
EsitoFuoriCentro FuoriCentro(const std::vector<RigaFuoriCentro>& righe, double eccentricita);

// The report of a run, one line a string: the heads, the centre, a line per orientation point
// and the means, in columns under the heads.
std::vector<std::string> RelazioneFuoriCentro(const std::vector<RigaFuoriCentro>& righe, const EsitoFuoriCentro& esito,
                                              double eccentricita, const std::string& stazione);

// The stations of a run handed to the snap memory (`temp/MemopuntiSnap.CSV`): a row for each
// reduced station and one for the mean, each named `stazione`, "|" between Nord, Est and a
// height of 0.
std::string CsvFuoriCentro(const EsitoFuoriCentro& esito, const std::string& stazione);

// The `.FFF` file: the rows one a line, tab between role, name, Nord, Est, direction.
std::string TestoFFF(const std::vector<RigaFuoriCentro>& righe);
inline constexpr size_t kMassimoRigheFuoriCentro = 1000;
// Reads the rows back. Empty when the file is whole; otherwise what is wrong with it, and
// `righe` untouched.
std::string LeggiFFF(std::string_view testo, std::vector<RigaFuoriCentro>& righe);

}  // namespace varena
