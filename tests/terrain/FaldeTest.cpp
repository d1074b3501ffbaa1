// One facet's cut and fill against the reference height, worked by hand, and the test of a
// point inside a facet.
#include <gtest/gtest.h>

#include "support/ProvaComandi.h"
#include "support/Supporto.h"
#include "terrain/Falde.h"
#include "terrain/Volumi.h"

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

TEST(Volumi, PiramideTotaliERapportoCsv) {
  prova::Banco b;
  Sessione& s = b.s;
  prova::ApriLavoroVuoto(b);
  // A pyramid 6 high on the square of side 4 centred at the origin, one facet a side.
  const double base[5][2] = {{-2, -2}, {2, -2}, {2, 2}, {-2, 2}, {-2, -2}};
  for (int k = 0; k < 4; ++k) {
    DimensionaFalde(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
    s.FaldaX1[r] = base[k][0], s.FaldaY1[r] = base[k][1], s.FaldaX2[r] = base[k + 1][0], s.FaldaY2[r] = base[k + 1][1];
    s.FaldaX3[r] = 0, s.FaldaY3[r] = 0, s.FaldaZ3[r] = 6;
  }
  // On the ground: the whole pyramid, 16 * 6 / 3, is cut.
  AggiornaFalde(s);
  TotaliVolumi t = SommaVolumi(s);
  EXPECT_EQ(t.Falde, 4);
  EXPECT_NEAR(t.Area, 16.0, 1e-12);
  EXPECT_NEAR(t.Sterro, 32.0, 1e-12);
  EXPECT_EQ(t.Riporto, 0.0);
  // At half height, from the dialog: the top pyramid (side 2, 3 high) is cut, 4; the fill is
  // the box of 16 * 3 less the pyramid's 32 - 4 below the plane: 20.
  b.Pronto(0, 0, 20);
  b.Script("TAG VOLUMI_FALDE\nFIELD QuotaRiferimento 3\nPRESS Ricalcola\n");
  EXPECT_EQ(s.QuotaRiferimento, 3.0);
  const Dialogo* d = TrovaDialogo(s, "VolumiFalde");
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d->Valore("Falde"), "4");
  EXPECT_EQ(d->Valore("Area"), "16.00");
  EXPECT_EQ(d->Valore("Sterro"), "4.00");
  EXPECT_EQ(d->Valore("Riporto"), "20.00");
  const std::string csv = b.cartella.Percorso() + "/volumi.csv";
  EXPECT_EQ(b.Script("ANSWER " + csv + "\nPRESS SalvaCsv\n"),
            "> ANSWER " + csv + "\n> PRESS SalvaCsv\nFILE [Salva Volumi] -> " + csv +
                "\nMESSAGGIO [Salva Volumi] " + csv + " | Correttamente creato!\n");
  EXPECT_EQ(prova::LeggiFileProva(csv),
            "Falda,Area,Sterro,Riporto\r\n"
            "1,4.000,1.000,5.000\r\n2,4.000,1.000,5.000\r\n3,4.000,1.000,5.000\r\n4,4.000,1.000,5.000\r\n"
            "Totale,16.000,4.000,20.000\r\n");
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

TEST(TRIPF, IPuntiFiducialiInFalde) {
  prova::Banco b;
  // A square with a point inside: any triangulation is the fan of four about it.
  prova::MettiPunto(b.s, "PF01", 0, 0, 1);
  prova::MettiPunto(b.s, "PF02", 10, 0, 2);
  prova::MettiPunto(b.s, "PF03", 10, 10, 3);
  prova::MettiPunto(b.s, "PF04", 0, 10, 9999);  // no height: 0 in the facets
  prova::MettiPunto(b.s, "PF05", 4, 5, 5);
  prova::MettiPunto(b.s, "100", 2, 8, 7);  // not of the network: no facet is lost for it
  b.Pronto(5, 5, 100);
  b.Script("TAG TRIPF\n");
  int vive = 0;
  double area = 0;
  for (size_t r = 0; r < static_cast<size_t>(b.s.ContaEntita[SlotFalde]); ++r) {
    if (b.s.FaldaIdent[r] != 0) continue;
    ++vive, area += b.s.FaldaAreaDiBase[r];
    EXPECT_TRUE((b.s.FaldaX1[r] == 4 && b.s.FaldaY1[r] == 5) || (b.s.FaldaX2[r] == 4 && b.s.FaldaY2[r] == 5) ||
                (b.s.FaldaX3[r] == 4 && b.s.FaldaY3[r] == 5)) << r;
    EXPECT_EQ(b.s.FaldaPiano[r], "PROFALDE");
    for (double z : {b.s.FaldaZ1[r], b.s.FaldaZ2[r], b.s.FaldaZ3[r]}) EXPECT_NE(z, 9999.0);
  }
  EXPECT_EQ(vive, 4);
  EXPECT_DOUBLE_EQ(area, 100.0);
  // The network was scaffolding only.
  EXPECT_EQ(RigheVive(b.s, SlotLinee), 0);
  EXPECT_EQ(b.s.Prompt, "Numero Linee triangolate = 8");
}

TEST(DefinizioneFalda, TreClicSuiPuntiESovrapposizioni) {
  prova::Banco b;
  prova::MettiPunto(b.s, "1", 0, 0, 1);
  prova::MettiPunto(b.s, "2", 10, 0, 2);
  prova::MettiPunto(b.s, "3", 0, 10, 3);
  prova::MettiPunto(b.s, "4", 10, 10, 4);
  b.Pronto(5, 5, 100);
  b.Script("TAG DEFINIZIONE_FALDA\nCLICK left @1\nCLICK left @2\n");
  EXPECT_EQ(b.s.Prompt, "Definizione Falda - Terzo Punto:");
  b.Script("CLICK left @3\n");
  ASSERT_EQ(b.s.ContaEntita[SlotFalde], 1);
  EXPECT_EQ(b.s.FaldaAreaDiBase[0], 50.0);
  EXPECT_EQ(b.s.FaldaZ3[0], 3.0);
  // Beside it, sharing a side: no question.
  EXPECT_EQ(b.Script("CLICK left @2\nCLICK left @4\nCLICK left @3\n").find("DOMANDA"), std::string::npos);
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 2);
  // Across both: asked, and refused.
  const std::string fuori = b.Script("ANSWER no\nCLICK left @1\nCLICK left @2\nCLICK left @4\n");
  EXPECT_NE(fuori.find("DOMANDA [Falda Impossibile] La falda Interseca o Coincide con Falde Esistenti!!"), std::string::npos)
      << fuori;
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 2);
  EXPECT_EQ(b.s.Prompt, "Definizione Falda - Primo Punto:");
  b.Script("ANSWER si\nCLICK left @1\nCLICK left @2\nCLICK left @4\n");
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 3);
}

TEST(InvertiFalde, LaDiagonaleComuneCambia) {
  prova::Banco b;
  auto falda = [&](double x1, double y1, double x2, double y2, double x3, double y3) {
    DimensionaFalde(b.s);
    const auto r = static_cast<size_t>(b.s.ContaEntita[SlotFalde]++);
    b.s.FaldaX1[r] = x1, b.s.FaldaY1[r] = y1, b.s.FaldaX2[r] = x2, b.s.FaldaY2[r] = y2;
    b.s.FaldaX3[r] = x3, b.s.FaldaY3[r] = y3, b.s.FaldaZ3[r] = 7;
  };
  // A square split along (10,0)-(0,10), and a facet apart.
  falda(0, 0, 10, 0, 0, 10);
  falda(10, 0.00005, 10, 10, 0, 10);
  falda(20, 0, 30, 0, 20, 10);
  b.Pronto(5, 5, 100);
  b.Script("TAG INVERTI_FALDE\nCLICK left 2 2\n");
  EXPECT_EQ(b.s.Prompt, "Inverti Falde - Seconda Falda:");
  b.Script("CLICK left 8 8\n");
  auto vertici = [&](size_t r) {
    return std::vector<double>{b.s.FaldaX1[r], b.s.FaldaY1[r], b.s.FaldaX2[r], b.s.FaldaY2[r], b.s.FaldaX3[r], b.s.FaldaY3[r]};
  };
  // Now along (0,0)-(10,10): each keeps one end of the old side.
  EXPECT_EQ(vertici(0), (std::vector<double>{0, 0, 10, 0, 10, 10}));
  EXPECT_EQ(vertici(1), (std::vector<double>{10, 10, 0, 10, 0, 0}));
  EXPECT_EQ(b.s.FaldaZ2[1], 7.0);  // the vertex keeps its height
  EXPECT_EQ(b.s.FaldaAreaDiBase[0] + b.s.FaldaAreaDiBase[1], 100.0);
  EXPECT_EQ(b.s.Prompt, "Inverti Falde - Prima Falda:");
  // Not neighbours: said, and nothing changes.
  EXPECT_EQ(b.Script("CLICK left 2 2\nCLICK left 22 2\n"), 
            "> CLICK left 2 2\nPROMPT Inverti Falde - Seconda Falda:\n> CLICK left 22 2\n"
            "MESSAGGIO [Inverti Falde] Falde non adiacenti\nPROMPT Inverti Falde - Prima Falda:\n");
  EXPECT_EQ(vertici(0), (std::vector<double>{0, 0, 10, 0, 10, 10}));
}

}  // namespace
}  // namespace varena
