// Loading a job from its provisional copy `NomeLavoro`: one loader per member and the
// fixed sequence `CaricaLavoro`.
#pragma once

#include <array>
#include <string>

#include "core/Tabelle.h"

namespace varena {

struct Sessione;

// Each returns quietly when its member is absent and reports a failure through the common
// error path, keeping the rows read before it.
void CaricaPunti(Sessione& s);
void CaricaLinee(Sessione& s);
void CaricaCerchi(Sessione& s);
void CaricaArchi(Sessione& s);
void CaricaTesti(Sessione& s);
void CaricaFalde(Sessione& s);
void CaricaSette(Sessione& s);
void CaricaCurveLivello(Sessione& s);
void CaricaCurveCuv(Sessione& s);
void CaricaBitmap(Sessione& s);
void CaricaInf(Sessione& s);
void CaricaTesto126Cel(Sessione& s);
void CaricaLibretto(Sessione& s);
// The older way of marking a point as a "PD" or "PV": a Contorno-7 row of that comment
// becomes a tag in front of the point's description.
void ConvertiPuntiPDPV(Sessione& s);

// The fixed load sequence.
void CaricaLavoro(Sessione& s);
// The load after an undo or redo put back members: `cambiati` are the slots whose member is
// no longer the file the tables were read from. A table whose member stayed and that nothing
// changed since it was read is kept, the others read again, and the rows that differ marked
// for the regeneration; the tables come out as `CaricaLavoro` after a clear would leave them.
// False, with nothing done that a whole load does not redo, when the change needs the whole
// load: the points or Contorno-7 rows, included tables, a member read with an error.
bool RicaricaLavoro(Sessione& s, const std::array<bool, NumeroSlot>& cambiati);

// `VR_ApriLavoro` for a job file: clear, provisional copy, load, the first undo generation,
// name fixes, view.
void VR_ApriLavoro(Sessione& s);
// What every opening does once the job is loaded: the first undo generation, the name
// fixes, the view.
void FineApertura(Sessione& s);

// The default-name routine: the empty job NUOVO under the working root.
std::string NomeLavoroNuovo(const Sessione& s);

// The two rows of a new field book, for today's date.
std::string RigaZeroLibrettoDefault(const Sessione& s);
inline constexpr const char* kRigaNoveLibrettoDefault = "9|20|10|20|1070|9.00-G|FR|rilievo celerimetrico|";

}  // namespace varena
