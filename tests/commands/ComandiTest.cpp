// The dispatcher's guards, arming and the end of commands, the keys, the display toggles,
// the menu entries of the drawing tags.
#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "commands/Attese.h"
#include "commands/Comandi.h"
#include "commands/TabellaComandi.h"
#include "commands/Tastiera.h"
#include "core/ImpostazioniUtente.h"
#include "core/Testo.h"

namespace varena {
namespace {

using namespace prova;

struct ComandiBanco : BancoProva {};
using I = std::vector<int>;

// The command armed and its step.
I Comando(const Sessione& s) { return {s.ComandoCorrente, s.PassoComando}; }

TEST_F(ComandiBanco, EseguiComandoTAGUnTagSnapSconosciutoNonFaNullaENonChiudeIDialoghi) {
  Pronto();
  Script("TAG DISEGNA_PUNTO\nKEY F\n");
  ASSERT_TRUE(DialogoAperto(s, "NuovoPunto"));
  EXPECT_TRUE(Stampa("> TAG snap_xyz\n"));
  // Upper case on entry.
  EXPECT_EQ(std::make_tuple(DialogoAperto(s, "NuovoPunto"), s.ComandoCorrente, s.ModoSnap, s.ComandoTag),
            std::make_tuple(true, 1, 5, "SNAP_XYZ"));
  // A tag of no snap, known or not, closes the working dialogs before the chain.
  Script("TAG PIPPO\n");
  EXPECT_EQ(std::make_tuple(DialogoAperto(s, "NuovoPunto"), s.ComandoCorrente), std::make_tuple(false, 1));
}

TEST_F(ComandiBanco, EseguiComandoTAGColoreRapidoEColoreEstratto) {
  Pronto();
  Script("TAG COLORE_3\n");
  // With nothing armed, the colour is pasted on entities one by one.
  EXPECT_EQ(std::tie(s.Imp.Colore_Default, s.ComandoCorrente), std::make_tuple(3, 307));
  // Saved at once for the next job, in block B (statement 6 is the colour).
  EXPECT_EQ(Dividi(LeggiFileProva(s.CartellaLavoro + "SALVAINI.INI"), '\n').at(5), "3\r");
  Script("TAG DISEGNA_LINEA_2_P\nTAG COLORE_12\n");
  EXPECT_EQ(std::tie(s.Imp.Colore_Default, s.ComandoCorrente), std::make_tuple(12, 22));  // a command armed stays

  EXPECT_TRUE(Stampa("> TAG COLORE_ESTRATTO\nMESSAGGIO [Estratto Non Associato] Impossibile continuare\n"));
  Script("TAG COLORE_12345\n");  // eleven characters: not a quick colour, and no tag
  EXPECT_EQ(s.Imp.Colore_Default, 12);
}

TEST_F(ComandiBanco, EseguiComandoTAGUnoZoomAMetaComandoLoLasciaComEra) {
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 0 0\nTAG ZOOM_FINESTRA\nCLICK left 10 10\nCLICK left 30 20\n");
  EXPECT_EQ(std::make_tuple(s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista, Comando(s), s.Prompt,
                            s.ContaEntita[SlotLinee]),
            std::make_tuple(20, 15, 20, I{22, 1}, "Disegno Linea - Al Punto:", 0));
  // The right button takes a zoom back, and only the zoom.
  Script("TAG ZOOM_CENTRO\nCLICK right 0 0\nCLICK left 5 5\n");
  EXPECT_EQ(std::tie(s.Vista.CentroEst, s.ContaEntita[SlotLinee], s.LineaX2[0], s.Prompt),
            std::make_tuple(20, 1, 5, "Disegno Linea 2P - Primo Punto:"));
}

TEST_F(ComandiBanco, ArmaComandoIlValoreChiestoPrimaAnnullatoNonArmaLoSnapDelComandoPrecedenteOQuelloDelComando) {
  Pronto();
  EXPECT_TRUE(Stampa("> TAG DISEGNA_PARALLELA\nIMPUTA [Parallela] Distanza della Parallela : -> (annullato)\n"));
  EXPECT_EQ(s.ComandoCorrente, 0);
  // The prompt and its question are pinned by the parallel's own test; F4 arms it again.
  Script("ANSWER 2,5\nKEY F4\n");
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.ValoreImputato), std::make_tuple(136, "2,5"));
  Script("KEY ESC\n");
  // The snap in force at the end of a command comes back at its repeat, for one click; a
  // point snap does not: it becomes free.
  Script("TAG DISEGNA_LINEA_2_P\nKEY F\nKEY ESC\n");
  EXPECT_EQ(s.UltimoSnap, 5);
  Script("KEY ESC\n");
  EXPECT_EQ(s.ModoSnap, 5);
  Script("TAG DISEGNA_LINEA_2_P\nKEY P\nKEY ESC\nKEY ESC\n");
  EXPECT_EQ(s.ModoSnap, 16);
  // A command on points sets its own, which lasts.
  MettiPunto(s, "1", 0, 0);
  Script("TAG EDIT_SPOSTA_NOME\n");
  EXPECT_EQ(s.ModoSnap, 1);
  EXPECT_FALSE(s.SnapDaTasto);
}

TEST_F(ComandiBanco, InterrompiComandoPuliscePassoSelezioneZoomESalvaLeImpostazioni) {
  MettiPunto(s, "1", 0, 0);
  MettiLinea(s, 0, 0, 5, 5);
  Pronto();
  s.StatoPunto[0] = 1;
  s.StatoLinea[0] = 1;
  s.ListaDisegno.Stato[0] = 1;
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 1 1\nTAG ZOOM_FINESTRA\nMOVE 3 3\n");
  Script("TAG INTERROMPI_COMANDO\n");
  EXPECT_EQ((I{s.StatoPunto[0], s.StatoLinea[0], s.ListaDisegno.Stato[0], s.Vista.ModoZoom, s.ComandoCorrente,
               s.PassoComando}),
            (I{0, 0, 0, ZoomNessuno, 0, 0}));
  // No command prompt is left.
  EXPECT_EQ(std::make_tuple(s.Prompt.find("Disegno"), Esiste(s.CartellaLavoro + "SALVAINI.INI")),
            std::make_tuple(std::string::npos, true));
}

TEST_F(ComandiBanco, TastieraLettereDiSnapSoloConUnComandoArmato) {
  MettiLinea(s, 0, 0, 10, 0);
  Pronto();
  EXPECT_FALSE(TastoGiu(s, {Tasto::Carattere, 'F'}));  // to the text box
  EXPECT_EQ(s.ModoSnap, 16);
  Script("TAG DISEGNA_LINEA_2_P\n");
  EXPECT_EQ(std::make_tuple(TastoGiu(s, {Tasto::Carattere, 'F'}), s.ModoSnap), std::make_tuple(true, 5));
  // One click, one snap.
  Script("CLICK left 9 1\n");
  EXPECT_EQ(std::tie(s.Punto1X, s.ModoSnap), std::make_tuple(10, 16));
  // A snap that finds nothing leaves the mode for the next try.
  MettiTesto(s, 0, 0, "x");
  s.TestoIdent[0] = -1;
  Script("KEY B\nCLICK left 3 3\n");
  EXPECT_EQ(std::tie(s.ModoSnap, s.PassoComando), std::make_tuple(10, 1));
  // The text box with the focus takes the letters, not Esc.
  EXPECT_EQ(std::make_tuple(TastoGiu(s, {Tasto::Carattere, 'V'}, true), s.ModoSnap), std::make_tuple(false, 10));
  EXPECT_EQ(std::make_tuple(TastoGiu(s, {Tasto::Esc}, true), s.ComandoCorrente), std::make_tuple(true, 0));
}

TEST_F(ComandiBanco, TastieraSnapCheVoglionoUnPuntoPrecedenteAlPassoZeroSonoLiberi) {
  Pronto();
  Script("TAG DISEGNA_LINEA_2_P\n");
  for (char c : {'O', 'T', 'U', 'A', 'R'}) {
    Script(std::string("KEY ") + c + "\n");
    EXPECT_EQ(s.ModoSnap, 16) << c;
    EXPECT_TRUE(s.Dialoghi.empty()) << c;
  }
  Script("CLICK left 1 2\nKEY O\n");
  EXPECT_EQ(s.ModoSnap, 2);
  Script("KEY U\n");
  EXPECT_EQ(std::make_tuple(s.ModoSnap, DialogoAperto(s, "FormSnapPolare")), std::make_tuple(11, true));
  // A letter closes the dialog of the mode before.
  Script("KEY L\n");
  EXPECT_EQ(std::make_tuple(s.ModoSnap, DialogoAperto(s, "FormSnapPolare")), std::make_tuple(16, false));
}

TEST_F(ComandiBanco, TastieraTastiDellaVistaAncheAComandoArmato) {
  Pronto(0, 0, 100);
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 0 0\n");
  Script("KEY PAGEUP\n");
  EXPECT_EQ(s.Vista.AltezzaVista, 98);  // 1/50 of the height
  Script("KEY UP\n");
  EXPECT_EQ(std::make_tuple(s.Vista.CentroNord, Comando(s)), std::make_tuple(-1.96, I{22, 1}));
}

// The key the menus and tooltips show beside a command does what its tag does. The names
// are those printed on a keyboard, read here by hand into the script's key names.
TEST(Tastiera, IlTastoDellaTabellaFaCioCheFaIlSuoTag) {
  const std::map<std::string_view, std::string> kAzione = {
      {"Ins", "KEY INSERT"},          {"Home", "KEY HOME"},           {"Fine", "KEY END"},
      {"Pag Su", "KEY PAGEUP"},       {"Pag Giù", "KEY PAGEDOWN"},    {"Freccia Su", "KEY UP"},
      {"Freccia Giù", "KEY DOWN"},    {"Freccia Sinistra", "KEY LEFT"}, {"Freccia Destra", "KEY RIGHT"},
      {"Ctrl+Spazio", "KEY CTRL+SPACE"}, {"Num /", "KEY NUM/"},       {"Esc", "KEY ESC"},
  };
  // What either way leaves: the command and its snap, the view, the dialogs, the toggles
  // and the undo generation.
  auto stato = [](Banco& b) {
    const Sessione& s = b.s;
    std::ostringstream o;
    o << s.ComandoCorrente << "/" << s.PassoComando << " snap " << s.ModoSnap << " orto " << s.Ortogonale
      << " vista " << s.Vista.CentroEst << "," << s.Vista.CentroNord << "," << s.Vista.AltezzaVista << " zoom "
      << s.Vista.ModoZoom << " nomi " << s.PuntoCongelaNome[0] << " undo " << PassoUndo(s) << " dialoghi";
    for (const auto& d : s.Dialoghi) o << " " << d->Nome;
    return o.str();
  };
  auto prova = [&stato](const std::string& azione) {
    Banco b;
    ApriLavoroVuoto(b);
    MettiPunto(b.s, "1", 10, 10);
    MettiLinea(b.s, 0, 0, 20, 0);
    MettiCerchio(b.s, 30, 30, 5);
    b.Pronto(10, 10, 100);
    b.Opzioni.Rigoroso = false;
    for (int i = 0; i < 3; ++i) b.ui.Accoda("2");
    // A change to undo, and a line waiting for its second point.
    b.Script("TAG N\nTAG DISEGNA_LINEA_2_P\nCLICK left 10 10\n" + azione + "\n");
    return stato(b);
  };
  int tasti = 0;
  for (const VoceComando& v : TabellaComandi()) {
    if (v.Tasto.empty()) continue;
    std::string azione;
    if (v.Tasto.size() == 2 && v.Tasto[0] == '_') {
      azione = "TYPE " + std::string(v.Tasto);
    } else if (v.Tasto.size() == 1 || (v.Tasto[0] == 'F' && v.Tasto.size() <= 3)) {
      azione = "KEY " + std::string(v.Tasto);
    } else {
      ASSERT_TRUE(kAzione.contains(v.Tasto)) << v.Tag << ": " << v.Tasto;
      azione = kAzione.at(v.Tasto);
    }
    EXPECT_EQ(prova(azione), prova("TAG " + std::string(v.Tag))) << v.Tag << " " << v.Tasto;
    ++tasti;
  }
  EXPECT_EQ(tasti, 42);
}

TEST_F(ComandiBanco, VisualizzaNomiQuoteSimboliDescrizioniLineeEPFStazioni) {
  MettiPunti(s, {{"PF01/0010/G693", 0, 0}, {"100", 1, 0}, {"101", 2, 0}, {"cancellato", 3, 0}});
  s.PuntoIdent[3] = -1;
  MettiLinea(s, 0, 0, 1, 1);
  Pronto();
  Script("TAG N\n");
  EXPECT_EQ((I{s.PuntoCongelaNome[0], s.PuntoCongelaNome[2], s.PuntoCongelaNome[3]}), (I{-1, -1, 0}));  // not deleted rows
  EXPECT_EQ(LeggiFileProva(s.CartellaProgramma + "/ImpostazioniUtente.ini"), "[VISUALIZZA]\r\nPUNTISINO=0\r\n");
  // Shown again; then only PF and station names stay on show.
  Script("TAG N\n");
  EXPECT_EQ(s.PuntoCongelaNome[0], 0);
  Script("TAG A\n");
  EXPECT_EQ((I{s.PuntoCongelaNome[0], s.PuntoCongelaNome[1], s.PuntoCongelaNome[2]}), (I{0, 0, -1}));
  Script("TAG Q\nTAG S\nTYPE _w\nTAG L\n");
  EXPECT_EQ((I{s.PuntoCongelaQuota[1], s.PuntoCongelaSimbolo[1], s.PuntoCongelaDescrizione[1], s.LineaCongela[0]}),
            (I{-1, -1, -1, -1}));
  // The frozen line has left the display list.
  EXPECT_EQ(s.ListaDisegno.Conta(), 0);
  // A stored value that is not 0 reads as on, whatever it is.
  ScriviImpostazioneUtente(s, "VISUALIZZA", "LINEESINO", "7");
  Script("TAG L\n");
  EXPECT_EQ(std::make_tuple(s.LineaCongela[0], LeggiImpostazioneUtente(s, "VISUALIZZA", "LINEESINO", "?")),
            std::make_tuple(-1, "0"));
}

// On an open job a toggle is a change of the job: a snapshot is taken, and the frozen flag
// is in the provisional point file.
TEST_F(ComandiBanco, VisualizzaUnaModificaDelLavoroConLaSuaGenerazioneDiUndo) {
  ApriLavoro(*this, "0,0,100", RecordPuntoBase("1", 0, 0, 10).Byte());
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  const int64_t prima = PassoUndo(s);
  Script("TAG N\n");
  EXPECT_EQ(PassoUndo(s), prima + 1);
  const std::string lll = LeggiFileProva(s.NomeLavoro + ".LLL");
  ASSERT_EQ(lll.size(), 256u);
  EXPECT_EQ(lll.substr(128, 2), std::string("\xff\xff", 2));  // Congela Nome -1
  // Undone, the name is shown again, and the command in progress starts over.
  Script("TAG DISEGNA_LINEA_2_P\nCLICK left 5 5\nKEY F9\n");
  EXPECT_EQ(std::make_tuple(s.PuntoCongelaNome[0], PassoUndo(s), Comando(s)), std::make_tuple(0, prima, I{22, 0}));
}

TEST_F(ComandiBanco, EseguiComandoTAGMenuLettereEPassiDiDimensione) {
  MettiPunto(s, "1", 0, 0);
  s.PuntoDimensioneNome[0] = -2;
  s.PuntoDimensioneSimbolo[0] = 4;
  Pronto();
  EXPECT_TRUE(Stampa("> TAG c\nMENU MENU_CAMBIA\n> TAG MENU_TESTO\nMENU MENU_TESTO\n"));
  Script("TAG DN+\nTAG DS-\n");
  EXPECT_DOUBLE_EQ(s.PuntoDimensioneNome[0], -2.2);
  EXPECT_DOUBLE_EQ(s.PuntoDimensioneSimbolo[0], 4 / 1.1);
  EXPECT_TRUE(Stampa("> TAG CALCOLATRICE\nMESSAGGIO [Programma Esterno] Programma non trovato: calc.exe\n"));
}

// The script tests drive every drawing tag to its rows; here, each has its menu entry.
TEST(TabellaComandi, OgniComandoDiDisegnoHaIlSuoMenu) {
  for (const char* tag : {
      "DISEGNA_LINEA_LIBERA", "DISEGNA_LINEA_2_P", "DISEGNA_LINEA_DISCONTINUITA", "DISEGNA_LINEA_ALLUNGA",
      "DISEGNA_LINEA_LUNGHEZZA", "DISEGNA_LINEA_ESTREMO", "DISEGNA_LINEA_PROIETTA", "DISEGNA_LINEA_PERPENDA",
      "ESTREMI_LINEA", "ASSE_LINEA", "DISEGNA_PARALLELA", "PARALLELA_PER_PUNTO", "VERIFICA_PARALLELE",
      "DISEGNA_PERCORSO", "RETTANGOLO", "SQUADRATO", "DISEGNA_CERCHIO_3_P", "CERCHIO_DIAMETRO",
      "CERCHIO_CENTRO_RAGGIO", "CERCHIO_CENTRO_TANGENTE", "CERCHIO_INSCRITTO", "DISEGNA_ARCO_3_P",
      "ARCO_CENTRO_INIZIO_FINE", "ARCO_RACCORDO", "ARCO_IN_CERCHIO", "SERIE_LINEARE", "SERIE_ALLINEATA",
      "SERIE_CIRCOLARE", "SERIE_RETTANGOLARE", "DISEGNA_TESTO", "TESTO_DISTANZA", "QUOTATURA_PROGRESSIVA",
      "DISEGNA_TESTO_DA_APPUNTI", "DISEGNA_TESTO_DA_FILE", "TESTO_ALLINEA", "EDIT_SPOSTA_NOME", "NOME_SCAMBIO",
      "DISEGNA_FUMETTO", "DISEGNA_IMMAGINE", "DISEGNA_CAMPITURA"}) {
    const VoceComando* v = CercaTag(tag);
    ASSERT_NE(v, nullptr) << tag;
    EXPECT_FALSE(v->Menu.empty() || v->Voce.empty()) << tag;
  }
}

}  // namespace
}  // namespace varena
