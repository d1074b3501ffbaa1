// The plot into a PDF of our own writing: the items of a page become the operators of the
// page's content, in points from the sheet's bottom left corner.
#include <QFile>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "DocumentoPdf.h"
#include "Plotter.h"
#include "SuperficieQt.h"
#include "core/File.h"

namespace varena {

namespace {

constexpr double kPuntiMm = 72 / 25.4;
// Arial Narrow is Arial drawn at this share of its width.
constexpr int kLarghezzaNarrow = 82;
constexpr int kPezziPercorso = 2000;
// The control points of a quarter circle drawn as a cubic curve.
constexpr double kCurva = 0.5522847498;

QString Qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// The letters of the Windows Latin page from 0x80 to 0x9F, where ISO Latin 1 has controls:
// quotes, dashes, the euro. 0 where the page has none.
constexpr char16_t kWindows80[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

// The text in the fonts' own encoding (the Windows Latin page), within a PDF string: a
// letter it does not hold is a question mark.
void AggiungiStringa(std::string& s, std::string_view utf8) {
  s += '(';
  for (const char32_t u : Qs(utf8).toUcs4()) {
    char c = '?';
    if ((u >= 0x20 && u < 0x7F) || (u >= 0xA0 && u <= 0xFF)) {
      c = static_cast<char>(u);
    } else if (u > 0xFF) {
      for (int i = 0; i < 32; ++i)
        if (kWindows80[i] == u) c = static_cast<char>(0x80 + i);
    }
    if (c == '(' || c == ')' || c == '\\') s += '\\';
    s += c;
  }
  s += ')';
}

// The content of one page: pen, font and colour set only when they change, the lines of
// one pen stroked as one path, the texts of a run in one text object.
class ContenutoPdf {
 public:
  ContenutoPdf(const OpzioniPlot& o, double altezzaPt) : o_(o), c_(o), altezzaPt_(altezzaPt) {
    s_ = "1 J 1 j 0 G\n";
  }
  std::string Fine() {
    Stato(Nessuno);
    return std::move(s_);
  }

  void Linea(const ElementoFlusso& e) {
    Penna(e.Spessore);
    const double x1 = X(e.X1), y1 = Y(e.Y1), x2 = X(e.X2), y2 = Y(e.Y2);
    if (x1 != x_ || y1 != y_) Punto(x1, y1, " m ");
    Punto(x2, y2, " l\n");
    x_ = x2, y_ = y2;
  }
  void Cerchio(const ElementoFlusso& e) {
    Penna(e.Spessore);
    const double x = X(e.X1), y = Y(e.Y1), r = std::fabs(e.X2) * c_.k * kPuntiMm, q = r * kCurva;
    Punto(x + r, y, " m ");
    Curva(x + r, y + q, x + q, y + r, x, y + r);
    Curva(x - q, y + r, x - r, y + q, x - r, y);
    Curva(x - r, y - q, x - q, y - r, x, y - r);
    Curva(x + q, y - r, x + r, y - q, x + r, y);
    x_ = x + r, y_ = y;
  }
  // Texts stand on their foot, as in the stream; their size is their height.
  void Testo(const ElementoFlusso& e) {
    const double altezzaMm = e.Altezza * c_.k;
    if (!(altezzaMm > 0.05) || e.Testo.empty()) return;
    Stato(Testi);
    Carattere(e.Font, altezzaMm * kPuntiMm);
    Colore(ColoreCarta(o_.Colori, e.Colore));
    // Clockwise on the sheet is the other way in the page's upward y.
    const double a = -e.Angolo * std::numbers::pi / 180, cs = std::cos(a), sn = std::sin(a);
    for (double v : {cs, sn, -sn, cs, X(e.X1), Y(e.Y1)}) {
      AggiungiNumeroPdf(s_, v);
      s_ += ' ';
    }
    s_ += "Tm ";
    AggiungiStringa(s_, e.Testo);
    s_ += " Tj\n";
  }
  void Immagine(const ElementoFlusso& e, const std::string& nome) {
    if (nome.empty()) return;
    Stato(Nessuno);
    s_ += "q ";
    const double l = e.X2 * c_.k * kPuntiMm, a = e.Y2 * c_.k * kPuntiMm;
    for (double v : {l, 0.0, 0.0, a, X(e.X1), Y(e.Y1) - a}) {
      AggiungiNumeroPdf(s_, v);
      s_ += ' ';
    }
    s_ += "cm " + nome + " Do Q\n";
  }

 private:
  enum Modo { Nessuno, Linee, Testi };
  double X(double x) const { return c_.X(x) * kPuntiMm; }
  double Y(double y) const { return altezzaPt_ - c_.Y(y) * kPuntiMm; }
  void Punto(double x, double y, const char* operatore) {
    AggiungiNumeroPdf(s_, x);
    s_ += ' ';
    AggiungiNumeroPdf(s_, y);
    s_ += operatore;
  }
  void Curva(double x1, double y1, double x2, double y2, double x3, double y3) {
    Punto(x1, y1, " ");
    Punto(x2, y2, " ");
    Punto(x3, y3, " c\n");
  }
  // Closes the path or the text object under way when the next item needs the other.
  void Stato(Modo m) {
    if (m == modo_) return;
    if (modo_ == Linee) s_ += "S\n";
    if (modo_ == Testi) s_ += "ET\n";
    if (m == Testi) s_ += "BT\n";
    x_ = y_ = NAN;
    pezzi_ = 0;
    modo_ = m;
  }
  void Penna(double spessore) {
    if (spessore != spessore_) {
      Stato(Nessuno);
      AggiungiNumeroPdf(s_, spessore * kPuntiMm);
      s_ += " w\n";
      spessore_ = spessore;
    }
    Stato(Linee);
    // Paths of some thousands of pieces at most: the interpreters of printers, which a PDF
    // is turned into for them, limit the size of a path.
    if (++pezzi_ > kPezziPercorso) {
      s_ += "S\n";
      x_ = y_ = NAN;
      pezzi_ = 1;
    }
  }
  void Carattere(const std::string& nome, double punti) {
    if (nome == nome_ && punti == punti_) return;
    const QString famiglia = FamigliaCarattere(nome);
    const int font = famiglia.startsWith("Liberation Serif") ? 1 : famiglia.startsWith("Liberation Mono") ? 2 : 0;
    s_ += "/F" + std::to_string(font) + ' ';
    AggiungiNumeroPdf(s_, punti);
    s_ += " Tf ";
    s_ += famiglia.endsWith("Narrow") ? std::to_string(kLarghezzaNarrow) : std::string("100");
    s_ += " Tz\n";
    nome_ = nome, punti_ = punti;
  }
  void Colore(const QColor& c) {
    if (c == colore_) return;
    for (int v : {c.red(), c.green(), c.blue()}) {
      AggiungiNumeroPdf(s_, v / 255.0);
      s_ += ' ';
    }
    s_ += "rg\n";
    colore_ = c;
  }

  const OpzioniPlot& o_;
  const Carta c_;
  const double altezzaPt_;
  std::string s_;
  Modo modo_ = Nessuno;
  double x_ = NAN, y_ = NAN;  // where the path under way stands
  int pezzi_ = 0;             // and how many lines and circles it holds
  double spessore_ = -1, punti_ = -1;
  std::string nome_;
  QColor colore_ = Qt::black;
};

// The picture over white, three bytes a pixel: what the page shows of a transparent one.
std::string PixelRgb(const QImage& origine) {
  QImage img(origine.size(), QImage::Format_RGB888);
  img.fill(Qt::white);
  {
    QPainter p(&img);
    p.drawImage(0, 0, origine);
  }
  std::string rgb;
  const size_t riga = static_cast<size_t>(img.width()) * 3;
  rgb.reserve(riga * static_cast<size_t>(img.height()));
  for (int y = 0; y < img.height(); ++y) rgb.append(reinterpret_cast<const char*>(img.constScanLine(y)), riga);
  return rgb;
}

}  // namespace

PlotterPdf::PlotterPdf(std::string percorso, OpzioniPlot o)
    : percorso_(std::move(percorso)), temporaneo_(percorso_ + kSuffissoTemporaneo), o_(std::move(o)) {}

PlotterPdf::~PlotterPdf() {
  if (documento_) {
    documento_.reset();
    QFile::remove(Qs(temporaneo_));
  }
}

const std::string& PlotterPdf::NomeImmagine(const std::string& file) {
  const auto [i, nuovo] = immagini_.try_emplace(file);
  if (!nuovo) return i->second;
  const QImage img(Qs(NormalizzaPercorso(file)));
  if (!img.isNull()) i->second = documento_->Immagine(img.width(), img.height(), PixelRgb(img));
  return i->second;
}

std::string PlotterPdf::ContenutoPagina(const PaginaFlusso& pagina, double altezzaPt) {
  ContenutoPdf c(o_, altezzaPt);
  for (const ElementoFlusso& e : pagina.Elementi) {
    switch (e.Tipo) {
      case ElementoFlusso::Linea: c.Linea(e); break;
      case ElementoFlusso::Cerchio: c.Cerchio(e); break;
      case ElementoFlusso::Scritta: c.Testo(e); break;
      case ElementoFlusso::Immagine: c.Immagine(e, NomeImmagine(e.Testo)); break;
    }
  }
  return c.Fine();
}

bool PlotterPdf::Pagina(const PaginaFlusso& pagina) {
  if (!documento_) {
    documento_ = std::make_unique<DocumentoPdf>();
    if (!documento_->Apri(temporaneo_)) {
      documento_.reset();
      QFile::remove(Qs(temporaneo_));
      return false;
    }
  }
  // The sheet in whole points, as the page sizes of printers are given.
  const double larghezza = std::round(o_.Foglio.LarghezzaMm * kPuntiMm);
  const double altezza = std::round(o_.Foglio.AltezzaMm * kPuntiMm);
  documento_->Pagina(larghezza, altezza, ContenutoPagina(pagina, altezza));
  ++pagine_;
  return true;
}

bool PlotterPdf::Chiudi() {
  if (!documento_) return false;
  const bool fatto = documento_->Chiudi();
  documento_.reset();
  // Renamed over the old file in one step: a reader sees the old plot or the new, whole.
  if (!fatto || std::rename(temporaneo_.c_str(), percorso_.c_str()) != 0) {
    QFile::remove(Qs(temporaneo_));
    return false;
  }
  return true;
}

}  // namespace varena
