// From the pointer to the point a click gives the command: the snap mode chosen before the
// click says which point of the nearest entity is wanted. No message is ever shown for a
// snap that finds nothing: the click is dropped and the prompt stays.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

enum class EsitoSnap {
  Punto,        // `PuntoCorrenteX`, `PuntoCorrenteY`, `PuntoCorrenteZ` hold the point
  Ignorato,     // nothing to take: the click does nothing
  FineComando,  // the intersection of two entities failed: the command ends
};

// On entry `PuntoCorrenteX`, `PuntoCorrenteY` hold the pointer, Z 0, name "*", row -1.
// By `ModoSnap` (forced to 1 by `SoloPunti`): 1 the nearest point, 2 the foot prepared by
// the last move, 4 5 6 7 8 13 the named point of the general search, 9 the crossing of two
// picked entities (two clicks), 10 the insertion of the nearest text; any other mode the
// pointer as it is.
EsitoSnap RisolviSnap(Sessione& s);

// The mode of a snap tag (`SNAP_NODO` ...), or -1.
int16_t ModoDaTagSnap(std::string_view tag);
// The mode of a letter pressed while a command is armed, or -1; `D` is not among them.
int16_t ModoDaLettera(char lettera);

// The name shown beside the pointer, empty for the modes that have none.
std::string EtichettaModoSnap(const Sessione& s);

// The general search at the pointer as the move event prepares it, kept for the foot snap.
void PreparaVicina(Sessione& s, double x, double y);

}  // namespace varena
