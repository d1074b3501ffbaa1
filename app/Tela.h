// The drawing surface of the main window (`Picture1`): an image the core paints through the
// raster surface, shown as it stands; pointer, wheel and key events go to the core.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "SuperficieQt.h"

namespace varena {

struct Sessione;

class Tela : public QWidget {
  Q_OBJECT
 public:
  explicit Tela(Sessione& s, QWidget* genitore = nullptr);
  ~Tela() override;

  // A redraw of the view (the list as it stands), or a full regeneration first.
  void Ridisegna();
  void Rigenera();
  // A redraw that waits for the pointer or the wheel to rest; until then the last picture is
  // shown moved and scaled to the view. Anything else that reaches the core first completes it,
  // so that nothing is ever drawn over a picture of another view.
  void RidisegnoDifferito();
  void CompletaRidisegno();
  // The picture on screen, for a screenshot or a test, in the screen's own pixels.
  const QImage& Immagine() const { return immagine_; }
  const SuperficieQt* Superficie() const { return superficie_.get(); }
  // The pointer at pixel `p`, in view coordinates (metres from the view's centre).
  QPointF InVista(QPointF p) const;
  QPointF InPixel(double est, double nord) const;

 signals:
  // Something the core does may have changed what the window shows.
  void Evento();

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override;
  void mousePressEvent(QMouseEvent*) override;
  void mouseMoveEvent(QMouseEvent*) override;
  void mouseReleaseEvent(QMouseEvent*) override;
  void wheelEvent(QWheelEvent*) override;
  void keyPressEvent(QKeyEvent*) override;

 private:
  void Prepara();
  void Puntatore();

  Sessione& s_;
  QImage immagine_;
  double rapporto_ = 1;  // device pixels of the picture to one of the window
  std::unique_ptr<SuperficieQt> superficie_;
  QTimer attesa_;
};

}  // namespace varena
