// The point list: the live points of the job as rows of a table, their cells as the list
// and its exports show them, and the order of a sort. The list holds row numbers only: the
// values are read from the tables each time a cell is asked.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

enum ColonnaElenco : int {
  ColonnaProgressivo = 0,
  ColonnaNome,
  ColonnaNord,
  ColonnaEst,
  ColonnaQuota,
  ColonnaDescrizione,
  ColonnaHPrisma,
  ColonnaPiano,
  ColonnaIdx,
  NumeroColonneElenco
};

const char* TitoloColonnaElenco(int colonna);

// The table rows of the live points, in table order.
std::vector<int32_t> RigheElencoPunti(const Sessione& s);

// The text of one cell of the list row `posizione`, whose table row is `righe[posizione]`.
std::string CellaElencoPunti(const Sessione& s, const std::vector<int32_t>& righe, size_t posizione, int colonna);

// The rows sorted by a column, numbers as numbers; equal keys keep their order, so that a
// sort after another sorts within it.
void OrdinaElencoPunti(const Sessione& s, std::vector<int32_t>& righe, int colonna, bool crescente);

}  // namespace varena
