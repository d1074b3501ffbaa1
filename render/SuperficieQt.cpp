#include "SuperficieQt.h"

#include <QFontMetricsF>
#include <QTransform>
#include <cmath>

#include "PiramideImmagine.h"
#include "core/Conversioni.h"

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
  // The narrow face of the preview's captions has a narrow twin: the plain one would run
  // a third longer.
  if (m == "ARIAL NARROW") return "Liberation Sans Narrow";
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
  pittore_.setBrush(Qt::NoBrush);
  Carattere("Courier New", 10);
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
  pennaColore_ = 0xFFFFFFFF;
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
  if (dimensione == dimensioneCarattere_ && nome == nomeCarattere_) return;
  nomeCarattere_ = std::string(nome);
  dimensioneCarattere_ = dimensione;
  carattere_ = QFont(FamigliaCarattere(nome));
  carattere_.setPointSizeF(dimensione > 0.1 ? dimensione : 0.1);
  ascesa_ = QFontMetricsF(carattere_, pittore_.device()).ascent();
  pittore_.setFont(carattere_);
}

void SuperficieQt::Penna(ColoreRGB c) {
  if (c == pennaColore_ && spessore_ == pennaSpessore_ && stile_ == pennaStile_) return;
  pennaColore_ = c;
  pennaSpessore_ = spessore_;
  pennaStile_ = stile_;
  QPen p(Qc(c));
  p.setCosmetic(true);
  p.setWidthF(spessore_ * rapporto_);
  p.setStyle(stile_ == StilePenna::Punteggiato ? Qt::DotLine : Qt::SolidLine);
  p.setCapStyle(Qt::FlatCap);
  pittore_.setPen(p);
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
  pittore_.setBrush(Qt::NoBrush);
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
  pittore_.drawArc(QRectF(centro.x() - rx, centro.y() - ry, 2 * rx, 2 * ry), InteroSaturato<int>(std::round(inizio * gradi * 16)),
                   InteroSaturato<int>(std::round(ampiezza * gradi * 16)));
}

void SuperficieQt::Pixel(float x, float y, ColoreRGB c) {
  const int spessore = spessore_;
  const StilePenna stile = stile_;
  spessore_ = 1;
  stile_ = StilePenna::Continuo;
  Penna(c);
  pittore_.drawPoint(Mappa(x, y));
  spessore_ = spessore;
  stile_ = stile;
}

void SuperficieQt::Testo(float x, float y, std::string_view testo, float rotazione) {
  Penna(penna_);
  const QPointF alto = Mappa(x, y);
  if (rotazione == 0) {
    pittore_.drawText(QPointF(alto.x(), alto.y() + ascesa_), Qs(testo));
    return;
  }
  // The device's y grows downwards: a counter-clockwise turn on the sheet is a negative one.
  pittore_.save();
  pittore_.translate(alto);
  pittore_.rotate(-rotazione * 180.0 / 3.14159265358979323846);
  pittore_.drawText(QPointF(0, ascesa_), Qs(testo));
  pittore_.restore();
  pennaColore_ = 0xFFFFFFFF;  // restore() brought back an older pen
}

bool SuperficieQt::Immagine(const std::string& file, float x1, float y1, float x2, float y2) {
  // A scanned sheet may be tens of millions of pixels: it is drawn from its pyramid, and only
  // where it is in view.
  const auto piramide = PiramideDi(Qs(file));
  if (!piramide) return false;
  piramide->Dipingi(pittore_, QRectF(Mappa(x1, y1), Mappa(x2, y2)), QRectF(0, 0, larghezza_, altezza_));
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

namespace varena {

void SuperficieQt::Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta) {
  const double pixel = dimensione * std::fabs(sx_);
  if (modo_ != ModoPenna::Copia || carta || !(pixel > 0) || pixel > 96 || std::fabs(sx_ + sy_) > 1e-9 * std::fabs(sx_)) {
    Superficie::Simbolo(codice, x, y, dimensione, c, carta);
    return;
  }
  // A quarter of a pixel is as fine as a symbol's size is told apart.
  const auto quarti = InteroSaturato<quint64>(std::round(pixel * 4));
  const quint64 chiave = (quarti << 40) ^ (static_cast<quint64>(static_cast<quint16>(codice)) << 24) ^ (c & 0xFFFFFF) ^
                         (static_cast<quint64>(spessore_ & 0xFF) << 56);
  auto it = simboli_.find(chiave);
  if (it == simboli_.end()) {
    if (simboli_.size() > 2000) simboli_.clear();
    const int lato = 2 * InteroSaturato<int>(std::ceil(pixel)) + 5;
    QImage img(lato, lato, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    {
      // The symbol painted once, centred, through the very same surface calls.
      SuperficieQt sprite(&img, lato, lato, dpi_);
      const double mezzo = lato / 2.0 / pixel * dimensione;
      sprite.ScalaUtente(-mezzo, mezzo, 2 * mezzo, -2 * mezzo);
      sprite.ImpostaRapportoPixel(rapporto_);
      sprite.Spessore(spessore_);
      sprite.Superficie::Simbolo(codice, 0, 0, dimensione, c, false);
    }
    it = simboli_.insert(chiave, img);
  }
  const QPointF centro = Mappa(x, y);
  const double mezzoLato = it->width() / 2.0;
  pittore_.drawImage(QPointF(std::round(centro.x() - mezzoLato), std::round(centro.y() - mezzoLato)), *it);
}

}  // namespace varena
