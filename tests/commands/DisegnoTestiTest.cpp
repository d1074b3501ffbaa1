// The text commands, the callout, the series of points and the picture placed on the
// sheet, driven through their dialogs as a user fills them.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "commands/Attese.h"
#include "view/DimensioniImmagine.h"

namespace varena {
namespace {

using namespace prova;

struct TestiBanco : BancoProva {};

// The rotation of a text that runs from (0, 0) towards (x, y): counter-clockwise from East.
double RotazioneVerso(double x, double y) { return Gon(y, x); }

TEST_F(TestiBanco, ProprietaTestoIDefaultDelleImpostazioniEUnTestoAOgniClic) {
  s.Imp.AltezzaTestoDefault = 2.5;
  s.Imp.AngoloTestoDefault = 10;
  s.Imp.ColoreTestoDefault = 3;
  s.Imp.FontTestoDefault = "Times New Roman";
  s.PianoCorrente = "TESTI";
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_TESTO\n"
                     "DIALOGO + ProprietaTesto [Proprietà Testo] Testo=\"\" Altezza=\"2.5\" Angolo=\"10\" "
                     "Colore=\"3\" Font=\"Times New Roman\" (OK, Annulla)\n"
                     "PROMPT Indicare posizione inizio testo :\n"));
  // No text typed: the click writes nothing.
  Script("CLICK left 1 1\n");
  EXPECT_EQ(s.ContaEntita[SlotTesti], 0);
  Script("FIELD ProprietaTesto.Testo CONFINE\nFIELD Altezza 1,5\nPRESS ProprietaTesto.OK\nCLICK left 3 4\n"
           "CLICK left 6 8\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotTesti], s.TestoTesto[1], s.TestoX[1], s.TestoY[1], s.TestoAltezza[1],
                     s.TestoRotazione[1], s.TestoColore[1], s.TestoFont[1], s.TestoPiano[1]),
            std::make_tuple(2, "CONFINE", 6, 8, 1.5, 10, 3, "Times New Roman", "TESTI"));
  // Armed again, the dialog offers what was confirmed; cancelled, the command ends.
  EXPECT_TRUE(Contiene(Script("KEY ESC\nKEY ESC\n"), "Testo=\"CONFINE\" Altezza=\"1.5\""));
  Script("PRESS ProprietaTesto.Annulla\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
}

TEST_F(TestiBanco, subTestodistanzaEQuotaturaProgressivaLaDistanzaAMetaLungoLaLinea) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG TESTO_DISTANZA\n"
                     "DIALOGO + ProprietaTesto [Proprietà Testo] Testo=\"\" Altezza=\"5\" Angolo=\"0\" "
                     "Colore=\"1\" Font=\"Arial\" (OK, Annulla)\nPROMPT Testo Distanza - Dal Punto :\n"
                     "> FIELD Altezza 2\n> CLICK left 0 0\nPROMPT Testo Distanza - Al Punto :\n> CLICK left 30 40\n"
                     "PROMPT Testo Distanza - Dal Punto :\n"));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotTesti], s.TestoTesto[0], s.TestoX[0], s.TestoY[0], s.TestoAltezza[0]),
            std::make_tuple(1, "50", 15, 20, 2));
  EXPECT_NEAR(s.TestoRotazione[0], RotazioneVerso(30, 40), 1e-9);
  // Whole metres: 12.6 shows as 13; and the line to the West reads upside down, as drawn.
  Script("CLICK left 0 0\nCLICK left -12.6 0\n");
  EXPECT_EQ(s.TestoTesto[1], "13");
  EXPECT_NEAR(s.TestoRotazione[1], 200, 1e-9);
  // The progressive dimensions: distances from the origin, to the hundredth.
  Script("TAG QUOTATURA_PROGRESSIVA\nPRESS ProprietaTesto.OK\nCLICK left 1 1\nCLICK left 4 5\nCLICK left 7 9\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotTesti], s.TestoTesto[2], s.TestoTesto[3], s.TestoX[3], s.TestoY[3], s.Prompt),
            std::make_tuple(4, "5.00", "10.00", 7, 9, "Quotatura Progressiva - Al Punto :"));
  EXPECT_NEAR(s.TestoRotazione[3], RotazioneVerso(3, 4), 1e-9);
}

TEST_F(TestiBanco, subIncollaDaAppuntiEDaFileUnaRigaSottoLAltraEGliAppuntiConservati) {
  Pronto();
  s.Clip->Scrivi("PRIMA\r\nSECONDA\r\n\r\nQUARTA");
  Script("TAG DISEGNA_TESTO_DA_APPUNTI\nFIELD Altezza 2\nCLICK left 10 10\n");
  ASSERT_EQ(s.ContaEntita[SlotTesti], 3);
  // The blank line keeps its place.
  EXPECT_EQ(std::tie(s.TestoTesto[0], s.TestoY[0], s.TestoTesto[1], s.TestoY[1], s.TestoTesto[2],
                     s.TestoY[2]),
            std::make_tuple("PRIMA", 10, "SECONDA", 8, "QUARTA", 4));
  EXPECT_EQ(LeggiFileProva(s.CartellaLavoro + "Appunti.ini"), "PRIMA\r\nSECONDA\r\n\r\nQUARTA");
  // A text turned a quarter counter-clockwise: the next line stands to the East.
  Script("FIELD Angolo 100\nCLICK left 0 0\n");
  ASSERT_EQ(s.ContaEntita[SlotTesti], 6);
  EXPECT_TRUE(Vicini({s.TestoX[4], s.TestoY[4]}, {2, 0}, 1e-12));
  // From a file, its lines read in the code page of the window.
  InterfacciaRegistrata ui;
  s.Ui = &ui;
  const std::string file = cartella / "NOTE.TXT";
  ScriviFileProva(file, "Citt\xe0\r\nPonte\r\n");
  ui.RispondiFile(file);
  Script("TAG DISEGNA_TESTO_DA_FILE\nFIELD Angolo 0\nPRESS ProprietaTesto.OK\nCLICK left 0 0\n");
  ASSERT_EQ(ui.SceltePresentate.size(), 1u);
  EXPECT_EQ(ui.SceltePresentate[0], "Testo da File|File Di Testo (*.TXT)|*.TXT|Tutti i file (*.*)|*.*");
  ASSERT_EQ(s.ContaEntita[SlotTesti], 8);
  EXPECT_EQ(std::tie(s.TestoTesto[6], s.TestoTesto[7], s.TestoY[7]), std::make_tuple("Città", "Ponte", -2));
  // The choice cancelled: the command ends, nothing written.
  Script("TAG DISEGNA_TESTO_DA_FILE\nCLICK left 0 0\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotTesti], s.ComandoCorrente), std::make_tuple(8, 0));
}

TEST_F(TestiBanco, subTestoAllineaLaRotazioneSegueIDuePunti) {
  MettiTesto(s, 0, 0, "FOSSO");
  Pronto();
  EXPECT_TRUE(Stampa("> TAG TESTO_ALLINEA\nPROMPT Allinea Testo - Indica il Testo\n> CLICK left 0.5 0.5\n"
                     "PROMPT Allinea Testo - Primo Punto:\n> CLICK left 0 0\nPROMPT Allinea Testo - Secondo Punto:\n"
                     "> CLICK left 0 10\nPROMPT Allinea Testo - Indica il Testo\n"));
  EXPECT_NEAR(s.TestoRotazione[0], 100, 1e-9);
}

TEST_F(TestiBanco, subDisegnaFumettoNuvolettaDiLineeColTesto) {
  Pronto();
  Script("TAG DISEGNA_FUMETTO\nFIELD Testo NOTA\nFIELD Altezza 1\nCLICK left 10 20\n");
  // The text's foot half a height inside a box 2 heights up and right of the point.
  EXPECT_EQ(std::tie(s.ContaEntita[SlotTesti], s.TestoTesto[0]), std::make_tuple(1, "NOTA"));
  EXPECT_TRUE(Vicini({s.TestoX[0], s.TestoY[0]}, {12.5, 22.5}, 1e-12));
  // Box 4·0.6 + 1 wide and 2 high from (12, 22), its bottom opened for the tail: seven lines.
  ASSERT_EQ(s.ContaEntita[SlotLinee], 7);
  double xmax = 0, ymax = 0;
  int alla_punta = 0;
  for (size_t k = 0; k < 7; ++k) {
    xmax = std::max({xmax, s.LineaX1[k], s.LineaX2[k]});
    ymax = std::max({ymax, s.LineaY1[k], s.LineaY2[k]});
    alla_punta += (s.LineaX1[k] == 10 && s.LineaY1[k] == 20) + (s.LineaX2[k] == 10 && s.LineaY2[k] == 20);
  }
  EXPECT_TRUE(Vicini({xmax, ymax}, {15.4, 24}, 1e-12));
  EXPECT_EQ(alla_punta, 2);
}

TEST_F(TestiBanco, SerieNumeroPuntiZeroNonScriveNullaLineareAllineataCircolareRettangolare) {
  MettiPunto(s, "7", 0, 0, 4);
  Pronto();
  EXPECT_TRUE(Stampa("> TAG SERIE_LINEARE\n"
                     "DIALOGO + ParametriSerie [Parametri Serie] Numero_Punti=\"0\" Distanza=\"0\" "
                     "Numero_Righe=\"0\" Numero_Colonne=\"0\" (OK, Annulla)\nPROMPT Serie Lineare - Primo Punto:\n"
                     "> FIELD ParametriSerie.Numero_Punti 0\n> FIELD Distanza 2\n> PRESS ParametriSerie.OK\n"
                     "DIALOGO - ParametriSerie\n> CLICK left 0 0\nPROMPT Serie Lineare - Secondo Punto:\n"
                     "> CLICK left 10 0\n"));
  EXPECT_EQ(s.ContaEntita[SlotPunti], 1);
  // The settings confirmed are kept for the next start.
  EXPECT_TRUE(Contiene(LeggiFileProva(s.CartellaLavoro + "Configura.ini"), "Distanza,2"));
  struct Atteso {
    const char* Nome;
    double X, Y;
  };
  auto controlla = [&](int32_t da, std::initializer_list<Atteso> attesi) {
    ASSERT_EQ(s.ContaEntita[SlotPunti], da + static_cast<int32_t>(attesi.size()));
    int32_t r = da;
    for (const Atteso& a : attesi) {
      const auto k = static_cast<size_t>(r++);
      EXPECT_EQ(s.PuntoNome[k], a.Nome);
      EXPECT_NEAR(s.PuntoX[k], a.X, 1e-9) << a.Nome;
      EXPECT_NEAR(s.PuntoY[k], a.Y, 1e-9) << a.Nome;
    }
  };
  // From the point 7: three points 2 apart, the first on 7 itself left out.
  Script("TAG SERIE_LINEARE\nFIELD Numero_Punti 3\nFIELD Distanza 2\nKEY P\nCLICK left 0 1\nCLICK left 10 0\n");
  controlla(1, {{"8", 2, 0}, {"9", 4, 0}});
  EXPECT_EQ(s.PuntoZ[1], 4);
  // Three points between (0, 10) and (10, 10), ends included.
  Script("TAG SERIE_ALLINEATA\nCLICK left 0 10\nCLICK left 10 10\n");
  controlla(3, {{"10", 0, 10}, {"11", 5, 10}, {"12", 10, 10}});
  // About (50, 0) from East, on the start's own direction: a whole turn in three.
  Script("TAG SERIE_CIRCOLARE\nCLICK left 50 0\nCLICK left 60 0\nCLICK left 70 0\n");
  const double r3 = 10 * std::sqrt(3.0) / 2;
  controlla(6, {{"13", 60, 0}, {"14", 45, -r3}, {"15", 45, r3}});
  // Two rows of two, 1 apart, the columns to the East and the rows to the North.
  Script("TAG SERIE_RETTANGOLARE\nFIELD Numero_Righe 2\nFIELD Numero_Colonne 2\nFIELD Distanza 1\n"
           "CLICK left 100 0\nCLICK left 105 0\n");
  controlla(9, {{"16", 100, 0}, {"17", 101, 0}, {"18", 100, 1}, {"19", 101, 1}});
}

TEST(DimensioniImmagine, IntestazioniDeiFormatiComuni) {
  const auto pixel = [](std::string_view byte) {
    const auto d = DimensioniImmagine(byte);
    return d ? std::to_string(d->Larghezza) + "x" + std::to_string(d->Altezza) : "none";
  };
  const std::string png("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\x02\x80\0\0\x01\xe0", 24);
  EXPECT_EQ(std::make_tuple(pixel(png), pixel(png.substr(0, 20)), pixel(std::string("GIF89a\x20\x03\x58\x02", 10))),
            std::make_tuple("640x480", "none", "800x600"));
  // A BMP stored top down has a negative height.
  std::string bmp(26, '\0');
  bmp[0] = 'B', bmp[1] = 'M', bmp[14] = 40;
  bmp[18] = 0x10, bmp[19] = 0x27;  // 10000
  bmp[22] = '\x9c', bmp[23] = '\xff', bmp[24] = '\xff', bmp[25] = '\xff';  // -100
  EXPECT_EQ(pixel(bmp), "10000x100");
  // A JPEG: an application segment first, then the frame with height 300 and width 200.
  EXPECT_EQ(pixel(std::string("\xff\xd8\xff\xe0\x00\x04\x00\x00\xff\xc0\x00\x0b\x08\x01\x2c\x00\xc8", 17)),
            "200x300");
  EXPECT_EQ(pixel("testo qualunque, non un'immagine"), "none");
  EXPECT_EQ(pixel(std::string("\xff\xd8\xff\xe0\x00\x40", 6)), "none");
}

TEST_F(TestiBanco, subDisegnaBitMapImmagineSceltaEPosataAlClic) {
  Pronto();
  const std::string file = cartella / "MAPPA.PNG";
  ScriviFileProva(file, std::string("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR\0\0\x02\x80\0\0\x01\xe0", 24));
  const std::string uscita = Script("TAG DISEGNA_IMMAGINE\nANSWER " + file +
                                      "\nPRESS FormSelezionaImmagine.Sfoglia\nFIELD Scala 0.5\nPRESS "
                                      "FormSelezionaImmagine.OK\nCLICK left 100 200\n");
  EXPECT_TRUE(Contiene(uscita, "DIALOGO + FormSelezionaImmagine [Seleziona Immagine] File=\"\" Larghezza=\"\" "
                               "Altezza=\"\" Scala=\"1\" (Sfoglia, OK, Annulla)\n"));
  EXPECT_TRUE(Contiene(uscita, "PROMPT Indica Punto Inserimento Immagine :\n"));
  ASSERT_EQ(s.ContaEntita[SlotBitmap], 1);
  EXPECT_EQ(std::tie(s.BitmapNomeFile[0], s.BitmapX[0], s.BitmapY[0], s.BitmapLarghezza[0],
                     s.BitmapAltezza[0], s.BitmapScalaLar[0], s.BitmapScalaAlt[0]),
            std::make_tuple(file, 100, 200, 640, 480, 0.5, 0.5));
  // Its frame is in the display list: 320 by 240 metres down from the click.
  double xmax = 0, ymin = 1e9;
  for (int64_t i = 0; i < s.ListaDisegno.Conta(); ++i) {
    xmax = std::max(xmax, s.ListaDisegno.X2[static_cast<size_t>(i)]);
    ymin = std::min(ymin, s.ListaDisegno.Y2[static_cast<size_t>(i)]);
  }
  EXPECT_EQ(std::tie(xmax, ymin), std::make_tuple(420, -40));
  // A file that is no picture: a message, and no size to place it with.
  const std::string altro = cartella / "NOTE.TXT";
  ScriviFileProva(altro, "non un'immagine");
  EXPECT_TRUE(Contiene(Script("TAG DISEGNA_IMMAGINE\nFIELD File " + altro + "\nFIELD Larghezza 0\nCLICK left 0 0\n"),
                       "MESSAGGIO [Inserisci Immagine] Immagine non riconosciuta: | " + altro));
  EXPECT_EQ(s.ContaEntita[SlotBitmap], 1);
}

}  // namespace
}  // namespace varena
