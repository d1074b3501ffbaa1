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
  auto normale = [&](const PuntoXYZ& p) { return (p.X - o.X) * mx + (p.Y - o.Y) * my; };
  auto lungo = [&](double x, double y) { return (x - o.X) * dx + (y - o.Y) * dy; };
  double minimo = normale(vertici[0]), massimo = minimo;
  for (const PuntoXYZ& v : vertici) {
    minimo = std::min(minimo, normale(v));
    massimo = std::max(massimo, normale(v));
  }
  if ((massimo - minimo) / passo > kMassimoPassiCampitura) return segmenti;
  std::vector<double> quota(n);
  struct Incrocio {
    double Lungo, X, Y;
  };
  std::vector<Incrocio> incroci;
  for (int64_t k = 0;; ++k) {
    const double t = minimo + static_cast<double>(k) * passo;
    if (t > massimo) break;
    for (size_t i = 0; i < n; ++i) quota[i] = normale(vertici[i]) - t;
    incroci.clear();
    for (size_t i = 0; i < n; ++i) {
      const size_t j = (i + 1) % n;
      const double qi = quota[i], qj = quota[j];
      // An edge crosses when its ends lie on either side; an end on the line counts as ahead.
      if ((qi >= 0) == (qj >= 0)) continue;
      const double f = qi / (qi - qj);
      const double x = vertici[i].X + (vertici[j].X - vertici[i].X) * f;
      const double y = vertici[i].Y + (vertici[j].Y - vertici[i].Y) * f;
      incroci.push_back({lungo(x, y), x, y});
    }
    std::sort(incroci.begin(), incroci.end(), [](const Incrocio& p, const Incrocio& q) { return p.Lungo < q.Lungo; });
    for (size_t i = 0; i + 1 < incroci.size(); i += 2) {
      const Incrocio &p = incroci[i], &q = incroci[i + 1];
      // Two crossings in one place (the line grazing a corner) make no line.
      if (q.Lungo - p.Lungo <= 1e-9) continue;
      segmenti.push_back({{p.X, p.Y, 0}, {q.X, q.Y, 0}});
    }
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
