#include "Tela.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "InterfacciaQt.h"
#include "commands/Puntatore.h"
#include "core/Sessione.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

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
  // Long enough to span the gaps between the events of one gesture, short enough not to be seen.
  attesa_.setSingleShot(true);
  attesa_.setInterval(150);
  connect(&attesa_, &QTimer::timeout, this, &Tela::Ridisegna);
}

Tela::~Tela() {
  if (s_.Schermo == superficie_.get()) s_.Schermo = nullptr;
}

void Tela::Prepara() {
  // The picture has the screen's own pixels, which on a 2x screen are twice the window's:
  // the drawing is painted at that resolution and shown pixel for pixel, never scaled up.
  const double rapporto = devicePixelRatioF();
  const QSize dimensioni = (QSizeF(size().expandedTo(QSize(1, 1))) * rapporto).toSize();
  const double dpi = logicalDpiY() * rapporto;
  if (!superficie_ || immagine_.size() != dimensioni || rapporto != rapporto_) {
    if (s_.Schermo == superficie_.get()) s_.Schermo = nullptr;
    superficie_.reset();
    immagine_ = QImage(dimensioni, QImage::Format_RGB32);
    // Fonts in points become pixels at the same resolution the surface measures its
    // millimetres with, so that a text of so many metres is that long on the drawing.
    immagine_.setDotsPerMeterX(qRound(dpi / 0.0254));
    immagine_.setDotsPerMeterY(qRound(dpi / 0.0254));
    immagine_.fill(Qt::white);
    rapporto_ = rapporto;
    superficie_ = std::make_unique<SuperficieQt>(&immagine_, dimensioni.width(), dimensioni.height(), dpi);
    superficie_->ImpostaRapportoPixel(rapporto);
    s_.Schermo = superficie_.get();
  }
  // Labels given as a share of the view are a share of the screen's height.
  if (const QScreen* schermo = screen())
    superficie_->ImpostaRiferimentoMm(schermo->geometry().height() * 25.4 / logicalDpiY());
}

void Tela::Ridisegna() {
  // The window repaints while long work runs; the work is not begun again inside itself.
  if (InterfacciaQt::AlLavoro()) {
    attesa_.start();
    return;
  }
  attesa_.stop();
  Prepara();
  QApplication::setOverrideCursor(Qt::BusyCursor);
  varena::Ridisegna(s_);
  QApplication::restoreOverrideCursor();
  update();
  emit Evento();
}

void Tela::Rigenera() {
  attesa_.stop();
  Prepara();
  QApplication::setOverrideCursor(Qt::BusyCursor);
  Rigenerazione1(s_);
  QApplication::restoreOverrideCursor();
  update();
  emit Evento();
}

void Tela::RidisegnoDifferito() {
  attesa_.start();
  update();
  emit Evento();
}

void Tela::CompletaRidisegno() {
  if (attesa_.isActive()) Ridisegna();
}

// The edges of the view follow from its height and proportion, not from the edges the last
// redraw worked out: between a wheel step and its redraw those still belong to the old view.
QPointF Tela::InVista(QPointF p) const {
  const StatoVista& v = s_.Vista;
  const double scala = v.AltezzaVista / std::max(1, height());
  return {-v.RapportoVista * v.AltezzaVista / 2 + p.x() * scala, v.AltezzaVista / 2 - p.y() * scala};
}

QPointF Tela::InPixel(double est, double nord) const {
  const StatoVista& v = s_.Vista;
  const double scala = std::max(1, height()) / v.AltezzaVista;
  return {(est - v.CentroEst + v.RapportoVista * v.AltezzaVista / 2) * scala,
          (v.AltezzaVista / 2 - (nord - v.CentroNord)) * scala};
}

void Tela::paintEvent(QPaintEvent*) {
  QPainter p(this);
  const StatoVista& v = s_.Vista;
  const auto [est, nord, altezza] = v.SulloSchermo;
  if (!attesa_.isActive() || altezza <= 0 || (est == v.CentroEst && nord == v.CentroNord && altezza == v.AltezzaVista)) {
    p.drawImage(QRectF(0, 0, immagine_.width() / rapporto_, immagine_.height() / rapporto_), immagine_);
  } else {
    // The picture of the earlier view, its top left corner and size where the present view
    // puts them; the ground it leaves uncovered takes the background colour.
    const QPointF angolo = InPixel(est - v.RapportoVista * altezza / 2, nord + altezza / 2);
    const double k = altezza / v.AltezzaVista;
    const ColoreRGB fondo = superficie_ ? superficie_->Fondo() : 0xFFFFFF;
    p.fillRect(rect(), QColor((fondo >> 16) & 0xFF, (fondo >> 8) & 0xFF, fondo & 0xFF));
    p.setRenderHint(QPainter::SmoothPixmapTransform, k != 1);
    p.drawImage(QRectF(angolo, QSizeF(immagine_.width() * k / rapporto_, immagine_.height() * k / rapporto_)), immagine_);
  }
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
  CompletaRidisegno();
  const QPointF pv = InVista(e->position());
  MouseDown(s_, Bottone(e->button()), Maiuscole(e->modifiers()), pv.x(), pv.y());
  update();
  emit Evento();
}

void Tela::mouseMoveEvent(QMouseEvent* e) {
  const QPointF pv = InVista(e->position());
  if ((e->buttons() & Qt::MiddleButton) && s_.Trascinamento) {
    // The core moves the view; the picture follows the hand and is redrawn when it rests.
    (void)Trascina(s_, pv.x(), pv.y());
    RidisegnoDifferito();
    return;
  }
  CompletaRidisegno();
  MouseMove(s_, BottoniPremuti(e->buttons()), Maiuscole(e->modifiers()), pv.x(), pv.y());
  Puntatore();
  update();
  emit Evento();
}

void Tela::mouseReleaseEvent(QMouseEvent* e) {
  const QPointF pv = InVista(e->position());
  MouseUp(s_, Bottone(e->button()), Maiuscole(e->modifiers()), pv.x(), pv.y());
  CompletaRidisegno();
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
  RidisegnoDifferito();
}

void Tela::keyPressEvent(QKeyEvent* e) {
  // The keys belong to the main window, which knows the text box.
  e->ignore();
}

}  // namespace varena
