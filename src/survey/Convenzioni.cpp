// Reading and showing the numbers of measures.
#include "survey/Convenzioni.h"

#include "core/Testo.h"

namespace varena {

double LeggiNumero(std::string_view testo) { return Val(VirgolaInPunto(testo)); }

// The masks already print a point whatever the locale; the replacement stays so that no
// path to the user ever shows a comma.
std::string TestoGon(double gon) { return VirgolaInPunto(FormatoMaschera(gon, "#########0.###0")); }
std::string TestoMetri(double metri) { return VirgolaInPunto(FormatoMaschera(metri, "#########0.##0")); }
std::string TestoQuattroDecimali(double valore) {
  return VirgolaInPunto(FormatoMaschera(valore, "##########.####"));
}

}  // namespace varena
