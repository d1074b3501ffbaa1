// A synthetic job of realistic shape for the benchmarks: a survey of many points with
// fiducial-like and numbered names, lines between them, texts and facets.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

struct MisureLavoro {
  int64_t Punti = 0;
  int64_t Linee = 0;
  int64_t Testi = 0;
  int64_t Falde = 0;
  int64_t Archi = 0;
  // Label sizes of the points: negative values are a share of the view, as the default
  // point configurations have them; positive ones are metres on the sheet.
  double DimensioneEtichette = -1.5;
};

// Fills the tables of `s` (cleared first) with a deterministic survey.
void RiempiLavoroSintetico(Sessione& s, const MisureLavoro& misure);

// Writes that job as `base`.* and returns the sum of its members' sizes in bytes.
int64_t ScriviLavoroSintetico(const std::string& base, const MisureLavoro& misure);

// A working root `nome` under the system's temporary folder, emptied first, set in `s`, and
// the synthetic job written in it; returns the job's base path (not yet opened) and, in
// `byte`, the size of its members.
std::string PreparaLavoroSintetico(Sessione& s, const std::string& nome, const MisureLavoro& misure,
                                   int64_t* byte = nullptr);

// --rapido among the arguments: the small sizes CI runs with.
bool ModoRapido(int argc, char** argv);
// Google Benchmark's own options from the command line, ours left out.
void InizializzaBenchmark(int argc, char** argv);

// The console report, keeping each benchmark's time (in its unit) for the closing lines.
class RaccoltaTempi : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& r : runs) tempi[r.run_name.function_name] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> tempi;
};

}  // namespace varena
