// An interface that a script or a test drives: answers are queued in advance and every
// message shown is kept, in order, to be read back.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "core/Dialoghi.h"
#include "core/Porte.h"

namespace varena {

class InterfacciaRegistrata : public Interfaccia {
 public:
  struct Mostrato {
    std::string Testo, Titolo;
    Icona Tipo;
  };

  // Queues the answer to the next question, file choice or value prompt. An empty queue
  // answers with the default, cancels a choice and a prompt.
  void Rispondi(Risposta r) { risposte_.push_back(r); }
  void RispondiFile(std::string percorso) { file_.push_back(std::move(percorso)); }
  void RispondiValore(std::string valore) { valori_.push_back(std::move(valore)); }

  void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) override {
    Messaggi.push_back({std::string(testo), std::string(titolo), icona});
  }
  Risposta Domanda(std::string_view testo, std::string_view titolo, Bottoni, Icona icona,
                   Risposta predefinita) override {
    Domande.push_back({std::string(testo), std::string(titolo), icona});
    if (risposte_.empty()) return predefinita;
    const Risposta r = risposte_.front();
    risposte_.pop_front();
    return r;
  }
  std::optional<std::string> ScegliFile(bool, std::string_view titolo, std::string_view filtro, std::string_view,
                                        std::string_view proposto) override {
    SceltePresentate.push_back(std::string(titolo) + "|" + std::string(filtro));
    NomiProposti.emplace_back(proposto);
    if (file_.empty()) return std::nullopt;
    std::string f = file_.front();
    file_.pop_front();
    return f;
  }
  std::optional<std::string> Imputa(std::string_view testo, std::string_view, std::string_view) override {
    Richieste.push_back(std::string(testo));
    if (valori_.empty()) return std::nullopt;
    std::string v = valori_.front();
    valori_.pop_front();
    return v;
  }
  void Prompt(std::string_view testo) override { Prompts.push_back(std::string(testo)); }
  void Progresso(int64_t fatto, int64_t totale) override { Avanzamento.emplace_back(fatto, totale); }
  void MostraDialogo(const Dialogo& d) override { Dialoghi.push_back("+" + d.Nome); }
  void NascondiDialogo(const Dialogo& d) override { Dialoghi.push_back("-" + d.Nome); }
  void MenuContestuale(std::string_view nome) override { Menu.push_back(std::string(nome)); }
  std::vector<std::string> FontDiSistema() override { return Font; }

  std::vector<Mostrato> Messaggi;
  std::vector<Mostrato> Domande;
  std::vector<std::string> SceltePresentate;
  std::vector<std::string> NomiProposti;  // the file name each choice offered
  std::vector<std::string> Richieste;
  std::vector<std::string> Prompts;
  // "+Nome" when a dialog opens, "-Nome" when it closes, in order.
  std::vector<std::string> Dialoghi;
  std::vector<std::string> Menu;
  // What the system's font list is made to hold.
  std::vector<std::string> Font;
  // Each report of progress: done, and out of how many.
  std::vector<std::pair<int64_t, int64_t>> Avanzamento;

 private:
  std::deque<Risposta> risposte_;
  std::deque<std::string> file_;
  std::deque<std::string> valori_;
};

}  // namespace varena
