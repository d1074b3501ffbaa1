// The resection as a command: three known points picked, the two angles typed in the dialog
// "Calcolo Pothenot", the station inserted through the new-point dialog. A refusal is said
// and leaves the dialog up with the angles as typed.
#include <string>

#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/RoutineCostruzione.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "survey/DialoghiCalcoli.h"
#include "survey/Resezione.h"

namespace varena {

namespace {

constexpr const char* kDialogo = "CalcoloPothenot";
constexpr const char* kTitolo = "Calcolo Pothenot";

void Conferma(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  SchedaCostruzione& c = s.Costruzione;
  const EsitoPothenot e = Pothenot(c.Primo.P, c.Secondo.P, c.Terzo.P, d->Numero("Alfa"), d->Numero("Beta"));
  if (e.Stato > 1) {
    s.Ui->Messaggio(e.Motivo, kTitolo, Icona::Avviso);
    return;
  }
  c.PuntoNuovo = e.Stazione;
  InserisciPuntoNuovo(s, e.Stazione);
  Ricomincia(s, kDialogo);
}

}  // namespace

void subCalcolaPothenot(Sessione& s) {
  if (Raccogli(s, 3, kDialogo, {"Pothenot - Secondo Trigonometrico", "Pothenot - Terzo Trigonometrico"}))
    ApriMisure(s, kDialogo);
}

bool ApriCalcoloPothenot(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = kTitolo;
  d.DiLavoro = true;
  d.AggiungiDato("Primo", "Primo Trigonometrico   : ", c.Primo.Nome)
      .AggiungiDato("Secondo", "Secondo Trigonometrico : ", c.Secondo.Nome)
      .AggiungiDato("Terzo", "Terzo Trigonometrico   : ", c.Terzo.Nome);
  d.AggiungiCampo("Alfa", "Angolo tra " + c.Primo.Nome + " e " + c.Secondo.Nome + " :");
  d.AggiungiCampo("Beta", "Angolo tra " + c.Secondo.Nome + " e " + c.Terzo.Nome + " :");
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    if (x.ComandoCorrente != 211) return;
    x.RoutineCorrente = "subCalcolaPothenot";
    Protetto(x, [&] { Conferma(x); });
  });
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) {
    ChiudiDialogo(x, kDialogo);
    if (x.ComandoCorrente == 211) InterrompiComando(x);
  });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
