// The staking out of ten points from a station on the national grid, against
// tests/survey/dati/tracciamento.py (azimuths by atan2, distances by hypot): the table shown,
// the angles wrapping at 400 both ways, the point on the station, and the three files.
#include <gtest/gtest.h>

#include <string>

#include "cadastre/ContornoSette.h"
#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

using namespace prova;

constexpr double E0 = 1700000, N0 = 5000000;

std::string Tabella(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "FormTracciamento");
  return d ? d->Valore("Tabella") : "no dialog";
}

TEST(Tracciamento, DieciPuntiDaUnaStazioneCatastale) {
  Banco b;
  MettiPunto(b.s, "S", E0 + 500, N0 + 500, 0);
  MettiPunto(b.s, "O", E0 + 640.25, N0 + 610.5, 0);
  const double p[][2] = {{512.3, 640.1}, {610, 495.5}, {480.75, 380.2}, {350, 505}, {420.4, 640.9},
                         {500, 560},     {560, 500},   {500, 430},      {500, 500}, {655.55, 700.05}};
  for (int i = 0; i < 10; ++i) MettiPunto(b.s, std::to_string(i + 1), E0 + p[i][0], N0 + p[i][1], 0);
  b.Pronto(E0 + 500, N0 + 500, 600);
  std::string clic = "TAG TRACCIAMENTO\nCLICK left @S\nCLICK left @O\n";
  for (int i = 1; i <= 8; ++i) clic += "CLICK left @" + std::to_string(i) + "\n";
  // Point 9 stands on the station, and the click took its name: the box puts it right.
  b.Script(clic + "FIELD Stazione S\nFIELD Nome 9\nPRESS Aggiungi\nFIELD Nome 10\nPRESS Aggiungi\nFIELD Lettura 350\n"
                  "FIELD Titolo Lotto A\nPRESS Calcola\n");
  EXPECT_EQ(Tabella(b.s),
            "Nome\tNord\tEst\tAngolo\tDistanza\n"
            "1\t5000640.100\t1700512.300\t298.0569\t140.639\n"
            "2\t5000495.500\t1700610.000\t395.0849\t110.092\n"
            "3\t5000380.200\t1700480.750\t102.6248\t121.337\n"
            "4\t5000505.000\t1700350.000\t194.6033\t150.083\n"
            "5\t5000640.900\t1700420.400\t259.7444\t161.830\n"
            "6\t5000560.000\t1700500.000\t292.4820\t60.000\n"
            "7\t5000500.000\t1700560.000\t392.4820\t60.000\n"
            "8\t5000430.000\t1700500.000\t92.4820\t70.000\n"
            "9\t5000500.000\t1700500.000\t92.4820\t0.000\n"
            "10\t5000700.050\t1700655.550\t334.5565\t253.408");
  // A reading of 0: the angles below the orientation's wrap up by a turn.
  b.Script("FIELD Lettura 0\nPRESS Calcola\n");
  EXPECT_NE(Tabella(b.s).find("\n2\t5000495.500\t1700610.000\t45.0849\t110.092\n"), std::string::npos);

  // Both runs appended to one report of this dialog, each with its head.
  const std::string txt = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT");
  EXPECT_EQ(txt.substr(0, 69), "     --------------------------------------------------------------\r\n");
  EXPECT_NE(txt.find("     Stazione     : S  Nord: 5000500.000  Est: 1700500.000\r\n"
                     "     Orientamento : O  Nord: 5000610.500  Est: 1700640.250\r\n"
                     "     Direzione all'Orientamento : 57.5180\r\n"
                     "     O     O     O     Nome Punto             Nord         Est   Angolo      Distanza\r\n"),
            std::string::npos);
  EXPECT_NE(txt.find("     O     O     O     9                 5000500.000  1700500.000      92.4820        0.000\r\n"),
            std::string::npos);
  size_t teste = 0;
  for (size_t i = txt.find("Info - Tracciamento  Lotto A"); i != std::string::npos;
       i = txt.find("Info - Tracciamento  Lotto A", i + 1))
    ++teste;
  EXPECT_EQ(teste, 2u);
  const std::string libretto = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.LIB");
  EXPECT_EQ(libretto.substr(0, libretto.find("2|1|")),
            "1|S|0.000|\r\n2|O|350.0000|178.551||\r\n");
  EXPECT_NE(libretto.find("2|10|334.5565|253.408||\r\n"), std::string::npos);
  const std::string csv = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.CSV");
  EXPECT_EQ(csv.substr(0, csv.find("Nome Punto")),
            "Stazione;S;Nord;5000500.000;EST;1700500.000\r\nOrientamento;O;  Nord;5000610.500;Est;1700640.250\r\n"
            "Direzione all'Orientamento;57.5180\r\n");
}

TEST(Tracciamento, NomiAssentiLetturaNonNumericaEdElencoVuoto) {
  Banco b;
  MettiPunto(b.s, "S", 0, 0, 0);
  MettiPunto(b.s, "O", 0, 10, 0);
  b.Pronto(0, 0, 50);
  b.Script("TAG TRACCIAMENTO\nCLICK left @S\nCLICK left @O\nFIELD Nome X9\nPRESS Aggiungi\n");
  EXPECT_EQ(b.ui.UltimoMessaggio.find("Punto Non Trovato") != std::string::npos, true);
  EXPECT_EQ(TrovaDialogo(b.s, "FormTracciamento")->Valore("Elenco"), "");
  b.Script("FIELD Stazione ZZ\nPRESS Calcola\n");
  EXPECT_EQ(b.ui.UltimoMessaggio.find("Punto Non Trovato") != std::string::npos, true);
  EXPECT_EQ(LunghezzaFile(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT"), -1);
  b.Script("FIELD Stazione S\nFIELD Lettura 12x\nPRESS Calcola\n");
  EXPECT_EQ(b.ui.UltimoMessaggio.find("Dati incongruenti nella casella") != std::string::npos, true);
  EXPECT_EQ(LunghezzaFile(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT"), -1);
  // A name taken out of the list after the question.
  b.Script("FIELD Nome O\nPRESS Aggiungi\nFIELD Nome S\nPRESS Aggiungi\nFIELD Nome O\nANSWER yes\nPRESS Elimina\n");
  EXPECT_EQ(TrovaDialogo(b.s, "FormTracciamento")->Valore("Elenco"), "S\n");
  b.Script("FIELD Nome S\nANSWER yes\nPRESS Elimina\n");
  // An empty list: only the head is written, and said.
  b.Script("FIELD Lettura 0\nPRESS Calcola\n");
  EXPECT_EQ(b.ui.UltimoMessaggio.find("Nessun punto da tracciare") != std::string::npos, true);
  const std::string txt = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT");
  EXPECT_EQ(txt.find("     O     O     O     Nome Punto"), txt.rfind("     O     O     O"));

  // A contour picked on the drawing gives its points in the order of its list; a code and a
  // name no point has are passed over.
  MettiPunto(b.s, "21", 20, 0, 0);
  MettiPunto(b.s, "22", 20, 10, 0);
  MettiPunto(b.s, "23", 30, 10, 0);
  subAggiungiSetteSingolo(b.s, "|23|R|99|22|21|", "LOTTO", "", 1, 1);
  RigeneraLista(b.s);
  b.Script("PRESS Contorno\nCLICK left 25 10\n");
  EXPECT_EQ(TrovaDialogo(b.s, "FormTracciamento")->Valore("Elenco"), "23\n22\n21\n");
}

}  // namespace
}  // namespace varena
