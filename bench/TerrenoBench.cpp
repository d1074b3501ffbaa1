// The terrain of a large survey handed to the triangulator: points and breaklines written,
// varena-mesh run, its facets read back and recomputed; then the contour lines at 1 m of
// those facets. 10^6 points at national-grid coordinates and 10^3 breaklines at full size.
// With --falde=FILE the facets are also written there (nine doubles each) for
// bench/curve_matplotlib.py, which contours the same triangles with matplotlib.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

#include "LavoroSintetico.h"
#include "core/ProcessiSistema.h"
#include "core/Sessione.h"
#include "terrain/Curve.h"
#include "terrain/Falde.h"
#include "terrain/Triangolazione.h"

using namespace varena;

namespace {

int64_t gPunti = 0;
std::string gFileFalde;

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

// The facets of the synthetic survey, triangulated once.
void PreparaFalde(Sessione& s, ProcessiSistema& proc) {
  Riempi(s, gPunti, 1000);
  bool troppi = false;
  PreparaConsegna(s, troppi);
  FormDSQ(s);
  proc.Esegui(VARENA_MESH_PROGRAMMA, {}, s.CartellaProgramma);
  LeggiFaldeConsegna(s);
  AggiornaFalde(s);
}

void CurveDiLivello(benchmark::State& stato) {
  Sessione s;
  s.CartellaProgramma = (std::filesystem::temp_directory_path() / "varena_bench_curve").string();
  std::filesystem::create_directories(s.CartellaProgramma);
  s.NomeLavoro = s.CartellaProgramma + "/CURVE";
  s.Imp.Limite_Punti_Triangolazione = 0;
  ProcessiSistema proc(s.Clip);
  PreparaFalde(s, proc);
  if (!gFileFalde.empty()) {
    std::vector<double> v;
    for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
      if (s.FaldaIdent[r] != 0) continue;
      for (double c : {s.FaldaX1[r], s.FaldaY1[r], s.FaldaZ1[r], s.FaldaX2[r], s.FaldaY2[r], s.FaldaZ2[r], s.FaldaX3[r],
                       s.FaldaY3[r], s.FaldaZ3[r]})
        v.push_back(c);
    }
    if (FILE* f = std::fopen(gFileFalde.c_str(), "wb")) {
      std::fwrite(v.data(), sizeof(double), v.size(), f);
      std::fclose(f);
    }
  }
  s.Terreno.Equidistanza = 1;
  for (auto _ : stato) {
    GeneraSpezzate(s);
    benchmark::DoNotOptimize(s.ContaEntita[SlotFalde]);
  }
  stato.counters["falde"] = s.ContaEntita[SlotFalde];
  stato.counters["byte_DUE"] = static_cast<double>(std::filesystem::file_size(s.NomeLavoro + ".DUE"));
  std::filesystem::remove_all(s.CartellaProgramma);
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  gPunti = rapido ? 10000 : 1000000;
  for (int i = 1; i < argc; ++i) {
    const std::string a = argv[i];
    if (a.rfind("--falde=", 0) == 0) gFileFalde = a.substr(8);
    if (a.rfind("--punti=", 0) == 0) gPunti = std::stoll(a.substr(8));
  }
  std::printf("Terreno sintetico: %lld punti, 1000 linee di discontinuita'\n", static_cast<long long>(gPunti));
  benchmark::RegisterBenchmark("TriangolaPunti", Triangola)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  benchmark::RegisterBenchmark("CurveDiLivello1m", CurveDiLivello)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  return 0;
}
