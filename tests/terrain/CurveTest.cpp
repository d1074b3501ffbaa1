// Contour lines: the cuts of the facets worked by hand, a plane's contours straight at their
// places, a cone's circles within the chord error, the smoothing, the drawing and the
// commands on the curves.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <numbers>

#include "core/Dialoghi.h"
#include "support/ProvaComandi.h"
#include "support/Supporto.h"
#include "terrain/Curve.h"

namespace varena {
namespace {

using prova::LeggiFileProva;

class Curve : public ::testing::Test {
 protected:
  prova::Banco b;
  Sessione& s = b.s;
  void SetUp() override { prova::ApriLavoroVuoto(b); }
  void Falda(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3, double z3) {
    DimensionaFalde(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
    s.FaldaIdent[r] = 0;
    s.FaldaX1[r] = x1, s.FaldaY1[r] = y1, s.FaldaZ1[r] = z1, s.FaldaX2[r] = x2, s.FaldaY2[r] = y2, s.FaldaZ2[r] = z2;
    s.FaldaX3[r] = x3, s.FaldaY3[r] = y3, s.FaldaZ3[r] = z3;
  }
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
  Falda(0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
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
  EXPECT_EQ(c[0].Quota, 1.0);
  EXPECT_EQ(c[0].Colore, 12.0);
  EXPECT_EQ(c[1].Quota, 2.0);
  EXPECT_EQ(c[1].Colore, 13.0);
  ASSERT_EQ(c[0].X.size(), 11u);
  for (size_t k = 0; k < 11; ++k) {
    EXPECT_NEAR(c[0].X[k], 0.3 * static_cast<double>(k), 1e-12) << k;
    EXPECT_NEAR(c[0].Y[k], 1.0, 1e-12) << k;
  }
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
  Falda(0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  b.Pronto(2, 2, 10);
  b.Script("TAG SPLINE_CURVE\nFIELD Equidistanza 1\nFIELD Metodo Bezier\nPRESS OK\n");
  // Each straight cut as 100 points evenly along it, between its head and closing rows.
  ASSERT_EQ(s.ContaEntita[SlotCurve], 2 * 102);
  const auto c = Tabella();
  ASSERT_EQ(c.size(), 2u);
  ASSERT_EQ(c[1].X.size(), 100u);
  for (size_t k = 0; k < 100; ++k) {
    EXPECT_NEAR(c[1].X[k], static_cast<double>(k) / 99, 1e-12) << k;
    EXPECT_NEAR(c[1].Y[k], 3, 1e-12) << k;
  }
  // A square round the ring: the closed cubic B-spline starts at (P3 + 4 P0 + P1) / 6 =
  // (1/6, 1/6), and bulges towards each side no farther than the middle of its span,
  // (P0 + 23 P1 + 23 P2 + P3) / 48: 1/24 from it.
  Spezzata q;
  q.X = {0, 1, 1, 0, 0}, q.Y = {0, 0, 1, 1, 0};
  std::vector<double> x, y;
  PuntiSpline(q, MetodoSpline::BSplineChiusa, 3, x, y);
  ASSERT_EQ(x.size(), 100u);
  for (size_t k = 0; k < 100; ++k) {
    EXPECT_GE(x[k], 1.0 / 24 - 1e-12);
    EXPECT_LE(x[k], 23.0 / 24 + 1e-12);
    EXPECT_GE(y[k], 1.0 / 24 - 1e-12);
    EXPECT_LE(y[k], 23.0 / 24 + 1e-12);
  }
  EXPECT_NEAR(x[0], 1.0 / 6, 1e-12);  // at the start of the span from the corner (0, 0)
  EXPECT_NEAR(y[0], 1.0 / 6, 1e-12);
  EXPECT_NEAR(x[99], x[0], 1e-12);    // and back there at the end
}

TEST_F(Curve, IlPianoDaRetteAlPostoGiusto) {
  // z = x + 0.5 over a 10 by 10 square of 25 cells, two facets each: the contour of level k
  // is the segment x = k - 0.5 from the bottom side to the top one, one polyline each.
  for (int i = 0; i < 5; ++i)
    for (int j = 0; j < 5; ++j) {
      const double x0 = 2 * i, y0 = 2 * j, x1 = x0 + 2, y1 = y0 + 2;
      Falda(x0, y0, x0 + 0.5, x1, y0, x1 + 0.5, x1, y1, x1 + 0.5);
      Falda(x0, y0, x0 + 0.5, x1, y1, x1 + 0.5, x0, y1, x0 + 0.5);
    }
  ASSERT_TRUE(GeneraSpezzate(s));
  const auto spezzate = LeggiDue(Due());
  ASSERT_EQ(spezzate.size(), 10u);
  for (const Spezzata& p : spezzate) {
    ASSERT_GE(p.X.size(), 2u);
    for (double x : p.X) EXPECT_NEAR(x, p.Quota - 0.5, 1e-9) << p.Quota;
    EXPECT_NEAR(std::min(p.Y.front(), p.Y.back()), 0.0, 1e-9);
    EXPECT_NEAR(std::max(p.Y.front(), p.Y.back()), 10.0, 1e-9);
    for (size_t k = 1; k < p.Y.size(); ++k) EXPECT_GT(std::fabs(p.Y[k] - p.Y[k - 1]), 0.0);  // no stray vertex
  }
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
      Falda(x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2]);
      if (i > 0) Falda(x[0], y[0], z[0], x[2], y[2], z[2], x[3], y[3], z[3]);
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
  Falda(0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
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
  Falda(0, 4, 2.5, 0, 0, 0.5, 4, 0, 0.5);
  s.QuotaRiferimento = 2;
  s.Terreno.ColoreCurvaSotto = 12, s.Terreno.ColoreCurvaBase = 13;
  s.Terreno.EtichetteCurve = true;
  b.Pronto(2, 2, 10);
  b.Script("TAG GENERA_CURVE\n");
  ASSERT_EQ(s.ContaEntita[SlotCurve], 26);
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
  EXPECT_EQ(segmenti[0], 10);
  EXPECT_EQ(segmenti[1], 10);
  EXPECT_EQ(testi, (std::vector<std::string>{"1", "2"}));

  b.Script("TAG COLORA_CURVE\nFIELD ColoreCurvaSotto 4\nFIELD ColoreCurvaBase 6\nPRESS OK\n");
  EXPECT_EQ(s.CurvaY[0], 4.0);
  EXPECT_EQ(s.CurvaY[12], 4.0);
  EXPECT_EQ(s.CurvaY[13], 6.0);

  b.Script("ANSWER yes\nTAG ESPLODI_CURVE_LIVELLO\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 20);
  EXPECT_EQ(s.LineaPiano[0], "CURVEESP");
  EXPECT_EQ(s.LineaColore[0], 4);
  EXPECT_EQ(s.LineaColore[19], 6);
  EXPECT_EQ(s.LineaZ1[19], 2.0);
  b.Script("ANSWER yes\nTAG ELIMINA_CURVE_ESPLOSE\n");
  for (size_t r = 0; r < 20; ++r) EXPECT_NE(s.LineaIdent[r], 0);
}

}  // namespace
}  // namespace varena
