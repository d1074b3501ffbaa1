// The view transform and the view set-up of each redraw; extent, zoom to everything, and the
// zooms and pans that keys, menus and the pointer drive.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"
#include "support/ProvaComandi.h"
#include "view/Ridisegna.h"
#include "view/SuperficieRegistrata.h"
#include "view/Vista.h"
#include "view/Zoom.h"

namespace varena {
namespace {

using Tre = std::array<double, 3>;
using Quattro = std::array<double, 4>;

struct Prova {
  InterfacciaRegistrata ui;
  Sessione s;
  Prova() { s.Ui = &ui; }
  // Centre East, centre North and height of the view.
  Tre Vista() const { return {s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista}; }
  void Vista(double est, double nord, double altezza) {
    s.Vista.CentroEst = est, s.Vista.CentroNord = nord, s.Vista.AltezzaVista = altezza;
  }
  void Finestra(double x1, double y1, double x2, double y2) {
    ArmaZoom(s, ZoomFinestra);
    (void)ClicZoom(s, x1, y1, false);
    (void)ClicZoom(s, x2, y2, false);
  }
};

Quattro Guida(const GuidaZoom& g) { return {g.X1, g.Y1, g.X2, g.Y2}; }

void Punto(Sessione& s, const std::string& nome, double x, double y, int16_t ident = 0, int16_t congela = 0) {
  const auto i = static_cast<size_t>(prova::MettiPunto(s, nome, x, y));
  s.PuntoIdent[i] = ident, s.PuntoCongelaSimbolo[i] = congela;
}

TEST(TuttoTutto, VuotoPuntiCerchiArchiInGonTestiERecord) {
  Prova p;
  Sessione& s = p.s;
  // An empty job: 100 about 50.
  p.Vista(7, 8, 9);
  EXPECT_EQ(TuttoTutto(s), Seguito::Rigenerazione);  // a regeneration, not only a redraw
  EXPECT_EQ(p.Vista(), (Tre{50, 50, 100}));
  EXPECT_EQ((Tre{s.Vista.IngombroEst, s.Vista.IngombroNord, s.Vista.IngombroAltezza}), (Tre{50, 50, 100}));

  Punto(s, "1", 0, 0);
  Punto(s, "2", 200, 100);
  Punto(s, "cancellato", 1000, 1000, -1);
  Punto(s, "congelato", -1000, -1000, 0, -1);
  prova::MettiCerchio(s, 50, -20, 10);  // reaches down to -30
  // An arc about (300, 0) of radius 10 from 100 gon (East) through 100 gon more (South):
  // its ends are (310, 0) and (300, -10). Read as radians the start would lie near West.
  prova::MettiArco(s, 300, 0, 10, 100, 100);
  prova::MettiTesto(s, -50, 40, "");

  // Box: East -50 .. 310, North -30 .. 100: 360 wide, 130 high.
  EXPECT_EQ(TuttoTutto(s), Seguito::Rigenerazione);
  EXPECT_NEAR(s.Vista.CentroEst, 130.0, 1e-9);
  EXPECT_EQ(s.Vista.CentroNord, 35.0);
  EXPECT_NEAR(s.Vista.AltezzaVista, 360.0, 1e-9);
  EXPECT_EQ(s.Vista.IngombroAltezza, s.Vista.AltezzaVista);

  // A single point: a view of no height (which the redraw makes one metre, below).
  Prova q;
  Punto(q.s, "1", 1725000, 5031000);
  (void)TuttoTutto(q.s);
  EXPECT_EQ(q.s.Vista.AltezzaVista, 0.0);

  // Both ends of each display-list record widen the box, whatever the record is.
  struct RecordProva {
    double X1, Y1, X2, Y2;
  };
  const RecordProva lista[] = {{1724900, 5031000, 1725000, 5031300}, {1725000, 5031000, 1725000, 5030950}};
  Ingombro b = IngombroTabelle(q.s);
  b.AggiungiRecord(std::span<const RecordProva>(lista));
  b.Aggiungi(std::nan(""), 0);  // a damaged value never reaches the view
  InquadraIngombro(q.s.Vista, b.Risultato());
  EXPECT_EQ(q.Vista(), (Tre{1724950, 5031125, 350}));  // the height of the box, larger than its width
}

TEST(ZoomFinestra, AngoliInQualsiasiOrdineEIlLatoMaggiore) {
  Prova a, b;
  ArmaZoom(a.s, ZoomFinestra);
  EXPECT_EQ(ClicZoom(a.s, 10.25, 20.5, false), Seguito::Nessuno);
  EXPECT_EQ(ClicZoom(a.s, 110.75, 40.125, false), Seguito::Ridisegno);
  b.Finestra(110.75, 40.125, 10.25, 20.5);
  for (Prova* q : {&a, &b}) {
    EXPECT_EQ(q->Vista(), (Tre{60.5, 30.3125, 100.5}));  // the wide side becomes the height
    EXPECT_EQ(q->s.Vista.ModoZoom, ZoomNessuno);
  }
  // A tall window: its height; a square one: its side.
  a.Finestra(0, 0, 20, 70);
  EXPECT_EQ(a.s.Vista.AltezzaVista, 70.0);
  a.Finestra(0, 0, -30, -30);
  EXPECT_EQ(a.s.Vista.AltezzaVista, 30.0);
  // The right button between the two clicks cancels it, guide and all.
  ArmaZoom(a.s, ZoomFinestra);
  (void)ClicZoom(a.s, 0, 0, false);
  PuntatoreMosso(a.s, 5, 5);
  EXPECT_EQ(GuidaPerZoom(a.s).Tipo, GuidaZoom::Riquadro);
  AnnullaZoom(a.s);
  EXPECT_EQ(std::make_tuple(a.s.Vista.PrimoPuntoZoom, GuidaPerZoom(a.s).Tipo), std::make_tuple(0, GuidaZoom::Nessuna));
  EXPECT_EQ(ClicZoom(a.s, 50, 50, false), Seguito::Nessuno);
  EXPECT_EQ(a.s.Vista.AltezzaVista, 30.0);
}

TEST(ZoomFinestra, DentroUnComandoRipristinaIlSuoPrompt) {
  Prova p;
  MostraPrompt(p.s, "Linea 2 Punti - Secondo Punto:");
  p.Finestra(0, 0, 10, 10);
  const std::vector<std::string> attesi{"Linea 2 Punti - Secondo Punto:", "Primo Punto per Finestra :",
                                        "Secondo Punto per Finestra :", "Linea 2 Punti - Secondo Punto:"};
  EXPECT_EQ(p.ui.Prompts, attesi);
  EXPECT_EQ(p.s.Prompt, "Linea 2 Punti - Secondo Punto:");

  // A second zoom armed over the first gives back the first one's prompt.
  Prova q;
  MostraPrompt(q.s, "Cerchio - Centro:");
  ArmaZoom(q.s, ZoomFinestra);
  ArmaZoom(q.s, ZoomRiquadro);
  (void)ClicZoom(q.s, 5, 5, false);
  EXPECT_EQ(q.s.Prompt, "Primo Punto per Finestra :");
  EXPECT_EQ(q.s.Vista.ModoZoom, ZoomNessuno);
}

TEST(ZoomSposta, SpostamentoOrtogonaleEGuida) {
  Prova p;
  p.Vista(100, 200, 50);
  ArmaZoom(p.s, ZoomSposta);
  EXPECT_EQ(p.ui.Prompts.back(), "Punto base per spostamento:");
  EXPECT_EQ(ClicZoom(p.s, 10, 10, false), Seguito::Nessuno);
  EXPECT_EQ(p.ui.Prompts.back(), "Secondo Punto per Spostamento:");
  // The guide line runs from the base point to the pointer.
  PuntatoreMosso(p.s, -87, -186);  // view coordinates: (13, 14) in metres
  EXPECT_EQ(GuidaPerZoom(p.s).Tipo, GuidaZoom::Linea);
  EXPECT_EQ(Guida(GuidaPerZoom(p.s)), (Quattro{10, 10, 13, 14}));
  EXPECT_EQ(ClicZoom(p.s, 13, 14, false), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{97, 196, 50}));
  EXPECT_EQ(GuidaPerZoom(p.s).Tipo, GuidaZoom::Nessuna);

  // Orthogonal: the smaller component goes.
  for (const auto& [x, y, attesa] : {std::tuple{13.0, 14.0, Tre{97, 192, 50}}, std::tuple{15.0, 12.0, Tre{92, 192, 50}}}) {
    ArmaZoom(p.s, ZoomSposta);
    (void)ClicZoom(p.s, 10, 10, true);
    (void)ClicZoom(p.s, x, y, true);
    EXPECT_EQ(p.Vista(), attesa) << x;
  }
  // The middle button drags by the run from where it was pressed, not from the last move.
  p.Vista(100, 200, 50);
  InizioTrascinamento(p.s, 1, 2);
  EXPECT_EQ(Trascina(p.s, 4, 6), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{97, 196, 50}));
  (void)Trascina(p.s, 0, 0);
  EXPECT_EQ(p.Vista(), (Tre{101, 202, 50}));
}

TEST(ZoomCentro, OgniClicRicentraFinoAlTastoDestro) {
  Prova p;
  MostraPrompt(p.s, "");
  ArmaZoom(p.s, ZoomCentro);
  EXPECT_EQ(ClicZoom(p.s, 1, 2, false), Seguito::Ridisegno);
  EXPECT_EQ(ClicZoom(p.s, 3, 4, false), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{3, 4, 100}));
  EXPECT_EQ(p.s.Vista.ModoZoom, ZoomCentro);
  EXPECT_EQ(p.s.Prompt, "Indica il nuovo Centro Schermo:");
  AnnullaZoom(p.s);
  EXPECT_EQ(ClicZoom(p.s, 9, 9, false), Seguito::Nessuno);
  EXPECT_EQ(p.s.Vista.CentroEst, 3.0);
}

TEST(ZoomRiquadro, LaMezzaLarghezzaDiventaLAltezza) {
  Prova p;
  p.Vista(0, 0, 60);
  p.s.Vista.RapportoVista = 1.5;
  ArmaZoom(p.s, ZoomRiquadro);
  PuntatoreMosso(p.s, 7, 8);
  EXPECT_EQ(GuidaPerZoom(p.s).Tipo, GuidaZoom::Riquadro);
  // Half width 60 * 1.5 / 6 = 15, half height 60 / 6 = 10.
  EXPECT_EQ(Guida(GuidaPerZoom(p.s)), (Quattro{-8, -2, 22, 18}));
  EXPECT_EQ(ClicZoom(p.s, 7, 8, false), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{7, 8, 15}));
  EXPECT_EQ(p.s.Vista.ModoZoom, ZoomNessuno);
}

TEST(ZoomPasso, FattoreDiZoomEDirezioni) {
  Prova p;
  p.s.Imp.FATTORE_DI_ZOOM = 50;
  // From (100, 200) and a height of 100: a step is 2 m.
  const std::pair<PassoZoom, Tre> casi[] = {
      {PassoZoom::Su, {100, 198, 100}},     {PassoZoom::Giu, {100, 202, 100}},
      {PassoZoom::Sinistra, {102, 200, 100}}, {PassoZoom::Destra, {98, 200, 100}},
      {PassoZoom::Avanti, {100, 200, 98}},  {PassoZoom::Indietro, {100, 200, 102}}};
  for (const auto& [passo, attesa] : casi) {
    p.Vista(100, 200, 100);
    EXPECT_EQ(ZoomPasso(p.s, passo), Seguito::Ridisegno);
    EXPECT_EQ(p.Vista(), attesa) << static_cast<int>(passo);
  }

  // A factor of 1: in does nothing at all, out doubles, up moves a whole height.
  p.s.Imp.FATTORE_DI_ZOOM = 1;
  p.Vista(100, 200, 100);
  EXPECT_EQ(ZoomPasso(p.s, PassoZoom::Avanti), Seguito::Nessuno);
  EXPECT_EQ(p.s.Vista.AltezzaVista, 100.0);
  EXPECT_EQ(ZoomPasso(p.s, PassoZoom::Indietro), Seguito::Ridisegno);
  EXPECT_EQ(ZoomPasso(p.s, PassoZoom::Su), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{100, 0, 200}));
}

TEST(VistaPrecedente, IndietroNellaStoriaEHomeSenzaVistePrecedenti) {
  Prova p;
  p.Vista(1, 1, 10);
  EXPECT_EQ(VistaPrecedente(p.s), Seguito::Nessuno);
  AggiungiStoriaVista(p.s.Vista);
  EXPECT_EQ(VistaPrecedente(p.s), Seguito::Nessuno);  // only the view on screen
  EXPECT_EQ(p.s.Vista.Storia.size(), 1u);
  EXPECT_EQ(p.Vista(), (Tre{1, 1, 10}));

  for (double k : {2.0, 3.0}) {
    p.Vista(k, k, 10 * k);
    AggiungiStoriaVista(p.s.Vista);
  }
  EXPECT_EQ(VistaPrecedente(p.s), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{2, 2, 20}));
  ASSERT_EQ(p.s.Vista.Storia.size(), 1u);
  AggiungiStoriaVista(p.s.Vista);  // the redraw puts the view back in the record
  EXPECT_EQ(VistaPrecedente(p.s), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{1, 1, 10}));
  EXPECT_TRUE(p.s.Vista.Storia.empty());
}

TEST(Centra, SulPuntatoreSulPuntoConNomeEMemoVista) {
  Prova p;
  p.Vista(100, 200, 50);
  PuntatoreMosso(p.s, 2, 3);
  p.Vista(0, 0, 50);  // the position was kept in metres
  EXPECT_EQ(CentraSulPuntatore(p.s), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{102, 203, 50}));

  Punto(p.s, "10", 1, 1);
  Punto(p.s, "20", 2, 2);
  Punto(p.s, "10", 3, 3);
  EXPECT_EQ(CentraSuPunto(p.s, "10"), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{3, 3, 50}));  // the last of equal names
  EXPECT_EQ(CentraSuPunto(p.s, "10 "), Seguito::Nessuno);  // the name must match exactly
  EXPECT_EQ(CentraSuPunto(p.s, "30"), Seguito::Nessuno);
  EXPECT_EQ(p.s.Vista.CentroEst, 3.0);

  // A view kept without a redraw comes back whole.
  p.Vista(10, 20, 30);
  MemorizzaVista(p.s);
  p.Vista(0, 0, 1);
  EXPECT_EQ(RichiamaMemoVista(p.s), Seguito::Ridisegno);
  EXPECT_EQ(p.Vista(), (Tre{10, 20, 30}));
}

TEST(ZoomScala, ValoriBottoniEAltezzaSottoIlMetro) {
  Prova p;
  p.Vista(5, 6, 100);
  EXPECT_EQ(ZoomScalaTesto(p.s, " 0.4 "), Seguito::Ridisegno);
  Rigenera1(p.s);
  EXPECT_EQ(p.Vista(), (Tre{5, 6, 1}));  // 0.4 shows one metre; the centre stays
  (void)ZoomScalaTesto(p.s, "250,5");
  EXPECT_EQ(p.s.Vista.AltezzaVista, 250.5);
  (void)ZoomScalaTesto(p.s, "scala");
  EXPECT_EQ(p.s.Vista.AltezzaVista, 0.0);

  const double attesi[] = {50, 100, 200, 500, 1000, 2000, 4000, 5000, 10000};
  for (int i = 2; i <= 10; ++i) {
    EXPECT_EQ(ZoomScalaBottone(p.s, i), Seguito::Ridisegno);
    EXPECT_EQ(p.s.Vista.AltezzaVista, attesi[i - 2]) << i;
  }
  EXPECT_EQ(ZoomScalaBottone(p.s, 1), Seguito::Nessuno);
  EXPECT_EQ(ZoomScalaBottone(p.s, 11), Seguito::Nessuno);
  EXPECT_EQ(p.s.Vista.AltezzaVista, 10000.0);
  // The rows of the list, right aligned in six columns.
  EXPECT_EQ(VoceZoomScala(50), "    50");
  EXPECT_EQ(VoceZoomScala(200000), "200000");
}

struct RecordLista {
  double X1, Y1, Z1, X2, Y2, Z2;
  uint8_t Tipo;
  uint8_t Primitiva;
};

TEST(ZoomEstratto, SenzaEstrattoDueMessaggiCongelatoAvvisaEInquadraComunque) {
  Prova p;
  p.Vista(1, 2, 3);
  int congelato = 0, immagine = 0;
  const std::vector<RecordLista> vuota;
  EXPECT_EQ(ZoomEstratto(p.s, "  ", "FOGLIO.PNG", congelato, immagine, std::span<const RecordLista>(vuota)),
            Seguito::Nessuno);
  ASSERT_EQ(p.ui.Messaggi.size(), 2u);
  EXPECT_EQ(p.ui.Messaggi[0].Testo, "Nessun Estratto Associato!");
  EXPECT_EQ(p.ui.Messaggi[1].Testo, "L'estratto è congelato!");
  for (const auto& m : p.ui.Messaggi) EXPECT_EQ(m.Titolo, "Zoom Estratto");
  EXPECT_EQ(congelato, 1);
  EXPECT_EQ(immagine, 1);
  EXPECT_EQ(p.s.Vista.AltezzaVista, 3.0);

  // Frozen: said, and framed all the same.
  Prova q;
  congelato = 1, immagine = 0;
  const std::vector<RecordLista> lista{
      {900, 900, 0, 950, 950, 0, 2, 2},      // a line of the drawing: not the extract
      {100, 100, 0, 0, 0, 0, 14, 5},         // first extract record, a text: both corners
      {50, 60, 0, 150, 90, 0, 14, 2},
      {120, 40, 0, 130, 200, 0, 14, 2},
      {150, 300, 0, 60, 10, 0, 14, 2},       // drawn backwards: widens nothing
      {-500, -500, 0, 900, 900, 0, 14, 5},   // texts only start the box
  };
  EXPECT_EQ(ZoomEstratto(q.s, "F12", "F12.PNG", congelato, immagine, std::span<const RecordLista>(lista)),
            Seguito::Ridisegno);
  ASSERT_EQ(q.ui.Messaggi.size(), 1u);
  EXPECT_EQ(q.ui.Messaggi[0].Testo, "L'estratto è congelato!");
  EXPECT_EQ(immagine, 0);
  // Box East 50 .. 150, North 40 .. 200: the width, 100, is the height.
  EXPECT_EQ(q.Vista(), (Tre{100, 120, 100}));
  // Not frozen: not said.
  Prova r;
  congelato = 0;
  EXPECT_EQ(ZoomEstratto(r.s, "F12", "F12.PNG", congelato, immagine, std::span<const RecordLista>(lista)),
            Seguito::Ridisegno);
  EXPECT_TRUE(r.ui.Messaggi.empty());
}

using Bordi = std::array<double, 4>;

Bordi BordiVista(const StatoVista& v) { return {v.BordoSinistro, v.BordoBasso, v.BordoDestro, v.BordoAlto}; }

TEST(Trasformazione, CoordinateCatastaliTengonoIlMillimetro) {
  StatoVista v;
  v.CentroEst = 1725000.5;
  v.CentroNord = 5031000.25;
  // 3 mm East and 1 mm South of the centre: as floats the two would be one and the same
  // number, so the centre must go first.
  const PuntoVista p = InVista(v, 1725000.503, 5031000.249);
  EXPECT_NEAR(p.X, 0.003, 1e-6);
  EXPECT_NEAR(p.Y, -0.001, 1e-6);
  // Back from the surface: the centre is added in 64 bits.
  const PuntoMondo m = InMondo(v, p.X, p.Y);
  EXPECT_NEAR(m.Est, 1725000.503, 1e-6);
  EXPECT_NEAR(m.Nord, 5031000.249, 1e-6);
  EXPECT_EQ(InMondo(v, 0.5, -0.25).Est, 1725001.0);
  EXPECT_EQ(InMondo(v, 0.5, -0.25).Nord, 5031000.0);
}

TEST(Rigenera1, AltezzaMinimaProporzioniBordiScalaUtenteESenzaSuperficie) {
  Sessione s;
  SuperficieRegistrata sup(300, 200);
  s.Schermo = &sup;
  s.Vista.AltezzaVista = 0.5;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.PassoTesto, 0.00125);  // from the height asked for, before the correction
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);
  EXPECT_EQ(s.Vista.RapportoVista, 1.5);
  EXPECT_EQ(BordiVista(s.Vista), (Bordi{-0.75, -0.5, 0.75, 0.5}));
  // A negative height: North up.
  EXPECT_EQ(sup.Chiamate, (std::vector<std::string>{"ScalaUtente -0.75 0.5 1.5 -1"}));

  // A height that is no number becomes one metre.
  s.Vista.AltezzaVista = std::numeric_limits<double>::quiet_NaN();
  Rigenera1(s);
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);

  // Minimised: the edges are computed, the surface is not touched.
  sup.minimizzata = true;
  sup.Chiamate.clear();
  s.Vista.AltezzaVista = 80;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.BordoAlto, 40.0);
  EXPECT_TRUE(sup.Chiamate.empty());

  // A square surface makes the left edge equal the bottom one: it is scaled all the same,
  // since a fresh surface has no scale of its own to fall back on.
  SuperficieRegistrata quadrata(200, 200);
  s.Schermo = &quadrata;
  Rigenera1(s);
  EXPECT_EQ(BordiVista(s.Vista), (Bordi{-40, -40, 40, 40}));
  EXPECT_EQ(quadrata.Chiamate, (std::vector<std::string>{"ScalaUtente -40 40 80 -80"}));

  // Headless, or on a surface of no size, the ratio is 1.6.
  s.Schermo = nullptr;
  s.Vista.AltezzaVista = 100;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.6);
  EXPECT_EQ(s.Vista.BordoDestro, 80.0);
  SuperficieRegistrata zero(0, 200);
  s.Schermo = &zero;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.6);
  EXPECT_EQ(zero.Chiamate.size(), 1u);
}

TEST(DopoRidisegno, AltezzaDellIngombroETempo) {
  StatoVista v;
  // Extent height, view height, the extent height after.
  const std::array<double, 3> casi[] = {{0.5, 100, 100}, {0, 0.5, 0.5}, {0.5, 0.2, 0.2}, {50, 100, 100}, {500, 100, 500}};
  for (const auto& [ingombro, vista, atteso] : casi) {
    v.IngombroAltezza = ingombro;
    v.AltezzaVista = vista;
    AggiornaIngombroAltezza(v);
    EXPECT_EQ(v.IngombroAltezza, atteso) << ingombro << " " << vista;
  }

  // The time of a redraw is counted for the status bar; the prompt stays the commands' own.
  Sessione s;
  MostraPrompt(s, "");
  Ridisegna(s);
  Ridisegna(s);
  EXPECT_EQ(s.Prompt, "");
  EXPECT_EQ(s.Vista.Ridisegni, 2u);
}

}  // namespace
}  // namespace varena
