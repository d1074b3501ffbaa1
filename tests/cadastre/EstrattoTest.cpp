// The map extract: a realistic sheet read into the lines and texts of kind 14, the frame
// row, the job's load through the folder of extracts, and broken input.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <sstream>

#include "cadastre/Estratto.h"
#include "commands/Attese.h"
#include "commands/Comandi.h"
#include "core/Dialoghi.h"
#include "core/Testo.h"
#include "exchange/DxfScrittura.h"
#include "store/Cfg.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

constexpr int32_t kPenna = 5, kFondo = 7;

// The realistic sheet written by tests/data/estratto/genera.py: 60 parcels on a grid, other
// chains, a measured distance, fiducial points, labels, the frame row. Its last row ends with
// a line end, or not.
std::string Dati(const std::string& nome) { return prova::LeggiFileProva(VARENA_SORGENTI "/tests/data/estratto/" + nome); }
std::string Foglio(bool finaleConCrLf = true) {
  const std::string t = Dati("F12.EMP");
  return finaleConCrLf ? t : t.substr(0, t.size() - 2);
}

// What the sheet must give, from the same script: one element a line.
std::vector<ElementoEstratto> Attesi() {
  std::vector<ElementoEstratto> v;
  std::istringstream in(Dati("atteso.txt"));
  for (std::string riga; std::getline(in, riga);) {
    const std::vector<std::string> c = Dividi(riga, '\t');
    ElementoEstratto e;
    e.Primitiva = static_cast<uint8_t>(std::stoi(c.at(0)));
    e.X1 = std::stod(c.at(1)), e.Y1 = std::stod(c.at(2)), e.X2 = std::stod(c.at(3)), e.Y2 = std::stod(c.at(4));
    e.Penna = std::stoi(c.at(5)), e.Tratto = static_cast<int16_t>(std::stoi(c.at(6)));
    e.Spessore = std::stof(c.at(7)), e.Altezza = std::stof(c.at(8)), e.Rotazione = std::stof(c.at(9));
    e.Testo = c.at(10), e.Font = c.at(11);
    v.push_back(e);
  }
  return v;
}

TEST(Estratto, FoglioRealisticoRigaPerRiga) {
  const LetturaEstratto l = LeggiEstratto(Foglio(false), kPenna, kFondo);
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
    const Inquadramento q = LeggiInquadramento(Foglio(crlf));
    EXPECT_TRUE(q.Trovato);
    EXPECT_EQ(std::vector<double>({q.X, q.Y, q.Scala}), (std::vector<double>{990.25, 5300.5, 0.25})) << crlf;
  }
  EXPECT_FALSE(LeggiInquadramento(Foglio() + "6|NOTA|\r\n").Trovato);
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
  LavoroConEstratto p(Foglio(), Png(400, 280));
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
  LavoroConEstratto p(Foglio(), Png(400, 280), "7|||||||||||||||||F12|1|F12.PNG||1|5");
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
  // A zero scale, a raster cut short, or no picture at all: the raster is not drawn, the lines are.
  const std::string senzaScala = "Inquadramento dell'estratto senza scala: l'immagine non viene disegnata",
                    illeggibile = "Immagine dell'estratto non leggibile: F12.PNG";
  for (const auto& [scala, png, messaggio] : {std::tuple{"0", Png(10, 10), senzaScala}, {"1", Png(10, 10, false), illeggibile},
                                              {"1", std::string("GIF? not a picture at all"), illeggibile},
                                              {"1", Png(10, 10).substr(0, 20), illeggibile}}) {
    LavoroConEstratto p(base + "7|2|A|B|NC|\r\n6|INQUADRAMENTO|5000|1000|" + scala + "|\r\n", png);
    CaricaLavoro(p.s);
    EXPECT_EQ(p.Messaggi(), std::vector<std::string>{"[Estratto di Mappa] " + messaggio});
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
  LavoroConEstratto p(Foglio(), Png(400, 280));
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
