// The repairs applied to each row as it is read from a job file.
#pragma once

#include <cstdint>

namespace varena {

struct TabelleEntita;

// The colour of a file of edition "VR2000", through the old sixteen-colour palette.
int32_t ColoreVecchiaTavolozza(int32_t vecchio);

// Each repairs row `riga` of its kind; `vr2000` maps the colours through the old palette.
void RiparaPunto(TabelleEntita& t, int64_t riga, bool vr2000);
void RiparaLinea(TabelleEntita& t, int64_t riga, bool vr2000);
void RiparaCerchio(TabelleEntita& t, int64_t riga, bool vr2000);
void RiparaArco(TabelleEntita& t, int64_t riga, bool vr2000);
void RiparaTesto(TabelleEntita& t, int64_t riga, bool vr2000);
void RiparaFalda(TabelleEntita& t, int64_t riga, bool vr2000);

}  // namespace varena
