// The drawing rebuilt from the field book: the link lines of the survey scheme, the heights
// and tags of the points, and the survey structures of rows 3 to 7.
#pragma once

#include <string_view>

namespace varena {

struct Sessione;

// Whether the scheme ties station `st` to the point `nome` it reads: stations, fiducial
// points and points of another hundred-block are tied; points of the station's own block
// are not.
bool LegameSchema(std::string_view st, std::string_view nome);
// `SchemaDaTxt`: a line of layer "SCHEMALI" from each station to the points it ties, then
// `AspettoPuntiSchema`.
void SchemaDaTxt(Sessione& s);
void AspettoPuntiSchema(Sessione& s);

// The structures of the book, each a pass over the rows: traverses of rows 3, contours of
// rows 6 and 7, right-angle traverses and levellings of rows 4 and 5.
void PoligonaliDaLibretto(Sessione& s);
void ContorniDaLibretto(Sessione& s);
void SquadriDaLibretto(Sessione& s);
void LivellazioniDaLibretto(Sessione& s);

// `CompletaNomiPF`: fiducial points named in full, upper case, from the book's heading: a
// name shorter than 5 gets "/" and the sheet, one shorter than 10 "/" and the municipality,
// so "PF1" is "PF1/0010/G693". `RigaZero` must have been read.
void CompletaNomiPF(Sessione& s);

// `AssumeTuttoDaTXT`: the scheme, the heights, the tags, every Contorno-7 record made
// again from the book, and the extract shown. The tables only: the caller regenerates.
void AssumeTuttoDaTXT(Sessione& s);

}  // namespace varena
