// Regeneration and redraw of a survey at 1600 x 1000: 10^5 points with their three labels,
// 10^5 lines of mixed styles, 10^4 texts, 10^3 arcs (and the same shape at other sizes).
// Prints, per size, the regeneration, the redraw of the whole job and of 1% of it. Then the
// jobs that once multiplied the drawing: N dashed lines of 20 km, regenerated and painted
// whole and in a view of 100 m, N dashed circles of 1 to 3 km, and arcs whose amplitude is a
// hundred thousand turns.
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

// N lines of 20 km in dashes of 3 m, half a metre apart; or N circles in the same dashes,
// of radius 1 km and a tenth of a metre more each.
struct BancoTratteggi {
  Sessione s;
  QImage immagine{1600, 1000, QImage::Format_RGB32};
  std::unique_ptr<SuperficieQt> sup;
  BancoTratteggi(int64_t n, bool cerchi) {
    s.Colori.Colore[1] = 0xFF0000;
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};
    for (int64_t i = 0; i < n; ++i) {
      if (cerchi) {
        DimensionaCerchi(s);
        const auto r = static_cast<size_t>(s.ContaEntita[SlotCerchi]++);
        s.CerchioX[r] = s.CerchioY[r] = 0, s.CerchioRaggio[r] = 1000 + static_cast<double>(i) * 0.1;
        s.CerchioColore[r] = 1;
        s.CerchioTratteggio[r] = 2;
        s.CerchioPiano[r] = "0";
        continue;
      }
      DimensionaLinee(s);
      const auto r = static_cast<size_t>(s.ContaEntita[SlotLinee]++);
      s.LineaX1[r] = 0, s.LineaY1[r] = static_cast<double>(i) * 0.5;
      s.LineaX2[r] = 20000, s.LineaY2[r] = static_cast<double>(i) * 0.5;
      s.LineaColore[r] = 1;
      s.LineaTratteggio[r] = 2;
      s.LineaPiano[r] = "0";
    }
    sup = std::make_unique<SuperficieQt>(&immagine, 1600, 1000, 96);
    s.Schermo = sup.get();
    RigeneraLista(s);
  }
};

// Lines for a positive N, circles for a negative one.
std::map<int64_t, std::unique_ptr<BancoTratteggi>> gTratteggi;
BancoTratteggi& TratteggiDi(int64_t n) {
  auto& b = gTratteggi[n];
  if (!b) b = std::make_unique<BancoTratteggi>(n < 0 ? -n : n, n < 0);
  return *b;
}

void RigenerazioneTratteggi(benchmark::State& st) {
  BancoTratteggi& b = TratteggiDi(st.range(0));
  for (auto _ : st) RigeneraLista(b.s);
  st.counters["record"] = static_cast<double>(b.s.ListaDisegno.Conta());
}

// `altezza` 0: the whole job; else a view of that many metres in the middle of it, or for
// the circles over the top of the first of them.
void RidisegnoTratteggi(benchmark::State& st) {
  BancoTratteggi& b = TratteggiDi(st.range(0));
  (void)TuttoTutto(b.s);
  if (st.range(1) > 0) b.s.Vista.AltezzaVista = static_cast<double>(st.range(1));
  if (st.range(0) < 0 && st.range(1) > 0) b.s.Vista.CentroEst = 0, b.s.Vista.CentroNord = 1000;
  for (auto _ : st) Ridisegna(b.s);
}

// Arcs of radius 10, 10 km and 4.6e164 m through 4e7 gon, as an old file may hold them.
void RigenerazioneArchiEnormi(benchmark::State& st) {
  Sessione s;
  const double raggi[] = {10, 1e4, 4.6e164};
  for (double raggio : raggi) {
    DimensionaArchi(s);
    const auto r = static_cast<size_t>(s.ContaEntita[SlotArchi]++);
    s.ArcoRaggio[r] = raggio;
    s.ArcoFine[r] = 4e7;
    s.ArcoColore[r] = 1;
  }
  for (auto _ : st) RigeneraLista(s);
  st.counters["record"] = static_cast<double>(s.ListaDisegno.Conta());
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
  const int64_t tratteggi = rapido ? 4000 : 40000;
  const double tempo = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("RigenerazioneTratteggi", RigenerazioneTratteggi)->Arg(tratteggi)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("RidisegnoTratteggiTutto", RidisegnoTratteggi)->Args({tratteggi, 0})->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("RidisegnoTratteggi100m", RidisegnoTratteggi)->Args({tratteggi, 100})->Unit(benchmark::kMillisecond)->MinTime(tempo);
  const int64_t cerchi = rapido ? -2000 : -20000;
  benchmark::RegisterBenchmark("RigenerazioneCerchiTratteggiati", RigenerazioneTratteggi)->Arg(cerchi)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("RidisegnoCerchiTratteggiati100m", RidisegnoTratteggi)->Args({cerchi, 100})->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("RigenerazioneArchiEnormi", RigenerazioneArchiEnormi)->Unit(benchmark::kMillisecond)->MinTime(tempo);
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
