// The framing on fiducial points: a survey made from the official points by a known turn and
// shift is framed back; with noise, the residuals of tests/survey/dati/inquadramento.py
// (a fit by singular value decomposition); two points as the two-point framing.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "survey/Inquadramento.h"

namespace varena {
namespace {

constexpr std::array<PuntoXYZ, 5> kUfficiali = {{{1523.417, -2310.255, 0},
                                                 {2840.902, -1977.61, 0},
                                                 {2105.33, -640.125, 0},
                                                 {980.06, -1104.8, 0},
                                                 {2410.75, -2950.4, 0}}};

// The survey as the script makes it: official points less the shift, turned back, rounded to
// the tenth of a millimetre, plus noise.
constexpr std::array<PuntoXYZ, 5> kRilievo = {{{391.2752, -400.9679, 0},
                                               {1149.1657, 726.8697, 0},
                                               {-291.7945, 1230.4055, 0},
                                               {-818.4663, 132.7856, 0},
                                               {1479.1792, -284.2886, 0}}};

std::vector<CoppiaPF> Coppie(const std::array<PuntoXYZ, 5>& rilievo) {
  std::vector<CoppiaPF> c;
  for (size_t k = 0; k < 5; ++k) c.push_back({"PF" + std::to_string(k + 1), rilievo[k], kUfficiali[k]});
  return c;
}

TEST(Inquadramento, SenzaRumoreRitrovaRotazioneETraslazione) {
  // Official = turn clockwise by 0.7318 of (survey) + shift, and for the similarity a scale.
  constexpr double giro = 0.7318, ex = 1500.25, nx = -1750.5;
  for (const double scala : {1.0, 1.0002}) {
    SCOPED_TRACE(scala);
    std::array<PuntoXYZ, 5> rilievo;
    for (size_t k = 0; k < 5; ++k) {
      const double x = (kUfficiali[k].X - ex) / scala, y = (kUfficiali[k].Y - nx) / scala;
      rilievo[k] = {x * std::cos(giro) - y * std::sin(giro), x * std::sin(giro) + y * std::cos(giro), 12.5};
    }
    const EsitoInquadramento e = Inquadra(Coppie(rilievo), scala != 1.0);
    ASSERT_TRUE(e.Riuscito);
    EXPECT_NEAR(e.Rotazione, giro, 1e-9);
    EXPECT_NEAR(e.Scala, scala, 1e-9);
    EXPECT_EQ(e.Usati, 5);
    // The survey's origin lands on the shift.
    const PuntoXYZ o = e.Applica({0, 0, 3});
    EXPECT_NEAR(o.X, ex, 1e-9);
    EXPECT_NEAR(o.Y, nx, 1e-9);
    EXPECT_EQ(o.Z, 3);
    EXPECT_LT(e.Sqm, 1e-9);
  }
}

struct Attesi {
  double Rotazione, Scala, Sqm;
  int Peggiore;
  std::array<std::array<double, 3>, 5> Residui;  // dN, dE, distance
};

void Confronta(const EsitoInquadramento& e, const Attesi& a) {
  ASSERT_TRUE(e.Riuscito);
  EXPECT_NEAR(e.Rotazione, a.Rotazione, 1e-9);
  EXPECT_NEAR(e.Scala, a.Scala, 1e-9);
  EXPECT_NEAR(e.Sqm, a.Sqm, 1e-9);
  EXPECT_EQ(e.Peggiore, a.Peggiore);
  ASSERT_EQ(e.Residui.size(), 5u);
  for (size_t k = 0; k < 5; ++k) {
    SCOPED_TRACE(k);
    EXPECT_NEAR(e.Residui[k].DNord, a.Residui[k][0], 1e-9);
    EXPECT_NEAR(e.Residui[k].DEst, a.Residui[k][1], 1e-9);
    EXPECT_NEAR(e.Residui[k].Distanza, a.Residui[k][2], 1e-9);
  }
}

TEST(Inquadramento, ConRumoreIResiduiDelloScript) {
  std::vector<CoppiaPF> c = Coppie(kRilievo);
  Confronta(Inquadra(c, false), {0.731800667846, 1.0, 0.002986965, 1,
                                 {{{0.002574687, 0.001240163, 0.002857800},
                                   {-0.002166149, 0.003863854, 0.004429624},
                                   {0.001563382, -0.001381180, 0.002086102},
                                   {-0.002098235, -0.001112722, 0.002375024},
                                   {0.000126314, -0.002610115, 0.002613170}}}});
  Confronta(Inquadra(c, true), {0.731800667846, 1.000000331706, 0.002966286, 1,
                                {{{0.002745058, 0.001388991, 0.003076465},
                                  {-0.002106120, 0.003575666, 0.004149835},
                                  {0.001179761, -0.001425377, 0.001850279},
                                  {-0.002327722, -0.000783659, 0.002456097},
                                  {0.000509024, -0.002755621, 0.002802241}}}});
  // The fourth left out: its residual is shown, the largest of all, but the worst point
  // marked is among those used.
  c[3].Esclusa = true;
  const EsitoInquadramento e = Inquadra(c, false);
  EXPECT_EQ(e.Usati, 4);
  Confronta(e, {0.731801614289, 1.0, 0.002923422, 1,
                {{{0.001390757, 0.001284397, 0.001893114},
                  {-0.002103157, 0.003593254, 0.004163502},
                  {0.000930203, -0.002917630, 0.003062326},
                  {-0.003796419, -0.002209386, 0.004392515},
                  {-0.000217802, -0.001960022, 0.001972086}}}});
}

TEST(Inquadramento, DuePuntiComeLInquadramentoSu2PF) {
  // Official PF1 at 0/0 and PF2 100 m East; the survey has them 100.05 m apart due North.
  // The first falls on its place, the turn is 100 gon, the 5 cm stay at the second.
  const std::vector<CoppiaPF> c = {{"PF1", {10, 10, 0}, {0, 0, 0}}, {"PF2", {10, 110.05, 0}, {100, 0, 0}}};
  const EsitoInquadramento e = Inquadra(c, false);
  ASSERT_TRUE(e.Riuscito);
  EXPECT_DOUBLE_EQ(e.Rotazione, std::acos(-1.0) / 2);
  const PuntoXYZ p1 = e.Applica(c[0].Rilievo);
  EXPECT_EQ(p1.X, 0);
  EXPECT_EQ(p1.Y, 0);
  EXPECT_NEAR(e.Residui[1].DEst, -0.05, 1e-9);
  EXPECT_NEAR(e.Residui[1].DNord, 0, 1e-9);
  EXPECT_EQ(e.Peggiore, 1);
  EXPECT_NEAR(e.Sqm, 0.05 / std::sqrt(2.0), 1e-9);
  // With the scale the two fall on their places.
  const EsitoInquadramento s = Inquadra(c, true);
  EXPECT_NEAR(s.Scala, 100 / 100.05, 1e-12);
  EXPECT_LT(s.Sqm, 1e-9);
}

TEST(Inquadramento, SenzaDuePFDistintiNonSiInquadra) {
  std::vector<CoppiaPF> c = {{"PF1", {10, 10, 0}, {0, 0, 0}}, {"PF2", {10, 10, 0}, {100, 0, 0}}};
  EXPECT_EQ(Inquadra(c, false).Motivo, "PF coincidenti nel rilievo");
  c[1].Esclusa = true;
  const EsitoInquadramento e = Inquadra(c, true);
  EXPECT_FALSE(e.Riuscito);
  EXPECT_EQ(e.Motivo, "Servono almeno 2 PF");
}

}  // namespace
}  // namespace varena
