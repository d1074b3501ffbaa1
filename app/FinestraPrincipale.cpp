#include "FinestraPrincipale.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include "FinestreLavori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Registro.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "view/Zoom.h"

namespace varena {

FinestraPrincipale::FinestraPrincipale(Sessione& s) : s_(s) {
  auto* centro = new QWidget(this);
  auto* colonna = new QVBoxLayout(centro);
  colonna->setContentsMargins(0, 0, 0, 0);
  colonna->setSpacing(0);
  tela_ = new Tela(s_, centro);
  colonna->addWidget(tela_, 1);

  auto* riga = new QHBoxLayout();
  riga->setContentsMargins(4, 2, 4, 2);
  prompt_ = new QLabel(centro);
  prompt_->setMinimumWidth(300);
  comando_ = new QLineEdit(centro);
  comando_->setMaximumWidth(220);
  comando_->setPlaceholderText(tr("Nome punto / comando"));
  riga->addWidget(prompt_, 1);
  riga->addWidget(comando_);
  colonna->addLayout(riga);
  setCentralWidget(centro);

  nord_ = new QLabel(this);
  est_ = new QLabel(this);
  altezza_ = new QLabel(this);
  for (QLabel* l : {nord_, est_, altezza_}) {
    l->setMinimumWidth(150);
    statusBar()->addPermanentWidget(l);
  }

  ui_ = std::make_unique<InterfacciaQt>(this, prompt_);
  s_.Ui = ui_.get();

  connect(tela_, &Tela::PuntatoreSulFoglio, this, &FinestraPrincipale::AggiornaLettura);
  connect(tela_, &Tela::VistaCambiata, this, [this] {
    altezza_->setText(QString::fromStdString("H= " + FormatoMaschera(s_.Vista.AltezzaVista, "#########0.00")));
  });
  connect(comando_, &QLineEdit::returnPressed, this, &FinestraPrincipale::TestoComando);
  CreaMenu();
  resize(1280, 800);
  MostraNomeDelFile();
}

FinestraPrincipale::~FinestraPrincipale() {
  // The session outlives the window: it goes back to an interface that nobody watches.
  static InterfacciaMuta muta;
  s_.Ui = &muta;
}

void FinestraPrincipale::CreaMenu() {
  QMenu* file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Nuovo Lavoro..."), this, &FinestraPrincipale::NuovoLavoro);
  file->addAction(tr("&Apri Lavoro..."), QKeySequence::Open, this, &FinestraPrincipale::ApriLavoro);
  file->addAction(tr("&Riapri Lavoro Recente..."), this, &FinestraPrincipale::RiapriLavoro);
  file->addAction(tr("Lavori &Aperti (recupero)..."), this, &FinestraPrincipale::LavoriAperti);
  file->addSeparator();
  file->addAction(tr("&Salva"), QKeySequence::Save, this, [this] {
    Salva(s_);
    MostraNomeDelFile();
  });
  file->addAction(tr("Salva &Con Nome..."), this, [this] {
    if (VR_SalvaConNome(s_)) DopoCambioLavoro();
  });
  file->addAction(tr("&Includi Disegno..."), this, &FinestraPrincipale::IncludiDisegno);
  file->addSeparator();
  file->addAction(tr("&Chiudi Lavoro"), this, [this] {
    if (!ChiusuraLavoro(s_, false)) return;
    ClearAllTables(s_);
    s_.NomeOriginale.clear();
    s_.NomeLavoro.clear();
    DopoCambioLavoro();
  });
  file->addAction(tr("&Esci"), this, &QWidget::close);
  QMenu* modifica = menuBar()->addMenu(tr("&Modifica"));
  modifica->addAction(tr("&Annulla"), QKeySequence::Undo, this, [this] {
    if (VR_UNDO(s_)) tela_->Rigenera();
  });
  modifica->addAction(tr("&Ripristina"), QKeySequence::Redo, this, [this] {
    if (VR_REDO(s_)) tela_->Rigenera();
  });
  QMenu* zoom = menuBar()->addMenu(tr("&Zoom"));
  zoom->addAction(tr("Zoom &Tutto"), this, [this] {
    (void)TuttoTutto(s_);
    tela_->Rigenera();
  });
}

void FinestraPrincipale::AggiornaLettura(double est, double nord) {
  nord_->setText(QString::fromStdString("N= " + FormatoMaschera(nord, "#########0.000")));
  est_->setText(QString::fromStdString(" E= " + FormatoMaschera(est, "#########0.000")));
}

void FinestraPrincipale::MostraNomeDelFile() {
  const QString nome = QString::fromStdString(s_.NomeOriginale);
  setWindowTitle(nome.isEmpty() ? QStringLiteral("Varena") : QStringLiteral("Varena - ") + nome);
}

bool FinestraPrincipale::ChiudiPrimaDi() {
  if (Rifila(s_.NomeLavoro).empty()) return true;
  return ChiusuraLavoro(s_, false);
}

void FinestraPrincipale::DopoCambioLavoro() {
  tela_->Rigenera();
  MostraNomeDelFile();
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

void FinestraPrincipale::NuovoLavoro() {
  if (!ChiudiPrimaDi()) return;
  if (VR_CreaNuovoLavoroVuoto(s_)) DopoCambioLavoro();
}

void FinestraPrincipale::IncludiDisegno() {
  const QStringList scelti = QFileDialog::getOpenFileNames(this, tr("Includi Disegno"), QString::fromStdString(s_.Imp.Cartella_Fiducial),
                                                           FiltroQt("File Varena (*.CFG)|*.CFG|File TAF (*.TAF)|*.TAF|"));
  if (scelti.isEmpty()) return;
  std::vector<std::string> percorsi;
  for (const QString& p : scelti) percorsi.push_back(p.toStdString());
  if (varena::IncludiDisegno(s_, percorsi)) DopoCambioLavoro();
}

void FinestraPrincipale::TestoComando() {
  const std::string testo = comando_->text().trimmed().toStdString();
  comando_->clear();
  if (testo.empty()) return;
  if (CentraSuPunto(s_, testo) != Seguito::Nessuno) tela_->Ridisegna();
}

void FinestraPrincipale::closeEvent(QCloseEvent* e) {
  // "Salvare il Lavoro?": Cancel, or a save that did not happen, keeps the program open.
  if (!Rifila(s_.NomeLavoro).empty() && !ChiusuraLavoro(s_, true)) {
    e->ignore();
    return;
  }
  e->accept();
}

}  // namespace varena
