// The routines of these commands: names swapped and moved, heights copied and pasted,
// the vertex and direction marks, distances and angles, image scales, the sheet origin.
#include <gtest/gtest.h>

#include <tuple>

#include "commands/Attese.h"

namespace varena {
namespace {

using namespace prova;

struct RoutineBanco : BancoProva {};

TEST_F(RoutineBanco, subNomeScambioDueNomiSiScambiano) {
  MettiPunti(s, {{"A", 0, 0}, {"B", 10, 0}});
  Pronto();
  EXPECT_TRUE(Stampa("> TAG NOME_SCAMBIO\nPROMPT Nome Scambio - Primo Punto:\n> CLICK left 1 0\n"
                     "PROMPT Nome Scambio - A - Secondo Punto:\n> CLICK left 9 1\n"
                     "PROMPT Nome Scambio - Primo Punto:\n"));
  EXPECT_EQ(std::tie(s.PuntoNome[0], s.PuntoNome[1]), std::make_tuple("B", "A"));
  // The same point twice changes nothing and waits for another.
  Script("CLICK left 0 0\nCLICK left 0 1\n");
  EXPECT_EQ(std::tie(s.PuntoNome[0], s.PuntoNome[1], s.PassoComando), std::make_tuple("B", "A", 1));
}

TEST_F(RoutineBanco, subEditNomeSpostaIlNomeVaDoveSiClicca) {
  MettiPunto(s, "7", 100, 200);
  Pronto(100, 200, 50);
  EXPECT_TRUE(Stampa("> TAG EDIT_SPOSTA_NOME\nPROMPT Nome Sposta - Indicare il Punto :\n> CLICK left 101 201\n"
                     "PROMPT Nome Sposta - Indica Punto : 7 - Nuova Posizione:\n> CLICK left 103 196\n"
                     "PROMPT Nome Sposta - Indicare il Punto :\n"));
  // Armed again on points; the searches now measure the point where its name went down.
  EXPECT_EQ(std::tie(s.PuntoSpoX[0], s.PuntoSpoY[0], s.ModoSnap, s.PuntoCorrenteIndice), std::make_tuple(3, -4, 1, -1));
  Script("TAG DISEGNA_LINEA_2_P\nKEY P\nCLICK left 100 196\n");
  EXPECT_EQ(s.Punto1Indice, 0);
}

TEST_F(RoutineBanco, CopiaQuotaUnaQuotaCopiataEIncollataSuAltriPunti) {
  MettiPunti(s, {{"A", 0, 0, 12.5}, {"B", 10, 0, 3}, {"C", 20, 0, 4}});
  Pronto();
  EXPECT_TRUE(Stampa("> TAG COPIA_QUOTA\nPROMPT Copia Quota - Indica il Punto :\n> CLICK left 0 1\n"
                     "PROMPT Quota del Punto A Copiata = 12.500\n> CLICK left 10 1\n"
                     "PROMPT Quota del Punto A Copiata = 12.500\n> CLICK left 20 1\n"
                     "PROMPT Quota del Punto A Copiata = 12.500\n"));
  EXPECT_EQ(std::tie(s.PuntoZ[1], s.PuntoZ[2], s.ComandoCorrente), std::make_tuple(12.5, 12.5, 321));
}

TEST_F(RoutineBanco, MarcaPuntoVerticeEDirezioneTolgonoLaMarcaDiPrima) {
  MettiPunto(s, "1", 0, 0);
  s.PuntoDescrizione[0] = "<PD>muro";
  MettiPunto(s, "2", 10, 0);
  s.PuntoDescrizione[1] = "siepe";
  // A mark behind another tag is found too: never a vertex and a direction at once.
  MettiPunto(s, "3", 20, 0);
  s.PuntoDescrizione[2] = "<P!><PV>fosso";
  Pronto();
  Script("TAG PUNTO_DIREZIONE\nCLICK left 20 0\n");
  EXPECT_EQ(s.PuntoDescrizione[2], "<PD><P!>fosso");
  Script("TAG PUNTO_VERTICE\nCLICK left 0 0\nCLICK left 10 0\n");
  EXPECT_EQ(std::tie(s.PuntoDescrizione[0], s.PuntoDescrizione[1]), std::make_tuple("<PV>muro", "<PV>siepe"));
  Script("TAG PUNTO_DIREZIONE\nCLICK left 10 0\n");
  EXPECT_EQ(std::tie(s.PuntoDescrizione[1], s.Prompt), std::make_tuple("<PD>siepe", "Punto Direzione <PD> - Indica il Punto :"));
}

TEST_F(RoutineBanco, subInfoDistanzaEAngoloDistanzaAzimutDislivelloEAngoloOrario) {
  MettiPunti(s, {{"A", 0, 0, 10}, {"B", 30, 40, 14}});
  Pronto();
  EXPECT_TRUE(Stampa("> TAG INFO_DISTANZA\nPROMPT Info Distanza - Primo Punto:\n> CLICK left 0 1\n"
                     "PROMPT Info Distanza - Secondo Punto:\n> CLICK left 30 41\n"
                     // sqrt(50² + 4²) = 50.1597; atan(30/40) = 40.96655 gon.
                     "MESSAGGIO [Info Distanza] Dal Punto A al Punto B | Distanza = 50.000 | Azimut = 40.9666 | "
                     "Dislivello = 4.000 | Distanza Inclinata = 50.160\nPROMPT Info Distanza - Primo Punto:\n"));
  // Between two free places: no names, and due West.
  EXPECT_TRUE(Stampa("> TAG INFO_DISTANZA_2P\nPROMPT Info Distanza 2P - Primo Punto:\n> CLICK left 5 5\n"
                     "PROMPT Info Distanza 2P - Secondo Punto:\n> CLICK left 2 5\n"
                     "MESSAGGIO [Info Distanza] Distanza = 3.000 | Azimut = 300.0000 | Dislivello = 0.000 | "
                     "Distanza Inclinata = 3.000\nPROMPT Info Distanza 2P - Primo Punto:\n"));
  // An angle from its start to its end, clockwise.
  EXPECT_TRUE(Stampa("> TAG INFO_ANGOLO\nPROMPT Info Angolo - Vertice Angolo :\n> CLICK left 0 0\n"
                     "PROMPT Info Angolo - Fine Angolo :\n> CLICK left 10 0\nPROMPT INFO Angolo - Inizio Angolo :\n"
                     "> CLICK left 0 10\nMESSAGGIO [Info Angolo] Angolo = 100.0000\n"
                     "PROMPT Info Angolo - Vertice Angolo :\n"));
  // From East round to North: three quarters of a turn.
  const std::string uscita = Script("CLICK left 0 0\nCLICK left 0 10\nCLICK left 10 0\n");
  EXPECT_EQ(uscita.substr(uscita.find("MESSAGGIO")),
            "MESSAGGIO [Info Angolo] Angolo = 300.0000\nPROMPT Info Angolo - Vertice Angolo :\n");
}

TEST_F(RoutineBanco, ScalaImmagineMetriPerPixelDiUnaScansioneA300PuntiEIlDisegnoRiquadrato) {
  MettiImmagine(s, 0, 100, 1000, 500, 1);
  Pronto();
  Script("TAG SCALA_2000\nCLICK left 500 99\n");
  EXPECT_EQ(std::tie(s.BitmapScalaLar[0], s.BitmapScalaAlt[0], s.ComandoCorrente),
            std::make_tuple(0.1693333333, 0.1693333333, 257));
  // The frame is now 169.33 by 84.67 metres under (0, 100): the view takes its width.
  EXPECT_TRUE(Vicini({s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista},
                     {84.66666665, 100 - 42.333333325, 169.3333333}));
  Script("TAG FOGLIO_INTERO1\nCLICK left 0 90\n");
  EXPECT_EQ(s.BitmapScalaLar[0], 0.42333333325);
  Script("TAG SCALA_1500\nCLICK left 0 90\n");
  EXPECT_EQ(s.BitmapScalaAlt[0], 0.1269999999);
  // Away from every image the click does nothing.
  s.BitmapIdent[0] = -1;
  Script("TAG SCALA_500\nCLICK left 0 90\n");
  EXPECT_EQ(s.BitmapScalaAlt[0], 0.1269999999);
}

TEST_F(RoutineBanco, ImmagineEFoglioInCimaEOrigineDelFoglio) {
  MettiImmagine(s, 0, 10, 10, 10, 1);
  MettiImmagine(s, 50, 10, 10, 10, 1);
  Pronto();
  Script("TAG IMMAGINE_IN_CIMA\nCLICK left 49 5\n");
  EXPECT_EQ(s.ImmagineInCima, 1);
  Script("TAG ORIGINE_FOGLIO\nCLICK left 12.5 -3\n");
  EXPECT_EQ(std::tie(s.OrigineFoglioX, s.OrigineFoglioY, s.ComandoCorrente, s.UltimoComando),
            std::make_tuple(12.5, -3, 0, 254));
}

}  // namespace
}  // namespace varena
