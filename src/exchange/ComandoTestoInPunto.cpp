// `FormTestoInPunto`: the pairing of texts with points by hand, for the texts the automatic
// pass left or gave to the wrong point. A text is picked, then its point; the text becomes
// the name, description or height the dialog says, and goes.
#include <string>
#include <utility>

#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfTestiInPunto.h"
#include "snap/Vicino.h"
#include "store/Undo.h"

namespace varena {

namespace {

constexpr const char* kDialogo = "FormTestoInPunto";
constexpr const char* kPromptTesto = "Testo in Punto - Testo :";

Bersaglio Scelto(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  const std::string campo = d ? Maiuscolo(Rifila(d->Valore("Campo"))) : "";
  if (campo.rfind("DESC", 0) == 0) return Bersaglio::Descrizione;
  if (campo.rfind("QUOTA", 0) == 0) return Bersaglio::Quota;
  return Bersaglio::Nome;
}

}  // namespace

bool ApriFormTestoInPunto(Sessione& s) {
  s.TestoInAttesa = -1;
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = "Testo in Punto";
  d.DiLavoro = true;
  d.AggiungiCampo("Campo", "Il testo diventa (Nome, Descrizione, Quota) :", "Nome");
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kDialogo); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  return true;
}

void subTestoInPunto(Sessione& s) {
  if (s.TestoInAttesa < 0 || !RigaViva(s, SlotTesti, s.TestoInAttesa)) {
    const Vicina t = IlPiuVicinoTesto(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
    s.TestoInAttesa = t.Riga;
    if (t.Riga >= 0) MostraPrompt(s, "Testo in Punto - Punto :");
    return;
  }
  const int32_t testo = std::exchange(s.TestoInAttesa, -1);
  MostraPrompt(s, kPromptTesto);
  const Vicina p = IlPiuVicinoPunto(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (p.Riga < 0) return;
  AssegnaTestoAPunto(s, static_cast<size_t>(p.Riga), static_cast<size_t>(testo), Scelto(s));
  SegnaRiga(s, SlotPunti, p.Riga);
  SegnaRiga(s, SlotTesti, testo);
  VR_SalvaUndo(s);
}

}  // namespace varena
