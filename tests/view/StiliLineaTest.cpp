// Dash patterns, arc chords and symbol codes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "view/StiliLinea.h"

namespace varena {
namespace {

std::vector<Tratto> Espandi(double x1, double y1, double x2, double y2, std::vector<double> elementi,
                            double angolo = 0) {
  std::vector<Tratto> out;
  EspandiLinea(x1, y1, x2, y2, {elementi, angolo}, out);
  return out;
}

std::vector<ElementoSimbolo> Simbolo(int codice, double s, bool carta = false) {
  std::vector<ElementoSimbolo> e;
  ScomponiSimbolo(codice, s, carta, e);
  return e;
}

TEST(EspandiLinea, TrattiEVuotiInMetri) {
  // Due East, 10 m, strokes of 3 and gaps of 3: 0-3, 6-9, the third stroke cut at the end.
  auto t = Espandi(100, 200, 110, 200, {3, -3});
  ASSERT_EQ(t.size(), 2u);
  EXPECT_DOUBLE_EQ(t[0].X1, 100);
  EXPECT_DOUBLE_EQ(t[0].X2, 103);
  EXPECT_DOUBLE_EQ(t[1].X1, 106);
  EXPECT_DOUBLE_EQ(t[1].X2, 109);
  t = Espandi(0, 0, 0, 13, {3, -3});  // due North, 13 m: the third stroke stops at the end
  ASSERT_EQ(t.size(), 3u);
  EXPECT_EQ(t[2].Y2, 13);
  EXPECT_NEAR(t[2].Y1, 12, 1e-12);
  EXPECT_EQ(Espandi(0, 0, 0, 11, {3, -3}).size(), 2u);  // ending in a gap adds nothing

  // Dots are strokes of no length: at 0, 25, 50.
  t = Espandi(0, 0, 60, 0, {0, -25});
  ASSERT_EQ(t.size(), 3u);
  EXPECT_EQ(t[1].X1, 25);
  EXPECT_EQ(t[1].X2, 25);
  EXPECT_EQ(t[2].X1, 50);

  // Aslant by 100 gon on a line due East: each stroke stands due South, the walk goes East.
  t = Espandi(0, 0, 10, 0, {1, -4}, 100);
  ASSERT_EQ(t.size(), 2u);
  EXPECT_NEAR(t[0].X2, 0, 1e-12);
  EXPECT_NEAR(t[0].Y2, -1, 1e-12);
  EXPECT_NEAR(t[1].X1, 5, 1e-12);
  EXPECT_NEAR(t[1].Y2, -1, 1e-12);
}

TEST(EspandiLinea, CortaSoloVuotiPienaETroppiPezzi) {
  auto t = Espandi(5, 5, 6, 5, {12.5, -25, 25, -25});  // shorter than its first stroke
  ASSERT_EQ(t.size(), 1u);
  EXPECT_EQ(t[0].X1, 5);
  EXPECT_EQ(t[0].X2, 6);  // exactly the line's end
  EXPECT_TRUE(Espandi(0, 0, 100, 0, {-2, -3}).empty());
  EXPECT_EQ(Espandi(0, 0, 3, 4, {}).size(), 1u);
  EXPECT_EQ(Espandi(0, 0, 0, 0, {}).size(), 1u);
  EXPECT_EQ(Espandi(0, 0, 1e6, 0, {0.001, -0.001}).size(), 1u);
  EXPECT_EQ(Espandi(0, 0, 1, 0, {0, 0}).size(), 1u);  // a pattern of no length
}

TEST(PercorsoMotivo, OgniFinestraDaIPezziDellIntera) {
  std::mt19937 caso(5);
  std::uniform_real_distribution<double> u(-1, 1);
  for (int prova = 0; prova < 300; ++prova) {
    std::vector<double> e;
    const int n = 1 + prova % 6;
    for (int k = 0; k < n; ++k) e.push_back(k % 3 == 2 ? 0.0 : std::round(u(caso) * 8) / 2);
    const double angolo = prova % 4 == 0 ? 50 : 0;
    const double x1 = 1725000 + u(caso) * 100, y1 = 5030000 + u(caso) * 100;
    const double x2 = x1 + u(caso) * 300, y2 = y1 + u(caso) * 300;
    const StileLinea stile{e, angolo};
    std::vector<Tratto> tutti;
    EspandiLinea(x1, y1, x2, y2, stile, tutti);
    const PercorsoMotivo m(x1, y1, x2, y2, stile);
    // Any window: exactly the pieces of the whole line whose start lies in it, to the bit.
    const double da = (u(caso) + 1) * m.Lunghezza() / 2, a = da + (u(caso) + 1) * 40;
    std::vector<Tratto> finestra;
    m.Pezzi(da, a, [&](const Tratto& t) { finestra.push_back(t); });
    // A plain line (a pattern of no length) is its one piece in any window that meets it.
    std::vector<Tratto> attesi;
    for (const Tratto& t : tutti) {
      const double d = std::hypot(t.X1 - x1, t.Y1 - y1);
      if ((d >= da - 1e-6 && d <= a + 1e-6) || m.Come() == PercorsoMotivo::Modo::Piena) attesi.push_back(t);
    }
    ASSERT_EQ(finestra.size(), attesi.size()) << prova;
    for (size_t k = 0; k < attesi.size(); ++k) {
      EXPECT_EQ(finestra[k].X1, attesi[k].X1) << prova;
      EXPECT_EQ(finestra[k].Y2, attesi[k].Y2) << prova;
    }
    // The box from the first and last repeats alone is the box of every piece.
    double bx0 = 0, by0 = 0, bx1 = 0, by1 = 0;
    ASSERT_EQ(m.Riquadro(bx0, by0, bx1, by1), !tutti.empty()) << prova;
    if (tutti.empty()) continue;
    double xmin = 1e300, ymin = 1e300, xmax = -1e300, ymax = -1e300;
    for (const Tratto& t : tutti) {
      xmin = std::min({xmin, t.X1, t.X2}), xmax = std::max({xmax, t.X1, t.X2});
      ymin = std::min({ymin, t.Y1, t.Y2}), ymax = std::max({ymax, t.Y1, t.Y2});
    }
    EXPECT_EQ(bx0, xmin) << prova;
    EXPECT_EQ(by0, ymin) << prova;
    EXPECT_EQ(bx1, xmax) << prova;
    EXPECT_EQ(by1, ymax) << prova;
  }
}

TEST(EspandiArco, CordeEAltezze) {
  std::vector<TrattoArco> out;
  const double pi = 4 * std::atan(1.0);
  // A quarter turn of radius 10 from North towards East.
  EspandiArco(0, 0, 10, 0, pi / 2, {}, out);
  ASSERT_GE(out.size(), 20u);
  EXPECT_NEAR(out.front().X1, 0, 1e-12);
  EXPECT_NEAR(out.front().Y1, 10, 1e-12);
  EXPECT_NEAR(out.back().X2, 10, 1e-12);
  EXPECT_NEAR(out.back().Y2, 0, 1e-9);
  EXPECT_EQ(out.front().T1, 0);
  EXPECT_EQ(out.back().T2, 1);
  for (const auto& c : out) {
    // No chord strays more than half a millimetre from the curve.
    const double mx = (c.X1 + c.X2) / 2, my = (c.Y1 + c.Y2) / 2;
    EXPECT_LE(10 - std::hypot(mx, my), 0.0005);
  }
  out.clear();
  // A pattern on a circle of radius 1: strokes of 1 m become one radian of chords each.
  const std::vector<double> e = {1, -1};
  EspandiArco(0, 0, 1, 0, 2 * pi, {e, 0}, out);
  EXPECT_NEAR(out.front().X1, 0, 1e-12);
  double giro = 0;
  for (const auto& c : out) giro += std::hypot(c.X2 - c.X1, c.Y2 - c.Y1);
  // Strokes on 0-1, 2-3, 4-5 radians and the last from 6 to the end of the turn.
  EXPECT_NEAR(giro, 3.0 + (2 * pi - 6.0), 0.001);
}

TEST(ScomponiSimbolo, DecorazioniEBasi) {
  auto e = Simbolo(97, 4);  // 97 - 96 = 1: box and circle, no base
  ASSERT_EQ(e.size(), 2u);
  EXPECT_EQ(e[0].Tipo, ElementoSimbolo::Riquadro);
  EXPECT_EQ(e[0].C, 1);
  EXPECT_EQ(e[1].Tipo, ElementoSimbolo::Cerchio);
  e = Simbolo(66, 4);  // box, then a plus of half size 2
  ASSERT_EQ(e.size(), 3u);
  EXPECT_EQ(e[0].Tipo, ElementoSimbolo::Riquadro);
  EXPECT_EQ(e[1].A, -2);
  EXPECT_EQ(e[1].C, 2);
  e = Simbolo(35, 4);  // circle, diagonal cross
  ASSERT_EQ(e.size(), 3u);
  EXPECT_EQ(e[0].Tipo, ElementoSimbolo::Cerchio);
  EXPECT_EQ(e[1].A, -2);
  EXPECT_EQ(e[1].B, -2);
  e = Simbolo(32, 4);  // circle and a dot
  ASSERT_EQ(e.size(), 2u);
  EXPECT_EQ(e[1].Tipo, ElementoSimbolo::Punto);
  e = Simbolo(32, 4, true);  // on paper the dot is a cross of half size s/100
  ASSERT_EQ(e.size(), 3u);
  EXPECT_DOUBLE_EQ(e[1].C, 0.04);
  e = Simbolo(42, 10);  // triangle and a dot
  ASSERT_EQ(e.size(), 4u);
  EXPECT_DOUBLE_EQ(e[0].B, 4);  // first vertex due North at 0.4 s
  EXPECT_EQ(Simbolo(5, 2).size(), 8u);
  EXPECT_EQ(Simbolo(93, 2).size(), 2u);  // 93 - 96 < 0: box and circle only
  EXPECT_TRUE(Simbolo(1, 2).empty());
}

}  // namespace
}  // namespace varena
