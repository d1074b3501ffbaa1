// The script language: the input is a script run on the example job, as `varena-cli script`
// runs one, saves included.
#include <sstream>

#include "Bersagli.h"
#include "commands/Script.h"
#include "core/Sessione.h"

namespace varena::fuzz {

namespace {

// Every file a script would choose, for a save as or a picture, is one of the root: a path
// typed in the script never reaches the disk.
class InterfacciaFuzz : public InterfacciaScript {
 public:
  InterfacciaFuzz(std::ostream& out, std::string file) : InterfacciaScript(out), file_(std::move(file)) {}
  std::optional<std::string> ScegliFile(bool salva, std::string_view titolo, std::string_view filtro,
                                        std::string_view cartella, std::string_view file) override {
    (void)InterfacciaScript::ScegliFile(salva, titolo, filtro, cartella, file);
    return file_;
  }

 private:
  std::string file_;
};

}  // namespace

void FuzzScript(const Ambiente& a, std::string_view byte) {
  FlussoNullo out;
  InterfacciaFuzz ui(out, a.Lavori() + "/SCELTO.CFG");
  Sessione s;
  ApriEsempio(a, s, &ui);
  std::istringstream script{std::string(byte)};
  (void)EseguiScript(s, ui, script, out);
}

}  // namespace varena::fuzz
