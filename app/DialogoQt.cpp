#include "DialogoQt.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/Dialoghi.h"
#include "core/Sessione.h"

namespace varena {

namespace {
QString Qs(const std::string& s) { return QString::fromStdString(s); }
}  // namespace

DialogoQt::DialogoQt(Sessione& s, const Dialogo& d, std::function<void()> dopo, QWidget* genitore)
    : QDialog(genitore, Qt::Tool), s_(s), nome_(Qs(d.Nome)), bottoneEsc_(Qs(d.BottoneEsc)), dopo_(std::move(dopo)) {
  setObjectName(nome_);
  setWindowTitle(Qs(d.Titolo));
  setModal(false);
  setAttribute(Qt::WA_DeleteOnClose, false);
  auto* colonna = new QVBoxLayout(this);
  auto* modulo = new QFormLayout();
  for (const CampoDialogo& c : d.Campi) {
    auto* linea = new QLineEdit(Qs(c.Testo), this);
    linea->setObjectName(Qs(c.Nome));
    const std::string campo = c.Nome;
    connect(linea, &QLineEdit::textEdited, this, [this, campo](const QString& t) {
      ScriviCampo(s_, nome_.toStdString(), campo, t.toStdString());
    });
    modulo->addRow(Qs(c.Etichetta), linea);
    campi_.insert(Qs(c.Nome), linea);
  }
  colonna->addLayout(modulo);
  auto* riga = new QHBoxLayout();
  riga->addStretch(1);
  for (const BottoneDialogo& b : d.Bottoni) {
    auto* bottone = new QPushButton(Qs(b.Etichetta), this);
    bottone->setObjectName(Qs(b.Nome));
    bottone->setAutoDefault(false);
    const std::string nome = b.Nome;
    connect(bottone, &QPushButton::clicked, this, [this, nome] {
      PremiBottone(s_, nome_.toStdString(), nome);
      if (dopo_) dopo_();
    });
    riga->addWidget(bottone);
  }
  colonna->addLayout(riga);
}

void DialogoQt::Aggiorna(const Dialogo& d) {
  setWindowTitle(Qs(d.Titolo));
  for (const CampoDialogo& c : d.Campi) {
    QLineEdit* linea = campi_.value(Qs(c.Nome));
    if (linea && linea->text() != Qs(c.Testo)) linea->setText(Qs(c.Testo));
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
