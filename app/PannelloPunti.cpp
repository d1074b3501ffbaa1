#include "PannelloPunti.h"

#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>

#include "cadastre/CodiciPunto.h"
#include "cadastre/ElencoPunti.h"
#include "cadastre/OperazioniElenco.h"
#include "commands/Comandi.h"
#include "commands/RoutineModifica.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Esportazioni.h"
#include "DialogoPun.h"
#include "TrasferimentoStrumento.h"
#include "view/Ridisegna.h"

namespace varena {

namespace {

QString Qs(const std::string& t) { return QString::fromUtf8(t.data(), static_cast<qsizetype>(t.size())); }

// The classes of the fill menu: the stations, the fiducial points, the holders of each tag.
struct Classe {
  const char* Voce;
  bool (*Tiene)(const Sessione& s, size_t k);
};

template <const std::string_view& C>
bool ConCodice(const Sessione& s, size_t k) {
  return HaCodice(s.PuntoDescrizione[k], C);
}

constexpr Classe kClassi[] = {
    {"Stazioni (00, 000)", [](const Sessione& s, size_t k) { return FinisceCon(s.PuntoNome[k], "00"); }},
    {"Punti PF", [](const Sessione& s, size_t k) { return IniziaCon(Maiuscolo(s.PuntoNome[k]), "PF"); }},
    {"Punti <P!>", ConCodice<kCodicePlanimetrico>},
    {"Punti <00>", ConCodice<kCodiceSoloDirezione>},
    {"Punti <EL>", ConCodice<kCodiceEscluso>},
    {"Punti <PV>", ConCodice<kCodiceVertice>},
    {"Punti <PD>", ConCodice<kCodiceDirezione>},
    {"Punti <8Q>", ConCodice<kCodiceRiga8Quota>},
    {"Punti <8P>", ConCodice<kCodiceRiga8Planim>},
    {"Punti <8=>", ConCodice<kCodiceRiga8Uguale>},
    {"Punti [P.A.]", ConCodice<kCodiceAusiliario>},
};

}  // namespace

ModelloPunti::ModelloPunti(const Sessione& s, QObject* genitore) : QAbstractTableModel(genitore), s_(s) {}

int ModelloPunti::rowCount(const QModelIndex& genitore) const {
  return genitore.isValid() ? 0 : static_cast<int>(righe_.size());
}

int ModelloPunti::columnCount(const QModelIndex& genitore) const { return genitore.isValid() ? 0 : NumeroColonneElenco; }

QVariant ModelloPunti::data(const QModelIndex& indice, int ruolo) const {
  if (!indice.isValid()) return {};
  const auto r = static_cast<size_t>(indice.row());
  // A row deleted or dropped by a reload since the list was filled shows nothing.
  if (r >= righe_.size() || righe_[r] >= s_.ContaEntita[SlotPunti]) return {};
  if (ruolo == Qt::DisplayRole) return Qs(CellaElencoPunti(s_, righe_, r, indice.column()));
  if (ruolo == Qt::TextAlignmentRole) {
    const int c = indice.column();
    const bool testo = c == ColonnaNome || c == ColonnaDescrizione || c == ColonnaPiano;
    return QVariant::fromValue(Qt::AlignVCenter | (testo ? Qt::AlignLeft : Qt::AlignRight));
  }
  return {};
}

QVariant ModelloPunti::headerData(int sezione, Qt::Orientation orientamento, int ruolo) const {
  if (ruolo != Qt::DisplayRole) return {};
  if (orientamento == Qt::Horizontal) return QString::fromUtf8(TitoloColonnaElenco(sezione));
  return sezione + 1;
}

void ModelloPunti::sort(int colonna, Qt::SortOrder ordine) {
  colonna_ = colonna;
  crescente_ = ordine == Qt::AscendingOrder;
  emit layoutAboutToBeChanged();
  OrdinaElencoPunti(s_, righe_, colonna_, crescente_);
  emit layoutChanged();
}

void ModelloPunti::Ricarica() {
  beginResetModel();
  righe_ = RigheElencoPunti(s_);
  if (colonna_ >= 0) OrdinaElencoPunti(s_, righe_, colonna_, crescente_);
  endResetModel();
}

PannelloPunti::PannelloPunti(Sessione& s, QWidget* genitore) : QWidget(genitore), s_(s) {
  modello_ = new ModelloPunti(s, this);
  vista_ = new QTableView(this);
  vista_->setObjectName("ElencoPunti");
  vista_->setModel(modello_);
  vista_->setSortingEnabled(true);
  vista_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  vista_->setSelectionBehavior(QAbstractItemView::SelectRows);
  vista_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  vista_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  vista_->setContextMenuPolicy(Qt::CustomContextMenu);
  // Rows of one height: the view then measures none of a million rows.
  vista_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  vista_->verticalHeader()->setDefaultSectionSize(vista_->fontMetrics().height() + 6);
  vista_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  // Widths set once, by the column's kind, never measured over the rows.
  const int m = vista_->fontMetrics().horizontalAdvance('0');
  for (int c = 0; c < NumeroColonneElenco; ++c) {
    const int larghezza = c == ColonnaDescrizione ? 36 : c == ColonnaNome ? 18 : c == ColonnaProgressivo || c == ColonnaIdx ? 9 : 14;
    vista_->horizontalHeader()->resizeSection(c, larghezza * m);
  }
  auto* l = new QVBoxLayout(this);
  l->setContentsMargins(0, 0, 0, 0);
  l->addWidget(vista_);
  connect(vista_, &QWidget::customContextMenuRequested, this, &PannelloPunti::Menu);
  connect(vista_, &QAbstractItemView::doubleClicked, this, &PannelloPunti::DoppioClic);
  connect(vista_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &PannelloPunti::SelezioneCambiata);
}

void PannelloPunti::Aggiorna() { modello_->Ricarica(); }

std::vector<int32_t> PannelloPunti::Selezionate() const {
  QModelIndexList righe = vista_->selectionModel()->selectedRows();
  std::sort(righe.begin(), righe.end(), [](const QModelIndex& a, const QModelIndex& b) { return a.row() < b.row(); });
  std::vector<int32_t> r;
  r.reserve(static_cast<size_t>(righe.size()));
  for (const QModelIndex& i : righe) r.push_back(modello_->Righe()[static_cast<size_t>(i.row())]);
  return r;
}

void PannelloPunti::Esegui(const OperazioneElenco& op) {
  if (!EseguiOperazioneElenco(s_, op, Selezionate())) return;
  Aggiorna();
  emit Cambiato();
}

void PannelloPunti::Centra() {
  const std::vector<int32_t> r = Selezionate();
  if (r.empty()) return;
  const auto k = static_cast<size_t>(r.front());
  s_.Vista.CentroEst = s_.PuntoX[k];
  s_.Vista.CentroNord = s_.PuntoY[k];
  EseguiSeguito(s_, Seguito::Ridisegno);
  emit Cambiato();
}

void PannelloPunti::SelezioneCambiata() {
  // The drawing highlights exactly the points selected in the list.
  const auto n = static_cast<size_t>(std::max(0, s_.ContaEntita[SlotPunti]));
  std::fill(s_.StatoPunto.begin(), s_.StatoPunto.begin() + static_cast<std::ptrdiff_t>(std::min(n, s_.StatoPunto.size())), 0);
  for (int32_t k : Selezionate())
    if (static_cast<size_t>(k) < s_.StatoPunto.size()) s_.StatoPunto[static_cast<size_t>(k)] = 1;
  emit Cambiato();
}

void PannelloPunti::DoppioClic(const QModelIndex& indice) {
  if (!indice.isValid()) return;
  subEditaEntita(s_, SlotPunti, modello_->Righe()[static_cast<size_t>(indice.row())]);
  emit Cambiato();
}

void PannelloPunti::Menu(const QPoint& dove) {
  QMenu menu(this);
  menu.addAction(tr("Centra sul Punto"), this, &PannelloPunti::Centra);
  QMenu* classi = menu.addMenu(tr("Ricarica Elenco"));
  classi->addAction(tr("Tutti i Punti"), this, &PannelloPunti::Aggiorna);
  for (const Classe& c : kClassi)
    classi->addAction(QString::fromUtf8(c.Voce), this, [this, &c] {
      modello_->Ricarica();
      modello_->Filtra([&](int32_t k) { return c.Tiene(s_, static_cast<size_t>(k)); });
    });
  menu.addSeparator();
  for (const OperazioneElenco& op : OperazioniElenco()) {
    QString voce = QString::fromUtf8(op.Titolo);
    // The two plan forms of row 8 share their title: the tag tells them apart.
    if (std::string_view(op.Chiave) == "8P" || std::string_view(op.Chiave) == "8=")
      voce += QString(" <%1>").arg(QString::fromUtf8(op.Chiave));
    menu.addAction(voce, this, [this, &op] { Esegui(op); });
  }
  menu.addSeparator();
  // The list's exports and the transfer take its rows as shown: its sort and its fill.
  QMenu* esporta = menu.addMenu(tr("Esporta"));
  for (const DescrizioneEsportazione& d : FormatiEsportazione()) {
    if (!d.DaElenco) continue;
    esporta->addAction(Qs(Maiuscolo(d.Parola)), this, [this, &d] {
      OpzioniEsportazione o;
      if (d.Formato == FormatoEsportazione::Pun) {
        o = OpzioniPunSalvate(s_);
        if (!ChiediOpzioniPun(this, o)) return;
        SalvaOpzioniPun(s_, o);
      }
      EsportaElencoPunti(s_, d.Formato, modello_->Righe(), o);
    });
  }
  esporta->addAction("NPL", this, [this] { TrasferisciNpl(this, s_, modello_->Righe()); });
  menu.addAction(tr("Incolla da File"), this, [this] {
    EseguiTag(s_, "INCOLLA_DA_FILE");
    Aggiorna();
    emit Cambiato();
  });
  menu.exec(vista_->viewport()->mapToGlobal(dove));
}

}  // namespace varena
