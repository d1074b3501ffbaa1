// The indexes of the drawing. The tree of the nearest-entity searches: every box met once,
// nearest first, none beyond the threshold, broken boxes never. The grid of the redraw: boxes
// found near a rectangle, broken boxes never.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "view/IndiceAlbero.h"
#include "view/IndiceGriglia.h"

namespace varena {
namespace {

struct Box {
  double X0, Y0, X1, Y1;
};

double DistanzaScatola(const Box& b, double x, double y) {
  const double dx = x < std::min(b.X0, b.X1) ? std::min(b.X0, b.X1) - x : x > std::max(b.X0, b.X1) ? x - std::max(b.X0, b.X1) : 0;
  const double dy = y < std::min(b.Y0, b.Y1) ? std::min(b.Y0, b.Y1) - y : y > std::max(b.Y0, b.Y1) ? y - std::max(b.Y0, b.Y1) : 0;
  return std::hypot(dx, dy);
}

TEST(IndiceAlbero, TutteLeScatoleUnaVoltaDallaPiuVicina) {
  std::mt19937 caso(3);
  std::uniform_real_distribution<double> u(-1000, 1000);
  std::vector<Box> b;
  for (int i = 0; i < 5000; ++i) {
    const double x = 1725000 + u(caso), y = 5030000 + u(caso);
    b.push_back({x, y, x + u(caso) / 50, y + u(caso) / 50});  // corners in any order
  }
  b[17].X0 = std::numeric_limits<double>::quiet_NaN();
  IndiceAlbero a;
  a.Costruisci(static_cast<int64_t>(b.size()), [&](int64_t i, double& x0, double& y0, double& x1, double& y1) {
    const Box& q = b[static_cast<size_t>(i)];
    x0 = q.X0, y0 = q.Y0, x1 = q.X1, y1 = q.Y1;
    return i != 99;  // left out on purpose
  });
  EXPECT_EQ(a.Elementi(), 5000);
  const double x = 1725010.5, y = 5029990.25;
  std::vector<int> visti(b.size(), 0);
  double ultima = 0;
  a.Visita(x, y, [&](int64_t i) {
    ++visti[static_cast<size_t>(i)];
    const double d = DistanzaScatola(b[static_cast<size_t>(i)], x, y);
    // Stored in 32 bits and rounded outwards, a box may come a hair early, never late.
    EXPECT_GE(d + 1e-3, ultima) << i;
    ultima = std::max(ultima, d);
  }, [] { return std::numeric_limits<double>::infinity(); });
  for (size_t i = 0; i < b.size(); ++i) EXPECT_EQ(visti[i], i == 17 || i == 99 ? 0 : 1) << i;

  // A threshold stops the walk: nothing farther than it is met.
  int meno = 0;
  a.Visita(x, y, [&](int64_t i) {
    EXPECT_LE(DistanzaScatola(b[static_cast<size_t>(i)], x, y), 50 + 1e-3);
    ++meno;
  }, [] { return 50.0; });
  int attesi = 0;
  for (size_t i = 0; i < b.size(); ++i)
    if (i != 17 && i != 99 && DistanzaScatola(b[i], x, y) <= 50 - 1e-3) ++attesi;
  EXPECT_GE(meno, attesi);
  EXPECT_LT(meno, 5000);
}

TEST(IndiceAlbero, VuotoEUnaSolaScatola) {
  IndiceAlbero a;
  int visite = 0;
  a.Costruisci(0, [](int64_t, double&, double&, double&, double&) { return true; });
  a.Visita(0, 0, [&](int64_t) { ++visite; }, [] { return 1e300; });
  EXPECT_EQ(visite, 0);
  a.Costruisci(1, [](int64_t, double& x0, double& y0, double& x1, double& y1) {
    x0 = x1 = 3, y0 = y1 = 4;
    return true;
  });
  a.Visita(0, 0, [&](int64_t i) { visite += static_cast<int>(i) + 1; }, [] { return 5.0; });
  EXPECT_EQ(visite, 1);
  a.Visita(0, 0, [&](int64_t) { ++visite; }, [] { return 4.99; });
  EXPECT_EQ(visite, 1);
}

// The boxes are kept in 32 bits from an origin and rounded outwards: a point searched at its
// own national-grid coordinates with no distance allowed is met, whichever way 32 bits round.
TEST(IndiceAlbero, UnPuntoCercatoSuSeStessoADistanzaZero) {
  std::mt19937 caso(5);
  std::uniform_real_distribution<double> u(-500, 500);
  std::vector<std::pair<double, double>> p(300);
  for (auto& [x, y] : p) x = 1725000 + u(caso), y = 5030000 + u(caso);
  IndiceAlbero a;
  a.Costruisci(static_cast<int64_t>(p.size()), [&](int64_t i, double& x0, double& y0, double& x1, double& y1) {
    x0 = x1 = p[static_cast<size_t>(i)].first, y0 = y1 = p[static_cast<size_t>(i)].second;
    return true;
  });
  int mancati = 0;
  for (size_t i = 0; i < p.size(); ++i) {
    bool trovato = false;
    a.Visita(p[i].first, p[i].second, [&](int64_t k) { trovato |= k == static_cast<int64_t>(i); }, [] { return 0.0; });
    mancati += !trovato;
  }
  EXPECT_EQ(mancati, 0);
}

std::vector<int64_t> Griglia(const std::vector<std::vector<double>>& b, double x0, double y0, double x1, double y1) {
  IndiceGriglia g;
  g.Costruisci(static_cast<int64_t>(b.size()), [&](int64_t i, double& a, double& c, double& d, double& e) {
    const auto& q = b[static_cast<size_t>(i)];
    a = q[0], c = q[1], d = q[2], e = q[3];
  });
  std::vector<int64_t> trovati;
  g.Cerca(x0, y0, x1, y1, trovati);
  return trovati;
}

TEST(IndiceGriglia, ScatoleInfiniteNonTrovateLeAltreSi) {
  const double inf = std::numeric_limits<double>::infinity();
  // Corners of a number that overflowed are never found, and do not stretch the grid: the
  // box far from the query stays out of it.
  const std::vector<std::vector<double>> b = {{0, 0, 1, 1}, {inf, 0, inf, 1}, {5, 5, 6, 6}, {-inf, -inf, 3, 3}, {9, 9, 10, 10}};
  EXPECT_EQ(Griglia(b, -1, -1, 20, 20), (std::vector<int64_t>{0, 2, 4}));
  EXPECT_EQ(Griglia(b, 9.5, 9.5, 9.6, 9.6), (std::vector<int64_t>{4}));
  // Finite corners further apart than a double can measure, and a query that is not a
  // number: every box in the one cell they make.
  const std::vector<std::vector<double>> c = {{0, 1e308, 1, -1e308}, {-1e308, 0, 1e308, 0}, {2, 2, 3, 3}};
  EXPECT_EQ(Griglia(c, 2, 2, 3, 3), (std::vector<int64_t>{0, 1, 2}));
  EXPECT_EQ(Griglia(c, std::nan(""), 0, inf, inf), (std::vector<int64_t>{0, 1, 2}));
}

}  // namespace
}  // namespace varena
