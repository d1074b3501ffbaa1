// One facet's cut and fill against the reference height, worked by hand, and the test of a
// point inside a facet.
#include <gtest/gtest.h>

#include "support/Supporto.h"
#include "terrain/Falde.h"

namespace varena {
namespace {

TEST(CalcolaFalda, SterroERiportoDelleRegoleStoriche) {
  // Flat at the reference: nothing either way.
  ValoriFalda v = CalcolaFalda(0, 0, 2, 4, 0, 2, 0, 4, 2, 2, 1, 1);
  EXPECT_EQ(v.Area, 8.0);
  EXPECT_EQ(v.Sterro, 0.0);
  EXPECT_EQ(v.Riporto, 0.0);
  // Heights 1, 2, 3 with the reference at 2: the middle on the plane, the net prism (0) only.
  v = CalcolaFalda(0, 0, 1, 4, 0, 2, 0, 4, 3, 2, 1, 1);
  EXPECT_EQ(v.Sterro, 0.0);
  EXPECT_EQ(v.Riporto, 0.0);
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

TEST(CalcolaFalda, PuntoInternoConILati) {
  prova::SessioneProva p;
  DimensionaFalde(p.s);
  p.s.FaldaX2[0] = 4, p.s.FaldaY3[0] = 4;
  p.s.ContaEntita[SlotFalde] = 1;
  EXPECT_TRUE(PuntoInternoFalda(p.s, 0, 1, 1));
  EXPECT_TRUE(PuntoInternoFalda(p.s, 0, 2, 2));  // on the long side
  EXPECT_TRUE(PuntoInternoFalda(p.s, 0, 2, 0));
  EXPECT_FALSE(PuntoInternoFalda(p.s, 0, 2.1, 2.1));
  EXPECT_FALSE(PuntoInternoFalda(p.s, 0, -0.5, 1));
}

}  // namespace
}  // namespace varena
