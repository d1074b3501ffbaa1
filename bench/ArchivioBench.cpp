// The archive of a job of 10^6 points and 10^5 lines (some 327 MB of members), as a save with
// `SalvaUnaCopiaZip` writes it, against a plain read of the same members; and the whole-job
// text of the same job. Prints the times and the archive's size.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "LavoroSintetico.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "store/Archivio.h"
#include "store/Carica.h"
#include "store/Slot.h"
#include "store/TestoLavoro.h"

using namespace varena;

namespace {

std::string gBase;

void LetturaMembri(benchmark::State& stato) {
  for (auto _ : stato) {
    int64_t letti = 0;
    for (int slot = 1; slot < NumeroSlot; ++slot)
      if (EstensioneFile(slot)[0] != '\0')
        if (const auto d = LeggiDati(gBase + EstensioneFile(slot))) letti += static_cast<int64_t>(d->Lunghezza);
    benchmark::DoNotOptimize(letti);
  }
}

void Archivio(benchmark::State& stato) {
  for (auto _ : stato) ScriviArchivioLavoro(gBase, "SINTETICO", gBase + ".VRZ");
  stato.counters["MB"] = static_cast<double>(LunghezzaFile(gBase + ".VRZ")) / 1e6;
}

void TestoIntero(benchmark::State& stato) {
  Sessione s;
  s.SolaLettura = true;
  s.NomeLavoro = s.NomeOriginale = gBase;
  CaricaLavoro(s);
  for (auto _ : stato) benchmark::DoNotOptimize(TestoTuttoIla7(s).size());
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const MisureLavoro misure{rapido ? 20000 : 1000000, rapido ? 2000 : 100000, 0, 0};
  gBase = (std::filesystem::temp_directory_path() / "varena-bench-archivio" / "SINTETICO").string();
  const int64_t byte = ScriviLavoroSintetico(gBase, misure);
  std::printf("Lavoro sintetico: %lld punti, %lld linee, %.1f MB\n", static_cast<long long>(misure.Punti),
              static_cast<long long>(misure.Linee), static_cast<double>(byte) / 1e6);
  const double tempo = rapido ? 0.05 : 2;
  benchmark::RegisterBenchmark("LetturaMembri", LetturaMembri)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("ArchivioVrz", Archivio)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("TestoXvr", TestoIntero)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  std::printf("Archivio %.1f ms (lettura dei membri %.1f ms), testo intero %.1f ms\n", r.tempi["ArchivioVrz"],
              r.tempi["LetturaMembri"], r.tempi["TestoXvr"]);
  std::filesystem::remove_all(std::filesystem::path(gBase).parent_path());
  return 0;
}
