// The cadastral map extract: the `.EMP` text read from the folder of extracts, its raster
// `.PNG`, and the lines and texts of kind 14 made from the text, drawn behind the survey.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "cadastre/StatoEstratto.h"

namespace varena {

struct Sessione;
class Superficie;

// The row "6|INQUADRAMENTO|Y|X|scale|", taken only as the last row of the text or, when the
// text ends with a line end, as the one before it.
struct Inquadramento {
  bool Trovato = false;
  double X = 0, Y = 0, Scala = 0;
};
Inquadramento LeggiInquadramento(std::string_view testo);

// What the text of an extract gives, without the session: the elements in the order they
// are drawn, the sides as "style|a|b|" in the order first met, and the names that rows 7
// and 6 use and no row 8 defines, each once.
struct LetturaEstratto {
  std::vector<ElementoEstratto> Elementi;
  std::vector<std::string> Lati;
  std::vector<std::string> NomiMancanti;
};
// `colore` is the pen of the extract, `fondo` the background's.
LetturaEstratto LeggiEstratto(std::string_view testo, int32_t colore, int32_t fondo);

// `Carica EMP`, `Carica-PNG`, `RiGeneraEDM`, in the order a job's load runs them.
void CaricaEMP(Sessione& s);
void CaricaPNG(Sessione& s);
void RiGeneraEDM(Sessione& s);
void CaricaEstratto(Sessione& s);

// The records of one row of kind 14 into the display list.
void RigeneraRigaEstratto(Sessione& s, int32_t riga);
// The raster under the survey, at its origin and scale; nothing when frozen or absent.
void DisegnaImmagineEstratto(const Sessione& s, Superficie& sup);

// The extract's values in the parameter row of the job settings: read after the settings,
// and written back only when they differ from what was read, so that a job that never had
// an extract keeps its settings byte for byte.
void LeggiParametriEstratto(Sessione& s);
void ScriviParametriEstratto(Sessione& s);

// `SpostaInquadramento`: the extract moved by (dx, dy), then turned clockwise by `gon`
// about (cx, cy), and made again.
void SpostaEstratto(Sessione& s, double dx, double dy, double gon, double cx, double cy);
// A point of the sheet where the move puts it.
void PosizioneSpostata(const Sessione& s, double& x, double& y);

// Where the extract's files are looked for: the folder of extracts and a name in it.
std::string PercorsoEstratti(const Sessione& s, std::string_view nome);

}  // namespace varena
