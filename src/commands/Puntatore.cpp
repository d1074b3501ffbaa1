// The button event, the move event and `Disegno`.
#include "commands/Puntatore.h"

#include <cmath>

#include "commands/Comandi.h"
#include "commands/GeometriaDisegno.h"
#include "commands/DialoghiSelezione.h"
#include "commands/TabellaComandi.h"
#include "commands/TabellaDialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "sections/ComandiSezioni.h"
#include "core/Testo.h"
#include "snap/Snap.h"
#include "snap/Vicino.h"
#include "survey/Convenzioni.h"
#include "view/Elastico.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Vista.h"
#include "view/Zoom.h"

namespace varena {

namespace {

PuntoXYZ Punto1(const Sessione& s) { return {s.Punto1X, s.Punto1Y, s.Punto1Z}; }
PuntoXYZ Punto2(const Sessione& s) { return {s.Punto2X, s.Punto2Y, s.Punto2Z}; }

bool Tra(int32_t c, std::initializer_list<int32_t> codici) {
  for (int32_t x : codici)
    if (x == c) return true;
  return false;
}

// Once the snap has given the point: the one-click snap goes back to free, the orthogonal
// mode straightens a free point, and the click goes to the command or the selection.
void ClicRisolto(Sessione& s, int16_t modoUsato, bool dalPuntatore) {
  if (modoUsato != SnapLibero && s.SnapDaTasto) {
    s.ModoSnap = SnapLibero;
    s.SnapDaTasto = false;
  }
  if (dalPuntatore && modoUsato == SnapLibero && s.Ortogonale != 0 && s.PassoComando == 1 &&
      !Tra(s.ComandoCorrente, {138, 165, 166, 167, 168})) {
    // The smaller component of the step from `Punto1` is dropped; a tie keeps North.
    const double dx = s.PuntoCorrenteX - s.Punto1X, dy = s.PuntoCorrenteY - s.Punto1Y;
    if (std::fabs(dy) >= std::fabs(dx))
      s.PuntoCorrenteX = s.Punto1X;
    else
      s.PuntoCorrenteY = s.Punto1Y;
  }
  if (s.FaseSelezione == 0)
    Disegno(s);
  else
    ClicDiSelezione(s);
}

void PulsanteDestro(Sessione& s) {
  const int32_t c = s.ComandoCorrente;
  if (s.FaseSelezione != 0 && c != 0) {
    ApriDialogoDiTabella(s, "Selezentita");
    return;
  }
  if (c == 0) {
    if (s.Imp.MenuMouse != 1)
      RipetiComando(s);
    else
      s.Ui->MenuContestuale("MENU_EDIT");
    return;
  }
  const char* titolo = c == 230   ? "SQUADRO"
                       : c == 430 ? "COGO"
                       : c == 298 ? "LIVELLAZIONE DAL MEZZO"
                       : c == 299 ? "LIVELLAZIONE RAGGIANTE"
                       : c == 300 ? "POLIGONALE"
                                  : nullptr;
  if (titolo || Tra(c, {190, 248, 379})) {
    // The chain is finished there: its dialog takes over.
    ApriDialogoDiTabella(s, "ContornoSette");
    if (titolo)
      if (Dialogo* d = TrovaDialogo(s, "ContornoSette")) {
        d->Titolo = titolo;
        s.Ui->AggiornaDialogo(*d);
      }
    return;
  }
  if (CodiceDiContorno(c)) {
    ApriDialogoDiTabella(s, "FormSelezionaContorno");
    return;
  }
  if (c == 432) {
    ApriDialogoDiTabella(s, "ProprietaImmagine");
    return;
  }
  if (c == 373) {
    FineCatturaSezione(s);
    return;
  }
  if (c == 382) {
    FineSezioniInSerie(s);
    return;
  }
  InterrompiComando(s);
}

void MouseDownInterno(Sessione& s, int bottone, double xv, double yv) {
  if (bottone == BottoneCentrale) {
    // The drag of the view: the command is left as it is.
    InizioTrascinamento(s, xv, yv);
    s.Trascinamento = true;
    ChiudiSnapPunto(s);
    return;
  }
  if (bottone == BottoneDestro && s.Vista.ModoZoom != ZoomNessuno) {
    // The right button takes back the zoom only; the command goes on with its prompt.
    AnnullaZoom(s);
    NascondiRiquadro(s);
    NascondiLinea(s, s.Elastico.GuidaLinea);
    MostraPrompt(s, s.Vista.PromptSalvato);
    return;
  }
  if (bottone >= BottoneDestro && s.ModoSnap < SnapLibero) {
    // Only at free snap has the right button a command meaning.
    s.ModoSnap = SnapLibero;
    s.SnapDaTasto = false;
    s.FaseIncrocio = 0;
    return;
  }
  if (bottone == BottoneDestro) {
    if (s.SottoFaseSelezione >= 1)
      ApriDialogoDiTabella(s, "SelezPunti");
    else
      PulsanteDestro(s);
    return;
  }
  const PuntoMondo p = InMondo(s.Vista, xv, yv);
  s.PuntoCorrenteX = p.Est;
  s.PuntoCorrenteY = p.Nord;
  s.PuntoCorrenteZ = 0;
  s.PuntoCorrenteNome = "*";
  s.PuntoCorrenteIndice = -1;
  s.TipoEntita = 0;
  s.RigaEntita = -1;
  if (bottone != BottoneSinistro) {
    InterrompiComando(s);
    return;
  }
  if (s.AzionePuntiInAttesa != 0 && s.SottoFaseSelezione != 6) {
    ClicSelezPunti(s, p.Est, p.Nord);
    return;
  }
  const int16_t modo = s.SoloPunti ? int16_t{SnapNodo} : s.ModoSnap;
  if (s.ComandoCorrente != 157) {
    switch (RisolviSnap(s)) {
      case EsitoSnap::Punto: break;
      case EsitoSnap::Ignorato: return;
      case EsitoSnap::FineComando: InterrompiComando(s); return;
    }
  }
  MostraMarca(s, s.PuntoCorrenteX, s.PuntoCorrenteY, s.Vista.AltezzaVista / 100);
  ClicRisolto(s, modo, true);
}

// --- The move event ------------------------------------------------------------------------

std::string Metri(double v) { return FormatoMaschera(v, "#######0.##0"); }

void Lettura(Sessione& s, double x, double y) {
  double n = y, e = x;
  if (s.VisualizzaCoordinate == 2) {
    n = s.Punto1Y, e = s.Punto1X;
  } else if (s.VisualizzaCoordinate == 0) {
    n = s.Vista.CentroNord, e = s.Vista.CentroEst;
  }
  s.LetturaCoordinate = "N=" + Metri(n) + " E=" + Metri(e) + "   " + FormatoMaschera(s.Vista.AltezzaVista, "######0.##0");
}

void Mirino(Sessione& s, double x, double y) {
  const StatoVista& v = s.Vista;
  MostraLinea(s, s.Elastico.MirinoOrizzontale, v.CentroEst + v.BordoSinistro, y, v.CentroEst + v.BordoDestro, y);
  MostraLinea(s, s.Elastico.MirinoVerticale, x, v.CentroNord + v.BordoBasso, x, v.CentroNord + v.BordoAlto);
}

void Suggerimento(Sessione& s, const Vicina& v, bool sempre) {
  SuggerimentoPunto& t = s.Suggerimento;
  t.Righe.clear();
  t.Visibile = false;
  if (v.Riga < 0) return;
  const auto k = static_cast<size_t>(v.Riga);
  if (sempre || s.Imp.MostraNome != 0) t.Righe.push_back(Rifila(s.PuntoNome[k]));
  if (sempre || s.Imp.MostraQuota != 0) t.Righe.push_back(Rifila(FormatoMaschera(s.PuntoZ[k], "########0.000")));
  if (!sempre && s.Imp.MostraDescrizione != 0) t.Righe.push_back(s.PuntoDescrizione[k]);
  t.X = s.PuntoX[k] + s.Vista.AltezzaVista / 50;
  t.Y = s.PuntoY[k] - s.Vista.AltezzaVista / 100;
  t.Cornice = s.Imp.Cornice != 0;
  t.Trasparente = s.Imp.Trasparenza != 0;
  t.Visibile = true;
}

void GuideZoom(Sessione& s) {
  const GuidaZoom g = GuidaPerZoom(s);
  if (g.Tipo == GuidaZoom::Riquadro) {
    // A selection window drawn from right to left takes what it crosses: dashed.
    const bool tratteggiato = s.FaseSelezione == 2 && g.X2 < g.X1;
    MostraRiquadro(s, g.X1, g.Y1, g.X2, g.Y2, tratteggiato);
  } else {
    NascondiRiquadro(s);
  }
  if (g.Tipo == GuidaZoom::Linea)
    MostraLinea(s, s.Elastico.GuidaLinea, g.X1, g.Y1, g.X2, g.Y2);
  else
    NascondiLinea(s, s.Elastico.GuidaLinea);
}

double DuePi() { return 2 * PiGreco; }
double Normale(double a) {
  while (a < 0) a += DuePi();
  while (a >= DuePi()) a -= DuePi();
  return a;
}

// The arc about `c` from `da` to `a`, the sweep kept positive by adding a turn; `per`, when
// given, must lie on it, or the arc runs the other way.
void ArcoTra(Sessione& s, const PuntoXYZ& c, const PuntoXYZ& da, const PuntoXYZ& a, const PuntoXYZ* per) {
  const AzimutEDistanza inizio = AzimutDistanza(c, da);
  double partenza = inizio.Azimut;
  double ampiezza = Normale(AzimutDistanza(c, a).Azimut - partenza);
  if (per && Normale(AzimutDistanza(c, *per).Azimut - partenza) > ampiezza) {
    partenza = AzimutDistanza(c, a).Azimut;
    ampiezza = DuePi() - ampiezza;
  }
  MostraArco(s, c.X, c.Y, inizio.Distanza, partenza, ampiezza);
}

void Elastici(Sessione& s, double x, double y) {
  const SchedaCodice* scheda = SchedaPerCodice(s.ComandoCorrente);
  const FormaElastico forma = scheda && s.ComandoCorrente != 0 ? scheda->Elastico : FormaElastico::Nessuna;
  const PuntoXYZ p1 = Punto1(s), p2 = Punto2(s), qui{x, y, 0};
  const int16_t passo = s.PassoComando;
  bool linea = false, cerchio = false, arco = false;
  auto mostraLinea = [&] {
    MostraLinea(s, s.Elastico.Linea, p1.X, p1.Y, x, y);
    linea = true;
  };
  switch (forma) {
    case FormaElastico::Linea:
      if (passo == 1) mostraLinea();
      break;
    case FormaElastico::Cerchio3P:
      if (passo == 1) {
        MostraCerchio(s, (p1.X + x) / 2, (p1.Y + y) / 2, Distanza2D(p1.X, p1.Y, x, y) / 2);
        cerchio = true;
      } else if (passo == 2) {
        PuntoXYZ c;
        if (CentroTrePunti(p2, p1, qui, 100, c)) {
          MostraCerchio(s, c.X, c.Y, Distanza2D(c.X, c.Y, x, y));
          cerchio = true;
        }
      }
      break;
    case FormaElastico::CerchioCentro:
      if (passo >= 1) {
        MostraCerchio(s, p1.X, p1.Y, Distanza2D(p1.X, p1.Y, x, y));
        cerchio = true;
      }
      break;
    case FormaElastico::CerchioRaggio:
      MostraCerchio(s, x, y, std::fabs(Val(VirgolaInPunto(s.ValoreImputato))));
      cerchio = true;
      break;
    case FormaElastico::Arco3P:
      if (passo == 1) {
        mostraLinea();
      } else if (passo == 2) {
        PuntoXYZ c;
        if (CentroTrePunti(p2, p1, qui, 100, c)) {
          ArcoTra(s, c, p2, qui, &p1);
          arco = true;
        }
      }
      break;
    case FormaElastico::ArcoSerie:
    case FormaElastico::ArcoCentro:
      if (passo == 1) {
        mostraLinea();
      } else if (passo == 2) {
        ArcoTra(s, p2, p1, qui, nullptr);
        arco = true;
      }
      break;
    case FormaElastico::Nessuna: break;
  }
  if (!linea) NascondiLinea(s, s.Elastico.Linea);
  if (!cerchio) NascondiCerchio(s);
  if (!arco) NascondiArco(s);
  if (linea) {
    const AzimutEDistanza ad = AzimutDistanza(p1.X, p1.Y, x, y);
    s.LetturaSegmento = "[D]=" + FormatoMaschera(ad.Distanza, "#######0.000") + " < Az=" +
                        FormatoMaschera(ad.Azimut * RadToGon, "######0.0000");
  } else {
    s.LetturaSegmento.clear();
  }
}

// The candidate of the snap under the pointer, marked on the drawing.
void EvidenziaSnap(Sessione& s, double x, double y, const Vicina* punto) {
  const double lato = s.Vista.AltezzaVista / 100;
  if (s.ComandoCorrente == 0) {
    NascondiMarca(s);
    return;
  }
  if (s.ModoSnap == SnapNodo) {
    if (punto && punto->Riga >= 0) {
      const auto k = static_cast<size_t>(punto->Riga);
      MostraMarca(s, s.PuntoX[k], s.PuntoY[k], lato);
    } else {
      NascondiMarca(s);
    }
    return;
  }
  const bool geometrico = s.ModoSnap == SnapVicino || s.ModoSnap == SnapFine || s.ModoSnap == SnapCentro ||
                          s.ModoSnap == SnapQuadrante || s.ModoSnap == SnapTangente || s.ModoSnap == SnapMedio ||
                          (s.ModoSnap == SnapPiede && s.PassoComando != 0);
  if (!geometrico) {
    NascondiMarca(s);
    return;
  }
  PreparaVicina(s, x, y);
  const RisultatoVicina& r = s.UltimaVicina;
  if (r.VicinaTipo == 0) {
    NascondiMarca(s);
    return;
  }
  const PuntoXYZ& c = s.ModoSnap == SnapVicino     ? r.Vicino
                      : s.ModoSnap == SnapFine     ? r.PiuVicinoFine
                      : s.ModoSnap == SnapCentro   ? r.Centro
                      : s.ModoSnap == SnapQuadrante ? r.Quadrante
                      : s.ModoSnap == SnapTangente ? r.Tangente
                      : s.ModoSnap == SnapMedio    ? r.Medio
                                                   : r.Ortogonale;
  MostraMarca(s, c.X, c.Y, lato);
}

void MouseMoveInterno(Sessione& s, int bottone, double xv, double yv) {
  if (bottone == BottoneCentrale && s.Trascinamento) {
    EseguiSeguito(s, Trascina(s, xv, yv));
    return;
  }
  PuntatoreMosso(s, xv, yv);
  const double x = s.Vista.PuntatoreEst, y = s.Vista.PuntatoreNord;
  s.PuntoCorrenteX = x;
  s.PuntoCorrenteY = y;
  s.UltimaVicinaValida = false;

  s.FormaPuntatore = static_cast<int16_t>(s.Imp.Puntatore);
  const int32_t c = s.ComandoCorrente;
  const bool testo = (c == 355 || c == 396 || c == 397) && s.PassoComando == 0;
  if (testo) {
    // The text to be picked is followed by the cross hair.
    const Vicina t = IlPiuVicinoTesto(s, x, y);
    if (t.Riga >= 0) Mirino(s, s.TestoX[static_cast<size_t>(t.Riga)], s.TestoY[static_cast<size_t>(t.Riga)]);
  } else if (s.Imp.Puntatore == 2) {
    Mirino(s, x, y);
  } else {
    NascondiLinea(s, s.Elastico.MirinoOrizzontale);
    NascondiLinea(s, s.Elastico.MirinoVerticale);
  }

  s.EtichettaSnap = s.Imp.VISUALIZZA_SNAP == 1 && c != 0 ? EtichettaModoSnap(s) : std::string();

  Vicina punto;
  const bool copiaQuota = c == 320 || c == 321;
  if ((s.ModoSnap == SnapNodo && c != 24) || copiaQuota) {
    punto = IlPiuVicinoPunto(s, x, y);
    Suggerimento(s, punto, copiaQuota);
  } else {
    s.Suggerimento.Visibile = false;
    s.Suggerimento.Righe.clear();
  }

  Lettura(s, x, y);
  GuideZoom(s);
  Elastici(s, x, y);
  EvidenziaSnap(s, x, y, s.ModoSnap == SnapNodo ? &punto : nullptr);
}

}  // namespace

void MouseDown(Sessione& s, int bottone, int, double xv, double yv) {
  s.RoutineCorrente = "Picture1_MouseDown";
  Protetto(s, [&] { MouseDownInterno(s, bottone, xv, yv); });
}

void MouseMove(Sessione& s, int bottone, int, double xv, double yv) {
  s.RoutineCorrente = "Picture1_MouseMove";
  Protetto(s, [&] { MouseMoveInterno(s, bottone, xv, yv); });
}

void MouseUp(Sessione& s, int bottone, int, double, double) {
  if (bottone == BottoneCentrale) s.Trascinamento = false;
}

void Disegno(Sessione& s) {
  if (s.Vista.ModoZoom != ZoomNessuno) {
    // The zoom takes the click; the command does not see it.
    const Seguito seguito = ClicZoom(s, s.PuntoCorrenteX, s.PuntoCorrenteY, s.Ortogonale != 0);
    if (s.Vista.ModoZoom == ZoomNessuno) {
      NascondiRiquadro(s);
      NascondiLinea(s, s.Elastico.GuidaLinea);
    }
    EseguiSeguito(s, seguito);
    return;
  }
  if (s.PuntoInDialogo == 1 && DialogoAperto(s, "NuovoPunto")) {
    const Vicina v = IlPiuVicinoPunto(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
    if (v.Riga >= 0) {
      AggiornaCampo(s, "NuovoPunto", "Nome", Rifila(s.PuntoNome[static_cast<size_t>(v.Riga)]));
      s.PuntoInDialogo = 0;
    }
    return;
  }
  const SchedaCodice* scheda = SchedaPerCodice(s.ComandoCorrente);
  if (scheda && scheda->Routine) scheda->Routine(s);
  if (CodiceDiContorno(s.ComandoCorrente)) DipingiSpezzata(s);
}

void SpostaPunti(Sessione& s) {
  s.Punto3X = s.Punto2X, s.Punto3Y = s.Punto2Y, s.Punto3Z = s.Punto2Z;
  s.Punto2X = s.Punto1X, s.Punto2Y = s.Punto1Y, s.Punto2Z = s.Punto1Z;
  s.Punto1X = s.PuntoCorrenteX, s.Punto1Y = s.PuntoCorrenteY, s.Punto1Z = s.PuntoCorrenteZ;
  s.Punto1Indice = s.PuntoCorrenteIndice;
  s.Punto1Nome = s.PuntoCorrenteNome;
}

void ClicDaDialogo(Sessione& s, double x, double y, double z, const std::string& nome, int indice) {
  s.RoutineCorrente = "ClicDaDialogo";
  Protetto(s, [&] {
    s.PuntoCorrenteX = x;
    s.PuntoCorrenteY = y;
    s.PuntoCorrenteZ = z;
    s.PuntoCorrenteNome = nome;
    s.PuntoCorrenteIndice = indice;
    s.TipoEntita = 0;
    s.RigaEntita = -1;
    ClicRisolto(s, s.ModoSnap, false);
  });
}

}  // namespace varena
