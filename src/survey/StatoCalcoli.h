// What the office computations keep between the clicks and the buttons of their dialogs.
#pragma once

#include <string>
#include <vector>

#include "survey/DivisioneAree.h"
#include "survey/Inquadramento.h"
#include "survey/Resezione.h"

namespace varena {

// The staking out: the names to stake, in order, and the run the dialog writes its files
// under (0 until the first run picks a free one).
struct StatoTracciamento {
  std::vector<std::string> Elenco;
  int Corsa = 0;
  bool DaContorno = false;  // the next click picks a Contorno-7, whose points join the list
};

struct StatoCalcoli {
  StatoDivisione Divisione;
  StatoTracciamento Tracciamento;
  std::vector<RigaFuoriCentro> FuoriCentro;  // the first table of the eccentric station
  EsitoFuoriCentro UltimoFuoriCentro;        // its last run, for the insert
  // The framing on n PF: the pairs found, and the last fit the table shows.
  std::vector<CoppiaPF> CoppieInquadramento;
  EsitoInquadramento UltimoInquadramento;
  // The steps of the moves of the extract's framing: angle in gon, shift in metres.
  double PassoAngoloInquadramento = 0.01;
  double PassoSpostamentoInquadramento = 0.1;
};

}  // namespace varena
