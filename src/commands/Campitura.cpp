// The hatch of a contour and the contour traced by clicks.
#include "commands/Campitura.h"

#include <algorithm>
#include <cmath>

#include "commands/Costruttori.h"
#include "commands/DialoghiDisegno.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "core/Sessione.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

// Closer than this to a scan line, a vertex is on it: the sweep's arithmetic leaves a few
// units of the last digit, and a micrometre is far below anything surveyed.
constexpr double kSullaLinea = 1e-6;

struct Incrocio {
  double Lungo, X, Y;  // `Lungo`: the place along the hatch direction
};

// Where the edges cross one scan line, sorted along it, with the line moved by a hair
// forward in the sweep (`avanti`) or back: a vertex on the line is then behind it or ahead,
// and the crossings pair up as in, out, in, out. `quota` is each vertex's distance ahead of
// the line, `lungo` its place along it.
void Incroci(std::span<const PuntoXYZ> v, std::span<const double> quota, std::span<const double> lungo, bool avanti,
             std::vector<Incrocio>& out) {
  out.clear();
  auto dietro = [avanti](double q) { return q < 0 || (q == 0 && avanti); };
  const size_t n = v.size();
  for (size_t i = 0; i < n; ++i) {
    const size_t j = (i + 1) % n;
    if (dietro(quota[i]) == dietro(quota[j])) continue;
    // A vertex on the line has a quota of exactly 0, so that the crossing is the vertex.
    const double f = quota[i] / (quota[i] - quota[j]);
    out.push_back({lungo[i] + (lungo[j] - lungo[i]) * f, v[i].X + (v[j].X - v[i].X) * f, v[i].Y + (v[j].Y - v[i].Y) * f});
  }
  std::sort(out.begin(), out.end(), [](const Incrocio& p, const Incrocio& q) { return p.Lungo < q.Lungo; });
}

// The stretches inside for both lists of crossings, each paired 1-2, 3-4 and so on.
void Comuni(const std::vector<Incrocio>& a, const std::vector<Incrocio>& b, std::vector<SegmentoCampitura>& out) {
  size_t i = 0, j = 0;
  while (i + 1 < a.size() && j + 1 < b.size()) {
    const Incrocio& inizio = a[i].Lungo >= b[j].Lungo ? a[i] : b[j];
    const Incrocio& fine = a[i + 1].Lungo <= b[j + 1].Lungo ? a[i + 1] : b[j + 1];
    if (fine.Lungo - inizio.Lungo > kSullaLinea) out.push_back({{inizio.X, inizio.Y, 0}, {fine.X, fine.Y, 0}});
    if (a[i + 1].Lungo < b[j + 1].Lungo)
      i += 2;
    else
      j += 2;
  }
}

}  // namespace

std::vector<SegmentoCampitura> SegmentiCampitura(std::span<const PuntoXYZ> vertici, double angoloGon, double passo) {
  std::vector<SegmentoCampitura> segmenti;
  vertici = vertici.first(std::min(vertici.size(), kMassimoVerticiCampitura));
  passo = std::fabs(passo);
  const size_t n = vertici.size();
  if (n < 3 || !(passo > 0)) return segmenti;
  // The hatch runs along d; the sweep goes along the normal m, measured from the first vertex.
  const double a = angoloGon * GonToRad;
  const double dx = std::sin(a), dy = std::cos(a);
  const double mx = dy, my = -dx;
  const PuntoXYZ& o = vertici[0];
  std::vector<double> normale(n), lungo(n), quota(n);
  for (size_t i = 0; i < n; ++i) {
    normale[i] = (vertici[i].X - o.X) * mx + (vertici[i].Y - o.Y) * my;
    lungo[i] = (vertici[i].X - o.X) * dx + (vertici[i].Y - o.Y) * dy;
  }
  const double minimo = *std::min_element(normale.begin(), normale.end());
  const double massimo = *std::max_element(normale.begin(), normale.end());
  if ((massimo - minimo) / passo > kMassimoPassiCampitura) return segmenti;
  std::vector<Incrocio> avanti, indietro;
  for (int64_t k = 0;; ++k) {
    const double t = minimo + static_cast<double>(k) * passo;
    if (t > massimo + kSullaLinea) break;
    for (size_t i = 0; i < n; ++i) quota[i] = std::fabs(normale[i] - t) <= kSullaLinea ? 0 : normale[i] - t;
    // A scan line takes what lies inside the contour just before it and just after it
    // alike: a line along an edge is left out, on whichever side of the contour the edge
    // stands (the contour draws it already), and a line through a corner is drawn as far
    // as the contour goes on both sides of it.
    Incroci(vertici, quota, lungo, true, avanti);
    Incroci(vertici, quota, lungo, false, indietro);
    Comuni(avanti, indietro, segmenti);
  }
  return segmenti;
}

void subSelezionaContorno(Sessione& s) {
  s.SpezzataTemporanea.Aggiungi(s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ, s.PuntoCorrenteNome);
  SpostaPunti(s);
  s.PassoComando = 1;
  MostraPrompt(s, "Seleziona Contorno - Punto Contorno");
}

size_t subCalcolaSelezione(Sessione& s) {
  s.RoutineCorrente = "Disegnocampiturainizio";
  LeggiParametriCampitura(s);
  const SpezzataTemporanea& c = s.SpezzataTemporanea;
  std::vector<PuntoXYZ> vertici;
  for (size_t i = 0; i < c.Conta(); ++i) vertici.push_back({c.X[i], c.Y[i], 0});
  const std::vector<SegmentoCampitura> segmenti =
      SegmentiCampitura(vertici, s.Imp.Angolo_Campitura, s.Imp.Distanza_Campitura);
  for (const SegmentoCampitura& g : segmenti) ScriviLinea(s, g.A, g.B, s.PianoCorrente);
  if (!segmenti.empty()) FineModifica(s, false);
  s.RoutineCorrente = "DisegnoCampituraFine";
  return segmenti.size();
}

}  // namespace varena
