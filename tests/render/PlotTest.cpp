// varena-cli render and plot. Render: the example job into a PNG and an SVG, and with the
// demonstration extract under it. Plot: a drawing of one known line and one known text plotted
// at 1:1000 on A4 landscape, the PDF read back with poppler's own tools: the sheet's size, the
// line's length and place on paper (a text's place on paper is checked on a page of its own
// below). Then the inputs that must write nothing.
#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "Comandi.h"
#include "DocumentoPdf.h"
#include "Plotter.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Salva.h"
#include "render/Poppler.h"
#include "support/Supporto.h"

namespace varena {
namespace {

using prova::Esegui;
using prova::MmParola;

// The box around the pixels of an image that `scelto` takes.
template <class F>
QRect Dove(const QImage& img, F scelto) {
  QRect r;
  for (int y = 0; y < img.height(); ++y)
    for (int x = 0; x < img.width(); ++x)
      if (scelto(img.pixel(x, y))) r |= QRect(x, y, 1, 1);
  return r;
}

// A line 100 m long, East from (1000, 2000), in colour 1 (thickness 1: 0.1 mm), and the
// text "QUOTA" 5 m high with its foot at (1050, 2020).
void ScriviLavoro(const std::string& base) {
  Sessione s;
  s.NomeLavoro = s.NomeOriginale = base;
  DimensionaLinee(s);
  s.LineaX1[0] = 1000, s.LineaY1[0] = 2000, s.LineaX2[0] = 1100, s.LineaY2[0] = 2000;
  s.LineaColore[0] = 1, s.LineaTratteggio[0] = 1, s.LineaPiano[0] = "0";
  s.ContaEntita[SlotLinee] = 1;
  DimensionaTesti(s);
  s.TestoX[0] = 1050, s.TestoY[0] = 2020, s.TestoAltezza[0] = 5, s.TestoRighe[0] = s.TestoColonne[0] = 1;
  s.TestoColore[0] = 1, s.TestoFont[0] = "Arial", s.TestoTesto[0] = "QUOTA", s.TestoPiano[0] = "0";
  s.ContaEntita[SlotTesti] = 1;
  s.Vista.CentroEst = 1050, s.Vista.CentroNord = 2000, s.Vista.AltezzaVista = 100;
  ASSERT_TRUE(SalvaTutto(s));
}

// The program's folders in a temporary one, for the run of a command.
struct ComandoRender : ::testing::Test {
  prova::CartellaTemporanea t;
  prova::CartelleDelProgramma cartelle{t.Percorso(), t / "prog"};
  // How many pixels of an image are of the red of pen 1.
  static int Rossi(const QImage& img) {
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
      for (int x = 0; x < img.width(); ++x) {
        const QRgb p = img.pixel(x, y);
        n += qRed(p) > 200 && qGreen(p) < 80 && qBlue(p) < 80;
      }
    return n;
  }
};

TEST_F(ComandoRender, PngESvgDelLavoroDiEsempio) {
  const std::string lavoro = std::string(VARENA_SORGENTI) + "/examples/RILIEVO.CFG";
  std::ostringstream out, err;
  ASSERT_EQ(cli::Esegui({"render", lavoro, t / "r.png", "--size", "400x250"}, out, err), 0) << err.str();
  EXPECT_EQ(out.str(), "Scritto " + (t / "r.png") + " (400x250, vista E 1725320.000 N 5031210.000 altezza 70.000)\n");
  QImage img(QString::fromStdString(t / "r.png"));
  ASSERT_EQ(img.size(), QSize(400, 250));
  // White background (colour 7) and the red house (colour 1) near the middle.
  EXPECT_EQ(img.pixel(2, 2) & 0xFFFFFF, 0xFFFFFFu);
  EXPECT_GT(Rossi(img), 50);

  std::ostringstream out2, err2;
  ASSERT_EQ(cli::Esegui({"render", lavoro, t / "r.svg", "--view", "1725320,5031210,30"}, out2, err2), 0);
  const std::string svg = prova::LeggiFileProva(t / "r.svg");
  EXPECT_NE(svg.find("FABBRICATO"), std::string::npos);
  // Symbols are strokes, not pictures, and every text names the job's font before its twin.
  auto conta = [&svg](const std::string& cosa) {
    size_t n = 0;
    for (size_t p = svg.find(cosa); p != std::string::npos; p = svg.find(cosa, p + 1)) ++n;
    return n;
  };
  EXPECT_EQ(conta("<image"), 0u);
  // The eight points within 24 m East and 15 m North of the centre, 100 to 104, 106, 109
  // and 113: two symbols (station, surveyed point), each drawn once and placed.
  EXPECT_EQ(conta("<use xlink:href=\"#s"), 8u);
  EXPECT_EQ(conta("<g id=\"s"), 2u);
  EXPECT_GT(conta("<text"), 10u);
  EXPECT_EQ(conta("font-family=\"Arial, Liberation Sans\""), conta("<text"));

  std::ostringstream out3, err3;
  EXPECT_EQ(cli::Esegui({"render", lavoro, t / "r.bmp"}, out3, err3), 64);
  EXPECT_EQ(cli::Esegui({"render", lavoro, t / "r.png", "--size", "3x3"}, out3, err3), 64);
  EXPECT_EQ(cli::Esegui({"render", t / "manca.CFG", t / "r.png"}, out3, err3), 1);
}

TEST_F(ComandoRender, EstrattoSottoIlRilievo) {
  // The example job with the demonstration extract F12 named in its settings.
  namespace fs = std::filesystem;
  const fs::path esempi = fs::path(VARENA_SORGENTI) / "examples";
  fs::create_directories(t / "VR2000/PREGEO/ESTRATTI");
  for (const char* f : {"F12.EMP", "F12.PNG"}) fs::copy_file(esempi / "ESTRATTI" / f, t / ("VR2000/PREGEO/ESTRATTI/" + std::string(f)));
  prova::CopiaEsempio(t / "lavoro");
  std::string cfg = prova::LeggiFileProva(t / "lavoro/RILIEVO.CFG");
  const size_t p = cfg.find("\r\n\"7\"\r\n");
  ASSERT_NE(p, std::string::npos);
  cfg.replace(p, 7, "\r\n\"7|||||||||||||||||F12.EMP|0|F12.PNG||0|1\"\r\n");
  prova::ScriviFileProva(t / "lavoro/RILIEVO.CFG", cfg);
  std::ostringstream out, err;
  ASSERT_EQ(cli::Esegui({"render", t / "lavoro/RILIEVO.CFG", t / "r.png", "--size", "400x250", "--view",
                         "1725340,5031205,110"}, out, err), 0) << err.str();
  const QImage img(QString::fromStdString(t / "r.png"));
  ASSERT_EQ(img.size(), QSize(400, 250));
  // The raster's paper where nothing else is drawn, and the parcels' sides in pen 1.
  EXPECT_EQ(img.pixel(2, 2) & 0xFFFFFF, 0xF4EEDCu);
  int carta = 0;
  for (int y = 0; y < 250; ++y)
    for (int x = 0; x < 400; ++x) carta += (img.pixel(x, y) & 0xFFFFFF) == 0xF4EEDCu;
  EXPECT_GT(carta, 400 * 250 / 2);
  EXPECT_GT(Rossi(img), 1000);
}

struct Plot : ComandoRender {
  std::string lavoro;
  void SetUp() override {
    NuovaCartella(t / "job");
    lavoro = t / "job/PIANO";
    ScriviLavoro(lavoro);
  }
};

TEST_F(Plot, ScalaVeraSuA4Orizzontale) {
  const std::string pdf = t / "piano.pdf";
  std::ostringstream out, err;
  ASSERT_EQ(cli::Esegui({"plot", lavoro + ".CFG", pdf, "--scale", "1000", "--paper", "A4", "--landscape", "--window",
                         "950,1950,1150,2050"},
                        out, err),
            0)
      << err.str();
  EXPECT_EQ(out.str(), "Scritto " + pdf + " (1 pagina, A4 orizzontale, scala 1:1000)\n");
  EXPECT_FALSE(EsisteFile(pdf + kSuffissoTemporaneo));
  // The stream beside it: the page 297 x 210 m around the window's centre (1050, 2000).
  EXPECT_EQ(prova::LeggiFileProva(t / "piano.vr"),
            "SCALA,210\r\nL,-50.000,0.000,50.000,0.000,0.1\r\nTT,QUOTA,0.000,20.000,0.000,Arial,5.000,1\r\n");

  // A4 landscape is 297 x 210 mm: 841.89 x 595.28 points of 1/72 inch, which the PDF's
  // page box holds in whole points (0.04 mm over, 0.1 mm under).
  const std::string info = Esegui("pdfinfo '" + pdf + "'");
  auto campo = [&info](const std::string& nome) {
    const auto p = info.find(nome);
    return p == std::string::npos ? std::string() : Rifila(info.substr(p + nome.size(), info.find('\n', p) - p - nome.size()));
  };
  EXPECT_EQ(campo("Pages:"), "1") << info;
  EXPECT_EQ(campo("Page size:"), "842 x 595 pts (A4)") << info;

  // The line on paper: the centre of the sheet is (1050, 2000), so it runs from 98.5 to
  // 198.5 mm across, 105 mm down; its round ends add half its 0.1 mm width at each end.
  // At 1200 dots per inch a dot is 0.021 mm: the strip of rows 104..106 mm is looked at.
  const double dpmm = 1200 / 25.4;
  const int y0 = static_cast<int>(104 * dpmm), alto = static_cast<int>(2 * dpmm);
  Esegui("pdftoppm -r 1200 -gray -png -singlefile -x 0 -y " + std::to_string(y0) + " -W 14032 -H " +
         std::to_string(alto) + " '" + pdf + "' '" + (t / "riga") + "'");
  QImage img(QString::fromStdString(t / "riga.png"));
  ASSERT_FALSE(img.isNull());
  const QRect linea = Dove(img, [](QRgb p) { return qGray(p) < 128; });
  ASSERT_FALSE(linea.isEmpty());
  EXPECT_NEAR(linea.width() / dpmm, 100.1, 0.1);
  EXPECT_NEAR(linea.left() / dpmm, 98.45, 0.1);
  EXPECT_NEAR((y0 + linea.bottom()) / dpmm, 105.05, 0.1);
}

TEST_F(Plot, RichiesteSbagliateNonScrivonoNulla) {
  const std::string pdf = t / "no.pdf";
  struct Caso {
    std::vector<std::string> opzioni;
    const char* messaggio;
  } casi[] = {
      {{"--scale", "0"}, "Scala non valida: 0 (un numero da 0 a 10000000, come 1000 per 1:1000)\n"},
      {{"--scale", "-500"}, "Scala non valida: -500 (un numero da 0 a 10000000, come 1000 per 1:1000)\n"},
      {{"--scale", "1e308"}, "Scala non valida: 1e308 (un numero da 0 a 10000000, come 1000 per 1:1000)\n"},
      // 100 x 100 km at 1:100 on A4: 4762 x 3368 sheets (29.7 x 3367 = 99999.9 m falls short).
      {{"--scale", "100", "--window", "0,0,100000,100000"},
       "Troppe pagine: 4762 x 3368 fogli a questa scala (al massimo 1000)\n"},
      {{"--paper", "B5"}, "Formato carta sconosciuto: B5 (A4, A3, A2, A1, A0)\n"},
      {{"--window", "10,10,10,50"}, "Finestra di area nulla: 10,10,10,50\n"},
  };
  for (const Caso& c : casi) {
    std::vector<std::string> a = {"plot", lavoro, pdf};
    a.insert(a.end(), c.opzioni.begin(), c.opzioni.end());
    std::ostringstream out, err;
    EXPECT_EQ(cli::Esegui(a, out, err), 64);
    EXPECT_TRUE(IniziaCon(err.str(), c.messaggio)) << err.str();
    EXPECT_FALSE(EsisteFile(pdf));
    EXPECT_FALSE(EsisteFile(t / "no.vr"));
  }
  // A folder that cannot be written: a message, and no file half made.
  std::ostringstream out, err;
  EXPECT_EQ(cli::Esegui({"plot", lavoro, t / "manca/no.pdf"}, out, err), 1);
  EXPECT_EQ(err.str(), "Impossibile scrivere " + (t / "manca/no.pdf") + "\n");
  EXPECT_FALSE(EsisteCartella(t / "manca"));
}

// Two pages written by our PDF writer: the second one's text turned a right angle
// clockwise, with letters of the Windows Latin page and the brackets a PDF string escapes, and a
// picture of 4 x 2 pixels 10 x 5 m large.
TEST_F(ComandoRender, PdfDiDuePagineConTestoRuotatoEImmagine) {
  QImage quadro(4, 2, QImage::Format_RGB32);
  quadro.fill(Qt::red);
  ASSERT_TRUE(quadro.save(QString::fromStdString(t / "q.png")));
  OpzioniPlot o;
  o.Foglio = *FoglioDaNome("A4", false);
  const std::string pdf = t / "due.pdf";
  PlotterPdf p(pdf, o);
  ASSERT_TRUE(p.Pagina(LeggiFlussoStampa("L,0,0,10,0,0\r\n")));
  ASSERT_TRUE(p.Pagina(LeggiFlussoStampa("TT,Citt\xC3\xA0 (1\xE2\x80\x93" "2),0,0,90,Arial,5,1\r\n"
                                         "IM,-50,60,10,5," + (t / "q.png") + "\r\n")));
  ASSERT_TRUE(p.Chiudi());
  EXPECT_NE(Esegui("pdfinfo '" + pdf + "'").find("Pages:           2\n"), std::string::npos);
  const std::string immagini = Esegui("pdfimages -list '" + pdf + "'");
  EXPECT_NE(immagini.find("   2     0 image       4     2  rgb     3   8  image  no "), std::string::npos) << immagini;
  // The foot at the sheet's centre (105, 148.5 mm), the text running down from it, its
  // letters standing to the right of it: Helvetica's descent and ascent are 207 and 718
  // thousandths of its 5 mm, and "Citt\xC3\xA0" is 722 + 222 + 278 + 278 + 556 of them long.
  const std::string bbox = Esegui("pdftotext -f 2 -bbox '" + pdf + "' -");
  ASSERT_NE(bbox.find(">Citt\xC3\xA0<"), std::string::npos) << bbox;
  auto mm = [&](const std::string& nome) { return MmParola(bbox, "Citt\xC3\xA0", nome); };
  EXPECT_NEAR(mm("xMin"), 105 - 1.035, 0.05) << bbox;
  EXPECT_NEAR(mm("xMax"), 105 + 3.59, 0.05);
  EXPECT_NEAR(mm("yMin"), 148.5, 0.05);
  EXPECT_NEAR(mm("yMax"), 148.5 + 10.28, 0.05);
  EXPECT_NE(bbox.find(">(1\xE2\x80\x93" "2)<"), std::string::npos) << bbox;
  // The picture's top left corner 50 m left of and 60 m above the centre: 55 and 88.5 mm,
  // 10 x 5 mm large, looked at in tenths of a millimetre (one more at the far edges, where
  // the last tenth is shaded in part).
  Esegui("pdftoppm -f 2 -l 2 -r 254 -x 500 -y 850 -W 200 -H 100 -png -singlefile '" + pdf + "' '" + (t / "p2") + "'");
  const QImage img(QString::fromStdString(t / "p2.png"));
  const QRect rosso = Dove(img, [](QRgb p) { return qRed(p) > 200 && qGreen(p) < 80; });
  EXPECT_EQ(rosso.topLeft(), QPoint(50, 35));
  EXPECT_NEAR(rosso.width(), 100.5, 0.5);
  EXPECT_NEAR(rosso.height(), 50.5, 0.5);
}

// The numbers of a page's content: hundredths of a point at most, no trailing zeros, no
// minus zero, and garbage held within bounds a reader takes.
TEST(PlotPdf, NumeriDelContenuto) {
  const std::pair<double, const char*> casi[] = {{0, "0"},         {-0.001, "0"},     {12.5, "12.5"},
                                                 {-3.14159, "-3.14"}, {100, "100"},  {0.07, "0.07"},
                                                 {1e300, "1000000000000"}, {-INFINITY, "-1000000000000"},
                                                 {NAN, "0"}};
  for (const auto& [v, atteso] : casi) {
    std::string s;
    AggiungiNumeroPdf(s, v);
    EXPECT_EQ(s, atteso) << v;
  }
}

// The SVG of a page: millimetres of the sheet, the line at its place and thickness, the
// texts in their twins, the narrow face of the captions in the narrow twin.
TEST(PlotSvg, PaginaInMillimetri) {
  OpzioniPlot o;
  o.Scala = 500;
  o.Foglio = *FoglioDaNome("a4", false);
  EXPECT_FALSE(FoglioDaNome("B5", false));
  EXPECT_EQ(FoglioDaNome("A0", true)->LarghezzaMm, 1189);
  const std::string svg = SvgPaginaFlusso(
      LeggiFlussoStampa("SCALA,297\r\nL,-10,0,10,0,0.3\r\nTT,12,0,5,0,Arial Narrow,2,1\r\nPN,7,1,1,Arial,1,1\r\n"), o);
  EXPECT_NE(svg.find("width=\"210.000mm\" height=\"297.000mm\" viewBox=\"0 0 210.000 297.000\""), std::string::npos);
  // 10 m at 1:500 is 20 mm each side of the sheet's centre (105, 148.5).
  EXPECT_NE(svg.find("<line x1=\"85.000\" y1=\"148.500\" x2=\"125.000\" y2=\"148.500\" stroke-width=\"0.300\"/>"),
            std::string::npos) << svg;
  EXPECT_NE(svg.find("<text x=\"105.000\" y=\"138.500\" font-family=\"Liberation Sans Narrow\" font-size=\"4.000\""),
            std::string::npos) << svg;
  EXPECT_NE(svg.find("font-family=\"Liberation Sans\" font-size=\"2.000\""), std::string::npos) << svg;
}

}  // namespace
}  // namespace varena
