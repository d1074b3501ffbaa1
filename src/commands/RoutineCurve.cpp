// The drawing commands of circles and arcs: by three points, by diameter, by centre and
// radius, centre and tangent, inscribed in a triangle; the arc by three points and by centre
// and two points; an arc turned into its whole circle.
#include <cmath>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/GeometriaDisegno.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Sessione.h"
#include "snap/Vicino.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

bool StessoPosto(const PuntoXYZ& a, double x, double y) { return a.X == x && a.Y == y; }

// The first two of three clicks, with the prompts of the second and the third. True when
// the third has come.
bool TerzoPunto(Sessione& s, const char* secondo, const char* terzo) {
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, secondo);
    return false;
  }
  if (s.PassoComando == 1) {
    if (StessoPosto(PuntoUno(s), s.PuntoCorrenteX, s.PuntoCorrenteY)) return false;
    SpostaPunti(s);
    s.PassoComando = 2;
    MostraPrompt(s, terzo);
    return false;
  }
  return !StessoPosto(PuntoUno(s), s.PuntoCorrenteX, s.PuntoCorrenteY) &&
         !StessoPosto(PuntoDue(s), s.PuntoCorrenteX, s.PuntoCorrenteY);
}

}  // namespace

void subDisegnoCerchioTrePunti(Sessione& s) {
  if (!TerzoPunto(s, "Cerchio Tre Punti - Secondo Punto:", "Cerchio Tre Punti - Terzo Punto:")) return;
  const PuntoXYZ p1 = PuntoDue(s), p2 = PuntoUno(s), p3 = PuntoCorrente(s);
  PuntoXYZ centro;
  // Three points in a row: the bisectors do not meet, and there is no circle.
  if (!CentroTrePunti(p1, p2, p3, 100, centro)) return;
  centro.Z = p1.Z;
  ScriviCerchio(s, centro, Distanza2D(centro.X, centro.Y, p3.X, p3.Y), s.PianoCorrente);
  FineModifica(s, false);
  Riprendi(s, "Cerchio Tre Punti - Primo Punto :");
}

void subDisegnoCerchioCentroTangente(Sessione& s) {
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Cerchio Centro Tangente - Entita per Tangente:");
    return;
  }
  // The point of the entity square to the centre: its distance is the radius.
  const PuntoXYZ centro = PuntoUno(s);
  const RisultatoVicina r = LapiuvicinaBitMap(s, s.PuntoCorrenteX, s.PuntoCorrenteY, centro);
  if (r.VicinaTipo == 0) return;
  const double raggio = Distanza2D(centro.X, centro.Y, r.Ortogonale.X, r.Ortogonale.Y);
  if (raggio == 0) return;
  ScriviCerchio(s, centro, raggio, s.PianoCorrente);
  FineModifica(s, false);
  ArmaComando(s);
}

void subDisegnoCerchioCentroRaggio(Sessione& s) {
  const double raggio = ValoreArmato(s);
  if (raggio == 0) return;
  ScriviCerchio(s, PuntoCorrente(s), raggio, s.PianoCorrente);
  FineModifica(s, false);
  Riprendi(s);
}

void subDisegnoCerchioDiametro(Sessione& s) {
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Cerchio Diametro - Secondo Punto:");
    return;
  }
  const PuntoXYZ a = PuntoUno(s), b = PuntoCorrente(s);
  if (StessoPosto(a, b.X, b.Y)) return;
  ScriviCerchio(s, {(a.X + b.X) / 2, (a.Y + b.Y) / 2, a.Z}, Distanza2D(a.X, a.Y, b.X, b.Y) / 2, s.PianoCorrente);
  FineModifica(s, false);
  ArmaComando(s);
}

void subDisegnoCerchioInscritto(Sessione& s) {
  if (!TerzoPunto(s, "Cerchio Inscritto - Secondo Punto:", "Cerchio Inscritto - Terzo Punto:")) return;
  const PuntoXYZ p1 = PuntoDue(s);
  double xc = 0, yc = 0, raggio = 0;
  if (CerchioInscritto(p1, PuntoUno(s), PuntoCorrente(s), xc, yc, raggio) != kRiuscito || !(raggio > 0)) return;
  ScriviCerchio(s, {xc, yc, p1.Z}, raggio, s.PianoCorrente);
  FineModifica(s, false);
  ArmaComando(s);
}

void subDisegnoArcoTrePunti(Sessione& s) {
  if (!TerzoPunto(s, "Arco Tre Punti - Secondo Punto:", "Arco Tre Punti - Terzo Punto:")) return;
  const PuntoXYZ p1 = PuntoDue(s), p2 = PuntoUno(s), p3 = PuntoCorrente(s);
  PuntoXYZ centro;
  if (!CentroTrePunti(p1, p2, p3, 100, centro)) return;
  const ArcoGon arco = ArcoPerTrePunti(centro, p1, p2, p3);
  const PuntoXYZ& inizio = arco.Rovesciato ? p3 : p1;
  const PuntoXYZ& fine = arco.Rovesciato ? p1 : p3;
  centro.Z = inizio.Z;
  ScriviArco(s, centro, Distanza2D(centro.X, centro.Y, p1.X, p1.Y), arco.Inizio, arco.Ampiezza, inizio.Z, fine.Z,
             s.PianoCorrente);
  FineModifica(s, false);
  ArmaComando(s);
}

void subArcoDuePunti(Sessione& s) {
  if (!TerzoPunto(s, "Arco Due Punti - Punto Inizio:", "Arco Due Punti - Punto Per Angolo")) return;
  const PuntoXYZ centro = PuntoDue(s), inizio = PuntoUno(s);
  // Clockwise from the start to the direction of the third click.
  const double da = AzimutDistanza(centro, inizio).Azimut * RadToGon;
  const double ampiezza = GonPositivo(AzimutDistanza(centro, PuntoCorrente(s)).Azimut * RadToGon - da);
  if (ampiezza == 0) return;
  ScriviArco(s, centro, Distanza2D(centro.X, centro.Y, inizio.X, inizio.Y), da, ampiezza, inizio.Z, inizio.Z,
             s.PianoCorrente);
  FineModifica(s, false);
  ArmaComando(s);
}

void subArcoInCerchio(Sessione& s) {
  const Vicina v = IlPiuVicinoArco(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (!EntitaViva(s, SlotArchi, v.Riga)) {
    s.Ui->Messaggio("Nessun Arco nel Disegno!", "Arco non Trovato", Icona::Avviso);
    return;
  }
  const auto k = static_cast<size_t>(v.Riga);
  const int32_t riga = ScriviCerchio(s, {s.ArcoX[k], s.ArcoY[k], s.ArcoZ[k]}, s.ArcoRaggio[k], s.ArcoPiano[k]);
  const auto c = static_cast<size_t>(riga);
  s.CerchioColore[c] = s.ArcoColore[k];
  s.CerchioTratteggio[c] = s.ArcoTratteggio[k];
  s.ArcoIdent[k] = -1;
  SegnaModificato(s, SlotArchi);
  // The arc's records leave the list, and the circle's come with its own colour and type.
  FineModifica(s);
  ArmaComando(s);
}

}  // namespace varena
