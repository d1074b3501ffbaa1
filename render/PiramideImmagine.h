// A large raster (a scanned map sheet of tens of millions of pixels) kept as a pyramid of
// halved copies, so that a paint never scales the whole picture: it takes the smallest copy
// that still has the detail the screen can show, and only the part of it in view.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <memory>
#include <vector>

namespace varena {

class PiramideImmagine {
 public:
  explicit PiramideImmagine(const QImage& originale);
  bool Nulla() const { return livelli_.empty(); }
  int Livelli() const { return static_cast<int>(livelli_.size()); }
  const QImage& Livello(int k) const { return livelli_[static_cast<size_t>(k)]; }
  // The copy that serves a picture drawn `larghezzaPx` device pixels wide: the smallest
  // no narrower than that, or the original when the picture is enlarged.
  int LivelloPer(double larghezzaPx) const;
  // The picture stretched over `destinazione` (device pixels), painted only within `vista`.
  void Dipingi(QPainter& p, const QRectF& destinazione, const QRectF& vista) const;

 private:
  std::vector<QImage> livelli_;
};

// The pyramid of a picture file, shared by every surface of the process: read and built once
// for each version of the file. Null when the file is absent or not a picture.
std::shared_ptr<const PiramideImmagine> PiramideDi(const QString& file);

}  // namespace varena
