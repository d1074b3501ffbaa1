// Extent computation, the zoom to everything and every other zoom and pan.
#include "view/Zoom.h"

#include <cmath>
#include <cstdio>

#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "view/Vista.h"

namespace varena {

void Ingombro::Aggiungi(double x, double y) {
  if (!std::isfinite(x) || !std::isfinite(y)) return;
  if (vuoto_) {
    r_ = {x, y, x, y};
    vuoto_ = false;
    return;
  }
  r_.XMin = std::min(r_.XMin, x);
  r_.YMin = std::min(r_.YMin, y);
  r_.XMax = std::max(r_.XMax, x);
  r_.YMax = std::max(r_.YMax, y);
}

std::optional<Rettangolo> Ingombro::Risultato() const {
  return vuoto_ ? std::nullopt : std::optional<Rettangolo>(r_);
}

namespace {

size_t N(const Sessione& s, int slot) { return static_cast<size_t>(std::max(s.ContaEntita[slot], 0)); }

void ArcoEstremi(const Sessione& s, size_t i, Ingombro& b) {
  // The record holds gon: the start azimuth, and the amplitude counted from it.
  const double a0 = s.ArcoInizio[i] * GonToRad;
  const double a1 = (s.ArcoInizio[i] + s.ArcoFine[i]) * GonToRad;
  b.Aggiungi(s.ArcoX[i] + s.ArcoRaggio[i] * std::sin(a0), s.ArcoY[i] + s.ArcoRaggio[i] * std::cos(a0));
  b.Aggiungi(s.ArcoX[i] + s.ArcoRaggio[i] * std::sin(a1), s.ArcoY[i] + s.ArcoRaggio[i] * std::cos(a1));
}

void Cerchio(const Sessione& s, size_t i, Ingombro& b) {
  b.Aggiungi(s.CerchioX[i] - s.CerchioRaggio[i], s.CerchioY[i] - s.CerchioRaggio[i]);
  b.Aggiungi(s.CerchioX[i] + s.CerchioRaggio[i], s.CerchioY[i] + s.CerchioRaggio[i]);
}

void RipristinaPrompt(Sessione& s) { MostraPrompt(s, s.Vista.PromptSalvato); }

void CurveETesti(const Sessione& s, Ingombro& b);

}  // namespace

namespace {

// Circles, arc ends and text insertions: what both extents take from the tables.
void CurveETesti(const Sessione& s, Ingombro& b) {
  for (size_t i = 0; i < N(s, SlotCerchi); ++i)
    if (IdentVivo(s.CerchioIdent[i])) Cerchio(s, i, b);
  for (size_t i = 0; i < N(s, SlotArchi); ++i)
    if (IdentVivo(s.ArcoIdent[i])) ArcoEstremi(s, i, b);
  for (size_t i = 0; i < N(s, SlotTesti); ++i)
    if (IdentVivo(s.TestoIdent[i])) b.Aggiungi(s.TestoX[i], s.TestoY[i]);
}

}  // namespace

Ingombro IngombroTabelle(const Sessione& s) {
  Ingombro b;
  for (size_t i = 0; i < N(s, SlotPunti); ++i)
    if (IdentVivo(s.PuntoIdent[i]) && s.PuntoCongelaSimbolo[i] == 0) b.Aggiungi(s.PuntoX[i], s.PuntoY[i]);
  CurveETesti(s, b);
  return b;
}

std::optional<Rettangolo> IngombroDisegno(const Sessione& s) {
  Ingombro b = IngombroTabelle(s);
  const ElencoDisegno& l = s.ListaDisegno;
  for (int64_t i = 0; i < l.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    b.Aggiungi(l.X1[k], l.Y1[k]);
    b.Aggiungi(l.X2[k], l.Y2[k]);
  }
  return b.Risultato();
}

std::optional<Rettangolo> IngombroEntita(const Sessione& s) {
  Ingombro b;
  for (size_t i = 0; i < N(s, SlotPunti); ++i)
    if (IdentVivo(s.PuntoIdent[i])) b.Aggiungi(s.PuntoX[i], s.PuntoY[i]);
  for (size_t i = 0; i < N(s, SlotLinee); ++i)
    if (IdentVivo(s.LineaIdent[i])) {
      b.Aggiungi(s.LineaX1[i], s.LineaY1[i]);
      b.Aggiungi(s.LineaX2[i], s.LineaY2[i]);
    }
  CurveETesti(s, b);
  for (size_t i = 0; i < N(s, SlotFalde); ++i)
    if (IdentVivo(s.FaldaIdent[i])) {
      b.Aggiungi(s.FaldaX1[i], s.FaldaY1[i]);
      b.Aggiungi(s.FaldaX2[i], s.FaldaY2[i]);
      b.Aggiungi(s.FaldaX3[i], s.FaldaY3[i]);
    }
  // A section by the frame its drawing left in its row: one never drawn has none.
  for (size_t i = 0; i < N(s, SlotSezioni); ++i)
    if (IdentVivo(s.SezioneIdent[i]) && s.SezioneBoxX1[i] < s.SezioneBoxX2[i]) {
      b.Aggiungi(s.SezioneBoxX1[i], s.SezioneBoxY1[i]);
      b.Aggiungi(s.SezioneBoxX2[i], s.SezioneBoxY2[i]);
    }
  return b.Risultato();
}

void InquadraIngombro(StatoVista& v, const std::optional<Rettangolo>& r) {
  if (r) {
    v.IngombroEst = (r->XMin + r->XMax) / 2;
    v.IngombroNord = (r->YMin + r->YMax) / 2;
    // No margin and no regard for the surface's proportions: a tall drawing is the one
    // that can lose its sides, on a window narrower than high.
    v.IngombroAltezza = std::max(r->XMax - r->XMin, r->YMax - r->YMin);
  } else {
    v.IngombroEst = v.IngombroNord = 50;
    v.IngombroAltezza = 100;
  }
  v.CentroEst = v.IngombroEst;
  v.CentroNord = v.IngombroNord;
  v.AltezzaVista = v.IngombroAltezza;
}

Seguito TuttoTutto(Sessione& s) {
  InquadraIngombro(s.Vista, IngombroDisegno(s));
  return Seguito::Rigenerazione;
}

void ArmaZoom(Sessione& s, ModoZoomAttivo modo) {
  const char* prompt = nullptr;
  switch (modo) {
    case ZoomFinestra: prompt = "Primo Punto per Finestra :"; break;
    case ZoomSposta: prompt = "Punto base per spostamento:"; break;
    case ZoomCentro: prompt = "Indica il nuovo Centro Schermo:"; break;
    case ZoomRiquadro: prompt = "Indica il nuovo Zoom Finestra:"; break;
    case ZoomNessuno: AnnullaZoom(s); return;
  }
  StatoVista& v = s.Vista;
  // Whatever stands in the prompt is what comes back at the end, even the prompt of a zoom
  // armed a moment before.
  v.PromptSalvato = s.Prompt;
  v.ModoZoom = modo;
  v.PrimoPuntoZoom = 0;
  v.GuidaSpostamento = false;
  MostraPrompt(s, prompt);
}

Seguito ClicZoom(Sessione& s, double est, double nord, bool ortogonale) {
  StatoVista& v = s.Vista;
  switch (v.ModoZoom) {
    case ZoomFinestra: {
      if (v.PrimoPuntoZoom == 0) {
        v.PrimoZoomEst = est;
        v.PrimoZoomNord = nord;
        v.PrimoPuntoZoom = 255;
        MostraPrompt(s, "Secondo Punto per Finestra :");
        return Seguito::Nessuno;
      }
      const double x1 = std::min(v.PrimoZoomEst, est), x2 = std::max(v.PrimoZoomEst, est);
      const double y1 = std::min(v.PrimoZoomNord, nord), y2 = std::max(v.PrimoZoomNord, nord);
      v.CentroEst = (x1 + x2) / 2;
      v.CentroNord = (y1 + y2) / 2;
      // The larger side becomes the height whatever the surface's shape: on a wide window
      // more is shown than was asked for, never less.
      v.AltezzaVista = std::fabs(x2 - x1);
      if (std::fabs(y2 - y1) > v.AltezzaVista) v.AltezzaVista = std::fabs(y2 - y1);
      v.ModoZoom = ZoomNessuno;
      v.PrimoPuntoZoom = 0;
      RipristinaPrompt(s);
      return Seguito::Ridisegno;
    }
    case ZoomSposta: {
      if (v.PrimoPuntoZoom == 0) {
        v.PrimoZoomEst = est;
        v.PrimoZoomNord = nord;
        v.PrimoPuntoZoom = 255;
        v.GuidaSpostamento = true;
        MostraPrompt(s, "Secondo Punto per Spostamento:");
        return Seguito::Nessuno;
      }
      double dx = est - v.PrimoZoomEst, dy = nord - v.PrimoZoomNord;
      if (ortogonale) {
        // As for a command's orthogonal point: a tie keeps the North component.
        if (std::fabs(dy) >= std::fabs(dx))
          dx = 0;
        else
          dy = 0;
      }
      v.CentroEst -= dx;
      v.CentroNord -= dy;
      v.GuidaSpostamento = false;
      v.ModoZoom = ZoomNessuno;
      v.PrimoPuntoZoom = 0;
      RipristinaPrompt(s);
      return Seguito::Ridisegno;
    }
    case ZoomCentro:
      // The mode stays armed, with its prompt, until the right button or Esc.
      v.CentroEst = est;
      v.CentroNord = nord;
      return Seguito::Ridisegno;
    case ZoomRiquadro:
      // The half width of the guide becomes the height, as the guide promised.
      v.AltezzaVista = v.RapportoVista * v.AltezzaVista / 6;
      v.CentroEst = est;
      v.CentroNord = nord;
      v.ModoZoom = ZoomNessuno;
      RipristinaPrompt(s);
      return Seguito::Ridisegno;
    default:
      return Seguito::Nessuno;
  }
}

void AnnullaZoom(Sessione& s) {
  s.Vista.ModoZoom = ZoomNessuno;
  s.Vista.PrimoPuntoZoom = 0;
  s.Vista.GuidaSpostamento = false;
}

void PuntatoreMosso(Sessione& s, double xv, double yv) {
  const PuntoMondo p = InMondo(s.Vista, xv, yv);
  s.Vista.PuntatoreEst = p.Est;
  s.Vista.PuntatoreNord = p.Nord;
}

GuidaZoom GuidaPerZoom(const Sessione& s) {
  const StatoVista& v = s.Vista;
  GuidaZoom g;
  if (v.ModoZoom == ZoomFinestra && v.PrimoPuntoZoom != 0) {
    g = {GuidaZoom::Riquadro, v.PrimoZoomEst, v.PrimoZoomNord, v.PuntatoreEst, v.PuntatoreNord};
  } else if (v.ModoZoom == ZoomSposta && v.GuidaSpostamento) {
    g = {GuidaZoom::Linea, v.PrimoZoomEst, v.PrimoZoomNord, v.PuntatoreEst, v.PuntatoreNord};
  } else if (v.ModoZoom == ZoomRiquadro) {
    const double mezzaLarghezza = v.AltezzaVista * v.RapportoVista / 6, mezzaAltezza = v.AltezzaVista / 6;
    g = {GuidaZoom::Riquadro, v.PuntatoreEst - mezzaLarghezza, v.PuntatoreNord - mezzaAltezza,
         v.PuntatoreEst + mezzaLarghezza, v.PuntatoreNord + mezzaAltezza};
  }
  return g;
}

void InizioTrascinamento(Sessione& s, double xv, double yv) {
  StatoVista& v = s.Vista;
  v.TrascinaX = xv;
  v.TrascinaY = yv;
  v.TrascinaCentroEst = v.CentroEst;
  v.TrascinaCentroNord = v.CentroNord;
}

Seguito Trascina(Sessione& s, double xv, double yv) {
  // View coordinates do not move with the centre, so the pointer's travel since the button
  // went down is the pan, however many redraws came in between.
  StatoVista& v = s.Vista;
  v.CentroEst = v.TrascinaX - xv + v.TrascinaCentroEst;
  v.CentroNord = v.TrascinaY - yv + v.TrascinaCentroNord;
  return Seguito::Ridisegno;
}

Seguito ZoomPasso(Sessione& s, PassoZoom passo) {
  StatoVista& v = s.Vista;
  const double f = s.Imp.FATTORE_DI_ZOOM;
  switch (passo) {
    case PassoZoom::Su: v.CentroNord -= v.AltezzaVista / f; break;
    case PassoZoom::Giu: v.CentroNord += v.AltezzaVista / f; break;
    case PassoZoom::Sinistra: v.CentroEst += v.AltezzaVista / f; break;
    case PassoZoom::Destra: v.CentroEst -= v.AltezzaVista / f; break;
    case PassoZoom::Avanti:
      // A factor of exactly 1 would take the whole height away.
      if (f == 1) return Seguito::Nessuno;
      v.AltezzaVista -= v.AltezzaVista / f;
      break;
    case PassoZoom::Indietro: v.AltezzaVista += v.AltezzaVista / f; break;
  }
  return Seguito::Ridisegno;
}

Seguito VistaPrecedente(Sessione& s) {
  auto& storia = s.Vista.Storia;
  // The last row is the view on screen; the one before it is where to go. The redraw
  // appends it again.
  if (storia.size() < 2) return Seguito::Nessuno;
  const auto riga = storia[storia.size() - 2];
  storia.resize(storia.size() - 2);
  s.Vista.CentroEst = riga[0];
  s.Vista.CentroNord = riga[1];
  s.Vista.AltezzaVista = riga[2];
  return Seguito::Ridisegno;
}

Seguito CentraSulPuntatore(Sessione& s) {
  s.Vista.CentroEst = s.Vista.PuntatoreEst;
  s.Vista.CentroNord = s.Vista.PuntatoreNord;
  return Seguito::Ridisegno;
}

Seguito CentraSuPunto(Sessione& s, std::string_view nome) {
  bool trovato = false;
  const size_t n = std::min(N(s, SlotPunti), s.PuntoNome.size());
  // The scan does not stop at the first: of several equal names the last one wins.
  for (size_t i = 0; i < n; ++i)
    if (s.PuntoNome[i] == nome) {
      s.Vista.CentroEst = s.PuntoX[i];
      s.Vista.CentroNord = s.PuntoY[i];
      trovato = true;
    }
  return trovato ? Seguito::Ridisegno : Seguito::Nessuno;
}

void MemorizzaVista(Sessione& s) {
  s.Vista.MemoVista = {s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista};
}

Seguito RichiamaMemoVista(Sessione& s) {
  s.Vista.CentroEst = s.Vista.MemoVista[0];
  s.Vista.CentroNord = s.Vista.MemoVista[1];
  s.Vista.AltezzaVista = s.Vista.MemoVista[2];
  return Seguito::Ridisegno;
}

const std::array<double, 15>& AltezzeZoomScala() {
  static const std::array<double, 15> altezze{50,    100,   200,   500,   1000,  2000,   3000,  4000,
                                              5000,  10000, 20000, 30000, 50000, 100000, 200000};
  return altezze;
}

std::string VoceZoomScala(double altezza) {
  char buf[40];
  std::snprintf(buf, sizeof buf, "%6s", FormatoMaschera(altezza, "#########0").c_str());
  return buf;
}

Seguito ZoomScalaTesto(Sessione& s, std::string_view testo) {
  s.Vista.AltezzaVista = LeggiNumero(Rifila(testo));
  return Seguito::Ridisegno;
}

Seguito ZoomScalaBottone(Sessione& s, int indice) {
  static constexpr double kAltezze[] = {50, 100, 200, 500, 1000, 2000, 4000, 5000, 10000};
  if (indice < 2 || indice > 10) return Seguito::Nessuno;
  s.Vista.AltezzaVista = kAltezze[indice - 2];
  return Seguito::Ridisegno;
}

namespace dettaglio {

bool EstrattoNonAssociato(Sessione& s, std::string_view fileEstratto, std::string_view fileImmagine) {
  if (!Rifila(fileEstratto).empty() && !Rifila(fileImmagine).empty()) return false;
  s.Ui->Messaggio("Nessun Estratto Associato!", "Zoom Estratto", Icona::Nessuna);
  return true;
}

void AvvisaEstrattoCongelato(Sessione& s) {
  s.Ui->Messaggio("L'estratto è congelato!", "Zoom Estratto", Icona::Nessuna);
}

Seguito InquadraEstratto(Sessione& s, const Rettangolo& r) {
  StatoVista& v = s.Vista;
  v.CentroEst = (r.XMin + r.XMax) / 2;
  v.CentroNord = (r.YMin + r.YMax) / 2;
  // The width, not the larger side: an extract taller than wide is cut at top and bottom.
  v.AltezzaVista = r.XMax - r.XMin;
  return Seguito::Ridisegno;
}

}  // namespace dettaglio

}  // namespace varena
