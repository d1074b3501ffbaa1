// The menus, the toolbars, the colour bar and the snap lamps of the main window, all made
// from the command table: each entry and button shows the command's icon, its Italian name
// and its key, and sends its tag.
#include <QInputDialog>
#include <QMenuBar>
#include <QPixmap>
#include <QStatusBar>

#include "EditorStampe.h"
#include "FinestraPrincipale.h"
#include "Icone.h"
#include "commands/TabellaComandi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// The menus in the order of the menu bar; a menu named in the table and not here comes last.
const char* const kOrdineMenu[] = {"File",   "Edit",   "Visualizza", "Zoom",    "Disegno",
                                   "Punto",  "Cambia", "Info",       "Immagine", "Catasto",
                                   "Terreno", "Strumenti", "Snap"};

// The button toolbars and their tags, in the groups of the legacy rows. `CfgToolbarBottoni.ini`
// gives, toolbar by toolbar, the row of the top of the window it stands in.
struct Barra {
  const char* Nome;
  const char* Titolo;
  std::vector<const char*> Tag;
};
const std::vector<Barra>& Barre() {
  static const std::vector<Barra> barre = {
      {"File", "File", {"NUOVO_VUOTO", "APRI_ESISTENTE", "SALVA_VELOCE", "ANNULLA", "REDO"}},
      {"Zoom", "Zoom", {"ZOOM_TUTTO", "ZOOM_FINESTRA", "ZOOM_SPOSTA", "ZOOM_PRECEDENTE", "ZOOM_+", "ZOOM_-", "ZOOM_SCALA",
                "RIDISEGNA"}},
      {"Linee", "Linee", {"DISEGNA_LINEA_2_P", "DISEGNA_LINEA_LIBERA", "DISEGNA_PARALLELA", "DISEGNA_LINEA_PERPENDA", "RETTANGOLO"}},
      {"Curve", "Curve", {"DISEGNA_CERCHIO_3_P", "CERCHIO_CENTRO_RAGGIO", "DISEGNA_ARCO_3_P", "ARCO_CENTRO_INIZIO_FINE"}},
      {"Testi", "Testi", {"DISEGNA_TESTO", "DISEGNA_TESTO_DA_APPUNTI", "DISEGNA_FUMETTO"}},
      {"Punti", "Punti", {"DISEGNA_PUNTO", "PUNTO_BILATERA", "IRRAGGIAMENTO", "PUNTO_PIEDE", "PUNTO_INCROCIO", "PUNTO_STAZIONE_LIBERA"}},
      {"Cambia", "Cambia", {"CAMBIA_ELIMINA", "CAMBIA_SPOSTA", "CAMBIA_COPIA", "CAMBIA_RUOTA", "CAMBIA_SPECCHIO", "CAMBIA_SCALA"}},
      {"Taglia", "Taglia", {"CAMBIA_TAGLIA", "CAMBIA_ALLUNGA", "CAMBIA_RIFILA", "CAMBIA_DIVIDE"}},
      {"Info", "Info", {"INFO_DISTANZA", "INFO_ANGOLO", "INFO_AREA", "LISTA_ENTITA"}},
      {"Visualizza", "Visualizza", {"N", "Q", "W", "S", "L", "A"}},
      {"Immagine", "Immagine", {"DISEGNA_IMMAGINE", "SPOSTA_BITMAP", "SCALA_1000", "SCALA_2000"}},
      {"Catasto", "Catasto", {"LIBRETTO_MISURE", "SCHEMA_DA_LIBRETTO", "CONTORNO_7"}},
      {"Strumenti", "Strumenti", {"CONFIGURAZIONE", "ORTOSINO", "DISEGNA_CAMPITURA"}},
  };
  return barre;
}

// The buttons the user assigned, kept beside the settings: "toolbar|position|TAG" a line.
std::string FileBottoni(const Sessione& s) { return s.CartellaLavoro + "BottoniToolbar.ini"; }

// The size of the icons in the toolbars; the menus and the lamps take the style's own.
constexpr int kIconaBarra = 24;

}  // namespace

QString SuggerimentoComando(const VoceComando& v) {
  const QString nome = v.Voce.empty() ? Qs(v.Tag) : Qs(v.Voce);
  return v.Tasto.empty() ? nome : nome + " (" + Qs(v.Tasto) + ")";
}

QString SuggerimentoDiStato(const VoceComando& v) {
  QString t = v.Menu.empty() ? QString() : Qs(v.Menu) + " › ";
  t += v.Voce.empty() ? Qs(v.Tag) : Qs(v.Voce);
  if (!v.Tasto.empty()) t += QObject::tr(" - tasto %1").arg(Qs(v.Tasto));
  if (!v.Prompt.empty()) t += ": " + Qs(v.Prompt);
  return t;
}

void FinestraPrincipale::CreaMenu() {
  for (const char* nome : kOrdineMenu) menu_.insert(nome, menuBar()->addMenu(Qs(nome)));
  for (const VoceComando& v : TabellaComandi()) {
    if (v.Menu.empty()) continue;
    const QString nome = Qs(v.Menu);
    if (!menu_.contains(nome)) menu_.insert(nome, menuBar()->addMenu(nome));
    const QString tag = Qs(v.Tag);
    // The key stands in the menu's shortcut column; the core keeps handling the key itself,
    // so that it does what it always did whatever has the focus.
    const QString testo = Qs(v.Voce) + (v.Tasto.empty() ? QString() : "\t" + Qs(v.Tasto));
    QAction* a = menu_[nome]->addAction(IconaTag(v.Tag), testo, this, [this, tag] { EseguiTag(tag); });
    a->setObjectName(tag);
    a->setEnabled(AttivoTag(std::string(v.Tag)));
    a->setToolTip(SuggerimentoComando(v));
    a->setStatusTip(SuggerimentoDiStato(v));
  }
  QMenu* file = menu_["File"];
  file->addSeparator();
  file->addAction(IconaFile("lavori-aperti"), tr("Lavori Aperti (recupero)..."), this, &FinestraPrincipale::LavoriAperti);
  file->addAction(IconaFile("includi-disegno"), tr("Includi Disegno..."), this, &FinestraPrincipale::IncludiDisegno);
  file->addAction(IconaFile("includi-disegno"), tr("Togli Disegno Incluso..."), this,
                  &FinestraPrincipale::TogliDisegnoIncluso);
  file->addAction(IconaTag("ANTEPRIMA_STAMPA"), tr("Stampe (modelli)..."), this, [this] { MostraModelliStampa(this, s_); });
  file->addAction(IconaFile("chiudi-lavoro"), tr("Chiudi Lavoro"), this, [this] {
    if (!ChiudiPrimaDi()) return;
    ClearAllTables(s_);
    s_.NomeOriginale.clear();
    s_.NomeLavoro.clear();
    DopoCambioLavoro();
  });
  file->addSeparator();
  file->addAction(IconaFile("esci"), tr("Esci"), this, &QWidget::close);
  CreaMenuFinestra();
  for (QMenu* m : menu_) {
    m->setToolTipsVisible(true);
    if (m->isEmpty()) m->menuAction()->setVisible(false);
  }
}

void FinestraPrincipale::CreaMenuFinestra() {
  QMenu* vista = menu_["Visualizza"];
  vista->addSeparator();
  QAction* piani = dockPiani_->toggleViewAction();
  piani->setIcon(IconaFile("pannello-piani"));
  piani->setText(tr("Pannello Piani"));
  vista->addAction(piani);
  QAction* comando = dockComando_->toggleViewAction();
  comando->setIcon(IconaFile("riga-comando"));
  comando->setText(tr("Riga di Comando"));
  vista->addAction(comando);
  testoSottoIcone_ = vista->addAction(IconaFile("testo-icone"), tr("Testo sotto le Icone"));
  testoSottoIcone_->setCheckable(true);
  connect(testoSottoIcone_, &QAction::toggled, this, &FinestraPrincipale::TestoSottoIcone);
  temaScuro_ = vista->addAction(IconaFile("tema"), tr("Tema Scuro"));
  temaScuro_->setCheckable(true);
  connect(temaScuro_, &QAction::toggled, this,
          [this](bool scuro) { ImpostaTema(scuro ? Tema::Scuro : Tema::Chiaro, true); });
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
  for (size_t k = 0; k < Barre().size(); ++k) ordine.emplace_back(k < gruppi.size() ? gruppi[k] : 1, k);
  std::stable_sort(ordine.begin(), ordine.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<QToolBar*> barre;
  for (const auto& [riga, k] : ordine) {
    const Barra& b = Barre()[k];
    auto* barra = new QToolBar(Qs(b.Titolo), this);
    barra->setObjectName(QString("Barra") + b.Nome);
    barra->setIconSize(QSize(kIconaBarra, kIconaBarra));
    for (size_t i = 0; i < b.Tag.size(); ++i) {
      const QString chiave = QString(b.Nome) + "|" + QString::number(i);
      auto* bottone = new QToolButton(barra);
      bottone->setProperty("chiave", chiave);
      PreparaBottone(bottone, barra, assegnati.value(chiave, b.Tag[i]));
      bottone->setContextMenuPolicy(Qt::CustomContextMenu);
      connect(bottone, &QToolButton::clicked, this, [this, bottone] { EseguiTag(bottone->property("tag").toString()); });
      connect(bottone, &QToolButton::customContextMenuRequested, this, [this, bottone] { AssegnaBottone(bottone); });
      barra->addWidget(bottone);
    }
    barre.push_back(barra);
  }
  DisponiToolbar(barre);
}

void FinestraPrincipale::PreparaBottone(QToolButton* b, QToolBar* barra, const QString& tag) {
  const VoceComando* v = CercaTag(tag.toStdString());
  b->setProperty("tag", tag);
  b->setIcon(IconaTag(tag.toStdString()));
  b->setText(v && !v->Voce.empty() ? Qs(v->Voce) : tag);
  b->setToolTip(v ? SuggerimentoComando(*v) : tag);
  b->setStatusTip(v ? SuggerimentoDiStato(*v) : tag);
  b->setEnabled(AttivoTag(tag.toStdString()));
  b->setAutoRaise(true);
  b->setIconSize(barra->iconSize());
  b->setToolButtonStyle(barra->toolButtonStyle());
  // A button added as a widget does not follow its toolbar by itself.
  connect(barra, &QToolBar::toolButtonStyleChanged, b, &QToolButton::setToolButtonStyle, Qt::UniqueConnection);
  connect(barra, &QToolBar::iconSizeChanged, b, &QToolButton::setIconSize, Qt::UniqueConnection);
}

void FinestraPrincipale::DisponiToolbar(const std::vector<QToolBar*>& barre) {
  // In the legacy order, as many to a line as the window's width holds: no button is left
  // behind a toolbar's overflow arrow.
  for (QToolBar* b : barre) removeToolBar(b);
  const int larghezza = std::max(width(), 640);
  larghezzaDisposta_ = width();
  int occupata = 0;
  bool prima = true;
  for (QToolBar* b : barre) {
    const int w = b->sizeHint().width() + 4;
    if (!prima && occupata + w > larghezza) {
      addToolBarBreak(Qt::TopToolBarArea);
      occupata = 0;
    }
    addToolBar(Qt::TopToolBarArea, b);
    b->show();
    occupata += w;
    prima = false;
  }
}

void FinestraPrincipale::AssegnaBottone(QToolButton* b) {
  QStringList voci;
  QStringList tag;
  for (const VoceComando& v : TabellaComandi())
    if (!v.Voce.empty()) {
      voci << Qs(v.Menu) + " - " + Qs(v.Voce);
      tag << Qs(v.Tag);
    }
  bool ok = false;
  const QString scelta = QInputDialog::getItem(this, tr("Assegna Comando"), tr("Comando del bottone:"), voci,
                                               static_cast<int>(tag.indexOf(b->property("tag").toString())), false, &ok);
  if (!ok) return;
  const QString nuovo = tag[voci.indexOf(scelta)];
  PreparaBottone(b, qobject_cast<QToolBar*>(b->parentWidget()), nuovo);
  s_.RoutineCorrente = "AssegnaBottone";
  const std::string riga = b->property("chiave").toString().toStdString() + "|" + nuovo.toStdString() + "\r\n";
  Protetto(s_, [&] { AggiungiTesto(FileBottoni(s_), riga); });
}

void FinestraPrincipale::CreaBarraColori() {
  auto* barra = new QToolBar(tr("Colori"), this);
  barra->setObjectName("BarraColori");
  barra->setIconSize(QSize(16, 16));
  addToolBar(Qt::BottomToolBarArea, barra);
  const int quanti = std::clamp(s_.Colori.NumeroColori, 9, 32);
  for (int i = 1; i <= quanti; ++i) {
    QPixmap campione(16, 16);
    const ColoreRGB c = s_.Colori[i];
    campione.fill(QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF));
    QAction* a = barra->addAction(QIcon(campione), QString::number(i), this,
                                  [this, i] { EseguiTag("COLORE_" + QString::number(i)); });
    a->setToolTip(tr("Colore %1").arg(i));
    a->setStatusTip(tr("Colore corrente %1").arg(i));
  }
}

void FinestraPrincipale::CreaSpie() {
  // Each lamp shows the letter that sets its snap with a command armed, and its name on
  // hover; a snap with no letter shows its icon.
  for (const VoceComando& v : TabellaComandi()) {
    if (v.Genere != GenereComando::Snap) continue;
    auto* spia = new QToolButton(this);
    spia->setObjectName("Spia" + Qs(v.Tag));
    if (v.Tasto.empty()) {
      spia->setIcon(IconaTag(v.Tag));
      spia->setIconSize(QSize(16, 16));
    } else {
      spia->setText(Qs(v.Tasto));
    }
    spia->setToolTip(SuggerimentoComando(v));
    spia->setStatusTip(SuggerimentoDiStato(v));
    spia->setCheckable(true);
    spia->setAutoRaise(true);
    spia->setMinimumWidth(22);
    const QString tag = Qs(v.Tag);
    connect(spia, &QToolButton::clicked, this, [this, tag] { EseguiTag(tag); });
    statusBar()->addPermanentWidget(spia);
    spie_.insert(v.Codice, spia);
  }
}

}  // namespace varena
