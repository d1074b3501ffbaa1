#include "Plotter.h"

#include <QFont>
#include <QImage>
#include <cmath>
#include <cstdio>

#include "SuperficieQt.h"
#include "core/File.h"
#include "core/Testo.h"

namespace varena {

namespace {

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// Draws the items in order, changing pen and font only when they change and handing the
// painter runs of lines at once: a survey's page holds hundreds of thousands of them.
class Tracciatore {
 public:
  Tracciatore(QPainter& p, const OpzioniPlot& o, double dpi) : p_(p), o_(o), c_(o), mm_(dpi / 25.4) {}
  ~Tracciatore() { Svuota(); }

  void Linea(const ElementoFlusso& e) {
    Penna(e.Spessore);
    linee_.emplace_back(QPointF(c_.X(e.X1) * mm_, c_.Y(e.Y1) * mm_), QPointF(c_.X(e.X2) * mm_, c_.Y(e.Y2) * mm_));
  }
  void Cerchio(const ElementoFlusso& e) {
    Penna(e.Spessore);
    Svuota();
    const double r = std::fabs(e.X2) * c_.k * mm_;
    p_.drawEllipse(QPointF(c_.X(e.X1) * mm_, c_.Y(e.Y1) * mm_), r, r);
  }
  // Texts are placed by the foot of their first letter, the baseline.
  void Testo(const ElementoFlusso& e) {
    const double altezzaMm = e.Altezza * c_.k;
    if (!(altezzaMm > 0.05) || e.Testo.empty()) return;
    Svuota();
    const QString famiglia = FamigliaCarattere(e.Font);
    if (famiglia != famiglia_ || altezzaMm != altezzaMm_) {
      QFont f(famiglia);
      f.setPointSizeF(altezzaMm * 72.0 / 25.4);
      p_.setFont(f);
      famiglia_ = famiglia, altezzaMm_ = altezzaMm;
    }
    p_.setPen(ColoreCarta(o_.Colori, e.Colore));
    spessore_ = -1;
    const QPointF piede(c_.X(e.X1) * mm_, c_.Y(e.Y1) * mm_);
    if (e.Angolo == 0) {
      p_.drawText(piede, Qs(e.Testo));
      return;
    }
    p_.save();
    p_.translate(piede);
    p_.rotate(e.Angolo);
    p_.drawText(QPointF(0, 0), Qs(e.Testo));
    p_.restore();
  }
  void Immagine(const ElementoFlusso& e) {
    const QImage img(Qs(NormalizzaPercorso(e.Testo)));
    if (img.isNull()) return;
    Svuota();
    p_.drawImage(QRectF(c_.X(e.X1) * mm_, c_.Y(e.Y1) * mm_, e.X2 * c_.k * mm_, e.Y2 * c_.k * mm_), img);
  }

 private:
  void Penna(double spessore) {
    if (spessore == spessore_) return;
    Svuota();
    p_.setPen(QPen(Qt::black, spessore * mm_, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p_.setBrush(Qt::NoBrush);
    spessore_ = spessore;
  }
  void Svuota() {
    if (linee_.isEmpty()) return;
    p_.drawLines(linee_);
    linee_.clear();
  }
  QPainter& p_;
  const OpzioniPlot& o_;
  const Carta c_;
  const double mm_;  // device dots per millimetre
  double spessore_ = -1;
  QString famiglia_;
  double altezzaMm_ = 0;
  QList<QLineF> linee_;
};

}  // namespace

QColor ColoreCarta(const TabellaColori& colori, int32_t indice) {
  if (indice < 1 || indice > kMassimoColori) return Qt::black;
  const ColoreRGB c = colori[indice];
  if ((c & 0xFFFFFF) == 0xFFFFFF) return Qt::black;
  return QColor((c >> 16) & 0xFF, (c >> 8) & 0xFF, c & 0xFF);
}

std::optional<FoglioCarta> FoglioDaNome(std::string_view nome, bool orizzontale) {
  static const struct {
    const char* Nome;
    double L, A;
  } kFogli[] = {{"A4", 210, 297}, {"A3", 297, 420}, {"A2", 420, 594}, {"A1", 594, 841}, {"A0", 841, 1189}};
  const std::string n = Maiuscolo(Rifila(nome));
  for (const auto& f : kFogli) {
    if (n != f.Nome) continue;
    if (orizzontale) return FoglioCarta{n, f.A, f.L};
    return FoglioCarta{n, f.L, f.A};
  }
  return std::nullopt;
}

void DisegnaPaginaFlusso(QPainter& p, const PaginaFlusso& pagina, const OpzioniPlot& o, double dpi) {
  const double mm = dpi / 25.4;
  p.setClipRect(QRectF(0, 0, o.Foglio.LarghezzaMm * mm, o.Foglio.AltezzaMm * mm));
  Tracciatore t(p, o, dpi);
  for (const ElementoFlusso& e : pagina.Elementi) {
    switch (e.Tipo) {
      case ElementoFlusso::Linea: t.Linea(e); break;
      case ElementoFlusso::Cerchio: t.Cerchio(e); break;
      case ElementoFlusso::Scritta: t.Testo(e); break;
      case ElementoFlusso::Immagine: t.Immagine(e); break;
    }
  }
}

namespace {

std::string N(double v) {
  char b[32];
  std::snprintf(b, sizeof b, "%.3f", v);
  return VirgolaInPunto(b);
}

std::string Xml(std::string_view t) {
  std::string r;
  for (char ch : t) {
    switch (ch) {
      case '&': r += "&amp;"; break;
      case '<': r += "&lt;"; break;
      case '>': r += "&gt;"; break;
      case '"': r += "&quot;"; break;
      default: r += ch;
    }
  }
  return r;
}

}  // namespace

std::string SvgPaginaFlusso(const PaginaFlusso& pagina, const OpzioniPlot& o) {
  const Carta c(o);
  const std::string l = N(o.Foglio.LarghezzaMm), a = N(o.Foglio.AltezzaMm);
  std::string s = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
                  "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"" + l + "mm\" height=\"" + a +
                  "mm\" viewBox=\"0 0 " + l + " " + a + "\">\n<rect width=\"" + l + "\" height=\"" + a +
                  "\" fill=\"white\"/>\n<g stroke=\"black\" stroke-linecap=\"round\" fill=\"none\">\n";
  for (const ElementoFlusso& e : pagina.Elementi) {
    switch (e.Tipo) {
      case ElementoFlusso::Linea:
        s += "<line x1=\"" + N(c.X(e.X1)) + "\" y1=\"" + N(c.Y(e.Y1)) + "\" x2=\"" + N(c.X(e.X2)) + "\" y2=\"" +
             N(c.Y(e.Y2)) + "\" stroke-width=\"" + N(e.Spessore) + "\"/>\n";
        break;
      case ElementoFlusso::Cerchio:
        s += "<circle cx=\"" + N(c.X(e.X1)) + "\" cy=\"" + N(c.Y(e.Y1)) + "\" r=\"" + N(std::fabs(e.X2) * c.k) +
             "\" stroke-width=\"" + N(e.Spessore) + "\"/>\n";
        break;
      case ElementoFlusso::Scritta: {
        const QColor q = ColoreCarta(o.Colori, e.Colore);
        s += "<text x=\"" + N(c.X(e.X1)) + "\" y=\"" + N(c.Y(e.Y1)) + "\" font-family=\"" +
             Xml(FamigliaCarattere(e.Font).toStdString()) + "\" font-size=\"" + N(e.Altezza * c.k) + "\" fill=\"" +
             q.name().toStdString() + "\" stroke=\"none\"";
        if (e.Angolo != 0)
          s += " transform=\"rotate(" + N(e.Angolo) + " " + N(c.X(e.X1)) + " " + N(c.Y(e.Y1)) + ")\"";
        s += ">" + Xml(e.Testo) + "</text>\n";
        break;
      }
      case ElementoFlusso::Immagine:
        s += "<image x=\"" + N(c.X(e.X1)) + "\" y=\"" + N(c.Y(e.Y1)) + "\" width=\"" + N(e.X2 * c.k) + "\" height=\"" +
             N(e.Y2 * c.k) + "\" xlink:href=\"" + Xml(NormalizzaPercorso(e.Testo)) + "\"/>\n";
        break;
    }
  }
  s += "</g>\n</svg>\n";
  return s;
}

}  // namespace varena
