#include "PiramideImmagine.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>
#include <algorithm>
#include <cmath>
#include <list>

namespace varena {

namespace {

// Copies stop halving below this size: a smaller one saves nothing worth a level.
constexpr int kLatoMinimo = 256;
// Pictures kept at once: a job shows one extract and a few images.
constexpr size_t kInMemoria = 6;
// Megabytes a decoded picture may take.
constexpr int kLimiteMb = 1024;

}  // namespace

PiramideImmagine::PiramideImmagine(const QImage& originale) {
  if (originale.isNull()) return;
  // A format the painter draws without converting at every paint.
  livelli_.push_back(originale.convertToFormat(originale.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                                           : QImage::Format_RGB32));
  while (livelli_.back().width() > kLatoMinimo && livelli_.back().height() > kLatoMinimo) {
    const QImage& l = livelli_.back();
    livelli_.push_back(l.scaled(std::max(1, l.width() / 2), std::max(1, l.height() / 2), Qt::IgnoreAspectRatio,
                                Qt::SmoothTransformation));
  }
}

int PiramideImmagine::LivelloPer(double larghezzaPx) const {
  int k = 0;
  while (k + 1 < Livelli() && livelli_[static_cast<size_t>(k) + 1].width() >= larghezzaPx) ++k;
  return k;
}

void PiramideImmagine::Dipingi(QPainter& p, const QRectF& destinazione, const QRectF& vista) const {
  const QRectF d = destinazione.normalized();
  const QRectF visibile = d.intersected(vista);
  if (Nulla() || visibile.isEmpty() || d.width() <= 0 || d.height() <= 0) return;
  const QImage& l = livelli_[static_cast<size_t>(LivelloPer(d.width()))];
  const double sx = l.width() / d.width(), sy = l.height() / d.height();
  const QRectF sorgente((visibile.left() - d.left()) * sx, (visibile.top() - d.top()) * sy, visibile.width() * sx,
                        visibile.height() * sy);
  p.drawImage(visibile, l, sorgente);
}

std::shared_ptr<const PiramideImmagine> PiramideDi(const QString& file) {
  struct Voce {
    QString File;
    qint64 Dimensione;
    QDateTime Modifica;
    std::shared_ptr<const PiramideImmagine> Piramide;
  };
  static std::list<Voce> voci;
  const QFileInfo info(file);
  if (!info.isFile()) return nullptr;
  for (auto it = voci.begin(); it != voci.end(); ++it) {
    if (it->File != file) continue;
    if (it->Dimensione == info.size() && it->Modifica == info.lastModified()) {
      voci.splice(voci.begin(), voci, it);
      return voci.front().Piramide;
    }
    voci.erase(it);
    break;
  }
  // A scanned sheet of 10,000 x 7,000 pixels decodes to some 280 MB, past the reader's
  // default limit: the limit is raised for pictures of that order, not beyond.
  QImageReader::setAllocationLimit(std::max(QImageReader::allocationLimit(), kLimiteMb));
  QImageReader lettore(file);
  auto piramide = std::make_shared<const PiramideImmagine>(lettore.read());
  if (piramide->Nulla()) piramide = nullptr;
  voci.push_front({file, info.size(), info.lastModified(), piramide});
  if (voci.size() > kInMemoria) voci.pop_back();
  return piramide;
}

}  // namespace varena
