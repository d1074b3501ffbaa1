// The commands on one picked entity, driven by scripts: trim to a corner (parallel lines,
// a corner beyond the lines, an arc), cut (a line in its middle, a circle, an arc in two),
// extend, divide, the single pastes, and the editor of one entity.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "commands/Attese.h"
#include "selection/Selezione.h"
#include "store/Undo.h"

namespace varena {
namespace {

using namespace prova;

struct EntitaBanco : BancoProva {};

void Linea(const Sessione& s, size_t k, double x1, double y1, double x2, double y2) {
  EXPECT_TRUE(Vicini(Estremi(s, k), {x1, y1, x2, y2})) << "riga " << k;
}

// Start and amplitude of an arc row.
Valori Apertura(const Sessione& s, size_t k) { return {s.ArcoInizio[k], s.ArcoFine[k]}; }

TEST_F(EntitaBanco, RifilaDueLineeParalleleNonCambianoNulla) {
  ApriLavoroVuoto(*this);
  MettiLinee(s, {{0, 0, 10, 0}, {0, 5, 10, 5}});
  Pronto(5, 2, 30);
  const int64_t prima = PassoUndo(s);
  EXPECT_TRUE(Stampa("> TAG CAMBIA_RIFILA\nPROMPT Cambia Rifila - Prima Entita:\n> CLICK left 2 0.1\n"
                     "PROMPT Cambia Rifila - Seconda Entità\n> CLICK left 2 5.1\n"
                     "PROMPT Cambia Rifila - Prima Entita:\n"));
  Linea(s, 0, 0, 0, 10, 0);
  Linea(s, 1, 0, 5, 10, 5);
  EXPECT_EQ(std::make_tuple(PassoUndo(s), s.PassoComando), std::make_tuple(prima, 0));
  // A text is refused, silently, and the step does not move.
  MettiTesto(s, 20, 20, "T");
  Pronto(5, 2, 30);
  Script("CLICK left 20 20\n");
  EXPECT_EQ(s.PassoComando, 0);
}

TEST_F(EntitaBanco, RifilaLAngoloTagliaOAllungaVersoLaParteIndicata) {
  MettiLinee(s, {{0, 0, 10, 0}, {5, -5, 5, 5}});
  Pronto(5, 0, 30);
  Script("TAG CAMBIA_RIFILA\nCLICK left 2 0.1\nCLICK left 5.1 3\n");
  Linea(s, 0, 0, 0, 5, 0);
  Linea(s, 1, 5, 0, 5, 5);
  EXPECT_EQ(s.PassoComando, 0);

  // A corner beyond both: the nearer end of each reaches it, the height following the line.
  Banco c;
  MettiLinea(c.s, 0, 0, 4, 0, 0, 2);
  MettiLinea(c.s, 6, 1, 6, 5);
  c.Pronto(3, 2, 30);
  c.Script("TAG CAMBIA_RIFILA\nCLICK left 1 0.1\nCLICK left 6.1 3\n");
  Linea(c.s, 0, 0, 0, 6, 0);
  EXPECT_NEAR(c.s.LineaZ2[0], 3, 1e-12);
  Linea(c.s, 1, 6, 0, 6, 5);

  // An arc is cut at the corner, keeping the side it was picked on.
  Banco d;
  MettiArco(d.s, 0, 0, 5, 0, 100);
  MettiLinea(d.s, -10, 3, 10, 3);
  d.Pronto(0, 0, 30);
  d.Script("TAG CAMBIA_RIFILA\nCLICK left 4.9 1\nCLICK left 8 3.1\n");
  EXPECT_TRUE(Vicini(Apertura(d.s, 0), {Gon(4, 3), 100 - Gon(4, 3)}));
  Linea(d.s, 0, 4, 3, 10, 3);
}

TEST_F(EntitaBanco, TagliaUnaLineaTagliataANelMezzoDiventaDueRigheUguali) {
  ApriLavoroVuoto(*this);
  MettiLinea(s, 0, 0, 10, 0, 1, 11);
  s.LineaColore[0] = 3;
  s.LineaTratteggio[0] = 2;
  s.LineaPiano[0] = "MURI";
  s.LineaQuotata[0] = 1;
  s.LineaTronca[0] = 0.25;
  MettiCerchio(s, 5, 0, 2);
  MettiLinea(s, 0, 1, 10, 1);
  Pronto(5, 0, 30);
  const int64_t prima = PassoUndo(s);
  EXPECT_TRUE(Stampa("> TAG CAMBIA_TAGLIA\nPROMPT Cambia Taglia - Entità Riferimento:\n> CLICK left 5 2\n"
                     "PROMPT Cambia Taglia - Parte da Tagliare:\n"));
  // The reference is shown selected.
  EXPECT_EQ(std::make_tuple(s.StatoCerchio[0], InLista(s, SlotCerchi, true) > 0), std::make_tuple(1, true));
  Script("CLICK left 5 0.1\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 3);
  Linea(s, 0, 0, 0, 3, 0);
  Linea(s, 2, 7, 0, 10, 0);
  EXPECT_TRUE(Vicini({s.LineaZ2[0], s.LineaZ1[2]}, {4, 8}, 1e-12));
  EXPECT_EQ(s.LineaZ2[2], 11);
  for (size_t k : {0u, 2u})
    EXPECT_EQ(std::tie(s.LineaColore[k], s.LineaTratteggio[k], s.LineaPiano[k], s.LineaQuotata[k], s.LineaTronca[k],
                       s.StatoLinea[k]),
              std::make_tuple(3, 2, "MURI", 1, 0.25, 0));
  EXPECT_EQ(PassoUndo(s), prima + 1);
  // Still on the second step, against the same reference: the part from the pick to the
  // one crossing on its side goes.
  EXPECT_EQ(s.PassoComando, 1);
  Script("CLICK left 1 1.1\n");
  Linea(s, 1, 5 - std::sqrt(3.0), 1, 10, 1);
  EXPECT_EQ(std::make_tuple(PassoUndo(s), s.StatoCerchio[0]), std::make_tuple(prima + 2, 1));
  Script("KEY ESC\n");
  EXPECT_EQ(s.StatoCerchio[0], 0);
}

TEST_F(EntitaBanco, TagliaIlCerchioDiventaArcoLArcoUnoODueArchi) {
  MettiLinea(s, -10, 0, 10, 0);
  MettiCerchio(s, 0, 0, 5, 2);
  s.CerchioColore[0] = 4;
  s.CerchioPiano[0] = "ALBERI";
  Pronto(0, 0, 30);
  Script("TAG CAMBIA_TAGLIA\nCLICK left -8 0.1\nCLICK left 0 4.9\n");
  // The northern half, picked, goes; the southern half stays as an arc from East to West.
  ASSERT_EQ(std::make_tuple(s.CerchioIdent[0], s.ContaEntita[SlotArchi]), std::make_tuple(-1, 1));
  EXPECT_TRUE(Vicini(Apertura(s, 0), {100, 200}));
  EXPECT_EQ(std::tie(s.ArcoX[0], s.ArcoRaggio[0], s.ArcoZ[0], s.ArcoQuotaInizio[0], s.ArcoColore[0], s.ArcoPiano[0]),
            std::make_tuple(0, 5, 2, 2, 4, "ALBERI"));

  Banco c;
  MettiArco(c.s, 0, 0, 5, 0, 200, 0, 20);
  MettiLinea(c.s, 3, -10, 3, 10);
  c.Pronto(0, 0, 30);
  c.Script("TAG CAMBIA_TAGLIA\nCLICK left 3.1 -8\nCLICK left 4.9 0\n");
  // The line x = 3 crosses the arc twice; the middle, picked at East, goes.
  ASSERT_EQ(c.s.ContaEntita[SlotArchi], 2);
  const double a = Gon(3, 4), b2 = Gon(3, -4);
  EXPECT_TRUE(Vicini({c.s.ArcoInizio[0], c.s.ArcoFine[0], c.s.ArcoQuotaFinale[0], c.s.ArcoInizio[1],
                      c.s.ArcoFine[1], c.s.ArcoQuotaInizio[1]},
                     {0, a, 20 * a / 200, b2, 200 - b2, 20 * b2 / 200}));
  EXPECT_EQ(c.s.ArcoQuotaFinale[1], 20);
  // The piece left on the South side has its crossing at its own end: nothing to cut.
  c.Script("CLICK left 0 -4.9\n");
  ASSERT_EQ(c.s.ContaEntita[SlotArchi], 2);
  EXPECT_TRUE(Vicini(Apertura(c.s, 1), {b2, 200 - b2}));
  // A line that misses the circle changes nothing.
  MettiArco(c.s, 50, 50, 1, 0, 100);
  c.Pronto(0, 0, 30);
  c.Script("CLICK left 50.7 50.7\n");
  EXPECT_EQ(c.s.ArcoFine[2], 100);
}

TEST_F(EntitaBanco, AllungaLEstremoPiuVicinoVaAlConfine) {
  MettiLinea(s, 10, -5, 10, 5);
  MettiLinea(s, 0, 0, 4, 0, 0, 4);
  Pronto(5, 0, 30);
  EXPECT_TRUE(Stampa("> TAG CAMBIA_ALLUNGA\nPROMPT Cambia Allunga - Entità Riferimento:\n> CLICK left 10.1 2\n"
                     "PROMPT Cambia Allunga - Entità da Allungare:\n> CLICK left 2 0.1\n"));
  Linea(s, 1, 0, 0, 10, 0);
  EXPECT_NEAR(s.LineaZ2[1], 10, 1e-12);
  EXPECT_EQ(s.StatoLinea[0], 1);

  Banco c;
  MettiLinea(c.s, 15, -3, 25, -3);
  MettiArco(c.s, 20, 0, 5, 0, 50);
  c.Pronto(20, 0, 30);
  c.Script("TAG CAMBIA_ALLUNGA\nCLICK left 16 -3.1\nCLICK left 23.5 3.5\n");
  // Of the two crossings, the one nearer to an end: the arc's end goes round to it.
  EXPECT_TRUE(Vicini(Apertura(c.s, 0), {0, Gon(4, -3)}));
}

TEST_F(EntitaBanco, DivideAlPiedeDelPuntoInDueRighe) {
  MettiLinea(s, 0, 0, 10, 0, 0, 10);
  s.LineaColore[0] = 6;
  MettiCerchio(s, 30, 0, 2);
  MettiArco(s, 20, 20, 5, 0, 100);
  Pronto(15, 10, 60);
  EXPECT_TRUE(Stampa("> TAG CAMBIA_DIVIDE\nPROMPT Cambia Divide - Entità da Dividere:\n> CLICK left 30 2.1\n"));
  EXPECT_EQ(s.PassoComando, 0);  // a circle is refused
  Script("CLICK left 5 0.1\nCLICK left 12 3\n");
  EXPECT_EQ(s.PassoComando, 1);  // a point beyond the end divides nothing
  Script("CLICK left 4 3\n");
  ASSERT_EQ(s.ContaEntita[SlotLinee], 2);
  Linea(s, 0, 0, 0, 4, 0);
  Linea(s, 1, 4, 0, 10, 0);
  EXPECT_TRUE(Vicini({s.LineaZ2[0], s.LineaZ1[1]}, {4, 4}, 1e-12));
  EXPECT_EQ(std::tie(s.LineaZ2[1], s.LineaColore[1], s.PassoComando), std::make_tuple(10, 6, 0));
  Script("CLICK left 23.6 23.6\nCLICK left 25 25\n");
  ASSERT_EQ(s.ContaEntita[SlotArchi], 2);
  EXPECT_TRUE(Vicini({s.ArcoFine[0], s.ArcoInizio[1], s.ArcoFine[1]}, {50, 50, 50}));
}

TEST_F(EntitaBanco, IncollaTratteggioColoreEPianoSullEntitaIndicata) {
  MettiLinea(s, 0, 0, 10, 0);
  MettiCerchio(s, 20, 0, 2);
  MettiTesto(s, 30, 0, "T");
  Pronto(15, 0, 60);
  s.Imp.Tratteggio_Default = 3;
  s.Imp.Colore_Default = 5;
  s.PianoCorrente = "MURI";
  Script("TAG INCOLLA_TRATTEGGIO_SINGOLO\nCLICK left 5 0.1\nCLICK left 30 0\n");
  EXPECT_EQ(std::tie(s.LineaTratteggio[0], s.ComandoCorrente, s.PassoComando), std::make_tuple(3, 306, 0));
  Script("TAG INCOLLA_COLORE_SINGOLO\nCLICK left 20 2.1\nTAG INCOLLA_PIANO_SINGOLO\nCLICK left 30 0\n");
  EXPECT_EQ(std::tie(s.CerchioColore[0], s.LineaColore[0], s.TestoPiano[0], s.LineaPiano[0]),
            std::make_tuple(5, 1, "MURI", "0"));
}

TEST_F(EntitaBanco, EditaEntitaScriveSoloICampiCambiatiChiedeSulNomeEdElimina) {
  ApriLavoroVuoto(*this);
  MettiLinea(s, 0.1 + 0.2, 0, 10, 0);
  MettiPunti(s, {{"A", 30, 0, 5}, {"B", 40, 0, 6}});
  Pronto(20, 0, 60);
  const int64_t prima = PassoUndo(s);
  Script("TAG EDIT_ENTITA\nCLICK left 5 0.1\n");
  const Dialogo* d = TrovaDialogo(s, "FormEditModifica1");
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(std::make_tuple(d->Titolo, d->Valore("Est1"), d->Valore("Piano")),
            std::make_tuple("Edit Linea", "0.300", "0"));
  Script("FIELD Est2 20,5\nPRESS OK\n");
  // The first end shown rounded, kept to the last bit.
  EXPECT_EQ(std::make_tuple(s.LineaX2[0], s.LineaX1[0], PassoUndo(s), DialogoAperto(s, "FormEditModifica1")),
            std::make_tuple(20.5, 0.1 + 0.2, prima + 1, false));
  // A point opens its own editor; a name already borne asks first.
  Script("CLICK left 30 0.1\n");
  ASSERT_TRUE(DialogoAperto(s, "formEditaPunto"));
  EXPECT_EQ(TrovaDialogo(s, "formEditaPunto")->Valore("Quota"), "5.000");
  EXPECT_TRUE(Stampa("> FIELD Nome B\n> ANSWER no\n> PRESS OK\n"
                     "DOMANDA [Nome esistente] Nome Punto B esistente!! Procedere ugualmente ?  -> NO\n"));
  EXPECT_EQ(std::make_tuple(s.PuntoNome[0], DialogoAperto(s, "formEditaPunto")), std::make_tuple("A", true));
  Script("ANSWER yes\nPRESS OK\n");
  EXPECT_EQ(s.PuntoNome[0], "B");
  // The free text and the tags apart; the tags go back at the front in the editor's order.
  s.PuntoDescrizione[0] = "muro<PV> *V*[P.A.]";
  Script("CLICK left 30 0.1\n");
  const Dialogo* e = TrovaDialogo(s, "formEditaPunto");
  ASSERT_NE(e, nullptr);
  EXPECT_EQ(std::make_tuple(e->Valore("Descrizione"), e->Valore("VerticeDirezione"), e->Valore("Ausiliario"),
                            e->Valore("Planimetrico")),
            std::make_tuple("muro *V*", "PV", "1", "0"));
  Script("FIELD VerticeDirezione PD\nFIELD Planimetrico 1\nFIELD Descrizione muro nuovo\nPRESS OK\n");
  EXPECT_EQ(s.PuntoDescrizione[0], "<P!><PD>[P.A.]muro nuovo");
  // The Delete key deletes the point open in the editor.
  Script("CLICK left 40 0.1\nKEY DELETE\n");
  EXPECT_EQ(std::make_tuple(s.PuntoIdent[1], s.ContaEntita[SlotPunti], PassoUndo(s)),
            std::make_tuple(-1, 2, prima + 4));
}

}  // namespace
}  // namespace varena
