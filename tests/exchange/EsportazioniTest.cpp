// The exports of the example job against files written from the formats' descriptions by
// tests/data/esportazioni/attesi.py; their round trip through the point readers; the CAD
// script read back by a parser of its commands.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <sstream>
#include <tuple>

#include "Terminale.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Esportazioni.h"
#include "exchange/PuntiFile.h"
#include "selection/Selezione.h"
#include "support/ProvaCli.h"
#include "support/Supporto.h"

namespace varena {
namespace {

const std::string kLavoro = std::string(VARENA_SORGENTI) + "/examples/RILIEVO.CFG";
const std::string kAttesi = std::string(VARENA_SORGENTI) + "/tests/data/esportazioni/";

TEST(Esportazioni, LavoroDiEsempioComeIFileScrittiAMano) {
  prova::CartellaTemporanea t;
  const std::vector<std::vector<std::string>> casi = {
      {"xyz", "RILIEVO.XYZ"},      {"xyz", "RILIEVO_4.XYZ", "--decimali", "4"},
      {"csv", "RILIEVO.CSV"},      {"raw", "RILIEVO.RAW"},
      {"pun", "RILIEVO.PUN"},      {"gsi", "RILIEVO.GSI"},
      {"ril", "RILIEVO.RIL"},      {"gsi-tcr705", "RILIEVO_TCR705.GSI"},
      {"gsi", "RILIEVO_NORD.GSI", "--ordina", "-Nord"}};
  for (const auto& c : casi) {
    std::vector<std::string> arg = {"export", kLavoro, t / c[1], "--format", c[0]};
    arg.insert(arg.end(), c.begin() + 2, c.end());
    const prova::EsitoCli e = prova::Cli(arg);
    ASSERT_EQ(e.stato, 0) << e.err;
    EXPECT_EQ(prova::LeggiFileProva(t / c[1]), prova::LeggiFileProva(kAttesi + c[1])) << c[1];
  }
}

// The example job, read as the command line reads it.
class EsportazioniEsempio : public ::testing::Test {
 protected:
  Sessione s;
  void SetUp() override {
    std::ostringstream err;
    ASSERT_TRUE(cli::CaricaInLettura(s, kLavoro, err)) << err.str();
  }
};

TEST_F(EsportazioniEsempio, ScriptRilettoDaUnParserDeiComandi) {
  const std::vector<std::string> righe = RigheTesto(TestoEsportazione(s, FormatoEsportazione::Scr, {}));
  ASSERT_GE(righe.size(), 8u);
  EXPECT_EQ(righe[6], "-LAYER CORRENTE LINEE_TRIANGOLO");
  EXPECT_EQ(righe.back(), "_zoom E");
  std::map<std::string, std::vector<std::vector<double>>> comandi;
  for (const std::string& r : righe) {
    std::istringstream in(r);
    std::string parola, coppia;
    in >> parola;
    std::vector<double> numeri;
    while (in >> coppia && numeri.size() < 8)
      for (const std::string& n : Dividi(coppia, ',')) numeri.push_back(n == "_c" || n == "_a" ? NAN : Val(n));
    comandi[parola].push_back(numeri);
  }
  ASSERT_EQ(comandi["_point"].size(), 20u);
  EXPECT_EQ(comandi["_point"][3], (std::vector<double>{1725300, 5031200, 14.35}));
  ASSERT_EQ(comandi["_line"].size(), 12u);
  EXPECT_EQ(comandi["_line"][11], (std::vector<double>{1725300, 5031200, 14.35, 1725345.213, 5031212.688, 14.612}));
  ASSERT_EQ(comandi["_circle"].size(), 2u);
  EXPECT_EQ(comandi["_circle"][1], (std::vector<double>{1725305.87, 5031231.44, 2.5}));
  // The arc of radius 10 about (1725291.88, 5031195.35) from azimuth 200 clockwise through
  // 100 gon runs anticlockwise from West to South: 90 degrees from (1725281.88, 5031195.35).
  ASSERT_EQ(comandi["_arc"].size(), 1u);
  const std::vector<double>& a = comandi["_arc"][0];
  EXPECT_DOUBLE_EQ(a[1], 1725291.88);
  EXPECT_NEAR(a[3], 1725281.88, 1e-6);
  EXPECT_NEAR(a[4], 5031195.35, 1e-6);
  EXPECT_EQ(a[6], 90);
  ASSERT_EQ(comandi["_text"].size(), 4u);
  EXPECT_NE(righe[righe.size() - 4].find("STRADA COMUNALE DEL MOLINO"), std::string::npos);
}

TEST_F(EsportazioniEsempio, CsvDelDisegnoRigheDaiCampiDelLavoro) {
  // The rows as `varena-cli dump` shows the example job's fields, in the columns' order.
  const std::vector<std::string> r = RigheTesto(TestoEsportazione(s, FormatoEsportazione::CsvDisegno, {}));
  ASSERT_EQ(r.size(), 53u);
  EXPECT_EQ(r[4], "0,100,10,0,-1.5,STAZIONE,60,0,-1.5,1725300,5031200,14.35,0.3,0.3,-0.6,66,21,0,-1.5,32,0,-1.5,12,"
                  "PUNTI,Arial,0,1.54999995231628");
  EXPECT_EQ(r[21], "LINEA,IDent,X1,Y1,Z1,X2,Y2,Z2,Colore,Tratteggio,Congela,Piano,Tronca");
  EXPECT_EQ(r[33], "0,1725300,5031200,14.35,1725345.213,5031212.688,14.612,6,3,0,\"POLIGON\",0");
  EXPECT_EQ(r[38], "ARCO");
  EXPECT_EQ(r[40], "0,1725291.88,5031195.35,14.1,10,200,100,8,1,0,\"STRADA\",0,14.102,14.15");
  EXPECT_EQ(r[44], "0,1725318,5031182,6.5,2,1,8,0,1,\"TESTI\",\"Arial\",\"STRADA COMUNALE DEL MOLINO\"");
  EXPECT_EQ(r[51], "0,\"|101|102|103|104|101|\",\"FABBRICATO\",\"245|||5031227|1725326\",1,1");
}

TEST(Esportazioni, VirgolaNomeLungoNordNegativoRigaEliminata) {
  Sessione s;
  ScriviPunto(s, "A,123456789", {1.5, -2.25, 0.0005}, "muro, nord", "0");
  ScriviPunto(s, "B", {1, 1, 1}, "", "0");
  s.PuntoIdent[1] = -1;
  EXPECT_EQ(TestoEsportazione(s, FormatoEsportazione::Csv, {0, 1}), "A.123456789,-2.250,1.500,0.001,muro. nord\r\n");
  EXPECT_EQ(TestoEsportazione(s, FormatoEsportazione::Gsi, {0}),
            "*110001+0000000023456789 81..10+0000000000001500 82..10-0000000000002250 83..10+0000000000000001 "
            "71....+00000001 \r\n");
  EXPECT_EQ(TestoNpl(s, {0}), "A,123456789,-2.25,1.50,0.00,\r\n");
}

TEST(Esportazioni, SceltePunRicordate) {
  prova::SessioneProva p;
  SalvaOpzioniPun(p.s, {.Colonne = {1, 4}, .Separatore = "TAB", .Anteponi = true});
  Sessione dopo;
  prova::PreparaSessione(dopo, p.ui, p.cartella);
  const OpzioniEsportazione o = OpzioniPunSalvate(dopo);
  EXPECT_EQ(std::tie(o.Colonne, o.Separatore, o.Anteponi, o.SepFinale),
            std::make_tuple(std::vector<int>{1, 4}, std::string("TAB"), true, false));
}

TEST(Esportazioni, MenuScegliePuntiPrimaDelFile) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  for (const double k : {0.0, 1.0, 2.25}) ScriviPunto(s, "P", {10 + k, 20 + k, 1.5}, "", "0");
  EseguiTag(s, "ESPORTAINCSV");  // a cancel asks for no file
  EXPECT_EQ(s.AzionePuntiInAttesa, 420);
  ASSERT_TRUE(PremiBottone(s, "SelezPunti", "Annulla"));
  EXPECT_TRUE(p.ui.SceltePresentate.empty());
  // The points chosen in table order, with the decimals the dialog sets for the job.
  EseguiTag(s, "ESPORTAXYZ");
  for (const int32_t r : {2, 0}) MarcaEntita(s, SlotPunti, r);
  ASSERT_TRUE(ScriviCampo(s, "SelezPunti", "Decimali", "2"));
  p.ui.RispondiFile(p.cartella / "P.XYZ");
  ASSERT_TRUE(PremiBottone(s, "SelezPunti", "OK"));
  EXPECT_EQ(prova::LeggiFileProva(p.cartella / "P.XYZ"), "10.00 20.00 1.50\r\n12.25 22.25 1.50\r\n");
  EXPECT_EQ(s.AzionePuntiInAttesa, 0);
  // The setting goes with the job's settings and comes back from them.
  LettoreLista in(ScriviBloccoB(s.Cfg.B));
  s.Cfg = CfgLavoro();
  LeggiBloccoB(in, s.Cfg.B);
  EXPECT_EQ(DecimaliEsportazione(s), 2);
  LettoreLista altro(ScriviBloccoB(CfgLavoro().B));  // another job's, which never set it
  LeggiBloccoB(altro, s.Cfg.B);
  EXPECT_EQ(DecimaliEsportazione(s), 0);
  p.ui.NomiProposti.clear();
  EsportaElencoPunti(s, FormatoEsportazione::GsiTcr705, {});  // its file offered under the maker's name
  EXPECT_EQ(p.ui.NomiProposti, std::vector<std::string>{"Leica.GSI"});
}

}  // namespace
}  // namespace varena
