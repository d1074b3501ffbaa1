// What the window keeps between sessions, in `Finestra.ini` of the working root: the
// places of the toolbars and docks, the size of the window, the text under the icons, the
// theme, the place the user left each dialog at and the lines typed in the command line.
// And where a dialog goes when it opens: beside the drawing, never over what it is about.
#pragma once

#include <QByteArray>
#include <QPoint>
#include <QRect>
#include <QSettings>
#include <QStringList>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMainWindow;

namespace varena {

class Disposizione {
 public:
  // A file in `cartella` (the working root); with no folder, nothing is kept.
  void Apri(const std::string& cartella);
  bool Aperta() const { return ini_ != nullptr; }

  void SalvaFinestra(const QMainWindow& f);
  // False when nothing was kept, or what was kept no longer fits the window.
  bool RipristinaFinestra(QMainWindow& f) const;

  std::optional<QPoint> PosizioneDialogo(const QString& nome) const;
  void SalvaPosizioneDialogo(const QString& nome, QPoint p);

  QString Valore(const QString& chiave, const QString& predefinito = {}) const;
  void Scrivi(const QString& chiave, const QString& valore);
  QStringList Storia() const;
  void SalvaStoria(const QStringList& righe);

 private:
  std::unique_ptr<QSettings> ini_;
};

// Where a dialog of size `dimensione` (its frame) opens: at the place it was left, if it
// fits the screen and keeps off `evita`; else against the right edge of `disegno`, below the
// dialogs open there (`altri`); else at the left edge, or outside the drawing to its right
// or left; of the places that all touch `evita`, the one that covers least of it.
QPoint CollocaDialogo(QSize dimensione, QRect disegno, QRect schermo, QRect evita, std::optional<QPoint> lasciato,
                      const std::vector<QRect>& altri);

}  // namespace varena
