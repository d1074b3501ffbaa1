// The archive of jobs, the recent list, the provisional copies left behind, inclusion.
#include <gtest/gtest.h>

#include "store/Registro.h"
#include "store/Salva.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "store/Slot.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::ScriviFileProva;

using prova::CopiaEsempio;

// The example job copied into a folder of the working root.
class RegistroEsempio : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  const std::string base = CopiaEsempio(p.cartella / "lavori");
};

TEST(Registro, ArchivioConVirgoleNellaDescrizione) {
  prova::SessioneProva p;
  ScriviFileProva(p.s.CartellaLavoro + "VRLAVORI.LAV",
                  "\"C:\\\\LAVORI\\\\ROSSI.CFG\",\"Frazionamento\",\"12/03/2021\"\r\n"
                  "/home/g/LAVORI/BIANCHI,Rilievo, casa e orto,01/02/2022\r\n\r\n");
  const auto righe = CaricaGriglia(p.s);
  ASSERT_EQ(righe.size(), 2u);
  EXPECT_EQ(std::tie(righe[0].Percorso, righe[0].Nome, righe[0].Descrizione, righe[0].Data),
            std::make_tuple("C:\\LAVORI\\ROSSI.CFG", "ROSSI", "Frazionamento", "12/03/2021"));
  // ".CFG" added; the comma pushed the date along.
  EXPECT_EQ(std::tie(righe[1].Percorso, righe[1].Descrizione, righe[1].Data),
            std::make_tuple("/home/g/LAVORI/BIANCHI.CFG", "Rilievo", "casa e orto"));
}

TEST(Registro, LavoriRecentiESvuotamento) {
  prova::SessioneProva p;
  ScriviFileProva(p.s.CartellaLavoro + "LavoriRecenti.txt", "/a/UNO.CFG\r\n\r\n/b/DUE.CFG\r\n");
  EXPECT_EQ(LavoriRecenti(p.s), (std::vector<std::string>{"/a/UNO.CFG", "/b/DUE.CFG"}));
  p.ui.Rispondi(Risposta::No);
  EXPECT_FALSE(SvuotaLavoriRecenti(p.s));
  EXPECT_EQ(std::tie(p.ui.Domande.back().Testo, p.ui.Domande.back().Titolo),
            std::make_tuple("Eliminare Lavori Recenti ?? ", "Eliminazione Lavori Recenti"));
  p.ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(SvuotaLavoriRecenti(p.s));
  EXPECT_TRUE(LavoriRecenti(p.s).empty());
}

TEST_F(RegistroEsempio, CopiaProvvisoriaRecuperataDopoUnaChiusuraMancata) {
  ASSERT_TRUE(ApriLavoroScelto(p.s, base + ".cfg"));
  // An edit reaches the provisional copy through its snapshot; then the program dies.
  p.s.PuntoNome[0] = "PF99/0010/G693";
  SegnaModificato(p.s, SlotPunti);
  ASSERT_TRUE(VR_SalvaUndo(p.s));
  const std::string provvisorio = p.s.NomeLavoro;

  prova::SessioneProva dopo;  // a new run, same working root
  dopo.s.CartellaLavoro = p.s.CartellaLavoro;
  const auto aperti = ElencaLavoriAperti(dopo.s);
  ASSERT_EQ(aperti.size(), 1u);  // its undo generations are not listed
  EXPECT_EQ(aperti[0].Voce, provvisorio + " - " + base);
  EXPECT_FALSE(RecuperaLavoroAperto(dopo.s, ""));
  EXPECT_EQ(dopo.ui.Messaggi.back().Testo, "Selezionare una riga!");
  ASSERT_TRUE(RecuperaLavoroAperto(dopo.s, aperti[0].Voce));
  EXPECT_EQ(std::tie(dopo.s.NomeOriginale, dopo.s.PuntoNome[0], dopo.s.ContaEntita[SlotPunti]),
            std::make_tuple(base, "PF99/0010/G693", 20));
  // Saved to its original: the user's job now has the edit, the copy is gone.
  ASSERT_TRUE(SalvaLavoroAperto(dopo.s, aperti[0].Voce));
  EXPECT_TRUE(ElencaLavoriAperti(dopo.s).empty());
  prova::SessioneProva verifica;
  ASSERT_TRUE(ApriLavoroScelto(verifica.s, base + ".CFG"));
  EXPECT_EQ(verifica.s.PuntoNome[0], "PF99/0010/G693");
  EXPECT_TRUE(prova::Esiste(base + ".LLK"));  // with its backup
}

TEST_F(RegistroEsempio, EliminaLavoroETuttiIProvvisori) {
  ScriviFileProva(p.cartella / "lavori/RILIEVO2.CFG", "");
  p.ui.Rispondi(Risposta::Si);
  ASSERT_TRUE(EliminaLavoro(p.s, base + ".CFG"));
  EXPECT_EQ(std::tie(p.ui.Domande.back().Testo, p.ui.Domande.back().Titolo),
            std::make_tuple("Eliminare definitivamente il Lavoro RILIEVO", "Elimina Lavoro"));
  EXPECT_FALSE(prova::Esiste(base + ".LLL"));
  EXPECT_TRUE(prova::Esiste(p.cartella / "lavori/RILIEVO2.CFG"));  // another job's name
  ScriviFileProva(p.s.CartellaLavoro + "PROVVISO/X_1.CFG", "");
  EliminaTuttiProvvisori(p.s);
  EXPECT_TRUE(fs::is_empty(p.s.CartellaLavoro + "PROVVISO"));
}

TEST_F(RegistroEsempio, IncludereUnaTabellaLaRileggeAdOgniCaricamento) {
  ASSERT_TRUE(ApriLavoroScelto(p.s, base + ".CFG"));
  const size_t prima = p.ui.Messaggi.size();
  const std::string taf = p.cartella / "FIDUCIALI.TAF";
  ScriviFileProva(taf, prova::RigaFiduciale(1) + "\r\n");
  ASSERT_TRUE(IncludiDisegno(p.s, {taf, "/dati/MANCANTE.TAF"}));
  EXPECT_EQ(p.s.Cfg.VB(B_FileAssociati, 0).Testo, taf + "|/dati/MANCANTE.TAF|");
  // The table's point comes on INCLUSI; a table gone since is passed over in silence.
  EXPECT_EQ(p.ui.Messaggi.size(), prima);
  ASSERT_EQ(p.s.ContaEntita[SlotPunti], 21);
  EXPECT_EQ(std::tie(p.s.PuntoNome[20], p.s.PuntoPiano[20]), std::make_tuple("PF01/0120/A123", "INCLUSI"));
  // Taken out again, its point goes with it; the other name stays listed.
  ASSERT_TRUE(TogliDisegnoIncluso(p.s, taf));
  EXPECT_EQ(p.s.Cfg.VB(B_FileAssociati, 0).Testo, "/dati/MANCANTE.TAF|");
  EXPECT_EQ(p.s.ContaEntita[SlotPunti], 20);
}

TEST_F(RegistroEsempio, UnLavoroInclusoSiVedeMaNonSiSalvaNeSiRichiude) {
  const std::string altro = CopiaEsempio(p.cartella / "altri");
  ASSERT_TRUE(ApriLavoroScelto(p.s, base + ".CFG"));
  const auto prima = p.s.ContaEntita;
  ASSERT_FALSE(IncludiDisegno(p.s, {p.cartella / "LAVORI/rilievo.cfg"}));
  EXPECT_EQ(p.ui.Messaggi.back().Testo, "Un Lavoro non può includere se stesso!");
  ASSERT_TRUE(IncludiDisegno(p.s, {altro + ".CFG"}));
  // Every kind drawn twice, the copies on INCLUSI; a save writes the job's own rows only.
  ASSERT_TRUE(SalvaTutto(p.s, true));
  for (const auto& [slot, piano] : {std::pair{SlotPunti, &p.s.PuntoPiano}, {SlotLinee, &p.s.LineaPiano},
                                    {SlotCerchi, &p.s.CerchioPiano}, {SlotArchi, &p.s.ArcoPiano},
                                    {SlotTesti, &p.s.TestoPiano}}) {
    ASSERT_EQ(p.s.ContaEntita[slot], 2 * prima[slot]) << slot;
    EXPECT_EQ(piano->at(static_cast<size_t>(prima[slot])), "INCLUSI");
    EXPECT_EQ(fs::file_size(p.s.NomeLavoro + EstensioneFile(slot)), fs::file_size(base + EstensioneFile(slot)));
  }
  EXPECT_EQ(prova::LeggiFileProva(p.s.NomeLavoro + ".L"), prova::LeggiFileProva(base + ".L"));
  // Saved, the job names the other one: that one cannot include it back.
  ASSERT_TRUE(VR_DaProvvisoAOriginale(p.s));
  prova::SessioneProva q;
  ASSERT_TRUE(ApriLavoroScelto(q.s, altro + ".CFG"));
  ASSERT_FALSE(IncludiDisegno(q.s, {base + ".CFG"}));
  EXPECT_EQ(q.ui.Messaggi.back().Testo, "Il Lavoro RILIEVO include già questo!");
  // Broken, it gives what it holds: settings that are no list, a line member cut short
  // (100 bytes of a 128-byte record count as one).
  prova::ScriviFileProva(altro + ".CFG", std::string("\xff\"\x01,,\r\n\"VR2020", 12));
  fs::resize_file(altro + ".LIN", 100);
  ASSERT_TRUE(ApriLavoroScelto(q.s, base + ".CFG"));
  EXPECT_EQ(q.s.ContaEntita[SlotLinee], prima[SlotLinee] + 1);
  // Gone since, it is said at opening, and the job opens without it.
  for (const auto& membro : prova::MembriDi(altro)) fs::remove(altro + membro.first);
  const size_t detti = q.ui.Messaggi.size();
  ASSERT_TRUE(ApriLavoroScelto(q.s, base + ".CFG"));
  ASSERT_EQ(q.ui.Messaggi.size(), detti + 1);
  EXPECT_EQ(q.ui.Messaggi.back().Testo, "Disegni inclusi non trovati:\n" + altro + ".CFG");
  EXPECT_EQ(q.s.ContaEntita[SlotLinee], prima[SlotLinee]);
}

}  // namespace
}  // namespace varena
