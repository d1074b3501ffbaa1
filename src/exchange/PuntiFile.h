// The readers of coordinate files that instruments and other programs hand over: RIL, SHO,
// Leica GSI, point clouds and text tables. Pure parsers: each hands its points and field-book
// rows to a `DestinoPunti` and says which lines it could not read.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

class DestinoPunti {
 public:
  virtual ~DestinoPunti() = default;
  // `font` marks where the point came from; empty: the class default.
  virtual void Punto(std::string_view nome, std::string_view descrizione, double x, double y, double z,
                     std::string_view font) = 0;
  virtual void RigaLibretto(std::string riga) { (void)riga; }
  // The rows of a table exported by a CAD: entities on layers of their own.
  virtual void PuntoSuPiano(std::string_view nome, double x, double y, double z, std::string_view piano) {
    (void)piano;
    Punto(nome, {}, x, y, z, {});
  }
  virtual void Linea(double x1, double y1, double z1, double x2, double y2, double z2, std::string_view piano) {
    (void)x1, (void)y1, (void)z1, (void)x2, (void)y2, (void)z2, (void)piano;
  }
  virtual void Cerchio(double x, double y, double z, double raggio, std::string_view piano) {
    (void)x, (void)y, (void)z, (void)raggio, (void)piano;
  }
  // An arc as the job holds it: start azimuth and clockwise sweep in gon.
  virtual void Arco(double x, double y, double z, double raggio, double inizio, double ampiezza,
                    std::string_view piano) {
    (void)x, (void)y, (void)z, (void)raggio, (void)inizio, (void)ampiezza, (void)piano;
  }
  virtual void Testo(double x, double y, std::string_view testo, std::string_view piano) {
    (void)x, (void)y, (void)testo, (void)piano;
  }
};

struct EsitoLettura {
  int64_t Punti = 0;
  int64_t Altre = 0;  // lines, circles, arcs and texts of a CAD table
  int64_t Righe = 0;
  // The lines, counted from 1, that held something other than a record of the format.
  std::vector<int64_t> RigheDanneggiate;
  int64_t TotaleDanneggiate = 0;
  bool Interrotto = false;
};

// Called every so many lines with the bytes read and the total; false asks to stop.
using AvanzamentoLettura = std::function<bool(int64_t fatto, int64_t totale)>;

// The column order of a text table: one letter a column, "N" name, "X" East, "Y" North,
// "Z" height, "D" description, "-" a column left out.
struct OpzioniTesto {
  std::string Colonne = "NYXZD";
  // Put before a name made of digits only, as the cadastre's fiducial points are named.
  std::string Prefisso;
};

EsitoLettura LeggiPuntiRil(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a = {});
EsitoLettura LeggiPuntiSho(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a = {});
// A total-station ASC report: records by their first field, cut at ","; stations and
// measures become field-book rows 1 and 2 under the fixed opening of the book.
EsitoLettura LeggiPuntiAsc(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a = {});
EsitoLettura LeggiPuntiGsi(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a = {});
// The point list `.L` of an older job: "1001", a heading statement, then one statement a point:
// name, description, X, Y, Z. Texts in the Windows code page.
EsitoLettura LeggiPuntiVR4(std::string_view byte, DestinoPunti& d, const AvanzamentoLettura& a = {});
EsitoLettura LeggiNuvola(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a = {});
// A text table: the columns the options give; or, when its first line holds the column titles
// of a CAD's table export ("Nome"/"Name", "Layer", "Posizione X"/"Position X", "Inizio X",
// "Fine X", "Centro X", "Raggio", "Valore", "Angolo iniziale" ...), its points, lines, circles,
// arcs and texts by the first column.
EsitoLettura LeggiPuntiTesto(std::string_view testo, const OpzioniTesto& o, DestinoPunti& d,
                             const AvanzamentoLettura& a = {});

// `CaricaLineeDaDXF`: the LINE (or LINEA) entities of a DXF, ends from the groups 10, 20, 30
// and 11, 21, 31, up to "EOF"; every other entity and group passed over.
EsitoLettura LeggiLineeDxf(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a = {});

// The damaged lines named for the user: the first few, and how many more.
std::string DescriviRigheDanneggiate(const EsitoLettura& e);

}  // namespace varena
