// The cadastral codes of a point: tags written at the front of its description, read and
// changed here only, so that every routine agrees on what a tag is and which tags exclude
// each other.
#pragma once

#include <string>
#include <string_view>

namespace varena {

inline constexpr std::string_view kCodicePlanimetrico = "<P!>";  // no height
inline constexpr std::string_view kCodiceSoloDirezione = "<00>";  // read with no distance
inline constexpr std::string_view kCodiceEscluso = "<EL>";        // left out of the book
inline constexpr std::string_view kCodiceVertice = "<PV>";
inline constexpr std::string_view kCodiceDirezione = "<PD>";
inline constexpr std::string_view kCodiceRiga8Quota = "<8Q>";
inline constexpr std::string_view kCodiceRiga8Planim = "<8P>";
inline constexpr std::string_view kCodiceRiga8Uguale = "<8=>";
inline constexpr std::string_view kCodiceAusiliario = "[P.A.]";

bool HaCodice(std::string_view descrizione, std::string_view codice);
// Every occurrence of the tag taken away.
std::string TogliCodice(std::string_view descrizione, std::string_view codice);
// The tag once, at the front. A vertex and a direction never stand together, nor the two
// plan forms of row 8: the other one of the pair goes first.
std::string MettiCodice(std::string_view descrizione, std::string_view codice);

// The free text: every tag and the marks "*V*", "*S*" taken away, then trimmed.
std::string PulisciCodici(std::string_view descrizione);
// The tags a description holds, in the order the point editor writes them back.
std::string SoloCodici(std::string_view descrizione);
// The description without its tags (the marks "*V*", "*S*" stay), as the point editor shows it.
std::string SenzaCodici(std::string_view descrizione);
// The tags in the editor's order, then the rest: how the editor writes a description back.
std::string CodiciInTesta(std::string_view descrizione);
// A new free text behind the tags the description already holds.
std::string ConCodici(std::string_view descrizione, std::string_view testoLibero);

}  // namespace varena
