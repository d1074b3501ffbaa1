// Start-up: the folder tree, the command line, COMMON.CFG and the last job.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "core/Avvio.h"
#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::ScriviFileProva;

class Avvio : public ::testing::Test {
 protected:
  prova::CartellaTemporanea doc, prog, utente;
  InterfacciaRegistrata ui;
  Sessione s;
  void SetUp() override {
    setenv("VARENA_DOCUMENTI", doc.Percorso().c_str(), 1);
    setenv("VARENA_PROGRAMMA", prog.Percorso().c_str(), 1);
    s.Ui = &ui;
    s.Orologio = prova::OrologioFisso;
  }
  void TearDown() override {
    unsetenv("VARENA_DOCUMENTI");
    unsetenv("VARENA_PROGRAMMA");
  }
  // The example job copied into the user's folder `cartella` as RILIEVO.*
  std::string CopiaEsempio(const std::string& cartella) {
    fs::create_directories(cartella);
    for (const auto& f : fs::directory_iterator(std::string(VARENA_SORGENTI) + "/examples"))
      if (f.path().stem() == "RILIEVO") fs::copy_file(f.path(), cartella + "/" + f.path().filename().string());
    return cartella + "/RILIEVO";
  }
  std::string Comune() const { return doc.Percorso() + "/VR2000/COMMON.CFG"; }
};

TEST_F(Avvio, AlberoDelleCartelle) {
  VarenaLoad(s, "");
  for (const char* c : {"VR2000/IMPORTA", "VR2000/ESEMPI", "VR2000/TEMP", "VR2000/TEMP1", "VR2000/LAVORI/NUOVO",
                        "VR2000/GRUPPI", "VR2000/IMMAGINI", "VR2000/PROVVISO", "VR2000/MODELLI_STAMPA",
                        "SONDAIII/MENU"})
    EXPECT_TRUE(fs::is_directory(doc / c)) << c;
  EXPECT_TRUE(fs::is_directory(prog / "GUIDA"));
  EXPECT_EQ(s.CartellaLavoro, doc.Percorso() + "/VR2000/");
  EXPECT_TRUE(s.NomeOriginale.empty());
  EXPECT_TRUE(ui.Messaggi.empty());
}

TEST_F(Avvio, RigaDiComandoTraVirgoletteConSpazi) {
  const std::string base = CopiaEsempio(utente / "lavori con spazi");
  VarenaLoad(s, "\"" + base + ".cfg\"  ");
  EXPECT_TRUE(ui.Messaggi.empty()) << (ui.Messaggi.empty() ? "" : ui.Messaggi[0].Testo);
  // The job's name is upper-cased on its way through COMMON.CFG, its folders are not.
  EXPECT_EQ(s.NomeOriginale, base);
  EXPECT_EQ(s.ContaEntita[SlotPunti], 20);
  EXPECT_EQ(s.NomeLavoro.rfind(doc.Percorso() + "/VR2000/PROVVISO/RILIEVO_", 0), 0u);
  EXPECT_TRUE(prova::Esiste(s.NomeLavoro + ".LLL"));
  EXPECT_FALSE(prova::Esiste(Comune()));  // the hand-over is consumed
}

TEST_F(Avvio, RigaDiComandoRelativa) {
  const std::string base = CopiaEsempio(utente / "L");
  const fs::path prima = fs::current_path();
  fs::current_path(utente / "L");
  VarenaLoad(s, "../L/./rilievo.cfg");
  fs::current_path(prima);
  // The name the job is recorded by means the same from any folder.
  EXPECT_EQ(s.NomeOriginale, base);
  EXPECT_EQ(prova::LeggiFileProva(s.NomeLavoro + ".INF"), "\"" + base + "\"\r\n");
}

TEST_F(Avvio, DividiNomeComune) {
  auto n = DividiNomeComune("/home/x/my.jobs/rilievo.v2.cfg");
  EXPECT_EQ(n.Nome, "/HOME/X/MY.JOBS/RILIEVO.V2");
  EXPECT_EQ(n.Estensione, "CFG");
  n = DividiNomeComune("senzapunto");
  EXPECT_EQ(n.Nome, "");
  EXPECT_EQ(n.Estensione, "SENZAPUNTO");
}

TEST_F(Avvio, EstensioneMinuscolaDiImportazione) {
  // One point of the fiducial archive: number 1 of sheet 12, municipality A123.
  std::string riga(130, ' ');
  riga.replace(0, 4, "A123").replace(8, 2, "12").replace(16, 1, "1");
  riga.replace(101, 12, "    2000.000").replace(114, 12, "    1000.000");
  ScriviFileProva(utente / "punti.taf", riga + "\r\n");
  VarenaLoad(s, utente / "punti.taf");
  EXPECT_TRUE(ui.Messaggi.empty());
  EXPECT_EQ(s.TipoFile, "TAF");
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(s.PuntoNome[0], "PF01/0120/A123");
  EXPECT_EQ(s.PuntoPiano[0], "TAF");
  // A map sheet opens the same way through its reader.
  ScriviFileProva(utente / "foglio.cxf", "A123\r\n1\r\n0\r\nFIDUCIALE,3,\"PF3\",10.5,20.25\r\nEOF\r\n");
  VarenaLoad(s, utente / "foglio.cxf");
  EXPECT_EQ(s.TipoFile, "CXF");
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(s.PuntoNome[0], "PF3");
  EXPECT_EQ(s.PuntoFont[0], "Courier New");
  EXPECT_EQ(s.PuntoX[0], 10.5);
  // A file with no point in it says so.
  ScriviFileProva(utente / "vuoto.taf", "");
  VarenaLoad(s, utente / "vuoto.taf");
  ASSERT_EQ(ui.Messaggi.size(), 1u);
  EXPECT_EQ(ui.Messaggi[0].Titolo, "File TAF");
  EXPECT_EQ(ui.Messaggi[0].Testo, "Nessun punto letto:\n" + (utente / "VUOTO.TAF"));
}

TEST_F(Avvio, RiapriUltimoLavoro) {
  const std::string base = CopiaEsempio(utente / "LAVORI");
  fs::create_directories(doc / "VR2000");
  ScriviFileProva(doc / "VR2000/Configura.ini", "Configurazione_Ambiente,RiapriUltimoLavoro,1\r\n");
  ScriviFileProva(doc / "VR2000/LavoriRecenti.txt", "");
  VarenaLoad(s, "");
  EXPECT_TRUE(s.NomeOriginale.empty());  // an empty list: no job, no error
  EXPECT_TRUE(ui.Messaggi.empty());
  ScriviFileProva(doc / "VR2000/LavoriRecenti.txt", "/altro/VECCHIO.CFG\r\n" + base + ".CFG\r\n");
  Sessione t;
  t.Ui = &ui;
  VarenaLoad(t, "");
  EXPECT_EQ(t.ContaEntita[SlotPunti], 20);
}

TEST_F(Avvio, ComuneNellaCartellaDelProgramma) {
  const std::string base = CopiaEsempio(utente / "L");
  ScriviFileProva(prog / "COMMON.CFG", "\"" + base + ".CFG\"\r\n");
  VarenaLoad(s, "");
  EXPECT_EQ(s.ContaEntita[SlotPunti], 20);
  EXPECT_FALSE(prova::Esiste(prog / "COMMON.CFG"));
}

TEST_F(Avvio, CartellaNonScrivibile) {
  setenv("VARENA_DOCUMENTI", "/proc/varena-non-si-puo", 1);
  VarenaLoad(s, "");
  ASSERT_EQ(ui.Messaggi.size(), 1u);
  EXPECT_EQ(ui.Messaggi[0].Titolo, "Rilevato errore");
  EXPECT_NE(ui.Messaggi[0].Testo.find("/proc/varena-non-si-puo/VR2000"), std::string::npos);
}

}  // namespace
}  // namespace varena
