// The repairs applied to each row as it is read from a job file.
#pragma once

#include <cstdint>

namespace varena {

struct TabelleEntita;

// The colour of a file of edition "VR2000", through the old sixteen-colour palette.
int32_t ColoreVecchiaTavolozza(int32_t vecchio);

// Each repairs row `riga` of its kind; `vr2000` maps the colours through the old palette.
// A row whose position or size is not a finite number (an overflow read as infinite, a
// pattern of bytes that is no number) is deleted: nothing could draw, find or measure it.
// The answer is true for such a row, so that the load can say how many it left out.
bool RiparaPunto(TabelleEntita& t, int64_t riga, bool vr2000);
bool RiparaLinea(TabelleEntita& t, int64_t riga, bool vr2000);
bool RiparaCerchio(TabelleEntita& t, int64_t riga, bool vr2000);
bool RiparaArco(TabelleEntita& t, int64_t riga, bool vr2000);
bool RiparaTesto(TabelleEntita& t, int64_t riga, bool vr2000);
bool RiparaFalda(TabelleEntita& t, int64_t riga, bool vr2000);
// An image row of the text member: also its far corner, the size times the scale, must be
// a number.
bool RiparaBitmap(TabelleEntita& t, int64_t riga);

}  // namespace varena
