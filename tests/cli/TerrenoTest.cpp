// varena-cli terreno: every live point of a job triangulated by the companion, the facets
// saved into the job and summed.
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/ProvaCli.h"

namespace varena {
namespace {

#ifdef VARENA_MESH
constexpr bool kMeshCostruito = true;
#else
constexpr bool kMeshCostruito = false;
#endif

TEST(Terreno, FaldeSalvateNelLavoroESommate) {
  if (!kMeshCostruito) GTEST_SKIP() << "varena-mesh non costruito in questo albero";
  const prova::RadiceCli r;
  const std::string& lavori = r.lavori;
  const std::string path = std::getenv("PATH");
  ::setenv("PATH", (std::string(VARENA_BINARI) + "/tools/varena-mesh:" + path).c_str(), 1);
  prova::ScriviFileProva(lavori + "rossi.cfg", prova::CfgNuovo());
  // A square of side 10 rising from 10 to 20 northwards, a deleted point under it that must
  // not count.
  std::string punti;
  for (auto [x, y] : {std::pair{0, 0}, {10, 0}, {0, 10}, {10, 10}})
    punti += prova::RecordPuntoBase("P", 1725000 + x, 5031000 + y, 10 + y).Byte();
  punti += prova::Record(prova::RecordPuntoBase("X", 1725005, 5031005, 99).Byte().size())
               .I16(0, -1).Byte();
  prova::ScriviFileProva(lavori + "rossi.lll", punti);

  const prova::EsitoCli e =
      prova::Cli({"terreno", lavori + "rossi", "--quota-riferimento", "5", "--equidistanza", "2.5", "--json"});
  EXPECT_EQ(e.stato, 0) << e.err;
  // By hand: 100 m² whose mean height is 10 m above the reference, whichever the diagonal;
  // the contours at 10, 12.5, 15, 17.5 and 20, the two outer ones along the sides.
  EXPECT_EQ(e.out, "{\"falde\": 2, \"area\": 100, \"sterro\": 1000, \"riporto\": 0, \"curve\": 5}\n");
  EXPECT_GT(prova::LeggiFileProva(lavori + "rossi.CUV").size(), 5u * 2u * 17u);
  EXPECT_EQ(prova::LeggiFileProva(lavori + "rossi.EQU").size(), 2u * 256u);
  EXPECT_EQ(prova::Cli({"terreno"}).stato, 64);

  ::setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace varena
