// Snapping on a survey of 10^6 entities (5·10^5 points, 4·10^5 lines, 9·10^4 texts, 10^4
// arcs): a click resolved by the general search, a click on a point, a pointer move with
// the point tooltip and with the mark of an entity snap, and a click on the drawing from a
// kilometre outside it in a view of ten metres. Targets: 20 ms a click, 5 ms a move.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

#include "LavoroSintetico.h"
#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "core/Sessione.h"
#include "view/Rigenera.h"

using namespace varena;

namespace {

struct Banco {
  Sessione s;
  std::vector<std::pair<double, double>> posti;
  double minX = 0, maxX = 0, minY = 0, maxY = 0;
  explicit Banco(int64_t n) {
    MisureLavoro m;
    m.Punti = n / 2;
    m.Linee = n * 4 / 10;
    m.Testi = n * 9 / 100;
    m.Archi = n / 100;
    RiempiLavoroSintetico(s, m);
    RigeneraLista(s);
    // Places all over the surveyed area, in a view of a hundred metres around each.
    minX = *std::min_element(s.PuntoX.begin(), s.PuntoX.begin() + m.Punti);
    maxX = *std::max_element(s.PuntoX.begin(), s.PuntoX.begin() + m.Punti);
    minY = *std::min_element(s.PuntoY.begin(), s.PuntoY.begin() + m.Punti);
    maxY = *std::max_element(s.PuntoY.begin(), s.PuntoY.begin() + m.Punti);
    std::mt19937 caso(1);
    std::uniform_real_distribution<double> u(0, 1);
    for (int i = 0; i < 4096; ++i) posti.emplace_back(minX + u(caso) * (maxX - minX), minY + u(caso) * (maxY - minY));
    s.Vista.AltezzaVista = 100;
    // A command whose clicks only resolve the snap: the time is the snap's.
    s.ComandoCorrente = 176;
    s.PassoComando = 1;
  }
  void Centra(size_t i) {
    s.Vista.CentroEst = posti[i % posti.size()].first;
    s.Vista.CentroNord = posti[i % posti.size()].second;
  }
};

Banco* gBanco = nullptr;

template <class Fai>
void Ciclo(benchmark::State& st, Fai fai) {
  size_t i = 0;
  for (auto _ : st) {
    gBanco->Centra(i++);
    fai(gBanco->s);
  }
}

void ClicSnapFine(benchmark::State& st) {
  Ciclo(st, [](Sessione& s) {
    s.ModoSnap = SnapFine;
    s.SnapDaTasto = true;
    MouseDown(s, BottoneSinistro, 0, 3.7, -2.1);
    benchmark::DoNotOptimize(s.PuntoCorrenteX);
  });
}

void ClicSnapPunto(benchmark::State& st) {
  Ciclo(st, [](Sessione& s) {
    s.ModoSnap = SnapNodo;
    s.SnapDaTasto = true;
    MouseDown(s, BottoneSinistro, 0, 3.7, -2.1);
    benchmark::DoNotOptimize(s.PuntoCorrenteX);
  });
}

void MossaConSuggerimento(benchmark::State& st) {
  Ciclo(st, [](Sessione& s) {
    s.ModoSnap = SnapNodo;
    MouseMove(s, 0, 0, 3.7, -2.1);
    benchmark::DoNotOptimize(s.Suggerimento.X);
  });
}

void MossaConSnapFine(benchmark::State& st) {
  Ciclo(st, [](Sessione& s) {
    s.ModoSnap = SnapFine;
    MouseMove(s, 0, 0, 3.7, -2.1);
    benchmark::DoNotOptimize(s.Elastico.Marca.X);
  });
}

void ClicDaUnChilometroFuori(benchmark::State& st) {
  Sessione& s = gBanco->s;
  s.Vista.CentroEst = gBanco->minX - 1000;
  s.Vista.CentroNord = (gBanco->minY + gBanco->maxY) / 2;
  s.Vista.AltezzaVista = 10;
  for (auto _ : st) {
    s.ModoSnap = SnapFine;
    s.SnapDaTasto = true;
    MouseDown(s, BottoneSinistro, 0, 0, 0);
    benchmark::DoNotOptimize(s.PuntoCorrenteX);
  }
  // An end of what stands at the edge of the survey, a kilometre away.
  if (s.PuntoCorrenteX < gBanco->minX - 100) st.SkipWithError("nothing found a kilometre away");
}

// What the trees add to every regeneration.
void CostruzioneAlberi(benchmark::State& st) {
  for (auto _ : st) IndicizzaVicinanza(gBanco->s);
}

}  // namespace

int main(int argc, char** argv) {
  const bool rapido = ModoRapido(argc, argv);
  const int64_t n = rapido ? 20000 : 1000000;
  Banco banco(n);
  gBanco = &banco;
  const double t = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("ClicSnapFine", ClicSnapFine)->Unit(benchmark::kMillisecond)->MinTime(t);
  benchmark::RegisterBenchmark("ClicSnapPunto", ClicSnapPunto)->Unit(benchmark::kMillisecond)->MinTime(t);
  benchmark::RegisterBenchmark("MossaConSuggerimento", MossaConSuggerimento)->Unit(benchmark::kMillisecond)->MinTime(t);
  benchmark::RegisterBenchmark("MossaConSnapFine", MossaConSnapFine)->Unit(benchmark::kMillisecond)->MinTime(t);
  benchmark::RegisterBenchmark("ClicDaUnChilometroFuori", ClicDaUnChilometroFuori)->Unit(benchmark::kMillisecond)->MinTime(t);
  benchmark::RegisterBenchmark("CostruzioneAlberi", CostruzioneAlberi)->Unit(benchmark::kMillisecond)->MinTime(t);
  InizializzaBenchmark(argc, argv);
  RaccoltaTempi r;
  benchmark::RunSpecifiedBenchmarks(&r);
  std::printf("Entita: %lld. Clic (obiettivo 20 ms): snap fine %.3f ms, punto %.3f ms, da 1 km fuori %.3f ms. "
              "Mossa (obiettivo 5 ms): suggerimento %.3f ms, snap fine %.3f ms. Alberi: %.1f ms\n",
              static_cast<long long>(n), r.tempi["ClicSnapFine"], r.tempi["ClicSnapPunto"],
              r.tempi["ClicDaUnChilometroFuori"], r.tempi["MossaConSuggerimento"], r.tempi["MossaConSnapFine"],
              r.tempi["CostruzioneAlberi"]);
  return 0;
}
