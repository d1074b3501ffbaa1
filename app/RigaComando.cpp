#include "RigaComando.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "commands/TabellaComandi.h"

namespace varena {

namespace {

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

QString ConMenu(const VoceComando& v) { return Qs(v.Voce) + " (" + Qs(v.Menu) + ")"; }

constexpr qsizetype kRigheDigitate = 100;

}  // namespace

const VoceComando* ComandoDaTesto(const QString& testo) {
  const QString t = testo.trimmed();
  if (t.size() < 2) return nullptr;
  if (const VoceComando* v = CercaTag(t.toUpper().toStdString())) return v;
  // A name shared by two menus ("Punto Medio" of the points and of the snaps) is the
  // command's rather than the snap's, unless the menu is named.
  const VoceComando* trovato = nullptr;
  for (const VoceComando& v : TabellaComandi()) {
    if (v.Voce.empty() || v.Menu.empty()) continue;
    if (ConMenu(v).compare(t, Qt::CaseInsensitive) == 0) return &v;
    if (Qs(v.Voce).compare(t, Qt::CaseInsensitive) == 0 &&
        (!trovato || (trovato->Genere == GenereComando::Snap && v.Genere != GenereComando::Snap)))
      trovato = &v;
  }
  return trovato;
}

QStringList VociDiCompletamento() {
  QStringList nomi, tag;
  for (const VoceComando& v : TabellaComandi()) {
    if (!v.Voce.empty() && !v.Menu.empty()) nomi << ConMenu(v);
    if (v.Tag.size() >= 2) tag << Qs(v.Tag);
  }
  nomi.removeDuplicates();
  return nomi + tag;
}

RigaComando::RigaComando(QWidget* genitore) : QWidget(genitore) {
  auto* colonna = new QVBoxLayout(this);
  colonna->setContentsMargins(2, 2, 2, 2);
  colonna->setSpacing(2);
  storia_ = new QPlainTextEdit(this);
  storia_->setObjectName("Storia");
  storia_->setReadOnly(true);
  storia_->setMaximumBlockCount(500);
  storia_->setFocusPolicy(Qt::NoFocus);
  storia_->setMinimumHeight(storia_->fontMetrics().lineSpacing() * 3);
  casella_ = new QLineEdit(this);
  casella_->setObjectName("Casella");
  casella_->setPlaceholderText(tr("Comando, nome punto o _N ..."));
  casella_->setClearButtonEnabled(true);
  auto* completa = new QCompleter(VociDiCompletamento(), casella_);
  completa->setCaseSensitivity(Qt::CaseInsensitive);
  completa->setFilterMode(Qt::MatchContains);
  completa->setMaxVisibleItems(12);
  casella_->setCompleter(completa);
  casella_->installEventFilter(this);
  colonna->addWidget(storia_, 1);
  colonna->addWidget(casella_);
  connect(casella_, &QLineEdit::returnPressed, this, [this] {
    // Enter that accepts a completion arrives here too, with the text completed.
    const QString testo = casella_->text().trimmed();
    casella_->clear();
    if (!testo.isEmpty()) {
      digitate_.removeAll(testo);
      digitate_ << testo;
      while (digitate_.size() > kRigheDigitate) digitate_.removeFirst();
    }
    indice_ = digitate_.size();
    emit Invio(testo);
  });
}

void RigaComando::Annota(const QString& riga) {
  if (riga.isEmpty() || riga == ultima_) return;
  ultima_ = riga;
  storia_->appendPlainText(riga);
}

void RigaComando::ImpostaDigitate(const QStringList& righe) {
  digitate_ = righe;
  indice_ = digitate_.size();
}

bool RigaComando::eventFilter(QObject* o, QEvent* e) {
  if (o != casella_ || e->type() != QEvent::KeyPress) return QWidget::eventFilter(o, e);
  const auto* k = static_cast<QKeyEvent*>(e);
  if (casella_->completer() && casella_->completer()->popup()->isVisible()) return false;
  if (k->key() == Qt::Key_Up && indice_ > 0) {
    casella_->setText(digitate_[--indice_]);
    return true;
  }
  if (k->key() == Qt::Key_Down && indice_ < digitate_.size()) {
    ++indice_;
    casella_->setText(indice_ < digitate_.size() ? digitate_[indice_] : QString());
    return true;
  }
  return false;
}

}  // namespace varena
