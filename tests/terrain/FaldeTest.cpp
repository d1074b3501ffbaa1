// One facet's cut and fill against the reference height, worked by hand, the test of a point
// inside a facet, and the commands on facets. Contour lines: the cuts of the facets worked by
// hand, a cone's circles within the chord error, the smoothing, the drawing and the commands
// on the curves.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numbers>

#include "core/Dialoghi.h"
#include "exchange/DxfScrittura.h"
#include "commands/Attese.h"
#include "store/Carica.h"
#include "store/Salvataggio.h"
#include "support/ProvaFalde.h"
#include "support/Supporto.h"
#include "terrain/Curve.h"
#include "terrain/Falde.h"
#include "terrain/Volumi.h"

namespace varena {
namespace {

using prova::LeggiFileProva;
using prova::MettiFalda;

// The empty job with the terrain settings at their defaults: its hand-written `.CFG` holds 1 in every row.
void ApriLavoroTerreno(prova::Banco& b) {
  prova::ApriLavoroVuoto(b);
  b.s.Terreno = {}, b.s.QuotaRiferimento = 0;
}

TEST(CalcolaFalda, SterroERiportoDelleRegoleStoriche) {
  // Flat at the reference: nothing either way.
  ValoriFalda v = CalcolaFalda(0, 0, 2, 4, 0, 2, 0, 4, 2, 2, 1, 1);
  EXPECT_EQ(std::tie(v.Area, v.Sterro, v.Riporto), std::make_tuple(8.0, 0.0, 0.0));
  // Heights 1, 2, 3 with the reference at 2: the middle on the plane, the net prism (0) only.
  v = CalcolaFalda(0, 0, 1, 4, 0, 2, 0, 4, 3, 2, 1, 1);
  EXPECT_EQ(std::tie(v.Sterro, v.Riporto), std::make_tuple(0.0, 0.0));
  // Only the top corner above 1: the triangle (0,4) (0,4/3) (8/3,4/3) of area 32/9, its
  // mean 2/3 above: cut 64/27, and fill the net prism (0) plus that cut.
  v = CalcolaFalda(0, 0, 0, 4, 0, 0, 0, 4, 3, 1, 1, 0.5);
  EXPECT_NEAR(v.Sterro, 64.0 / 27.0, 1e-12);
  EXPECT_NEAR(v.Riporto, 64.0 / 27.0, 1e-12);
  // The labels below the centroid (4/3, 4/3): area 1.3 number heights down, cut and fill each
  // 1.3 value heights further.
  EXPECT_NEAR(v.NumeroY, 4.0 / 3.0, 1e-12);
  EXPECT_NEAR(v.InsAreaY, 4.0 / 3.0 - 1.3, 1e-12);
  EXPECT_NEAR(v.InsSteY, 4.0 / 3.0 - 1.3 - 0.65, 1e-12);
  EXPECT_NEAR(v.InsRiportoY, 4.0 / 3.0 - 1.3 - 1.3, 1e-12);
}

TEST(Volumi, PiramideTotaliERapportoCsv) {
  prova::Banco b;
  Sessione& s = b.s;
  ApriLavoroTerreno(b);
  // A pyramid 6 high on the square of side 4 centred at the origin, one facet a side.
  const double base[5][2] = {{-2, -2}, {2, -2}, {2, 2}, {-2, 2}, {-2, -2}};
  for (int k = 0; k < 4; ++k) MettiFalda(s, base[k][0], base[k][1], 0, base[k + 1][0], base[k + 1][1], 0, 0, 0, 6);
  // On the ground: the whole pyramid, 16 * 6 / 3, is cut.
  AggiornaFalde(s);
  TotaliVolumi t = SommaVolumi(s);
  EXPECT_EQ(std::tie(t.Falde, t.Riporto), std::make_tuple(4, 0.0));
  EXPECT_NEAR(t.Area, 16.0, 1e-12);
  EXPECT_NEAR(t.Sterro, 32.0, 1e-12);
  // At half height, from the dialog: the top pyramid (side 2, 3 high) is cut, 4; the fill is
  // the box of 16 * 3 less the pyramid's 32 - 4 below the plane: 20.
  b.Pronto(0, 0, 20);
  b.Script("TAG VOLUMI_FALDE\nFIELD QuotaRiferimento 3\nPRESS Ricalcola\n");
  EXPECT_EQ(s.QuotaRiferimento, 3.0);
  const Dialogo* d = TrovaDialogo(s, "VolumiFalde");
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(std::make_tuple(d->Valore("Falde"), d->Valore("Area"), d->Valore("Sterro"), d->Valore("Riporto")),
            std::make_tuple("4", "16.00", "4.00", "20.00"));
  const std::string csv = b.cartella.Percorso() + "/volumi.csv";
  EXPECT_EQ(b.Script("ANSWER " + csv + "\nPRESS SalvaCsv\n"),
            "> ANSWER " + csv + "\n> PRESS SalvaCsv\nFILE [Salva Volumi] -> " + csv +
                "\nMESSAGGIO [Salva Volumi] " + csv + " | Correttamente creato!\n");
  EXPECT_EQ(prova::LeggiFileProva(csv),
            "Falda,Area,Sterro,Riporto\r\n"
            "1,4.000,1.000,5.000\r\n2,4.000,1.000,5.000\r\n3,4.000,1.000,5.000\r\n4,4.000,1.000,5.000\r\n"
            "Totale,16.000,4.000,20.000\r\n");
}

TEST(CalcolaFalda, PuntoInternoConILati) {
  prova::SessioneProva p;
  MettiFalda(p.s, 0, 0, 0, 4, 0, 0, 0, 4, 0);
  // Inside, on the long side, on a short one; just past the long side, left of the short one.
  const double xy[5][2] = {{1, 1}, {2, 2}, {2, 0}, {2.1, 2.1}, {-0.5, 1}};
  for (int k = 0; k < 5; ++k) EXPECT_EQ(PuntoInternoFalda(p.s, 0, xy[k][0], xy[k][1]), k < 3) << k;
}

TEST(TRIPF, IPuntiFiducialiInFalde) {
  prova::Banco b;
  // A square with a point inside: any triangulation is the fan of four about it. PF04 has no
  // height (0 in the facets); 100 is not of the network: no facet is lost for it.
  prova::MettiPunti(b.s, {{"PF01", 0, 0, 1}, {"PF02", 10, 0, 2}, {"PF03", 10, 10, 3}, {"PF04", 0, 10, 9999},
                          {"PF05", 4, 5, 5}, {"100", 2, 8, 7}});
  b.Pronto(5, 5, 100);
  b.Script("TAG TRIPF\n");
  int vive = 0;
  double area = 0;
  for (size_t r = 0; r < static_cast<size_t>(b.s.ContaEntita[SlotFalde]); ++r) {
    if (b.s.FaldaIdent[r] != 0) continue;
    ++vive, area += b.s.FaldaAreaDiBase[r];
    EXPECT_TRUE((b.s.FaldaX1[r] == 4 && b.s.FaldaY1[r] == 5) || (b.s.FaldaX2[r] == 4 && b.s.FaldaY2[r] == 5) ||
                (b.s.FaldaX3[r] == 4 && b.s.FaldaY3[r] == 5)) << r;
    EXPECT_EQ(b.s.FaldaPiano[r], "PROFALDE");
    for (double z : {b.s.FaldaZ1[r], b.s.FaldaZ2[r], b.s.FaldaZ3[r]}) EXPECT_NE(z, 9999.0);
  }
  EXPECT_EQ(vive, 4);
  EXPECT_DOUBLE_EQ(area, 100.0);
  // The network was scaffolding only.
  EXPECT_EQ(RigheVive(b.s, SlotLinee), 0);
  EXPECT_EQ(b.s.Prompt, "Numero Linee triangolate = 8");
}

TEST(DefinizioneFalda, TreClicSuiPuntiESovrapposizioni) {
  prova::Banco b;
  prova::MettiPunti(b.s, {{"1", 0, 0, 1}, {"2", 10, 0, 2}, {"3", 0, 10, 3}, {"4", 10, 10, 4}});
  b.Pronto(5, 5, 100);
  b.Script("TAG DEFINIZIONE_FALDA\nCLICK left @1\nCLICK left @2\n");
  EXPECT_EQ(b.s.Prompt, "Definizione Falda - Terzo Punto:");
  b.Script("CLICK left @3\n");
  ASSERT_EQ(b.s.ContaEntita[SlotFalde], 1);
  EXPECT_EQ(b.s.FaldaAreaDiBase[0], 50.0);
  EXPECT_EQ(b.s.FaldaZ3[0], 3.0);
  // Beside it, sharing a side: no question.
  EXPECT_EQ(b.Script("CLICK left @2\nCLICK left @4\nCLICK left @3\n").find("DOMANDA"), std::string::npos);
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 2);
  // Across both: asked, and refused.
  const std::string fuori = b.Script("ANSWER no\nCLICK left @1\nCLICK left @2\nCLICK left @4\n");
  EXPECT_NE(fuori.find("DOMANDA [Falda Impossibile] La falda Interseca o Coincide con Falde Esistenti!!"), std::string::npos)
      << fuori;
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 2);
  EXPECT_EQ(b.s.Prompt, "Definizione Falda - Primo Punto:");
  b.Script("ANSWER si\nCLICK left @1\nCLICK left @2\nCLICK left @4\n");
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 3);
}

TEST(InvertiFalde, LaDiagonaleComuneCambia) {
  prova::Banco b;
  // A square split along (10,0)-(0,10), and a facet apart.
  MettiFalda(b.s, 0, 0, 0, 10, 0, 0, 0, 10, 7);
  MettiFalda(b.s, 10, 0.00005, 0, 10, 10, 0, 0, 10, 7);
  MettiFalda(b.s, 20, 0, 0, 30, 0, 0, 20, 10, 7);
  b.Pronto(5, 5, 100);
  b.Script("TAG INVERTI_FALDE\nCLICK left 2 2\n");
  EXPECT_EQ(b.s.Prompt, "Inverti Falde - Seconda Falda:");
  b.Script("CLICK left 8 8\n");
  auto vertici = [&](size_t r) {
    return std::vector<double>{b.s.FaldaX1[r], b.s.FaldaY1[r], b.s.FaldaX2[r], b.s.FaldaY2[r], b.s.FaldaX3[r], b.s.FaldaY3[r]};
  };
  // Now along (0,0)-(10,10): each keeps one end of the old side.
  EXPECT_EQ(std::make_pair(vertici(0), vertici(1)),
            std::make_pair(std::vector<double>{0, 0, 10, 0, 10, 10}, std::vector<double>{10, 10, 0, 10, 0, 0}));
  // The vertex keeps its height.
  EXPECT_EQ(std::make_pair(b.s.FaldaZ2[1], b.s.FaldaAreaDiBase[0] + b.s.FaldaAreaDiBase[1]), std::make_pair(7.0, 100.0));
  EXPECT_EQ(b.s.Prompt, "Inverti Falde - Prima Falda:");
  // Not neighbours: said, and nothing changes.
  EXPECT_EQ(b.Script("CLICK left 2 2\nCLICK left 22 2\n"), 
            "> CLICK left 2 2\nPROMPT Inverti Falde - Seconda Falda:\n> CLICK left 22 2\n"
            "MESSAGGIO [Inverti Falde] Falde non adiacenti\nPROMPT Inverti Falde - Prima Falda:\n");
  EXPECT_EQ(vertici(0), (std::vector<double>{0, 0, 10, 0, 10, 10}));
}

class Curve : public ::testing::Test {
 protected:
  prova::Banco b;
  Sessione& s = b.s;
  void SetUp() override { ApriLavoroTerreno(b); }
  std::string Due() const { return LeggiFileProva(s.NomeLavoro + ".DUE"); }
  // The polylines of the curve table: head height, colour and vertices.
  struct Curva {
    double Quota, Colore;
    std::vector<double> X, Y;
  };
  std::vector<Curva> Tabella() const {
    std::vector<Curva> c;
    for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotCurve]); ++r) {
      if (s.CurvaFlag[r] == 2) c.push_back({s.CurvaX[r], s.CurvaY[r], {}, {}});
      if (s.CurvaFlag[r] == 0) c.back().X.push_back(s.CurvaX[r]), c.back().Y.push_back(s.CurvaY[r]);
      if (s.CurvaFlag[r] == 1) {
        EXPECT_EQ(s.CurvaX[r], c.back().Quota);
        EXPECT_EQ(s.CurvaY[r], c.back().Colore);
      }
    }
    return c;
  }
};

TEST_F(Curve, UnaFaldaTagliataAMano) {
  // Heights 0.5, 0.5, 2.5: levels 1 and 2 cross the upper part, a quarter and three quarters
  // up the sides from the low edge: (0,1)-(3,1) and (0,3)-(1,3).
  MettiFalda(s, 0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  ASSERT_TRUE(GeneraSpezzate(s));
  EXPECT_EQ(Due(), "1\r\n2\r\n0,1\r\n3,1\r\n2\r\n2\r\n0,3\r\n1,3\r\n");
  // The level at the reference height carries the sentinel; with the reference curve asked
  // for, the cut at 1.5 too.
  s.QuotaRiferimento = 2;
  ASSERT_TRUE(GeneraSpezzate(s));
  EXPECT_EQ(Due(), "1\r\n2\r\n0,1\r\n3,1\r\n-2000\r\n2\r\n0,3\r\n1,3\r\n");
  s.QuotaRiferimento = 1.5, s.Terreno.CurvaRiferimento = 1;
  ASSERT_TRUE(GeneraSpezzate(s));
  EXPECT_EQ(Due(), "1\r\n2\r\n0,1\r\n3,1\r\n2\r\n2\r\n0,3\r\n1,3\r\n-2000\r\n2\r\n0,2\r\n2,2\r\n");
  // An interval of 0 is 1; of 0.5, five levels.
  s.Terreno.CurvaRiferimento = 0, s.Terreno.Equidistanza = 0;
  ASSERT_TRUE(GeneraSpezzate(s));
  EXPECT_EQ(s.Terreno.Equidistanza, 1.0);
  s.Terreno.Equidistanza = 0.5;
  ASSERT_TRUE(GeneraSpezzate(s));
  EXPECT_EQ(Due().substr(0, 21), "0.5\r\n2\r\n0,0\r\n4,0\r\n1\r\n");

  // The smoothing of a straight cut: the vertex and ten points along it, between its head
  // and closing rows; the reference height where the sentinel stood, in the base colour.
  s.QuotaRiferimento = 2, s.Terreno.Equidistanza = 1;
  s.Terreno.ColoreCurvaSopra = 11, s.Terreno.ColoreCurvaSotto = 12, s.Terreno.ColoreCurvaBase = 13;
  ASSERT_TRUE(GeneraSpezzate(s));
  CalcolaContur(s);
  ASSERT_EQ(s.ContaEntita[SlotCurve], 26);
  const auto c = Tabella();
  ASSERT_EQ(c.size(), 2u);
  EXPECT_EQ(std::make_tuple(c[0].Quota, c[0].Colore, c[1].Quota, c[1].Colore), std::make_tuple(1.0, 12.0, 2.0, 13.0));
  EXPECT_TRUE(prova::Vicini(c[0].X, {0, 0.3, 0.6, 0.9, 1.2, 1.5, 1.8, 2.1, 2.4, 2.7, 3}, 1e-12));
  EXPECT_TRUE(prova::Vicini(c[0].Y, std::vector<double>(11, 1.0), 1e-12));
  // A step of 3 keeps the points 1, 4, 7 and 10 of the span; one below 1 is 1.
  s.Terreno.PassoCurva = 3;
  CalcolaContur(s);
  EXPECT_EQ(s.ContaEntita[SlotCurve], 2 * (2 + 1 + 4));
  s.Terreno.PassoCurva = 0;
  CalcolaContur(s);
  EXPECT_EQ(s.Terreno.PassoCurva, 1.0);
  EXPECT_EQ(s.ContaEntita[SlotCurve], 26);
}

TEST_F(Curve, SplineDaCentoPunti) {
  MettiFalda(s, 0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  b.Pronto(2, 2, 10);
  b.Script("TAG SPLINE_CURVE\nFIELD Equidistanza 1\nFIELD Metodo Bezier\nPRESS OK\n");
  // Each straight cut as 100 points evenly along it, between its head and closing rows.
  ASSERT_EQ(s.ContaEntita[SlotCurve], 2 * 102);
  const auto c = Tabella();
  ASSERT_EQ(c.size(), 2u);
  std::vector<double> passi(100);
  for (size_t k = 0; k < 100; ++k) passi[k] = static_cast<double>(k) / 99;
  EXPECT_TRUE(prova::Vicini(c[1].X, passi, 1e-12));
  EXPECT_TRUE(prova::Vicini(c[1].Y, std::vector<double>(100, 3.0), 1e-12));
  // Opened again, the job keeps the spline; without `.CUV`, the cubic from `.DUE`. A `.DUE` that
  // cannot be read: the box, no curves, and the curves made next are saved.
  ASSERT_TRUE(Salva(s));
  VR_ApriLavoro(s);
  EXPECT_EQ(s.ContaEntita[SlotCurve], 2 * 102);
  const std::string cuv = s.NomeOriginale + ".CUV";
  ASSERT_TRUE(std::filesystem::remove(cuv));
  VR_ApriLavoro(s);
  EXPECT_EQ(s.ContaEntita[SlotCurve], 2 * 13);
  prova::ScriviFileProva(s.NomeOriginale + ".DUE", "1\r\n2\r\n0,1\r\n");
  VR_ApriLavoro(s);
  EXPECT_EQ(std::tie(b.ui.Errori, s.ContaEntita[SlotCurve]), std::tuple(1, 0));
  MettiFalda(s, 0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  b.Script("TAG SPLINE_CURVE\nFIELD Metodo Bezier\nPRESS OK\n");
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(LeggiFileProva(cuv).size(), 2u * 102u * 17u);
  // A square round the ring: the closed cubic B-spline starts at (P3 + 4 P0 + P1) / 6 =
  // (1/6, 1/6), and bulges towards each side no farther than the middle of its span,
  // (P0 + 23 P1 + 23 P2 + P3) / 48: 1/24 from it.
  Spezzata q;
  q.X = {0, 1, 1, 0, 0}, q.Y = {0, 0, 1, 1, 0};
  std::vector<double> x, y;
  PuntiSpline(q, MetodoSpline::BSplineChiusa, 3, x, y);
  ASSERT_EQ(x.size(), 100u);
  for (size_t k = 0; k < 100; ++k)
    for (double v : {x[k], y[k]}) EXPECT_TRUE(v >= 1.0 / 24 - 1e-12 && v <= 23.0 / 24 + 1e-12) << k << " " << v;
  EXPECT_NEAR(x[0], 1.0 / 6, 1e-12);  // at the start of the span from the corner (0, 0)
  EXPECT_NEAR(y[0], 1.0 / 6, 1e-12);
  EXPECT_NEAR(x[99], x[0], 1e-12);    // and back there at the end
}

TEST_F(Curve, IlConoDaCerchiEntroLErroreDiCorda) {
  // z = 10.5 - r on rings 1 m apart and 64 directions: the contour of level h is the circle
  // of radius 10.5 - h, its vertices on the chords of the facets: no farther in than
  // R (1 - cos(pi / 64)).
  const int n = 64;
  auto p = [&](int i, int j, double& x, double& y, double& z) {
    const double a = 2 * std::numbers::pi * j / n;
    x = i * std::sin(a), y = i * std::cos(a), z = 10.5 - i;
  };
  for (int i = 0; i < 10; ++i)
    for (int j = 0; j < n; ++j) {
      double x[4], y[4], z[4];
      p(i, j, x[0], y[0], z[0]), p(i + 1, j, x[1], y[1], z[1]), p(i + 1, j + 1, x[2], y[2], z[2]), p(i, j + 1, x[3], y[3], z[3]);
      MettiFalda(s, x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2]);
      if (i > 0) MettiFalda(s, x[0], y[0], z[0], x[2], y[2], z[2], x[3], y[3], z[3]);
    }
  ASSERT_TRUE(GeneraSpezzate(s));
  const auto spezzate = LeggiDue(Due());
  ASSERT_EQ(spezzate.size(), 10u);
  const double corda = 1 - std::cos(std::numbers::pi / n);
  for (const Spezzata& c : spezzate) {
    const double r = 10.5 - c.Quota;
    EXPECT_NEAR(c.X.front(), c.X.back(), 1e-9);  // closed
    EXPECT_NEAR(c.Y.front(), c.Y.back(), 1e-9);
    for (size_t k = 0; k < c.X.size(); ++k) {
      const double d = std::hypot(c.X[k], c.Y[k]);
      EXPECT_LE(d, r + 1e-9);
      EXPECT_GE(d, r * (1 - corda) - 1e-9);
      // The pieces of neighbouring facets meet at their shared side: no vertex twice.
      if (k > 0) {
        EXPECT_GT(std::hypot(c.X[k] - c.X[k - 1], c.Y[k] - c.Y[k - 1]), 0.0) << k;
      }
    }
  }
  // Smoothed, the curves stay on their circles as closely.
  CalcolaContur(s);
  const auto c = Tabella();
  ASSERT_EQ(c.size(), 10u);
  for (const Curva& k : c)
    for (size_t v = 0; v < k.X.size(); ++v) EXPECT_NEAR(std::hypot(k.X[v], k.Y[v]), 10.5 - k.Quota, (10.5 - k.Quota) * corda);
}

TEST_F(Curve, NienteFaldeEFileDueGuasti) {
  EXPECT_EQ(b.Script("TAG GENERA_CURVE\n"),
            "> TAG GENERA_CURVE\nMESSAGGIO [Impossibile generare curve livello] Nessuna Falda nel disegno!!!\n");
  MettiFalda(s, 0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  s.FaldaCongela[0] = 1;
  EXPECT_FALSE(GeneraSpezzate(s));
  EXPECT_EQ(b.ui.UltimoMessaggio, "Tutte le falde congelate!!!");
  s.FaldaCongela[0] = 0;
  ASSERT_TRUE(GeneraSpezzate(s));
  CalcolaContur(s);
  ASSERT_EQ(s.ContaEntita[SlotCurve], 26);
  // An interval that would cut the facet twenty million times: the box, the curves kept.
  s.Terreno.Equidistanza = 1e-7;
  b.Script("TAG GENERA_CURVE\n");
  EXPECT_EQ(b.ui.Errori, 1);
  EXPECT_EQ(s.ContaEntita[SlotCurve], 26);
  s.Terreno.Equidistanza = 1;
  ASSERT_TRUE(GeneraSpezzate(s));
  // A file cut short, a count that is no count, a vertex that is no number: the box, and
  // the curves as they were.
  const std::string guasti[] = {"1\r\n2\r\n0,1\r\n", "1\r\ndue\r\n0,1\r\n3,1\r\n", "1\r\n-1\r\n",
                                "1\r\n1e300\r\n0,1\r\n", "1\r\n2\r\n0,1\r\nx,1\r\n", "\xff\xfe\x01"};
  for (const std::string& g : guasti) {
    const int64_t errori = b.ui.Errori;
    prova::ScriviFileProva(s.NomeLavoro + ".DUE", g);
    CalcolaContur(s);
    EXPECT_EQ(b.ui.Errori, errori + 1) << g;
    EXPECT_EQ(s.ContaEntita[SlotCurve], 26) << g;
  }
  // No file: nothing at all.
  std::filesystem::remove(s.NomeLavoro + ".DUE");
  CalcolaContur(s);
  EXPECT_EQ(s.ContaEntita[SlotCurve], 26);
}

TEST_F(Curve, DisegnateColorateEsplose) {
  MettiFalda(s, 0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  s.QuotaRiferimento = 2;
  s.Terreno.ColoreCurvaSotto = 12, s.Terreno.ColoreCurvaBase = 13;
  s.Terreno.EtichetteCurve = true, s.Terreno.AltezzaEtichettaCurve = 0.5, s.Terreno.DecimaliCurve = 2;
  b.Pronto(2, 2, 10);
  b.Script("TAG GENERA_CURVE\n");
  ASSERT_EQ(s.ContaEntita[SlotCurve], 26);
  // In DXF, the label of the first curve with the job's height and decimals.
  OpzioniDxfOut dxf;
  dxf.Curve = true;
  EXPECT_NE(TestoDxfOut(s, dxf).find(" 40 \r\n0.5\r\n 1 \r\n1.00\r\n"), std::string::npos);
  // Each curve: ten segments of kind 9 in its colour, and its height at its end.
  int segmenti[2] = {0, 0};
  std::vector<std::string> testi;
  const ElencoDisegno& l = s.ListaDisegno;
  for (size_t k = 0; k < static_cast<size_t>(l.Conta()); ++k) {
    if (l.Tipo[k] != SlotCurve) continue;
    if (l.Primitiva[k] == PrimTesto) {
      testi.push_back(l.Testo(static_cast<int64_t>(k)));
      continue;
    }
    ASSERT_TRUE(l.Colore[k] == 12 || l.Colore[k] == 13);
    ++segmenti[l.Colore[k] - 12];
  }
  EXPECT_EQ(std::make_pair(segmenti[0], segmenti[1]), std::make_pair(10, 10));
  EXPECT_EQ(testi, (std::vector<std::string>{"1.00", "2.00"}));

  b.Script("TAG COLORA_CURVE\nFIELD ColoreCurvaSotto 4\nFIELD ColoreCurvaBase 6\nFIELD ColoreCurvaSopra 0\nPRESS OK\n");
  EXPECT_EQ(std::make_tuple(s.Terreno.ColoreCurvaSopra, s.CurvaY[0], s.CurvaY[12], s.CurvaY[13]), std::make_tuple(3, 4.0, 4.0, 6.0));

  b.Script("ANSWER yes\nTAG ESPLODI_CURVE_LIVELLO\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 20);
  EXPECT_EQ(std::make_tuple(s.LineaPiano[0], s.LineaColore[0], s.LineaColore[19], s.LineaZ1[19]),
            std::make_tuple("CURVEESP", 4, 6, 2.0));
  b.Script("ANSWER yes\nTAG ELIMINA_CURVE_ESPLOSE\n");
  for (size_t r = 0; r < 20; ++r) EXPECT_NE(s.LineaIdent[r], 0);
}

// Switched off in the settings, facets and curves leave the drawing and their commands
// refuse; switched on again, they come back.
TEST_F(Curve, FaldeECurveSpenteEAccese) {
  MettiFalda(s, 0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  b.Pronto(2, 2, 10);
  b.Script("TAG GENERA_CURVE\n");
  auto disegnati = [&] {
    std::pair<int, int> n{0, 0};
    for (size_t k = 0; k < static_cast<size_t>(s.ListaDisegno.Conta()); ++k)
      n.first += s.ListaDisegno.Tipo[k] == SlotFalde, n.second += s.ListaDisegno.Tipo[k] == SlotCurve;
    return n;
  };
  EXPECT_EQ(disegnati(), std::pair(3, 20));
  b.Script("TAG IMPOSTAZIONI_TERRENO\nFIELD FaldeAttive 0\nFIELD CurveAttive 0\nPRESS OK\n");
  EXPECT_EQ(disegnati(), std::pair(0, 0));
  b.Script("TAG COLORA_CURVE\n");
  EXPECT_EQ(b.ui.UltimoMessaggio, "Curve NON Attive!");
  b.Script("KEY ESC\nTAG INVERTI_FALDE\nCLICK left 1 1\n");
  EXPECT_EQ(b.ui.UltimoMessaggio, "Falde NON Attive!");
  b.Script("KEY ESC\nTAG IMPOSTAZIONI_TERRENO\nFIELD FaldeAttive 1\nFIELD CurveAttive 1\nPRESS OK\n");
  EXPECT_EQ(disegnati(), std::pair(3, 20));
}

auto Impostazioni(const Sessione& s) {
  const StatoTerreno& t = s.Terreno;
  return std::tuple(t.Equidistanza, s.QuotaRiferimento, t.CurvaRiferimento, t.LimiteDeviazione, t.PassoCurva,
                    t.ColoreCurvaSopra, t.ColoreCurvaSotto, t.ColoreCurvaBase, t.AltezzaEtichettaCurve,
                    t.DecimaliCurve, t.AltezzaNumero, t.AltezzaValori);
}

TEST(ImpostazioniTerreno, ColLavoroEUnCfgVecchioAlByte) {
  prova::Banco b;
  const std::string base = prova::CopiaEsempio(b.cartella / "lavori");
  const std::string vecchio = LeggiFileProva(base + ".CFG");
  b.s.NomeOriginale = base;
  VR_ApriLavoro(b.s);
  // The example was written before the settings had rows: they hold 0 and read as defaults.
  EXPECT_EQ(Impostazioni(b.s), std::tuple(1.0, 0.0, int16_t{0}, 30.0, 1.0, 3, 5, 1, 1.0, 0, 1.0, 1.0));
  ASSERT_TRUE(Salva(b.s));
  EXPECT_EQ(LeggiFileProva(base + ".CFG"), vecchio);
  b.Script("TAG IMPOSTAZIONI_TERRENO\nFIELD Equidistanza 2.5\nFIELD QuotaRiferimento 101.25\nFIELD CurvaRiferimento 1\n"
           "FIELD LimiteDeviazione 45.5\nFIELD PassoCurva 2\nFIELD ColoreCurvaSopra 11\nFIELD ColoreCurvaSotto 12\n"
           "FIELD ColoreCurvaBase 13\nFIELD AltezzaEtichettaCurve 0.75\nFIELD DecimaliCurve 2\nFIELD AltezzaNumero 1.5\n"
           "FIELD AltezzaValori 0.5\nPRESS OK\n");
  ASSERT_TRUE(Salva(b.s));
  // Statements 137 to 151 of block A, as the README places the settings round the labelled ones.
  EXPECT_NE(LeggiFileProva(base + ".CFG").find("\"\",\"\"\r\n\"\",1\r\n\"\",2.5\r\n\"\",101.25\r\n\"\",45.5,2\r\n"
                                               "\"ColoreInvasoFalda\",0\r\n\"DimensioneQuotaCurve\",0.75\r\n"
                                               "\"DimensioneAreaTriangoli\",0.5\r\n\"\",2\r\n\"\",0\r\n\"\",1.5\r\n\"\",11\r\n\"\",12\r\n\"\",13\r\n\"\",\"\"\r\n"),
            std::string::npos);
  b.s.Terreno = {}, b.s.QuotaRiferimento = 0;
  VR_ApriLavoro(b.s);
  EXPECT_EQ(Impostazioni(b.s), std::tuple(2.5, 101.25, int16_t{1}, 45.5, 2.0, 11, 12, 13, 0.75, 2, 1.5, 0.5));
}

}  // namespace
}  // namespace varena
