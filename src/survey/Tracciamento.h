// The staking-out table: from a station oriented on a known point with a reading on it, the
// angle to set and the distance to measure for each point of a list, written as a report, a
// CSV and a small field book.
#pragma once

#include <string>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

struct PuntoTracciato {
  std::string Nome;
  PuntoXYZ P;
  std::string Descrizione;
  double Angolo = 0;    // gon, 0 to just under 400: the reading to set
  double Distanza = 0;  // plan
};

struct TabellaTracciamento {
  std::string Stazione, Orientamento;
  PuntoXYZ S, O;
  double AltezzaStazione = 0;
  double Lettura = 0;          // read on the orientation point, gon
  double Direzione = 0;        // azimuth station to orientation, gon
  double DistanzaOrientamento = 0;
  std::vector<PuntoTracciato> Punti;
};

// Fills the direction to the orientation and every point's angle and distance.
void CalcolaTracciamento(TabellaTracciamento& t);

// The three files of a run, CR LF line ends. `quote`: the heights as a last column.
std::string RelazioneTracciamento(const TabellaTracciamento& t, const std::string& titolo, const std::string& data,
                                  bool quote);
std::string CsvTracciamento(const TabellaTracciamento& t, bool quote);
std::string LibrettoTracciamento(const TabellaTracciamento& t);

}  // namespace varena
