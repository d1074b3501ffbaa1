// The cadastral sheet (CXF) and the fiducial archive (TAF): a sheet and its archive built
// here value by value, read into the job; the look-up of a PF by name; damaged files.
#include <gtest/gtest.h>

#include <algorithm>

#include "core/Errori.h"
#include "exchange/CxfLettura.h"
#include "exchange/TafLettura.h"
#include "support/Supporto.h"

namespace varena {
namespace {

// The fiducials of the sheet: PF1 .. PF12, East and North in whole centimetres.
double EstPF(int i) { return 1000.25 + 37.5 * i; }
double NordPF(int i) { return -2000.5 + 11.75 * i; }

// A sheet as the cadastre's program writes it: one value a line, CR LF.
std::string Foglio() {
  std::string t = "A123_001200\r\n1000\r\n0\r\n";
  auto v = [&t](const std::string& x) { t += x + "\r\n"; };
  // A border with two islands: 5 vertices of outline (closed), 4 and 3 of the islands.
  v("BORDO");
  v("A123_001200.45");
  v("1"), v("2.5"), v("100"), v("0");
  v("45");
  v("512.5"), v("620.25");
  v("2"), v("12"), v("4"), v("3");
  for (const char* xy : {"500", "600", "540", "600", "540", "640", "500", "640", "500", "600",  // outline
                         "510", "610", "520", "610", "520", "620", "510", "610",                // island 1
                         "525", "625", "530", "630", "525", "625"})                             // island 2
    v(xy);
  for (int i = 1; i <= 12; ++i) {
    v("FIDUCIALE"), v(std::to_string(i)), v("\"PF" + std::to_string(i) + "\"");
    char x[40], y[40];
    std::snprintf(x, sizeof x, "%.2f", EstPF(i));
    std::snprintf(y, sizeof y, "%.2f", NordPF(i));
    v(x), v(y);
  }
  // 300 lines: two vertices each, on three layers; the first has four vertices.
  for (int i = 0; i < 300; ++i) {
    v("LINEA");
    v(i % 3 == 0 ? "STRADA" : i % 3 == 1 ? "ACQUA" : "FABBR");
    if (i == 0) {
      v("4"), v("0"), v("0"), v("10"), v("0"), v("10"), v("10"), v("0"), v("10");
    } else {
      v("2"), v(std::to_string(i)), v("0"), v(std::to_string(i)), v("5");
    }
  }
  v("LINEA"), v("STRADA"), v("1"), v("7"), v("7");  // one pair: no line
  v("SIMBOLO"), v("3");                              // not drawn here: passed over
  v("EOF");
  return t;
}

class Cxf : public ::testing::Test, protected prova::SessioneProva {
 protected:
  prova::CartellaTemporanea& dir = cartella;
  std::string Scrivi(const std::string& nome, const std::string& byte) {
    std::ofstream(dir / nome, std::ios::binary) << byte;
    return dir / nome;
  }
};

TEST_F(Cxf, IlFoglioCompletoDiventaTestiPuntiELinee) {
  s.Imp.Colore_Default = 7;
  EsitoCxf e;
  ASSERT_TRUE(ImportaCxf(s, Scrivi("F.CXF", Foglio()), &e));
  EXPECT_TRUE(ui.Messaggi.empty());
  // Lines: 4 + 3 + 2 of the rings, 3 of the first LINEA, 299 of the others.
  EXPECT_EQ(std::tie(e.Testi, e.Punti, e.Linee), std::make_tuple(1, 12, 4 + 3 + 2 + 3 + 299));
  // Every value below is a sum of quarters, which a double holds exactly.
  ASSERT_EQ(s.ContaEntita[SlotTesti], 1);
  EXPECT_EQ(std::tie(s.TestoTesto[0], s.TestoPiano[0], s.TestoX[0], s.TestoY[0], s.TestoAltezza[0], s.TestoRotazione[0]),
            std::make_tuple("45", "BORDO", 512.5, 620.25, 2.5, 100.0));
  ASSERT_EQ(s.ContaEntita[SlotPunti], 12);
  for (int i = 1; i <= 12; ++i) {
    const auto k = static_cast<size_t>(i - 1);
    EXPECT_EQ(std::tie(s.PuntoNome[k], s.PuntoFont[k], s.PuntoPiano[k], s.PuntoX[k], s.PuntoY[k]),
              std::make_tuple("PF" + std::to_string(i), "Courier New", "FIDUCIALE", EstPF(i), NordPF(i)));
  }
  ASSERT_EQ(s.ContaEntita[SlotLinee], 311);
  // The rings close on themselves and never join one another.
  EXPECT_EQ(s.LineaPiano[0], "A123_001200.45");
  using Q = std::vector<double>;
  auto linea = [&s = s](size_t k) { return Q{s.LineaX1[k], s.LineaY1[k], s.LineaX2[k], s.LineaY2[k]}; };
  EXPECT_EQ(linea(3), (Q{500, 640, 500, 600}));
  EXPECT_EQ((Q{s.LineaX1[4], s.LineaY1[4], s.LineaX2[6], s.LineaY2[6]}), (Q{510, 610, 510, 610}));
  EXPECT_EQ((Q{s.LineaX1[7], s.LineaY1[7], s.LineaX2[8], s.LineaY2[8]}), (Q{525, 625, 525, 625}));
  // Each line keeps its object's layer, with the colour in force.
  EXPECT_EQ(std::tie(s.LineaPiano[9], s.LineaPiano[12], s.LineaPiano[13]), std::make_tuple("STRADA", "ACQUA", "FABBR"));
  EXPECT_EQ(std::tie(s.LineaPiano[310], s.LineaX1[310], s.LineaY2[310], s.LineaColore[310]),
            std::make_tuple("FABBR", 299.0, 5.0, 7));
  // The layers of the sheet join the job's table.
  std::vector<std::string> piani;
  for (const Piano& p : s.Piani) piani.push_back(p.Nome);
  for (const char* p : {"BORDO", "A123_001200.45", "FIDUCIALE", "STRADA", "ACQUA", "FABBR"})
    EXPECT_NE(std::find(piani.begin(), piani.end(), p), piani.end()) << p;
}

TEST_F(Cxf, UnFoglioGuastoDiceIlPerchéENonAggiungeNulla) {
  const std::string buono = Foglio();
  const std::string bordo = "A123\r\n1\r\n0\r\nBORDO\r\nB\r\n1\r\n2\r\n0\r\n0\r\nT\r\n1\r\n2\r\n";
  struct Caso {
    const char* nome;
    std::string byte;
    const char* motivo;
  };
  const Caso casi[] = {
      // Cut in the middle of the 7th fiducial: its East read, its North missing.
      {"tronco", buono.substr(0, buono.find("1225.25\r\n") + 9), kErroreFineFile},
      {"negativo", bordo + "0\r\n-3\r\n", "Numero di vertici non valido: -3"},
      {"enorme", bordo + "0\r\n1000000000\r\n1\r\n2\r\n", "Numero di vertici oltre la fine del file: 1000000000"},
      {"isole", bordo + "1\r\n2\r\n3\r\n0\r\n0\r\n1\r\n1\r\n",
       "Vertici delle isole (3) oltre i vertici del bordo (2)"},
      {"frazione", "A\r\n1\r\n0\r\nLINEA\r\nX\r\n2.5\r\n0\r\n0\r\n", "Numero di vertici non valido: 2.5"},
      {"spazzatura", std::string("\x01\xff,\"\r\n\0\0BORDO", 12), kErroreFineFile},
  };
  for (const Caso& c : casi) {
    SCOPED_TRACE(c.nome);
    ui.Messaggi.clear();
    EXPECT_FALSE(ImportaCxf(s, Scrivi(std::string(c.nome) + ".CXF", c.byte)));
    ASSERT_EQ(ui.Messaggi.size(), 1u);
    EXPECT_EQ(std::tie(ui.Messaggi[0].Titolo, ui.Messaggi[0].Testo),
              std::make_tuple("Rilevato errore", TestoErroreComune(c.motivo, "carica CXF")));
    EXPECT_EQ(s.ContaEntita[SlotPunti] + s.ContaEntita[SlotLinee] + s.ContaEntita[SlotTesti], 0);
  }
}

// A line of the archive: each field put at its columns (from 1), blanks between.
std::string RigaTaf(const std::vector<std::pair<size_t, std::string>>& campi, size_t lunghezza = 249) {
  std::string r(260, ' ');
  for (const auto& [col, testo] : campi) r.replace(col - 1, testo.size(), testo);
  return r.substr(0, lunghezza);
}

// PF `n` of sheet 12, municipality A123, at the place the sheet gives it, reliability 2 and
// height 100 + n.
std::string RigaPF(int n, size_t lunghezza = 249) {
  char nord[16], est[16], quota[16], num[8];
  std::snprintf(num, sizeof num, "%4d", n);
  std::snprintf(nord, sizeof nord, "%12.3f", NordPF(n));
  std::snprintf(est, sizeof est, "%12.3f", EstPF(n));
  std::snprintf(quota, sizeof quota, "%10.2f", 100.0 + n);
  return RigaTaf({{1, "A123 "}, {6, "   12"}, {14, num}, {18, "123456789"}, {31, "Spigolo fabbricato"},
                  {102, nord}, {115, est}, {128, " 2"}, {240, quota}},
                 lunghezza);
}

TEST_F(Cxf, LArchivioTafDelloStessoFoglio) {
  std::string taf;
  for (int n = 1; n <= 12; ++n) taf += RigaPF(n) + "\r\n";
  taf += RigaPF(13, 200) + "\r\n";  // no height columns: height 0
  taf += RigaPF(14, 120) + "\r\n";  // not even the East: not a point
  taf += "\r\n";
  // A North that is no number, and a line of garbage: no point at 0/0 either.
  taf += RigaTaf({{1, "A123 "}, {6, "   12"}, {14, "  15"}, {102, "    12x4.000"}, {115, "     100.000"}}) + "\r\n";
  taf += std::string(140, '\xff') + "\r\n";
  EsitoTaf e;
  ASSERT_TRUE(ImportaTaf(s, Scrivi("A123.TAF", taf), &e));
  EXPECT_EQ(e.Punti, 13);
  EXPECT_EQ(e.RigheCorte, (std::vector<int64_t>{14, 16, 17}));
  ASSERT_EQ(ui.Messaggi.size(), 1u);
  EXPECT_EQ(ui.Messaggi[0].Testo, "Righe senza coordinate, non caricate: 14, 16, 17\n" + (dir / "A123.TAF"));
  ASSERT_EQ(s.ContaEntita[SlotPunti], 13);
  EXPECT_EQ(std::tie(s.PuntoNome[0], s.PuntoNome[11]), std::make_tuple("PF01/0120/A123", "PF12/0120/A123"));
  for (size_t k = 0; k < 13; ++k) {
    const int n = static_cast<int>(k) + 1;
    EXPECT_EQ(std::tie(s.PuntoPiano[k], s.PuntoFont[k], s.PuntoAttendibilita[k], s.PuntoDescrizione[k], s.PuntoX[k],
                       s.PuntoY[k], s.PuntoZ[k]),
              std::make_tuple("TAF", "Arial", 2, "Spigolo fabbricato", EstPF(n), NordPF(n), n == 13 ? 0 : 100.0 + n));
  }
}

TEST_F(Cxf, IlPFCercatoPerNomeNellArchivioDelComune) {
  s.Imp.Cartella_Fiducial = dir / "FIDUCIAL";
  std::filesystem::create_directories(dir / "FIDUCIAL/dati");
  // An annex "A", a sheet written with its leading zeros: the name keeps the right digits.
  std::string taf = RigaPF(3) + "\r\n" + RigaPF(4, 110) + "\r\n";
  taf += RigaTaf({{1, "A123"}, {6, "00012"}, {11, " A"}, {14, "   7"}, {102, "   10.000"}, {115, "   20.000"}}) + "\r\n";
  std::ofstream(dir / "FIDUCIAL/dati/a123.TAF", std::ios::binary) << taf;
  EXPECT_EQ(FileArchivioPF(s, "PF03/0120/A123"), dir / "FIDUCIAL/dati/A123.taf");

  const auto p = CercaPFInArchivio(s, "PF03/0120/A123");
  ASSERT_TRUE(p);
  EXPECT_EQ(std::make_pair(p->Est, p->Nord), std::make_pair(EstPF(3), NordPF(3)));
  const auto a = CercaPFInArchivio(s, "pf07/012A/a123");
  ASSERT_TRUE(a);
  EXPECT_EQ(std::tie(a->Nome, a->Nord), std::make_tuple("PF07/012A/A123", 10.0));
  bool corta = true;
  EXPECT_FALSE(CercaPFInArchivio(s, "PF09/0120/A123", &corta) || corta);
  // A line of the name without the columns of its coordinates is no answer, and says so.
  EXPECT_TRUE(!CercaPFInArchivio(s, "PF04/0120/A123", &corta) && corta);
  // No archive for the municipality, a name too short to name one.
  EXPECT_FALSE(CercaPFInArchivio(s, "PF03/0120/B999"));
  EXPECT_FALSE(CercaPFInArchivio(s, "PF03"));
}

}  // namespace
}  // namespace varena
