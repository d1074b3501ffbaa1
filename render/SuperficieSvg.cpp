#include "SuperficieSvg.h"

#include <QBuffer>
#include <QFile>
#include <QFontMetricsF>
#include <QImageReader>
#include <charconv>
#include <cmath>

#include "SuperficieQt.h"
#include "core/Conversioni.h"

namespace varena {

namespace {

constexpr double kPi = 3.14159265358979323846;

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// Hundredths of a unit are finer than any screen or printer shows; written with a point
// whatever the locale, and without the zeros that say nothing.
std::string N(double v) {
  if (std::fabs(v) < 0.005) return "0";
  char buf[512];  // room for the widest double in full: a line may reach far off the page
  const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, 2);
  std::string s(buf, r.ptr);
  while (s.back() == '0') s.pop_back();
  if (s.back() == '.') s.pop_back();
  return s;
}

std::string Colore(ColoreRGB c) {
  static const char cifre[] = "0123456789abcdef";
  std::string s = "#";
  for (int k = 20; k >= 0; k -= 4) s += cifre[(c >> k) & 0xF];
  return s;
}

// Text as XML character data or attribute value. Control characters are not allowed in
// XML at all: a text of the job that holds one gets a blank in its place.
std::string Xml(std::string_view t) {
  std::string s;
  s.reserve(t.size());
  for (char ch : t) {
    switch (ch) {
      case '&': s += "&amp;"; break;
      case '<': s += "&lt;"; break;
      case '>': s += "&gt;"; break;
      case '"': s += "&quot;"; break;
      default: s += static_cast<unsigned char>(ch) < 0x20 ? ' ' : ch;
    }
  }
  return s;
}

// A family name as a style sheet wants it: bare when it is a row of plain words, as
// "Courier New", else between single quotes.
std::string NomeFamiglia(const QString& nome) {
  bool semplice = true;
  for (const QString& parola : nome.split(' ', Qt::SkipEmptyParts)) {
    if (parola.front().isDigit() || parola.front() == '-') semplice = false;
    for (QChar ch : parola)
      if (!ch.isLetterOrNumber() && ch != '-' && ch != '_') semplice = false;
  }
  if (semplice && !nome.contains("  ")) return nome.toStdString();
  QString q = nome;
  q.replace("\\", "\\\\").replace("'", "\\'");
  return "'" + q.toStdString() + "'";
}

// The font the job names first, so that a system that has it uses it, then its metric
// twin, which is what this program measures and paints with.
std::string Famiglie(std::string_view nome) {
  const QString lavoro = Qs(nome).trimmed(), gemello = FamigliaCarattere(nome);
  if (lavoro.isEmpty() || lavoro.compare(gemello, Qt::CaseInsensitive) == 0) return NomeFamiglia(gemello);
  return NomeFamiglia(lavoro) + ", " + NomeFamiglia(gemello);
}

bool Finito(double a, double b) { return std::isfinite(a) && std::isfinite(b); }

}  // namespace

SuperficieSvg::SuperficieSvg(int larghezzaPx, int altezzaPx, double dpi)
    : larghezza_(larghezzaPx), altezza_(altezzaPx), dpi_(dpi > 0 ? dpi : 96.0), misura_(1, 1, QImage::Format_RGB32) {
  const int puntiMetro = InteroSaturato<int>(std::round(dpi_ / 0.0254));
  misura_.setDotsPerMeterX(puntiMetro);
  misura_.setDotsPerMeterY(puntiMetro);
  Carattere("Courier New", 10);
}

void SuperficieSvg::ScalaUtente(double sinistra, double alto, double larghezza, double altezza) {
  sinistra_ = sinistra;
  alto_ = alto;
  sx_ = larghezza != 0 ? larghezza_ / larghezza : 1;
  sy_ = altezza != 0 ? altezza_ / altezza : 1;
}

void SuperficieSvg::Mappa(double x, double y, double& px, double& py) const {
  px = (x - sinistra_) * sx_;
  py = (y - alto_) * sy_;
}

std::string SuperficieSvg::Punto(double x, double y) const { return N(x) + " " + N(y); }

void SuperficieSvg::ChiudiTraccia() {
  fineTraccia_.clear();
  if (!tracciaAperta_) return;
  *uscita_ += "\"/>\n";
  tracciaAperta_ = false;
}

void SuperficieSvg::Traccia(const Tratto& t, const std::string& dati) {
  fineTraccia_.clear();
  if (tracciaAperta_ && t == traccia_) {
    *uscita_ += dati;
    return;
  }
  ChiudiTraccia();
  *uscita_ += "<path fill=\"none\" stroke=\"" + Colore(t.Colore) + "\"";
  if (t.Spessore != 1) *uscita_ += " stroke-width=\"" + std::to_string(t.Spessore) + "\"";
  // Dots one pen wide, two apart, as the screen's dotted pen.
  if (t.Stile == StilePenna::Punteggiato)
    *uscita_ += " stroke-dasharray=\"" + std::to_string(t.Spessore) + " " + std::to_string(2 * t.Spessore) + "\"";
  *uscita_ += " d=\"" + dati;
  tracciaAperta_ = true;
  traccia_ = t;
}

void SuperficieSvg::Pulisci() {
  // Whatever was painted lies under the cleared background: it goes.
  tracciaAperta_ = false;
  fineTraccia_.clear();
  corpo_ = "<rect width=\"" + std::to_string(larghezza_) + "\" height=\"" + std::to_string(altezza_) + "\" fill=\"" +
           Colore(fondo_) + "\"/>\n";
}

void SuperficieSvg::Carattere(std::string_view nome, double dimensione) {
  if (dimensione == dimensioneCarattere_ && nome == nomeCarattere_) return;
  nomeCarattere_ = std::string(nome);
  dimensioneCarattere_ = dimensione;
  carattere_ = QFont(FamigliaCarattere(nome));
  carattere_.setPointSizeF(dimensione > 0.1 ? dimensione : 0.1);
  ascesa_ = QFontMetricsF(carattere_, &misura_).ascent();
}

void SuperficieSvg::Linea(float x1, float y1, float x2, float y2, ColoreRGB c) {
  double ax, ay, bx, by;
  Mappa(x1, y1, ax, ay);
  Mappa(x2, y2, bx, by);
  if (!Finito(ax, ay) || !Finito(bx, by)) return;
  const Tratto t{c, spessore_, stile_};
  if (ax == bx && ay == by) {
    // A line of no length is a dot: a stroke as long as the pen is wide, a square.
    Traccia(t, "M" + Punto(ax - spessore_ / 2.0, ay) + "h" + std::to_string(spessore_));
    return;
  }
  // A chain of pieces (a flattened arc, a polyline) goes on from where the last one ended.
  const std::string inizio = Punto(ax, ay), fine = Punto(bx, by);
  if (tracciaAperta_ && t == traccia_ && inizio == fineTraccia_)
    Traccia(t, "L" + fine);
  else
    Traccia(t, "M" + inizio + "L" + fine);
  fineTraccia_ = fine;
}

void SuperficieSvg::Riquadro(float x1, float y1, float x2, float y2, ColoreRGB c, bool pieno) {
  double ax, ay, bx, by;
  Mappa(x1, y1, ax, ay);
  Mappa(x2, y2, bx, by);
  if (!Finito(ax, ay) || !Finito(bx, by)) return;
  const std::string dati = "M" + Punto(ax, ay) + "H" + N(bx) + "V" + N(by) + "H" + N(ax) + "Z";
  if (!pieno) {
    Traccia({c, spessore_, stile_}, dati);
    return;
  }
  ChiudiTraccia();
  *uscita_ += "<path fill=\"" + Colore(c) + "\" stroke=\"" + Colore(c) + "\" d=\"" + dati + "\"/>\n";
}

void SuperficieSvg::Cerchio(float x, float y, float raggio, ColoreRGB c) {
  double cx, cy;
  Mappa(x, y, cx, cy);
  const double rx = std::fabs(raggio * sx_), ry = std::fabs(raggio * sy_);
  if (!Finito(cx, cy) || !Finito(rx, ry)) return;
  // Two half turns: one arc from a point back to itself would draw nothing.
  const std::string r = N(rx) + " " + N(ry) + " 0 1 0 ";
  Traccia({c, spessore_, stile_}, "M" + Punto(cx - rx, cy) + "a" + r + N(2 * rx) + " 0a" + r + N(-2 * rx) + " 0");
}

void SuperficieSvg::Arco(float x, float y, float raggio, float inizio, float fine, ColoreRGB c) {
  double ampiezza = static_cast<double>(fine) - inizio;
  if (ampiezza < 0) ampiezza += 2 * kPi;
  if (ampiezza >= 2 * kPi - 1e-9) {
    Cerchio(x, y, raggio, c);
    return;
  }
  double ax, ay, bx, by;
  Mappa(x + raggio * std::cos(inizio), y + raggio * std::sin(inizio), ax, ay);
  Mappa(x + raggio * std::cos(fine), y + raggio * std::sin(fine), bx, by);
  const double rx = std::fabs(raggio * sx_), ry = std::fabs(raggio * sy_);
  if (!Finito(ax, ay) || !Finito(bx, by) || !Finito(rx, ry)) return;
  // Counter-clockwise on the sheet; a scale that turns one axis over turns the sense too.
  const char* senso = sx_ * sy_ > 0 ? " 1 " : " 0 ";
  Traccia({c, spessore_, stile_}, "M" + Punto(ax, ay) + "A" + N(rx) + " " + N(ry) + " 0 " + (ampiezza > kPi ? "1" : "0") +
                                      senso + Punto(bx, by));
}

void SuperficieSvg::Pixel(float x, float y, ColoreRGB c) {
  // The labels' painter sets a pixel of the background only to move its print position:
  // on a sheet that is all background it would show nothing, and only cut what lies under.
  if (c == fondo_) return;
  double px, py;
  Mappa(x, y, px, py);
  if (!Finito(px, py)) return;
  Traccia({c, 1, StilePenna::Continuo}, "M" + Punto(px - 0.5, py) + "h1");
}

void SuperficieSvg::Testo(float x, float y, std::string_view testo, float rotazione) {
  double ax, ay;
  Mappa(x, y, ax, ay);
  if (!Finito(ax, ay) || testo.empty()) return;
  ChiudiTraccia();
  // (x, y) is the text's top left corner; SVG places its base line.
  std::string& u = *uscita_;
  u += "<text x=\"" + N(ax) + "\" y=\"" + N(ay + ascesa_) + "\"";
  // The sheet's y grows upwards, the document's downwards: a counter-clockwise turn on the
  // sheet is a negative one here.
  if (rotazione != 0 && std::isfinite(rotazione)) u += " transform=\"rotate(" + N(-rotazione * 180.0 / kPi) + " " + Punto(ax, ay) + ")\"";
  u += " font-family=\"" + Xml(Famiglie(nomeCarattere_)) + "\" font-size=\"" +
       N(carattere_.pointSizeF() * dpi_ / 72.0) + "\" fill=\"" + Colore(penna_) + "\">" + Xml(testo) + "</text>\n";
}

bool SuperficieSvg::Immagine(const std::string& file, float x1, float y1, float x2, float y2) {
  const QString nome = Qs(file);
  auto it = immagini_.find(nome);
  if (it == immagini_.end()) {
    // PNG and JPEG files go in as they are; other formats are turned into PNG.
    QImageReader lettore(nome);
    const QByteArray formato = lettore.format();
    std::string indirizzo;
    if (formato == "png" || formato == "jpeg" || formato == "jpg") {
      QFile f(nome);
      if (f.open(QIODevice::ReadOnly))
        indirizzo = "data:image/" + std::string(formato == "png" ? "png" : "jpeg") + ";base64," +
                    f.readAll().toBase64().toStdString();
    } else {
      const QImage img = lettore.read();
      if (!img.isNull()) {
        QByteArray png;
        QBuffer b(&png);
        b.open(QIODevice::WriteOnly);
        img.save(&b, "PNG");
        indirizzo = "data:image/png;base64," + png.toBase64().toStdString();
      }
    }
    it = immagini_.insert(nome, indirizzo);
  }
  if (it->empty()) return false;
  double ax, ay, bx, by;
  Mappa(x1, y1, ax, ay);
  Mappa(x2, y2, bx, by);
  if (!Finito(ax, ay) || !Finito(bx, by)) return true;
  ChiudiTraccia();
  *uscita_ += "<image x=\"" + N(std::min(ax, bx)) + "\" y=\"" + N(std::min(ay, by)) + "\" width=\"" + N(std::fabs(bx - ax)) +
              "\" height=\"" + N(std::fabs(by - ay)) + "\" preserveAspectRatio=\"none\" xlink:href=\"" + *it + "\"/>\n";
  return true;
}

double SuperficieSvg::LarghezzaTesto(std::string_view testo) const {
  return QFontMetricsF(carattere_, &misura_).horizontalAdvance(Qs(testo)) / std::fabs(sx_);
}

double SuperficieSvg::AltezzaTesto(std::string_view) const {
  return QFontMetricsF(carattere_, &misura_).height() / std::fabs(sy_);
}

void SuperficieSvg::Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta) {
  double px, py;
  Mappa(x, y, px, py);
  if (!Finito(px, py) || !std::isfinite(dimensione)) return;
  const auto chiave = std::make_tuple(codice, dimensione, c, spessore_ * 2 + (stile_ == StilePenna::Punteggiato), carta, sx_, sy_);
  auto it = simboli_.find(chiave);
  if (it == simboli_.end()) {
    ChiudiTraccia();
    it = simboli_.emplace(chiave, static_cast<int>(simboli_.size()) + 1).first;
    definizioni_ += "<g id=\"s" + std::to_string(it->second) + "\">\n";
    // Drawn about the document's origin, element by element, where the uses find it.
    const double sinistra = sinistra_, alto = alto_;
    sinistra_ = alto_ = 0;
    uscita_ = &definizioni_;
    Superficie::Simbolo(codice, 0, 0, dimensione, c, carta);
    ChiudiTraccia();
    uscita_ = &corpo_;
    sinistra_ = sinistra;
    alto_ = alto;
    definizioni_ += "</g>\n";
  }
  ChiudiTraccia();
  corpo_ += "<use xlink:href=\"#s" + std::to_string(it->second) + "\" x=\"" + N(px) + "\" y=\"" + N(py) + "\"/>\n";
}

std::string SuperficieSvg::Documento(std::string_view titolo) {
  ChiudiTraccia();
  const std::string l = std::to_string(larghezza_), a = std::to_string(altezza_);
  std::string d = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  d += "<svg xmlns=\"http://www.w3.org/2000/svg\" xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" width=\"" + l +
       "\" height=\"" + a + "\" viewBox=\"0 0 " + l + " " + a + "\" stroke-linecap=\"butt\" xml:space=\"preserve\">\n";
  d += "<title>" + Xml(titolo) + "</title>\n";
  if (!definizioni_.empty()) d += "<defs>\n" + definizioni_ + "</defs>\n";
  d += corpo_;
  d += "</svg>\n";
  return d;
}

}  // namespace varena
