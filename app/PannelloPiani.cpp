#include "PannelloPiani.h"

#include <QCursor>
#include <QHeaderView>
#include <QMenu>
#include <QPixmap>
#include <QVBoxLayout>

#include "Icone.h"
#include "commands/ComandiPiani.h"
#include "core/Sessione.h"

namespace varena {

namespace {

QPixmap Campione(const Sessione& s, int colore) {
  QPixmap p(14, 14);
  const ColoreRGB c = s.Colori[colore];
  p.fill(QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF));
  return p;
}

}  // namespace

PannelloPiani::PannelloPiani(Sessione& s, QWidget* genitore) : QWidget(genitore), s_(s) {
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(2, 2, 2, 2);
  tabella_ = new QTableWidget(0, NumeroColonne, this);
  tabella_->setObjectName("TabellaPiani");
  tabella_->setHorizontalHeaderLabels({"", tr("Piano"), "", tr("Colore"), tr("Entità")});
  tabella_->horizontalHeaderItem(ColCorrente)->setIcon(IconaFile("piani"));
  tabella_->horizontalHeaderItem(ColCorrente)->setToolTip(tr("Piano corrente: quello delle nuove entità"));
  tabella_->horizontalHeaderItem(ColVisibile)->setIcon(IconaFile("tutti"));
  tabella_->horizontalHeaderItem(ColVisibile)->setToolTip(
      tr("Visibile: un piano nascosto è congelato, le sue entità non si disegnano né si selezionano"));
  tabella_->verticalHeader()->setDefaultSectionSize(tabella_->fontMetrics().height() + 6);
  tabella_->verticalHeader()->setVisible(false);
  tabella_->setSelectionMode(QAbstractItemView::NoSelection);
  tabella_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tabella_->horizontalHeader()->setSectionResizeMode(ColNome, QHeaderView::Stretch);
  for (int c : {ColCorrente, ColVisibile, ColColore, ColEntita})
    tabella_->horizontalHeader()->setSectionResizeMode(c, QHeaderView::ResizeToContents);
  colonna->addWidget(tabella_);
  connect(tabella_, &QTableWidget::cellClicked, this, &PannelloPiani::Cliccato);
  connect(tabella_, &QTableWidget::itemChanged, this, &PannelloPiani::Spuntato);
}

QString PannelloPiani::NomeRiga(int riga) const {
  const QTableWidgetItem* v = tabella_->item(riga, ColNome);
  return v ? v->text() : QString();
}

void PannelloPiani::Aggiorna() {
  const QSignalBlocker zitto(tabella_);
  const std::vector<VocePiano> piani = ElencoPiani(s_);
  tabella_->setRowCount(static_cast<int>(piani.size()));
  const QIcon corrente = IconaFile("piani");
  for (int r = 0; r < static_cast<int>(piani.size()); ++r) {
    const VocePiano& p = piani[static_cast<size_t>(r)];
    auto* c = new QTableWidgetItem(p.Corrente ? corrente : QIcon(), "");
    c->setToolTip(p.Corrente ? tr("Piano corrente") : tr("Clic: rendi corrente"));
    tabella_->setItem(r, ColCorrente, c);
    auto* nome = new QTableWidgetItem(QString::fromStdString(p.Nome));
    if (p.Corrente) {
      QFont f = nome->font();
      f.setBold(true);
      nome->setFont(f);
    }
    tabella_->setItem(r, ColNome, nome);
    auto* visibile = new QTableWidgetItem();
    visibile->setFlags(p.Entita > 0 ? Qt::ItemIsEnabled | Qt::ItemIsUserCheckable : Qt::ItemIsUserCheckable);
    visibile->setCheckState(p.Congelate == 0 ? Qt::Checked : p.Congelate == p.Entita ? Qt::Unchecked : Qt::PartiallyChecked);
    tabella_->setItem(r, ColVisibile, visibile);
    auto* colore = new QTableWidgetItem(QIcon(Campione(s_, p.Colore)), QString::number(p.Colore));
    colore->setToolTip(tr("Clic: colore del piano e delle sue entità"));
    tabella_->setItem(r, ColColore, colore);
    auto* entita = new QTableWidgetItem(QString::number(p.Entita));
    entita->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (p.Congelate > 0) entita->setToolTip(tr("%1 congelate").arg(p.Congelate));
    tabella_->setItem(r, ColEntita, entita);
  }
}

void PannelloPiani::Cliccato(int riga, int colonna) {
  const QString nome = NomeRiga(riga);
  if (nome.isEmpty()) return;
  if (colonna == ColCorrente || colonna == ColNome) {
    ScegliPianoCorrente(s_, nome.toStdString());
    Aggiorna();
    emit Cambiato();
  } else if (colonna == ColColore) {
    QMenu scelta(this);
    const int quanti = std::clamp(s_.Colori.NumeroColori, 9, 32);
    for (int i = 1; i <= quanti; ++i)
      scelta.addAction(QIcon(Campione(s_, i)), tr("Colore %1").arg(i), this, [this, riga, i] { CambiaColore(riga, i); });
    scelta.exec(QCursor::pos());
  }
}

void PannelloPiani::CambiaColore(int riga, int colore) {
  const QString nome = NomeRiga(riga);
  if (nome.isEmpty() || !ColorePiano(s_, nome.toStdString(), colore)) return;
  Aggiorna();
  emit Cambiato();
}

void PannelloPiani::Spuntato(QTableWidgetItem* voce) {
  if (voce->column() != ColVisibile) return;
  // A partly frozen layer is shown whole by a click; a shown one is frozen.
  const bool nascondi = voce->checkState() == Qt::Unchecked;
  CongelaPiano(s_, NomeRiga(voce->row()).toStdString(), nascondi);
  Aggiorna();
  emit Cambiato();
}

}  // namespace varena
