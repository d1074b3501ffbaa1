// gruppo: a window of a job saved as a group, sections taken by the frame they are drawn in.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "core/Testo.h"
#include "support/ProvaCli.h"
#include "support/Supporto.h"

namespace varena {
namespace {

TEST(GruppoCli, LaSezioneNellaFinestraVaNelGruppo) {
  prova::CartellaTemporanea casa, dir;
  setenv("VARENA_DOCUMENTI", casa.Percorso().c_str(), 1);
  const std::string base = prova::CopiaEsempio(dir / "lavori");
  // A section drawn about its datum point (1000, 2000), far from the survey: its frame is
  // known only once drawn.
  const std::string sezione = prova::LeggiFileProva(VARENA_SORGENTI "/tests/data/gruppi/F1.SEZ");
  prova::ScriviFileProva(base + ".SEZ", Sostituisci(sezione, "\"F1\",10,-20", "\"F1\",1000,2000"));
  const prova::EsitoCli e = prova::Cli({"gruppo", "salva", base + ".CFG", "SEZ", "--finestra", "900,1900,1100,2100"});
  const std::string gruppo = prova::LeggiFileProva(casa / "VR2000/GRUPPI/SEZ.GGG");
  unsetenv("VARENA_DOCUMENTI");
  EXPECT_EQ(e.out, casa / "VR2000/GRUPPI/SEZ.GGG" + ": 1 entita\n");
  const std::string inizio = "\"I\",900,1900,0\r\n\"S\"\r\n\"<INIZIO SEZIONE>\"\r\n";
  EXPECT_EQ(gruppo.substr(0, inizio.size()), inizio);
}

}  // namespace
}  // namespace varena
