// CXF import of a sheet of 100,000 lines and 2,000 borders (about 11 MB), against a bare
// count of its values. The import is the whole of it: the file read and decoded, the
// records appended to an open job, and the undo snapshot that saves the job and regenerates
// the drawing. Prints the times and their ratio.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "LavoroSintetico.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "exchange/CxfLettura.h"
#include "store/Carica.h"
#include "store/Undo.h"

using namespace varena;

namespace {

std::string gCxf, gBase;
Sessione* gS = nullptr;

// One value a line, as the cadastre writes its sheets: borders of eight vertices with one
// island of four, then the lines of two vertices with the digits of a national grid.
int64_t ScriviCxf(const std::string& percorso, int64_t linee, int64_t bordi) {
  std::string t = "G693_000100\r\n1000\r\n0\r\n";
  t.reserve(static_cast<size_t>(linee) * 80 + static_cast<size_t>(bordi) * 360);
  char buf[160];
  auto v = [&](double x, double y) {
    const int n = std::snprintf(buf, sizeof buf, "%.3f\r\n%.3f\r\n", x, y);
    t.append(buf, static_cast<size_t>(n));
  };
  for (int64_t b = 0; b < bordi; ++b) {
    const double x = 1725000.0 + static_cast<double>(b % 50) * 40, y = 5031000.0 + static_cast<double>(b / 50) * 40;
    t += "BORDO\r\nG693_000100." + std::to_string(b) + "\r\n1\r\n2.5\r\n0\r\n0\r\n" + std::to_string(b) + "\r\n";
    v(x + 20, y + 20);
    t += "1\r\n12\r\n4\r\n";
    for (const auto& [dx, dy] : {std::pair{0, 0}, {30, 0}, {30, 30}, {15, 35}, {0, 30}, {0, 15}, {0, 5}, {0, 0}})
      v(x + dx, y + dy);
    for (const auto& [dx, dy] : {std::pair{10, 10}, {15, 10}, {15, 15}, {10, 10}}) v(x + dx, y + dy);
  }
  for (int64_t i = 0; i < linee; ++i) {
    const double x = 1725000.0 + static_cast<double>(i % 1000) * 0.731, y = 5031000.0 + static_cast<double>(i / 1000) * 0.917;
    t += i % 2 ? "LINEA\r\nSTRADA\r\n2\r\n" : "LINEA\r\nFABBR\r\n2\r\n";
    v(x, y);
    v(x + 0.5, y + 0.25);
  }
  t += "EOF\r\n";
  ScriviByte(percorso, t);
  return static_cast<int64_t>(t.size());
}

// Every line of the file counted: the least any reader of one value a line must do.
void ContaValori(benchmark::State& stato) {
  for (auto _ : stato) {
    const auto byte = LeggiByte(gCxf);
    int64_t righe = 0;
    for (const char c : *byte) righe += c == '\n';
    benchmark::DoNotOptimize(righe);
    stato.counters["valori"] = static_cast<double>(righe);
  }
}

void Importa(benchmark::State& stato) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    stato.PauseTiming();
    s.NomeOriginale = gBase;
    VR_ApriLavoro(s);
    stato.ResumeTiming();
    if (!ImportaCxf(s, gCxf) || !VR_SalvaUndo(s)) stato.SkipWithError("importazione non riuscita");
    stato.counters["linee"] = s.ContaEntita[SlotLinee];
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const int64_t linee = rapido ? 5000 : 100000, bordi = rapido ? 100 : 2000;
  Sessione s;
  gS = &s;
  const MisureLavoro vuoto{0, 0, 0, 0};
  gBase = PreparaLavoroSintetico(s, "varena-bench-cxf", vuoto);
  const std::string radice = Cartella(gBase);
  gCxf = radice + "/FOGLIO.CXF";
  const int64_t byte = ScriviCxf(gCxf, linee, bordi);
  std::printf("Foglio: %lld LINEA, %lld BORDO, %.1f MB\n", static_cast<long long>(linee),
              static_cast<long long>(bordi), static_cast<double>(byte) / 1e6);
  const double minimo = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("ContaValori", ContaValori)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  benchmark::RegisterBenchmark("ImportaCxf", Importa)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  const double conta = r.tempi["ContaValori"], importa = r.tempi["ImportaCxf"];
  std::printf("Importazione %.1f ms (%.1f volte il conteggio)\n", importa, conta > 0 ? importa / conta : 0.0);
  std::filesystem::remove_all(radice);
  return 0;
}
