// `DisegnoEntitaLinea`: the free polyline (2), the two-point line (22) and the line of
// discontinuity (349) that the triangulation keeps as a breakline.
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Sessione.h"

namespace varena {

void DisegnoEntitaLinea(Sessione& s) {
  const bool discontinuita = s.ComandoCorrente == 349;
  const char* prompt = discontinuita ? "Disegno Linea Discontinuità - Al Punto:" : "Disegno Linea - Al Punto:";
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, prompt);
    return;
  }
  // The same point of the tables twice gives no line; two clicks on one free place do.
  if (s.PuntoCorrenteIndice >= 0 && s.PuntoCorrenteIndice == s.Punto1Indice) return;
  ScriviLinea(s, {s.Punto1X, s.Punto1Y, s.Punto1Z}, {s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ},
              discontinuita ? "DISCONTI" : s.PianoCorrente);
  SpostaPunti(s);
  FineModifica(s, false);
  if (s.ComandoCorrente == 22) {
    ArmaComando(s);
  } else {
    // The chain goes on from the point just reached.
    s.PassoComando = 1;
    MostraPrompt(s, prompt);
  }
}

}  // namespace varena
