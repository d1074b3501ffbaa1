// The one operation of the surface port with a body of its own.
#include "view/Superficie.h"

#include <vector>

#include "view/StiliLinea.h"

namespace varena {

void Superficie::Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta) {
  thread_local std::vector<ElementoSimbolo> elementi;
  elementi.clear();
  ScomponiSimbolo(codice, dimensione, carta, elementi);
  for (const ElementoSimbolo& e : elementi) {
    const auto A = static_cast<float>(e.A), B = static_cast<float>(e.B), C = static_cast<float>(e.C),
               D = static_cast<float>(e.D);
    switch (e.Tipo) {
      case ElementoSimbolo::Linea: Linea(x + A, y + B, x + C, y + D, c); break;
      case ElementoSimbolo::Cerchio: Cerchio(x + A, y + B, C, c); break;
      case ElementoSimbolo::Riquadro: Riquadro(x + A - C, y + B - C, x + A + C, y + B + C, c, false); break;
      case ElementoSimbolo::Punto: Pixel(x, y, c); break;
    }
  }
}

}  // namespace varena
