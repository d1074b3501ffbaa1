#include "FinestraPrincipale.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
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
  file->addAction(tr("&Apri Lavoro..."), this, &FinestraPrincipale::ApriLavoro);
  file->addSeparator();
  file->addAction(tr("&Esci"), this, &QWidget::close);
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

void FinestraPrincipale::ApriLavoro() {
  const auto scelto = s_.Ui->ScegliFile(false, "Apri Lavoro", "File VR2000    (*.CFG)|*.CFG|", s_.Imp.Cartella_Default, "");
  if (!scelto) return;
  std::string base = *scelto;
  if (base.size() > 4 && UgualeSenzaCaso(base.substr(base.size() - 4), ".CFG")) base.resize(base.size() - 4);
  s_.NomeOriginale = base;
  s_.TipoFile = "CFG";
  VR_ApriLavoro(s_);
  tela_->Rigenera();
  MostraNomeDelFile();
}

void FinestraPrincipale::TestoComando() {
  const std::string testo = comando_->text().trimmed().toStdString();
  comando_->clear();
  if (testo.empty()) return;
  if (CentraSuPunto(s_, testo) != Seguito::Nessuno) tela_->Ridisegna();
}

void FinestraPrincipale::closeEvent(QCloseEvent* e) {
  EliminaProvviso(s_);
  e->accept();
}

}  // namespace varena
