// The DXF reader: the ENTITIES section of an ASCII drawing cut down to the groups the
// passes read (the work file), its layers, and one pass per entity kind into the job.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

// The checks of the import dialog, by their index.
enum CheckDxf : int {
  DxfPolilinee = 0,  // POLYLINE, and LWPOLYLINE with it
  DxfLinee = 1,
  DxfPunti = 2,
  DxfTesti = 3,
  DxfCerchi = 4,
  DxfArchi = 5,
  DxfNumeraPunti = 6,
  DxfQuotaElevazione = 7,
  DxfTestiInPunto = 8,
  NumeroCheckDxf = 9
};

struct OpzioniDxfIn {
  std::array<bool, NumeroCheckDxf> Check{};
  // The layers chosen, spelt as the file spells them; none: every layer of the file.
  std::optional<std::vector<std::string>> Piani;
  // The name of the first point numbered automatically, and the step between two.
  std::string PrimoNome = "1";
  double Passo = 1;
};

// One code and value pair of the work file. `Codice` is the group code, which the copy pass
// keeps only for the codes the passes read.
struct CoppiaDxf {
  int16_t Codice;
  std::string_view Valore;  // as it stands in `FileDxfRidotto::Testo`, blanks included
};

struct FileDxfRidotto {
  FileDxfRidotto() = default;
  // The pairs point into the text: moved whole, never copied.
  FileDxfRidotto(FileDxfRidotto&&) = default;
  FileDxfRidotto& operator=(FileDxfRidotto&&) = default;
  FileDxfRidotto(const FileDxfRidotto&) = delete;
  FileDxfRidotto& operator=(const FileDxfRidotto&) = delete;

  std::string Testo;  // the work file: the pairs kept, each line ended by CR LF
  std::vector<CoppiaDxf> Coppie;
  // The section ended without "ENDSEC": the entity cut by the damage never gets the group 0
  // that would load it.
  bool Troncato = false;
};

// The copy pass. No value and `errore` set when the bytes are no ASCII drawing with an
// ENTITIES section.
std::optional<FileDxfRidotto> RiduciDxf(std::string_view byte, std::string& errore);

// The work file read back for the passes: its pairs as they stand.
FileDxfRidotto LeggiFileLavoroDxf(std::string_view byte);

// The layer pass: the distinct names behind group 8, sorted as the list box sorts them.
std::vector<std::string> PianiDxf(const FileDxfRidotto& f);

struct EsitoDxfIn {
  std::array<int64_t, NumeroCheckDxf> Righe{};  // rows added, by check (polylines: their lines)
  bool Interrotto = false;                       // cancelled: the job is as it was
};

// Called between passes and every so many pairs with the pairs done and the total (the
// passes of one import counted end to end); false asks to stop.
using AvanzamentoDxf = std::function<bool(int64_t fatto, int64_t totale)>;

// The passes of the chosen kinds, in the fixed order, appended to the job. When cancelled
// every row added is taken away again.
EsitoDxfIn CaricaEntitaDxf(Sessione& s, const FileDxfRidotto& f, const OpzioniDxfIn& o,
                           const AvanzamentoDxf& avanzamento = {});

// The checks of the dialog: from `Dadxf.ini` once (the file is then removed), else from the
// settings of section "TestoInPunto"; and back into the settings.
std::array<bool, NumeroCheckDxf> LeggiCheckDxf(Sessione& s);
void ScriviCheckDxf(Sessione& s, const std::array<bool, NumeroCheckDxf>& check);

// `temp\PROVVISO.DXF` under the program folder.
std::string PercorsoFileLavoroDxf(const Sessione& s);

// The whole import of a file without the dialog: read, cut down (the work file written),
// the passes, the layer table completed. No save: the caller makes the snapshot. False with
// the message shown when nothing could be read; the job is then untouched.
bool ImportaDxf(Sessione& s, const std::string& percorso, const OpzioniDxfIn& o, EsitoDxfIn* esito = nullptr,
                const AvanzamentoDxf& avanzamento = {});

// After an import: the layers the new rows name join the job's layer table, and their names
// go to `PIANI.INI` of the program folder.
void RicostruisciPianiDxf(Sessione& s);

}  // namespace varena
