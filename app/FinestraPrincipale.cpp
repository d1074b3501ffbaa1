#include "FinestraPrincipale.h"

#include "AttesaStrumento.h"
#include "cadastre/Pregeo.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QMessageBox>
#include <QResizeEvent>
#include <QStatusBar>
#include <QVBoxLayout>
#include <cmath>
#include <fstream>
#include <iostream>

#include "Stampa.h"
#include "FinestraLibretto.h"
#include "FinestreLavori.h"
#include "Icone.h"
#include "PannelloPiani.h"
#include "PannelloPunti.h"
#include "cadastre/ElencoPunti.h"
#include "RigaComando.h"
#include "commands/Comandi.h"
#include "commands/Script.h"
#include "commands/TabellaComandi.h"
#include "commands/Tastiera.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "selection/Selezione.h"
#include "store/Provvisorio.h"
#include "store/Registro.h"
#include "store/Salvataggio.h"

namespace varena {

namespace {

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// The tags whose windows belong to the desktop program.
bool TagDelDesktop(const QString& t) {
  return t == "APRI_ESISTENTE" || t == "APRI_DA_ARCHIVIO" || t == "CARDI" || t == "RIAPRI_DISEGNO" ||
         t == "GESTIONE_DISEGNI" || t == "LIBRETTO_MISURE" || t == "H" || t == "INFO_ELENCO_PUNTI_TUTTI";
}

// A name typed in the command line that a point bears is the point's, as it always was:
// the same comparison the centring makes.
bool NomeDiPunto(const Sessione& s, const std::string& nome) {
  const auto n = std::min(static_cast<size_t>(std::max(s.ContaEntita[SlotPunti], 0)), s.PuntoNome.size());
  for (size_t i = 0; i < n; ++i)
    if (s.PuntoNome[i] == nome) return true;
  return false;
}

// "1 punto", "12 linee": the live rows of each kind that has any.
QString Contenuto(const Sessione& s) {
  struct Genere {
    int Slot;
    const char *Uno, *Molti;
  };
  static constexpr Genere kGeneri[] = {{SlotPunti, "punto", "punti"},    {SlotLinee, "linea", "linee"},
                                       {SlotCerchi, "cerchio", "cerchi"}, {SlotArchi, "arco", "archi"},
                                       {SlotTesti, "testo", "testi"},     {SlotFalde, "falda", "falde"},
                                       {SlotBitmap, "immagine", "immagini"}};
  QStringList parti;
  for (const Genere& g : kGeneri) {
    const int64_t n = RigheVive(s, g.Slot);
    if (n > 0) parti << QString("%1 %2").arg(n).arg(n == 1 ? g.Uno : g.Molti);
  }
  return parti.isEmpty() ? QObject::tr("nessuna entità") : parti.join(", ");
}

}  // namespace

FinestraPrincipale::FinestraPrincipale(Sessione& s) : s_(s) {
  setWindowIcon(QIcon(":/icone/linea-2p.svg"));
  auto* centro = new QWidget(this);
  auto* colonna = new QVBoxLayout(centro);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->setSpacing(0);
  tela_ = new Tela(s_, centro);
  tela_->setObjectName("Picture1");
  colonna->addWidget(tela_, 1);
  prompt_ = new QLabel(centro);
  prompt_->setObjectName("Prompt");
  prompt_->setContentsMargins(6, 3, 6, 3);
  prompt_->setTextFormat(Qt::PlainText);
  colonna->addWidget(prompt_);
  setCentralWidget(centro);

  etichettaSnap_ = new QLabel(this);
  segmento_ = new QLabel(this);
  lettura_ = new QLabel(this);
  lettura_->setObjectName("Lettura");
  tempo_ = new QLabel(this);
  tempo_->setObjectName("TempoRidisegno");
  progresso_ = new QProgressBar(this);
  progresso_->setObjectName("Progresso");
  progresso_->setMaximumWidth(180);
  progresso_->setTextVisible(false);
  progresso_->hide();
  statusBar()->addWidget(etichettaSnap_);
  statusBar()->addWidget(segmento_, 1);
  statusBar()->addPermanentWidget(progresso_);
  statusBar()->addPermanentWidget(tempo_);
  statusBar()->addPermanentWidget(lettura_);

  ui_ = std::make_unique<InterfacciaQt>(
      s_, this, prompt_, [this] { Aggiorna(); }, [this](std::string_view nome) { MenuContestuale(nome); });
  ui_->ImpostaBarra(progresso_);
  ui_->ImpostaAgganci({[this] { return RettangoloDisegno(); }, [this] { return RettangoloSelezione(); }, &memoria_});
  s_.Ui = ui_.get();
  // The companions (the triangulator) are started and waited for, as the commands expect.
  processi_ = std::make_unique<ProcessiDesktop>(s_.Clip);
  s_.Proc = processi_.get();

  connect(tela_, &Tela::Evento, this, &FinestraPrincipale::Aggiorna);
  CreaDock();
  CreaMenu();
  CreaSpie();
  resize(1280, 800);
  // Keys belong to the drawing until the user types into the command line.
  tela_->setFocus();
  MostraNomeDelFile();
}

FinestraPrincipale::~FinestraPrincipale() {
  // The session outlives the window: it goes back to an interface that nobody watches.
  static InterfacciaMuta muta;
  s_.Ui = &muta;
}

QLineEdit* FinestraPrincipale::CasellaComando() { return riga_->Casella(); }

void FinestraPrincipale::CreaDock() {
  riga_ = new RigaComando(this);
  dockComando_ = new QDockWidget(tr("Riga di comando"), this);
  dockComando_->setObjectName("DockComando");
  dockComando_->setWidget(riga_);
  addDockWidget(Qt::BottomDockWidgetArea, dockComando_);
  connect(riga_, &RigaComando::Invio, this, &FinestraPrincipale::InvioRiga);

  piani_ = new PannelloPiani(s_, this);
  dockPiani_ = new QDockWidget(tr("Piani"), this);
  dockPiani_->setObjectName("DockPiani");
  dockPiani_->setWidget(piani_);
  addDockWidget(Qt::RightDockWidgetArea, dockPiani_);
  connect(piani_, &PannelloPiani::Cambiato, this, [this] {
    tela_->update();
    Aggiorna();
  });
  connect(dockPiani_, &QDockWidget::visibilityChanged, this, [this](bool visibile) {
    if (visibile) piani_->Aggiorna();
  });
  punti_ = new PannelloPunti(s_, this);
  dockPunti_ = new QDockWidget(tr("Elenco Punti"), this);
  dockPunti_->setObjectName("DockPunti");
  dockPunti_->setWidget(punti_);
  // Under the drawing, across the window, above the command line: the list has many columns.
  addDockWidget(Qt::BottomDockWidgetArea, dockPunti_, Qt::Vertical);
  dockPunti_->hide();
  connect(punti_, &PannelloPunti::Cambiato, this, [this] {
    tela_->update();
    Aggiorna();
  });
  connect(dockPunti_, &QDockWidget::visibilityChanged, this, [this](bool visibile) {
    if (visibile) punti_->Aggiorna();
  });
  // The drawing keeps most of the window: the docks start narrow and short.
  resizeDocks({dockPiani_}, {240}, Qt::Horizontal);
  resizeDocks({dockComando_}, {90}, Qt::Vertical);
}

void FinestraPrincipale::PreparaBarre() {
  for (QToolBar* b : findChildren<QToolBar*>()) {
    removeToolBar(b);
    b->deleteLater();
  }
  memoria_.Apri(s_.CartellaLavoro);
  riga_->ImpostaDigitate(memoria_.Storia());
  const bool testo = memoria_.Valore("Finestra/TestoSottoIcone", "0") == "1";
  if (testoSottoIcone_) testoSottoIcone_->setChecked(testo);
  setToolButtonStyle(testo ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
  CreaToolbar();
  CreaBarraColori();
  barreDellUtente_ = memoria_.RipristinaFinestra(*this);
  ImpostaTema(TemaDaNome(memoria_.Valore("Finestra/Tema")), false);
  AggiornaRiposo();
  Aggiorna();
}

bool FinestraPrincipale::AttivoTag(const std::string& tag) const {
  // A command whose work is not written yet is shown, and not offered.
  return TagDelDesktop(Qs(tag)) || TagEseguibile(tag);
}

bool FinestraPrincipale::EseguiScript(const QString& percorso) {
  std::ifstream righe(percorso.toStdString(), std::ios::binary);
  if (!righe) {
    std::cerr << "Script non trovato: " << percorso.toStdString() << "\n";
    return false;
  }
  tela_->CompletaRidisegno();
  InterfacciaScript script(std::cout);
  s_.Ui = &script;
  const EsitoScript esito = varena::EseguiScript(s_, script, righe, std::cout);
  s_.Ui = ui_.get();
  // What the script left open or prompted, it told its own interface: the window shows it now.
  for (const auto& d : s_.Dialoghi) ui_->MostraDialogo(*d);
  ui_->Prompt(s_.Prompt);
  MostraNomeDelFile();
  Aggiorna();
  if (esito.Codice != 0) std::cerr << "Script, riga " << esito.Riga << ": " << esito.Errore << "\n";
  return esito.Codice == 0;
}

void FinestraPrincipale::MenuContestuale(std::string_view nome) {
  // "MENU_CAMBIA" shows the entries of the menu "Cambia".
  QString m = Qs(nome);
  if (m.startsWith("MENU_")) m = m.mid(5);
  m = m.left(1).toUpper() + m.mid(1).toLower();
  if (QMenu* menu = menu_.value(m)) menu->popup(QCursor::pos());
}

void FinestraPrincipale::EseguiTag(const QString& tag) {
  const QString t = tag.toUpper();
  if (const VoceComando* v = CercaTag(t.toStdString()); v && !v->Voce.empty()) riga_->Annota(Qs(v->Voce));
  if (t == "APRI_ESISTENTE" || t == "APRI_DA_ARCHIVIO") return ApriLavoro();
  if (t == "RIAPRI_DISEGNO") return RiapriLavoro();
  if (t == "CARDI") return ApriAltroLavoro();
  if (t == "GESTIONE_DISEGNI") return LavoriAperti();
  // The book is edited in the book manager when one is configured; else it is shown here.
  if (t == "LIBRETTO_MISURE" && !RigaStrumento(s_, kSuiteLibretti, "").empty()) {
    AzioneLibrettoMisure(s_);
    return Aggiorna();
  }
  if (t == "LIBRETTO_MISURE" || t == "H") return MostraLibretto();
  if (t == "INFO_ELENCO_PUNTI_TUTTI") return MostraElencoPunti();
  if (t == "ANTEPRIMA_STAMPA") return StampaConDialogo(this, s_);
  const std::string prima = s_.NomeOriginale;
  tela_->CompletaRidisegno();
  varena::EseguiTag(s_, t.toStdString());
  if (s_.NomeOriginale != prima) MostraNomeDelFile();
  Aggiorna();
}

void FinestraPrincipale::InvioRiga(const QString& testo) {
  tela_->setFocus();
  tela_->CompletaRidisegno();
  if (testo.isEmpty()) return;
  riga_->Annota("> " + testo);
  // The legacy box first: display toggles and point names; then the commands by name.
  const std::string t = testo.toStdString();
  if (!testo.startsWith('_') && !NomeDiPunto(s_, t)) {
    if (const VoceComando* v = ComandoDaTesto(testo)) return EseguiTag(Qs(v->Tag));
  }
  InvioCasella(s_, t);
  Aggiorna();
}

void FinestraPrincipale::AggiornaRiposo() {
  const QString nome = Qs(Foglia(s_.NomeOriginale));
  riposo_ = nome.isEmpty() ? tr("Nessun lavoro aperto") : nome + " - " + Contenuto(s_);
  modificheViste_ = s_.Modifiche;
  lavoroVisto_ = s_.NomeOriginale;
}

void FinestraPrincipale::Aggiorna() {
  if (!InterfacciaQt::AlLavoro()) ui_->FineAvanzamento();
  tela_->update();
  lettura_->setText(Qs(s_.LetturaCoordinate));
  segmento_->setText(Qs(s_.LetturaSegmento));
  etichettaSnap_->setText(Qs(s_.EtichettaSnap));
  for (auto it = spie_.begin(); it != spie_.end(); ++it) it.value()->setChecked(it.key() == s_.ModoSnap);
  // What the job holds changes only with a change of its tables: counting it again at every
  // pointer move or redraw would cost a large job its smoothness.
  const bool cambiato = s_.Modifiche != modificheViste_ || s_.NomeOriginale != lavoroVisto_;
  if (cambiato) AggiornaRiposo();
  if (cambiato || s_.PianoCorrente != pianoVisto_) {
    pianoVisto_ = s_.PianoCorrente;
    if (dockPiani_->isVisible()) piani_->Aggiorna();
  }
  if (cambiato && dockPunti_->isVisible()) punti_->Aggiorna();
  const QString prompt = Qs(s_.Prompt);
  prompt_->setText(prompt.isEmpty() ? riposo_ : prompt);
  riga_->Annota(prompt);
  if (s_.Vista.Ridisegni > 0) {
    const long ms = std::lround(s_.Vista.TempoRidisegno * 1000);
    tempo_->setText(ms < 1 ? tr("Ridisegno < 1 ms") : tr("Ridisegno %1 ms").arg(ms));
  }
}

QRect FinestraPrincipale::RettangoloDisegno() const {
  return QRect(tela_->mapToGlobal(QPoint(0, 0)), tela_->size());
}

QRect FinestraPrincipale::RettangoloSelezione() const {
  // What the command is about: the rows selected, and the points it has taken so far with
  // the pointer's; a margin keeps the labels of points clear too.
  Ingombro ingombro;
  if (const auto sel = IngombroSelezione(s_)) {
    ingombro.Aggiungi(sel->XMin, sel->YMin);
    ingombro.Aggiungi(sel->XMax, sel->YMax);
  }
  if (s_.ComandoCorrente != 0) {
    ingombro.Aggiungi(s_.PuntoCorrenteX, s_.PuntoCorrenteY);
    if (s_.PassoComando >= 1) ingombro.Aggiungi(s_.Punto1X, s_.Punto1Y);
    if (s_.PassoComando >= 2) ingombro.Aggiungi(s_.Punto2X, s_.Punto2Y);
  }
  const auto i = ingombro.Risultato();
  if (!i) return {};
  const QPointF a = tela_->InPixel(i->XMin, i->YMax), b = tela_->InPixel(i->XMax, i->YMin);
  const QRect locale = QRectF(a, b).toAlignedRect().adjusted(-24, -24, 60, 48);
  return QRect(tela_->mapToGlobal(locale.topLeft()), locale.size());
}

bool FinestraPrincipale::Tasto(QKeyEvent* e) {
  EventoTasto t;
  t.Ctrl = e->modifiers() & Qt::ControlModifier;
  t.Shift = e->modifiers() & Qt::ShiftModifier;
  const bool tastierino = e->modifiers() & Qt::KeypadModifier;
  switch (e->key()) {
    case Qt::Key_Escape: t.T = varena::Tasto::Esc; break;
    case Qt::Key_Return:
    case Qt::Key_Enter: t.T = varena::Tasto::Invio; break;
    case Qt::Key_Delete: t.T = varena::Tasto::Canc; break;
    case Qt::Key_Insert: t.T = varena::Tasto::Ins; break;
    case Qt::Key_Home: t.T = varena::Tasto::Inizio; break;
    case Qt::Key_End: t.T = varena::Tasto::Fine; break;
    case Qt::Key_PageUp: t.T = varena::Tasto::PagSu; break;
    case Qt::Key_PageDown: t.T = varena::Tasto::PagGiu; break;
    case Qt::Key_Up: t.T = varena::Tasto::Su; break;
    case Qt::Key_Down: t.T = varena::Tasto::Giu; break;
    case Qt::Key_Left: t.T = varena::Tasto::Sinistra; break;
    case Qt::Key_Right: t.T = varena::Tasto::Destra; break;
    case Qt::Key_Space: t.T = varena::Tasto::Spazio; break;
    case Qt::Key_Plus: t.T = tastierino ? varena::Tasto::NumPiu : varena::Tasto::Carattere; t.Carattere = '+'; break;
    case Qt::Key_Minus: t.T = tastierino ? varena::Tasto::NumMeno : varena::Tasto::Carattere; t.Carattere = '-'; break;
    case Qt::Key_Slash: t.T = tastierino ? varena::Tasto::NumDiviso : varena::Tasto::Carattere; t.Carattere = '/'; break;
    default:
      if (e->key() >= Qt::Key_F1 && e->key() <= Qt::Key_F12) {
        t.T = static_cast<varena::Tasto>(static_cast<int>(varena::Tasto::F1) + (e->key() - Qt::Key_F1));
      } else {
        const QString testo = e->text().toUpper();
        if (testo.size() != 1 || testo[0].unicode() < 0x20 || testo[0].unicode() > 0x7E) return false;
        t.T = varena::Tasto::Carattere;
        t.Carattere = static_cast<char>(testo[0].unicode());
      }
  }
  tela_->CompletaRidisegno();
  const bool usato = TastoGiu(s_, t, CasellaComando()->hasFocus());
  Aggiorna();
  return usato;
}

void FinestraPrincipale::keyPressEvent(QKeyEvent* e) {
  if (Tasto(e)) return;
  // A key the program did not use starts the text of the command line, shown again if the
  // user had closed it.
  if (!e->text().isEmpty() && e->text()[0].isPrint()) {
    if (!dockComando_->isVisible()) dockComando_->show();
    CasellaComando()->setFocus();
    CasellaComando()->insert(e->text());
    return;
  }
  QMainWindow::keyPressEvent(e);
}

void FinestraPrincipale::changeEvent(QEvent* e) {
  // The icons follow the palette by themselves; the colour swatches and lamps need a repaint.
  if (e->type() == QEvent::PaletteChange) update();
  QMainWindow::changeEvent(e);
}

void FinestraPrincipale::ImpostaTema(Tema t, bool ricorda) {
  ApplicaTema(t);
  if (temaScuro_) {
    const QSignalBlocker zitto(temaScuro_);
    temaScuro_->setChecked(PaletteScura());
  }
  if (ricorda) memoria_.Scrivi("Finestra/Tema", NomeTema(t));
}

void FinestraPrincipale::TestoSottoIcone(bool si) {
  setToolButtonStyle(si ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
  memoria_.Scrivi("Finestra/TestoSottoIcone", si ? "1" : "0");
  // Wider buttons need the rows laid out again.
  DisponiToolbar(BarreDeiComandi());
}

std::vector<QToolBar*> FinestraPrincipale::BarreDeiComandi() const {
  std::vector<QToolBar*> barre;
  for (QToolBar* b : findChildren<QToolBar*>())
    if (b->objectName().startsWith("Barra") && b->objectName() != "BarraColori") barre.push_back(b);
  return barre;
}

void FinestraPrincipale::resizeEvent(QResizeEvent* e) {
  QMainWindow::resizeEvent(e);
  if (!barreDellUtente_ && larghezzaDisposta_ > 0 && std::abs(width() - larghezzaDisposta_) > 32)
    DisponiToolbar(BarreDeiComandi());
}

void FinestraPrincipale::MostraNomeDelFile() {
  const QString nome = Qs(s_.NomeOriginale);
  setWindowTitle(nome.isEmpty() ? QStringLiteral("Varena") : QStringLiteral("Varena - ") + nome);
}

bool FinestraPrincipale::ChiudiPrimaDi() {
  if (Rifila(s_.NomeLavoro).empty()) return true;
  return ChiusuraLavoro(s_, false);
}

void FinestraPrincipale::DopoCambioLavoro() {
  InterrompiComando(s_);  // no command state survives a reload
  tela_->Rigenera();
  MostraNomeDelFile();
  Aggiorna();
}

void FinestraPrincipale::ApriLavoro() {
  FormApri f(s_, this);
  if (f.exec() != QDialog::Accepted || f.Scelto().isEmpty() || !ChiudiPrimaDi()) return;
  if (ApriLavoroScelto(s_, f.Scelto().toStdString())) DopoCambioLavoro();
}

void FinestraPrincipale::RiapriLavoro() {
  FormRiapriDisegno f(s_, this);
  if (f.exec() != QDialog::Accepted || f.Scelto().isEmpty() || !ChiudiPrimaDi()) return;
  if (ApriLavoroScelto(s_, f.Scelto().toStdString())) DopoCambioLavoro();
}

// `Cardi`: another job, a .CFG or its archive, chosen straight from the files.
void FinestraPrincipale::ApriAltroLavoro() {
  s_.RoutineCorrente = "Cardi";
  const auto scelto = s_.Ui->ScegliFile(
      false, "Apri Lavoro", "File VR2000    (*.CFG)|*.CFG;*.VRZ|File VR2016    (*.VRZ)|*.VRZ|", s_.CartellaLavoro, "");
  if (!scelto || scelto->empty() || !ChiudiPrimaDi()) return;
  if (ApriLavoroScelto(s_, *scelto)) DopoCambioLavoro();
}

void FinestraPrincipale::MostraElencoPunti() {
  if (RigheElencoPunti(s_).empty()) {
    ui_->Messaggio("Elenco Punti Vuoto!\n Sito orbo?", "Elenco vuoto", Icona::Avviso);
    return;
  }
  const bool nascosto = dockPunti_->isHidden();
  dockPunti_->show();
  dockPunti_->raise();
  if (nascosto) resizeDocks({dockPunti_}, {height() / 3}, Qt::Vertical);
  punti_->Aggiorna();
}

void FinestraPrincipale::MostraLibretto() {
  FormLibretto f(s_, this);
  f.exec();
}

void FinestraPrincipale::LavoriAperti() {
  FormLavoriAperti f(s_, this);
  f.exec();
  if (f.Recuperato()) DopoCambioLavoro();
}

void FinestraPrincipale::IncludiDisegno() {
  const QStringList scelti =
      QFileDialog::getOpenFileNames(this, tr("Includi Disegno"), Qs(s_.Imp.Cartella_Fiducial),
                                    FiltroQt("File Varena (*.CFG)|*.CFG|File TAF (*.TAF)|*.TAF|"));
  if (scelti.isEmpty()) return;
  std::vector<std::string> percorsi;
  for (const QString& p : scelti) percorsi.push_back(p.toStdString());
  if (varena::IncludiDisegno(s_, percorsi)) DopoCambioLavoro();
}

void FinestraPrincipale::TogliDisegnoIncluso() {
  QStringList inclusi;
  for (const std::string& p : varena::DisegniInclusi(s_)) inclusi << Qs(p);
  if (inclusi.isEmpty()) {
    QMessageBox::information(this, tr("Togli Disegno Incluso"), tr("Nessun disegno incluso."));
    return;
  }
  bool scelto = false;
  const QString p = QInputDialog::getItem(this, tr("Togli Disegno Incluso"), tr("Disegno :"), inclusi, 0, false, &scelto);
  if (scelto && varena::TogliDisegnoIncluso(s_, p.toStdString())) DopoCambioLavoro();
}

void FinestraPrincipale::EsciSenzaDomande() {
  senzaDomande_ = true;
  EliminaProvviso(s_);
  close();
}

void FinestraPrincipale::closeEvent(QCloseEvent* e) {
  // "Salvare il Lavoro?": Cancel, or a save that did not happen, keeps the program open.
  if (!senzaDomande_ && !Rifila(s_.NomeLavoro).empty() && !ChiusuraLavoro(s_, true)) {
    e->ignore();
    return;
  }
  memoria_.SalvaFinestra(*this);
  memoria_.SalvaStoria(riga_->Digitate());
  e->accept();
}

}  // namespace varena
