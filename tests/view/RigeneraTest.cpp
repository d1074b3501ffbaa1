// Regeneration into the display list and the redraw on the recording surface; the dash
// patterns, arc chords and symbol codes they are made of.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "core/InterfacciaRegistrata.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "support/ProvaComandi.h"
#include "view/Rigenera.h"
#include "view/Ridisegna.h"
#include "view/StiliLinea.h"
#include "view/SuperficieRegistrata.h"

namespace varena {
namespace {

// A session with the nine default colours, white background (7) and a surface 160 x 100 mm,
// viewing 100 m around (1000, 2000): view x runs -80..80, y -50..50.
struct Scena {
  Sessione s;
  SuperficieRegistrata sup{160, 100};
  Scena() {
    const ColoreRGB c[10] = {0, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x414141, 0x808080};
    for (int i = 0; i < 10; ++i) s.Colori.Colore[static_cast<size_t>(i)] = c[i];
    s.Colori.Colore[250] = 0x000000;
    s.Schermo = &sup;
    s.Vista.CentroEst = 1000;
    s.Vista.CentroNord = 2000;
    s.Vista.AltezzaVista = 100;
    // CONTINUA is style 1, TRATTEGG style 2 (3 m strokes, 3 m gaps).
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};
  }
  int Linea(double x1, double y1, double x2, double y2, int colore = 1, int stile = 1) {
    const int32_t r = prova::MettiLinea(s, x1, y1, x2, y2);
    s.LineaColore[static_cast<size_t>(r)] = colore;
    s.LineaTratteggio[static_cast<size_t>(r)] = static_cast<int16_t>(stile);
    return r;
  }
  // Labels 2 m high.
  int Punto(const char* nome, double x, double y, int simbolo, double dimensione) {
    const auto r = static_cast<size_t>(prova::MettiPunto(s, nome, x, y, 12.345));
    s.PuntoSimbolo[r] = static_cast<int16_t>(simbolo);
    s.PuntoDimensioneSimbolo[r] = dimensione;
    s.PuntoDimensioneNome[r] = s.PuntoDimensioneQuota[r] = s.PuntoDimensioneDescrizione[r] = 2;
    return static_cast<int>(r);
  }
  void Testo(const char* testo, int colore) {
    const auto r = static_cast<size_t>(prova::MettiTesto(s, 1000, 2000, testo));
    s.TestoAltezza[r] = 2, s.TestoColore[r] = colore, s.TestoFont[r] = "";
  }
  // An image "foto<row>.png" inserted at (x, 2010), its size in pixels times `scala` metres.
  void Bitmap(double x, double larghezza, double altezza, double scala) {
    const int32_t r = prova::MettiImmagine(s, x, 2010, larghezza, altezza, scala);
    s.BitmapNomeFile[static_cast<size_t>(r)] = "foto" + std::to_string(r) + ".png";
  }
  void Disegna() {
    RigeneraLista(s);
    Ridisegna(s);
  }
  // The list as it stands painted again on a clean record.
  void Ridipingi() {
    sup.Chiamate.clear();
    Ridisegna(s);
  }
  size_t Conta(const std::string& prefisso) const { return sup.Solo(prefisso).size(); }
};

TEST(Rigenerazione, OrdineDelleTipologie) {
  InterfacciaRegistrata ui;
  Scena z;
  z.Linea(990, 1990, 1010, 1990);
  z.Testo("VIA ROMA", 0);
  prova::MettiCerchio(z.s, 1000, 2000, 5);
  prova::MettiArco(z.s, 1000, 2000, 5, 0, 100);
  z.Bitmap(990, 100, 50, 0.1);
  DimensionaFalde(z.s);
  z.s.FaldaX1[0] = 990, z.s.FaldaY1[0] = 1990, z.s.FaldaX2[0] = 1010, z.s.FaldaY2[0] = 1990;
  z.s.FaldaX3[0] = 1000, z.s.FaldaY3[0] = 2010;
  z.s.ContaEntita[SlotFalde] = 1;
  z.s.Ui = &ui;
  RigeneraLista(z.s);
  // Its progress: images, the map extract, facets, sections, contour curves, arcs, circles,
  // lines, Contorno-7 structures, texts, the extent's frame, the indexes.
  using A = std::vector<std::pair<int64_t, int64_t>>;
  EXPECT_EQ(ui.Avanzamento, (A{{0, 12}, {1, 12}, {2, 12}, {3, 12}, {4, 12}, {5, 12}, {6, 12}, {7, 12}, {8, 12},
                               {9, 12}, {10, 12}, {11, 12}, {12, 12}}));
  const ElencoDisegno& l = z.s.ListaDisegno;
  // Image frame, facet, arc, circle, line, text: the order of painting.
  std::vector<int> tipi;
  std::vector<size_t> arco, cerchio;
  for (size_t i = 0; i < static_cast<size_t>(l.Conta()); ++i) {
    if (tipi.empty() || tipi.back() != l.Tipo[i]) tipi.push_back(l.Tipo[i]);
    if (l.Tipo[i] == SlotArchi) arco.push_back(i);
    if (l.Tipo[i] == SlotCerchi) cerchio.push_back(i);
  }
  EXPECT_EQ(tipi, (std::vector<int>{13, 6, 4, 3, 2, 5}));
  // The image frame: 10 m by 5 m down from its insertion.
  EXPECT_EQ(l.X2[0], 1000);
  EXPECT_EQ(l.Y1[1], 2010);
  EXPECT_EQ(l.Y2[1], 2005);
  // The arc is in gon: a quarter turn from North to East, ending at (1005, 2000).
  ASSERT_FALSE(arco.empty());
  EXPECT_NEAR(l.X2[arco.back()], 1005, 1e-9);
  EXPECT_NEAR(l.Y2[arco.back()], 2000, 1e-9);
  // The circle stops short of its start: 399.99 gon, not a whole turn.
  ASSERT_FALSE(cerchio.empty());
  EXPECT_NEAR(l.X2[cerchio.back()], 1000 + 5 * std::sin(399.99 * 3.14159265358979323846 / 200), 1e-9);

  Ridisegna(z.s);
  // Painted: the background, the image, the list, then the points (none here).
  const auto& c = z.sup.Chiamate;
  const auto immagine = std::find_if(c.begin(), c.end(), [](const std::string& x) { return x.rfind("Immagine", 0) == 0; });
  const auto testo = std::find_if(c.begin(), c.end(), [](const std::string& x) { return x.rfind("Testo", 0) == 0; });
  ASSERT_NE(testo, c.end());
  ASSERT_LT(immagine, testo);
  EXPECT_EQ(*immagine, "Immagine foto0.png -10 10 0 5");
  EXPECT_EQ(z.sup.Solo("Pulisci").size(), 1u);
  EXPECT_EQ(z.sup.Solo("ColoreFondo").front(), "ColoreFondo #ffffff");
}

TEST(Rigenerazione, TrattiTroncaEQuota) {
  Scena z;
  // 20 m due East, dashed 3/3, shortened by 1 m at each end: 18 m from 991 to 1009.
  const auto r = static_cast<size_t>(z.Linea(990, 2000, 1010, 2000, 2, 2));
  z.s.LineaTronca[r] = 1;
  z.Disegna();
  const ElencoDisegno& l = z.s.ListaDisegno;
  // One record, the box of its pieces; the pieces are painted: 991-994, 997-1000,
  // 1003-1006, the last gap reaching the end.
  ASSERT_EQ(l.Conta(), 1);
  EXPECT_EQ(l.Primitiva[0], PrimMotivo);
  EXPECT_DOUBLE_EQ(l.X1[0], 991);
  EXPECT_DOUBLE_EQ(l.X2[0], 1006);
  EXPECT_EQ(z.sup.Solo("Linea"), (std::vector<std::string>{"Linea -9 0 -6 0 #ffff00", "Linea -3 0 0 0 #ffff00",
                                                            "Linea 3 0 6 0 #ffff00"}));
  // A negative truncation lengthens the line before its pattern.
  z.s.LineaTronca[r] = -2;
  z.s.LineaTratteggio[r] = 1;
  RigeneraLista(z.s);
  ASSERT_EQ(l.Conta(), 1);
  EXPECT_DOUBLE_EQ(l.X1[0], 988);
  EXPECT_DOUBLE_EQ(l.X2[0], 1012);
  // The length label: along the line from its start, "######0." and two decimals.
  z.s.LineaTronca[r] = 0;
  z.s.LineaQuotata[r] = 1;
  z.s.LineaOffsetQuota[r] = 4;
  RigeneraLista(z.s);
  ASSERT_EQ(l.Conta(), 2);
  EXPECT_EQ(l.Primitiva[0], PrimTesto);
  EXPECT_EQ(l.Testo(0), "20.00");
  EXPECT_EQ(l.X1[0], 994);
  EXPECT_EQ(l.Font(0), "Arial");
  EXPECT_FLOAT_EQ(l.Rotazione[0], 400.0f);  // due East: 400 - 100 + 100
  EXPECT_FLOAT_EQ(l.Altezza[0], 1.0f);
  // Frozen lines give nothing.
  z.s.LineaCongela[r] = -1;
  RigeneraLista(z.s);
  EXPECT_EQ(l.Conta(), 0);
}

TEST(Rigenerazione, UnArcoNonFaPiuDiUnGiroDiCorde) {
  Scena z;
  auto arco = [&](double raggio, double inizio, double ampiezza) { prova::MettiArco(z.s, 1000, 2000, raggio, inizio, ampiezza); };
  // 4e7 gon are a hundred thousand whole turns: one turn. Radius 10: a chord whose sagitta
  // is half a millimetre spans 2 acos(1 - 0.0005 / 10) = 0.0200003 rad, 314.16 of them to
  // the turn, so 315 chords.
  arco(10, 0, 4e7);
  // 4e7 + 100 gon: a quarter turn; radius 10 km asks for more than the cap of 4096 chords to
  // the turn, so a quarter has 1024.
  arco(1e4, 0, 4e7 + 100);
  // A radius past any drawing, a full turn: the cap.
  arco(4.6e164, 0, 4e7);
  arco(10, std::nan(""), 100);  // a start that is no number: nothing
  RigeneraLista(z.s);
  const ElencoDisegno& l = z.s.ListaDisegno;
  ASSERT_EQ(l.Conta(), 315 + 1024 + 4096);
  EXPECT_NEAR(l.X2[314], 1000, 1e-9);  // the turn closes on its start, due North
  EXPECT_NEAR(l.Y2[314], 2010, 1e-9);
  EXPECT_NEAR(l.X2[315 + 1023], 11000, 1e-6);  // the quarter ends due East
  EXPECT_NEAR(l.Y2[315 + 1023], 2000, 1e-6);
}

TEST(Rigenerazione, TratteggiLunghiNonMoltiplicanoIlDisegno) {
  Scena z;
  // 40,000 lines of 20 km in dashes of 3 m: each one record, not 3,334.
  for (int i = 0; i < 40000; ++i) z.Linea(0, 2000 + i * 0.5, 20000, 2000 + i * 0.5, 1, 2);
  z.Disegna();
  EXPECT_EQ(z.s.ListaDisegno.Conta(), 40000);
  // In a view 160 m wide, the 101 lines from y 2000 to 2050 show the strokes that start at
  // 918, 924 ... 1080 m: 28 each, the first across the left edge, the last from it.
  const auto linee = z.sup.Solo("Linea");
  ASSERT_EQ(linee.size(), 101u * 28u);
  EXPECT_EQ(linee.front(), "Linea -82 0 -79 0 #ff0000");
  EXPECT_EQ(linee[27], "Linea 80 0 83 0 #ff0000");
  EXPECT_EQ(linee.back(), "Linea 80 50 83 50 #ff0000");
}

TEST(Rigenerazione, CerchiTratteggiatiUnRecordEIlorTrattiInVista) {
  Scena z;
  // 20,000 dashed circles of radius 1 to 3 km about (1000, 2000 - 1000): each one record.
  for (int i = 0; i < 20000; ++i) z.s.CerchioTratteggio[static_cast<size_t>(prova::MettiCerchio(z.s, 1000, 1000, 1000 + i * 0.1))] = 2;
  z.Disegna();
  EXPECT_EQ(z.s.ListaDisegno.Conta(), 20000);
  // The view, 160 by 100 m about (1000, 2000), holds the top of the circles up to a radius
  // of 1050 + 80^2 / 2100 m, the 531 first: painted is exactly what their whole chords
  // would paint, chord for chord.
  std::vector<std::string> attese;
  for (size_t r = 0; r < 600; ++r) {
    std::vector<TrattoArco> corde;
    EspandiArco(1000, 1000, z.s.CerchioRaggio[r], 0, 399.99 * 3.14159265358979323846 / 200, StileDi(z.s, 2), corde);
    for (const TrattoArco& t : corde) {
      const float x1 = static_cast<float>(t.X1 - 1000), y1 = static_cast<float>(t.Y1 - 2000);
      const float x2 = static_cast<float>(t.X2 - 1000), y2 = static_cast<float>(t.Y2 - 2000);
      if ((x1 < -80 && x2 < -80) || (x1 > 80 && x2 > 80) || (y1 < -50 && y2 < -50) || (y1 > 50 && y2 > 50)) continue;
      attese.push_back("Linea " + FormaSemplice(x1) + " " + FormaSemplice(y1) + " " + FormaSemplice(x2) + " " +
                       FormaSemplice(y2) + " #ff0000");
    }
  }
  auto dipinte = z.sup.Solo("Linea");
  std::sort(dipinte.begin(), dipinte.end());
  std::sort(attese.begin(), attese.end());
  EXPECT_GT(attese.size(), 10000u);
  EXPECT_EQ(dipinte, attese);
}

TEST(Ridisegno, TrattiSottoIlPixelSonoUnaLineaPiena) {
  Scena z;
  z.Linea(0, 2000, 20000, 2000, 1, 2);
  z.s.CerchioTratteggio[static_cast<size_t>(prova::MettiCerchio(z.s, 1000, 1000, 1000))] = 2;
  // 40 km on 100 mm: a pixel of the surface (25.4 / 96 mm) is 106 m, a repeat of 6 m cannot
  // show its gaps. The circle is the plain curve, in chords whose sagitta is half a
  // millimetre, 2 acos(1 - 0.0005 / 1000) = 0.0020000 rad each: 3141.4 of them in 399.99 gon,
  // so 3142; one record each.
  z.s.Vista.AltezzaVista = 40000;
  z.Disegna();
  EXPECT_EQ(z.s.ListaDisegno.Conta(), 2);
  const auto linee = z.sup.Solo("Linea");
  ASSERT_EQ(linee.size(), 1u + 3142u);
  EXPECT_EQ(linee.back(), "Linea -1000 0 19000 0 #ff0000");  // lines after circles
  // 600 m on 100 mm: a pixel is 1.6 m, the repeat shows, stroke by stroke.
  z.s.CerchioIdent[0] = -1;
  z.s.Vista.AltezzaVista = 600;
  z.sup.Chiamate.clear();
  z.Disegna();
  EXPECT_EQ(z.sup.Solo("Linea").size(), 160u);  // strokes starting at 522 ... 1476 m, in 520 ... 1480
  // The line type emptied since the list was made: the line is painted plain, whole.
  z.s.Tratteggi.Stili[2].Elementi = {0};
  z.Ridipingi();
  EXPECT_EQ(z.sup.Solo("Linea"), (std::vector<std::string>{"Linea -1000 0 19000 0 #ff0000"}));
}

TEST(Ridisegno, LineaFuoriVistaELineaCheAttraversa) {
  Scena z;
  z.Linea(900, 1990, 910, 2010);   // wholly left of the view (x < 920)
  z.Linea(850, 2000, 1150, 2001);  // both ends outside, crossing it
  z.Disegna();
  EXPECT_EQ(z.sup.Solo("Linea "), (std::vector<std::string>{"Linea -150 0 150 1 #ff0000"}));
}

TEST(Ridisegno, TestoSenzaFontEColoreDelFondo) {
  Scena z;
  z.Testo("ABC", 7);  // the background's colour
  z.Disegna();
  // The misspelled name, kept on purpose; 2 m at 100 mm for 100 m: 2 mm, in points.
  EXPECT_EQ(z.sup.Solo("Carattere Curier"),
            (std::vector<std::string>{"Carattere Curier New " + FormaSemplice(static_cast<float>(2.0 / 0.3528))}));
  EXPECT_EQ(z.sup.Solo("ColorePenna").back(), "ColorePenna #3399ff");
  EXPECT_EQ(z.sup.Solo("Testo ").back(), "Testo 0 2 ABC");  // its top left, 2 m over the foot
  // Indexes that are not to be painted, or out of the palette, take the colour 250.
  for (int c : {0, -3, 8, 255}) EXPECT_EQ(ColoreVisibile(z.s, c), 250) << c;
  ColoreRGB c;
  EXPECT_FALSE(ColoreDaIndice(z.s, 258, c));
}

TEST(Ridisegno, SimboliDeiPuntiEPixelDellaDimensionePrecedente) {
  Scena z;
  z.s.Imp.MostraNome = z.s.Imp.MostraQuota = z.s.Imp.MostraDescrizione = 0;
  z.Punto("A", 1000, 2000, 97, 4);   // box and circle only
  z.Punto("B", 1010, 2000, 2, -5);   // a plus, 5% of the view: 5 m
  z.Punto("C", 1020, 2000, 0, 0.1);  // a dot, under the threshold of 0.5 m
  z.Punto("D", 1030, 2000, 0, 4);    // a dot after a small one
  z.Disegna();
  EXPECT_EQ(z.sup.Solo("Riquadro"), (std::vector<std::string>{"Riquadro -1 -1 1 1 #ff0000"}));
  EXPECT_EQ(z.sup.Solo("Cerchio"), (std::vector<std::string>{"Cerchio 0 0 1 #ff0000"}));
  EXPECT_EQ(z.sup.Solo("Linea"), (std::vector<std::string>{"Linea 7.5 0 12.5 0 #ff0000", "Linea 10 -2.5 10 2.5 #ff0000"}));
  // The pixel before a symbol depends on the size of the point painted before: the first
  // point (nothing before it) and D (after the small C) get one; C gets the dot of its base.
  EXPECT_EQ(z.sup.Solo("Pixel"), (std::vector<std::string>{"Pixel 0 0 #ff0000", "Pixel 20 0 #ff0000",
                                                            "Pixel 30 0 #ff0000", "Pixel 30 0 #ff0000"}));
}

TEST(Ridisegno, EtichetteSovrapposteERinvio) {
  Scena z;
  z.s.Imp.CollegaPuntoSimbolo = 1;
  const auto r = static_cast<size_t>(z.Punto("101", 1000, 2000, 1, 2));
  z.s.PuntoDescrizione[r] = "SPIGOLO";
  z.Disegna();
  // Name at (X + s/2, Y), height 1.5 h under it, description 1.5 h further; each printed
  // 1.5 h above its line; no leader without a displacement.
  EXPECT_EQ(z.sup.Solo("Testo"), (std::vector<std::string>{"Testo 1 3 101", "Testo 1 0 12.35", "Testo 1 -3 SPIGOLO"}));
  EXPECT_EQ(z.sup.Solo("Carattere Arial").front(), "Carattere Arial " + FormaSemplice(static_cast<float>(2.0 / 0.3528)));
  EXPECT_TRUE(z.sup.Solo("Stile 2").empty());
  z.s.PuntoSpoX[r] = 3;
  z.Ridipingi();
  EXPECT_EQ(z.sup.Solo("Linea").front(), "Linea 0 0 3 0 #ff0000");  // the dotted leader
  EXPECT_EQ(z.sup.Solo("Testo").front(), "Testo 4 3 101");
  // A frozen name leaves its place to the height.
  z.s.PuntoCongelaNome[r] = -1;
  z.Ridipingi();
  EXPECT_EQ(z.sup.Solo("Testo").front(), "Testo 4 3 12.35");
  // Sizes given as 2% of the view's 100 m: the same 2 m lines, each printed on its line
  // rather than above it, and the same font.
  z.s.PuntoCongelaNome[r] = 0;
  z.s.PuntoSpoX[r] = 0;
  z.s.PuntoDimensioneNome[r] = z.s.PuntoDimensioneQuota[r] = z.s.PuntoDimensioneDescrizione[r] = -2;
  z.Ridipingi();
  EXPECT_EQ(z.sup.Solo("Testo"), (std::vector<std::string>{"Testo 1 0 101", "Testo 1 -3 12.35", "Testo 1 -6 SPIGOLO"}));
  EXPECT_EQ(z.sup.Solo("Carattere Arial").front(), "Carattere Arial " + FormaSemplice(static_cast<float>(2.0 / 0.3528)));
  // The same surface as a window on a screen 150 mm high: 2% of 150 mm is 3 mm, which on
  // the 100 mm window showing 100 m is 3 m, lines 4.5 m apart; the symbol keeps its size.
  z.sup.riferimentoMm = 150;
  z.Ridipingi();
  EXPECT_EQ(z.sup.Solo("Testo"), (std::vector<std::string>{"Testo 1 0 101", "Testo 1 -4.5 12.35", "Testo 1 -9 SPIGOLO"}));
  EXPECT_EQ(z.sup.Solo("Carattere Arial").front(), "Carattere Arial " + FormaSemplice(static_cast<float>(3.0 / 0.3528)));
}

TEST(Ridisegno, EtichetteTroppoFitteSiDiradano) {
  Scena z;
  // 40 x 40 points half a metre apart, labels of 2 m: they would cover the view 16 times.
  for (int i = 0; i < 1600; ++i) z.Punto("P", 980 + (i % 40) * 0.5, 1990 + (i / 40) * 0.5, 1, 2);
  z.Disegna();
  EXPECT_GT(z.Conta("Testo"), 0u);
  EXPECT_LT(z.Conta("Testo"), 300u);
  // Spread over the view the same number of labels is not thinned at all.
  Scena w;
  for (int i = 0; i < 40; ++i) w.Punto("P", 925 + (i % 8) * 20, 1960 + (i / 8) * 20, 1, 2);
  w.Disegna();
  EXPECT_EQ(w.Conta("Testo"), 80u);  // name and height; no description
}

// Deleted and frozen rows are not painted; the image on top is painted last; every redraw
// adds the view to the record.
TEST(Ridisegno, RigheCancellateECongelateNonDipinteImmagineInCimaPerUltima) {
  Scena z;
  z.s.Imp.MostraQuota = z.s.Imp.MostraDescrizione = 0;
  z.Punto("VIVO", 1000, 2000, 1, 2);
  z.s.PuntoIdent[static_cast<size_t>(z.Punto("SETTE", 1010, 2000, 1, 2))] = 7;
  z.s.PuntoIdent[static_cast<size_t>(z.Punto("UNO", 1020, 2000, 1, 2))] = 1;
  for (int k = 0; k < 4; ++k) z.Bitmap(990 + k, 10, 10, 1);
  z.s.BitmapCongela[2] = -1;
  z.s.BitmapIdent[3] = 3;
  z.s.ImmagineInCima = 0;
  const size_t prima = z.s.Vista.Storia.size();
  z.Disegna();
  EXPECT_EQ(z.sup.Solo("Testo"), (std::vector<std::string>{"Testo 1 3 VIVO"}));
  const auto immagini = z.sup.Solo("Immagine");
  ASSERT_EQ(immagini.size(), 2u);
  EXPECT_EQ(immagini[0].substr(0, 18), "Immagine foto1.png");
  EXPECT_EQ(immagini[1].substr(0, 18), "Immagine foto0.png");
  EXPECT_EQ(z.s.Vista.Storia.size(), prima + 1);
}

std::vector<Tratto> Espandi(double x1, double y1, double x2, double y2, std::vector<double> elementi,
                            double angolo = 0) {
  std::vector<Tratto> out;
  EspandiLinea(x1, y1, x2, y2, {elementi, angolo}, out);
  return out;
}

std::vector<ElementoSimbolo> Simbolo(int codice, double s, bool carta = false) {
  std::vector<ElementoSimbolo> e;
  ScomponiSimbolo(codice, s, carta, e);
  return e;
}

TEST(EspandiLinea, TrattiEVuotiInMetri) {
  auto t = Espandi(0, 0, 0, 13, {3, -3});  // due North, 13 m: the third stroke stops at the end
  ASSERT_EQ(t.size(), 3u);
  EXPECT_EQ(t[2].Y2, 13);
  EXPECT_NEAR(t[2].Y1, 12, 1e-12);

  // Dots are strokes of no length: at 0, 25, 50.
  t = Espandi(0, 0, 60, 0, {0, -25});
  ASSERT_EQ(t.size(), 3u);
  EXPECT_EQ(t[1].X1, 25);
  EXPECT_EQ(t[1].X2, 25);
  EXPECT_EQ(t[2].X1, 50);

  // Aslant by 100 gon on a line due East: each stroke stands due South, the walk goes East.
  t = Espandi(0, 0, 10, 0, {1, -4}, 100);
  ASSERT_EQ(t.size(), 2u);
  EXPECT_NEAR(t[0].X2, 0, 1e-12);
  EXPECT_NEAR(t[0].Y2, -1, 1e-12);
  EXPECT_NEAR(t[1].X1, 5, 1e-12);
  EXPECT_NEAR(t[1].Y2, -1, 1e-12);
}

TEST(EspandiLinea, CortaSoloVuotiPienaETroppiPezzi) {
  auto t = Espandi(5, 5, 6, 5, {12.5, -25, 25, -25});  // shorter than its first stroke
  ASSERT_EQ(t.size(), 1u);
  EXPECT_EQ(t[0].X1, 5);
  EXPECT_EQ(t[0].X2, 6);  // exactly the line's end
  EXPECT_TRUE(Espandi(0, 0, 100, 0, {-2, -3}).empty());
  EXPECT_EQ(Espandi(0, 0, 3, 4, {}).size(), 1u);
  EXPECT_EQ(Espandi(0, 0, 0, 0, {}).size(), 1u);
  EXPECT_EQ(Espandi(0, 0, 1e6, 0, {0.001, -0.001}).size(), 1u);
  EXPECT_EQ(Espandi(0, 0, 1, 0, {0, 0}).size(), 1u);  // a pattern of no length
}

TEST(PercorsoMotivo, OgniFinestraDaIPezziDellIntera) {
  std::mt19937 caso(5);
  std::uniform_real_distribution<double> u(-1, 1);
  for (int prova = 0; prova < 300; ++prova) {
    std::vector<double> e;
    const int n = 1 + prova % 6;
    for (int k = 0; k < n; ++k) e.push_back(k % 3 == 2 ? 0.0 : std::round(u(caso) * 8) / 2);
    const double angolo = prova % 4 == 0 ? 50 : 0;
    const double x1 = 1725000 + u(caso) * 100, y1 = 5030000 + u(caso) * 100;
    const double x2 = x1 + u(caso) * 300, y2 = y1 + u(caso) * 300;
    const StileLinea stile{e, angolo};
    std::vector<Tratto> tutti;
    EspandiLinea(x1, y1, x2, y2, stile, tutti);
    const PercorsoMotivo m(x1, y1, x2, y2, stile);
    // Any window: exactly the pieces of the whole line whose start lies in it, to the bit.
    const double da = (u(caso) + 1) * m.Lunghezza() / 2, a = da + (u(caso) + 1) * 40;
    std::vector<Tratto> finestra;
    m.Pezzi(da, a, [&](const Tratto& t) { finestra.push_back(t); });
    // A plain line (a pattern of no length) is its one piece in any window that meets it.
    std::vector<Tratto> attesi;
    for (const Tratto& t : tutti) {
      const double d = std::hypot(t.X1 - x1, t.Y1 - y1);
      if ((d >= da - 1e-6 && d <= a + 1e-6) || m.Come() == PercorsoMotivo::Modo::Piena) attesi.push_back(t);
    }
    ASSERT_EQ(finestra.size(), attesi.size()) << prova;
    for (size_t k = 0; k < attesi.size(); ++k) {
      EXPECT_EQ(finestra[k].X1, attesi[k].X1) << prova;
      EXPECT_EQ(finestra[k].Y2, attesi[k].Y2) << prova;
    }
    // The box from the first and last repeats alone is the box of every piece.
    double bx0 = 0, by0 = 0, bx1 = 0, by1 = 0;
    ASSERT_EQ(m.Riquadro(bx0, by0, bx1, by1), !tutti.empty()) << prova;
    if (tutti.empty()) continue;
    double xmin = 1e300, ymin = 1e300, xmax = -1e300, ymax = -1e300;
    for (const Tratto& t : tutti) {
      xmin = std::min({xmin, t.X1, t.X2}), xmax = std::max({xmax, t.X1, t.X2});
      ymin = std::min({ymin, t.Y1, t.Y2}), ymax = std::max({ymax, t.Y1, t.Y2});
    }
    EXPECT_EQ(bx0, xmin) << prova;
    EXPECT_EQ(by0, ymin) << prova;
    EXPECT_EQ(bx1, xmax) << prova;
    EXPECT_EQ(by1, ymax) << prova;
  }
}

TEST(EspandiArco, CordeEAltezze) {
  std::vector<TrattoArco> out;
  const double pi = 4 * std::atan(1.0);
  // A quarter turn: the chords run over the arc's parameter from 0 to 1.
  EspandiArco(0, 0, 10, 0, pi / 2, {}, out);
  EXPECT_EQ(std::make_pair(out.front().T1, out.back().T2), std::make_pair(0.0, 1.0));
  out.clear();
  // A pattern on a circle of radius 1: strokes of 1 m become one radian of chords each.
  const std::vector<double> e = {1, -1};
  EspandiArco(0, 0, 1, 0, 2 * pi, {e, 0}, out);
  EXPECT_NEAR(out.front().X1, 0, 1e-12);
  double giro = 0;
  for (const auto& c : out) giro += std::hypot(c.X2 - c.X1, c.Y2 - c.Y1);
  // Strokes on 0-1, 2-3, 4-5 radians and the last from 6 to the end of the turn.
  EXPECT_NEAR(giro, 3.0 + (2 * pi - 6.0), 0.001);
}

TEST(ScomponiSimbolo, DecorazioniEBasi) {
  auto e = Simbolo(66, 4);  // box, then a plus of half size 2
  ASSERT_EQ(e.size(), 3u);
  EXPECT_EQ(e[0].Tipo, ElementoSimbolo::Riquadro);
  EXPECT_EQ(e[1].A, -2);
  EXPECT_EQ(e[1].C, 2);
  e = Simbolo(35, 4);  // circle, diagonal cross
  ASSERT_EQ(e.size(), 3u);
  EXPECT_EQ(e[0].Tipo, ElementoSimbolo::Cerchio);
  EXPECT_EQ(e[1].A, -2);
  EXPECT_EQ(e[1].B, -2);
  e = Simbolo(32, 4);  // circle and a dot
  ASSERT_EQ(e.size(), 2u);
  EXPECT_EQ(e[1].Tipo, ElementoSimbolo::Punto);
  e = Simbolo(32, 4, true);  // on paper the dot is a cross of half size s/100
  ASSERT_EQ(e.size(), 3u);
  EXPECT_DOUBLE_EQ(e[1].C, 0.04);
  e = Simbolo(42, 10);  // triangle and a dot
  ASSERT_EQ(e.size(), 4u);
  EXPECT_DOUBLE_EQ(e[0].B, 4);  // first vertex due North at 0.4 s
  EXPECT_EQ(Simbolo(5, 2).size(), 8u);
  EXPECT_EQ(Simbolo(93, 2).size(), 2u);  // 93 - 96 < 0: box and circle only
  EXPECT_TRUE(Simbolo(1, 2).empty());
}

TEST(Ridisegno, PuntoPlanimetricoSenzaQuota) {
  Scena z;
  z.s.PuntoDescrizione[static_cast<size_t>(z.Punto("101", 1000, 2000, 1, 2))] = "<P!>SPIGOLO";
  z.Disegna();  // the description on the line the height would have had
  EXPECT_EQ(z.sup.Solo("Testo"), (std::vector<std::string>{"Testo 1 3 101", "Testo 1 0 <P!>SPIGOLO"}));
}

}  // namespace
}  // namespace varena
