// The main window: the drawing surface, the menus and toolbars built from the command table,
// the prompt, the command text box, the read-outs, the snap lamps and the colour bar. Every
// action is a tag or a call on the core; after each the window shows what the core left.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMap>
#include <QToolBar>
#include <QToolButton>
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
  QLineEdit* CasellaComando() { return comando_; }
  InterfacciaQt* Interfaccia() { return ui_.get(); }
  // The title shows the job as the user knows it.
  void MostraNomeDelFile();
  // A tag from a menu, a toolbar or the colour bar: the windows of the job commands are the
  // desktop's own, every other tag goes to the core.
  void EseguiTag(const QString& tag);
  // After every event: the surface, the prompt, the read-outs, the lamps.
  void Aggiorna();
  // The key table of the program, as the core reads it; false when the key was not used.
  bool Tasto(QKeyEvent* e);
  // The end of a run that asked nothing of the user (a screenshot): the provisional copy
  // goes, no question is asked.
  void EsciSenzaDomande();
  // The toolbars and the colour bar, from the settings and tables read at start.
  void PreparaBarre();
  // Runs a script of actions (the language of `varena-cli script`) on the job in the window:
  // what it is shown is printed, its questions take its own answers, and the window then
  // shows where it left the job. False, with the line on the error stream, when it stopped.
  bool EseguiScript(const QString& percorso);

 protected:
  void closeEvent(QCloseEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;

 private:
  void CreaMenu();
  void CreaToolbar();
  void CreaBarraColori();
  void CreaSpie();
  void MenuContestuale(std::string_view nome);
  bool AttivoTag(const std::string& tag) const;
  bool ChiudiPrimaDi();
  void DopoCambioLavoro();
  void ApriLavoro();
  void RiapriLavoro();
  void LavoriAperti();
  void IncludiDisegno();
  void AssegnaBottone(QToolButton* b);
  bool senzaDomande_ = false;

  Sessione& s_;
  Tela* tela_;
  QLabel* prompt_;
  QLineEdit* comando_;
  QLabel* lettura_;
  QLabel* segmento_;
  QLabel* etichettaSnap_;
  QMap<int, QToolButton*> spie_;
  QMap<QString, QMenu*> menu_;
  std::unique_ptr<InterfacciaQt> ui_;
};

}  // namespace varena
