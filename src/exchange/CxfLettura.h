// The cadastral map sheet (CXF): the free-form text read into plain records, then the
// records appended to the job as texts, points and lines. Nothing reaches the job until the
// whole file has been read, so a damaged sheet leaves the job as it was.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

struct Sessione;

// A border: the parcel's outline, its islands (holes) after it, and the label of its name.
struct BordoCxf {
  std::string Piano;  // the object's layer string, kept for its lines
  double ScalaTesto = 0, AltezzaTesto = 0, Rotazione = 0;
  std::string Testo;  // the border's name, as the label reads
  double TestoX = 0, TestoY = 0;
  // The outline first, then each island: a ring is drawn vertex to vertex as it stands in the
  // file, which repeats the first vertex to close it.
  std::vector<std::vector<PuntoXYZ>> Anelli;
};

struct FiducialeCxf {
  std::string Numero;  // as written: the point becomes "PF" followed by it
  std::string Nome;
  double X = 0, Y = 0;
};

struct LineaCxf {
  std::string Piano;
  std::vector<PuntoXYZ> Vertici;
};

struct FoglioCxf {
  std::string Identita;  // the first value of the header: which sheet this is
  std::vector<BordoCxf> Bordi;
  std::vector<FiducialeCxf> Fiduciali;
  std::vector<LineaCxf> Linee;
};

// Reads the text of a sheet (UTF-8, already out of the code page). Throws `ErroreVarena`
// with the reason when it is cut short or a count cannot be right; nothing is kept then.
FoglioCxf LeggiCxf(std::string_view testo);

struct EsitoCxf {
  int64_t Testi = 0, Punti = 0, Linee = 0;
};

// The records into the job: a border gives its name as a text on `BORDO` and its rings as
// lines on its layer, a fiducial a point "PF"+number on `FIDUCIALE` in "Courier New", a
// line its segments on its layer. Lines take the colour and type in force.
EsitoCxf CaricaFoglioCxf(Sessione& s, const FoglioCxf& f);

// `carica CXF` without the dialog: the file read, decoded and appended. No snapshot: the
// caller takes it. False with the message shown when the file is missing or damaged; the job
// is then untouched.
bool ImportaCxf(Sessione& s, const std::string& percorso, EsitoCxf* esito = nullptr);

}  // namespace varena
