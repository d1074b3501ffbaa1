// The section member written by hand, read into the table, written back byte for byte
// through a job's load, save and undo; members that do not read are kept as they stand.
#include <gtest/gtest.h>

#include "core/CodicePagina.h"
#include "core/Testo.h"
#include "sections/FileSezioni.h"
#include "store/Carica.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "support/Supporto.h"

namespace varena {
namespace {

// The layout of one section, statement by statement, as the dialog's groups stand.
std::string Configurazione(const std::string& base, const std::string& congela) {
  return "1000,100\r\n"                                  // scales of lengths and heights
         "2,1,3\r\n"                                     // terrain: text height, red heights, colour
         "1,9\r\n"                                       // verticals
         "7\r\n"                                         // datum line colour
         "1,8,2,7,0,\"Picchetti\"\r\n"                   // point names
         "1,95.5\r\n"                                    // project profile, reference height
         "1,8,2,7,0,\"Distanze Parziali\"\r\n"           // partial distances
         "1,2,7,0,\"Distanze Progressive\"\r\n"          // progressives
         "0,8,2,7,0,0,0\r\n"                             // slope distances
         "1,2,3,\"Quote Terreno\"\r\n"                   // terrain heights
         "0,5,0\r\n"                                     // invaso line
         "\"" + base + "\",0\r\n"                        // layer prefix
         "1,3,7\r\n1,3,7,0\r\n0,2,7\r\n1,2,7\r\n"        // the four blocks of the title
         "\"7|1|1|0.0|0.0|0.0|0|1|0|0.0|8.0|10.0|0|10.0|2.0|1|Quote Progetto|Distanze Inclinate|2|0.0|0.0|0|0|0|0|" +
         congela + "|1|1|1|0|\"\r\n";
}

std::string Blocco(const std::string& indice, const std::string& stazioni, int n, const std::string& congela = "0") {
  return "\"<INIZIO SEZIONE>\"\r\n" + Configurazione("STRADA", congela) + "\"" + indice + "\",1000,2000\r\n" +
         std::to_string(n) + "\r\n" + stazioni + "\"<FINE SEZIONE>\"\r\n";
}

const std::string kTre = "\"P1\",1725000.5,5031000,101.25,101.25\r\n"
                         "\"P2\",1725010.5,5031000,102,101.5\r\n"
                         "\"P3 \xE8\",1725030.5,5031000,100.75,101\r\n";

TEST(FileSezioni, IlMembroScrittoAManoSiLeggeESiRiscriveUgualeByteAByte) {
  const std::string membro = Blocco("ASSE 1", kTre, 3) + Blocco("TRASVERSALE", "\"A\",1,2,-3.5,-3.5\r\n", 1, "-1");
  const std::vector<Sezione> z = LeggiSezioni(Cp1252InUtf8(membro), 0);
  ASSERT_EQ(z.size(), 2u);
  EXPECT_EQ(std::tie(z[0].IndiceSezione, z[0].OrigineX, z[0].Cfg.ScalaLunghezze, z[0].Cfg.QuotaRiferimento),
            std::make_tuple("ASSE 1", 1000, 1000, 95.5));
  EXPECT_EQ(std::tie(z[0].Cfg.NomeBase, z[0].Cfg.NomiPunti.Titolo, z[0].Cfg.QuoteTerreno.AltezzaFincatura),
            std::make_tuple("STRADA", "Picchetti", 10));
  EXPECT_EQ(std::tie(z[0].Cfg.QuoteProgetto.Titolo, z[0].Cfg.DecimaliParziali, z[0].Cfg.NomiPunti.OrientamentoVerticale,
                     z[0].Cfg.QuoteTerreno.OrientamentoVerticale), std::make_tuple("Quote Progetto", 2, 0, 1));
  ASSERT_EQ(z[0].Stazioni.size(), 3u);
  EXPECT_EQ(std::tie(z[0].Stazioni[2].Nome, z[0].Stazioni[1].QuotaTerreno, z[0].Stazioni[1].QuotaProgetto),
            std::make_tuple("P3 è", 102, 101.5));
  EXPECT_EQ(std::tie(z[1].Cfg.Congela, z[1].Stazioni[0].QuotaTerreno), std::make_tuple(-1, -3.5));

  // Through a job: opened, saved, an edit undone; the member is the same bytes each time.
  prova::SessioneProva p;
  Sessione& s = p.s;
  const std::string base = p.Lavoro("STRADA");
  prova::ScriviFileProva(base + ".SEZ", membro);
  s.NomeOriginale = base;
  VR_ApriLavoro(s);
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 2);
  EXPECT_EQ(s.SezioneDati[0], z[0]);
  EXPECT_EQ(prova::LeggiFileProva(s.NomeLavoro + ".SEZ"), membro);
  s.SezioneDati[0].Stazioni[0].QuotaProgetto = 99;
  SegnaRiga(s, SlotSezioni, 0);
  ASSERT_TRUE(VR_SalvaUndo(s));
  EXPECT_NE(prova::LeggiFileProva(s.NomeLavoro + ".SEZ"), membro);
  ASSERT_TRUE(VR_UNDO(s));
  EXPECT_EQ(s.SezioneDati[0], z[0]);
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(prova::LeggiFileProva(base + ".SEZ"), membro);
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

// A station line repeated n times.
std::string Stazioni(int n) {
  std::string t;
  for (int k = 0; k < n; ++k) t += "\"" + std::to_string(k) + "\"," + std::to_string(k) + ",0,10,10\r\n";
  return t;
}

// At the bounds: 500 stations and none read; an empty or blank index reads as the row's number.
TEST(FileSezioni, AiLimitiSiLegge) {
  EXPECT_EQ(LeggiSezioni(Blocco("L", Stazioni(500), 500), 0).at(0).Stazioni.size(), 500u);
  EXPECT_EQ(LeggiSezioni(Blocco("V", "", 0), 0).at(0).Stazioni.size(), 0u);
  const std::vector<Sezione> z = LeggiSezioni(Blocco("A", kTre, 3) + Blocco("", kTre, 3) + Blocco(" ", kTre, 3), 0);
  ASSERT_EQ(z.size(), 3u);
  EXPECT_EQ(std::tie(z[1].IndiceSezione, z[2].IndiceSezione), std::make_tuple("1", "2"));
}

// No half of a member that does not read is taken: the job opens without sections, and the
// member stays as it was through the snapshots and the save.
TEST(FileSezioni, UnMembroGuastoOTroncoNonSiLeggeERestaCom_E) {
  const std::string buono = Blocco("A", kTre, 3);
  const std::string casi[] = {
      buono.substr(0, buono.size() / 2),                      // cut in the middle
      buono.substr(0, buono.size() - 20),                     // the closing mark lost
      "\"<INIZIO SEZIONE>\"\r\nspazzatura\r\n",               // garbage
      Sostituisci(buono, "\"<FINE SEZIONE>\"", "\"ALTRO\""),  // a block that ends wrong
      Sostituisci(buono, "\r\n3\r\n", "\r\n-3\r\n"),          // a count below zero
      Sostituisci(buono, "\r\n3\r\n", "\r\n4\r\n"),           // one station more than the lines
      Blocco("L", Stazioni(3), 3) + Blocco("M", Stazioni(501), 501),  // one station too many
  };
  std::string messaggio;
  for (const std::string& caso : casi) {
    EXPECT_THROW(LeggiSezioni(caso, 0), std::exception) << caso;
    prova::SessioneProva p;
    const std::string base = p.Lavoro("GUASTA");
    prova::ScriviFileProva(base + ".SEZ", caso);
    p.s.NomeOriginale = base;
    VR_ApriLavoro(p.s);
    EXPECT_EQ(p.s.ContaEntita[SlotSezioni], 0);
    ASSERT_EQ(p.ui.Messaggi.size(), 1u);
    messaggio = p.ui.Messaggi[0].Testo;
    ASSERT_TRUE(VR_SalvaUndo(p.s));
    ASSERT_TRUE(Salva(p.s));
    EXPECT_EQ(prova::LeggiFileProva(base + ".SEZ"), caso);
  }
  EXPECT_EQ(messaggio,
            "Si è verificato questo errore : Subscript out of range: la sezione 2 dichiara 501 punti, al massimo 500 o "
            "il file potrebbe essere di sola lettura!\nNella Routine Carica Sezioni");
}

}  // namespace
}  // namespace varena
