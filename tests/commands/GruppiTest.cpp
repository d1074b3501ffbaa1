// Groups: the file as written by hand from the record letters, and the paste at another base.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <tuple>

#include "commands/Gruppi.h"
#include "support/ProvaCli.h"
#include "selection/Selezione.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

using namespace prova;

TEST(Gruppi, FileScrittoAManoEIncollatoInAltroLavoro) {
  Banco a;
  MettiPunto(a.s, "1", 10.5, 20.25, 5);
  const auto l = static_cast<size_t>(MettiLinea(a.s, 10, 20, 13, 24, 1, 2));
  a.s.LineaColore[l] = 3, a.s.LineaPiano[l] = "MURI";
  MettiCerchio(a.s, 12, 22, 1.5);
  MettiArco(a.s, 11, 21, 2, 50, 100);
  MettiTesto(a.s, 14, 25, "CASA, \"bella\"");
  MettiLinea(a.s, 0, 0, 1, 1);                          // not selected
  a.s.LineaIdent[static_cast<size_t>(MettiLinea(a.s, 0, 0, 2, 2))] = -1;  // deleted
  SelezionaTutto(a.s);
  MarcaEntita(a.s, SlotLinee, 1, 0);
  ASSERT_TRUE(ScriviGruppo(a.s, "CASA", {10, 20, 0}));
  // The point's fields in the order of its record, the others as their letters list them;
  // a quote inside a text ends the item, as the list form reads it.
  EXPECT_EQ(LeggiFileProva(a.s.CartellaLavoro + "GRUPPI/CASA.GGG"),
            "\"I\",10,20,0\r\n"
            "\"P\",\"1\",\"\",10.5,20.25,5,1,1,1,1,0,0,0,1,1,0,0,\"0\",0,0,0,1,0,1,\"Arial\",0,0\r\n"
            "\"L\",10,20,1,13,24,2,3,1,\"MURI\"\r\n"
            "\"C\",12,22,0,1.5,1,1,\"0\"\r\n"
            "\"A\",11,21,0,2,50,100,1,1,\"0\"\r\n"
            "\"T\",14,25,0,1,1,\"0\",\"CASA, \"bella\"\",\"\"\r\n");

  Banco b;
  ApriLavoroVuoto(b);
  MettiPunto(b.s, "1", 0, 0, 0);
  std::filesystem::create_directories(b.s.CartellaLavoro + "GRUPPI");
  ScriviFileProva(b.s.CartellaLavoro + "GRUPPI/CASA.GGG", LeggiFileProva(a.s.CartellaLavoro + "GRUPPI/CASA.GGG"));
  const int64_t passo = PassoUndo(b.s);
  EXPECT_EQ(IncollaGruppo(b.s, "CASA", 110, 220), 5);
  EXPECT_EQ(PassoUndo(b.s), passo + 1);
  // Every position moved by (100, 200), heights and attributes as stored, the name taken
  // by the job's own point moved on.
  EXPECT_EQ(std::tie(b.s.PuntoNome[1], b.s.PuntoX[1], b.s.PuntoY[1], b.s.PuntoZ[1], b.s.PuntoFont[1]),
            std::make_tuple("2", 110.5, 220.25, 5.0, "Arial"));
  EXPECT_EQ(std::tie(b.s.LineaX1[0], b.s.LineaY1[0], b.s.LineaZ1[0], b.s.LineaX2[0], b.s.LineaY2[0], b.s.LineaZ2[0],
                     b.s.LineaColore[0], b.s.LineaPiano[0]),
            std::make_tuple(110.0, 220.0, 1.0, 113.0, 224.0, 2.0, 3, "MURI"));
  EXPECT_EQ(std::tie(b.s.CerchioX[0], b.s.CerchioY[0], b.s.CerchioRaggio[0]), std::make_tuple(112.0, 222.0, 1.5));
  EXPECT_EQ(std::tie(b.s.ArcoX[0], b.s.ArcoY[0], b.s.ArcoInizio[0], b.s.ArcoFine[0]),
            std::make_tuple(111.0, 221.0, 50.0, 100.0));
  EXPECT_EQ(std::tie(b.s.TestoX[0], b.s.TestoY[0], b.s.TestoTesto[0]), std::make_tuple(114.0, 225.0, "CASA, "));

  EXPECT_EQ(IncollaGruppo(b.s, "NESSUNO", 0, 0), -1);
  EXPECT_EQ(b.ui.UltimoMessaggio, " Gruppo Non Trovato!");
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

}  // namespace
}  // namespace varena
