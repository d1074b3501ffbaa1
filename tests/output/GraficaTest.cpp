// The preview control without its widget: content, zoom, nearest point, and its three
// exports written by hand for two points, a line and a parcel name.
#include <gtest/gtest.h>

#include <locale>

#include "core/File.h"
#include "core/Testo.h"
#include "output/Grafica.h"
#include "support/Supporto.h"

namespace varena {
namespace {

struct Virgola : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

// A station A at (0, 0), a trig point B at (10, 0), the line A-B, the parcel "12" at (5, 5).
Grafica Esempio() {
  Grafica g;
  g.VR_AggiungiPuntoGraf(0, 0, "A", "NC", 1);
  g.VR_AggiungiPuntoGraf(10, 0, "B", "rt", 2);
  EXPECT_TRUE(g.VR_AggiungiLineaGraf("A", "B"));
  g.VR_AggiungiNomeParticella(5, 5, "12");
  return g;
}

TEST(Grafica, ContenutoZoomEVicino) {
  Grafica g = Esempio();
  EXPECT_EQ(g.Punti()[1].Tipo, "RT");
  g.VR_AggiungiPuntoGraf(1, 1, "C", "XX", 0);  // an unknown kind is a plain point
  EXPECT_EQ(g.Punti()[2].Tipo, "NP");
  EXPECT_FALSE(g.VR_AggiungiLineaGraf("A", "Z"));
  EXPECT_EQ(g.Errori, std::vector<std::string>{"Punto non trovato: Z"});
  EXPECT_EQ(g.Linee().size(), 1u);
  // The content is 10 x 5: a square control shows 11 around (5, 2.5).
  g.VR_ZoomTutto();
  EXPECT_EQ(g.CentroEst, 5);
  EXPECT_EQ(g.CentroNord, 2.5);
  EXPECT_DOUBLE_EQ(g.Altezza, 11);
  g.VR_ZoomPiu();
  EXPECT_DOUBLE_EQ(g.Altezza, 5.5);
  g.VR_ZoomRight();
  EXPECT_DOUBLE_EQ(g.CentroEst, 5 + 5.5 / 4);
  EXPECT_EQ(g.VR_IlPiuVicinoAlMouse(9, 1), 1u);
  EXPECT_EQ(g.DistanzaDuePuntiNuova(0, 1), 10);
  EXPECT_EQ(g.PuntoMedio(0, 1).Est, 5);
  EXPECT_EQ(Grafica::FontDidascalia("L", "T"), "Arial Narrow");
  EXPECT_EQ(Grafica::FontDidascalia("P", "T"), "Courier New");
  g.VR_Clear();
  EXPECT_TRUE(g.Punti().empty() && g.Linee().empty() && g.Nomi().empty());
  EXPECT_FALSE(g.VR_IlPiuVicinoAlMouse(0, 0));
}

TEST(Grafica, RigheDiUnElenco) {
  Grafica g;
  EXPECT_EQ(g.AggiungiGrafica({"%|S1|10|20|", "*|PF01|0,5|1|", "#|7|3|4|", "8|*T2|200|100|", "PV|9|1|2|", "@|245|5|5|",
                               "L|S1|7|", "L|S1|MANCA|", "#|X|abc|1|", "1|S1|1.5|", ""}),
            7);
  ASSERT_EQ(g.Punti().size(), 5u);
  EXPECT_EQ(g.Punti()[0].Tipo, "NC");
  EXPECT_EQ(g.Punti()[1].Tipo, "NT");
  EXPECT_EQ(g.Punti()[1].Est, 0.5);  // a comma read as a point
  EXPECT_EQ(g.Punti()[2].Tipo, "NP");
  // The field book's coordinate row gives North first.
  EXPECT_EQ(g.Punti()[3].Nome, "*T2");
  EXPECT_EQ(g.Punti()[3].Tipo, "NT");
  EXPECT_EQ(g.Punti()[3].Est, 100);
  EXPECT_EQ(g.Punti()[3].Nord, 200);
  EXPECT_EQ(g.Punti()[4].Tipo, "PV");
  ASSERT_EQ(g.Nomi().size(), 1u);
  ASSERT_EQ(g.Linee().size(), 1u);
  EXPECT_EQ(g.Linee()[0].X2, 3);
  EXPECT_EQ(g.Errori, (std::vector<std::string>{"AggiungiGrafica: riga 8 L|S1|MANCA|", "AggiungiGrafica: riga 9 #|X|abc|1|"}));
}

TEST(Grafica, OpzioniDellUtente) {
  prova::SessioneProva p;
  Grafica g = Esempio();
  g.VR_AggiungiPuntoGraf(3, 3, "PF01/0010/G693", "NT", 1);
  g.MostraNomi = false, g.MostraPF = false;
  g.ScriviOpzioni(p.s);
  Grafica h = Esempio();
  h.VR_AggiungiPuntoGraf(3, 3, "PF01/0010/G693", "NT", 1);
  h.LeggiOpzioni(p.s);
  EXPECT_FALSE(h.MostraNomi);
  EXPECT_TRUE(h.MostraToponimi);
  EXPECT_FALSE(h.MostraPF);
  h.CentroEst = 5, h.CentroNord = 2.5, h.Altezza = 10;
  // No point's name and no fiducial point; the parcel name stays.
  EXPECT_EQ(h.TestoStampa(),
            "SCALA,10\r\nT,12,0.000,2.500,Courier New,\r\nC,-5.000,-2.500,0.05,.01\r\nC,5.000,-2.500,0.05,.01\r\n"
            "L,-5.000,-2.500,5.000,-2.500,0.1\r\n");
  EXPECT_EQ(h.TestoDXF().find("PF01"), std::string::npos);
  EXPECT_EQ(h.TestoHTML().find("'A'"), std::string::npos);
}

TEST(Grafica, TagDelMouse) {
  prova::SessioneProva p;
  p.s.Ui = &p.ui;
  Grafica g = Esempio();
  g.TagMouse = "PUNTOMEDIO";
  g.ClicMouse(p.s, 1, 1);
  g.ClicMouse(p.s, 9, 1);  // nearest to A, then to B: their mid-point (5, 0)
  ASSERT_EQ(g.Punti().size(), 3u);
  EXPECT_EQ(g.Punti()[2].Est, 5);
  EXPECT_EQ(g.Punti()[2].Nord, 0);
  g.TagMouse = "CONTORNOROSSO";
  g.ClicMouse(p.s, 1234.5, 0.25);
  g.ClicMouse(p.s, -2, 3);
  ASSERT_EQ(g.Linee().size(), 2u);
  EXPECT_EQ(g.Linee()[1].X1, 1234.5);
  EXPECT_EQ(g.Linee()[1].X2, -2);
  EXPECT_EQ(prova::LeggiFileProva(p.s.CartellaLavoro + "TEMP/CONTORNO.TXT"),
            "al punto  X= 1234.500  Y= .250  Z=   0\r\nal punto  X= -2.000  Y= 3.000  Z=   0\r\n");
  g.TagMouse = "NUOVOPUNTO";
  g.ClicMouse(p.s, 7, 8);
  EXPECT_EQ(g.Punti().back().Nome, "4");
}

TEST(Grafica, DxfStampaEPaginaHtml) {
  const std::string testa = " 0\r\nSECTION\r\n 2\r\nENTITIES\r\n", coda = " 0\r\nENDSEC\r\n 0\r\nEOF\r\n";
  EXPECT_EQ(Grafica().TestoDXF(), testa + coda);
  const Grafica g = Esempio();
  EXPECT_EQ(g.TestoDXF(),
            testa +
                " 0\r\nPOINT\r\n 8\r\nRC\r\n 10\r\n0.000\r\n 20\r\n0.000\r\n"
                " 0\r\nPOINT\r\n 8\r\nRT\r\n 10\r\n10.000\r\n 20\r\n0.000\r\n"
                " 0\r\nTEXT\r\n 8\r\nPunti\r\n 10\r\n0.000\r\n 20\r\n0.000\r\n 40\r\n1.000\r\n  1\r\nA\r\n"
                " 0\r\nTEXT\r\n 8\r\nPunti\r\n 10\r\n10.000\r\n 20\r\n0.000\r\n 40\r\n1.000\r\n  1\r\nB\r\n"
                " 0\r\nTEXT\r\n 8\r\nNomi\r\n 10\r\n5.000\r\n 20\r\n5.000\r\n 40\r\n1.000\r\n  1\r\n12\r\n"
                " 0\r\nLINE\r\n 8\r\nLinee\r\n 10\r\n0.000\r\n 20\r\n0.000\r\n 11\r\n10.000\r\n 21\r\n0.000\r\n" +
                coda);

  Grafica v = Esempio();
  v.CentroEst = 5, v.CentroNord = 2.5, v.Altezza = 10;
  EXPECT_EQ(v.TestoStampa(),
            "SCALA,10\r\nT,A,-5.000,-2.500,Courier New,\r\nT,B,5.000,-2.500,Courier New,\r\n"
            "T,12,0.000,2.500,Courier New,\r\nC,-5.000,-2.500,0.05,.01\r\nC,5.000,-2.500,0.05,.01\r\n"
            "L,-5.000,-2.500,5.000,-2.500,0.1\r\n");

  // The 10 x 5 content on 900 of the 1000 units, 50 from the border: 90 units a metre,
  // North up, so A is at (50, 500), B at (950, 500), the parcel at (500, 50). Under a
  // comma locale too.
  const std::locale prima = std::locale::global(std::locale(std::locale::classic(), new Virgola));
  const std::string html = g.TestoHTML();
  std::locale::global(prima);
  EXPECT_TRUE(IniziaCon(html,
            "<!DOCTYPE HTML>\r\n<html>\r\n  <body>\r\n  <canvas id=\"myCanvas\" width=\"1000\" height=\"1000\""
            "style=\"border:2px solid #c3c3c3;\"></canvas>\r\n    <script>\r\n"));
  for (const char* riga :
       {"      context.moveTo(50.000, 500.000);\r\n      context.lineTo(950.000, 500.000);\r\n",
        "context.arc(950.000, 500.000, 2, 0, 2 * Math.PI);\r\n", "context.fillText('12', 500.000, 50.000);\r\n",
        "context.fillText('A', 50.000, 500.000);\r\n"})
    EXPECT_NE(html.find(riga), std::string::npos) << riga;
  EXPECT_TRUE(FinisceCon(html, "     context.stroke();\r\n   </script>\r\n </body>\r\n</html>\r\n"));
  const std::string vuota = Grafica().TestoHTML();
  EXPECT_EQ(vuota.find("moveTo"), std::string::npos);
  EXPECT_EQ(vuota.find("arc("), std::string::npos);
  EXPECT_TRUE(FinisceCon(vuota, "</html>\r\n"));
}

TEST(Grafica, SalvaDxfConIMessaggi) {
  prova::SessioneProva p;
  p.s.Ui = &p.ui;
  ASSERT_TRUE(Esempio().VR_SalvaDXF(p.s));
  const std::string percorso = p.s.CartellaLavoro + "TEMP/GraficaDXF.DXF";
  EXPECT_EQ(prova::LeggiFileProva(percorso), Esempio().TestoDXF());
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_EQ(p.ui.Messaggi[0].Testo, "Salvato il file " + percorso);
  EXPECT_EQ(p.ui.Messaggi[0].Titolo, "Salva in DXF");
  ASSERT_EQ(p.ui.Domande.size(), 1u);
  EXPECT_EQ(p.ui.Domande[0].Testo, "Aprire il file DXF ?");
  EXPECT_EQ(p.ui.Domande[0].Titolo, "Apertura file DXF ");
  ASSERT_TRUE(Esempio().GeneraHTML5_CANVAS(p.s));
  EXPECT_EQ(prova::LeggiFileProva(p.s.CartellaProgramma + "/Stampe.HTML"), Esempio().TestoHTML());
}

}  // namespace
}  // namespace varena
