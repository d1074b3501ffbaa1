// Groups and symbols. A group saved from its dialog, its file checked as written by hand
// from the record letters, pasted at each click; a file without a base, or damaged; a
// section taken by a window. The symbol commands run click by click.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <tuple>

#include "commands/Attese.h"
#include "commands/Gruppi.h"
#include "core/Dialoghi.h"
#include "core/SimboliUtente.h"
#include "selection/Selezione.h"
#include "support/ProvaCli.h"

namespace varena {
namespace {

using namespace prova;

struct ComandiGruppi : BancoProva {};

TEST_F(ComandiGruppi, SalvatoDalDialogoScrittoComeAManoEIncollatoAdOgniClic) {
  ApriLavoroVuoto(*this);
  MettiPunto(s, "1", 10.5, 20.25, 5);
  const auto l = static_cast<size_t>(MettiLinea(s, 10, 20, 13, 24, 1, 2));
  s.LineaColore[l] = 3, s.LineaPiano[l] = "MURI";
  MettiCerchio(s, 12, 22, 1.5);
  MettiArco(s, 11, 21, 2, 50, 100);
  MettiTesto(s, 14, 25, "CASA, \"bella\"");
  s.LineaIdent[static_cast<size_t>(MettiLinea(s, 0, 0, 2, 2))] = -1;  // deleted
  Pronto(10, 20, 100);
  const std::string salva = Script(
      "TAG GESTIONE_GRUPPI\nFIELD GestioneGruppi.Nome CASA\nPRESS Nuovo\nCLICK left 10 20\nPRESS Tutto\nPRESS OK\n");
  EXPECT_TRUE(Contiene(salva, "PROMPT Nuovo Gruppo - Punto di Inserimento :\n> CLICK left 10 20\n"));
  // The point's fields in the order of its record, the others as their letters list them;
  // a quote inside a text ends the item, as the list form reads it.
  EXPECT_EQ(LeggiFileProva(s.CartellaLavoro + "GRUPPI/CASA.GGG"),
            "\"I\",10,20,0\r\n"
            "\"P\",\"1\",\"\",10.5,20.25,5,1,1,1,1,0,0,0,1,1,0,0,\"0\",0,0,0,1,0,1,\"Arial\",0,0\r\n"
            "\"L\",10,20,1,13,24,2,3,1,\"MURI\"\r\n"
            "\"C\",12,22,0,1.5,1,1,\"0\"\r\n"
            "\"A\",11,21,0,2,50,100,1,1,\"0\"\r\n"
            "\"T\",14,25,0,1,1,\"0\",\"CASA, \"bella\"\",\"\"\r\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
  // The same name again asks before it overwrites; "no" leaves the dialog open.
  EXPECT_TRUE(Contiene(Script("TAG GESTIONE_GRUPPI\nFIELD GestioneGruppi.Nome CASA\nANSWER no\nPRESS Nuovo\n"),
                       "DOMANDA [Gruppo Esistente!] Gruppo CASA Esistente! | Sovrascrivere? -> NO\n"));
  // Two pastes, one undo generation each: every position moved by the click less the base,
  // heights and attributes as stored, the names made free.
  const int64_t passo = PassoUndo(s);
  Script("PRESS GestioneGruppi.Incolla\nCLICK left 110 220\nCLICK left 10 30\n");
  ASSERT_EQ(std::make_tuple(PassoUndo(s), s.ContaEntita[SlotPunti], s.ContaEntita[SlotLinee], s.ContaEntita[SlotCerchi],
                            s.ContaEntita[SlotArchi], s.ContaEntita[SlotTesti]),
            std::make_tuple(passo + 2, 3, 4, 3, 3, 3));
  EXPECT_EQ(std::tie(s.PuntoNome[1], s.PuntoX[1], s.PuntoY[1], s.PuntoZ[1], s.PuntoFont[1]),
            std::make_tuple("2", 110.5, 220.25, 5.0, "Arial"));
  EXPECT_EQ(std::tie(s.PuntoNome[2], s.PuntoX[2], s.PuntoY[2]), std::make_tuple("3", 10.5, 30.25));
  EXPECT_EQ(std::tie(s.LineaX1[2], s.LineaY1[2], s.LineaZ1[2], s.LineaX2[2], s.LineaY2[2], s.LineaZ2[2],
                     s.LineaColore[2], s.LineaPiano[2]),
            std::make_tuple(110.0, 220.0, 1.0, 113.0, 224.0, 2.0, 3, "MURI"));
  EXPECT_EQ(Estremi(s, 3), (Valori{10, 30, 13, 34}));
  EXPECT_EQ(std::tie(s.CerchioX[1], s.CerchioY[1], s.CerchioRaggio[1]), std::make_tuple(112.0, 222.0, 1.5));
  EXPECT_EQ(std::tie(s.ArcoX[1], s.ArcoY[1], s.ArcoInizio[1], s.ArcoFine[1]), std::make_tuple(111.0, 221.0, 50.0, 100.0));
  EXPECT_EQ(std::tie(s.TestoX[1], s.TestoY[1], s.TestoTesto[1]), std::make_tuple(114.0, 225.0, "CASA, "));
  // Deleted after a "yes", the file goes and the list is empty.
  Script("TAG GESTIONE_GRUPPI\nANSWER yes\nPRESS Elimina\n");
  EXPECT_FALSE(std::filesystem::exists(s.CartellaLavoro + "GRUPPI/CASA.GGG"));
  EXPECT_EQ(TrovaDialogo(s, "GestioneGruppi")->Valore("GRUPPI"), "");
}

TEST(Gruppi, SenzaBaseSpostaDelClicERigaGuastaFermaLaLettura) {
  Banco b;
  // No `I`: the base is the origin. The short `L` stops the read; the `C` after it is lost.
  EXPECT_EQ(LeggiGruppo(b.s, "\"C\",1,2,3,4,5,6,\"X\"\r\n\"L\",1,2\r\n\"C\",0,0,0,1,1,1,\"0\"\r\n", 10, 20), 1);
  EXPECT_EQ(std::tie(b.s.ContaEntita[SlotCerchi], b.s.ContaEntita[SlotLinee], b.s.CerchioX[0], b.s.CerchioY[0],
                     b.s.CerchioZ[0], b.s.CerchioPiano[0]),
            std::make_tuple(1, 0, 11.0, 22.0, 3.0, "X"));
  // An unknown letter stops it too.
  EXPECT_EQ(LeggiGruppo(b.s, "\"Q\",1\r\n\"C\",0,0,0,1,1,1,\"0\"\r\n", 0, 0), 0);
  EXPECT_EQ(IncollaGruppo(b.s, "NESSUNO", 0, 0), -1);
  EXPECT_EQ(b.ui.UltimoMessaggio, " Gruppo Non Trovato!");
  // Only the selected rows are written.
  Banco c;
  MettiLinea(c.s, 0, 0, 1, 1);
  MettiLinea(c.s, 1, 1, 2, 2);
  MarcaEntita(c.s, SlotLinee, 1, 1);
  ASSERT_TRUE(ScriviGruppo(c.s, "UNA", {0, 0, 0}));
  EXPECT_EQ(LeggiFileProva(c.s.CartellaLavoro + "GRUPPI/UNA.GGG"), "\"I\",0,0,0\r\n\"L\",1,1,0,2,2,0,1,1,\"0\"\r\n");
}

TEST(Gruppi, SezionePresaDallaFinestraSalvataEIncollataSpostata) {
  // A section as its member holds it, drawn about its datum point (1000, 2000), far from the
  // example's survey: its frame is known only once it is drawn.
  const std::string blocco = LeggiFileProva(VARENA_SORGENTI "/tests/data/gruppi/F1.SEZ");
  CartellaTemporanea casa, dir;
  setenv("VARENA_DOCUMENTI", casa.Percorso().c_str(), 1);
  const std::string base = CopiaEsempio(dir / "lavori");
  ScriviFileProva(base + ".SEZ", blocco);
  const EsitoCli e = Cli({"gruppo", "salva", base + ".CFG", "SEZ", "--finestra", "900,1900,1100,2100"});
  unsetenv("VARENA_DOCUMENTI");
  EXPECT_EQ(e.out, casa / "VR2000/GRUPPI/SEZ.GGG" + ": 1 entita\n");
  const std::string gruppo = LeggiFileProva(casa / "VR2000/GRUPPI/SEZ.GGG");
  EXPECT_EQ(gruppo, "\"I\",900,1900,0\r\n\"S\"\r\n" + blocco);
  // Pasted with (100, 200) to add: its place on the sheet and its stations on the plan.
  Banco b;
  EXPECT_EQ(LeggiGruppo(b.s, gruppo + "\"C\",0,0,0,1,1,1,\"0\"\r\n", 1000, 2100), 2);
  ASSERT_EQ(std::tie(b.s.ContaEntita[SlotSezioni], b.s.ContaEntita[SlotCerchi]), std::make_tuple(1, 1));
  const Sezione& z = b.s.SezioneDati[0];
  EXPECT_EQ(std::tie(z.IndiceSezione, z.OrigineX, z.OrigineY, z.Stazioni[1].Nome, z.Stazioni[1].X, z.Stazioni[1].Y,
                     z.Stazioni[1].QuotaTerreno),
            std::make_tuple("F1", 1100.0, 2200.0, "B", 104.0, 206.0, 12.75));
  // A block cut short ends the read there.
  EXPECT_EQ(LeggiGruppo(b.s, gruppo.substr(0, gruppo.size() - 20), 0, 0), 0);
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
