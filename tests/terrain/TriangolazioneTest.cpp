// The hand-off to the triangulator: the points and breaklines written, the facets read back,
// and what happens when the triangulator is missing, fails or answers with half a file. Then
// the companion triangulator run for real: its reading of the hand-off files, the facets it
// returns, and its refusals, which leave the job's facets as they were.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>
#include <set>

#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/ProcessiSistema.h"
#include "commands/Attese.h"
#include "support/Supporto.h"
#include "terrain/Consegna.h"
#include "terrain/Triangolazione.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

using prova::LeggiFileProva;
using prova::MettiLinea;
using prova::MettiPunto;
using prova::Record;

struct ProcessiFinti : Processi {
  std::function<std::optional<int>()> Risposta;
  std::vector<std::string> Chiamate;
  std::optional<int> Esegui(const std::string& p, const std::vector<std::string>& a, const std::string& c) override {
    Chiamate.push_back(p + " " + std::to_string(a.size()) + " " + c);
    return Risposta();
  }
};

// A facet record as the job's file lays it out: Ident at 0, vertices at 2, 26 and 52.
std::string RecordFalda(double x1, double y1, double z1, double x2, double y2, double z2, double x3, double y3,
                        double z3) {
  return Record(256)
      .F64(2, x1).F64(10, y1).F64(18, z1).F64(26, x2).F64(34, y2).F64(42, z2)
      .F64(52, x3).F64(60, y3).F64(68, z3).Byte();
}

void SelezionaTutti(Sessione& s) {
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) s.StatoPunto[static_cast<size_t>(r)] = 1;
}

TEST(Consegna, PuntiDelGrappoloEPlanimetriciLasciati) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  MettiPunto(s, "1", 0, 0, 1.2345);
  MettiPunto(s, "2", 0.02, 0, 5);  // 0.02 from the first: the first is left out
  const int32_t c = MettiPunto(s, "3", 10, 0, 2);
  s.PuntoDescrizione[static_cast<size_t>(c)] = "<P!>muro";
  MettiPunto(s, "4", 0, 10, 3.14159);
  MettiPunto(s, "5", 10.0004, 10, -2.0625);  // 2062.5 thousandths: half away from zero
  MettiPunto(s, "6", 50, 50, 1);  // not selected
  MettiPunto(s, "7", 1234567890123.4567, 0, 1);  // past fifteen digits once rounded
  SelezionaTutti(s);
  s.StatoPunto[5] = 0;
  bool troppi = true;
  const std::vector<int32_t> righe = PreparaConsegna(s, troppi);
  EXPECT_FALSE(troppi);
  EXPECT_EQ(righe, (std::vector<int32_t>{1, 3, 4, 6}));
  EXPECT_EQ(LeggiFileProva(FileConsegna(s, kFileTom)),
            "0.02,0,5\r\n0,10,3.142\r\n10,10,-2.063\r\n1234567890123.46,0,1\r\n");
  for (int k = 0; k < 7; ++k) EXPECT_EQ(s.StatoPunto[static_cast<size_t>(k)], 0) << k;

  // Past the bound nothing is written and the caller is told.
  prova::ScriviFileProva(FileConsegna(s, kFileTom), "vecchio");
  SelezionaTutti(s);
  s.Imp.Limite_Punti_Triangolazione = 2;
  EXPECT_TRUE(PreparaConsegna(s, troppi).empty());
  EXPECT_TRUE(troppi);
  EXPECT_EQ(LeggiFileProva(FileConsegna(s, kFileTom)), "vecchio");
  // A bound of 0 takes every point.
  SelezionaTutti(s);
  s.StatoPunto[5] = 0;
  s.Imp.Limite_Punti_Triangolazione = 0;
  EXPECT_EQ(PreparaConsegna(s, troppi).size(), 4u);
  EXPECT_FALSE(troppi);
}

TEST(Consegna, LineeDiDiscontinuitaUniteInCatene) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  const double xy[7][2] = {{0, 0}, {10, 0}, {20, 0}, {30, 0}, {0, 20}, {10, 20}, {20, 20}};
  for (int k = 0; k < 7; ++k) MettiPunto(s, std::to_string(k + 1), xy[k][0], xy[k][1], 1);
  auto discontinuita = [&](int a, int b) {
    const int32_t r = MettiLinea(s, xy[a - 1][0], xy[a - 1][1], xy[b - 1][0] + 0.0004, xy[b - 1][1]);
    s.LineaPiano[static_cast<size_t>(r)] = "DISCONTI";
  };
  discontinuita(2, 3);
  discontinuita(4, 3);  // drawn backwards
  discontinuita(1, 2);
  discontinuita(1, 2);  // twice: one entry
  discontinuita(5, 7);
  discontinuita(6, 7);  // same last row: appended reversed, the shared row twice
  MettiLinea(s, 0, 0, 30, 0);  // another layer
  const int32_t fuori = MettiLinea(s, 0, 0, 0, 5);  // an end on no point
  s.LineaPiano[static_cast<size_t>(fuori)] = "DISCONTI";
  SelezionaTutti(s);
  bool troppi = false;
  PreparaConsegna(s, troppi);
  const std::vector<std::string> catene = FormDSQ(s);
  EXPECT_EQ(LeggiFileProva(FileConsegna(s, kFileDsq)),
            "4,     1,     2,     3,     4\r\n4,     5,     7,     7,     6\r\n");
  EXPECT_EQ(catene.size(), 2u);
  // Equal first rows: the second reversed goes in front.
  EXPECT_EQ(UnisciCatene({{2, 5}, {2, 7}}), (std::vector<std::vector<int32_t>>{{7, 2, 5}}));
}

class Ritorno : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  ProcessiFinti proc;
  void SetUp() override {
    s.Proc = &proc;
    prova::MettiPunti(s, {{"1", 0, 0, 1}, {"2", 4, 0, 3}, {"3", 0, 4, 3}});
    // One facet already there, which a failure must leave in place.
    prova::ScriviFileProva(FileConsegna(s, kFileEquMesh), RecordFalda(0, 0, 0, 1, 0, 0, 0, 1, 0));
    ASSERT_TRUE(LeggiFaldeConsegna(s));
    ASSERT_EQ(s.ContaEntita[SlotFalde], 1);
  }
  void Risponde(std::string equ, int stato = 0) {
    proc.Risposta = [this, equ, stato]() -> std::optional<int> {
      EXPECT_EQ(s.Clip->Leggi(), " ");
      EXPECT_EQ(LeggiFileProva(FileConsegna(s, kFileTom)), "0,0,1\r\n4,0,3\r\n0,4,3\r\n");
      if (!equ.empty()) prova::ScriviFileProva(FileConsegna(s, kFileEquMesh), equ);
      if (stato != 0) prova::ScriviFileProva(FileConsegna(s, "provviso.err"), "punti tutti allineati\r\n");
      return stato;
    };
  }
  void Triangola(bool atteso) {
    SelezionaTutti(s);
    EXPECT_EQ(VR_TriangolaPunti(s, true), atteso);
  }
};

// The command that keeps the old facets puts the answer after them.
TEST_F(Ritorno, LeFaldeDelTriangolatoreAggiunteAlleVecchie) {
  Risponde(RecordFalda(0, 0, 0, 4, 0, 3, 0, 4, 3));
  SelezionaTutti(s);
  ASSERT_TRUE(VR_TriangolaPunti(s, false));
  ASSERT_EQ(s.ContaEntita[SlotFalde], 2);
  EXPECT_EQ(std::tuple(s.FaldaX2[0], s.FaldaX2[1], s.FaldaZ2[1]), std::tuple(1.0, 4.0, 3.0));
}

TEST_F(Ritorno, LeFaldeDelTriangolatoreSostituisconoLaTabella) {
  s.QuotaRiferimento = 2.5;
  // A zero-area answer vanishes on recomputation.
  Risponde(RecordFalda(0, 0, 0, 4, 0, 3, 0, 4, 3) + RecordFalda(0, 0, 1, 1, 1, 1, 2, 2, 1));
  Triangola(true);
  EXPECT_EQ(proc.Chiamate, (std::vector<std::string>{"varena-mesh 0 " + s.CartellaProgramma}));
  ASSERT_EQ(s.ContaEntita[SlotFalde], 2);
  EXPECT_EQ(std::tuple(s.FaldaIdent[0], s.FaldaIdent[1]), std::tuple(0, -1));
  // Drawn: three sides of kind 6, and with the labels on, four texts. By hand: area 8, prism
  // (2 - 2.5) * 8; the corner below 2.5 is the triangle of legs 10/3: fill 250/54, cut 4 more.
  EXPECT_EQ(prova::InLista(s, SlotFalde), 3);
  s.Terreno.EtichetteFalde = true;
  RigeneraLista(s);
  EXPECT_EQ(prova::InLista(s, SlotFalde), 7);
  std::vector<std::string> testi;
  for (int64_t k = 0; k < s.ListaDisegno.Conta(); ++k)
    if (s.ListaDisegno.Primitiva[static_cast<size_t>(k)] == PrimTesto) testi.emplace_back(s.ListaDisegno.Testo(k));
  EXPECT_EQ(testi, (std::vector<std::string>{"N=1", "A=8.0", "S=8.63", "R=4.63"}));
}

TEST_F(Ritorno, SenzaRispostaLeFaldeRestano) {
  // The triangulator missing: nothing happens, and nothing is said.
  proc.Risposta = [] { return std::nullopt; };
  Triangola(false);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(std::make_pair(s.ContaEntita[SlotFalde], s.FaldaX2[0]), std::make_pair(1, 1.0));

  // Failed: its reason is shown.
  Risponde({}, 1);
  Triangola(false);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Testo, "Triangolazione non eseguita: punti tutti allineati");
  EXPECT_EQ(s.ContaEntita[SlotFalde], 1);

  // Half a record: the common error report, the table as it was.
  Risponde(RecordFalda(0, 0, 0, 4, 0, 3, 0, 4, 3) + std::string(100, '\0'));
  Triangola(false);
  ASSERT_EQ(p.ui.Messaggi.size(), 2u);
  EXPECT_EQ(p.ui.Messaggi[1].Testo, TestoErroreComune(kErroreFineFile, "LeggiFaldeConsegna"));
  EXPECT_EQ(std::make_pair(s.ContaEntita[SlotFalde], s.FaldaX2[0]), std::make_pair(1, 1.0));

  // The facets switched off: the command refuses.
  s.Terreno.FaldeAttive = false;
  Triangola(false);
  EXPECT_EQ(p.ui.Messaggi.back().Testo, "Falde NON Attive!");
}

#ifdef VARENA_MESH
constexpr bool kMeshCostruito = true;
#else
constexpr bool kMeshCostruito = false;
#endif

const std::string kMesh = std::string(VARENA_BINARI) + "/tools/varena-mesh/varena-mesh";

// The companion's folder first on PATH for the life of the object, as the program finds it.
struct PathConMesh {
  const char* vecchio = std::getenv("PATH");
  const std::string path = vecchio ? vecchio : "";
  PathConMesh() { ::setenv("PATH", (std::string(VARENA_BINARI) + "/tools/varena-mesh:" + path).c_str(), 1); }
  ~PathConMesh() { ::setenv("PATH", path.c_str(), 1); }
};
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
  PathConMesh path;
  void SetUp() override {
    if (!kMeshCostruito) GTEST_SKIP() << "varena-mesh non costruito in questo albero";
    s.Proc = &proc;
  }
  bool Triangola() {
    SelezionaTutti(s);
    return VR_TriangolaPunti(s, true);
  }
  void Discontinuita(double x1, double y1, double x2, double y2) {
    s.LineaPiano[static_cast<size_t>(MettiLinea(s, kE + x1, kN + y1, kE + x2, kN + y2))] = "DISCONTI";
  }
  // Whether a live facet has both points among its vertices.
  bool Lato(double x1, double y1, double x2, double y2) const {
    for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
      const std::set<std::pair<double, double>> v = {{s.FaldaX1[r], s.FaldaY1[r]}, {s.FaldaX2[r], s.FaldaY2[r]}, {s.FaldaX3[r], s.FaldaY3[r]}};
      if (s.FaldaIdent[r] == 0 && v.count({kE + x1, kN + y1}) && v.count({kE + x2, kN + y2})) return true;
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
  prova::MettiPunti(s, {{"1", kE, kN, 10}, {"2", kE + 10, kN, 10}, {"3", kE + 5, kN + 3, 20}, {"4", kE + 5, kN - 3, 20}});
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
  prova::MettiPunti(s, {{"1", kE, kN, 10}, {"2", kE + 10, kN, 10}, {"3", kE, kN + 10, 20}, {"4", kE + 10, kN + 10, 20}});
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
  prova::MettiPunti(b.s, {{"1", 0, 0, 1}, {"2", 10, 0, 1}, {"3", 10, 10, 1}, {"4", 0, 10, 1}});
  b.Pronto(5, 5, 100);
  PathConMesh path;
  b.Script("TAG SELEZIONA_TRIANGOLA\nPRESS Tutti\nPRESS OK\n");
  EXPECT_EQ(b.s.ContaEntita[SlotFalde], 2);
  EXPECT_DOUBLE_EQ(b.s.FaldaAreaDiBase[0] + b.s.FaldaAreaDiBase[1], 100.0);
  EXPECT_FALSE(DialogoAperto(b.s, "SelezPunti"));
}

}  // namespace
}  // namespace varena
