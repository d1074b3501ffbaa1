// The self-prepared extract: an `.emp` of the job's own contours and points, with the
// drawing's raster beside it, for a survey that has no official extract.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

// The rows of the extract, in the order they are written.
std::vector<std::string> RigheAutoallestito(const Sessione& s);

// The `.emp` of that name in the folder of extracts, and the first live picture of the
// drawing beside it as the `.PNG` of the same base name. The path written; none when the
// file could not be written (already said).
std::optional<std::string> ScriviAutoallestito(Sessione& s, const std::string& nome);

// `autoallestito` (GENERA_AUTOALLESTITO): the name asked, the files written, the message, then
// the job handed to Pregeo.
void AzioneAutoallestito(Sessione& s);

}  // namespace varena
