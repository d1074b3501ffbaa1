// varena-cli import and punti on a job written by hand.
#include <gtest/gtest.h>

#include "support/ProvaCli.h"

namespace varena {
namespace {

using prova::Cli;

TEST(PuntiCli, ImportEElenco) {
  const prova::RadiceCli r;
  const prova::CartellaTemporanea& radice = r.radice;
  const std::string& lavori = r.lavori;
  prova::ScriviFileProva(lavori + "ROSSI.CFG", prova::CfgNuovo());
  EXPECT_EQ(Cli({"import", lavori + "ROSSI", radice / "x", "--format", "dwg"}).stato, 64);
  prova::ScriviFileProva(radice / "a.ril", "5=7\r\n4=muro, nuovo\r\n37=20.5\r\n38=10.25\r\n39=3\r\nrotta\r\n5=8\r\n");
  auto e = Cli({"import", lavori + "ROSSI", radice / "a.ril", "--format", "RIL"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out, "Punti: 2\nRighe non lette: 1\n");
  EXPECT_NE(e.err.find("Riga non letta: 6"), std::string::npos) << e.err;
  prova::ScriviFileProva(radice / "b.txt", "1 5 6 7\r\n");
  e = Cli({"import", lavori + "ROSSI", radice / "b.txt", "--format", "xyz", "--colonne", "nyxz", "--prefisso", "PF"});
  EXPECT_EQ(e.stato, 0) << e.err;

  e = Cli({"punti", lavori + "ROSSI", "--csv"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out,
            "Progressivo,Nome,Nord (X),Est (Y),Quota (Z),Descrizione,HP / HS,PIANO,IDX\n"
            "1,7,20.500,10.250,3.000,\"muro, nuovo\",0.000,RIL,0\n"
            "2,8,0.000,0.000,0.000,,0.000,RIL,1\n"
            "3,PF1,5.000,6.000,7.000,,0.000,0,2\n");
  e = Cli({"punti", lavori + "ROSSI"});
  EXPECT_EQ(e.out,
            "Progressivo  Nome  Nord (X)  Est (Y)  Quota (Z)  Descrizione  HP / HS  PIANO  IDX\n"
            "          1  7       20.500   10.250      3.000  muro, nuovo    0.000  RIL      0\n"
            "          2  8        0.000    0.000      0.000                 0.000  RIL      1\n"
            "          3  PF1      5.000    6.000      7.000                 0.000  0        2\n");
}

TEST(PuntiCli, ImportConUnaListaDiColonne) {
  const prova::RadiceCli r;
  prova::ScriviFileProva(r.lavori + "ROSSI.CFG", prova::CfgNuovo());
  prova::ScriviFileProva(r.radice / "b.txt", "5 6 7\r\n");
  EXPECT_EQ(Cli({"import", r.lavori + "ROSSI", r.radice / "b.txt", "--format", "txt", "--colonne", "DAT6"}).stato, 0);
  EXPECT_EQ(Cli({"import", r.lavori + "ROSSI", r.radice / "b.txt", "--format", "txt", "--colonne", "DAT9"}).stato, 1);
  EXPECT_NE(Cli({"punti", r.lavori + "ROSSI", "--csv"}).out.find("\n1,,5.000,6.000,7.000,"), std::string::npos);  // N E H
}

}  // namespace
}  // namespace varena
