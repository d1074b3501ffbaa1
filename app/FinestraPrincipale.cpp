#include "FinestraPrincipale.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPainter>
#include <QPixmap>
#include <QStatusBar>
#include <QVBoxLayout>
#include <fstream>
#include <iostream>

#include "FinestreLavori.h"
#include "commands/Comandi.h"
#include "commands/Script.h"
#include "commands/TabellaComandi.h"
#include "commands/Tastiera.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Registro.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"

namespace varena {

namespace {

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// The menus in the order of the menu bar; a menu named in the table and not here comes last.
const char* const kOrdineMenu[] = {"File",   "Edit",   "Visualizza", "Zoom",    "Disegno",
                                   "Punto",  "Cambia", "Info",       "Immagine", "Catasto",
                                   "Terreno", "Strumenti"};

// The tags whose windows belong to the desktop program.
bool TagDelDesktop(const QString& t) {
  return t == "APRI_ESISTENTE" || t == "APRI_DA_ARCHIVIO" || t == "RIAPRI_DISEGNO" || t == "GESTIONE_DISEGNI";
}

// The button toolbars and their tags. `CfgToolbarBottoni.ini` gives, toolbar by toolbar, the
// row of the top of the window it stands in.
struct Barra {
  const char* Nome;
  std::vector<const char*> Tag;
};
const std::vector<Barra>& Barre() {
  static const std::vector<Barra> barre = {
      {"File", {"NUOVO_VUOTO", "APRI_ESISTENTE", "SALVA_VELOCE", "ANNULLA", "REDO"}},
      {"Zoom", {"ZOOM_TUTTO", "ZOOM_FINESTRA", "ZOOM_SPOSTA", "ZOOM_PRECEDENTE", "ZOOM_+", "ZOOM_-", "ZOOM_SCALA",
                "RIDISEGNA"}},
      {"Linee", {"DISEGNA_LINEA_2_P", "DISEGNA_LINEA_LIBERA", "DISEGNA_PARALLELA", "DISEGNA_LINEA_PERPENDA", "RETTANGOLO"}},
      {"Curve", {"DISEGNA_CERCHIO_3_P", "CERCHIO_CENTRO_RAGGIO", "DISEGNA_ARCO_3_P", "ARCO_CENTRO_INIZIO_FINE"}},
      {"Testi", {"DISEGNA_TESTO", "DISEGNA_TESTO_DA_APPUNTI", "DISEGNA_FUMETTO"}},
      {"Punti", {"DISEGNA_PUNTO", "PUNTO_BILATERA", "IRRAGGIAMENTO", "PUNTO_PIEDE", "PUNTO_INCROCIO", "PUNTO_STAZIONE_LIBERA"}},
      {"Cambia", {"CAMBIA_ELIMINA", "CAMBIA_SPOSTA", "CAMBIA_COPIA", "CAMBIA_RUOTA", "CAMBIA_SPECCHIO", "CAMBIA_SCALA"}},
      {"Taglia", {"CAMBIA_TAGLIA", "CAMBIA_ALLUNGA", "CAMBIA_RIFILA", "CAMBIA_DIVIDE"}},
      {"Info", {"INFO_DISTANZA", "INFO_ANGOLO", "INFO_AREA", "LISTA_ENTITA"}},
      {"Visualizza", {"N", "Q", "W", "S", "L", "A"}},
      {"Immagine", {"DISEGNA_IMMAGINE", "SPOSTA_BITMAP", "SCALA_1000", "SCALA_2000"}},
      {"Catasto", {"LIBRETTO_MISURE", "SCHEMA_DA_LIBRETTO", "CONTORNO_7"}},
      {"Strumenti", {"CONFIGURAZIONE", "ORTOSINO", "DISEGNA_CAMPITURA"}},
  };
  return barre;
}

// The buttons the user assigned, kept beside the settings: "toolbar|position|TAG" a line.
std::string FileBottoni(const Sessione& s) { return s.CartellaLavoro + "BottoniToolbar.ini"; }

}  // namespace

FinestraPrincipale::FinestraPrincipale(Sessione& s) : s_(s) {
  auto* centro = new QWidget(this);
  auto* colonna = new QVBoxLayout(centro);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->setSpacing(0);
  tela_ = new Tela(s_, centro);
  tela_->setObjectName("Picture1");
  colonna->addWidget(tela_, 1);

  auto* riga = new QHBoxLayout();
  riga->setContentsMargins(4, 2, 4, 2);
  prompt_ = new QLabel(centro);
  prompt_->setObjectName("Prompt");
  prompt_->setMinimumWidth(300);
  comando_ = new QLineEdit(centro);
  comando_->setObjectName("Casella");
  comando_->setMaximumWidth(220);
  comando_->setPlaceholderText(tr("Nome punto / _N"));
  riga->addWidget(prompt_, 1);
  riga->addWidget(comando_);
  colonna->addLayout(riga);
  setCentralWidget(centro);

  etichettaSnap_ = new QLabel(this);
  segmento_ = new QLabel(this);
  lettura_ = new QLabel(this);
  lettura_->setObjectName("Lettura");
  statusBar()->addWidget(etichettaSnap_);
  statusBar()->addWidget(segmento_, 1);
  statusBar()->addPermanentWidget(lettura_);

  ui_ = std::make_unique<InterfacciaQt>(
      s_, this, prompt_, [this] { Aggiorna(); }, [this](std::string_view nome) { MenuContestuale(nome); });
  s_.Ui = ui_.get();

  connect(tela_, &Tela::Evento, this, &FinestraPrincipale::Aggiorna);
  connect(comando_, &QLineEdit::returnPressed, this, [this] {
    const std::string testo = comando_->text().trimmed().toStdString();
    comando_->clear();
    tela_->setFocus();
    tela_->CompletaRidisegno();
    if (!testo.empty()) InvioCasella(s_, testo);
    Aggiorna();
  });
  CreaMenu();
  CreaSpie();
  resize(1280, 800);
  // Keys belong to the drawing until the user types into the text box.
  tela_->setFocus();
  MostraNomeDelFile();
}

FinestraPrincipale::~FinestraPrincipale() {
  // The session outlives the window: it goes back to an interface that nobody watches.
  static InterfacciaMuta muta;
  s_.Ui = &muta;
}

bool FinestraPrincipale::AttivoTag(const std::string& tag) const {
  // A command whose work is not written yet is shown, and not offered.
  return TagDelDesktop(Qs(tag)) || TagEseguibile(tag);
}

void FinestraPrincipale::CreaMenu() {
  for (const char* nome : kOrdineMenu) menu_.insert(nome, menuBar()->addMenu(Qs(nome)));
  for (const VoceComando& v : TabellaComandi()) {
    if (v.Menu.empty()) continue;
    const QString nome = Qs(v.Menu);
    if (!menu_.contains(nome)) menu_.insert(nome, menuBar()->addMenu(nome));
    const QString tag = Qs(v.Tag);
    QAction* a = menu_[nome]->addAction(Qs(v.Voce), this, [this, tag] { EseguiTag(tag); });
    a->setObjectName(tag);
    a->setEnabled(AttivoTag(std::string(v.Tag)));
    a->setStatusTip(tag);
  }
  QMenu* file = menu_["File"];
  file->addSeparator();
  file->addAction(tr("Lavori Aperti (recupero)..."), this, &FinestraPrincipale::LavoriAperti);
  file->addAction(tr("Includi Disegno..."), this, &FinestraPrincipale::IncludiDisegno);
  file->addAction(tr("Chiudi Lavoro"), this, [this] {
    if (!ChiudiPrimaDi()) return;
    ClearAllTables(s_);
    s_.NomeOriginale.clear();
    s_.NomeLavoro.clear();
    DopoCambioLavoro();
  });
  file->addSeparator();
  file->addAction(tr("Esci"), this, &QWidget::close);
  for (QMenu* m : menu_)
    if (m->isEmpty()) m->menuAction()->setVisible(false);
}

void FinestraPrincipale::PreparaBarre() {
  for (QToolBar* b : findChildren<QToolBar*>()) {
    removeToolBar(b);
    b->deleteLater();
  }
  CreaToolbar();
  CreaBarraColori();
}

void FinestraPrincipale::CreaToolbar() {
  // User assignments override the defaults, button by button.
  QMap<QString, QString> assegnati;
  for (const std::string& riga : RigheFile(FileBottoni(s_))) {
    const auto pezzi = Dividi(riga, '|');
    if (pezzi.size() >= 3) assegnati.insert(Qs(pezzi[0]) + "|" + Qs(pezzi[1]), Qs(Rifila(pezzi[2])));
  }
  // Toolbars of the same row stand together, rows in increasing order.
  const auto& gruppi = s_.Toolbar.Gruppi;
  std::vector<std::pair<int, size_t>> ordine;
  for (size_t k = 0; k < Barre().size(); ++k)
    ordine.emplace_back(k < gruppi.size() ? gruppi[k] : 1, k);
  std::stable_sort(ordine.begin(), ordine.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  int rigaPrima = -1;
  for (const auto& [riga, k] : ordine) {
    const Barra& b = Barre()[k];
    auto* barra = new QToolBar(Qs(b.Nome), this);
    barra->setObjectName(QString("Barra") + b.Nome);
    if (rigaPrima >= 0 && riga != rigaPrima) addToolBarBreak(Qt::TopToolBarArea);
    rigaPrima = riga;
    addToolBar(Qt::TopToolBarArea, barra);
    for (size_t i = 0; i < b.Tag.size(); ++i) {
      const QString chiave = QString(b.Nome) + "|" + QString::number(i);
      const QString tag = assegnati.value(chiave, b.Tag[i]);
      const VoceComando* v = CercaTag(tag.toStdString());
      auto* bottone = new QToolButton(barra);
      bottone->setProperty("chiave", chiave);
      bottone->setProperty("tag", tag);
      bottone->setText(v && !v->Voce.empty() ? Qs(v->Voce) : tag);
      bottone->setToolTip(tag);
      bottone->setEnabled(AttivoTag(tag.toStdString()));
      bottone->setContextMenuPolicy(Qt::CustomContextMenu);
      connect(bottone, &QToolButton::clicked, this, [this, bottone] { EseguiTag(bottone->property("tag").toString()); });
      connect(bottone, &QToolButton::customContextMenuRequested, this, [this, bottone] { AssegnaBottone(bottone); });
      barra->addWidget(bottone);
    }
  }
}

void FinestraPrincipale::AssegnaBottone(QToolButton* b) {
  QStringList voci;
  QStringList tag;
  for (const VoceComando& v : TabellaComandi())
    if (!v.Voce.empty()) {
      voci << Qs(v.Menu) + " - " + Qs(v.Voce) + "  [" + Qs(v.Tag) + "]";
      tag << Qs(v.Tag);
    }
  bool ok = false;
  const QString scelta = QInputDialog::getItem(this, tr("Assegna Comando"), tr("Comando del bottone:"), voci,
                                               static_cast<int>(tag.indexOf(b->property("tag").toString())), false, &ok);
  if (!ok) return;
  const QString nuovo = tag[voci.indexOf(scelta)];
  b->setProperty("tag", nuovo);
  const VoceComando* v = CercaTag(nuovo.toStdString());
  b->setText(v ? Qs(v->Voce) : nuovo);
  b->setToolTip(nuovo);
  b->setEnabled(AttivoTag(nuovo.toStdString()));
  s_.RoutineCorrente = "AssegnaBottone";
  const std::string riga = b->property("chiave").toString().toStdString() + "|" + nuovo.toStdString() + "\r\n";
  Protetto(s_, [&] { AggiungiTesto(FileBottoni(s_), riga); });
}

void FinestraPrincipale::CreaBarraColori() {
  auto* barra = new QToolBar(tr("Colori"), this);
  barra->setObjectName("BarraColori");
  addToolBar(Qt::BottomToolBarArea, barra);
  const int quanti = std::clamp(s_.Colori.NumeroColori, 9, 32);
  for (int i = 1; i <= quanti; ++i) {
    QPixmap campione(16, 16);
    const ColoreRGB c = s_.Colori[i];
    campione.fill(QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF));
    QAction* a = barra->addAction(QIcon(campione), QString::number(i), this,
                                  [this, i] { EseguiTag("COLORE_" + QString::number(i)); });
    a->setToolTip(tr("Colore %1").arg(i));
  }
}

void FinestraPrincipale::CreaSpie() {
  for (const VoceComando& v : TabellaComandi()) {
    if (v.Genere != GenereComando::Snap) continue;
    auto* spia = new QToolButton(this);
    spia->setText(Qs(v.Tag).mid(5, 3));
    spia->setToolTip(Qs(v.Voce));
    spia->setCheckable(true);
    spia->setAutoRaise(true);
    const QString tag = Qs(v.Tag);
    connect(spia, &QToolButton::clicked, this, [this, tag] { EseguiTag(tag); });
    statusBar()->addPermanentWidget(spia);
    spie_.insert(v.Codice, spia);
  }
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
  if (t == "APRI_ESISTENTE" || t == "APRI_DA_ARCHIVIO") return ApriLavoro();
  if (t == "RIAPRI_DISEGNO") return RiapriLavoro();
  if (t == "GESTIONE_DISEGNI") return LavoriAperti();
  const std::string prima = s_.NomeOriginale;
  tela_->CompletaRidisegno();
  varena::EseguiTag(s_, t.toStdString());
  if (s_.NomeOriginale != prima) MostraNomeDelFile();
  Aggiorna();
}

void FinestraPrincipale::Aggiorna() {
  tela_->update();
  lettura_->setText(Qs(s_.LetturaCoordinate));
  segmento_->setText(Qs(s_.LetturaSegmento));
  etichettaSnap_->setText(Qs(s_.EtichettaSnap));
  for (auto it = spie_.begin(); it != spie_.end(); ++it) it.value()->setChecked(it.key() == s_.ModoSnap);
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
  const bool usato = TastoGiu(s_, t, comando_->hasFocus());
  Aggiorna();
  return usato;
}

void FinestraPrincipale::keyPressEvent(QKeyEvent* e) {
  if (Tasto(e)) return;
  // A key the program did not use starts the text of the command box.
  if (!e->text().isEmpty() && e->text()[0].isPrint()) {
    comando_->setFocus();
    comando_->insert(e->text());
    return;
  }
  QMainWindow::keyPressEvent(e);
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
  e->accept();
}

}  // namespace varena
