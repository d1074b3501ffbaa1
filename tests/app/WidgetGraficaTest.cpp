// The preview widget paints its model where its own zoom puts it, and the keys move it.
#include <gtest/gtest.h>

#include <QImage>
#include <QKeyEvent>
#include <QTest>

#include "WidgetGrafica.h"
#include "support/Supporto.h"

namespace varena {
namespace {

TEST(WidgetGrafica, DisegnaEZoomProprio) {
  prova::SessioneProva p;
  WidgetGrafica w(p.s);
  w.resize(400, 200);
  Grafica& g = w.Modello();
  g.VR_AggiungiPuntoGraf(0, 0, "A", "NC", 1);
  g.VR_AggiungiPuntoGraf(100, 0, "B", "NP", 1);
  g.VR_AggiungiLineaGraf("A", "B");
  g.CentroEst = 50, g.CentroNord = 0, g.Altezza = 100;
  // Two pixels a metre around the middle: the line runs along row 100 from x 100 to 300.
  EXPECT_EQ(w.Pixel(0, 0), QPointF(100, 100));
  EXPECT_EQ(w.Metri(QPointF(300, 50)), QPointF(100, 25));
  QImage img = w.grab().toImage();
  EXPECT_EQ(img.pixelColor(200, 100).red(), 255);
  EXPECT_LT(img.pixelColor(200, 100).green(), 200);  // red, or half of it on the pixel edge
  EXPECT_EQ(img.pixelColor(200, 60), QColor(Qt::white));
  QTest::keyClick(&w, Qt::Key_Right);
  EXPECT_DOUBLE_EQ(g.CentroEst, 50 + 100 * 2.0 / 4);
  QTest::keyClick(&w, Qt::Key_Home);
  EXPECT_DOUBLE_EQ(g.CentroEst, 50);
  // With "NUOVOPUNTO" armed a click at pixel (300, 80) adds the point there.
  g.Altezza = 100;
  g.TagMouse = "NUOVOPUNTO";
  QTest::mouseClick(&w, Qt::LeftButton, {}, QPoint(300, 80));
  ASSERT_EQ(g.Punti().size(), 3u);
  EXPECT_DOUBLE_EQ(g.Punti()[2].Est, 100);  // 100 pixels right of the middle, 2 a metre
  EXPECT_DOUBLE_EQ(g.Punti()[2].Nord, 10);
}

}  // namespace
}  // namespace varena
