// The point file imports as commands and as batch work: one row a format (its routine tag,
// file filter, layer), the points handed to the job through one adapter.
#pragma once

#include <optional>
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

// The column orders of the text tables the user keeps, `DAT1` to `DAT7`, and the one picked
// last (`CARICA_TIPO_FILE`, its number), in the per-user store: a value that is not an order
// of columns, or no number of a list, reads as its default.
inline constexpr int kListeColonne = 7;
std::string ListaColonne(Sessione& s, int n);
// 0 when none was picked yet.
int UltimaListaColonne(Sessione& s);
// An order as the user types it ("n y x z d", "-NYXZD") in its stored form, or nothing when a
// letter is not a column, a column comes twice, or East or North is missing.
std::optional<std::string> ColonneValide(std::string_view testo);
// What a choice of the dialog or of the command line names: "DAT3" the stored list, "DAT3
// NDXYZ" that list as the user changed it, any other text an order as typed. `Lista` is
// the number of the list named, 0 for an order typed; nothing when the text is no order.
struct SceltaColonne {
  std::string Colonne;
  int Lista = 0;
};
std::optional<SceltaColonne> LeggiSceltaColonne(Sessione& s, std::string_view testo);

// The commands: the file asked with the format's filter, read with a progress bar that can
// stop it, then the zoom to everything and the save.
void CaricaPuntiRil(Sessione& s);
void CaricaPuntiSHO(Sessione& s);
void CaricaPuntiGSI(Sessione& s);
void CaricaPuntiASC(Sessione& s);
void ImportaNuvola(Sessione& s);
// The points of an older job's `.L`.
void CaricaVR4(Sessione& s);
// The text tables: CSV, the xyz of Pregeo, a generic text, read with the column order and
// prefix of the dialog "CaricaTXT", which offers the stored lists and remembers the choice;
// the lines of a `.DXF` at once.
void CaricaPuntiCXF(Sessione& s);
// A file of a kind named on the command line (GSI, CSV) read into a new job.
bool ImportaPuntiAvvio(Sessione& s, FormatoPunti f, const std::string& percorso);

}  // namespace varena
