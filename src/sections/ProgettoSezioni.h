// The project profile of a section: one height for all stations, a grade from a station
// on, a height station by station, a straight stretch between two stations. Each command
// works on the section clicked and ends in the regeneration and the undo snapshot.
#pragma once

#include <cstddef>

#include "sections/Sezione.h"

namespace varena {

struct Sessione;

// From station `da` (counted from 0) to the last: the project `quota` at `da`, rising by
// `pendenza` percent of the progressive beyond it. The stations before `da` keep theirs.
void ProgettoInPendenza(Sezione& z, size_t da, double quota, double pendenza);
// The stations between `da` and `a` on the straight line between their project heights,
// by progressive.
void ProgettoInterpolato(Sezione& z, size_t da, size_t a);

// The station whose vertical is nearest to (x, y) on the sheet, and the height that the
// level y stands for there.
struct StazioneCliccata {
  size_t Indice;
  double Quota;
};
StazioneCliccata StazioneSulFoglio(const Sezione& z, double x, double y);

// The clicks on a section of code 374 (SEZIONI_QUOTA_PROGETTO), 386 (SEZIONI_PROGETTO_PENDENZA),
// 387 (SEZIONI_PROGETTO_PUNTO) and 388 (SEZIONI_PROGETTO_INTERPOLA).
void subQuotaProgettoSezione(Sessione& s);
void subProgettoPendenza(Sessione& s);
void subProgettoPunto(Sessione& s);
void subProgettoInterpola(Sessione& s);

}  // namespace varena
