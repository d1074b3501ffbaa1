// The commands on a selection, driven by scripts: mirror with and without the originals,
// scale (the unit factor too), rotation, move and copy with the heights of the picked
// points, deletion that keeps the rows until a reload, freezing, the bulk properties with
// the pickers of layer, line type and colour that come before the selection, the height
// change, the alignment, the roto-translation with its grid and reports, the vertical
// rotation of a face, and the layer panel's changes to whole layers.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "commands/Attese.h"
#include "commands/ComandiPiani.h"
#include "commands/RoutineModifica.h"
#include "core/Testo.h"
#include "core/Tratteggi.h"
#include "selection/Selezione.h"
#include "store/Undo.h"

namespace varena {
namespace {

using namespace prova;

struct ModificaBanco : BancoProva {};

TEST_F(ModificaBanco, SpecchioConNoRestanoEntrambeLeCopieConSiCambianoLeRighe) {
  MettiLinea(s, 1, 1, 3, 2);
  s.LineaColore[0] = 3;
  MettiArco(s, 2, 0, 1, 0, 100, 5, 6);  // North to East
  MettiPunto(s, "7", 4, 0, 2);
  MettiTesto(s, 1, 3, "T");
  s.TestoRotazione[0] = 10;
  Pronto(0, 0, 40);
  EXPECT_TRUE(Contiene(Script("TAG CAMBIA_SPECCHIO\nPRESS Tutto\nPRESS OK\nCLICK left 0 0\nANSWER no\nCLICK left 0 10\n"),
                       "> PRESS OK\nDIALOGO - Selezentita\nPROMPT Asse di Simmetria - Primo Punto:\n> CLICK left 0 0\n"
                       "PROMPT Cambia Specchio - Secondo Punto:\n> ANSWER no\n> CLICK left 0 10\n"
                       "DOMANDA [Cambia Specchio] Cancellare le entità di partenza? -> NO\n"));
  // The originals stay, the copies lie across the axis x = 0.
  ASSERT_EQ(s.ContaEntita[SlotLinee], 2);
  EXPECT_EQ(Estremi(s, 0), (Valori{1, 1, 3, 2}));
  EXPECT_EQ(Estremi(s, 1), (Valori{-1, 1, -3, 2}));
  EXPECT_EQ(s.LineaColore[1], 3);
  ASSERT_EQ(s.ContaEntita[SlotArchi], 2);
  // North to East mirrored is West to North: it starts at 300 gon, with the heights of its
  // ends exchanged with the ends.
  EXPECT_EQ(std::tie(s.ArcoX[1], s.ArcoInizio[1], s.ArcoFine[1], s.ArcoQuotaInizio[1], s.ArcoQuotaFinale[1]),
            std::make_tuple(-2, 300, 100, 6, 5));
  ASSERT_EQ(s.ContaEntita[SlotPunti], 2);
  EXPECT_EQ(std::tie(s.PuntoNome[1], s.PuntoX[1], s.PuntoZ[1]), std::make_tuple("8", -4, 2));
  EXPECT_EQ(std::tie(s.TestoX[1], s.TestoRotazione[1]), std::make_tuple(-1, 10));
  EXPECT_EQ(std::make_tuple(ContaSelezionati(s), DialogoAperto(s, "Selezentita")), std::make_tuple(0, true));
  // "Yes" moves the rows themselves.
  Script("PRESS Tutto\nPRESS OK\nCLICK left 0 0\nANSWER yes\nCLICK left 0 10\n");
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotLinee], Estremi(s, 0), Estremi(s, 1)),
            std::make_tuple(2, Valori{-1, 1, -3, 2}, Valori{1, 1, 3, 2}));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.PuntoNome[0], s.PuntoX[0]), std::make_tuple(2, "7", -4));
}

TEST_F(ModificaBanco, ScalaIlFattoreUnoNonCambiaNullaMaPrendeLoSnapshot) {
  ApriLavoroVuoto(*this);
  MettiLinea(s, 0.1 + 0.2, 2.3, 7.7, 9.9);
  MettiCerchio(s, 3, 3, 2);
  MettiTesto(s, 1, 1, "T");
  s.TestoAltezza[0] = 1.5;
  MettiImmagine(s, 0, 10, 100, 50, 0.1);
  Pronto(5, 5, 40);
  const int64_t prima = PassoUndo(s);
  EXPECT_TRUE(Contiene(Script("TAG CAMBIA_SCALA\nPRESS Tutto\nPRESS OK\nANSWER 1\nCLICK left 5 5\n"),
                       "PROMPT Centro di Riduzione:\n> ANSWER 1\n> CLICK left 5 5\n"
                       "IMPUTA [Cambia Scala] Fattore di Scala : -> 1\n"));
  EXPECT_EQ(std::make_tuple(PassoUndo(s), Estremi(s, 0), s.CerchioRaggio[0]),
            std::make_tuple(prima + 1, Valori{0.1 + 0.2, 2.3, 7.7, 9.9}, 2));
  // Twice as large about (1, 1).
  Script("PRESS Tutto\nPRESS OK\nANSWER 2\nCLICK left 1 1\n");
  EXPECT_EQ(PassoUndo(s), prima + 2);
  EXPECT_TRUE(Vicini(Estremi(s, 0), {1 + 2 * (0.1 + 0.2 - 1), 4.6 - 1, 14.4, 18.8}, 1e-12));
  EXPECT_EQ(std::tie(s.CerchioX[0], s.CerchioRaggio[0], s.TestoAltezza[0]), std::make_tuple(5, 4, 3));
  EXPECT_EQ(std::tie(s.BitmapY[0], s.BitmapScalaLar[0]), std::make_tuple(19, 0.2));
  // A value prompt cancelled leaves the centre to be given again.
  Script("PRESS Tutto\nPRESS OK\nCLICK left 1 1\n");
  EXPECT_EQ(std::make_tuple(PassoUndo(s), s.PassoComando), std::make_tuple(prima + 2, 0));
  EXPECT_TRUE(s.SelezioneConfermata);
}

TEST_F(ModificaBanco, RuotaCentoGonInSensoOrarioETestiAlContrario) {
  MettiPunto(s, "1", 0, 10, 4);
  MettiLinea(s, 0, 0, 0, 5);
  MettiTesto(s, 0, 2, "T");
  MettiArco(s, 0, 3, 1, 350, 100);
  MettiImmagine(s, 0, 20, 10, 10, 1);
  s.BitmapRotazione[0] = 10;
  Pronto(0, 0, 60);
  Script("TAG CAMBIA_RUOTA\nPRESS Tutto\nPRESS OK\nANSWER 100\nCLICK left 0 0\n");
  // A point due North of the centre goes due East; the height stays.
  EXPECT_TRUE(Vicini({s.PuntoX[0], s.PuntoY[0], s.LineaX2[0], s.LineaY2[0], s.TestoX[0], s.TestoRotazione[0],
                      s.ArcoX[0], s.ArcoInizio[0], s.BitmapX[0], s.BitmapRotazione[0]},
                     {10, 0, 5, 0, 2, 300, 3, 50, 20, 110}, 1e-12));
  EXPECT_EQ(s.PuntoZ[0], 4);
}

TEST_F(ModificaBanco, SpostaQuotaECopiaLaQuotaDeiPuntiPresiEINomiNuoviDelleCopie) {
  MettiPunti(s, {{"A", 0, 0, 1}, {"B", 10, 5, 3}});
  MettiLinea(s, 1, 1, 2, 2, 1, 2);
  MettiArco(s, 3, 3, 1, 0, 100, 7, 8);
  Pronto(5, 5, 40);
  EXPECT_TRUE(Contiene(Script("TAG CAMBIA_SPOSTA\nPRESS TutteLinee\nPRESS TuttiArchi\nPRESS OK\nKEY P\n"
                              "CLICK left 0.2 0\nKEY P\nCLICK left 10 5.3\n"),
                       "PROMPT Dal Punto :\n> KEY P\n> CLICK left 0.2 0\nPROMPT Cambia Sposta - Al Punto:\n"));
  // From A to B: 10 East, 5 North, 2 up.
  EXPECT_EQ(std::tie(s.LineaX1[0], s.LineaY1[0], s.LineaZ1[0], s.LineaZ2[0]), std::make_tuple(11, 6, 3, 4));
  EXPECT_EQ(std::tie(s.ArcoX[0], s.ArcoQuotaInizio[0], s.ArcoQuotaFinale[0]), std::make_tuple(13, 9, 10));
  EXPECT_EQ(s.PuntoX[0], 0);  // the points were not selected
  EXPECT_EQ(s.ContaEntita[SlotLinee], 1);
  // The height alone: the difference of the two points, 2, on every height, the plan kept.
  const double z = s.ArcoZ[0];
  EXPECT_TRUE(Contiene(Script("TAG CAMBIA_QUOTA\nPRESS TutteLinee\nPRESS TuttiArchi\nPRESS OK\nKEY P\nCLICK left 0 0\n"
                              "KEY P\nCLICK left 10 5\n"),
                       "DIALOGO + Selezentita [Cambia - Quota]"));
  EXPECT_EQ(std::tie(s.LineaZ1[0], s.LineaZ2[0], s.LineaX1[0]), std::make_tuple(5, 6, 11));
  EXPECT_EQ(std::tie(s.ArcoQuotaInizio[0], s.ArcoZ[0], s.PuntoZ[0]), std::make_tuple(11, z + 2, 1));

  // Copies of points take the next free names.
  Banco c;
  MettiPunti(c.s, {{"1", 0, 0}, {"2", 1, 0}, {"3", 2, 0}, {"PF1", 3, 0}});
  c.s.PuntoSpoX[3] = 0.5;
  c.Pronto(0, 0, 40);
  c.Script("TAG CAMBIA_COPIA\nPRESS TuttiPunti\nPRESS OK\nCLICK left 50 50\nCLICK left 60 50\n");
  ASSERT_EQ(c.s.ContaEntita[SlotPunti], 8);
  EXPECT_EQ(std::tie(c.s.PuntoNome[4], c.s.PuntoNome[5], c.s.PuntoNome[6]), std::make_tuple("4", "5", "6"));
  EXPECT_EQ(std::tie(c.s.PuntoNome[7], c.s.PuntoX[7], c.s.PuntoSpoX[7], c.s.StatoPunto[7]),
            std::make_tuple("PF2", 13, 0.5, 0));
  EXPECT_EQ(c.s.PuntoX[3], 3);
}

TEST_F(ModificaBanco, EliminaLeRigheRestanoContateFinoAUnaRilettura) {
  ApriLavoroVuoto(*this);
  MettiLinee(s, {{0, 0, 10, 0}, {0, 5, 10, 5}, {0, 9, 10, 9}});
  ASSERT_TRUE(VR_SalvaUndo(s));
  Pronto(5, 5, 40);
  const int64_t prima = PassoUndo(s);
  Script("TAG CAMBIA_ELIMINA\nPRESS Singola\nCLICK left 5 5.1\nKEY ESC\nPRESS OK\n");
  EXPECT_EQ(std::make_tuple(PassoUndo(s), s.ContaEntita[SlotLinee], s.LineaIdent[1], RigheVive(s, SlotLinee)),
            std::make_tuple(prima + 1, 3, -1, 2));
  // The provisional member holds the live rows only; the list has no record of the row.
  EXPECT_EQ(LeggiFileProva(s.NomeLavoro + ".LIN").size(), 2u * 128u);
  for (int64_t i = 0; i < s.ListaDisegno.Conta(); ++i) EXPECT_NE(s.ListaDisegno.Riga[static_cast<size_t>(i)], 1);
  // Read back from the generations, the rows are renumbered.
  Script("KEY ESC\nKEY F9\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.LineaIdent[1]), std::make_tuple(3, 0));
  Script("KEY F10\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.LineaY1[1]), std::make_tuple(2, 9));
}

TEST_F(ModificaBanco, ProprietaCongelaScongelaEColoreCorrente) {
  MettiPunto(s, "1", 0, 0);
  MettiLinea(s, 0, 0, 10, 0);
  MettiCerchio(s, 5, 5, 1);
  MettiTesto(s, 3, 3, "T");
  Pronto(5, 5, 40);
  Script("TAG CAMBIA_CONGELA\nPRESS Tutto\nPRESS OK\n");
  EXPECT_EQ(std::tie(s.LineaCongela[0], s.CerchioCongela[0], s.TestoCongela[0], s.PuntoCongelaSimbolo[0],
                     s.PuntoCongelaDescrizione[0]),
            std::make_tuple(-1, -1, -1, -1, -1));
  EXPECT_EQ(s.ListaDisegno.Conta(), 0);
  Script("TAG CAMBIA_SCONGELA\nPRESS Tutto\nPRESS OK\n");
  EXPECT_EQ(std::tie(s.LineaCongela[0], s.PuntoCongelaNome[0]), std::make_tuple(0, 0));
  EXPECT_GT(s.ListaDisegno.Conta(), 0);
  // The quick colour, then the colour in force on the selection.
  Script("KEY ESC\nTAG COLORE_6\n");
  Script("TAG CAMBIA_COLORE\nPRESS Tutto\nPRESS OK\n");
  EXPECT_EQ(std::tie(s.LineaColore[0], s.TestoColore[0], s.PuntoColoreSimbolo[0], s.PuntoColoreDescrizione[0]),
            std::make_tuple(6, 6, 6, 6));
}

// The layer, the line type and the colour written into a selection are asked first, from
// the job's tables; the selection comes only once one is chosen.
TEST_F(ModificaBanco, ProprietaPianoTratteggioEColoreSceltiPrimaDellaSelezione) {
  MettiPunto(s, "1", 0, 0);
  MettiLinea(s, 0, 0, 10, 0);
  MettiCerchio(s, 5, 5, 1);
  Pronto(5, 5, 40);
  for (const char* riga : {"RECINZ|0|1|0|1|Arial|0|0|", "STRADE|0|1|0|1|Arial|0|0|"}) s.Piani.push_back(LeggiRigaPiano(riga));
  s.PianoCorrente = "RECINZ";
  CaricaTratteggi(s);
  EXPECT_TRUE(Stampa("> TAG CAMBIA_PIANO\n"
                     "DIALOGO + MenuPiani [Menu Piani] Piano=\"RECINZ\" Elenco=\"RECINZ | STRADE | \" (OK, "
                     "Annulla)\n"));
  // A layer of the table keeps the table's spelling; then the selection and the work.
  Script("FIELD MenuPiani.Piano strade\nPRESS OK\nPRESS Selezentita.Tutto\nPRESS Selezentita.OK\n");
  EXPECT_EQ(std::tie(s.LineaPiano[0], s.CerchioPiano[0], s.PuntoPiano[0], s.PianoCorrente),
            std::make_tuple("STRADE", "STRADE", "STRADE", "STRADE"));
  // The command comes back to the layers; cancelled there, it ends.
  ASSERT_EQ(std::make_tuple(DialogoAperto(s, "MenuPiani"), DialogoAperto(s, "Selezentita")), std::make_tuple(true, false));
  Script("PRESS MenuPiani.Annulla\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
  // A line type by its number in the list.
  Script("TAG CAMBIA_TRATTEGGIO\nFIELD MenuTratteggi.Tratteggio 3\nPRESS OK\n"
           "PRESS TutteLinee\nPRESS Selezentita.OK\n");
  EXPECT_EQ(std::tie(s.LineaTratteggio[0], s.CerchioTratteggio[0]), std::make_tuple(3, 1));
  // A colour out of the table is refused and the dialog waits.
  EXPECT_TRUE(Stampa("> TAG CAMBIA_COLORE_DEFAULT\nDIALOGO - MenuTratteggi\n"
                     "DIALOGO + FormSelezColore [Seleziona Colore] Colore=\"1\" (OK, Annulla)\n"
                     "> FIELD FormSelezColore.Colore 0\n> PRESS OK\n"
                     "MESSAGGIO [Seleziona Colore] Colore non valido\n"));
  Script("FIELD Colore 4\nPRESS OK\nPRESS Selezentita.Tutto\nPRESS Selezentita.OK\n");
  EXPECT_EQ(std::tie(s.LineaColore[0], s.CerchioColore[0], s.PuntoColoreNome[0]), std::make_tuple(4, 4, 4));
}

// Opened by their keys and tags, the pickers only set what is current.
TEST_F(ModificaBanco, ProprietaF6EF7CambianoSoloTratteggioEPianoCorrenti) {
  MettiLinea(s, 0, 0, 10, 0);
  Pronto(5, 5, 40);
  CaricaTratteggi(s);
  Script("KEY F7\nFIELD MenuPiani.Piano MURI\nPRESS OK\n");
  EXPECT_EQ(s.PianoCorrente, "MURI");
  Script("KEY F6\n");
  ASSERT_TRUE(DialogoAperto(s, "MenuTratteggi"));
  // Lines of linee.ini as written when absent: "*TRATTEGG" over "A, 3, -3", "*PUNTINI" over
  // "A, 0, -25, 0, -25".
  const std::vector<std::string> elenco = Dividi(TrovaDialogo(s, "MenuTratteggi")->Valore("Elenco"), '\n');
  ASSERT_EQ(elenco.size(), 19u);
  EXPECT_EQ(elenco[1], "2 TRATTEGG   __ __ __ __   Elementi: 3. [ TRATTO ] 3. [ SPAZIO ]");
  EXPECT_EQ(elenco[5], "6 PUNTINI   ................   Elementi: [ PUNTO ] 25. [ SPAZIO ] [ PUNTO ] 25. [ SPAZIO ]");
  // A line of the list, or a name, picks the same way.
  Script("FIELD Tratteggio " + elenco[5] + "\nPRESS OK\n");
  EXPECT_EQ(s.Imp.Tratteggio_Default, 6);
  Script("TAG MENU_TRATTEGGI\nFIELD Tratteggio nascosta\nPRESS OK\n");
  EXPECT_EQ(std::make_tuple(s.Imp.Tratteggio_Default, s.ComandoCorrente, s.Dialoghi.size(), s.LineaPiano[0],
                            s.LineaTratteggio[0]),
            std::make_tuple(3, 0, 0u, "0", 1));
}

TEST_F(ModificaBanco, AllineaLaDirezioneGiraEIlPrimoPuntoVaSulSecondo) {
  MettiPunto(s, "9", 20, 0);
  MettiTesto(s, 10, 0, "T");
  Pronto(0, 0, 60);
  Script("TAG CAMBIA_ALLINEA\nPRESS Tutto\nPRESS OK\nCLICK left 0 0\nCLICK left 10 0\nCLICK left 0 20\n");
  // Turned by -100 gon about the origin, then carried by (0, 10).
  EXPECT_TRUE(Vicini({s.PuntoX[0], s.PuntoY[0], s.TestoX[0], s.TestoY[0], s.TestoRotazione[0]}, {0, 30, 0, 20, 100}));
  EXPECT_EQ(s.PassoComando, 0);
}

std::string Colonna(std::string t, size_t n) {
  while (t.size() < n) t += ' ';
  return t;
}

TEST_F(ModificaBanco, RotoTraslazioneLaGrigliaIlBersaglioDigitatoEIReport) {
  MettiPunti(s, {{"O", 0, 0, 1}, {"OR", 0, 10, 2}});
  // Picked to the tenth of a millimetre, shown to the millimetre: the pick is what counts.
  MettiPunti(s, {{"NO", 100.0004, 100, 3}, {"NOR", 110, 100, 4}});
  MettiLinea(s, 0, 0, 0, 5, 7, 8);
  MettiTesto(s, 0, 2, "T");
  Pronto(50, 50, 300);
  EXPECT_TRUE(Contiene(Script("TAG RT\nPRESS TutteLinee\nPRESS TuttiTesti\nPRESS OK\nKEY P\nCLICK left 0 0\nKEY P\n"
                              "CLICK left 0 10\nKEY P\nCLICK left 100 100\nKEY P\nCLICK left 110 100\n"),
                       "PROMPT Rototraslazione con Selezione - Centro di Rotazione :\n> KEY P\n> CLICK left 0 0\n"
                       "PROMPT Rototralsazione - Punto Orientamento\n> KEY P\n> CLICK left 0 10\n"
                       "PROMPT Rototraslazione - Nuovo Centro\n> KEY P\n> CLICK left 100 100\n"
                       "PROMPT Rototraslazione - Nuovo Orientamento\n"));
  const Dialogo* d = TrovaDialogo(s, "FormRotoTraslazione");
  ASSERT_NE(d, nullptr);
  // The grid as picked (the report below pins the cells it shares with the file).
  EXPECT_EQ(std::make_tuple(d->Titolo, d->Valore("NuovoOrientamento_Azimut"), d->Valore("Differenza_Azimut")),
            std::make_tuple("Punto - Rototraslazione con Selezione", "100.0000", "100.0000"));
  // The target typed over the picked one: due South of the new origin.
  Script("FIELD NuovoOrientamento_Nord 90\nFIELD NuovoOrientamento_Est 100,0004\nPRESS Calcola\n");
  EXPECT_EQ(TrovaDialogo(s, "FormRotoTraslazione")->Valore("Differenza_Azimut"), "200.0000");
  Script("PRESS FormRotoTraslazione.OK\n");
  EXPECT_TRUE(Vicini({s.LineaX1[0], s.LineaY1[0], s.LineaX2[0], s.LineaY2[0], s.TestoY[0], s.TestoRotazione[0]},
                     {100.0004, 100, 100.0004, 95, 98, 200}));
  EXPECT_EQ(std::tie(s.LineaZ2[0], s.PuntoX[0]), std::make_tuple(8, 0));  // points were not selected
  EXPECT_EQ(LeggiFileProva(PercorsoReportRotoTraslazione(s, "CSV")),
            "Rootraslazione\r\n\r\n"
            ";Nome;Nord;Est;Quota;Azimut;Distanza\r\n"
            "Origine;O;0.000;0.000;1.000;;\r\n"
            "Orientamento;OR;10.000;0.000;2.000;0.0000;10.000\r\n"
            "Nuova Origine;NO;100.000;100.000;3.000;;\r\n"
            "Nuovo Orientamento;NOR;90.000;100.000;4.000;200.0000;10.000\r\n"
            "Differenza;;;;;200.0000;0.000\r\n");
  const std::string txt = LeggiFileProva(PercorsoReportRotoTraslazione(s, "TXT"));
  EXPECT_EQ(txt.substr(0, 17), "Rototraslazione\r\n");
  EXPECT_NE(txt.find("\r\n" + Colonna("Orientamento", 22) + Colonna("OR", 22) + Colonna("10.000", 15) +
                     Colonna("0.000", 15) + Colonna("2.000", 15) + Colonna("0.0000", 15) + "10.000\r\n"),
            std::string::npos)
      << txt;
  // Cancelled, the grid leaves the drawing as it was and the command ends.
  Script("PRESS TutteLinee\nPRESS OK\nCLICK left 0 0\nCLICK left 0 1\nCLICK left 0 2\nCLICK left 0 3\n"
           "PRESS FormRotoTraslazione.Annulla\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
  EXPECT_NEAR(s.LineaX1[0], 100.0004, 1e-9);
}

TEST_F(ModificaBanco, RotazioneVerticaleRibaltamentoDiUnaFacciataTraIDuePunti) {
  MettiPunti(s, {{"A", 0, 0, 0}, {"B", 10, 0, 0}, {"P", 5, 0, 3}, {"Q", 20, 0, 3}});
  MettiLinea(s, 2, 0, 2, 0, 0, 4);
  Pronto(5, 0, 50);
  EXPECT_TRUE(Contiene(Script("TAG RIBALTAMENTO\nCLICK left 0 0\nCLICK left 10 0\n"),
                       "PROMPT Ribaltamento - Primo Punto:\n> CLICK left 0 0\nPROMPT Ribaltamento - Secondo Punto:\n"));
  // A face standing on the axis lies flat on its right, at the axis's height; Q, beyond the
  // second point, is left alone.
  EXPECT_EQ((Valori{s.PuntoX[2], s.PuntoY[2], s.PuntoZ[2], s.LineaY2[0], s.LineaZ2[0], s.PuntoY[3], s.PuntoZ[3]}),
            (Valori{5, -3, 0, -4, 0, 0, 3}));
  EXPECT_EQ(s.ComandoCorrente, 415);

  Banco c;
  MettiPunti(c.s, {{"A", 0, 0, 1}, {"B", 0, 10, 1}, {"P", 0, 5, 4}});
  c.Pronto(0, 5, 50);
  c.Script("TAG ROTAZIONE_VERTICALE\nCLICK left 0 0\nANSWER 50\nCLICK left 0 10\n");
  // Half a right angle: the height of 3 above the axis shares itself between the two.
  const double r = 3 / std::sqrt(2.0);
  EXPECT_TRUE(Vicini({c.s.PuntoX[2], c.s.PuntoY[2], c.s.PuntoZ[2]}, {r, 5, 1 + r}, 1e-12));
}

// The layer panel's changes to whole layers: counts, freezing and colour, each undone by
// one undo.
TEST_F(ModificaBanco, PianiContaCongelaEColoraUnPianoConIlSuoUndo) {
  ApriLavoroVuoto(*this);
  MettiPunto(s, "1", 0, 0);
  MettiLinee(s, {{0, 0, 10, 0}, {0, 0, 0, 10}});
  MettiCerchio(s, 5, 5, 2);
  s.PuntoPiano[0] = "strade";  // the layer's own spelling is the table's
  s.LineaPiano[0] = " STRADE ";
  s.LineaPiano[1] = "RECINZ";
  s.CerchioPiano[0] = "STRADE";
  s.Piani.push_back(LeggiRigaPiano("STRADE|0|3|0|1|Arial|0|0|"));
  MettiLinea(s, 1, 1, 2, 2);
  s.LineaPiano[2] = "STRADE";
  s.LineaIdent[2] = -1;  // deleted: not counted, not changed
  Pronto();
  ScegliPianoCorrente(s, "strade");
  EXPECT_EQ(s.PianoCorrente, "STRADE");

  auto elenco = ElencoPiani(s);
  ASSERT_EQ(elenco.size(), 3u);
  EXPECT_EQ(std::tie(elenco[0].Nome, elenco[0].Entita, elenco[1].Nome), std::make_tuple("0", 0, "STRADE"));
  EXPECT_EQ((std::vector<int64_t>{elenco[1].Colore, elenco[1].Entita, elenco[1].Congelate}),
            (std::vector<int64_t>{3, 3, 0}));
  EXPECT_TRUE(elenco[1].Corrente && elenco[1].NellaTabella);
  EXPECT_EQ(std::tie(elenco[2].Nome, elenco[2].NellaTabella), std::make_tuple("RECINZ", false));

  const int64_t passo = PassoUndo(s);
  ASSERT_TRUE(CongelaPiano(s, "Strade", true));
  EXPECT_EQ((std::vector<int>{s.PuntoCongelaSimbolo[0], s.PuntoCongelaDescrizione[0], s.LineaCongela[0],
                              s.LineaCongela[1], s.LineaCongela[2], s.CerchioCongela[0]}),
            (std::vector<int>{-1, -1, -1, 0, 0, -1}));
  EXPECT_EQ(std::make_tuple(ElencoPiani(s)[1].Congelate, PassoUndo(s)), std::make_tuple(3, passo + 1));
  EXPECT_EQ(std::make_tuple(CongelaPiano(s, "VUOTO", true), PassoUndo(s)), std::make_tuple(false, passo + 1));

  // A layer only the entities name enters the table with its colour.
  ASSERT_TRUE(ColorePiano(s, "RECINZ", 5));
  EXPECT_EQ(std::make_tuple(s.LineaColore[1], s.LineaColore[0], ScriviRigaPiano(s.Piani.back())),
            std::make_tuple(5, 1, "RECINZ|0|5|0|1|Arial|0|0|0"));
  EXPECT_EQ(LeggiFileProva(s.NomeLavoro + ".PIA"), "0|0|1|0|1|Arial|0|0|0\r\nSTRADE|0|3|0|1|Arial|0|0|0\r\nRECINZ|0|5|0|1|Arial|0|0|0\r\n");
  EXPECT_FALSE(ColorePiano(s, "RECINZ", 0));

  // Each change is one step back.
  Script("KEY F9\n");
  EXPECT_EQ(std::make_tuple(s.LineaColore[1], s.Piani.size()), std::make_tuple(1, 2u));
  Script("KEY F9\n");
  EXPECT_EQ(std::tie(s.LineaCongela[0], s.PuntoCongelaNome[0]), std::make_tuple(0, 0));
}

}  // namespace
}  // namespace varena
