// Writes that land beside their file, hard links, and the fault seam of the file layer.
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/Errori.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::LeggiFileProva;
using prova::ScriviFileProva;

TEST(File, LeScrittureSostituisconoSenzaToccareGliAltriNomiDelFile) {
  prova::CartellaTemporanea c;
  const std::string a = c / "A.LLL", b = c / "B.LLL";
  ScriviFileProva(a, "vecchio");
  ASSERT_EQ(::link(a.c_str(), b.c_str()), 0);
  ScriviByte(a, "nuovo");
  EXPECT_EQ(std::make_tuple(LeggiFileProva(a), LeggiFileProva(b)), std::make_tuple("nuovo", "vecchio"));
  // A copy over a shared name, and text through the code page, behave the same.
  ASSERT_EQ(::link(a.c_str(), (c / "C.LLL").c_str()), 0);
  CopiaFile(b, a);
  EXPECT_EQ(std::make_tuple(LeggiFileProva(a), LeggiFileProva(c / "C.LLL")), std::make_tuple("vecchio", "nuovo"));
  ScriviTesto(c / "C.LLL", "è");
  EXPECT_EQ(LeggiFileProva(c / "C.LLL"), "\xE8");
  AggiungiTesto(c / "C.LLL", "à\r\n");
  EXPECT_EQ(LeggiFileProva(c / "C.LLL"), "\xE8\xE0\r\n");
  // Bytes handed over in pieces land as one file; a producer that fails leaves the old one.
  ScriviByte(b, [](const std::function<void(std::string_view)>& scrivi) { scrivi("pez"), scrivi(""), scrivi("zi"); });
  EXPECT_EQ(LeggiFileProva(b), "pezzi");
  EXPECT_THROW(ScriviByte(b, [](const std::function<void(std::string_view)>& scrivi) {
                 scrivi("mez");
                 throw ErroreVarena("Out of memory");
               }),
               ErroreVarena);
  EXPECT_EQ(LeggiFileProva(b), "pezzi");
  EXPECT_EQ(prova::NomiIn(c.Percorso()), (std::vector<std::string>{"A.LLL", "B.LLL", "C.LLL"}));
}

TEST(File, CollegamentiEdEliminazioneEsatta) {
  prova::CartellaTemporanea c;
  const std::string a = c / "A.TXT", b = c / "B.TXT";
  ScriviFileProva(a, "uno");
  ScriviFileProva(b, "due");
  EXPECT_TRUE(CollegaFile(a, b));  // b stood: replaced by a second name of a
  EXPECT_EQ(std::make_tuple(StessoFile(a, b), LeggiFileProva(b)), std::make_tuple(true, "uno"));
  EXPECT_TRUE(CollegaFile(a, c / "C.TXT"));
  EXPECT_FALSE(CollegaFile(c / "MANCA.TXT", c / "D.TXT") || StessoFile(a, c / "MANCA.TXT"));
  // The exact form ignores another letter case, where the matching form finds it.
  EXPECT_FALSE(EliminaFileEsatto(c / "a.txt"));
  EXPECT_TRUE(EliminaFile(c / "a.txt"));
  EXPECT_TRUE(EliminaFileEsatto(b));
  EXPECT_FALSE(EliminaFileEsatto(b));
  EXPECT_EQ(prova::NomiIn(c.Percorso()), std::vector<std::string>{"C.TXT"});
}

TEST(File, LaSondaFaFallireOgniOperazioneELasciaIlFileComEra) {
  prova::CartellaTemporanea c;
  const std::string a = c / "A.LLL", b = c / "B.LLL";
  ScriviFileProva(a, "vecchio contenuto");
  ScriviFileProva(b, "altro");
  std::vector<OperazioneFile> viste;
  {
    prova::SondaProva sonda([&](OperazioneFile op, std::string_view p) {
      viste.push_back(op);
      return p == a;
    });
    EXPECT_THROW(ScriviByte(a, "nuovo contenuto, piu lungo"), ErroreVarena);  // "Disk full", as the box shows
    // In pieces the seam is asked once, after the first.
    EXPECT_THROW(ScriviByte(a, [](const std::function<void(std::string_view)>& scrivi) {
                   for (const char* p : {"nuovo", " in", " pezzi"}) scrivi(p);
                 }),
                 ErroreVarena);
    EXPECT_THROW(CopiaFile(b, a), ErroreVarena);
    EXPECT_THROW(RinominaFile(b, a), ErroreVarena);
    EXPECT_THROW(EliminaFile(a), ErroreVarena);
    EXPECT_THROW(EliminaFileEsatto(a), ErroreVarena);
    EXPECT_FALSE(CollegaFile(b, a));
    // An operation on another file goes through, with the seam still asked.
    ScriviByte(b, "scritto");
  }
  EXPECT_EQ(LeggiFileProva(a), "vecchio contenuto");
  EXPECT_EQ(LeggiFileProva(b), "scritto");
  EXPECT_EQ(viste, (std::vector<OperazioneFile>{OperazioneFile::Scrittura, OperazioneFile::Scrittura, OperazioneFile::Copia,
                                                OperazioneFile::Rinomina, OperazioneFile::Eliminazione,
                                                OperazioneFile::Eliminazione, OperazioneFile::Collegamento,
                                                OperazioneFile::Scrittura}));
  EXPECT_EQ(prova::NomiIn(c.Percorso()), (std::vector<std::string>{"A.LLL", "B.LLL"}));  // no temporaries
}

// A name read from a file may hold a NUL byte, where the system would cut it: "ROSSI\0.LIN"
// and "ROSSI\0.LLL" would both be the file "ROSSI", read as every member and written over by
// each. Such a name names no file: nothing is read, and a write fails with the error of a bad
// name, leaving the file the cut name stands for as it was.
TEST(File, UnNomeConUnNulNonNominaNessunFile) {
  prova::CartellaTemporanea c;
  const std::string rossi = c / "ROSSI", nul = rossi + std::string(1, '\0');
  ScriviFileProva(rossi, "un file dell'utente");
  EXPECT_FALSE(LeggiByte(nul + ".LLL"));
  EXPECT_EQ(std::make_tuple(EsisteFile(nul + ".LLL"), LunghezzaFile(nul + ".LLL")), std::make_tuple(false, -1));
  try {
    ScriviByte(nul + ".LIN", "membro");
    ADD_FAILURE() << "scritto";
  } catch (const ErroreVarena& e) {
    EXPECT_STREQ(e.what(), "Bad file name or number");
  }
  EXPECT_THROW(CopiaFile(rossi, nul + ".CER"), ErroreVarena);
  EXPECT_EQ(std::make_tuple(CollegaFile(rossi, nul + ".ARC"), EliminaFileEsatto(nul + ".TES"), NuovaCartella(nul + "/PROVVISO")),
            std::make_tuple(false, false, false));
  EXPECT_EQ(LeggiFileProva(rossi), "un file dell'utente");
  EXPECT_EQ(prova::NomiIn(c.Percorso()), std::vector<std::string>{"ROSSI"});
}

TEST(File, UnFileDiSolaLetturaNonVieneSostituito) {
  if (::geteuid() == 0) GTEST_SKIP() << "root writes over read-only files";
  prova::CartellaTemporanea c;
  const std::string a = c / "A.CFG";
  ScriviFileProva(a, "vecchio");
  ::chmod(a.c_str(), 0444);
  EXPECT_THROW(ScriviByte(a, "nuovo"), ErroreVarena);
  EXPECT_EQ(LeggiFileProva(a), "vecchio");
}

}  // namespace
}  // namespace varena
