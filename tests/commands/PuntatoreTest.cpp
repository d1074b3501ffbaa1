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

struct PuntatoreBanco : BancoProva {};

TEST_F(PuntatoreBanco, ElasticoLineaDipintaETolteEsattamenteEDopoUnRidisegno) {
  SuperficieRegistrata sup;
  s.Schermo = &sup;
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nMOVE 4 4\nCLICK left 0 0\nMOVE 10 0\n");
  sup.Chiamate.clear();
  Script("MOVE 10 10\n");
  // The old line painted again in exclusive or takes it off; then the new one.
  EXPECT_EQ(sup.Chiamate, (std::vector<std::string>{"Modo 7", "Stile 0", "ColorePenna #3399ff",
                                                      "Linea 0 0 10 0 #3399ff", "Modo 13", "Stile 0", "Modo 7",
                                                      "Stile 0", "ColorePenna #3399ff", "Linea 0 0 10 10 #3399ff",
                                                      "Modo 13", "Stile 0"}));
  // A redraw clears the surface and paints the band again, once.
  sup.Chiamate.clear();
  Script("TAG 1\n");
  const auto& c = sup.Chiamate;
  const auto pulisci = std::find(c.begin(), c.end(), "Pulisci");
  ASSERT_NE(pulisci, c.end());
  EXPECT_EQ(std::count(pulisci, c.end(), "Linea 0 0 10 10 #3399ff"), 1);
  EXPECT_EQ(c.back(), "Stile 0");
  // Ended, the band is forgotten and the redraw does not paint it.
  sup.Chiamate.clear();
  Script("KEY ESC\n");
  EXPECT_EQ(std::make_tuple(sup.Solo("Linea 0 0 10 10").size(), s.Elastico.Linea.Visibile), std::make_tuple(0u, false));
}

TEST_F(PuntatoreBanco, ElasticoLetturaConDistanzaEAzimut) {
  Pronto();
  Script("TAG INFO_DISTANZA_2P\nMOVE 3 4\n");
  EXPECT_EQ(std::tie(s.LetturaCoordinate, s.LetturaSegmento), std::make_tuple("N=4.0 E=3.0   100.0", ""));
  Script("CLICK left 0 0\nMOVE 3 4\n");
  // atan(3/4) = 0.6435011 rad = 40.96655 gon.
  EXPECT_EQ(s.LetturaSegmento, "[D]=5.000 < Az=40.9666");
  Script("MOVE -0.5 -1000\n");
  EXPECT_EQ(s.LetturaSegmento, "[D]=1000.000 < Az=200.0318");
  EXPECT_EQ(s.LetturaCoordinate, "N=-1000.0 E=-0.50   100.0");  // as the mask gives 1.5: "1.50"
  s.VisualizzaCoordinate = 0;
  Script("MOVE 7 8\n");
  EXPECT_EQ(s.LetturaCoordinate, "N=0.0 E=0.0   100.0");
}

TEST_F(PuntatoreBanco, ElasticoCerchioPerTrePuntiEArcoCheGiraDallaParteGiusta) {
  Pronto();
  s.ComandoCorrente = 132;
  s.PassoComando = 1;
  s.Punto1X = -2, s.Punto1Y = 0;
  MouseMove(s, 0, 0, 6, 0);
  // The segment as diameter.
  EXPECT_EQ(std::make_tuple(s.Elastico.Cerchio.Visibile, s.Elastico.Cerchio.X, s.Elastico.Cerchio.Raggio),
            std::make_tuple(true, 2, 4));
  s.PassoComando = 2;
  s.Punto2X = -5, s.Punto2Y = 0, s.Punto1X = 0, s.Punto1Y = 5;
  MouseMove(s, 0, 0, 5, 0);
  EXPECT_TRUE(Vicini({s.Elastico.Cerchio.X, s.Elastico.Cerchio.Y, s.Elastico.Cerchio.Raggio}, {0, 0, 5}));

  s.ComandoCorrente = 135;
  MouseMove(s, 0, 0, 5, 0);
  ASSERT_EQ(std::make_tuple(s.Elastico.Cerchio.Visibile, s.Elastico.Arco.Visibile), std::make_tuple(false, true));
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

TEST_F(PuntatoreBanco, SuggerimentoPuntoSottoIlPuntatoreSpostatoDaUnaFrazioneDellaVista) {
  MettiPunto(s, "12", 10, 20, 12.5);
  s.PuntoDescrizione[0] = "muro";
  s.Imp.Cornice = 1;
  Pronto();
  Script("TAG INCOLLA_DESCRIZIONE\nMOVE 11 21\n");
  const SuggerimentoPunto& t = s.Suggerimento;
  // A fiftieth of the view to the right, a hundredth down.
  EXPECT_EQ(std::make_tuple(t.Visibile, t.X, t.Y, t.Righe, t.Cornice, t.Trasparente),
            std::make_tuple(true, 12, 19, std::vector<std::string>{"12", "12.500", "muro"}, true, false));
  s.Imp.MostraQuota = 0;
  Script("MOVE 11 22\n");
  EXPECT_EQ(t.Righe, (std::vector<std::string>{"12", "muro"}));
  // Not while a name is being moved; always name and height while heights are copied.
  Script("TAG EDIT_SPOSTA_NOME\nMOVE 11 21\n");
  EXPECT_FALSE(t.Visibile);
  s.Imp.MostraNome = 0;
  Script("TAG COPIA_QUOTA\nMOVE 11 21\n");
  EXPECT_EQ(t.Righe, (std::vector<std::string>{"12", "12.500"}));
  Script("KEY L\nMOVE 11 21\n");
  EXPECT_TRUE(t.Visibile);  // 320 shows it at any snap
  Script("TAG DISEGNA_LINEA_2_P\nMOVE 11 21\n");
  EXPECT_FALSE(t.Visibile);
}

TEST_F(PuntatoreBanco, EtichettaSnapNomeDelModoAccantoAlPuntatore) {
  MettiLinee(s, {{0, 0, 10, 0}, {5, -5, 5, 5}});
  Pronto();
  Script("MOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "");
  Script("TAG DISEGNA_LINEA_2_P\nMOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "");  // the setting is off
  s.Imp.VISUALIZZA_SNAP = 1;
  Script("MOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "  Punto Libero");
  Script("KEY F\nMOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "  Fine di ...");
  // The candidate is marked where the click would take it.
  EXPECT_EQ(std::make_tuple(s.Elastico.Marca.Visibile, s.Elastico.Marca.X), std::make_tuple(true, 0));
  Script("KEY I\nMOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "  Prima Entità");
  Script("CLICK left 1 0.5\nMOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "  Seconda Entità");
  Script("KEY N\nMOVE 1 1\n");
  EXPECT_EQ(s.EtichettaSnap, "");
}

TEST_F(PuntatoreBanco, GuideFinestraDaUnAngoloAlPuntatoreEGuidaDelloSpostamento) {
  Pronto();
  Script("TAG ZOOM_FINESTRA\nMOVE 3 3\n");
  EXPECT_FALSE(s.Elastico.Guida.Visibile);
  Script("CLICK left 0 0\nMOVE 10 5\n");
  const FormaRiquadro& g = s.Elastico.Guida;
  // Dashed only for a selection window taken right to left.
  EXPECT_EQ(std::make_tuple(g.Visibile, Valori{g.X1, g.Y1, g.X2, g.Y2}, g.Tratteggiato),
            std::make_tuple(true, Valori{0, 0, 10, 5}, false));
  Script("CLICK left -10 5\n");
  EXPECT_FALSE(g.Visibile);  // the zoom is done
  Script("TAG ZOOM_SPOSTA\nCLICK left 1 1\nMOVE 4 5\n");
  EXPECT_EQ(std::make_tuple(s.Elastico.GuidaLinea.Visibile, s.Elastico.GuidaLinea.X2), std::make_tuple(true, 4));
}

TEST_F(PuntatoreBanco, TrascinamentoIlTastoCentraleSpostaLaVistaSenzaToccareIlComando) {
  Pronto(100, 200, 50);
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 100 200\n");
  MouseDown(s, BottoneCentrale, 0, 0, 0);
  MouseMove(s, BottoneCentrale, 0, 10, -5);
  EXPECT_EQ(std::tie(s.Vista.CentroEst, s.Vista.CentroNord), std::make_tuple(90, 205));
  MouseUp(s, BottoneCentrale, 0, 10, -5);
  MouseMove(s, BottoneCentrale, 0, 20, -5);
  // Released: no more pan.
  EXPECT_EQ(std::tie(s.Vista.CentroEst, s.ComandoCorrente, s.PassoComando), std::make_tuple(90, 22, 1));
}

}  // namespace
}  // namespace varena
