// The plot stream, record by record, written by hand from the drawing of the scene; the
// page loop with its question; the thickness table rewritten by its dialog.
#include <gtest/gtest.h>

#include <locale>

#include "commands/Comandi.h"
#include "core/Dialoghi.h"
#include "core/File.h"
#include "core/Testo.h"
#include "output/DialogoSpessori.h"
#include "output/FlussoStampa.h"
#include "output/LetturaFlusso.h"
#include "support/Supporto.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

// A locale whose decimal mark is a comma, as an Italian desktop has.
struct Virgola : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
};

// Colour 1 plots 0.3 mm, colour 2 is hidden (thickness 0), colour 3 plots 0.5 mm.
struct ScenaStampa {
  prova::SessioneProva p;
  Sessione& s = p.s;
  ScenaStampa() {
    s.Ui = &p.ui;
    for (int i = 1; i < 10; ++i) s.Colori.Colore[static_cast<size_t>(i)] = 0x000001 * static_cast<ColoreRGB>(i);
    s.Colori.Colore[7] = 0xFFFFFF;
    s.Spessori.Spessore[1] = 3, s.Spessori.Spessore[2] = 0, s.Spessori.Spessore[3] = 5;
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};  // 3 m strokes, 3 m gaps
  }
  void Linea(double x1, double y1, double x2, double y2, int colore, int stile = 1, int congela = 0) {
    DimensionaLinee(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotLinee]++);
    s.LineaX1[r] = x1, s.LineaY1[r] = y1, s.LineaX2[r] = x2, s.LineaY2[r] = y2;
    s.LineaColore[r] = colore;
    s.LineaTratteggio[r] = static_cast<int16_t>(stile);
    s.LineaCongela[r] = static_cast<int16_t>(congela);
    s.LineaPiano[r] = "0";
  }
  size_t Punto(const char* nome, double x, double y, int simbolo, double dimensione) {
    DimensionaPunti(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotPunti]++);
    s.PuntoNome[r] = nome;
    s.PuntoX[r] = x, s.PuntoY[r] = y, s.PuntoZ[r] = 12.345;
    s.PuntoSimbolo[r] = static_cast<int16_t>(simbolo);
    s.PuntoDimensioneSimbolo[r] = dimensione;
    s.PuntoDimensioneNome[r] = s.PuntoDimensioneQuota[r] = s.PuntoDimensioneDescrizione[r] = 2;
    s.PuntoColoreSimbolo[r] = s.PuntoColoreNome[r] = s.PuntoColoreQuota[r] = s.PuntoColoreDescrizione[r] = 1;
    s.PuntoFont[r] = "Arial";
    return r;
  }
};

TEST(FlussoStampa, RecordPerRecord) {
  ScenaStampa z;
  Sessione& s = z.s;
  DimensionaBitmap(s);
  s.BitmapNomeFile[0] = "foto.png";
  s.BitmapX[0] = 990, s.BitmapY[0] = 2010, s.BitmapLarghezza[0] = 100, s.BitmapAltezza[0] = 50;
  s.BitmapScalaLar[0] = s.BitmapScalaAlt[0] = 0.1;
  s.ContaEntita[SlotBitmap] = 1;
  DimensionaCerchi(s);
  s.CerchioX[0] = 990, s.CerchioY[0] = 2010, s.CerchioRaggio[0] = 5.5, s.CerchioColore[0] = 1, s.CerchioPiano[0] = "0";
  s.ContaEntita[SlotCerchi] = 1;
  z.Linea(1000, 2000, 1100.5, 2000.25, 1);
  z.Linea(1000, 2010, 1050, 2010, 2);        // hidden colour
  z.Linea(1000, 2020, 1050, 2020, 1, 1, 1);  // frozen
  z.Linea(1000, 1960, 1010, 1960, 3, 2);     // dashed: two strokes
  DimensionaTesti(s);
  s.TestoTesto[0] = "a,b";
  s.TestoX[0] = 1010, s.TestoY[0] = 2020, s.TestoAltezza[0] = 2, s.TestoRotazione[0] = 100;
  s.TestoColore[0] = 3, s.TestoFont[0] = "Arial", s.TestoPiano[0] = "0";
  s.ContaEntita[SlotTesti] = 1;
  s.Imp.CollegaPuntoSimbolo = 1;
  size_t r = z.Punto("P1", 1020, 1990, 0, 1);
  s.PuntoCongelaSimbolo[r] = 1;
  s.PuntoDescrizione[r] = "d";
  r = z.Punto("P2", 1030, 2000, 0, 1);
  s.PuntoCongelaSimbolo[r] = 1, s.PuntoCongelaQuota[r] = 1;
  s.PuntoSpoX[r] = 2, s.PuntoSpoY[r] = 3;
  // A circle of a quarter and a cross of half the size 4, in colour 3; its name hidden.
  r = z.Punto("P3", 980, 2000, 34, 4);
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

TEST(FlussoStampa, PagineConDomanda) {
  ScenaStampa z;
  Sessione& s = z.s;
  z.Linea(1000, 2000, 1001, 2000, 1);
  RigeneraLista(s);
  std::vector<std::string> flussi;
  auto spooler = [&](const std::string& percorso) {
    flussi.push_back(prova::LeggiFileProva(percorso));
    return true;
  };
  // Without the pagination file: one page, and the plotting mode over.
  s.ModoStampa = 5;
  EXPECT_EQ(StampaPaginata(s, {990, 1990, 1010, 2010}, spooler), 1);
  EXPECT_EQ(s.ModoStampa, 0);
  EXPECT_TRUE(z.p.ui.Domande.empty());
  ASSERT_EQ(flussi.size(), 1u);
  EXPECT_EQ(flussi[0], "SCALA,20\r\nL,0.000,0.000,1.000,0.000,0.3\r\n");
  EXPECT_EQ(s.Vista.AltezzaVista, 100);  // the view of the drawing, not of the page

  // Two across and one down around the window's centre: pages 980..1000 and 1000..1020.
  // The first is sent, the second skipped.
  s.Paginato = {-1, "2", "1"};
  flussi.clear();
  z.p.ui.Rispondi(Risposta::Si);
  z.p.ui.Rispondi(Risposta::No);
  s.ModoStampa = 5;
  EXPECT_EQ(StampaPaginata(s, {990, 1990, 1010, 2010}, spooler), 1);
  EXPECT_EQ(s.ModoStampa, 0);
  ASSERT_EQ(z.p.ui.Domande.size(), 2u);
  EXPECT_EQ(z.p.ui.Domande[0].Titolo, "Pagina 1 / 2");
  EXPECT_EQ(z.p.ui.Domande[0].Testo, "N= 1990.0 E = 980.0\r\nN= 2010.0 E= 1000.0\r\nInviare Stampa?");
  EXPECT_EQ(z.p.ui.Domande[0].Tipo, Icona::Domanda);
  EXPECT_EQ(z.p.ui.Domande[1].Titolo, "Pagina 2 / 2");
  ASSERT_EQ(flussi.size(), 1u);
  // The line starts on the right edge of the first page.
  EXPECT_EQ(flussi[0], "SCALA,20\r\nL,10.000,0.000,11.000,0.000,0.3\r\n");

  // Cancel on the first page: nothing sent, the mode back to 0.
  z.p.ui.Domande.clear();
  flussi.clear();
  z.p.ui.Rispondi(Risposta::Annulla);
  s.ModoStampa = 5;
  EXPECT_EQ(StampaPaginata(s, {990, 1990, 1010, 2010}, spooler), 0);
  EXPECT_EQ(z.p.ui.Domande.size(), 1u);
  EXPECT_TRUE(flussi.empty());
  EXPECT_EQ(s.ModoStampa, 0);
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

TEST(FlussoStampa, AnteprimaAlPlotter) {
  ScenaStampa z;
  Sessione& s = z.s;
  ProcessiRegistrati proc;
  s.Proc = &proc;
  z.Linea(1000, 2000, 1001, 2000, 1);
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

TEST(FlussoStampa, SpessoriDallaGriglia) {
  ScenaStampa z;
  Sessione& s = z.s;
  // Colour, name, then one column per thickness from 0: the first "X" wins; a row without
  // one keeps the thickness it had.
  s.Spessori.Spessore[3] = 7;
  ScriviSpessoriDaGriglia(s, {{"1", "Rosso", "", "", "X", "X"}, {"2", "Giallo", "X"}, {"3", "Verde", "", ""}});
  EXPECT_EQ(s.Spessori.Spessore[1], 2);
  EXPECT_EQ(s.Spessori.Spessore[2], 0);
  EXPECT_EQ(s.Spessori.Spessore[3], 7);
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaLavoro + "SPESSORI1.ini"), "2\r\n0\r\n7\r\n");
}

TEST(FlussoStampa, DialogoSpessoriEOpzioni) {
  ScenaStampa z;
  Sessione& s = z.s;
  s.Colori.NumeroColori = 9;
  ApriFormSelezSpessore(s);
  const Dialogo* d = TrovaDialogo(s, "FormSelezSpessore");
  ASSERT_TRUE(d);
  EXPECT_EQ(d->Campo("Formato")->Etichetta, " Formato carta ");
  EXPECT_EQ(d->Campo("Scala")->Etichetta, "Scala = 1:");
  EXPECT_EQ(d->Valore("Spessore1"), "3");
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Spessore1", "4"));
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Spessore3", "0"));
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Spessore9", "99"));  // past the grid's last column
  ASSERT_TRUE(ScriviCampo(s, "FormSelezSpessore", "Stampa_Nome_Lavoro", "0"));
  ASSERT_TRUE(PremiBottone(s, "FormSelezSpessore", "Conferma"));
  EXPECT_FALSE(DialogoAperto(s, "FormSelezSpessore"));
  EXPECT_EQ(s.Imp.Stampa_Nome_Lavoro, 0);
  // Colour 2 stays at 0 and the others at the table's 1.
  EXPECT_EQ(prova::LeggiFileProva(s.CartellaLavoro + "SPESSORI1.ini"), "4\r\n0\r\n0\r\n1\r\n1\r\n1\r\n1\r\n1\r\n20\r\n");
  EXPECT_TRUE(z.p.ui.Messaggi.empty());
}

TEST(FlussoStampa, LetturaRecordEGuasti) {
  const PaginaFlusso p = LeggiFlussoStampa(
      "SCALA,250\r\nL,1,2,3,4,0.3\r\nC,5,6,7,0.5,.01\r\nTT,a.b,1,2,-90,Arial,2,3\r\nPN,P1,10,20,Arial,2,1\r\n"
      "T,N1,3,4,Courier New\r\nIM,1,2,3,4,foto.png\r\nXX,1,2\r\nL,1e999,0,0,0,1\r\nL\r\n\r\nC,1,2");
  EXPECT_EQ(p.AltezzaVista, 250);
  ASSERT_EQ(p.Elementi.size(), 8u);
  EXPECT_EQ(p.Elementi[0].Tipo, ElementoFlusso::Linea);
  EXPECT_EQ(p.Elementi[0].X2, 3);
  EXPECT_EQ(p.Elementi[0].Spessore, 0.3);
  EXPECT_EQ(p.Elementi[1].Tipo, ElementoFlusso::Cerchio);
  EXPECT_EQ(p.Elementi[1].X2, 7);
  EXPECT_EQ(p.Elementi[2].Testo, "a.b");
  EXPECT_EQ(p.Elementi[2].Angolo, -90);
  EXPECT_EQ(p.Elementi[2].Colore, 3);
  // A point's label by its top left corner: the foot one height lower.
  EXPECT_EQ(p.Elementi[3].Y1, 18);
  EXPECT_EQ(p.Elementi[4].Font, "Courier New");
  EXPECT_EQ(p.Elementi[5].Tipo, ElementoFlusso::Immagine);
  EXPECT_EQ(p.Elementi[5].Testo, "foto.png");
  // A record cut short reads its missing numbers as 0.
  EXPECT_EQ(p.Elementi[6].X1, 0);
  EXPECT_EQ(p.Elementi[7].Y1, 2);
  EXPECT_EQ(p.Elementi[7].X2, 0);
}

}  // namespace
}  // namespace varena
