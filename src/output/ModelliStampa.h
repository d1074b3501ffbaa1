// Report printing: the models kept as rich text in the folder "MODELLI_STAMPA" of the working
// root, one of them copied into "TEMP.rtf" and edited there, and written back into its model
// when the user says so at the close of the editor.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "output/TestoRicco.h"

namespace varena {

struct Sessione;

std::string CartellaModelli(const Sessione& s);
std::string PercorsoTempRtf(const Sessione& s);

// `VR_StampaGeneral`: the file names of the models (".rtf" of any case), in order.
std::vector<std::string> VR_StampaGeneral(const Sessione& s);

// `VR_StampaGenerale`: the model `nome` copied into "TEMP.rtf" and read from there. No value,
// with a message and nothing written, when it is absent or is not rich text.
std::optional<TestoRicco> VR_StampaGenerale(Sessione& s, const std::string& nome);

// The close of the editor. A modified text asks "Salvare Stampa modificata?": Yes writes it to
// "TEMP.rtf" and from there into the model, No leaves both as they were, Cancel keeps the
// editor open. False when the editor stays open: Cancel, or a write that failed (said by the
// common error path, the model untouched).
bool ChiudiEditorStampe(Sessione& s, const std::string& nome, const TestoRicco& t, bool modificato);

}  // namespace varena
