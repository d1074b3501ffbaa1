// The main window: the drawing surface, the menus and toolbars, the prompt, the command text
// box and the read-out. Every action is a call on the core.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <memory>

#include "InterfacciaQt.h"
#include "Tela.h"

namespace varena {

struct Sessione;

class FinestraPrincipale : public QMainWindow {
  Q_OBJECT
 public:
  explicit FinestraPrincipale(Sessione& s);
  ~FinestraPrincipale() override;

  Tela* Disegno() { return tela_; }
  QLabel* EtichettaPrompt() { return prompt_; }
  // The title shows the job as the user knows it.
  void MostraNomeDelFile();

 protected:
  void closeEvent(QCloseEvent* e) override;

 private:
  void CreaMenu();
  void AggiornaLettura(double est, double nord);
  void TestoComando();
  // The job commands: each asks first whether to save the job in hand, then calls the core.
  bool ChiudiPrimaDi();
  void DopoCambioLavoro();
  void ApriLavoro();
  void RiapriLavoro();
  void LavoriAperti();
  void NuovoLavoro();
  void IncludiDisegno();

  Sessione& s_;
  Tela* tela_;
  QLabel* prompt_;
  QLineEdit* comando_;
  QLabel* nord_;
  QLabel* est_;
  QLabel* altezza_;
  std::unique_ptr<InterfacciaQt> ui_;
};

}  // namespace varena
