#include "InterfacciaQt.h"

#include <QApplication>
#include <QFileDialog>
#include <QFontDatabase>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>

#include "AnteprimaGruppo.h"
#include "DialogoQt.h"
#include "Disposizione.h"
#include "core/Dialoghi.h"

namespace varena {

namespace {

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

QMessageBox::Icon IconaQt(Icona i) {
  switch (i) {
    case Icona::Informazione: return QMessageBox::Information;
    case Icona::Avviso: return QMessageBox::Warning;
    case Icona::Critico: return QMessageBox::Critical;
    case Icona::Domanda: return QMessageBox::Question;
    case Icona::Nessuna: break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

QString FiltroQt(std::string_view filtro) {
  // The legacy filter alternates a description and its patterns, all ended by "|".
  const QStringList pezzi = Qs(filtro).split('|', Qt::SkipEmptyParts);
  QStringList voci;
  for (qsizetype i = 0; i + 1 < pezzi.size(); i += 2) {
    // Qt filters by the patterns between the description's brackets, and the legacy's
    // brackets may name fewer than the patterns ("(*.CFG)" over "*.CFG;*.VRZ"): the patterns
    // are the ones that count.
    QString descrizione = pezzi[i].simplified();
    if (const qsizetype aperta = descrizione.indexOf('('); aperta >= 0) descrizione = descrizione.left(aperta).trimmed();
    voci << descrizione + " (" + QString(pezzi[i + 1]).replace(';', ' ') + ")";
  }
  return voci.join(";;");
}

void InterfacciaQt::Messaggio(std::string_view testo, std::string_view titolo, Icona icona) {
  QMessageBox box(IconaQt(icona), Qs(titolo), Qs(testo), QMessageBox::Ok, finestra_);
  box.exec();
}

Risposta InterfacciaQt::Domanda(std::string_view testo, std::string_view titolo, Bottoni bottoni, Icona icona,
                                Risposta predefinita) {
  QMessageBox::StandardButtons b = QMessageBox::Ok;
  switch (bottoni) {
    case Bottoni::Ok: b = QMessageBox::Ok; break;
    case Bottoni::OkAnnulla: b = QMessageBox::Ok | QMessageBox::Cancel; break;
    case Bottoni::SiNo: b = QMessageBox::Yes | QMessageBox::No; break;
    case Bottoni::SiNoAnnulla: b = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel; break;
  }
  QMessageBox box(IconaQt(icona), Qs(titolo), Qs(testo), b, finestra_);
  switch (predefinita) {
    case Risposta::Si: box.setDefaultButton(QMessageBox::Yes); break;
    case Risposta::No: box.setDefaultButton(QMessageBox::No); break;
    case Risposta::Annulla: box.setDefaultButton(QMessageBox::Cancel); break;
    case Risposta::Ok: box.setDefaultButton(QMessageBox::Ok); break;
  }
  switch (box.exec()) {
    case QMessageBox::Yes: return Risposta::Si;
    case QMessageBox::No: return Risposta::No;
    case QMessageBox::Ok: return Risposta::Ok;
    default: return Risposta::Annulla;
  }
}

std::optional<std::string> InterfacciaQt::ScegliFile(bool salva, std::string_view titolo, std::string_view filtro,
                                                     std::string_view cartella, std::string_view file) {
  QString iniziale = Qs(cartella);
  if (!file.empty()) iniziale = Qs(file).contains('/') ? Qs(file) : iniziale + "/" + Qs(file);
  const QString scelto = salva ? QFileDialog::getSaveFileName(finestra_, Qs(titolo), iniziale, FiltroQt(filtro))
                               : QFileDialog::getOpenFileName(finestra_, Qs(titolo), iniziale, FiltroQt(filtro));
  if (scelto.isEmpty()) return std::nullopt;
  return scelto.toStdString();
}

std::optional<std::string> InterfacciaQt::Imputa(std::string_view testo, std::string_view titolo,
                                                 std::string_view predefinito) {
  bool ok = false;
  const QString v = QInputDialog::getText(finestra_, Qs(titolo), Qs(testo), QLineEdit::Normal, Qs(predefinito), &ok);
  if (!ok) return std::nullopt;
  return v.toStdString();
}

void InterfacciaQt::Prompt(std::string_view testo) {
  if (prompt_) prompt_->setText(Qs(testo));
}

namespace {

// While stoppable work lets the window repaint, the input goes nowhere but to the stop
// button; Esc stops too.
class FiltroLavoro : public QObject {
 public:
  FiltroLavoro(QToolButton* ferma, bool& interrotto) : ferma_(ferma), interrotto_(interrotto) {}
  bool eventFilter(QObject* o, QEvent* e) override {
    switch (e->type()) {
      case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(e)->key() == Qt::Key_Escape) interrotto_ = true;
        return true;
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::MouseMove:
        return o != ferma_;
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::Shortcut:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::TouchBegin:
      case QEvent::TouchUpdate:
      case QEvent::TouchEnd:
        return true;
      default:
        return false;
    }
  }

 private:
  QToolButton* ferma_;
  bool& interrotto_;
};

}  // namespace

void InterfacciaQt::ImpostaBarra(QProgressBar* barra, int ritardoMs) {
  barra_ = barra;
  ritardoMs_ = ritardoMs;
  // The stop button stands in the status bar with the bar.
  auto* barraStato = barra ? qobject_cast<QStatusBar*>(barra->parentWidget()) : nullptr;
  if (!barraStato || ferma_) return;
  ferma_ = new QToolButton(barraStato);
  ferma_->setObjectName("Interrompi");
  ferma_->setText("Interrompi");
  ferma_->setToolTip("Interrompi (Esc)");
  ferma_->hide();
  QObject::connect(ferma_, &QToolButton::clicked, [this] { interrotto_ = true; });
  barraStato->addPermanentWidget(ferma_);
}

bool InterfacciaQt::Interrotto() {
  fermabile_ = true;
  return interrotto_;
}

void InterfacciaQt::Progresso(int64_t fatto, int64_t totale) {
  if (totale <= 0 || fatto >= totale) {
    inizio_.invalidate();
    if (barra_ && barra_->isVisible()) barra_->hide();
    if (ferma_) ferma_->hide();
    fermabile_ = false;
    return;
  }
  if (!inizio_.isValid() || fatto == 0) {
    inizio_.start();
    ultimaPittura_.invalidate();
    interrotto_ = false;
  }
  if (!barra_ || inizio_.elapsed() < ritardoMs_) return;
  // A few paintings a second are enough for the eye and cost the work nothing.
  if (ultimaPittura_.isValid() && ultimaPittura_.elapsed() < 50) return;
  ultimaPittura_.start();
  barra_->setRange(0, 1000);
  barra_->setValue(static_cast<int>(fatto * 1000 / totale));
  barra_->show();
  // The window repaints (the bar, a window uncovered) while the work goes on; input waits,
  // since a click could run the core again in the middle of its own work. Work that can be
  // stopped takes the clicks on its stop button and Esc, and drops the rest.
  ++alLavoro_;
  if (fermabile_ && ferma_) {
    ferma_->show();
    FiltroLavoro filtro(ferma_, interrotto_);
    qApp->installEventFilter(&filtro);
    QApplication::processEvents();
    qApp->removeEventFilter(&filtro);
  } else {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  --alLavoro_;
}

InterfacciaQt::~InterfacciaQt() {
  for (DialogoQt* d : dialoghi_) {
    RicordaPosizione(d);
    delete d;
  }
}

void InterfacciaQt::MostraDialogo(const Dialogo& d) {
  const QString nome = QString::fromStdString(d.Nome);
  if (DialogoQt* vecchio = dialoghi_.take(nome)) vecchio->deleteLater();
  auto* nuovo = new DialogoQt(s_, d, aggiorna_, finestra_);
  if (nome == "GestioneGruppi") AggiungiAnteprimaGruppo(*nuovo, s_);
  if (nome == "MenuSimboli") AggiungiAnteprimaSimbolo(*nuovo, s_);
  dialoghi_.insert(nome, nuovo);
  Colloca(nuovo);
  nuovo->show();
}

void InterfacciaQt::Colloca(DialogoQt* d) {
  d->adjustSize();
  if (!agganci_.Disegno) return;
  // The frame of a window that was never shown is not known yet: the title bar's height
  // stands for it.
  QSize cornice = d->frameGeometry().size();
  if (!d->isVisible()) cornice += QSize(0, d->style()->pixelMetric(QStyle::PM_TitleBarHeight));
  std::vector<QRect> altri;
  for (DialogoQt* a : dialoghi_)
    if (a != d && a->isVisible()) altri.push_back(a->frameGeometry());
  const QScreen* schermo = finestra_ ? finestra_->screen() : nullptr;
  const std::optional<QPoint> lasciato =
      agganci_.Memoria ? agganci_.Memoria->PosizioneDialogo(d->Nome()) : std::optional<QPoint>();
  const QPoint p = CollocaDialogo(cornice, agganci_.Disegno(), schermo ? schermo->availableGeometry() : QRect(),
                                  agganci_.Selezione ? agganci_.Selezione() : QRect(), lasciato, altri);
  d->Colloca(p);
}

void InterfacciaQt::RicordaPosizione(DialogoQt* d) {
  if (agganci_.Memoria && d->SpostatoDallUtente()) agganci_.Memoria->SalvaPosizioneDialogo(d->Nome(), d->pos());
}

void InterfacciaQt::AggiornaDialogo(const Dialogo& d) {
  DialogoQt* q = dialoghi_.value(QString::fromStdString(d.Nome));
  if (!q) return;
  q->Aggiorna(d);
  // What was just picked stays in sight: a dialog standing over it moves aside.
  if (!agganci_.Selezione || !q->isVisible()) return;
  const QRect evita = agganci_.Selezione();
  if (!evita.isEmpty() && q->frameGeometry().intersects(evita)) Colloca(q);
}

void InterfacciaQt::NascondiDialogo(const Dialogo& d) {
  // The press that closes a dialog may be running inside it: it goes once the press is over.
  if (DialogoQt* q = dialoghi_.take(QString::fromStdString(d.Nome))) {
    RicordaPosizione(q);
    q->hide();
    q->deleteLater();
  }
}

std::vector<std::string> InterfacciaQt::FontDiSistema() {
  std::vector<std::string> font;
  for (const QString& f : QFontDatabase::families()) font.push_back(f.toStdString());
  return font;
}

void InterfacciaQt::MenuContestuale(std::string_view nome) {
  if (menu_) menu_(nome);
}

}  // namespace varena
