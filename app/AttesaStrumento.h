// The wait for a sibling tool in the desktop: the tool runs while a modal box names it and
// the window keeps painting, and a button stops the wait (and the tool).
#pragma once

#include "core/ProcessiSistema.h"

namespace varena {

class ProcessiDesktop : public ProcessiSistema {
 public:
  using ProcessiSistema::ProcessiSistema;
  std::optional<int> Attendi(std::string_view nome, const std::string& programma,
                             const std::vector<std::string>& argomenti, const std::string& cartella) override;
};

}  // namespace varena
