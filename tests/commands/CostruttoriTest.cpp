// The row builders of the drawing commands, and the menu entries of the drawing tags (the
// script tests drive every one of them to its rows).
#include <gtest/gtest.h>

#include <tuple>

#include "commands/Costruttori.h"
#include "commands/TabellaComandi.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

using namespace prova;

TEST(ScriviArco, AmpiezzaPositivaEInizioInUnGiroRecordAccodati) {
  Banco b;
  MettiLinea(b.s, 0, 0, 10, 0);
  b.Pronto();
  const int64_t prima = b.s.ListaDisegno.Conta();
  b.s.Imp.Colore_Default = 7;
  b.s.Imp.Tratteggio_Default = 2;
  // A negative start and a negative amplitude come back into the turn.
  const auto k = static_cast<size_t>(ScriviArco(b.s, {5, 5, 1}, 3, -50, -100, 1, 2, "ARCHI"));
  EXPECT_EQ(std::tie(b.s.ArcoInizio[k], b.s.ArcoFine[k], b.s.ArcoColore[k], b.s.ArcoTratteggio[k], b.s.ArcoPiano[k]),
            std::make_tuple(350, 300, 7, 2, "ARCHI"));
  // A whole turn stays whole.
  EXPECT_EQ(b.s.ArcoFine[static_cast<size_t>(ScriviArco(b.s, {0, 0, 0}, 1, 0, 400, 0, 0, "0"))], 400);
  // The list keeps what it had and gains the chords of the new arcs, nothing else.
  ASSERT_GT(b.s.ListaDisegno.Conta(), prima);
  EXPECT_EQ(b.s.ListaDisegno.Tipo[0], SlotLinee);
  for (int64_t i = prima; i < b.s.ListaDisegno.Conta(); ++i)
    EXPECT_EQ(b.s.ListaDisegno.Tipo[static_cast<size_t>(i)], SlotArchi);
  const int32_t t = ScriviTesto(b.s, 1, 2, "NOTA", 1.5, 30, 4, "  ", "TESTI");
  EXPECT_EQ(b.s.TestoFont[static_cast<size_t>(t)], "Arial");
  EXPECT_EQ(b.s.ListaDisegno.Testo(b.s.ListaDisegno.Conta() - 1), "NOTA");
}

TEST(TabellaComandi, OgniComandoDiDisegnoHaIlSuoMenu) {
  for (const char* tag : {
      "DISEGNA_LINEA_LIBERA", "DISEGNA_LINEA_2_P", "DISEGNA_LINEA_DISCONTINUITA", "DISEGNA_LINEA_ALLUNGA",
      "DISEGNA_LINEA_LUNGHEZZA", "DISEGNA_LINEA_ESTREMO", "DISEGNA_LINEA_PROIETTA", "DISEGNA_LINEA_PERPENDA",
      "ESTREMI_LINEA", "ASSE_LINEA", "DISEGNA_PARALLELA", "PARALLELA_PER_PUNTO", "VERIFICA_PARALLELE",
      "DISEGNA_PERCORSO", "RETTANGOLO", "SQUADRATO", "DISEGNA_CERCHIO_3_P", "CERCHIO_DIAMETRO",
      "CERCHIO_CENTRO_RAGGIO", "CERCHIO_CENTRO_TANGENTE", "CERCHIO_INSCRITTO", "DISEGNA_ARCO_3_P",
      "ARCO_CENTRO_INIZIO_FINE", "ARCO_RACCORDO", "ARCO_IN_CERCHIO", "SERIE_LINEARE", "SERIE_ALLINEATA",
      "SERIE_CIRCOLARE", "SERIE_RETTANGOLARE", "DISEGNA_TESTO", "TESTO_DISTANZA", "QUOTATURA_PROGRESSIVA",
      "DISEGNA_TESTO_DA_APPUNTI", "DISEGNA_TESTO_DA_FILE", "TESTO_ALLINEA", "EDIT_SPOSTA_NOME", "NOME_SCAMBIO",
      "DISEGNA_FUMETTO", "DISEGNA_IMMAGINE", "DISEGNA_CAMPITURA"}) {
    const VoceComando* v = CercaTag(tag);
    ASSERT_NE(v, nullptr) << tag;
    EXPECT_FALSE(v->Menu.empty() || v->Voce.empty()) << tag;
  }
}

}  // namespace
}  // namespace varena
