// The resection against stations chosen first, whose angles tests/survey/dati/pothenot.py
// works forward from atan2 of the sights: the program must find each station back.
#include <gtest/gtest.h>

#include <string>

#include "commands/Attese.h"
#include "survey/Resezione.h"

namespace varena {
namespace {

using namespace prova;

constexpr double kDecimoDiMm = 1e-4;

TEST(Pothenot, StazioniNoteRitrovateSullaGrigliaEVicinoAllOrigine) {
  struct Caso {
    const char* nome;
    PuntoXYZ p1, p2, p3;
    double alfa, beta, x, y;
  };
  const Caso casi[] = {
      {"griglia", {1700612.41, 5003890.12}, {1702950.73, 5003105.33}, {1702011.05, 5000405.98}, 97.849988788415,
       102.288425330088, 1701234.567, 5002345.678},
      {"origine", {612.41, 3890.12}, {2950.73, 3105.33}, {2011.05, 405.98}, 97.849988788401, 102.288425330096,
       1234.567, 2345.678},
      {"casuale", {288.825, -108.5645}, {389.7722, -613.0914}, {-247.5186, -982.6461}, 82.322382500803,
       96.516875225927, 3.0257, -416.1061},
  };
  for (const Caso& c : casi) {
    const EsitoPothenot e = Pothenot(c.p1, c.p2, c.p3, c.alfa, c.beta);
    ASSERT_EQ(e.Stato, kRiuscito) << c.nome;
    EXPECT_NEAR(e.Stazione.X, c.x, kDecimoDiMm) << c.nome;
    EXPECT_NEAR(e.Stazione.Y, c.y, kDecimoDiMm) << c.nome;
    EXPECT_EQ(e.Stazione.Z, 0);
  }
  // Three points in a row, the station off their line: the circle is the line, the station
  // is well away from it, and it is found.
  const double al = std::atan2(50.0, 100.0) * 200 / M_PI;  // each pair 50 m apart seen from 100 m
  const EsitoPothenot riga = Pothenot({-50, 100}, {0, 100}, {50, 100}, al, al);
  ASSERT_EQ(riga.Stato, kRiuscito);
  EXPECT_NEAR(riga.Stazione.X, 0, kDecimoDiMm);
  EXPECT_NEAR(riga.Stazione.Y, 0, kDecimoDiMm);
}

TEST(Pothenot, CerchioPericolosoPuntiCoincidentiEAlfaNullaRifiutati) {
  // The station on the circle of centre (100, 100) through the three points.
  const EsitoPothenot e = Pothenot({100, 150}, {149.3844170298, 107.821723252}, {129.3892626146, 59.5491502813}, 45, 35);
  EXPECT_EQ(e.Stato, kResezioneDegenere);
  EXPECT_EQ(e.Motivo, "Stazione sul cerchio pericoloso: il punto è indeterminato!");
  EXPECT_EQ(Pothenot({0, 0}, {0, 0.0005}, {50, 0}, 50, 50).Motivo, "Punti noti coincidenti!");
  for (double alfa : {0.0, 200.0})
    EXPECT_EQ(Pothenot({0, 0}, {10, 0}, {50, 30}, alfa, 50).Motivo, "Angolo Alfa non ammissibile (0 o 200 gon)!");
  EXPECT_EQ(Pothenot({0, 0}, {10, 0}, {50, 30}, 100, 50).Stato, kRiuscito);  // 100 gon is a fair angle
}

TEST(Pothenot, ComandoTrePuntiDueAngoliEStazioneInserita) {
  Banco b;
  MettiPunto(b.s, "T1", 612.41, 3890.12, 0);
  MettiPunto(b.s, "T2", 2950.73, 3105.33, 0);
  MettiPunto(b.s, "T3", 2011.05, 405.98, 0);
  MettiPunto(b.s, "C1", 100, 150, 0);
  MettiPunto(b.s, "C2", 149.3844170298, 107.821723252, 0);
  MettiPunto(b.s, "C3", 129.3892626146, 59.5491502813, 0);
  b.Pronto(1500, 2000, 5000);
  const std::string uscita =
      b.Script("TAG POTHENOT\nCLICK left @T1\nCLICK left @T2\nCLICK left @T3\nFIELD NuovoPunto.Nome 100\n"
               "FIELD Alfa 97.849988788401\nFIELD Beta 102.288425330096\nPRESS OK\n");
  EXPECT_NE(uscita.find("PROMPT Snellius/Pothenot - Primo Trigonometrico :\n"), std::string::npos);
  EXPECT_NE(uscita.find("PROMPT Pothenot - Terzo Trigonometrico\n"), std::string::npos);
  EXPECT_NE(uscita.find("DIALOGO + CalcoloPothenot [Calcolo Pothenot] Primo=\"T1\" Secondo=\"T2\" Terzo=\"T3\""),
            std::string::npos);
  int32_t riga = -1;
  for (int32_t r = 0; r < b.s.ContaEntita[SlotPunti]; ++r)
    if (b.s.PuntoNome[static_cast<size_t>(r)] == "100") riga = r;
  ASSERT_GE(riga, 0);
  EXPECT_NEAR(b.s.PuntoX[static_cast<size_t>(riga)], 1234.567, kDecimoDiMm);
  EXPECT_NEAR(b.s.PuntoY[static_cast<size_t>(riga)], 2345.678, kDecimoDiMm);

  // On the dangerous circle: said, nothing inserted, the dialog up for other angles.
  const int32_t prima = b.s.ContaEntita[SlotPunti];
  b.Script("CLICK left @C1\nCLICK left @C2\nCLICK left @C3\nFIELD Alfa 45\nFIELD Beta 35\nPRESS OK\n");
  EXPECT_NE(b.ui.UltimoMessaggio.find("Stazione sul cerchio pericoloso: il punto è indeterminato!"), std::string::npos);
  EXPECT_EQ(b.s.ContaEntita[SlotPunti], prima);
  EXPECT_TRUE(DialogoAperto(b.s, "CalcoloPothenot"));
}

}  // namespace
}  // namespace varena
