// The map extract: a realistic sheet read into the lines and texts of kind 14, the frame
// row, the job's load through the folder of extracts, and broken input.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

#include "cadastre/Estratto.h"
#include "commands/Attese.h"
#include "commands/Comandi.h"
#include "core/Dialoghi.h"
#include "exchange/DxfScrittura.h"
#include "store/Cfg.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

// The sheet: a grid of 20 x 10 vertices 20 m apart, three of them fiducial points, and 60
// parcels on the cells of its first 12 columns and 5 rows, each walked clockwise, so that
// two neighbours meet their common side in opposite directions.
struct Foglio {
  static std::string Nome(int i, int j) {
    if (i == 0 && j == 0) return "PF01";
    if (i == 19 && j == 0) return "PF02";
    if (i == 0 && j == 9) return "PF03";
    char b[16];
    std::snprintf(b, sizeof b, "V%03d", j * 20 + i + 1);
    return b;
  }
  static double X(int i) { return 1000.0 + 20.0 * i; }
  static double Y(int j) { return 5000.0 + 20.0 * j; }

  std::string Testo(bool finaleConCrLf) const {
    std::string t = "0|ESTRATTO DI MAPPA|G693|12|\r\n6|ESTRATTO DI MAPPA|\r\n";
    for (int j = 0; j < 10; ++j)
      for (int i = 0; i < 20; ++i) {
        // Some names carry the sheet's "%", which rows 7 leave out.
        const std::string segno = (j * 20 + i) % 10 == 9 ? "%" : "";
        t += "8|" + Nome(i, j) + segno + "|" + std::to_string(Y(j)) + "|" + std::to_string(X(i)) + "|0|\r\n";
      }
    int k = 0;
    for (int j = 0; j < 5; ++j)
      for (int i = 0; i < 12; ++i, ++k) {
        const std::string a = Nome(i, j), b = Nome(i, j + 1), c = Nome(i + 1, j + 1), d = Nome(i + 1, j);
        if (k % 4 == 3)
          t += "7|5|" + a + "|" + b + "|" + c + "|\r\n7|0|" + c + "|" + d + "|" + a + "|NC|\r\n";
        else
          t += "7|5|" + a + "|" + b + "|" + c + "|" + d + "|" + a + "|NC|\r\n";
      }
    t += "7|2|" + Nome(14, 7) + "|" + Nome(15, 7) + "|NT|\r\n";
    t += "7|3|" + Nome(14, 8) + "|" + Nome(15, 8) + "|" + Nome(16, 8) + "|NP|\r\n";
    t += "7|2|" + Nome(14, 9) + "|" + Nome(15, 9) + "|+|\r\n";
    t += "7|2|" + Nome(16, 9) + "|" + Nome(17, 9) + "|-|\r\n";
    t += "7|2|" + Nome(17, 7) + "|" + Nome(16, 7) + "|NC|\r\n";
    t += "7|2|" + Nome(16, 7) + "|" + Nome(17, 7) + "|NC|\r\n";
    t += "6|DISTANZA|" + Nome(0, 7) + "|" + Nome(5, 7) + "|100.00|\r\n";
    for (int p = 0; p < 60; ++p) {
      const int i = p % 12, j = p / 12;
      t += "6|" + std::to_string(p + 1) + "|T|" + std::to_string(Y(j) + 10) + "|" + std::to_string(X(i) + 10) + "|\r\n";
    }
    t += "6|FOGLIO 12|%|5190|1100|\r\n6|A|L|" + Nome(18, 8) + "|\r\n6|X|S|5170|1300|6|50|\r\n";
    t += "6|INQUADRAMENTO|5300.5|990.25|0.25|";
    if (finaleConCrLf) t += "\r\n";
    return t;
  }
};

constexpr int32_t kPenna = 5, kFondo = 7;

ElementoEstratto Lato(int stile, int i1, int j1, int i2, int j2) {
  // The smaller name first.
  if (Foglio::Nome(i2, j2) < Foglio::Nome(i1, j1)) std::swap(i1, i2), std::swap(j1, j2);
  ElementoEstratto e;
  e.X1 = Foglio::X(i1), e.Y1 = Foglio::Y(j1), e.X2 = Foglio::X(i2), e.Y2 = Foglio::Y(j2);
  e.Penna = kPenna;
  // Pens, styles and widths of the style codes, as the sheet's legend gives them.
  if (stile == 0) e.Tratto = 1;
  if (stile == 3 || stile == 4) e.Spessore = 2.0f;
  if (stile == 5) e.Tratto = 2;
  return e;
}

ElementoEstratto Scritta(const std::string& testo, double x, double y, float h, const std::string& font, float rot = 0) {
  ElementoEstratto e;
  e.Primitiva = 5;
  e.Penna = kPenna;
  e.Testo = testo, e.Font = font, e.Altezza = h, e.Rotazione = rot;
  e.X1 = x, e.Y1 = y;
  const double l = 0.6 * h * static_cast<double>(testo.size()), a = rot * 3.14159265358979323846 / 200.0;
  e.X2 = x + l * std::cos(a), e.Y2 = y + l * std::sin(a);
  return e;
}

// What the sheet must give, built from its geometry: the parcels' sides once each in the
// order first walked, then the other chains, the measured distance, the fiducial points and
// the texts.
std::vector<ElementoEstratto> Attesi() {
  std::vector<ElementoEstratto> v;
  std::set<std::pair<std::string, std::string>> visti;
  for (int j = 0; j < 5; ++j)
    for (int i = 0; i < 12; ++i) {
      const int giro[5][2] = {{i, j}, {i, j + 1}, {i + 1, j + 1}, {i + 1, j}, {i, j}};
      for (int k = 0; k < 4; ++k) {
        std::string a = Foglio::Nome(giro[k][0], giro[k][1]), b = Foglio::Nome(giro[k + 1][0], giro[k + 1][1]);
        if (b < a) std::swap(a, b);
        if (visti.insert({a, b}).second) v.push_back(Lato(1, giro[k][0], giro[k][1], giro[k + 1][0], giro[k + 1][1]));
      }
    }
  v.push_back(Lato(0, 14, 7, 15, 7));
  v.push_back(Lato(5, 14, 8, 15, 8));
  v.push_back(Lato(5, 15, 8, 16, 8));
  v.push_back(Lato(3, 14, 9, 15, 9));
  v.push_back(Lato(4, 16, 9, 17, 9));
  v.push_back(Lato(1, 16, 7, 17, 7));
  v.push_back(Lato(0, 0, 7, 5, 7));
  v.push_back(Scritta("100.00", 1050, 5140, 2, "Arial"));
  for (auto [i, j] : {std::pair{0, 0}, {19, 0}, {0, 9}}) {
    ElementoEstratto o;
    o.Primitiva = 0, o.Penna = kPenna, o.Altezza = 1;
    o.X1 = o.X2 = Foglio::X(i), o.Y1 = o.Y2 = Foglio::Y(j);
    v.push_back(o);
    v.push_back(Scritta(Foglio::Nome(i, j), Foglio::X(i) + 1.5, Foglio::Y(j) + 1.5, 2, "Arial"));
  }
  for (int p = 0; p < 60; ++p)
    v.push_back(Scritta(std::to_string(p + 1), Foglio::X(p % 12) + 10, Foglio::Y(p / 12) + 10, 3, "Arial"));
  v.push_back(Scritta("FOGLIO 12", 1100, 5190, 4, "Courier New"));
  v.push_back(Scritta("A", Foglio::X(18), Foglio::Y(8), 2, "Arial"));
  v.push_back(Scritta("X", 1300, 5170, 6, "Courier New", 50));
  return v;
}

TEST(Estratto, FoglioRealisticoRigaPerRiga) {
  const Foglio f;
  const LetturaEstratto l = LeggiEstratto(f.Testo(false), kPenna, kFondo);
  const std::vector<ElementoEstratto> attesi = Attesi();
  // 12 x 5 cells: 12 x 6 sides across and 13 x 5 along, then 6 sides of the other chains.
  EXPECT_EQ(l.Lati.size(), 12u * 6 + 13 * 5 + 6);
  ASSERT_EQ(l.Elementi.size(), attesi.size());
  for (size_t k = 0; k < attesi.size(); ++k) EXPECT_EQ(l.Elementi[k], attesi[k]) << "riga " << k;
  EXPECT_TRUE(l.NomiMancanti.empty());
  // The sides of the other chains as the list keeps them: code, smaller name, larger name.
  const std::vector<std::string> coda(l.Lati.end() - 6, l.Lati.end());
  EXPECT_EQ(coda, (std::vector<std::string>{"0|V155|V156|", "5|V175|V176|", "5|V176|V177|", "3|V195|V196|",
                                             "4|V197|V198|", "1|V157|V158|"}));

  // The origin and scale come from the last row, or from the one before a final line end.
  for (bool crlf : {false, true}) {
    const Inquadramento q = LeggiInquadramento(f.Testo(crlf));
    EXPECT_TRUE(q.Trovato);
    EXPECT_EQ(std::vector<double>({q.X, q.Y, q.Scala}), (std::vector<double>{990.25, 5300.5, 0.25})) << crlf;
  }
  EXPECT_FALSE(LeggiInquadramento(f.Testo(true) + "6|NOTA|\r\n").Trovato);
}

TEST(Estratto, PennaComeLoSfondo) {
  // On a white background a white extract would vanish: its plain sides take pen 250, the
  // others keep the pen they were given.
  const LetturaEstratto l = LeggiEstratto("8|A|0|0|\r\n8|B|0|10|\r\n7|2|A|B|NC|\r\n7|2|A|B|NT|\r\n", 7, 7);
  ASSERT_EQ(l.Elementi.size(), 2u);
  EXPECT_EQ(l.Elementi[0].Penna, 250);
  EXPECT_EQ(l.Elementi[1].Penna, 7);
}

// A PNG of the given size, header and closing chunk only: enough for its size to be read.
std::string Png(uint32_t w, uint32_t h, bool intero = true) {
  auto be = [](uint32_t v) { return std::string{char(v >> 24), char(v >> 16 & 0xFF), char(v >> 8 & 0xFF), char(v & 0xFF)}; };
  std::string p = "\x89PNG\r\n\x1a\n" + be(13) + "IHDR" + be(w) + be(h) + std::string("\x08\x02\0\0\0", 5) + be(0);
  if (intero) p += be(0) + "IEND" + std::string("\xAE\x42\x60\x82", 4);
  return p;
}

// The boxes shown, "[title] text".
std::vector<std::string> MessaggiDi(const InterfacciaRegistrata& ui) {
  std::vector<std::string> m;
  for (const auto& x : ui.Messaggi) m.push_back("[" + x.Titolo + "] " + x.Testo);
  return m;
}

struct LavoroConEstratto : prova::SessioneProva {
  // A job whose settings name the extract F12, with the given freezes.
  explicit LavoroConEstratto(const std::string& emp, const std::string& png, const std::string& parametri =
                                 "7|||||||||||||||||F12|0|||0|5") {
    // The folder the settings give when they name none: a load reads them again.
    s.Imp.Cartella_Estratti = s.CartellaLavoro + "PREGEO/ESTRATTI";
    std::filesystem::create_directories(s.Imp.Cartella_Estratti);
    if (!emp.empty()) prova::ScriviFileProva(s.Imp.Cartella_Estratti + "/F12.EMP", emp);
    if (!png.empty()) prova::ScriviFileProva(s.Imp.Cartella_Estratti + "/F12.PNG", png);
    s.NomeLavoro = Lavoro("LAV");
    prova::ScriviFileProva(s.NomeLavoro + ".CFG",
                           prova::CfgManuale("VR2020", "1000,5000,100",
                                             "1,1,1,1,1,1,\"x\"\r\n1\r\n1\r\n\"0\"\r\n1\r\n\"" + parametri + "\"\r\n\"\"\r\n"));
  }
  std::vector<std::string> Messaggi() const { return MessaggiDi(ui); }
  // Loaded as the program opens a job, then drawn.
  void Apri() {
    CaricaLavoro(s);
    RigeneraLista(s);
  }
  // The records of kind 14 in the list.
  int64_t Record14() const { return prova::InLista(s, 14); }
};

TEST(Estratto, CaricatoConIlLavoroEConLaCornice) {
  const Foglio f;
  LavoroConEstratto p(f.Testo(true), Png(400, 280));
  p.Apri();
  EXPECT_EQ(p.Messaggi(), std::vector<std::string>{});
  EXPECT_EQ(std::tie(p.s.EstrattoCongelato, p.s.EstrattoImmagineCongelata, p.s.FileImmagineEstratto),
            std::make_tuple(0, 0, "F12.PNG"));
  const size_t n = Attesi().size();
  ASSERT_EQ(p.s.ElementiEstratto.size(), n + 4);
  EXPECT_EQ(p.Record14(), static_cast<int64_t>(n + 4));
  // The frame: 400 x 280 pixels of 0.25 m from the top-left corner (990.25, 5300.5).
  std::vector<std::vector<double>> cornice;
  for (size_t k = n; k < n + 4; ++k) {
    const ElementoEstratto& e = p.s.ElementiEstratto[k];
    EXPECT_EQ(std::make_tuple(e.Penna, e.Tratto, e.Spessore), std::make_tuple(3, 2, 2.0f));
    cornice.push_back({e.X1, e.Y1, e.X2, e.Y2});
  }
  EXPECT_EQ(cornice, (std::vector<std::vector<double>>{{990.25, 5300.5, 1090.25, 5300.5},
                                                       {1090.25, 5300.5, 1090.25, 5230.5},
                                                       {1090.25, 5230.5, 990.25, 5230.5},
                                                       {990.25, 5230.5, 990.25, 5300.5}}));
  // Written with the drawing to DXF on its layer: the 144 lines of the sheet and the 4 of the
  // frame, the 67 texts (the rings have no entity there).
  const std::string dxf = TestoDxfOut(p.s, OpzioniDxfOut{});
  auto conta = [&dxf](const std::string& cosa) {
    size_t n = 0;
    for (size_t k = dxf.find(cosa); k != std::string::npos; k = dxf.find(cosa, k + 1)) ++n;
    return n;
  };
  EXPECT_EQ(conta("LINE\r\n 8\r\nESTRATTO\r\n"), 148u);
  EXPECT_EQ(conta("TEXT\r\n 8\r\nESTRATTO\r\n"), 67u);
}

TEST(Estratto, CongelatoDaiSettaggiDelLavoro) {
  // A job saved with its extract frozen keeps it frozen: nothing of kind 14, and the raster
  // frozen too.
  LavoroConEstratto p(Foglio().Testo(true), Png(400, 280), "7|||||||||||||||||F12|1|F12.PNG||1|5");
  p.Apri();
  EXPECT_EQ(std::make_pair(p.s.EstrattoCongelato, p.s.EstrattoImmagineCongelata), (std::pair<int16_t, int16_t>(1, 1)));
  EXPECT_EQ(p.Record14(), 0);
}

TEST(Estratto, IngressiGuasti) {
  const std::string base = "8|A|5000|1000|\r\n8|B|5000|1010|\r\n8|C|5010|1010|\r\n";
  {
    // Sides through names no row 8 defines: said once each, the end keeping the coordinates
    // of the same end of the side before (C-Q, then A-Z and B-Q end at C).
    LavoroConEstratto p(base + "7|4|A|B|C|Q|NC|\r\n7|2|Z|A|NC|\r\n7|2|Q|B|NC|\r\n6|INQUADRAMENTO|5000|1000|1|\r\n", "");
    CaricaLavoro(p.s);
    // Read again, as an undo does: said once only.
    CaricaEstratto(p.s);
    EXPECT_EQ(p.Messaggi(), std::vector<std::string>{"[Estratto di Mappa] Vertici dell'estratto non definiti (2): Q, Z"});
    std::vector<std::array<double, 4>> lati;
    for (const ElementoEstratto& e : p.s.ElementiEstratto) lati.push_back({e.X1, e.Y1, e.X2, e.Y2});
    EXPECT_EQ(lati, (std::vector<std::array<double, 4>>{{1000, 5000, 1010, 5000}, {1010, 5000, 1010, 5010},
                                                        {1010, 5010, 1010, 5010}, {1000, 5000, 1010, 5010},
                                                        {1010, 5000, 1010, 5010}}));
  }
  {
    // A zero scale: the raster is not drawn, the lines are.
    LavoroConEstratto p(base + "7|2|A|B|NC|\r\n6|INQUADRAMENTO|5000|1000|0|\r\n", Png(10, 10));
    CaricaLavoro(p.s);
    EXPECT_EQ(p.Messaggi(), std::vector<std::string>{
                                "[Estratto di Mappa] Inquadramento dell'estratto senza scala: l'immagine non viene disegnata"});
    EXPECT_EQ(std::make_tuple(p.s.EstrattoImmagineCongelata, p.s.ElementiEstratto.size()), std::make_tuple(1, 1u));
  }
  for (const std::string& png : {Png(10, 10, false), std::string("GIF? not a picture at all"), Png(10, 10).substr(0, 20)}) {
    // A raster cut short, or no picture at all.
    LavoroConEstratto p(base + "7|2|A|B|NC|\r\n6|INQUADRAMENTO|5000|1000|1|\r\n", png);
    CaricaLavoro(p.s);
    EXPECT_EQ(p.Messaggi(), std::vector<std::string>{"[Estratto di Mappa] Immagine dell'estratto non leggibile: F12.PNG"});
    EXPECT_EQ(std::make_tuple(p.s.EstrattoImmagineCongelata, p.s.ElementiEstratto.size()), std::make_tuple(1, 1u));
  }
  {
    // No folder of extracts at all: frozen, without a word.
    LavoroConEstratto p("", "");
    p.s.Imp.Cartella_Estratti = p.cartella / "nessuna";
    CaricaLavoro(p.s);
    EXPECT_EQ(p.Messaggi(), std::vector<std::string>{});
    EXPECT_EQ(std::make_pair(p.s.EstrattoCongelato, p.s.EstrattoImmagineCongelata), (std::pair<int16_t, int16_t>(1, 1)));
    EXPECT_TRUE(p.s.ElementiEstratto.empty());
  }
}

TEST(Estratto, OperazioniDelMenu) {
  {
    // No extract: the freezes and the colour say so as the dispatcher's table has it, the
    // other entries with a word of their own; nothing changes.
    prova::SessioneProva p;
    for (const char* tag : {"CONGELA_ESTRATTO", "SCONGELA_ESTRATTO", "COLORE_ESTRATTO", "CONFIGURA_ESTRATTO",
                            "ESPLODI_ESTRATTO"})
      EseguiTag(p.s, tag);
    const std::string no = "[Estratto Non Associato] Impossibile continuare";
    EXPECT_EQ(MessaggiDi(p.ui), (std::vector<std::string>{no, no, no, no, "[Estratto di Mappa] Estratto non Associato"}));
    EXPECT_EQ(p.s.ContaEntita[SlotLinee], 0);
    // Associated from elsewhere: the text and its raster come into the folder of extracts
    // and beside the job as its members, and the extract is drawn at once.
    p.s.Imp.Cartella_Estratti = p.cartella / "PREGEO/ESTRATTI";
    p.s.NomeLavoro = p.Lavoro("NUOVO");
    prova::ScriviFileProva(p.cartella / "f9.emp", "8|A|0|0|\r\n8|B|0|10|\r\n7|2|A|B|NC|\r\n6|INQUADRAMENTO|0|0|1|");
    prova::ScriviFileProva(p.cartella / "f9.PNG", Png(10, 10));
    p.ui.RispondiFile(p.cartella / "f9.emp");
    EseguiTag(p.s, "ASSOCIA_ESTRATTO");
    EXPECT_EQ(std::make_pair(p.s.FileEstratto, p.s.FileImmagineEstratto), (std::pair<std::string, std::string>("F9.EMP", "F9.PNG")));
    EXPECT_TRUE(prova::Esiste(p.cartella / "PREGEO/ESTRATTI/f9.emp") && prova::Esiste(p.cartella / "PREGEO/ESTRATTI/f9.PNG"));
    EXPECT_EQ(prova::LeggiFileProva(p.s.NomeLavoro + ".EMP"), prova::LeggiFileProva(p.cartella / "f9.emp"));
    EXPECT_EQ(prova::LeggiFileProva(p.s.NomeLavoro + ".PNG"), Png(10, 10));
    EXPECT_EQ(std::make_pair(p.s.EstrattoCongelato, p.s.EstrattoImmagineCongelata), (std::pair<int16_t, int16_t>(0, 0)));
    EXPECT_EQ(p.s.ElementiEstratto.size(), 5u);  // the side and the raster's frame
  }
  LavoroConEstratto p(Foglio().Testo(true), Png(400, 280));
  p.Apri();
  EseguiTag(p.s, "CONGELA_ESTRATTO");
  EXPECT_EQ(p.Record14(), 0);
  // Kept with the job: the name, the freeze, the raster's name and freeze, the pen, the
  // origin and the scale, after the fields that belong to others.
  const std::string cfg = TestoCfg(p.s);
  EXPECT_NE(cfg.find("\"7|||||||||||||||||F12|1|F12.PNG||1|5|990.25|5300.5|0.25|0|0|0\""), std::string::npos) << cfg;
  EseguiTag(p.s, "SCONGELA_ESTRATTO");
  EXPECT_EQ(p.Record14(), static_cast<int64_t>(Attesi().size() + 4));
  p.ui.RispondiValore("2");
  EseguiTag(p.s, "COLORE_ESTRATTO");
  EXPECT_EQ(std::tie(p.s.ColoreEstratto, p.s.ElementiEstratto[0].Penna), std::make_tuple(2, 2));
  // Exploded: the sides and the measured distance become lines, the rings circles, the
  // texts texts; the extract itself is no longer drawn, the raster's frame stays.
  EseguiTag(p.s, "ESPLODI_ESTRATTO");
  EXPECT_EQ(std::tie(p.s.ContaEntita[SlotLinee], p.s.ContaEntita[SlotCerchi], p.s.ContaEntita[SlotTesti]),
            std::make_tuple(144, 3, 67));
  EXPECT_EQ(std::make_tuple(p.s.LineaColore[0], p.s.EstrattoCongelato, p.Record14()), std::make_tuple(2, 1, 4));
  EXPECT_EQ(p.Messaggi(), std::vector<std::string>{});
}

TEST(Estratto, SpostaInquadramento) {
  LavoroConEstratto p("8|A|5000|1000|\r\n8|B|5000|1010|\r\n7|2|A|B|NC|\r\n6|INQUADRAMENTO|5010|990|0.5|\r\n", Png(40, 20));
  CaricaLavoro(p.s);
  EXPECT_EQ(p.Messaggi(), std::vector<std::string>{});
  EXPECT_EQ(p.s.ElementiEstratto.size(), 5u);
  p.s.Vista.CentroEst = 1000, p.s.Vista.CentroNord = 5000;
  // The steps come from Setup Inquadramento.
  EseguiTag(p.s, "SETUP_INQUADRAMENTO");
  ScriviCampo(p.s, "SetupInquadramento", "Angolo", "0,5");
  ScriviCampo(p.s, "SetupInquadramento", "Spostamento", "0.25");
  PremiBottone(p.s, "SetupInquadramento", "OK");
  EseguiTag(p.s, "ESTRATTO_INQUADRAMENTO");
  ASSERT_TRUE(DialogoAperto(p.s, "SpostaInquadramento"));
  EXPECT_EQ(std::make_tuple(p.s.Prompt, TrovaDialogo(p.s, "SpostaInquadramento")->Valore("Text1"),
                            TrovaDialogo(p.s, "SpostaInquadramento")->Valore("Text2")),
            std::make_tuple("Inquadramento - Sposta il Disegno", "0.25", "0.5"));
  ScriviCampo(p.s, "SpostaInquadramento", "Text1", "2,5");
  PremiBottone(p.s, "SpostaInquadramento", "NordEst");
  using Q = std::vector<double>;
  auto lato = [&p] {
    const ElementoEstratto& e = p.s.ElementiEstratto.at(0);
    return Q{e.X1, e.Y1, e.X2, e.Y2};
  };
  EXPECT_EQ(lato(), (Q{1002.5, 5002.5, 1012.5, 5002.5}));
  // The raster's frame follows its corner.
  EXPECT_EQ(std::make_pair(p.s.ElementiEstratto.at(1).X1, p.s.ElementiEstratto.at(1).Y1), std::make_pair(992.5, 5012.5));
  EXPECT_NE(TestoCfg(p.s).find("|F12|0|F12.PNG||0|5|990|5010|0.5|2.5|2.5|0\""), std::string::npos);
  // A quarter turn clockwise about the view's centre: East becomes South.
  ScriviCampo(p.s, "SpostaInquadramento", "Text2", "100");
  PremiBottone(p.s, "SpostaInquadramento", "RuotaOraria");
  const Q atteso{1002.5, 4997.5, 1002.5, 4987.5};
  for (size_t k = 0; k < 4; ++k) EXPECT_NEAR(lato()[k], atteso[k], 1e-9) << k;
  // Kept with the job: read again, the extract stands where it was moved.
  PremiBottone(p.s, "SpostaInquadramento", "Chiudi");
  EXPECT_FALSE(DialogoAperto(p.s, "SpostaInquadramento"));
  CaricaLavoro(p.s);
  for (size_t k = 0; k < 4; ++k) EXPECT_NEAR(lato()[k], atteso[k], 1e-9) << k;
}

}  // namespace
}  // namespace varena
