// The field book of a large survey turned into the drawing (scheme, heights, tags and
// structures), the regeneration of its structures from the points, and the lines of the
// drawing tied to its points, on a synthetic job.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "LavoroSintetico.h"
#include "cadastre/ContornoSette.h"
#include "cadastre/LibrettoDaDisegno.h"
#include "cadastre/LibrettoDisegno.h"
#include "core/Sessione.h"

using namespace varena;

namespace {

MisureLavoro gMisure;

// One station every hundred points, reading each of them; a contour of five of them and a
// traverse of stations every thousand: rows of every form the drawing takes.
void RiempiLibretto(Sessione& s, int64_t punti) {
  s.LibrettoMisure = {"0|010199|1|G693|0010|1|ROSSI|GEOMETRA|PADOVA|", "9|20|10|20|1070|9.00-G|FR|x|"};
  std::string poligonale = "3|1|";
  for (int64_t i = 0; i < punti; ++i) {
    const std::string n = std::to_string(100 + i);
    if (i % 100 == 0) {
      s.LibrettoMisure.push_back("1|" + n + "|1.500|");
      if (i % 1000 == 0) poligonale += n + "|";
    } else {
      s.LibrettoMisure.push_back("2|" + n + "|123.4567|100.1234|25.000|1.500|");
    }
    if (i % 100 == 50) {
      s.LibrettoMisure.push_back("6|FABBRICATO|");
      s.LibrettoMisure.push_back("7|5|" + n + "|" + std::to_string(101 + i) + "|" + std::to_string(102 + i) + "|" +
                                 std::to_string(103 + i) + "|" + n + "|NC|");
    }
  }
  s.LibrettoMisure.push_back(poligonale);
}

void AssumeTutto(benchmark::State& stato) {
  Sessione s;
  for (auto _ : stato) {
    stato.PauseTiming();
    RiempiLavoroSintetico(s, gMisure);
    RiempiLibretto(s, gMisure.Punti);
    stato.ResumeTiming();
    AssumeTuttoDaTXT(s);
    benchmark::DoNotOptimize(s.ContaEntita[SlotSette]);
  }
  stato.counters["righe"] = static_cast<double>(s.LibrettoMisure.size());
  stato.counters["strutture"] = s.ContaEntita[SlotSette];
}

void RigeneraStrutture(benchmark::State& stato) {
  Sessione s;
  RiempiLavoroSintetico(s, gMisure);
  RiempiLibretto(s, gMisure.Punti);
  AssumeTuttoDaTXT(s);
  for (auto _ : stato) {
    // A regeneration of its own each time, so that the points are looked up by name again.
    s.ListaDisegno.Svuota();
    ++s.Rigenerazione.Passata;
    for (int32_t r = 0; r < s.ContaEntita[SlotSette]; ++r) RigeneraSetteRiga(s, r);
    benchmark::DoNotOptimize(s.ListaDisegno.Conta());
  }
  stato.counters["record"] = static_cast<double>(s.ListaDisegno.Conta());
}

// Every end of every line looked up among the points: a tenth of the book's points, as
// many lines.
void LineeTraPunti(benchmark::State& stato) {
  Sessione s;
  RiempiLavoroSintetico(s, MisureLavoro{gMisure.Punti / 10, gMisure.Punti / 10, 0, 0});
  // Each line from a point to the next, as a survey's sides are drawn.
  for (size_t r = 0; r + 1 < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++r) {
    s.LineaX1[r] = s.PuntoX[r], s.LineaY1[r] = s.PuntoY[r];
    s.LineaX2[r] = s.PuntoX[r + 1], s.LineaY2[r] = s.PuntoY[r + 1];
  }
  size_t legate = 0;
  for (auto _ : stato) benchmark::DoNotOptimize(legate = LineePuntiEstremi(s, 0).Righe.size());
  stato.counters["linee legate"] = static_cast<double>(legate);
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  gMisure = MisureLavoro{rapido ? 20000 : 1000000, 0, 0, 0};
  std::printf("Libretto sintetico: %lld punti\n", static_cast<long long>(gMisure.Punti));
  benchmark::RegisterBenchmark("AssumeTuttoDaTXT", AssumeTutto)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  benchmark::RegisterBenchmark("RigeneraSetteSette", RigeneraStrutture)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  benchmark::RegisterBenchmark("LineePuntiEstremi", LineeTraPunti)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  return 0;
}
