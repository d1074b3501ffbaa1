// Regeneration and redraw of a survey at 1600 x 1000: 10^5 points with their three labels,
// 10^5 lines of mixed styles, 10^4 texts, 10^3 arcs (and the same shape at other sizes).
// Prints, per size, the regeneration, the redraw of the whole job and of 1% of it.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <vector>
#include <string>
#include <memory>

#include "LavoroSintetico.h"
#include "SuperficieQt.h"
#include "core/Sessione.h"
#include "view/Rigenera.h"
#include "view/Ridisegna.h"
#include "view/Zoom.h"

using namespace varena;

namespace {

struct Banco {
  Sessione s;
  QImage immagine{1600, 1000, QImage::Format_RGB32};
  std::unique_ptr<SuperficieQt> sup;
  explicit Banco(int64_t scala) {
    MisureLavoro m;
    m.Punti = m.Linee = scala;
    m.Testi = scala / 10;
    m.Archi = scala / 100;
    RiempiLavoroSintetico(s, m);
    // The nine default colours and the default line types, as a fresh installation has.
    const ColoreRGB c[10] = {0, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x414141, 0x808080};
    for (int i = 0; i < 10; ++i) s.Colori.Colore[static_cast<size_t>(i)] = c[i];
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};
    s.Tratteggi.Stili[3].Elementi = {2, -0.5, 0.5};
    sup = std::make_unique<SuperficieQt>(&immagine, 1600, 1000, 96);
    s.Schermo = sup.get();
    RigeneraLista(s);
  }
  void Tutto() { (void)TuttoTutto(s); }
  void UnPercento() {
    // A window of a tenth of the job's height: about a hundredth of its area.
    Tutto();
    s.Vista.AltezzaVista /= 10.0;
  }
};

std::map<int64_t, std::unique_ptr<Banco>> gBanchi;
Banco& BancoDi(int64_t scala) {
  auto& b = gBanchi[scala];
  if (!b) b = std::make_unique<Banco>(scala);
  return *b;
}

void Rigenerazione(benchmark::State& st) {
  Banco& b = BancoDi(st.range(0));
  for (auto _ : st) RigeneraLista(b.s);
  st.counters["record"] = static_cast<double>(b.s.ListaDisegno.Conta());
}

void RidisegnoTutto(benchmark::State& st) {
  Banco& b = BancoDi(st.range(0));
  b.Tutto();
  for (auto _ : st) Ridisegna(b.s);
}

void RidisegnoUnPercento(benchmark::State& st) {
  Banco& b = BancoDi(st.range(0));
  b.UnPercento();
  for (auto _ : st) Ridisegna(b.s);
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int argcQt = 1;
  QGuiApplication app(argcQt, argv);
  const bool rapido = ModoRapido(argc, argv);
  std::vector<int64_t> scale = rapido ? std::vector<int64_t>{10000} : std::vector<int64_t>{10000, 100000, 1000000};
  for (int64_t n : scale) {
    benchmark::RegisterBenchmark("Rigenerazione", Rigenerazione)->Arg(n)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 1);
    benchmark::RegisterBenchmark("RidisegnoTutto", RidisegnoTutto)->Arg(n)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 1);
    benchmark::RegisterBenchmark("RidisegnoUnPercento", RidisegnoUnPercento)->Arg(n)->Unit(benchmark::kMillisecond)->MinTime(rapido ? 0.05 : 1);
  }
  std::vector<char*> argomenti;
  for (int i = 0; i < argc; ++i)
    if (std::string(argv[i]) != "--rapido") argomenti.push_back(argv[i]);
  int argcB = static_cast<int>(argomenti.size());
  benchmark::Initialize(&argcB, argomenti.data());
  benchmark::RunSpecifiedBenchmarks();
  std::printf("Scale: punti = linee = N, testi N/10, archi N/100, 1600x1000, etichette %s\n",
              "al 1.5%% della vista");
  return 0;
}
