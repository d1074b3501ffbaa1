// The page layout of the sections: the input stands as `ImpaginaSezioni.ini` in the program
// folder; two sections of the example job are laid out by it as the command does, then the
// undo snapshot and the redraw. Whatever the file says, every section stays on the sheet.
#include <cmath>

#include "Bersagli.h"
#include "core/Avvio.h"
#include "core/Sessione.h"
#include "sections/FileSezioni.h"
#include "sections/ImpaginaSezioni.h"
#include "store/Carica.h"
#include "view/Rigenera.h"

namespace varena::fuzz {

void FuzzImpagina(const Ambiente& a, std::string_view byte) {
  Sessione s;
  a.Prepara(s);
  ScriviFileFuzz(PercorsoImpaginazione(s), byte);
  InizializzaDefault(s);
  s.NomeOriginale = a.Esempio();
  VR_ApriLavoro(s);
  Sezione z;
  z.Cfg = ConfigurazioneIniziale();
  z.Stazioni = {{"A", 0, 0, 5, 5}, {"B", 30, 0, 6, 5}, {"C", 45, 10, 4, 5}};
  AggiungiSezione(s, z);
  z.Cfg.ScalaLunghezze = 500;
  AggiungiSezione(s, z);
  RigeneraLista(s);
  s.PuntoCorrenteX = 1725300, s.PuntoCorrenteY = 5031200;
  subImpaginaSezioni(s);
  Dipingi(s);
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k) {
    const Sezione& x = s.SezioneDati[static_cast<size_t>(k)];
    Verifica(std::isfinite(x.OrigineX) && std::isfinite(x.OrigineY), "Una sezione impaginata fuori dal foglio\n");
  }
}

}  // namespace varena::fuzz
