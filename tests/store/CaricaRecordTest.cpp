// Loading of the record members: the repairs at load, the old palette, partial records.
// That every field lands where it belongs is shown by a load and save giving the same bytes.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "store/Carica.h"
#include "store/Salva.h"
#include "store/LavoroProva.h"

namespace varena {
namespace {

using prova::Record;
using prova::RecordPuntoBase;

struct CaricaRecord : prova::ProvaMembri {};

// The identity of each counted row: "0" live, "-1" deleted.
std::string Identi(const Colonna<int16_t>& ident, int32_t conta) {
  std::string t;
  for (size_t r = 0; r < static_cast<size_t>(conta); ++r) t += std::to_string(ident[r]) + " ";
  return t;
}

TEST_F(CaricaRecord, RiparazioniDeiPuntiVisteNelRecordRiscritto) {
  // Empty font, negative colours, positive frozen flags, reliability 0 and -3, zero sizes;
  // a name keeps its leading blank, a layer loses it.
  Record a = RecordPuntoBase("1", 1, 2, 3), b = RecordPuntoBase(" 2", 1, 2, 3);
  Record riparatoA = a, riparatoB = b;
  a.Car(194, 30, "").I16(122, -5).I16(124, -1).I16(132, -7).I16(182, -2).I16(126, 3).I16(128, 1).I16(130, 5);
  a.I16(184, 2).I16(142, 0).F64(106, 0).F64(114, 0).F64(134, 0).F64(186, 0);
  b.I16(142, -3).F64(106, -0.0000001).F64(114, 3).Car(148, 8, " PUNTI");
  Scrivi(".LLL", a.Byte() + b.Byte());
  CaricaPunti(s);
  SalvaPunti(s);
  riparatoA.Car(194, 30, "Courier New").I16(122, 0).I16(124, 0).I16(132, 0).I16(182, 0);
  riparatoB.F64(106, -0.0000001).F64(114, 3).Car(148, 8, "PUNTI");  // only exactly 0 is repaired
  EXPECT_EQ(File(".LLL"), riparatoA.Byte() + riparatoB.Byte());
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_F(CaricaRecord, RigheDegeneriCancellateMaContate) {
  Record l1(128), l2(128);
  l1.F64(26, 1).I16(50, -4);                                               // a negative colour is 0
  l2.F64(2, 10).F64(10, 20).F64(18, 1).F64(26, 10).F64(34, 20).F64(42, 9);  // same plan ends
  Scrivi(".LIN", l1.Byte() + l2.Byte());
  Scrivi(".CER", Record(128).F64(26, 0.001).Byte() + Record(128).F64(26, 0.0009).Byte());
  Scrivi(".ARC", Record(128).F64(26, 0.001).F64(42, 0.001).Byte() + Record(128).F64(26, 0.0009).F64(42, 1).Byte() +
                     Record(128).F64(26, 1).F64(42, 0.0009).Byte());
  Scrivi(".TES", Record(256).Car(115, 132, "VIA").Byte() + Record(256).Car(92, 23, "Arial").Car(115, 132, "  ").Byte());
  Scrivi(".EQU", Record(256).I16(50, -9).Byte());
  for (auto carica : {CaricaLinee, CaricaCerchi, CaricaArchi, CaricaTesti, CaricaFalde}) carica(s);
  EXPECT_EQ(Identi(s.LineaIdent, s.ContaEntita[SlotLinee]), "0 -1 ");
  EXPECT_EQ(Identi(s.CerchioIdent, s.ContaEntita[SlotCerchi]), "0 -1 ");  // a radius of exactly 0.001 stays
  EXPECT_EQ(Identi(s.ArcoIdent, s.ContaEntita[SlotArchi]), "0 -1 -1 ");
  EXPECT_EQ(Identi(s.TestoIdent, s.ContaEntita[SlotTesti]), "0 -1 ");     // blanks alone
  // An empty font is Arial.
  EXPECT_EQ(std::tie(s.LineaColore[0], s.TestoFont[0], s.FaldaColore[0]), std::make_tuple(0, "Arial", 0));
}

TEST_F(CaricaRecord, ValoriNonNumericiScartatiEDetti) {
  const double inf = std::numeric_limits<double>::infinity(), nan = std::nan("");
  // A line running to infinity, an arc whose start is no number, an image whose width
  // overflows once scaled ("1d726" reads as the largest double, doubled it is infinite),
  // and beside each a row that loads.
  Scrivi(".LIN", Record(128).F64(26, 1).Byte() + Record(128).F64(26, 1).F64(34, inf).Byte());
  Scrivi(".ARC", Record(128).F64(26, 10).F64(34, nan).F64(42, 100).Byte() + Record(128).F64(26, 10).F64(42, 1e30).Byte());
  Scrivi(".BTM", "0,\"a.png\",0,0,1d726,10,0,\"0\",1,2,1\r\n0,\"b.png\",1d726,0,100,10,0,\"0\",1,1,1\r\n");
  CaricaLavoro(s);
  EXPECT_EQ(Identi(s.LineaIdent, s.ContaEntita[SlotLinee]), "0 -1 ");
  EXPECT_EQ(Identi(s.ArcoIdent, s.ContaEntita[SlotArchi]), "-1 0 ");
  EXPECT_EQ(Identi(s.BitmapIdent, s.ContaEntita[SlotBitmap]), "-1 0 ");
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(std::tie(p.ui.Messaggi[0].Testo, p.ui.Messaggi[0].Titolo, p.ui.Messaggi[0].Tipo),
            std::make_tuple("Righe scartate perché con valori non numerici o infiniti:\n.LIN: 1\n.ARC: 1\n.BTM: 1",
                            "Caricamento Lavoro", Icona::Avviso));
}

TEST_F(CaricaRecord, VecchiaTavolozzaSoloPerVR2000) {
  auto linea = [](int16_t colore) { return Record(128).F64(26, 1).I16(50, colore).Byte(); };
  Scrivi(".LIN", linea(12) + linea(77) + linea(0) + linea(-3) + linea(15));
  Scrivi(".HAT", "0,\"1|2\",\"COGO\",\"\",2,1\r\n");
  // The last colour is that of the contorno-7 row; a negative colour is 0 first.
  const std::pair<const char*, std::vector<int32_t>> casi[] = {{"VR2000", {1, 1, 250, 250, 7, 96}},
                                                               {"VR2020", {12, 77, 0, 0, 15, 2}}};
  for (const auto& [edizione, attesi] : casi) {
    ClearAllTables(s);
    Scrivi(".CFG", std::string("\"") + edizione + "\"\r\n");
    CaricaLavoro(s);
    ASSERT_EQ(s.ContaEntita[SlotLinee], 5);
    std::vector<int32_t> colori(s.LineaColore.begin(), s.LineaColore.begin() + 5);
    colori.push_back(s.SetteColore[0]);
    EXPECT_EQ(colori, attesi) << edizione;
  }
}

TEST_F(CaricaRecord, CodaParzialeContataAllaPariConIByteDelRecordPrecedente) {
  const std::string a = RecordPuntoBase("A", 10, 20, 30).Byte(), b = RecordPuntoBase("B", 11, 21, 31).Byte();
  auto carica = [&](const std::string& byte) {
    ClearAllTables(s);
    Scrivi(".LLL", byte);
    CaricaPunti(s);
    return s.ContaEntita[SlotPunti];
  };
  // One and a half records: 1.5 rounds to 2; the half record takes the rest of the first.
  ASSERT_EQ(carica(a + b.substr(0, 128)), 2);
  EXPECT_EQ(std::tie(s.PuntoNome[1], s.PuntoX[1], s.PuntoPiano[1], s.PuntoFont[1]), std::make_tuple("B", 11.0, "0", "Arial"));
  EXPECT_EQ(carica(a + b + a.substr(0, 128)), 2);  // 2.5 rounds to 2: the tail is not read
  // A lone half record of the first row is completed with zeros.
  ASSERT_EQ(carica(a.substr(0, 129)), 1);
  EXPECT_EQ(std::tie(s.PuntoX[0], s.PuntoFont[0]), std::make_tuple(10.0, "Courier New"));
  EXPECT_EQ(carica(a.substr(0, 127)), 0);  // less than half a record is none
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

}  // namespace
}  // namespace varena
