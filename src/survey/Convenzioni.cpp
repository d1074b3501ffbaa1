// Reading and showing the numbers of measures.
#include "survey/Convenzioni.h"

#include "core/Testo.h"

namespace varena {

double LeggiNumero(std::string_view testo) { return Val(VirgolaInPunto(testo)); }

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
