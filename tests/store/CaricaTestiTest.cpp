// The text members of a job and the `.CFG` blocks.
#include <gtest/gtest.h>

#include "core/Lista.h"
#include "core/Piani.h"
#include "store/Carica.h"
#include "store/Cfg.h"
#include "store/Salva.h"
#include "store/LavoroProva.h"

namespace varena {
namespace {

using prova::ScriviFileProva;

class CaricaTesti : public prova::ProvaMembri {
 protected:
  // A `.CFG` of edition VR2020 whose block B ends at statement 17, `vista` its statement 15.
  void Cfg(const std::string& vista, const std::string& coda = "") {
    Scrivi(".CFG", prova::CfgManuale("VR2020", vista, coda));
    CaricaCFGProvvisorio(s);
  }
};

TEST_F(CaricaTesti, CfgBloccoAConsumatoEBloccoBLetto) {
  Cfg("1725000.5,5031000.25,80",
      "1,2,3,4,5,6,\"L\"\r\n0\r\n7\r\n\"CORRENTE\"\r\n0\r\n\"7|1|2\"\r\n\"A.TAF|B.CFG|\"\r\n");
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(std::tie(s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista), std::make_tuple(1725000.5, 5031000.25, 80.0));
  EXPECT_EQ(std::tie(s.Imp.Colore_Default, s.Imp.TIPODISTANZA, s.Imp.MostraDescrizione), std::make_tuple(3, 2, 0));
  EXPECT_EQ(std::tie(s.Cfg.VB(B_Parametri, 0).Testo, s.Cfg.VB(B_FileAssociati, 0).Testo), std::make_tuple("7|1|2", "A.TAF|B.CFG|"));
  EXPECT_EQ(s.Cfg.A(151, 0).Testo, "x");  // the last statement of block A

  // Ended after statement 17: the later statements keep what they held.
  s.Cfg.VB(B_Parametri, 0).Testo = "PRIMA";
  s.Cfg.VB(B_MostraDescrizione, 0).Numero = 1;
  Cfg("1,2,3");
  EXPECT_EQ(std::tie(s.Vista.AltezzaVista, s.Cfg.VB(B_Parametri, 0).Testo, s.Imp.MostraDescrizione), std::make_tuple(3.0, "PRIMA", 1));

  // Block A joined on one line: items, not lines, are counted.
  std::string unito = prova::CfgManuale("VR2020", "10,20,30");
  for (size_t k = 0; k < 152; ++k) unito.replace(unito.find("\r\n"), 2, ",");
  Scrivi(".CFG", unito);
  CaricaCFGProvvisorio(s);
  EXPECT_EQ(std::tie(s.Vista.CentroEst, s.Vista.AltezzaVista), std::make_tuple(10.0, 30.0));

  // Another edition: block B is not read.
  Scrivi(".CFG", prova::CfgManuale("VR1999", "7,8,9"));
  CaricaCFGProvvisorio(s);
  EXPECT_EQ(std::tie(s.Edizione, s.Vista.AltezzaVista), std::make_tuple("VR1999", 30.0));
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_F(CaricaTesti, CfgTroncatoOSporcoDaIlBoxENonRompe) {
  Scrivi(".CFG", prova::Spazzatura(5000));
  CaricaCFGProvvisorio(s);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Testo.rfind("Si è verificato questo errore : Type mismatch: riga ", 0), 0u);

  s.Vista.AltezzaVista = 55;
  // A quote left open on line 4 swallows the line end: read on, every later item would take
  // its neighbour's place. Nothing of the file is taken.
  std::string rotto = prova::CfgManuale("VR2020", "10,20,30");
  rotto.replace(rotto.find("\"\",\"x\"\r\n"), 8, "\"\",\"x\r\n");
  // A quoted text where a number belongs: the first statement, on line 2.
  std::string virgolettato = prova::CfgManuale("VR2020", "10,20,30");
  virgolettato.replace(virgolettato.find("\"\",1\r\n"), 6, "\"\",\"1\"\r\n");
  // A file cut short: what it had is taken, statement 1 is 2.
  const std::string troncato = "\"VR2020\"\r\n\"\",1\r\n\"\",2\r\n";
  for (const auto& [cfg, errore] : {std::pair{troncato, "Input past end of file"}, {rotto, "Type mismatch: riga 4"},
                                    {virgolettato, "Type mismatch: riga 2"}}) {
    p.ui.Messaggi.clear();
    Scrivi(".CFG", cfg);
    CaricaCFGProvvisorio(s);
    EXPECT_EQ(prova::Detti(p.ui), std::vector<std::string>{"Rilevato errore: Si è verificato questo errore : " +
                                                           std::string(errore) + " o il file potrebbe essere di sola "
                                                           "lettura!\nNella Routine CaricaCFGProvvisorio"});
    EXPECT_EQ(std::tie(s.Vista.AltezzaVista, s.Cfg.A(1, 0).Numero), std::make_tuple(55.0, 2.0)) << errore;
  }
  Cfg("10,20,30");  // mended, it is read
  EXPECT_EQ(s.Vista.AltezzaVista, 30);
}

TEST_F(CaricaTesti, CfgScrittoERiletto) {
  s.Vista.CentroEst = 1725320.125;
  s.Cfg.A(5, 0).Numero = 0.125;
  s.Cfg.A(2, 0).Testo = "testo, con virgola";
  const std::string testo = TestoCfg(s);
  EXPECT_EQ(testo.substr(0, 20), "\"VR2020\"\r\n\"\",0\r\n\"\",0");
  EXPECT_NE(testo.find("\"ColoreInvasoFalda\",0\r\n\"DimensioneQuotaCurve\",0\r\n\"DimensioneAreaTriangoli\",0\r\n"),
            std::string::npos);
  Scrivi(".CFG", testo);
  prova::SessioneProva q;
  q.s.NomeLavoro = s.NomeLavoro;
  CaricaCFGProvvisorio(q.s);
  EXPECT_EQ(TestoCfg(q.s), testo);  // the view, the number and the quoted comma came back
}

TEST_F(CaricaTesti, SetteVuotoOGuasto) {
  Scrivi(".HAT", "0,\"\"");  // 4 bytes: an empty file
  CaricaSette(s);
  EXPECT_EQ(s.ContaEntita[SlotSette], 0);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  // Broken quoting: the items shift and the file runs short, but nothing breaks.
  Scrivi(".HAT", "0,\"101|102,\"COGO\",\"245\",3,1\r\n");
  CaricaSette(s);
  EXPECT_EQ(s.ContaEntita[SlotSette], 0);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Nella Routine CaricaSette"), std::string::npos);
}

TEST_F(CaricaTesti, ImmaginiConESenzaRotazioneRiscritteDaCapo) {
  // Names and layers trimmed, no rotation before it was stored, a blank name deleted.
  Scrivi(".BTM",
         "0,\"c:\\img\\foto.jpg \",10,20,30,40,0,\"++++++++\",1,0.5,0.25,12.5,\"  IMMAGINI \"\r\n"
         "0,\"vecchia.bmp\",1,2,3,4,-1,\"SFONDO\",0,1,1\r\n"
         "0,\"   \",1,2,3,4,0,\"X\",0,1,1\r\n");
  CaricaBitmap(s);
  ASSERT_EQ(s.ContaEntita[SlotBitmap], 3);
  EXPECT_EQ(s.BitmapIdent[2], -1);
  SalvaBitmap(s);
  EXPECT_EQ(File(".BTM"),
            "0,\"c:\\img\\foto.jpg\",10,20,30,40,0,\"++++++++\",1,0.5,0.25,12.5,\"IMMAGINI\"\r\n"
            "0,\"vecchia.bmp\",1,2,3,4,-1,\"++++++++\",0,1,1,0,\"SFONDO\"\r\n");
}

TEST_F(CaricaTesti, InfTesti126ECelConLeRigheChiuse) {
  Scrivi(".INF", "\"/home/geometra/LAVORI/ROSSI\"\r\n");
  Scrivi(".126", "riga uno\r\nriga due");
  Scrivi(".CEL", "\xE8\n");
  CaricaInf(s);
  CaricaTesto126Cel(s);
  EXPECT_EQ(std::tie(s.NomeOriginale, s.Testo126, s.TestoCel),
            std::make_tuple("/home/geometra/LAVORI/ROSSI", "riga uno\r\nriga due\r\n", "è\r\n"));
}

TEST_F(CaricaTesti, LibrettoSenzaRiguardoAlleMaiuscoleODiRipiego) {
  CaricaLibretto(s);  // none in the job: the book of the program
  EXPECT_EQ(s.LibrettoMisure, (std::vector<std::string>{"0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|",
                                                        "9|20|10|20|1070|9.00-G|FR|rilievo celerimetrico|"}));
  ScriviFileProva(s.CartellaLavoro + "catasto1.txt", "0|01012020|1|A001|0001|\r\n");
  CaricaLibretto(s);
  EXPECT_EQ(s.LibrettoMisure, std::vector<std::string>{"0|01012020|1|A001|0001|"});
  Scrivi(".txt", "  1|100|1.550|  \r\n2|101|12.3456|100.0000|10.000|1.500|\r\n\r\n");
  CaricaLibretto(s);
  EXPECT_EQ(s.LibrettoMisure, (std::vector<std::string>{"1|100|1.550|", "2|101|12.3456|100.0000|10.000|1.500|", ""}));
  EXPECT_EQ(s.ContaEntita[SlotLibretto], 3);
}

TEST_F(CaricaTesti, PianiConLeLoroRiparazioni) {
  CaricaPiani(s);
  ASSERT_EQ(s.Piani.size(), 1u);
  EXPECT_EQ(File(".PIA"), "0|0|1|0|1|Arial|0|0|\r\n");
  Scrivi(".PIA", " |1|0|-2|0| |1|2|3\r\nSTRADE|0|8|2|3|Courier New|0|0|\r\n");
  CaricaPiani(s);
  ASSERT_EQ(s.Piani.size(), 2u);
  EXPECT_EQ(ScriviRigaPiano(s.Piani[0]), "0|1|1|0|1|Arial|1|2|3");
  EXPECT_EQ(ScriviRigaPiano(s.Piani[1]), "STRADE|0|8|2|3|Courier New|0|0|0");
  EXPECT_EQ(std::tuple(s.Piani[1].Colore, s.Piani[1].Tratteggio, s.Piani[1].Spessore), std::tuple(8, 2, 3));
  std::string molti;
  for (int i = 0; i < 260; ++i) molti += "P" + std::to_string(i) + "|0|1|0|1|Arial|0|0|\r\n";
  Scrivi(".PIA", molti);
  CaricaPiani(s);
  EXPECT_EQ(s.Piani.size(), 257u);  // the rows before the limit stay
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Subscript out of range"), std::string::npos);
}

TEST_F(CaricaTesti, PuntiPDPVDaContornoSette) {
  Scrivi(".LLL", prova::RecordPuntoBase("101", 1, 2, 3).Byte() +
                     prova::RecordPuntoBase("102", 1, 2, 3).Car(42, 40, "<PV>ALBERO").Byte());
  Scrivi(".HAT", "0,\"101|x\",\"PD\",\"\",1,1\r\n0,\"102\",\"PV\",\"\",1,1\r\n0,\"101\",\"COGO\",\"\",1,1\r\n");
  CaricaLavoro(s);
  EXPECT_EQ(std::tie(s.PuntoDescrizione[0], s.PuntoDescrizione[1]), std::make_tuple("<PD>", "<PV>ALBERO"));
  EXPECT_EQ(std::tie(s.SetteIdent[0], s.SetteIdent[1], s.SetteIdent[2]), std::make_tuple(-1, -1, 0));
}

}  // namespace
}  // namespace varena
