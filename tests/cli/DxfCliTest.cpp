// varena-cli dxf-in and dxf-out on a job written by hand.
#include <gtest/gtest.h>

#include "support/ProvaCli.h"

namespace varena {
namespace {

using prova::Cli;
using prova::LeggiFileProva;

TEST(DxfCli, DentroEFuori) {
  const prova::RadiceCli r;
  const prova::CartellaTemporanea& radice = r.radice;
  const std::string& lavori = r.lavori;
  prova::ScriviFileProva(lavori + "ROSSI.CFG", prova::CfgNuovo());
  const std::string dxf = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nSTRADE\n10\n1\n20\n2\n11\n3\n21\n4\n"
                          "0\nCIRCLE\n8\nVERDE\n10\n5\n20\n6\n40\n1.5\n0\nTEXT\n8\nSTRADE\n10\n0\n20\n0\n40\n1\n1\nVia\n"
                          "0\nENDSEC\n0\nEOF\n";
  prova::ScriviFileProva(radice / "a.dxf", dxf);

  // Nothing readable: status 1, the message, no member written.
  prova::ScriviFileProva(radice / "vuoto.dxf", "0\nSECTION\n2\nHEADER\n0\nENDSEC\n");
  auto e = Cli({"dxf-in", lavori + "ROSSI", radice / "vuoto.dxf"});
  EXPECT_EQ(e.stato, 1);
  EXPECT_NE(e.err.find("Sezione ENTITIES non trovata"), std::string::npos) << e.err;
  EXPECT_FALSE(prova::Esiste(lavori + "ROSSI.LIN"));
  EXPECT_EQ(Cli({"dxf-in", lavori + "ROSSI", radice / "a.dxf", "--kinds", "LINE,CERCHIO"}).stato, 64);

  e = Cli({"dxf-in", lavori + "ROSSI", radice / "a.dxf", "--kinds", "line,circle", "--layers", "STRADE"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out, "Linee: 1\nCerchi: 0\n");
  e = Cli({"dxf-in", lavori + "ROSSI.CFG", radice / "a.dxf"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out, "Polilinee (linee): 0\nLinee: 1\nPunti: 0\nTesti: 1\nCerchi: 1\nArchi: 0\n");
  EXPECT_EQ(std::filesystem::file_size(lavori + "ROSSI.LIN"), 2u * 128);

  e = Cli({"dxf-out", lavori + "ROSSI", radice / "b.dxf", "--assegna-colore"});
  EXPECT_EQ(e.stato, 0) << e.err;
  const std::string b = LeggiFileProva(radice / "b.dxf");
  EXPECT_EQ(b.substr(0, 70), " 0\r\nSECTION\r\n 2\r\nENTITIES\r\n 0\r\nLINE\r\n 8\r\n1000\r\n62\r\n1\r\n 10\r\n1\r\n 20\r\n2\r\n");
  EXPECT_EQ(b.substr(b.size() - 23), "  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
}

}  // namespace
}  // namespace varena
