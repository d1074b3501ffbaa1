// resave: a job opened, its first snapshot taken and saved back (or saved as another name)
// the way the program does it, printing the members put in place.
#include <optional>
#include <string>
#include <utility>

#include "Comandi.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"

namespace varena::cli {

namespace {

// The save dialog answers with the name given on the command line; the overwrite question
// is shown and answered Yes, since the user named the target (the old files stay as backups).
class InterfacciaResave : public InterfacciaTerminale {
 public:
  InterfacciaResave(std::ostream& err, std::optional<std::string> nome)
      : InterfacciaTerminale(err), err_(err), nome_(std::move(nome)) {}
  std::optional<std::string> ScegliFile(bool, std::string_view, std::string_view, std::string_view,
                                        std::string_view) override {
    return std::exchange(nome_, std::nullopt);
  }
  Risposta Domanda(std::string_view testo, std::string_view titolo, Bottoni, Icona, Risposta) override {
    err_ << titolo << ": " << testo << " -> Si\n";
    return Risposta::Si;
  }

 private:
  std::ostream& err_;
  std::optional<std::string> nome_;
};

int ComandoResave(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const char* uso = "uso: varena-cli resave LAVORO.CFG [--as NUOVO.CFG]\n";
  std::optional<std::string> nuovo;
  if (!a.Valore("--as").empty()) nuovo = a.Valore("--as");
  const size_t attesi = a.Ha("--as") ? 2 : 1;
  if (a.Posizionali.size() != attesi || (a.Ha("--as") && nuovo)) {
    err << uso;
    return 64;
  }
  if (a.Ha("--as")) nuovo = a.Posizionali[1];
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  Sessione s;
  InterfacciaResave ui(err, nuovo);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  const bool salvato = nuovo ? VR_SalvaConNome(s) : Salva(s);
  if (salvato) {
    for (const std::string& f : s.FileSalvati) out << f << " (" << LunghezzaFile(f) << " byte)\n";
  } else if (!ui.Errori) {
    err << "Nulla salvato: il lavoro NUOVO si salva con --as\n";
  }
  EliminaProvviso(s);
  return salvato && ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kResave("resave", "resave LAVORO.CFG [--as NUOVO.CFG]", ComandoResave);

}  // namespace

}  // namespace varena::cli
