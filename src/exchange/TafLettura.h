// The archive of the fiducial points (TAF): fixed columns, one point a line. The reader of a
// line, the import of a whole file as points, and the look-up of one point by its name in
// the archive folder, which the framing uses.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

struct PuntoTaf {
  // "PF" + number + "/" + sheet + annex + "/" + municipality, blanks read as "0": the name
  // the survey gives the point, as "PF01/0120/A123".
  std::string Nome;
  std::string Comune, Foglio, Allegato, Numero;
  std::string Descrizione, Annotazione;
  double Nord = 0, Est = 0, Quota = 0;
  int16_t Attendibilita = 0;
};

// The first column past the East coordinate: a line shorter has no position.
inline constexpr size_t kColonneCoordinateTaf = 126;

// One line of the file (bytes as they stand, code page and all). No value for a line too
// short to hold both coordinates, or whose coordinates are not numbers; the columns after
// them read empty when missing, so a line without the height has height 0.
std::optional<PuntoTaf> LeggiRigaTaf(std::string_view riga);

struct EsitoTaf {
  int64_t Punti = 0;
  std::vector<int64_t> RigheCorte;  // lines (from 1) with text but no coordinates to read
};

// Every point of the file: "Arial", layer `piano` ("TAF", or "INCLUSI" for a table included
// in a job), the height, the reliability. Lines without coordinates are counted, not added.
EsitoTaf CaricaPuntiTaf(Sessione& s, std::string_view byte, std::string_view piano = "TAF");

// The import of a file without the dialog. False with the message shown when the file is
// missing or holds no point; the job is then untouched. No snapshot: the caller takes it.
bool ImportaTaf(Sessione& s, const std::string& percorso, EsitoTaf* esito = nullptr);

// A table included in a job, read at every load: its points on "INCLUSI", which no save
// writes. A file gone since it was included is passed over.
void IncludiTaf(Sessione& s, const std::string& percorso);

// `<Cartella_Fiducial>/dati/<cccc>.taf`, the municipality taken from the name
// "PFnn/ffff/cccc" (characters 11 to 14).
std::string FileArchivioPF(const Sessione& s, std::string_view nome);

// `CercaPFInArchivio`: the line of the archive whose name is `nome`. No value when the file
// of the municipality is missing or has no such point. A line of that name too short to
// hold its coordinates is no answer either: `corta` tells the caller, which must not move
// anything to a place it cannot know.
std::optional<PuntoTaf> CercaPFInArchivio(const Sessione& s, std::string_view nome, bool* corta = nullptr);

}  // namespace varena
