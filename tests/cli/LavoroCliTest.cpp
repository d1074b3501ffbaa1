// varena-cli on a job written by hand, "rossi" in the jobs' folder: inquadra with its
// residuals and the cadastral imports, a PF the archive lacks leaving the job as it was;
// import and punti; dxf-in and dxf-out; terreno; and the archive of jobs.
#include <gtest/gtest.h>

#include <cstdlib>

#include "Terminale.h"
#include "support/ProvaCli.h"

namespace varena {
namespace {

using prova::Cli;
using prova::LeggiFileProva;
using prova::ScriviFileProva;

class LavoroCli : public ::testing::Test, public prova::RadiceCli {
 protected:
  std::string lavoro = lavori + "rossi.cfg";
  void SetUp() override { ScriviFileProva(lavoro, prova::CfgNuovo()); }
};

class InquadraCli : public LavoroCli {
 protected:
  std::string archivio = radice / "fid";
  void SetUp() override {
    LavoroCli::SetUp();
    // Official = survey turned by 100 gon and carried by (1000, 2000).
    ScriviFileProva(lavori + "rossi.lll", prova::RecordPuntoBase("PF01/0120/A123", 0, 0, 0).Byte() +
                                              prova::RecordPuntoBase("PF02/0120/A123", 100, 0, 0).Byte() +
                                              prova::RecordPuntoBase("12", 10, 0, 4).Byte() +
                                              prova::RecordPuntoBase("PF09/0120/A123", 5, 5, 0).Byte());
    std::filesystem::create_directories(archivio + "/dati");
    ScriviFileProva(archivio + "/dati/A123.taf",
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
  const std::string prima = LeggiFileProva(lavori + "rossi.lll");
  // In the drawing but not in the archive; not in the drawing.
  for (const char* manca : {"PF09/0120/A123", "PF07/0120/A123"}) {
    SCOPED_TRACE(manca);
    const auto e = Cli({"inquadra", lavoro, "PF01/0120/A123", manca, "--archivio", archivio});
    EXPECT_EQ(e.stato, 2);
    EXPECT_EQ(e.err, std::string(manca[3] == '7' ? "PF non trovato nel disegno: "
                                                 : "PF non presente nell'archivio TAF: ") +
                         manca + "\n");
    EXPECT_EQ(LeggiFileProva(lavori + "rossi.lll"), prima);
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
  const std::string prima = LeggiFileProva(lavori + "rossi.lll");
  ScriviFileProva(radice / "tronco.cxf", "F\r\n1\r\n0\r\nLINEA\r\nA\r\n2\r\n0\r\n0\r\n1\r\n");
  const auto cxf = Cli({"import", lavoro, radice / "tronco.cxf", "--format", "cxf"});
  EXPECT_EQ(cxf.stato, 1);
  EXPECT_NE(cxf.err.find("Input past end of file"), std::string::npos) << cxf.err;
  EXPECT_EQ(LeggiFileProva(lavori + "rossi.lll"), prima);
}

TEST_F(LavoroCli, ImportEElencoDeiPunti) {
  EXPECT_EQ(Cli({"import", lavoro, radice / "x", "--format", "dwg"}).stato, 64);
  ScriviFileProva(radice / "a.ril", "5=7\r\n4=muro, nuovo\r\n37=20.5\r\n38=10.25\r\n39=3\r\nrotta\r\n5=8\r\n");
  auto e = Cli({"import", lavoro, radice / "a.ril", "--format", "RIL"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out, "Punti: 2\nRighe non lette: 1\n");
  EXPECT_NE(e.err.find("Riga non letta: 6"), std::string::npos) << e.err;
  ScriviFileProva(radice / "b.txt", "1 5 6 7\r\n");
  e = Cli({"import", lavoro, radice / "b.txt", "--format", "xyz", "--colonne", "nyxz", "--prefisso", "PF"});
  EXPECT_EQ(e.stato, 0) << e.err;

  e = Cli({"punti", lavoro, "--csv"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out,
            "Progressivo,Nome,Nord (X),Est (Y),Quota (Z),Descrizione,HP / HS,PIANO,IDX\n"
            "1,7,20.500,10.250,3.000,\"muro, nuovo\",0.000,RIL,0\n"
            "2,8,0.000,0.000,0.000,,0.000,RIL,1\n"
            "3,PF1,5.000,6.000,7.000,,0.000,0,2\n");
  e = Cli({"punti", lavoro});
  EXPECT_EQ(e.out,
            "Progressivo  Nome  Nord (X)  Est (Y)  Quota (Z)  Descrizione  HP / HS  PIANO  IDX\n"
            "          1  7       20.500   10.250      3.000  muro, nuovo    0.000  RIL      0\n"
            "          2  8        0.000    0.000      0.000                 0.000  RIL      1\n"
            "          3  PF1      5.000    6.000      7.000                 0.000  0        2\n");
}

TEST_F(LavoroCli, ImportConUnaListaDiColonne) {
  ScriviFileProva(radice / "b.txt", "5 6 7\r\n");
  EXPECT_EQ(Cli({"import", lavoro, radice / "b.txt", "--format", "txt", "--colonne", "DAT6"}).stato, 0);
  EXPECT_EQ(Cli({"import", lavoro, radice / "b.txt", "--format", "txt", "--colonne", "DAT9"}).stato, 1);
  EXPECT_NE(Cli({"punti", lavoro, "--csv"}).out.find("\n1,,5.000,6.000,7.000,"), std::string::npos);  // N E H
}

TEST_F(LavoroCli, DxfDentroEFuori) {
  const std::string dxf = "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nSTRADE\n10\n1\n20\n2\n11\n3\n21\n4\n"
                          "0\nCIRCLE\n8\nVERDE\n10\n5\n20\n6\n40\n1.5\n0\nTEXT\n8\nSTRADE\n10\n0\n20\n0\n40\n1\n1\nVia\n"
                          "0\nENDSEC\n0\nEOF\n";
  ScriviFileProva(radice / "a.dxf", dxf);
  // Nothing readable: status 1, the message, no member written.
  ScriviFileProva(radice / "vuoto.dxf", "0\nSECTION\n2\nHEADER\n0\nENDSEC\n");
  auto e = Cli({"dxf-in", lavoro, radice / "vuoto.dxf"});
  EXPECT_EQ(e.stato, 1);
  EXPECT_NE(e.err.find("Sezione ENTITIES non trovata"), std::string::npos) << e.err;
  EXPECT_FALSE(prova::Esiste(lavori + "rossi.LIN"));
  EXPECT_EQ(Cli({"dxf-in", lavoro, radice / "a.dxf", "--kinds", "LINE,CERCHIO"}).stato, 64);

  e = Cli({"dxf-in", lavori + "rossi", radice / "a.dxf", "--kinds", "line,circle", "--layers", "STRADE"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out, "Linee: 1\nCerchi: 0\n");
  e = Cli({"dxf-in", lavoro, radice / "a.dxf"});
  EXPECT_EQ(e.stato, 0) << e.err;
  EXPECT_EQ(e.out, "Polilinee (linee): 0\nLinee: 1\nPunti: 0\nTesti: 1\nCerchi: 1\nArchi: 0\n");
  EXPECT_EQ(std::filesystem::file_size(lavori + "rossi.LIN"), 2u * 128);

  e = Cli({"dxf-out", lavori + "rossi", radice / "b.dxf", "--assegna-colore"});
  EXPECT_EQ(e.stato, 0) << e.err;
  const std::string b = LeggiFileProva(radice / "b.dxf");
  EXPECT_EQ(b.substr(0, 70), " 0\r\nSECTION\r\n 2\r\nENTITIES\r\n 0\r\nLINE\r\n 8\r\n1000\r\n62\r\n1\r\n 10\r\n1\r\n 20\r\n2\r\n");
  EXPECT_EQ(b.substr(b.size() - 23), "  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
}

#ifdef VARENA_MESH
constexpr bool kMeshCostruito = true;
#else
constexpr bool kMeshCostruito = false;
#endif

// Every live point of a job triangulated by the companion, the facets saved into the job and summed.
TEST_F(LavoroCli, TerrenoFaldeSalvateNelLavoroESommate) {
  if (!kMeshCostruito) GTEST_SKIP() << "varena-mesh non costruito in questo albero";
  const std::string path = std::getenv("PATH");
  ::setenv("PATH", (std::string(VARENA_BINARI) + "/tools/varena-mesh:" + path).c_str(), 1);
  // A square of side 10 rising from 10 to 20 northwards, a deleted point under it that must
  // not count.
  std::string punti;
  for (auto [x, y] : {std::pair{0, 0}, {10, 0}, {0, 10}, {10, 10}})
    punti += prova::RecordPuntoBase("P", 1725000 + x, 5031000 + y, 10 + y).Byte();
  punti += prova::Record(prova::RecordPuntoBase("X", 1725005, 5031005, 99).Byte().size()).I16(0, -1).Byte();
  ScriviFileProva(lavori + "rossi.lll", punti);

  const prova::EsitoCli e =
      Cli({"terreno", lavori + "rossi", "--quota-riferimento", "5", "--equidistanza", "2.5", "--json"});
  EXPECT_EQ(e.stato, 0) << e.err;
  // By hand: 100 m² whose mean height is 10 m above the reference, whichever the diagonal;
  // the contours at 10, 12.5, 15, 17.5 and 20, the two outer ones along the sides.
  EXPECT_EQ(e.out, "{\"falde\": 2, \"area\": 100, \"sterro\": 1000, \"riporto\": 0, \"curve\": 5}\n");
  EXPECT_GT(LeggiFileProva(lavori + "rossi.CUV").size(), 5u * 2u * 17u);
  EXPECT_EQ(LeggiFileProva(lavori + "rossi.EQU").size(), 2u * 256u);
  EXPECT_EQ(Cli({"terreno"}).stato, 64);
  ::setenv("PATH", path.c_str(), 1);
}

// The archive of jobs listed as the open window shows it, missing jobs marked.
TEST_F(LavoroCli, LavoriVirgoletteCampiMancantiEPercorsiSpariti) {
  std::filesystem::create_directories(radice / "VR2000");
  ScriviFileProva(lavori + "ROSSI.CFG", "");
  // A quoted row; a path without ".CFG" whose description holds a comma (the date moves
  // along); a bare path with no other field, in the old separators.
  ScriviFileProva(radice / "VR2000/VRLAVORI.LAV", "\"" + lavori + "ROSSI.CFG\",\"Frazionamento\",\"12/03/2021\"\r\n\"" +
                                                      lavori + "BIANCHI\",\"Rilievo, via Roma\",\"01/02/2020\"\r\n" +
                                                      lavori + "VERDI.CFG\r\n");
  const prova::EsitoCli e = Cli({"lavori"});
  EXPECT_EQ(e.stato, 0);
  EXPECT_EQ(e.out, "Nome Lavoro\tPercorso Completo\tDescrizione\tData\n"
                   "ROSSI\t" + lavori + "ROSSI.CFG\tFrazionamento\t12/03/2021\n"
                   "BIANCHI\t" + lavori + "BIANCHI.CFG\tRilievo\tvia Roma\tMANCANTE\n"
                   "VERDI\t" + lavori + "VERDI.CFG\t\t\tMANCANTE\n");
}

}  // namespace
}  // namespace varena
