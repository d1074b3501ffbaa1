// The dialogs the commands open by name: the opening dialogs of the command table, the
// dialogs of the tags that act at once, those of the right button. Each Part adds the
// builder of its own dialogs here; a name without a builder opens nothing.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

struct SchedaDialogo {
  std::string_view Nome;
  // Opens the dialog; false when the user cancelled it at once (a modal choice), which
  // ends the arming of the command.
  bool (*Apri)(Sessione&);
};

std::span<const SchedaDialogo> TabellaDialoghi();

// Opens the dialog of that name through its builder. True when it opened, or when there is
// no builder for it; false only when it was cancelled.
bool ApriDialogoDiTabella(Sessione& s, std::string_view nome);
bool DialogoDisponibile(std::string_view nome);

// The name the next point is offered: the one after the last live point's, "1" on an
// empty job.
std::string PrimoNomeProposto(const Sessione& s);

// Builders of the dialogs of this folder.
bool ApriNuovoPunto(Sessione& s);
bool ApriZoomScala(Sessione& s);

}  // namespace varena
