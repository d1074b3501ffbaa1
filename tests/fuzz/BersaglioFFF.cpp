// The eccentric station's table file: the input is the example job's `.FFF`, read back by
// the dialog's button as the user presses it, then reduced, and written again.
#include <sstream>

#include "Bersagli.h"
#include "commands/Script.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "survey/DialoghiCalcoli.h"

namespace varena::fuzz {

void FuzzFFF(const Ambiente& a, std::string_view byte) {
  ScriviFileFuzz(a.Esempio() + ".FFF", byte);
  FlussoNullo out;
  InterfacciaScript ui(out);
  Sessione s;
  ApriEsempio(a, s, &ui);
  ApriFormFuoricentro(s);
  PremiBottone(s, "FormFuoricentro", "Leggi");
  ScriviCampo(s, "FormFuoricentro", "Eccentricita", "1.5");
  PremiBottone(s, "FormFuoricentro", "Calcola");
  PremiBottone(s, "FormFuoricentro", "Inserisci");
  PremiBottone(s, "FormFuoricentro", "Scrivi");
}

}  // namespace varena::fuzz
