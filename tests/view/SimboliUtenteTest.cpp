// The user's point symbols: a table written by hand, drawn at three sizes on the screen and
// into the DXF export, the strokes where they were worked out by hand.
#include <gtest/gtest.h>

#include "core/SimboliUtente.h"
#include "exchange/DxfScrittura.h"
#include "support/ProvaComandi.h"
#include "view/Ridisegna.h"
#include "view/SuperficieRegistrata.h"

namespace varena {
namespace {

// Symbol 7: a line from 1 due North to 1 due South, a circle of 0.25 centred 0.5 due North,
// and an arc of radius 1 about the origin from East clockwise through 100 gon (to South).
// Symbol 8 follows; the count says three rows, so its row is not read.
const char* kTabella =
    "3\r\n"
    "1,1,0,1,200,0,7\r\n"
    "2,0.5,0,0.25,0,0,7\r\n"
    "3,0,0,1,100,100,7\r\n"
    "1,1,0,1,200,0,8\r\n";

TEST(SimboliUtente, TreDimensioniSulloSchermoENelDxf) {
  Sessione s;
  s.Simboli = LeggiSimboli(kTabella);
  ASSERT_EQ(s.Simboli.Numeri(), std::vector<int>{7});
  s.Colori.Colore[1] = 0xFF0000;
  const double dimensioni[] = {1, 2, 4};
  for (int i = 0; i < 3; ++i) {
    const auto r = static_cast<size_t>(prova::MettiPunto(s, "P", 10.0 * (i + 1), 0, 0));
    s.PuntoSimbolo[r] = -7;
    s.PuntoDimensioneSimbolo[r] = dimensioni[i];
    s.PuntoCongelaNome[r] = s.PuntoCongelaQuota[r] = s.PuntoCongelaDescrizione[r] = -1;
  }
  s.Vista.CentroEst = s.Vista.CentroNord = 0;
  s.Vista.AltezzaVista = 100;
  SuperficieRegistrata sup;
  StatoPunti stato;
  stato.DimensionePrecedente = 1e9;  // no dot before the symbol
  stato.Carta = true;                 // no view to cull against
  for (int32_t r = 0; r < 3; ++r) DisegnaPuntoAperto(s, sup, r, stato);
  // The arc sweeps counter-clockwise on the surface from South (3/2 pi) to East (0).
  EXPECT_EQ(sup.Chiamate, (std::vector<std::string>{
                              "Linea 10 1 10 -1 #ff0000", "Cerchio 10 0.5 0.25 #ff0000",
                              "Arco 10 0 1 4.71238899230957 0 #ff0000",
                              "Linea 20 2 20 -2 #ff0000", "Cerchio 20 1 0.5 #ff0000",
                              "Arco 20 0 2 4.71238899230957 0 #ff0000",
                              "Linea 30 4 30 -4 #ff0000", "Cerchio 30 2 1 #ff0000",
                              "Arco 30 0 4 4.71238899230957 0 #ff0000"}));

  OpzioniDxfOut o;
  const std::string dxf = TestoDxfOut(s, o);
  const size_t primo = dxf.find("LINE");
  ASSERT_NE(primo, std::string::npos);
  // The first point's strokes: DXF arcs go counter-clockwise in degrees, 270 to 0.
  EXPECT_EQ(dxf.substr(primo, dxf.find("LINE", dxf.find("ARC", primo)) - primo),
            "LINE\r\n 8\r\nSimboliPunto\r\n 10\r\n10\r\n 20\r\n1\r\n 11\r\n10\r\n 21\r\n-1\r\n 0\r\n"
            "CIRCLE\r\n 8\r\nSimboliPunto\r\n 10\r\n10\r\n 20\r\n0.5\r\n 40\r\n0.25\r\n 0\r\n"
            "ARC\r\n 8\r\nSimboliPunto\r\n 10\r\n10\r\n 20\r\n0\r\n 40\r\n1\r\n 50\r\n270\r\n 51\r\n0\r\n 0\r\n");
}

TEST(SimboliUtente, NuovoDaLineeCerchiEArchiSelezionati) {
  prova::CartellaTemporanea dir;
  Sessione s;
  s.CartellaProgramma = dir.Percorso();
  // Symbol 7 drawn at size 5 about the origin: the arc and the line reach 5, the reference.
  s.StatoLinea[static_cast<size_t>(prova::MettiLinea(s, 0, 5, 0, -5))] = 1;
  s.StatoCerchio[static_cast<size_t>(prova::MettiCerchio(s, 2.5, 0, 1.25))] = 1;
  s.StatoArco[static_cast<size_t>(prova::MettiArco(s, 0, 0, 5, 100, 100))] = 1;
  prova::MettiLinea(s, 0, 0, 100, 100);  // not selected
  ASSERT_TRUE(NuovoSimbolo(s, {0, 0, 0}, 7));
  // The arc's centre is the origin itself, whose azimuth is taken as 200.
  EXPECT_EQ(prova::LeggiFileProva(dir / "TipoPunto1.ini"),
            "3\r\n1,1,0,1,200,0,7\r\n2,0.5,100,0.25,0,0,7\r\n3,0,200,1,100,100,7\r\n");
  EXPECT_EQ(s.Simboli.Simbolo(7).size(), 3u);
}

}  // namespace
}  // namespace varena
