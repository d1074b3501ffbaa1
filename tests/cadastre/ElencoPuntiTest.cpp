// The point list: its rows and cells, the sort, and the operations on the selected points
// with their questions.
#include <gtest/gtest.h>

#include "cadastre/ElencoPunti.h"
#include "cadastre/OperazioniElenco.h"
#include "exchange/Incolla.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

class Elenco : public ::testing::Test {
 protected:
  InterfacciaRegistrata ui;
  Sessione s;
  void SetUp() override {
    s.Ui = &ui;
    prova::MettiPunto(s, "12", 1500.25, 5000.5, 3.25);
    prova::MettiPunto(s, "3", -1, 2, 0);
    prova::MettiPunto(s, "7", 9, 8, 7);
    s.PuntoIdent[2] = -1;  // deleted: not in the list
    prova::MettiPunto(s, "100", 4, 5, 6);
  }
  bool Esegui(const char* chiave, std::vector<int32_t> righe) {
    return EseguiOperazioneElenco(s, *TrovaOperazioneElenco(chiave), righe);
  }
};

TEST_F(Elenco, RigheCelleEOrdine) {
  std::vector<int32_t> r = RigheElencoPunti(s);
  EXPECT_EQ(r, (std::vector<int32_t>{0, 1, 3}));
  EXPECT_EQ(std::make_tuple(CellaElencoPunti(s, r, 0, ColonnaNord), CellaElencoPunti(s, r, 0, ColonnaEst),
                            CellaElencoPunti(s, r, 1, ColonnaEst), CellaElencoPunti(s, r, 2, ColonnaIdx)),
            std::make_tuple("5000.500", "1500.250", "-1.000", "3"));
  // Names sort as texts, coordinates as numbers; the progressive follows the new order.
  OrdinaElencoPunti(s, r, ColonnaNome, true);
  EXPECT_EQ(std::make_tuple(r, CellaElencoPunti(s, r, 0, ColonnaProgressivo)), std::make_tuple(std::vector<int32_t>{3, 0, 1}, "1"));
  OrdinaElencoPunti(s, r, ColonnaEst, false);
  EXPECT_EQ(r, (std::vector<int32_t>{0, 3, 1}));
}

TEST_F(Elenco, DomandaNoENessunaSelezioneNonCambianoNulla) {
  EXPECT_FALSE(Esegui("PV", {}));
  EXPECT_TRUE(ui.Domande.empty());
  EXPECT_FALSE(Esegui("PV", {0}));  // the default answer is No
  EXPECT_EQ(std::tie(ui.Domande.back().Testo, ui.Domande.back().Titolo, s.PuntoDescrizione[0]),
            std::make_tuple("Assegnare il codice <PV> \nai Punti Selezionati ??", "Assegna <PV> ai Punti", ""));
}

TEST_F(Elenco, CodiciQuoteENomi) {
  s.PuntoDescrizione[0] = "muro<PV>";
  s.PuntoDescrizione[1] = "<P!>fosso";
  for (int k = 0; k < 6; ++k) ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(Esegui("PD", {0}));
  EXPECT_EQ(s.PuntoDescrizione[0], "<PD>muro");
  // A height given to a plan point makes it a height point; a raise passes it by.
  ui.RispondiValore("10,5");
  EXPECT_TRUE(Esegui("INCREMENTA_QUOTA", {0, 1}));
  EXPECT_EQ(std::tie(s.PuntoZ[0], s.PuntoZ[1]), std::make_tuple(13.75, 0.0));
  ui.RispondiValore("2.125");
  EXPECT_TRUE(Esegui("QUOTA", {1}));
  EXPECT_EQ(std::tie(s.PuntoZ[1], s.PuntoDescrizione[1]), std::make_tuple(2.125, "fosso"));
  EXPECT_TRUE(Esegui("MAIUSCOLE", {0}));
  EXPECT_EQ(s.PuntoDescrizione[0], "<PD>MURO");
  ui.RispondiValore("casa");
  EXPECT_TRUE(Esegui("DESCRIZIONE", {0}));
  EXPECT_EQ(s.PuntoDescrizione[0], "<PD>casa");
  s.PuntoDescrizione[3] = "<P!>";
  EXPECT_TRUE(Esegui("8Q", {3}));
  EXPECT_EQ(s.PuntoDescrizione[3], "<8Q>");
}

TEST_F(Elenco, RinumeraAncheNelLibrettoENeiContorni) {
  s.LibrettoMisure = {"0|x|", "1|12|1.5|", "2|3|100.0000|50.0000|", "2|12,5|1|"};
  s.ContaEntita[SlotLibretto] = 4;
  DimensionaSette(s);
  s.SetteIdent[0] = 0;
  s.SetteContorno[0] = "12|3|100|12|";
  s.ContaEntita[SlotSette] = 1;
  ui.Rispondi(Risposta::Si);
  ui.RispondiValore("PF07");
  // In the order of the list: 100 first, then 12.
  EXPECT_TRUE(Esegui("RINUMERA", {3, 0}));
  EXPECT_EQ(std::tie(s.PuntoNome[3], s.PuntoNome[0], s.SetteContorno[0], s.LibrettoMisure[1], ui.Richieste.back()),
            std::make_tuple("PF07", "PF08", "PF08|3|PF07|PF08|", "1|PF08|1.5|", "Primo Nome :"));
}

TEST_F(Elenco, PlanimetriciConLeRigheBreviNelLibretto) {
  s.LibrettoMisure = {"0|x|", "1|12|1.55|muro|", "2|12|100.1234|99.5|25.123|1.60|spigolo|", "2|12|50.5|10.2|",
                      "2|12,1|100|99|25|1.6|", "2|3|1|2|3|4|"};
  ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(Esegui("PLANIMETRICI", {0}));
  EXPECT_EQ(s.PuntoDescrizione[0], "<P!>");
  EXPECT_EQ(s.LibrettoMisure, (std::vector<std::string>{"0|x|", "1|12|muro|", "2|12|100.1234|25.123|spigolo|",
                                                        "2|12|50.5|10.2|", "2|12,1|100|99|25|1.6|", "2|3|1|2|3|4|"}));
}

TEST_F(Elenco, CopiaPerExcelNegliAppunti) {
  s.PuntoDescrizione[3] = "<PV>pozzetto";
  ui.Rispondi(Risposta::Si);
  const uint64_t modifiche = s.Modifiche;
  EXPECT_TRUE(Esegui("COPIA_EXCEL", {3, 1}));
  EXPECT_EQ(ui.Domande.back().Testo, "Copia per Excel\ni Punti Selezionati ?");
  EXPECT_EQ(s.Clip->Leggi(),
            "Progressivo\tNome\tNord (X)\tEst (Y)\tQuota (Z)\tDescrizione\tHP / HS\tPIANO\tIDX\r\n"
            "1\t100\t5.000\t4.000\t6.000\t<PV>pozzetto\t0.000\t0\t3\r\n"
            "2\t3\t2.000\t-1.000\t0.000\t\t0.000\t0\t1\r\n");
  EXPECT_EQ(s.Modifiche, modifiche);
}

TEST_F(Elenco, PuntiNelleDescrizioniTranneAusiliarioENote) {
  s.PuntoDescrizione[0] = "[P.A.]sp. muro. Note: v. sopra";
  ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(Esegui("TOGLI_PUNTI_DESCRIZIONI", {0}));
  EXPECT_EQ(s.PuntoDescrizione[0], "[P.A.]sp muro Note: v. sopra");
}

TEST_F(Elenco, CodiciDellaTabellaEAltimetriciPerClasse) {
  s.Codici.Righe = {{"3", "PICCHETTO IN FERRO"}};
  s.PuntoDescrizione[0] = "<PV>3 lato";
  s.PuntoDescrizione[1] = "33";
  ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(Esegui("CODICI_IN_DESCRIZIONI", {0, 1}));
  EXPECT_EQ(std::tie(s.PuntoDescrizione[0], s.PuntoDescrizione[1], ui.Domande.back().Testo),
            std::make_tuple("<PV>PICCHETTO IN FERRO lato", "33", "Trasforma i Codici in Descrizi"));
  // "3" stands on a contour, "100" is a station, a PF stays one though its name ends in "00",
  // "12" is none of them, and "7" is deleted.
  DimensionaSette(s);
  s.SetteIdent[0] = 0, s.SetteContorno[0] = "3|5|";
  s.ContaEntita[SlotSette] = 1;
  prova::MettiPunto(s, "PF01/0010/A100", 1, 2, 3);
  const char* prima[] = {"muro", "<P!>", "x", "<P!>pilastro", ""};
  for (size_t k = 0; k < 5; ++k) s.PuntoDescrizione[k] = prima[k];
  ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(Esegui("CODICI_ALTIMETRICI", {0, 1, 3, 4}));
  const char* dopo[] = {"<P!>muro", "<8Q>", "x", "RC pilastro", "<8Q>"};
  for (size_t k = 0; k < 5; ++k) EXPECT_EQ(s.PuntoDescrizione[k], dopo[k]) << k;
}

TEST_F(Elenco, RigheOttoNelLibrettoDalleCelle) {
  prova::MettiPunto(s, "PF01/0010/A123", 1, 2, 3);
  s.PuntoDescrizione[4] = "<P!>";
  s.LibrettoMisure = {"0|x|"};
  EXPECT_TRUE(Esegui("RIGHE_8", {0}));
  EXPECT_TRUE(Esegui("RIGHE_8_PF", {0, 4}));
  EXPECT_TRUE(ui.Domande.empty());
  EXPECT_EQ(s.LibrettoMisure, (std::vector<std::string>{"0|x|", "8|12|5000.500|04|1500.250|",
                                                        "8|PF01/0010/A123|2.000|1.000|12|"}));
  EXPECT_EQ(PulisciRiga("8|A||04|<P!>|"), "8|A|NOTE:|04|NOTE:|");
}

TEST_F(Elenco, CopiaSelezioneSiIncollaUguale) {
  prova::CartellaTemporanea c;
  s.CartellaLavoro = c.Percorso() + "/";
  s.PuntoDescrizione[3] = "<PV>pozzetto è";
  s.PuntoHPrisma[3] = 1.5F;
  EXPECT_TRUE(Esegui("COPIA_SELEZIONE", {3}));
  EXPECT_EQ(std::tie(ui.Messaggi.back().Testo, ui.Messaggi.back().Titolo),
            std::make_tuple("I Punti selezionati sono stati", "Copia Selezione!"));
  ui.Rispondi(Risposta::No);  // no colour of its own
  EXPECT_TRUE(IncollaDaFile(s));
  const auto k = static_cast<size_t>(s.ContaEntita[SlotPunti] - 1);
  EXPECT_EQ(std::make_tuple(s.PuntoNome[k], s.PuntoDescrizione[k], s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k], s.PuntoHPrisma[k]),
            std::make_tuple("100", "<PV>pozzetto è", 4.0, 5.0, 6.0, 1.5F));
}

}  // namespace
}  // namespace varena
