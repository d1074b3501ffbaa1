// The terrain of a large survey handed to the triangulator: points and breaklines written,
// varena-mesh run, its facets read back and recomputed. 10^6 points at national-grid
// coordinates and 10^3 breaklines at full size.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

#include "LavoroSintetico.h"
#include "core/ProcessiSistema.h"
#include "core/Sessione.h"
#include "terrain/Falde.h"
#include "terrain/Triangolazione.h"

using namespace varena;

namespace {

int64_t gPunti = 0;

// A rolling terrain; each breakline a short piece beside a point, which no other crosses.
void Riempi(Sessione& s, int64_t punti, int64_t linee) {
  std::mt19937_64 g(11);
  const double lato = std::sqrt(static_cast<double>(punti)) * 3;
  std::uniform_real_distribution<double> v(0, lato);
  PreparaRighe(s, SlotPunti, punti + 2 * linee);
  PreparaRighe(s, SlotLinee, linee);
  auto punto = [&](double x, double y) {
    const auto k = static_cast<size_t>(s.ContaEntita[SlotPunti]++);
    s.PuntoIdent[k] = 0, s.PuntoX[k] = 1725000 + x, s.PuntoY[k] = 5031000 + y;
    s.PuntoZ[k] = 100 + 10 * std::sin(x / 200) * std::cos(y / 300);
    s.StatoPunto[k] = 1;
  };
  for (int64_t i = 0; i < punti; ++i) punto(v(g), v(g));
  for (int64_t i = 0; i < linee; ++i) {
    const double x = v(g), y = v(g);
    punto(x, y), punto(x + 0.5, y + 0.2);
    const auto k = static_cast<size_t>(s.ContaEntita[SlotLinee]++);
    s.LineaIdent[k] = 0, s.LineaPiano[k] = "DISCONTI";
    s.LineaX1[k] = 1725000 + x, s.LineaY1[k] = 5031000 + y;
    s.LineaX2[k] = 1725000 + x + 0.5, s.LineaY2[k] = 5031000 + y + 0.2;
  }
}

void Triangola(benchmark::State& stato) {
  Sessione s;
  s.CartellaProgramma = (std::filesystem::temp_directory_path() / "varena_bench_terreno").string();
  std::filesystem::create_directories(s.CartellaProgramma);
  s.Imp.Limite_Punti_Triangolazione = 0;
  ProcessiSistema proc(s.Clip);
  Riempi(s, gPunti, 1000);
  for (auto _ : stato) {
    stato.PauseTiming();
    for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) s.StatoPunto[static_cast<size_t>(r)] = 1;
    stato.ResumeTiming();
    bool troppi = false;
    PreparaConsegna(s, troppi);
    FormDSQ(s);
    if (proc.Esegui(VARENA_MESH_PROGRAMMA, {}, s.CartellaProgramma) != 0) stato.SkipWithError("varena-mesh fallito");
    LeggiFaldeConsegna(s);
    AggiornaFalde(s);
    benchmark::DoNotOptimize(s.ContaEntita[SlotFalde]);
  }
  stato.counters["falde"] = s.ContaEntita[SlotFalde];
  std::filesystem::remove_all(s.CartellaProgramma);
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  gPunti = rapido ? 10000 : 1000000;
  std::printf("Terreno sintetico: %lld punti, 1000 linee di discontinuita'\n", static_cast<long long>(gPunti));
  benchmark::RegisterBenchmark("TriangolaPunti", Triangola)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  return 0;
}
