// The per-kind savers, byte for byte against records and texts built here by hand, their
// filters and backup names, and the snapshot that writes only what changed.
#include <gtest/gtest.h>
#include <unistd.h>

#include "core/Testo.h"
#include "store/Cfg.h"
#include "store/LavoroProva.h"

namespace varena {
namespace {

using prova::Esiste;

class Salvataggi : public prova::ProvaMembri {
 protected:
  void SetUp() override {
    ProvaMembri::SetUp();
    s.NomeOriginale = "/lavori/ROSSI";
  }
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

using prova::RecordCerchio;
using prova::RecordPunto;
using prova::Vertice;

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
  EXPECT_EQ(std::make_tuple(File(".LIN"), File(".CER"), File(".ARC")),
            std::make_tuple(prova::RecordLinea(), RecordCerchio(7), prova::RecordArco()));
  EXPECT_EQ(std::make_tuple(File(".TES"), File(".EQU"), File(".CUV")),
            std::make_tuple(prova::RecordTesto(), prova::RecordFalda(), Vertice(1, 10.5) + Vertice(0, 11.5)));
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
  SalvaTutto(s, true);
  EXPECT_EQ(File(".HAT"), "0,\"101|102|103\",\"COGO\",\"245\",3,1\r\n-1,\"1|2\",\"SQUADRO\",\"\",12,2\r\n");
  EXPECT_EQ(File(".BTM"), "0,\"c:\\img\\foto.jpg\",10,20,30.5,40,-1,\"++++++++\",1,0.5,0.25,12.5,\"IMMAGINI\"\r\n");
  EXPECT_EQ(File(".L"),
            "1001\r\n\"0\",\"0\",0,0,0\r\n\"101\",\"SPIGOLO \xE8\",1725000.5,5031465.33,14.82\r\n"
            "\"102\",\"\",-3.25,5031465.33,14.82\r\n");

  // A single point: the list is not written, and one left from before stays.
  ClearAllTables(s);
  Punto(s, "1", 1, "PUNTI", 0);
  Scrivi(".L", "di prima");
  SalvaListaL(s);
  EXPECT_EQ(File(".L"), "di prima");
  std::remove((s.NomeLavoro + ".L").c_str());
  SalvaListaL(s);
  EXPECT_FALSE(C(".L"));
}

TEST_F(Salvataggi, BackupRimossiEFileVuoti) {
  for (const char* est : {".LLK", ".LIK", ".CEK", ".CKK", ".haK", ".TXK", ".12K", ".PIK", ".BTK", ".LIN", ".CER"})
    Scrivi(est, "vecchio");
  Scrivi(".CUV", "vertici di prima");
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
  for (const char* est : {".LLL", ".LIN", ".L", ".CFG", ".TXT", ".PIA", ".INF"}) Testimone(est);
  // The progress of the save, member by member of the seven written, out of the most a
  // save writes, and its end.
  using A = std::vector<std::pair<int64_t, int64_t>>;
  EXPECT_EQ(p.ui.Avanzamento, (A{{0, 17}, {1, 17}, {2, 17}, {3, 17}, {4, 17}, {5, 17}, {6, 17}, {7, 17}, {17, 17}}));
  p.ui.Avanzamento.clear();

  // Nothing changed: nothing is touched.
  ASSERT_TRUE(SalvaTutto(s));
  for (const char* est : {".LLL", ".LIN", ".L", ".CFG", ".TXT", ".PIA", ".INF"}) EXPECT_TRUE(Intatto(est)) << est;
  EXPECT_EQ(p.ui.Avanzamento, (A{{0, 17}, {17, 17}}));

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

}  // namespace
}  // namespace varena
