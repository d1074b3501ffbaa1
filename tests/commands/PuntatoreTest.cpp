// The move event: rubber bands painted and taken off exactly, again after a redraw, the
// read-outs, the point tooltip, the snap label, the guides of a window, the middle drag.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "commands/Puntatore.h"
#include "commands/Attese.h"
#include "survey/Convenzioni.h"
#include "view/SuperficieRegistrata.h"

namespace varena {
namespace {

using namespace prova;

TEST(Elastico, LineaDipintaETolteEsattamenteEDopoUnRidisegno) {
  Banco b;
  SuperficieRegistrata sup;
  b.s.Schermo = &sup;
  b.Pronto();
  b.Script("TAG DISEGNA_LINEA_2_P\nMOVE 4 4\nCLICK left 0 0\nMOVE 10 0\n");
  sup.Chiamate.clear();
  b.Script("MOVE 10 10\n");
  // The old line painted again in exclusive or takes it off; then the new one.
  EXPECT_EQ(sup.Chiamate, (std::vector<std::string>{"Modo 7", "Stile 0", "ColorePenna #3399ff",
                                                      "Linea 0 0 10 0 #3399ff", "Modo 13", "Stile 0", "Modo 7",
                                                      "Stile 0", "ColorePenna #3399ff", "Linea 0 0 10 10 #3399ff",
                                                      "Modo 13", "Stile 0"}));
  // A redraw clears the surface and paints the band again, once.
  sup.Chiamate.clear();
  b.Script("TAG 1\n");
  const auto& c = sup.Chiamate;
  const auto pulisci = std::find(c.begin(), c.end(), "Pulisci");
  ASSERT_NE(pulisci, c.end());
  EXPECT_EQ(std::count(pulisci, c.end(), "Linea 0 0 10 10 #3399ff"), 1);
  EXPECT_EQ(c.back(), "Stile 0");
  // Ended, the band is forgotten and the redraw does not paint it.
  sup.Chiamate.clear();
  b.Script("KEY ESC\n");
  EXPECT_EQ(sup.Solo("Linea 0 0 10 10").size(), 0u);
  EXPECT_FALSE(b.s.Elastico.Linea.Visibile);
}

TEST(Elastico, LetturaConDistanzaEAzimut) {
  Banco b;
  b.Pronto();
  b.Script("TAG INFO_DISTANZA_2P\nMOVE 3 4\n");
  EXPECT_EQ(std::tie(b.s.LetturaCoordinate, b.s.LetturaSegmento), std::make_tuple("N=4.0 E=3.0   100.0", ""));
  b.Script("CLICK left 0 0\nMOVE 3 4\n");
  // atan(3/4) = 0.6435011 rad = 40.96655 gon.
  EXPECT_EQ(b.s.LetturaSegmento, "[D]=5.000 < Az=40.9666");
  b.Script("MOVE -0.5 -1000\n");
  EXPECT_EQ(b.s.LetturaSegmento, "[D]=1000.000 < Az=200.0318");
  EXPECT_EQ(b.s.LetturaCoordinate, "N=-1000.0 E=-0.50   100.0");  // as the mask gives 1.5: "1.50"
  b.s.VisualizzaCoordinate = 0;
  b.Script("MOVE 7 8\n");
  EXPECT_EQ(b.s.LetturaCoordinate, "N=0.0 E=0.0   100.0");
}

TEST(Elastico, CerchioPerTrePuntiEArcoCheGiraDallaParteGiusta) {
  Banco b;
  b.Pronto();
  Sessione& s = b.s;
  s.ComandoCorrente = 132;
  s.PassoComando = 1;
  s.Punto1X = -2, s.Punto1Y = 0;
  MouseMove(s, 0, 0, 6, 0);
  ASSERT_TRUE(s.Elastico.Cerchio.Visibile);
  EXPECT_EQ(s.Elastico.Cerchio.X, 2);  // the segment as diameter
  EXPECT_EQ(s.Elastico.Cerchio.Raggio, 4);
  s.PassoComando = 2;
  s.Punto2X = -5, s.Punto2Y = 0, s.Punto1X = 0, s.Punto1Y = 5;
  MouseMove(s, 0, 0, 5, 0);
  EXPECT_TRUE(Vicini({s.Elastico.Cerchio.X, s.Elastico.Cerchio.Y, s.Elastico.Cerchio.Raggio}, {0, 0, 5}));

  s.ComandoCorrente = 135;
  MouseMove(s, 0, 0, 5, 0);
  EXPECT_FALSE(s.Elastico.Cerchio.Visibile);
  ASSERT_TRUE(s.Elastico.Arco.Visibile);
  // From West clockwise through North.
  EXPECT_TRUE(Vicini({s.Elastico.Arco.Inizio, s.Elastico.Arco.Ampiezza}, {1.5 * PiGreco, PiGreco}));
  s.Punto1X = 0, s.Punto1Y = -5;  // through South: it starts at the pointer instead
  MouseMove(s, 0, 0, 5, 0);
  EXPECT_TRUE(Vicini({s.Elastico.Arco.Inizio, s.Elastico.Arco.Ampiezza}, {0.5 * PiGreco, PiGreco}));
  // Three points in a row: no circle, nothing shown.
  s.ComandoCorrente = 132;
  s.Punto1X = 0, s.Punto1Y = 0;
  MouseMove(s, 0, 0, 5, 0);
  EXPECT_FALSE(s.Elastico.Cerchio.Visibile);
}

TEST(Suggerimento, PuntoSottoIlPuntatoreSpostatoDaUnaFrazioneDellaVista) {
  Banco b;
  MettiPunto(b.s, "12", 10, 20, 12.5);
  b.s.PuntoDescrizione[0] = "muro";
  b.s.Imp.Cornice = 1;
  b.Pronto();
  b.Script("TAG INCOLLA_DESCRIZIONE\nMOVE 11 21\n");
  const SuggerimentoPunto& t = b.s.Suggerimento;
  ASSERT_TRUE(t.Visibile);
  EXPECT_EQ(t.X, 12);  // a fiftieth of the view to the right
  EXPECT_EQ(t.Y, 19);  // a hundredth down
  EXPECT_EQ(t.Righe, (std::vector<std::string>{"12", "12.500", "muro"}));
  EXPECT_TRUE(t.Cornice);
  EXPECT_FALSE(t.Trasparente);
  b.s.Imp.MostraQuota = 0;
  b.Script("MOVE 11 22\n");
  EXPECT_EQ(t.Righe, (std::vector<std::string>{"12", "muro"}));
  // Not while a name is being moved; always name and height while heights are copied.
  b.Script("TAG EDIT_SPOSTA_NOME\nMOVE 11 21\n");
  EXPECT_FALSE(t.Visibile);
  b.s.Imp.MostraNome = 0;
  b.Script("TAG COPIA_QUOTA\nMOVE 11 21\n");
  EXPECT_EQ(t.Righe, (std::vector<std::string>{"12", "12.500"}));
  b.Script("KEY L\nMOVE 11 21\n");
  EXPECT_TRUE(t.Visibile);  // 320 shows it at any snap
  b.Script("TAG DISEGNA_LINEA_2_P\nMOVE 11 21\n");
  EXPECT_FALSE(t.Visibile);
}

TEST(EtichettaSnap, NomeDelModoAccantoAlPuntatore) {
  Banco b;
  MettiLinea(b.s, 0, 0, 10, 0);
  MettiLinea(b.s, 5, -5, 5, 5);
  b.Pronto();
  b.Script("MOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "");
  b.Script("TAG DISEGNA_LINEA_2_P\nMOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "");  // the setting is off
  b.s.Imp.VISUALIZZA_SNAP = 1;
  b.Script("MOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "  Punto Libero");
  b.Script("KEY F\nMOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "  Fine di ...");
  // The candidate is marked where the click would take it.
  EXPECT_TRUE(b.s.Elastico.Marca.Visibile);
  EXPECT_EQ(b.s.Elastico.Marca.X, 0);
  b.Script("KEY I\nMOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "  Prima Entità");
  b.Script("CLICK left 1 0.5\nMOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "  Seconda Entità");
  b.Script("KEY N\nMOVE 1 1\n");
  EXPECT_EQ(b.s.EtichettaSnap, "");
}

TEST(Guide, FinestraDaUnAngoloAlPuntatoreEGuidaDelloSpostamento) {
  Banco b;
  b.Pronto();
  b.Script("TAG ZOOM_FINESTRA\nMOVE 3 3\n");
  EXPECT_FALSE(b.s.Elastico.Guida.Visibile);
  b.Script("CLICK left 0 0\nMOVE 10 5\n");
  const FormaRiquadro& g = b.s.Elastico.Guida;
  ASSERT_TRUE(g.Visibile);
  EXPECT_EQ((std::vector<double>{g.X1, g.Y1, g.X2, g.Y2}), (std::vector<double>{0, 0, 10, 5}));
  EXPECT_FALSE(g.Tratteggiato);  // dashed only for a selection window taken right to left
  b.Script("CLICK left -10 5\n");
  EXPECT_FALSE(g.Visibile);  // the zoom is done
  b.Script("TAG ZOOM_SPOSTA\nCLICK left 1 1\nMOVE 4 5\n");
  EXPECT_TRUE(b.s.Elastico.GuidaLinea.Visibile);
  EXPECT_EQ(b.s.Elastico.GuidaLinea.X2, 4);
}

TEST(Trascinamento, IlTastoCentraleSpostaLaVistaSenzaToccareIlComando) {
  Banco b;
  b.Pronto(100, 200, 50);
  b.Script("TAG DISEGNA_LINEA_2_P\nCLICK left 100 200\n");
  MouseDown(b.s, BottoneCentrale, 0, 0, 0);
  MouseMove(b.s, BottoneCentrale, 0, 10, -5);
  EXPECT_EQ(std::tie(b.s.Vista.CentroEst, b.s.Vista.CentroNord), std::make_tuple(90, 205));
  MouseUp(b.s, BottoneCentrale, 0, 10, -5);
  MouseMove(b.s, BottoneCentrale, 0, 20, -5);
  EXPECT_EQ(b.s.Vista.CentroEst, 90);  // released: no more pan
  EXPECT_EQ(std::tie(b.s.ComandoCorrente, b.s.PassoComando), std::make_tuple(22, 1));
}

}  // namespace
}  // namespace varena
