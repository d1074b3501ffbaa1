// varena-cli script on a job built byte by byte: what it prints, the original left alone
// until SAVE, what SAVE writes, and the errors of a script.
#include <gtest/gtest.h>

#include "support/ProvaCli.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::ScriviFileProva;

using prova::Cli;
using Esito = prova::EsitoCli;

class CliScript : public ::testing::Test, public prova::RadiceCli {
 protected:
  std::string base = lavori + "ROSSI", script = lavori + "linea.txt";
  void SetUp() override {
    ScriviFileProva(base + ".CFG", prova::CfgManuale("VR2020", "0,0,100"));
    ScriviFileProva(base + ".LLL", prova::RecordPuntoBase("1", 0, 0, 10).Byte() +
                                       prova::RecordPuntoBase("2", 30, 40, 20).Byte());
    ScriviFileProva(script,
                    "# a line between the two points\r\n"
                    "TAG DISEGNA_LINEA_2_P\r\n"
                    "KEY P\r\n"
                    "CLICK left 1 1\r\n"
                    "KEY P\r\n"
                    "CLICK left 29 41\r\n");
  }
};

TEST_F(CliScript, StampaOgniPromptELasciaLOriginaleSenzaSave) {
  const std::string punti = prova::LeggiFileProva(base + ".LLL");
  const Esito e = Cli({"script", base, script});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out,
            "> TAG DISEGNA_LINEA_2_P\n"
            "PROMPT Disegno Linea 2P - Primo Punto:\n"
            "> KEY P\n"
            "> CLICK left 1 1\n"
            "PROMPT Disegno Linea - Al Punto:\n"
            "> KEY P\n"
            "> CLICK left 29 41\n"
            "PROMPT Disegno Linea 2P - Primo Punto:\n");
  EXPECT_EQ(e.err, "");
  EXPECT_FALSE(prova::Esiste(base + ".LIN"));
  EXPECT_EQ(prova::LeggiFileProva(base + ".LLL"), punti);
  // The provisional copy is gone.
  EXPECT_TRUE(fs::is_empty(radice / "VR2000/PROVVISO"));
}

TEST_F(CliScript, SaveScriveLaLineaSullOriginale) {
  ScriviFileProva(script, prova::LeggiFileProva(script) + "SAVE\n");
  const Esito e = Cli({"script", base + ".cfg", script});
  ASSERT_EQ(e.stato, 0) << e.err;
  // A live row (Ident 0) from point 1 to point 2, with their heights.
  const std::string linee = prova::LeggiFileProva(base + ".LIN");
  ASSERT_EQ(linee.size(), 128u);
  EXPECT_EQ(linee.substr(0, 50), prova::Record(50).F64(18, 10).F64(26, 30).F64(34, 40).F64(42, 20).Byte());
}

// SAVEAS writes the job under the new name; a strict run stops at the line that fails; the
// display toggle and the last selection of a run stay in the run's own folder, not the user's.
TEST_F(CliScript, SalvaComeRigorosoEPreferenzeDellaCorsa) {
  ScriviFileProva(script, prova::LeggiFileProva(script) + "TYPE _N\nTAG CAMBIA_ELIMINA\nPRESS Tutto\nPRESS OK\nSAVEAS " +
                              (lavori + "BIANCHI.CFG") + "\n");
  Esito e = Cli({"script", base, script, "--rigoroso"});
  ASSERT_EQ(e.stato, 0) << e.err;
  EXPECT_TRUE(prova::Esiste(lavori + "BIANCHI.CFG"));
  for (const std::string& f : {base + ".LIN", radice / "programma/ImpostazioniUtente.ini", base + ".uls", lavori + "BIANCHI.uls"})
    EXPECT_FALSE(prova::Esiste(f)) << f;
  ScriviFileProva(script, "TAG DISEGNA_LINEA_2_P\nCLICK left 1 1\nEXPECT prompt Disegno Linea 2P - Primo Punto:\n");
  e = Cli({"script", base, script, "--rigoroso"});
  EXPECT_EQ(std::tie(e.stato, e.err), std::make_tuple(1, script + ", riga 3: EXPECT prompt: prompt \"Disegno Linea - Al Punto:\"\n"));
}

// The dialogs a script can fill, with their fields and buttons: a dialog that opens only
// with its command is listed too.
TEST_F(CliScript, ElencoDeiDialoghi) {
  const Esito e = Cli({"script", "--dialoghi"});
  ASSERT_EQ(e.stato, 0);
  EXPECT_NE(e.out.find("Imputa2 [Campitura]\n"
                       "  campo Angolo_Campitura \"Angolo Campitura (gon) :\"\n"
                       "  campo Distanza_Campitura \"Distanza Campitura (m) :\"\n"
                       "  bottone OK \"OK\"\n"
                       "  bottone Annulla \"Annulla\"\n"),
            std::string::npos)
      << e.out;
  EXPECT_NE(e.out.find("PuntoPiede [Punto Piede]\n  dato Primo \"Primo Punto   : \"\n"), std::string::npos);
}

TEST_F(CliScript, ErroriDelloScript) {
  Esito e = Cli({"script", base, lavori + "manca.txt"});
  EXPECT_EQ(std::tie(e.stato, e.err), std::make_tuple(1, "Script non trovato: " + lavori + "manca.txt\n"));
  e = Cli({"script", lavori + "manca", script});
  EXPECT_EQ(std::tie(e.stato, e.err), std::make_tuple(1, "Lavoro non trovato: " + lavori + "manca\n"));
  EXPECT_EQ(Cli({"script", base}).stato, 64);
  ScriviFileProva(script, "TAG DISEGNA_LINEA_2_P\nVOLA 1 2\nCLICK left 0 0\n");
  e = Cli({"script", base, script});
  EXPECT_EQ(std::tie(e.stato, e.out, e.err),
            std::make_tuple(64, "> TAG DISEGNA_LINEA_2_P\nPROMPT Disegno Linea 2P - Primo Punto:\n> VOLA 1 2\n",
                            script + ", riga 2: azione sconosciuta: VOLA\n"));
}

// The office computations through varena-cli: a triangle solved into its boxes, and a
// resection on the dangerous circle refused with its message and no point.
TEST_F(CliScript, TriangoloEResezioneSulCerchioPericoloso) {
  ScriviFileProva(base + ".LLL", prova::RecordPuntoBase("C1", 100, 150, 0).Byte() +
                                     prova::RecordPuntoBase("C2", 149.3844170298, 107.821723252, 0).Byte() +
                                     prova::RecordPuntoBase("C3", 129.3892626146, 59.5491502813, 0).Byte());
  ScriviFileProva(script,
                  "TAG TRIANGOLI\nFIELD a 3\nFIELD b 4\nFIELD c 5\nPRESS Calcola\n"
                  "EXPECT campo Triangoli.Gamma 100.0000\nEXPECT campo Triangoli.Alfa 40.9666\n"
                  "TAG POTHENOT\nCLICK left @C1\nCLICK left @C2\nCLICK left @C3\nFIELD Alfa 45\nFIELD Beta 35\n"
                  "PRESS OK\nEXPECT messaggio Stazione sul cerchio pericoloso: il punto è indeterminato!\nSAVE\n");
  const Esito e = Cli({"script", base, script, "--rigoroso"});
  EXPECT_EQ(e.stato, 0) << e.err << e.out;
  EXPECT_EQ(prova::LeggiFileProva(base + ".LLL").size(), 3 * prova::RecordPuntoBase("C1", 0, 0, 0).Byte().size());
}

}  // namespace
}  // namespace varena
