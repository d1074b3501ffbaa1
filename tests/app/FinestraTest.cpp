// The main window driven as a user drives it: keys, wheel, drag, toolbar tags, the job
// windows, and a line drawn with the mouse through the snaps.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileSystemModel>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QCompleter>
#include <QProgressBar>
#include <QRegularExpression>
#include <QScreen>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QWheelEvent>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

#include "DialogoQt.h"
#include "FinestraPrincipale.h"
#include "FinestraLibretto.h"
#include "FinestreLavori.h"
#include "PannelloPiani.h"
#include "PannelloPunti.h"
#include "RigaComando.h"
#include "WidgetGrafica.h"
#include "Tema.h"
#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "commands/TabellaComandi.h"
#include "cadastre/OperazioniElenco.h"
#include "core/Avvio.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "selection/Selezione.h"
#include "store/Provvisorio.h"
#include "store/Registro.h"
#include "store/Undo.h"
#include "support/Supporto.h"

namespace varena {
namespace {

constexpr double kE0 = 1725300.0, kN0 = 5031200.0;  // the example's sheet corner

// Answers the next message box that appears, within a second, with `bottone`; `testi` gets
// its buttons' texts.
void RispondiAlBox(QMessageBox::StandardButton bottone, QStringList* testi = nullptr, int attese = 50) {
  QTimer::singleShot(20, [=] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) {
      if (attese > 0) RispondiAlBox(bottone, testi, attese - 1);
      return;
    }
    if (testi)
      for (auto* b : box->buttons()) *testi << b->text();
    box->button(bottone)->click();
  });
}

// Whether the core does the work of an arming tag, found by doing it on the example job in a
// session of its own, with "1" for every value asked. A command on a selection gets the whole
// drawing selected and confirmed: a command with no work on a selection ends there. Any other
// gets a click on station 100: a command with no steps of its own changes nothing at it.
bool IlNucleoLoEsegue(const std::string& lavoro, const std::string& tag) {
  InterfacciaRegistrata ui;
  for (int i = 0; i < 4; ++i) ui.RispondiValore("1");
  Sessione s;
  s.Ui = &ui;
  VarenaLoad(s, lavoro + ".CFG");
  EseguiTag(s, tag);
  bool eseguito = false;
  if (s.ComandoCorrente != 0) {
    const std::string prompt = s.Prompt;
    const int16_t passo = s.PassoComando;
    const int64_t generazione = LeggiDiario(s)->Passo;
    const size_t mostrati = ui.Messaggi.size() + ui.Domande.size() + ui.Dialoghi.size() + ui.Richieste.size();
    if (DialogoAperto(s, "Selezentita")) {
      PremiBottone(s, "Selezentita", "Tutto");
      PremiBottone(s, "Selezentita", "OK");
    } else {
      MouseMove(s, 0, 0, kE0 - s.Vista.CentroEst, kN0 - s.Vista.CentroNord);
      MouseDown(s, BottoneSinistro, 0, kE0 - s.Vista.CentroEst, kN0 - s.Vista.CentroNord);
    }
    eseguito = s.ComandoCorrente != 0 &&
               (s.Prompt != prompt || s.PassoComando != passo || LeggiDiario(s)->Passo != generazione ||
                ui.Messaggi.size() + ui.Domande.size() + ui.Dialoghi.size() + ui.Richieste.size() != mostrati);
  }
  InterrompiComando(s);
  EliminaProvviso(s);
  return eseguito;
}

class Desktop : public ::testing::Test {
 protected:
  prova::CartellaTemporanea doc, prog, utente;
  prova::CartelleDelProgramma cartelle{doc.Percorso(), prog.Percorso()};
  std::string base;
  std::unique_ptr<Sessione> s;
  std::unique_ptr<FinestraPrincipale> f;

  void SetUp() override { base = prova::CopiaEsempio(utente / "lavori"); }
  void TearDown() override { Chiudi(); }
  void Chiudi() {
    if (f) f->EsciSenzaDomande();
    f.reset();
    s.reset();
  }
  // A window on `riga`; one already open is closed first, as the user quits and starts again.
  void Avvia(const std::string& riga) {
    Chiudi();
    s = std::make_unique<Sessione>();
    f = std::make_unique<FinestraPrincipale>(*s);
    VarenaLoad(*s, riga);
    f->PreparaBarre();
    f->resize(1280, 800);
    f->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(f.get()));
    f->Disegno()->Rigenera();
    f->MostraNomeDelFile();
  }
  Tela* T() { return f->Disegno(); }
  QPoint Pixel(double e, double n) { return T()->InPixel(e, n).toPoint(); }
  void Clic(double e, double n) {
    QTest::mouseMove(T(), Pixel(e, n));
    QTest::mouseClick(T(), Qt::LeftButton, {}, Pixel(e, n));
  }
  void Tasto(char c) { QTest::keyClick(T(), c); }
};

// The example job open in the window.
struct Finestra : Desktop {
  void SetUp() override {
    Desktop::SetUp();
    Avvia(base + ".CFG");
  }
};

TEST_F(Finestra, TastiRotellaTrascinamentoVisualizzazioneSalvataggioAnnullaERecenti) {
  EXPECT_TRUE(f->windowTitle().contains("RILIEVO"));
  EXPECT_DOUBLE_EQ(s->Vista.AltezzaVista, 70);

  QTest::keyClick(T(), Qt::Key_PageUp);  // ZOOM_+: one fiftieth less
  EXPECT_DOUBLE_EQ(s->Vista.AltezzaVista, 70 - 70.0 / 50);
  QTest::keyClick(T(), Qt::Key_Insert);  // everything in view
  const double tutto = s->Vista.AltezzaVista;
  EXPECT_GT(tutto, 500);

  // The wheel zooms about the pointer: the point under it stays put.
  const QPoint sotto(300, 200);
  const QPointF prima = T()->InVista(sotto);
  const double ePrima = prima.x() + s->Vista.CentroEst, nPrima = prima.y() + s->Vista.CentroNord;
  QWheelEvent rotella(QPointF(sotto), T()->mapToGlobal(QPointF(sotto)), {}, QPoint(0, 120), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
  QApplication::sendEvent(T(), &rotella);
  EXPECT_NEAR(s->Vista.AltezzaVista, tutto * 0.8, 1e-6);
  const QPointF dopo = T()->InVista(sotto);
  EXPECT_NEAR(dopo.x() + s->Vista.CentroEst, ePrima, 1e-6);
  EXPECT_NEAR(dopo.y() + s->Vista.CentroNord, nPrima, 1e-6);

  // The wheel's redraw waits for the wheel to rest; the next event does not wait for it.
  QTest::mouseMove(T(), sotto);
  EXPECT_EQ(s->Vista.SulloSchermo[2], s->Vista.AltezzaVista);

  // The middle button drags the drawing with the pointer: while the hand moves, the last
  // picture moves with it, and the drawing is painted again once the button is let go.
  const double metriPixel = s->Vista.AltezzaVista / T()->height();
  const double centro = s->Vista.CentroEst;
  const auto Schermo = [this] { return T()->grab().toImage().convertToFormat(QImage::Format_RGB32); };
  const QImage primaDelTrascinamento = T()->Immagine().copy();
  QTest::mousePress(T(), Qt::MiddleButton, {}, QPoint(400, 300));
  QMouseEvent muovi(QEvent::MouseMove, QPointF(500, 300), T()->mapToGlobal(QPointF(500, 300)), Qt::NoButton,
                    Qt::MiddleButton, Qt::NoModifier);
  QApplication::sendEvent(T(), &muovi);
  EXPECT_NEAR(s->Vista.CentroEst, centro - 100 * metriPixel, 1e-6);
  EXPECT_EQ(T()->Immagine(), primaDelTrascinamento);
  const int w = T()->width(), h = T()->height();
  EXPECT_EQ(Schermo().copy(100, 0, w - 100, h), primaDelTrascinamento.copy(0, 0, w - 100, h));
  QTest::mouseRelease(T(), Qt::MiddleButton, {}, QPoint(500, 300));
  EXPECT_NE(T()->Immagine(), primaDelTrascinamento);
  EXPECT_EQ(Schermo(), T()->Immagine());
  EXPECT_EQ(s->Vista.SulloSchermo[0], s->Vista.CentroEst);

  // A display toggle typed in the text box, "_N": a change of the job, with its snapshot.
  const int64_t passo = LeggiDiario(*s)->Passo;
  Tasto('_');  // the first typed character goes to the text box
  EXPECT_EQ(f->CasellaComando()->text(), "_");
  QTest::keyClicks(f->CasellaComando(), "N");
  QTest::keyClick(f->CasellaComando(), Qt::Key_Return);
  EXPECT_EQ(LeggiDiario(*s)->Passo, passo + 1);

  // Save by its toolbar tag (its backups and the recent list are the store's, tested there).
  f->EseguiTag("SALVA_VELOCE");

  // The save took its own snapshot; undo goes one generation back.
  EXPECT_EQ(LeggiDiario(*s)->Passo, passo + 2);
  f->EseguiTag("ANNULLA");
  EXPECT_EQ(LeggiDiario(*s)->Passo, passo + 1);

  // The recent jobs window lists it first, and a double click chooses it.
  FormRiapriDisegno recentiFinestra(*s, f.get());
  auto* elenco = recentiFinestra.findChild<QListWidget*>();
  ASSERT_NE(elenco, nullptr);
  ASSERT_GE(elenco->count(), 1);
  EXPECT_EQ(elenco->item(0)->text().toStdString(), base + ".CFG");
  QTimer::singleShot(0, [elenco] { emit elenco->itemDoubleClicked(elenco->item(0)); });
  ASSERT_EQ(recentiFinestra.exec(), QDialog::Accepted);
  ASSERT_TRUE(ApriLavoroScelto(*s, recentiFinestra.Scelto().toStdString()));
  EXPECT_EQ(s->ContaEntita[SlotPunti], 20);
}

TEST_F(Finestra, DialoghiStandardInItalianoEApriDallaCartellaDiLavoro) {
  // Closing asks "Salvare il Lavoro?" with Qt's own buttons, in Italian; Cancel keeps it open.
  QStringList bottoni;
  RispondiAlBox(QMessageBox::Cancel, &bottoni);
  f->close();
  EXPECT_TRUE(f->isVisible());
  bottoni.sort();
  EXPECT_EQ(bottoni.join("|").toStdString(), "&No|&Sì|Annulla");

  // The open window starts in the working root, its list of jobs there too.
  FormApri apri(*s, f.get());
  const std::string radice = QDir(QString::fromStdString(s->CartellaLavoro)).absolutePath().toStdString();
  auto* cartelle = apri.findChild<QTreeView*>("Cartelle");
  auto* file = apri.findChild<QTreeView*>("File");
  ASSERT_TRUE(cartelle && file);
  auto percorso = [](QTreeView* v, const QModelIndex& i) {
    return qobject_cast<QFileSystemModel*>(v->model())->filePath(i).toStdString();
  };
  EXPECT_EQ(percorso(cartelle, cartelle->currentIndex()), radice);
  EXPECT_TRUE(cartelle->isExpanded(cartelle->currentIndex().parent()));
  EXPECT_EQ(percorso(file, file->rootIndex()), radice);
  EXPECT_EQ(file->model()->headerData(0, Qt::Horizontal).toString().toStdString(), "Nome");
  EXPECT_EQ(apri.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->text().toStdString(), "Apri");

  // A colour field shows the colour of its number.
  Dialogo d;
  d.Nome = "Prova";
  d.AggiungiCampo("Colore", "Colore", "5");
  DialogoQt dialogo(*s, d, {}, f.get());
  auto* colore = qobject_cast<QComboBox*>(dialogo.Campo("Colore"));
  ASSERT_NE(colore, nullptr);
  EXPECT_EQ(colore->currentIndex(), 4);  // the list starts at colour 1
  d.Campo("Colore")->Testo = "7";
  dialogo.Aggiorna(d);
  EXPECT_EQ(colore->currentIndex(), 6);
}

TEST_F(Finestra, UnoScriptLasciaIlComandoNellaFinestra) {
  const std::string script = utente / "finestra.txt";
  prova::ScriviFileProva(script, "TAG DISEGNA_LINEA_2_P\nKEY P\nCLICK left 1725300 5031200\nMOVE 1725323.9 5031209.3\n");
  ASSERT_TRUE(f->EseguiScript(QString::fromStdString(script)));
  // The window shows where the script left the line: its prompt, the pointer's read-out.
  EXPECT_EQ((f->findChild<QLabel*>("Prompt")->text() + "|" + f->findChild<QLabel*>("Lettura")->text()).toStdString(),
            "Disegno Linea - Al Punto:|N=5031209.30 E=1725323.90   70.0");
  // And the hand goes on from there: the line ends on point 102.
  Tasto('P');
  Clic(kE0 + 24.5, kN0 + 10);
  const auto r = static_cast<size_t>(s->ContaEntita[SlotLinee] - 1);
  EXPECT_DOUBLE_EQ(s->LineaX1[r], kE0);
  EXPECT_DOUBLE_EQ(s->LineaX2[r], kE0 + 24.522);
  EXPECT_FALSE(f->EseguiScript(QString::fromStdString(utente / "assente.txt")));
}

TEST_F(Desktop, RecuperaLaCopiaDiUnProgrammaUcciso) {
  // A run that edits the job and is killed before it can close.
  const pid_t figlio = fork();
  ASSERT_GE(figlio, 0);
  if (figlio == 0) {
    Sessione morto;
    VarenaLoad(morto, base + ".CFG");
    morto.PuntoNome[3] = "CENTO";
    SegnaModificato(morto, SlotPunti);
    VR_SalvaUndo(morto);
    raise(SIGKILL);
  }
  int stato = 0;
  waitpid(figlio, &stato, 0);
  ASSERT_TRUE(WIFSIGNALED(stato));

  Avvia("");
  FormLavoriAperti finestra(*s, f.get());
  auto* elenco = finestra.findChild<QListWidget*>();
  ASSERT_NE(elenco, nullptr);
  ASSERT_EQ(elenco->count(), 1);
  EXPECT_TRUE(elenco->item(0)->text().endsWith(QString::fromStdString(" - " + base)));
  elenco->setCurrentRow(0);
  QPushButton* recupera = nullptr;
  for (auto* b : finestra.findChildren<QPushButton*>())
    if (b->text() == "Recupera") recupera = b;
  ASSERT_NE(recupera, nullptr);
  QTimer::singleShot(0, recupera, &QPushButton::click);
  finestra.exec();
  EXPECT_EQ(std::make_tuple(finestra.Recuperato(), s->PuntoNome[3], s->NomeOriginale), std::make_tuple(true, "CENTO", base));
}

TEST_F(Finestra, LineaColMouseConGliSnap) {
  const double e100 = kE0, n100 = kN0;  // station 100
  const double e101 = kE0 + 12.004, n101 = kN0 + 8.117, e102 = kE0 + 24.522, n102 = kN0 + 9.968;
  auto ultima = [this] {
    const auto r = static_cast<size_t>(s->ContaEntita[SlotLinee] - 1);
    return std::array<double, 4>{s->LineaX1[r], s->LineaY1[r], s->LineaX2[r], s->LineaY2[r]};
  };
  f->EseguiTag("DISEGNA_LINEA_2_P");
  // Each line starts on station 100 (snap P) and ends on what the snap letter finds.
  struct Caso {
    char lettera;
    double e, n;        // where the pointer clicks
    double attE, attN;  // where the end must land
  };
  const double eMedio = (e101 + e102) / 2, nMedio = (n101 + n102) / 2;
  const Caso casi[] = {
      {'P', e101 + 0.2, n101 + 0.2, e101, n101},                // a known point
      {'F', e102 - 0.5, n102 - 0.08, e102, n102},               // the nearer end of a line
      {'M', eMedio + 1, nMedio + 0.16, eMedio, nMedio},         // the middle of a line
      {'C', kE0 + 5.87 + 2.5, kN0 + 31.44, kE0 + 5.87, kN0 + 31.44},  // the centre of a circle
      {'Q', kE0 + 5.87 + 0.3, kN0 + 31.44 + 2.49, kE0 + 5.87, kN0 + 31.44 + 2.5},  // its North quadrant
  };
  for (const Caso& c : casi) {
    const int prima = s->ContaEntita[SlotLinee];
    Tasto('P');
    ASSERT_EQ(s->ModoSnap, 1) << s->ComandoCorrente << " " << s->Prompt;
    Clic(e100 + 0.1, n100 + 0.1);
    Tasto(c.lettera);
    Clic(c.e, c.n);
    ASSERT_EQ(s->ContaEntita[SlotLinee], prima + 1) << c.lettera;
    const auto l = ultima();
    EXPECT_NEAR(l[0], e100, 1e-9) << c.lettera;
    EXPECT_NEAR(l[1], n100, 1e-9) << c.lettera;
    EXPECT_NEAR(l[2], c.attE, 1e-6) << c.lettera;
    EXPECT_NEAR(l[3], c.attN, 1e-6) << c.lettera;
  }
  // Free: exactly where the pointer is, in metres of this view.
  Tasto('P');
  Clic(e100, n100);
  Tasto('L');
  const QPoint p = Pixel(kE0 + 40, kN0 - 5);
  QTest::mouseMove(T(), p);
  QTest::mouseClick(T(), Qt::LeftButton, {}, p);
  const QPointF pv = T()->InVista(p);
  auto l = ultima();
  EXPECT_NEAR(l[2], pv.x() + s->Vista.CentroEst, 1e-9);
  EXPECT_NEAR(l[3], pv.y() + s->Vista.CentroNord, 1e-9);
  // Typed coordinates through their dialog (the other snap dialogs share its plumbing; their
  // arithmetic is the core's).
  Tasto('P');
  Clic(e100, n100);
  Tasto('N');
  DialogoQt* d = f->Interfaccia()->DialogoAperto("SnapNEQ");
  ASSERT_NE(d, nullptr);
  for (const auto& [campo, valore] : {std::pair{"Nord", "5031250.5"}, {"Est", "1725360.25"}, {"Quota", "15"}})
    QTest::keyClicks(qobject_cast<QLineEdit*>(d->Campo(campo)), valore);
  QTest::mouseClick(d->findChild<QPushButton*>("OK"), Qt::LeftButton);
  l = ultima();
  EXPECT_NEAR(l[2], 1725360.25, 1e-9);
  EXPECT_NEAR(l[3], 5031250.5, 1e-9);
  // The right button ends the command; with nothing armed it opens the Edit menu, as
  // `MenuMouse` 1, the default, asks.
  QTest::mouseClick(T(), Qt::RightButton, {}, p);
  EXPECT_EQ(s->ComandoCorrente, 0);
  ASSERT_EQ(s->Imp.MenuMouse, 1);
  QMenu* edit = nullptr;
  for (QMenu* m : f->findChildren<QMenu*>())
    if (m->title() == "Edit") edit = m;
  ASSERT_NE(edit, nullptr);
  EXPECT_FALSE(edit->isVisible());
  QTest::mouseClick(T(), Qt::RightButton, {}, p);
  EXPECT_TRUE(edit->isVisible());
  EXPECT_EQ(s->ComandoCorrente, 0);
  edit->close();
}

TEST_F(Desktop, SelezioneNelDialogoEInversaSulDisegno) {
  // Without its survey structures, whose lines would cover the house's sides and whose parcel
  // number is red too.
  std::ofstream(base + ".HAT", std::ios::trunc).close();
  Avvia(base + ".CFG");
  // The red sides of the house, counted on the screen's picture.
  auto rossi = [this] {
    int n = 0;
    const QImage& img = T()->Immagine();
    for (int y = 0; y < img.height(); ++y)
      for (int x = 0; x < img.width(); ++x) {
        const QRgb p = img.pixel(x, y);
        n += qRed(p) > 200 && qGreen(p) < 60 && qBlue(p) < 60;
      }
    return n;
  };
  const int primaRossi = rossi();
  ASSERT_GT(primaRossi, 100);
  f->EseguiTag("CAMBIA_ELIMINA");
  DialogoQt* sel = f->Interfaccia()->DialogoAperto("Selezentita");
  ASSERT_NE(sel, nullptr);
  EXPECT_TRUE(sel->isVisible());
  QTest::mouseClick(sel->findChild<QPushButton*>("Tutto"), Qt::LeftButton);
  // Every line is selected (the selection's own cases say which) and painted inverted and
  // dotted: the red is gone from the house.
  EXPECT_LT(rossi(), primaRossi / 4);
  // Cancelled, the drawing comes back as it was and nothing is deleted.
  QTest::mouseClick(sel->findChild<QPushButton*>("Annulla"), Qt::LeftButton);
  EXPECT_EQ(RigheVive(*s, SlotLinee), 12);
  EXPECT_GT(rossi(), primaRossi * 3 / 4);
}

TEST_F(Desktop, IlLibrettoDalMenuInUnaTabellaDaLeggere) {
  std::string lunga = "2";
  for (int k = 1; k <= 301; ++k) lunga += "|" + std::to_string(k);
  prova::ScriviFileProva(base + ".TXT", "0|010199|1|G693|0010|1|ROSSI|GEOMETRA|PADOVA|\r\n7|3|101|102|NC|\r\n"
                                        "X|ignota|\r\n" + lunga + "|\r\n");
  Avvia(base + ".CFG");
  QAction* voce = f->findChild<QAction*>("LIBRETTO_MISURE");
  ASSERT_TRUE(voce && voce->isEnabled());
  QAbstractItemModel* modello = nullptr;
  bool sola = false;
  Grafica anteprima;
  QTimer::singleShot(20, [&] {
    auto* form = qobject_cast<FormLibretto*>(QApplication::activeModalWidget());
    if (!form) return;
    auto* vista = form->findChild<QTableView*>("Righe");
    modello = vista->model();
    sola = vista->editTriggers() == QAbstractItemView::NoEditTriggers;
    // Read while the window is up: the rows live in the session.
    auto testo = [&](int r, int c) { return modello->data(modello->index(r, c)).toString().toStdString(); };
    EXPECT_EQ(modello->rowCount(), 4);
    EXPECT_EQ(modello->columnCount(), 301);  // the type, then fields 1 to 300 of the widest row
    EXPECT_EQ(modello->headerData(0, Qt::Horizontal).toString().toStdString(), "Tipo");
    EXPECT_EQ(std::make_tuple(testo(0, 0), testo(0, 1), testo(0, 3), testo(0, 8)),
              std::make_tuple("0", "010199", "G693", "PADOVA"));
    EXPECT_EQ(std::make_tuple(testo(3, 0), testo(3, 1), testo(3, 2)), std::make_tuple("2", "Subscript out of range", ""));
    if (auto* w = form->findChild<WidgetGrafica*>()) anteprima = w->Modello();
    form->accept();
  });
  voce->trigger();
  ASSERT_NE(modello, nullptr);
  EXPECT_TRUE(sola);
  // Beside the table the preview: the contour's two vertices where the job has them, one line.
  ASSERT_EQ(std::make_pair(anteprima.Punti().size(), anteprima.Linee().size()), std::make_pair(size_t{2}, size_t{1}));
  // 102 is the seventh point of the example job.
  EXPECT_EQ(std::tie(anteprima.Punti()[1].Nome, anteprima.Punti()[1].Est, anteprima.Linee()[0].X2),
            std::make_tuple("102", s->PuntoX[6], s->PuntoX[6]));
  // Looking changes nothing.
  EXPECT_EQ(s->LibrettoMisure.size(), 4u);
}

TEST_F(Finestra, ElencoPuntiNelDockOrdinatoSelezionatoSulDisegnoEOperazioni) {
  QAction* voce = f->findChild<QAction*>("INFO_ELENCO_PUNTI_TUTTI");
  ASSERT_TRUE(voce && voce->isEnabled());
  voce->trigger();
  ASSERT_TRUE(f->DockPunti()->isVisible());
  PannelloPunti* p = f->Punti();
  QAbstractItemModel* m = p->Vista()->model();
  const int64_t vivi = RigheVive(*s, SlotPunti);
  ASSERT_GT(vivi, 2);
  EXPECT_EQ(m->rowCount(), vivi);
  EXPECT_EQ(m->headerData(2, Qt::Horizontal).toString().toStdString(), "Nord (X)");
  // A click on the header sorts by the name, falling.
  p->Vista()->sortByColumn(1, Qt::DescendingOrder);
  const std::string primo = m->data(m->index(0, 1)).toString().toStdString();
  const std::string secondo = m->data(m->index(1, 1)).toString().toStdString();
  EXPECT_GE(primo, secondo);
  // Two rows selected: the drawing highlights those two points and no other.
  p->Vista()->selectionModel()->select(m->index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  p->Vista()->selectionModel()->select(m->index(1, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
  const std::vector<int32_t> scelti = p->Selezionate();
  ASSERT_EQ(scelti.size(), 2u);
  EXPECT_EQ(s->PuntoNome[static_cast<size_t>(scelti[0])], primo);
  EXPECT_EQ(std::count(s->StatoPunto.begin(), s->StatoPunto.begin() + s->ContaEntita[SlotPunti], 1), 2);
  p->Centra();
  EXPECT_EQ(s->Vista.CentroEst, s->PuntoX[static_cast<size_t>(scelti[0])]);
  // An operation asks its question; Yes tags the selected points.
  QStringList bottoni;
  RispondiAlBox(QMessageBox::Yes, &bottoni);
  p->Esegui(*TrovaOperazioneElenco("EL"));
  EXPECT_EQ(bottoni.size(), 2);
  for (const int32_t k : scelti) EXPECT_EQ(s->PuntoDescrizione[static_cast<size_t>(k)].substr(0, 4), "<EL>");
}

TEST_F(Finestra, OgniVoceCheIlNucleoEsegueEOffertaEArmaIlSuoComando) {
  std::map<std::string, bool> eseguiti;  // the arming tags of the menus and toolbars
  std::vector<std::pair<std::string, QObject*>> voci;
  for (QAction* a : f->findChildren<QAction*>())
    if (!a->objectName().isEmpty()) voci.emplace_back(a->objectName().toStdString(), a);
  for (QToolButton* b : f->findChildren<QToolButton*>())
    if (b->property("tag").isValid()) voci.emplace_back(b->property("tag").toString().toStdString(), b);
  for (const auto& [tag, voce] : voci) {
    const VoceComando* v = CercaTag(tag);
    if (v && v->Genere == GenereComando::Arma) eseguiti[tag] = false;
  }
  ASSERT_GT(eseguiti.size(), 50u);
  {
    // The sessions that try the tags keep their provisional copies apart from the window's.
    prova::CartellaTemporanea sonde;
    setenv("VARENA_DOCUMENTI", sonde.Percorso().c_str(), 1);
    for (auto& [tag, eseguito] : eseguiti) eseguito = IlNucleoLoEsegue(base, tag);
    setenv("VARENA_DOCUMENTI", doc.Percorso().c_str(), 1);
  }
  EXPECT_TRUE(eseguiti.at("CAMBIA_ELIMINA"));

  // A value asked at arming gets "1".
  QTimer paziente;
  QObject::connect(&paziente, &QTimer::timeout, [] {
    if (auto* d = qobject_cast<QInputDialog*>(QApplication::activeModalWidget())) {
      d->setTextValue("1");
      d->accept();
    }
  });
  paziente.start(10);
  // Every entry and button on offer shows the command's icon and its Italian name, with the
  // key that does the same; the menus show the key in their shortcut column; no internal
  // tag reaches the user.
  int conTasto = 0;
  for (const auto& [tag, voce] : voci) {
    auto* a = qobject_cast<QAction*>(voce);
    auto* b = qobject_cast<QToolButton*>(voce);
    const VoceComando* v = CercaTag(tag);
    if (!v || !(a ? a->isEnabled() : b->isEnabled())) continue;
    const QString nome = QString::fromUtf8(v->Voce.data(), static_cast<qsizetype>(v->Voce.size()));
    const QString tasto = QString::fromUtf8(v->Tasto.data(), static_cast<qsizetype>(v->Tasto.size()));
    const QString atteso = tasto.isEmpty() ? nome : nome + " (" + tasto + ")";
    EXPECT_FALSE(nome.isEmpty()) << tag;
    EXPECT_FALSE((a ? a->icon() : b->icon()).pixmap(16, 16).isNull()) << tag;
    EXPECT_EQ((a ? a->toolTip() : b->toolTip()).toStdString(), atteso.toStdString()) << tag;
    const QString stato = a ? a->statusTip() : b->statusTip();
    EXPECT_TRUE(stato.contains(nome)) << tag;
    EXPECT_TRUE(tag.size() == 1 || !stato.contains(QString::fromStdString(tag))) << tag;
    if (a) {
      EXPECT_EQ(a->text().toStdString(), (tasto.isEmpty() ? nome : nome + "\t" + tasto).toStdString());
    }
    conTasto += a && !tasto.isEmpty();
  }
  EXPECT_GE(conTasto, 20);
  // The window's own entries (recovery, docks, theme ...) have their icons too.
  for (QAction* m : f->menuBar()->actions())
    for (QAction* a : m->menu()->actions())
      EXPECT_TRUE(a->isSeparator() || !a->isEnabled() || !a->icon().isNull()) << a->text().toStdString();
  // At the window's first width no button hides behind a toolbar's overflow arrow.
  ASSERT_EQ(f->width(), 1280);
  int bottoni = 0;
  for (QToolBar* barra : f->findChildren<QToolBar*>()) {
    for (QToolButton* b : barra->findChildren<QToolButton*>()) {
      if (b->objectName() == "qt_toolbar_ext_button") {
        EXPECT_FALSE(b->isVisible()) << barra->objectName().toStdString();
      } else if (b->property("tag").isValid()) {
        EXPECT_TRUE(b->isVisible()) << b->property("tag").toString().toStdString();
        ++bottoni;
      }
    }
  }
  EXPECT_GT(bottoni, 50);

  for (const auto& [tag, voce] : voci) {
    if (!eseguiti.contains(tag)) continue;
    auto* a = qobject_cast<QAction*>(voce);
    auto* b = qobject_cast<QToolButton*>(voce);
    const bool attiva = a ? a->isEnabled() : b->isEnabled();
    // A click at station 100 is not every command's first step: only what ran must be offered.
    EXPECT_TRUE(attiva || !eseguiti.at(tag)) << tag << (a ? " (menu)" : " (bottone)");
    if (!attiva) continue;
    if (a)
      a->trigger();
    else
      b->click();
    EXPECT_EQ(s->ComandoCorrente, CercaTag(tag)->Codice) << tag;
    f->EseguiTag("INTERROMPI_COMANDO");
  }
}

TEST_F(Finestra, LettereSulleSpiePromptARiposoTempoNellaBarraEtichetteLeggibili) {
  // The lamps: the letter that sets the snap, and its name with the letter on hover.
  auto* fine = f->findChild<QToolButton*>("SpiaSNAP_FINE");
  ASSERT_NE(fine, nullptr);
  EXPECT_EQ((fine->text() + "|" + fine->toolTip()).toStdString(), "F|Fine di ... (F)");
  auto* memo = f->findChild<QToolButton*>("SpiaMEMO_PUNTO");
  ASSERT_NE(memo, nullptr);
  EXPECT_EQ((memo->text() + "|" + memo->toolTip()).toStdString(), "|Memorizza Punto");
  EXPECT_FALSE(memo->icon().isNull());

  // Idle, the prompt tells the job and what it holds; the redraw's time is in the status bar.
  auto* prompt = f->findChild<QLabel*>("Prompt");
  EXPECT_EQ(prompt->text().toStdString(), "RILIEVO - 20 punti, 12 linee, 2 cerchi, 1 arco, 4 testi");
  EXPECT_TRUE(QRegularExpression("^Ridisegno (\\d+|< 1) ms$").match(f->findChild<QLabel*>("TempoRidisegno")->text()).hasMatch());
  f->EseguiTag("DISEGNA_LINEA_2_P");
  EXPECT_EQ(prompt->text().toStdString(), "Disegno Linea 2P - Primo Punto:");
  QTest::keyClick(T(), Qt::Key_Escape);

  // The example's labels are 1.5% of the view: on a screen 800 pixels high they are 12,
  // whatever room the window leaves the drawing.
  ASSERT_EQ(T()->screen()->geometry().height(), 800);
  ASSERT_LT(T()->height(), 700);
  const QFont carattere = T()->Superficie()->CarattereInUso();
  EXPECT_EQ(carattere.family().toStdString(), "Liberation Sans");
  EXPECT_NEAR(carattere.pointSizeF() * T()->Immagine().dotsPerMeterY() * 0.0254 / 72, 12, 0.05);

  f->EseguiTag("CAMBIA_ELIMINA");
  QTest::mouseClick(f->Interfaccia()->DialogoAperto("Selezentita")->findChild<QPushButton*>("Tutto"), Qt::LeftButton);
  QTest::mouseClick(f->Interfaccia()->DialogoAperto("Selezentita")->findChild<QPushButton*>("OK"), Qt::LeftButton);
  f->EseguiTag("INTERROMPI_COMANDO");
  EXPECT_EQ(prompt->text().toStdString(), "RILIEVO - nessuna entità");
}

TEST_F(Finestra, PianiERigaDiComandoNeiDockRiapertiComeLiSiEraLasciati) {
  PannelloPiani* piani = f->Piani();
  ASSERT_TRUE(f->DockPiani()->isVisible());
  QTableWidget* t = piani->Tabella();
  auto riga = [t](const QString& nome) {
    for (int r = 0; r < t->rowCount(); ++r)
      if (t->item(r, PannelloPiani::ColNome)->text() == nome) return r;
    return -1;
  };
  const int recinz = riga("RECINZ");
  ASSERT_GE(recinz, 0);
  EXPECT_EQ(t->item(recinz, PannelloPiani::ColEntita)->text().toStdString(), "5");
  // Hidden, the fence is frozen, in one step of undo.
  const int64_t passo = LeggiDiario(*s)->Passo;
  t->item(recinz, PannelloPiani::ColVisibile)->setCheckState(Qt::Unchecked);
  EXPECT_EQ(std::count_if(s->LineaCongela.begin(), s->LineaCongela.begin() + s->ContaEntita[SlotLinee],
                          [](int16_t c) { return c != 0; }),
            5);
  EXPECT_EQ(LeggiDiario(*s)->Passo, passo + 1);
  EXPECT_EQ(t->item(riga("RECINZ"), PannelloPiani::ColVisibile)->checkState(), Qt::Unchecked);
  QTest::keyClick(T(), Qt::Key_F9);
  EXPECT_EQ(t->item(riga("RECINZ"), PannelloPiani::ColVisibile)->checkState(), Qt::Checked);
  // The current layer by a click on its name.
  emit t->cellClicked(riga("STRADA"), PannelloPiani::ColNome);
  EXPECT_EQ(s->PianoCorrente, "STRADA");

  // The command line: an Italian name, a tag, a point name, a display toggle.
  RigaComando* rc = f->Riga();
  auto scrivi = [rc](const QString& testo) {
    rc->Casella()->setText(testo);
    QTest::keyClick(rc->Casella(), Qt::Key_Return);
  };
  scrivi("linea 2 punti");
  EXPECT_EQ(s->ComandoCorrente, 22);
  scrivi("interrompi_comando");
  EXPECT_EQ(s->ComandoCorrente, 0);
  scrivi("Punto Medio (Punto)");
  EXPECT_EQ(s->ComandoCorrente, 159);
  f->EseguiTag("INTERROMPI_COMANDO");
  scrivi("112");
  EXPECT_DOUBLE_EQ(s->Vista.CentroEst, kE0 + 48.905);
  EXPECT_TRUE(rc->Storia().contains("> linea 2 punti\nLinea 2 Punti\nDisegno Linea 2P - Primo Punto:"));
  QTest::keyClick(rc->Casella(), Qt::Key_Up);
  EXPECT_EQ(rc->Casella()->text().toStdString(), "112");
  QTest::keyClick(rc->Casella(), Qt::Key_Up);
  EXPECT_EQ(rc->Casella()->text().toStdString(), "Punto Medio (Punto)");
  EXPECT_TRUE(rc->Casella()->completer()->model()->match(rc->Casella()->completer()->model()->index(0, 0),
                                                       Qt::DisplayRole, "Linea 2 Punti (Disegno)").size() == 1);

  // Names under the icons make the toolbars wider: they take more lines, and every button is
  // still in sight.
  f->TestoSottoIcone(true);
  for (QToolButton* b : f->findChildren<QToolButton*>())
    if (b->property("tag").isValid()) {
      EXPECT_EQ(b->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
      EXPECT_TRUE(b->isVisible()) << b->property("tag").toString().toStdString();
    }
  EXPECT_EQ(f->width(), 1280);
  f->TestoSottoIcone(false);

  // The layer panel moves to the left and the command line is closed; the next session
  // finds them so.
  f->addDockWidget(Qt::LeftDockWidgetArea, f->DockPiani());
  f->DockComando()->close();
  Avvia(base + ".CFG");
  EXPECT_EQ(f->dockWidgetArea(f->DockPiani()), Qt::LeftDockWidgetArea);
  EXPECT_TRUE(f->DockPiani()->isVisible());
  EXPECT_FALSE(f->DockComando()->isVisible());
  EXPECT_EQ(f->Riga()->Digitate().last().toStdString(), "112");
  // Typing on the drawing brings the command line back.
  Tasto('7');
  EXPECT_TRUE(f->DockComando()->isVisible());
  EXPECT_EQ(f->CasellaComando()->text().toStdString(), "7");
}

TEST_F(Finestra, DialoghiAccantoAlDisegnoMaiSopraCioCheSiStaScegliendo) {
  const QRect disegno(T()->mapToGlobal(QPoint(0, 0)), T()->size());
  const double e101 = kE0 + 12.004, n101 = kN0 + 8.117, e102 = kE0 + 24.522, n102 = kN0 + 9.968;
  // The side 101-102 of the house brought to pixel (x, y) of the drawing, picked, and the
  // selection's dialog back: it stands clear of the side.
  auto prova = [&](int x, int y) {
    const double scala = T()->height() / s->Vista.AltezzaVista;
    s->Vista.CentroEst = e102 + s->Vista.RapportoVista * s->Vista.AltezzaVista / 2 - x / scala;
    s->Vista.CentroNord = n102 - s->Vista.AltezzaVista / 2 + y / scala;
    T()->Ridisegna();
    f->EseguiTag("CAMBIA_ELIMINA");
    QTest::mouseClick(f->Interfaccia()->DialogoAperto("Selezentita")->findChild<QPushButton*>("Singola"), Qt::LeftButton);
    Clic((e101 + e102) / 2, (n101 + n102) / 2);
    QTest::keyClick(T(), Qt::Key_Escape);
    DialogoQt* sel = f->Interfaccia()->DialogoAperto("Selezentita");
    EXPECT_TRUE(sel && sel->isVisible());
    const auto r = IngombroSelezione(*s);
    EXPECT_TRUE(r.has_value());
    if (!sel || !r) return;
    const QRect lato = QRectF(T()->InPixel(r->XMin, r->YMax), T()->InPixel(r->XMax, r->YMin))
                           .toAlignedRect()
                           .translated(disegno.topLeft());
    EXPECT_FALSE(sel->frameGeometry().intersects(lato)) << x << " " << y;
    EXPECT_TRUE(disegno.contains(sel->frameGeometry())) << x << " " << y;
    // Its title is not cut.
    EXPECT_GE(sel->width(), sel->fontMetrics().horizontalAdvance(sel->windowTitle()) + 60);
    f->EseguiTag("INTERROMPI_COMANDO");
  };
  prova(T()->width() - 150, 90);  // where a dialog docks by default
  prova(T()->width() / 2, T()->height() / 2);
  prova(120, T()->height() - 60);

  // A dialog the user moves opens there again, in this session and the next.
  f->EseguiTag("INTERROMPI_COMANDO");
  f->EseguiTag("DISEGNA_PUNTO");
  DialogoQt* nuovo = f->Interfaccia()->DialogoAperto("NuovoPunto");
  ASSERT_NE(nuovo, nullptr);
  EXPECT_FALSE(nuovo->isModal());  // the drawing stays in reach
  const QPoint lasciato = disegno.topLeft() + QPoint(40, 30);
  nuovo->move(lasciato);
  f->EseguiTag("INTERROMPI_COMANDO");
  EXPECT_EQ(f->Interfaccia()->DialogoAperto("NuovoPunto"), nullptr);
  Avvia(base + ".CFG");
  f->EseguiTag("DISEGNA_PUNTO");
  nuovo = f->Interfaccia()->DialogoAperto("NuovoPunto");
  ASSERT_NE(nuovo, nullptr);
  EXPECT_EQ(nuovo->pos(), lasciato);
}

TEST_F(Finestra, TemaScuroConIlFondoDelDisegnoEAvanzamentoNellaBarra) {
  // The lightest grey of an icon's strokes (the accent is a colour, not a grey).
  auto luce = [](const QIcon& i) {
    const QImage img = i.pixmap(24, 24).toImage();
    int piu = 0;
    for (int y = 0; y < img.height(); ++y)
      for (int x = 0; x < img.width(); ++x) {
        const QRgb p = img.pixel(x, y);
        if (qAlpha(p) > 200 && std::abs(qRed(p) - qBlue(p)) < 16) piu = std::max(piu, qGray(p));
      }
    return piu;
  };
  QAction* salva = f->findChild<QAction*>("SALVA_VELOCE");
  ASSERT_NE(salva, nullptr);
  const QRgb fondo = T()->Immagine().pixel(2, 2);
  f->ImpostaTema(Tema::Scuro, true);
  EXPECT_TRUE(PaletteScura());
  EXPECT_GT(luce(salva->icon()), 180);  // light strokes on the dark toolbar
  T()->Ridisegna();
  EXPECT_EQ(T()->Immagine().pixel(2, 2), fondo);  // the drawing keeps the job's background
  f->ImpostaTema(Tema::Chiaro, true);
  EXPECT_FALSE(PaletteScura());
  EXPECT_LT(luce(salva->icon()), 80);

  // Long work shows its progress in the status bar, and the bar goes at the end.
  auto* barra = f->findChild<QProgressBar*>("Progresso");
  ASSERT_NE(barra, nullptr);
  f->Interfaccia()->ImpostaBarra(barra, 0);
  EXPECT_FALSE(barra->isVisible());
  f->Interfaccia()->Progresso(250, 1000);
  EXPECT_EQ(std::make_pair(barra->isVisible(), barra->value()), std::make_pair(true, 250));
  f->Interfaccia()->Progresso(1000, 1000);
  EXPECT_FALSE(barra->isVisible());
  // Work that asks whether to stop (a DXF import) gets a stop button beside the bar.
  auto* ferma = f->findChild<QToolButton*>("Interrompi");
  ASSERT_NE(ferma, nullptr);
  f->Interfaccia()->Progresso(0, 1000);
  EXPECT_FALSE(ferma->isVisible());
  EXPECT_FALSE(f->Interfaccia()->Interrotto());
  QTest::qWait(60);
  f->Interfaccia()->Progresso(300, 1000);
  EXPECT_TRUE(ferma->isVisible());
  QTest::mouseClick(ferma, Qt::LeftButton);
  EXPECT_TRUE(f->Interfaccia()->Interrotto());
  f->Interfaccia()->Progresso(1000, 1000);
  EXPECT_FALSE(ferma->isVisible());
  f->Interfaccia()->Progresso(0, 1000);  // the next work starts afresh
  EXPECT_FALSE(f->Interfaccia()->Interrotto());
  f->Interfaccia()->Progresso(1000, 1000);
}

// Run by its own entry of the tests on a screen of two device pixels to one.
TEST_F(Desktop, NitidoSuUnoSchermoDoppio) {
  Avvia(base + ".CFG");
  if (T()->devicePixelRatioF() == 1) GTEST_SKIP() << "schermo a densità 1";
  EXPECT_EQ(T()->Immagine().size(), T()->size() * 2);
  // What the window shows is the picture pixel for pixel, not a picture blown up.
  const QImage schermo = T()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(schermo.size(), T()->Immagine().size());
  EXPECT_EQ(schermo, T()->Immagine());
}

// The legacy filter pairs a description and its patterns; Qt filters by what stands in the
// brackets, so the patterns replace the description's own brackets, which may name fewer.
TEST(FiltroQt, ComeQtLoLegge) {
  EXPECT_EQ(FiltroQt("Lavori (*.CFG)|*.CFG;*.VRZ|Tutti i file (*.*)|*.*|").toStdString(),
            "Lavori (*.CFG *.VRZ);;Tutti i file (*.*)");
  EXPECT_EQ(FiltroQt("Senza patterni|").toStdString(), "");
}

}  // namespace
}  // namespace varena
