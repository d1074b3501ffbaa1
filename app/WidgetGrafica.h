// The preview control on screen: a widget that paints a `Grafica` and turns the wheel, the
// arrow keys and the menu of its right button into the model's operations.
#pragma once

#include <QWidget>

#include "output/Grafica.h"

class QPainter;
class QPrinter;

namespace varena {

struct Sessione;

class WidgetGrafica : public QWidget {
  Q_OBJECT
 public:
  WidgetGrafica(Sessione& s, QWidget* padre = nullptr);
  Grafica& Modello() { return g_; }
  // A view the program sets: it stays through a resize, as a zoom of the user's does.
  void Vista(double est, double nord, double altezza) {
    g_.CentroEst = est, g_.CentroNord = nord, g_.Altezza = altezza;
    adattata_ = false;
    update();
  }
  // `VR_RidisegnaGrafica`: the control painted anew. `GeneraGrafica`: the drawing of the
  // lists on a painter whose device is the control.
  void VR_RidisegnaGrafica() { update(); }
  void GeneraGrafica(QPainter& p) const;
  // `VR_Stampa`: the preview's plot stream on a printer, the view on the sheet at the scale
  // that makes it fit. False, with the printer's refusal said, when it refused the job.
  bool VR_Stampa(QPrinter& stampante);
  // The model's point under a pixel of the widget, in metres.
  QPointF Metri(QPointF pixel) const;
  QPointF Pixel(double est, double nord) const;

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override;
  void wheelEvent(QWheelEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void mousePressEvent(QMouseEvent* e) override;
  void mouseDoubleClickEvent(QMouseEvent* e) override;
  void contextMenuEvent(QContextMenuEvent* e) override;

 private:
  QRectF Ingombro() const;
  // `VR_ZoomTutto` with the captions inside.
  void ZoomTutto();

  Sessione& s_;
  Grafica g_;
  // The view is the fit of all the content, as the control first shows it or the user asked
  // for it: a resize fits it again; a zoom or a pan of the user's ends it.
  bool adattata_ = true;
};

}  // namespace varena
