// The companion triangulator, run for real: its reading of the hand-off files, the facets
// it returns, and its refusals, which leave the job's facets as they were.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "core/Dialoghi.h"
#include "core/ProcessiSistema.h"
#include "support/ProvaComandi.h"
#include "support/Supporto.h"
#include "terrain/Consegna.h"
#include "terrain/Triangolazione.h"

namespace varena {
namespace {

#ifdef VARENA_MESH
constexpr bool kMeshCostruito = true;
#else
constexpr bool kMeshCostruito = false;
#endif

using prova::LeggiFileProva;
using prova::MettiLinea;
using prova::MettiPunto;

const std::string kMesh = std::string(VARENA_BINARI) + "/tools/varena-mesh/varena-mesh";
constexpr double kE = 1725000, kN = 5031000;  // national-grid coordinates

TEST(Mesh, FileGuasti) {
  DatiMesh d;
  EXPECT_EQ(LeggiConsegna("1,2,3\r\n4,5\r\n", "", d), "provviso.tom, riga 2: non sono tre numeri");
  EXPECT_EQ(LeggiConsegna("1,2,nan\r\n", "", d), "provviso.tom, riga 1: valore non numerico");
  EXPECT_EQ(LeggiConsegna("1,2,3\r\n\x01\xff,,\r\n", "", d), "provviso.tom, riga 2: non sono tre numeri");
  const std::string tre = "0,0,1\r\n1,0,1\r\n0,1,1\r\n";
  EXPECT_EQ(LeggiConsegna(tre, "3,     1,     2\r\n", d), "provviso.dsq, riga 1: il numero dei punti non torna");
  EXPECT_EQ(LeggiConsegna(tre, "2,     1,     4\r\n", d), "provviso.dsq, riga 1: punto fuori dall'elenco");
  EXPECT_EQ(LeggiConsegna(tre, "99999999999999999999,1,2\r\n", d), "provviso.dsq, riga 1: non e' una catena di punti");
  EXPECT_EQ(LeggiConsegna(tre, "2,     3,     1\r\n", d), "");
  EXPECT_EQ(d.Catene, (std::vector<std::vector<int32_t>>{{2, 0}}));

  // The program itself, on files that are not its own.
  if (!kMeshCostruito) GTEST_SKIP() << "varena-mesh non costruito in questo albero";
  prova::CartellaTemporanea c;
  ProcessiSistema proc;
  auto esegui = [&](const std::string& tom) {
    prova::ScriviFileProva(c / "provviso.tom", tom);
    EXPECT_EQ(proc.Esegui(kMesh, {}, c.Percorso()), 1);
    EXPECT_FALSE(prova::Esiste(c / "provviso.EQU"));
    return LeggiFileProva(c / "provviso.err");
  };
  EXPECT_EQ(esegui(""), "provviso.tom: meno di tre punti\r\n");
  EXPECT_EQ(esegui("garbage\r\n"), "provviso.tom, riga 1: non sono tre numeri\r\n");
  EXPECT_EQ(proc.Esegui(c / "manca", {}, c.Percorso()), std::nullopt);
}

class MeshVero : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  ProcessiSistema proc{s.Clip};
  std::string path;
  void SetUp() override {
  if (!kMeshCostruito) GTEST_SKIP() << "varena-mesh non costruito in questo albero";
    const char* vecchio = std::getenv("PATH");
    path = vecchio ? vecchio : "";
    ::setenv("PATH", (std::string(VARENA_BINARI) + "/tools/varena-mesh:" + path).c_str(), 1);
    s.Proc = &proc;
  }
  void TearDown() override { ::setenv("PATH", path.c_str(), 1); }
  bool Triangola() {
    for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) s.StatoPunto[static_cast<size_t>(r)] = 1;
    return VR_TriangolaPunti(s, true);
  }
  void Discontinuita(double x1, double y1, double x2, double y2) {
    s.LineaPiano[static_cast<size_t>(MettiLinea(s, kE + x1, kN + y1, kE + x2, kN + y2))] = "DISCONTI";
  }
  // Whether a live facet has both points among its vertices.
  bool Lato(double x1, double y1, double x2, double y2) const {
    for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
      if (s.FaldaIdent[r] != 0) continue;
      auto ha = [&](double x, double y) {
        return (s.FaldaX1[r] == kE + x && s.FaldaY1[r] == kN + y) || (s.FaldaX2[r] == kE + x && s.FaldaY2[r] == kN + y) ||
               (s.FaldaX3[r] == kE + x && s.FaldaY3[r] == kN + y);
      };
      if (ha(x1, y1) && ha(x2, y2)) return true;
    }
    return false;
  }
};

TEST_F(MeshVero, PianoCampionatoDaVolumeEsatto) {
  // z = 2x + y + 100 over the square of side 100, sampled at whole millimetres: the prism of
  // every facet is exact, and the whole is 100 * 100 * (2 * 50 + 50 + 100 - 50).
  std::mt19937 g(7);
  std::uniform_int_distribution<int> mm(1, 99999);
  auto punto = [&](int x, int y) {
    MettiPunto(s, "P", kE + x / 1000.0, kN + y / 1000.0, 2 * (x / 1000.0) + y / 1000.0 + 100);
  };
  for (int x : {0, 100000})
    for (int y : {0, 100000}) punto(x, y);
  for (int k = 0; k < 500; ++k) punto(mm(g), mm(g));
  s.QuotaRiferimento = 50;
  ASSERT_TRUE(Triangola());
  double area = 0, sterro = 0, riporto = 0;
  int64_t falde = 0;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
    ASSERT_EQ(s.FaldaIdent[r], 0);
    ++falde, area += s.FaldaAreaDiBase[r], sterro += s.FaldaVolumeSterro[r], riporto += s.FaldaVolumeRiporto[r];
  }
  // Euler: n points of which h on the hull make 2n - h - 2 triangles.
  EXPECT_EQ(falde, 2 * 504 - 4 - 2);
  EXPECT_NEAR(area, 10000.0, 1e-6);
  EXPECT_NEAR(sterro, 2000000.0, 1e-3);
  EXPECT_EQ(riporto, 0.0);
}

TEST_F(MeshVero, LaDiscontinuitaELatoDelRisultato) {
  // Across the valley the empty-circle rule joins the two banks; the breakline along the
  // valley floor must stand instead.
  MettiPunto(s, "1", kE + 0, kN + 0, 10);
  MettiPunto(s, "2", kE + 10, kN + 0, 10);
  MettiPunto(s, "3", kE + 5, kN + 3, 20);
  MettiPunto(s, "4", kE + 5, kN - 3, 20);
  ASSERT_TRUE(Triangola());
  EXPECT_TRUE(Lato(5, 3, 5, -3));
  EXPECT_FALSE(Lato(0, 0, 10, 0));
  Discontinuita(0, 0, 10, 0);
  ASSERT_TRUE(Triangola());
  EXPECT_EQ(s.ContaEntita[SlotFalde], 2);
  EXPECT_TRUE(Lato(0, 0, 10, 0));
  EXPECT_FALSE(Lato(5, 3, 5, -3));
}

TEST_F(MeshVero, RifiutiLascianoLeFalde) {
  MettiPunto(s, "1", kE + 0, kN + 0, 10);
  MettiPunto(s, "2", kE + 10, kN + 0, 10);
  MettiPunto(s, "3", kE + 0, kN + 10, 20);
  MettiPunto(s, "4", kE + 10, kN + 10, 20);
  ASSERT_TRUE(Triangola());
  ASSERT_EQ(s.ContaEntita[SlotFalde], 2);
  const std::vector<double> prima = s.FaldaX1;

  // Two breaklines that cross.
  Discontinuita(0, 0, 10, 10);
  Discontinuita(10, 0, 0, 10);
  EXPECT_FALSE(Triangola());
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Testo, "Triangolazione non eseguita: due linee di discontinuita' si incrociano");
  EXPECT_EQ(s.ContaEntita[SlotFalde], 2);
  EXPECT_EQ(s.FaldaX1, prima);

  // All on one line.
  for (int32_t r = 0; r < s.ContaEntita[SlotLinee]; ++r) s.LineaIdent[static_cast<size_t>(r)] = -1;
  s.PuntoY[2] = kN, s.PuntoY[3] = kN, s.PuntoX[2] = kE + 20, s.PuntoX[3] = kE + 30;
  EXPECT_FALSE(Triangola());
  EXPECT_EQ(p.ui.Messaggi.back().Testo, "Triangolazione non eseguita: punti tutti allineati o coincidenti: nessun triangolo");
  EXPECT_EQ(s.FaldaX1, prima);

  // A height that is not a number.
  s.PuntoY[3] = kN + 10, s.PuntoZ[3] = std::nan("");
  EXPECT_FALSE(Triangola());
  EXPECT_EQ(p.ui.Messaggi.back().Testo, "Il punto 4 non ha coordinate valide");
  EXPECT_EQ(s.FaldaX1, prima);
}

TEST(MeshScript, TriangolaPuntiDalDialogoDiSelezione) {
  if (!kMeshCostruito) GTEST_SKIP() << "varena-mesh non costruito in questo albero";
  prova::Banco b;
  ProcessiSistema proc(b.s.Clip);
  b.s.Proc = &proc;
  MettiPunto(b.s, "1", 0, 0, 1);
  MettiPunto(b.s, "2", 10, 0, 1);
  MettiPunto(b.s, "3", 10, 10, 1);
  MettiPunto(b.s, "4", 0, 10, 1);
  b.Pronto(5, 5, 100);
  const char* vecchio = std::getenv("PATH");
  const std::string path = vecchio ? vecchio : "";
  ::setenv("PATH", (std::string(VARENA_BINARI) + "/tools/varena-mesh:" + path).c_str(), 1);
  b.Script("TAG SELEZIONA_TRIANGOLA\nPRESS Tutti\nPRESS OK\n");
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 2);
  EXPECT_DOUBLE_EQ(b.s.FaldaAreaDiBase[0] + b.s.FaldaAreaDiBase[1], 100.0);
  EXPECT_FALSE(DialogoAperto(b.s, "SelezPunti"));
}

}  // namespace
}  // namespace varena
