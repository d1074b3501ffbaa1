// Start-up: the folder tree, the command line, COMMON.CFG and the last job.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core/Avvio.h"
#include "core/Testo.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::CopiaEsempio;
using prova::ScriviFileProva;

class Avvio : public ::testing::Test {
 protected:
  prova::CartellaTemporanea doc, prog, utente;
  prova::CartelleDelProgramma cartelle{doc.Percorso(), prog.Percorso()};
  InterfacciaRegistrata ui;
  Sessione s;
  void SetUp() override {
    s.Ui = &ui;
    s.Orologio = prova::OrologioFisso;
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
  EXPECT_EQ(std::make_tuple(s.CartellaLavoro, s.NomeOriginale, ui.Messaggi.size()),
            std::make_tuple(doc.Percorso() + "/VR2000/", "", 0u));
}

TEST_F(Avvio, RigaDiComandoTraVirgoletteConSpazi) {
  const std::string base = CopiaEsempio(utente / "lavori con spazi");
  VarenaLoad(s, "\"" + base + ".cfg\"  ");
  EXPECT_TRUE(ui.Messaggi.empty()) << (ui.Messaggi.empty() ? "" : ui.Messaggi[0].Testo);
  // The job's name is upper-cased on its way through COMMON.CFG, its folders are not.
  EXPECT_EQ(std::tie(s.NomeOriginale, s.ContaEntita[SlotPunti]), std::make_tuple(base, 20));
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
  const auto n = DividiNomeComune("/home/x/my.jobs/rilievo.v2.cfg"), m = DividiNomeComune("senzapunto");
  EXPECT_EQ(std::tie(n.Nome, n.Estensione, m.Nome, m.Estensione),
            std::make_tuple("/HOME/X/MY.JOBS/RILIEVO.V2", "CFG", "", "SENZAPUNTO"));
}

TEST_F(Avvio, EstensioneMinuscolaDiImportazione) {
  ScriviFileProva(utente / "punti.taf", prova::RigaFiduciale(1) + "\r\n");
  VarenaLoad(s, utente / "punti.taf");
  EXPECT_TRUE(ui.Messaggi.empty());
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(std::tie(s.TipoFile, s.PuntoNome[0], s.PuntoPiano[0]), std::make_tuple("TAF", "PF01/0120/A123", "TAF"));
  // A map sheet opens the same way through its reader.
  ScriviFileProva(utente / "foglio.cxf", "A123\r\n1\r\n0\r\nFIDUCIALE,3,\"PF3\",10.5,20.25\r\nEOF\r\n");
  VarenaLoad(s, utente / "foglio.cxf");
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(std::tie(s.TipoFile, s.PuntoNome[0], s.PuntoFont[0], s.PuntoX[0]),
            std::make_tuple("CXF", "PF3", "Courier New", 10.5));
  // A file with no point in it says so.
  ScriviFileProva(utente / "vuoto.taf", "");
  VarenaLoad(s, utente / "vuoto.taf");
  ASSERT_EQ(ui.Messaggi.size(), 1u);
  EXPECT_EQ(std::tie(ui.Messaggi[0].Titolo, ui.Messaggi[0].Testo),
            std::make_tuple("File TAF", "Nessun punto letto:\n" + (utente / "VUOTO.TAF")));
  // A proposal of the cadastral program: two sides of the map and one of the update, drawn
  // (the update's row with "L" is no side); the name read through the hand-over upper-cased.
  ScriviFileProva(utente / "proposta.dat",
                  prova::LeggiFileProva(VARENA_SORGENTI "/tests/fuzz/corpus/pregeo/proposta.dat").substr(1));
  VarenaLoad(s, utente / "proposta.dat");
  EXPECT_EQ(std::tie(s.TipoFile, s.ContaEntita[SlotLinee]), std::make_tuple("DAT", 4));
  VarenaLoad(s, utente / "assente.dat");
  EXPECT_EQ(ui.Messaggi.back().Testo, "Il file " + (utente / "ASSENTE.DAT") + " NON è stato trovato!");
}

TEST_F(Avvio, RiapriUltimoLavoro) {
  const std::string base = CopiaEsempio(utente / "LAVORI");
  fs::create_directories(doc / "VR2000");
  ScriviFileProva(doc / "VR2000/Configura.ini", "Configurazione_Ambiente,RiapriUltimoLavoro,1\r\n");
  ScriviFileProva(doc / "VR2000/LavoriRecenti.txt", "");
  VarenaLoad(s, "");
  // An empty list: no job, no error.
  EXPECT_EQ(std::make_tuple(s.NomeOriginale, ui.Messaggi.size()), std::make_tuple("", 0u));
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
