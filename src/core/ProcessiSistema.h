// The `Processi` port on the operating system: a program started in a folder and waited for.
// Companion programs are looked for beside the running executable first, then on the PATH.
#pragma once

#include "core/Porte.h"

namespace varena {

class ProcessiSistema : public Processi {
 public:
  // The clipboard whose text the started program receives as its one option, in
  // $VARENA_APPUNTI: a companion has no way to the desktop's clipboard of its own.
  explicit ProcessiSistema(Appunti* appunti = nullptr) : appunti_(appunti) {}
  std::optional<int> Esegui(const std::string& programma, const std::vector<std::string>& argomenti,
                            const std::string& cartella) override;

 private:
  Appunti* appunti_;
};

// Where `programma` would be started from; none when it is not there.
std::optional<std::string> TrovaProgramma(const std::string& programma);

}  // namespace varena
