// The archive of jobs, the recent list, the provisional copies left behind, inclusion.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/Sessione.h"
#include "store/Registro.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "store/Slot.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::ScriviFileProva;

// The example job copied under `cartella` as RILIEVO.*.
std::string CopiaEsempio(const std::string& cartella) {
  fs::create_directories(cartella);
  for (const auto& f : fs::directory_iterator(std::string(VARENA_SORGENTI) + "/examples"))
    if (f.path().stem() == "RILIEVO") fs::copy_file(f.path(), cartella + "/" + f.path().filename().string());
  return cartella + "/RILIEVO";
}

TEST(Registro, ArchivioConVirgoleNellaDescrizione) {
  prova::SessioneProva p;
  ScriviFileProva(p.s.CartellaLavoro + "VRLAVORI.LAV",
                  "\"C:\\\\LAVORI\\\\ROSSI.CFG\",\"Frazionamento\",\"12/03/2021\"\r\n"
                  "/home/g/LAVORI/BIANCHI,Rilievo, casa e orto,01/02/2022\r\n\r\n");
  const auto righe = CaricaGriglia(p.s);
  ASSERT_EQ(righe.size(), 2u);
  EXPECT_EQ(righe[0].Percorso, "C:\\LAVORI\\ROSSI.CFG");
  EXPECT_EQ(righe[0].Nome, "ROSSI");
  EXPECT_EQ(righe[0].Descrizione, "Frazionamento");
  EXPECT_EQ(righe[0].Data, "12/03/2021");
  EXPECT_EQ(righe[1].Percorso, "/home/g/LAVORI/BIANCHI.CFG");  // ".CFG" added
  EXPECT_EQ(righe[1].Descrizione, "Rilievo");
  EXPECT_EQ(righe[1].Data, "casa e orto");  // the comma pushed the date along
}

TEST(Registro, LavoriRecentiESvuotamento) {
  prova::SessioneProva p;
  ScriviFileProva(p.s.CartellaLavoro + "LavoriRecenti.txt", "/a/UNO.CFG\r\n\r\n/b/DUE.CFG\r\n");
  EXPECT_EQ(LavoriRecenti(p.s), (std::vector<std::string>{"/a/UNO.CFG", "/b/DUE.CFG"}));
  p.ui.Rispondi(Risposta::No);
  EXPECT_FALSE(SvuotaLavoriRecenti(p.s));
  EXPECT_EQ(p.ui.Domande.back().Testo, "Eliminare Lavori Recenti ?? ");
  EXPECT_EQ(p.ui.Domande.back().Titolo, "Eliminazione Lavori Recenti");
  p.ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(SvuotaLavoriRecenti(p.s));
  EXPECT_TRUE(LavoriRecenti(p.s).empty());
}

TEST(Registro, CopiaProvvisoriaRecuperataDopoUnaChiusuraMancata) {
  prova::SessioneProva p;
  const std::string base = CopiaEsempio(p.cartella / "lavori");
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
  EXPECT_EQ(dopo.s.NomeOriginale, base);
  EXPECT_EQ(dopo.s.PuntoNome[0], "PF99/0010/G693");
  EXPECT_EQ(dopo.s.ContaEntita[SlotPunti], 20);
  // Saved to its original: the user's job now has the edit, the copy is gone.
  ASSERT_TRUE(SalvaLavoroAperto(dopo.s, aperti[0].Voce));
  EXPECT_TRUE(ElencaLavoriAperti(dopo.s).empty());
  prova::SessioneProva verifica;
  ASSERT_TRUE(ApriLavoroScelto(verifica.s, base + ".CFG"));
  EXPECT_EQ(verifica.s.PuntoNome[0], "PF99/0010/G693");
  EXPECT_TRUE(prova::Esiste(base + ".LLK"));  // with its backup
}

TEST(Registro, EliminaLavoroETuttiIProvvisori) {
  prova::SessioneProva p;
  const std::string base = CopiaEsempio(p.cartella / "lavori");
  ScriviFileProva(p.cartella / "lavori/RILIEVO2.CFG", "");
  p.ui.Rispondi(Risposta::Si);
  ASSERT_TRUE(EliminaLavoro(p.s, base + ".CFG"));
  EXPECT_EQ(p.ui.Domande.back().Testo, "Eliminare definitivamente il Lavoro RILIEVO");
  EXPECT_EQ(p.ui.Domande.back().Titolo, "Elimina Lavoro");
  EXPECT_FALSE(prova::Esiste(base + ".LLL"));
  EXPECT_TRUE(prova::Esiste(p.cartella / "lavori/RILIEVO2.CFG"));  // another job's name
  ScriviFileProva(p.s.CartellaLavoro + "PROVVISO/X_1.CFG", "");
  EliminaTuttiProvvisori(p.s);
  EXPECT_TRUE(fs::is_empty(p.s.CartellaLavoro + "PROVVISO"));
}

TEST(Registro, IncludereUnaTabellaLaRileggeAdOgniCaricamento) {
  prova::SessioneProva p;
  const std::string base = CopiaEsempio(p.cartella / "lavori");
  ASSERT_TRUE(ApriLavoroScelto(p.s, base + ".CFG"));
  const size_t prima = p.ui.Messaggi.size();
  std::string riga(130, ' ');
  riga.replace(0, 4, "A123").replace(8, 2, "12").replace(16, 1, "1");
  riga.replace(101, 12, "    2000.000").replace(114, 12, "    1000.000");
  const std::string taf = p.cartella / "FIDUCIALI.TAF";
  ScriviFileProva(taf, riga + "\r\n");
  ASSERT_TRUE(IncludiDisegno(p.s, {taf, "/dati/MANCANTE.TAF"}));
  EXPECT_EQ(p.s.Cfg.VB(B_FileAssociati, 0).Testo, taf + "|/dati/MANCANTE.TAF|");
  // The table's point comes on INCLUSI; a table gone since is passed over in silence.
  EXPECT_EQ(p.ui.Messaggi.size(), prima);
  ASSERT_EQ(p.s.ContaEntita[SlotPunti], 21);
  EXPECT_EQ(p.s.PuntoNome[20], "PF01/0120/A123");
  EXPECT_EQ(p.s.PuntoPiano[20], "INCLUSI");
}

}  // namespace
}  // namespace varena
