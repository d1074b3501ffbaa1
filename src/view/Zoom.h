// Extent of the drawing and every zoom and pan: the stepped keys, the modes that wait for
// the pointer (window, move, centre, box), the middle-button drag, the previous view, the
// scale list, the memory, the named point and the map extract. No zoom ever touches the
// armed command: a zoom may run between two clicks of a command, which then goes on.
#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "view/StatoVista.h"

namespace varena {

struct Sessione;

struct Rettangolo {
  double XMin, YMin, XMax, YMax;
};

// What a zoom leaves to do once the view has changed. The caller runs `Ridise gna` for
// `Ridisegno` and `Rigenerazione1` for `Rigenerazione`; the zoom itself never paints.
enum class Seguito { Nessuno, Ridisegno, Rigenerazione };

// A box that widens point by point; values that are not finite are left out, so a damaged
// row cannot throw the view to infinity.
class Ingombro {
 public:
  void Aggiungi(double x, double y);
  // Both ends of each display-list record: anything with `X1`, `Y1`, `X2`, `Y2`.
  template <class Record>
  void AggiungiRecord(std::span<const Record> lista) {
    for (const Record& r : lista) {
      Aggiungi(r.X1, r.Y1);
      Aggiungi(r.X2, r.Y2);
    }
  }
  std::optional<Rettangolo> Risultato() const;

 private:
  bool vuoto_ = true;
  Rettangolo r_{};
};

// The box of what `TuttoTutto` frames, from the tables: live, unfrozen points first, then
// circles, arc ends and texts. The display list's records are added to it by the caller.
Ingombro IngombroTabelle(const Sessione& s);

// The extent that `TuttoTutto` frames. No value when there is nothing to measure.
std::optional<Rettangolo> IngombroDisegno(const Sessione& s);

// Extent of every live entity of the tables, for reports; the sections by the frames of
// their drawing.
std::optional<Rettangolo> IngombroEntita(const Sessione& s);

// Centre and height of the extent into the view: the larger side of the box, no margin;
// 100 around (50, 50) when there is nothing to measure.
void InquadraIngombro(StatoVista& v, const std::optional<Rettangolo>& r);

// `TuttoTutto`: the extent into the view. It asks for a full regeneration, not a redraw.
Seguito TuttoTutto(Sessione& s);

// --- Modes that wait for the pointer -------------------------------------------------------

// The tags ZOOM_FINESTRA, ZOOM_SPOSTA, ZOOM_CENTRO and the menu's zoom box: the prompt in
// force is kept aside and the zoom's own is shown.
void ArmaZoom(Sessione& s, ModoZoomAttivo modo);

// A click while a zoom mode is armed, at the point the click resolved to (in metres, as
// for any click). `ortogonale` is the orthogonal mode of the pointer, for the move.
[[nodiscard]] Seguito ClicZoom(Sessione& s, double est, double nord, bool ortogonale);

// The right button, Esc and the end of a command: no zoom waits any more.
void AnnullaZoom(Sessione& s);

// Every pointer move, in view coordinates: kept in metres for the centre-on-pointer key and
// for the guides.
void PuntatoreMosso(Sessione& s, double xv, double yv);

// What the pointer machine paints (exclusive or) while a zoom waits, in metres.
struct GuidaZoom {
  enum Forma { Nessuna, Riquadro, Linea } Tipo = Nessuna;
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;  // the box's corners, or the line's ends
};
GuidaZoom GuidaPerZoom(const Sessione& s);

// --- The middle button ---------------------------------------------------------------------

void InizioTrascinamento(Sessione& s, double xv, double yv);
// Each move with the button held; no threshold, a redraw every time.
[[nodiscard]] Seguito Trascina(Sessione& s, double xv, double yv);

// --- Keys and menu entries -----------------------------------------------------------------

// ZOOM_SU, ZOOM_GIU, ZOOM_SIN, ZOOM_DES, ZOOM_+, ZOOM_-: steps of a fraction
// 1/`FATTORE_DI_ZOOM` of the view height. The directions move the drawing, the centre the
// other way, except ZOOM_SIN which adds to East.
enum class PassoZoom { Su, Giu, Sinistra, Destra, Avanti, Indietro };
[[nodiscard]] Seguito ZoomPasso(Sessione& s, PassoZoom passo);

// Home: back to the view before the last, through the record of redraws.
[[nodiscard]] Seguito VistaPrecedente(Sessione& s);
// The space bar: the last pointer position becomes the centre.
[[nodiscard]] Seguito CentraSulPuntatore(Sessione& s);
// The text box of the main window: the last point whose name is exactly `nome`.
[[nodiscard]] Seguito CentraSuPunto(Sessione& s, std::string_view nome);

void MemorizzaVista(Sessione& s);
[[nodiscard]] Seguito RichiamaMemoVista(Sessione& s);

// --- The scale list ------------------------------------------------------------------------

const std::array<double, 15>& AltezzeZoomScala();
// A row of the list: the height right aligned in six columns.
std::string VoceZoomScala(double altezza);
// Enter, or the first button: the typed height. A text that is no number gives 0, which the
// view set-up turns into one metre. The centre stays.
[[nodiscard]] Seguito ZoomScalaTesto(Sessione& s, std::string_view testo);
// The buttons of index 2 to 10 set their height at once; any other index changes nothing.
[[nodiscard]] Seguito ZoomScalaBottone(Sessione& s, int indice);

// --- The map extract -----------------------------------------------------------------------

namespace dettaglio {
// "Nessun Estratto Associato!" when either name is blank; true when both freezes must be set.
bool EstrattoNonAssociato(Sessione& s, std::string_view fileEstratto, std::string_view fileImmagine);
void AvvisaEstrattoCongelato(Sessione& s);
Seguito InquadraEstratto(Sessione& s, const Rettangolo& r);
}  // namespace dettaglio

// ZOOM_ESTRATTO. The extract's two file names and its two freeze flags belong to the job;
// the records are the display list's used rows (`Tipo`, `Primitiva`, `X1`, `Y1`, `X2`,
// `Y2`). The view frames the records of kind 14: each line's first point may only lower
// the box, its second only raise it, and the width becomes the height.
template <class Bandiera, class Record>
[[nodiscard]] Seguito ZoomEstratto(Sessione& s, std::string_view fileEstratto, std::string_view fileImmagine,
                                   Bandiera& congelato, Bandiera& immagineCongelata,
                                   std::span<const Record> lista) {
  if (dettaglio::EstrattoNonAssociato(s, fileEstratto, fileImmagine)) {
    congelato = 1;
    immagineCongelata = 1;
  }
  // A frozen extract is only reported: its records, if any are left, are framed all the same.
  if (congelato == 1) dettaglio::AvvisaEstrattoCongelato(s);
  constexpr int kEstratto = 14, kLinea = 2;
  std::optional<Rettangolo> box;
  for (const Record& r : lista) {
    if (r.Tipo != kEstratto) continue;
    if (!box) box = Rettangolo{r.X1, r.Y1, r.X1, r.Y1};
    if (r.Primitiva != kLinea) continue;
    box->XMin = std::min<double>(box->XMin, r.X1);
    box->YMin = std::min<double>(box->YMin, r.Y1);
    box->XMax = std::max<double>(box->XMax, r.X2);
    box->YMax = std::max<double>(box->YMax, r.Y2);
  }
  if (!box) return Seguito::Nessuno;
  return dettaglio::InquadraEstratto(s, *box);
}

}  // namespace varena
