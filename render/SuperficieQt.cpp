#include "SuperficieQt.h"

#include <QFontMetricsF>
#include <QTransform>
#include <cmath>

namespace varena {

namespace {

QColor Qc(ColoreRGB c) { return QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF); }

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

QString FamigliaCarattere(std::string_view nome) {
  const QString n = Qs(nome).trimmed();
  const QString m = n.toUpper();
  // The legacy program names Windows fonts; Liberation has the same metrics for the three
  // that matter, so texts keep their lengths on the sheet.
  if (m == "ARIAL" || m.startsWith("ARIAL ")) return "Liberation Sans";
  if (m == "COURIER NEW" || m == "CURIER NEW" || m == "COURIER") return "Liberation Mono";
  if (m == "TIMES NEW ROMAN" || m == "TIMES") return "Liberation Serif";
  return n.isEmpty() ? QString("Liberation Sans") : n;
}

SuperficieQt::SuperficieQt(QPaintDevice* dispositivo, int larghezzaPx, int altezzaPx, double dpi)
    : larghezza_(larghezzaPx), altezza_(altezzaPx), dpi_(dpi > 0 ? dpi : 96.0) {
  pittore_.begin(dispositivo);
  pittore_.setRenderHint(QPainter::Antialiasing, true);
  pittore_.setRenderHint(QPainter::TextAntialiasing, true);
  pittore_.setRenderHint(QPainter::SmoothPixmapTransform, true);
  carattere_ = QFont(FamigliaCarattere("Courier New"));
  carattere_.setPointSizeF(10);
}

SuperficieQt::~SuperficieQt() { Fine(); }

void SuperficieQt::Fine() {
  if (pittore_.isActive()) pittore_.end();
}

void SuperficieQt::ScalaUtente(double sinistra, double alto, double larghezza, double altezza) {
  sinistra_ = sinistra;
  alto_ = alto;
  sx_ = larghezza != 0 ? larghezza_ / larghezza : 1;
  sy_ = altezza != 0 ? altezza_ / altezza : 1;
}

void SuperficieQt::Pulisci() {
  pittore_.save();
  pittore_.setCompositionMode(QPainter::CompositionMode_Source);
  pittore_.fillRect(QRectF(0, 0, larghezza_, altezza_), Qc(fondo_));
  pittore_.restore();
}

void SuperficieQt::ColoreFondo(ColoreRGB c) { fondo_ = c; }

void SuperficieQt::Modo(ModoPenna m) {
  modo_ = m;
  // Inversion and exclusive or must undo themselves when painted twice, so they paint
  // without smoothing: a blended edge would not come back.
  switch (m) {
    case ModoPenna::Copia:
      pittore_.setCompositionMode(QPainter::CompositionMode_SourceOver);
      pittore_.setRenderHint(QPainter::Antialiasing, true);
      break;
    case ModoPenna::Inverti:
      pittore_.setCompositionMode(QPainter::RasterOp_NotDestination);
      pittore_.setRenderHint(QPainter::Antialiasing, false);
      break;
    case ModoPenna::Esclusivo:
      pittore_.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
      pittore_.setRenderHint(QPainter::Antialiasing, false);
      break;
  }
}

void SuperficieQt::Carattere(std::string_view nome, double dimensione) {
  carattere_ = QFont(FamigliaCarattere(nome));
  carattere_.setPointSizeF(dimensione > 0.1 ? dimensione : 0.1);
}

void SuperficieQt::Penna(ColoreRGB c) {
  QPen p(Qc(c));
  p.setCosmetic(true);
  p.setWidth(spessore_);
  p.setStyle(stile_ == StilePenna::Punteggiato ? Qt::DotLine : Qt::SolidLine);
  p.setCapStyle(Qt::FlatCap);
  pittore_.setPen(p);
  pittore_.setBrush(Qt::NoBrush);
}

void SuperficieQt::Linea(float x1, float y1, float x2, float y2, ColoreRGB c) {
  Penna(c);
  const QPointF a = Mappa(x1, y1), b = Mappa(x2, y2);
  if (a == b)
    pittore_.drawPoint(a);
  else
    pittore_.drawLine(a, b);
}

void SuperficieQt::Riquadro(float x1, float y1, float x2, float y2, ColoreRGB c, bool pieno) {
  Penna(c);
  if (pieno) pittore_.setBrush(Qc(c));
  pittore_.drawRect(QRectF(Mappa(x1, y1), Mappa(x2, y2)).normalized());
}

void SuperficieQt::Cerchio(float x, float y, float raggio, ColoreRGB c) {
  Penna(c);
  pittore_.drawEllipse(Mappa(x, y), std::fabs(raggio * sx_), std::fabs(raggio * sy_));
}

void SuperficieQt::Arco(float x, float y, float raggio, float inizio, float fine, ColoreRGB c) {
  Penna(c);
  const double rx = std::fabs(raggio * sx_), ry = std::fabs(raggio * sy_);
  const QPointF centro = Mappa(x, y);
  const double gradi = 180.0 / 3.14159265358979323846;
  double ampiezza = fine - inizio;
  if (ampiezza < 0) ampiezza += 2 * 3.14159265358979323846;
  pittore_.drawArc(QRectF(centro.x() - rx, centro.y() - ry, 2 * rx, 2 * ry), static_cast<int>(std::lround(inizio * gradi * 16)),
                   static_cast<int>(std::lround(ampiezza * gradi * 16)));
}

void SuperficieQt::Pixel(float x, float y, ColoreRGB c) {
  QPen p(Qc(c));
  p.setCosmetic(true);
  p.setWidth(1);
  pittore_.setPen(p);
  pittore_.drawPoint(Mappa(x, y));
}

void SuperficieQt::Testo(float x, float y, std::string_view testo, float rotazione) {
  pittore_.setFont(carattere_);
  pittore_.setPen(QPen(Qc(penna_)));
  const QFontMetricsF m(carattere_, pittore_.device());
  const QPointF alto = Mappa(x, y);
  if (rotazione == 0) {
    pittore_.drawText(QPointF(alto.x(), alto.y() + m.ascent()), Qs(testo));
    return;
  }
  // The device's y grows downwards: a counter-clockwise turn on the sheet is a negative one.
  pittore_.save();
  pittore_.translate(alto);
  pittore_.rotate(-rotazione * 180.0 / 3.14159265358979323846);
  pittore_.drawText(QPointF(0, m.ascent()), Qs(testo));
  pittore_.restore();
}

bool SuperficieQt::Immagine(const std::string& file, float x1, float y1, float x2, float y2) {
  const QString nome = Qs(file);
  auto it = immagini_.find(nome);
  if (it == immagini_.end()) it = immagini_.insert(nome, QImage(nome));
  if (it->isNull()) return false;
  pittore_.drawImage(QRectF(Mappa(x1, y1), Mappa(x2, y2)).normalized(), *it);
  return true;
}

double SuperficieQt::LarghezzaTesto(std::string_view testo) const {
  const QFontMetricsF m(carattere_);
  return m.horizontalAdvance(Qs(testo)) / std::fabs(sx_);
}

double SuperficieQt::AltezzaTesto(std::string_view) const {
  const QFontMetricsF m(carattere_);
  return m.height() / std::fabs(sy_);
}

}  // namespace varena
