// The per-kind savers, byte for byte against records and texts built here by hand, their
// filters and backup names, the same bytes after a load, and the snapshot that writes only
// what changed.
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Cfg.h"
#include "store/Salva.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::Esiste;
using prova::LeggiFileProva;
using prova::Record;
using prova::ScriviFileProva;

class Salvataggi : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  void SetUp() override {
    s.NomeLavoro = p.Lavoro("LAV");
    s.NomeOriginale = "/lavori/ROSSI";
  }
  std::string File(const std::string& est) const { return LeggiFileProva(s.NomeLavoro + est); }
  bool C(const char* est) const { return Esiste(s.NomeLavoro + est); }
  // A second name for a member, to see afterwards whether the member was left alone.
  void Testimone(const char* est) {
    ASSERT_EQ(::link((s.NomeLavoro + est).c_str(), (p.cartella / (std::string("T") + est)).c_str()), 0);
  }
  bool Intatto(const char* est) const {
    return StessoFile(s.NomeLavoro + est, p.cartella / (std::string("T") + est));
  }
};

void Punto(Sessione& s, const std::string& nome, double x, const std::string& piano, int16_t ident) {
  DimensionaPunti(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotPunti]++);
  s.PuntoIdent[r] = ident, s.PuntoNome[r] = nome, s.PuntoDescrizione[r] = "SPIGOLO è", s.PuntoX[r] = x;
  s.PuntoY[r] = 5031465.33, s.PuntoZ[r] = 14.82, s.PuntoDimensioneSimbolo[r] = 2.5, s.PuntoDimensioneNome[r] = 1.25;
  s.PuntoColoreSimbolo[r] = 70000;  // wider than the field: its low 16 bits, 4464
  s.PuntoColoreNome[r] = 10, s.PuntoCongelaSimbolo[r] = -1, s.PuntoCongelaQuota[r] = -2, s.PuntoColoreQuota[r] = 32;
  s.PuntoDimensioneQuota[r] = 0.75, s.PuntoAttendibilita[r] = 3, s.PuntoSimbolo[r] = 66, s.PuntoPiano[r] = piano;
  s.PuntoSpoX[r] = 0.3, s.PuntoSpoY[r] = -0.4, s.PuntoSpoZ[r] = 0.6, s.PuntoColoreDescrizione[r] = 60;
  s.PuntoCongelaDescrizione[r] = -1, s.PuntoDimensioneDescrizione[r] = 1.75, s.PuntoFont[r] = "Times New Roman";
  s.PuntoErroreOrientamento[r] = 0.0123, s.PuntoHPrisma[r] = 1.55f;
}

// The records of every kind, a value of its own in every field.
std::string RecordPunto(const std::string& nome, double x) {
  Record r(256);
  r.I16(0, 0).Car(2, 40, nome).Car(42, 40, "SPIGOLO \xE8").F64(82, x).F64(90, 5031465.33).F64(98, 14.82);
  r.F64(106, 2.5).F64(114, 1.25).I16(122, 4464).I16(124, 10).I16(126, -1).I16(128, 0).I16(130, -2);
  r.I16(132, 32).F64(134, 0.75).I16(142, 3).Car(144, 2, "").I16(146, 66).Car(148, 8, "PUNTI").Car(156, 2, "");
  r.F64(158, 0.3).F64(166, -0.4).F64(174, 0.6).I16(182, 60).I16(184, -1).F64(186, 1.75);
  r.Car(194, 30, "Times New Roman").Car(224, 8, "").F64(232, 0.0123).F32(240, 1.55f).Car(244, 12, "");
  return r.Byte();
}

std::string RecordLinea() {
  Record l(128);
  l.I16(0, 0).F64(2, 10).F64(10, 20).F64(18, 1).F64(26, 30).F64(34, 40).F64(42, 2).I16(50, 5).I16(52, 2).I16(54, -1);
  return l.I16(56, 1).F32(58, 0.5f).Car(62, 22, "").Car(84, 8, "RECINZ").F64(92, 0.25).Car(100, 28, "").Byte();
}

std::string RecordCerchio(double z) {
  Record c(128);
  c.I16(0, 0).F64(2, 100.5).F64(10, 200.5).F64(18, z).F64(26, 3).Car(34, 16, "").I16(50, 3).I16(52, 1);
  return c.I16(54, -1).Car(56, 28, "").Car(84, 8, "VERDE").Car(92, 36, "").Byte();
}

std::string RecordArco() {
  Record a(128);
  a.I16(0, 0).F64(2, 5).F64(10, 6).F64(18, 7).F64(26, 10).F64(34, 3.14159).F64(42, 1.5).I16(50, 8).I16(52, 1);
  a.I16(54, -1).Car(56, 4, "").F64(60, 14.1).F64(68, 14.2).Car(76, 8, "").Car(84, 8, "STRADA");
  return a.Car(92, 36, "").Byte();
}

std::string RecordTesto() {
  Record t(256);
  t.I16(0, 0).F64(2, 1.5).F64(10, 2.5).F64(18, 100).F64(26, 1.8).F64(42, 2).I16(50, 4).Car(52, 2, "");
  t.I16(54, -1).F64(56, 3).Car(64, 20, "").Car(84, 8, "TESTI").Car(92, 23, "Arial").Car(115, 132, "STRADA COMUNALE");
  return t.Car(247, 9, "").Byte();
}

std::string RecordFalda() {
  Record f(256);
  f.I16(0, 0).F64(2, 1).F64(10, 2).F64(18, 3).F64(26, 4).F64(34, 5).F64(42, 6).I16(50, 9).F64(52, 7).F64(60, 8);
  f.F64(68, 9).I16(76, -1).Car(78, 6, "").F64(84, 10).F64(92, 11).F64(100, 12).Car(108, 8, "FALDE");
  for (int k = 0; k < 12; ++k) f.F64(116 + 8 * static_cast<size_t>(k), 13 + k);
  return f.Car(212, 44, "").Byte();
}

std::string Vertice(uint8_t flag, double x) { return Record(17).U8(0, flag).F64(1, x).F64(9, -3).Byte(); }

TEST_F(Salvataggi, PuntiComeIlRecordFattoAMano) {
  Punto(s, "101", 1725117.59, "PUNTI", 0);
  Punto(s, "102", 1, "PUNTI", -1);          // deleted
  Punto(s, "103", 2, " INCLUSI ", 0);       // from an included drawing
  Punto(s, std::string(45, 'N'), 1725200.25, "PUNTI", 0);  // a name longer than its field
  SalvaPunti(s);
  EXPECT_EQ(File(".LLL"), RecordPunto("101", 1725117.59) + RecordPunto(std::string(40, 'N'), 1725200.25));
}

TEST_F(Salvataggi, LineeCerchiArchiTestiFaldeEVertici) {
  for (const auto& [piano, ident] : {std::pair{"RECINZ", 0}, {"ZZZ", 0}, {"RECINZ", -1}, {"ZZZ ", 0}}) {
    DimensionaLinee(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotLinee]++);
    s.LineaIdent[r] = static_cast<int16_t>(ident), s.LineaPiano[r] = piano;
    s.LineaX1[r] = 10, s.LineaY1[r] = 20, s.LineaZ1[r] = 1, s.LineaX2[r] = 30, s.LineaY2[r] = 40, s.LineaZ2[r] = 2;
    s.LineaColore[r] = 5, s.LineaTratteggio[r] = 2, s.LineaCongela[r] = -1, s.LineaQuotata[r] = 1;
    s.LineaOffsetQuota[r] = 0.5f, s.LineaTronca[r] = 0.25;
  }
  DimensionaCerchi(s);
  s.CerchioIdent[0] = 0, s.CerchioX[0] = 100.5, s.CerchioY[0] = 200.5, s.CerchioZ[0] = 7, s.CerchioRaggio[0] = 3;
  s.CerchioColore[0] = 3, s.CerchioTratteggio[0] = 1, s.CerchioCongela[0] = -1, s.CerchioPiano[0] = "VERDE";
  s.ContaEntita[SlotCerchi] = 2;  // the second row is left deleted
  s.CerchioIdent[1] = -1;
  DimensionaArchi(s);
  s.ArcoIdent[0] = 0, s.ArcoX[0] = 5, s.ArcoY[0] = 6, s.ArcoZ[0] = 7, s.ArcoRaggio[0] = 10, s.ArcoInizio[0] = 3.14159;
  s.ArcoFine[0] = 1.5, s.ArcoColore[0] = 8, s.ArcoTratteggio[0] = 1, s.ArcoCongela[0] = -1;
  s.ArcoQuotaInizio[0] = 14.1, s.ArcoQuotaFinale[0] = 14.2, s.ArcoPiano[0] = "STRADA";
  s.ContaEntita[SlotArchi] = 1;
  DimensionaTesti(s);
  s.TestoIdent[0] = 0, s.TestoX[0] = 1.5, s.TestoY[0] = 2.5, s.TestoRotazione[0] = 100, s.TestoAltezza[0] = 1.8;
  s.TestoRighe[0] = 2, s.TestoColore[0] = 4, s.TestoCongela[0] = -1, s.TestoColonne[0] = 3;
  s.TestoPiano[0] = "TESTI", s.TestoFont[0] = "Arial", s.TestoTesto[0] = "STRADA COMUNALE";
  s.ContaEntita[SlotTesti] = 1;
  DimensionaFalde(s);
  s.FaldaIdent[0] = 0, s.FaldaX1[0] = 1, s.FaldaY1[0] = 2, s.FaldaZ1[0] = 3, s.FaldaX2[0] = 4, s.FaldaY2[0] = 5;
  s.FaldaZ2[0] = 6, s.FaldaX3[0] = 7, s.FaldaY3[0] = 8, s.FaldaZ3[0] = 9, s.FaldaAreaDiBase[0] = 10;
  s.FaldaVolumeSterro[0] = 11, s.FaldaVolumeRiporto[0] = 12, s.FaldaNumeroX1[0] = 13, s.FaldaNumeroY1[0] = 14;
  s.FaldaInvasoX1[0] = 15, s.FaldaInvasoY1[0] = 16, s.FaldaInvasoX2[0] = 17, s.FaldaInvasoY2[0] = 18;
  s.FaldaInsSteX1[0] = 19, s.FaldaInsSteY1[0] = 20, s.FaldaInsRiportoX1[0] = 21, s.FaldaInsRiportoY1[0] = 22;
  s.FaldaInsAreaX1[0] = 23, s.FaldaInsAreaY1[0] = 24, s.FaldaColore[0] = 9, s.FaldaCongela[0] = -1;
  s.FaldaPiano[0] = "FALDE", s.FaldaNumero[0] = "F1";  // the number is not in the record
  s.ContaEntita[SlotFalde] = 1;
  for (int k = 0; k < 2; ++k) {
    DimensionaCurve(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotCurve]++);
    s.CurvaFlag[r] = static_cast<uint8_t>(k == 0 ? 1 : 0), s.CurvaX[r] = 10.5 + k, s.CurvaY[r] = -3;
  }
  SalvaTutto(s, true);
  EXPECT_EQ(File(".LIN"), RecordLinea());
  EXPECT_EQ(File(".CER"), RecordCerchio(7));
  EXPECT_EQ(File(".ARC"), RecordArco());
  EXPECT_EQ(File(".TES"), RecordTesto());
  EXPECT_EQ(File(".EQU"), RecordFalda());
  EXPECT_EQ(File(".CUV"), Vertice(1, 10.5) + Vertice(0, 11.5));
}

TEST_F(Salvataggi, RilettoDaCapoRidaGliStessiByte) {
  // Records as another writer made them come back unchanged, the leading blank of a name
  // too, except the height of a circle, which has always been read from its East field.
  const std::map<std::string, std::string> fissati{
      {".LLL", RecordPunto(" PF01/0010/G693", 1725117.59) + RecordPunto("102", 1725200.25)},
      {".LIN", RecordLinea()}, {".CER", RecordCerchio(7)}, {".ARC", RecordArco()}, {".TES", RecordTesto()},
      {".EQU", RecordFalda()}, {".CUV", Vertice(1, 10.5) + Vertice(0, 11.5)}};
  for (const auto& [est, byte] : fissati) ScriviFileProva(s.NomeLavoro + est, byte);
  CaricaLavoro(s);
  SalvaTutto(s, true);
  for (const auto& [est, byte] : fissati) EXPECT_EQ(File(est), est == ".CER" ? RecordCerchio(100.5) : byte) << est;
}

TEST_F(Salvataggi, MembriDiTesto) {
  DimensionaSette(s);
  s.SetteIdent[0] = 0, s.SetteContorno[0] = "101|102|103", s.SetteCommento[0] = "COGO", s.SetteParticella[0] = "245";
  s.SetteColore[0] = 3, s.SetteTratteggio[0] = 1;
  s.ContaEntita[SlotSette] = 1;
  DimensionaSette(s);
  s.SetteIdent[1] = -1, s.SetteContorno[1] = "1|2", s.SetteCommento[1] = "SQUADRO", s.SetteColore[1] = 12;
  s.SetteTratteggio[1] = 2;
  s.ContaEntita[SlotSette] = 2;
  for (int k = 0; k < 2; ++k) {
    DimensionaBitmap(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotBitmap]++);
    s.BitmapIdent[r] = static_cast<int16_t>(k == 0 ? 0 : -1);
    s.BitmapNomeFile[r] = "c:\\img\\foto.jpg", s.BitmapX[r] = 10, s.BitmapY[r] = 20, s.BitmapLarghezza[r] = 30.5;
    s.BitmapAltezza[r] = 40, s.BitmapCongela[r] = -1, s.BitmapPiano[r] = "IMMAGINI", s.BitmapZoom[r] = 1;
    s.BitmapScalaLar[r] = 0.5, s.BitmapScalaAlt[r] = 0.25, s.BitmapRotazione[r] = 12.5;
  }
  Punto(s, "101", 1725000.5, "PUNTI", 0);
  Punto(s, "102", -3.25, "PUNTI", -1);  // the list for other tools keeps deleted rows
  s.PuntoDescrizione[1] = "";
  s.TestoCel = "città\r\n";
  s.Piani = {Piano{}, LeggiRigaPiano("STRADE|0|8|2|3|Courier New|0|0|")};
  SalvaTutto(s, true);
  EXPECT_EQ(File(".HAT"), "0,\"101|102|103\",\"COGO\",\"245\",3,1\r\n-1,\"1|2\",\"SQUADRO\",\"\",12,2\r\n");
  EXPECT_EQ(File(".BTM"), "0,\"c:\\img\\foto.jpg\",10,20,30.5,40,-1,\"++++++++\",1,0.5,0.25,12.5,\"IMMAGINI\"\r\n");
  EXPECT_EQ(File(".L"),
            "1001\r\n\"0\",\"0\",0,0,0\r\n\"101\",\"SPIGOLO \xE8\",1725000.5,5031465.33,14.82\r\n"
            "\"102\",\"\",-3.25,5031465.33,14.82\r\n");
  EXPECT_EQ(File(".CEL"), "citt\xE0\r\n");
  EXPECT_EQ(File(".PIA"), "0|0|1|0|1|Arial|0|0|0\r\nSTRADE|0|8|2|3|Courier New|0|0|0\r\n");
  EXPECT_EQ(File(".CFG").substr(0, 10), "\"VR2020\"\r\n");

  // A single point: the list is not written, and one left from before stays.
  ClearAllTables(s);
  Punto(s, "1", 1, "PUNTI", 0);
  ScriviFileProva(s.NomeLavoro + ".L", "di prima");
  SalvaListaL(s);
  EXPECT_EQ(File(".L"), "di prima");
  std::remove((s.NomeLavoro + ".L").c_str());
  SalvaListaL(s);
  EXPECT_FALSE(C(".L"));
}

TEST_F(Salvataggi, BackupRimossiEFileVuoti) {
  for (const char* est : {".LLK", ".LIK", ".CEK", ".CKK", ".haK", ".TXK", ".12K", ".PIK", ".BTK", ".LIN", ".CER"})
    ScriviFileProva(s.NomeLavoro + est, "vecchio");
  ScriviFileProva(s.NomeLavoro + ".CUV", "vertici di prima");
  // Lines: a count but every row deleted. Circles: no rows at all.
  DimensionaLinee(s);
  s.LineaIdent[0] = -1;
  s.ContaEntita[SlotLinee] = 1;
  s.TestoCel = "x";
  SalvaTutto(s, true);
  EXPECT_EQ(File(".LIN"), "");  // opened for its rows, none passed: empty, not absent
  EXPECT_FALSE(C(".CER"));
  EXPECT_FALSE(C(".CEK"));       // removed by the circles' saver and again by that of `.CEL`
  EXPECT_TRUE(C(".CKK"));        // the backup name of `.CEL` itself is never removed
  EXPECT_FALSE(C(".CUV"));
  EXPECT_EQ(File(".CUK"), "vertici di prima");  // the vertices' old file became their backup
  for (const char* est : {".LLK", ".LIK", ".haK", ".TXK", ".12K", ".PIK", ".BTK"}) EXPECT_FALSE(C(est)) << est;
  for (const std::string& nome : prova::NomiIn(p.cartella.Percorso())) EXPECT_EQ(nome.find(".~"), std::string::npos);
}

TEST_F(Salvataggi, LoSnapshotScriveSoloCioCheECambiato) {
  Punto(s, "101", 1, "PUNTI", 0);
  Punto(s, "102", 2, "PUNTI", 0);
  DimensionaLinee(s);
  s.LineaIdent[0] = 0, s.LineaX2[0] = 5, s.LineaPiano[0] = "0";
  s.ContaEntita[SlotLinee] = 1;
  AggiungiRigaLibretto(s, "0|x|");
  s.Piani = {Piano{}};
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_EQ(s.SlotModificato, (std::array<bool, NumeroSlot>{}));
  for (const char* est : {".LLL", ".LIN", ".L", ".CFG", ".TXT", ".PIA", ".INF"}) Testimone(est);

  // Nothing changed: nothing is touched.
  ASSERT_TRUE(SalvaTutto(s));
  for (const char* est : {".LLL", ".LIN", ".L", ".CFG", ".TXT", ".PIA", ".INF"}) EXPECT_TRUE(Intatto(est)) << est;

  // A line moved and marked: its member alone is written.
  s.LineaX2[0] = 6;
  SegnaModificato(s, SlotLinee);
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_EQ(File(".LIN").substr(26, 8), std::string("\0\0\0\0\0\0\x18\x40", 8));  // 6.0
  for (const char* est : {".LLL", ".L", ".CFG", ".TXT", ".PIA", ".INF"}) EXPECT_TRUE(Intatto(est)) << est;

  // The view and the field book are not marked by anyone: their bytes tell.
  s.Vista.CentroEst = 1725000;
  AggiungiRigaLibretto(s, "1|100|");
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_FALSE(Intatto(".CFG"));
  EXPECT_FALSE(Intatto(".TXT"));
  EXPECT_TRUE(Intatto(".PIA"));

  // An appended point goes through its grow routine, which marks the slot; the list goes too.
  Punto(s, "103", 3, "PUNTI", 0);
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_FALSE(Intatto(".L"));
  EXPECT_EQ(File(".LLL").size(), 3u * 256);
}

TEST_F(Salvataggi, UnGuastoLasciaISegniPerLaProssimaVolta) {
  Punto(s, "101", 1, "PUNTI", 0);
  DimensionaLinee(s);
  s.LineaX2[0] = 5;
  s.ContaEntita[SlotLinee] = 1;
  {
    prova::SondaProva sonda([&](OperazioneFile op, std::string_view pp) {
      return op == OperazioneFile::Scrittura && FinisceCon(pp, ".LIN");
    });
    EXPECT_FALSE(SalvaTutto(s));
  }
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Titolo, "Rilevato errore");
  EXPECT_EQ(p.ui.Messaggi[0].Testo,
            "Si è verificato questo errore : Disk full o il file potrebbe essere di sola lettura!\n"
            "Nella Routine SalvaLinee");
  EXPECT_TRUE(C(".LLL"));
  EXPECT_FALSE(C(".LIN"));
  EXPECT_TRUE(s.SlotModificato[SlotLinee]);
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_EQ(File(".LIN").size(), 128u);
}

}  // namespace
}  // namespace varena
