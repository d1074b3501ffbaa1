// The settings dialog of the environment, `FormConfiguraTutto`: each value shown as it stands,
// written to `Configura.ini` when confirmed.
#pragma once

namespace varena {

struct Sessione;

bool ApriFormConfiguraTutto(Sessione& s);

inline constexpr const char* kDialogoConfigura = "FormConfiguraTutto";

}  // namespace varena
