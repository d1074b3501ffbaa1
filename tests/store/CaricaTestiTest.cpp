// The text members of a job and the `.CFG` blocks.
#include <gtest/gtest.h>

#include "core/Lista.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Cfg.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::ScriviFileProva;

class CaricaTesti : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  void SetUp() override {
    s.NomeLavoro = p.Lavoro("LAV");
    ClearAllTables(s);
  }
  void Scrivi(const char* estensione, const std::string& byte) { ScriviFileProva(s.NomeLavoro + estensione, byte); }
};

using prova::BloccoAManuale;

std::string BloccoBFinoA17(const char* vista) {
  const std::string tutto = prova::CfgManuale("", vista);
  return tutto.substr(tutto.find(BloccoAManuale()) + BloccoAManuale().size());
}

TEST_F(CaricaTesti, CfgBloccoAConsumatoEBloccoBLetto) {
  EXPECT_EQ(FormaBloccoA().size(), 152u);
  Scrivi(".CFG", "\"VR2020\"\r\n" + BloccoAManuale() + BloccoBFinoA17("1725000.5,5031000.25,80") +
                     "1,2,3,4,5,6,\"L\"\r\n0\r\n7\r\n\"CORRENTE\"\r\n0\r\n\"7|1|2\"\r\n\"A.TAF|B.CFG|\"\r\n");
  CaricaCFGProvvisorio(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(s.Edizione, "VR2020");
  EXPECT_EQ(s.Vista.CentroEst, 1725000.5);
  EXPECT_EQ(s.Vista.CentroNord, 5031000.25);
  EXPECT_EQ(s.Vista.AltezzaVista, 80);
  EXPECT_EQ(s.Imp.FATTORE_DI_ZOOM, 25);
  EXPECT_EQ(s.Imp.Colore_Default, 3);
  EXPECT_EQ(s.Imp.TIPODISTANZA, 2);
  EXPECT_EQ(s.Imp.MostraDescrizione, 0);
  EXPECT_EQ(s.PianoCorrente, "CORRENTE");
  EXPECT_EQ(s.Cfg.VB(B_Parametri, 0).Testo, "7|1|2");
  EXPECT_EQ(s.Cfg.VB(B_FileAssociati, 0).Testo, "A.TAF|B.CFG|");
  EXPECT_EQ(s.Cfg.A(151, 0).Testo, "x");  // the last statement of block A
}

TEST_F(CaricaTesti, CfgUnitoSuUnaRigaLeggeGliStessiValori) {
  std::string a = BloccoAManuale();
  std::string unito;
  for (char c : a) unito += c == '\r' ? ',' : (c == '\n' ? '\0' : c);
  unito.erase(std::remove(unito.begin(), unito.end(), '\0'), unito.end());
  unito.pop_back();  // the comma that stood for the last line end
  Scrivi(".CFG", "\"VR2020\"," + unito + "\r\n" + BloccoBFinoA17("10,20,30"));
  CaricaCFGProvvisorio(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(s.Vista.CentroEst, 10);
  EXPECT_EQ(s.Vista.AltezzaVista, 30);
}

TEST_F(CaricaTesti, CfgFinitoDopoLaDiciassettesimaTieneIValoriPrecedenti) {
  s.Cfg.VB(B_Parametri, 0).Testo = "PRIMA";
  s.Cfg.VB(B_MostraDescrizione, 0).Numero = 1;
  Scrivi(".CFG", "\"VR2020\"\r\n" + BloccoAManuale() + BloccoBFinoA17("1,2,3"));
  CaricaCFGProvvisorio(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(s.Vista.AltezzaVista, 3);
  EXPECT_EQ(s.Cfg.VB(B_Parametri, 0).Testo, "PRIMA");
  EXPECT_EQ(s.Imp.MostraDescrizione, 1);
}

TEST_F(CaricaTesti, CfgDiAltraEdizioneNonLeggeIlBloccoB) {
  s.Vista.AltezzaVista = 55;
  Scrivi(".CFG", "\"VR1999\"\r\n" + BloccoAManuale() + BloccoBFinoA17("1,2,3"));
  CaricaCFGProvvisorio(s);
  EXPECT_EQ(s.Edizione, "VR1999");
  EXPECT_EQ(s.Vista.AltezzaVista, 55);
}

TEST_F(CaricaTesti, CfgTroncatoOSporcoDaIlBoxENonRompe) {
  Scrivi(".CFG", "\"VR2020\"\r\n\"\",1\r\n\"\",2\r\n");
  CaricaCFGProvvisorio(s);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Titolo, "Rilevato errore");
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Input past end of file"), std::string::npos);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("CaricaCFGProvvisorio"), std::string::npos);
  std::string garbage;
  for (int i = 0; i < 5000; ++i) garbage.push_back(static_cast<char>((i * 7919) % 256));
  Scrivi(".CFG", garbage);
  CaricaCFGProvvisorio(s);  // no crash; at most one more box
  EXPECT_LE(p.ui.Messaggi.size(), 2u);
}

TEST_F(CaricaTesti, CfgScrittoERiletto) {
  s.Vista.CentroEst = 1725320.125;
  s.Vista.CentroNord = 5031210.5;
  s.Vista.AltezzaVista = 70;
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
  EXPECT_EQ(q.s.Vista.CentroEst, 1725320.125);
  EXPECT_EQ(q.s.Cfg.A(5, 0).Numero, 0.125);
  EXPECT_EQ(q.s.Cfg.A(2, 0).Testo, "testo, con virgola");
  EXPECT_EQ(TestoCfg(q.s), testo);  // a load and save keeps every byte
}

TEST_F(CaricaTesti, SetteDaTesto) {
  Scrivi(".HAT", "0,\"101|102|103\",\"COGO\",\"245\",3,1\r\n-1,\"1|2\",\"SQUADRO\",\"\",12,2\r\n");
  CaricaSette(s);
  ASSERT_EQ(s.ContaEntita[SlotSette], 2);
  EXPECT_EQ(s.SetteContorno[0], "101|102|103");
  EXPECT_EQ(s.SetteCommento[0], "COGO");
  EXPECT_EQ(s.SetteParticella[0], "245");
  EXPECT_EQ(s.SetteColore[0], 3);
  EXPECT_EQ(s.SetteTratteggio[0], 1);
  EXPECT_EQ(s.SetteIdent[1], -1);
  EXPECT_EQ(s.SetteColore[1], 12);

  ClearAllTables(s);
  Scrivi(".HAT", "0,\"\"");  // 4 bytes: an empty file
  CaricaSette(s);
  EXPECT_EQ(s.ContaEntita[SlotSette], 0);
  EXPECT_TRUE(p.ui.Messaggi.empty());

  // Broken quoting: the items shift and the file runs short, but nothing breaks.
  ClearAllTables(s);
  Scrivi(".HAT", "0,\"101|102,\"COGO\",\"245\",3,1\r\n");
  CaricaSette(s);
  EXPECT_EQ(s.ContaEntita[SlotSette], 0);
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("CaricaSette"), std::string::npos);
}

TEST_F(CaricaTesti, SetteDiEdizioneVR2000MappaIlColore) {
  Scrivi(".CFG", "\"VR2000\"\r\n");
  Scrivi(".HAT", "0,\"1|2\",\"COGO\",\"\",2,1\r\n");
  CaricaLavoro(s);
  ASSERT_EQ(s.ContaEntita[SlotSette], 1);
  EXPECT_EQ(s.SetteColore[0], 96);
}

TEST_F(CaricaTesti, ImmaginiConESenzaRotazione) {
  Scrivi(".BTM",
         "0,\"c:\\img\\foto.jpg\",10,20,30,40,0,\"++++++++\",1,0.5,0.25,12.5,\"  IMMAGINI \"\r\n"
         "0,\"vecchia.bmp\",1,2,3,4,-1,\"SFONDO\",0,1,1\r\n"
         "0,\"   \",1,2,3,4,0,\"X\",0,1,1\r\n");
  CaricaBitmap(s);
  ASSERT_EQ(s.ContaEntita[SlotBitmap], 3);
  EXPECT_EQ(s.BitmapNomeFile[0], "c:\\img\\foto.jpg");
  EXPECT_EQ(s.BitmapX[0], 10);
  EXPECT_EQ(s.BitmapAltezza[0], 40);
  EXPECT_EQ(s.BitmapZoom[0], 1);
  EXPECT_EQ(s.BitmapScalaAlt[0], 0.25);
  EXPECT_EQ(s.BitmapRotazione[0], 12.5);
  EXPECT_EQ(s.BitmapPiano[0], "IMMAGINI");
  EXPECT_EQ(s.BitmapIdent[0], 0);
  EXPECT_EQ(s.BitmapPiano[1], "SFONDO");
  EXPECT_EQ(s.BitmapRotazione[1], 0);
  EXPECT_EQ(s.BitmapCongela[1], -1);
  EXPECT_EQ(s.BitmapIdent[2], -1);  // a blank file name
}

TEST_F(CaricaTesti, InfTesti126CelEMembriConservati) {
  Scrivi(".INF", "\"/home/geometra/LAVORI/ROSSI\"\r\n");
  Scrivi(".126", "riga uno\r\nriga due");
  Scrivi(".CEL", "\xE8\n");
  Scrivi(".SEZ", std::string("\x01\x00\x02sezioni", 10));
  Scrivi(".DUE", "curve");
  CaricaInf(s);
  CaricaTesto126Cel(s);
  ConservaMembri(s);
  EXPECT_EQ(s.NomeOriginale, "/home/geometra/LAVORI/ROSSI");
  EXPECT_EQ(s.Testo126, "riga uno\r\nriga due\r\n");
  EXPECT_EQ(s.TestoCel, "è\r\n");
  EXPECT_EQ(s.MembriConservati.at(SlotSezioni), std::string("\x01\x00\x02sezioni", 10));
  EXPECT_EQ(s.MembriConservati.at(SlotDue), "curve");
}

TEST_F(CaricaTesti, LibrettoSenzaRiguardoAlleMaiuscole) {
  Scrivi(".txt", "  1|100|1.550|  \r\n2|101|12.3456|100.0000|10.000|1.500|\r\n\r\n");
  CaricaLibretto(s);
  ASSERT_EQ(s.LibrettoMisure.size(), 3u);
  EXPECT_EQ(s.LibrettoMisure[0], "1|100|1.550|");
  EXPECT_EQ(s.LibrettoMisure[2], "");
  EXPECT_EQ(s.ContaEntita[SlotLibretto], 3);
}

TEST_F(CaricaTesti, LibrettoDiRipiego) {
  CaricaLibretto(s);
  ASSERT_EQ(s.LibrettoMisure.size(), 2u);
  EXPECT_EQ(s.LibrettoMisure[0], "0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
  EXPECT_EQ(s.LibrettoMisure[1], "9|20|10|20|1070|9.00-G|FR|rilievo celerimetrico|");
  ScriviFileProva(s.CartellaLavoro + "catasto1.txt", "0|01012020|1|A001|0001|\r\n");
  CaricaLibretto(s);
  ASSERT_EQ(s.LibrettoMisure.size(), 1u);
  EXPECT_EQ(s.LibrettoMisure[0], "0|01012020|1|A001|0001|");
}

TEST_F(CaricaTesti, PianiConLeLoroRiparazioni) {
  CaricaPiani(s);
  ASSERT_EQ(s.Piani.size(), 1u);
  EXPECT_EQ(prova::LeggiFileProva(s.NomeLavoro + ".PIA"), "0|0|1|0|1|Arial|0|0|\r\n");
  Scrivi(".PIA", " |1|0|-2|0| |1|2|3\r\nSTRADE|0|8|2|3|Courier New|0|0|\r\n");
  CaricaPiani(s);
  ASSERT_EQ(s.Piani.size(), 2u);
  EXPECT_EQ(s.Piani[0].Nome, "0");
  EXPECT_EQ(s.Piani[0].Colore, 1);
  EXPECT_EQ(s.Piani[0].Tratteggio, 0);
  EXPECT_EQ(s.Piani[0].Spessore, 1);
  EXPECT_EQ(s.Piani[0].Font, "Arial");
  EXPECT_EQ(s.Piani[0].Flag8, 3);
  EXPECT_EQ(s.Piani[1].Nome, "STRADE");
  EXPECT_EQ(s.Piani[1].Colore, 8);
  std::string molti;
  for (int i = 0; i < 260; ++i) molti += "P" + std::to_string(i) + "|0|1|0|1|Arial|0|0|\r\n";
  Scrivi(".PIA", molti);
  CaricaPiani(s);
  EXPECT_EQ(s.Piani.size(), 257u);  // the rows before the limit stay
  ASSERT_FALSE(p.ui.Messaggi.empty());
  EXPECT_NE(p.ui.Messaggi.back().Testo.find("Subscript out of range"), std::string::npos);
}

TEST_F(CaricaTesti, PuntiPDPVDaContornoSette) {
  Scrivi(".LLL", prova::RecordPuntoBase("101", 1, 2, 3).Byte() +
                     prova::RecordPuntoBase("102", 1, 2, 3).Car(42, 40, "<PV>ALBERO").Byte());
  Scrivi(".HAT", "0,\"101|x\",\"PD\",\"\",1,1\r\n0,\"102\",\"PV\",\"\",1,1\r\n0,\"101\",\"COGO\",\"\",1,1\r\n");
  CaricaLavoro(s);
  EXPECT_EQ(s.PuntoDescrizione[0], "<PD>");
  EXPECT_EQ(s.PuntoDescrizione[1], "<PV>ALBERO");
  EXPECT_EQ(s.SetteIdent[0], -1);
  EXPECT_EQ(s.SetteIdent[1], -1);
  EXPECT_EQ(s.SetteIdent[2], 0);
}

TEST_F(CaricaTesti, LavoroSenzaVistaInquadraTutto) {
  Scrivi(".LLL", prova::RecordPuntoBase("1", 100, 200, 0).Byte() + prova::RecordPuntoBase("2", 140, 210, 0).Byte());
  Scrivi(".CFG", "\"VR2020\"\r\n" + BloccoAManuale() + BloccoBFinoA17("0,0,0"));
  CaricaLavoro(s);
  EXPECT_EQ(s.Vista.CentroEst, 120);
  EXPECT_EQ(s.Vista.CentroNord, 205);
  EXPECT_EQ(s.Vista.AltezzaVista, 40);
  ClearAllTables(s);
  s.Vista.AltezzaVista = -1;
  std::remove((s.NomeLavoro + ".LLL").c_str());
  CaricaLavoro(s);
  EXPECT_EQ(s.Vista.CentroEst, 50);
  EXPECT_EQ(s.Vista.AltezzaVista, 100);
}

}  // namespace
}  // namespace varena
