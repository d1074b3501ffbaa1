// What the edit commands carry from click to click: the displacement, factor and angle of
// the work on a selection, the entity picked first by the commands on one entity, and the
// four points of the roto-translation.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "survey/Primitive.h"

namespace varena {

// A point of the roto-translation: its name ("*" when picked where no point stands) and
// coordinates.
struct PuntoNominato {
  std::string Nome = "*";
  double X = 0, Y = 0, Z = 0;
};

struct StatoModifica {
  double TraslazioneX = 0, TraslazioneY = 0;
  double TraslazioneZ = 0;       // the difference of heights of the two picked points
  double FattoreScala = 1;
  double AngoloRotazione = 0;    // gon
  int16_t CancellaOriginali = 0; // the answer of the mirror: -1 Yes, 0 No
  // The axis of the mirror, the centre and the direction of a rotation: the picked points.
  PuntoXYZ CentroModifica, SecondoModifica;

  // The entity picked first by trim, cut, extend and divide, and where it was picked.
  uint8_t PrimaEntitaTipo = 0;
  int32_t PrimaEntitaRiga = -1;
  double PrimaEntitaX = 0, PrimaEntitaY = 0;

  // `Origine`, `Orientamento`, `Nuova Origine`, `Nuovo Orientamento`.
  std::array<PuntoNominato, 4> PuntiRotoTraslazione;
};

}  // namespace varena
