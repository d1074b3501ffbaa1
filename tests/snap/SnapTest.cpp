// The snap modes at a click: the crossing of two picked entities, the foot and the tangent
// from the last point, the text, the points typed in the snap dialogs, memorised points,
// the forced points, the distance typed with D.
#include <gtest/gtest.h>

#include <cmath>

#include "snap/Incrocio.h"
#include "snap/Vicino.h"
#include "commands/Attese.h"

namespace varena {
namespace {

using namespace prova;

struct SnapBanco : BancoProva {};

RisultatoVicina Retta(double x1, double y1, double x2, double y2, int32_t riga = 0) {
  RisultatoVicina r;
  r.VicinaTipo = SlotLinee;
  r.VicinaRiga = riga;
  r.Inizio = {x1, y1, 0};
  r.Fine = {x2, y2, 0};
  return r;
}

RisultatoVicina Tondo(uint8_t tipo, double x, double y, double raggio) {
  RisultatoVicina r;
  r.VicinaTipo = tipo;
  r.Centro = {x, y, 0};
  r.Raggio = raggio;
  return r;
}

// Within `tolleranza` of (x, y) in the plane.
testing::AssertionResult Presso(double px, double py, double x, double y, double tolleranza) {
  if (std::fabs(px - x) <= tolleranza && std::fabs(py - y) <= tolleranza) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "(" << px << ", " << py << ") is not (" << x << ", " << y << ")";
}

TEST(IncrociaEntita, RetteCerchiEArchiPerIlLoroSostegno) {
  PuntoXYZ p;
  // Segments that do not reach each other still cross on their lines.
  ASSERT_EQ(IncrociaEntita(Retta(0, 0, 1, 1), Retta(10, 0, 9, 1), 0, 0, p), kRiuscito);
  EXPECT_TRUE(Presso(p.X, p.Y, 5, 5, 1e-12));
  EXPECT_EQ(IncrociaEntita(Retta(0, 0, 1, 0), Retta(0, 1, 5, 1), 0, 0, p), kNessunaSoluzione);
  // A line through a circle: of (-5, 0) and (5, 0), the one nearer to the pointer.
  ASSERT_LT(IncrociaEntita(Retta(-10, 0, 10, 0), Tondo(SlotCerchi, 0, 0, 5), 4, 1, p), 2);
  EXPECT_TRUE(Presso(p.X, p.Y, 5, 0, 1e-9));
  ASSERT_LT(IncrociaEntita(Tondo(SlotArchi, 0, 0, 5), Retta(-10, 0, 10, 0), -4, 1, p), 2);
  EXPECT_NEAR(p.X, -5, 1e-9);
  // Two circles of radius 5 about (0, 0) and (8, 0) meet at (4, ±3).
  ASSERT_LT(IncrociaEntita(Tondo(SlotCerchi, 0, 0, 5), Tondo(SlotCerchi, 8, 0, 5), 4, -2, p), 2);
  EXPECT_TRUE(Presso(p.X, p.Y, 4, -3, 1e-9));
  EXPECT_EQ(IncrociaEntita(Tondo(SlotCerchi, 0, 0, 1), Tondo(SlotCerchi, 8, 0, 1), 4, -2, p), kNessunaSoluzione);
  RisultatoVicina punto;
  punto.VicinaTipo = SlotPunti;
  EXPECT_EQ(IncrociaEntita(punto, Retta(0, 0, 1, 1), 0, 0, p), kNessunaSoluzione);
}

TEST_F(SnapBanco, SnapIncrocioDueClicSuDueLineeDiversePoiIlPuntoONessuno) {
  MettiLinea(s, 0, 0, 10, 10, 0, 10);
  MettiLinea(s, 0, 10, 10, 0);
  MettiPunto(s, "p", 50, 50);
  Pronto();
  Opzioni.Rigoroso = false;  // the refused clicks are the point
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_2_P\nPROMPT Disegno Linea 2P - Primo Punto:\n> KEY I\n"
                     "> CLICK left 50 49\n"  // a point: refused
                     "> CLICK left 1 1.2\nPROMPT Incrocio - Seconda Entità\n"
                     "> CLICK left 2 2.1\n"  // the same line again: refused
                     "> CLICK left 9 1\nPROMPT Disegno Linea - Al Punto:\n"));
  EXPECT_TRUE(Presso(s.Punto1X, s.Punto1Y, 5, 5, 1e-12));
  EXPECT_NEAR(s.Punto1Z, 5, 1e-12);  // the height of the first line there
  EXPECT_EQ(s.ModoSnap, 16);
  // Two parallel lines have no crossing: the command ends (it is the last one, not replaced).
  MettiLinee(s, {{20, 0, 30, 0}, {20, 5, 30, 5}});
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nKEY I\nCLICK left 25 1\nCLICK left 25 4\n");
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.UltimoComando), std::make_tuple(0, 22));
}

TEST_F(SnapBanco, SnapPiedeETangenteDalloUltimoPuntoEIlTesto) {
  MettiLinea(s, 0, 0, 10, 0);
  MettiCerchio(s, 30, 0, 3);
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 3 5\nKEY O\nCLICK left 8 1\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 2);
  EXPECT_TRUE(Presso(s.LineaX2[1], s.LineaY2[1], 3, 0, 1e-12));  // the foot of (3, 5), not of the click
  // From (25, 0) the tangent points of the circle about (30, 0) of radius 3 stand at
  // 30 - 9/5 = 28.2, ±3·4/5 = ±2.4.
  Script("CLICK left 25 0\nKEY T\nCLICK left 28 3\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 3);
  EXPECT_TRUE(Presso(s.LineaX2[2], s.LineaY2[2], 28.2, 2.4, 1e-12));
  // The text: its insertion, at the reference height.
  MettiTesto(s, 4, 6, "casa");
  s.QuotaRiferimento = 100;
  Pronto();
  Script("KEY ESC\nKEY ESC\nTAG DISEGNA_LINEA_2_P\nKEY B\nCLICK left 0 0\n");
  EXPECT_EQ(std::tie(s.Punto1X, s.Punto1Y, s.Punto1Z), std::make_tuple(4, 6, 100));
}

TEST_F(SnapBanco, DialoghiSnapCoordinateRelativePolareEApertura) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_LIBERA\nPROMPT Disegno Linea - Dal Punto:\n> KEY N\n"
                     "DIALOGO + SnapNEQ [Coordinate del Punto] Nord=\"\" Est=\"\" Quota=\"\" (OK, Annulla)\n"
                     "> FIELD Nord 100\n> FIELD SnapNEQ.Est 200,5\n> FIELD Quota 5\n> PRESS OK\nDIALOGO - SnapNEQ\n"
                     "PROMPT Disegno Linea - Al Punto:\n"));
  EXPECT_EQ(std::tie(s.Punto1X, s.Punto1Y, s.Punto1Z, s.ModoSnap), std::make_tuple(200.5, 100, 5, 16));
  // 10 metres due East (100 gon), one metre up.
  Script("KEY U\nFIELD Azimut 100\nFIELD Distanza 10\nFIELD Dislivello 1\nPRESS OK\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 1);
  EXPECT_TRUE(Presso(s.LineaX2[0], s.LineaY2[0], 210.5, 100, 1e-9));
  EXPECT_EQ(s.LineaZ2[0], 6);
  // Turned 100 gon clockwise from the way back (West): North.
  Script("KEY A\nFIELD Angolo 100\nFIELD Distanza 4\nPRESS OK\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 2);
  EXPECT_TRUE(Presso(s.LineaX2[1], s.LineaY2[1], 210.5, 104, 1e-9));
  Script("KEY R\nFIELD Nord -4\nFIELD Est -10\nPRESS OK\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 3);
  EXPECT_TRUE(Presso(s.LineaX2[2], s.LineaY2[2], 200.5, 100, 1e-9));
  // Cancelled: no point, the snap free.
  Script("KEY N\nPRESS Annulla\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.ModoSnap), std::make_tuple(3, 16));
}

TEST_F(SnapBanco, MemoPuntiMemorizzatoAMetaComandoERichiamatoPiuTardi) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_2_P\nPROMPT Disegno Linea 2P - Primo Punto:\n> CLICK left 0 0\n"
                     "PROMPT Disegno Linea - Al Punto:\n> TAG MEMO_PUNTO\n"
                     "PROMPT Indicare il Punto da memorizzare :\n> ANSWER casa\n> CLICK left 7 8\n"
                     "IMPUTA [Memorizza Punto] Nome del Punto da memorizzare : -> casa\n"
                     "PROMPT Disegno Linea - Al Punto:\n> KEY H\n"
                     "DIALOGO + VR_MemoPuntiSnap [Punti Memorizzati] (casa, Annulla)\n> PRESS casa\n"
                     "DIALOGO - VR_MemoPuntiSnap\nPROMPT Disegno Linea 2P - Primo Punto:\n"));
  ASSERT_EQ(s.ContaEntita[SlotLinee], 1);
  EXPECT_EQ(std::tie(s.LineaX2[0], s.LineaY2[0]), std::make_tuple(7, 8));
}

TEST_F(SnapBanco, TastoDDistanzaDigitataVersoIlPuntatore) {
  Pronto();
  Script("TAG DISEGNA_LINEA_LIBERA\nCLICK left 1 1\nMOVE 1 50\nANSWER 2,5\nKEY D\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 1);
  EXPECT_TRUE(Presso(s.LineaX2[0], s.LineaY2[0], 1, 3.5, 1e-12));
  // Elsewhere than at step 1 it is a snap mode of its own, at the pointer.
  Script("KEY ESC\nKEY ESC\nKEY D\n");
  EXPECT_EQ(s.ModoSnap, 14);
}

TEST_F(SnapBanco, SoloPuntiIlClicScriveIlNomeNelNuovoPunto) {
  MettiPunto(s, "A12", 5, 5);
  Pronto();
  Script("TAG DISEGNA_PUNTO\n");
  s.SoloPunti = true;
  Script("CLICK left 4 4\n");
  EXPECT_EQ(TrovaDialogo(s, "NuovoPunto")->Valore("Nome"), "A12");
  EXPECT_EQ(s.ContaEntita[SlotPunti], 1);
  // The pick button of the dialog does the same for one click.
  s.SoloPunti = false;
  Script("FIELD Nome 1\nPRESS Prendi\nCLICK left 4 4\n");
  EXPECT_EQ(TrovaDialogo(s, "NuovoPunto")->Valore("Nome"), "A12");
  EXPECT_EQ(s.PuntoInDialogo, 0);
  Script("FIELD Nome B1\nCLICK left 20 20\n");
  ASSERT_EQ(s.ContaEntita[SlotPunti], 2);
  EXPECT_EQ(s.PuntoNome[1], "B1");
  EXPECT_EQ(TrovaDialogo(s, "NuovoPunto")->Valore("Nome"), "B2");
  Script("PRESS Annulla\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
}

}  // namespace
}  // namespace varena
