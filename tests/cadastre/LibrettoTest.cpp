// The field book: kept to the byte, read by its grammar, and turned into the drawing's
// heights, tags, scheme and survey structures. The survey book and what it must give are
// written by tests/data/libretto/genera.py, from the intent of each row.
#include <gtest/gtest.h>

#include "cadastre/Libretto.h"
#include "cadastre/LibrettoDisegno.h"
#include "core/Errori.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Salva.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

using namespace std::string_view_literals;
using prova::LeggiFileProva;
using prova::ScriviFileProva;

std::string Dati(const std::string& nome) {
  return LeggiFileProva(std::string(VARENA_SORGENTI) + "/tests/data/libretto/" + nome);
}

std::vector<std::vector<std::string>> Righe(const std::string& nome) {
  std::vector<std::vector<std::string>> r;
  std::istringstream in(Dati(nome));
  for (std::string riga; std::getline(in, riga);) r.push_back(Dividi(riga, '\t'));
  return r;
}

class Libretto : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  void SetUp() override { s.NomeLavoro = p.Lavoro("RILIEVO"); }
  std::string Txt() const { return LeggiFileProva(s.NomeLavoro + ".TXT"); }
};

TEST_F(Libretto, RilievoConservatoAlByteEAssuntoNelDisegno) {
  const std::string libro = Dati("RILIEVO.TXT");
  ScriviFileProva(s.NomeLavoro + ".TXT", libro);
  ScriviFileProva(s.NomeLavoro + ".TXK", "vecchio");
  CaricaLibretto(s);
  ASSERT_EQ(s.LibrettoMisure.size(), 293u);
  EXPECT_EQ(s.LibrettoMisure.back(), "6|proprietà Bianchi: confine | lato nord | verso il fosso demaniale|");
  SalvaLibretto(s);
  EXPECT_EQ(Txt(), libro);
  EXPECT_FALSE(prova::Esiste(s.NomeLavoro + ".TXK"));

  DatiDaRigaZero(s);
  ValoriRigheSei(s);
  EXPECT_EQ(std::tie(s.RigaZero.Data, s.RigaZero.Anno, s.RigaZero.DataBreve, s.RigaZero.CodiceComune, s.RigaZero.Foglio),
            std::make_tuple("01011999", "1999", "199", "G693", "0010"));
  EXPECT_EQ(std::tie(s.RigaZero.CampoSei, s.RigaZero.CampoOtto), std::make_tuple("ROSSI MARIO", "PADOVA"));
  EXPECT_EQ(std::tie(s.FileEstratto, s.CodiceLibretto, s.CodiceIscrizione), std::make_tuple("ESTRATTO01", "ABC123", "42"));

  for (const auto& r : Righe("punti.txt")) prova::MettiPunto(s, r[0], std::stod(r[1]), std::stod(r[2]), std::stod(r[3]));
  const int32_t punti = s.ContaEntita[SlotPunti];
  AssumeTuttoDaTXT(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  const IndiceNomi indice(s);
  size_t sette = 0, legami = 0;
  for (const auto& r : Righe("atteso.txt")) {
    if (r[0] == "SETTE") {
      ASSERT_LT(sette, static_cast<size_t>(s.ContaEntita[SlotSette]));
      EXPECT_EQ(std::tie(s.SetteCommento[sette], s.SetteContorno[sette], s.SetteParticella[sette], s.SetteIdent[sette]),
                std::make_tuple(r[1], r[2], r[3], 0))
          << "record " << sette;
      ++sette;
    } else if (r[0] == "HP") {
      EXPECT_FLOAT_EQ(s.PuntoHPrisma[static_cast<size_t>(indice.Primo(r[1]))], std::stof(r[2])) << r[1];
    } else if (r[0] == "DESC") {
      EXPECT_EQ(s.PuntoDescrizione[static_cast<size_t>(indice.Primo(r[1]))], r[2]) << r[1];
    } else if (r[0] == "LINK") {
      ASSERT_LT(legami, static_cast<size_t>(s.ContaEntita[SlotLinee]));
      const auto a = static_cast<size_t>(indice.Primo(r[1])), b = static_cast<size_t>(indice.Primo(r[2]));
      EXPECT_EQ(std::tie(s.LineaX1[legami], s.LineaY1[legami], s.LineaX2[legami], s.LineaY2[legami]),
                std::tie(s.PuntoX[a], s.PuntoY[a], s.PuntoX[b], s.PuntoY[b]))
          << r[1] << " " << r[2];
      EXPECT_EQ(std::tie(s.LineaPiano[legami], s.LineaColore[legami], s.LineaTratteggio[legami]),
                std::make_tuple("SCHEMALI", 12, 2));
      ++legami;
    }
  }
  EXPECT_EQ(std::tie(sette, s.ContaEntita[SlotSette], legami, s.ContaEntita[SlotLinee]), std::make_tuple(18u, 18, 15u, 15));
  // The structures of the office program take pen 8 and line type 3; the contours the pen in force.
  EXPECT_EQ(std::tie(s.SetteColore[0], s.SetteTratteggio[0]), std::make_tuple(8, 3));
  EXPECT_EQ(std::tie(s.SetteColore[1], s.SetteTratteggio[1]), std::make_tuple(s.Imp.Colore_Default, 1));
  // The scheme's look: fiducial points in pen 12 with their symbol, the others plain.
  const auto pf = static_cast<size_t>(indice.Primo("PF01/0010/G693")), st = static_cast<size_t>(indice.Primo("100"));
  EXPECT_EQ(std::tie(s.PuntoSimbolo[pf], s.PuntoColoreNome[pf], s.PuntoDimensioneNome[pf]), std::make_tuple(33, 12, 3.0));
  EXPECT_EQ(std::tie(s.PuntoSimbolo[st], s.PuntoColoreSimbolo[st], s.PuntoDimensioneSimbolo[st]), std::make_tuple(2, 0, 3.0));
  EXPECT_EQ(std::tie(s.ColoreEstratto, s.ContaEntita[SlotPunti]), std::make_tuple(7, punti));

  // Notes: a station's becomes its description; a reading's is read as its prism height.
  DescrizioniDaLibrettoMisure(s);
  auto hp = [&](const char* nome) { return s.PuntoHPrisma[static_cast<size_t>(indice.Primo(nome))]; };
  EXPECT_EQ(s.PuntoDescrizione[static_cast<size_t>(indice.Primo("500"))], "stazione nord");
  // "spigolo" and "direzione" are no heights.
  EXPECT_EQ(std::make_tuple(hp("109"), hp("105"), hp("101")), std::make_tuple(0.0f, 0.0f, 1.4f));

  // Nothing of this touched the book.
  SalvaLibretto(s);
  EXPECT_EQ(Txt(), libro);
}

TEST(CampiRiga, IlTaglioLeNoteLungheEIVerticiDelleRigheSette) {
  CampiLibretto c;
  CampiRiga("2|101|12.3456|100.0000|10.000|1.500|", c);
  EXPECT_EQ(std::tie(c.Campo[0], c.Campo[1], c.Campo[5], c.Campo[6]), std::make_tuple("2", "101", "1.500", ""));
  EXPECT_EQ(std::tie(c.UltimoCampo, c.NumeroVerticiRiga), std::make_tuple(5, 0));
  // A note of 40 characters is cut; one of 41 is one field from the third character on.
  const std::string quaranta = "6|" + std::string(32, 'a') + "|b|cd|";
  ASSERT_EQ(quaranta.size(), 40u);
  CampiRiga(quaranta, c);
  EXPECT_EQ(std::tie(c.Campo[1], c.Campo[2], c.UltimoCampo), std::make_tuple(std::string(32, 'a'), "b", 3));
  CampiRiga(quaranta + "e", c);
  EXPECT_EQ(std::tie(c.Campo[1], c.Campo[2], c.UltimoCampo), std::make_tuple(std::string(32, 'a') + "|b|cd|e", "", 1));
  // Characters, not bytes: "à" is one.
  CampiRiga("6|" + std::string(36, 'a') + "à|", c);
  EXPECT_EQ(c.Campo[1], std::string(36, 'a') + "à");
  // Rows 7: the vertices end before the line code, a zero, or nothing.
  for (const auto& [riga, vertici] : {std::pair{"7|5|101|12A|103|NC|", 4}, {"7|5|101|0|103|", 2}, {"2|5|101|0|103|", 0}}) {
    CampiRiga(riga, c);
    EXPECT_EQ(c.NumeroVerticiRiga, vertici) << riga;
  }
  CampiRiga("   ", c);
  EXPECT_EQ(std::tie(c.Campo[0], c.UltimoCampo), std::make_tuple("", 0));
  // 301 fields are the most; the 302nd is an error, trailing separator or not.
  std::string riga = "1";
  for (int k = 1; k <= 300; ++k) riga += "|" + std::to_string(k);
  CampiRiga(riga + "|", c);
  EXPECT_EQ(std::tie(c.Campo[300], c.UltimoCampo), std::make_tuple("300", 300));
  for (const char* coda : {"|301", "||"}) EXPECT_THROW(CampiRiga(riga + coda, c), ErroreVarena) << coda;
  EXPECT_EQ(std::make_tuple(TipoRiga("X|a|"), TipoRiga("12|a|"), TipoRiga("7|0|")), std::make_tuple(0, -1, 7));
}

TEST_F(Libretto, RigaZeroCortaSostituitaEAnnoDiDueCifre) {
  s.LibrettoMisure = {"0|010105|2|A001|0001|1|BIANCHI|", "9|x|"};
  DatiDaRigaZero(s);
  // Seven fields: the default heading takes its place, contents lost, without a word.
  EXPECT_EQ(s.LibrettoMisure[0], "0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
  EXPECT_EQ(std::make_tuple(s.RigaZero.Data, s.RigaZero.CodiceComune, p.ui.Messaggi.size()), std::make_tuple("21112026", "G693", 0u));
  s.LibrettoMisure[0] = "0|010105|2|A001|0001|1|BIANCHI|GEOMETRA|ROMA|";
  DatiDaRigaZero(s);
  EXPECT_EQ(std::tie(s.RigaZero.Data, s.RigaZero.Anno, s.RigaZero.DataBreve), std::make_tuple("01012005", "2005", "205"));
  EXPECT_EQ(DataCompleta("010180"), "01011980");
  // Fiducial points named in full from this heading's sheet and municipality.
  for (const char* n : {"pf1", "PF12/0001", "PF01/0010/G693", "101"}) prova::MettiPunto(s, n, 0, 0);
  CompletaNomiPF(s);
  EXPECT_EQ(std::vector<std::string>(s.PuntoNome.begin(), s.PuntoNome.begin() + 4),
            (std::vector<std::string>{"PF1/0001/A001", "PF12/0001/A001", "PF01/0010/G693", "101"}));
  EXPECT_EQ(DataCompleta("010179"), "01012079");
}

TEST_F(Libretto, RinominaAncheNelleRigheConLaVirgola) {
  s.LibrettoMisure = {"1|100|1.5|", "2|100,5|1|", "2|100|1,5|", "7|3|100|101|NC|", "1|1000|"};
  RinominaPuntoLibretto(s, "100", "200");
  EXPECT_EQ(s.LibrettoMisure, (std::vector<std::string>{"1|200|1.5|", "2|100,5|1|", "2|200|1,5|", "7|3|100|101|NC|",
                                                        "1|1000|"}));
  AggiornaRigaEstratto(s);
  s.FileEstratto = "B";
  AggiornaRigaEstratto(s);
  EXPECT_EQ(std::make_tuple(s.LibrettoMisure.back(), s.LibrettoMisure.size()), std::make_tuple("6|<EST>B|", 6u));
}

TEST_F(Libretto, IngressiGuastiNeCrashNePerdite) {
  // Binary garbage with CR-only ends: every line kept, ends made CR LF, blanks trimmed.
  ScriviFileProva(s.NomeLavoro + ".TXT", std::string("\x00\x81\xff|a\rb|\x8d\r\n \xe8 \n7|0|\r"sv));
  CaricaLibretto(s);
  ASSERT_EQ(s.LibrettoMisure.size(), 4u);
  SalvaLibretto(s);
  EXPECT_EQ(Txt(), std::string("\x00\x81\xff|a\r\nb|\x8d\r\n\xe8\r\n7|0|\r\n"sv));
  prova::MettiPunto(s, "1", 0, 0);
  AssumeTuttoDaTXT(s);
  DescrizioniDaLibrettoMisure(s);
  // A list of no vertex is still a record, which draws nothing.
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotSette], p.ui.Messaggi.size()), std::make_tuple(1, 0u));

  // A row of 302 fields: the common error box, the book as it was.
  std::string lunga = "2|1";
  for (int k = 2; k <= 301; ++k) lunga += "|1";
  s.LibrettoMisure = {lunga + "|"};
  HPSDaLibrettoMisure(s);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Subscript out of range"), std::string::npos);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("HPSDaLibrettoMisure"), std::string::npos);
  SalvaLibretto(s);
  EXPECT_EQ(Txt(), lunga + "|\r\n");

  // A million rows.
  std::string milione;
  for (int k = 0; k < 1000000; ++k) milione += k % 2 ? "2|1|0|\r\n" : "1|1|\r\n";
  ScriviFileProva(s.NomeLavoro + ".TXT", milione);
  CaricaLibretto(s);
  EXPECT_EQ(s.ContaEntita[SlotLibretto], 1000000);
  AssumeTuttoDaTXT(s);
  SalvaLibretto(s);
  EXPECT_EQ(Txt(), milione);

  // An empty book leaves neither the book nor its backup.
  ScriviFileProva(s.NomeLavoro + ".TXK", "vecchio");
  s.LibrettoMisure.clear();
  SalvaLibretto(s);
  EXPECT_EQ(std::make_pair(prova::Esiste(s.NomeLavoro + ".TXT"), prova::Esiste(s.NomeLavoro + ".TXK")),
            std::make_pair(false, false));
}

}  // namespace
}  // namespace varena
