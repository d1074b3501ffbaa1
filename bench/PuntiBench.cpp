// Point file imports: a cloud of 10^7 points (about 300 MB of "X Y Z" lines) and a GSI-16
// file of 10^6 points read into an open job, against the least any reader must do: the file
// read and its numbers parsed with from_chars in a plain loop. Prints the times and ratios.
// Then the point list of those 10^6 points sorted by a column.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "LavoroSintetico.h"
#include "cadastre/ElencoPunti.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "exchange/ImportaPunti.h"
#include "store/Carica.h"

using namespace varena;

namespace {

std::string gNuvola, gGsi, gBase;
Sessione* gS = nullptr;

int64_t ScriviNuvola(const std::string& percorso, int64_t punti) {
  std::string t;
  t.reserve(static_cast<size_t>(punti) * 32);
  char buf[96];
  for (int64_t i = 0; i < punti; ++i) {
    const double x = 1725000.0 + static_cast<double>(i % 4000) * 0.013;
    const double y = 5031000.0 + static_cast<double>(i / 4000) * 0.011;
    const double z = 120.0 + static_cast<double>(i % 977) * 0.001;
    const int n = std::snprintf(buf, sizeof buf, "%.3f %.3f %.3f\n", x, y, z);
    t.append(buf, static_cast<size_t>(n));
  }
  ScriviByte(percorso, t);
  return static_cast<int64_t>(t.size());
}

int64_t ScriviGsi(const std::string& percorso, int64_t punti) {
  std::string t;
  t.reserve(static_cast<size_t>(punti) * 100);
  char buf[160];
  for (int64_t i = 0; i < punti; ++i) {
    const long long x = 1725000000LL + i % 4000 * 13, y = 5031000000LL + i / 4000 * 11, z = 120000 + i % 977;
    const int n = std::snprintf(buf, sizeof buf, "*11%04lld+%016lld 81..10+%016lld 82..10+%016lld 83..10+%016lld \r\n",
                                static_cast<long long>(i % 10000), static_cast<long long>(i + 1), x, y, z);
    t.append(buf, static_cast<size_t>(n));
  }
  ScriviByte(percorso, t);
  return static_cast<int64_t>(t.size());
}

// The limit: every blank-separated number of the file through from_chars, summed.
void Limite(benchmark::State& stato, const std::string* file) {
  for (auto _ : stato) {
    const auto byte = LeggiByte(*file);
    const char* p = byte->data();
    const char* fine = p + byte->size();
    double somma = 0;
    int64_t numeri = 0;
    while (p < fine) {
      while (p < fine && (*p == ' ' || *p == '\n' || *p == '\r' || *p == '*' || *p == '+')) ++p;
      double v = 0;
      const auto r = std::from_chars(p, fine, v);
      if (r.ec == std::errc()) {
        somma += v;
        ++numeri;
        p = r.ptr;
      } else {
        ++p;
      }
    }
    benchmark::DoNotOptimize(somma);
    stato.counters["numeri"] = static_cast<double>(numeri);
  }
}

void Importa(benchmark::State& stato, FormatoPunti f, const std::string* file) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    stato.PauseTiming();
    s.NomeOriginale = gBase;
    VR_ApriLavoro(s);
    stato.ResumeTiming();
    if (!ImportaPunti(s, f, *file, {})) stato.SkipWithError("importazione non riuscita");
    stato.counters["punti"] = s.ContaEntita[SlotPunti];
  }
}

// The point list sorted by name (texts) and by North (numbers), the rows of the GSI file's
// points, as a click on a header of the list sorts them.
void OrdinaElenco(benchmark::State& stato, int colonna) {
  Sessione& s = *gS;
  s.NomeOriginale = gBase;
  VR_ApriLavoro(s);
  if (!ImportaPunti(s, FormatoPunti::Gsi, gGsi, {})) stato.SkipWithError("importazione non riuscita");
  const std::vector<int32_t> righe = RigheElencoPunti(s);
  for (auto _ : stato) {
    stato.PauseTiming();
    std::vector<int32_t> r = righe;
    stato.ResumeTiming();
    OrdinaElencoPunti(s, r, colonna, false);
    benchmark::DoNotOptimize(r.data());
  }
  stato.counters["righe"] = static_cast<double>(righe.size());
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const int64_t nuvola = rapido ? 20000 : 10000000, gsi = rapido ? 10000 : 1000000;
  Sessione s;
  gS = &s;
  const MisureLavoro vuoto{0, 0, 0, 0};
  gBase = PreparaLavoroSintetico(s, "varena-bench-punti", vuoto);
  const std::string radice = Cartella(gBase);
  gNuvola = radice + "/NUVOLA.XYZ";
  gGsi = radice + "/PUNTI.GSI";
  const int64_t bn = ScriviNuvola(gNuvola, nuvola), bg = ScriviGsi(gGsi, gsi);
  std::printf("Nuvola: %lld punti, %.1f MB; GSI-16: %lld punti, %.1f MB\n", static_cast<long long>(nuvola),
              static_cast<double>(bn) / 1e6, static_cast<long long>(gsi), static_cast<double>(bg) / 1e6);

  const double minimo = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("LimiteNuvola", Limite, &gNuvola)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  benchmark::RegisterBenchmark("ImportaNuvola", Importa, FormatoPunti::Nuvola, &gNuvola)
      ->Unit(benchmark::kMillisecond)
      ->MinTime(minimo);
  benchmark::RegisterBenchmark("LimiteGsi", Limite, &gGsi)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  benchmark::RegisterBenchmark("ImportaGsi", Importa, FormatoPunti::Gsi, &gGsi)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  benchmark::RegisterBenchmark("OrdinaPerNome", OrdinaElenco, static_cast<int>(ColonnaNome))
      ->Unit(benchmark::kMillisecond)
      ->MinTime(minimo);
  benchmark::RegisterBenchmark("OrdinaPerNord", OrdinaElenco, static_cast<int>(ColonnaNord))
      ->Unit(benchmark::kMillisecond)
      ->MinTime(minimo);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  auto rapporto = [&](const char* a, const char* b) { return r.tempi[b] > 0 ? r.tempi[a] / r.tempi[b] : 0.0; };
  std::printf("Nuvola %.1f ms (%.2f volte il limite), GSI-16 %.1f ms (%.2f volte il limite)\n", r.tempi["ImportaNuvola"],
              rapporto("ImportaNuvola", "LimiteNuvola"), r.tempi["ImportaGsi"], rapporto("ImportaGsi", "LimiteGsi"));
  std::filesystem::remove_all(radice);
  return 0;
}
