#include "WidgetGrafica.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMenu>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QWheelEvent>

#include "Plotter.h"
#include "Stampa.h"
#include "SuperficieQt.h"
#include "core/Sessione.h"
#include "output/LetturaFlusso.h"

namespace varena {

WidgetGrafica::WidgetGrafica(Sessione& s, QWidget* padre) : QWidget(padre), s_(s) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(200, 150);
  setAutoFillBackground(true);
  QPalette p = palette();
  p.setColor(QPalette::Window, Qt::white);
  setPalette(p);
  g_.LeggiOpzioni(s_);
}

QPointF WidgetGrafica::Pixel(double est, double nord) const {
  const double k = height() / (g_.Altezza > 0 ? g_.Altezza : 1);
  return {width() / 2.0 + (est - g_.CentroEst) * k, height() / 2.0 - (nord - g_.CentroNord) * k};
}

QPointF WidgetGrafica::Metri(QPointF pixel) const {
  const double k = height() / (g_.Altezza > 0 ? g_.Altezza : 1);
  return {g_.CentroEst + (pixel.x() - width() / 2.0) / k, g_.CentroNord - (pixel.y() - height() / 2.0) / k};
}

void WidgetGrafica::resizeEvent(QResizeEvent*) {
  g_.Rapporto = height() > 0 ? double(width()) / height() : 1;
  if (adattata_) ZoomTutto();
}

void WidgetGrafica::paintEvent(QPaintEvent*) {
  QPainter p(this);
  GeneraGrafica(p);
}

bool WidgetGrafica::VR_Stampa(QPrinter& stampante) {
  const QSizeF mm = stampante.pageLayout().fullRect(QPageLayout::Millimeter).size();
  OpzioniPlot o;
  o.Foglio = {stampante.pageLayout().pageSize().name().toStdString(), mm.width(), mm.height()};
  o.Colori = s_.Colori;
  // The view's width and height both within the sheet: the smaller of the two scales.
  const double scala = std::max(g_.Altezza * 1000 / mm.height(), g_.Altezza * g_.Rapporto * 1000 / mm.width());
  o.Scala = std::isfinite(scala) && scala > 0 ? scala : 1000;
  stampante.setFullPage(true);
  QPainter p;
  bool fatto = p.begin(&stampante);
  if (fatto) {
    DisegnaPaginaFlusso(p, LeggiFlussoStampa(g_.TestoStampa()), o, stampante.resolution());
    fatto = p.end();
  }
  if (!fatto) StampanteRifiuta(s_);
  return fatto;
}

namespace {

// A point's name stands up and to the right of its dot.
const QPointF kScostamentoNome(4, -4);

// Captions in the control's rule, by the kind of the row they come from and the kind of text
// they are: the names of points and of parcels.
QFont FontDidascalia(std::string_view riga) {
  QFont f(FamigliaCarattere(Grafica::FontDidascalia(riga, "T")));
  f.setPixelSize(12);
  return f;
}

}  // namespace

// The pixels the drawing covers: dots, lines and the boxes of the captions shown.
QRectF WidgetGrafica::Ingombro() const {
  QRectF r;
  auto unisci = [&r](const QRectF& q) { r = r.isNull() ? q : r.united(q); };
  for (const Grafica::Linea& l : g_.Linee()) unisci(QRectF(Pixel(l.X1, l.Y1), Pixel(l.X2, l.Y2)).normalized());
  const QFontMetricsF nomi(FontDidascalia("P")), toponimi(FontDidascalia("@"));
  for (const Grafica::Punto& q : g_.Punti()) {
    if (!g_.Visibile(q)) continue;
    const QPointF c = Pixel(q.Est, q.Nord);
    unisci(QRectF(c - QPointF(2, 2), QSizeF(4, 4)));
    if (g_.MostraNomi) unisci(nomi.boundingRect(QString::fromStdString(q.Nome)).translated(c + kScostamentoNome));
  }
  if (g_.MostraToponimi)
    for (const Grafica::Nome& n : g_.Nomi())
      unisci(toponimi.boundingRect(QString::fromStdString(n.Testo)).translated(Pixel(n.Est, n.Nord)));
  return r;
}

// The model fits what it knows, the points and lines; the captions keep their size in
// pixels at any zoom, so the view is then widened until their boxes too stand inside.
void WidgetGrafica::ZoomTutto() {
  g_.VR_ZoomTutto();
  const QRectF dentro = QRectF(rect()).adjusted(4, 4, -4, -4);
  for (int passo = 0; passo < 4 && dentro.isValid(); ++passo) {
    const QRectF r = Ingombro();
    if (r.isNull() || dentro.contains(r)) return;
    const QPointF centro = Metri(r.center());
    g_.CentroEst = centro.x(), g_.CentroNord = centro.y();
    g_.Altezza *= std::max({1.0, r.width() / dentro.width(), r.height() / dentro.height()});
  }
}

void WidgetGrafica::GeneraGrafica(QPainter& p) const {
  p.setRenderHint(QPainter::Antialiasing);
  static const QColor kColori[3] = {Qt::red, Qt::darkGreen, Qt::black};
  static const Qt::PenStyle kTratti[3] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine};
  for (const Grafica::Linea& l : g_.Linee()) {
    const int t = std::clamp(l.Tipo, 0, 2);
    p.setPen(QPen(kColori[t], 1, kTratti[t]));
    p.drawLine(Pixel(l.X1, l.Y1), Pixel(l.X2, l.Y2));
  }
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(0x33, 0x33, 0x33));
  for (const Grafica::Punto& q : g_.Punti())
    if (g_.Visibile(q)) p.drawEllipse(Pixel(q.Est, q.Nord), 2, 2);
  // Captions in the control's rule, by the kind of the row they come from and the kind of
  // text they are: the names of points and of parcels.
  p.setFont(FontDidascalia("P"));
  p.setPen(Qt::red);
  for (const Grafica::Punto& q : g_.Punti())
    if (g_.MostraNomi && g_.Visibile(q)) p.drawText(Pixel(q.Est, q.Nord) + kScostamentoNome, QString::fromStdString(q.Nome));
  p.setFont(FontDidascalia("@"));
  p.setPen(Qt::blue);
  for (const Grafica::Nome& n : g_.Nomi())
    if (g_.MostraToponimi) p.drawText(Pixel(n.Est, n.Nord), QString::fromStdString(n.Testo));
  // The last error kept stands at the foot of the control, with the count of the others.
  if (!g_.Errori.empty()) {
    const size_t altri = g_.Errori.size() - 1;
    p.setPen(Qt::darkRed);
    p.drawText(rect().adjusted(4, 0, -4, -4), Qt::AlignBottom | Qt::AlignLeft,
               QString::fromStdString(g_.Errori.back() + (altri ? " (+" + std::to_string(altri) + ")" : "")));
  }
}

void WidgetGrafica::wheelEvent(QWheelEvent* e) {
  adattata_ = false;
  e->angleDelta().y() > 0 ? g_.VR_ZoomPiu() : g_.VR_ZoomMeno();
  update();
}

void WidgetGrafica::keyPressEvent(QKeyEvent* e) {
  switch (e->key()) {
    case Qt::Key_Up: g_.VR_ZoomUP(); break;
    case Qt::Key_Down: g_.VR_ZoomDown(); break;
    case Qt::Key_Left: g_.VR_ZoomLeft(); break;
    case Qt::Key_Right: g_.VR_ZoomRight(); break;
    case Qt::Key_Plus: g_.VR_ZoomPiu(); break;
    case Qt::Key_Minus: g_.VR_ZoomMeno(); break;
    case Qt::Key_Home: ZoomTutto(); break;
    default: QWidget::keyPressEvent(e); return;
  }
  adattata_ = e->key() == Qt::Key_Home;
  update();
}

// A click goes to the mouse tag armed on the model: a new point, a mid-point, a contour.
void WidgetGrafica::mousePressEvent(QMouseEvent* e) {
  if (e->button() != Qt::LeftButton || g_.TagMouse.empty()) return QWidget::mousePressEvent(e);
  const QPointF m = Metri(e->position());
  g_.ClicMouse(s_, m.x(), m.y());
  update();
}

void WidgetGrafica::mouseDoubleClickEvent(QMouseEvent* e) {
  const QPointF m = Metri(e->position());
  adattata_ = false;
  g_.CentraMouse(m.x(), m.y());
  update();
}

void WidgetGrafica::contextMenuEvent(QContextMenuEvent* e) {
  QMenu menu(this);
  menu.addAction("Zoom Tutto", [this] {
    ZoomTutto();
    adattata_ = true;
    update();
  });
  menu.addSeparator();
  menu.addAction("Salva DXF", [this] { g_.VR_SalvaDXF(s_); });
  menu.addAction("Stampa...", [this] {
    QPrinter stampante(QPrinter::HighResolution);
    QPrintDialog dialogo(&stampante, this);
    dialogo.setWindowTitle("Stampa");
    if (dialogo.exec() == QDialog::Accepted) VR_Stampa(stampante);
  });
  menu.addAction("Flusso di Stampa", [this] { g_.GeneraStampa(s_); });
  menu.addAction("Pagina HTML", [this] { g_.GeneraHTML5_CANVAS(s_); });
  menu.addAction("Copia in File", [this] { g_.VR_CopiaInFile(s_); });
  menu.addSeparator();
  auto carica = [this](const char* titolo, const char* filtro, bool (Grafica::*carica)(Sessione&, const std::string&)) {
    const auto file = s_.Ui->ScegliFile(false, titolo, filtro, s_.CartellaLavoro, "");
    if (!file) return;
    (g_.*carica)(s_, *file);
    ZoomTutto();
    adattata_ = true;
    update();
  };
  menu.addAction("Carica XVR...", [carica] { carica("Carica XVR", "Testo Lavoro (*.XVR)|*.XVR|", &Grafica::VR_CaricaXVR); });
  menu.addAction("Carica Estratto...",
                 [carica] { carica("Carica Estratto", "Estratto (*.EMP)|*.EMP|", &Grafica::VR_CaricaEstratto_EMP); });
  menu.exec(e->globalPos());
}

}  // namespace varena
