// The edit commands: the work on a selection (`ApplicaSelezione` and the steps that lead to
// it), the commands on one picked entity, and the editor of one entity's fields.
#pragma once

#include <cstdint>
#include <string>

#include "survey/Primitive.h"

namespace varena {

struct Sessione;

// The kind and the table row of the entity nearest to (x, y) by the general search; the
// facets are found in the display list and given by their own row. False when nothing, or
// only a kind without a table row here, is found.
bool EntitaVicina(const Sessione& s, double x, double y, uint8_t& tipo, int32_t& riga);

// --- On a selection ----------------------------------------------------------------------

// Whether a command on a selection has work here once the selection is confirmed: steps of
// its own, or the work done at once on the rows. Any other ends at the confirmation.
bool LavoroSuSelezione(int32_t codice);

// The confirmation of `Selezentita`: the list written for a repeat, then the first prompt of
// the command's own steps, or the work done at once on the selection.
void ConfermaSelezione(Sessione& s);

// `ApplicaSelezione`: the work of the armed command on every row whose state byte is 1, in
// the order points, lines, circles, arcs, texts, facets, contour vertices, images. The
// tables changed are marked. False when the command has no work on a selection here.
bool ApplicaSelezione(Sessione& s);

void subCambiaCopiaSpostaSpecchioScalaRuota(Sessione& s);  // 142, 143, 144, 146, 147
void subCambiaAllinea(Sessione& s);                        // 414
void subCambiaQuota(Sessione& s);                          // 216
void subRotoTraslazione(Sessione& s);                      // 192
// 276 and 415: the rows between two picked points turned about the horizontal axis through
// them, by an angle asked (276) or by a right angle (415), which lays a vertical face flat.
void subRotazioneVerticale(Sessione& s);

// The framing on two fiducial points: the roto-translation of 192 on the whole drawing, the
// targets taken from the fiducial archive.
inline constexpr int32_t kCodiceInquadra2PF = 440;

// The roto-translation of every selected row: a plan point at azimuth a and distance d from
// `origine` goes to azimuth a + `angolo` (radians) and distance d * `scala` from `nuova`;
// directions turn with it. False when nothing was selected.
bool RotoTraslaSelezione(Sessione& s, const PuntoXYZ& origine, const PuntoXYZ& nuova, double angolo,
                         double scala = 1);

// `FormRotoTraslazione`, opened once the four points of 192 (or the two PF of 440) are
// picked; its title names the command.
bool ApriRotoTraslazione(Sessione& s);
// The two reports written before the transform: `temp\Rototraslazione.CSV` and `.TXT`
// under the program folder.
std::string PercorsoReportRotoTraslazione(const Sessione& s, const char* estensione);

// --- On one entity -----------------------------------------------------------------------

void subCambiaRifila(Sessione& s);   // 165
void subCambiaTaglia(Sessione& s);   // 166
void subCambiaAllunga(Sessione& s);  // 167
void subCambiaDivide(Sessione& s);   // 168
// 306, 307, 308: the stored line type, colour or layer pasted on the entity clicked.
void subCambiaTratteggioEntitaSingola(Sessione& s);
// 157: the entity clicked opens in its editor.
void subEditaEntitaComando(Sessione& s);

// `subEditaEntita`: `formEditaPunto` for a point, `FormEditModifica1` for any other kind,
// with every field of the row; its OK is `ModificaEntita`, its delete `subEliminaEntita`.
void subEditaEntita(Sessione& s, uint8_t tipo, int32_t riga);

}  // namespace varena
