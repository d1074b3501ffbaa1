// Painting of the display list and of the points.
#include "view/Ridisegna.h"

#include <chrono>
#include <cmath>

#include "cadastre/CodiciPunto.h"
#include "cadastre/Estratto.h"
#include "core/Conversioni.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "view/Elastico.h"
#include "view/Rigenera.h"
#include "view/StiliLinea.h"
#include "view/Vista.h"

namespace varena {

namespace {


// Labels below this many points would be smaller than a pixel: not worth a font.
constexpr double kPuntiMinimi = 0.75;

ColoreRGB Rgb(const Sessione& s, int32_t indice) {
  ColoreRGB c = 0;
  ColoreDaIndice(s, indice, c);
  return c;
}

bool InVistaF(const StatoVista& v, float x, float y) {
  return x >= v.BordoSinistro && x <= v.BordoDestro && y >= v.BordoBasso && y <= v.BordoAlto;
}

// The size of a text of `altezza` metres on this surface, in points: what is h metres on
// the sheet is h metres at the view's scale.
double PuntiTesto(const Sessione& s, const Superficie& sup, double altezza) {
  const double mm = sup.AltezzaMm();
  if (mm > 0) return altezza * mm / s.Vista.AltezzaVista / 0.3528;
  return altezza / s.Vista.AltezzaVista * 1000.0;
}

// Whole on one side of the view: nothing to paint. A line across is left to the surface's
// own clipping.
bool FuoriVista(const StatoVista& v, float x1, float y1, float x2, float y2) {
  return (x1 < v.BordoSinistro && x2 < v.BordoSinistro) || (x1 > v.BordoDestro && x2 > v.BordoDestro) ||
         (y1 < v.BordoBasso && y2 < v.BordoBasso) || (y1 > v.BordoAlto && y2 > v.BordoAlto);
}

// One segment of record k, a line or a piece of its pattern, in view coordinates.
void DisegnaSegmento(const ElencoDisegno& l, Superficie& sup, size_t k, float x1, float y1, float x2, float y2,
                     ColoreRGB colore) {
  sup.Spessore(std::max(1, InteroSaturato<int>(l.Spessore[k])));
  sup.Stile(static_cast<StilePenna>(l.Tratto[k] == 2 ? 2 : 0));
  if (l.Stato[k] == 1) {
    sup.Modo(ModoPenna::Inverti);
    sup.Stile(StilePenna::Punteggiato);
    sup.Linea(x1, y1, x2, y2, colore);
  } else {
    sup.Modo(ModoPenna::Copia);
    sup.Linea(x1, y1, x2, y2, colore);
  }
  sup.Modo(ModoPenna::Copia);
  sup.Stile(StilePenna::Continuo);
  sup.Spessore(1);
}

// The side of a pixel of the surface, in metres on the ground.
double MetriPerPixel(const Sessione& s, const Superficie& sup) {
  const double mm = sup.AltezzaMm();
  return mm > 0 ? sup.PixelMm() * s.Vista.AltezzaVista / mm : s.Vista.AltezzaVista / 1000.0;
}

// A line with its line type, cut into its pieces only where they are in view. When a whole
// repeat of the pattern is shorter than a pixel no gap could show: the line is one solid run.
// A circle or an arc with its line type, in the same way: the dashes of the stretches of
// the curve that the view may hold, or its plain chords when a repeat is under a pixel.
void DisegnaMotivoArco(const Sessione& s, Superficie& sup, const MotivoLinea& m, size_t k, ColoreRGB colore) {
  const StatoVista& v = s.Vista;
  auto corda = [&](const TrattoArco& t) {
    const PuntoVista a = InVista(v, t.X1, t.Y1), b = InVista(v, t.X2, t.Y2);
    if (!FuoriVista(v, a.X, a.Y, b.X, b.Y)) DisegnaSegmento(s.ListaDisegno, sup, k, a.X, a.Y, b.X, b.Y, colore);
  };
  const double pixel = MetriPerPixel(s, sup);
  const PercorsoArco motivo(m.X1, m.Y1, m.Raggio, m.Inizio, m.Ampiezza, StileDi(s, m.Tratteggio));
  const PercorsoArco piena(m.X1, m.Y1, m.Raggio, m.Inizio, m.Ampiezza, {});
  const PercorsoArco& percorso = motivo.Come() == PercorsoArco::Modo::Motivo && motivo.Giro() < pixel ? piena : motivo;
  const double margine = percorso.Massimo() + pixel;
  double tratti[3][2];
  const int n = percorso.Dentro(v.CentroEst + v.BordoSinistro - margine, v.CentroNord + v.BordoBasso - margine,
                                v.CentroEst + v.BordoDestro + margine, v.CentroNord + v.BordoAlto + margine, tratti);
  // The pieces are found by where they start: one may start a piece's length before.
  for (int t = 0; t < n; ++t) percorso.Pezzi(tratti[t][0] - margine, tratti[t][1] + margine, corda);
}

void DisegnaMotivo(const Sessione& s, Superficie& sup, int64_t i, ColoreRGB colore) {
  const ElencoDisegno& l = s.ListaDisegno;
  const MotivoLinea* m = l.Motivo(i);
  if (!m) return;
  const StatoVista& v = s.Vista;
  const auto k = static_cast<size_t>(i);
  if (m->Arco) {
    DisegnaMotivoArco(s, sup, *m, k, colore);
    return;
  }
  auto segmento = [&](const Tratto& t) {
    const PuntoVista a = InVista(v, t.X1, t.Y1), b = InVista(v, t.X2, t.Y2);
    if (!FuoriVista(v, a.X, a.Y, b.X, b.Y)) DisegnaSegmento(l, sup, k, a.X, a.Y, b.X, b.Y, colore);
  };
  const PercorsoMotivo percorso(m->X1, m->Y1, m->X2, m->Y2, StileDi(s, m->Tratteggio));
  const double pixel = MetriPerPixel(s, sup);
  if (percorso.Come() == PercorsoMotivo::Modo::Nulla) return;
  if (percorso.Come() == PercorsoMotivo::Modo::Piena || percorso.Giro() < pixel) {
    segmento({m->X1, m->Y1, m->X2, m->Y2});
    return;
  }
  // A piece that touches the view starts no farther from it than its own length.
  const double margine = percorso.Massimo() + pixel;
  double da = 0, a = 0;
  if (!percorso.Dentro(v.CentroEst + v.BordoSinistro - margine, v.CentroNord + v.BordoBasso - margine,
                       v.CentroEst + v.BordoDestro + margine, v.CentroNord + v.BordoAlto + margine, da, a))
    return;
  percorso.Pezzi(da - margine, a + margine, segmento);
}

void DisegnaRecord(Sessione& s, Superficie& sup, int64_t i) {
  const ElencoDisegno& l = s.ListaDisegno;
  const StatoVista& v = s.Vista;
  const auto k = static_cast<size_t>(i);
  const float x1 = static_cast<float>(l.X1[k] - v.CentroEst), y1 = static_cast<float>(l.Y1[k] - v.CentroNord);
  const float x2 = static_cast<float>(l.X2[k] - v.CentroEst), y2 = static_cast<float>(l.Y2[k] - v.CentroNord);
  // A pattern's record holds the box of its pieces: wholly aside, none of them shows.
  if (l.Primitiva[k] != PrimCerchio && FuoriVista(v, x1, y1, x2, y2)) return;
  ColoreRGB colore = 0;
  if (!ColoreDaIndice(s, l.Colore[k], colore)) return;
  switch (l.Primitiva[k]) {
    case PrimCerchio:
      sup.Spessore(InteroSaturato<int>(l.Spessore[k]));
      sup.Cerchio(x1, y1, l.Altezza[k], colore);
      sup.Spessore(1);
      break;
    case PrimLinea: DisegnaSegmento(l, sup, k, x1, y1, x2, y2, colore); break;
    case PrimMotivo: DisegnaMotivo(s, sup, i, colore); break;
    case PrimTesto: {
      const double punti = PuntiTesto(s, sup, l.Altezza[k]);
      if (punti < kPuntiMinimi) return;
      // A text without a font gets this name, spelled so since the first version: the
      // surface resolves it as best it can.
      const std::string& font = l.Font(i).empty() ? std::string("Curier New") : l.Font(i);
      sup.Carattere(font, punti);
      const double a = l.Rotazione[k] * GonToRad;
      // The insertion is the foot of the text; the surface wants its top left corner.
      const float tx = static_cast<float>(x1 - l.Altezza[k] * std::sin(a));
      const float ty = static_cast<float>(y1 + l.Altezza[k] * std::cos(a));
      if (l.Stato[k] == 1) {
        sup.Modo(ModoPenna::Esclusivo);
        sup.Stile(StilePenna::Punteggiato);
        sup.ColorePenna(kColoreEvidenza);
        sup.Testo(tx, ty, l.Testo(i), static_cast<float>(a));
        const float h = static_cast<float>(v.SogliaSimbolo);
        sup.Spessore(3);
        sup.Riquadro(x1 - h, y1 - h, x1 + h, y1 + h, Rgb(s, 5), false);
        sup.Spessore(1);
        sup.Modo(ModoPenna::Copia);
        sup.Stile(StilePenna::Continuo);
      } else {
        sup.Modo(ModoPenna::Copia);
        sup.ColorePenna(colore);
        sup.Testo(tx, ty, l.Testo(i), static_cast<float>(a));
      }
      break;
    }
    default: break;
  }
}

// `RidisegnaRigeneraTutto`: the records near the view from the index, in list order, then
// those appended since the index was built.
void RidisegnaLista(Sessione& s, Superficie& sup) {
  const StatoVista& v = s.Vista;
  std::vector<int64_t> vicini;
  s.IndiceLista.Cerca(v.CentroEst + v.BordoSinistro, v.CentroNord + v.BordoBasso, v.CentroEst + v.BordoDestro,
                      v.CentroNord + v.BordoAlto, vicini);
  for (int64_t i : vicini)
    if (i < s.ListaDisegno.Conta()) DisegnaRecord(s, sup, i);
  for (int64_t i = s.IndiceLista.Elementi(); i < s.ListaDisegno.Conta(); ++i) DisegnaRecord(s, sup, i);
}

void DisegnaImmagine(Sessione& s, Superficie& sup, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.BitmapIdent[r]) || s.BitmapCongela[r] != 0) return;
  const StatoVista& v = s.Vista;
  const double x0 = s.BitmapX[r] - v.CentroEst, y0 = s.BitmapY[r] - v.CentroNord;
  sup.Immagine(s.BitmapNomeFile[r], static_cast<float>(x0), static_cast<float>(y0),
               static_cast<float>(x0 + s.BitmapLarghezza[r] * s.BitmapScalaLar[r]),
               static_cast<float>(y0 - s.BitmapAltezza[r] * s.BitmapScalaAlt[r]));
}

// A share of the view, as label sizes are given when negative.
double Misura(const Sessione& s, double valore);
double MisuraEtichetta(const Sessione& s, const StatoPunti& stato, double valore);

// Labels of a point take about three lines of 1.5 h and eight characters; when those of the
// points near the view would cover it more than four times over they could not be read,
// and painting them would only cost time: the redraw then thins them out.
void PreparaSfoltimento(const Sessione& s, const std::vector<int64_t>& vicini, StatoPunti& stato) {
  const StatoVista& v = s.Vista;
  if (vicini.empty() || s.PuntoIdent.empty()) return;
  const auto primo = static_cast<size_t>(vicini.front());
  if (primo >= s.PuntoDimensioneNome.size()) return;
  const double h = std::fabs(MisuraEtichetta(s, stato, s.PuntoDimensioneNome[primo]));
  const double larghezza = v.BordoDestro - v.BordoSinistro, altezza = v.BordoAlto - v.BordoBasso;
  if (!(h > 0) || static_cast<double>(vicini.size()) * (4.5 * h) * (5.0 * h) <= 4.0 * larghezza * altezza) return;
  stato.Sfoltisci = true;
  stato.Cella = 1.5 * h;
  stato.X0 = v.BordoSinistro;
  stato.Y0 = v.BordoBasso;
  stato.Colonne = std::clamp(InteroSaturato<int>(larghezza / stato.Cella + 2), 1, 4096);
  stato.Righe = std::clamp(InteroSaturato<int>(altezza / stato.Cella + 2), 1, 4096);
  stato.Occupate.assign(static_cast<size_t>(stato.Colonne) * static_cast<size_t>(stato.Righe), 0);
}

// True when the labels anchored at (x, y) may be painted; their cells are then taken.
bool PostoPerEtichette(StatoPunti& stato, double x, double y, size_t caratteri) {
  if (!stato.Sfoltisci) return true;
  const int c0 = InteroSaturato<int>(std::floor((x - stato.X0) / stato.Cella), -1);
  const int r0 = InteroSaturato<int>(std::floor((y - stato.Y0) / stato.Cella), -1);
  if (c0 < 0 || r0 < 0 || c0 >= stato.Colonne || r0 >= stato.Righe) return true;
  auto cella = [&stato](int c, int r) -> uint8_t& {
    return stato.Occupate[static_cast<size_t>(r) * static_cast<size_t>(stato.Colonne) + static_cast<size_t>(c)];
  };
  if (cella(c0, r0)) return false;
  const int larghe = std::max(1, static_cast<int>(static_cast<double>(caratteri) * 0.4));
  for (int r = std::max(0, r0 - 2); r <= r0; ++r)
    for (int c = c0; c < std::min(stato.Colonne, c0 + larghe); ++c) cella(c, r) = 1;
  return true;
}

void DisegnaPunti(Sessione& s, Superficie& sup) {
  StatoPunti stato;
  if (sup.AltezzaMm() > 0) stato.QuotaEtichette = std::max(1.0, sup.AltezzaRiferimentoMm() / sup.AltezzaMm());
  const StatoVista& v = s.Vista;
  std::vector<int64_t> vicini;
  s.IndicePunti.Cerca(v.CentroEst + v.BordoSinistro, v.CentroNord + v.BordoBasso, v.CentroEst + v.BordoDestro,
                      v.CentroNord + v.BordoAlto, vicini);
  PreparaSfoltimento(s, vicini, stato);
  for (int64_t i : vicini)
    if (i < s.ContaEntita[SlotPunti]) DisegnaPuntoAperto(s, sup, static_cast<int32_t>(i), stato);
  for (int64_t i = s.IndicePunti.Elementi(); i < s.ContaEntita[SlotPunti]; ++i)
    DisegnaPuntoAperto(s, sup, static_cast<int32_t>(i), stato);
}

// A label's size: a negative value is a share of the view's height, constant on screen.
double Misura(const Sessione& s, double valore) {
  return valore < 0 ? std::fabs(valore) * s.Vista.AltezzaVista / 100.0 : valore;
}

// The size handed to the label painter: metres, with the sign of the setting kept, since
// the sign decides where the label is printed. A share is of the surface's reference
// height: on a window, of its screen, so that such labels keep one readable size however
// small the window is made.
double MisuraEtichetta(const Sessione& s, const StatoPunti& stato, double valore) {
  return valore < 0 ? -Misura(s, valore) * stato.QuotaEtichette : valore;
}

}  // namespace

void DisegnaPuntoNuovo(Sessione& s, Superficie& sup, double x, double y, double h, std::string_view testo,
                       std::string_view font, int32_t colore) {
  // A label of |h| metres is |h| metres at the view's scale, as texts are: the old fixed
  // ratio of a thousand points to the view's height was right for one screen only, and on
  // any other made the lines of a point's labels run into each other. A negative h comes
  // from a share of the view, so its label keeps one size on screen at any zoom.
  const double punti = PuntiTesto(s, sup, std::fabs(h));
  if (punti < kPuntiMinimi || testo.empty()) return;
  // The print position is moved by a pixel of the background, as the old painter did: a
  // label of positive h is lifted by one line of 1.5 h, one of negative h prints at (x, y).
  const double ys = h >= 0 ? y + 1.5 * h : y;
  sup.Pixel(static_cast<float>(x), static_cast<float>(ys), Rgb(s, s.Imp.Colore_Fondo_Default));
  ColoreRGB c = 0;
  if (!ColoreDaIndice(s, ColoreVisibile(s, colore), c)) return;
  sup.Carattere(font, punti);
  sup.ColorePenna(c);
  sup.Testo(static_cast<float>(x), static_cast<float>(ys), testo, 0);
}

void DisegnaPuntoAperto(Sessione& s, Superficie& sup, int32_t riga, StatoPunti& stato) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.PuntoIdent[r])) return;
  const StatoVista& v = s.Vista;
  const double xv = s.PuntoX[r] - v.CentroEst, yv = s.PuntoY[r] - v.CentroNord;
  const float fx = static_cast<float>(xv), fy = static_cast<float>(yv);
  if (!stato.Carta && !InVistaF(v, fx, fy)) return;
  const bool selezionato = s.StatoPunto[r] == 1;
  const double dimensione = Misura(s, s.PuntoDimensioneSimbolo[r]);
  if (s.PuntoCongelaSimbolo[r] == 0) {
    ColoreRGB c = 0;
    const bool visibile = ColoreDaIndice(s, ColoreVisibile(s, s.PuntoColoreSimbolo[r]), c);
    if (selezionato || s.EvidenziaTutto) c = kColoreEvidenza;
    // The size tested here is the one the point before left behind.
    if (stato.DimensionePrecedente < v.SogliaSimbolo) sup.Pixel(fx, fy, c);
    stato.DimensionePrecedente = dimensione;
    if (visibile && s.PuntoSimbolo[r] < 0) {
      // `DisegnaPuntoPro`: the user's symbols are painted element by element, never cached,
      // since the table they come from may change while the program runs.
      thread_local std::vector<ElementoSimbolo> elementi;
      elementi.clear();
      ScomponiSimboloUtente(s.Simboli, -s.PuntoSimbolo[r], dimensione, 0, elementi);
      DipingiElementi(sup, elementi, fx, fy, c);
    } else if (visibile) {
      sup.Simbolo(s.PuntoSimbolo[r], fx, fy, dimensione, c, stato.Carta);
    }
  }
  // Labels: name, height under it, description under that, each skipping the frozen ones.
  const double xn = s.PuntoX[r] + s.PuntoSpoX[r] - v.CentroEst + dimensione / 2;
  double y = s.PuntoY[r] + s.PuntoSpoY[r] - v.CentroNord;
  const std::string& font = s.PuntoFont[r];
  const bool etichette = PostoPerEtichette(stato, xn, y, std::max(s.PuntoNome[r].size(), s.PuntoDescrizione[r].size()));
  bool primo = true;
  if (etichette && s.PuntoCongelaNome[r] == 0 && s.Imp.MostraNome != 0) {
    if (s.Imp.CollegaPuntoSimbolo == 1 && (s.PuntoSpoX[r] != 0 || s.PuntoSpoY[r] != 0)) {
      sup.Stile(StilePenna::Punteggiato);
      sup.Linea(fx, fy, static_cast<float>(xv + s.PuntoSpoX[r]), static_cast<float>(yv + s.PuntoSpoY[r]),
                Rgb(s, ColoreVisibile(s, s.PuntoColoreNome[r])));
      sup.Stile(StilePenna::Continuo);
    }
    DisegnaPuntoNuovo(s, sup, xn, y, MisuraEtichetta(s, stato, s.PuntoDimensioneNome[r]), s.PuntoNome[r], font,
                      s.PuntoColoreNome[r]);
    primo = false;
  }
  // A planimetric point has no height to show: its height line is left out as a frozen one.
  if (etichette && s.PuntoCongelaQuota[r] == 0 && s.Imp.MostraQuota != 0 &&
      !HaCodice(s.PuntoDescrizione[r], kCodicePlanimetrico)) {
    const double h = MisuraEtichetta(s, stato, s.PuntoDimensioneQuota[r]);
    if (!primo) y -= 1.5 * std::fabs(h);
    const double valore = s.ModoQuota == 1 ? s.QuotaRiferimento - s.PuntoZ[r] : s.PuntoZ[r];
    const std::string testo =
        Rifila(FormatoMaschera(valore, "#########0." + std::string(static_cast<size_t>(std::max(0, s.DecimaliQuota)), '0')));
    DisegnaPuntoNuovo(s, sup, xn, y, h, testo, font, s.PuntoColoreQuota[r]);
    primo = false;
  }
  if (etichette && s.PuntoCongelaDescrizione[r] == 0 && s.Imp.MostraDescrizione != 0) {
    const double h = MisuraEtichetta(s, stato, s.PuntoDimensioneDescrizione[r]);
    if (!primo) y -= 1.5 * std::fabs(h);
    const int32_t colore = s.PuntoColoreDescrizione[r] > 257 ? 1 : s.PuntoColoreDescrizione[r];
    DisegnaPuntoNuovo(s, sup, xn, y, h, s.PuntoDescrizione[r], font, colore);
  }
  if (selezionato) {
    const float h = static_cast<float>(v.AltezzaVista / 200.0);
    sup.Spessore(3);
    sup.Riquadro(fx - h, fy - h, fx + h, fy + h, Rgb(s, 5), false);
    sup.Spessore(1);
  }
}

void Disegna1(Sessione& s, Superficie& sup) {
  s.RoutineCorrente = "Disegna1";
  s.Vista.PassoTesto = s.Vista.AltezzaVista / 400;
  s.Vista.SogliaSimbolo = s.Vista.AltezzaVista / 200;
  sup.ColoreFondo(Rgb(s, s.Imp.Colore_Fondo_Default));
  sup.Pulisci();
  sup.Carattere("Courier New", 10);
  sup.Stile(StilePenna::Continuo);
  sup.Modo(ModoPenna::Copia);
  // Images in table order; the one marked topmost comes after the others.
  for (int32_t r = 0; r < s.ContaEntita[SlotBitmap]; ++r)
    if (r != s.ImmagineInCima) DisegnaImmagine(s, sup, r);
  if (s.ImmagineInCima >= 0 && s.ImmagineInCima < s.ContaEntita[SlotBitmap]) DisegnaImmagine(s, sup, s.ImmagineInCima);
  DisegnaImmagineEstratto(s, sup);
  RidisegnaLista(s, sup);
  sup.Spessore(1);
  DisegnaPunti(s, sup);
  AggiungiStoriaVista(s.Vista);
}

void Ridisegna(Sessione& s) {
  s.RoutineCorrente = "Ridise gna";
  const auto inizio = std::chrono::steady_clock::now();
  Rigenera1(s);
  if (s.Schermo && !s.Schermo->Minimizzata()) {
    Disegna1(s, *s.Schermo);
    // The clear took the rubber bands and guides away with the rest: they come back.
    RidipingiElastico(s, *s.Schermo);
    s.Vista.SulloSchermo = {s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista};
  } else {
    AggiungiStoriaVista(s.Vista);
  }
  AggiornaIngombroAltezza(s.Vista);
  s.Vista.TempoRidisegno = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
  ++s.Vista.Ridisegni;
}

}  // namespace varena
