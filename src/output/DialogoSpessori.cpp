// The thickness dialog: one field a colour, in tenths of a millimetre, and the plot's
// options; its confirmation writes the settings and `Spessori1.ini`.
#include "output/DialogoSpessori.h"

#include <algorithm>

#include "core/Configura.h"
#include "core/Conversioni.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "output/FlussoStampa.h"

namespace varena {

namespace {

// The legacy grid had a column for each thickness from 0 to 20 after the colour's number
// and name.
constexpr int kSpessoreMassimo = 20;

int Colori(const Sessione& s) { return std::clamp(s.Colori.NumeroColori, 9, kMassimoSpessori); }

void Conferma(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "FormSelezSpessore");
  if (!d) return;
  s.Imp.Stampa_Scala_Plottaggio = InteroLungo(d->Numero("Stampa_Scala_Plottaggio"));
  s.Imp.Stampa_Nome_Lavoro = InteroLungo(d->Numero("Stampa_Nome_Lavoro"));
  s.Imp.DIMENSIONEUNICAPUNTO = d->Numero("DIMENSIONEUNICAPUNTO");
  // Each colour's row of the grid with its "X" under the thickness typed.
  std::vector<std::vector<std::string>> righe;
  for (int c = 1; c <= Colori(s); ++c) {
    std::vector<std::string> riga{std::to_string(c), ""};
    const int spessore = std::clamp(InteroLungo(d->Numero("Spessore" + std::to_string(c))), 0, kSpessoreMassimo);
    riga.resize(static_cast<size_t>(spessore) + 3);
    riga.back() = "X";
    righe.push_back(std::move(riga));
  }
  Protetto(s, [&] { ConfiguraScrivi(s); });
  ScriviSpessoriDaGriglia(s, righe);
  ChiudiDialogo(s, "FormSelezSpessore");
}

}  // namespace

bool ApriFormSelezSpessore(Sessione& s) {
  Dialogo d;
  d.Nome = "FormSelezSpessore";
  d.Titolo = "Spessori di stampa";
  d.AggiungiCampo("Stampa_Scala_Plottaggio", "Stampa Scala", std::to_string(s.Imp.Stampa_Scala_Plottaggio));
  d.AggiungiCampo("Stampa_Nome_Lavoro", "Stampa Nome Lavoro", std::to_string(s.Imp.Stampa_Nome_Lavoro));
  d.AggiungiCampo("DIMENSIONEUNICAPUNTO", "Dimensione Unica Punto", FormaSemplice(s.Imp.DIMENSIONEUNICAPUNTO));
  d.AggiungiDato("Formato", " Formato carta ", "A4");
  d.AggiungiCampo("Scala", "Scala = 1:", "1000");
  for (int c = 1; c <= Colori(s); ++c)
    d.AggiungiCampo("Spessore" + std::to_string(c), "Colore " + std::to_string(c),
                    FormaSemplice(s.Spessori.Spessore[static_cast<size_t>(c)]));
  d.AggiungiBottone("Conferma", "Conferma", Conferma);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& ss) { ChiudiDialogo(ss, "FormSelezSpessore"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
