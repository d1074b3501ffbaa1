// The settings dialog.
#include "core/DialogoConfigura.h"

#include "core/Configura.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"

namespace varena {

bool ApriFormConfiguraTutto(Sessione& s) {
  Dialogo d;
  d.Nome = kDialogoConfigura;
  d.Titolo = "Configura Tutto";
  d.AggiungiCampo("SalvaUnaCopiaZip", "Ad ogni salvataggio anche l'archivio compresso .VRZ (1/0) :",
                  s.Imp.SalvaUnaCopiaZip != 0 ? "1" : "0");
  d.Campo("SalvaUnaCopiaZip")->Scelte = {"0", "1"};
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    const Dialogo* aperto = TrovaDialogo(x, kDialogoConfigura);
    x.Imp.SalvaUnaCopiaZip = aperto && aperto->Numero("SalvaUnaCopiaZip") != 0 ? 1 : 0;
    ChiudiDialogo(x, kDialogoConfigura);
    ConfiguraScrivi(x);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, kDialogoConfigura); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
