// The raster surface: what it paints lands where the user scale says, and the two modes
// that must undo themselves do. The SVG surface: the document's exact text for a few calls
// of each kind. The raster of a map extract: its pyramid of halved copies, painted only
// where in view.
#include <gtest/gtest.h>

#include <QFontInfo>
#include <QImage>
#include <QImageReader>
#include <QPainter>

#include "PiramideImmagine.h"
#include "SuperficieQt.h"
#include "SuperficieSvg.h"
#include "support/Supporto.h"

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
  // Arial and Courier New are in the SVG document's exact text below.
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
  // The text landed at the top left, where (10, 90) is.
  EXPECT_TRUE(QRect(0, 0, 100, 40).contains(Scuri(img)));
  EXPECT_GT(Scuri(img).width(), 20);
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
    for (int scarto : {ra.left() - rb.left(), ra.right() - rb.right(), ra.top() - rb.top(), ra.bottom() - rb.bottom()})
      EXPECT_LE(std::abs(scarto), 1) << codice;
  }
}

TEST(SuperficieSvg, TrattiSimboliPixelETestiNelDocumento) {
  SuperficieSvg s(200, 100, 96);
  // One unit a pixel, North up: a point (x, y) lands at (x, 100 - y).
  s.ScalaUtente(0, 100, 200, -100);
  s.ColoreFondo(0xFFFFFF);
  s.Pulisci();
  // Two lines of one pen, the second going on from the first: one path, one chain.
  s.Linea(10, 90, 20, 90, 0xFF0000);
  s.Linea(20, 90, 20, 80, 0xFF0000);
  // A dot of a dotted pen: a square one pixel wide.
  s.Stile(StilePenna::Punteggiato);
  s.Linea(30, 50, 30, 50, 0x00FF00);
  s.Stile(StilePenna::Continuo);
  // Code 34 is a circle of s/4 with a plus of half size s/2: drawn once, placed twice.
  s.Simbolo(34, 50.5f, 40, 4, 0x0000FF, false);
  s.Simbolo(34, 150, 40, 4, 0x0000FF, false);
  // A pixel of the background is left out; one of another colour is not.
  s.Pixel(5, 5, 0xFFFFFF);
  s.Pixel(5, 5, 0x000000);
  // 12 points at 96 dpi are 16 px. The base line lies under the top left corner by the
  // font's ascender (hhea table) in whole 64ths of a pixel: Liberation Sans 1854/2048 of
  // 16 px, 927/64 = 14.484; Liberation Mono 1705/2048 of 16 px, 852.5/64, rounded 853/64.
  s.Carattere("Arial", 12);
  s.ColorePenna(0x000080);
  s.Testo(100, 30, "A&B <1>", 0);
  s.Carattere("Courier New", 12);
  s.Testo(100, 30, "N", 3.14159265f / 2);
  EXPECT_EQ(s.Documento("LAVORO \"1\""),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" "
            "width=\"200\" height=\"100\" viewBox=\"0 0 200 100\" stroke-linecap=\"butt\" xml:space=\"preserve\">\n"
            "<title>LAVORO &quot;1&quot;</title>\n"
            "<defs>\n"
            "<g id=\"s1\">\n"
            "<path fill=\"none\" stroke=\"#0000ff\" d=\"M-1 0a1 1 0 1 0 2 0a1 1 0 1 0 -2 0M-2 0L2 0M0 2L0 -2\"/>\n"
            "</g>\n"
            "</defs>\n"
            "<rect width=\"200\" height=\"100\" fill=\"#ffffff\"/>\n"
            "<path fill=\"none\" stroke=\"#ff0000\" d=\"M10 10L20 10L20 20\"/>\n"
            "<path fill=\"none\" stroke=\"#00ff00\" stroke-dasharray=\"1 2\" d=\"M29.5 50h1\"/>\n"
            "<use xlink:href=\"#s1\" x=\"50.5\" y=\"60\"/>\n"
            "<use xlink:href=\"#s1\" x=\"150\" y=\"60\"/>\n"
            "<path fill=\"none\" stroke=\"#000000\" d=\"M4.5 95h1\"/>\n"
            "<text x=\"100\" y=\"84.48\" font-family=\"Arial, Liberation Sans\" font-size=\"16\" "
            "fill=\"#000080\">A&amp;B &lt;1&gt;</text>\n"
            "<text x=\"100\" y=\"83.33\" transform=\"rotate(-90 100 70)\" font-family=\"Courier New, Liberation Mono\" "
            "font-size=\"16\" fill=\"#000080\">N</text>\n"
            "</svg>\n");
}

TEST(PiramideImmagine, LivelliEParteInVista) {
  // Red on the left half, blue on the right.
  QImage img(1000, 700, QImage::Format_RGB32);
  img.fill(Qt::red);
  QPainter(&img).fillRect(500, 0, 500, 700, Qt::blue);
  const PiramideImmagine p(img);
  ASSERT_EQ(p.Livelli(), 3);  // 1000 x 700, 500 x 350, 250 x 175
  EXPECT_EQ(p.Livello(2).size(), QSize(250, 175));
  EXPECT_EQ(std::make_tuple(p.LivelloPer(1200), p.LivelloPer(400), p.LivelloPer(100)), std::make_tuple(0, 1, 2));
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
