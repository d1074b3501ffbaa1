#include "DialogoQt.h"

#include <QComboBox>
#include <QFontComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMoveEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "WidgetGrafica.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"

namespace varena {

namespace {

QString Qs(const std::string& s) { return QString::fromStdString(s); }

// A field that turns the comma key into a point as the key goes down: the old dialogs did
// so, and a comma that arrives by a paste is left as it is.
class LineaVirgolaAlTasto : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void keyPressEvent(QKeyEvent* e) override {
    if (e->text() == ",") {
      insert(".");
      emit textEdited(text());
      return;
    }
    QLineEdit::keyPressEvent(e);
  }
};

// A read-only grid: rows on lines, cells between tabs.
void RiempiGriglia(QTableWidget* g, const QString& testo) {
  const QStringList righe = testo.split('\n', Qt::SkipEmptyParts);
  g->setRowCount(static_cast<int>(righe.size()));
  int colonne = 0;
  for (const QString& r : righe) colonne = std::max(colonne, static_cast<int>(r.split('\t').size()));
  g->setColumnCount(colonne);
  for (int i = 0; i < righe.size(); ++i) {
    const QStringList celle = righe[i].split('\t');
    for (int j = 0; j < celle.size(); ++j) g->setItem(i, j, new QTableWidgetItem(celle[j]));
  }
}

// An editable list shows what it holds by the entry of that text, so that a colour's swatch is
// its own; a text the list does not offer stays typed in the box.
void MostraVoce(QComboBox* c, const QString& testo) {
  const int i = c->findText(testo, Qt::MatchFixedString);
  if (i >= 0) c->setCurrentIndex(i);
  else c->setEditText(testo);
}

}  // namespace

QWidget* DialogoQt::CreaCampo(const CampoDialogo& c, const std::string& campoPrima) {
  const QString testo = Qs(c.Testo);
  const std::string campo = c.Nome;
  auto scrivi = [this, campo](const QString& t) { ScriviCampo(s_, nome_.toStdString(), campo, t.toStdString()); };
  if (c.SoloLettura) {
    if (testo.contains('\t') || testo.count('\n') > 1) {
      auto* g = new QTableWidget(this);
      g->setEditTriggers(QAbstractItemView::NoEditTriggers);
      g->horizontalHeader()->setVisible(false);
      g->setMinimumHeight(160);
      RiempiGriglia(g, testo);
      return g;
    }
    return new QLabel(testo, this);
  }
  if (testo.contains('\n') && !campoPrima.empty()) {
    // A list to choose from: a click writes the choice into the field before it, a double
    // click also presses the dialog's first button.
    auto* elenco = new QListWidget(this);
    elenco->addItems(testo.split('\n', Qt::SkipEmptyParts));
    elenco->setMinimumHeight(120);
    connect(elenco, &QListWidget::itemClicked, this, [this, campoPrima](QListWidgetItem* i) {
      ScriviCampo(s_, nome_.toStdString(), campoPrima, i->text().trimmed().toStdString());
      if (QWidget* w = campi_.value(QString::fromStdString(campoPrima))) {
        const QSignalBlocker zitto(w);
        MostraTesto(w, i->text().trimmed());
      }
    });
    connect(elenco, &QListWidget::itemDoubleClicked, this, [this] {
      if (QPushButton* b = bottoni_.value(primoBottone_)) b->click();
    });
    return elenco;
  }
  if (!c.Scelte.empty()) {
    auto* combo = new QComboBox(this);
    combo->setEditable(true);
    for (const std::string& v : c.Scelte) combo->addItem(Qs(v));
    MostraVoce(combo, testo);
    connect(combo, &QComboBox::currentTextChanged, this, scrivi);
    return combo;
  }
  if (c.Nome == "Font") {
    auto* font = new QFontComboBox(this);
    font->setEditable(true);
    font->setCurrentText(testo);
    connect(font, &QComboBox::currentTextChanged, this, scrivi);
    return font;
  }
  if (c.Nome.find("Colore") != std::string::npos) {
    // A colour is an index of the colour table: the list shows each one's swatch.
    auto* combo = new QComboBox(this);
    combo->setEditable(true);
    for (int i = 1; i <= std::max(9, s_.Colori.NumeroColori); ++i) {
      QPixmap p(14, 14);
      const ColoreRGB rgb = s_.Colori[i];
      p.fill(QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF));
      combo->addItem(QIcon(p), QString::number(i));
    }
    MostraVoce(combo, testo);
    connect(combo, &QComboBox::currentTextChanged, this, scrivi);
    return combo;
  }
  if (c.VirgolaAlTasto) {
    auto* linea = new LineaVirgolaAlTasto(testo, this);
    // The widget already made the typed comma a point: what arrives is taken as it stands.
    connect(linea, &QLineEdit::textEdited, this, [this, campo](const QString& t) {
      IncollaCampo(s_, nome_.toStdString(), campo, t.toStdString());
    });
    return linea;
  }
  auto* linea = new QLineEdit(testo, this);
  connect(linea, &QLineEdit::textEdited, this, scrivi);
  return linea;
}

DialogoQt::DialogoQt(Sessione& s, const Dialogo& d, std::function<void()> dopo, QWidget* genitore)
    : QDialog(genitore, Qt::Tool), s_(s), nome_(Qs(d.Nome)), bottoneEsc_(Qs(d.BottoneEsc)), dopo_(std::move(dopo)) {
  setObjectName(nome_);
  setWindowTitle(Qs(d.Titolo));
  setModal(false);
  auto* colonna = new QVBoxLayout(this);
  DisponiCampi(d, colonna);
  // A first fill without a widget tells whether the dialog has a preview: the widget reads
  // the user's options, which the other dialogs need not pay for.
  if (Grafica prova; AnteprimaDialogo(s_, d.Nome, prova)) {
    anteprima_ = new WidgetGrafica(s_, this);
    anteprima_->setObjectName("Anteprima");
    anteprima_->setMinimumSize(320, 240);
    AnteprimaDialogo(s_, d.Nome, anteprima_->Modello());
    colonna->addWidget(anteprima_, 1);
  }
  DisponiBottoni(d, colonna);
  // Wide enough for the whole title and the frame's buttons beside it.
  QFont titolo = font();
  titolo.setBold(true);
  setMinimumWidth(std::max(minimumSizeHint().width(), QFontMetrics(titolo).horizontalAdvance(windowTitle()) + 110));
}

void DialogoQt::Colloca(QPoint p) {
  collocando_ = true;
  move(p);
  collocando_ = false;
}

void DialogoQt::moveEvent(QMoveEvent* e) {
  QDialog::moveEvent(e);
  // The program's own placing is not the user's choice; any later move is.
  if (!collocando_ && isVisible()) spostato_ = true;
}

void DialogoQt::DisponiCampi(const Dialogo& d, QVBoxLayout* colonna) {
  auto* griglia = new QGridLayout();
  // Fields named "Row_Column" make a table: the rows and columns in the order they come.
  bool tabella = d.Campi.size() >= 4;
  for (const CampoDialogo& c : d.Campi) tabella = tabella && c.Nome.find('_') != std::string::npos;
  QStringList righe, colonne;
  if (tabella) {
    for (const CampoDialogo& c : d.Campi) {
      const QString n = Qs(c.Nome);
      const QString r = n.section('_', 0, 0), k = n.section('_', 1);
      if (!righe.contains(r)) righe << r;
      if (!colonne.contains(k)) colonne << k;
    }
    for (qsizetype k = 0; k < colonne.size(); ++k)
      griglia->addWidget(new QLabel(colonne[k], this), 0, static_cast<int>(k) + 1);
    for (qsizetype r = 0; r < righe.size(); ++r)
      griglia->addWidget(new QLabel(righe[r], this), static_cast<int>(r) + 1, 0);
  }
  int riga = -1, colonnaGriglia = 0;
  std::string prima;
  for (const CampoDialogo& c : d.Campi) {
    QWidget* w = CreaCampo(c, prima);
    w->setObjectName(Qs(c.Nome));
    w->setToolTip(Qs(c.Etichetta));
    campi_.insert(Qs(c.Nome), w);
    const QString n = Qs(c.Nome);
    if (tabella) {
      griglia->addWidget(w, static_cast<int>(righe.indexOf(n.section('_', 0, 0))) + 1,
                         static_cast<int>(colonne.indexOf(n.section('_', 1))) + 1);
    } else if (qobject_cast<QListWidget*>(w)) {
      griglia->addWidget(w, ++riga, 0, 1, 3);  // a list takes a row of its own
    } else if (c.Etichetta.empty() && riga >= 0) {
      griglia->addWidget(w, riga, colonnaGriglia++);  // beside the field before it
    } else {
      ++riga;
      griglia->addWidget(new QLabel(Qs(c.Etichetta), this), riga, 0);
      griglia->addWidget(w, riga, 1);
      colonnaGriglia = 2;
    }
    prima = c.Nome;
  }
  colonna->addLayout(griglia);
}

void DialogoQt::DisponiBottoni(const Dialogo& d, QVBoxLayout* colonna) {
  // Up to six buttons stand on one row; more make a grid of four a row.
  auto* bottoni = new QGridLayout();
  const int perRiga = d.Bottoni.size() > 6 ? 4 : static_cast<int>(std::max<size_t>(d.Bottoni.size(), 1));
  int i = 0;
  for (const BottoneDialogo& b : d.Bottoni) {
    auto* bottone = new QPushButton(Qs(b.Etichetta), this);
    bottone->setObjectName(Qs(b.Nome));
    bottone->setAutoDefault(false);
    const std::string nome = b.Nome;
    connect(bottone, &QPushButton::clicked, this, [this, nome] {
      PremiBottone(s_, nome_.toStdString(), nome);
      if (dopo_) dopo_();
    });
    bottoni->addWidget(bottone, i / perRiga, i % perRiga);
    bottoni_.insert(Qs(b.Nome), bottone);
    if (primoBottone_.isEmpty()) primoBottone_ = Qs(b.Nome);
    ++i;
  }
  colonna->addLayout(bottoni);
}

void DialogoQt::MostraTesto(QWidget* w, const QString& testo) {
  if (auto* l = qobject_cast<QLineEdit*>(w)) {
    if (l->text() != testo) l->setText(testo);
  } else if (auto* c = qobject_cast<QComboBox*>(w)) {
    if (c->currentText() != testo) MostraVoce(c, testo);
  } else if (auto* e = qobject_cast<QLabel*>(w)) {
    e->setText(testo);
  } else if (auto* g = qobject_cast<QTableWidget*>(w)) {
    RiempiGriglia(g, testo);
  } else if (auto* e2 = qobject_cast<QListWidget*>(w)) {
    e2->clear();
    e2->addItems(testo.split('\n', Qt::SkipEmptyParts));
  }
}

void DialogoQt::Aggiorna(const Dialogo& d) {
  setWindowTitle(Qs(d.Titolo));
  // What the preview shows follows what the program changed.
  if (anteprima_) {
    anteprima_->Modello().VR_Clear();
    AnteprimaDialogo(s_, d.Nome, anteprima_->Modello());
    anteprima_->update();
  }
  // A button may change its caption (a switch that shows its state).
  for (const BottoneDialogo& b : d.Bottoni)
    if (QPushButton* q = bottoni_.value(Qs(b.Nome))) q->setText(Qs(b.Etichetta));
  for (const CampoDialogo& c : d.Campi) {
    QWidget* w = campi_.value(Qs(c.Nome));
    if (!w) continue;
    // The program's own change of a field must not come back to it as typing.
    const QSignalBlocker zitto(w);
    MostraTesto(w, Qs(c.Testo));
  }
}

void DialogoQt::reject() {
  // The window's close and Esc: the dialog's own Esc button decides what ending means.
  if (!bottoneEsc_.isEmpty()) {
    PremiBottone(s_, nome_.toStdString(), bottoneEsc_.toStdString());
    if (dopo_) dopo_();
    return;
  }
  ChiudiDialogo(s_, nome_.toStdString());
  if (dopo_) dopo_();
}

}  // namespace varena
