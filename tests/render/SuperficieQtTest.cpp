// The raster surface: what it paints lands where the user scale says, and the two modes
// that must undo themselves do.
#include <gtest/gtest.h>

#include <QFontInfo>
#include <QImage>

#include "SuperficieQt.h"

namespace varena {
namespace {

QImage Tela() {
  QImage img(200, 100, QImage::Format_RGB32);
  img.fill(Qt::white);
  return img;
}

TEST(SuperficieQt, ScalaUtenteConIlNordInAlto) {
  QImage img = Tela();
  {
    SuperficieQt s(&img, 200, 100, 96);
    // A view 20 wide and 10 high centred on the origin: x -10..10, y 5 at the top.
    s.ScalaUtente(-10, 5, 20, -10);
    s.ColoreFondo(0xFFFFFF);
    s.Pulisci();
    s.Modo(ModoPenna::Esclusivo);  // no smoothing: exact pixels
    s.Spessore(1);
    s.Linea(-10, 4, 10, 4, 0xFF0000);  // 1 unit below the top: pixel row 10
  }
  EXPECT_EQ(img.pixel(100, 10) & 0xFFFFFF, 0x00FFFFu ^ 0x000000u);  // red xor white is cyan
  EXPECT_EQ(img.pixel(100, 50) & 0xFFFFFF, 0xFFFFFFu);
}

TEST(SuperficieQt, InversioneEEsclusivoSiAnnullano) {
  QImage img = Tela();
  img.setPixel(30, 30, qRgb(10, 200, 30));
  const QImage prima = img.copy();
  {
    SuperficieQt s(&img, 200, 100, 96);
    s.ScalaUtente(0, 0, 200, 100);  // one unit a pixel, y down
    for (ModoPenna m : {ModoPenna::Inverti, ModoPenna::Esclusivo}) {
      s.Modo(m);
      for (int volte = 0; volte < 2; ++volte) {
        s.Linea(0, 30.5f, 199, 30.5f, 0x123456);
        s.Cerchio(100, 50, 20, 0xABCDEF);
        s.Riquadro(10, 10, 60, 60, 0x00FF00, false);
      }
    }
  }
  EXPECT_EQ(img, prima);
}

TEST(SuperficieQt, CaratteriDelLavoroTrovanoIGemelli) {
  EXPECT_EQ(FamigliaCarattere("Arial"), "Liberation Sans");
  EXPECT_EQ(FamigliaCarattere("Courier New"), "Liberation Mono");
  EXPECT_EQ(FamigliaCarattere("Curier New"), "Liberation Mono");  // the misspelled fallback
  EXPECT_EQ(FamigliaCarattere(" Times New Roman "), "Liberation Serif");
  QFont f(FamigliaCarattere("Arial"));
  EXPECT_EQ(QFontInfo(f).family(), "Liberation Sans");  // fonts-liberation is installed
}

TEST(SuperficieQt, TestoELarghezza) {
  QImage img = Tela();
  SuperficieQt s(&img, 200, 100, 96);
  s.ScalaUtente(0, 100, 200, -100);
  s.Carattere("Arial", 12);
  const double corto = s.LarghezzaTesto("PF01");
  const double lungo = s.LarghezzaTesto("PF01/0010/G693");
  EXPECT_GT(corto, 10);
  EXPECT_GT(lungo, 3 * corto);
  s.ColorePenna(0x000000);
  s.Testo(10, 90, "Varena", 0);
  s.Fine();
  int scuri = 0;
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 100; ++x) scuri += qGray(img.pixel(x, y)) < 128;
  EXPECT_GT(scuri, 20);  // the text landed at the top left, where (10, 90) is
}

}  // namespace
}  // namespace varena

namespace varena {
namespace {

// Where the dark pixels of an image lie.
QRect Scuri(const QImage& img) {
  QRect r;
  for (int y = 0; y < img.height(); ++y)
    for (int x = 0; x < img.width(); ++x)
      if (qGray(img.pixel(x, y)) < 160) r |= QRect(x, y, 1, 1);
  return r;
}

TEST(SuperficieQt, SimboloPrecompostoComeQuelloDisegnato) {
  for (int codice : {35, 66, 97, 42, 5}) {
    QImage a = Tela(), b = Tela();
    {
      SuperficieQt sa(&a, 200, 100, 96), sb(&b, 200, 100, 96);
      for (SuperficieQt* s : {&sa, &sb}) s->ScalaUtente(-10, 5, 20, -10);
      sa.Simbolo(codice, 1.3f, -0.7f, 4, 0x000000, false);               // from the cache
      sb.Superficie::Simbolo(codice, 1.3f, -0.7f, 4, 0x000000, false);   // element by element
    }
    const QRect ra = Scuri(a), rb = Scuri(b);
    ASSERT_FALSE(rb.isEmpty()) << codice;
    EXPECT_LE(std::abs(ra.left() - rb.left()), 1) << codice;
    EXPECT_LE(std::abs(ra.right() - rb.right()), 1) << codice;
    EXPECT_LE(std::abs(ra.top() - rb.top()), 1) << codice;
    EXPECT_LE(std::abs(ra.bottom() - rb.bottom()), 1) << codice;
  }
}

}  // namespace
}  // namespace varena
