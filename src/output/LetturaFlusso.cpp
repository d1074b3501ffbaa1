// The plot stream read back, record by record.
#include "output/LetturaFlusso.h"

#include <cmath>

#include "core/Conversioni.h"
#include "core/Testo.h"

namespace varena {

namespace {

// Texts carry no size of their own in the preview stream: the preview's names are printed
// at this height in metres.
constexpr double kAltezzaAnteprima = 1.0;

// Beyond a thousand kilometres from the page's centre nothing is a drawing: such numbers
// are garbage, and on paper they would overflow the sheet's coordinates.
constexpr double kLimite = 1e6;

bool Finiti(const ElementoFlusso& e) {
  for (double v : {e.X1, e.Y1, e.X2, e.Y2, e.Spessore, e.Altezza, e.Angolo})
    if (!(std::fabs(v) <= kLimite)) return false;
  return true;
}

// One record of its fields, or none for a record this spooler does not draw.
bool LeggiRecord(const std::vector<std::string>& c, ElementoFlusso& e) {
  const std::string& tag = c[0];
  auto n = [&c](size_t i) { return i < c.size() ? Val(c[i]) : 0.0; };
  auto t = [&c](size_t i) { return i < c.size() ? c[i] : std::string(); };
  if (tag == "L" || tag == "CN") {
    e.Tipo = ElementoFlusso::Linea;
    e.X1 = n(1), e.Y1 = n(2), e.X2 = n(3), e.Y2 = n(4), e.Spessore = n(5);
  } else if (tag == "C") {
    e.Tipo = ElementoFlusso::Cerchio;
    e.X1 = n(1), e.Y1 = n(2), e.X2 = n(3), e.Spessore = n(4);
  } else if (tag == "TT") {
    e.Tipo = ElementoFlusso::Scritta;
    e.Testo = t(1), e.X1 = n(2), e.Y1 = n(3), e.Angolo = n(4), e.Font = t(5), e.Altezza = n(6);
    e.Colore = InteroSaturato<int32_t>(n(7));
  } else if (tag == "PN" || tag == "PQ" || tag == "PD") {
    // A point's label stands by its top left corner: its foot is one height lower.
    e.Tipo = ElementoFlusso::Scritta;
    e.Testo = t(1), e.X1 = n(2), e.Altezza = std::fabs(n(5)), e.Y1 = n(3) - e.Altezza, e.Font = t(4);
    e.Colore = InteroSaturato<int32_t>(n(6));
  } else if (tag == "T") {
    e.Tipo = ElementoFlusso::Scritta;
    e.Testo = t(1), e.X1 = n(2), e.Y1 = n(3), e.Font = t(4), e.Altezza = kAltezzaAnteprima;
  } else if (tag == "IM") {
    e.Tipo = ElementoFlusso::Immagine;
    e.X1 = n(1), e.Y1 = n(2), e.X2 = n(3), e.Y2 = n(4), e.Testo = t(5);
  } else {
    return false;
  }
  return Finiti(e);
}

}  // namespace

PaginaFlusso LeggiFlussoStampa(std::string_view testo) {
  PaginaFlusso p;
  size_t inizio = 0;
  while (inizio < testo.size()) {
    size_t fine = testo.find('\n', inizio);
    if (fine == std::string_view::npos) fine = testo.size();
    std::string_view riga = testo.substr(inizio, fine - inizio);
    inizio = fine + 1;
    if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    if (riga.empty()) continue;
    const std::vector<std::string> campi = Dividi(riga, ',');
    if (campi[0] == "SCALA") {
      const double h = campi.size() > 1 ? Val(campi[1]) : 0.0;
      if (std::isfinite(h) && h > 0) p.AltezzaVista = h;
      continue;
    }
    ElementoFlusso e;
    if (LeggiRecord(campi, e)) p.Elementi.push_back(std::move(e));
  }
  return p;
}

}  // namespace varena
