// The triangle solver on one triangle laid out by coordinates (tests/survey/dati/triangoli.py
// prints its elements by atan2, the shoelace and the two centres): every case of three
// elements must give back the same six boxes and the same report. Then each refusal.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "commands/Attese.h"
#include "survey/Triangoli.h"

namespace varena {
namespace {

using namespace prova;
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
    EXPECT_EQ(e.Messaggio, "");
    EXPECT_EQ(Mostrate(e), kAttese);
    EXPECT_EQ(e.Relazione, kRelazione);
  }
  // All six given: the three sides win and the angles typed are overwritten.
  Caselle tutti = kTutti;
  tutti[3] = "10";
  EXPECT_EQ(Mostrate(RisolviTriangolo(tutti)), kAttese);
  // An angle and two sides that do not hold it, nor fit the last row: no result, no word.
  const EsitoTriangolo nessuno = RisolviTriangolo(Solo({0, 1, 4}));
  EXPECT_FALSE(nessuno.Risolto);
  EXPECT_EQ(nessuno.Messaggio, "");
}

TEST(Triangoli, CasiImpossibiliEAmbigui) {
  auto rifiuto = [](Caselle c) {
    const EsitoTriangolo e = RisolviTriangolo(c);
    EXPECT_FALSE(e.Risolto);
    return e.Messaggio + "|" + e.Titolo;
  };
  EXPECT_EQ(rifiuto({"3", "4", "", "", "", ""}), "Numero di elementi insufficienti!|Impossibile continuare");
  EXPECT_EQ(rifiuto({"3", "4", "x", "", "", ""}), "Numero di elementi insufficienti!|Impossibile continuare");
  EXPECT_EQ(rifiuto({"", "", "", "60", "70", "70"}), "Numero di elementi Lineari insufficienti!|Impossibile continuare");
  EXPECT_EQ(rifiuto({"3", "4", "8", "", "", ""}), "Un lato è Maggiore della somma degli altri 2!|Impossibile continuare");
  // Flat: a + b = c is refused, the test is strict.
  EXPECT_EQ(rifiuto({"3", "4", "7", "", "", ""}), "Un lato è Maggiore della somma degli altri 2!|Impossibile continuare");
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
  EXPECT_EQ(b.ui.UltimoMessaggio.find("Un lato è Maggiore della somma degli altri 2!") != std::string::npos, true);
  EXPECT_EQ(TrovaDialogo(b.s, "Triangoli")->Valore("c"), "3");
}

}  // namespace
}  // namespace varena
