// A longitudinal profile of 50 stations and a cross section of 12, drawn: the values of the
// rows against values worked out by hand, the frame around everything.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "commands/Attese.h"
#include "sections/DisegnoSezioni.h"
#include "sections/FileSezioni.h"
#include "support/Supporto.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

struct Disegno {
  prova::SessioneProva p;
  Sessione& s = p.s;

  // The texts of one layer, in the order drawn, without the row's title.
  std::vector<std::string> Testi(const std::string& piano, const std::string& titolo = "") const {
    std::vector<std::string> t;
    for (size_t i : Record(piano, PrimTesto))
      if (s.ListaDisegno.Testo(static_cast<int64_t>(i)) != titolo) t.push_back(s.ListaDisegno.Testo(static_cast<int64_t>(i)));
    return t;
  }
  std::vector<size_t> Record(const std::string& piano, uint8_t primitiva) const {
    std::vector<size_t> r;
    const ElencoDisegno& l = s.ListaDisegno;
    for (int64_t i = 0; i < l.Conta(); ++i)
      if (l.Primitiva[static_cast<size_t>(i)] == primitiva && l.Piano(i) == piano) r.push_back(static_cast<size_t>(i));
    return r;
  }
  // Every point of every record of a section inside its stored frame; for a text, the line
  // of its foot and the line of its top, a height above.
  void CorniceRacchiude(int32_t riga) const {
    const auto r = static_cast<size_t>(riga);
    const double x0 = s.SezioneBoxX1[r], y0 = s.SezioneBoxY1[r], x1 = s.SezioneBoxX2[r], y1 = s.SezioneBoxY2[r];
    ASSERT_LT(x0, x1);
    ASSERT_LT(y0, y1);
    const ElencoDisegno& l = s.ListaDisegno;
    int quanti = 0;
    for (int64_t i = 0; i < l.Conta(); ++i) {
      const auto k = static_cast<size_t>(i);
      if (l.Tipo[k] != SlotSezioni || l.Riga[k] != riga) continue;
      ++quanti;
      std::vector<std::pair<double, double>> punti = {{l.X1[k], l.Y1[k]}, {l.X2[k], l.Y2[k]}};
      if (l.Primitiva[k] == PrimTesto) {
        const double a = l.Rotazione[k] * M_PI / 200, h = l.Altezza[k];
        punti.push_back({l.X1[k] - h * std::sin(a), l.Y1[k] + h * std::cos(a)});
        punti.push_back({l.X2[k] - h * std::sin(a), l.Y2[k] + h * std::cos(a)});
      }
      for (auto [x, y] : punti)
        EXPECT_TRUE(x >= x0 - 1e-9 && x <= x1 + 1e-9 && y >= y0 - 1e-9 && y <= y1 + 1e-9)
            << "record " << i << " " << l.Piano(i) << " " << l.Testo(i) << " at " << x << ", " << y;
    }
    EXPECT_GT(quanti, 20);
  }
};

TEST(DisegnoSezioni, ProfiloLongitudinaleDiCinquantaPunti) {
  Disegno d;
  Sezione z;
  z.Cfg = ConfigurazioneIniziale();
  z.Cfg.NomeBase = "LONG";
  z.Cfg.QuotaRiferimento = 90;
  z.Cfg.QuoteProgetto.Disegna = 1;
  z.Cfg.ProfiloProgetto = 1;
  z.IndiceSezione = "ASSE";
  z.OrigineX = 5000, z.OrigineY = 7000;
  // Steps of (6, 8): ten metres each; terrain rising by a quarter of a metre a station, the
  // project a metre under it.
  for (int i = 0; i < 50; ++i)
    z.Stazioni.push_back({"P" + std::to_string(i + 1), 100.0 + 6 * i, 200.0 + 8 * i, 400 + i / 4.0, 399 + i / 4.0});
  const int32_t riga = AggiungiSezione(d.s, z);
  RigeneraLista(d.s);

  // The rows of numbers are read in the cross section below, on values of every shape.
  std::vector<std::string> nomi;
  for (const StazioneSezione& p : z.Stazioni) nomi.push_back(p.Nome);
  EXPECT_EQ(d.Testi("LONG_NomiPunti", "Picchetti"), nomi);
  EXPECT_EQ(d.Testi("LONG_QuotaPro", "Quote Progetto").at(5), "400.25");

  // Heights ten times longer than distances (1:200 against 1:20), from the datum at 90.
  const auto terr = d.Record("LONG_ProfRili", PrimLinea);
  ASSERT_EQ(terr.size(), 49u);
  const ElencoDisegno& l = d.s.ListaDisegno;
  EXPECT_TRUE(prova::Vicini({l.X1[terr[0]], l.Y1[terr[0]], l.X2[terr[48]], l.Y2[terr[48]]}, {5000, 7000 + 3100, 5490, 7000 + 3222.5}));
  EXPECT_EQ(std::make_tuple(d.Record("LONG_ProfProg", PrimLinea).size(), d.Record("LONG_Vertical", PrimLinea).size(),
                            d.Record("LONG_CORNICE", PrimLinea).size()), std::make_tuple(49u, 50u, 4u));
  d.CorniceRacchiude(riga);
  EXPECT_TRUE(d.p.ui.Messaggi.empty());
}

TEST(DisegnoSezioni, SezioneTrasversaleDiDodiciPunti) {
  Disegno d;
  Sezione z;
  z.Cfg = ConfigurazioneIniziale();
  z.Cfg.NomeBase = "TRAS";
  z.Cfg.ScalaLunghezze = z.Cfg.ScalaAltezze = 200;
  z.Cfg.QuotaRiferimento = 100;
  z.Cfg.Terreno.AltezzaTesto = 0.4;
  z.Cfg.DistanzeInclinate.Disegna = 1;
  z.Cfg.ProfiloProgetto = z.Cfg.TestoSterroRiporto = z.Cfg.DistanzaPrecedente.Disegna = 1;
  z.OrigineX = 0, z.OrigineY = 0;
  // Steps along Pythagorean triples, so that every distance is exact; one of length 0.
  const double passi[11][2] = {{3, 4}, {0, 2.5}, {5, 12}, {6, 8}, {8, 15}, {0, 0}, {1.5, 2}, {9, 12}, {0.3, 0.4}, {7, 24}, {12, 16}};
  const double terreno[12] = {101.2, 100.5, 99.25, 98.5, 98.5, 99, 99, 100, 100.75, 101, 101.5, 102};
  const double progetto[12] = {101.7, 100.5, 99.25, 99, 99, 99, 99, 100, 100.4, 101, 101.5, 102};
  double x = 10, y = 20;
  for (int i = 0; i < 12; ++i) {
    z.Stazioni.push_back({"S" + std::to_string(i), x, y, terreno[i], progetto[i]});
    if (i < 11) x += passi[i][0], y += passi[i][1];
  }
  const int32_t riga = AggiungiSezione(d.s, z);
  // The next section 30 East and 40 North of it: 50 metres on.
  for (auto& p : z.Stazioni) p.X += 30, p.Y += 40;
  z.Cfg.NomeBase = "DOPO";
  AggiungiSezione(d.s, z);
  RigeneraLista(d.s);
  // Grades of the project over each stretch with a length: rise over run, by hand. Then the
  // zones: fill under the project on the stretch 0-1 (1.25), then, after a stretch where
  // the two agree, on 2-3, 3-4, 4-5 (3.25 + 5 + 4.25); cut over it on 7-8 and 8-9
  // (2.625 + 0.0875).
  EXPECT_EQ(d.Testi("TRAS_ProfProg"), (std::vector<std::string>{"i= -24.0%", "i= -50.0%", "i= -1.92%", "i= 0.0%",
                                                                "i= 0.0%", "i= 40.0%", "i= 2.67%", "i= 120.0%",
                                                                "i= 2.0%", "i= 2.50%", "R= 1.25", "R= 12.50",
                                                                "S= 2.71"}));
  const auto titolo = d.Testi("TRAS_QuotaRif");
  for (const char* atteso : {"Area Sterro= 2.71", "Area Riporto= 13.75", "Area Totale= 16.46"})
    EXPECT_NE(std::find(titolo.begin(), titolo.end(), atteso), titolo.end()) << atteso;
  EXPECT_EQ(std::count_if(titolo.begin(), titolo.end(), [](const std::string& x) { return x.starts_with("Distanza"); }), 0);
  const auto dopo = d.Testi("DOPO_QuotaRif");
  EXPECT_NE(std::find(dopo.begin(), dopo.end(), "Distanza Da Precedente= 50.0"), dopo.end());
  EXPECT_EQ(d.Testi("TRAS_DistParz", "Distanze Parziali"),
            (std::vector<std::string>{"0", "5.00", "2.50", "13.00", "10.00", "17.00", "0.00", "2.50", "15.00", "0.50",
                                      "25.00", "20.00"}));
  EXPECT_EQ(d.Testi("TRAS_DistProgr", "Distanze Progressive"),
            (std::vector<std::string>{"0.00", "5.0", "7.50", "20.50", "30.50", "47.50", "47.50", "50.0", "65.0", "65.50",
                                      "90.50", "110.50"}));
  EXPECT_EQ(d.Testi("TRAS_QuotaTer", "Quote Terreno"),
            (std::vector<std::string>{"101.20", "100.50", "99.250", "98.50", "98.50", "99.0", "99.0", "100.0", "100.750",
                                      "101.0", "101.50", "102.0"}));
  EXPECT_EQ(d.Testi("TRAS_ProfRili"), (std::vector<std::string>{"0.50", "0.0", "0.0", "0.50", "0.50", "0.0", "0.0", "0.0",
                                                               "-0.350", "0.0", "0.0", "0.0"}));
  // Slope distances of the eleven steps: sqrt(d^2 + dz^2), worked out by hand to a decimal.
  EXPECT_EQ(d.Testi("TRAS_DistIncl", "Distanze Inclinate"),
            (std::vector<std::string>{"5.0", "2.8", "13.0", "10.0", "17.0", "0.0", "2.7", "15.0", "0.6", "25.0", "20.0"}));

  const ElencoDisegno& l = d.s.ListaDisegno;
  const auto rosse = d.Record("TRAS_ProfRili", PrimTesto);
  ASSERT_EQ(rosse.size(), 12u);
  // Stations 5 and 6 stand at one place, at progressive 47.5: the first label moves right by
  // 1.3 heights. Heights below the datum (98.5 under 100) fall below the datum line.
  // The red height of station 3 (project 99 over terrain 98.5) upright under the datum; the
  // vertical of station 8 up to its terrain, over a lower project.
  const auto verticali = d.Record("TRAS_Vertical", PrimLinea);
  ASSERT_EQ(verticali.size(), 12u);
  EXPECT_TRUE(prova::Vicini({l.X1[rosse[5]], l.X1[rosse[6]], l.Y1[rosse[3]], l.Rotazione[rosse[3]], l.Y1[verticali[8]]},
                            {47.5 - 0.4 + 0.52, 47.5 - 0.4, -1.0 + 0.12, 100, 0.75}));
  d.CorniceRacchiude(riga);
}

TEST(DisegnoSezioni, SenzaDuePuntiNullaECongelataNulla) {
  Disegno d;
  Sezione z;
  z.Cfg = ConfigurazioneIniziale();
  AggiungiSezione(d.s, z);
  z.Stazioni.push_back({"A", 0, 0, 1, 1});
  AggiungiSezione(d.s, z);
  z.Stazioni.push_back({"B", 5, 0, 1, 1});
  z.Cfg.Congela = -1;
  AggiungiSezione(d.s, z);
  RigeneraLista(d.s);
  EXPECT_EQ(prova::InLista(d.s, SlotSezioni), 0);
  // A row switched off leaves no row: the next one moves up into its place.
  Disegno e;
  z.Cfg.Congela = 0;
  z.Cfg.NomiPunti.Disegna = 0;
  AggiungiSezione(e.s, z);
  RigeneraLista(e.s);
  EXPECT_TRUE(e.Record("SEZ_NomiPunti", PrimLinea).empty());
  const auto righe = e.Record("SEZ_QuotaTer", PrimLinea);
  ASSERT_FALSE(righe.empty());
  EXPECT_DOUBLE_EQ(e.s.ListaDisegno.Y1[righe[0]], 0);  // ticks from the datum line down

  // The description block round the row titles, 10 wide, down the rows of terrain heights,
  // progressives and partials: 2.4 + 2.4 + 1.6.
  Disegno g;
  z.Cfg.BloccoDescrizioni = 1, z.Cfg.LarghezzaBox = 10;
  AggiungiSezione(g.s, z);
  RigeneraLista(g.s);
  const auto box = g.Record("SEZ_Box", PrimLinea);
  ASSERT_EQ(box.size(), 4u);
  const ElencoDisegno& b = g.s.ListaDisegno;
  EXPECT_EQ(std::make_tuple(b.X1[box[0]], b.Y1[box[0]], b.X1[box[2]]), std::make_tuple(-10, 0, 0));
  EXPECT_DOUBLE_EQ(b.Y1[box[2]], -6.4);

  // Values each a number that together overflow: what would stand at infinity is left out.
  Disegno f;
  z.Cfg.ScalaLunghezze = 1e300, z.Cfg.ScalaAltezze = 1;
  z.Stazioni[1].QuotaTerreno = 1e300;
  AggiungiSezione(f.s, z);
  RigeneraLista(f.s);
  const ElencoDisegno& l = f.s.ListaDisegno;
  ASSERT_GT(l.Conta(), 0);
  for (int64_t i = 0; i < l.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    for (double v : {l.X1[k], l.Y1[k], l.X2[k], l.Y2[k]}) EXPECT_TRUE(std::isfinite(v)) << i << " " << l.Piano(i);
  }
}

}  // namespace
}  // namespace varena
