// The framing of the job's drawing on its fiducial points: the pairs of the PF named (the
// point of the drawing, its line of the archive), the table of residuals, and the whole
// drawing moved. The dialog of `Inquadra su n PF` and `varena-cli inquadra` share them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "survey/Inquadramento.h"

namespace varena {

struct Sessione;

// The live point of the drawing named `nome` (letter case aside) that is not itself a point
// of the archive (layers "TAF", "INCLUSI"); -1 when none.
int32_t PuntoRilievoPF(const Sessione& s, const std::string& nome);

// Every PF of the drawing with a full name ("PFnn/ffff/cccc"), once each, in row order.
std::vector<std::string> NomiPFDelDisegno(const Sessione& s);

// The pairs of the names given. A name missing from the drawing or from the archive, or whose
// line of the archive lacks its coordinates, is told in `errore` and gives no pairs.
std::vector<CoppiaPF> CoppieDaArchivio(const Sessione& s, const std::vector<std::string>& nomi, std::string& errore);

// The table the user reads: a row a PF with dN, dE and distance in metres, the worst one
// marked "<<", those left out "escluso"; then rotation (gon), scale and mean square error.
std::string TabellaResidui(const std::vector<CoppiaPF>& coppie, const EsitoInquadramento& e);

// The whole drawing moved and turned (and scaled) as `e` says. False when nothing moved.
bool InquadraTuttoIlDisegno(Sessione& s, const EsitoInquadramento& e);

}  // namespace varena
