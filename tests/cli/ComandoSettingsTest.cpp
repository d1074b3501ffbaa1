// varena-cli settings: the settings in force and where each file was read from, without
// writing anything.
#include <gtest/gtest.h>

#include "support/ProvaCli.h"

namespace varena::cli {
namespace {

using prova::ScriviFileProva;

class ComandoSettings : public ::testing::Test, public prova::RadiceCli {
 protected:
  std::string lavoro = radice / "VR2000/", programma = radice / "programma";
  std::vector<std::string> FileNellAlbero() {
    std::vector<std::string> file;
    for (const auto& v : std::filesystem::recursive_directory_iterator(radice.Percorso()))
      if (v.is_regular_file()) file.push_back(v.path().string());
    return file;
  }
};

TEST_F(ComandoSettings, MacchinaNuovaPredefinitiSenzaScrivere) {
  const prova::EsitoCli e = prova::Cli({"settings"});
  ASSERT_EQ(e.stato, 0) << e.err;
  for (const std::string& riga :
       {"Cartella di lavoro: " + lavoro + "\n", std::string("  Configurazione_Ambiente,FATTORE_DI_ZOOM,50\n"),
        "  Cartelle,Cartella_Archivio_Pregeo," + lavoro + "PREGEO/ARCH\n",
        "COLORI.ini             assente  " + programma + "/COLORI.ini\n",
        std::string("  colori: 9\n  spessori: 0\n  tratteggi: 18\n  codici: 13\n")})
    EXPECT_NE(e.out.find(riga), std::string::npos) << riga;
  EXPECT_TRUE(FileNellAlbero().empty());
  EXPECT_FALSE(std::filesystem::exists(lavoro));
}

TEST_F(ComandoSettings, JsonConIFileLettiEGliErrori) {
  std::filesystem::create_directories(lavoro);
  std::filesystem::create_directories(programma);
  ScriviFileProva(lavoro + "Configura.ini", "Testo,FontTestoDefault,Courier New\r\nx,FATTORE_DI_ZOOM,0.25\r\n");
  ScriviFileProva(programma + "/colori.ini", "1,2,3,4\r\n\x01\x02\r\n");
  ScriviFileProva(lavoro + "StampaPaginato.ini", "-1,\"2\",\"3\"\r\n");
  const prova::EsitoCli e = prova::Cli({"settings", "--json"});
  ASSERT_EQ(e.stato, 2);  // a box was shown: the colours are not text
  EXPECT_NE(e.err.find("Rilevato errore"), std::string::npos);
  const std::string& j = e.out;
  EXPECT_EQ(j.rfind("{\"cartellaLavoro\":\"" + lavoro + "\",\"cartellaProgramma\":\"" + programma + "\"", 0), 0u);
  // The colours' defaults stand.
  for (const std::string& pezzo :
       {std::string("\"FontTestoDefault\":\"Courier New\""), std::string("\"FATTORE_DI_ZOOM\":1,"),
        std::string("\"DIMENSIONEUNICAPUNTO\":0,"),
        "{\"nome\":\"Configura.ini\",\"percorso\":\"" + lavoro + "Configura.ini\",\"stato\":\"letto\"}",
        "{\"nome\":\"COLORI.ini\",\"percorso\":\"" + programma + "/colori.ini\",\"stato\":\"errato\"}",
        std::string("\"colori\":9,"), std::string("\"paginazione\":{\"attiva\":true,\"colonne\":\"2\",\"righe\":\"3\"}}\n")})
    EXPECT_NE(j.find(pezzo), std::string::npos) << pezzo;
  EXPECT_EQ(FileNellAlbero().size(), 3u);  // still only the three written here
}

TEST_F(ComandoSettings, UsoSbagliato) {
  EXPECT_EQ(prova::Cli({"settings", "pippo"}).stato, 64);
  const prova::EsitoCli e = prova::Cli({"settings", "--xml"});
  EXPECT_EQ(e.stato, 64);
  EXPECT_EQ(e.err, "uso: varena-cli settings [--json]\n");
}

}  // namespace
}  // namespace varena::cli
