// The sections laid out on sheets of paper: `ImpaginaSezioni.ini` in the program folder
// gives the page, its margins and the spacing; the command puts each section's frame in
// its place, in rows from the top left of a page, a new page to the right when one is full.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

// Millimetres of paper, except the counts.
struct Impaginazione {
  double Larghezza = 420, Altezza = 297;  // an A3 lying down
  double MargineSinistro = 20, MargineDestro = 10, MargineAlto = 10, MargineBasso = 10;
  double SpaziaturaOrizzontale = 10, SpaziaturaVerticale = 10;
  double DistanzaFogli = 20;  // between one page and the next on the sheet
  int Colonne = 0, Righe = 0;  // at most so many sections a row, rows a page; 0 as many as fit
  double Scala = 0;            // the denominator 1:n of the pages; 0 that of the first section
  int DisegnaFogli = 1;        // the page borders drawn as lines
  bool operator==(const Impaginazione&) const = default;
};

struct ImpaginazioneLetta {
  Impaginazione Pagina;
  std::vector<std::string> Scartati;  // the keys whose value was no use, left at the default
};

// "[ImpaginaSezioni]" and "Chiave=valore" lines; keys in any case, unknown ones ignored, a
// decimal comma read as a point. A value out of its range keeps the default; margins that
// leave no room on the page keep the default page and margins.
ImpaginazioneLetta LeggiImpaginazione(std::string_view testo);
std::string TestoImpaginazione(const Impaginazione& p);

// A frame to place, sheet metres, and where its top left corner goes.
struct Riquadro {
  double Larghezza, Altezza;
};
struct Posto {
  int Foglio;
  double X, Y;
};
// The frames in their order, pages from the top left corner (x0, y0) to the right;
// `metriPerMm` turns paper into sheet. A frame larger than a page has a page of its own.
std::vector<Posto> Impagina(const Impaginazione& p, double metriPerMm, const std::vector<Riquadro>& riquadri,
                            double x0, double y0);

std::string PercorsoImpaginazione(const Sessione& s);

// Code 383 (SEZIONI_IMPAGINA): the click is the top left corner of the first page.
void subImpaginaSezioni(Sessione& s);

}  // namespace varena
