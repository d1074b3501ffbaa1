// The group and symbol commands run click by click, from their dialog and tags.
#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "core/SimboliUtente.h"

namespace varena {
namespace {

using namespace prova;

struct ComandiGruppi : BancoProva {};

TEST_F(ComandiGruppi, SalvatoDalDialogoEIncollatoAdOgniClic) {
  ApriLavoroVuoto(*this);
  MettiPunto(s, "1", 12, 23, 5);
  MettiLinea(s, 10, 20, 13, 24);
  Pronto(10, 20, 100);
  const std::string salva = Script(
      "TAG GESTIONE_GRUPPI\nFIELD GestioneGruppi.Nome CASA\nPRESS Nuovo\nCLICK left 10 20\nPRESS Tutto\nPRESS OK\n");
  EXPECT_TRUE(Contiene(salva, "PROMPT Nuovo Gruppo - Punto di Inserimento :\n> CLICK left 10 20\n"));
  EXPECT_EQ(LeggiFileProva(s.CartellaLavoro + "GRUPPI/CASA.GGG"),
            "\"I\",10,20,0\r\n"
            "\"P\",\"1\",\"\",12,23,5,1,1,1,1,0,0,0,1,1,0,0,\"0\",0,0,0,1,0,1,\"Arial\",0,0\r\n"
            "\"L\",10,20,0,13,24,0,1,1,\"0\"\r\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
  // The same name again asks before it overwrites; "no" leaves the dialog open.
  EXPECT_TRUE(Contiene(Script("TAG GESTIONE_GRUPPI\nFIELD GestioneGruppi.Nome CASA\nANSWER no\nPRESS Nuovo\n"),
                       "DOMANDA [Gruppo Esistente!] Gruppo CASA Esistente! | Sovrascrivere? -> NO\n"));
  // Two pastes: every position moved by the click less the base, the names made free.
  Script("PRESS GestioneGruppi.Incolla\nCLICK left 110 220\nCLICK left 10 30\n");
  ASSERT_EQ(s.ContaEntita[SlotPunti], 3);
  EXPECT_EQ(std::tie(s.PuntoNome[1], s.PuntoX[1], s.PuntoY[1], s.PuntoZ[1]), std::make_tuple("2", 112.0, 223.0, 5.0));
  EXPECT_EQ(std::tie(s.PuntoNome[2], s.PuntoX[2], s.PuntoY[2]), std::make_tuple("3", 12.0, 33.0));
  ASSERT_EQ(s.ContaEntita[SlotLinee], 3);
  EXPECT_EQ(Estremi(s, 2), (Valori{10, 30, 13, 34}));
  // Deleted after a "yes", the file goes and the list is empty.
  Script("TAG GESTIONE_GRUPPI\nANSWER yes\nPRESS Elimina\n");
  EXPECT_FALSE(std::filesystem::exists(s.CartellaLavoro + "GRUPPI/CASA.GGG"));
  EXPECT_EQ(TrovaDialogo(s, "GestioneGruppi")->Valore("GRUPPI"), "");
}

TEST_F(ComandiGruppi, SimboloNuovoDopoLaSelezioneDalClicDellOrigine) {
  MettiLinea(s, 0, 2, 2, 0);
  MettiLinea(s, 5, 5, 6, 6);
  Pronto(0, 0, 40);
  const std::string uscita = Script("TAG SIMBOLO_NUOVO\nPRESS TutteLinee\nPRESS OK\nANSWER 7\nCLICK left 0 0\n");
  EXPECT_TRUE(Contiene(uscita, "PROMPT Simbolo Nuovo - Punto di Inserimento :\n"));
  // The farthest end, (6, 6), is distance 1; the line's ends lie North and East of the origin.
  const auto righe = s.Simboli.Simbolo(7);
  ASSERT_EQ(righe.size(), 2u);
  EXPECT_TRUE(Vicini({righe[0].Distanza1, righe[0].Angolo1, righe[0].Distanza2, righe[0].Angolo2},
                     {2 / std::sqrt(72.0), 0, 2 / std::sqrt(72.0), 100}));
  EXPECT_EQ(s.ContaEntita[SlotLinee], 2);
}

TEST_F(ComandiGruppi, MenuSimboliSceglieIlSimboloDaIncollare) {
  s.Simboli.Righe = {{1, 1, 0, 1, 200, 0, 7}};
  s.Simboli.Indicizza();
  // A code that is no whole number is refused and the current symbol stays.
  const std::string uscita = Script(
      "TAG GESTIONE_SIMBOLI\nFIELD MenuSimboli.Simbolo 2.5\nPRESS Scegli\nFIELD MenuSimboli.Simbolo -7\nPRESS Incolla\n");
  EXPECT_TRUE(Contiene(uscita, "DIALOGO + MenuSimboli [Selezione Simbolo] Simbolo=\"1\" SIMBOLI=\"-7 | 0 | 2 | 3 | 4 | 5 | \""));
  EXPECT_TRUE(Contiene(uscita, "Simbolo non valido"));
  // The paste hands the symbol chosen to the selection of the points it goes on.
  EXPECT_TRUE(Contiene(uscita, "> PRESS Incolla\nDIALOGO - MenuSimboli\nDIALOGO + SelezPunti [Selezione Punti] "
                               "Selezione=\"0\" Modo=\"Aggiungi\" Simbolo=\"-7\""));
  // Deleted after a "yes", the file keeps its count line alone and the list its own bases.
  Script("TAG GESTIONE_SIMBOLI\nFIELD MenuSimboli.Simbolo -7\nANSWER yes\nPRESS Elimina\n");
  EXPECT_EQ(LeggiFileProva(PercorsoSimboli(s)), "0\r\n");
  EXPECT_EQ(TrovaDialogo(s, "MenuSimboli")->Valore("SIMBOLI"), "0\n2\n3\n4\n5\n");
}

}  // namespace
}  // namespace varena
