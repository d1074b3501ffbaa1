// Reading and showing the numbers of measures.
#include "survey/Convenzioni.h"

#include <cmath>
#include <cstdlib>

#include "core/Testo.h"

namespace varena {

double LeggiNumero(std::string_view testo) { return Val(VirgolaInPunto(testo)); }

bool TestoNumerico(std::string_view testo) {
  const std::string t = VirgolaInPunto(Rifila(testo));
  if (t.empty()) return false;
  char* fine = nullptr;
  const double v = std::strtod(t.c_str(), &fine);
  return fine && *fine == '\0' && std::isfinite(v);
}

// The masks already print a point whatever the locale; the replacement stays so that no
// path to the user ever shows a comma.
std::string FormatoRilievo(double valore, std::string_view maschera) {
  std::string tutte(maschera);
  if (const size_t punto = tutte.find('.'); punto != std::string::npos)
    for (size_t i = punto + 1; i < tutte.size(); ++i)
      if (tutte[i] == '#') tutte[i] = '0';
  return VirgolaInPunto(FormatoMaschera(valore, tutte));
}

std::string TestoGon(double gon) { return FormatoRilievo(gon, "#########0.###0"); }
std::string TestoMetri(double metri) { return FormatoRilievo(metri, "#########0.##0"); }
std::string TestoQuattroDecimali(double valore) {
  return VirgolaInPunto(FormatoMaschera(valore, "##########.####"));
}

}  // namespace varena
