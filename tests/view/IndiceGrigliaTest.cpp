// The grid of the redraw: boxes found near a rectangle, broken boxes never.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "view/IndiceGriglia.h"

namespace varena {
namespace {

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
