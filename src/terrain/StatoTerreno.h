// The state of the terrain work that a job keeps while it is open: facet display and labels,
// the label heights, and the settings of the contour lines.
#pragma once

#include <cstdint>

namespace varena {

struct StatoTerreno {
  bool FaldeAttive = true;      // the facet commands work only while the facets are shown
  bool EtichetteFalde = false;  // the number, area, cut and fill of each facet on the drawing
  double AltezzaNumero = 1.0;   // height of the facet's number label
  double AltezzaValori = 1.0;   // height of the area, cut and fill labels
  int32_t FaldaScelta = -1;     // the first facet picked by the edge flip

  // Contour lines. Each generation first puts the out-of-range values back in range: an
  // interval of 0 becomes 1, a deviation limit below 30 gon becomes 30, a step below 1
  // becomes 1.
  double Equidistanza = 1;       // metres between two levels, multiples of it from 0
  double LimiteDeviazione = 30;  // gon: the largest turn of a tangent from its span
  double PassoCurva = 1;         // every how many of the ten points of a span are kept
  int32_t ColoreCurvaSopra = 3;  // curves above the reference height
  int32_t ColoreCurvaSotto = 5;  // below it
  int32_t ColoreCurvaBase = 1;   // at it
  int16_t CurvaRiferimento = 0;  // 1: the curve at the reference height too, whatever the interval
  bool CurveAttive = true;       // the curve commands work only while the curves are shown
  bool EtichetteCurve = false;   // each curve's height at its end
  double AltezzaEtichettaCurve = 1;
  int32_t DecimaliCurve = 0;
  // The head row last found by the regeneration of the curves, and the row it was found
  // for: the rows are made in order, so each looks back only as far as the row before.
  int64_t TestaCurvaVista = -1, RigaCurvaVista = -1;
};

}  // namespace varena
