#include "Tela.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "core/Sessione.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Vista.h"
#include "view/Zoom.h"

namespace varena {

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
  varena::Ridisegna(s_);
  update();
  emit VistaCambiata();
}

void Tela::Rigenera() {
  Prepara();
  Rigenerazione1(s_);
  update();
  emit VistaCambiata();
}

void Tela::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.drawImage(0, 0, immagine_);
}

void Tela::resizeEvent(QResizeEvent*) { Ridisegna(); }

QPointF Tela::InVista(QPointF pixel) const {
  const StatoVista& v = s_.Vista;
  const double scala = v.AltezzaVista / std::max(1, height());
  return {v.BordoSinistro + pixel.x() * scala, v.BordoAlto - pixel.y() * scala};
}

void Tela::mousePressEvent(QMouseEvent* e) {
  const QPointF pv = InVista(e->position());
  if (e->button() == Qt::MiddleButton) {
    trascina_ = true;
    InizioTrascinamento(s_, pv.x(), pv.y());
  }
}

void Tela::mouseMoveEvent(QMouseEvent* e) {
  const QPointF pv = InVista(e->position());
  PuntatoreMosso(s_, pv.x(), pv.y());
  if (trascina_ && (e->buttons() & Qt::MiddleButton)) {
    if (Trascina(s_, pv.x(), pv.y()) != Seguito::Nessuno) Ridisegna();
  }
  const PuntoMondo m = InMondo(s_.Vista, pv.x(), pv.y());
  emit PuntatoreSulFoglio(m.Est, m.Nord);
}

void Tela::mouseReleaseEvent(QMouseEvent* e) {
  if (e->button() == Qt::MiddleButton) trascina_ = false;
}

void Tela::wheelEvent(QWheelEvent* e) {
  // The point under the pointer stays where it is while the view grows or shrinks about it.
  const double passi = e->angleDelta().y() / 120.0;
  if (passi == 0) return;
  StatoVista& v = s_.Vista;
  const QPointF pv = InVista(e->position());
  const double fattore = std::pow(0.8, passi);
  const double nuova = std::max(1.0, v.AltezzaVista * fattore);
  const double k = nuova / v.AltezzaVista;
  v.CentroEst += pv.x() * (1 - k);
  v.CentroNord += pv.y() * (1 - k);
  v.AltezzaVista = nuova;
  Ridisegna();
}

}  // namespace varena
