// DXF import and export of a drawing of 200,000 LINE entities in the form ezdxf writes an
// R2000 file (about 33 MB), against a bare scan of its code and value pairs. The import is
// the whole of it: the file read and cut down, the work file written, the passes into an
// open job, and the undo snapshot that saves the job and regenerates the drawing. Prints the
// times and the ratios.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "LavoroSintetico.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "exchange/DxfLettura.h"
#include "exchange/DxfScrittura.h"
#include "store/Carica.h"
#include "store/Undo.h"

using namespace varena;

namespace {

std::string gDxf, gUscita, gRadice, gBase;
Sessione* gS = nullptr;

// The file: a header and tables as a writer puts them, then the lines, each with its
// handle, owner and subclass markers, coordinates with the digits of a survey.
int64_t ScriviDxf(const std::string& percorso, int64_t linee) {
  std::string t;
  t.reserve(static_cast<size_t>(linee) * 170 + 4096);
  t += "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  9\n$INSUNITS\n 70\n6\n  0\nENDSEC\n";
  t += "  0\nSECTION\n  2\nTABLES\n  0\nTABLE\n  2\nLAYER\n  5\n2\n330\n0\n100\nAcDbSymbolTable\n 70\n1\n"
       "  0\nLAYER\n  5\n10\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n  2\n0\n 70\n0\n"
       " 62\n7\n  6\nContinuous\n  0\nENDTAB\n  0\nENDSEC\n";
  t += "  0\nSECTION\n  2\nENTITIES\n";
  char buf[256];
  for (int64_t i = 0; i < linee; ++i) {
    const double x = 1725000.0 + static_cast<double>(i % 1000) * 0.731 + static_cast<double>(i) * 1e-6;
    const double y = 5031000.0 + static_cast<double>(i / 1000) * 0.917;
    const int n = std::snprintf(buf, sizeof buf,
                                "  0\nLINE\n  5\n%llX\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n 10\n%.9f\n"
                                " 20\n%.9f\n 30\n0.0\n 11\n%.9f\n 21\n%.9f\n 31\n0.0\n",
                                static_cast<unsigned long long>(i + 0x30), x, y, x + 0.5, y + 0.25);
    t.append(buf, static_cast<size_t>(n));
  }
  t += "  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS\n  0\nENDSEC\n  0\nEOF\n";
  ScriviByte(percorso, t);
  return static_cast<int64_t>(t.size());
}

// Every pair of the file, its code read as a number: the least any reader must do.
void ScansioneCoppie(benchmark::State& stato) {
  for (auto _ : stato) {
    const auto byte = LeggiByte(gDxf);
    const char* p = byte->data();
    const char* fine = p + byte->size();
    int64_t coppie = 0, somma = 0;
    while (p < fine) {
      const char* a = static_cast<const char*>(std::memchr(p, '\n', static_cast<size_t>(fine - p)));
      if (!a) break;
      int codice = 0;
      for (const char* q = p; q < a; ++q)
        if (*q >= '0' && *q <= '9') codice = codice * 10 + (*q - '0');
      const char* b = static_cast<const char*>(std::memchr(a + 1, '\n', static_cast<size_t>(fine - a - 1)));
      if (!b) break;
      somma += codice + (b - a);
      ++coppie;
      p = b + 1;
    }
    benchmark::DoNotOptimize(somma);
    stato.counters["coppie"] = static_cast<double>(coppie);
  }
}

// A fresh copy of the empty job, opened, outside the timed part.
void ApriVuoto(Sessione& s) {
  s.NomeOriginale = gBase;
  VR_ApriLavoro(s);
}

void Importa(benchmark::State& stato) {
  Sessione& s = *gS;
  OpzioniDxfIn o;
  for (int i = DxfPolilinee; i <= DxfArchi; ++i) o.Check[static_cast<size_t>(i)] = true;
  for (auto _ : stato) {
    stato.PauseTiming();
    ApriVuoto(s);
    stato.ResumeTiming();
    if (!ImportaDxf(s, gDxf, o) || !VR_SalvaUndo(s)) stato.SkipWithError("importazione non riuscita");
    stato.counters["linee"] = s.ContaEntita[SlotLinee];
  }
}

void Esporta(benchmark::State& stato) {
  Sessione& s = *gS;
  const OpzioniDxfOut o;
  for (auto _ : stato)
    if (!DxfOut(s, o, gUscita)) stato.SkipWithError("esportazione non riuscita");
  stato.counters["MB"] = static_cast<double>(LunghezzaFile(gUscita)) / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const int64_t linee = rapido ? 10000 : 200000;
  Sessione s;
  gS = &s;
  const MisureLavoro vuoto{0, 0, 0, 0};
  const std::string base = PreparaLavoroSintetico(s, "varena-bench-dxf", vuoto);
  gBase = base;
  gRadice = Cartella(base);
  gDxf = gRadice + "/LINEE.DXF";
  gUscita = gRadice + "/USCITA.DXF";
  const int64_t byte = ScriviDxf(gDxf, linee);
  std::printf("Disegno: %lld LINE, %.1f MB\n", static_cast<long long>(linee), static_cast<double>(byte) / 1e6);

  const double minimo = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("ScansioneCoppie", ScansioneCoppie)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  benchmark::RegisterBenchmark("ImportaDxf", Importa)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  benchmark::RegisterBenchmark("DxfOut", Esporta)->Unit(benchmark::kMillisecond)->MinTime(minimo);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  const double scansione = r.tempi["ScansioneCoppie"], importa = r.tempi["ImportaDxf"], esporta = r.tempi["DxfOut"];
  std::printf("Importazione %.1f ms (%.2f volte la scansione), esportazione %.1f ms\n", importa,
              scansione > 0 ? importa / scansione : 0.0, esporta);
  std::filesystem::remove_all(gRadice);
  return 0;
}
