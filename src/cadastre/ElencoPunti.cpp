// The point list's rows, cells and sort.
#include "cadastre/ElencoPunti.h"

#include <algorithm>

#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

constexpr const char* kTitoli[] = {"Progressivo", "Nome",    "Nord (X)", "Est (Y)", "Quota (Z)",
                                   "Descrizione", "HP / HS", "PIANO",    "IDX"};

constexpr const char* kMascheraCoordinate = "#########0.000";

template <class Chiave>
void Ordina(std::vector<int32_t>& righe, bool crescente, Chiave&& chiave) {
  if (crescente)
    std::stable_sort(righe.begin(), righe.end(), [&](int32_t a, int32_t b) { return chiave(a) < chiave(b); });
  else
    std::stable_sort(righe.begin(), righe.end(), [&](int32_t a, int32_t b) { return chiave(b) < chiave(a); });
}

}  // namespace

const char* TitoloColonnaElenco(int colonna) {
  return colonna >= 0 && colonna < NumeroColonneElenco ? kTitoli[colonna] : "";
}

std::vector<int32_t> RigheElencoPunti(const Sessione& s) {
  std::vector<int32_t> righe;
  righe.reserve(static_cast<size_t>(std::max(0, s.ContaEntita[SlotPunti])));
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    if (s.PuntoIdent[static_cast<size_t>(r)] == 0) righe.push_back(r);
  return righe;
}

std::string CellaElencoPunti(const Sessione& s, const std::vector<int32_t>& righe, size_t posizione, int colonna) {
  if (posizione >= righe.size()) return {};
  const auto k = static_cast<size_t>(righe[posizione]);
  switch (colonna) {
    case ColonnaProgressivo: return std::to_string(posizione + 1);
    case ColonnaNome: return s.PuntoNome[k];
    case ColonnaNord: return FormatoMaschera(s.PuntoY[k], kMascheraCoordinate);
    case ColonnaEst: return FormatoMaschera(s.PuntoX[k], kMascheraCoordinate);
    case ColonnaQuota: return FormatoMaschera(s.PuntoZ[k], kMascheraCoordinate);
    case ColonnaDescrizione: return s.PuntoDescrizione[k];
    case ColonnaHPrisma: return FormatoMaschera(s.PuntoHPrisma[k], kMascheraCoordinate);
    case ColonnaPiano: return s.PuntoPiano[k];
    case ColonnaIdx: return std::to_string(k);
    default: return {};
  }
}

void OrdinaElencoPunti(const Sessione& s, std::vector<int32_t>& righe, int colonna, bool crescente) {
  auto u = [](int32_t r) { return static_cast<size_t>(r); };
  switch (colonna) {
    case ColonnaNome: Ordina(righe, crescente, [&](int32_t r) -> const std::string& { return s.PuntoNome[u(r)]; }); break;
    case ColonnaNord: Ordina(righe, crescente, [&](int32_t r) { return s.PuntoY[u(r)]; }); break;
    case ColonnaEst: Ordina(righe, crescente, [&](int32_t r) { return s.PuntoX[u(r)]; }); break;
    case ColonnaQuota: Ordina(righe, crescente, [&](int32_t r) { return s.PuntoZ[u(r)]; }); break;
    case ColonnaDescrizione:
      Ordina(righe, crescente, [&](int32_t r) -> const std::string& { return s.PuntoDescrizione[u(r)]; });
      break;
    case ColonnaHPrisma: Ordina(righe, crescente, [&](int32_t r) { return s.PuntoHPrisma[u(r)]; }); break;
    case ColonnaPiano: Ordina(righe, crescente, [&](int32_t r) -> const std::string& { return s.PuntoPiano[u(r)]; }); break;
    // The progressive and the row number both follow the table's order.
    default: Ordina(righe, crescente, [](int32_t r) { return r; }); break;
  }
}

}  // namespace varena
