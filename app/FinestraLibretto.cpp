// The field book on screen.
#include "FinestraLibretto.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "WidgetGrafica.h"
#include "core/Errori.h"
#include "core/Sessione.h"

namespace varena {

namespace {

QString Qs(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

ModelloLibretto::ModelloLibretto(const Sessione& s, QObject* genitore) : QAbstractTableModel(genitore), s_(s) {
  // As many field columns as the widest row has separators, within what a row may hold.
  size_t massimo = 1;
  for (const std::string& r : s_.LibrettoMisure)
    massimo = std::max(massimo, static_cast<size_t>(std::count(r.begin(), r.end(), '|')));
  colonne_ = 1 + static_cast<int>(std::min<size_t>(massimo, kMassimoCampi - 1));
}

int ModelloLibretto::rowCount(const QModelIndex& g) const {
  return g.isValid() ? 0 : static_cast<int>(s_.LibrettoMisure.size());
}

int ModelloLibretto::columnCount(const QModelIndex& g) const { return g.isValid() ? 0 : colonne_; }

const CampiLibretto& ModelloLibretto::Campi(int r) const {
  if (r != rigaLetta_) {
    rigaLetta_ = r;
    errore_.clear();
    try {
      CampiRiga(s_.LibrettoMisure[static_cast<size_t>(r)], campi_);
    } catch (const ErroreVarena& e) {
      for (std::string& c : campi_.Campo) c.clear();
      errore_ = QString::fromUtf8(e.what());
    }
  }
  return campi_;
}

QVariant ModelloLibretto::data(const QModelIndex& i, int ruolo) const {
  if (!i.isValid() || i.row() >= rowCount()) return {};
  const std::string& riga = s_.LibrettoMisure[static_cast<size_t>(i.row())];
  if (ruolo == Qt::ToolTipRole) return Qs(riga);
  if (ruolo != Qt::DisplayRole) return {};
  if (i.column() == 0) {
    const int tipo = TipoRiga(riga);
    return tipo < 0 ? QString() : QString::number(tipo);
  }
  const CampiLibretto& c = Campi(i.row());
  if (!errore_.isEmpty()) return i.column() == 1 ? errore_ : QString();
  return Qs(c.Campo[static_cast<size_t>(i.column())]);
}

QVariant ModelloLibretto::headerData(int sezione, Qt::Orientation o, int ruolo) const {
  if (ruolo != Qt::DisplayRole) return {};
  if (o == Qt::Vertical) return sezione;
  return sezione == 0 ? tr("Tipo") : QString::number(sezione);
}

FormLibretto::FormLibretto(Sessione& s, QWidget* genitore) : QDialog(genitore) {
  setObjectName("LibrettoMisure");
  setWindowTitle(tr("Libretto delle Misure"));
  auto* strati = new QVBoxLayout(this);
  strati->addWidget(new QLabel(tr("%n righe", nullptr, static_cast<int>(s.LibrettoMisure.size())), this));
  auto* tabella = new QTableView(this);
  tabella->setObjectName("Righe");
  tabella->setModel(new ModelloLibretto(s, tabella));
  tabella->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tabella->setSelectionBehavior(QAbstractItemView::SelectRows);
  tabella->horizontalHeader()->setDefaultSectionSize(90);
  tabella->horizontalHeader()->resizeSection(0, 40);
  tabella->verticalHeader()->setDefaultSectionSize(tabella->fontMetrics().height() + 6);
  auto* anteprima = new WidgetGrafica(s, this);
  anteprima->Modello().CaricaLibretto(s);
  auto* divisore = new QSplitter(this);
  divisore->addWidget(tabella);
  divisore->addWidget(anteprima);
  divisore->setSizes({600, 400});
  strati->addWidget(divisore, 1);
  auto* chiudi = new QPushButton(tr("Chiudi"), this);
  connect(chiudi, &QPushButton::clicked, this, &QDialog::accept);
  strati->addWidget(chiudi, 0, Qt::AlignRight);
  resize(1200, 560);
}

}  // namespace varena
