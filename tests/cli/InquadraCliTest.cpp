// varena-cli inquadra, and the cadastral imports of the command line: a job framed on its
// PF in batch, the residuals printed; a PF the archive lacks leaves the job as it was.
#include <gtest/gtest.h>

#include "Terminale.h"
#include "support/ProvaCli.h"

namespace varena {
namespace {

using prova::Cli;

class InquadraCli : public ::testing::Test, public prova::RadiceCli {
 protected:
  std::string lavoro = lavori + "rossi.cfg", archivio;
  void SetUp() override {
    prova::ScriviFileProva(lavoro, prova::CfgNuovo());
    // Official = survey turned by 100 gon and carried by (1000, 2000).
    prova::ScriviFileProva(radice / "lavori/rossi.lll",
                           prova::RecordPuntoBase("PF01/0120/A123", 0, 0, 0).Byte() +
                               prova::RecordPuntoBase("PF02/0120/A123", 100, 0, 0).Byte() +
                               prova::RecordPuntoBase("12", 10, 0, 4).Byte() +
                               prova::RecordPuntoBase("PF09/0120/A123", 5, 5, 0).Byte());
    archivio = radice / "fid";
    std::filesystem::create_directories(archivio + "/dati");
    prova::ScriviFileProva(archivio + "/dati/A123.taf",
                           prova::RigaFiduciale(1) + "\r\n" + prova::RigaFiduciale(2, "    1900.000") + "\r\n");
  }
  std::pair<double, double> Punto(const std::string& nome) {
    Sessione s;
    std::ostringstream err;
    EXPECT_TRUE(cli::CaricaInLettura(s, lavoro, err)) << err.str();
    for (size_t k = 0; k < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++k)
      if (s.PuntoNome[k] == nome) return {s.PuntoX[k], s.PuntoY[k]};
    return {-1, -1};
  }
};

TEST_F(InquadraCli, IlLavoroInquadratoEIResidui) {
  const auto e = Cli({"inquadra", lavoro, "pf01/0120/a123", "PF02/0120/A123", "--archivio", archivio});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out,
            "Nome\tdN\tdE\tDistanza\t\n"
            "PF01/0120/A123\t0.0000\t0.0000\t0.0000\t<<\n"
            "PF02/0120/A123\t0.0000\t0.0000\t0.0000\t\n"
            "Rotazione (gon)\t100.0000\nScala\t1.000000000\nS.q.m.\t0.0000\n");
  const auto [x, y] = Punto("12");
  EXPECT_NEAR(x, 1000, 1e-9);
  EXPECT_NEAR(y, 1990, 1e-9);
}

TEST_F(InquadraCli, UnPFMancanteNonToccaIlLavoro) {
  const std::string prima = prova::LeggiFileProva(radice / "lavori/rossi.lll");
  // In the drawing but not in the archive; not in the drawing.
  for (const char* manca : {"PF09/0120/A123", "PF07/0120/A123"}) {
    SCOPED_TRACE(manca);
    const auto e = Cli({"inquadra", lavoro, "PF01/0120/A123", manca, "--archivio", archivio});
    EXPECT_EQ(e.stato, 2);
    EXPECT_EQ(e.err, std::string(manca[3] == '7' ? "PF non trovato nel disegno: "
                                                 : "PF non presente nell'archivio TAF: ") +
                         manca + "\n");
    EXPECT_EQ(prova::LeggiFileProva(radice / "lavori/rossi.lll"), prima);
  }
  EXPECT_EQ(Cli({"inquadra", lavoro, "PF01/0120/A123"}).stato, 64);
}

TEST_F(InquadraCli, ImportaTafECxfNelLavoro) {
  const auto taf = Cli({"import", lavoro, archivio + "/dati/A123.taf", "--format", "TAF"});
  EXPECT_EQ(taf.stato, 0) << taf.err;
  EXPECT_EQ(taf.out, "Punti 2\n");
  const auto [x, y] = Punto("PF02/0120/A123");
  EXPECT_EQ(x, 100);  // the survey's point comes first; the archive's is after it
  // A sheet cut short: the error, and the job as it was.
  const std::string prima = prova::LeggiFileProva(radice / "lavori/rossi.lll");
  prova::ScriviFileProva(radice / "tronco.cxf", "F\r\n1\r\n0\r\nLINEA\r\nA\r\n2\r\n0\r\n0\r\n1\r\n");
  const auto cxf = Cli({"import", lavoro, radice / "tronco.cxf", "--format", "cxf"});
  EXPECT_EQ(cxf.stato, 1);
  EXPECT_NE(cxf.err.find("Input past end of file"), std::string::npos) << cxf.err;
  EXPECT_EQ(prova::LeggiFileProva(radice / "lavori/rossi.lll"), prima);
}

}  // namespace
}  // namespace varena
