// The area division of an irregular parcel on the national grid, against
// tests/survey/dati/divisione.py, which clips the parcel by a half-plane and measures the
// pieces by the shoelace: the point where the cut leaves one third is clicked, then a step.
#include <gtest/gtest.h>

#include <string>

#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "survey/DivisioneAree.h"

namespace varena {
namespace {

using namespace prova;

constexpr double E0 = 1700000, N0 = 5000000;

std::string Aree(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "FormDivisioneAree");
  return d ? d->Valore("AreaTotale") + " " + d->Valore("AreaParte") + " " + d->Valore("Differenza") : "no dialog";
}

TEST(DivisioneAree, UnTerzoEDueTerziDiUnaParticellaIrregolare) {
  Banco b;
  const double v[][2] = {{10, 5}, {95.5, 12.25}, {120.75, 60.5}, {80, 110}, {35.5, 96}, {2, 48.75}};
  std::string clic = "TAG DIVISIONE_AREE_2_PUNTI\n";
  for (int i = 0; i < 6; ++i) {
    MettiPunto(b.s, "V" + std::to_string(i + 1), E0 + v[i][0], N0 + v[i][1], 0);
    clic += "CLICK left @V" + std::to_string(i + 1) + "\n";
  }
  // The direction of the cut, 50 gon, and the point the script found for one third.
  MettiPunto(b.s, "D1", E0, N0, 0);
  MettiPunto(b.s, "D2", E0 + 10, N0 + 10, 0);
  MettiPunto(b.s, "P", 1700051.6020813216, 5000063.3979186788, 0);
  b.Pronto(E0 + 60, N0 + 55, 200);
  // The first right click leaves the point snap, the second closes the contour.
  b.Script(clic + "CLICK right @V1\nCLICK right @V1\n");
  ASSERT_TRUE(TrovaDialogo(b.s, "FormDivisioneAree"));
  EXPECT_EQ(TrovaDialogo(b.s, "FormDivisioneAree")->Titolo, "Divisione Aree 2 Punti");
  EXPECT_EQ(Aree(b.s), "8611.094 0.000 8611.094");
  b.Script("CLICK left @D1\nCLICK left @D2\nCLICK left @P\n");
  EXPECT_EQ(b.ui.UltimoPrompt, "Divisione Aree - Punto per la Linea di Divisione :");
  EXPECT_EQ(Aree(b.s), "8611.094 2870.365 5740.729");
  // Half a metre North: the script's pieces 2829.994 and 5781.100.
  b.Script("FIELD Passo 0.5\nPRESS NordPiu\n");
  EXPECT_EQ(Aree(b.s), "8611.094 2829.994 5781.100");
  // A step of nothing moves nothing.
  b.Script("FIELD Passo 0\nPRESS NordPiu\n");
  EXPECT_EQ(b.ui.UltimoMessaggio.find("Inserire un valore per spostamento!") != std::string::npos, true);
  EXPECT_EQ(Aree(b.s), "8611.094 2829.994 5781.100");
  // The cut goes in as a line between its two crossings.
  const int32_t linee = b.s.ContaEntita[SlotLinee];
  b.Script("PRESS Linea\n");
  ASSERT_EQ(b.s.ContaEntita[SlotLinee], linee + 1);
  // The rubber line shown is that cut.
  const FormaLinea& f = b.s.Elastico.Linea;
  ASSERT_TRUE(f.Visibile);
  EXPECT_EQ(std::vector<double>({f.X1, f.Y1, f.X2, f.Y2}),
            std::vector<double>({b.s.LineaX1[linee], b.s.LineaY1[linee], b.s.LineaX2[linee], b.s.LineaY2[linee]}));
}

TEST(DivisioneAree, TaglioPerUnVerticeEFuoriDalContorno) {
  const std::vector<PuntoXYZ> quadro{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  // Through the corner (10, 0) only: both crossings on it, a part of nothing.
  TaglioArea t = TagliaContorno(quadro, {5, -5}, {15, 5});
  EXPECT_EQ(t.Incroci, 2);
  EXPECT_EQ(t.AreaParte, 0);
  // Along the diagonal: half the square.
  t = TagliaContorno(quadro, {-1, -1}, {11, 11});
  EXPECT_NEAR(t.AreaParte, 50, 1e-9);
  // Wide of it: no crossing.
  EXPECT_EQ(TagliaContorno(quadro, {20, 0}, {20, 10}).Incroci, 0);
}

}  // namespace
}  // namespace varena
