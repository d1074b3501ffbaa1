// The snapshot that follows the edit of one line, on a job of 10^6 points and 10^5 lines,
// regeneration included, against the snapshot that rewrites every member and copies it into
// the generation; then undo and redo of that edit, each of which reads again the members
// that differ and regenerates the rows that changed. Prints the times, the ratio of the two
// snapshots, and the opening with its first generation.
#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "LavoroSintetico.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "store/Slot.h"
#include "store/Undo.h"

using namespace varena;

namespace {

Sessione* gS = nullptr;
int64_t gModifiche = 0;

// Generation 2 goes and the journal points at generation 1 again, outside the timed part:
// every timed snapshot then writes generation 2 into a free name, as a snapshot normally
// does, and the disk holds two generations whatever the number of runs.
void TornaAllaPrima(Sessione& s) {
  const std::string radice = RadiceGenerazione(s, 2);
  for (int slot = 0; slot < NumeroSlot; ++slot)
    if (EstensioneFile(slot)[0] != '\0') EliminaFileEsatto(radice + EstensioneFile(slot));
  ScriviDiario(s, {1, 1});
}

void CambiaUnaLinea(Sessione& s) {
  const auto r = static_cast<size_t>(gModifiche++ % s.ContaEntita[SlotLinee]);
  s.LineaX2[r] += 0.001;
  SegnaRiga(s, SlotLinee, static_cast<int64_t>(r));
}

// `completo`: every member rewritten and copied, as the snapshot was first made.
void Snapshot(benchmark::State& stato, bool completo) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    stato.PauseTiming();
    TornaAllaPrima(s);
    stato.ResumeTiming();
    CambiaUnaLinea(s);
    if (!VR_SalvaUndo(s, completo)) stato.SkipWithError("snapshot non riuscito");
  }
}

// Undo runs from generation 2 of 2, redo from 1 of 2.
void Sposta(benchmark::State& stato, bool annulla) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    stato.PauseTiming();
    if (LeggiDiario(s)->Passo == (annulla ? 1 : 2)) annulla ? VR_REDO(s) : VR_UNDO(s);
    stato.ResumeTiming();
    if (!(annulla ? VR_UNDO(s) : VR_REDO(s))) stato.SkipWithError("undo o redo non riuscito");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const MisureLavoro misure{rapido ? 20000 : 1000000, rapido ? 2000 : 100000, 0, 0};
  Sessione s;
  gS = &s;
  int64_t byte = 0;
  const std::string base = PreparaLavoroSintetico(s, "varena-bench-undo", misure, &byte);
  std::printf("Lavoro sintetico: %lld punti, %lld linee, %.1f MB\n", static_cast<long long>(misure.Punti),
              static_cast<long long>(misure.Linee), static_cast<double>(byte) / 1e6);
  s.NomeOriginale = base;
  const auto inizio = std::chrono::steady_clock::now();
  const std::clock_t cpu = std::clock();
  VR_ApriLavoro(s);
  const double apertura =
      std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - inizio).count();
  const double aperturaCpu = 1000.0 * static_cast<double>(std::clock() - cpu) / CLOCKS_PER_SEC;
  std::printf("Apertura con la prima generazione: %.0f ms, %.0f ms CPU (obiettivo 1200 ms)\n", apertura, aperturaCpu);

  const double tempo = rapido ? 0.05 : 2;
  // Undo and redo go between the generation of the opening and that of the lines edited, which
  // share every other member; the snapshot that rewrites every member comes last, since after
  // it no member is shared any more.
  benchmark::RegisterBenchmark("SnapshotUnaLinea", Snapshot, false)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("Annulla", Sposta, true)->Unit(benchmark::kMillisecond)->Iterations(rapido ? 3 : 5);
  benchmark::RegisterBenchmark("Ripristina", Sposta, false)->Unit(benchmark::kMillisecond)->Iterations(rapido ? 3 : 5);
  benchmark::RegisterBenchmark("SnapshotCompleto", Snapshot, true)->Unit(benchmark::kMillisecond)->Iterations(3);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  const double una = r.tempi["SnapshotUnaLinea"], tutto = r.tempi["SnapshotCompleto"];
  std::printf("Snapshot dopo una linea %.1f ms (obiettivo 30 ms), snapshot completo %.1f ms, rapporto %.1f\n", una, tutto,
              una > 0 ? tutto / una : 0.0);
  std::printf("Annulla %.1f ms, ripristina %.1f ms (obiettivo 60 ms ciascuno)\n", r.tempi["Annulla"],
              r.tempi["Ripristina"]);
  std::filesystem::remove_all(s.CartellaDocumenti);
  return 0;
}
