// Defaults and the small derived values of a section.
#include "sections/Sezione.h"

#include <cmath>

namespace varena {

ConfigurazioneSezione ConfigurazioneIniziale() {
  ConfigurazioneSezione c;
  // Text heights and rows in metres of the sheet: at 1:200, 2 mm of text is 0.4 m.
  auto riga = [](double fincatura, double testo, int32_t colore, const char* titolo) {
    GruppoSezione g;
    g.AltezzaFincatura = fincatura;
    g.AltezzaTesto = testo;
    g.Colore = colore;
    g.Titolo = titolo;
    return g;
  };
  c.Terreno = riga(0, 0.4, 3, "");
  c.Verticali = riga(0, 0, 9, "");
  c.NomiPunti = riga(1.6, 0.4, 7, "Picchetti");
  c.DistanzeParziali = riga(1.6, 0.4, 7, "Distanze Parziali");
  c.DistanzeProgressive = riga(2.4, 0.4, 7, "Distanze Progressive");
  c.DistanzeInclinate = riga(1.6, 0.4, 7, "Distanze Inclinate");
  c.DistanzeInclinate.Disegna = 0;
  // The heights are long numbers: written upright, in taller rows.
  c.QuoteTerreno = riga(2.4, 0.4, 3, "Quote Terreno");
  c.QuoteProgetto = riga(2.4, 0.4, 1, "Quote Progetto");
  c.QuoteProgetto.Disegna = 0;
  c.LineaInvaso = riga(0, 0, 5, "");
  c.LineaInvaso.Disegna = 0;
  c.QuoteTerreno.OrientamentoVerticale = 1;
  c.QuoteProgetto.OrientamentoVerticale = 1;
  c.DistanzeProgressive.OrientamentoVerticale = 1;
  c.NomeSezione = {1, 0.6, 7};
  c.NumeroSezione = {1, 0.6, 7};
  c.DistanzaPrecedente = {0, 0.4, 7};
  c.BloccoQuotaRiferimento = {1, 0.4, 7};
  return c;
}

double FattoreAltezze(const ConfigurazioneSezione& c) {
  // A scale of heights that is not a number of its own leaves heights as they are.
  if (!(c.ScalaAltezze > 0) || !(c.ScalaLunghezze > 0) || !std::isfinite(c.ScalaLunghezze / c.ScalaAltezze))
    return 1;
  return c.ScalaLunghezze / c.ScalaAltezze;
}

std::vector<double> DistanzePiane(const Sezione& z) {
  std::vector<double> d;
  for (size_t i = 0; i + 1 < z.Stazioni.size(); ++i)
    d.push_back(std::hypot(z.Stazioni[i + 1].X - z.Stazioni[i].X, z.Stazioni[i + 1].Y - z.Stazioni[i].Y));
  return d;
}

}  // namespace varena
