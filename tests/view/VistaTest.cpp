// The view transform and the view set-up of each redraw.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "core/Sessione.h"
#include "view/Superficie.h"
#include "view/Vista.h"

namespace varena {
namespace {

// A surface of a given size in millimetres that records the user scales set on it.
class SuperficieFinta : public Superficie {
 public:
  SuperficieFinta(double larghezza, double altezza) : larghezza_(larghezza), altezza_(altezza) {}
  struct Scala {
    double sinistra, alto, larghezza, altezza;
  };
  std::vector<Scala> Scale;
  bool minimizzata = false;

  double LarghezzaMm() const override { return larghezza_; }
  double AltezzaMm() const override { return altezza_; }
  bool Minimizzata() const override { return minimizzata; }
  void ScalaUtente(double s, double a, double l, double h) override { Scale.push_back({s, a, l, h}); }
  void Pulisci() override {}
  void ColoreFondo(ColoreRGB) override {}
  void ColorePenna(ColoreRGB) override {}
  void Modo(ModoPenna) override {}
  void Stile(StilePenna) override {}
  void Spessore(int) override {}
  void Carattere(std::string_view, double) override {}
  void Linea(float, float, float, float, ColoreRGB) override {}
  void Riquadro(float, float, float, float, ColoreRGB, bool) override {}
  void Cerchio(float, float, float, ColoreRGB) override {}
  void Arco(float, float, float, float, float, ColoreRGB) override {}
  void Pixel(float, float, ColoreRGB) override {}
  void Testo(float, float, std::string_view, float) override {}
  bool Immagine(const std::string&, float, float, float, float) override { return true; }
  double LarghezzaTesto(std::string_view) const override { return 0; }
  double AltezzaTesto(std::string_view) const override { return 0; }

 private:
  double larghezza_, altezza_;
};

TEST(Trasformazione, CoordinateCatastaliTengonoIlMillimetro) {
  StatoVista v;
  v.CentroEst = 1725000.5;
  v.CentroNord = 5031000.25;
  // 3 mm East and 1 mm South of the centre.
  const PuntoVista p = InVista(v, 1725000.503, 5031000.249);
  EXPECT_NEAR(p.X, 0.003, 1e-6);
  EXPECT_NEAR(p.Y, -0.001, 1e-6);
  // Narrowed first, the two coordinates would be one and the same float: the millimetres
  // live only because the centre goes first.
  EXPECT_EQ(static_cast<float>(1725000.503) - static_cast<float>(1725000.5), 0.0f);

  // Back from the surface: the centre is added in 64 bits.
  const PuntoMondo m = InMondo(v, p.X, p.Y);
  EXPECT_NEAR(m.Est, 1725000.503, 1e-6);
  EXPECT_NEAR(m.Nord, 5031000.249, 1e-6);
  EXPECT_EQ(InMondo(v, 0.5, -0.25).Est, 1725001.0);
  EXPECT_EQ(InMondo(v, 0.5, -0.25).Nord, 5031000.0);
}

TEST(Rigenera1, AltezzaMinimaProporzioniBordiEScalaUtente) {
  Sessione s;
  SuperficieFinta sup(300, 200);
  s.Schermo = &sup;
  s.Vista.AltezzaVista = 0.5;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.PassoTesto, 0.00125);  // from the height asked for, before the correction
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);
  EXPECT_EQ(s.Vista.RapportoVista, 1.5);
  EXPECT_EQ(s.Vista.BordoSinistro, -0.75);
  EXPECT_EQ(s.Vista.BordoBasso, -0.5);
  EXPECT_EQ(s.Vista.BordoDestro, 0.75);
  EXPECT_EQ(s.Vista.BordoAlto, 0.5);
  ASSERT_EQ(sup.Scale.size(), 1u);
  EXPECT_EQ(sup.Scale[0].sinistra, -0.75);
  EXPECT_EQ(sup.Scale[0].alto, 0.5);
  EXPECT_EQ(sup.Scale[0].larghezza, 1.5);
  EXPECT_EQ(sup.Scale[0].altezza, -1.0);  // negative: North up

  // Exactly one metre stays; a height that is no number becomes one metre.
  s.Vista.AltezzaVista = 1.0;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);
  s.Vista.AltezzaVista = std::numeric_limits<double>::quiet_NaN();
  Rigenera1(s);
  EXPECT_EQ(s.Vista.AltezzaVista, 1.0);

  // Minimised: the edges are computed, the surface is not touched.
  sup.minimizzata = true;
  sup.Scale.clear();
  s.Vista.AltezzaVista = 80;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.BordoAlto, 40.0);
  EXPECT_TRUE(sup.Scale.empty());
}

TEST(Rigenera1, SenzaMisureDellaSuperficieIlRapportoE16) {
  Sessione s;  // headless: no surface at all
  s.Vista.AltezzaVista = 100;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.6);
  EXPECT_EQ(s.Vista.BordoDestro, 80.0);

  SuperficieFinta zero(0, 200);
  s.Schermo = &zero;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.6);
  EXPECT_EQ(zero.Scale.size(), 1u);
}

TEST(Rigenera1, SuperficieQuadrataNonRicevelaScala) {
  // A square surface makes the left edge equal the bottom one, and the set-up then leaves
  // the surface's scale as it was: kept as the program has always behaved.
  Sessione s;
  SuperficieFinta sup(200, 200);
  s.Schermo = &sup;
  Rigenera1(s);
  EXPECT_EQ(s.Vista.RapportoVista, 1.0);
  EXPECT_EQ(s.Vista.BordoSinistro, s.Vista.BordoBasso);
  EXPECT_TRUE(sup.Scale.empty());
}

TEST(DopoRidisegno, StoriaEAltezzaDellIngombro) {
  StatoVista v;
  v.CentroEst = 1;
  v.CentroNord = 2;
  v.AltezzaVista = 3;
  AggiungiStoriaVista(v);
  ASSERT_EQ(v.Storia.size(), 1u);
  EXPECT_EQ(v.Storia[0][0], 1.0);
  EXPECT_EQ(v.Storia[0][1], 2.0);
  EXPECT_EQ(v.Storia[0][2], 3.0);

  struct Caso {
    double ingombro, vista, atteso;
  };
  const Caso casi[] = {{0.5, 100, 100}, {0, 0.5, 0.5}, {0.5, 0.2, 0.2}, {50, 100, 100}, {500, 100, 500}};
  for (const Caso& c : casi) {
    v.IngombroAltezza = c.ingombro;
    v.AltezzaVista = c.vista;
    AggiornaIngombroAltezza(v);
    EXPECT_EQ(v.IngombroAltezza, c.atteso) << c.ingombro << " " << c.vista;
  }

  EXPECT_EQ(TestoTempoRidisegno(0.25), "0.25");
  EXPECT_EQ(TestoTempoRidisegno(2), "2.0");
  EXPECT_EQ(TestoTempoRidisegno(0.123456789), "0.12345679");
}

}  // namespace
}  // namespace varena
