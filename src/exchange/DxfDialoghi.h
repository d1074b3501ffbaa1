// The dialogs of the DXF import and export: the file asked for, the choices, the work.
#pragma once

#include <string>
#include <vector>

namespace varena {

struct OpzioniDxfOut;
struct Sessione;

// `CaricaDXF`: the file, then the dialog "Importa Da DXF " with its layers.
void CaricaDXF(Sessione& s);
// The export dialog "Esporta DXF", with the options last used.
bool ApriEsportaDxf(Sessione& s);
// The path the export offers: beside the job (for the default job, the job named first in
// `Lavoro/default` under the working root), in the default folder, or the last one written.
std::string PercorsoProposto(const Sessione& s, const OpzioniDxfOut& o);
// The fonts the export offers: those of `elencofont.ini` in the program folder, one a line;
// when that file is missing, the system's fonts, kept there for the next time.
std::vector<std::string> ElencoFont(Sessione& s);
// "Testo in Punto Automatico", after an import that asked for it.
bool ApriConvertiAutomatico(Sessione& s);

}  // namespace varena
