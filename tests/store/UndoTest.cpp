// Snapshots, the journal, undo and redo, and the sharing of members between generations.
#include <gtest/gtest.h>

#include "core/Testo.h"
#include "store/Undo.h"
#include "store/LavoroProva.h"

namespace varena {
namespace {

using prova::LeggiFileProva;
using prova::MembriDi;

class Undo : public ::testing::TestWithParam<bool> {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  std::string base;
  void SetUp() override {
    base = s.CartellaLavoro + "LAVORI/ROSSI";
    std::filesystem::create_directories(s.CartellaLavoro + "LAVORI");
    prova::PreparaLavoro(base, 5, 4);
    s.CollegaGenerazioni = GetParam();
    s.NomeOriginale = base;
    VR_ApriLavoro(s);
    ASSERT_EQ(s.NomeLavoro, s.CartellaLavoro + "PROVVISO/ROSSI_20262111103015");
  }
  std::string Diario() const { return LeggiFileProva(PercorsoDiario(s)); }
  std::string Gen(int n, const char* est) const { return RadiceGenerazione(s, n) + est; }
  void SpostaLinea(size_t r, double x2) {
    s.LineaX2[r] = x2;
    SegnaModificato(s, SlotLinee);
    ASSERT_TRUE(VR_SalvaUndo(s));
  }
};

TEST_P(Undo, LAperturaFaLaPrimaGenerazioneSenzaRiscrivereIMembri) {
  // The job opened again with every write watched: each record member is copied into the
  // provisional copy once, and the first snapshot, which finds the tables giving back its
  // very bytes, leaves it there for generation 1 to share; one the load repaired is written.
  std::map<std::string, int> scritture;
  {
    prova::SondaProva sonda([&](OperazioneFile op, std::string_view pp) {
      if (op == OperazioneFile::Scrittura) ++scritture[Foglia(std::string(pp))];
      return false;
    });
    VR_ApriLavoro(s);
  }
  const std::string foglia = Foglia(s.NomeLavoro);
  // The points of this job are read with their zero sizes made good: written again.
  EXPECT_EQ(std::make_tuple(scritture[foglia + ".LIN"], scritture[foglia + ".TES"], scritture[foglia + ".LLL"]),
            std::make_tuple(1, 1, 2));
  EXPECT_EQ(MembriDi(Gen(1, "")), MembriDi(s.NomeLavoro));
  EXPECT_EQ(Diario(), " 1 \r\n 1 \r\n");
  // An edit not yet committed: undo with one generation neither reloads nor clears.
  s.LineaIdent[1] = -1;
  EXPECT_FALSE(VR_UNDO(s));
  EXPECT_EQ(std::make_tuple(s.LineaIdent[1], Diario()), std::make_tuple(-1, " 1 \r\n 1 \r\n"));
  EXPECT_FALSE(VR_REDO(s));
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_P(Undo, RigheCancellateCompattateAllaRiletturaEDopoLUndo) {
  s.LineaIdent[1] = -1;
  SegnaModificato(s, SlotLinee);
  ASSERT_TRUE(VR_SalvaUndo(s));
  EXPECT_EQ(Diario(), " 2 \r\n 2 \r\n");
  EXPECT_EQ(s.ContaEntita[SlotLinee], 4);  // still counted until a reload

  ASSERT_TRUE(VR_UNDO(s));
  EXPECT_EQ(std::make_tuple(Diario(), s.ContaEntita[SlotLinee], s.LineaIdent[1], s.LineaX1[2]),
            std::make_tuple(" 1 \r\n 2 \r\n", 4, 0, 1725020.0));

  ASSERT_TRUE(VR_REDO(s));
  // The row after the deleted one took its number.
  EXPECT_EQ(std::make_tuple(Diario(), s.ContaEntita[SlotLinee], s.LineaX1[1]), std::make_tuple(" 2 \r\n 2 \r\n", 3, 1725020.0));
  EXPECT_FALSE(VR_REDO(s));
}

TEST_P(Undo, UnaNuovaModificaTogliIlRedo) {
  SpostaLinea(0, 1725011);
  ASSERT_TRUE(VR_UNDO(s));
  EXPECT_EQ(s.LineaX2[0], 1725010);
  SpostaLinea(0, 1725012);
  EXPECT_FALSE(VR_REDO(s));
  EXPECT_EQ(s.LineaX2[0], 1725012);
  ASSERT_TRUE(VR_UNDO(s));
  ASSERT_TRUE(VR_REDO(s));
  EXPECT_EQ(s.LineaX2[0], 1725012);
}

TEST_P(Undo, UnMembroAssenteNellaGenerazioneEAssenteDopoIlRipristino) {
  DimensionaCerchi(s);
  s.CerchioRaggio[0] = 2, s.CerchioPiano[0] = "0";
  s.ContaEntita[SlotCerchi] = 1;
  s.Testo126 = "nota\r\n";
  ASSERT_TRUE(VR_SalvaUndo(s));
  // A stray copy of another letter case counts as the member too.
  prova::ScriviFileProva(s.NomeLavoro + ".cer", "estraneo");
  ASSERT_TRUE(VR_UNDO(s));
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotCerchi], s.Testo126, EsisteFile(s.NomeLavoro + ".CER"),
                            EsisteFile(s.NomeLavoro + ".126")),
            std::make_tuple(0, "", false, false));
  ASSERT_TRUE(VR_REDO(s));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotCerchi], s.Testo126), std::make_tuple(1, "nota\r\n"));
}

TEST_P(Undo, OgniGenerazioneRipristinaEsattamenteIlSuoInsiemeDiFile) {
  std::vector<std::map<std::string, std::string>> insiemi{MembriDi(s.NomeLavoro)};
  s.Vista.BordoSinistro = -3, s.Vista.RapportoVista = 1.25;
  SpostaLinea(3, 1725100);
  // A snapshot leaves the view as it stands.
  EXPECT_EQ(std::tie(s.Vista.BordoSinistro, s.Vista.RapportoVista), std::make_tuple(-3.0, 1.25));
  insiemi.push_back(MembriDi(s.NomeLavoro));
  s.PuntoX[2] = 1;
  SegnaModificato(s, SlotPunti);
  s.Vista.AltezzaVista = 500;  // the view goes with the settings member, unmarked
  ASSERT_TRUE(VR_SalvaUndo(s));
  insiemi.push_back(MembriDi(s.NomeLavoro));
  s.ContaEntita[SlotLinee] = 0;  // every line gone: the member goes too
  SegnaModificato(s, SlotLinee);
  s.LibrettoMisure.clear();
  ASSERT_TRUE(VR_SalvaUndo(s));
  insiemi.push_back(MembriDi(s.NomeLavoro));
  EXPECT_FALSE(insiemi[3].count(".LIN"));
  for (size_t k = 1; k < insiemi.size(); ++k) EXPECT_NE(insiemi[k], insiemi[k - 1]) << k;

  // Unchanged members are one file under every name when links are allowed, never otherwise.
  EXPECT_EQ(StessoFile(Gen(1, ".LLL"), Gen(2, ".LLL")), GetParam());
  EXPECT_EQ(StessoFile(s.NomeLavoro + ".LLL", Gen(4, ".LLL")), GetParam());

  for (int n = 3; n >= 1; --n) {
    ASSERT_TRUE(VR_UNDO(s));
    EXPECT_EQ(MembriDi(s.NomeLavoro), insiemi[static_cast<size_t>(n - 1)]) << n;
  }
  EXPECT_EQ(s.Vista.AltezzaVista, 80);
  for (int n = 2; n <= 4; ++n) {
    ASSERT_TRUE(VR_REDO(s));
    EXPECT_EQ(MembriDi(s.NomeLavoro), insiemi[static_cast<size_t>(n - 1)]) << n;
  }
  EXPECT_EQ(s.Vista.AltezzaVista, 500);
  // After a restore nothing waits to be written: an edit of the lines writes the lines alone.
  EXPECT_EQ(s.SlotModificato, (std::array<bool, NumeroSlot>{}));
}

TEST_P(Undo, UnGuastoNelloSnapshotLasciaIlDiario) {
  SpostaLinea(0, 1725014);
  ASSERT_TRUE(VR_UNDO(s));  // a redo into generation 2 stands
  s.LineaX2[0] = 1725015;
  SegnaModificato(s, SlotLinee);
  {
    prova::SondaProva sonda([](OperazioneFile op, std::string_view pp) {
      return op == OperazioneFile::Scrittura && FinisceCon(pp, ".LIN");
    });
    EXPECT_FALSE(VR_SalvaUndo(s));
  }
  EXPECT_EQ(Diario(), " 1 \r\n 2 \r\n");
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Nella Routine SalvaLinee"), std::string::npos);
  // Failing while generation 2 is being replaced gives up the redo before touching it.
  {
    prova::SondaProva sonda([](OperazioneFile op, std::string_view pp) {
      return (op == OperazioneFile::Copia || op == OperazioneFile::Collegamento) && FinisceCon(pp, "(2).CFG");
    });
    EXPECT_FALSE(VR_SalvaUndo(s));
  }
  EXPECT_EQ(Diario(), " 1 \r\n 1 \r\n");
  EXPECT_NE(p.ui.Messaggi.back().Testo.find("Nella Routine VR_ Salvaundo 2"), std::string::npos);
  EXPECT_FALSE(VR_REDO(s));
  ASSERT_TRUE(VR_SalvaUndo(s));
  EXPECT_EQ(Diario(), " 2 \r\n 2 \r\n");
  ASSERT_TRUE(VR_UNDO(s));
  ASSERT_TRUE(VR_REDO(s));
  EXPECT_EQ(s.LineaX2[0], 1725015);
}

// The journal is a file like any other and may come back damaged: a count no session reaches
// stops at the largest the print form writes whole (fifteen digits) instead of running past
// the integers, and a step that names no generation on disk restores nothing, so that the
// provisional copy is never emptied by a wrong number.
TEST_P(Undo, UnDiarioGuastoNonTraboccaENonSvuotaLaCopia) {
  prova::ScriviFileProva(PercorsoDiario(s), " 1e30 \r\n 1e30 \r\n");
  ASSERT_TRUE(VR_SalvaUndo(s));
  EXPECT_EQ(Diario(), " 1e+15 \r\n 1e+15 \r\n");
  EXPECT_TRUE(EsisteFile(s.NomeLavoro + "(1000000000000000).CFG"));

  const auto membri = MembriDi(s.NomeLavoro);
  prova::ScriviFileProva(PercorsoDiario(s), " 5 \r\n 9 \r\n");
  EXPECT_FALSE(VR_UNDO(s));
  EXPECT_FALSE(VR_REDO(s));
  EXPECT_EQ(s.ContaEntita[SlotLinee], 4);
  EXPECT_EQ(MembriDi(s.NomeLavoro), membri);
  EXPECT_EQ(Diario(), " 5 \r\n 9 \r\n");
}

TEST_P(Undo, UnMembroStaccatoSiPuoScrivereSulPosto) {
  StaccaMembro(s, SlotLibretto);
  EXPECT_FALSE(StessoFile(s.NomeLavoro + ".TXT", Gen(1, ".TXT")));
  const std::string prima = LeggiFileProva(Gen(1, ".TXT"));
  EXPECT_EQ(LeggiFileProva(s.NomeLavoro + ".TXT"), prima);
  std::ofstream(s.NomeLavoro + ".TXT", std::ios::binary | std::ios::trunc) << "scritto da un altro programma";
  EXPECT_EQ(LeggiFileProva(Gen(1, ".TXT")), prima);
}

INSTANTIATE_TEST_SUITE_P(CollegamentiECopie, Undo, ::testing::Bool(),
                         [](const auto& info) { return info.param ? "Collegamenti" : "Copie"; });

}  // namespace
}  // namespace varena
