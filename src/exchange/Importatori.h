// The outside formats a job can be started from or can include: recognised by extension,
// each read by its own importer.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

enum class TipoImportazione { TAF, CXF, DAT, GSI, CSV };

// "TAF", "CXF", "DAT", "GSI", "CSV" in any case; anything else is not an import.
std::optional<TipoImportazione> TipoDaEstensione(std::string_view estensione);
const char* NomeTipo(TipoImportazione tipo);

// Reads `percorso` into the current job with the importer of its kind, then the snapshot and
// a zoom on everything. A file that cannot be read is reported and the job stays as it was;
// false then.
bool ImportaFile(Sessione& s, TipoImportazione tipo, const std::string& percorso);

// The import commands of the File menu: the file chosen, read into the job, the snapshot
// and a zoom on everything. `carica CXF` and `CaricaPuntiTaf`.
void AzioneCaricaCxf(Sessione& s);
void AzioneCaricaTaf(Sessione& s);

}  // namespace varena
