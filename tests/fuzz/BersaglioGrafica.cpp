// The preview control's loaders: the first byte chooses a whole-job text or hand-over file
// (`VR_CaricaXVR`) or a map extract (`VR_CaricaEstratto_EMP`), the rest is the file. What is
// loaded must hold finite coordinates and a view that fits it; the control then hands it over
// and exports it as the user would.
#include <cmath>

#include "Bersagli.h"
#include "core/Sessione.h"
#include "output/Grafica.h"

namespace varena::fuzz {

void FuzzGrafica(const Ambiente& a, std::string_view byte) {
  Sessione s;
  a.Prepara(s);
  const bool estratto = Scelta(byte, 2) == 1;
  const std::string percorso = a.Radice() + "/documenti/VR2000/TEMP/GRAFICA.TXT";
  ScriviFileFuzz(percorso, byte);
  Grafica g;
  estratto ? g.VR_CaricaEstratto_EMP(s, percorso) : g.VR_CaricaXVR(s, percorso);
  for (const Grafica::Punto& p : g.Punti())
    Verifica(std::isfinite(p.Est) && std::isfinite(p.Nord), "Punto non finito\n");
  for (const Grafica::Linea& l : g.Linee())
    Verifica(std::isfinite(l.X1 + l.Y1 + l.X2 + l.Y2), "Linea non finita\n");
  Verifica(g.Altezza > 0, "Vista di altezza non positiva\n");
  g.VR_CopiaInFile(s);
  (void)g.TestoStampa();
  (void)g.TestoHTML();
}

}  // namespace varena::fuzz
