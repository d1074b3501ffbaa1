// The totals of the facets' area, cut and fill, the report of them that the user can save
// as CSV, and its dialog.
#pragma once

#include <cstdint>
#include <string>

namespace varena {

struct Sessione;

struct TotaliVolumi {
  int64_t Falde = 0;
  double Area = 0, Sterro = 0, Riporto = 0;
};

// Plain sums of the fields of the live facets, as `AggiornaFalde` left them.
TotaliVolumi SommaVolumi(const Sessione& s);

// The report: a heading row, one row a live facet (its number as its label shows it, area,
// cut, fill to the millimetre), and the totals; commas between fields, CR LF at the end of
// each row.
std::string CsvVolumi(const Sessione& s);

// VOLUMI_FALDE: the facets recomputed against the reference height, the totals shown; the
// reference can be changed and the values computed again, and the report saved as CSV.
bool ApriVolumiFalde(Sessione& s);

}  // namespace varena
