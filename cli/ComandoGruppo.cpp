// gruppo: the library of groups from the command line. `salva` writes what a window of a job
// takes as a group, based at the window's first corner; `incolla` pastes a group into a job
// at a point and saves the job.
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "Comandi.h"
#include "Terminale.h"
#include "commands/Gruppi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "selection/Selezione.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "view/Rigenera.h"

namespace varena::cli {

namespace {

constexpr const char* kUso =
    "gruppo salva LAVORO.CFG NOME --finestra X1,Y1,X2,Y2 | gruppo incolla LAVORO.CFG NOME X,Y";

// "X,Y,..." as exactly `quanti` numbers, or nothing.
std::optional<std::vector<double>> Numeri(const std::string& testo, size_t quanti) {
  std::vector<double> v;
  for (const std::string& parte : Dividi(testo, ',')) {
    const std::string t = Rifila(parte);
    char* fine = nullptr;
    const double x = std::strtod(t.c_str(), &fine);
    if (t.empty() || *fine != 0 || !std::isfinite(x)) return std::nullopt;
    v.push_back(x);
  }
  if (v.size() != quanti) return std::nullopt;
  return v;
}

int Salva(const std::string& lavoro, const std::string& nome, const std::vector<double>& f, std::ostream& out,
          std::ostream& err) {
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, lavoro, err)) return 1;
  // A section is taken by the frame its drawing fills: the drawing measures it.
  RigeneraLista(s);
  const int64_t n = SelezionaFinestra(s, f[0], f[1], f[2], f[3]);
  if (!ScriviGruppo(s, nome, {f[0], f[1], 0})) return 2;
  out << PercorsoGruppo(s, nome) << ": " << n << " entita\n";
  return ui.Errori == 0 ? 0 : 2;
}

int Incolla(const std::string& lavoro, const std::string& nome, const std::vector<double>& p, std::ostream& out,
            std::ostream& err) {
  const auto base = TrovaLavoro(lavoro, err);
  if (!base) return 1;
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!ApriInCopia(s, *base)) return 2;
  const int64_t n = IncollaGruppo(s, nome, p[0], p[1]);
  const bool salvato = n >= 0 && varena::Salva(s);
  EliminaProvviso(s);
  if (n < 0) return 1;
  out << n << " entita incollate\n";
  return salvato && ui.Errori == 0 ? 0 : 2;
}

int ComandoGruppo(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const auto& p = a.Posizionali;
  if (p.size() == 3 && p[0] == "salva")
    if (const auto f = Numeri(a.Valore("--finestra"), 4)) return Salva(p[1], p[2], *f, out, err);
  if (p.size() == 4 && p[0] == "incolla")
    if (const auto c = Numeri(p[3], 2)) return Incolla(p[1], p[2], *c, out, err);
  err << "uso: varena-cli " << kUso << "\n";
  return 64;
}

const RegistraComando kGruppo("gruppo", kUso, ComandoGruppo, {"--finestra"});

}  // namespace

}  // namespace varena::cli
