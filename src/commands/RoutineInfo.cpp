// Distance and angle between clicked points, shown in a box.
#include <cmath>

#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"

namespace varena {

namespace {

std::string Metri(double v) { return Rifila(FormatoMaschera(v, "#########0.000")); }
std::string Gon(double v) { return Rifila(FormatoMaschera(v, "#########0.0000")); }

}  // namespace

void subInfoDistanza(Sessione& s) {
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, s.ComandoCorrente == 249 ? "Info Distanza 2P - Secondo Punto:" : "Info Distanza - Secondo Punto:");
    return;
  }
  const AzimutEDistanza ad = AzimutDistanza(s.Punto1X, s.Punto1Y, s.PuntoCorrenteX, s.PuntoCorrenteY);
  const double dislivello = s.PuntoCorrenteZ - s.Punto1Z;
  std::string testo;
  if (s.Punto1Nome != "*" && s.PuntoCorrenteNome != "*")
    testo += "Dal Punto " + s.Punto1Nome + " al Punto " + s.PuntoCorrenteNome + "\n";
  testo += "Distanza = " + Metri(ad.Distanza) + "\n";
  testo += "Azimut = " + Gon(ad.Azimut * RadToGon) + "\n";
  testo += "Dislivello = " + Metri(dislivello) + "\n";
  testo += "Distanza Inclinata = " + Metri(std::hypot(ad.Distanza, dislivello));
  s.Ui->Messaggio(testo, "Info Distanza", Icona::Informazione);
  ArmaComando(s);
}

void subInfoAngolo(Sessione& s) {
  switch (s.PassoComando) {
    case 0:
      SpostaPunti(s);
      s.PassoComando = 1;
      MostraPrompt(s, "Info Angolo - Fine Angolo :");
      return;
    case 1:
      SpostaPunti(s);
      s.PassoComando = 2;
      MostraPrompt(s, "INFO Angolo - Inizio Angolo :");
      return;
    default: {
      // `Punto2` is the vertex, `Punto1` the end: the angle runs clockwise from the start.
      const double fine = AzimutDistanza(s.Punto2X, s.Punto2Y, s.Punto1X, s.Punto1Y).Azimut;
      const double inizio = AzimutDistanza(s.Punto2X, s.Punto2Y, s.PuntoCorrenteX, s.PuntoCorrenteY).Azimut;
      double angolo = (fine - inizio) * RadToGon;
      if (angolo < 0) angolo += 400;
      s.Ui->Messaggio("Angolo = " + Gon(angolo), "Info Angolo", Icona::Informazione);
      ArmaComando(s);
      return;
    }
  }
}

}  // namespace varena
