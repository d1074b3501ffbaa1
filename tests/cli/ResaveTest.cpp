// varena-cli resave: open, snapshot, save back or save as, and the list of what was written.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include "support/ProvaCli.h"

namespace varena {
namespace {

using prova::Cli;
using prova::Esiste;
using Esito = prova::EsitoCli;
using prova::LeggiFileProva;

class Resave : public ::testing::Test, public prova::RadiceCli {
 protected:
  const std::string cfg = prova::CfgNuovo();
  void SetUp() override {
    prova::ScriviFileProva(lavori + "rossi.cfg", cfg);
    prova::ScriviFileProva(lavori + "rossi.lll", prova::RecordPuntoBase("101", 1725000, 5031000, 14).Byte());
  }
};

// The current folder for the life of the object.
struct InCartella {
  std::filesystem::path prima = std::filesystem::current_path();
  explicit InCartella(const std::string& cartella) { std::filesystem::current_path(cartella); }
  ~InCartella() { std::filesystem::current_path(prima); }
};

TEST_F(Resave, SalvaAlSuoPostoEDiceCosaHaScritto) {
  const Esito e = Cli({"resave", lavori + "Rossi.CFG"});
  ASSERT_EQ(e.stato, 0) << e.err;
  // The job keeps the name its files have; the members take the extensions of the slot
  // table, and the files that stood become the backups.
  const std::string b = lavori + "rossi";
  EXPECT_EQ(e.out, b + ".LLL (256 byte)\n" + b + ".CFG (" + std::to_string(LeggiFileProva(b + ".CFG").size()) +
                           " byte)\n" + b + ".INF (" + std::to_string(b.size() + 4) + " byte)\n" + b +
                           ".TXT (106 byte)\n" + b + ".XVR (" + std::to_string(LeggiFileProva(b + ".XVR").size()) +
                           " byte)\n" + b + ".PIA (23 byte)\n");
  EXPECT_EQ(LeggiFileProva(b + ".CFK"), cfg);
  EXPECT_TRUE(Esiste(b + ".LLK"));
  EXPECT_FALSE(Esiste(lavori + "rossi.lll"));
  EXPECT_EQ(LeggiFileProva(b + ".LLL"), prova::RecordPuntoBase("101", 1725000, 5031000, 14).Byte());
  EXPECT_EQ(LeggiFileProva(radice / "VR2000/LavoriRecenti.txt"), b + ".CFG\r\n");
  EXPECT_TRUE(prova::NomiIn(radice / "VR2000/PROVVISO").empty());
}

TEST_F(Resave, SalvaConUnAltroNome) {
  const Esito e = Cli({"resave", lavori + "rossi", "--as", lavori + "bianchi.cfg"});
  ASSERT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out.substr(0, lavori.size() + 11), lavori + "BIANCHI.LLL");
  EXPECT_TRUE(Esiste(lavori + "BIANCHI.LLK"));  // the old job copied there first
  EXPECT_TRUE(Esiste(lavori + "rossi.lll"));
  EXPECT_EQ(LeggiFileProva(lavori + "BIANCHI.INF"), "\"" + lavori + "BIANCHI\"\r\n");
  // Saving over it again asks, and the command line answers yes.
  const Esito ancora = Cli({"resave", lavori + "rossi.cfg", "--as=" + lavori + "BIANCHI.CFG"});
  ASSERT_EQ(ancora.stato, 0) << ancora.err;
  EXPECT_NE(ancora.err.find("Salva Con Nome ...: Il file :\r\n" + lavori + "BIANCHI\r\nè esistente!"), std::string::npos);
}

TEST_F(Resave, ParteComeIlProgrammaConLeImpostazioniDellUtente) {
  // The drawing defaults the last job left: zoom step 77, view 1,2,3 (block B to statement 17).
  std::filesystem::create_directories(radice / "VR2000");
  prova::ScriviFileProva(radice / "VR2000/SALVAINI.INI",
                         "77\r\n7\r\n1,1,0,1,1\r\n\"Arial\"\r\n5,0\r\n3\r\n\"0\"\r\n0\r\n1.7\r\n\"\",\"\"\r\n"
                         "\"\"\r\n1\r\n0\r\n0\r\n1,2,3\r\n\"\"\r\n0\r\n");
  // An older edition has no block B: the job takes those defaults, as it does in the program.
  prova::ScriviFileProva(lavori + "rossi.cfg", "\"VR1999\"\r\n" + prova::BloccoAManuale());
  const Esito e = Cli({"resave", lavori + "rossi"});
  ASSERT_EQ(e.stato, 0) << e.err;
  const std::vector<std::string> righe = RigheTesto(LeggiFileProva(lavori + "rossi.CFG"));
  ASSERT_EQ(righe.size(), 1u + 152u + 24u);
  EXPECT_EQ(righe[153], "77");     // block B, statement 1
  EXPECT_EQ(righe[167], "1,2,3");  // statement 15
  EXPECT_EQ(LeggiFileProva(radice / "VR2000/SALVAINI.INI").substr(0, 4), "77\r\n");
}

TEST_F(Resave, PercorsiRelativiResiAssoluti) {
  std::filesystem::create_directories(radice / "VR2000/LAVORI/NUOVO");
  prova::ScriviFileProva(radice / "VR2000/LAVORI/NUOVO/NUOVO.CFG", cfg);
  std::filesystem::create_directory_symlink(radice / "VR2000", radice / "collegamento");
  Esito nuovo, collegato, verdi;
  {
    InCartella qui(lavori);
    nuovo = Cli({"resave", "../VR2000/LAVORI/../LAVORI/NUOVO/NUOVO"});
    collegato = Cli({"resave", radice / "collegamento/LAVORI/NUOVO/NUOVO"});
    verdi = Cli({"resave", "./rossi.cfg", "--as", "../lavori/verdi"});
  }
  // The default job, however it is spelt or reached, is never saved over in place: only
  // under a name.
  EXPECT_EQ(std::tie(nuovo.stato, nuovo.out, collegato.stato), std::make_tuple(2, "", 2));
  EXPECT_NE(nuovo.err.find("Nulla salvato"), std::string::npos);
  EXPECT_EQ(prova::NomiIn(radice / "VR2000/LAVORI/NUOVO"), std::vector<std::string>{"NUOVO.CFG"});
  // A job is recorded by a name that means the same from any folder.
  ASSERT_EQ(verdi.stato, 0) << verdi.err;
  EXPECT_EQ(LeggiFileProva(lavori + "VERDI.INF"), "\"" + lavori + "VERDI\"\r\n");
  EXPECT_EQ(LeggiFileProva(radice / "VR2000/LavoriRecenti.txt"), lavori + "VERDI.CFG\r\n");
}

TEST_F(Resave, UnCfgLettoConErroreRestaComEraConIlSuoBackup) {
  // A quote left open on line 4: read on, every later item would stand one place late. And a
  // file that ends early.
  std::string rotto = prova::CfgManuale("VR2020", "1725000,5031000,50");
  rotto.replace(rotto.find("\"\",\"x\"\r\n"), 8, "\"\",\"x\r\n");
  const std::string troncato = "\"VR2020\"\r\n\"\",1\r\n\"\",2\r\n";
  const std::string punto = prova::RecordPuntoBase("101", 1725000, 5031000, 14).Byte();
  for (const auto& [guasto, errore] :
       {std::pair{rotto, "Type mismatch: riga 4"}, {troncato, "Input past end of file"}}) {
    std::filesystem::remove_all(lavori);
    std::filesystem::create_directories(lavori);
    prova::ScriviFileProva(lavori + "rossi.cfg", guasto);
    prova::ScriviFileProva(lavori + "rossi.CFK", cfg);  // the good settings of the save before
    prova::ScriviFileProva(lavori + "rossi.lll", punto);
    const Esito e = Cli({"resave", lavori + "rossi"});
    EXPECT_EQ(e.stato, 2);
    EXPECT_NE(e.err.find(std::string("Rilevato errore: Si è verificato questo errore : ") + errore +
                         " o il file potrebbe essere di sola lettura!\nNella Routine CaricaCFGProvvisorio\n"),
              std::string::npos);
    EXPECT_NE(e.err.find("Salva Lavoro: Questi file del Lavoro, letti con un errore, non sono stati salvati e restano "
                         "com'erano:\nrossi.cfg\n"),
              std::string::npos)
        << e.err;
    // The file as it stood, under its own name, and the good backup beside it.
    EXPECT_EQ(LeggiFileProva(lavori + "rossi.cfg"), guasto);
    EXPECT_EQ(LeggiFileProva(lavori + "rossi.CFK"), cfg);
    EXPECT_FALSE(Esiste(lavori + "rossi.CFG"));
    EXPECT_EQ(e.out.find(".CFG"), std::string::npos);
    // The other members are saved as ever.
    EXPECT_EQ(LeggiFileProva(lavori + "rossi.LLK"), punto);
    EXPECT_EQ(LeggiFileProva(lavori + "rossi.LLL"), punto);
  }
}

TEST_F(Resave, UnSalvataggioInterrottoInfoLoDiceResaveLoCompleta) {
  // A save cut short as soon as its journal stood: the new members wait beside the originals.
  const std::string spostato = prova::RecordPuntoBase("101", 1725001, 5031000, 14).Byte();
  prova::ScriviFileProva(lavori + "rossi.LLL.~nuovo", spostato);
  prova::ScriviFileProva(lavori + "rossi.CFG.~nuovo", cfg);
  auto inode = [&](const std::string& nome) {
    struct stat st {};
    EXPECT_EQ(::stat((lavori + nome).c_str(), &st), 0);
    return std::to_string(st.st_ino);
  };
  prova::ScriviFileProva(lavori + "rossi.~salvataggio",
                         "\"VR2020 SALVATAGGIO\"\r\n"
                         "\"rossi.lll\",\"\",\"rossi.LLK\",\"rossi.LLL.~nuovo\",\"rossi.LLL\",\"256\",\"" +
                             inode("rossi.LLL.~nuovo") +
                             "\"\r\n"
                             "\"rossi.cfg\",\"\",\"rossi.CFK\",\"rossi.CFG.~nuovo\",\"rossi.CFG\",\"" +
                             std::to_string(cfg.size()) + "\",\"" + inode("rossi.CFG.~nuovo") + "\"\r\n");
  const std::vector<std::string> lasciati = prova::NomiIn(lavori);
  // Reading writes nothing: it says what the opening will do, and that what it shows is partial.
  const Esito letto = Cli({"info", lavori + "rossi"});
  EXPECT_EQ(letto.stato, 2);
  EXPECT_EQ(letto.err,
            "Salvataggio interrotto: L'ultimo salvataggio del Lavoro rossi si era interrotto: alla prossima apertura "
            "sarà completato; ora i file sono letti come stanno.\n");
  EXPECT_EQ(prova::NomiIn(lavori), lasciati);
  // Opening completes it, and the save goes on from there.
  const Esito e = Cli({"resave", lavori + "rossi"});
  ASSERT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.err.rfind("Salvataggio interrotto: L'ultimo salvataggio del Lavoro rossi si era interrotto: è stato "
                        "completato, il Lavoro è quello salvato.\n",
                        0),
            0u)
      << e.err;
  EXPECT_EQ(LeggiFileProva(lavori + "rossi.LLL"), spostato);
  EXPECT_EQ(LeggiFileProva(lavori + "rossi.LLK"), spostato);
  EXPECT_FALSE(Esiste(lavori + "rossi.lll"));
  EXPECT_FALSE(Esiste(lavori + "rossi.~salvataggio"));
}

TEST_F(Resave, ErroriDUso) {
  EXPECT_EQ(Cli({"resave"}).stato, 64);
  EXPECT_EQ(Cli({"resave", lavori + "rossi", "--as"}).stato, 64);
  const Esito e = Cli({"resave", lavori + "manca.cfg"});
  EXPECT_EQ(std::tie(e.stato, e.err), std::make_tuple(1, "Lavoro non trovato: " + lavori + "manca.cfg\n"));
}

}  // namespace
}  // namespace varena
