// The paste readers on the seeds of their fuzz targets, written by hand from the listing's
// words, the table's columns and the hand-over file's statements; and the paste into a job
// through the clipboard port: rows on the current layer and one undo step.
#include <gtest/gtest.h>

#include <filesystem>

#include "Terminale.h"
#include "commands/Comandi.h"
#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"
#include "core/Dialoghi.h"
#include "exchange/Incolla.h"
#include "selection/Selezione.h"
#include "store/Provvisorio.h"
#include "store/Undo.h"
#include "support/Supporto.h"

namespace varena {
namespace {

std::string Seme(const std::string& nome) {
  return prova::LeggiFileProva(std::string(VARENA_SORGENTI) + "/tests/fuzz/corpus/" + nome);
}

// For each row: kind, the two points, radius, start, amplitude, height, rotation, name,
// description, text.
std::vector<std::string> Descritte(const EsitoIncolla& esito) {
  std::vector<std::string> d;
  for (const EntitaIncollata& e : esito.Entita) {
    std::ostringstream o;
    o << e.Genere << " " << e.A.X << "," << e.A.Y << "," << e.A.Z << " " << e.B.X << "," << e.B.Y << "," << e.B.Z << " "
      << e.Raggio << " " << e.Inizio << " " << e.Ampiezza << " " << e.Altezza << " " << e.Rotazione << " [" << e.Nome
      << "|" << e.Descrizione << "|" << e.Testo << "]";
    d.push_back(o.str());
  }
  return d;
}

TEST(Incolla, ListatoCadItalianoEInglese) {
  // The end angle's line (no "iniziale angolo" on it) reads the start angle again at the
  // column where that word would stand: "35.5"; the amplitude stays 0.
  const EsitoIncolla e = LeggiListatoCad(Seme("dacad/listato.txt"));
  EXPECT_EQ(Descritte(e), (std::vector<std::string>{
                              "L 10,20,0 30,40,1.5 0 0 0 0 0 [||]",
                              "C 5,6,0 30,40,1.5 2.5 0 0 0 0 [||]",
                              "A 1,2,0 30,40,1.5 3 35.5 0 0 0 [||]",
                              "T 7,8,0 30,40,1.5 3 35.5 0 1.25 30 [||Ciao mondo]",
                              "P 3,4,5 30,40,1.5 3 35.5 0 1.25 30 [|DaCad|Ciao mondo]",
                              "L 1,2,0 3,4,0 3 35.5 0 1.25 30 [|DaCad|Ciao mondo]"}));
  EXPECT_EQ(e.Lettura.TotaleDanneggiate, 0);
}

TEST(Incolla, TabellaConTabPuntiEVirgoleRigaIllegibileNominata) {
  const EsitoIncolla e = LeggiTabellaIncollata(Seme("tabellaincollata/tabella.txt"));
  EXPECT_EQ(Descritte(e), (std::vector<std::string>{"P 0,0,0 0,0,0 0 0 0 0 0 [Nome|Descrizione|]",
                                                    "P 10.5,20.25,3 0,0,0 0 0 0 0 0 [P1|muro|]",
                                                    "P 1,2,0 0,0,0 0 0 0 0 0 [P2||]",
                                                    "P 1000,2,0 0,0,0 0 0 0 0 0 [P3||]"}));
  EXPECT_EQ(DescriviRigheDanneggiate(e.Lettura), "Riga non letta: 4");
  std::string grande;
  for (int i = 0; i < 100000; ++i) grande += "P" + std::to_string(i) + "\t" + std::to_string(i) + ",5\t1\t2\r\n";
  EXPECT_EQ(LeggiTabellaIncollata(grande).Entita.size(), 100000u);
}

TEST(Incolla, FileDiCopiaNelLavoroSulPianoCorrenteInUnPasso) {
  prova::CartellaTemporanea t;
  Sessione s;
  InterfacciaRegistrata ui;
  s.Ui = &ui;
  ASSERT_TRUE(cli::ApriInCopia(s, prova::CopiaEsempio(t.Percorso())));
  s.PianoCorrente = "STRADA";
  s.CartellaLavoro = t / "";
  const int64_t passo = LeggiDiario(s)->Passo;
  std::filesystem::create_directory(t / "temp");
  prova::ScriviFileProva(PercorsoCopiaInFile(s), Seme("copiainfile/copia.txt"));
  EseguiTag(s, "INCOLLA_DA_FILE");
  EXPECT_EQ(LeggiDiario(s)->Passo, passo + 1);
  // The fields of each row pasted are checked below, as "Copia in File" writes them back.
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.ContaEntita[SlotFalde], s.PuntoNome[20], s.UltimoErrore),
            std::make_tuple(13, 1, "P9", ""));
  EXPECT_FLOAT_EQ(s.PuntoHPrisma[20], 1.6f);
  ASSERT_EQ(ui.Messaggi.size(), 2u);
  EXPECT_EQ(std::tie(ui.Messaggi[0].Testo, ui.Messaggi[1].Testo, ui.Messaggi[1].Titolo),
            std::make_tuple("Riga non letta: 9", "Incolla Eseguito!", "Incolla da File"));

  // "Copia in File" writes the rows selected back in the statements they came in. Line 12:
  // 7 colour, 2 line type, 0.5 truncation, the current layer in place of its own.
  EseguiTag(s, "COPIA_IN_FILE");
  for (int slot : {SlotPunti, SlotLinee, SlotCerchi, SlotArchi, SlotTesti, SlotFalde})
    *ByteStato(s, slot, static_cast<int32_t>(s.ContaEntita[static_cast<size_t>(slot)] - 1)) = 1;
  PremiBottone(s, "Selezentita", "OK");
  const std::string copia = prova::LeggiFileProva(PercorsoCopiaInFile(s));
  EXPECT_EQ(copia.substr(0, copia.find("\"L\"")).substr(0, 12), "\"P\",\"P9\",10,");
  EXPECT_EQ(copia.substr(copia.find("\"L\""), copia.find("\"F\"") - copia.find("\"L\"")),
            "\"L\",1,2,3,4,5,6,7,2,0,\"STRADA\",0.5\r\n"
            "\"C\",1,2,0,3,5,1,0,\"STRADA\"\r\n"
            "\"A\",1,2,0,3,10,20,4,1,0,\"STRADA\",1.5,2.5\r\n"
            "\"T\",7,8,100,1.5,1,6,0,1,\"STRADA\",\"Arial\",\"Ciao\"\r\n");
  // The facet as the paste made it: a base of 50 m2 one metre above the plane, its labels
  // placed again.
  EXPECT_EQ(copia.substr(copia.find("\"F\""), 45), "\"F\",0,0,1,10,0,1,0,10,1,4,0,50,50,0,\"STRADA\",");
  EliminaProvviso(s);
}

}  // namespace
}  // namespace varena
