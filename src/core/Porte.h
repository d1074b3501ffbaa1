// The ports through which the core reaches the world: what the user sees and answers,
// outside programs and the clipboard. The desktop program implements them with Qt, the
// tests and the command line with plain fakes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Dialogo;

enum class Icona { Nessuna, Informazione, Avviso, Critico, Domanda };
enum class Bottoni { Ok, OkAnnulla, SiNo, SiNoAnnulla };
enum class Risposta { Ok, Annulla, Si, No };

class Interfaccia {
 public:
  virtual ~Interfaccia() = default;
  // A message box of one text, a title and an icon.
  virtual void Messaggio(std::string_view testo, std::string_view titolo, Icona icona) = 0;
  virtual Risposta Domanda(std::string_view testo, std::string_view titolo, Bottoni bottoni,
                           Icona icona, Risposta predefinita) = 0;
  // The file open or save choice. `filtro` is in the legacy form "Nome (*.EST)|*.EST|".
  // No answer means the user cancelled.
  virtual std::optional<std::string> ScegliFile(bool salva, std::string_view titolo,
                                                std::string_view filtro, std::string_view cartella,
                                                std::string_view file) = 0;
  // A value prompt; no answer means cancel.
  virtual std::optional<std::string> Imputa(std::string_view testo, std::string_view titolo,
                                            std::string_view predefinito) = 0;
  // The status prompt under the drawing.
  virtual void Prompt(std::string_view testo) = 0;
  virtual void Progresso(int64_t fatto, int64_t totale) = 0;
  // The user asked to stop the long work whose progress is shown (a DXF import): it is
  // undone and nothing of it stays. An interface that offers no way to ask says no.
  virtual bool Interrotto() { return false; }

  // A modeless dialog of the core was opened, had a field changed by the program, or was
  // closed. The dialog stays owned by the session; an interface that shows no dialogs
  // ignores these.
  virtual void MostraDialogo(const Dialogo&) {}
  virtual void AggiornaDialogo(const Dialogo&) {}
  virtual void NascondiDialogo(const Dialogo&) {}
  // The popup menu of that name (`MENU_TESTO`, the edit menu of the right button ...), at
  // the pointer.
  virtual void MenuContestuale(std::string_view) {}
  // The families of the fonts installed; an interface that draws no text knows none.
  virtual std::vector<std::string> FontDiSistema() { return {}; }
};

// An interface that nobody watches: every question takes its default, every choice is cancelled.
class InterfacciaMuta : public Interfaccia {
 public:
  void Messaggio(std::string_view, std::string_view, Icona) override {}
  Risposta Domanda(std::string_view, std::string_view, Bottoni, Icona, Risposta p) override { return p; }
  std::optional<std::string> ScegliFile(bool, std::string_view, std::string_view, std::string_view,
                                        std::string_view) override {
    return std::nullopt;
  }
  std::optional<std::string> Imputa(std::string_view, std::string_view, std::string_view) override {
    return std::nullopt;
  }
  void Prompt(std::string_view) override {}
  void Progresso(int64_t, int64_t) override {}
};

class Processi {
 public:
  virtual ~Processi() = default;
  // Starts a program and waits for its end. No value: the program could not be found.
  virtual std::optional<int> Esegui(const std::string& programma,
                                    const std::vector<std::string>& argomenti,
                                    const std::string& cartella) = 0;
  // A tool the user waits for, by the name the user knows it by. An interface may show the
  // wait and let the user stop waiting: the answer is then `kAttesaInterrotta`, the tool
  // stopped, and nothing it wrote is to be read.
  virtual std::optional<int> Attendi(std::string_view /*nome*/, const std::string& programma,
                                     const std::vector<std::string>& argomenti, const std::string& cartella) {
    return Esegui(programma, argomenti, cartella);
  }
};

inline constexpr int kAttesaInterrotta = -1;

class Appunti {
 public:
  virtual ~Appunti() = default;
  virtual std::string Leggi() = 0;
  virtual void Scrivi(std::string_view testo) = 0;
};

// The clipboard of a process that has none of its own: it keeps what is written.
class AppuntiInterni : public Appunti {
 public:
  std::string Leggi() override { return testo_; }
  void Scrivi(std::string_view t) override { testo_ = std::string(t); }

 private:
  std::string testo_;
};

}  // namespace varena
