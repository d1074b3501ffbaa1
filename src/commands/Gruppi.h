// Groups: a set of entities saved as a text file `GRUPPI/<nome>.GGG` under the working root,
// and pasted into any job at a base point. The library of drawing blocks of a surveyor.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "survey/Primitive.h"

namespace varena {

struct Sessione;

std::string CartellaGruppi(const Sessione& s);
std::string PercorsoGruppo(const Sessione& s, std::string_view nome);
// The names of the groups of the library, without ".GGG", in alphabetical order.
std::vector<std::string> ElencoGruppi(const Sessione& s);

// The text of a group: record `I` with the base point, then one record a selected live row
// of each kind, one list statement a line, the letter first; a section's record `S` is
// followed by its block of the section member.
std::string TestoGruppo(const Sessione& s, const PuntoXYZ& base);
// `ScriviGruppo`: the selection written as the group `nome`, over any group of that name.
bool ScriviGruppo(Sessione& s, std::string_view nome, const PuntoXYZ& base);

// The records of a group text added to the job, moved so that the group's base falls on
// (x, y); heights are kept. A point whose name is taken gets the next free name. The read
// stops at a line it cannot understand, keeping the rows already added. Returns the rows
// added. No snapshot: the caller takes one.
int64_t LeggiGruppo(Sessione& s, const std::string& testoUtf8, double x, double y);
// Code 260, one click: the group `nome` pasted at (x, y), then the undo snapshot. -1 when
// the group is not there (" Gruppo Non Trovato!" shown).
int64_t IncollaGruppo(Sessione& s, std::string_view nome, double x, double y);

}  // namespace varena
