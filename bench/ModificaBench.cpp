// A move of a selection of 10^5 entities (4·10^4 points, 5·10^4 lines, 10^4 texts) in a job
// of 2·10^5, from the second click to the command armed again: the work on the rows, the
// undo snapshot that writes the changed members, the regeneration of the rows moved. Target: 100 ms. Then
// the same selection copied, which appends rows and names new points, and the window that
// takes the selection.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <filesystem>

#include "LavoroSintetico.h"
#include "commands/RoutineModifica.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "selection/Selezione.h"
#include "store/Carica.h"
#include "store/Slot.h"
#include "store/Undo.h"

using namespace varena;

namespace {

Sessione* gS = nullptr;
MisureLavoro gMisure;
int64_t gScelti[3] = {0, 0, 0};  // points, lines, texts selected
int64_t gGiro = 0;

// The journal back at generation 1, its later generations gone: every timed snapshot writes
// generation 2 into a free name, and the disk holds two generations however long it runs.
void TornaAllaPrima(Sessione& s) {
  for (int64_t passo = 2; passo <= 3; ++passo) {
    const std::string radice = RadiceGenerazione(s, passo);
    for (int slot = 0; slot < NumeroSlot; ++slot)
      if (EstensioneFile(slot)[0] != '\0') EliminaFileEsatto(radice + EstensioneFile(slot));
  }
  ScriviDiario(s, {1, 1});
}

void Seleziona(Sessione& s) {
  AzzeraSelezione(s);
  std::fill_n(s.StatoPunto.begin(), gScelti[0], uint8_t{1});
  std::fill_n(s.StatoLinea.begin(), gScelti[1], uint8_t{1});
  std::fill_n(s.StatoTesto.begin(), gScelti[2], uint8_t{1});
}

// The command as the confirmation and the first click leave it; the second click is timed.
void Prepara(Sessione& s, int32_t codice) {
  TornaAllaPrima(s);
  Seleziona(s);
  s.ComandoCorrente = codice;
  s.SelezioneConfermata = true;
  s.PassoComando = 1;
  s.Punto1X = s.Punto1Y = s.Punto1Z = 0;
  // Back and forth, so that the drawing stays where it is.
  const double d = gGiro++ % 2 == 0 ? 0.5 : -0.5;
  s.PuntoCorrenteX = d, s.PuntoCorrenteY = d / 2, s.PuntoCorrenteZ = 0;
}

void Sposta(benchmark::State& stato) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    stato.PauseTiming();
    Prepara(s, 143);
    stato.ResumeTiming();
    subCambiaCopiaSpostaSpecchioScalaRuota(s);
    if (s.PassoComando != 0) stato.SkipWithError("spostamento non eseguito");
  }
}

void Copia(benchmark::State& stato) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    stato.PauseTiming();
    Prepara(s, 142);
    stato.ResumeTiming();
    subCambiaCopiaSpostaSpecchioScalaRuota(s);
    stato.PauseTiming();
    // The copies undone, so that each copy starts from the same job.
    if (!VR_UNDO(s)) stato.SkipWithError("annulla non riuscito");
    stato.ResumeTiming();
  }
}

void Finestra(benchmark::State& stato) {
  Sessione& s = *gS;
  for (auto _ : stato) {
    AzzeraSelezione(s);
    // Right to left over the whole survey: everything it touches.
    benchmark::DoNotOptimize(SelezionaFinestra(s, 1726000.0 + 1e4, 5031000.0 + 1e4, 1724000.0, 5029000.0));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const int64_t k = rapido ? 10 : 1;
  gMisure = {80000 / k, 100000 / k, 20000 / k, 0};
  gScelti[0] = 40000 / k, gScelti[1] = 50000 / k, gScelti[2] = 10000 / k;
  Sessione s;
  gS = &s;
  s.NomeOriginale = PreparaLavoroSintetico(s, "varena-bench-modifica", gMisure);
  VR_ApriLavoro(s);
  std::printf("Lavoro sintetico: %lld punti, %lld linee, %lld testi; selezione di %lld entità\n",
              static_cast<long long>(gMisure.Punti), static_cast<long long>(gMisure.Linee),
              static_cast<long long>(gMisure.Testi), static_cast<long long>(gScelti[0] + gScelti[1] + gScelti[2]));

  const double tempo = rapido ? 0.05 : 2;
  benchmark::RegisterBenchmark("SpostaSelezione", Sposta)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("CopiaSelezione", Copia)->Unit(benchmark::kMillisecond)->Iterations(rapido ? 2 : 5);
  benchmark::RegisterBenchmark("FinestraTutto", Finestra)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  std::printf("Spostamento di %lld entità con lo snapshot: %.1f ms (obiettivo 100 ms)\n",
              static_cast<long long>(gScelti[0] + gScelti[1] + gScelti[2]), r.tempi["SpostaSelezione"]);
  std::filesystem::remove_all(s.CartellaDocumenti);
  return 0;
}
