// Dispatch of the command line to the registered commands.
#include "Comandi.h"

#include <algorithm>
#include <map>

namespace varena::cli {

namespace {

struct Voce {
  std::string uso;
  FunzioneComando f;
  std::vector<std::string> conValore;
};

std::map<std::string, Voce>& Registro() {
  static std::map<std::string, Voce> registro;
  return registro;
}

void Uso(std::ostream& err) {
  err << "uso:\n";
  for (const auto& [nome, voce] : Registro()) err << "  varena-cli " << voce.uso << "\n";
}

}  // namespace

bool Argomenti::Ha(const std::string& opzione) const {
  for (const std::string& o : Opzioni)
    if (o == opzione) return true;
  return false;
}

std::string Argomenti::Valore(const std::string& opzione, const std::string& predefinito) const {
  for (const std::string& o : Opzioni)
    if (o.rfind(opzione + "=", 0) == 0) return o.substr(opzione.size() + 1);
  return predefinito;
}

RegistraComando::RegistraComando(const char* nome, const char* uso, FunzioneComando f,
                                 std::vector<std::string> conValore) {
  Registro()[nome] = {uso, std::move(f), std::move(conValore)};
}

int Esegui(const std::vector<std::string>& argomenti, std::ostream& out, std::ostream& err) {
  if (argomenti.empty() || !Registro().count(argomenti[0])) {
    Uso(err);
    return 64;
  }
  const Voce& voce = Registro()[argomenti[0]];
  Argomenti a;
  for (size_t i = 1; i < argomenti.size(); ++i) {
    const std::string& w = argomenti[i];
    if (w.rfind("--", 0) != 0) {
      a.Posizionali.push_back(w);
      continue;
    }
    const bool vuoleValore = std::find(voce.conValore.begin(), voce.conValore.end(), w) != voce.conValore.end();
    if (vuoleValore && i + 1 < argomenti.size())
      a.Opzioni.push_back(w + "=" + argomenti[++i]);
    else
      a.Opzioni.push_back(w);
  }
  return voce.f(a, out, err);
}

}  // namespace varena::cli
