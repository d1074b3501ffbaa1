// The raster of a map extract: its pyramid of halved copies, painted only where in view, and
// the demonstration extract under the example job in `varena-cli render`.
#include <gtest/gtest.h>

#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <filesystem>
#include <sstream>

#include "Comandi.h"
#include "PiramideImmagine.h"
#include "support/Supporto.h"

namespace varena {
namespace {

TEST(PiramideImmagine, LivelliEParteInVista) {
  // Red on the left half, blue on the right.
  QImage img(1000, 700, QImage::Format_RGB32);
  img.fill(Qt::red);
  QPainter(&img).fillRect(500, 0, 500, 700, Qt::blue);
  const PiramideImmagine p(img);
  ASSERT_EQ(p.Livelli(), 3);  // 1000 x 700, 500 x 350, 250 x 175
  EXPECT_EQ(p.Livello(2).size(), QSize(250, 175));
  EXPECT_EQ(p.LivelloPer(1200), 0);
  EXPECT_EQ(p.LivelloPer(400), 1);
  EXPECT_EQ(p.LivelloPer(100), 2);
  // Stretched over 400 pixels from -200: the boundary falls at 0, and the view of 200 pixels
  // holds only the blue half. From 0, only the red one.
  for (auto [sinistra, colore] : {std::pair{-200.0, QColor(Qt::blue)}, {0.0, QColor(Qt::red)}}) {
    QImage schermo(200, 100, QImage::Format_RGB32);
    schermo.fill(Qt::white);
    {
      QPainter q(&schermo);
      p.Dipingi(q, QRectF(sinistra, 0, 400, 100), QRectF(0, 0, 200, 100));
    }
    for (int x : {5, 100, 194}) EXPECT_EQ(schermo.pixelColor(x, 50), colore) << sinistra << " " << x;
  }
}

TEST(PiramideImmagine, UnFoglioOltreIlLimiteDelLettore) {
  // The reader refuses a picture that decodes past its limit: a scanned sheet does, at the
  // default of 256 MB. Here the limit is made 1 MB and the picture 2.8 MB.
  prova::CartellaTemporanea t;
  QImage img(1000, 700, QImage::Format_RGB32);
  img.fill(Qt::green);
  ASSERT_TRUE(img.save(QString::fromStdString(t / "foglio.png")));
  const int limite = QImageReader::allocationLimit();
  QImageReader::setAllocationLimit(1);
  const auto p = PiramideDi(QString::fromStdString(t / "foglio.png"));
  QImageReader::setAllocationLimit(limite);
  ASSERT_TRUE(p);
  EXPECT_EQ(p->Livello(0).size(), QSize(1000, 700));
}

TEST(ComandoRender, EstrattoSottoIlRilievo) {
  // The example job with the demonstration extract F12 named in its settings.
  namespace fs = std::filesystem;
  prova::CartellaTemporanea t;
  setenv("VARENA_DOCUMENTI", t.Percorso().c_str(), 1);
  setenv("VARENA_PROGRAMMA", (t / "prog").c_str(), 1);
  const fs::path esempi = fs::path(VARENA_SORGENTI) / "examples";
  fs::create_directories(t / "VR2000/PREGEO/ESTRATTI");
  fs::create_directories(t / "lavoro");
  for (const char* f : {"F12.EMP", "F12.PNG"}) fs::copy_file(esempi / "ESTRATTI" / f, t / ("VR2000/PREGEO/ESTRATTI/" + std::string(f)));
  for (const fs::directory_entry& e : fs::directory_iterator(esempi))
    if (e.path().stem() == "RILIEVO") fs::copy_file(e.path(), t / ("lavoro/" + e.path().filename().string()));
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
  int carta = 0, rossi = 0;
  for (int y = 0; y < 250; ++y)
    for (int x = 0; x < 400; ++x) {
      const QRgb c = img.pixel(x, y);
      carta += (c & 0xFFFFFF) == 0xF4EEDCu;
      rossi += qRed(c) > 200 && qGreen(c) < 80 && qBlue(c) < 80;
    }
  EXPECT_GT(carta, 400 * 250 / 2);
  EXPECT_GT(rossi, 1000);
  unsetenv("VARENA_DOCUMENTI");
  unsetenv("VARENA_PROGRAMMA");
}

}  // namespace
}  // namespace varena
