// Loading of the record members, every field at its offset and every repair at load.
#include <gtest/gtest.h>

#include "core/Sessione.h"
#include "store/Carica.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::Record;
using prova::ScriviFileProva;

class CaricaRecord : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  void SetUp() override {
    s.NomeLavoro = p.Lavoro("LAV");
    ClearAllTables(s);
  }
  void Scrivi(const char* estensione, const std::string& byte) { ScriviFileProva(s.NomeLavoro + estensione, byte); }
  void Cfg(const char* edizione) { Scrivi(".CFG", std::string("\"") + edizione + "\"\r\n"); }
};

TEST_F(CaricaRecord, PuntoOgniCampoAlSuoPosto) {
  Record r(256, ' ');
  r.I16(0, 0).Car(2, 40, " PF01/0010/G693").Car(42, 40, "<PD> SPIGOLO \xE8").F64(82, 1725117.59).F64(90, 5031465.33);
  r.F64(98, 14.82).F64(106, 2.5).F64(114, 1.25).I16(122, 20).I16(124, 10).I16(126, -1).I16(128, 0).I16(130, -2);
  r.I16(132, 32).F64(134, 0.75).I16(142, 3).I16(146, 66).Car(148, 8, " PUNTI").F64(158, 0.3).F64(166, -0.4);
  r.F64(174, 0.6).I16(182, 60).I16(184, -1).F64(186, 1.75).Car(194, 30, "Times New Roman").F64(232, 0.0123);
  r.F32(240, 1.55f);
  Scrivi(".LLL", r.Byte());
  CaricaPunti(s);
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(s.PuntoIdent[0], 0);
  EXPECT_EQ(s.PuntoNome[0], " PF01/0010/G693");  // the name is not trimmed in front
  EXPECT_EQ(s.PuntoDescrizione[0], "<PD> SPIGOLO è");
  EXPECT_EQ(s.PuntoX[0], 1725117.59);
  EXPECT_EQ(s.PuntoY[0], 5031465.33);
  EXPECT_EQ(s.PuntoZ[0], 14.82);
  EXPECT_EQ(s.PuntoDimensioneSimbolo[0], 2.5);
  EXPECT_EQ(s.PuntoDimensioneNome[0], 1.25);
  EXPECT_EQ(s.PuntoColoreSimbolo[0], 20);
  EXPECT_EQ(s.PuntoColoreNome[0], 10);
  EXPECT_EQ(s.PuntoCongelaSimbolo[0], -1);
  EXPECT_EQ(s.PuntoCongelaNome[0], 0);
  EXPECT_EQ(s.PuntoCongelaQuota[0], -2);
  EXPECT_EQ(s.PuntoColoreQuota[0], 32);
  EXPECT_EQ(s.PuntoDimensioneQuota[0], 0.75);
  EXPECT_EQ(s.PuntoAttendibilita[0], 3);
  EXPECT_EQ(s.PuntoSimbolo[0], 66);
  EXPECT_EQ(s.PuntoPiano[0], "PUNTI");  // the layer is trimmed on both sides
  EXPECT_EQ(s.PuntoSpoX[0], 0.3);
  EXPECT_EQ(s.PuntoSpoY[0], -0.4);
  EXPECT_EQ(s.PuntoSpoZ[0], 0.6);
  EXPECT_EQ(s.PuntoColoreDescrizione[0], 60);
  EXPECT_EQ(s.PuntoCongelaDescrizione[0], -1);
  EXPECT_EQ(s.PuntoDimensioneDescrizione[0], 1.75);
  EXPECT_EQ(s.PuntoFont[0], "Times New Roman");
  EXPECT_EQ(s.PuntoErroreOrientamento[0], 0.0123);
  EXPECT_EQ(s.PuntoHPrisma[0], 1.55f);
}

TEST_F(CaricaRecord, RiparazioniDeiPunti) {
  std::string byte;
  // Empty font, negative colours, positive frozen flags, reliability 0 and -3, zero sizes.
  Record a = prova::RecordPuntoBase("1", 1, 2, 3);
  a.Car(194, 30, "").I16(122, -5).I16(124, -1).I16(132, -7).I16(182, -2);
  a.I16(126, 3).I16(128, 1).I16(130, 5).I16(184, 2).I16(142, 0);
  a.F64(106, 0).F64(114, 0).F64(134, 0).F64(186, 0);
  Record b = prova::RecordPuntoBase("2", 1, 2, 3);
  b.I16(142, -3).F64(106, -0.0000001).F64(114, 3);
  Scrivi(".LLL", a.Byte() + b.Byte());
  CaricaPunti(s);
  ASSERT_EQ(s.ContaEntita[SlotPunti], 2);
  EXPECT_EQ(s.PuntoFont[0], "Courier New");
  EXPECT_EQ(s.PuntoColoreSimbolo[0], 0);
  EXPECT_EQ(s.PuntoColoreNome[0], 0);
  EXPECT_EQ(s.PuntoColoreQuota[0], 0);
  EXPECT_EQ(s.PuntoColoreDescrizione[0], 0);
  EXPECT_EQ(s.PuntoCongelaSimbolo[0], 0);
  EXPECT_EQ(s.PuntoCongelaNome[0], 0);
  EXPECT_EQ(s.PuntoCongelaQuota[0], 0);
  EXPECT_EQ(s.PuntoCongelaDescrizione[0], 0);
  EXPECT_EQ(s.PuntoAttendibilita[0], 12);
  EXPECT_EQ(s.PuntoAttendibilita[1], 12);
  EXPECT_EQ(s.PuntoDimensioneSimbolo[0], 1.0);
  EXPECT_EQ(s.PuntoDimensioneNome[0], 1.0);
  EXPECT_EQ(s.PuntoDimensioneQuota[0], 1.0);
  EXPECT_EQ(s.PuntoDimensioneDescrizione[0], 1.0);
  EXPECT_EQ(s.PuntoDimensioneSimbolo[1], -0.0000001);  // only exactly 0 is repaired
  EXPECT_EQ(s.PuntoDimensioneNome[1], 3.0);
}

TEST_F(CaricaRecord, LineeCerchiArchiTestiEFalde) {
  auto linea = [](double x1, double y1, double z1, double x2, double y2, double z2, int16_t colore) {
    Record r(128, ' ');
    r.I16(0, 0).F64(2, x1).F64(10, y1).F64(18, z1).F64(26, x2).F64(34, y2).F64(42, z2).I16(50, colore);
    r.I16(52, 2).I16(54, 0).I16(56, 1).F32(58, 0.5f).Car(84, 8, "RECINZ  ").F64(92, 0.25);
    return r.Byte();
  };
  // The second line has the same plan ends and different heights: deleted at load.
  Scrivi(".LIN", linea(10, 20, 1, 30, 40, 2, 5) + linea(10, 20, 1, 10, 20, 9, -4));
  Record c1(128, ' '), c2(128, ' ');
  c1.I16(0, 0).F64(2, 100.5).F64(10, 200.5).F64(18, 7.0).F64(26, 0.001).I16(50, 3).I16(52, 1).Car(84, 8, "VERDE");
  c2.I16(0, 0).F64(2, 1).F64(10, 2).F64(18, 3).F64(26, 0.0009).I16(50, 3);
  Scrivi(".CER", c1.Byte() + c2.Byte());
  Record a1(128, ' '), a2(128, ' '), a3(128, ' ');
  a1.I16(0, 0).F64(2, 5).F64(10, 6).F64(18, 7).F64(26, 10).F64(34, 3.14159).F64(42, 1.5).I16(50, 8);
  a1.I16(52, 1).I16(54, -1).F64(60, 14.1).F64(68, 14.2).Car(84, 8, "STRADA");
  a2.I16(0, 0).F64(26, 0.0009).F64(42, 1.0);
  a3.I16(0, 0).F64(26, 5).F64(42, 0.0009);
  Scrivi(".ARC", a1.Byte() + a2.Byte() + a3.Byte());
  Record t1(256, ' '), t2(256, ' ');
  t1.I16(0, 0).F64(2, 1.5).F64(10, 2.5).F64(18, 100).F64(26, 1.8).F64(42, 2).I16(50, 4).I16(54, -1).F64(56, 3);
  t1.Car(84, 8, "TESTI").Car(92, 23, "").Car(115, 132, "STRADA COMUNALE");
  t2.I16(0, 0).Car(92, 23, "Arial").Car(115, 132, "     ");
  Scrivi(".TES", t1.Byte() + t2.Byte());
  Record f(256, ' ');
  f.I16(0, 0).F64(2, 1).F64(10, 2).F64(18, 3).F64(26, 4).F64(34, 5).F64(42, 6).I16(50, -9).F64(52, 7).F64(60, 8);
  f.F64(68, 9).I16(76, 0).F64(84, 12.5).F64(92, 1.25).F64(100, 2.5).Car(108, 8, "FALDE").F64(116, 11).F64(124, 12);
  f.F64(132, 13).F64(140, 14).F64(148, 15).F64(156, 16).F64(164, 17).F64(172, 18).F64(180, 19).F64(188, 20);
  f.F64(196, 21).F64(204, 22);
  Scrivi(".EQU", f.Byte());
  CaricaLinee(s);
  CaricaCerchi(s);
  CaricaArchi(s);
  CaricaTesti(s);
  CaricaFalde(s);

  ASSERT_EQ(s.ContaEntita[SlotLinee], 2);
  EXPECT_EQ(s.LineaIdent[0], 0);
  EXPECT_EQ(s.LineaIdent[1], -1);
  EXPECT_EQ(s.LineaColore[1], 0);
  EXPECT_EQ(s.LineaX2[0], 30);
  EXPECT_EQ(s.LineaZ2[0], 2);
  EXPECT_EQ(s.LineaColore[0], 5);
  EXPECT_EQ(s.LineaTratteggio[0], 2);
  EXPECT_EQ(s.LineaQuotata[0], 1);
  EXPECT_EQ(s.LineaOffsetQuota[0], 0.5f);
  EXPECT_EQ(s.LineaPiano[0], "RECINZ");
  EXPECT_EQ(s.LineaTronca[0], 0.25);

  ASSERT_EQ(s.ContaEntita[SlotCerchi], 2);
  EXPECT_EQ(s.CerchioIdent[0], 0);  // a radius of exactly 0.001 stays
  EXPECT_EQ(s.CerchioZ[0], 100.5);  // the height of a circle is read from its East field
  EXPECT_EQ(s.CerchioRaggio[0], 0.001);
  EXPECT_EQ(s.CerchioPiano[0], "VERDE");
  EXPECT_EQ(s.CerchioIdent[1], -1);

  ASSERT_EQ(s.ContaEntita[SlotArchi], 3);
  EXPECT_EQ(s.ArcoIdent[0], 0);
  EXPECT_EQ(s.ArcoInizio[0], 3.14159);
  EXPECT_EQ(s.ArcoFine[0], 1.5);
  EXPECT_EQ(s.ArcoCongela[0], -1);
  EXPECT_EQ(s.ArcoQuotaInizio[0], 14.1);
  EXPECT_EQ(s.ArcoQuotaFinale[0], 14.2);
  EXPECT_EQ(s.ArcoIdent[1], -1);
  EXPECT_EQ(s.ArcoIdent[2], -1);

  ASSERT_EQ(s.ContaEntita[SlotTesti], 2);
  EXPECT_EQ(s.TestoFont[0], "Arial");  // an empty font
  EXPECT_EQ(s.TestoTesto[0], "STRADA COMUNALE");
  EXPECT_EQ(s.TestoRotazione[0], 100);
  EXPECT_EQ(s.TestoAltezza[0], 1.8);
  EXPECT_EQ(s.TestoRighe[0], 2);
  EXPECT_EQ(s.TestoColonne[0], 3);
  EXPECT_EQ(s.TestoCongela[0], -1);
  EXPECT_EQ(s.TestoIdent[1], -1);  // blanks alone

  ASSERT_EQ(s.ContaEntita[SlotFalde], 1);
  EXPECT_EQ(s.FaldaColore[0], 0);
  EXPECT_EQ(s.FaldaX3[0], 7);
  EXPECT_EQ(s.FaldaZ3[0], 9);
  EXPECT_EQ(s.FaldaAreaDiBase[0], 12.5);
  EXPECT_EQ(s.FaldaVolumeRiporto[0], 2.5);
  EXPECT_EQ(s.FaldaPiano[0], "FALDE");
  EXPECT_EQ(s.FaldaInvasoY2[0], 16);
  EXPECT_EQ(s.FaldaInsAreaY1[0], 22);
  EXPECT_EQ(s.FaldaNumero[0], "");
}

TEST_F(CaricaRecord, VecchiaTavolozzaSoloPerVR2000) {
  auto linea = [](int16_t colore) {
    Record r(128, ' ');
    return r.I16(0, 0).F64(2, 0).F64(26, 1).I16(50, colore).Byte();
  };
  Scrivi(".LIN", linea(12) + linea(77) + linea(0) + linea(-3) + linea(15));
  Cfg("VR2000");
  CaricaLavoro(s);
  ASSERT_EQ(s.ContaEntita[SlotLinee], 5);
  EXPECT_EQ(s.LineaColore[0], 1);
  EXPECT_EQ(s.LineaColore[1], 1);    // any other colour
  EXPECT_EQ(s.LineaColore[2], 250);
  EXPECT_EQ(s.LineaColore[3], 250);  // repaired to 0 first
  EXPECT_EQ(s.LineaColore[4], 7);

  ClearAllTables(s);
  Cfg("VR2020");
  CaricaLavoro(s);
  EXPECT_EQ(s.LineaColore[0], 12);
  EXPECT_EQ(s.LineaColore[1], 77);
}

TEST_F(CaricaRecord, CodaParzialeContataAllaPariConIByteDelRecordPrecedente) {
  const Record a = prova::RecordPuntoBase("A", 10, 20, 30);
  const Record b = prova::RecordPuntoBase("B", 11, 21, 31);
  // One and a half records: 1.5 rounds to 2; the half record takes the rest of the first.
  Scrivi(".LLL", a.Byte() + b.Byte().substr(0, 128));
  CaricaPunti(s);
  ASSERT_EQ(s.ContaEntita[SlotPunti], 2);
  EXPECT_EQ(s.PuntoNome[1], "B");
  EXPECT_EQ(s.PuntoX[1], 11);
  EXPECT_EQ(s.PuntoPiano[1], "0");      // from the bytes of the first record
  EXPECT_EQ(s.PuntoFont[1], "Arial");
  // Two and a half rounds to 2: the tail is not read.
  ClearAllTables(s);
  Scrivi(".LLL", a.Byte() + b.Byte() + a.Byte().substr(0, 128));
  CaricaPunti(s);
  EXPECT_EQ(s.ContaEntita[SlotPunti], 2);
  // A lone half record of the first row is completed with zeros.
  ClearAllTables(s);
  Scrivi(".LLL", a.Byte().substr(0, 129));
  CaricaPunti(s);
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(s.PuntoX[0], 10);
  EXPECT_EQ(s.PuntoFont[0], "Courier New");
  // Less than half a record is none.
  ClearAllTables(s);
  Scrivi(".LLL", a.Byte().substr(0, 127));
  CaricaPunti(s);
  EXPECT_EQ(s.ContaEntita[SlotPunti], 0);
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_F(CaricaRecord, RigheCancellateRestanoContate) {
  Record a = prova::RecordPuntoBase("A", 1, 1, 1);
  Record b = prova::RecordPuntoBase("B", 2, 2, 2);
  b.I16(0, -1);
  Scrivi(".LLL", a.Byte() + b.Byte());
  CaricaPunti(s);
  EXPECT_EQ(s.ContaEntita[SlotPunti], 2);
  EXPECT_EQ(RigheVive(s, SlotPunti), 1);
  EXPECT_EQ(s.PuntoIdent[1], -1);
}

TEST_F(CaricaRecord, VerticiDelleCurve) {
  Record v(17);
  v.U8(0, 1).F64(1, 12.5).F64(9, -3.25);
  Record w(17);
  w.U8(0, 0).F64(1, 100).F64(9, 200);
  Scrivi(".CUV", v.Byte() + w.Byte());
  CaricaCurveLivello(s);
  ASSERT_EQ(s.ContaEntita[SlotCurve], 2);
  EXPECT_EQ(s.CurvaFlag[0], 1);
  EXPECT_EQ(s.CurvaX[0], 12.5);
  EXPECT_EQ(s.CurvaY[0], -3.25);
  EXPECT_EQ(s.CurvaY[1], 200);
}

TEST(Tabelle, CrescitaComeGliArrayDiUnaVolta) {
  Sessione s;
  EXPECT_EQ(s.PuntoIdent.size(), 6u);  // upper bound 5
  for (int i = 0; i < 5; ++i) {
    DimensionaPunti(s);
    ++s.ContaEntita[SlotPunti];
  }
  EXPECT_EQ(s.PuntoIdent.size(), 6u);
  DimensionaPunti(s);  // count 5: needed 6 is above the bound 5, so it grows to 6 + 10
  EXPECT_EQ(s.PuntoIdent.size(), 17u);
  EXPECT_EQ(s.StatoPunto.size(), 17u);
  EXPECT_EQ(s.PuntoHPrisma.size(), 17u);
  // Contorno-7 and bitmaps grow with no margin.
  s.ContaEntita[SlotSette] = 6;
  DimensionaSette(s);
  EXPECT_EQ(s.SetteIdent.size(), 8u);  // upper bound count + 1
  s.ContaEntita[SlotBitmap] = 9;
  DimensionaBitmap(s);
  EXPECT_EQ(s.BitmapNomeFile.size(), 11u);
  ClearAllTables(s);
  EXPECT_EQ(s.PuntoIdent.size(), 6u);
  EXPECT_EQ(s.ContaEntita[SlotPunti], 0);
}

}  // namespace
}  // namespace varena
