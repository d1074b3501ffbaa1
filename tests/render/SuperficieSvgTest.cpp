// The SVG surface: the document's exact text for a few calls of each kind.
#include <gtest/gtest.h>

#include "SuperficieSvg.h"

namespace varena {
namespace {

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

}  // namespace
}  // namespace varena
