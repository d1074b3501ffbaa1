// The triangulator's reading of its hand-off: the input is provviso.tom up to its first zero
// byte and provviso.dsq after it. A file it accepts must give finite values and chains of
// rows that exist, and the facets made of them must come back from their records unchanged.
#include <cmath>

#include "Bersagli.h"
#include "core/Record.h"
#include "terrain/Consegna.h"

namespace varena::fuzz {

void FuzzMesh(const Ambiente&, std::string_view byte) {
  const size_t zero = byte.find('\0');
  const std::string_view tom = byte.substr(0, zero);
  const std::string_view dsq = zero == std::string_view::npos ? std::string_view() : byte.substr(zero + 1);
  DatiMesh d;
  if (!LeggiConsegna(tom, dsq, d).empty()) return;
  const size_t n = d.X.size();
  for (size_t k = 0; k < n; ++k)
    Verifica(std::isfinite(d.X[k]) && std::isfinite(d.Y[k]) && std::isfinite(d.Z[k]),
             "Valore non finito accettato alla riga %zu\n", k + 1);
  for (const auto& c : d.Catene)
    for (int32_t i : c)
      Verifica(i >= 0 && static_cast<size_t>(i) < n, "Catena con la riga %d su %zu accettata\n", i + 1, n);
  if (n < 3) return;
  const std::string equ = CodificaFaldeMesh(d, {{0, 1, static_cast<int32_t>(n - 1)}});
  TabellaFalde t;
  RidimensionaTabella(t, 1);
  DecodificaRecord(LayoutFalde(), t, 0, reinterpret_cast<const unsigned char*>(equ.data()), 1);
  Verifica(equ.size() == 256 && t.FaldaIdent[0] == 0 && t.FaldaX1[0] == d.X[0] && t.FaldaY2[0] == d.Y[1] &&
               t.FaldaZ3[0] == d.Z[n - 1],
           "La falda non torna dal suo record\n");
}

}  // namespace varena::fuzz
