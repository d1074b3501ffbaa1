// The constructions against a second formula: plane vectors (dot and cross products, a
// unit vector along the base and its right-hand normal), the law of sines, the similarity of
// a scaled triangle. None of them goes through azimuths, which is how the code works.
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

void Vicino(const PuntoXYZ& p, double x, double y) {
  EXPECT_NEAR(p.X, x, kGeo);
  EXPECT_NEAR(p.Y, y, kGeo);
}

// A base at an odd angle in local coordinates: the crossings work on raw products of the
// coordinates, which at the size of cadastral ones leave only tenths of a millimetre (the
// last test).
const PuntoXYZ kA{100.5, 200.25, 12};
const PuntoXYZ kB{180.0, 260.0, 18};
const double kL = std::hypot(79.5, 59.75);  // the base A-B, climbing 6 m along it

TEST(StazioneLibera, MisureEsatteOScalateDaUnFattore) {
  // A station seen from the base's right, its sights taken from the coordinates with the
  // instrument's zero turned anywhere.
  const PuntoXYZ s{170.0, 190.0, 0};
  const double d1 = std::hypot(kA.X - s.X, kA.Y - s.Y), d2 = std::hypot(kB.X - s.X, kB.Y - s.Y);
  const double gon = 200 / std::acos(-1.0);
  const double zero = 317.25;
  double r1 = std::atan2(kA.X - s.X, kA.Y - s.Y) * gon - zero;
  double r2 = std::atan2(kB.X - s.X, kB.Y - s.Y) * gon - zero;
  RisultatoStazioneLibera r = StazioneLibera(kA, kB, d1, d2, r1, r2);
  ASSERT_EQ(r.Stato, kRiuscito);
  EXPECT_NEAR(r.BaseMisurata, kL, kGeo);
  EXPECT_NEAR(r.BaseReale, kL, 1e-12);
  Vicino(r.Stazione, s.X, s.Y);
  // Readings the other way round of the turn give the same angle.
  r = StazioneLibera(kA, kB, d1, d2, r1 + 400, r2);
  Vicino(r.Stazione, s.X, s.Y);

  // Every distance 0.3 % long: the measured triangle is the true one scaled by k about the
  // middle of the base, so the station moves away from the middle by the same factor.
  const double k = 1.003;
  r = StazioneLibera(kA, kB, d1 * k, d2 * k, r1, r2);
  ASSERT_EQ(r.Stato, kRiuscito);
  const double mx = (kA.X + kB.X) / 2, my = (kA.Y + kB.Y) / 2;
  Vicino(r.Stazione, mx + k * (s.X - mx), my + k * (s.Y - my));
  EXPECT_NEAR(r.BaseMisurata, k * r.BaseReale, kGeo);
}

TEST(PiedeSegnato, AscissaEDistaccoNeiQuattroQuadranti) {
  const Vettore u = Lungo(kA, kB), n = Destra(u);
  // Ahead and right, ahead and left, behind and right, behind and left, and beyond B.
  const struct {
    double Lungo, Destra;
  } casi[] = {{30, 12}, {30, -12}, {-7, 4}, {-7, -4}, {140, 0.5}};
  for (const auto& c : casi) {
    const PuntoXYZ p{kA.X + c.Lungo * u.X + c.Destra * n.X, kA.Y + c.Lungo * u.Y + c.Destra * n.Y, 0};
    const PiedeConSegni r = PiedeSegnato(kA, kB, p);
    ASSERT_EQ(r.Stato, kRiuscito);
    EXPECT_NEAR(r.Ascissa, c.Lungo, kGeo) << c.Lungo << " " << c.Destra;
    EXPECT_NEAR(r.Distacco, c.Destra, kGeo) << c.Lungo << " " << c.Destra;
    Vicino(r.F, kA.X + c.Lungo * u.X, kA.Y + c.Lungo * u.Y);
    EXPECT_NEAR(r.F.Z, 12 + c.Lungo * 6 / kL, 1e-9);
  }
  // Two points in one place make no line.
  EXPECT_EQ(PiedeSegnato(kA, kA, kB).Stato, kNessunaSoluzione);
}

TEST(AperturaESquadro, LatiLungoESquadroAllOrientamento) {
  const Vettore u = Lungo(kA, kB);
  for (double angolo : {0.0, 37.5, 100.0, 250.0}) {
    const Vettore v = Gira(u, angolo), w = Destra(v);
    const PuntoXYZ p = PuntoApertura(kA, kB, angolo, 25);
    Vicino(p, kA.X + 25 * v.X, kA.Y + 25 * v.Y);
    PuntoXYZ q;
    ASSERT_EQ(PuntoSquadro(kA, kB, 15, -8, angolo, q), kRiuscito);
    Vicino(q, kA.X + 15 * v.X - 8 * w.X, kA.Y + 15 * v.Y - 8 * w.Y);
  }
  // Both take the height of their foot on the base, 20 along it.
  PuntoXYZ q;
  PuntoSquadro(kA, kB, 20, 33, 0, q);
  EXPECT_NEAR(q.Z, 12 + 20 * 6 / kL, 1e-9);
  EXPECT_EQ(PuntoSquadro(kA, kB, -0.001, 3, 0, q), kNessunaSoluzione);
  EXPECT_NEAR(q.Z, 12 + 20 * 6 / kL, 1e-9);  // untouched
}

TEST(Irraggia, CorrezioneLetturaEQuote) {
  // The orientation point was read at 250; it lies on the base's direction.
  const double c = CorrezioneOrientamento(kA, kB, 250);
  const double azimutBase = std::atan2(79.5, 59.75) * 200 / std::acos(-1.0);
  EXPECT_NEAR(c, azimutBase - 250 + 400, 1e-10);
  EXPECT_NEAR(CorrezioneOrientamento(kA, kB, azimutBase - 10), 10, 1e-10);
  // Read at 250 + 100: a quarter turn right of the base.
  const Vettore n = Destra(Lungo(kA, kB));
  const PuntoXYZ p = Irraggia(kA, c, 350, 40, 100, 1.6, 1.3);
  Vicino(p, kA.X + 40 * n.X, kA.Y + 40 * n.Y);
  EXPECT_NEAR(p.Z, 12 + 1.6 - 1.3, 1e-12);
  // 50 gon over the horizon: the horizontal 40 climbs 40·cos(45°).
  EXPECT_NEAR(Irraggia(kA, c, 350, 40, 50, 1.6, 1.3).Z, 12.3 + 40 * std::sqrt(0.5), 1e-12);
}

TEST(PuntoInAvanti, LeggeDeiSeni) {
  // Angles of 30 and 70 gon: the apex is c·sin(β)/sin(α + β) from A, α right of the base.
  const double rad = std::acos(-1.0) / 200, c = kL;
  const double alfa = 30, beta = 70;
  const double da = c * std::sin(beta * rad) / std::sin((alfa + beta) * rad);
  const Vettore v = Gira(Lungo(kA, kB), alfa);
  PuntoXYZ p;
  ASSERT_EQ(PuntoInAvanti(kA, kB, alfa, beta, p), kRiuscito);
  Vicino(p, kA.X + da * v.X, kA.Y + da * v.Y);
  // Negative angles meet on the left: the mirror image across the base.
  ASSERT_EQ(PuntoInAvanti(kA, kB, -alfa, -beta, p), kRiuscito);
  const Vettore w = Gira(Lungo(kA, kB), -alfa);
  Vicino(p, kA.X + da * w.X, kA.Y + da * w.Y);
  // Angles of a half turn between them are parallel directions.
  EXPECT_EQ(PuntoInAvanti(kA, kB, 120, 80, p), kNessunaSoluzione);
}

TEST(IncrocioEDistanza, PuntoVecchioSulleParalleleEPendenzaLungoLaLinea) {
  PuntoXYZ p{7, 8, 9};
  // Parallel to A-B, 10 to its right: no crossing, the plan stays, the height is A-B's there.
  const Vettore u = Lungo(kA, kB), n = Destra(u);
  const PuntoXYZ c{kA.X + 10 * n.X, kA.Y + 10 * n.Y, 0}, d{kB.X + 10 * n.X, kB.Y + 10 * n.Y, 0};
  EXPECT_EQ(PuntoIncrocio(kA, kB, c, d, p), kNessunaSoluzione);
  EXPECT_EQ(p.X, 7);
  EXPECT_EQ(p.Y, 8);
  EXPECT_NE(p.Z, 9);
  // Square across the base 40 along it.
  const PuntoXYZ e{kA.X + 40 * u.X - 5 * n.X, kA.Y + 40 * u.Y - 5 * n.Y, 0};
  const PuntoXYZ f{kA.X + 40 * u.X + 5 * n.X, kA.Y + 40 * u.Y + 5 * n.Y, 0};
  EXPECT_EQ(PuntoIncrocio(kA, kB, e, f, p), kRiuscito);
  Vicino(p, kA.X + 40 * u.X, kA.Y + 40 * u.Y);
  EXPECT_NEAR(p.Z, 12 + 40 * 6 / kL, 1e-9);

  const PuntoXYZ q = PuntoADistanza(kA, kB, kL / 4);
  Vicino(q, kA.X + 79.5 / 4, kA.Y + 59.75 / 4);
  EXPECT_NEAR(q.Z, 13.5, 1e-12);
  // Two points in one place: due South, at A's height.
  const PuntoXYZ r = PuntoADistanza(kA, kA, 3);
  Vicino(r, kA.X, kA.Y - 3);
  EXPECT_EQ(r.Z, 12);
}

TEST(IntersecaDirezione, ZenitaleEOrientamento) {
  // A line running East 10 North of a station at the origin, oriented on a point due East
  // read at 100: a reading of 0 looks North.
  const PuntoXYZ a{-50, 10, 0}, b{50, 10, 0}, s{0, 0, 200}, o{30, 0, 0};
  PuntoXYZ p;
  ASSERT_EQ(IntersecaDirezione(a, b, s, o, 100, 0, 100, 1.4, p), kRiuscito);
  Vicino(p, 0, 10);
  EXPECT_NEAR(p.Z, 201.4, 1e-12);
  // 5 reads 5 gon East of North; 60 gon over the horizon climbs D·cot(54°).
  ASSERT_EQ(IntersecaDirezione(a, b, s, o, 100, 5, 60, 1.4, p), kRiuscito);
  const double x = 10 * std::tan(5 * std::acos(-1.0) / 200);
  Vicino(p, x, 10);
  EXPECT_NEAR(p.Z, std::hypot(x, 10) / std::tan(0.3 * std::acos(-1.0)) + 201.4, 1e-9);
  // Along the line: no crossing. A zenith of 0 has no plan distance.
  EXPECT_EQ(IntersecaDirezione(a, b, s, o, 100, 100, 100, 1.4, p), kNessunaSoluzione);
  EXPECT_EQ(IntersecaDirezione(a, b, s, o, 100, 0, 0, 1.4, p), kNessunaSoluzione);
}

TEST(CoordinateCatastali, LIncrocioSuiProdottiGrezziTieneIlMillimetro) {
  // The same forward intersection moved to East 1725000, North 5031000: the crossing's
  // products of whole coordinates cancel to within a fraction of a millimetre.
  const PuntoXYZ a{1725000 + kA.X, 5031000 + kA.Y, 12}, b{1725000 + kB.X, 5031000 + kB.Y, 18};
  PuntoXYZ vicino, lontano;
  ASSERT_EQ(PuntoInAvanti(kA, kB, 30, 70, vicino), kRiuscito);
  ASSERT_EQ(PuntoInAvanti(a, b, 30, 70, lontano), kRiuscito);
  EXPECT_NEAR(lontano.X - 1725000, vicino.X, 1e-3);
  EXPECT_NEAR(lontano.Y - 5031000, vicino.Y, 1e-3);
}

}  // namespace
}  // namespace varena
