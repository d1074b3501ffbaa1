#include "Disposizione.h"

#include <QMainWindow>

namespace varena {

namespace {

constexpr int kMargine = 8;
constexpr int kVersioneStato = 1;  // the toolbars and docks this program lays out

// How much of `b` the rectangle `a` covers.
qint64 Coperto(const QRect& a, const QRect& b) {
  const QRect c = a.intersected(b);
  return c.isEmpty() ? 0 : qint64(c.width()) * c.height();
}

}  // namespace

void Disposizione::Apri(const std::string& cartella) {
  if (cartella.empty()) {
    ini_.reset();
    return;
  }
  ini_ = std::make_unique<QSettings>(QString::fromStdString(cartella) + "Finestra.ini", QSettings::IniFormat);
}

void Disposizione::SalvaFinestra(const QMainWindow& f) {
  if (!ini_) return;
  ini_->setValue("Finestra/Geometria", f.saveGeometry());
  ini_->setValue("Finestra/Stato", f.saveState(kVersioneStato));
  ini_->sync();
}

bool Disposizione::RipristinaFinestra(QMainWindow& f) const {
  if (!ini_ || !ini_->contains("Finestra/Stato")) return false;
  f.restoreGeometry(ini_->value("Finestra/Geometria").toByteArray());
  return f.restoreState(ini_->value("Finestra/Stato").toByteArray(), kVersioneStato);
}

std::optional<QPoint> Disposizione::PosizioneDialogo(const QString& nome) const {
  if (!ini_) return std::nullopt;
  const QVariant v = ini_->value("Dialoghi/" + nome);
  if (!v.isValid()) return std::nullopt;
  return v.toPoint();
}

void Disposizione::SalvaPosizioneDialogo(const QString& nome, QPoint p) {
  if (!ini_) return;
  ini_->setValue("Dialoghi/" + nome, p);
  ini_->sync();
}

QString Disposizione::Valore(const QString& chiave, const QString& predefinito) const {
  return ini_ ? ini_->value(chiave, predefinito).toString() : predefinito;
}

void Disposizione::Scrivi(const QString& chiave, const QString& valore) {
  if (!ini_) return;
  ini_->setValue(chiave, valore);
  ini_->sync();
}

QStringList Disposizione::Storia() const { return ini_ ? ini_->value("RigaComando/Storia").toStringList() : QStringList(); }

void Disposizione::SalvaStoria(const QStringList& righe) {
  if (!ini_) return;
  ini_->setValue("RigaComando/Storia", righe);
  ini_->sync();
}

QPoint CollocaDialogo(QSize dimensione, QRect disegno, QRect schermo, QRect evita, std::optional<QPoint> lasciato,
                      const std::vector<QRect>& altri) {
  std::vector<QPoint> posti;
  if (lasciato && schermo.contains(QRect(*lasciato, dimensione))) posti.push_back(*lasciato);
  // Against the right edge of the drawing, below the dialogs already standing there.
  int y = disegno.top() + kMargine;
  const int xDestra = disegno.right() - dimensione.width() - kMargine;
  for (const QRect& a : altri)
    if (a.right() >= xDestra && a.left() <= disegno.right() && a.top() <= y + dimensione.height())
      y = std::max(y, a.bottom() + kMargine);
  if (y + dimensione.height() > disegno.bottom()) y = disegno.top() + kMargine;
  posti.emplace_back(xDestra, y);
  posti.emplace_back(xDestra, disegno.bottom() - dimensione.height() - kMargine);
  posti.emplace_back(disegno.left() + kMargine, disegno.top() + kMargine);
  posti.emplace_back(disegno.left() + kMargine, disegno.bottom() - dimensione.height() - kMargine);
  posti.emplace_back(disegno.right() + kMargine, disegno.top());
  posti.emplace_back(disegno.left() - dimensione.width() - kMargine, disegno.top());
  QPoint migliore = posti.front();
  qint64 minimo = -1;
  for (const QPoint& p : posti) {
    const QRect r(p, dimensione);
    if (!schermo.isEmpty() && !schermo.contains(r) && p != posti.front()) continue;
    const qint64 c = evita.isEmpty() ? 0 : Coperto(r, evita);
    if (c == 0) return p;
    if (minimo < 0 || c < minimo) {
      minimo = c;
      migliore = p;
    }
  }
  return migliore;
}

}  // namespace varena
