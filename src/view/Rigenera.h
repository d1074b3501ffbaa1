// Regeneration: every entity but the points turned into records of the display list, in
// the order in which they are painted.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/Tabelle.h"

#include "view/ListaDisegno.h"
#include "view/StiliLinea.h"
#include "view/Superficie.h"

namespace varena {

struct Sessione;

// The colour used for what is selected, and for what would vanish on the background.
inline constexpr ColoreRGB kColoreEvidenza = 0x3399FF;
// The pseudo-index that stands for the highlight colour after `ColoreVisibile`.
inline constexpr int16_t kIndiceEvidenza = -1;

// An index as painted: below 1, 8 or 255 becomes 250; the background's own index becomes
// the highlight. Indexes above 257 are kept, and are not painted.
int16_t ColoreVisibile(const Sessione& s, int32_t colore);
// The colour of an index as the surface paints it; false for one that is not painted.
bool ColoreDaIndice(const Sessione& s, int32_t indice, ColoreRGB& rgb);

// The pattern of a line type: plain (no elements) below index 2, beyond the table or
// without elements.
StileLinea StileDi(const Sessione& s, int tratteggio);

// `Rigenerazione1`: the list emptied and refilled, then the redraw.
void Rigenerazione1(Sessione& s);
// The list alone, without painting, made whole, with the grids and trees.
void RigeneraLista(Sessione& s);
// The list after an edit: only the records of the rows marked since the last regeneration
// are made again, in their places, and the grids and trees updated where they changed. The
// list comes out as `RigeneraLista` would make it, record for record. When the settings the
// records depend on have changed, or the list was never made whole, it is.
void RigeneraModifiche(Sessione& s);

// A kind of the list: its slot, the regenerator of one row, the selection byte its records
// copy (none for a kind without selection), and the slot of another kind its records are
// drawn from (a structure drawn through its points), whose change remakes all its rows; -1
// for none.
struct GenereLista {
  int Slot;
  void (*Riga)(Sessione&, int32_t);
  std::vector<uint8_t> TabelleEntita::*Stato;
  int Dipende = -1;
};
// The kinds in the order of painting.
std::span<const GenereLista> GeneriLista();
// The frame of the drawing's extent, last in the list, when the setting asks for it.
void RigeneraCorniceIngombro(Sessione& s);
// The settings every record depends on, as one number.
uint64_t ImprontaRigenerazione(const Sessione& s);

// One line appended without a full regeneration (commands that add a single line).
void RigeneraLineaSingola(Sessione& s, int32_t riga);
// `Rigenera Linea Tutto`: one line through its pattern, `base` giving every attribute.
void RigeneraLineaTutto(Sessione& s, RecordDisegno base, int tratteggio);
// A piece of a `PrimMotivo` record as the record of its own it would once have been.
struct PezzoMotivo {
  double X1, Y1, Z1, X2, Y2, Z2;
};
// The piece of record `i` (of `PrimMotivo`) nearest to (x, y), no farther than `limite`,
// and its distance; of two as near, the later. False when there is none.
bool PezzoPiuVicino(const Sessione& s, int64_t i, double x, double y, double limite, PezzoMotivo& pezzo,
                    double& distanza);
// `rigenera arco tratteggio`: a circle or an arc as chords of its pattern; heights run from
// `z0` at the start to `z1` at the end.
void RigeneraArcoTratteggio(Sessione& s, RecordDisegno base, double xc, double yc, double raggio, double inizio,
                            double ampiezza, int tratteggio, double z0, double z1);
void RigeneraCerchio(Sessione& s, int32_t riga);
void RigeneraArco(Sessione& s, int32_t riga);
void RigeneraTesto(Sessione& s, int32_t riga);
void RigeneraBitMapSingola(Sessione& s, int32_t riga);

// After a change of the list, the spatial index of the records and of the points, then
// the trees of the nearest-entity searches.
void IndicizzaDisegno(Sessione& s);
void IndicizzaVicinanza(Sessione& s);

}  // namespace varena
