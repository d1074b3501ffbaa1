// The constructions at the edges their commands' scripts do not reach, against a second
// formula: plane vectors (a unit vector along the base and its right-hand normal) and the law
// of sines. None of them goes through azimuths, which is how the code works.
#include <gtest/gtest.h>

#include <cmath>

#include "survey/CostruzionePunti.h"

namespace varena {
namespace {

constexpr double kGeo = 1e-9;  // metres

struct Vettore {
  double X, Y;
};

// The unit vector from A to B, and the one square to its right (clockwise).
Vettore Lungo(const PuntoXYZ& a, const PuntoXYZ& b) {
  const double l = std::hypot(b.X - a.X, b.Y - a.Y);
  return {(b.X - a.X) / l, (b.Y - a.Y) / l};
}
Vettore Destra(Vettore u) { return {u.Y, -u.X}; }
// `u` turned clockwise by `gon`.
Vettore Gira(Vettore u, double gon) {
  const double t = gon * std::acos(-1.0) / 200;
  return {u.X * std::cos(t) + u.Y * std::sin(t), -u.X * std::sin(t) + u.Y * std::cos(t)};
}

void Vicino(const PuntoXYZ& p, double x, double y, double tolleranza = kGeo) {
  EXPECT_NEAR(p.X, x, tolleranza);
  EXPECT_NEAR(p.Y, y, tolleranza);
}

// A base at an odd angle, climbing 6 m along it.
const PuntoXYZ kA{100.5, 200.25, 12};
const PuntoXYZ kB{180.0, 260.0, 18};
const double kL = std::hypot(79.5, 59.75);

TEST(PiedeSegnato, DietroADestraAscissaNegativaEPiedeInSalita) {
  const Vettore u = Lungo(kA, kB), n = Destra(u);
  const PuntoXYZ p{kA.X - 7 * u.X + 4 * n.X, kA.Y - 7 * u.Y + 4 * n.Y, 0};
  const PiedeConSegni r = PiedeSegnato(kA, kB, p);
  ASSERT_EQ(r.Stato, kRiuscito);
  EXPECT_NEAR(r.Ascissa, -7, kGeo);
  EXPECT_NEAR(r.Distacco, 4, kGeo);
  Vicino(r.F, kA.X - 7 * u.X, kA.Y - 7 * u.Y);
  EXPECT_NEAR(r.F.Z, 12 - 7 * 6 / kL, kGeo);
  EXPECT_EQ(PiedeSegnato(kA, kA, kB).Stato, kNessunaSoluzione);  // no line
}

TEST(PuntoSquadro, QuotaDelPiedeSullaBase) {
  PuntoXYZ q;
  ASSERT_EQ(PuntoSquadro(kA, kB, 20, 33, 0, q), kRiuscito);
  EXPECT_NEAR(q.Z, 12 + 20 * 6 / kL, kGeo);
}

TEST(PuntoInAvanti, LeggeDeiSeniDaOgniLatoEAlleCoordinateCatastali) {
  // Unequal angles, so that swapping them shows: the apex is c·sin(β)/sin(α + β) from A.
  const double rad = std::acos(-1.0) / 200;
  const double da = kL * std::sin(70 * rad) / std::sin(100 * rad);
  PuntoXYZ p;
  ASSERT_EQ(PuntoInAvanti(kA, kB, 30, 70, p), kRiuscito);
  const Vettore v = Gira(Lungo(kA, kB), 30);
  Vicino(p, kA.X + da * v.X, kA.Y + da * v.Y);
  // Negative angles meet on the left: the mirror image across the base.
  ASSERT_EQ(PuntoInAvanti(kA, kB, -30, -70, p), kRiuscito);
  const Vettore w = Gira(Lungo(kA, kB), -30);
  Vicino(p, kA.X + da * w.X, kA.Y + da * w.Y);
  // At East 1725000, North 5031000 the crossing's products of whole coordinates cancel to
  // within a fraction of a millimetre.
  const PuntoXYZ a{1725000 + kA.X, 5031000 + kA.Y, 12}, b{1725000 + kB.X, 5031000 + kB.Y, 18};
  ASSERT_EQ(PuntoInAvanti(a, b, 30, 70, p), kRiuscito);
  Vicino(p, 1725000 + kA.X + da * v.X, 5031000 + kA.Y + da * v.Y, 1e-3);
}

TEST(PuntoADistanza, DuePuntiInUnPostoVannoASud) {
  const PuntoXYZ r = PuntoADistanza(kA, kA, 3);
  Vicino(r, kA.X, kA.Y - 3);
  EXPECT_EQ(r.Z, 12);
}

TEST(IntersecaDirezione, LungoLaLineaOZenitaleNulla) {
  // A line running East 10 North of the station, oriented on a point due East read at 100.
  const PuntoXYZ a{-50, 10, 0}, b{50, 10, 0}, s{0, 0, 200}, o{30, 0, 0};
  PuntoXYZ p;
  ASSERT_EQ(IntersecaDirezione(a, b, s, o, 100, 0, 100, 1.4, p), kRiuscito);
  EXPECT_EQ(IntersecaDirezione(a, b, s, o, 100, 100, 100, 1.4, p), kNessunaSoluzione);
  EXPECT_EQ(IntersecaDirezione(a, b, s, o, 100, 0, 0, 1.4, p), kNessunaSoluzione);
}

}  // namespace
}  // namespace varena
