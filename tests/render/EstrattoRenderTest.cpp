// The raster of a map extract: its pyramid of halved copies, painted only where in view.
#include <gtest/gtest.h>

#include <QImage>
#include <QImageReader>
#include <QPainter>

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

}  // namespace
}  // namespace varena
