// The outcome of the general nearest-entity search: the notable points of the entity
// nearest to the pointer, from which each snap mode takes its own.
#pragma once

#include <cstdint>

#include "survey/Primitive.h"

namespace varena {

struct RisultatoVicina {
  PuntoXYZ Inizio;         // first point of the entity
  PuntoXYZ PrimoQuarto;    // at 1/4
  PuntoXYZ Medio;          // at 1/2
  PuntoXYZ TerzoQuarto;    // at 3/4
  PuntoXYZ Fine;           // second point
  PuntoXYZ Centro;
  PuntoXYZ Ortogonale;     // foot from `Punto1`
  PuntoXYZ PiuVicinoFine;  // nearer of `Inizio` and `Fine` to the pointer
  PuntoXYZ Quadrante;      // nearest of the five division points
  PuntoXYZ Vicino;         // foot from the pointer
  PuntoXYZ Tangente;       // tangent point from `Punto1`
  uint8_t VicinaTipo = 0;  // slot of the entity; 0 when nothing was found
  int32_t VicinaRiga = -1; // its row; the display-list row for facets, contours, sections, extract
  double VicinaDistanza = 0;
  // The display-list record of a kind found in the list, -1 for the kinds of the tables.
  int64_t VicinaRigaLista = -1;
  double Raggio = 0;       // of a circle or an arc
};

}  // namespace varena
