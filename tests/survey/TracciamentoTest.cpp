// The calculation dialogs on the national grid.
// The staking out of ten points from a station, against tests/survey/dati/tracciamento.py
// (azimuths by atan2, distances by hypot): the table shown, the angles wrapping at 400 both
// ways, the point on the station, and the three files.
// The area division of an irregular parcel, against tests/survey/dati/divisione.py, which
// clips the parcel by a half-plane and measures the pieces by the shoelace: the point where
// the cut leaves one third is clicked, then a step.
// The triangle solver on one triangle laid out by coordinates (tests/survey/dati/triangoli.py
// prints its elements by atan2, the shoelace and the two centres): every case of three
// elements must give back the same six boxes and the same report. Then each refusal.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "cadastre/ContornoSette.h"
#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "survey/DivisioneAree.h"
#include "survey/Triangoli.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

using namespace prova;

constexpr double E0 = 1700000, N0 = 5000000;

std::string Tabella(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "FormTracciamento");
  return d ? d->Valore("Tabella") : "no dialog";
}

std::string Aree(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "FormDivisioneAree");
  return d ? d->Valore("AreaTotale") + " " + d->Valore("AreaParte") + " " + d->Valore("Differenza") : "no dialog";
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
  EXPECT_TRUE(Contiene(Tabella(b.s), "\n2\t5000495.500\t1700610.000\t45.0849\t110.092\n"));

  // Both runs appended to one report of this dialog, each with its head.
  const std::string txt = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT");
  EXPECT_EQ(txt.substr(0, 69), "     --------------------------------------------------------------\r\n");
  EXPECT_TRUE(Contiene(txt,
                       "     Stazione     : S  Nord: 5000500.000  Est: 1700500.000\r\n"
                       "     Orientamento : O  Nord: 5000610.500  Est: 1700640.250\r\n"
                       "     Direzione all'Orientamento : 57.5180\r\n"
                       "     O     O     O     Nome Punto             Nord         Est   Angolo      Distanza\r\n"));
  EXPECT_TRUE(Contiene(txt,
                       "     O     O     O     9                 5000500.000  1700500.000      92.4820        0.000\r\n"));
  size_t teste = 0;
  for (size_t i = txt.find("Info - Tracciamento  Lotto A"); i != std::string::npos;
       i = txt.find("Info - Tracciamento  Lotto A", i + 1))
    ++teste;
  EXPECT_EQ(teste, 2u);
  const std::string libretto = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.LIB");
  EXPECT_EQ(libretto.substr(0, libretto.find("2|1|")),
            "1|S|0.000|\r\n2|O|350.0000|178.551||\r\n");
  EXPECT_TRUE(Contiene(libretto, "2|10|334.5565|253.408||\r\n"));
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
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Punto Non Trovato"));
  EXPECT_EQ(TrovaDialogo(b.s, "FormTracciamento")->Valore("Elenco"), "");
  b.Script("FIELD Stazione ZZ\nPRESS Calcola\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Punto Non Trovato"));
  EXPECT_EQ(LunghezzaFile(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT"), -1);
  b.Script("FIELD Stazione S\nFIELD Lettura 12x\nPRESS Calcola\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Dati incongruenti nella casella"));
  EXPECT_EQ(LunghezzaFile(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT"), -1);
  // A name taken out of the list after the question.
  b.Script("FIELD Nome O\nPRESS Aggiungi\nFIELD Nome S\nPRESS Aggiungi\nFIELD Nome O\nANSWER yes\nPRESS Elimina\n");
  EXPECT_EQ(TrovaDialogo(b.s, "FormTracciamento")->Valore("Elenco"), "S\n");
  // An empty list: only the head is written, and said.
  b.Script("FIELD Nome S\nANSWER yes\nPRESS Elimina\nFIELD Lettura 0\nPRESS Calcola\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Nessun punto da tracciare"));
  const std::string txt = *LeggiByte(b.s.CartellaProgramma + "/temp/TRACCIAMENTO1.TXT");
  EXPECT_EQ(txt.find("     O     O     O     Nome Punto"), txt.rfind("     O     O     O"));

  // A contour picked on the drawing gives its points in the order of its list; a code and a
  // name no point has are passed over.
  for (const auto& [nome, x, y] : {std::tuple{"21", 20, 0}, {"22", 20, 10}, {"23", 30, 10}})
    MettiPunto(b.s, nome, x, y, 0);
  subAggiungiSetteSingolo(b.s, "|23|R|99|22|21|", "LOTTO", "", 1, 1);
  RigeneraLista(b.s);
  b.Script("PRESS Contorno\nCLICK left 25 10\n");
  EXPECT_EQ(TrovaDialogo(b.s, "FormTracciamento")->Valore("Elenco"), "23\n22\n21\n");
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
  MettiPunti(b.s, {{"D1", E0, N0, 0}, {"D2", E0 + 10, N0 + 10, 0}, {"P", 1700051.6020813216, 5000063.3979186788, 0}});
  b.Pronto(E0 + 60, N0 + 55, 200);
  // The first right click leaves the point snap, the second closes the contour.
  b.Script(clic + "CLICK right @V1\nCLICK right @V1\n");
  ASSERT_TRUE(TrovaDialogo(b.s, "FormDivisioneAree"));
  EXPECT_EQ(TrovaDialogo(b.s, "FormDivisioneAree")->Titolo + " " + Aree(b.s),
            "Divisione Aree 2 Punti 8611.094 0.000 8611.094");
  b.Script("CLICK left @D1\nCLICK left @D2\nCLICK left @P\n");
  EXPECT_EQ(b.ui.UltimoPrompt + " " + Aree(b.s),
            "Divisione Aree - Punto per la Linea di Divisione : 8611.094 2870.365 5740.729");
  // Half a metre North: the script's pieces 2829.994 and 5781.100.
  b.Script("FIELD Passo 0.5\nPRESS NordPiu\n");
  EXPECT_EQ(Aree(b.s), "8611.094 2829.994 5781.100");
  // A step of nothing moves nothing.
  b.Script("FIELD Passo 0\nPRESS NordPiu\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Inserire un valore per spostamento!"));
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
  const TaglioArea t = TagliaContorno(quadro, {5, -5}, {15, 5});
  EXPECT_EQ(std::make_tuple(t.Incroci, t.AreaParte), std::make_tuple(2, 0.0));
  // Along the diagonal: half the square.
  EXPECT_NEAR(TagliaContorno(quadro, {-1, -1}, {11, 11}).AreaParte, 50, 1e-9);
  // Wide of it: no crossing.
  EXPECT_EQ(TagliaContorno(quadro, {20, 0}, {20, 10}).Incroci, 0);
}

using Caselle = std::array<std::string, 6>;

// Full precision, as the script prints them: a, b, c, alfa, beta, gamma.
const Caselle kTutti = {"69.356776885896", "56.194750644522", "83.250000000000",
                        "61.843905270847", "46.655869644577", "91.500225084576"};
const Caselle kAttese = {"69.357", "56.195", "83.250", "61.8439", "46.6559", "91.5002"};
const char* kRelazione =
    "Area = 1931.400\nBase1 = 69.357\n Altezza1 = 55.695\nBase2 = 56.195\n Altezza2 = 68.740\n"
    "Base3 = 83.250\n Altezza3 = 46.400\nRaggio Cerchio Inscritto = 18.500\n"
    "Raggio Cerchio Circoscritto = 41.999\n";

// Only the boxes named by their indexes filled, the others left empty.
Caselle Solo(std::initializer_list<int> indici) {
  Caselle c;
  for (int i : indici) c[static_cast<size_t>(i)] = kTutti[static_cast<size_t>(i)];
  return c;
}

Caselle Mostrate(const EsitoTriangolo& e) {
  Caselle c;
  for (size_t i = 0; i < 6; ++i) c[i] = TestoElementoTriangolo(static_cast<int>(i), e.Valori[i]);
  return c;
}

TEST(Triangoli, OgniTernaSufficienteDaLoStessoTriangolo) {
  // The rows of the table in their order: three sides; two sides and the angle between;
  // one side and two angles; two sides and the angle opposite the longer.
  const std::initializer_list<int> terne[] = {{0, 1, 2}, {0, 1, 5}, {1, 2, 3}, {0, 2, 4}, {0, 3, 4},
                                              {0, 3, 5}, {0, 4, 5}, {1, 3, 4}, {1, 4, 5}, {2, 4, 5},
                                              {2, 3, 5}, {2, 3, 4}, {0, 1, 3}};
  for (const auto& t : terne) {
    const EsitoTriangolo e = RisolviTriangolo(Solo(t));
    ASSERT_TRUE(e.Risolto) << *t.begin();
    EXPECT_EQ(std::make_tuple(e.Messaggio, Mostrate(e), e.Relazione), std::make_tuple("", kAttese, kRelazione));
  }
  // All six given: the three sides win and the angles typed are overwritten.
  Caselle tutti = kTutti;
  tutti[3] = "10";
  EXPECT_EQ(Mostrate(RisolviTriangolo(tutti)), kAttese);
  // An angle and two sides that do not hold it, nor fit the last row: no result, no word.
  const EsitoTriangolo nessuno = RisolviTriangolo(Solo({0, 1, 4}));
  EXPECT_EQ(std::make_tuple(nessuno.Risolto, nessuno.Messaggio), std::make_tuple(false, ""));
}

TEST(Triangoli, CasiImpossibiliEAmbigui) {
  auto rifiuto = [](Caselle c) {
    const EsitoTriangolo e = RisolviTriangolo(c);
    EXPECT_FALSE(e.Risolto);
    return e.Messaggio + "|" + e.Titolo;
  };
  for (const char* c : {"", "x"})
    EXPECT_EQ(rifiuto({"3", "4", c, "", "", ""}), "Numero di elementi insufficienti!|Impossibile continuare");
  EXPECT_EQ(rifiuto({"", "", "", "60", "70", "70"}), "Numero di elementi Lineari insufficienti!|Impossibile continuare");
  // Flat, a + b = c, is refused too: the test is strict.
  for (const char* c : {"8", "7"})
    EXPECT_EQ(rifiuto({"3", "4", c, "", "", ""}), "Un lato è Maggiore della somma degli altri 2!|Impossibile continuare");
  // The side opposite the angle is the shorter: two triangles fit.
  EXPECT_EQ(rifiuto({"3", "4", "", "40", "", ""}), "Doppia Soluzione|Problema");
  // Two angles of more than a half turn together.
  EXPECT_EQ(rifiuto({"5", "", "", "120", "90", ""}), "Gli angoli dati non chiudono un triangolo!|Impossibile continuare");
  // Three boxes of zeros: the run ends with nothing to say.
  EXPECT_EQ(rifiuto({"0", "0", "0", "", "", ""}), "|");
}

TEST(Triangoli, IlDialogoRiscriveLeCaselleERestaAperto) {
  Banco b;
  b.Pronto();
  b.Script("TAG TRIANGOLI\nFIELD a 3\nFIELD b 4,0\nFIELD c 5\nPRESS Calcola\n");
  const Dialogo* d = TrovaDialogo(b.s, "Triangoli");
  ASSERT_TRUE(d);
  // 3-4-5: the right angle opposite c, area 6, altitudes 4, 3 and 12/5, radii 1 and 5/2;
  // the report as a grid of caption and value.
  EXPECT_EQ(d->Valore("b") + " " + d->Valore("Gamma"), "4.000 100.0000");
  EXPECT_EQ(d->Valore("Relazione"),
            "Area\t6.000\nBase1\t3.000\nAltezza1\t4.000\nBase2\t4.000\nAltezza2\t3.000\nBase3\t5.000\n"
            "Altezza3\t2.400\nRaggio Cerchio Inscritto\t1.000\nRaggio Cerchio Circoscritto\t2.500");
  // A refusal leaves the boxes as typed and the dialog up.
  b.Script("PRESS Pulisci\nFIELD a 1\nFIELD b 1\nFIELD c 3\nPRESS Calcola\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Un lato è Maggiore della somma degli altri 2!"));
  EXPECT_EQ(TrovaDialogo(b.s, "Triangoli")->Valore("c"), "3");
}

}  // namespace
}  // namespace varena
