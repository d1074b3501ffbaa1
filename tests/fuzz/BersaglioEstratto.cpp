// The map extract's text: the input stands as the `.EMP` of the folder of extracts, associated
// with the example job; it is read, its raster looked for, its lines and texts made into
// kind 14, regenerated and painted. The first byte chooses whether the same bytes stand as
// the raster too, so that a broken picture meets the same text.
#include "Bersagli.h"
#include "cadastre/Estratto.h"
#include "core/Sessione.h"
#include "view/Rigenera.h"

namespace varena::fuzz {

void FuzzEstratto(const Ambiente& a, std::string_view byte) {
  const bool immagine = Scelta(byte, 2) == 1;
  const std::string cartella = a.Radice() + "/estratti";
  ScriviFileFuzz(cartella + "/F12.EMP", byte);
  if (immagine) ScriviFileFuzz(cartella + "/F12.PNG", byte);
  Sessione s;
  ApriEsempio(a, s);
  s.Imp.Cartella_Estratti = cartella;
  s.FileEstratto = "F12.EMP";
  s.FileImmagineEstratto.clear();
  CaricaEMP(s);
  CaricaPNG(s);
  RiGeneraEDM(s);
  RigeneraModifiche(s);
  Dipingi(s);
}

}  // namespace varena::fuzz
