// The point file imports as commands and as batch work: one row a format (its routine tag,
// file filter, layer), the points handed to the job through one adapter.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "exchange/PuntiFile.h"

namespace varena {

struct Sessione;

enum class FormatoPunti { Ril, Sho, Gsi, Asc, Nuvola, Csv, Xyz, Txt, LineeDxf, Vr4 };

struct DescrizioneFormatoPunti {
  FormatoPunti Formato;
  const char* Parola;   // the name of the command line, "ril"
  const char* Routine;  // the routine tag of the error report
  const char* Filtro;
  const char* Piano;  // the layer of the points; empty: the current one
  const char* Colonne;  // text tables: the columns unless the user chose others
};

std::span<const DescrizioneFormatoPunti> FormatiPunti();
const DescrizioneFormatoPunti* TrovaFormatoPunti(std::string_view parola);
const DescrizioneFormatoPunti& FormatoDi(FormatoPunti f);

// The file read into the job: points, field-book rows, the layers they name. No save and no
// zoom: the caller does them. A file that cannot be read, or yields no point, is said in a
// message and leaves the job as it was; so does a cancel. Damaged lines are named in a
// message, the others come in. True when points came in.
bool ImportaPunti(Sessione& s, FormatoPunti f, const std::string& percorso, const OpzioniTesto& o,
                  EsitoLettura* esito = nullptr, const AvanzamentoLettura& avanzamento = {});

// The commands: the file asked with the format's filter, read with a progress bar that can
// stop it, then the zoom to everything and the save.
void CaricaPuntiRil(Sessione& s);
void CaricaPuntiSHO(Sessione& s);
void CaricaPuntiGSI(Sessione& s);
void CaricaPuntiASC(Sessione& s);
void ImportaNuvola(Sessione& s);
// The points of an older job's `.L`.
void CaricaVR4(Sessione& s);
// The text tables: CSV, the xyz of Pregeo, a generic text, by the file's extension; the lines
// of a `.DXF`.
void CaricaPuntiCXF(Sessione& s);
// A file of a kind named on the command line (GSI, CSV) read into a new job.
bool ImportaPuntiAvvio(Sessione& s, FormatoPunti f, const std::string& percorso);

}  // namespace varena
