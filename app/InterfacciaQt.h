// What the user sees and answers, on Qt: message boxes, questions, file choices, value
// prompts, the status prompt and the progress of long work.
#pragma once

#include <QLabel>
#include <QPointer>
#include <QProgressDialog>
#include <QWidget>

#include "core/Porte.h"

namespace varena {

class InterfacciaQt : public Interfaccia {
 public:
  InterfacciaQt(QWidget* finestra, QLabel* prompt) : finestra_(finestra), prompt_(prompt) {}

  void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) override;
  Risposta Domanda(std::string_view testo, std::string_view titolo, Bottoni bottoni, Icona icona,
                   Risposta predefinita) override;
  std::optional<std::string> ScegliFile(bool salva, std::string_view titolo, std::string_view filtro,
                                        std::string_view cartella, std::string_view file) override;
  std::optional<std::string> Imputa(std::string_view testo, std::string_view titolo,
                                    std::string_view predefinito) override;
  void Prompt(std::string_view testo) override;
  void Progresso(int64_t fatto, int64_t totale) override;

 private:
  QPointer<QWidget> finestra_;
  QPointer<QLabel> prompt_;
  QPointer<QProgressDialog> progresso_;
};

// "Nome (*.EST)|*.EST|Altro (*.X)|*.X|" as a Qt file dialog filter.
QString FiltroQt(std::string_view filtro);

}  // namespace varena
