// A report model: the input stands as a model of "MODELLI_STAMPA", is opened as the editor
// opens it and saved back as its close saves it. What was read must write and read back the
// same, every size within its bounds and every alignment one of the four.
#include "Bersagli.h"
#include "core/Sessione.h"
#include "output/ModelliStampa.h"

namespace varena::fuzz {

void FuzzRtf(const Ambiente& a, std::string_view byte) {
  Sessione s;
  a.Prepara(s);
  ScriviFileFuzz(CartellaModelli(s) + "/FUZZ.rtf", byte);
  const std::optional<TestoRicco> t = VR_StampaGenerale(s, "FUZZ.rtf");
  if (!t) return;
  for (const ParagrafoRicco& p : t->Paragrafi) {
    Verifica(std::string_view("lcrj").find(p.Allineamento) != std::string_view::npos, "Allineamento sconosciuto\n");
    for (const CorsaRicca& c : p.Corse)
      Verifica(c.Punti >= 1 && c.Punti <= 1638 && !c.Testo.empty(), "Corsa fuori misura\n");
  }
  Verifica(LeggiRtf(ScriviRtf(*t)) == t, "Il modello scritto non si rilegge uguale\n");
  ChiudiEditorStampe(s, "FUZZ.rtf", *t, true);
}

}  // namespace varena::fuzz
