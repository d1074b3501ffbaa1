#include "Tela.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "commands/Puntatore.h"
#include "core/Sessione.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

int Bottone(Qt::MouseButton b) {
  switch (b) {
    case Qt::LeftButton: return BottoneSinistro;
    case Qt::RightButton: return BottoneDestro;
    case Qt::MiddleButton: return BottoneCentrale;
    default: return 0;
  }
}

int BottoniPremuti(Qt::MouseButtons b) {
  return (b & Qt::LeftButton ? BottoneSinistro : 0) | (b & Qt::RightButton ? BottoneDestro : 0) |
         (b & Qt::MiddleButton ? BottoneCentrale : 0);
}

// Shift 1, Ctrl 2, Alt 4, as the pointer events have always carried them.
int Maiuscole(Qt::KeyboardModifiers m) {
  return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) | (m & Qt::AltModifier ? 4 : 0);
}

}  // namespace

Tela::Tela(Sessione& s, QWidget* genitore) : QWidget(genitore), s_(s) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setCursor(Qt::CrossCursor);
  setMinimumSize(200, 150);
}

Tela::~Tela() {
  if (s_.Schermo == superficie_.get()) s_.Schermo = nullptr;
}

void Tela::Prepara() {
  const QSize dimensioni = size().expandedTo(QSize(1, 1));
  if (superficie_ && immagine_.size() == dimensioni) return;
  if (s_.Schermo == superficie_.get()) s_.Schermo = nullptr;
  superficie_.reset();
  immagine_ = QImage(dimensioni, QImage::Format_RGB32);
  immagine_.fill(Qt::white);
  superficie_ = std::make_unique<SuperficieQt>(&immagine_, dimensioni.width(), dimensioni.height(), logicalDpiY());
  s_.Schermo = superficie_.get();
}

void Tela::Ridisegna() {
  Prepara();
  QApplication::setOverrideCursor(Qt::BusyCursor);
  varena::Ridisegna(s_);
  QApplication::restoreOverrideCursor();
  update();
  emit Evento();
}

void Tela::Rigenera() {
  Prepara();
  QApplication::setOverrideCursor(Qt::BusyCursor);
  Rigenerazione1(s_);
  QApplication::restoreOverrideCursor();
  update();
  emit Evento();
}

QPointF Tela::InVista(QPointF p) const {
  const StatoVista& v = s_.Vista;
  const double scala = v.AltezzaVista / std::max(1, height());
  return {v.BordoSinistro + p.x() * scala, v.BordoAlto - p.y() * scala};
}

QPointF Tela::InPixel(double est, double nord) const {
  const StatoVista& v = s_.Vista;
  const double scala = std::max(1, height()) / v.AltezzaVista;
  return {(est - v.CentroEst - v.BordoSinistro) * scala, (v.BordoAlto - (nord - v.CentroNord)) * scala};
}

void Tela::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.drawImage(0, 0, immagine_);
  // The label of the point under the pointer lies over the drawing, not in it.
  const SuggerimentoPunto& t = s_.Suggerimento;
  if (t.Visibile && !t.Righe.empty()) {
    QStringList righe;
    for (const std::string& r : t.Righe) righe << QString::fromStdString(r);
    const QString testo = righe.join('\n');
    const QRect area = p.fontMetrics().boundingRect(QRect(0, 0, 400, 200), Qt::AlignLeft, testo).adjusted(-4, -2, 4, 2);
    const QPointF pos = InPixel(t.X, t.Y) + QPointF(12, 12);
    const QRect box = area.translated(pos.toPoint() - area.topLeft());
    if (!t.Trasparente) p.fillRect(box, QColor(255, 255, 225));
    if (t.Cornice || !t.Trasparente) p.drawRect(box);
    p.drawText(box.adjusted(4, 2, -4, -2), Qt::AlignLeft, testo);
  }
}

void Tela::resizeEvent(QResizeEvent*) { Ridisegna(); }

void Tela::Puntatore() {
  switch (s_.FormaPuntatore) {
    case 1: setCursor(Qt::ArrowCursor); break;
    case 2: setCursor(Qt::BlankCursor); break;  // the cross hair is drawn by the core
    default: setCursor(Qt::CrossCursor); break;
  }
}

void Tela::mousePressEvent(QMouseEvent* e) {
  setFocus();
  const QPointF pv = InVista(e->position());
  MouseDown(s_, Bottone(e->button()), Maiuscole(e->modifiers()), pv.x(), pv.y());
  update();
  emit Evento();
}

void Tela::mouseMoveEvent(QMouseEvent* e) {
  const QPointF pv = InVista(e->position());
  MouseMove(s_, BottoniPremuti(e->buttons()), Maiuscole(e->modifiers()), pv.x(), pv.y());
  Puntatore();
  update();
  emit Evento();
}

void Tela::mouseReleaseEvent(QMouseEvent* e) {
  const QPointF pv = InVista(e->position());
  MouseUp(s_, Bottone(e->button()), Maiuscole(e->modifiers()), pv.x(), pv.y());
  update();
  emit Evento();
}

void Tela::wheelEvent(QWheelEvent* e) {
  // Every CAD zooms with the wheel about the pointer: the point under it stays where it is.
  const double passi = e->angleDelta().y() / 120.0;
  if (passi == 0) return;
  StatoVista& v = s_.Vista;
  const QPointF pv = InVista(e->position());
  const double nuova = std::max(1.0, v.AltezzaVista * std::pow(0.8, passi));
  const double k = nuova / v.AltezzaVista;
  v.CentroEst += pv.x() * (1 - k);
  v.CentroNord += pv.y() * (1 - k);
  v.AltezzaVista = nuova;
  Ridisegna();
}

void Tela::keyPressEvent(QKeyEvent* e) {
  // The keys belong to the main window, which knows the text box.
  e->ignore();
}

}  // namespace varena
