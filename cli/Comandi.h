// The commands of varena-cli, callable from the tests with their own streams. Each command
// lives in its own file and registers itself here with a static `RegistraComando`.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace varena::cli {

struct Argomenti {
  std::vector<std::string> Posizionali;  // after the command's name
  std::vector<std::string> Opzioni;      // the words that begin with "--", values joined as "--name=value"
  bool Ha(const std::string& opzione) const;
  // The value of "--name value" or "--name=value", or `predefinito`.
  std::string Valore(const std::string& opzione, const std::string& predefinito = "") const;
};

// Exit status of a command: 0 done, 1 the input could not be read at all, 2 done but with
// errors shown, 64 wrong usage.
using FunzioneComando = std::function<int(const Argomenti&, std::ostream& out, std::ostream& err)>;

struct RegistraComando {
  // `conValore`: the options that take the word after them as their value.
  RegistraComando(const char* nome, const char* uso, FunzioneComando f, std::vector<std::string> conValore = {});
};

int Esegui(const std::vector<std::string>& argomenti, std::ostream& out, std::ostream& err);

}  // namespace varena::cli
