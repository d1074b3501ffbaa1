// The main window: the drawing surface, the menus and toolbars built from the command table,
// the prompt, the command line and the layer panel, the read-outs, the snap lamps and the
// colour bar. Every action is a tag or a call on the core; after each the window shows what
// the core left.
#pragma once

#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMap>
#include <QProgressBar>
#include <QToolBar>
#include <QToolButton>
#include <memory>

#include "Disposizione.h"
#include "InterfacciaQt.h"
#include "Tela.h"
#include "Tema.h"
#include "core/ProcessiSistema.h"

namespace varena {

struct Sessione;
struct VoceComando;
class PannelloPiani;
class PannelloPunti;
class RigaComando;

// What a menu entry, a toolbar button and a command line show of a command: its Italian
// name with the key that does the same ("Annulla (F9)"), and, for the status bar, the menu
// it stands in too.
QString SuggerimentoComando(const VoceComando& v);
QString SuggerimentoDiStato(const VoceComando& v);

class FinestraPrincipale : public QMainWindow {
  Q_OBJECT
 public:
  explicit FinestraPrincipale(Sessione& s);
  ~FinestraPrincipale() override;

  Tela* Disegno() { return tela_; }
  QLineEdit* CasellaComando();
  InterfacciaQt* Interfaccia() { return ui_.get(); }
  RigaComando* Riga() { return riga_; }
  PannelloPiani* Piani() { return piani_; }
  QDockWidget* DockPiani() { return dockPiani_; }
  QDockWidget* DockComando() { return dockComando_; }
  PannelloPunti* Punti() { return punti_; }
  QDockWidget* DockPunti() { return dockPunti_; }
  // The point list: the dock shown, filled with every live point.
  void MostraElencoPunti();
  Disposizione& Memoria() { return memoria_; }
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
  // The toolbars, the colour bar and the layout kept from the last session, from the
  // settings and tables read at start.
  void PreparaBarre();
  // Runs a script of actions (the language of `varena-cli script`) on the job in the window:
  // what it is shown is printed, its questions take its own answers, and the window then
  // shows where it left the job. False, with the line on the error stream, when it stopped.
  bool EseguiScript(const QString& percorso);
  // The prompt when no command waits: the job and what it holds.
  QString TestoRiposo() const { return riposo_; }
  // The look of the window; `ricorda` keeps it for the next session.
  void ImpostaTema(Tema t, bool ricorda);
  // Icons with their names under them, or icons alone.
  void TestoSottoIcone(bool si);

 protected:
  void closeEvent(QCloseEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  void changeEvent(QEvent* e) override;

 private:
  void CreaMenu();
  void CreaMenuFinestra();
  void CreaToolbar();
  void DisponiToolbar(const std::vector<QToolBar*>& barre);
  std::vector<QToolBar*> BarreDeiComandi() const;
  void CreaBarraColori();
  void CreaSpie();
  void CreaDock();
  void PreparaBottone(QToolButton* b, QToolBar* barra, const QString& tag);
  void MenuContestuale(std::string_view nome);
  bool AttivoTag(const std::string& tag) const;
  bool ChiudiPrimaDi();
  void DopoCambioLavoro();
  void ApriLavoro();
  void RiapriLavoro();
  void ApriAltroLavoro();
  void LavoriAperti();
  // The field book's rows, in a window of their own.
  void MostraLibretto();
  void IncludiDisegno();
  void TogliDisegnoIncluso();
  void AssegnaBottone(QToolButton* b);
  void InvioRiga(const QString& testo);
  void AggiornaRiposo();
  QRect RettangoloSelezione() const;
  QRect RettangoloDisegno() const;
  bool senzaDomande_ = false;
  // The toolbars stand where the user left them in an earlier session: the window does not
  // lay them out again when its width changes.
  bool barreDellUtente_ = false;
  int larghezzaDisposta_ = 0;

  Sessione& s_;
  Tela* tela_;
  QLabel* prompt_;
  RigaComando* riga_;
  PannelloPiani* piani_;
  PannelloPunti* punti_;
  QDockWidget* dockPunti_;
  QDockWidget* dockComando_;
  QDockWidget* dockPiani_;
  QLabel* lettura_;
  QLabel* segmento_;
  QLabel* etichettaSnap_;
  QLabel* tempo_;
  QProgressBar* progresso_;
  QAction* testoSottoIcone_ = nullptr;
  QAction* temaScuro_ = nullptr;
  QMap<int, QToolButton*> spie_;
  QMap<QString, QMenu*> menu_;
  Disposizione memoria_;
  QString riposo_;
  uint64_t modificheViste_ = ~uint64_t{0};
  std::string lavoroVisto_, pianoVisto_;
  std::unique_ptr<InterfacciaQt> ui_;
  std::unique_ptr<ProcessiSistema> processi_;
};

}  // namespace varena
