// A core dialog shown on screen: its caption, a labelled line per field and a row of
// buttons. What the user types goes to the core as typed; a button press runs the core's
// action; the core's own changes come back through `Aggiorna`.
#pragma once

#include <QDialog>
#include <QMap>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

namespace varena {

struct Sessione;
struct Dialogo;
struct CampoDialogo;
class WidgetGrafica;

class DialogoQt : public QDialog {
  Q_OBJECT
 public:
  // `dopo` runs after each press, so the main window shows what the action changed.
  DialogoQt(Sessione& s, const Dialogo& d, std::function<void()> dopo, QWidget* genitore);
  void Aggiorna(const Dialogo& d);
  const QString& Nome() const { return nome_; }
  // For a test: the widget of a field.
  QWidget* Campo(const QString& campo) const { return campi_.value(campo); }
  // The program puts the dialog at `p` (its frame's corner); a move of the user's after
  // that is what the next session brings back.
  void Colloca(QPoint p);
  bool SpostatoDallUtente() const { return spostato_; }

 protected:
  void reject() override;  // Esc presses the dialog's own Esc button, if it has one
  void moveEvent(QMoveEvent* e) override;

 private:
  QWidget* CreaCampo(const CampoDialogo& c, const std::string& campoPrima);
  void DisponiCampi(const Dialogo& d, QVBoxLayout* colonna);
  void DisponiBottoni(const Dialogo& d, QVBoxLayout* colonna);
  static void MostraTesto(QWidget* w, const QString& testo);

  Sessione& s_;
  QString nome_;
  WidgetGrafica* anteprima_ = nullptr;  // the preview of the dialogs that have one
  QString bottoneEsc_;
  QMap<QString, QWidget*> campi_;
  QMap<QString, QPushButton*> bottoni_;
  QString primoBottone_;
  std::function<void()> dopo_;
  bool collocando_ = false;
  bool spostato_ = false;
};

}  // namespace varena
