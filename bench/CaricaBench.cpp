// Loading a job of 10^6 points and 10^6 lines, against a plain sequential read of the same
// files. Prints both times and their ratio.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <memory>
#include <vector>

#include "LavoroSintetico.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Slot.h"

using namespace varena;

namespace {

std::string gBase;

void LetturaSemplice(benchmark::State& stato) {
  for (auto _ : stato) {
    int64_t letti = 0;
    for (int slot = 0; slot < NumeroSlot; ++slot) {
      // The point list for other tools is written, never read back: not part of a load.
      if (EstensioneFile(slot)[0] == '\0' || slot == SlotL) continue;
      FILE* f = std::fopen((gBase + EstensioneFile(slot)).c_str(), "rb");
      if (!f) continue;
      // The whole file into memory, as a loader that reads before parsing must.
      std::fseek(f, 0, SEEK_END);
      const auto n = static_cast<size_t>(std::ftell(f));
      std::unique_ptr<char[]> tutto(new char[n]);
      std::fseek(f, 0, SEEK_SET);
      letti += static_cast<int64_t>(std::fread(tutto.get(), 1, n, f));
      std::fclose(f);
      benchmark::DoNotOptimize(tutto.get());
    }
    stato.counters["MB"] = static_cast<double>(letti) / 1e6;
  }
}

void CaricaLavoroIntero(benchmark::State& stato) {
  for (auto _ : stato) {
    Sessione s;
    s.SolaLettura = true;
    s.NomeLavoro = s.NomeOriginale = gBase;
    CaricaLavoro(s);
    benchmark::DoNotOptimize(s.ContaEntita[SlotPunti]);
    stato.PauseTiming();
    {
      Sessione via;  // the old tables go outside the timed part
      std::swap(static_cast<TabelleEntita&>(via), static_cast<TabelleEntita&>(s));
    }
    stato.ResumeTiming();
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const MisureLavoro misure{rapido ? 20000 : 1000000, rapido ? 20000 : 1000000, 0, 0};
  gBase = (std::filesystem::temp_directory_path() / "varena-bench-carica" / "SINTETICO").string();
  const int64_t byte = ScriviLavoroSintetico(gBase, misure);
  std::printf("Lavoro sintetico: %lld punti, %lld linee, %.1f MB\n", static_cast<long long>(misure.Punti),
              static_cast<long long>(misure.Linee), static_cast<double>(byte) / 1e6);

  benchmark::RegisterBenchmark("LetturaSemplice", LetturaSemplice)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  benchmark::RegisterBenchmark("CaricaLavoro", CaricaLavoroIntero)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 2);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  const double lettura = r.tempi["LetturaSemplice"], carica = r.tempi["CaricaLavoro"];
  std::printf("Caricamento %.1f ms, lettura semplice %.1f ms, rapporto %.2f\n", carica, lettura,
              lettura > 0 ? carica / lettura : 0.0);
  std::filesystem::remove_all(std::filesystem::path(gBase).parent_path());
  return 0;
}
