// The view transform and the view set-up of each redraw.
#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

#include "core/Sessione.h"
#include "view/Ridisegna.h"
#include "view/SuperficieRegistrata.h"
#include "view/Vista.h"

namespace varena {
namespace {

using Bordi = std::array<double, 4>;

Bordi BordiVista(const StatoVista& v) { return {v.BordoSinistro, v.BordoBasso, v.BordoDestro, v.BordoAlto}; }

TEST(Trasformazione, CoordinateCatastaliTengonoIlMillimetro) {
  StatoVista v;
  v.CentroEst = 1725000.5;
  v.CentroNord = 5031000.25;
  // 3 mm East and 1 mm South of the centre: as floats the two would be one and the same
  // number, so the centre must go first.
  const PuntoVista p = InVista(v, 1725000.503, 5031000.249);
  EXPECT_NEAR(p.X, 0.003, 1e-6);
  EXPECT_NEAR(p.Y, -0.001, 1e-6);
  // Back from the surface: the centre is added in 64 bits.
  const PuntoMondo m = InMondo(v, p.X, p.Y);
  EXPECT_NEAR(m.Est, 1725000.503, 1e-6);
  EXPECT_NEAR(m.Nord, 5031000.249, 1e-6);
  EXPECT_EQ(InMondo(v, 0.5, -0.25).Est, 1725001.0);
  EXPECT_EQ(InMondo(v, 0.5, -0.25).Nord, 5031000.0);
}

TEST(Rigenera1, AltezzaMinimaProporzioniBordiEScalaUtente) {
  Sessione s;
  SuperficieRegistrata sup(300, 200);
  s.Schermo = &sup;
  s.Vista.AltezzaVista = 0.5;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.PassoTesto, 0.00125);  // from the height asked for, before the correction
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);
  EXPECT_EQ(s.Vista.RapportoVista, 1.5);
  EXPECT_EQ(BordiVista(s.Vista), (Bordi{-0.75, -0.5, 0.75, 0.5}));
  // A negative height: North up.
  EXPECT_EQ(sup.Chiamate, (std::vector<std::string>{"ScalaUtente -0.75 0.5 1.5 -1"}));

  // A height that is no number becomes one metre.
  s.Vista.AltezzaVista = std::numeric_limits<double>::quiet_NaN();
  Rigenera1(s);
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);

  // Minimised: the edges are computed, the surface is not touched.
  sup.minimizzata = true;
  sup.Chiamate.clear();
  s.Vista.AltezzaVista = 80;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.BordoAlto, 40.0);
  EXPECT_TRUE(sup.Chiamate.empty());

  // A square surface makes the left edge equal the bottom one: it is scaled all the same,
  // since a fresh surface has no scale of its own to fall back on.
  SuperficieRegistrata quadrata(200, 200);
  s.Schermo = &quadrata;
  Rigenera1(s);
  EXPECT_EQ(BordiVista(s.Vista), (Bordi{-40, -40, 40, 40}));
  EXPECT_EQ(quadrata.Chiamate, (std::vector<std::string>{"ScalaUtente -40 40 80 -80"}));
}

TEST(Rigenera1, SenzaMisureDellaSuperficieIlRapportoE16) {
  Sessione s;  // headless: no surface at all
  s.Vista.AltezzaVista = 100;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.6);
  EXPECT_EQ(s.Vista.BordoDestro, 80.0);

  SuperficieRegistrata zero(0, 200);
  s.Schermo = &zero;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.6);
  EXPECT_EQ(zero.Chiamate.size(), 1u);
}

TEST(DopoRidisegno, AltezzaDellIngombroETempo) {
  StatoVista v;
  // Extent height, view height, the extent height after.
  const std::array<double, 3> casi[] = {{0.5, 100, 100}, {0, 0.5, 0.5}, {0.5, 0.2, 0.2}, {50, 100, 100}, {500, 100, 500}};
  for (const auto& [ingombro, vista, atteso] : casi) {
    v.IngombroAltezza = ingombro;
    v.AltezzaVista = vista;
    AggiornaIngombroAltezza(v);
    EXPECT_EQ(v.IngombroAltezza, atteso) << ingombro << " " << vista;
  }

  // The time of a redraw is counted for the status bar; the prompt stays the commands' own.
  Sessione s;
  MostraPrompt(s, "");
  Ridisegna(s);
  Ridisegna(s);
  EXPECT_EQ(s.Prompt, "");
  EXPECT_EQ(s.Vista.Ridisegni, 2u);
  EXPECT_GE(s.Vista.TempoRidisegno, 0);
}

}  // namespace
}  // namespace varena
