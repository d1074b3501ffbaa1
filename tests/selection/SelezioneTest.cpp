// The selection: windows by their direction, all rows with and without points, frozen rows
// only for the thaw, the list that repeats a selection, the point selection with its
// filters and its file, the script lines for an outside CAD, and the inverted paint.
#include <gtest/gtest.h>

#include <algorithm>

#include "commands/Comandi.h"
#include "store/Carica.h"
#include "selection/EsportaSelezione.h"
#include "selection/Selezione.h"
#include "commands/Attese.h"
#include "view/Ridisegna.h"
#include "view/SuperficieRegistrata.h"

namespace varena {
namespace {

using namespace prova;

struct SelezioneBanco : BancoProva {};

// The selection flags of every row, kind by kind: "L0100 C100 ...".
std::string Stati(const Sessione& s) {
  std::string r;
  auto kind = [&](const char* n, const std::vector<uint8_t>& v, int slot) {
    r += n;
    for (int i = 0; i < s.ContaEntita[slot]; ++i) r += std::to_string(v[static_cast<size_t>(i)]);
    r += " ";
  };
  kind("L", s.StatoLinea, SlotLinee);
  kind("C", s.StatoCerchio, SlotCerchi);
  kind("A", s.StatoArco, SlotArchi);
  kind("T", s.StatoTesto, SlotTesti);
  kind("P", s.StatoPunto, SlotPunti);
  return r;
}

// Every kind around the box from (5, -5) to (20, 5).
struct Scena {
  Banco b;
  Sessione& s = b.s;
  Scena() {
    MettiLinea(s, 0, 0, 10, 0);      // 0: one end inside
    MettiLinea(s, 6, 1, 8, 1);       // 1: wholly inside
    MettiLinea(s, 12, -10, 12, 10);  // 2: across, no end inside
    MettiLinea(s, 30, 0, 40, 0);     // 3: outside
    MettiCerchio(s, 15, 0, 2);       // 0: inside
    MettiCerchio(s, 20, 0, 3);       // 1: across the right side
    MettiCerchio(s, 12, 0, 20);      // 2: around the whole box, its curve never in it
    MettiArco(s, 12, 0, 4, 0, 100);  // 0: North to East, inside
    MettiArco(s, 12, 0, 6, 0, 100);  // 1: its North end above the box, its East end inside
    MettiArco(s, 12, -9, 5, 350, 100);  // 2: both ends below, its top within the box
    MettiTesto(s, 7, 2, "DENTRO");
    MettiTesto(s, 30, 0, "FUORI");
    MettiPunti(s, {{"1", 7, -2}, {"2", 50, 50}});
    b.Pronto(10, 0, 100);
  }
};

// The window of the dialog, click by click: from the left what lies inside, from the right
// what it touches too, with a dashed guide.
TEST(Finestra, DaSinistraSoloCioCheStaDentroDaDestraCioCheTocca) {
  Scena x;
  const std::string uscita = x.b.Script("TAG CAMBIA_ELIMINA\nPRESS Selezentita.Finestra\nCLICK left 5 -5\nCLICK left 20 5\n");
  EXPECT_NE(uscita.find("> PRESS Selezentita.Finestra\nDIALOGO - Selezentita\nPROMPT Primo punto per Finestra : \n"
                        "> CLICK left 5 -5\nPROMPT Secondo punto per Finestra : \n> CLICK left 20 5\n"
                        "DIALOGO + Selezentita [Cambia Elimina ] Selezione=\"5\""),
            std::string::npos)
      << uscita;
  EXPECT_EQ(Stati(x.s), "L0100 C100 A100 T10 P10 ");
  AzzeraSelezione(x.s);
  x.b.Script("PRESS Finestra\nCLICK left 20 5\nMOVE 5 -5\n");
  EXPECT_TRUE(x.s.Elastico.Guida.Tratteggiato);
  x.b.Script("CLICK left 5 -5\n");
  EXPECT_EQ(Stati(x.s), "L1110 C110 A111 T10 P10 ");
  EXPECT_EQ(TrovaDialogo(x.s, "Selezentita")->Valore("Selezione"), "10");
  // Inclusive: a line lying on the box's edge is inside.
  AzzeraSelezione(x.s);
  MettiLinea(x.s, 5, -5, 20, -5);
  EXPECT_EQ(SelezionaFinestra(x.s, 5, -5, 20, 5), 6);
  EXPECT_EQ(Stati(x.s), "L01001 C100 A100 T10 P10 ");
  // The add and remove mode: the same window takes away.
  x.s.ValoreSelezione = 0;
  SelezionaFinestra(x.s, 5, -5, 20, 5);
  EXPECT_EQ(Stati(x.s), "L00000 C000 A000 T00 P00 ");
}

TEST(Tutto, ConIPuntiSpentiTuttoMaNonIPuntiNeICongelati) {
  Scena x;
  x.s.LineaCongela[3] = -1;
  x.s.CerchioIdent[2] = -1;
  // Both labels of point 2 frozen: the point is neither drawn nor taken.
  x.s.PuntoCongelaSimbolo[1] = x.s.PuntoCongelaNome[1] = -1;
  x.b.Pronto(10, 0, 100);
  x.b.Script("TAG CAMBIA_COLORE\nPRESS PuntiSiNo\n");
  EXPECT_EQ(TrovaDialogo(x.s, "Selezentita")->Valore("Punti"), "Punti NO");
  EXPECT_EQ(x.s.PuntiInSelezione, 0);
  x.b.Script("PRESS Tutto\n");
  EXPECT_EQ(Stati(x.s), "L1110 C110 A111 T11 P00 ");
  EXPECT_EQ(TrovaDialogo(x.s, "Selezentita")->Valore("Selezione"), "10");
  // Points on again: the choice is kept for the next time the dialog opens.
  x.b.Script("PRESS PuntiSiNo\nPRESS TuttiPunti\n");
  EXPECT_EQ(Stati(x.s), "L1110 C110 A111 T11 P10 ");
  EXPECT_EQ(LeggiImpostazioneUtente(x.s, "SELEZIONE", "PUNTI", "?"), "1");
  x.b.Script("PRESS PuntiSiNo\nKEY ESC\nKEY ESC\n");
  EXPECT_EQ(TrovaDialogo(x.s, "Selezentita")->Valore("Punti"), "Punti NO");
  x.b.Script("PRESS TuttiPunti\n");
  EXPECT_EQ(Stati(x.s), "L0000 C000 A000 T00 P00 ");
  // Only the thaw reaches the frozen rows.
  x.b.Script("TAG CAMBIA_SCONGELA\nPRESS Tutto\n");
  EXPECT_EQ(Stati(x.s), "L1111 C110 A111 T11 P00 ");
  x.b.Script("PRESS PuntiSiNo\nPRESS Tutto\n");
  EXPECT_EQ(Stati(x.s), "L1111 C110 A111 T11 P11 ");
}

TEST(Tutto, PerGenereColorePianoEContorni) {
  Scena x;
  x.s.LineaColore[2] = 5;
  x.s.ArcoColore[0] = 5;
  x.s.PuntoColoreSimbolo[0] = 5;
  x.s.CerchioPiano[1] = "MURI";
  x.s.TestoPiano[1] = "muri";
  x.s.PuntoPiano[1] = "MURI";
  DimensionaCurve(x.s);
  x.s.ContaEntita[SlotCurve] = 2;
  x.b.Pronto(10, 0, 100);
  x.b.Script("TAG CAMBIA_COLORE\nPRESS TuttiArchi\nPRESS TuttiTesti\n");
  EXPECT_EQ(Stati(x.s), "L0000 C000 A111 T11 P00 ");
  x.b.Script("KEY ESC\nKEY ESC\n");
  // By colour: the line clicked gives colour 5.
  EXPECT_NE(x.b.Script("PRESS Colore\nCLICK left 12 -3\n").find("PROMPT Seleziona Colore - Indica il Colore : "),
            std::string::npos);
  EXPECT_EQ(Stati(x.s), "L0010 C000 A100 T00 P10 ");
  // By layer: the circle clicked offers its layer, the dialog of the layer takes every row of
  // it, whatever the letter case.
  x.b.Script("KEY ESC\nKEY ESC\nPRESS Piano\nCLICK left 23 0\n");
  ASSERT_TRUE(DialogoAperto(x.s, "SelezPerPiano"));
  EXPECT_EQ(TrovaDialogo(x.s, "SelezPerPiano")->Valore("Piano"), "MURI");
  x.b.Script("PRESS SelezPerPiano.OK\n");
  EXPECT_EQ(Stati(x.s), "L0000 C010 A000 T01 P01 ");
  x.b.Script("PRESS Contorni\n");
  EXPECT_EQ(std::make_tuple(x.s.StatoCurva[0], x.s.StatoCurva[1], ContaSelezionati(x.s)), std::make_tuple(1, 1, 5));
}

// One click at a time: the nearest entity toggles, is painted inverted, and the count
// follows; the right button brings the dialog back.
TEST_F(SelezioneBanco, SingolaAlternaDipingeInvertitoEContaDiNuovo) {
  SuperficieRegistrata sup;
  s.Schermo = &sup;
  MettiLinee(s, {{0, 0, 10, 0}, {0, 5, 10, 5}});
  Pronto(5, 2, 20);
  EXPECT_NE(Script("TAG CAMBIA_SPOSTA\nPRESS Singola\n")
                .find("DIALOGO - Selezentita\nPROMPT Seleziona Entità (ESC/Dx Mouse - Interrompe): \n"),
            std::string::npos);
  Script("CLICK left 3 1\n");
  sup.Chiamate.clear();
  Ridisegna(s);
  EXPECT_EQ(std::make_tuple(Stati(s), s.ListaDisegno.Stato[0], s.ListaDisegno.Stato[1]),
            std::make_tuple("L10 C A T P ", 1, 0));
  const std::string inverti = "Modo " + std::to_string(static_cast<int>(ModoPenna::Inverti));
  ASSERT_EQ(sup.Solo("Linea").size(), 2u);
  const auto& c = sup.Chiamate;
  const auto prima = std::find(c.begin(), c.end(), sup.Solo("Linea")[0]);
  ASSERT_NE(prima, c.begin());
  // The mode, then the dotted style, then the line, then the plain mode back.
  EXPECT_EQ(std::make_tuple(*(prima - 2), *(prima - 1), *(prima + 1)), std::make_tuple(inverti, "Stile 2", "Modo 13"));
  Script("CLICK left 3 4\nCLICK left 3 1\n");
  EXPECT_EQ(Stati(s), "L01 C A T P ");
  Script("CLICK right 0 0\n");
  ASSERT_TRUE(DialogoAperto(s, "Selezentita"));
  EXPECT_EQ(TrovaDialogo(s, "Selezentita")->Valore("Selezione"), "1");
  EXPECT_EQ(s.FaseSelezione, 0);
  // The remove mode takes away and never adds: the click on the line not taken does nothing.
  Opzioni.Rigoroso = false;
  Script("PRESS AggiungiTogli\nPRESS Singola\nCLICK left 3 1\nCLICK left 3 4\nKEY ESC\n");
  EXPECT_EQ(Stati(s), "L00 C A T P ");
  EXPECT_EQ(TrovaDialogo(s, "Selezentita")->Valore("Modo"), "Togli");
  Script("PRESS Annulla\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
}

TEST_F(SelezioneBanco, UlsLaConfermaScriveLaListaCheLUltimaRipete) {
  ApriLavoroVuoto(*this);
  MettiPunti(s, {{"1", 0, 0}, {"2", 1, 1}});
  MettiLinee(s, {{0, 0, 10, 0}, {0, 5, 10, 5}, {0, 9, 10, 9}});
  Pronto(5, 2, 20);
  const std::string uls = PercorsoUls(s);
  ASSERT_EQ(uls, cartella / "ROSSI.uls");
  auto zeri = [](int n) {
    std::string r;
    for (int i = 0; i < n; ++i) r += "0\r\n";
    return r;
  };
  // No list yet: the button does nothing.
  Script("TAG CAMBIA_COLORE\nPRESS Ultima\n");
  EXPECT_EQ(ContaSelezionati(s), 0);
  s.Imp.Colore_Default = 4;
  Script("PRESS Singola\nCLICK left 1.1 1.1\nCLICK left 3 0.5\nCLICK left 3 8.7\nKEY ESC\nPRESS OK\n");
  // Points: one, row 1; lines: two, rows 0 and 2; none of the eleven kinds after them.
  EXPECT_EQ(std::make_tuple(LeggiFileProva(uls), s.LineaColore[0], s.LineaColore[1], s.PuntoColoreNome[1]),
            std::make_tuple("1\r\n1\r\n2\r\n0\r\n2\r\n" + zeri(11), 4, 1, 4));
  // The next command repeats the same rows.
  Script("TAG CAMBIA_CONGELA\nPRESS Ultima\n");
  EXPECT_EQ(Stati(s), "L101 C A T P01 ");
  // A damaged list marks what it can and nothing else.
  ScriviFileProva(uls, "2\r\n0\r\n77\r\nxx\r\n5\r\n");
  Script("KEY ESC\nKEY ESC\nPRESS Ultima\n");
  EXPECT_EQ(Stati(s), "L000 C A T P10 ");
  // An empty selection confirmed ends the command.
  Script("KEY ESC\nKEY ESC\nPRESS OK\n");
  EXPECT_EQ(std::make_tuple(s.ComandoCorrente, LeggiFileProva(uls)), std::make_tuple(0, zeri(13)));
  // Another job, in the same folder, has a list of its own: the rows of ROSSI are not its.
  ScriviFileProva(uls, "0\r\n2\r\n0\r\n2\r\n");
  ScriviFileProva(cartella / "BIANCHI.CFG", CfgManuale("VR2020", "0,0,100"));
  s.NomeOriginale = cartella / "BIANCHI";
  VR_ApriLavoro(s);
  MettiLinee(s, {{0, 0, 10, 0}, {0, 5, 10, 5}, {0, 9, 10, 9}});
  Pronto(5, 2, 20);
  Script("TAG CAMBIA_CONGELA\nPRESS Ultima\n");
  EXPECT_EQ(Stati(s), "L000 C A T P ");
  // With no job there is no list at all.
  s.NomeOriginale.clear();
  EXPECT_EQ(PercorsoUls(s), "");
}

TEST_F(SelezioneBanco, SelezPuntiFiltriFinestraFileEdEliminazione) {
  MettiPunti(s, {{"PF01/0010/A123", 0, 0}, {"100", 10, 0}, {"1000", 20, 0}, {"12", 30, 0}, {"pf2", 40, 0}});
  Pronto(20, 0, 100);
  EXPECT_TRUE(Stampa("> TAG PUNTO_ELIMINA\n"
                     "DIALOGO + SelezPunti [Selezione Punti] Selezione=\"0\" Modo=\"Aggiungi\" (Finestra, Tutti, "
                     "PF, Stazioni, Salva, Carica, AggiungiTogli, OK, Annulla)\n> PRESS OK\n"
                     "MESSAGGIO [Selezione Punti] Attenzione!! Nessun Punto Selezionato\n"));
  Script("PRESS PF\n");
  EXPECT_EQ(TrovaDialogo(s, "SelezPunti")->Valore("Selezione"), "1");
  Script("PRESS Stazioni\n");
  EXPECT_EQ(TrovaDialogo(s, "SelezPunti")->Valore("Selezione"), "3");
  Script("PRESS Salva\n");
  EXPECT_EQ(LeggiFileProva(s.CartellaLavoro + "TEMP/selepunt.ini"), "PF01/0010/A123\r\n100\r\n1000\r\n");
  // A click toggles the nearest point; in the remove mode it only takes away.
  Script("CLICK left 31 1\nCLICK left 9 1\n");
  EXPECT_EQ(Stati(s), "L C A T P10110 ");
  Script("PRESS AggiungiTogli\nCLICK left 41 0\nCLICK left 30 0\n");
  EXPECT_EQ(Stati(s), "L C A T P10100 ");
  // The window takes the points inside, in the mode in force.
  Script("PRESS AggiungiTogli\nPRESS Finestra\nCLICK left 35 -1\nCLICK left 45 1\n");
  EXPECT_TRUE(DialogoAperto(s, "SelezPunti"));
  EXPECT_EQ(Stati(s), "L C A T P10101 ");
  // The file carries a list over: cleared, then loaded again.
  Script("PRESS Annulla\nTAG PUNTO_ELIMINA\nPRESS Carica\n");
  EXPECT_EQ(TrovaDialogo(s, "SelezPunti")->Valore("Selezione"), "3");
  Script("PRESS OK\n");
  EXPECT_EQ((std::vector<int>{s.PuntoIdent[0], s.PuntoIdent[1], s.PuntoIdent[2], s.PuntoIdent[3],
                              s.PuntoIdent[4]}),
            (std::vector<int>{-1, -1, -1, 0, 0}));
  EXPECT_FALSE(DialogoAperto(s, "SelezPunti"));
  EXPECT_EQ(ContaSelezionati(s), 0);
}

TEST_F(SelezioneBanco, SelezPuntiDimensioniESimboloDaiLoroDialoghi) {
  MettiPunti(s, {{"1", 0, 0}, {"2", 10, 0}});
  Pronto(5, 0, 100);
  Script("TAG ALTEZZA_QUOTA\nFIELD DN.Dimensione 2,5\nPRESS DN.OK\nCLICK left 1 0\nPRESS OK\n");
  EXPECT_EQ(std::tie(s.PuntoDimensioneQuota[0], s.PuntoDimensioneQuota[1]), std::make_tuple(2.5, 1));
  Script("TAG INCOLLA_SIMBOLO\nFIELD Simbolo 7\nCLICK left 10 0\nPRESS OK\n");
  EXPECT_EQ(std::tie(s.PuntoSimbolo[1], s.PuntoSimbolo[0]), std::make_tuple(7, 0));
}

TEST_F(SelezioneBanco, EsportaSelezioneRigheDiComandoPerUnCadEsterno) {
  const int32_t p = MettiPunto(s, "A,B", 1.5, 2.25, 3);
  s.PuntoSpoY[static_cast<size_t>(p)] = 0.5;
  MettiPunto(s, "FUORI", 100, 100);
  MettiLinea(s, 0, 0, 10, -2.5, 0, 1);
  MettiCerchio(s, 5, 5, 2);
  MettiTesto(s, 3, 3, "NON ESPORTATO");
  Pronto(5, 5, 50);
  Script("TAG X\nPRESS Finestra\nCLICK left 20 20\nCLICK left -1 -3\nPRESS OK\n");
  EXPECT_EQ(s.Clip->Leggi(),
            "_point 1.5,2.25,3.0\r"
            "_text 2.5,2.75 1.0 0 A.B\r"
            "_line 0.0,0.0,0.0 10.0,-2.5,1.0 \r"
            "_circle 5.0,5.0 2.0\r");
  // The export changes nothing: the command comes back for another selection.
  EXPECT_EQ(std::make_tuple(s.ComandoCorrente, ContaSelezionati(s)), std::make_tuple(218, 0));
}

}  // namespace
}  // namespace varena
