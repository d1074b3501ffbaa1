// The DXF export: the exact lines of each kind, the label layers and their cleaning, the
// symbol strokes, the options file.
#include <gtest/gtest.h>

#include "core/Testo.h"
#include "exchange/DxfDialoghi.h"
#include "exchange/DxfScrittura.h"
#include "support/ProvaComandi.h"
#include "view/ListaDisegno.h"

namespace varena {
namespace {

using namespace prova;

// Lines given as "a|b|c" with CR LF after each.
std::string Righe(const std::string& elenco) {
  std::string r;
  for (const std::string& riga : Dividi(elenco, '|')) r += riga + "\r\n";
  return r;
}
const std::string kInizio = Righe(" 0|SECTION| 2|ENTITIES");
const std::string kFine = Righe("  0|ENDSEC|  0|EOF");

class DxfOutTest : public ::testing::Test {
 protected:
  Sessione s;
  OpzioniDxfOut o;
  // The body of the file between the head and the end, which every file shares.
  std::string Corpo() {
    const std::string t = TestoDxfOut(s, o);
    EXPECT_EQ(t.substr(0, kInizio.size()), kInizio);
    EXPECT_EQ(t.substr(t.size() - kFine.size()), kFine);
    return t.substr(kInizio.size(), t.size() - kInizio.size() - kFine.size());
  }
};

TEST_F(DxfOutTest, PuntoConEtichette) {
  const int32_t p = MettiPunto(s, "101", 10.5, 20.25, 14.8249);
  s.PuntoPiano[p] = "RIL";
  s.PuntoDescrizione[p] = "<PD> SPIGOLO <P!>";
  s.PuntoSpoX[p] = 0.5, s.PuntoSpoY[p] = 1;
  s.PuntoDimensioneNome[p] = 2, s.PuntoDimensioneQuota[p] = -1, s.PuntoDimensioneDescrizione[p] = 0;
  s.PuntoColoreNome[p] = 3, s.PuntoColoreQuota[p] = 4, s.PuntoColoreDescrizione[p] = 5, s.PuntoColoreSimbolo[p] = 6;
  s.DecimaliQuota = 2;
  o.Simboli = o.Nomi = o.Quote = o.Descrizioni = o.TreD = true;
  o.Text1[9] = "0.75";
  o.Font = "Arial";
  o.PuntiPlanimetrici = true;
  // The height label's size is the default of field 9; the description's 0 stays 0, and it
  // stands below both labels: 21.25 - 1.3 * 0 - 1.3 * 0.75 = 20.275.
  EXPECT_EQ(Corpo(), Righe(" 0|POINT| 8|RIL_S|62|6| 10|10.5| 20|20.25| 30|14.8249|"
                           " 0|TEXT| 8|RIL_N|62|3| 10|11| 20|21.25| 30|14.8249| 40|2| 7 |Arial| 1| 101|"
                           " 0|TEXT| 8|PUNTO_PLANIMETRICO|62|4| 10|11| 20|20.275| 30|14.8249| 40|0.75| 7 |Arial| 1| 14.82|"
                           " 0|TEXT| 8|RIL_D|62|5| 10|11| 20|20.275| 30|14.8249| 40|0| 7 |Arial| 1| SPIGOLO"));
  // Coincident labels stand at the name's place; depths below the reference height.
  o = {};
  o.Quote = o.Coincidenti = true;
  s.ModoQuota = 1;
  s.QuotaRiferimento = 100;
  s.DecimaliQuota = -3;
  EXPECT_EQ(Corpo(), Righe(" 0|TEXT| 8|RIL_Q|62|4| 10|11| 20|21.25| 40|1| 1| 85."));
}

TEST_F(DxfOutTest, PianiDelleEtichette) {
  const int32_t p = MettiPunto(s, "1", 0, 0, 0);
  s.PuntoPiano[p] = "A.B C";
  o.Simboli = o.Nomi = o.Quote = o.Descrizioni = true;
  auto piani = [&] {
    std::vector<std::string> r;
    const std::vector<std::string> righe = Dividi(TestoDxfOut(s, o), '\n');
    for (size_t k = 0; k + 1 < righe.size(); ++k)
      if (righe[k] == " 8\r") r.push_back(Rifila(righe[k + 1].substr(0, righe[k + 1].size() - 1)));
    return r;
  };
  EXPECT_EQ(piani(), (std::vector<std::string>{"A_B_C_S", "A_B_C_N", "A_B_C_Q", "A_B_C_D"}));
  o.DescrizioniPiani = true;  // an empty description: the suffixes alone
  EXPECT_EQ(piani(), (std::vector<std::string>{"_S", "_N", "_Q", "_D"}));
  s.PuntoDescrizione[p] = "cippo/5";
  EXPECT_EQ(piani(), (std::vector<std::string>{"CIPPO_5_S", "CIPPO_5_N", "CIPPO_5_Q", "CIPPO_5_D"}));
  o.PianiSemplificati = true;
  EXPECT_EQ(piani(), (std::vector<std::string>{"PUNTI", "NOMI", "QUOTE", "DESCRIZIONI"}));
  o = {};
  o.Nomi = true;
  o.Text1[0] = " etichette ";
  EXPECT_EQ(piani(), (std::vector<std::string>{"etichette_N"}));
  EXPECT_EQ(PulisciPianoDxf(" <PD><P!>*V* "), "0");
  // The points become "_" before the markers go, so the marker with points stays.
  EXPECT_EQ(PulisciPianoDxf("[P.A.]"), "[P_A_]");
  EXPECT_EQ(PulisciPianoDxf("a\\b/c,d"), "a_b_c_d");
}

TEST_F(DxfOutTest, EntitaDelDisegno) {
  MettiLinea(s, 1, 2, 3, 4, 5, 6);
  const int32_t gelata = MettiLinea(s, 0, 0, 1, 1);
  s.LineaCongela[static_cast<size_t>(gelata)] = -1;
  const int32_t c = MettiCerchio(s, 7, 8, 2.5, 9);
  s.CerchioColore[static_cast<size_t>(c)] = 5;
  s.CerchioPiano[static_cast<size_t>(c)] = "VERDE";
  MettiArco(s, 1, 1, 2, 50, 100);
  const int32_t t = MettiTesto(s, 3, 4, "Via Roma");
  s.TestoAltezza[static_cast<size_t>(t)] = 1.5;
  s.TestoRotazione[static_cast<size_t>(t)] = 100;
  o.TreD = true;
  // The arc from azimuth 50 gon clockwise through 100 gon runs, counter-clockwise from East,
  // from -45 to 45 degrees; a text turned 100 gon stands at 270 degrees. Circles and arcs
  // never carry a height.
  EXPECT_EQ(Corpo(), Righe(" 0|LINE| 8|0|62|1| 10|1| 20|2| 30|5| 11|3| 21|4| 31|6|"
                           " 0 |CIRCLE| 8 |VERDE|62|5| 10 |7| 20 |8| 40 |2.5|"
                           " 0 |ARC| 8 |0|62|1| 10 |1| 20 |1| 40 |2| 50 |-45| 51 |45|"
                           " 0 |TEXT| 8 |0|62|1| 10 |3| 20 |4| 40 |1.5| 1 |Via Roma| 50 |270"));
  o.TreD = false;
  o.LineeSenzaQuota = true;
  o.AssegnaColore = o.AssegnaTratteggio = true;
  const std::string corpo = Corpo();
  EXPECT_EQ(corpo.substr(0, corpo.find(" 0 \r\nCIRCLE")), Righe(" 0|LINE| 8|1000-1|62|1| 10|1| 20|2| 11|3| 21|4"));
  EXPECT_NE(corpo.find(" 8 \r\n5000-1\r\n"), std::string::npos);
  EXPECT_NE(corpo.find(" 0 \r\nTEXT\r\n 8 \r\n1000\r\n"), std::string::npos);
}

TEST_F(DxfOutTest, SimboliDeiPunti) {
  // Code 98: a square and a circle (96), then a plus (2); size 4, so half side 1.
  const int32_t p = MettiPunto(s, "1", 10, 20, 3);
  s.PuntoSimbolo[static_cast<size_t>(p)] = 98;
  s.PuntoDimensioneSimbolo[static_cast<size_t>(p)] = 4;
  EXPECT_EQ(Corpo(), Righe(" 0|LINE| 8|SimboliPunto| 10|9| 20|19| 11|11| 21|19|"
                           " 0|LINE| 8|SimboliPunto| 10|11| 20|19| 11|11| 21|21|"
                           " 0|LINE| 8|SimboliPunto| 10|11| 20|21| 11|9| 21|21|"
                           " 0|LINE| 8|SimboliPunto| 10|9| 20|21| 11|9| 21|19|"
                           " 0|CIRCLE| 8|SimboliPunto| 10|10| 20|20| 40|1|"
                           " 0|LINE| 8|SimboliPunto| 10|8| 20|20| 11|12| 21|20|"
                           " 0|LINE| 8|SimboliPunto| 10|10| 20|18| 11|10| 21|22"));
  // Code 45: a triangle (42), then a stroke of each of its three sides; 3 left: a cross.
  s.PuntoSimbolo[static_cast<size_t>(p)] = 45;
  s.PuntoDimensioneSimbolo[static_cast<size_t>(p)] = 10;
  const std::string corpo = Corpo();
  // Corners at radius 4 at 0, 120 and 240 degrees: (14, 20), (8, 23.4641016151378), (8, 16.5358983848622).
  EXPECT_EQ(corpo.substr(0, corpo.find(" 0\r\nLINE", 10)), Righe(" 0|LINE| 8|SimboliPunto| 10|14| 20|20| 11|8| 21|23.4641016151378"));
  EXPECT_NE(corpo.find(Righe(" 10|5| 20|15| 11|15| 21|25")), std::string::npos);
  EXPECT_NE(corpo.find(Righe(" 10|5| 20|25| 11|15| 21|15")), std::string::npos);
  o.EscludiSimboli = true;
  EXPECT_EQ(Corpo(), "");
}

TEST_F(DxfOutTest, CurveEFalde) {
  // Up to 3 rows of curves write nothing.
  o.Curve = true;
  for (int k = 0; k < 3; ++k) {
    DimensionaCurve(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotCurve]++);
    s.CurvaFlag[r] = k == 2, s.CurvaX[r] = k ? 1 : 105, s.CurvaY[r] = k ? 2 : -1;
  }
  EXPECT_EQ(Corpo(), "");
  DimensionaCurve(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotCurve]++);
  s.CurvaFlag[r] = 1, s.CurvaX[r] = 3.25, s.CurvaY[r] = 4;
  s.CurvaFlag[2] = 0;
  EXPECT_EQ(Corpo(), Righe(" 0|POLYLINE| 8|Curve250|62| 250 | 66|     1| 10| 0 | 20| 0 |"
                           "0|VERTEX| 8|Curve250|62|250| 10|1.0| 20|2.0|"
                           "0|VERTEX| 8|Curve250|62|250| 10|1.0| 20|2.0|"
                           "0|VERTEX| 8|Curve250|62|250| 10|3.25| 20|4.0|"
                           " 0|SEQEND| 8|0"));
  o.Curve = false;
  DimensionaFalde(s);
  const auto f = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
  s.FaldaIdent[f] = 0;
  s.FaldaX1[f] = 1, s.FaldaY1[f] = 2, s.FaldaZ1[f] = 3, s.FaldaX2[f] = 4, s.FaldaY2[f] = 5, s.FaldaZ2[f] = 6;
  s.FaldaX3[f] = 7, s.FaldaY3[f] = 8, s.FaldaZ3[f] = 9;
  EXPECT_EQ(Corpo(), Righe(" 0|3DFACE| 8|3DFACE| 10|1| 20|2| 30|3| 11|4| 21|5| 31|6| 12|7| 22|8| 32|9|"
                           " 13|1| 23|2| 33|3"));
  // What the drawing shows of a Contorno-7 and of a picture's name; a line of the line
  // table in the list is written from the table, not again from the list.
  s.ContaEntita[SlotFalde] = 0;
  prova::MettiRecordLista(s, SlotSette, 0, 1, 2, 3, 4);
  prova::MettiRecordLista(s, SlotLinee, 0, 5, 6, 7, 8);
  RecordDisegno t;
  t.Tipo = SlotBitmap, t.Primitiva = PrimTesto, t.X1 = 10, t.Y1 = 20, t.Altezza = 2, t.Rotazione = 100;
  t.Testo = "foto.png", t.Font = "Arial", t.Piano = "FOTO 1", t.Colore = 7;
  s.ListaDisegno.Aggiungi(t);
  o.TreD = true;
  EXPECT_EQ(Corpo(), Righe(" 0|LINE| 8|0|62|1| 10|1| 20|2| 30| 0 | 11|3| 21|4| 31| 0 |"
                           " 0|TEXT| 8|FOTO_1|62|7| 10|12.4| 20|20| 30| 0 | 40|2| 7 |Arial| 1|foto.png| 50 |90"));
}

TEST(DxfOut, OpzioniNelFile) {
  prova::SessioneProva p;
  Sessione& s = p.s;
  InterfacciaRegistrata& ui = p.ui;
  const std::string dir = s.CartellaProgramma;
  s.CartellaUtente = dir + "/utente";
  std::filesystem::create_directory(s.CartellaUtente);
  OpzioniDxfOut o;
  o.TreD = o.Nomi = o.LineeSenzaQuota = true;
  o.Font = "Arial";
  o.FileName = "/tmp/Città.DXF";
  o.Text1[4] = "curve";
  o.Percorso = 5;
  ScriviOpzioniDxfOut(s, o);
  EXPECT_EQ(prova::LeggiFileProva(dir + "/CFGDXF2000.ini"),
            "\"\"\r\n\"/tmp/Citt\xE0.DXF\"\r\n1\r\n\"Arial\"\r\n1\r\n\"DA FILE\"\r\n\"DA FILE\"\r\n\"DA FILE\"\r\n"
            "\"DA FILE\"\r\n\"CURVE\"\r\n\"DA FILE\"\r\n\"DA FILE\"\r\n\"DA FILE\"\r\n\"DA FILE\"\r\n");
  const OpzioniDxfOut letto = LeggiOpzioniDxfOut(s);
  EXPECT_EQ(std::tie(letto.TreD, letto.Nomi, letto.LineeSenzaQuota, letto.Quote), std::make_tuple(true, true, true, false));
  EXPECT_EQ(std::tie(letto.Percorso, letto.FileName, letto.Text1[4], letto.Font),
            std::make_tuple(5, "/tmp/Città.DXF", "CURVE", "Arial"));

  // The fonts: the system's the first time, kept in elencofont.ini, then read from there.
  ui.Font = {"Arial", "DejaVu Sans"};
  EXPECT_EQ(ElencoFont(s), ui.Font);
  EXPECT_EQ(prova::LeggiFileProva(dir + "/elencofont.ini"), "Arial\r\nDejaVu Sans\r\n");
  ui.Font = {"Altro"};
  EXPECT_EQ(ElencoFont(s), (std::vector<std::string>{"Arial", "DejaVu Sans"}));

  // The default job offers the job named first in Lavoro/default, as the legacy wrote it.
  s.CartellaLavoro = dir + "/";
  s.NomeOriginale = "";
  std::filesystem::create_directory(dir + "/Lavoro");
  prova::ScriviFileProva(dir + "/Lavoro/default", "c:\\lavori\\rossi.zrl\r\naltro.zrl\r\n");
  o.Percorso = 3;
  EXPECT_EQ(PercorsoProposto(s, o), "C:\\LAVORI\\ROSSI.DXF");
  s.NomeOriginale = "/lavori/Bianchi";
  EXPECT_EQ(PercorsoProposto(s, o), "/lavori/Bianchi.DXF");
}

}  // namespace
}  // namespace varena
