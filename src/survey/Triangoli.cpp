// The triangle solver: the first case of the table that the positive values fit decides,
// so that a user who fills more than three boxes always gets the same answer.
#include "survey/Triangoli.h"

#include <cmath>
#include <cstdlib>
#include <optional>

#include "core/Testo.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

constexpr const char* kImpossibile = "Impossibile continuare";

// The law of cosines: the side opposite the angle between `x` and `y`.
double TerzoLato(double x, double y, double angoloGon) {
  return std::sqrt(x * x + y * y - 2 * x * y * std::cos(angoloGon * GonToRad));
}

// The angle opposite `x` from the three sides, by the half-angle formula.
double AngoloDaiLati(double x, double y, double z) {
  const double s = (x + y + z) / 2;
  return 2 * std::atan(std::sqrt(((s - y) * (s - z)) / (s * (s - x)))) * RadToGon;
}

// The three angles from the three sides, or false when one side is not shorter than the
// other two together (strictly: a flat triangle is refused).
bool TreLati(std::array<double, 6>& v) {
  const double a = v[0], b = v[1], c = v[2];
  if (!(a + b > c && a + c > b && b + c > a)) return false;
  v[3] = AngoloDaiLati(a, b, c);
  v[4] = AngoloDaiLati(b, c, a);
  v[5] = AngoloDaiLati(c, a, b);
  return true;
}

// The two sides left from the one known (index `noto`) and the three angles: the law of sines.
void Seni(std::array<double, 6>& v, int noto) {
  const double k = v[static_cast<size_t>(noto)] / std::sin(v[static_cast<size_t>(noto) + 3] * GonToRad);
  for (size_t i = 0; i < 3; ++i)
    if (static_cast<int>(i) != noto) v[i] = k * std::sin(v[i + 3] * GonToRad);
}

std::string Relazione(const std::array<double, 6>& v) {
  const double a = v[0], b = v[1], c = v[2];
  const double p = (a + b + c) / 2;
  const double area = std::sqrt(p * (p - a) * (p - b) * (p - c));
  auto m = [](double x, const char* maschera) { return FormatoRilievo(x, maschera); };
  std::string r = "Area = " + m(area, "######0.##0") + "\n";
  const char* basi[] = {"Base1 = ", "Base2 = ", "Base3 = "};
  const char* altezze[] = {" Altezza1 = ", " Altezza2 = ", " Altezza3 = "};
  for (size_t i = 0; i < 3; ++i) {
    r += basi[i] + m(v[i], "########0.##0") + "\n";
    r += altezze[i] + m(2 * area / v[i], "########0.##0") + "\n";
  }
  r += "Raggio Cerchio Inscritto = " + m(area / p, "#########0.##0") + "\n";
  r += "Raggio Cerchio Circoscritto = " + m(a * b * c / (4 * area), "#########0.##0") + "\n";
  return r;
}

EsitoTriangolo Rifiuto(const char* testo, const char* titolo) {
  EsitoTriangolo e;
  e.Messaggio = testo;
  e.Titolo = titolo;
  return e;
}

// Solves in place by the first case that fits. Empty when solved; the refusal otherwise
// (an empty refusal: the run ends with nothing to say).
std::optional<EsitoTriangolo> Risolvi(std::array<double, 6>& v) {
  const bool a = v[0] > 0, b = v[1] > 0, c = v[2] > 0, al = v[3] > 0, be = v[4] > 0, ga = v[5] > 0;
  const EsitoTriangolo latoLungo = Rifiuto("Un lato è Maggiore della somma degli altri 2!", kImpossibile);
  auto tre = [&]() -> std::optional<EsitoTriangolo> {
    if (TreLati(v)) return std::nullopt;
    return latoLungo;
  };
  if (a && b && c) return tre();
  if (a && b && ga) { v[2] = TerzoLato(v[0], v[1], v[5]); return tre(); }
  if (b && c && al) { v[0] = TerzoLato(v[1], v[2], v[3]); return tre(); }
  if (a && c && be) { v[1] = TerzoLato(v[0], v[2], v[4]); return tre(); }
  // One side and two angles: the third angle completes the half turn.
  struct Caso { bool dato; int lato, terzo; };
  const Caso casi[] = {
      {a && al && be, 0, 5}, {a && al && ga, 0, 4}, {a && be && ga, 0, 3}, {b && al && be, 1, 5},
      {b && be && ga, 1, 3}, {c && be && ga, 2, 3}, {c && al && ga, 2, 4}, {c && al && be, 2, 5},
  };
  for (const Caso& k : casi) {
    if (!k.dato) continue;
    v[static_cast<size_t>(k.terzo)] = 200 - (v[3] + v[4] + v[5] - v[static_cast<size_t>(k.terzo)]);
    Seni(v, k.lato);
    return std::nullopt;
  }
  if (a && b && al) {
    // Two sides and the angle opposite the first: one triangle only when that side is the
    // longer, else the other side's angle may be acute or obtuse.
    if (v[0] < v[1]) return Rifiuto("Doppia Soluzione", "Problema");
    const double x = v[1] * std::sin(v[3] * GonToRad) / v[0];
    v[4] = std::atan(x / std::sqrt(1 - x * x)) * RadToGon;
    v[5] = 200 - (v[3] + v[4]);
    v[2] = TerzoLato(v[0], v[1], v[5]);
    return tre();
  }
  return EsitoTriangolo{};
}

}  // namespace

std::string TestoElementoTriangolo(int indice, double valore) {
  return indice < 3 ? TestoMetri(valore) : TestoGon(valore);
}

EsitoTriangolo RisolviTriangolo(const std::array<std::string, 6>& caselle) {
  int pieni = 0;
  for (const std::string& t : caselle) pieni += TestoNumerico(t);
  if (pieni < 3) return Rifiuto("Numero di elementi insufficienti!", kImpossibile);
  if (!TestoNumerico(caselle[0]) && !TestoNumerico(caselle[1]) && !TestoNumerico(caselle[2]))
    return Rifiuto("Numero di elementi Lineari insufficienti!", kImpossibile);
  std::array<double, 6> v{};
  for (size_t i = 0; i < 6; ++i) v[i] = LeggiNumero(caselle[i]);
  if (v[0] == 0 && v[1] == 0 && v[2] == 0) return {};
  if (std::optional<EsitoTriangolo> rifiuto = Risolvi(v)) return *rifiuto;
  // Two angles of a half turn or more leave the third negative, and the law of sines then
  // gives sides of no triangle: said, rather than written back into the boxes.
  for (const double x : v)
    if (!(x > 0) || !std::isfinite(x))
      return Rifiuto("Gli angoli dati non chiudono un triangolo!", kImpossibile);
  EsitoTriangolo e;
  e.Risolto = true;
  e.Valori = v;
  e.Relazione = Relazione(v);
  return e;
}

}  // namespace varena
