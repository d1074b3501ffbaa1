// Commands driven click by click by scripts, as a user drives them: a line drawn and
// repeated, tags and the right button ending commands, snaps that reach far, the order of
// kinds, frozen lines, and the question of a point placed on another.
#include <gtest/gtest.h>

#include "commands/Attese.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

using namespace prova;

struct CopioneBanco : BancoProva {};
using V = std::vector<double>;

// Every line row: x1, y1, z1, x2, y2, z2.
std::vector<V> Linee(const Sessione& s) {
  std::vector<V> l;
  for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++k)
    l.push_back({s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k], s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]});
  return l;
}
V Punto1(const Sessione& s) { return {s.Punto1X, s.Punto1Y, s.Punto1Z}; }

TEST_F(CopioneBanco, ScriptLineaDuePuntiRipetutaConEscEFinitaColDestro) {
  MettiPunti(s, {{"1", 0, 0, 10}, {"2", 30, 40, 20}});
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nKEY P\nCLICK left 1 1\nKEY P\nCLICK left 29 41\nKEY ESC\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
  // Esc at rest repeats the last command, which re-arms itself after each line.
  Script("KEY ESC\nCLICK left 10 0\nCLICK left 10 5\n");
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.PassoComando), std::make_tuple(22, 0));
  Script("CLICK right 0 0\n");
  EXPECT_EQ(std::tie(UltimoEsito.Codice, s.ComandoCorrente, s.UltimoComando), std::make_tuple(0, 0, 22));
  // Between the two points with their heights; then between two free places, at height 0.
  EXPECT_EQ(Linee(s), (std::vector<V>{{0, 0, 10, 30, 40, 20}, {10, 0, 0, 10, 5, 0}}));
  // The line just drawn is in the display list already, where the snaps find it.
  Script("TAG DISEGNA_LINEA_2_P\nTAG SNAP_MEDIO\nCLICK left 10 3\n");
  EXPECT_EQ(Punto1(s), (V{10, 2.5, 0}));
}

TEST_F(CopioneBanco, ScriptUnTagAMetaComandoLoLasciaSenzaDomande) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_PUNTO\n"
                     "DIALOGO + NuovoPunto [Nuovo Punto] Nome=\"1\" Descrizione=\"\" Piano=\"0\" Automatico=\"1\" "
                     "Passo=\"1\" (Prendi, Annulla)\nPROMPT Indicare la posizione del nuovo punto\n"
                     "> TAG DISEGNA_LINEA_2_P\nDIALOGO - NuovoPunto\nPROMPT Disegno Linea 2P - Primo Punto:\n"
                     "> CLICK left 0 0\nPROMPT Disegno Linea - Al Punto:\n> TAG INFO_DISTANZA\n"
                     "PROMPT Info Distanza - Primo Punto:\n"));
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.PassoComando, s.ContaEntita[SlotLinee]), std::make_tuple(28, 0, 0));
  // Replaced, not ended: the last command to repeat is still the one before.
  EXPECT_EQ(s.UltimoComando, 0);
}

TEST_F(CopioneBanco, ScriptIlDestroLasciaPrimaLoSnapPoiFinisceARiposoRipete) {
  MettiPunto(s, "9", 0, 0);
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 0 0\nKEY F\nCLICK right 5 5\n");
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.PassoComando, s.ModoSnap), std::make_tuple(22, 1, 16));
  Script("CLICK right 5 5\n");
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.ContaEntita[SlotLinee]), std::make_tuple(0, 0));
  // At rest the right button repeats; a command that sets the point snap itself then loses
  // it to the second, and the third ends it. (With the menu setting on, the desktop's own
  // test sees the edit menu instead.)
  Script("TAG EDIT_SPOSTA_NOME\nKEY ESC\n");
  EXPECT_TRUE(Stampa("> CLICK right 1 1\nPROMPT Nome Sposta - Indicare il Punto :\n> CLICK right 1 1\n"
                     "> CLICK right 1 1\n"));
  EXPECT_EQ(s.ComandoCorrente, 0);
}

TEST_F(CopioneBanco, ScriptOrtogonaleSoloAPuntoLibero) {
  MettiPunto(s, "7", 20, 7);
  Pronto();
  Script("KEY F8\n"
           "TAG DISEGNA_LINEA_LIBERA\n"
           "CLICK left 0 0\n"
           "CLICK left 10 3\n"   // free: the smaller component goes, (10, 0)
           "KEY P\n"
           "CLICK left 19 8\n"   // on the point: as it is
           "CLICK left 21 20\n"  // free again: from (20, 7) the larger step is North, (20, 20)
           "CLICK left 25 25\n"  // a step as long East as North keeps the North one: (20, 25)
           "TAG ORTOSINO\n"
           "CLICK left 25 22\n");  // off: as clicked
  EXPECT_EQ(Linee(s), (std::vector<V>{{0, 0, 0, 10, 0, 0}, {10, 0, 0, 20, 7, 0}, {20, 7, 0, 20, 20, 0},
                                      {20, 20, 0, 20, 25, 0}, {20, 25, 0, 25, 22, 0}}));
  EXPECT_EQ(s.Ortogonale, 0);
}

TEST_F(CopioneBanco, ScriptSnapAUnEntitaAUnChilometroInUnaVistaDiDieciMetri) {
  MettiLinea(s, 1000, 0, 1010, 0);
  Pronto();
  Script("VIEW 0 0 10\nTAG DISEGNA_LINEA_2_P\nKEY F\nCLICK left 0 0\nCLICK left 0 5\n");
  EXPECT_EQ(Linee(s).back(), (V{1000, 0, 0, 0, 5, 0}));
}

// The kinds at equal distance, seen through the snap of the centre: a circle gives its
// centre, a line or a contour record its middle, a point itself.
TEST_F(CopioneBanco, ScriptOrdineDeiGeneriCerchioLineaContornoPunto) {
  MettiLinea(s, 5, -10, 5, 10);
  MettiCerchio(s, -10, 0, 5);
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nTAG SNAP_CENTRO\nCLICK left 0 0\n");
  EXPECT_EQ(Punto1(s), (V{-10, 0, 0}));  // the circle, later in the order than the line

  s.CerchioIdent[0] = -1;
  DimensionaSette(s);
  s.ContaEntita[SlotSette] = 1;
  Pronto();
  MettiRecordLista(s, SlotSette, 0, -5, -10, -5, 10);
  IndicizzaDisegno(s);
  Script("KEY ESC\nKEY ESC\nTAG SNAP_CENTRO\nCLICK left 0 0\n");
  EXPECT_EQ(Punto1(s), (V{5, 0, 0}));  // the line over the contour

  MettiPunto(s, "P", 0, -5, 3);
  MettiTesto(s, 0, 5, "T");
  Pronto();
  Script("KEY ESC\nKEY ESC\nTAG SNAP_CENTRO\nCLICK left 0 0\n");
  EXPECT_EQ(Punto1(s), (V{0, -5, 3}));  // the point over all
}

TEST_F(CopioneBanco, ScriptLineeCongelateNonSiTrovanoConNessunoSnap) {
  MettiLinea(s, 0, 0, 10, 0);
  Pronto();
  Script("TAG L\n");
  ASSERT_EQ(s.LineaCongela[0], -1);
  // Nothing found: no prompt of a step or of a second entity follows the click.
  for (const char* snap : {"F", "V", "M", "C", "Q", "I"}) {
    EXPECT_EQ(Script(std::string("TAG DISEGNA_LINEA_2_P\nKEY ") + snap + "\nCLICK left 5 1\n"),
              std::string("> TAG DISEGNA_LINEA_2_P\nPROMPT Disegno Linea 2P - Primo Punto:\n> KEY ") + snap +
                  "\n> CLICK left 5 1\n")
        << snap;
  }
  // Shown again, found again.
  Script("TAG L\nTAG DISEGNA_LINEA_2_P\nKEY F\nCLICK left 9 1\n");
  EXPECT_EQ(std::tie(s.PassoComando, s.Punto1X), std::make_tuple(1, 10));
}

TEST_F(CopioneBanco, ScriptUnPuntoEsistenteRinominatoDallaDomanda) {
  MettiPunto(s, "5", 10, 10, 4);
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_PUNTO\n"
                     "DIALOGO + NuovoPunto [Nuovo Punto] Nome=\"6\" Descrizione=\"\" Piano=\"0\" Automatico=\"1\" "
                     "Passo=\"1\" (Prendi, Annulla)\nPROMPT Indicare la posizione del nuovo punto\n> FIELD Nome 77\n"
                     "> ANSWER yes\n> CLICK left 10.0004 10\n"
                     "DOMANDA [Punto Esistente] Punto Esistente [ 5 ]? | nella posizione indicata! (0.001 mm) | "
                     "Cambiare il Nome al Punto Esistente -> SI\n"));
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotPunti], s.PuntoNome[0], TrovaDialogo(s, "NuovoPunto")->Valore("Nome")),
            std::make_tuple(1, "77", "78"));
  // "No" leaves the name, and no point is made either.
  Script("ANSWER no\nCLICK left 10 10.0009\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.PuntoNome[0]), std::make_tuple(1, "77"));
  // Beyond a millimetre is another place: a new point, and the next name offered.
  EXPECT_TRUE(Stampa("> CLICK left 10 10.0011\nPROMPT 79 - Indicare la posizione del nuovo punto\n"));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.PuntoNome[1], s.PuntoY[1]), std::make_tuple(2, "78", 10.0011));
}

// Strict runs stop where a script would otherwise go on wrongly, at the line: a click the
// command refuses, a question or a value prompt that nobody answered.
TEST_F(CopioneBanco, ScriptIlModoRigorosoFermaClicVaniEDomandeSenzaRisposta) {
  MettiPunto(s, "5", 10, 10, 4);
  Pronto();
  const std::pair<const char*, std::string> casi[] = {
      // the third corner on the first side gives no depth: refused
      {"TAG RETTANGOLO\nCLICK left 0 0\nCLICK left 10 0\nCLICK left 5 0\n", "4: il clic non ha avuto effetto"},
      {"TAG DISEGNA_PUNTO\nCLICK left 10 10\n",
       "2: domanda senza risposta: Punto Esistente [ 5 ]? | nella posizione indicata! (0.001 mm) | "
       "Cambiare il Nome al Punto Esistente"},
      {"KEY ESC\nKEY F4\n", "2: richiesta di un valore senza risposta: Distanza della Parallela :"},
  };
  for (const auto& [script, errore] : casi) {
    Script(script);
    EXPECT_EQ(UltimoEsito.Codice, 1) << script;
    EXPECT_EQ(std::to_string(UltimoEsito.Riga) + ": " + UltimoEsito.Errore, errore);
  }
  // Without it the same lines take the defaults and go on.
  Opzioni.Rigoroso = false;
  for (const auto& [script, errore] : casi) {
    Script(script);
    EXPECT_EQ(UltimoEsito.Codice, 0) << script;
  }
}

// Checks of what the program shows and holds, and clicks at points by their names.
TEST_F(CopioneBanco, ScriptVerificheEClicSuiPuntiPerNome) {
  MettiPunti(s, {{"101", 3, 4, 7.25}, {"102", 3, 9, 7.25}});
  Pronto();
  Script("TAG INFO_DISTANZA\n"
           "EXPECT prompt Info Distanza - Primo Punto:\n"
           "CLICK left @101\n"
           "MOVE @102\n"
           "CLICK left @102\n"
           "EXPECT messaggio Dal Punto 101 al Punto 102 | Distanza = 5.000 | Azimut = 0.0000 | Dislivello = 0.000 | "
           "Distanza Inclinata = 5.000\n"
           "TAG DISEGNA_PUNTO\n"
           "EXPECT campo NuovoPunto.Nome 103\n"
           "EXPECT campo Piano 0\n"
           "EXPECT riga 1 1 Y 9.000000001\n"
           "EXPECT riga 1 0 Colore Simbolo 1\n"
           "EXPECT riga 1 0 Nome 101\n");
  EXPECT_EQ(UltimoEsito.Codice, 0) << UltimoEsito.Riga << ": " << UltimoEsito.Errore;
  const std::tuple<const char*, int, std::string> casi[] = {
      // A prompt that differs: the command line's own test pins it.
      {"EXPECT messaggio Altro\n", 1, "EXPECT messaggio: messaggio \"Dal Punto 101 al Punto 102 | Distanza = 5.000 | "
                                      "Azimut = 0.0000 | Dislivello = 0.000 | Distanza Inclinata = 5.000\""},
      {"EXPECT campo NuovoPunto.Nome 104\n", 1, "EXPECT campo: NuovoPunto.Nome=\"103\""},
      {"EXPECT campo Selezentita.Nome 1\n", 1, "EXPECT campo: nessun dialogo aperto con il campo Selezentita.Nome"},
      {"EXPECT riga 1 1 Y 9.00000002\n", 1, "EXPECT riga: atteso 9.00000002, trovato 9"},
      {"EXPECT riga 1 0 Nome 1O1\n", 1, "EXPECT riga: atteso 1O1, trovato 101"},
      {"EXPECT riga 1 2 Y 9\n", 1, "EXPECT riga: la riga 2 del tipo 1 non esiste"},
      {"EXPECT riga 1 0 Colore 1\n", 1, "EXPECT riga: campo sconosciuto: Colore"},
      {"EXPECT riga uno 0 X 1\n", 64, "EXPECT riga vuole un tipo, una riga, un campo e un valore"},
      // A kind and a row are whole numbers of the integers: no number past them, and no nan.
      {"EXPECT riga 1e300 0 X 1\n", 64, "EXPECT riga vuole un tipo, una riga, un campo e un valore"},
      {"EXPECT riga 1 nan X 1\n", 64, "EXPECT riga vuole un tipo, una riga, un campo e un valore"},
      {"CLICK left @999\n", 2, "punto non trovato: 999"},
  };
  for (const auto& [script, codice, errore] : casi) {
    Script(script);
    EXPECT_EQ(UltimoEsito.Codice, codice) << script;
    EXPECT_EQ(UltimoEsito.Errore, errore);
  }
}

// Unknown actions are pinned, with their message, by the command line's own test.
TEST_F(CopioneBanco, ScriptRigheNonCapiteFermanoLoScript) {
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nCLICK sinistro 0 0\nCLICK left 0 0\n");
  EXPECT_EQ(std::tie(UltimoEsito.Codice, UltimoEsito.Riga, s.PassoComando), std::make_tuple(64, 2, 0));
  Script("# nothing open\n\nPRESS NuovoPunto.Annulla\n");
  EXPECT_EQ(std::tie(UltimoEsito.Codice, UltimoEsito.Riga), std::make_tuple(2, 3));
}

}  // namespace
}  // namespace varena
