// The reference tables: default files byte for byte, reading back, limits and bad files.
#include <gtest/gtest.h>

#include "core/Codici.h"
#include "core/Colori.h"
#include "core/Comuni.h"
#include "core/FileTabella.h"
#include "core/Piani.h"
#include "core/Tratteggi.h"
#include "support/ProvaTabelle.h"

namespace varena {
namespace {

using prova::Esiste;
using prova::LeggiFileProva;
using prova::ScriviFileProva;

// A default file as it must reach the disk when it is missing, typed from the table of
// defaults into tests/data/impostazioni.
std::string Predefinito(const std::string& nome) {
  return prova::LeggiFileProva(VARENA_SORGENTI "/tests/data/impostazioni/" + nome);
}

// Each loader run on a file written just before it.
class TabelleRiferimento : public prova::ProvaTabelle {
 protected:
  void Colori(const std::string& t) { ScriviFileProva(Programma("COLORI.ini"), t); CaricaColori(s, PercorsoColori(s)); }
  void Spessori(const std::string& t) { ScriviFileProva(Lavoro("Spessori1.ini"), t); CaricaSpessori(s, PercorsoSpessori(s)); }
  void Tratteggi(const std::string& t) { ScriviFileProva(Programma("LINEE.INI"), t); CaricaTratteggi(s); }
  void Codici(const std::string& t) { ScriviFileProva(Lavoro("VRPUNTI.COD"), t); CaricaCodici(s, PercorsoCodici(s)); }
  void Piani1(const std::string& t) { ScriviFileProva(Lavoro("PIANI.INI"), t); CaricaPiani1(s); }
};

// The style's elements behind its count.
std::vector<double> Elementi(const Tratteggio& t) {
  return {t.Elementi.begin() + 1, t.Elementi.begin() + 1 + t.NumeroElementi()};
}

using prova::Spazzatura;

TEST_F(TabelleRiferimento, ColoriCreatiEConfezionati) {
  CaricaColori(s, PercorsoColori(s));
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(LeggiFileProva(Programma("COLORI.ini")), Predefinito("COLORI.ini"));
  // Outside the file: black.
  EXPECT_EQ(std::make_tuple(s.Colori.NumeroColori, s.Colori[8], s.Colori[0], s.Colori[-1], s.Colori[10], s.Colori[9999]),
            std::make_tuple(9, 0x414141u, 0u, 0u, 0u, 0u));
  EXPECT_EQ(TrovaOrigine(s, "COLORI.ini")->Stato, StatoFile::Creato);

  // A file of the user, in another letter case, read as it stands.
  std::filesystem::remove(Programma("COLORI.ini"));
  ScriviFileProva(Programma("colori.INI"), "1,2,3,4\r\n\r\n 16 , 32 ,48\r\n300,-5,255,7,99\r\n");
  CaricaColori(s, PercorsoColori(s));
  EXPECT_TRUE(p.ui.Messaggi.empty());
  // The blank line is no row; components out of range go to the nearer end.
  EXPECT_EQ(std::make_tuple(s.Colori.NumeroColori, s.Colori[1], s.Colori[2], s.Colori.Quarto[2], s.Colori[3]),
            std::make_tuple(3, 0x010203u, 0x102030u, 0, 0xFF00FFu));
  EXPECT_FALSE(Esiste(Programma("COLORI.ini")));  // nothing written beside the user's file
}

TEST_F(TabelleRiferimento, ColoriOltreIlLimiteTengonoLePrime257) {
  std::string righe;
  for (int i = 1; i <= 260; ++i) righe += std::to_string(i % 256) + ",0,0," + std::to_string(i) + "\r\n";
  Colori(righe);
  AttesoErrore("CaricaColori", "Subscript out of range");
  EXPECT_EQ(std::make_tuple(s.Colori.NumeroColori, s.Colori[257], s.Colori.Quarto[257]),
            std::make_tuple(257, 0x010000u, 257));  // 257 % 256
  EXPECT_EQ(TrovaOrigine(s, "COLORI.ini")->Stato, StatoFile::Errato);
}

TEST_F(TabelleRiferimento, ColoriGuastiDannoIlBoxEIPredefiniti) {
  const std::string guasto = Spazzatura(4000);
  Colori(guasto);
  AttesoErrore("CaricaColori", "Invalid file format");
  EXPECT_EQ(std::make_tuple(s.Colori.NumeroColori, s.Colori[7]), std::make_tuple(9, 0xFFFFFFu));
  EXPECT_EQ(LeggiFileProva(Programma("COLORI.ini")), guasto);  // the user's file untouched

  // A row that is not numbers after good rows: the good rows stay.
  Colori("10,20,30,1\r\nrosso,0,0,2\r\n");
  AttesoErrore("CaricaColori", "Type mismatch");
  EXPECT_EQ(std::make_tuple(s.Colori.NumeroColori, s.Colori[1]), std::make_tuple(1, 0x0A141Eu));

  // One enormous line of text: no row at all, so the defaults.
  Colori(std::string(3'000'000, 'x') + "\r\n");
  AttesoErrore("CaricaColori", "Type mismatch");
  EXPECT_EQ(std::make_tuple(s.Colori.NumeroColori, p.ui.Messaggi.size()), std::make_tuple(9, 3u));
}

TEST_F(TabelleRiferimento, SpessoriDaUnoEDalFile) {
  CaricaSpessori(s, PercorsoSpessori(s));
  EXPECT_EQ(std::make_tuple(p.ui.Messaggi.size(), Esiste(Lavoro("SPESSORI1.ini"))), std::make_tuple(0u, false));
  for (float v : s.Spessori.Spessore) EXPECT_EQ(v, 1.0f);

  Spessori("2\r\n0\r\n 0.5 \r\n");
  EXPECT_EQ(std::vector<float>(s.Spessori.Spessore.begin(), s.Spessori.Spessore.begin() + 5),
            (std::vector<float>{1, 2, 0, 0.5, 1}));
  EXPECT_EQ(s.Spessori.Letti, 3);

  // Up to entry 256: further lines are not read.
  std::string molte;
  for (int i = 1; i <= 300; ++i) molte += std::to_string(i) + "\r\n";
  Spessori(molte);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(std::make_tuple(s.Spessori.Letti, s.Spessori.Spessore[256]), std::make_tuple(256, 256.0f));

  Spessori("3\r\nX\r\n");
  AttesoErrore("CaricaSpessori", "Type mismatch");
  // The rest stays as it was.
  EXPECT_EQ(std::make_tuple(s.Spessori.Spessore[1], s.Spessori.Spessore[2]), std::make_tuple(3.0f, 1.0f));
}

TEST_F(TabelleRiferimento, TratteggiCreatiELetti) {
  CaricaTratteggi(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(LeggiFileProva(Programma("linee.ini")), Predefinito("linee.ini"));
  const TabellaTratteggi& t = s.Tratteggi;
  // Style 0, no style: the plain line.
  EXPECT_EQ(std::make_tuple(t.NumeroTratteggi, t.Stili[0].NumeroElementi(), t.Stili[5].ScalaElemento), std::make_tuple(18, 0, 0.0));
  EXPECT_EQ(std::tie(t.Stili[1].NomeTratteggio, t.Stili[1].DisegnoTratteggio), std::make_tuple("CONTINUA", "__ __ __ __ "));
  EXPECT_EQ(Elementi(t.Stili[5]), (std::vector<double>{12.5, -25, 25, -25, 25, -25}));
  const Tratteggio& t7 = t.Stili[17];
  EXPECT_EQ(std::tie(t7.NomeTratteggio, t7.DisegnoTratteggio, t7.ScalaElemento, t7.AngoloElemento),
            std::make_tuple("TRATT7", "100,1 __ __ . __ __ . __ ", 100.0, 1.0));
  EXPECT_EQ(Elementi(t7), (std::vector<double>{50, -25, 50, -25, 0, -25}));
}

TEST_F(TabelleRiferimento, TratteggiGuastiEFuoriLimite) {
  // A pattern row that is not one, and one broken in the middle: fewer elements, no box.
  ScriviFileProva(Programma("LINEE.INI"),
                  "*UNO,_ _\r\nB, 1, -1\r\n\r\n*DUE,__\r\nA, 2, -2, x, 4\r\n*TRE\r\n*QUATTRO,.\r\nA,1,2,3,4,5,6,7,8,9,"
                  "10,11,12,13,14,15,16,17,18,19,20,21,22\r\n");
  CaricaTratteggi(s);
  EXPECT_EQ(std::make_tuple(p.ui.Messaggi.size(), Esiste(Programma("linee.ini"))), std::make_tuple(0u, false));
  const TabellaTratteggi& t = s.Tratteggi;
  ASSERT_EQ(t.NumeroTratteggi, 4);
  EXPECT_EQ(t.Stili[1].NumeroElementi(), 0);
  EXPECT_EQ(Elementi(t.Stili[2]), (std::vector<double>{2, -2}));
  EXPECT_EQ(std::make_tuple(t.Stili[3].NomeTratteggio, t.Stili[3].DisegnoTratteggio, t.Stili[3].NumeroElementi()),
            std::make_tuple("TRE", "", 0));
  // At most twenty.
  EXPECT_EQ(std::make_tuple(t.Stili[4].NumeroElementi(), t.Stili[4].Elementi[20]), std::make_tuple(20, 20.0));

  std::string molti;
  for (int i = 1; i <= 52; ++i) molti += "*S" + std::to_string(i) + ",_\r\nA, " + std::to_string(i) + "\r\n";
  Tratteggi(molti);
  AttesoErrore("cARICAtRATTEGGI", "Subscript out of range");
  EXPECT_EQ(std::make_tuple(s.Tratteggi.NumeroTratteggi, s.Tratteggi.Stili[50].NomeTratteggio), std::make_tuple(50, "S50"));
  EXPECT_EQ(Elementi(s.Tratteggi.Stili[50]), std::vector<double>{50});

  Tratteggi(Spazzatura(2000));
  AttesoErrore("cARICAtRATTEGGI", "Invalid file format");
  EXPECT_EQ(std::make_tuple(s.Tratteggi.NumeroTratteggi, s.Tratteggi.Stili[1].NomeTratteggio), std::make_tuple(18, "CONTINUA"));
}

TEST_F(TabelleRiferimento, TratteggiSalvatiERiletti) {
  CaricaTratteggi(s);
  s.Tratteggi.Stili[2].Elementi = {3, 1.25, -0.125, 0};
  const std::string testo = TestoTratteggi(s.Tratteggi);
  EXPECT_EQ(testo.rfind("*CONTINUA,__ __ __ __ \r\nA, 0.5, 0.0\r\n*TRATTEGG,", 0), 0u);
  EXPECT_NE(testo.find("*TRATTEGG,__ __ __ __ \r\nA, 1.25, -0.125, 0.0\r\n"), std::string::npos);
  EXPECT_NE(testo.find("*TRATT7,100,1 __ __ . __ __ . __ \r\nA, 50.0, -25.0, 50.0, -25.0, 0.0, -25.0\r\n"),
            std::string::npos);
  SalvaTratteggi(s);
  EXPECT_EQ(LeggiFileProva(Programma("linee.ini")), testo);
  EXPECT_TRUE(Esiste(s.CartellaLavoro + "Configura.ini"));  // the settings follow a save of the styles
  prova::SessioneProva q;
  q.s.CartellaProgramma = s.CartellaProgramma;
  CaricaTratteggi(q.s);
  EXPECT_EQ(std::make_tuple(q.s.Tratteggi.NumeroTratteggi, Elementi(q.s.Tratteggi.Stili[2])),
            std::make_tuple(18, std::vector<double>{1.25, -0.125, 0}));
}

TEST_F(TabelleRiferimento, CodiciCreatiELetti) {
  CaricaCodici(s, PercorsoCodici(s));
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(LeggiFileProva(Lavoro("VRPUNTI.COD")), Predefinito("VRPUNTI.COD"));
  EXPECT_EQ(CercaCodice(s.Codici, "11"), nullptr);
  ASSERT_NE(CercaCodice(s.Codici, "14"), nullptr);
  EXPECT_EQ(CercaCodice(s.Codici, "14")->Descrizione, "ASSE CAMPANILE");

  // The code page of the disk: "è" is one byte there.
  ScriviFileProva(Lavoro("vrpunti.cod"), "\"A1\",\"CASSETTA CITT\xC0\"\r\n20,\"PALO\"\r\n");
  std::filesystem::remove(Lavoro("VRPUNTI.COD"));
  CaricaCodici(s, PercorsoCodici(s));
  ASSERT_EQ(s.Codici.Righe.size(), 2u);
  EXPECT_EQ(std::tie(s.Codici.Righe[0].Descrizione, s.Codici.Righe[1].Codice), std::make_tuple("CASSETTA CITT\u00C0", "20"));
}

TEST_F(TabelleRiferimento, CodiciOltreIlLimiteETroncati) {
  std::string molti;
  for (int i = 0; i < 503; ++i) molti += "\"" + std::to_string(i) + "\",\"D" + std::to_string(i) + "\"\r\n";
  Codici(molti);
  AttesoErrore("CaricaCodici", "Subscript out of range");
  ASSERT_EQ(s.Codici.Righe.size(), 501u);
  EXPECT_EQ(s.Codici.Righe.back().Descrizione, "D500");

  Codici("\"1\",\"UNO\"\r\n\"2\"\r\n");
  AttesoErrore("CaricaCodici", "Input past end of file");
  ASSERT_EQ(s.Codici.Righe.size(), 1u);
  EXPECT_EQ(s.Codici.Righe.back().Descrizione, "UNO");
}

TEST_F(TabelleRiferimento, ArchivioNoteCreatoELetto) {
  CaricaArchivioNote(s);
  EXPECT_EQ(LeggiFileProva(Lavoro("ArchivioNote.ini")), Predefinito("ArchivioNote.ini"));
  std::filesystem::remove(Lavoro("ArchivioNote.ini"));
  ScriviFileProva(Lavoro("Archivionote.ini"), "MURO\r\n\r\nSIEPE");
  CaricaArchivioNote(s);
  EXPECT_EQ(std::make_tuple(s.Note.Note, p.ui.Messaggi.size()), std::make_tuple(std::vector<std::string>{"MURO", "SIEPE"}, 0u));
}

TEST_F(TabelleRiferimento, ComuniDaArchivioPregeo) {
  s.Imp.Cartella_Archivio_Pregeo = s.CartellaLavoro + "pregeo/arch";
  CaricaComuni(s);
  // Absent: empty, quiet, not created.
  EXPECT_EQ(std::make_tuple(s.Comuni.NumeroComuni(), p.ui.Messaggi.size(), TrovaOrigine(s, "comunt.dat")->Stato),
            std::make_tuple(0, 0u, StatoFile::Assente));

  std::filesystem::create_directories(s.CartellaLavoro + "PREGEO/ARCH");
  ScriviFileProva(s.CartellaLavoro + "PREGEO/ARCH/COMUNT.DAT",
                  "G 693PADOVA        PD@B\r\nA  01ABANO TERME \xC8 PD@B@BZ999 @B");
  CaricaComuni(s);
  std::vector<std::string> righe;
  for (const Comune& c : s.Comuni.Righe) righe.push_back(c.Codice + "|" + c.Resto);
  EXPECT_EQ(righe, (std::vector<std::string>{"G693|PADOVA        PD", "A01|ABANO TERME \u00C8 PD", "Z999|"}));

  // Read once: a table already filled is kept.
  ScriviFileProva(s.CartellaLavoro + "PREGEO/ARCH/COMUNT.DAT", "X0001ALTRO@B");
  CaricaComuni(s);
  EXPECT_EQ(std::make_tuple(s.Comuni.NumeroComuni(), p.ui.Messaggi.size()), std::make_tuple(3, 0u));
}

TEST_F(TabelleRiferimento, PianoCorrenteDaPianiIni) {
  CaricaPiani1(s);
  EXPECT_EQ(std::make_tuple(LeggiFileProva(Lavoro("PIANI.INI")), s.PianoCorrente), std::make_tuple("\"0\"\r\n", "0"));
  for (const auto& [riga, piano] : {std::pair{"\" STRADE |EDIFICI|\"\r\n", "STRADE"}, {"\"\"\r\n", "0"}}) {
    Piani1(riga);
    EXPECT_EQ(s.PianoCorrente, piano) << riga;
  }
  Piani1(Spazzatura(500));
  AttesoErrore("Carica Piani 1", "Invalid file format");
  EXPECT_EQ(s.PianoCorrente, "0");
}

TEST_F(TabelleRiferimento, PianiDelLavoroGuastiOVuoti) {
  s.NomeLavoro = p.Lavoro("LAV");
  ScriviFileProva(s.NomeLavoro + ".PIA", "");
  CaricaPiani(s);
  // An empty member is no error and gives no layer.
  EXPECT_EQ(std::make_tuple(s.Piani.size(), p.ui.Messaggi.size()), std::make_tuple(0u, 0u));
  const std::string guasto = "STRADE|0|3|0|1|Arial|0|0|\r\n" + Spazzatura(300);
  ScriviFileProva(s.NomeLavoro + ".PIA", guasto);
  CaricaPiani(s);
  AttesoErrore("Carica Piani", "Invalid file format");
  ASSERT_EQ(s.Piani.size(), 1u);
  EXPECT_EQ(std::tie(s.Piani[0].Nome, s.Piani[0].Font), std::make_tuple("0", "Arial"));
  EXPECT_EQ(LeggiFileProva(s.NomeLavoro + ".PIA"), guasto);
  // A member read in place for a report is never created.
  std::filesystem::remove(s.NomeLavoro + ".PIA");
  s.SolaLettura = true;
  CaricaPiani(s);
  EXPECT_EQ(std::make_tuple(s.Piani.size(), Esiste(s.NomeLavoro + ".PIA")), std::make_tuple(1u, false));
}

TEST(FileTabella, NumeriDelleRighe) {
  for (const char* n : {" -12.5 ", "1E3", ".5", "+7."}) EXPECT_TRUE(EUnNumero(n)) << n;
  for (const char* n : {"", ".", "12abc", "1E", "1 2"}) EXPECT_FALSE(EUnNumero(n)) << n;
  EXPECT_EQ(NumeriRiga("1, 2 ,3,,", ','), (std::vector<double>{1, 2, 3}));
  EXPECT_THROW(NumeriRiga("1,,3", ','), ErroreVarena);
  EXPECT_NO_THROW(ControllaTesto("a\tb\r\nc\x1A"));
  EXPECT_THROW(ControllaTesto("a\x1A\r\n"), ErroreVarena);
  EXPECT_THROW(ControllaTesto(std::string("a\0b", 3)), ErroreVarena);
}

}  // namespace
}  // namespace varena
