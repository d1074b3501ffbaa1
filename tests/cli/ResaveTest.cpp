// varena-cli resave: open, snapshot, save back or save as, and the list of what was written.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "Comandi.h"
#include "core/CodicePagina.h"
#include "store/Cfg.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::Esiste;
using prova::LeggiFileProva;

class Resave : public ::testing::Test {
 protected:
  prova::CartellaTemporanea radice;
  std::string lavori;
  std::ostringstream out, err;
  std::string cfg;
  void SetUp() override {
    Sessione s;
    cfg = Utf8InCp1252(TestoCfg(s));
    ::setenv("VARENA_DOCUMENTI", radice.Percorso().c_str(), 1);
    lavori = radice / "lavori/";
    std::filesystem::create_directories(lavori);
    prova::ScriviFileProva(lavori + "rossi.cfg", cfg);
    prova::ScriviFileProva(lavori + "rossi.lll", prova::RecordPuntoBase("101", 1725000, 5031000, 14).Byte());
  }
  void TearDown() override { ::unsetenv("VARENA_DOCUMENTI"); }
  int Esegui(const std::vector<std::string>& a) { return cli::Esegui(a, out, err); }
};

TEST_F(Resave, SalvaAlSuoPostoEDiceCosaHaScritto) {
  ASSERT_EQ(Esegui({"resave", lavori + "Rossi.CFG"}), 0) << err.str();
  // The job keeps the name its files have; the members take the extensions of the slot
  // table, and the files that stood become the backups.
  const std::string b = lavori + "rossi";
  EXPECT_EQ(out.str(), b + ".LLL (256 byte)\n" + b + ".CFG (" + std::to_string(LeggiFileProva(b + ".CFG").size()) +
                           " byte)\n" + b + ".INF (" + std::to_string(b.size() + 4) + " byte)\n" + b +
                           ".TXT (106 byte)\n" + b + ".PIA (23 byte)\n");
  EXPECT_EQ(LeggiFileProva(b + ".CFK"), cfg);
  EXPECT_TRUE(Esiste(b + ".LLK"));
  EXPECT_FALSE(Esiste(lavori + "rossi.lll"));
  EXPECT_EQ(LeggiFileProva(b + ".LLL"), prova::RecordPuntoBase("101", 1725000, 5031000, 14).Byte());
  EXPECT_EQ(LeggiFileProva(radice / "VR2000/LavoriRecenti.txt"), b + ".CFG\r\n");
  EXPECT_TRUE(prova::NomiIn(radice / "VR2000/PROVVISO").empty());
}

TEST_F(Resave, SalvaConUnAltroNome) {
  ASSERT_EQ(Esegui({"resave", lavori + "rossi", "--as", lavori + "bianchi.cfg"}), 0) << err.str();
  EXPECT_EQ(out.str().substr(0, lavori.size() + 11), lavori + "BIANCHI.LLL");
  EXPECT_TRUE(Esiste(lavori + "BIANCHI.LLK"));  // the old job copied there first
  EXPECT_TRUE(Esiste(lavori + "rossi.lll"));
  EXPECT_EQ(LeggiFileProva(lavori + "BIANCHI.INF"), "\"" + lavori + "BIANCHI\"\r\n");
  // Saving over it again asks, and the command line answers yes.
  out.str("");
  ASSERT_EQ(Esegui({"resave", lavori + "rossi.cfg", "--as=" + lavori + "BIANCHI.CFG"}), 0) << err.str();
  EXPECT_NE(err.str().find("Salva Con Nome ...: Il file :\r\n" + lavori + "BIANCHI\r\nè esistente!"), std::string::npos);
}

TEST_F(Resave, ErroriDUso) {
  EXPECT_EQ(Esegui({"resave"}), 64);
  EXPECT_EQ(Esegui({"resave", lavori + "rossi", "--as"}), 64);
  EXPECT_EQ(Esegui({"resave", lavori + "manca.cfg"}), 1);
  EXPECT_NE(err.str().find("Lavoro non trovato: " + lavori + "manca.cfg"), std::string::npos);
  // The default job is only saved under a name.
  std::filesystem::create_directories(radice / "VR2000/LAVORI/NUOVO");
  prova::ScriviFileProva(radice / "VR2000/LAVORI/NUOVO/NUOVO.CFG", cfg);
  EXPECT_EQ(Esegui({"resave", radice / "VR2000/LAVORI/NUOVO/NUOVO.CFG"}), 2);
  EXPECT_NE(err.str().find("Nulla salvato"), std::string::npos);
  EXPECT_TRUE(out.str().empty());
}

}  // namespace
}  // namespace varena
