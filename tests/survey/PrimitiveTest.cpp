// Plane primitives, and the constructions at the edges their commands' scripts do not reach.
// Expected values of the primitives are worked by hand: where the arithmetic of a case is
// exact in binary (a 3-4-5 triangle, an angle of a power of two times pi) the value is
// compared to the last bit; where it is not, the hand-worked geometric answer is compared
// with a tolerance a million times below any survey tolerance.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "core/Tabelle.h"
#include "survey/CostruzionePunti.h"
#include "survey/Primitive.h"

namespace varena {
namespace {

constexpr double kGeo = 1e-12;  // metres, for answers whose last bits depend on sin and cos
constexpr double kCostruzione = 1e-9;  // metres, for the constructions checked by a second formula

using Coppia = std::pair<double, double>;
using Tre = std::array<double, 3>;

Coppia AD(double x1, double y1, double x2, double y2) {
  const auto r = AzimutDistanza(x1, y1, x2, y2);
  return {r.Azimut, r.Distanza};
}
Tre XYZ(const PuntoXYZ& p) { return {p.X, p.Y, p.Z}; }
void Vicino(const PuntoXYZ& p, double x, double y, double tolleranza = kGeo) {
  EXPECT_NEAR(p.X, x, tolleranza);
  EXPECT_NEAR(p.Y, y, tolleranza);
}

// The angle constants are known to the compiler: a constant of another file built on them
// during static initialisation finds them set, whichever compiler orders that start. Their
// exact value is pinned by the azimuths of East and West below.
static_assert(PiGreco > 3.14159265 && PiGreco < 3.14159266 && RadToGon == 200 / PiGreco && GonToRad == PiGreco / 200);

TEST(AzimutDistanza, DirezioniNotevoliEFormaAMezzoAngolo) {
  // A point to itself: d + dY = 0, the azimuth is pi, shown as 200 gon. East and West come
  // from atan alone, so they pin the constant pi too.
  EXPECT_EQ(AD(5, 5, 5, 5), Coppia(PiGreco, 0));
  EXPECT_EQ(TestoGon(RadToGon * AD(5, 5, 5, 5).first), "200.0000");
  EXPECT_EQ(AD(0, 0, 0, 7), Coppia(0, 7));            // North: 2 atan(0)
  EXPECT_EQ(AD(0, 0, 7, 0).first, PiGreco / 2);       // East: 2 atan(1), half of 4 atan(1)
  EXPECT_EQ(AD(0, 0, 0, -7), Coppia(PiGreco, 7));     // South: d + dY = 0 exactly
  // West: 2 atan(-1) = -pi/2, then a whole turn added; 3 pi / 2 rounds the same way.
  EXPECT_EQ(AD(0, 0, -7, 0).first, 3 * PiGreco / 2);
  EXPECT_EQ(TestoGon(RadToGon * AD(0, 0, -7, 0).first), "300.0000");

  // 3-4-5: dX / (d + dY) = 3 / 9, the same double as 1/3.
  EXPECT_EQ(AD(0, 0, 3, 4), Coppia(2 * std::atan(1.0 / 3.0), 5));
}

// The test is on the raw determinant: 1e-7 itself passes, the double below it fails and
// leaves the previous values, which callers insert.
TEST(IncrocioRette, SogliaSulDeterminanteGrezzo) {
  double x = 123, y = 456;
  EXPECT_EQ(IncrocioRette({0, 0}, {1, 0}, {0, 0}, {0, std::nextafter(1e-7, 0.0)}, x, y), kNessunaSoluzione);
  EXPECT_EQ(Coppia(x, y), Coppia(123, 456));
  EXPECT_EQ(IncrocioRette({0, 0}, {1, 0}, {0, 0}, {0, 1e-7}, x, y), kRiuscito);
}

TEST(QuotaInterpolata, TrattoInPianoEstremiIncrociatiEFuoriTratto) {
  // A(0, 0, 10), B(8, 6, 20): L = 10, so every distance below is a whole number.
  const PuntoXYZ a{0, 0, 10}, b{8, 6, 20};
  const std::tuple<const char*, double, double, double> casi[] = {
      {"in A takes the height of B", 0, 0, 20},
      {"within 0.1 mm of A, still B", 0.00005, 0, 20},
      {"in B takes the height of A", 8, 6, 10},
      {"middle", 4, 3, 15},
      {"beyond B, by the distance from A", 12, 9, 25},
      {"behind A, by the distance from B", -4, -3, 5},
      {"aside and beyond B: distance from A, not the projection", 20, 0, 30},
      {"aside, nearer than L to both ends: A stands", 1, 7, 10},
  };
  for (const auto& [nome, x, y, atteso] : casi) EXPECT_EQ(QuotaInterpolata(a, b, x, y), atteso) << nome;

  // Level within 1e-6: the height of A at once, wherever the point.
  EXPECT_EQ(QuotaInterpolata({0, 0, 10}, {8, 6, 10.0000009}, 4, 3), 10.0);
  EXPECT_EQ(QuotaInterpolata({0, 0, 10}, {8, 6, 10.0000009}, 0, 0), 10.0);
  // Just above the tolerance the middle is interpolated.
  EXPECT_NEAR(QuotaInterpolata({0, 0, 10}, {8, 6, 10.000002}, 4, 3), 10.000001, 1e-12);
}

TEST(PuntoBilatera, DestraDellaBaseLimiteEFallimento) {
  const PuntoXYZ a{0, 0, 0}, b{10, 0, 10};
  PuntoXYZ p;
  // 6-8-10, right angle at the point: s = 12, angle at A = 2 atan(sqrt(12/48)) = 2 atan(0.5).
  // Right of the direction East is South: (3.6, -4.8), and its foot (3.6, 0) has Z 3.6.
  ASSERT_EQ(PuntoBilatera(a, b, 6, 8, p), kRiuscito);
  Vicino(p, 3.6, -4.8);
  EXPECT_NEAR(p.Z, 3.6, kGeo);

  // rA + rB = c: angle 0, the point on the base at rA from A.
  ASSERT_EQ(PuntoBilatera(a, b, 4, 6, p), kRiuscito);
  EXPECT_EQ(p.X, 4.0);
  EXPECT_NEAR(p.Y, 0, kGeo);
  EXPECT_NEAR(p.Z, 4.0, kGeo);
  // One millimetre short: no tolerance, status 4, nothing written.
  p = {-1, -1, -1};
  EXPECT_EQ(PuntoBilatera(a, b, 4, 5.999, p), kNessunaSoluzione);
  EXPECT_EQ(XYZ(p), (Tre{-1, -1, -1}));
  // One side longer than the other two, either way.
  EXPECT_EQ(std::make_tuple(PuntoBilatera(a, b, 17, 6, p), PuntoBilatera(a, b, 6, 17, p)),
            std::make_tuple(kNessunaSoluzione, kNessunaSoluzione));
  // Exactly the sum of the other two: the point lies on the base line beyond B.
  ASSERT_EQ(PuntoBilatera(a, b, 16, 6, p), kRiuscito);
  Vicino(p, 16, 0);
}

TEST(RettaCerchio, SecanteTangenteEsternaEPerIlCentro) {
  // y = 3 against the circle of radius 5 about the origin: foot (0, 3), half chord 4.
  const PuntoXYZ a{-10, 3, 0}, b{10, 3, 20};
  PuntoXYZ f, p1, p2;
  ASSERT_EQ(RettaCerchio(a, b, 0, 0, 5, f, p1, p2), kRiuscito);
  EXPECT_NEAR(f.X, 0.0, kGeo);
  EXPECT_EQ(f.Y, 3.0);
  // From the foot the centre lies due South; the first crossing is 100 gon to its left.
  Vicino(p1, 4, 3);
  Vicino(p2, -4, 3);
  // Heights along A-B: 14 m from A of 20, and 6 m.
  EXPECT_NEAR(p1.Z, 14.0, 1e-9);
  EXPECT_NEAR(p2.Z, 6.0, 1e-9);

  // Tangent: r = d, and r within 1e-6 of d, give the foot twice.
  for (double r : {3.0, 3 + 9e-7}) {
    ASSERT_EQ(RettaCerchio(a, b, 0, 0, r, f, p1, p2), kRiuscito);
    EXPECT_EQ(Coppia(p1.X, p1.Y), Coppia(f.X, f.Y)) << r;
    EXPECT_EQ(Coppia(p2.X, p2.Y), Coppia(f.X, f.Y)) << r;
  }

  // d > r comes before the tangency: a hair outside fails although within 1e-6. The foot
  // is written all the same.
  f = p1 = {-1, -1, -1};
  EXPECT_EQ(RettaCerchio(a, b, 0, 0, 3 - 1e-12, f, p1, p2), kNessunaSoluzione);
  EXPECT_EQ(std::make_pair(f.Y, p1.X), Coppia(3, -1));

  // Through the centre: towards B only if B is strictly farther.
  ASSERT_EQ(RettaCerchio({-10, 0, 0}, {20, 0, 0}, 0, 0, 5, f, p1, p2), kRiuscito);
  Vicino(p1, 5, 0);
  Vicino(p2, -5, 0);
  ASSERT_EQ(RettaCerchio({-10, 0, 0}, {10, 0, 0}, 0, 0, 5, f, p1, p2), kRiuscito);
  Vicino(p1, -5, 0);
  Vicino(p2, 5, 0);
}

TEST(DistanzaDaSegmento, FuoriDagliEstremiESegmentoCorto) {
  const PuntoXYZ a{0, 0}, b{10, 0};
  EXPECT_EQ(DistanzaDaSegmento(a, b, {13, 4}), 5.0);   // foot beyond B: the end counts
  EXPECT_EQ(DistanzaDaSegmento(a, b, {-3, -4}), 5.0);  // behind A
  // Shorter than 1 cm: only the ends count, even right above the middle.
  EXPECT_EQ(DistanzaDaSegmento({0, 0}, {0.005, 0}, {0.0025, 1}), std::sqrt(0.0025 * 0.0025 + 1.0));
}

TEST(LatoCorda, DentroSulCerchioEFuori) {
  // The circle on the chord (0,0)-(10,0): centre (5,0), radius 5. On it counts as inside.
  const PuntoXYZ a{0, 0}, b{10, 0};
  EXPECT_EQ((std::array<int, 4>{LatoCorda(a, b, {5, 4}), LatoCorda(a, b, {5, 5}), LatoCorda(a, b, {5, 6}),
                                LatoCorda(a, b, {-1, 0})}),
            (std::array<int, 4>{1, 1, 2, 2}));
}

TEST(AreaPerimetro, AreaPerimetriEPuntoMedio) {
  // A 3 x 3 square whose East side stands 4 m higher: the slope sides are 3-4-5.
  auto r = AreaPerimetro(std::vector<PuntoXYZ>{{0, 0, 0}, {3, 0, 4}, {3, 3, 4}, {0, 3, 0}});
  ASSERT_TRUE(r);
  EXPECT_EQ((Tre{r->Area, r->Perimetro, r->PerimetroInclinato}), (Tre{9, 12, 16}));
  EXPECT_EQ(XYZ(r->Medio), (Tre{1.5, 1.5, 2}));
  // Clockwise still gives a positive area; a vertex mid-side moves the mean, not the centroid.
  r = AreaPerimetro(std::vector<PuntoXYZ>{{0, 0}, {0, 4}, {3, 0}});
  ASSERT_TRUE(r);
  EXPECT_EQ(Coppia(r->Area, r->Perimetro), Coppia(6, 12));
  r = AreaPerimetro(std::vector<PuntoXYZ>{{0, 0}, {6, 0}, {6, 6}, {0, 6}, {0, 3}});
  ASSERT_TRUE(r);
  EXPECT_EQ((Tre{r->Area, r->Medio.X, r->Medio.Y}), (Tre{36, 2.4, 3}));
  EXPECT_FALSE(AreaPerimetro(std::vector<PuntoXYZ>{{0, 0}, {1, 1}}));
}

TEST(CerchioInscritto, AzimutAcavalloDelNordEPrimoLatoNullo) {
  double x = 0, y = 0, r = 0;
  // The sides from the first point run at 350 and 50 gon: their plain mean, 200 gon,
  // points away from the triangle but lies on the same bisecting line. Right isosceles
  // triangle of legs 3 sqrt 2: r = 3 sqrt 2 - 3, centre at r sqrt 2 = 6 - 3 sqrt 2 up.
  ASSERT_EQ(CerchioInscritto({0, 0}, {-3, 3}, {3, 3}, x, y, r), kRiuscito);
  Vicino({x, y}, 0, 6 - 3 * std::sqrt(2.0));
  EXPECT_NEAR(r, 3 * std::sqrt(2.0) - 3, kGeo);
  // The first two in one place: no first side, no bisector, nothing written.
  x = 42;
  EXPECT_EQ(CerchioInscritto({0, 0}, {0, 0}, {3, 3}, x, y, r), kNessunaSoluzione);
  EXPECT_EQ(x, 42.0);
}

TEST(RuotaPunto, UnGiroIntornoAUnPernoCatastale) {
  // A whole turn about a cadastral pivot brings the point back within a micrometre.
  Vicino(RuotaPunto({1725003, 5031004, 0}, {1725000, 5031000, 0}, 400), 1725003, 5031004, 1e-6);
}

TEST(AngoloInArco, DentroFuoriEdEstremi) {
  // From 50 to 150 gon through East: place, inside, which end.
  const std::tuple<const char*, double, double, bool, int> casi[] = {
      {"East, inside", 1, 0, true, 0},       {"at the start, 50 gon", 1, 1, true, 1},
      {"at the end, 150 gon", 1, -1, true, 2}, {"West, outside", -1, 0, false, 0},
  };
  for (const auto& [nome, x, y, dentro, estremo] : casi)
    EXPECT_EQ(std::make_tuple(AngoloInArco(0, 0, 50, 100, x, y).Dentro, AngoloInArco(0, 0, 50, 100, x, y).Estremo),
              std::make_tuple(dentro, estremo))
        << nome;
  // An arc across North, from 350 gon, 100 gon wide: 300 gon is out, 50 gon its end.
  EXPECT_FALSE(AngoloInArco(10, 20, 350, 100, 5, 20).Dentro);
  EXPECT_EQ(AngoloInArco(10, 20, 350, 100, 11, 21).Estremo, 2);
}

void AggiungiPunto(TabelleEntita& t, const std::string& nome, int16_t ident) {
  DimensionaPunti(t);
  const size_t i = static_cast<size_t>(t.ContaEntita[SlotPunti]);
  t.PuntoNome[i] = nome;
  t.PuntoIdent[i] = ident;
  ++t.ContaEntita[SlotPunti];
}

TEST(ProssimoNomePunto, CodaNumericaPassoENomiPresi) {
  TabelleEntita t;
  AzzeraTabelle(t);
  for (const char* n : {"1", "2", "3", "5", "7", "A10", "P1"}) AggiungiPunto(t, n, 0);
  AggiungiPunto(t, "4", -1);  // deleted: free again
  AggiungiPunto(t, "9", 3);   // any Ident but 0 is deleted: free again
  // Name, step, the next free name.
  const std::tuple<const char*, const char*, const char*> casi[] = {
      {"1", "1", "4"},    {"8", "1", "9"},     {"A9", "1", "A11"},  {"X", "1", "X1"},   {"007", "1", "8"},
      {"1", "2", "9"},    {"1", "0,5", "4"},   {"P2", "-1", "P"},   {"B7.5", "1", "B7.6"},
  };
  for (const auto& [nome, passo, atteso] : casi)
    EXPECT_EQ(ProssimoNomePunto(t, nome, true, passo), atteso) << nome << " step " << passo;

  EXPECT_EQ(ProssimoNomePunto(t, "1", false, "1"), "");
  EXPECT_EQ(ProssimoNomePunto(t, "1", true, "  "), "");
  // A step of 0 cannot move on: the name comes back rather than the loop running forever.
  EXPECT_EQ(ProssimoNomePunto(t, "1", true, "0"), "1");
  // A survey numbered in a row is stepped over in one pass.
  PreparaRighe(t, SlotPunti, 100000);
  for (int i = 4; i <= 100000; ++i) AggiungiPunto(t, std::to_string(i), 0);
  EXPECT_EQ(ProssimoNomePunto(t, "1", true, "1"), "100001");
}

TEST(NomiEConvenzioni, NomiPulitiEMaschereDeiGonEDeiMetri) {
  EXPECT_EQ(NomePulito("  a.b,c d\\e/f  ") + " " + NomePulito("   "), "a_b_c_d_e_f 0");
  // Every decimal place shows, its zeros too.
  EXPECT_EQ(TestoGon(123.45678) + " " + TestoGon(99.99996) + " " + TestoGon(-0.5), "123.4568 100.0000 -0.5000");
  EXPECT_EQ(TestoMetri(12.3456) + " " + TestoMetri(1725000.5), "12.346 1725000.500");
  EXPECT_EQ(FormatoRilievo(7, "###0.##0"), "7.000");
  EXPECT_EQ(TestoQuattroDecimali(0.5) + " " + TestoQuattroDecimali(12.34567), ".5 12.3457");
}

// The same figure drawn near the origin and moved onto the national grid must give the same
// crossing and the same foot, to far below a tenth of a millimetre: the shift is a whole
// number of metres, exact in binary, so any difference is what the primitive lost.
TEST(OrigineLocale, LaStessaCostruzioneVicinoAllOrigineESullaRetecatastale) {
  const double ex = 1700000, ny = 5000000;
  const PuntoXYZ a{12.345, 67.891, 0}, b{345.678, 123.456, 0}, c{101.101, -20.202, 0}, d{222.333, 310.987, 0};
  auto sposta = [&](const PuntoXYZ& p) { return PuntoXYZ{p.X + ex, p.Y + ny, p.Z}; };
  double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
  ASSERT_EQ(IncrocioRette(a, b, c, d, x0, y0), kRiuscito);
  ASSERT_EQ(IncrocioRette(sposta(a), sposta(b), sposta(c), sposta(d), x1, y1), kRiuscito);
  Vicino({x1 - ex, y1 - ny}, x0, y0, 1e-6);
  Piede f0, f1;
  ASSERT_EQ(PiedePerpendicolare(a, b, d, f0), kRiuscito);
  ASSERT_EQ(PiedePerpendicolare(sposta(a), sposta(b), sposta(d), f1), kRiuscito);
  Vicino({f1.F.X - ex, f1.F.Y - ny}, f0.F.X, f0.F.Y, 1e-6);
  EXPECT_NEAR(f1.DistanzaPF, f0.DistanzaPF, 1e-6);
  // A parcel of about 1.9 ha: its area to the hundredth of a square millimetre.
  const std::vector<PuntoXYZ> lotto{a, b, d, c};
  std::vector<PuntoXYZ> lontano;
  for (const PuntoXYZ& p : lotto) lontano.push_back(sposta(p));
  EXPECT_NEAR(AreaPerimetro(lontano)->Area, AreaPerimetro(lotto)->Area, 1e-6);
}

// The constructions, against a second formula: plane vectors (a unit vector along the base and
// its right-hand normal) and the law of sines. None of them goes through azimuths, which is
// how the code works.
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

// A base at an odd angle, climbing 6 m along it.
const PuntoXYZ kA{100.5, 200.25, 12};
const PuntoXYZ kB{180.0, 260.0, 18};
const double kL = std::hypot(79.5, 59.75);

TEST(PiedeSegnato, DietroADestraAscissaNegativaEPiedeInSalita) {
  const Vettore u = Lungo(kA, kB), n = Destra(u);
  const PuntoXYZ p{kA.X - 7 * u.X + 4 * n.X, kA.Y - 7 * u.Y + 4 * n.Y, 0};
  const PiedeConSegni r = PiedeSegnato(kA, kB, p);
  ASSERT_EQ(r.Stato, kRiuscito);
  Vicino({r.Ascissa, r.Distacco}, -7, 4, kCostruzione);
  Vicino(r.F, kA.X - 7 * u.X, kA.Y - 7 * u.Y, kCostruzione);
  EXPECT_NEAR(r.F.Z, 12 - 7 * 6 / kL, kCostruzione);
  EXPECT_EQ(PiedeSegnato(kA, kA, kB).Stato, kNessunaSoluzione);  // no line
}

TEST(PuntoSquadro, QuotaDelPiedeSullaBase) {
  PuntoXYZ q;
  ASSERT_EQ(PuntoSquadro(kA, kB, 20, 33, 0, q), kRiuscito);
  EXPECT_NEAR(q.Z, 12 + 20 * 6 / kL, kCostruzione);
}

TEST(PuntoInAvanti, LeggeDeiSeniDaOgniLatoEAlleCoordinateCatastali) {
  // Unequal angles, so that swapping them shows: the apex is c·sin(β)/sin(α + β) from A.
  const double rad = std::acos(-1.0) / 200;
  const double da = kL * std::sin(70 * rad) / std::sin(100 * rad);
  PuntoXYZ p;
  ASSERT_EQ(PuntoInAvanti(kA, kB, 30, 70, p), kRiuscito);
  const Vettore v = Gira(Lungo(kA, kB), 30);
  Vicino(p, kA.X + da * v.X, kA.Y + da * v.Y, kCostruzione);
  // Negative angles meet on the left: the mirror image across the base.
  ASSERT_EQ(PuntoInAvanti(kA, kB, -30, -70, p), kRiuscito);
  const Vettore w = Gira(Lungo(kA, kB), -30);
  Vicino(p, kA.X + da * w.X, kA.Y + da * w.Y, kCostruzione);
  // At East 1725000, North 5031000 the crossing's products of whole coordinates cancel to
  // within a fraction of a millimetre.
  const PuntoXYZ a{1725000 + kA.X, 5031000 + kA.Y, 12}, b{1725000 + kB.X, 5031000 + kB.Y, 18};
  ASSERT_EQ(PuntoInAvanti(a, b, 30, 70, p), kRiuscito);
  Vicino(p, 1725000 + kA.X + da * v.X, 5031000 + kA.Y + da * v.Y, 1e-3);
}

TEST(PuntoADistanza, DuePuntiInUnPostoVannoASud) {
  const PuntoXYZ r = PuntoADistanza(kA, kA, 3);
  Vicino(r, kA.X, kA.Y - 3, kCostruzione);
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
