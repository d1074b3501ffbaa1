// varena-cli info and dump on jobs built byte by byte.
#include <gtest/gtest.h>

#include "sections/FileSezioni.h"
#include "support/ProvaCli.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::Record;
using prova::ScriviFileProva;

using prova::Cli;
using Esito = prova::EsitoCli;

std::string Elenco(const std::string& cartella) {
  std::string e;
  for (const auto& f : fs::directory_iterator(cartella))
    e += f.path().filename().string() + ":" + std::to_string(fs::file_size(f.path())) + " ";
  return e;
}

class CliInfo : public ::testing::Test, public prova::RadiceCli {
 protected:
  std::string base = lavori + "Rossi";
  void SetUp() override {
    // A .CFG of edition VR2000 with no stored view: the job is framed at load, lines
    // included (the deleted point and the zero-length line are not).
    ScriviFileProva(base + ".cfg", prova::CfgManuale("VR2000", "0,0,0"));
    Record p1 = prova::RecordPuntoBase("PF01/0010/G693", 1725100.5, 5031200.25, 14.5);
    p1.I16(122, 12);  // the old palette maps 12 to 1
    Record p2 = prova::RecordPuntoBase("101", 1725110.5, 5031230.25, 15);
    Record p3 = prova::RecordPuntoBase("102", 9e9, 9e9, 0);
    p3.I16(0, -1);
    ScriviFileProva(base + ".lll", p1.Byte() + p2.Byte() + p3.Byte());
    Record l1(128), l2(128);
    l1.I16(0, 0).F64(2, 1725090).F64(10, 5031190).F64(26, 1725095).F64(34, 5031195).I16(50, 3).Car(84, 8, "0");
    l2.I16(0, 0).F64(2, 1).F64(10, 1).F64(18, 0).F64(26, 1).F64(34, 1).F64(42, 5);
    ScriviFileProva(base + ".LIN", l1.Byte() + l2.Byte());
    ScriviFileProva(base + ".HAT", "0,\"101|PF01/0010/G693\",\"COGO\",\"12\",4,1\r\n");
  }
};

TEST_F(CliInfo, JsonConValoriEsatti) {
  const std::string prima = Elenco(lavori);
  const Esito e = Cli({"info", lavori + "rossi", "--json"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out,
            "{\"lavoro\":\"" + base +
                "\",\"edizione\":\"VR2000\",\"conta\":{\"1\":3,\"2\":2,\"3\":0,\"4\":0,\"5\":0,\"6\":0,\"7\":1,\"9\":0,"
                "\"12\":0,\"13\":0},\"vivi\":{\"1\":2,\"2\":1,\"3\":0,\"4\":0,\"5\":0,\"6\":0,\"7\":1,\"9\":0,\"12\":0,"
                "\"13\":0},\"vista\":[1725100.25,5031210.125,40.25],\"ingombro\":[1725090,5031190,1725110.5,5031230.25],"
                "\"libretto\":2,\"piani\":1}\n");
  // Read in place: nothing is created beside the job, not even the default layer table.
  EXPECT_EQ(Elenco(lavori), prima);
}

// A section counts in the extent by the frame of its drawing, far from the rest here: from
// the datum at 5032000 the ground at 5 rises ten times (1:200 over 1:20), the frame adds
// three partial rows (3 x 1.6) at the right and six terrain texts (6 x 0.4) at the top.
TEST_F(CliInfo, LIngombroContaLeSezioni) {
  prova::SessioneProva p;
  Sezione z;
  z.Cfg = ConfigurazioneIniziale();
  z.Cfg.QuoteRosse = z.Cfg.NomeSezione.Disegna = z.Cfg.NumeroSezione.Disegna = 0;
  for (GruppoSezione* g : {&z.Cfg.NomiPunti, &z.Cfg.QuoteTerreno, &z.Cfg.DistanzeProgressive, &z.Cfg.DistanzeParziali})
    g->Disegna = 0;
  z.OrigineX = 1726000, z.OrigineY = 5032000;
  z.Stazioni = {{"A", 0, 0, 5, 5}, {"B", 30, 0, 5, 5}};
  AggiungiSezione(p.s, z);
  ScriviFileProva(base + ".SEZ", *ByteSezioni(p.s));
  const Esito e = Cli({"info", base, "--json"});
  EXPECT_NE(e.out.find("\"ingombro\":[1725090,5031190,1726034.8,5032052.4]"), std::string::npos) << e.out;
}

TEST_F(CliInfo, DumpDeiCampi) {
  Esito e = Cli({"dump", base + ".CFG", "7"});
  EXPECT_EQ(e.stato, 0);
  EXPECT_EQ(e.out,
            "{\"riga\":0,\"Ident\":0,\"Contorno\":\"101|PF01/0010/G693\",\"Commento\":\"COGO\",\"Particella\":\"12\","
            "\"Colore\":26,\"Tratteggio\":1}\n");
  e = Cli({"dump", base, "2"});
  EXPECT_EQ(e.out.substr(0, e.out.find('\n')),
            "{\"riga\":0,\"Ident\":0,\"X1\":1725090,\"Y1\":5031190,\"Z1\":0,\"X2\":1725095,\"Y2\":5031195,\"Z2\":0,"
            "\"Colore\":135,\"Tratteggio\":0,\"Congela\":0,\"quoted\":0,\"label offset\":0,\"Piano\":\"0\",\"Tronca\":0}");
  EXPECT_NE(e.out.find("{\"riga\":1,\"Ident\":-1,"), std::string::npos);
  e = Cli({"dump", base, "1"});
  for (const char* campo : {"\"Nome\":\"PF01/0010/G693\"", "\"Colore Simbolo\":1,", "\"Attendibilita\":12,"})
    EXPECT_NE(e.out.find(campo), std::string::npos) << campo;
}

TEST_F(CliInfo, LibrettoConICampiComeLoLeggeLaGrammatica) {
  std::string lunga = "2";
  for (int k = 1; k <= 301; ++k) lunga += "|" + std::to_string(k);
  ScriviFileProva(base + ".TXT", "0|010199|1|G693|0010|1|ROSSI|GEOMETRA|PADOVA|\r\n6|<EST>E1|\r\n"
                                 "7|3|101|102|NC|\r\n" + lunga + "|\r\n");
  Esito e = Cli({"libretto", base, "--json"});
  EXPECT_EQ(e.stato, 2);
  EXPECT_EQ(e.err, "Righe non divise: 1\n");
  EXPECT_EQ(e.out, "{\"lavoro\":\"" + base +
                       "\",\"rigaZero\":{\"data\":\"01011999\",\"campoDue\":\"1\",\"codiceComune\":\"G693\","
                       "\"nomeComune\":\"\",\"foglio\":\"0010\",\"dataBreve\":\"199\",\"anno\":\"1999\","
                       "\"fileEstratto\":\"E1\",\"codiceLibretto\":\"\",\"codiceIscrizione\":\"\"},\"righe\":[\n"
                       "{\"riga\":0,\"tipo\":0,\"testo\":\"0|010199|1|G693|0010|1|ROSSI|GEOMETRA|PADOVA|\",\"campi\":[\"0\","
                       "\"010199\",\"1\",\"G693\",\"0010\",\"1\",\"ROSSI\",\"GEOMETRA\",\"PADOVA\"],\"ultimo\":8,\"vertici\":0},\n"
                       "{\"riga\":1,\"tipo\":6,\"testo\":\"6|<EST>E1|\",\"campi\":[\"6\",\"<EST>E1\"],\"ultimo\":1,"
                       "\"vertici\":0},\n"
                       "{\"riga\":2,\"tipo\":7,\"testo\":\"7|3|101|102|NC|\",\"campi\":[\"7\",\"3\",\"101\",\"102\",\"NC\"],"
                       "\"ultimo\":4,\"vertici\":3},\n"
                       "{\"riga\":3,\"tipo\":2,\"testo\":\"" + lunga + "|\",\"errore\":\"Subscript out of range\"}]}\n");
  e = Cli({"libretto", base});
  EXPECT_EQ(e.out.substr(0, e.out.find("\n3\t")),
            "Libretto: 4 righe\nData: 01011999  Comune: G693  Foglio: 0010\n"
            "0\t0\t0|010199|1|G693|0010|1|ROSSI|GEOMETRA|PADOVA|\n\t1: 010199\n\t2: 1\n\t3: G693\n\t4: 0010\n\t5: 1\n"
            "\t6: ROSSI\n\t7: GEOMETRA\n\t8: PADOVA\n1\t6\t6|<EST>E1|\n\t1: <EST>E1\n2\t7\t7|3|101|102|NC|\n\t1: 3\n"
            "\t2: 101\n\t3: 102\n\t4: NC\n\tvertici: 3");
  EXPECT_NE(e.out.find("|301|\n\terrore: Subscript out of range\n"), std::string::npos);
  EXPECT_EQ(Cli({"libretto"}).stato, 64);
}

TEST_F(CliInfo, ErroriDiUsoEDiLettura) {
  Esito e = Cli({"info", lavori + "manca"});
  EXPECT_EQ(std::tie(e.stato, e.err), std::make_tuple(1, "Lavoro non trovato: " + lavori + "manca\n"));
  using Uso = std::vector<std::string>;
  for (const Uso& uso : std::vector<Uso>{{"dump", base, "8"}, {"dump", base, "-1"}, {"volare"}, {}})
    EXPECT_EQ(Cli(uso).stato, 64) << uso.size();
  // A garbage point file: the rows read stay, the box goes to stderr, the status says so.
  ScriviFileProva(base + ".CFG", "\"VR2020\"\r\n\"\",1\r\n");
  e = Cli({"info", base});
  EXPECT_EQ(e.stato, 2);
  EXPECT_NE(e.err.find("Rilevato errore: Si è verificato questo errore : Input past end of file"), std::string::npos);
  EXPECT_NE(e.out.find("Punti: 2 (righe 3)"), std::string::npos);
}

TEST(Esempio, IlGeneratoreRifaGliStessiByte) {
  const std::string generatore = std::string(VARENA_BINARI) + "/examples/varena-esempio";
  if (!fs::exists(generatore)) GTEST_SKIP() << "generator not built in this configuration";
  prova::CartellaTemporanea t;
  ASSERT_EQ(std::system((generatore + " " + t.Percorso()).c_str()), 0);
  int confrontati = 0;
  for (const auto& f : fs::directory_iterator(t.Percorso())) {
    const std::string nome = f.path().filename().string();
    EXPECT_EQ(prova::LeggiFileProva(f.path().string()),
              prova::LeggiFileProva(std::string(VARENA_SORGENTI) + "/examples/" + nome))
        << nome << " differs: rebuild the example with varena-esempio examples";
    ++confrontati;
  }
  EXPECT_EQ(confrontati, 10);
}

}  // namespace
}  // namespace varena
