// varena-cli render: the example job into a PNG and an SVG.
#include <gtest/gtest.h>

#include <QImage>
#include <sstream>

#include "Comandi.h"
#include "support/Supporto.h"

namespace varena {
namespace {

TEST(ComandoRender, PngESvgDelLavoroDiEsempio) {
  prova::CartellaTemporanea t;
  setenv("VARENA_DOCUMENTI", t.Percorso().c_str(), 1);
  setenv("VARENA_PROGRAMMA", (t / "prog").c_str(), 1);
  const std::string lavoro = std::string(VARENA_SORGENTI) + "/examples/RILIEVO.CFG";
  std::ostringstream out, err;
  ASSERT_EQ(cli::Esegui({"render", lavoro, t / "r.png", "--size", "400x250"}, out, err), 0) << err.str();
  EXPECT_EQ(out.str(), "Scritto " + (t / "r.png") + " (400x250, vista E 1725320.000 N 5031210.000 altezza 70.000)\n");
  QImage img(QString::fromStdString(t / "r.png"));
  ASSERT_EQ(img.size(), QSize(400, 250));
  // White background (colour 7) and the red house (colour 1) near the middle.
  EXPECT_EQ(img.pixel(2, 2) & 0xFFFFFF, 0xFFFFFFu);
  int rossi = 0;
  for (int y = 0; y < 250; ++y)
    for (int x = 0; x < 400; ++x) {
      const QRgb p = img.pixel(x, y);
      rossi += qRed(p) > 200 && qGreen(p) < 80 && qBlue(p) < 80;
    }
  EXPECT_GT(rossi, 50);

  std::ostringstream out2, err2;
  ASSERT_EQ(cli::Esegui({"render", lavoro, t / "r.svg", "--view", "1725320,5031210,30"}, out2, err2), 0);
  const std::string svg = prova::LeggiFileProva(t / "r.svg");
  EXPECT_NE(svg.find("<svg"), std::string::npos);
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
  unsetenv("VARENA_DOCUMENTI");
  unsetenv("VARENA_PROGRAMMA");
}

}  // namespace
}  // namespace varena
