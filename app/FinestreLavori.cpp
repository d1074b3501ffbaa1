#include "FinestreLavori.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include <QColor>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileSystemModel>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

#include "core/ImpostazioniUtente.h"
#include "core/Sessione.h"
#include "store/Registro.h"
#include "store/Salvataggio.h"

namespace varena {

namespace {
QString Qs(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

FormApri::FormApri(Sessione& s, QWidget* genitore) : QDialog(genitore), s_(s) {
  setWindowTitle(tr("Apri Lavoro"));
  resize(900, 560);
  auto* colonna = new QVBoxLayout(this);
  griglia_ = new QTableWidget(this);
  griglia_->setColumnCount(4);
  griglia_->setHorizontalHeaderLabels({"Nome Lavoro", "Percorso Completo", "Descrizione", "Data"});
  griglia_->setSelectionBehavior(QAbstractItemView::SelectRows);
  griglia_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  griglia_->horizontalHeader()->setStretchLastSection(true);
  // Filled with sorting off: a grid that sorts at each cell set takes minutes over an
  // archive of thousands of jobs.
  const auto righe = CaricaGriglia(s_);
  griglia_->setRowCount(static_cast<int>(righe.size()));
  for (int r = 0; r < static_cast<int>(righe.size()); ++r) {
    const VoceArchivio& v = righe[static_cast<size_t>(r)];
    int c = 0;
    for (const std::string& t : {v.Nome, v.Percorso, v.Descrizione, v.Data}) {
      auto* cella = new QTableWidgetItem(Qs(t));
      // A job no longer on disk still shows, greyed: opening it gives an empty job.
      if (v.Mancante) {
        cella->setForeground(QColor(128, 128, 128));
        cella->setToolTip(tr("Lavoro non trovato"));
      }
      griglia_->setItem(r, c++, cella);
    }
  }
  // The sort column of the last time, kept in the user's settings when the window closes.
  const int colonnaOrdine = std::clamp(
      std::atoi(LeggiImpostazioneUtente(s_, "ArchivioLavori", "OrdinaLavori", "0").c_str()), 0, 3);
  griglia_->setSortingEnabled(true);
  griglia_->sortByColumn(colonnaOrdine, Qt::AscendingOrder);
  connect(this, &QDialog::finished, this, [this] {
    ScriviImpostazioneUtente(s_, "ArchivioLavori", "OrdinaLavori",
                             std::to_string(griglia_->horizontalHeader()->sortIndicatorSection()));
  });
  connect(griglia_, &QTableWidget::cellDoubleClicked, this,
          [this](int r, int) { Scegli(griglia_->item(r, 1)->text()); });

  // The folder tree and the job files of the folder chosen.
  auto* divisore = new QSplitter(this);
  auto* cartelle = new QFileSystemModel(this);
  cartelle->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  cartelle->setRootPath("/");
  auto* albero = new QTreeView(divisore);
  albero->setObjectName("Cartelle");
  albero->setModel(cartelle);
  for (int k = 1; k < cartelle->columnCount(); ++k) albero->hideColumn(k);
  auto* file = new QFileSystemModel(this);
  file->setFilter(QDir::Files);
  // Jobs, and jobs kept as one archive.
  file->setNameFilters({"*.CFG", "*.cfg", "*.Cfg", "*.VRZ", "*.vrz", "*.Vrz"});
  file->setNameFilterDisables(false);
  auto* elenco = new QTreeView(divisore);
  elenco->setObjectName("File");
  elenco->setModel(file);
  elenco->setRootIsDecorated(false);
  // The tree holds the whole disk, opened at the working root, where the jobs are kept.
  const QString iniziale = QDir(Qs(s_.CartellaLavoro)).absolutePath();
  const QModelIndex radice = cartelle->index(iniziale);
  for (QModelIndex i = radice.parent(); i.isValid(); i = i.parent()) albero->expand(i);
  albero->setCurrentIndex(radice);
  // The folders come in as they are read: the working root is brought into sight once there.
  connect(cartelle, &QFileSystemModel::directoryLoaded, albero, [albero] {
    albero->scrollTo(albero->currentIndex(), QAbstractItemView::PositionAtCenter);
  });
  elenco->setRootIndex(file->setRootPath(iniziale));
  connect(albero, &QTreeView::clicked, this, [cartelle, file, elenco](const QModelIndex& i) {
    elenco->setRootIndex(file->setRootPath(cartelle->filePath(i)));
  });
  connect(elenco, &QTreeView::doubleClicked, this, [this, file](const QModelIndex& i) { Scegli(file->filePath(i)); });

  colonna->addWidget(new QLabel(tr("Archivio dei lavori"), this));
  colonna->addWidget(griglia_, 1);
  colonna->addWidget(divisore, 2);
  auto* bottoni = new QDialogButtonBox(QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
  connect(bottoni, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(bottoni, &QDialogButtonBox::accepted, this, [this, elenco, file] {
    if (elenco->currentIndex().isValid())
      Scegli(file->filePath(elenco->currentIndex()));
    else if (griglia_->currentRow() >= 0)
      Scegli(griglia_->item(griglia_->currentRow(), 1)->text());
  });
  colonna->addWidget(bottoni);
}

void FormApri::Scegli(const QString& percorso) {
  scelto_ = percorso;
  accept();
}

FormRiapriDisegno::FormRiapriDisegno(Sessione& s, QWidget* genitore) : QDialog(genitore) {
  setWindowTitle(tr("Lavori Recenti"));
  resize(640, 400);
  auto* colonna = new QVBoxLayout(this);
  elenco_ = new QListWidget(this);
  const auto recenti = LavoriRecenti(s);
  for (auto it = recenti.rbegin(); it != recenti.rend(); ++it) elenco_->addItem(Qs(*it));
  colonna->addWidget(elenco_);
  connect(elenco_, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
    scelto_ = i->text();
    accept();
  });
  auto* bottoni = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  auto* svuota = bottoni->addButton(tr("Elimina Lavori Recenti"), QDialogButtonBox::ResetRole);
  connect(svuota, &QPushButton::clicked, this, [this, &s] {
    if (SvuotaLavoriRecenti(s)) elenco_->clear();
  });
  connect(bottoni, &QDialogButtonBox::rejected, this, &QDialog::reject);
  colonna->addWidget(bottoni);
}

FormLavoriAperti::FormLavoriAperti(Sessione& s, QWidget* genitore) : QDialog(genitore), s_(s) {
  setWindowTitle(tr("Lavori Aperti"));
  resize(820, 420);
  auto* colonna = new QVBoxLayout(this);
  elenco_ = new QListWidget(this);
  colonna->addWidget(elenco_);
  auto* riga = new QHBoxLayout();
  auto bottone = [&](const QString& testo, auto azione) {
    auto* b = new QPushButton(testo, this);
    connect(b, &QPushButton::clicked, this, azione);
    riga->addWidget(b);
  };
  bottone(tr("Recupera"), [this] {
    if (RecuperaLavoroAperto(s_, Voce().toStdString())) {
      recuperato_ = true;
      accept();
    }
  });
  bottone(tr("Salva nell'originale"), [this] {
    SalvaLavoroAperto(s_, Voce().toStdString());
    Riempi();
  });
  bottone(tr("Salva con nome"), [this] {
    if (RecuperaLavoroAperto(s_, Voce().toStdString()) && VR_SalvaConNome(s_)) {
      recuperato_ = true;
      accept();
    }
  });
  bottone(tr("Nuovo"), [this] {
    if (VR_CreaNuovoLavoroVuoto(s_)) {
      recuperato_ = true;
      accept();
    }
  });
  bottone(tr("Elimina tutti"), [this] {
    EliminaTuttiProvvisori(s_);
    Riempi();
  });
  colonna->addLayout(riga);
  Riempi();
}

void FormLavoriAperti::Riempi() {
  elenco_->clear();
  for (const LavoroProvvisorio& l : ElencaLavoriAperti(s_)) elenco_->addItem(Qs(l.Voce));
}

QString FormLavoriAperti::Voce() const {
  return elenco_->currentItem() ? elenco_->currentItem()->text() : QString();
}

}  // namespace varena
