// While the facets are switched on, each live, unfrozen facet is its three sides, kind 6 of the display list, with its number,
// area, cut and fill beside it when the facet labels are on.
#include "terrain/DisegnoFalde.h"

#include <algorithm>
#include <string>

#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Rigenera.h"

namespace varena {

void RigeneraFalda(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!s.Terreno.FaldeAttive || !IdentVivo(s.FaldaIdent[r]) || s.FaldaCongela[r] != 0) return;
  RecordDisegno b;
  b.Tipo = SlotFalde;
  b.Riga = riga;
  b.Colore = ColoreVisibile(s, s.FaldaColore[r]);
  b.Stato = s.StatoFalda[r];
  b.Piano = s.FaldaPiano[r];
  b.Penna = static_cast<int16_t>(std::clamp<int32_t>(s.FaldaColore[r], -32768, 32767));
  const double x[4] = {s.FaldaX1[r], s.FaldaX2[r], s.FaldaX3[r], s.FaldaX1[r]};
  const double y[4] = {s.FaldaY1[r], s.FaldaY2[r], s.FaldaY3[r], s.FaldaY1[r]};
  const double z[4] = {s.FaldaZ1[r], s.FaldaZ2[r], s.FaldaZ3[r], s.FaldaZ1[r]};
  for (int k = 0; k < 3; ++k) {
    b.X1 = x[k], b.Y1 = y[k], b.Z1 = z[k], b.X2 = x[k + 1], b.Y2 = y[k + 1], b.Z2 = z[k + 1];
    s.ListaDisegno.Aggiungi(b);
  }
  if (!s.Terreno.EtichetteFalde) return;
  auto etichetta = [&](double ex, double ey, double altezza, const std::string& testo) {
    RecordDisegno t = b;
    t.Primitiva = PrimTesto;
    t.X1 = t.X2 = ex, t.Y1 = t.Y2 = ey, t.Z1 = t.Z2 = 0;
    t.Altezza = static_cast<float>(altezza);
    t.Font = "Arial";
    t.Testo = testo;
    s.ListaDisegno.Aggiungi(t);
  };
  const double hn = s.Terreno.AltezzaNumero, hv = s.Terreno.AltezzaValori;
  etichetta(s.FaldaNumeroX1[r], s.FaldaNumeroY1[r], hn, "N=" + FormatoMaschera(riga + 1, "######0"));
  etichetta(s.FaldaInsAreaX1[r], s.FaldaInsAreaY1[r], hv, "A=" + FormatoMaschera(s.FaldaAreaDiBase[r], "##########0.#0"));
  etichetta(s.FaldaInsSteX1[r], s.FaldaInsSteY1[r], hv, "S=" + FormatoMaschera(s.FaldaVolumeSterro[r], "##########0.#0"));
  etichetta(s.FaldaInsRiportoX1[r], s.FaldaInsRiportoY1[r], hv,
            "R=" + FormatoMaschera(s.FaldaVolumeRiporto[r], "##########0.#0"));
}

}  // namespace varena
