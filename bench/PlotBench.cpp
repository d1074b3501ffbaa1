// The plot of a survey on one sheet: 10^5 points with their three labels and 10^5 lines
// (10^4 of each in the quick mode), the whole job on an A0 sheet. Prints the stream of the
// page written from the display list, and the same stream read and drawn into a PDF.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "LavoroSintetico.h"
#include "Plotter.h"
#include "core/Sessione.h"
#include "output/FlussoStampa.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

using namespace varena;

namespace {

struct Banco {
  Sessione s;
  FinestraStampa pagina;
  std::string flusso;
  explicit Banco(int64_t scala) {
    MisureLavoro m;
    m.Punti = m.Linee = scala;
    m.Testi = scala / 10;
    RiempiLavoroSintetico(s, m);
    s.Tratteggi.Stili[2].Elementi = {2, 3, -3};
    RigeneraLista(s);
    const auto box = IngombroDisegno(s);
    if (box) pagina = {box->XMin, box->YMin, box->XMax, box->YMax};
    flusso = FlussoPagina(s, pagina);
  }
};

std::map<int64_t, std::unique_ptr<Banco>> gBanchi;
Banco& BancoDi(int64_t scala) {
  auto& b = gBanchi[scala];
  if (!b) b = std::make_unique<Banco>(scala);
  return *b;
}

void Flusso(benchmark::State& st) {
  Banco& b = BancoDi(st.range(0));
  for (auto _ : st) benchmark::DoNotOptimize(FlussoPagina(b.s, b.pagina));
  st.counters["byte"] = static_cast<double>(b.flusso.size());
}

void Pdf(benchmark::State& st) {
  Banco& b = BancoDi(st.range(0));
  OpzioniPlot o;
  o.Foglio = *FoglioDaNome("A0", false);
  // The job's height on the sheet's height.
  o.Scala = (b.pagina.Y2 - b.pagina.Y1) * 1000 / o.Foglio.AltezzaMm;
  const std::string percorso = "/tmp/varena-bench-plot.pdf";
  for (auto _ : st) {
    PlotterPdf pdf(percorso, o);
    pdf.Pagina(LeggiFlussoStampa(b.flusso));
    pdf.Chiudi();
  }
  std::remove(percorso.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int argcQt = 1;
  QGuiApplication app(argcQt, argv);
  const bool rapido = ModoRapido(argc, argv);
  const int64_t n = rapido ? 10000 : 100000;
  const double tempo = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("FlussoStampa", Flusso)->Arg(n)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("FlussoInPdf", Pdf)->Arg(n)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  std::vector<char*> argomenti;
  for (int i = 0; i < argc; ++i)
    if (std::string(argv[i]) != "--rapido") argomenti.push_back(argv[i]);
  int argcB = static_cast<int>(argomenti.size());
  benchmark::Initialize(&argcB, argomenti.data());
  benchmark::RunSpecifiedBenchmarks();
  std::printf("Scale: punti = linee = N con le tre etichette, testi N/10, un foglio A0\n");
  return 0;
}
