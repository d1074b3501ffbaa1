// The dialogs of the point constructions: a head with the known points and the base as the
// clicks took them, the measures to type, and two buttons: the first computes and inserts,
// the second (and Esc) closes the dialog and ends the command.
#include <cstdint>
#include <string>
#include <vector>

#include "commands/Comandi.h"
#include "commands/RoutineCostruzione.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "survey/CostruzionePunti.h"

namespace varena {

namespace {

std::string Metri(double v) { return TestoMetri(v); }
std::string GonDaRadianti(double radianti) { return TestoGon(RadToGon * radianti); }

Dialogo Nuovo(const char* nome, const char* titolo) {
  Dialogo d;
  d.Nome = nome;
  d.Titolo = titolo;
  d.DiLavoro = true;
  return d;
}

// A measure typed by the user. `virgolaAlTasto`: the dialog turns "," into "." as it is
// typed, and reads the text as it stands.
void Misura(Dialogo& d, const char* nome, std::string etichetta, std::string testo = {},
            bool virgolaAlTasto = false, std::vector<std::string> scelte = {}) {
  d.AggiungiCampo(nome, std::move(etichetta), std::move(testo));
  d.Campi.back().VirgolaAlTasto = virgolaAlTasto;
  d.Campi.back().Scelte = std::move(scelte);
}

// The two buttons. A press reaches the computation only while the command that opened the
// dialog is the one armed (a point being memorised lays it aside for a moment).
void BottoniCostruzione(Dialogo& d, int32_t codice, const char* routine, void (*conferma)(Sessione&)) {
  const std::string nome = d.Nome;
  d.AggiungiBottone("OK", "OK", [codice, routine, conferma](Sessione& x) {
    if (x.ComandoCorrente != codice) return;
    x.RoutineCorrente = routine;
    Protetto(x, [&] { conferma(x); });
  });
  d.AggiungiBottone("Chiudi", "Chiudi", [codice, nome](Sessione& x) {
    ChiudiDialogo(x, nome);
    // The end of the command keeps the settings, as closing the dialog must.
    if (x.ComandoCorrente == codice) InterrompiComando(x);
  });
  d.BottoneEsc = "Chiudi";
}

// The head of two known points and the base between them.
void TestaBase(Dialogo& d, const SchedaCostruzione& c, const char* etichettaAzimut, const char* etichettaDistanza) {
  const AzimutEDistanza ab = AzimutDistanza(c.Primo.P, c.Secondo.P);
  d.AggiungiDato("Primo", "Primo Punto   : ", c.Primo.Nome)
      .AggiungiDato("Secondo", "Secondo Punto : ", c.Secondo.Nome)
      .AggiungiDato("Azimut", etichettaAzimut, GonDaRadianti(ab.Azimut))
      .AggiungiDato("Base", etichettaDistanza, Metri(ab.Distanza));
}

bool Apri(Sessione& s, Dialogo d) {
  ApriDialogo(s, std::move(d));
  return true;
}

float AltezzaDelPunto(const Sessione& s, const PuntoNoto& p) {
  return p.Riga >= 0 && p.Riga < s.ContaEntita[SlotPunti] ? s.PuntoHPrisma[static_cast<size_t>(p.Riga)] : 0.0f;
}

}  // namespace

bool ApriPuntoBilatera(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Dialogo d = Nuovo("PuntoBilatera", "Punto Bilatera");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  Misura(d, "Distanza1", "Distanza da " + c.Primo.Nome + " :");
  Misura(d, "Distanza2", "Distanza da " + c.Secondo.Nome + " :");
  BottoniCostruzione(d, 160, "subPuntoBilatera", ConfermaPuntoBilatera);
  return Apri(s, std::move(d));
}

bool ApriStazioneLibera(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Dialogo d = Nuovo("StazioneLibera", "Punto Stazione Libera");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  // One row for each known point: the caption, the reading, then the distance beside it.
  Misura(d, "Lettura1", "Azimut e Distanza da " + c.Primo.Nome + " :");
  Misura(d, "Distanza1", "");
  Misura(d, "Lettura2", "Azimut e Distanza da " + c.Secondo.Nome + " :");
  Misura(d, "Distanza2", "");
  BottoniCostruzione(d, 332, "subStazioneLibera", ConfermaStazioneLibera);
  return Apri(s, std::move(d));
}

bool ApriPuntoPiede(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  const PiedeConSegni r = PiedeSegnato(c.Primo.P, c.Secondo.P, c.Terzo.P);
  Dialogo d = Nuovo("PuntoPiede", "Punto Piede");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  // The third point goes after the second, before the base.
  d.Campi.insert(d.Campi.begin() + 2, CampoDialogo{"Terzo", "Terzo Punto : ", c.Terzo.Nome, true, false, {}});
  d.AggiungiDato("QuotaPiede", "Quota Piede : ", Metri(r.F.Z))
      .AggiungiDato("Ascissa", "Ascissa : ", Metri(r.Ascissa))
      .AggiungiDato("Distacco", "Distacco : ", Metri(r.Distacco));
  BottoniCostruzione(d, 26, "subPuntoPiede", ConfermaPuntoPiede);
  return Apri(s, std::move(d));
}

bool ApriPuntoApertura(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Dialogo d = Nuovo("PuntoApertura", "Punto Apertura");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  Misura(d, "Angolo", "Angolo di Apertura :", {}, true, {"100", "200", "300", "0"});
  Misura(d, "Distanza", "Distanza :", {}, true);
  BottoniCostruzione(d, 158, "subPuntoApertura", ConfermaPuntoApertura);
  // The four quarter turns at one press.
  for (const char* angolo : {"100", "200", "300", "0"})
    d.AggiungiBottone(angolo, angolo, [angolo](Sessione& x) { AggiornaCampo(x, "PuntoApertura", "Angolo", angolo); });
  return Apri(s, std::move(d));
}

bool ApriPuntoSquadro(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Dialogo d = Nuovo("PuntoSquadro", "Punto Squadro");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  Misura(d, "Lato1", "Primo Lato :", {}, true);
  Misura(d, "Lato2", "Secondo Lato :", {}, true);
  Misura(d, "Angolo", "Angolo :", "0", true, {"0", "100", "200", "300"});
  BottoniCostruzione(d, 161, "subPuntoSquadro", ConfermaPuntoSquadro);
  return Apri(s, std::move(d));
}

bool ApriIrraggiamento(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  const AzimutEDistanza ab = AzimutDistanza(c.Primo.P, c.Secondo.P);
  Dialogo d = Nuovo("Irraggiamento", "Irraggiamento");
  d.AggiungiDato("Stazione", "Stazione     : ", c.Primo.Nome)
      .AggiungiDato("Orientamento", "Orientamento : ", c.Secondo.Nome)
      .AggiungiDato("Azimut", "Azimut       : ", GonDaRadianti(ab.Azimut))
      .AggiungiDato("Base", "Distanza     : ", Metri(ab.Distanza));
  Misura(d, "LetturaOrientamento", "Lettura Orientamento : ", "0", true);
  d.AggiungiDato("QuotaStazione", "Quota Stazione   : ", Metri(c.Primo.P.Z));
  Misura(d, "AltezzaStazione", "Altezza Stazione : ", Metri(AltezzaDelPunto(s, c.Primo)), true);
  Misura(d, "Lettura", "Lettura Azimutale :", {}, true);
  Misura(d, "Distanza", "Distanza :", {}, true);
  Misura(d, "Zenitale", "Lettura Zenitale :", "100", true);
  Misura(d, "Prisma", "Altezza Prisma :", {}, true);
  BottoniCostruzione(d, 170, "subPuntoIrraggiamento", ConfermaIrraggiamento);
  return Apri(s, std::move(d));
}

bool ApriPuntoInAvanti(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Dialogo d = Nuovo("PuntoInAvanti", "Punto In Avanti");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  Misura(d, "Angolo1", "Primo Angolo :");
  Misura(d, "Angolo2", "Secondo Angolo :");
  BottoniCostruzione(d, 172, "subPuntoInAvanti", ConfermaPuntoInAvanti);
  return Apri(s, std::move(d));
}

bool ApriPolariCartesiane(Sessione& s) {
  const PuntoNoto& o = s.Costruzione.Primo;
  Dialogo d = Nuovo("PolariCartesiane", "Polari > Cartesiane");
  d.AggiungiDato("Origine", "Punto Origine : ", o.Nome)
      .AggiungiDato("Nord", "         Nord : ", Metri(o.P.Y))
      .AggiungiDato("Est", "          Est : ", Metri(o.P.X))
      .AggiungiDato("Quota", "        Quota : ", Metri(o.P.Z));
  Misura(d, "Azimut", "Azimut");
  Misura(d, "Distanza", "Distanza");
  BottoniCostruzione(d, 169, "subPolariCartesiane", ConfermaPolariCartesiane);
  return Apri(s, std::move(d));
}

bool ApriIntersecaDirezione(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  const PuntoNoto& st = c.Terzo;
  const double r0 = st.Riga >= 0 && st.Riga < s.ContaEntita[SlotPunti]
                        ? s.PuntoErroreOrientamento[static_cast<size_t>(st.Riga)]
                        : 0.0;
  Dialogo d = Nuovo("IntersecaDirezione", "Interseca Direzione");
  TestaBase(d, c, "Azimut   : ", "Distanza : ");
  d.AggiungiDato("Stazione", "Stazione : ", st.Nome).AggiungiDato("QuotaStazione", "Quota Stazione : ", Metri(st.P.Z));
  Misura(d, "AltezzaStrumento", "Altezza Strumento : ", Metri(AltezzaDelPunto(s, st)));
  // The station's orientation as its record holds it, sighted on the first point of the
  // line unless another point is named.
  Misura(d, "Orientamento", "Punto Orientamento : ", c.Primo.Nome);
  Misura(d, "LetturaOrientamento", "Lettura Orientamento : ", TestoGon(r0));
  Misura(d, "Azimutale", "Lettura Azimutale : ");
  Misura(d, "Zenitale", "Lettura Zenitale :", "100");
  BottoniCostruzione(d, 372, "subIntersecaDirezione", ConfermaIntersecaDirezione);
  return Apri(s, std::move(d));
}

bool ApriPuntoDistanza(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  const AzimutEDistanza ab = AzimutDistanza(c.Primo.P, c.Secondo.P);
  Dialogo d = Nuovo("PuntoDistanza", "Punto Distanza");
  d.AggiungiDato("Primo", "Primo Punto   : ", c.Primo.Nome)
      .AggiungiDato("Secondo", "Secondo Punto : ", c.Secondo.Nome)
      .AggiungiDato("Azimut", "Azimut     : ", GonDaRadianti(ab.Azimut))
      .AggiungiDato("Base", "Distanza   : ", Metri(ab.Distanza))
      .AggiungiDato("Dislivello", "Dislivello : ", Metri(c.Secondo.P.Z - c.Primo.P.Z));
  Misura(d, "Distanza", "Distanza :", TestoQuattroDecimali(ab.Distanza));
  BottoniCostruzione(d, 601, "subPuntoDistanza", ConfermaPuntoDistanza);
  return Apri(s, std::move(d));
}

}  // namespace varena
