// What the user sees and answers, on Qt: message boxes, questions, file choices, value
// prompts, the status prompt and the progress of long work.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QMap>
#include <QPointer>
#include <QProgressBar>
#include <QRect>
#include <QToolButton>
#include <QWidget>
#include <functional>

#include "core/Porte.h"

namespace varena {

struct Sessione;
class DialogoQt;
class Disposizione;

// What the window tells the interface about where dialogs may stand: the drawing's
// rectangle on the screen, the rectangle of what the command has picked (the selection, the
// points clicked), and where the dialogs were left before.
struct AgganciDialoghi {
  std::function<QRect()> Disegno;
  std::function<QRect()> Selezione;
  Disposizione* Memoria = nullptr;
};

class InterfacciaQt : public Interfaccia {
 public:
  // `aggiorna` runs after a dialog's button has done its work; `menu` shows a popup menu.
  InterfacciaQt(Sessione& s, QWidget* finestra, QLabel* prompt, std::function<void()> aggiorna,
                std::function<void(std::string_view)> menu)
      : s_(s), finestra_(finestra), prompt_(prompt), aggiorna_(std::move(aggiorna)), menu_(std::move(menu)) {}
  ~InterfacciaQt() override;

  void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) override;
  Risposta Domanda(std::string_view testo, std::string_view titolo, Bottoni bottoni, Icona icona,
                   Risposta predefinita) override;
  std::optional<std::string> ScegliFile(bool salva, std::string_view titolo, std::string_view filtro,
                                        std::string_view cartella, std::string_view file) override;
  std::optional<std::string> Imputa(std::string_view testo, std::string_view titolo,
                                    std::string_view predefinito) override;
  void Prompt(std::string_view testo) override;
  void Progresso(int64_t fatto, int64_t totale) override;
  // Asking is what makes work stoppable: from then on the bar has a button "Interrompi"
  // beside it, and that button or Esc stops the work.
  bool Interrotto() override;
  void MostraDialogo(const Dialogo& d) override;
  void AggiornaDialogo(const Dialogo& d) override;
  void NascondiDialogo(const Dialogo& d) override;
  void MenuContestuale(std::string_view nome) override;
  std::vector<std::string> FontDiSistema() override;

  // The dialog of that name on screen, or null (for tests).
  DialogoQt* DialogoAperto(const QString& nome) const { return dialoghi_.value(nome); }

  void ImpostaAgganci(AgganciDialoghi a) { agganci_ = std::move(a); }
  // The bar in the status bar that shows the progress of long work; it appears once the work
  // has gone on for `ritardoMs`, so that quick work shows nothing.
  void ImpostaBarra(QProgressBar* barra, int ritardoMs = 400);
  // True while long work lets the window repaint: whatever would run the core again (a
  // timer's redraw) waits for its end.
  static bool AlLavoro() { return alLavoro_ > 0; }
  // Once the core is back from its work, a bar that its end did not close (the work failed
  // half way) goes.
  void FineAvanzamento() { Progresso(0, 0); }

 private:
  void Colloca(DialogoQt* d);
  void RicordaPosizione(DialogoQt* d);

  Sessione& s_;
  QPointer<QWidget> finestra_;
  QPointer<QLabel> prompt_;
  QPointer<QProgressBar> barra_;
  QPointer<QToolButton> ferma_;
  bool fermabile_ = false, interrotto_ = false;
  int ritardoMs_ = 400;
  QElapsedTimer inizio_, ultimaPittura_;
  static inline int alLavoro_ = 0;
  AgganciDialoghi agganci_;
  std::function<void()> aggiorna_;
  std::function<void(std::string_view)> menu_;
  QMap<QString, DialogoQt*> dialoghi_;
};

// "Nome (*.EST)|*.EST|Altro (*.X)|*.X|" as a Qt file dialog filter.
QString FiltroQt(std::string_view filtro);

}  // namespace varena
