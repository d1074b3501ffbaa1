// The drawing commands of circles and arcs: centres and radii worked out by hand, arcs
// stored as a start azimuth and a positive amplitude in gon; and the arc's row builder.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "commands/Attese.h"
#include "commands/Costruttori.h"

namespace varena {
namespace {

using namespace prova;

struct CurveBanco : BancoProva {};

void AttesoCerchio(const Sessione& s, int32_t riga, double x, double y, double raggio) {
  ASSERT_LT(riga, s.ContaEntita[SlotCerchi]);
  const auto k = static_cast<size_t>(riga);
  EXPECT_TRUE(Vicini({s.CerchioX[k], s.CerchioY[k], s.CerchioRaggio[k]}, {x, y, raggio})) << "riga " << riga;
}

void AttesoArco(const Sessione& s, int32_t riga, double x, double y, double raggio, double inizio, double ampiezza) {
  ASSERT_LT(riga, s.ContaEntita[SlotArchi]);
  const auto k = static_cast<size_t>(riga);
  // A start is kept within one turn; a hair below 400 is the same direction as 0.
  EXPECT_TRUE(s.ArcoInizio[k] >= 0 && s.ArcoInizio[k] < 400) << s.ArcoInizio[k];
  EXPECT_TRUE(Vicini({s.ArcoX[k], s.ArcoY[k], s.ArcoRaggio[k], std::remainder(s.ArcoInizio[k] - inizio, 400.0), s.ArcoFine[k]},
                     {x, y, raggio, 0, ampiezza}))
      << "riga " << riga;
}

TEST_F(CurveBanco, CerchioTrePuntiCentroDalleBisettriciPuntiAllineatiNessunCerchio) {
  s.Imp.Colore_Default = 4;
  s.PianoCorrente = "POZZI";
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_CERCHIO_3_P\nPROMPT Cerchio Tre Punti - Indicare il Primo:\n> CLICK left 0 0\n"
                     "PROMPT Cerchio Tre Punti - Secondo Punto:\n> CLICK left 1 1\n"
                     "PROMPT Cerchio Tre Punti - Terzo Punto:\n> CLICK left 2 2\n"));
  // Three points in a row: no circle, and the third point is awaited still.
  EXPECT_EQ(std::tie(s.ContaEntita[SlotCerchi], s.PassoComando), std::make_tuple(0, 2));
  EXPECT_TRUE(Stampa("> CLICK left 0 2\nPROMPT Cerchio Tre Punti - Primo Punto :\n"));
  // Through (0, 0), (1, 1), (0, 2): centre (0, 1), radius 1.
  AttesoCerchio(s, 0, 0, 1, 1);
  EXPECT_EQ(std::tie(s.CerchioColore[0], s.CerchioPiano[0]), std::make_tuple(4, "POZZI"));
  EXPECT_EQ(s.PassoComando, 0);
}

TEST_F(CurveBanco, CerchiDiametroCentroRaggioCentroTangenteInscritto) {
  MettiLinea(s, 0, -50, 100, -50);
  MettiCerchio(s, 50, 50, 3);
  Pronto(50, 0, 200);
  Script("TAG CERCHIO_DIAMETRO\nCLICK left 0 0\nCLICK left 6 8\n");
  AttesoCerchio(s, 1, 3, 4, 5);
  // The radius asked once serves every click.
  Script("ANSWER 2.5\nTAG CERCHIO_CENTRO_RAGGIO\nCLICK left 10 10\nCLICK left 20 10\n");
  AttesoCerchio(s, 2, 10, 10, 2.5);
  AttesoCerchio(s, 3, 20, 10, 2.5);
  // Tangent to a line: the distance of the centre from it; to a circle, from outside: the
  // gap between the two curves on the line of the centres.
  EXPECT_TRUE(Stampa("> TAG CERCHIO_CENTRO_TANGENTE\nPROMPT Cerchio Centro Tangente - Centro Cerchio:\n"
                     "> CLICK left 10 -45\nPROMPT Cerchio Centro Tangente - Entita per Tangente:\n"
                     "> CLICK left 20 -49.5\nPROMPT Cerchio Centro Tangente - Centro Cerchio:\n"));
  AttesoCerchio(s, 4, 10, -45, 5);
  Script("CLICK left 50 60\nCLICK left 50 53.2\n");
  AttesoCerchio(s, 5, 50, 60, 7);
  // The 3-4-5 triangle: the inscribed radius is (3 + 4 - 5) / 2.
  EXPECT_TRUE(Stampa("> TAG CERCHIO_INSCRITTO\nPROMPT Cerchio Inscritto - Primo Punto:\n> CLICK left 0 0\n"
                     "PROMPT Cerchio Inscritto - Secondo Punto:\n> CLICK left 4 0\n"
                     "PROMPT Cerchio Inscritto - Terzo Punto:\n> CLICK left 0 3\n"
                     "PROMPT Cerchio Inscritto - Primo Punto:\n"));
  AttesoCerchio(s, 6, 1, 1, 1);
}

TEST_F(CurveBanco, ArcoTrePuntiInizioEAmpiezzaPositivaInGon) {
  MettiPunti(s, {{"A", 10, 0, 1}, {"B", 0, 10, 2}, {"C", -10, 0, 3}});
  Pronto();
  // East, North, West: the arc over the North, stored from West clockwise through 200 gon,
  // and its heights from the point it starts at.
  Script("TAG DISEGNA_ARCO_3_P\nKEY P\nCLICK left 10 0\nKEY P\nCLICK left 0 10\nKEY P\nCLICK left -10 0\n");
  AttesoArco(s, 0, 0, 0, 10, 300, 200);
  EXPECT_EQ(std::tie(s.ArcoQuotaInizio[0], s.ArcoQuotaFinale[0]), std::make_tuple(3, 1));
  // The other way round, by the South: from East clockwise.
  Script("CLICK left 10 0\nCLICK left 0 -10\nCLICK left -10 0\n");
  AttesoArco(s, 1, 0, 0, 10, 100, 200);
  // A quarter: (0, 10), (7.0711, 7.0711), (10, 0) runs from North to East.
  Script("CLICK left 0 10\nCLICK left 7.0710678118654755 7.0710678118654755\nCLICK left 10 0\n");
  AttesoArco(s, 2, 0, 0, 10, 0, 100);
  EXPECT_EQ(s.ContaEntita[SlotArchi], 3);
}

TEST_F(CurveBanco, ArcoDuePuntiDalCentroInSensoOrarioFinoAllaDirezione) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG ARCO_CENTRO_INIZIO_FINE\nPROMPT Arco Due Punti - Centro Arco:\n> CLICK left 0 0\n"
                     "PROMPT Arco Due Punti - Punto Inizio:\n> CLICK left 5 0\n"
                     "PROMPT Arco Due Punti - Punto Per Angolo\n> CLICK left 0 3\n"
                     "PROMPT Arco Due Punti - Centro Arco:\n"));
  // From East (100) to North (0): -100 made positive by a turn.
  AttesoArco(s, 0, 0, 0, 5, 100, 300);
  // The angle point on the start's own direction gives no arc.
  Script("CLICK left 0 0\nCLICK left 0 5\nCLICK left 0 9\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotArchi], s.PassoComando), std::make_tuple(1, 2));
}

TEST_F(CurveBanco, subArcoInCerchioLArcoDiventaIlCerchioIntero) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG ARCO_IN_CERCHIO\nPROMPT Arco In Cerchio - Indicare un Arco:\n> CLICK left 1 1\n"
                     "MESSAGGIO [Arco non Trovato] Nessun Arco nel Disegno!\n"));
  MettiArco(s, 10, 20, 4, 50, 100);
  s.ArcoColore[0] = 3;
  s.ArcoTratteggio[0] = 5;
  s.ArcoPiano[0] = "CIGLIO";
  s.ArcoZ[0] = 12;
  Pronto();
  Script("CLICK left 13 23\n");
  EXPECT_NE(s.ArcoIdent[0], 0);
  AttesoCerchio(s, 0, 10, 20, 4);
  EXPECT_EQ(std::tie(s.CerchioZ[0], s.CerchioColore[0], s.CerchioTratteggio[0], s.CerchioPiano[0]),
            std::make_tuple(12, 3, 5, "CIGLIO"));
  // Only the circle is in the display list now.
  for (int64_t i = 0; i < s.ListaDisegno.Conta(); ++i)
    EXPECT_EQ(s.ListaDisegno.Tipo[static_cast<size_t>(i)], SlotCerchi);
}

// The row builder the drawing commands share.
TEST_F(CurveBanco, ScriviArcoAmpiezzaPositivaEInizioInUnGiroRecordAccodati) {
  MettiLinea(s, 0, 0, 10, 0);
  Pronto();
  const int64_t prima = s.ListaDisegno.Conta();
  s.Imp.Colore_Default = 7;
  s.Imp.Tratteggio_Default = 2;
  // A negative start and a negative amplitude come back into the turn.
  const auto k = static_cast<size_t>(ScriviArco(s, {5, 5, 1}, 3, -50, -100, 1, 2, "ARCHI"));
  EXPECT_EQ(std::tie(s.ArcoInizio[k], s.ArcoFine[k], s.ArcoColore[k], s.ArcoTratteggio[k], s.ArcoPiano[k]),
            std::make_tuple(350, 300, 7, 2, "ARCHI"));
  // A whole turn stays whole.
  EXPECT_EQ(s.ArcoFine[static_cast<size_t>(ScriviArco(s, {0, 0, 0}, 1, 0, 400, 0, 0, "0"))], 400);
  // The list keeps what it had and gains the chords of the new arcs, nothing else.
  ASSERT_GT(s.ListaDisegno.Conta(), prima);
  EXPECT_EQ(s.ListaDisegno.Tipo[0], SlotLinee);
  for (int64_t i = prima; i < s.ListaDisegno.Conta(); ++i)
    EXPECT_EQ(s.ListaDisegno.Tipo[static_cast<size_t>(i)], SlotArchi);
  const int32_t t = ScriviTesto(s, 1, 2, "NOTA", 1.5, 30, 4, "  ", "TESTI");
  EXPECT_EQ(s.TestoFont[static_cast<size_t>(t)], "Arial");
  EXPECT_EQ(s.ListaDisegno.Testo(s.ListaDisegno.Conta() - 1), "NOTA");
}

}  // namespace
}  // namespace varena
