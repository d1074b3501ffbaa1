// The layer panel's changes to whole layers: counts, freezing and colour, each undone by
// one undo.
#include <gtest/gtest.h>

#include "commands/ComandiPiani.h"
#include "commands/Attese.h"

namespace varena {
namespace {

using namespace prova;

struct PianiBanco : BancoProva {};

TEST_F(PianiBanco, PianiContaCongelaEColoraUnPianoConIlSuoUndo) {
  ApriLavoroVuoto(*this);
  MettiPunto(s, "1", 0, 0);
  MettiLinee(s, {{0, 0, 10, 0}, {0, 0, 0, 10}});
  MettiCerchio(s, 5, 5, 2);
  s.PuntoPiano[0] = "strade";  // the layer's own spelling is the table's
  s.LineaPiano[0] = " STRADE ";
  s.LineaPiano[1] = "RECINZ";
  s.CerchioPiano[0] = "STRADE";
  s.Piani.push_back(LeggiRigaPiano("STRADE|0|3|0|1|Arial|0|0|"));
  MettiLinea(s, 1, 1, 2, 2);
  s.LineaPiano[2] = "STRADE";
  s.LineaIdent[2] = -1;  // deleted: not counted, not changed
  Pronto();
  ScegliPianoCorrente(s, "strade");
  EXPECT_EQ(s.PianoCorrente, "STRADE");

  auto elenco = ElencoPiani(s);
  ASSERT_EQ(elenco.size(), 3u);
  EXPECT_EQ(std::tie(elenco[0].Nome, elenco[0].Entita, elenco[1].Nome), std::make_tuple("0", 0, "STRADE"));
  EXPECT_EQ((std::vector<int64_t>{elenco[1].Colore, elenco[1].Entita, elenco[1].Congelate}),
            (std::vector<int64_t>{3, 3, 0}));
  EXPECT_TRUE(elenco[1].Corrente && elenco[1].NellaTabella);
  EXPECT_EQ(elenco[2].Nome, "RECINZ");
  EXPECT_FALSE(elenco[2].NellaTabella);

  const int64_t passo = PassoUndo(s);
  ASSERT_TRUE(CongelaPiano(s, "Strade", true));
  EXPECT_EQ((std::vector<int>{s.PuntoCongelaSimbolo[0], s.PuntoCongelaDescrizione[0], s.LineaCongela[0],
                              s.LineaCongela[1], s.LineaCongela[2], s.CerchioCongela[0]}),
            (std::vector<int>{-1, -1, -1, 0, 0, -1}));
  EXPECT_EQ(std::make_tuple(ElencoPiani(s)[1].Congelate, PassoUndo(s)), std::make_tuple(3, passo + 1));
  EXPECT_FALSE(CongelaPiano(s, "VUOTO", true));
  EXPECT_EQ(PassoUndo(s), passo + 1);

  // A layer only the entities name enters the table with its colour.
  ASSERT_TRUE(ColorePiano(s, "RECINZ", 5));
  EXPECT_EQ(std::make_tuple(s.LineaColore[1], s.LineaColore[0], ScriviRigaPiano(s.Piani.back())),
            std::make_tuple(5, 1, "RECINZ|0|5|0|1|Arial|0|0|0"));
  EXPECT_EQ(LeggiFileProva(s.NomeLavoro + ".PIA"), "0|0|1|0|1|Arial|0|0|0\r\nSTRADE|0|3|0|1|Arial|0|0|0\r\nRECINZ|0|5|0|1|Arial|0|0|0\r\n");
  EXPECT_FALSE(ColorePiano(s, "RECINZ", 0));

  // Each change is one step back.
  Script("KEY F9\n");
  EXPECT_EQ(s.LineaColore[1], 1);
  EXPECT_EQ(s.Piani.size(), 2u);
  Script("KEY F9\n");
  EXPECT_EQ(std::tie(s.LineaCongela[0], s.PuntoCongelaNome[0]), std::make_tuple(0, 0));
}

}  // namespace
}  // namespace varena
