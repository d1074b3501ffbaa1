// The clicks of the point constructions and the first buttons of their dialogs.
#include "commands/RoutineCostruzione.h"

#include <initializer_list>

#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Puntatore.h"
#include "commands/TabellaComandi.h"
#include "commands/TabellaDialoghi.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "survey/Convenzioni.h"
#include "survey/CostruzionePunti.h"

namespace varena {

namespace {

SchedaCostruzione& Scheda(Sessione& s) { return s.Costruzione; }

PuntoNoto Cliccato(const Sessione& s) {
  return {s.PuntoCorrenteNome, {s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ}, s.PuntoCorrenteIndice};
}

// The first prompt of the armed command, shown while its dialog is up: the next click
// starts the construction again.
void PromptIniziale(Sessione& s) {
  const SchedaCodice* scheda = SchedaPerCodice(s.ComandoCorrente);
  if (scheda && scheda->PromptDinamico) {
    MostraPrompt(s, scheda->PromptDinamico(s));
    return;
  }
  const auto tabella = TabellaComandi();
  if (s.VoceArmata >= 0 && static_cast<size_t>(s.VoceArmata) < tabella.size())
    MostraPrompt(s, tabella[static_cast<size_t>(s.VoceArmata)].Prompt);
}

// The result of a construction, kept as the last one and inserted.
int32_t Inserisci(Sessione& s, const PuntoXYZ& p) {
  Scheda(s).PuntoNuovo = p;
  return InserisciPuntoNuovo(s, p);
}

// The figure of a construction, painted once over the drawing after the point went in; the
// next redraw takes it away.
void Anteprima(Sessione& s, std::initializer_list<PuntoXYZ> vertici) {
  SpezzataTemporanea& p = s.SpezzataTemporanea;
  p.Svuota();
  for (const PuntoXYZ& v : vertici) {
    p.X.push_back(v.X);
    p.Y.push_back(v.Y);
  }
  DipingiSpezzata(s);
  p.Svuota();
}

// A computation that gives no point (a triangle that does not close, directions that never
// meet): the box, and the command ends with nothing changed.
void Fallita(Sessione& s, const char* testo, const char* titolo) {
  s.Ui->Messaggio(testo, titolo, Icona::Avviso);
  InterrompiComando(s);
}
void DistanzeNonAmmissibili(Sessione& s, const char* titolo) { Fallita(s, "Distanze non ammissibili!", titolo); }
void PuntoNonTrovato(Sessione& s, const char* titolo) { Fallita(s, "Punto Non Trovato", titolo); }

std::string Metri(double v) { return TestoMetri(v); }
std::string Gon(double radianti) { return TestoGon(RadToGon * radianti); }

// A zenith reading left empty, or 0, is a level sight: the field shows it again as "100".
double Zenitale(Sessione& s, const char* dialogo, const Dialogo& d, const char* campo) {
  const double v = d.Numero(campo);
  if (v != 0) return v;
  AggiornaCampo(s, dialogo, campo, "100");
  return 100;
}

}  // namespace

// A click of a construction: it becomes the known point of its step. A click while the
// command's dialog is up starts again from the first point. True once the `quanti`-th has
// come; otherwise the prompt of the next one is shown.
bool Raccogli(Sessione& s, int quanti, const char* dialogo, std::initializer_list<const char*> prompt) {
  if (s.PassoComando >= quanti) {
    if (dialogo) ChiudiDialogo(s, dialogo);
    s.PassoComando = 0;
  }
  SchedaCostruzione& c = Scheda(s);
  PuntoNoto* posti[] = {&c.Primo, &c.Secondo, &c.Terzo, &c.Quarto};
  *posti[s.PassoComando] = Cliccato(s);
  SpostaPunti(s);
  ++s.PassoComando;
  if (s.PassoComando < quanti) {
    MostraPrompt(s, *(prompt.begin() + (s.PassoComando - 1)));
    return false;
  }
  return true;
}

// The last click taken: the dialog of the measures opens.
void ApriMisure(Sessione& s, const char* dialogo) {
  ApriDialogoDiTabella(s, dialogo);
  PromptIniziale(s);
}

// The dialog's work is done: it closes and the command waits for its first point again.
void Ricomincia(Sessione& s, const char* dialogo) {
  ChiudiDialogo(s, dialogo);
  ArmaComando(s);
}

// --- Clicks ---------------------------------------------------------------------------------

void subPuntoBilatera(Sessione& s) {
  if (Raccogli(s, 2, "PuntoBilatera", {"Punto Bilatera - Secondo Punto:"})) ApriMisure(s, "PuntoBilatera");
}

void subStazioneLibera(Sessione& s) {
  if (Raccogli(s, 2, "StazioneLibera", {"Punto StazioneLibera - Secondo Punto:"})) ApriMisure(s, "StazioneLibera");
}

void subPuntoPiede(Sessione& s) {
  if (!Raccogli(s, 3, nullptr, {"Punto Piede - Secondo Punto:", "Punto Piede - Punto da Proiettare:"})) return;
  const SchedaCostruzione& c = Scheda(s);
  const PiedeConSegni r = PiedeSegnato(c.Primo.P, c.Secondo.P, c.Terzo.P);
  // A line of two points in one place has no foot: the command starts again.
  if (r.Stato == kRiuscito) {
    Inserisci(s, r.F);
    ApriDialogoDiTabella(s, "PuntoPiede");
  }
  ArmaComando(s);
}

void subPuntoApertura(Sessione& s) {
  if (Raccogli(s, 2, "PuntoApertura", {"Punto Apertura - Punto Orientamento :"})) ApriMisure(s, "PuntoApertura");
}

void subPuntoSquadro(Sessione& s) {
  if (Raccogli(s, 2, "PuntoSquadro", {"Punto Squadro - Punto Orientamento :"})) ApriMisure(s, "PuntoSquadro");
}

void subPuntoIrraggiamento(Sessione& s) {
  if (Raccogli(s, 2, "Irraggiamento", {"Irraggiamento - Punto di Orientamento:"})) ApriMisure(s, "Irraggiamento");
}

std::string PromptIrraggiamento(const Sessione& s) {
  const std::string& stazione = s.Costruzione.UltimaStazione;
  std::string prompt = "Irraggiamento - Punto di Stazione:";
  if (!stazione.empty() && IlPiuVicinoPerNome(s, stazione) >= 0) prompt += " " + stazione;
  return prompt;
}

void subPuntoIncrocio(Sessione& s) {
  if (!Raccogli(s, 4, nullptr,
                {"Punto Incrocio - Secondo Punto:", "Punto Incrocio - Terzo Punto:", "Punto Incrocio - Quarto Punto:"}))
    return;
  SchedaCostruzione& c = Scheda(s);
  // The status is not looked at: parallel lines give again the point made before.
  PuntoXYZ p = c.PuntoNuovo;
  PuntoIncrocio(c.Primo.P, c.Secondo.P, c.Terzo.P, c.Quarto.P, p);
  Inserisci(s, p);
  Anteprima(s, {c.Terzo.P, c.Quarto.P});
  ArmaComando(s);
}

void subPuntoMedio(Sessione& s) {
  if (!Raccogli(s, 2, nullptr, {"Punto Medio - Secondo Punto:"})) return;
  const SchedaCostruzione& c = Scheda(s);
  Inserisci(s, PuntoMedio(c.Primo.P, c.Secondo.P));
  ArmaComando(s);
}

void subPuntoInAvanti(Sessione& s) {
  if (Raccogli(s, 2, "PuntoInAvanti", {"Punto In Avanti - Secondo Punto:"})) ApriMisure(s, "PuntoInAvanti");
}

void subPuntoTangente(Sessione& s) {
  if (s.PassoComando == 0) {
    Raccogli(s, 2, nullptr, {"Punto Tangente - Indica Entità:"});
    // The second click is the tangent point of the entity under it, from the first point.
    s.ModoSnap = SnapTangente;
    s.SnapDaTasto = false;
    return;
  }
  // The snap has already made the tangent point the current one.
  Inserisci(s, {s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ});
  ArmaComando(s);
}

void subPolariCartesiane(Sessione& s) {
  if (Raccogli(s, 1, "PolariCartesiane", {})) ApriMisure(s, "PolariCartesiane");
}

void subIntersecaDirezione(Sessione& s) {
  if (Raccogli(s, 3, "IntersecaDirezione",
               {"Interseca Direzione - Secondo Punto :", "Interseca Direzione - Punto di Stazione :"}))
    ApriMisure(s, "IntersecaDirezione");
}

void subPuntoDistanza(Sessione& s) {
  if (Raccogli(s, 2, "PuntoDistanza", {"Punto Distanza - Secondo Punto:"})) ApriMisure(s, "PuntoDistanza");
}

// --- First buttons --------------------------------------------------------------------------

void ConfermaPuntoBilatera(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "PuntoBilatera");
  if (!d) return;
  const SchedaCostruzione& c = Scheda(s);
  PuntoXYZ p;
  if (PuntoBilatera(c.Primo.P, c.Secondo.P, d->Numero("Distanza1"), d->Numero("Distanza2"), p) > 1) {
    DistanzeNonAmmissibili(s, "Punto Bilatera");
    return;
  }
  Inserisci(s, p);
  Anteprima(s, {c.Primo.P, c.Secondo.P, p, c.Primo.P});
  Ricomincia(s, "PuntoBilatera");
}

void ConfermaStazioneLibera(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "StazioneLibera");
  if (!d) return;
  SchedaCostruzione& c = Scheda(s);
  const RisultatoStazioneLibera r = StazioneLibera(c.Primo.P, c.Secondo.P, d->Numero("Distanza1"),
                                                   d->Numero("Distanza2"), d->Numero("Lettura1"), d->Numero("Lettura2"));
  auto testo = [](double v) { return FormatoRilievo(v, "########0.###0"); };
  s.Ui->Messaggio("Distanza Reale = " + testo(r.BaseReale) + "\nDistanza Rilevata = " + testo(r.BaseMisurata) +
                      "\nDifferenza = " + testo(r.BaseReale - r.BaseMisurata),
                  "Punto Stazione Libera", Icona::Informazione);
  if (r.Stato > 1) {
    DistanzeNonAmmissibili(s, "Punto Stazione Libera");
    return;
  }
  const int32_t riga = Inserisci(s, r.Stazione);
  c.UltimaStazione = Rifila(s.PuntoNome[static_cast<size_t>(riga)]);
  Anteprima(s, {c.Primo.P, r.Stazione, c.Secondo.P});
  Ricomincia(s, "StazioneLibera");
}

void ConfermaPuntoPiede(Sessione& s) { Ricomincia(s, "PuntoPiede"); }

void ConfermaPuntoApertura(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "PuntoApertura");
  if (!d) return;
  const SchedaCostruzione& c = Scheda(s);
  const PuntoXYZ p = PuntoApertura(c.Primo.P, c.Secondo.P, d->Numero("Angolo"), d->Numero("Distanza"));
  Inserisci(s, p);
  Anteprima(s, {c.Secondo.P, c.Primo.P, p});
}

void ConfermaPuntoSquadro(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "PuntoSquadro");
  if (!d) return;
  const SchedaCostruzione& c = Scheda(s);
  const double lato1 = d->Numero("Lato1"), angolo = d->Numero("Angolo");
  PuntoXYZ p;
  if (PuntoSquadro(c.Primo.P, c.Secondo.P, lato1, d->Numero("Lato2"), angolo, p) != kRiuscito) {
    s.Ui->Messaggio("Distanza Negativa!", "Impossibile continuare", Icona::Avviso);
    return;
  }
  Inserisci(s, p);
  // The two legs: along the orientation, then square to it.
  const PuntoXYZ angoloRetto = PuntoApertura(c.Primo.P, c.Secondo.P, angolo, lato1);
  Anteprima(s, {c.Primo.P, angoloRetto, p});
}

void ConfermaIrraggiamento(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "Irraggiamento");
  if (!d) return;
  const SchedaCostruzione& c = Scheda(s);
  const double zenit = Zenitale(s, "Irraggiamento", *d, "Zenitale");
  const double correzione = CorrezioneOrientamento(c.Primo.P, c.Secondo.P, d->Numero("LetturaOrientamento"));
  const PuntoXYZ p = Irraggia(c.Primo.P, correzione, d->Numero("Lettura"), d->Numero("Distanza"), zenit,
                              d->Numero("AltezzaStazione"), d->Numero("Prisma"));
  Inserisci(s, p);
  Anteprima(s, {c.Primo.P, p});
}

void ConfermaPuntoInAvanti(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "PuntoInAvanti");
  if (!d) return;
  const SchedaCostruzione& c = Scheda(s);
  PuntoXYZ p;
  if (PuntoInAvanti(c.Primo.P, c.Secondo.P, d->Numero("Angolo1"), d->Numero("Angolo2"), p) != kRiuscito) {
    PuntoNonTrovato(s, "Punto In Avanti");
    return;
  }
  Inserisci(s, p);
  Anteprima(s, {c.Primo.P, p, c.Secondo.P});
  Ricomincia(s, "PuntoInAvanti");
}

void ConfermaPolariCartesiane(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "PolariCartesiane");
  if (!d) return;
  const PuntoXYZ o = Scheda(s).Primo.P;
  Inserisci(s, PolariCartesiane(o, d->Numero("Azimut"), d->Numero("Distanza")));
  // A tick over the origin, that the fan of points keeps its centre in sight.
  Anteprima(s, {o, {o.X, o.Y + s.Vista.AltezzaVista / 40, o.Z}});
}

void ConfermaIntersecaDirezione(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "IntersecaDirezione");
  if (!d) return;
  const SchedaCostruzione& c = Scheda(s);
  // The orientation point by the name typed. The name offered is the first point of the
  // line, which holds even for a free place; any other name must be a point's, else the
  // direction would be turned from a point the user never meant: the name is asked again.
  const std::string nome = Rifila(d->Valore("Orientamento"));
  PuntoXYZ orientamento = c.Primo.P;
  if (const int32_t riga = IlPiuVicinoPerNome(s, nome); riga >= 0) {
    const auto k = static_cast<size_t>(riga);
    orientamento = {s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]};
  } else if (nome != Rifila(c.Primo.Nome)) {
    s.Ui->Messaggio("Punto Non Trovato", "Punto non Trovato", Icona::Avviso);
    return;
  }
  const double zenit = Zenitale(s, "IntersecaDirezione", *d, "Zenitale");
  PuntoXYZ p;
  if (IntersecaDirezione(c.Primo.P, c.Secondo.P, c.Terzo.P, orientamento, d->Numero("LetturaOrientamento"),
                         d->Numero("Azimutale"), zenit, d->Numero("AltezzaStrumento"), p) != kRiuscito) {
    PuntoNonTrovato(s, "Interseca Direzione");
    return;
  }
  Inserisci(s, p);
  Anteprima(s, {c.Terzo.P, p});
  Ricomincia(s, "IntersecaDirezione");
}

void ConfermaPuntoDistanza(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "PuntoDistanza");
  if (!d) return;
  SchedaCostruzione& c = Scheda(s);
  const PuntoXYZ p = PuntoADistanza(c.Primo.P, c.Secondo.P, d->Numero("Distanza"));
  const int32_t riga = Inserisci(s, p);
  // The new point is the start of the next step: confirmations walk along the line.
  c.Primo = {Rifila(s.PuntoNome[static_cast<size_t>(riga)]), p, riga};
  const AzimutEDistanza ad = AzimutDistanza(c.Primo.P, c.Secondo.P);
  AggiornaCampo(s, "PuntoDistanza", "Primo", c.Primo.Nome);
  AggiornaCampo(s, "PuntoDistanza", "Azimut", Gon(ad.Azimut));
  AggiornaCampo(s, "PuntoDistanza", "Base", Metri(ad.Distanza));
  AggiornaCampo(s, "PuntoDistanza", "Dislivello", Metri(c.Secondo.P.Z - c.Primo.P.Z));
}

}  // namespace varena
