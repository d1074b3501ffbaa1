// The plane triangle from any sufficient three of its six elements: sides a, b, c in metres
// and the angles alfa, beta, gamma in gon, each angle opposite the side of its letter.
#pragma once

#include <array>
#include <string>

namespace varena {

struct EsitoTriangolo {
  bool Risolto = false;
  // The box shown when the data do not make one triangle; both empty when the run simply ends.
  std::string Messaggio, Titolo;
  // a, b, c, alfa, beta, gamma: what the boxes show again after a solve.
  std::array<double, 6> Valori{};
  // Area, altitudes and radii, one value to a line.
  std::string Relazione;
};

// The six boxes as typed, in the order a, b, c, alfa, beta, gamma. A box counts as given when
// its text is a number; an empty one stands for 0.
EsitoTriangolo RisolviTriangolo(const std::array<std::string, 6>& caselle);

// A solved value as the box shows it: three decimals for a side, four for an angle.
std::string TestoElementoTriangolo(int indice, double valore);

}  // namespace varena
