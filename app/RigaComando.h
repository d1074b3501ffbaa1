// The command line: what was done and asked so far, and a line where the user types a
// command tag or its Italian name (with completion), a point name to centre the view on,
// or "_N" and the other display toggles. Up and Down bring back the lines typed before.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStringList>
#include <QWidget>
#include <string_view>

namespace varena {

struct VoceComando;

// The command a typed text names: its tag in any case ("zoom_tutto"), its Italian name
// ("Zoom Tutto"), or the name with its menu as the completion shows it ("Punto Medio
// (Punto)"). Texts of one character are point names or display letters, never commands.
const VoceComando* ComandoDaTesto(const QString& testo);
// The entries of the completion: each command's name with its menu, then the tags.
QStringList VociDiCompletamento();

class RigaComando : public QWidget {
  Q_OBJECT
 public:
  explicit RigaComando(QWidget* genitore = nullptr);
  QLineEdit* Casella() const { return casella_; }
  // A line of the history: a command run, a prompt, a text typed.
  void Annota(const QString& riga);
  QString Storia() const { return storia_->toPlainText(); }
  QStringList Digitate() const { return digitate_; }
  void ImpostaDigitate(const QStringList& righe);

 signals:
  void Invio(const QString& testo);

 protected:
  bool eventFilter(QObject* o, QEvent* e) override;

 private:
  QPlainTextEdit* storia_;
  QLineEdit* casella_;
  QStringList digitate_;
  qsizetype indice_ = 0;
  QString ultima_;
};

}  // namespace varena
