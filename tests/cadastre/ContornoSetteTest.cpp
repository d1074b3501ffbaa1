// The survey structures picked point by point, confirmed in their dialog, drawn from their
// points, following them when they move, and deleted by kind.
#include <gtest/gtest.h>

#include <cmath>

#include "cadastre/ContornoSette.h"
#include "cadastre/Libretto.h"
#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

using namespace prova;
using V = std::vector<double>;

// The ends of a line of the list, whether plain or with a line type, to the micrometre: the
// foot of a perpendicular carries the rounding of its computation.
V Estremi(const ElencoDisegno& d, int64_t i) {
  const auto k = static_cast<size_t>(i);
  const MotivoLinea* m = d.Motivo(i);
  V v = m ? V{m->X1, m->Y1, m->X2, m->Y2} : V{d.X1[k], d.Y1[k], d.X2[k], d.Y2[k]};
  for (double& x : v) x = std::round(x * 1e6) / 1e6 + 0.0;
  return v;
}

// The lines the structures add to the display list: layer, then the ends as drawn.
std::vector<std::pair<std::string, V>> LineeSette(const Sessione& s) {
  std::vector<std::pair<std::string, V>> l;
  const ElencoDisegno& d = s.ListaDisegno;
  for (int64_t i = 0; i < d.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    if (d.Tipo[k] != SlotSette || d.Primitiva[k] == PrimTesto) continue;
    l.push_back({d.Piano(i), Estremi(d, i)});
  }
  return l;
}

TEST(ContornoSette, DisegnatoPerPuntiSegueIPuntiSpostati) {
  Banco b;
  MettiPunti(b.s, {{"101", 0, 0}, {"102", 10, 0}, {"103", 10, 10}, {"104", 0, 10}});
  b.Pronto(5, 5, 40);
  b.s.TipoSettePendente = "LIVELLAZIONE RAGGIANTE";  // as the book's reader leaves it
  const std::string fatto = b.Script(
      "TAG CONTORNO_7\nCLICK left @101\nCLICK left @102\nCLICK left @103\nCLICK right 0 0\nCLICK right 0 0\n"
      "EXPECT campo ContornoSette.Commento \nFIELD ContornoSette.Commento FABBRICATO\nPRESS ContornoSette.Conferma\n"
      "TAG DISEGNA_SQUADRI\nCLICK left @101\nCLICK left @102\nCLICK left @104\nCLICK right 0 0\nCLICK right 0 0\n"
      "PRESS ContornoSette.Conferma\n");
  EXPECT_TRUE(Contiene(fatto, "PROMPT Disegna Squadro - Punto Orientamento :\n"));
  EXPECT_TRUE(Contiene(fatto, "PROMPT Disegna Squadro - Punto Rilevato :\n"));
  ASSERT_EQ(b.s.ContaEntita[SlotSette], 2);
  EXPECT_EQ(std::tie(b.s.SetteContorno[0], b.s.SetteCommento[0], b.s.SetteParticella[0]),
            std::make_tuple("|101|102|103|", "FABBRICATO", ""));
  EXPECT_EQ(std::tie(b.s.SetteContorno[1], b.s.SetteCommento[1], b.s.SetteParticella[1], b.s.SetteColore[1],
                     b.s.SetteTratteggio[1]),
            std::make_tuple("|101|102|104|", "SQUADRO", "*V*", 8, 3));
  // The contour from its last vertex back; the base of the traverse, then 104 to its foot.
  using L = std::vector<std::pair<std::string, V>>;
  EXPECT_EQ(LineeSette(b.s), (L{{"CONTORNO", {10, 10, 10, 0}}, {"CONTORNO", {10, 0, 0, 0}},
                                {"SQUADRO", {0, 0, 10, 0}}, {"SQUADRO", {0, 10, 0, 0}}}));

  // The list of the records, and the second shown selected.
  b.Script("TAG SELEZIONA_CONTORNO_7\n");
  ASSERT_TRUE(DialogoAperto(b.s, "SelezionaContorno7"));
  EXPECT_EQ(TrovaDialogo(b.s, "SelezionaContorno7")->Valore("Elenco"),
            "Commento\tPunti Contorno\nFABBRICATO\t|101|102|103|\nSQUADRO\t|101|102|104|");
  b.Script("FIELD SelezionaContorno7.Riga 2\nPRESS SelezionaContorno7.Seleziona\n");
  std::vector<int> stati;
  for (size_t k = 0; k < static_cast<size_t>(b.s.ListaDisegno.Conta()); ++k)
    if (b.s.ListaDisegno.Tipo[k] == SlotSette) stati.push_back(b.s.ListaDisegno.Stato[k]);
  EXPECT_EQ(stati, (std::vector<int>{0, 0, 1, 1}));

  // Every point moved by (5, 5): the structures follow at the regeneration that ends the edit.
  b.Script("TAG CAMBIA_SPOSTA\nPRESS TuttiPunti\nPRESS OK\nCLICK left 0 0\nCLICK left 5 5\n");
  ASSERT_EQ(b.s.PuntoX[1], 15);
  EXPECT_EQ(LineeSette(b.s), (L{{"CONTORNO", {15, 15, 15, 5}}, {"CONTORNO", {15, 5, 5, 5}},
                                {"SQUADRO", {5, 5, 15, 5}}, {"SQUADRO", {5, 15, 5, 5}}}));
  EXPECT_EQ(b.s.SetteContorno[0], "|101|102|103|");  // the records still hold names alone

  b.Opzioni.Rigoroso = false;
  b.ui.Accoda("si");
  b.Script("TAG ELIMINA_SQUADRI\n");
  EXPECT_EQ(std::tie(b.s.SetteIdent[0], b.s.SetteIdent[1]), std::make_tuple(0, -1));
  EXPECT_EQ(LineeSette(b.s).size(), 2u);
}

TEST(ContornoSette, ITagDelLibrettoDaScript) {
  Banco b;
  MettiPunti(b.s, {{"100", 0, 0}, {"101", 5, 0}, {"200", 10, 0}});
  b.s.LibrettoMisure = {"0|010199|1|G693|0010|1|ROSSI|GEOMETRA|PADOVA|", "1|100|1.550|", "2|101|1|100|5|1.300|",
                        "2|200|2|100|10|1.800|", "4|100|200|1|1|0|"};
  b.Pronto(5, 5, 40);
  // The question, answered no: nothing changes; then yes.
  std::string out = b.Script("ANSWER no\nTAG HPS_DA_LIBRETTO\n");
  EXPECT_TRUE(Contiene(out, "[HP/HS da Libretto Misure ??] Assegnare ai Punti "));
  EXPECT_EQ(b.s.PuntoHPrisma[0], 0.0f);
  b.Script("ANSWER si\nTAG HPS_DA_LIBRETTO\n");
  EXPECT_EQ(std::make_tuple(b.s.PuntoHPrisma[0], b.s.PuntoHPrisma[1], b.s.PuntoHPrisma[2]),
            std::make_tuple(1.55f, 1.3f, 1.8f));
  // The scheme ties the station to the other station only; the whole drawing adds the levelling.
  b.Script("TAG SCHEMA_DA_LIBRETTO\n");
  ASSERT_EQ(b.s.ContaEntita[SlotLinee], 1);
  EXPECT_EQ(std::make_tuple(b.s.LineaX2[0], b.s.LineaPiano[0]), std::make_tuple(10.0, "SCHEMALI"));
  b.Script("TAG DISEGNO_DA_LIBRETTO\n");
  ASSERT_EQ(std::make_tuple(b.s.ContaEntita[SlotLinee], b.s.ContaEntita[SlotSette]), std::make_tuple(2, 1));
  EXPECT_EQ(std::make_tuple(b.s.SetteContorno[0], b.s.SetteCommento[0]), std::make_tuple("|100|200|", "LIVELLAZIONE DAL MEZZO"));
  EXPECT_EQ(LineeSette(b.s), (std::vector<std::pair<std::string, V>>{{"LIVELLAZIONE DAL MEZZO", {0, 0, 10, 0}}}));
}

TEST(ContornoSette, IlDialogoInserisceEliminaELaPosizioneMancante) {
  Banco b;
  MettiPunti(b.s, {{"1", 0, 0}, {"2", 10, 0}, {"PF3/0010/G693", 10, 10}});
  b.Pronto(5, 5, 40);
  b.Opzioni.Rigoroso = false;
  const std::string out = b.Script(
      "TAG DISEGNA_POLIGONALE\nCLICK left @1\nCLICK right 0 0\nCLICK right 0 0\n"
      "FIELD ContornoSette.Nome PF3/0010/G693\nPRESS ContornoSette.Aggiungi\n"
      "FIELD ContornoSette.Nome 2\nFIELD ContornoSette.Posizione 9\nPRESS ContornoSette.Inserisci\n"
      "FIELD ContornoSette.Posizione 2\nPRESS ContornoSette.Inserisci\n"
      "EXPECT campo ContornoSette.Vertici 1|2|PF3/0010/G693\n"
      "FIELD ContornoSette.Posizione 1\nPRESS ContornoSette.Elimina\nPRESS ContornoSette.Conferma\n");
  EXPECT_TRUE(Contiene(out, "MESSAGGIO [Posizone di inserimento] Selezionare la posizione di inserimento!"));
  ASSERT_EQ(b.s.ContaEntita[SlotSette], 1);
  EXPECT_EQ(std::tie(b.s.SetteContorno[0], b.s.SetteCommento[0]), std::make_tuple("|2|PF3/0010/G693|", "POLIGONALE"));
  // A traverse: pen 40 and line type 4, a thin line.
  const ElencoDisegno& d = b.s.ListaDisegno;
  std::vector<int16_t> penne;
  for (size_t k = 0; k < static_cast<size_t>(d.Conta()); ++k)
    if (d.Tipo[k] == SlotSette) penne.push_back(d.Penna[k]);
  EXPECT_EQ(std::make_tuple(penne, b.UltimoEsito.Codice), std::make_tuple(std::vector<int16_t>{40}, 0));
}

TEST(ContornoSette, CodiciNomiMancantiEEtichetta) {
  Banco b;
  MettiPunti(b.s, {{"1", 0, 0}, {"2", 10, 0}, {"12A", 10, 10}});
  subAggiungiSetteSingolo(b.s, "|1|2|99|12A|A12|RT|", "", "P1|||7.5|2.5", 1, 1);
  subAggiungiSetteSingolo(b.s, "|1|2|12A|", kCogo, "*V*", 8, 3);
  subAggiungiSetteSingolo(b.s, "|1|", "", "", 1, 1);
  b.Pronto(5, 5, 40);
  const ElencoDisegno& d = b.s.ListaDisegno;
  std::vector<std::tuple<int32_t, int16_t, float, V>> righe;
  for (int64_t i = 0; i < d.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    if (d.Tipo[k] != SlotSette) continue;
    V v = Estremi(d, i);
    if (d.Primitiva[k] == PrimTesto) v.resize(2);
    righe.push_back({d.Riga[k], d.Penna[k], d.Spessore[k], v});
  }
  // "RT" from the end: red, dashed, thin; "99" finds no point; "A12" is a code of no letter
  // of the codes; "12A" reads 12 and is a point. The label at (Est 2.5, Nord 7.5) in pen 1.
  // The bilateral: the base thick, then the point tied to both ends. "|1|" draws nothing.
  using R = std::vector<std::tuple<int32_t, int16_t, float, V>>;
  EXPECT_EQ(righe, (R{{0, 1, 1.0f, {10, 10, 10, 0}}, {0, 1, 1.0f, {10, 0, 0, 0}}, {0, 1, 1.0f, {2.5, 7.5}},
                      {1, 30, 3.0f, {0, 0, 10, 0}}, {1, 30, 1.0f, {0, 0, 10, 10}}, {1, 30, 1.0f, {10, 0, 10, 10}}}));
}

}  // namespace
}  // namespace varena
