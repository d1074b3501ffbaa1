// The plot stream as our spooler reads it: any bytes give items whose every number is
// finite and within the bounds the sheet's coordinates can take, which the spooler then
// draws without a second look.
#include <cmath>

#include "Bersagli.h"
#include "output/LetturaFlusso.h"

namespace varena::fuzz {

void FuzzFlusso(const Ambiente&, std::string_view byte) {
  const PaginaFlusso p = LeggiFlussoStampa(byte);
  Verifica(p.AltezzaVista >= 0 && std::isfinite(p.AltezzaVista), "Altezza della vista non valida\n");
  for (const ElementoFlusso& e : p.Elementi)
    for (double v : {e.X1, e.Y1, e.X2, e.Y2, e.Spessore, e.Altezza, e.Angolo})
      Verifica(std::fabs(v) <= 1e6, "Valore fuori dal foglio: %g\n", v);
}

}  // namespace varena::fuzz
