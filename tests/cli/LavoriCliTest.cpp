// lavori: the archive of jobs listed as the open window shows it, missing jobs marked.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "support/ProvaCli.h"
#include "support/Supporto.h"

namespace varena {
namespace {

TEST(LavoriCli, VirgoletteCampiMancantiEPercorsiSpariti) {
  prova::CartellaTemporanea casa, dir;
  setenv("VARENA_DOCUMENTI", casa.Percorso().c_str(), 1);
  std::filesystem::create_directories(casa / "VR2000");
  prova::ScriviFileProva(dir / "ROSSI.CFG", "");
  // A quoted row; a path without ".CFG" whose description holds a comma (the date moves
  // along); a bare path with no other field, in the old separators.
  prova::ScriviFileProva(casa / "VR2000/VRLAVORI.LAV",
                         "\"" + dir / "ROSSI.CFG" + "\",\"Frazionamento\",\"12/03/2021\"\r\n\"" + dir / "BIANCHI" +
                             "\",\"Rilievo, via Roma\",\"01/02/2020\"\r\n" + dir / "VERDI.CFG" + "\r\n");
  const prova::EsitoCli e = prova::Cli({"lavori"});
  unsetenv("VARENA_DOCUMENTI");
  EXPECT_EQ(e.stato, 0);
  EXPECT_EQ(e.out, "Nome Lavoro\tPercorso Completo\tDescrizione\tData\n"
                   "ROSSI\t" + dir / "ROSSI.CFG" + "\tFrazionamento\t12/03/2021\n"
                   "BIANCHI\t" + dir / "BIANCHI.CFG" + "\tRilievo\tvia Roma\tMANCANTE\n"
                   "VERDI\t" + dir / "VERDI.CFG" + "\t\t\tMANCANTE\n");
}

}  // namespace
}  // namespace varena
