// The drawing commands that make and change lines, driven click by click as the user does,
// with the rows they write checked against values worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "commands/Attese.h"

namespace varena {
namespace {

using namespace prova;

struct LineeBanco : BancoProva {};

void AttesaLinea(const Sessione& s, int32_t riga, const Valori& e, double tolleranza = 1e-9) {
  ASSERT_LT(riga, s.ContaEntita[SlotLinee]);
  EXPECT_TRUE(Vicini(Estremi(s, static_cast<size_t>(riga)), e, tolleranza)) << "riga " << riga;
}

TEST_F(LineeBanco, DisegnoEntitaLineaStessoPuntoDueVolteEDiscontinuita) {
  MettiPunto(s, "A", 0, 0, 7);
  s.PianoCorrente = "RECINTO";
  Pronto();
  // Twice the same free place: a line of no length is written.
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 5 5\nCLICK left 5 5\n");
  EXPECT_EQ(std::make_tuple(TuttiGliEstremi(s), s.LineaPiano[0]), std::make_tuple(std::vector<Valori>{{5, 5, 5, 5}}, "RECINTO"));
  // Twice the same point of the table: nothing, and the second point is still awaited.
  Script("KEY P\nCLICK left 0 1\nKEY P\nCLICK left 0 1\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.PassoComando), std::make_tuple(1, 1));
  // The breakline goes on from each point reached, on its own layer, with the heights of
  // the points snapped.
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_DISCONTINUITA\nPROMPT Disegno Linea Discontinuità - Dal Punto:\n> KEY P\n"
                     "> CLICK left 0 1\nPROMPT Disegno Linea Discontinuità - Al Punto:\n> CLICK left 10 0\n"
                     "PROMPT Disegno Linea Discontinuità - Al Punto:\n> CLICK left 10 10\n"
                     "PROMPT Disegno Linea Discontinuità - Al Punto:\n"));
  EXPECT_EQ(TuttiGliEstremi(s), (std::vector<Valori>{{5, 5, 5, 5}, {0, 0, 10, 0}, {10, 0, 10, 10}}));
  EXPECT_EQ(std::tie(s.LineaZ1[1], s.LineaPiano[1], s.LineaPiano[2]), std::make_tuple(7, "DISCONTI", "DISCONTI"));
}

TEST_F(LineeBanco, subDisegnoLineaAllungaLEstremoPiuVicinoSiAllungaOSiMuoveLungoLaLinea) {
  MettiLinea(s, 0, 0, 30, 40, 1, 2);
  Pronto();
  EXPECT_TRUE(Stampa("> ANSWER 5\n> TAG DISEGNA_LINEA_ALLUNGA\n"
                     "IMPUTA [Allunga Linea] Lunghezza da aggiungere : -> 5\n> CLICK left 29 39\n"));
  // 5 more along the 3-4-5 direction: the far end moves by (3, 4).
  AttesaLinea(s, 0, {0, 0, 33, 44});
  EXPECT_EQ(s.LineaZ2[0], 2);
  // The length is asked once: the next click takes it again, at the other end.
  Script("CLICK left 1 0\n");
  AttesaLinea(s, 0, {-3, -4, 33, 44});
  EXPECT_EQ(s.ComandoCorrente, 179);
  // The length: measured from (33, 44) back towards the pick, 25 of the 60 is 15 by 20.
  Script("TAG DISEGNA_LINEA_LUNGHEZZA\nANSWER 25\nCLICK left 1 1\n");
  AttesaLinea(s, 0, {18, 24, 33, 44});
  EXPECT_EQ(s.Prompt, "Linea Lunghezza - Indica Linea:");
  // A prompt cancelled ends the command and changes nothing.
  Script("ANSWER cancel\nCLICK left 32 43\n");
  AttesaLinea(s, 0, {18, 24, 33, 44});
  EXPECT_EQ(s.ComandoCorrente, 0);
}

TEST_F(LineeBanco, subDisegnoLineaEstremoDallEstremoUnaSpezzataLiberaEDalPuntoIlPiede) {
  MettiLinea(s, 0, 0, 10, 0, 1, 2);
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_ESTREMO\nPROMPT Linea Estremo - Indica Estremo Linea:\n> CLICK left 9 1\n"
                     "PROMPT Disegno Linea - Al Punto:\n> CLICK left 10 10\nPROMPT Disegno Linea - Al Punto:\n"
                     "> CLICK left 0 10\nPROMPT Disegno Linea - Al Punto:\n"));
  EXPECT_EQ(TuttiGliEstremi(s), (std::vector<Valori>{{0, 0, 10, 0}, {10, 0, 10, 10}, {10, 10, 0, 10}}));
  EXPECT_EQ(s.LineaZ1[1], 2);
  // From a point to its foot on the line.
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_PROIETTA\nPROMPT Linea Proietta - Indica Entità:\n> CLICK left 5 0.2\n"
                     "PROMPT Punto da Proiettare:\n> CLICK left 3 7\nPROMPT Linea Proietta - Indica Entità:\n"));
  ASSERT_EQ(s.ContaEntita[SlotLinee], 4);
  AttesaLinea(s, 3, {3, 7, 3, 0});
  // The foot takes the height of the line where it falls: 1 + 3/10 of the climb to 2.
  EXPECT_NEAR(s.LineaZ2[3], 1.3, 1e-12);
}

TEST_F(LineeBanco, subDisegnoPerpenDaDaUnaLineaEDaUnCerchioDallaParteDelClic) {
  MettiLinea(s, 0, 0, 10, 0);
  MettiCerchio(s, 100, 0, 5);
  Pronto(50, 0, 200);
  EXPECT_TRUE(Stampa("> TAG DISEGNA_LINEA_PERPENDA\nPROMPT Disegno Perpen.. Da ...- Indica Entità:\n"
                     "> CLICK left 5 0.2\nPROMPT Perpen .. Da .. - Punto di Attacco\n> ANSWER 3\n> CLICK left 4 0\n"
                     "IMPUTA [Disegno Perpen.. Da ...] Lunghezza della Perpendicolare : -> 3\n"
                     "PROMPT Perpen Da ... - Da quale parte\n> CLICK left 6 -5\n"
                     "PROMPT Disegno Perpen.. Da ...- Indica Entità:\n"));
  AttesaLinea(s, 1, {4, 0, 4, -3});
  // On the circle at (103, 4), the click outside: along the radius, outwards.
  Script("CLICK left 100 5.1\nANSWER 5\nCLICK left 103 4\nCLICK left 106 8\n");
  AttesaLinea(s, 2, {103, 4, 106, 8});
  // A text is no entity to be square to: the click is ignored.
  MettiTesto(s, 50, 50, "NOTA");
  Pronto(50, 0, 200);
  Script("CLICK left 50 50\n");
  EXPECT_EQ(s.PassoComando, 0);
}

TEST_F(LineeBanco, OrtogonaliAsseEParallelaPerPuntoLunghezzaChiestaELatoDalClic) {
  MettiLinea(s, 0, 0, 10, 0);
  Pronto();
  EXPECT_TRUE(Stampa("> TAG ESTREMI_LINEA\nPROMPT Disegno Ortogonali - Indicare Linea:\n> ANSWER 2\n"
                     "> CLICK left 5 0.1\nIMPUTA [Disegno Ortogonali] Disegno Ortogonali - Lunghezza -> 2\n"
                     "PROMPT Disegno Ortogonali - Da quale parte\n> CLICK left 5 3\n"
                     "PROMPT Disegno Ortogonali - Indicare Linea:\n"));
  AttesaLinea(s, 1, {0, 0, 0, 2});
  AttesaLinea(s, 2, {10, 0, 10, 2});
  EXPECT_TRUE(Contiene(Script("TAG ASSE_LINEA\nANSWER 4\nCLICK left 5 -0.1\nCLICK left 2 -9\n"),
                       "IMPUTA [Disegno Asse Linea] Disegno AsseLinea - Lunghezza -> 4\n"
                       "PROMPT Disegno AsseLinea - Da quale parte\n"));
  AttesaLinea(s, 3, {5, 0, 5, -4});
  // The parallel through a point, as long as the line.
  EXPECT_TRUE(Stampa("> TAG PARALLELA_PER_PUNTO\nPROMPT Parallelaperpunto - Indica Linea :\n> CLICK left 2 0.1\n"
                     "PROMPT Parallelaperpunto - Indica Punto :\n> CLICK left 3 4\n"
                     "PROMPT Parallelaperpunto - Indica Linea :\n"));
  AttesaLinea(s, 4, {0, 4, 10, 4});
  EXPECT_EQ(s.ContaEntita[SlotLinee], 5);
}

TEST_F(LineeBanco, subDisegnoParallelaLineaConISuoiAttributiCerchioEArcoConcentrici) {
  MettiLinea(s, 0, 0, 10, 0, 1, 2);
  s.LineaColore[0] = 5;
  s.LineaTratteggio[0] = 3;
  s.LineaPiano[0] = "MURI";
  s.LineaQuotata[0] = 1;
  MettiCerchio(s, 50, 0, 5, 9);
  s.CerchioColore[0] = 6;
  MettiArco(s, 100, 0, 5, 50, 100);
  s.ArcoPiano[0] = "CIGLIO";
  Pronto(50, 0, 200);
  EXPECT_TRUE(Stampa("> ANSWER 2\n> TAG DISEGNA_PARALLELA\nIMPUTA [Parallela] Distanza della Parallela : -> 2\n"
                     "PROMPT Disegno parallela - Indicare Entità:\n> CLICK left 5 0.1\n"
                     "PROMPT Disegno parallela - Da quale parte\n"));
  // The line picked is shown highlighted until the side is given.
  EXPECT_GT(InLista(s, SlotLinee, true), 0);
  Script("CLICK left 5 7\n");
  AttesaLinea(s, 1, {0, 2, 10, 2});
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotLinee], s.LineaZ1[1], s.LineaColore[1], s.LineaTratteggio[1],
                            s.LineaPiano[1], s.LineaQuotata[1], InLista(s, SlotLinee, true)),
            std::make_tuple(2, 1, 5, 3, "MURI", 1, 0));
  // The distance is asked once; a click inside the circle shrinks, outside the arc grows.
  Script("CLICK left 50 5.1\nCLICK left 51 1\nCLICK left 103.6 3.6\nCLICK left 110 10\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotCerchi], s.CerchioX[1], s.CerchioRaggio[1], s.CerchioZ[1], s.CerchioColore[1]),
            std::make_tuple(2, 50, 3, 9, 6));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotArchi], s.ArcoRaggio[1], s.ArcoInizio[1], s.ArcoFine[1], s.ArcoPiano[1]),
            std::make_tuple(2, 7, 50, 100, "CIGLIO"));
  // A circle cannot shrink below nothing: the click is ignored.
  Script("ANSWER 6\nTAG DISEGNA_PARALLELA\nCLICK left 50 5.1\nCLICK left 50 1\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotCerchi], s.PassoComando), std::make_tuple(2, 1));
}

TEST_F(LineeBanco, subVerificaParalleleAzimutEDifferenza) {
  MettiLinee(s, {{0, 0, 10, 10}, {20, 0, 29, 10}});
  Pronto();
  // atan2(9, 10) from North: 46.65246 gon; the first line is 50 gon.
  EXPECT_TRUE(Stampa("> TAG VERIFICA_PARALLELE\nPROMPT Prima Linea :\n> CLICK left 5 5\nPROMPT Seconda Linea :\n"
                     "> CLICK left 24.5 5\n"
                     "MESSAGGIO [Verifica Parallele] Azimut 1 = 50.0 | Azimut 2 = 46.6525 | Differenza = 3.3475\n"
                     "PROMPT Prima Linea :\n"));
}

TEST_F(LineeBanco, subDisegnoPercorsoLatiDaAzimutEDistanzaFinoAlTastoDestro) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_PERCORSO\nPROMPT Disegno Percorso - Punto Partenza:\n> ANSWER 100\n> ANSWER 10\n"
                     "> CLICK left 0 0\nIMPUTA [Disegno Percorso] Azimut (gon) : -> 100\n"
                     "IMPUTA [Disegno Percorso] Distanza : -> 10\nPROMPT Disegno Percorso - Prossimo Lato:\n"
                     "> ANSWER 150\n> ANSWER 5\n> CLICK left 99 99\n"
                     "IMPUTA [Disegno Percorso] Azimut (gon) : -> 150\nIMPUTA [Disegno Percorso] Distanza : -> 5\n"
                     "PROMPT Disegno Percorso - Prossimo Lato:\n> CLICK right 0 0\n"));
  AttesaLinea(s, 0, {0, 0, 10, 0});
  // 150 gon is South-East: 5 along it is (5/√2, -5/√2) further.
  const double m = 5 / std::sqrt(2.0);
  AttesaLinea(s, 1, {10, 0, 10 + m, -m});
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotLinee], s.ComandoCorrente), std::make_tuple(2, 0));
}

TEST_F(LineeBanco, RettangoloESquadratoIlTerzoPuntoDaLaProfondita) {
  s.Imp.Colore_Default = 4;
  Pronto();
  // A third point on the first side: no depth, no figure, the third point still awaited.
  Opzioni.Rigoroso = false;
  EXPECT_TRUE(Stampa("> TAG RETTANGOLO\nPROMPT Disegno Rettangolo - Primo Punto:\n> CLICK left 0 0\n"
                     "PROMPT Disegno Rettangolo - Secondo Punto:\n> CLICK left 10 0\n"
                     "PROMPT Disegno Rettangolo - Terzo Punto:\n> CLICK left 5 0\n> CLICK left 3 4\n"
                     "PROMPT Disegno Rettangolo - Primo Punto:\n"));
  EXPECT_EQ(TuttiGliEstremi(s), (std::vector<Valori>{{0, 0, 10, 0}, {10, 0, 10, 4}, {10, 4, 0, 4}, {0, 4, 0, 0}}));
  EXPECT_EQ(s.LineaColore[3], 4);
  Script("TAG SQUADRATO\nCLICK left 0 10\nCLICK left 0 20\nCLICK left 7 15\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 6);
  EXPECT_EQ(std::make_tuple(Estremi(s, 4), Estremi(s, 5)), std::make_tuple(Valori{0, 10, 0, 20}, Valori{0, 20, 7, 20}));
}

TEST_F(LineeBanco, subArcoRaccordoTagliaLeLineeEScriveLArco) {
  MettiLinea(s, -10, 0, 10, 0, 1, 1);
  MettiLinea(s, 0, -10, 0, 10);
  Pronto();
  EXPECT_TRUE(Stampa("> ANSWER 2\n> TAG ARCO_RACCORDO\nIMPUTA [Arco Raccordo] Raggio di Raccordo : -> 2\n"
                     "PROMPT Arco Raccorda - Prima Linea:\n> CLICK left -5 0.1\n"
                     "PROMPT Arco Raccorda - Seconda Linea:\n> CLICK left 0.1 5\n"
                     "PROMPT Arco Raccorda - Prima Linea:\n"));
  // The corner between the West and the North arms: centre (-2, 2), feet (-2, 0), (0, 2).
  AttesaLinea(s, 0, {-10, 0, -2, 0});
  AttesaLinea(s, 1, {0, 2, 0, 10});
  // Clockwise from East of the centre (the foot on the North arm) to South of it.
  EXPECT_TRUE(Vicini({s.ArcoX[0], s.ArcoY[0], s.ArcoInizio[0], s.ArcoFine[0]}, {-2, 2, 100, 100}));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotArchi], s.ArcoRaggio[0], s.ArcoQuotaFinale[0]), std::make_tuple(1, 2, 1));
  // Two parallel lines have no corner: nothing changes.
  MettiLinee(s, {{-10, 20, 10, 20}, {-10, 30, 10, 30}});
  Pronto();
  Script("CLICK left 0 20.1\nCLICK left 0 29.9\n");
  EXPECT_EQ(s.ContaEntita[SlotArchi], 1);
}

}  // namespace
}  // namespace varena
