// The plot stream, record by record, written by hand from the drawing of the scene; the
// page loop with its question; the thickness table rewritten by its dialog. The preview
// control without its widget: content, zoom, nearest point, and its three exports written
// by hand for two points, a line and a parcel name.
#include <gtest/gtest.h>

#include <locale>

#include "commands/Comandi.h"
#include "core/AltreImpostazioni.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "core/Testo.h"
#include "exchange/Incolla.h"
#include "output/DialogoSpessori.h"
#include "output/FlussoStampa.h"
#include "output/Grafica.h"
#include "output/LetturaFlusso.h"
#include "support/ProvaComandi.h"
#include "support/Supporto.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

// A locale whose decimal mark is a comma, as an Italian desktop has.
struct Virgola : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

// Colour 1 plots 0.3 mm, colour 2 is hidden (thickness 0), colour 3 plots 0.5 mm.
struct FlussoStampa : ::testing::Test {
  prova::SessioneProva p;
  Sessione& s = p.s;
  FlussoStampa() {
    s.Ui = &p.ui;
    for (int i = 1; i < 10; ++i) s.Colori.Colore[static_cast<size_t>(i)] = 0x000001 * static_cast<ColoreRGB>(i);
    s.Colori.Colore[7] = 0xFFFFFF;
    s.Spessori.Spessore[1] = 3, s.Spessori.Spessore[2] = 0, s.Spessori.Spessore[3] = 5;
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};  // 3 m strokes, 3 m gaps
  }
  void Linea(double x1, double y1, double x2, double y2, int colore, int stile = 1, int congela = 0) {
    const auto r = static_cast<size_t>(prova::MettiLinea(s, x1, y1, x2, y2));
    s.LineaColore[r] = colore, s.LineaTratteggio[r] = static_cast<int16_t>(stile);
    s.LineaCongela[r] = static_cast<int16_t>(congela);
  }
  // Labels 2 m high.
  size_t Punto(const char* nome, double x, double y, int simbolo, double dimensione) {
    const auto r = static_cast<size_t>(prova::MettiPunto(s, nome, x, y, 12.345));
    s.PuntoSimbolo[r] = static_cast<int16_t>(simbolo);
    s.PuntoDimensioneSimbolo[r] = dimensione;
    s.PuntoDimensioneNome[r] = s.PuntoDimensioneQuota[r] = s.PuntoDimensioneDescrizione[r] = 2;
    return r;
  }
};

TEST_F(FlussoStampa, RecordPerRecord) {
  s.BitmapNomeFile[static_cast<size_t>(prova::MettiImmagine(s, 990, 2010, 100, 50, 0.1))] = "foto.png";
  prova::MettiCerchio(s, 990, 2010, 5.5);
  Linea(1000, 2000, 1100.5, 2000.25, 1);
  Linea(1000, 2010, 1050, 2010, 2);        // hidden colour
  Linea(1000, 2020, 1050, 2020, 1, 1, 1);  // frozen
  Linea(1000, 1960, 1010, 1960, 3, 2);     // dashed: two strokes
  prova::MettiTesto(s, 1010, 2020, "a,b");
  s.TestoAltezza[0] = 2, s.TestoRotazione[0] = 100, s.TestoColore[0] = 3, s.TestoFont[0] = "Arial";
  s.Imp.CollegaPuntoSimbolo = 1;
  size_t r = Punto("P1", 1020, 1990, 0, 1);
  s.PuntoCongelaSimbolo[r] = 1;
  s.PuntoDescrizione[r] = "d";
  r = Punto("P2", 1030, 2000, 0, 1);
  s.PuntoCongelaSimbolo[r] = 1, s.PuntoCongelaQuota[r] = 1;
  s.PuntoSpoX[r] = 2, s.PuntoSpoY[r] = 3;
  // A circle of a quarter and a cross of half the size 4, in colour 3; its name hidden.
  r = Punto("P3", 980, 2000, 34, 4);
  s.PuntoColoreSimbolo[r] = 3, s.PuntoColoreNome[r] = 2;
  s.PuntoCongelaQuota[r] = s.PuntoCongelaDescrizione[r] = 1;
  RigeneraLista(s);

  const std::string atteso =
      "SCALA,100\r\n"
      "IM,-10.000,10.000,10.000,5.000,foto.png\r\n"
      // The picture's frame, in a colour of the default thickness 1.
      "L,-10.000,10.000,0.000,10.000,0.1\r\n"
      "L,0.000,10.000,0.000,5.000,0.1\r\n"
      "L,0.000,5.000,-10.000,5.000,0.1\r\n"
      "L,-10.000,5.000,-10.000,10.000,0.1\r\n"
      "C,-10.000,10.000,5.50,0.3\r\n"
      "L,0.000,0.000,100.500,0.250,0.3\r\n"
      "L,0.000,-40.000,3.000,-40.000,0.5\r\n"
      "L,6.000,-40.000,9.000,-40.000,0.5\r\n"
      "TT,a.b,10.000,20.000,-90.000,Arial,2.000,3\r\n"
      "PN,P1,20.500,-7.000,Arial,2.000,1\r\n"
      "PQ,12.,20.500,-10.000,Arial,2.000,1\r\n"
      "PD,d,20.500,-13.000,Arial,2.000,1\r\n"
      "CN,30.000,0.000,32.000,3.000,0.3\r\n"
      "PN,P2,32.500,6.000,Arial,2.000,1\r\n"
      "C,-20.000,0.000,1.00,0.5\r\n"
      "L,-22.000,0.000,-18.000,0.000,0.5\r\n"
      "L,-20.000,-2.000,-20.000,2.000,0.5\r\n";
  const FinestraStampa f{900, 1950, 1100, 2050};
  EXPECT_EQ(FlussoPagina(s, f), atteso);

  // The same stream under a locale that writes decimal commas.
  const std::locale prima = std::locale::global(std::locale(std::locale::classic(), new Virgola));
  const std::string conVirgola = FlussoPagina(s, f);
  std::locale::global(prima);
  EXPECT_EQ(conVirgola, atteso);

  // Only while plotting is the page written, to the program folder.
  EXPECT_FALSE(GeneraPagina(s, f));
  EXPECT_FALSE(EsisteFile(PercorsoFlussoStampa(s)));
  s.ModoStampa = 5;
  ASSERT_TRUE(GeneraPagina(s, f));
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaProgramma + "/stampe.vr"), atteso);
}

TEST_F(FlussoStampa, PagineConDomanda) {
  Linea(1000, 2000, 1001, 2000, 1);
  RigeneraLista(s);
  std::vector<std::string> flussi;
  auto spooler = [&](const std::string& percorso) {
    flussi.push_back(prova::LeggiFileProva(percorso));
    return true;
  };
  // Every run ends the plotting mode, whatever was sent.
  auto stampa = [&] {
    s.ModoStampa = 5;
    const int pagine = StampaPaginata(s, {990, 1990, 1010, 2010}, spooler);
    EXPECT_EQ(s.ModoStampa, 0);
    return pagine;
  };
  // Without the pagination file: one page.
  EXPECT_EQ(stampa(), 1);
  EXPECT_TRUE(p.ui.Domande.empty());
  ASSERT_EQ(flussi.size(), 1u);
  EXPECT_EQ(flussi[0], "SCALA,20\r\nL,0.000,0.000,1.000,0.000,0.3\r\n");
  EXPECT_EQ(s.Vista.AltezzaVista, 100);  // the view of the drawing, not of the page

  // Two across and one down around the window's centre: pages 980..1000 and 1000..1020.
  // The first is sent, the second skipped.
  s.Paginato = {-1, "2", "1"};
  flussi.clear();
  p.ui.Rispondi(Risposta::Si);
  p.ui.Rispondi(Risposta::No);
  EXPECT_EQ(stampa(), 1);
  ASSERT_EQ(p.ui.Domande.size(), 2u);
  EXPECT_EQ(p.ui.Domande[0].Titolo + "|" + p.ui.Domande[0].Testo,
            "Pagina 1 / 2|N= 1990.0 E = 980.0\r\nN= 2010.0 E= 1000.0\r\nInviare Stampa?");
  EXPECT_EQ(std::tie(p.ui.Domande[0].Tipo, p.ui.Domande[1].Titolo), std::make_tuple(Icona::Domanda, "Pagina 2 / 2"));
  ASSERT_EQ(flussi.size(), 1u);
  // The line starts on the right edge of the first page.
  EXPECT_EQ(flussi[0], "SCALA,20\r\nL,10.000,0.000,11.000,0.000,0.3\r\n");

  // Cancel on the first page: nothing sent, no second question.
  p.ui.Domande.clear();
  flussi.clear();
  p.ui.Rispondi(Risposta::Annulla);
  EXPECT_EQ(stampa(), 0);
  EXPECT_EQ(p.ui.Domande.size(), 1u);
  EXPECT_TRUE(flussi.empty());
}

// The legacy hand-off: "plotter.exe" of the program folder run on the stream of the view.
struct ProcessiRegistrati : Processi {
  std::vector<std::string> Chiamate;
  std::optional<int> Esegui(const std::string& programma, const std::vector<std::string>& argomenti,
                            const std::string&) override {
    Chiamate.push_back(programma + " " + (argomenti.empty() ? "" : argomenti[0]));
    return 0;
  }
};

TEST_F(FlussoStampa, AnteprimaAlPlotter) {
  ProcessiRegistrati proc;
  s.Proc = &proc;
  Linea(1000, 2000, 1001, 2000, 1);
  RigeneraLista(s);
  s.Vista.CentroEst = 1000, s.Vista.CentroNord = 2000, s.Vista.AltezzaVista = 40, s.Vista.RapportoVista = 1.5;
  // Without the spooler the stream stays on disk, quietly.
  EseguiTag(s, "ANTEPRIMA_STAMPA");
  EXPECT_EQ(s.ModoStampa, 0);
  EXPECT_TRUE(proc.Chiamate.empty());
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaProgramma + "/stampe.vr"), "SCALA,40\r\nL,0.000,0.000,1.000,0.000,0.3\r\n");
  prova::ScriviFileProva(s.CartellaProgramma + "/plotter.exe", "");
  EseguiTag(s, "ANTEPRIMA_STAMPA");
  EXPECT_EQ(proc.Chiamate,
            std::vector<std::string>{s.CartellaProgramma + "/plotter.exe " + s.CartellaProgramma + "/stampe.vr"});
  EXPECT_EQ(s.ModoStampa, 0);
}

TEST_F(FlussoStampa, DialogoSpessoriEOpzioni) {
  s.Colori.NumeroColori = 9;
  ApriFormSelezSpessore(s);
  const Dialogo* d = TrovaDialogo(s, "FormSelezSpessore");
  ASSERT_TRUE(d);
  EXPECT_EQ(d->Campo("Formato")->Etichetta + "|" + d->Campo("Scala")->Etichetta + "|" + d->Valore("Spessore1"),
            " Formato carta |Scala = 1:|3");
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Spessore1", "4"));
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Spessore3", "0"));
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Spessore9", "99"));  // past the grid's last column
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Stampa_Nome_Lavoro", "0"));
  ASSERT_TRUE(PremiBottone(s, "FormSelezSpessore", "Conferma"));
  EXPECT_FALSE(DialogoAperto(s, "FormSelezSpessore"));
  EXPECT_EQ(s.Imp.Stampa_Nome_Lavoro, 0);
  // Colour 2 stays at 0 and the others at the table's 1.
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaLavoro + "SPESSORI1.ini"), "4\r\n0\r\n0\r\n1\r\n1\r\n1\r\n1\r\n1\r\n20\r\n");
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_F(FlussoStampa, LetturaRecordEGuasti) {
  const PaginaFlusso p = LeggiFlussoStampa(
      "SCALA,250\r\nL,1,2,3,4,0.3\r\nC,5,6,7,0.5,.01\r\nTT,a.b,1,2,-90,Arial,2,3\r\nPN,P1,10,20,Arial,2,1\r\n"
      "T,N1,3,4,Courier New\r\nIM,1,2,3,4,foto.png\r\nXX,1,2\r\nL,1e999,0,0,0,1\r\nL\r\n\r\nC,1,2");
  EXPECT_EQ(p.AltezzaVista, 250);
  ASSERT_EQ(p.Elementi.size(), 8u);
  const auto& e = p.Elementi;
  EXPECT_EQ(std::tie(e[0].Tipo, e[0].X2, e[0].Spessore, e[1].Tipo, e[1].X2), std::make_tuple(ElementoFlusso::Linea, 3, 0.3, ElementoFlusso::Cerchio, 7));
  EXPECT_EQ(std::tie(e[2].Testo, e[2].Angolo, e[2].Colore), std::make_tuple("a.b", -90, 3));
  // A point's label by its top left corner: the foot one height lower.
  EXPECT_EQ(std::tie(e[3].Y1, e[4].Font, e[5].Tipo, e[5].Testo), std::make_tuple(18, "Courier New", ElementoFlusso::Immagine, "foto.png"));
  // A record cut short reads its missing numbers as 0.
  EXPECT_EQ(std::tie(e[6].X1, e[7].Y1, e[7].X2), std::make_tuple(0, 2, 0));
}

// A station A at (0, 0), a trig point B at (10, 0), the line A-B, the parcel "12" at (5, 5).
Grafica Esempio() {
  Grafica g;
  g.VR_AggiungiPuntoGraf(0, 0, "A", "NC", 1);
  g.VR_AggiungiPuntoGraf(10, 0, "B", "rt", 2);
  EXPECT_TRUE(g.VR_AggiungiLineaGraf("A", "B"));
  g.VR_AggiungiNomeParticella(5, 5, "12");
  return g;
}

// The example in a preview, with a session to hand it to.
struct Anteprima : ::testing::Test {
  prova::SessioneProva p;
  Sessione& s = p.s;
  Grafica g = Esempio();
  Anteprima() { s.Ui = &p.ui; }
};

TEST_F(Anteprima, ContenutoZoomEVicino) {
  EXPECT_EQ(g.Punti()[1].Tipo, "RT");
  g.VR_AggiungiPuntoGraf(1, 1, "C", "XX", 0);  // an unknown kind is a plain point
  EXPECT_EQ(g.Punti()[2].Tipo, "NP");
  EXPECT_FALSE(g.VR_AggiungiLineaGraf("A", "Z"));
  EXPECT_EQ(g.Errori, std::vector<std::string>{"Punto non trovato: Z"});
  EXPECT_EQ(g.Linee().size(), 1u);
  // The content is 10 x 5: a square control shows 11 around (5, 2.5).
  g.VR_ZoomTutto();
  EXPECT_EQ(std::tie(g.CentroEst, g.CentroNord), std::make_tuple(5.0, 2.5));
  EXPECT_DOUBLE_EQ(g.Altezza, 11);
  g.VR_ZoomPiu();
  EXPECT_DOUBLE_EQ(g.Altezza, 5.5);
  // The nearest point and the mid-point are the mouse's: TagDelMouse clicks them.
  EXPECT_EQ(g.DistanzaDuePuntiNuova(0, 1), 10);
  EXPECT_EQ(Grafica::FontDidascalia("L", "T") + "|" + Grafica::FontDidascalia("P", "T"), "Arial Narrow|Courier New");
  g.VR_Clear();
  EXPECT_TRUE(g.Punti().empty() && g.Linee().empty() && g.Nomi().empty());
  EXPECT_FALSE(g.VR_IlPiuVicinoAlMouse(0, 0));
}

TEST_F(Anteprima, RigheDiUnElenco) {
  g.VR_Clear();
  EXPECT_EQ(g.AggiungiGrafica({"%|S1|10|20|", "*|PF01|0,5|1|", "#|7|3|4|", "8|*T2|200|100|", "PV|9|1|2|", "@|245|5|5|",
                               "L|S1|7|", "L|S1|MANCA|", "#|X|abc|1|", "1|S1|1.5|", ""}),
            7);
  ASSERT_EQ(g.Punti().size(), 5u);
  std::string tipi;
  for (const auto& q : g.Punti()) tipi += q.Tipo + " ";
  EXPECT_EQ(tipi, "NC NT NP NT PV ");
  EXPECT_EQ(g.Punti()[1].Est, 0.5);  // a comma read as a point
  // The field book's coordinate row gives North first.
  EXPECT_EQ(std::tie(g.Punti()[3].Nome, g.Punti()[3].Est, g.Punti()[3].Nord), std::make_tuple("*T2", 100.0, 200.0));
  ASSERT_EQ(g.Nomi().size(), 1u);
  ASSERT_EQ(g.Linee().size(), 1u);
  EXPECT_EQ(g.Linee()[0].X2, 3);
  EXPECT_EQ(g.Errori, (std::vector<std::string>{"AggiungiGrafica: riga 8 L|S1|MANCA|", "AggiungiGrafica: riga 9 #|X|abc|1|"}));
}

TEST_F(Anteprima, OpzioniDellUtente) {
  g.MostraNomi = false, g.MostraPF = false;
  g.ScriviOpzioni(s);
  Grafica h = Esempio();
  h.VR_AggiungiPuntoGraf(3, 3, "PF01/0010/G693", "NT", 1);
  h.LeggiOpzioni(s);
  EXPECT_EQ(std::tie(h.MostraNomi, h.MostraToponimi, h.MostraPF), std::make_tuple(false, true, false));
  h.CentroEst = 5, h.CentroNord = 2.5, h.Altezza = 10;
  // No point's name and no fiducial point; the parcel name stays.
  EXPECT_EQ(h.TestoStampa(),
            "SCALA,10\r\nT,12,0.000,2.500,Courier New,\r\nC,-5.000,-2.500,0.05,.01\r\nC,5.000,-2.500,0.05,.01\r\n"
            "L,-5.000,-2.500,5.000,-2.500,0.1\r\n");
  EXPECT_EQ(h.TestoDXF().find("PF01"), std::string::npos);
  EXPECT_EQ(h.TestoHTML().find("'A'"), std::string::npos);
}

TEST_F(Anteprima, TagDelMouse) {
  g.TagMouse = "PUNTOMEDIO";
  g.ClicMouse(s, 1, 1);
  g.ClicMouse(s, 9, 1);  // nearest to A, then to B: their mid-point (5, 0)
  ASSERT_EQ(g.Punti().size(), 3u);
  EXPECT_EQ(std::tie(g.Punti()[2].Est, g.Punti()[2].Nord), std::make_tuple(5.0, 0.0));
  g.TagMouse = "CONTORNOROSSO";
  g.ClicMouse(s, 1234.5, 0.25);
  g.ClicMouse(s, -2, 3);
  ASSERT_EQ(g.Linee().size(), 2u);
  EXPECT_EQ(std::tie(g.Linee()[1].X1, g.Linee()[1].X2), std::make_tuple(1234.5, -2.0));
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaLavoro + "TEMP/CONTORNO.TXT"),
            "al punto  X= 1234.500  Y= .250  Z=   0\r\nal punto  X= -2.000  Y= 3.000  Z=   0\r\n");
  g.TagMouse = "NUOVOPUNTO";
  g.ClicMouse(s, 7, 8);
  EXPECT_EQ(g.Punti().back().Nome, "4");
}

TEST_F(Anteprima, DxfStampaEPaginaHtml) {
  const std::string testa = " 0\r\nSECTION\r\n 2\r\nENTITIES\r\n", coda = " 0\r\nENDSEC\r\n 0\r\nEOF\r\n";
  EXPECT_EQ(Grafica().TestoDXF(), testa + coda);
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
  EXPECT_TRUE(vuota.find("moveTo") == std::string::npos && vuota.find("arc(") == std::string::npos &&
              FinisceCon(vuota, "</html>\r\n")) << vuota;
}

// The hand-over file: its bytes, the paste into the job reading them, and the preview's own
// loaders taking them, and a map extract, back.
TEST_F(Anteprima, FileDiPassaggioECaricatori) {
  s.ConfiguraPunti.Classi[ClasseStazioni] = {"Arial", 1.5, 3, 2, 0.5, 4, 1, 5, 1, 6};
  s.ConfiguraPunti.Classi[ClassePF] = {"Courier New", 2, 7, 1, 0.25, 8, 2, 9, 3, 10};
  s.Imp.Colore_Default = 5, s.Imp.Tratteggio_Default = 1, s.PianoCorrente = "RILIEVO";
  g.VR_AggiungiPuntoGraf(3, 4, "PF\"9", "NP", 0);
  g.MostraPF = false;  // not shown, not handed over
  ASSERT_TRUE(g.VR_CopiaInFile(s));
  const std::string atteso =
      "\"<PUNTO>\",\"A\",3,0,1.5,\"\",6,0,1,0,0,0,0,0,0,2,4,0,0.5,5,0,1,0,\"RILIEVO\",\"Arial\",0,0\r\n"
      "\"<PUNTO>\",\"B\",7,0,2,\"\",10,0,3,10,0,0,0,0,0,1,8,0,0.25,9,0,2,0,\"RILIEVO\",\"Courier New\",0,0\r\n"
      "\"<LINEA>\",0,0,0,10,0,0,5,1,0,\"RILIEVO\",0\r\n";
  EXPECT_EQ(prova::LeggiFileProva(PercorsoCopiaInFile(s)), atteso);
  g.MostraPF = true;
  ASSERT_TRUE(g.AggiungiPuntoAFile(s, g.Punti()[2]));
  const std::string pf = "\"<PUNTO>\",\"PF'9\",7,0,2,\"\",10,0,3,3,4,0,0,0,0,1,8,0,0.25,9,0,2,0,\"RILIEVO\",\"Courier New\",0,0\r\n";
  EXPECT_EQ(prova::LeggiFileProva(PercorsoCopiaInFile(s)), atteso + pf);

  // The paste from file takes a point with its name, place and font, a line with its type.
  const EsitoIncolla e = LeggiCopiaInFile(atteso + pf);
  ASSERT_EQ(e.Entita.size(), 4u);
  EXPECT_EQ(e.Entita[1].Nome + e.Entita[1].Attributi[18] + FormaSemplice(e.Entita[1].A.X), "BCourier New10");
  EXPECT_EQ(std::string(1, e.Entita[2].Genere) + e.Entita[2].Attributi[1] + FormaSemplice(e.Entita[2].B.X), "L110");

  Grafica h;
  ASSERT_TRUE(h.VR_CaricaXVR(s, PercorsoCopiaInFile(s)));
  ASSERT_EQ(h.Punti().size(), 3u);
  EXPECT_EQ(h.Punti()[2].Nome + " " + FormaSemplice(h.Punti()[2].Est) + " " + FormaSemplice(h.Punti()[2].Nord), "PF'9 3 4");
  ASSERT_EQ(h.Linee().size(), 1u);
  EXPECT_EQ(h.CentroEst, 5);  // fitted to the content, 10 x 4

  const std::string emp = s.CartellaLavoro + "F.EMP";
  prova::ScriviFileProva(emp, "0|ESTRATTO|\r\n8|A|100|200|\r\n8|B|100|210|\r\n7|2|A|B|\r\n6|12|T|105|205|\r\n<PUNTO>,1\r\n");
  Grafica m;
  ASSERT_TRUE(m.VR_CaricaEstratto_EMP(s, emp));
  ASSERT_EQ(std::make_tuple(m.Punti().size(), m.Linee().size(), m.Nomi().size()), std::make_tuple(2u, 1u, 1u));
  EXPECT_EQ(FormaSemplice(m.Punti()[1].Est) + " " + FormaSemplice(m.Punti()[1].Nord), "210 100");
  EXPECT_EQ(FormaSemplice(m.Linee()[0].X1) + " " + FormaSemplice(m.Linee()[0].Y2), "200 100");
  EXPECT_EQ(m.Nomi()[0].Testo + " " + FormaSemplice(m.Nomi()[0].Est), "12 205");
  EXPECT_FALSE(m.VR_CaricaXVR(s, emp + "X"));
  EXPECT_EQ(m.Errori, std::vector<std::string>{emp + "X Non è stato trovato!"});
  ASSERT_TRUE(m.VR_CaricaXVR(s, emp));  // a statement cut short is an error of its row
  EXPECT_EQ(m.Errori.back(), "VR_CaricaXVR: riga 6 <PUNTO>,1");
}

// The field book in the preview: a station the job has, a coordinate row, and a contour over
// two rows whose code "RT" makes it dashed; a vertex nobody knows breaks no line but its own.
TEST_F(Anteprima, LibrettoDelLavoro) {
  DimensionaPunti(s);
  s.PuntoNome[0] = "100", s.PuntoX[0] = 10, s.PuntoY[0] = 20;
  s.ContaEntita[SlotPunti] = 1;
  s.LibrettoMisure = {"0|21112026|1|G693|0010|1|R|G|P|", "1|100|1.5|", "2|101|10|100|5|", "8|PF1|50|40|",
                      "7|3|100|PF1|", "7|0|ZZ|RT|"};
  Grafica g;
  g.CaricaLibretto(s);
  ASSERT_EQ(g.Punti().size(), 2u);
  EXPECT_EQ(g.Punti()[0].Tipo + " " + FormaSemplice(g.Punti()[1].Est), "NC 40");
  ASSERT_EQ(g.Linee().size(), 1u);
  const Grafica::Linea& l = g.Linee()[0];
  EXPECT_EQ(FormaSemplice(l.X1) + " " + FormaSemplice(l.Y2) + " " + std::to_string(l.Tipo), "10 50 1");
  // The contour being defined: its vertices, "*" for one taken on no point.
  s.SpezzataTemporanea.Aggiungi(0, 0, 0, "100");
  s.SpezzataTemporanea.Aggiungi(5, 5, 0, "*");
  Grafica c;
  ASSERT_TRUE(AnteprimaDialogo(s, "ContornoSette", c));
  EXPECT_TRUE(c.Punti().size() == 2 && c.Punti()[1].Nome.empty() && c.Linee().size() == 1);
}

TEST_F(Anteprima, SalvaDxfConIMessaggi) {
  ASSERT_TRUE(g.VR_SalvaDXF(s));
  const std::string percorso = s.CartellaLavoro + "TEMP/GraficaDXF.DXF";
  EXPECT_EQ(prova::LeggiFileProva(percorso), Esempio().TestoDXF());
  ASSERT_EQ(std::make_pair(p.ui.Messaggi.size(), p.ui.Domande.size()), std::make_pair(size_t{1}, size_t{1}));
  EXPECT_EQ(p.ui.Messaggi[0].Titolo + "|" + p.ui.Messaggi[0].Testo, "Salva in DXF|Salvato il file " + percorso);
  EXPECT_EQ(p.ui.Domande[0].Titolo + "|" + p.ui.Domande[0].Testo, "Apertura file DXF |Aprire il file DXF ?");
  ASSERT_TRUE(g.GeneraHTML5_CANVAS(s));
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaProgramma + "/Stampe.HTML"), Esempio().TestoHTML());
}

TEST_F(FlussoStampa, PuntoPlanimetricoSenzaQuota) {
  const size_t r = Punto("P1", 1020, 1990, 0, 1);
  s.PuntoCongelaSimbolo[r] = 1, s.PuntoDescrizione[r] = "<P!>d";
  EXPECT_EQ(FlussoPagina(s, {900, 1950, 1100, 2050}),
            "SCALA,100\r\nPN,P1,20.500,-7.000,Arial,2.000,1\r\nPD,<P!>d,20.500,-10.000,Arial,2.000,1\r\n");
}

}  // namespace
}  // namespace varena
