// `SALVAINI5.INI` and `SALVAINI.INI`: block A and block B of a job's settings, kept in the
// working root so that the drawing defaults of one job carry over to the next.
#pragma once

#include <string>

namespace varena {

struct Sessione;

std::string PercorsoSalvaini5(const Sessione& s);  // block A
std::string PercorsoSalvaini(const Sessione& s);   // block B

// Read at start: each block replaces the one in force only when it is read whole (block B
// may end before its later statements, as a `.CFG` may); block B then gives its settings.
// An absent file keeps the defaults and is not created here.
void CaricaSalvaini(Sessione& s);
// Both files written from the settings in force. Nothing is written by a session that may
// not write.
void ScriviSalvaini(Sessione& s);

}  // namespace varena
