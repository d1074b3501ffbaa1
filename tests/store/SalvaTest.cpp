// The per-kind savers, byte for byte against records and texts built here by hand, their
// filters and backup names, and the snapshot that writes only what changed.
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
  std::string File(const char* est) const { return LeggiFileProva(s.NomeLavoro + est); }
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
  const auto r = static_cast<size_t>(s.ContaEntita[SlotPunti]);
  s.PuntoIdent[r] = ident;
  s.PuntoNome[r] = nome;
  s.PuntoDescrizione[r] = "SPIGOLO è";
  s.PuntoX[r] = x;
  s.PuntoY[r] = 5031465.33;
  s.PuntoZ[r] = 14.82;
  s.PuntoDimensioneSimbolo[r] = 2.5;
  s.PuntoDimensioneNome[r] = 1.25;
  s.PuntoColoreSimbolo[r] = 70000;  // wider than the field: its low 16 bits, 4464
  s.PuntoColoreNome[r] = 10;
  s.PuntoCongelaSimbolo[r] = -1;
  s.PuntoCongelaQuota[r] = -2;
  s.PuntoColoreQuota[r] = 32;
  s.PuntoDimensioneQuota[r] = 0.75;
  s.PuntoAttendibilita[r] = 3;
  s.PuntoSimbolo[r] = 66;
  s.PuntoPiano[r] = piano;
  s.PuntoSpoX[r] = 0.3;
  s.PuntoSpoY[r] = -0.4;
  s.PuntoSpoZ[r] = 0.6;
  s.PuntoColoreDescrizione[r] = 60;
  s.PuntoCongelaDescrizione[r] = -1;
  s.PuntoDimensioneDescrizione[r] = 1.75;
  s.PuntoFont[r] = "Times New Roman";
  s.PuntoErroreOrientamento[r] = 0.0123;
  s.PuntoHPrisma[r] = 1.55f;
  ++s.ContaEntita[SlotPunti];
}

std::string RecordPunto(const std::string& nome, double x) {
  Record r(256);
  r.I16(0, 0).Car(2, 40, nome).Car(42, 40, "SPIGOLO \xE8").F64(82, x).F64(90, 5031465.33).F64(98, 14.82);
  r.F64(106, 2.5).F64(114, 1.25).I16(122, 4464).I16(124, 10).I16(126, -1).I16(128, 0).I16(130, -2);
  r.I16(132, 32).F64(134, 0.75).I16(142, 3).Car(144, 2, "").I16(146, 66).Car(148, 8, "PUNTI").Car(156, 2, "");
  r.F64(158, 0.3).F64(166, -0.4).F64(174, 0.6).I16(182, 60).I16(184, -1).F64(186, 1.75);
  r.Car(194, 30, "Times New Roman").Car(224, 8, "").F64(232, 0.0123).F32(240, 1.55f).Car(244, 12, "");
  return r.Byte();
}

TEST_F(Salvataggi, PuntiComeIlRecordFattoAMano) {
  Punto(s, "101", 1725117.59, "PUNTI", 0);
  Punto(s, "102", 1, "PUNTI", -1);          // deleted
  Punto(s, "103", 2, " INCLUSI ", 0);       // from an included drawing
  Punto(s, std::string(45, 'N'), 1725200.25, "PUNTI", 0);  // a name longer than its field
  SalvaPunti(s);
  EXPECT_EQ(File(".LLL"), RecordPunto("101", 1725117.59) + RecordPunto(std::string(40, 'N'), 1725200.25));
}

TEST_F(Salvataggi, LineeCerchiArchiTestiFaldeEVertici) {
  auto linea = [&](double x1, const char* piano, int16_t ident) {
    DimensionaLinee(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotLinee]++);
    s.LineaIdent[r] = ident;
    s.LineaX1[r] = x1, s.LineaY1[r] = 20, s.LineaZ1[r] = 1, s.LineaX2[r] = 30, s.LineaY2[r] = 40, s.LineaZ2[r] = 2;
    s.LineaColore[r] = 5, s.LineaTratteggio[r] = 2, s.LineaCongela[r] = -1, s.LineaQuotata[r] = 1;
    s.LineaOffsetQuota[r] = 0.5f, s.LineaPiano[r] = piano, s.LineaTronca[r] = 0.25;
  };
  linea(10, "RECINZ", 0);
  linea(11, "ZZZ", 0);
  linea(12, "RECINZ", -1);
  linea(13, "ZZZ ", 0);
  Record l(128);
  l.I16(0, 0).F64(2, 10).F64(10, 20).F64(18, 1).F64(26, 30).F64(34, 40).F64(42, 2).I16(50, 5).I16(52, 2);
  l.I16(54, -1).I16(56, 1).F32(58, 0.5f).Car(62, 22, "").Car(84, 8, "RECINZ").F64(92, 0.25).Car(100, 28, "");

  DimensionaCerchi(s);
  s.CerchioIdent[0] = 0, s.CerchioX[0] = 100.5, s.CerchioY[0] = 200.5, s.CerchioZ[0] = 7, s.CerchioRaggio[0] = 3;
  s.CerchioColore[0] = 3, s.CerchioTratteggio[0] = 1, s.CerchioCongela[0] = 0, s.CerchioPiano[0] = "VERDE";
  s.ContaEntita[SlotCerchi] = 2;  // the second row is left deleted
  s.CerchioIdent[1] = -1;
  Record c(128);
  c.I16(0, 0).F64(2, 100.5).F64(10, 200.5).F64(18, 7).F64(26, 3).Car(34, 16, "").I16(50, 3).I16(52, 1);
  c.Car(56, 28, "").Car(84, 8, "VERDE").Car(92, 36, "");

  DimensionaArchi(s);
  s.ArcoIdent[0] = 0, s.ArcoX[0] = 5, s.ArcoY[0] = 6, s.ArcoZ[0] = 7, s.ArcoRaggio[0] = 10, s.ArcoInizio[0] = 3.14159;
  s.ArcoFine[0] = 1.5, s.ArcoColore[0] = 8, s.ArcoTratteggio[0] = 1, s.ArcoCongela[0] = -1;
  s.ArcoQuotaInizio[0] = 14.1, s.ArcoQuotaFinale[0] = 14.2, s.ArcoPiano[0] = "STRADA";
  s.ContaEntita[SlotArchi] = 1;
  Record a(128);
  a.I16(0, 0).F64(2, 5).F64(10, 6).F64(18, 7).F64(26, 10).F64(34, 3.14159).F64(42, 1.5).I16(50, 8).I16(52, 1);
  a.I16(54, -1).Car(56, 4, "").F64(60, 14.1).F64(68, 14.2).Car(76, 8, "").Car(84, 8, "STRADA").Car(92, 36, "");

  DimensionaTesti(s);
  s.TestoIdent[0] = 0, s.TestoX[0] = 1.5, s.TestoY[0] = 2.5, s.TestoRotazione[0] = 100, s.TestoAltezza[0] = 1.8;
  s.TestoRighe[0] = 2, s.TestoColore[0] = 4, s.TestoCongela[0] = -1, s.TestoColonne[0] = 3;
  s.TestoPiano[0] = "TESTI", s.TestoFont[0] = "Arial", s.TestoTesto[0] = "STRADA COMUNALE";
  s.ContaEntita[SlotTesti] = 1;
  Record t(256);
  t.I16(0, 0).F64(2, 1.5).F64(10, 2.5).F64(18, 100).F64(26, 1.8).F64(42, 2).I16(50, 4).Car(52, 2, "");
  t.I16(54, -1).F64(56, 3).Car(64, 20, "").Car(84, 8, "TESTI").Car(92, 23, "Arial").Car(115, 132, "STRADA COMUNALE");
  t.Car(247, 9, "");

  DimensionaFalde(s);
  s.FaldaIdent[0] = 0;
  const double v[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25};
  s.FaldaX1[0] = v[0], s.FaldaY1[0] = v[1], s.FaldaZ1[0] = v[2], s.FaldaX2[0] = v[3], s.FaldaY2[0] = v[4];
  s.FaldaZ2[0] = v[5], s.FaldaX3[0] = v[6], s.FaldaY3[0] = v[7], s.FaldaZ3[0] = v[8], s.FaldaAreaDiBase[0] = v[9];
  s.FaldaVolumeSterro[0] = v[10], s.FaldaVolumeRiporto[0] = v[11], s.FaldaNumeroX1[0] = v[12];
  s.FaldaNumeroY1[0] = v[13], s.FaldaInvasoX1[0] = v[14], s.FaldaInvasoY1[0] = v[15], s.FaldaInvasoX2[0] = v[16];
  s.FaldaInvasoY2[0] = v[17], s.FaldaInsSteX1[0] = v[18], s.FaldaInsSteY1[0] = v[19];
  s.FaldaInsRiportoX1[0] = v[20], s.FaldaInsRiportoY1[0] = v[21], s.FaldaInsAreaX1[0] = v[22];
  s.FaldaInsAreaY1[0] = v[23], s.FaldaColore[0] = 9, s.FaldaCongela[0] = -1, s.FaldaPiano[0] = "FALDE";
  s.FaldaNumero[0] = "F1";  // not in the record
  s.ContaEntita[SlotFalde] = 1;
  Record f(256);
  f.I16(0, 0).F64(2, 1).F64(10, 2).F64(18, 3).F64(26, 4).F64(34, 5).F64(42, 6).I16(50, 9).F64(52, 7).F64(60, 8);
  f.F64(68, 9).I16(76, -1).Car(78, 6, "").F64(84, 10).F64(92, 11).F64(100, 12).Car(108, 8, "FALDE");
  for (int k = 0; k < 12; ++k) f.F64(116 + 8 * static_cast<size_t>(k), 13 + k);
  f.Car(212, 44, "");

  for (int k = 0; k < 2; ++k) {
    DimensionaCurve(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotCurve]++);
    s.CurvaFlag[r] = static_cast<uint8_t>(k == 0 ? 1 : 0), s.CurvaX[r] = 10.5 + k, s.CurvaY[r] = -3;
  }
  Record v1(17), v2(17);
  v1.U8(0, 1).F64(1, 10.5).F64(9, -3);
  v2.U8(0, 0).F64(1, 11.5).F64(9, -3);

  SalvaTutto(s, true);
  EXPECT_EQ(File(".LIN"), l.Byte());
  EXPECT_EQ(File(".CER"), c.Byte());
  EXPECT_EQ(File(".ARC"), a.Byte());
  EXPECT_EQ(File(".TES"), t.Byte());
  EXPECT_EQ(File(".EQU"), f.Byte());
  EXPECT_EQ(File(".CUV"), v1.Byte() + v2.Byte());
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
  AggiungiRigaLibretto(s, "0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|");
  AggiungiRigaLibretto(s, "1|100|1.550|");
  s.Testo126 = "riga uno\r\nriga due\r\n";
  s.TestoCel = "città\r\n";
  s.Piani = {Piano{}, LeggiRigaPiano("STRADE|0|8|2|3|Courier New|0|0|")};
  SalvaTutto(s, true);
  EXPECT_EQ(File(".HAT"), "0,\"101|102|103\",\"COGO\",\"245\",3,1\r\n-1,\"1|2\",\"SQUADRO\",\"\",12,2\r\n");
  EXPECT_EQ(File(".BTM"), "0,\"c:\\img\\foto.jpg\",10,20,30.5,40,-1,\"++++++++\",1,0.5,0.25,12.5,\"IMMAGINI\"\r\n");
  EXPECT_EQ(File(".INF"), "\"/lavori/ROSSI\"\r\n");
  EXPECT_EQ(File(".L"),
            "1001\r\n\"0\",\"0\",0,0,0\r\n\"101\",\"SPIGOLO \xE8\",1725000.5,5031465.33,14.82\r\n"
            "\"102\",\"\",-3.25,5031465.33,14.82\r\n");
  EXPECT_EQ(File(".TXT"), "0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|\r\n1|100|1.550|\r\n");
  EXPECT_EQ(File(".126"), "riga uno\r\nriga due\r\n");
  EXPECT_EQ(File(".CEL"), "citt\xE0\r\n");
  EXPECT_EQ(File(".PIA"), "0|0|1|0|1|Arial|0|0|0\r\nSTRADE|0|8|2|3|Courier New|0|0|0\r\n");
  EXPECT_EQ(File(".CFG").substr(0, 10), "\"VR2020\"\r\n");

  // A single point: the list is not written (and one left from before stays).
  ClearAllTables(s);
  Punto(s, "1", 1, "PUNTI", 0);
  SalvaListaL(s);
  EXPECT_TRUE(C(".L"));
  prova::SessioneProva q;
  q.s.NomeLavoro = q.Lavoro("ALTRO");
  Punto(q.s, "1", 1, "PUNTI", 0);
  SalvaListaL(q.s);
  EXPECT_FALSE(Esiste(q.s.NomeLavoro + ".L"));
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
  EXPECT_FALSE(C(".haK"));
  EXPECT_FALSE(C(".CUV"));
  EXPECT_EQ(File(".CUK"), "vertici di prima");  // the vertices' old file became their backup
  for (const char* est : {".LLK", ".LIK", ".TXK", ".12K", ".PIK", ".BTK"}) EXPECT_FALSE(C(est)) << est;
  for (const std::string& nome : prova::NomiIn(p.cartella.Percorso())) EXPECT_EQ(nome.find(".~"), std::string::npos);
}

TEST_F(Salvataggi, RilettoDaCapoRidaGliStessiByte) {
  // Records as another writer made them; loading and saving gives them back unchanged,
  // except the height of a circle, which has always been read from its East field.
  const std::string punti = RecordPunto("101", 1725117.59) + RecordPunto("PF01/0010/G693", 1725200.25);
  ScriviFileProva(s.NomeLavoro + ".LLL", punti);
  Record c(128, ' ');
  c.I16(0, 0).F64(2, 100.5).F64(10, 200.5).F64(18, 7.0).F64(26, 3).I16(50, 3).I16(52, 1).I16(54, 0);
  c.Car(84, 8, "VERDE");
  ScriviFileProva(s.NomeLavoro + ".CER", c.Byte());
  CaricaLavoro(s);
  SalvaTutto(s);
  EXPECT_EQ(File(".LLL"), punti);
  Record atteso = c;
  atteso.F64(18, 100.5);  // the height is the East coordinate now
  EXPECT_EQ(File(".CER"), atteso.Byte());
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
  EXPECT_FALSE(Intatto(".LIN"));
  EXPECT_EQ(File(".LIN").substr(26, 8), std::string("\0\0\0\0\0\0\x18\x40", 8));  // 6.0
  for (const char* est : {".LLL", ".L", ".CFG", ".TXT", ".PIA", ".INF"}) EXPECT_TRUE(Intatto(est)) << est;

  // The view and the field book are not marked by anyone: their bytes tell.
  s.Vista.CentroEst = 1725000;
  AggiungiRigaLibretto(s, "1|100|");
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_FALSE(Intatto(".CFG"));
  EXPECT_FALSE(Intatto(".TXT"));
  EXPECT_TRUE(Intatto(".LLL"));
  EXPECT_TRUE(Intatto(".PIA"));

  // An appended point goes through its grow routine, which marks the slot; the list goes too.
  Punto(s, "103", 3, "PUNTI", 0);
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_FALSE(Intatto(".LLL"));
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
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Disk full"), std::string::npos);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Nella Routine SalvaLinee"), std::string::npos);
  EXPECT_TRUE(C(".LLL"));
  EXPECT_FALSE(C(".LIN"));
  EXPECT_TRUE(s.SlotModificato[SlotLinee]);
  ASSERT_TRUE(SalvaTutto(s));
  EXPECT_EQ(File(".LIN").size(), 128u);
}

}  // namespace
}  // namespace varena
