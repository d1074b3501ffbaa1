// Contour lines: the facets cut at each level into polylines (`.DUE`), smoothed into the
// curve table (slot 9), drawn, coloured, exploded into lines.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

// The sentinel of the curve at the reference height in `.DUE`.
inline constexpr double kQuotaRiferimentoDue = -2000;

struct Spezzata {
  double Quota = 0;
  std::vector<double> X, Y;
};

// `GeneraSpezzate`: every live, unfrozen facet cut at the multiples of `Equidistanza`, the
// cuts chained into polylines and written to the job's `.DUE`. False, with the message,
// when there is no facet to cut.
bool GeneraSpezzate(Sessione& s);

// The polylines of a `.DUE` text. A block cut short, or a count that is not one, is an error
// (thrown): the caller keeps what it had.
std::vector<Spezzata> LeggiDue(std::string_view testo);
std::string ScriviDue(const std::vector<Spezzata>& spezzate);

// `CalcolaContur`: the polylines of `.DUE` smoothed, a cubic a span, into the curve table.
// Nothing changes when `.DUE` is missing or unreadable.
void CalcolaContur(Sessione& s);

// The ways `Spliner` draws 100 points through the vertices of a polyline.
enum class MetodoSpline { Bezier, BSpline, BSplineChiusa, Interpolante };
// `Spliner`: `GeneraSpezzate`, then every polyline as 100 points of the method chosen (the
// degree serves the interpolating one) into the curve table.
void Spliner(Sessione& s, MetodoSpline metodo, int grado);
// The 100 points of one polyline.
void PuntiSpline(const Spezzata& p, MetodoSpline metodo, int grado, std::vector<double>& x, std::vector<double>& y);

// The colour of a curve of height `quota` (the sentinel included) by the reference height.
int32_t ColoreCurva(const Sessione& s, double quota);

// The records of row `riga` of the curve table: a vertex row followed by a vertex row is the
// segment between them, kind 9; the closing row of a curve carries its height label when
// the curve labels are on.
void RigeneraCurva(Sessione& s, int32_t riga);

// ESPLODI_CURVE_LIVELLO, ELIMINA_CURVE_ESPLOSE, and the curves' own tags.
void AzioneGeneraCurve(Sessione& s);
void AzioneEsplodiCurve(Sessione& s);
void AzioneEliminaCurveEsplose(Sessione& s);
bool ApriFormColoraCurve(Sessione& s);
bool ApriFrmSplines(Sessione& s);

}  // namespace varena
