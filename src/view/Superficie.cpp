// The one operation of the surface port with a body of its own, and the painting of a
// symbol's elements that it shares with the user symbols.
#include "view/Superficie.h"

#include <cmath>
#include <vector>

#include "view/StiliLinea.h"

namespace varena {

void DipingiElementi(Superficie& sup, const std::vector<ElementoSimbolo>& elementi, float x, float y, ColoreRGB c) {
  constexpr double kGiro = 2 * 0x1.921fb54442d18p+1;  // a whole turn, 2 pi
  for (const ElementoSimbolo& e : elementi) {
    const auto A = static_cast<float>(e.A), B = static_cast<float>(e.B), C = static_cast<float>(e.C),
               D = static_cast<float>(e.D);
    switch (e.Tipo) {
      case ElementoSimbolo::Linea: sup.Linea(x + A, y + B, x + C, y + D, c); break;
      case ElementoSimbolo::Cerchio: sup.Cerchio(x + A, y + B, C, c); break;
      case ElementoSimbolo::Riquadro: sup.Riquadro(x + A - C, y + B - C, x + A + C, y + B + C, c, false); break;
      case ElementoSimbolo::Punto: sup.Pixel(x, y, c); break;
      case ElementoSimbolo::Arco: {
        // Surfaces sweep counter-clockwise from East: the clockwise sweep from azimuth D is
        // the sweep from the direction of its end to that of its start.
        const double inizio = NelGiro(kGiro / 4 - (e.D + e.E), kGiro), fine = NelGiro(kGiro / 4 - e.D, kGiro);
        sup.Arco(x + A, y + B, C, static_cast<float>(inizio), static_cast<float>(fine), c);
        break;
      }
    }
  }
}

void Superficie::Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta) {
  thread_local std::vector<ElementoSimbolo> elementi;
  elementi.clear();
  ScomponiSimbolo(codice, dimensione, carta, elementi);
  DipingiElementi(*this, elementi, x, y, c);
}

}  // namespace varena
