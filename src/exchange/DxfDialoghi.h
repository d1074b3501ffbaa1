// The dialogs of the DXF import and export: the file asked for, the choices, the work.
#pragma once

namespace varena {

struct Sessione;

// `CaricaDXF`: the file, then the dialog "Importa Da DXF " with its layers.
void CaricaDXF(Sessione& s);
// The export dialog "Esporta DXF", with the options last used.
bool ApriEsportaDxf(Sessione& s);
// "Testo in Punto Automatico", after an import that asked for it.
bool ApriConvertiAutomatico(Sessione& s);

}  // namespace varena
