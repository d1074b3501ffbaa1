// The small text exports of points and drawing: the menu's (XYZ, CSV, RAW, the whole-drawing
// CSV, the CAD script) from the tables, and the point list's (PUN, Leica GSI, GSI for the
// TCR705, RIL) from the rows the list shows, in its order. Each writer makes the whole text
// in memory (UTF-8, CR LF); one routine writes it through the code page and says so.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

enum class FormatoEsportazione { Xyz, Csv, Raw, Pun, Gsi, GsiTcr705, Ril, Scr, CsvDisegno };

// The decimals of the exported coordinates (0 keeps three), and the choices of the point
// list's PUN dialog: the grid columns written (1 "Nome" to 7 "PIANO"), the separator by its
// name ("VIRGOLA", "SPAZIO", "TAB", "COLONNE", "PREGEO", "ACCAPO", "ESCAPE"), "8|" before
// each row, the separator once more after it.
struct OpzioniEsportazione {
  int Decimali = 0;
  std::vector<int> Colonne = {1, 2, 3, 4, 5};
  std::string Separatore = "VIRGOLA";
  bool Anteponi = false;
  bool SepFinale = false;
};

// The PUN dialog's choices as it last closed, kept in the per-user store: `GRID1` to
// `GRID7` the columns, `SEPARATORE`, `ANTEPONI`, `SEPFINALE`.
OpzioniEsportazione OpzioniPunSalvate(Sessione& s);
void SalvaOpzioniPun(Sessione& s, const OpzioniEsportazione& o);

struct DescrizioneEsportazione {
  FormatoEsportazione Formato;
  const char* Parola;      // the name of the command line, "xyz"
  const char* Titolo;      // the title of the closing box and the routine tag
  const char* Filtro;
  const char* Estensione;  // of the proposed name, after the job's base
  // The point list's formats work from its rows; the others from the tables.
  bool DaElenco;
};

std::span<const DescrizioneEsportazione> FormatiEsportazione();
const DescrizioneEsportazione* TrovaFormatoEsportazione(std::string_view parola);

// "#############0" and the decimals of the job's setting; three when the setting is 0.
std::string MascheraEsportazione(int decimali);
// The decimal setting of the exports, 0 to 15, kept with the job's settings in its `.CFG`.
int DecimaliEsportazione(const Sessione& s);
void ImpostaDecimaliEsportazione(Sessione& s, int decimali);

// The text of an export. `righe` are table rows of points: for the menu's point formats the
// points chosen, for the list's formats the rows the list shows in its order; the drawing
// formats ignore them.
std::string TestoEsportazione(const Sessione& s, FormatoEsportazione f, const std::vector<int32_t>& righe,
                              const OpzioniEsportazione& o = {});

// What the point list sends to the NIKON NPL 332: per row the name, then North, East and
// height with two decimals, each followed by a comma, and CR LF.
std::string TestoNpl(const Sessione& s, const std::vector<int32_t>& righe);

// `GeneraPuntiRil` of the main window: every live point whose name is shown, with heights.
std::string TestoRilDisegno(const Sessione& s);

// The text written to `percorso`, then the format's closing box. False, through the common
// error path, when the file could not be written.
bool ScriviEsportazione(Sessione& s, FormatoEsportazione f, const std::string& percorso,
                        const std::vector<int32_t>& righe, const OpzioniEsportazione& o = {});

// The menu commands: the file asked with the format's filter and proposed name; a blank
// answer ends silently. The point formats first set the pending point action
// `kAzioneEsportaPunti` and open the point selection `SelezPunti`: its OK goes on with
// `EsportaPuntiScelti`, its cancel ends the export with nothing asked.
void OuXYZ(Sessione& s);
void OuCSV1(Sessione& s);
void OuRAW(Sessione& s);
inline constexpr int32_t kAzioneEsportaPunti = 420;
// The pending point export, on the OK of the selection: `righe` are the points chosen.
void EsportaPuntiScelti(Sessione& s, const std::vector<int32_t>& righe);
void EsportaCsvDisegno(Sessione& s);
// The point list's formats over the rows it shows: the file asked with the format's filter,
// "Leica.GSI" proposed for the two GSI and nothing for the others; a blank answer ends
// silently.
void EsportaElencoPunti(Sessione& s, FormatoEsportazione f, const std::vector<int32_t>& righe,
                        const OpzioniEsportazione& o = {});
void EsportaScript(Sessione& s);
void GeneraPuntiRilDisegno(Sessione& s);

}  // namespace varena
