#include "survey/DialoghiCalcoli.h"

#include <string>

#include "commands/Comandi.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"

namespace varena {

void BottoneCalcolo(Dialogo& d, const char* nome, const char* etichetta, void (*azione)(Sessione&)) {
  d.AggiungiBottone(nome, etichetta, [azione, routine = d.Nome](Sessione& x) {
    x.RoutineCorrente = routine;
    Protetto(x, [&] { azione(x); });
  });
}

void BottoneChiudi(Dialogo& d, int codice) {
  d.AggiungiBottone("Chiudi", "Chiudi", [codice, nome = d.Nome](Sessione& x) {
    ChiudiDialogo(x, nome);
    if (codice == 0 || x.ComandoCorrente == codice) InterrompiComando(x);
  });
  d.BottoneEsc = "Chiudi";
}

}  // namespace varena
