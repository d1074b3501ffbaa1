// The redraw at 1600 x 1000 with the raster of a map extract in view, as a scanned sheet of
// 10,000 x 7,000 pixels is (2,000 x 1,400 in quick mode): the whole sheet, a pan across it,
// and a close view of a tenth of its height. The first paint builds the pyramid of the
// picture, which is then reused; its cost is printed apart.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "LavoroSintetico.h"
#include "PiramideImmagine.h"
#include "SuperficieQt.h"
#include "core/Sessione.h"
#include "view/Ridisegna.h"

using namespace varena;

namespace {

struct Banco {
  Sessione s;
  QImage immagine{1600, 1000, QImage::Format_RGB32};
  std::unique_ptr<SuperficieQt> sup;
  std::string file;
  double costruzione = 0;
  Banco(int larghezza, int altezza) {
    // A sheet of thin lines on white, saved as a PNG in the temporary folder.
    QImage foglio(larghezza, altezza, QImage::Format_RGB32);
    foglio.fill(Qt::white);
    {
      QPainter p(&foglio);
      p.setPen(QPen(Qt::black, 2));
      for (int x = 0; x < larghezza; x += 97) p.drawLine(x, 0, larghezza - x, altezza);
      for (int y = 0; y < altezza; y += 89) p.drawLine(0, y, larghezza, altezza - y);
    }
    file = (std::filesystem::temp_directory_path() / ("varena_bench_estratto_" + std::to_string(larghezza) + ".png")).string();
    foglio.save(QString::fromStdString(file));
    s.Colori.Colore[7] = 0xFFFFFF;
    s.PercorsoImmagineEstratto = file;
    s.EstrattoImmagineCongelata = 0;
    s.LarghezzaPixel = larghezza, s.AltezzaPixel = altezza;
    s.ScalaEstratto = 0.1;
    s.OrigineEstrattoX = 1000, s.OrigineEstrattoY = 5000 + altezza * 0.1;
    sup = std::make_unique<SuperficieQt>(&immagine, 1600, 1000, 96);
    s.Schermo = sup.get();
    const auto t0 = std::chrono::steady_clock::now();
    (void)PiramideDi(QString::fromStdString(file));
    costruzione = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
    Intero();
  }
  ~Banco() { std::filesystem::remove(file); }
  void Intero() {
    s.Vista.CentroEst = s.OrigineEstrattoX + s.LarghezzaPixel * 0.05;
    s.Vista.CentroNord = s.OrigineEstrattoY - s.AltezzaPixel * 0.05;
    s.Vista.AltezzaVista = s.AltezzaPixel * 0.1 * 1.05;
  }
};

std::unique_ptr<Banco> gBanco;

void RidisegnoEstrattoIntero(benchmark::State& st) {
  gBanco->Intero();
  for (auto _ : st) Ridisegna(gBanco->s);
}

// Each paint a little further along, as a drag of the view does.
void RidisegnoEstrattoPan(benchmark::State& st) {
  gBanco->Intero();
  gBanco->s.Vista.AltezzaVista /= 3;
  const double passo = gBanco->s.Vista.AltezzaVista / 50, x0 = gBanco->s.Vista.CentroEst;
  int k = 0;
  for (auto _ : st) {
    gBanco->s.Vista.CentroEst = x0 + passo * (k++ % 50);
    Ridisegna(gBanco->s);
  }
}

void RidisegnoEstrattoVicino(benchmark::State& st) {
  gBanco->Intero();
  gBanco->s.Vista.AltezzaVista /= 10;
  for (auto _ : st) Ridisegna(gBanco->s);
}

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  int argcQt = 1;
  QGuiApplication app(argcQt, argv);
  const bool rapido = ModoRapido(argc, argv);
  gBanco = rapido ? std::make_unique<Banco>(2000, 1400) : std::make_unique<Banco>(10000, 7000);
  const double tempo = rapido ? 0.05 : 1;
  benchmark::RegisterBenchmark("RidisegnoEstrattoIntero", RidisegnoEstrattoIntero)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("RidisegnoEstrattoPan", RidisegnoEstrattoPan)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  benchmark::RegisterBenchmark("RidisegnoEstrattoVicino", RidisegnoEstrattoVicino)->Unit(benchmark::kMillisecond)->MinTime(tempo);
  std::vector<char*> argomenti;
  for (int i = 0; i < argc; ++i)
    if (std::string(argv[i]) != "--rapido") argomenti.push_back(argv[i]);
  int argcB = static_cast<int>(argomenti.size());
  benchmark::Initialize(&argcB, argomenti.data());
  benchmark::RunSpecifiedBenchmarks();
  std::printf("Estratto %.0f x %.0f pixel a 1600x1000; piramide costruita in %.0f ms\n", gBanco->s.LarghezzaPixel,
              gBanco->s.AltezzaPixel, gBanco->costruzione);
  gBanco.reset();
  return 0;
}
