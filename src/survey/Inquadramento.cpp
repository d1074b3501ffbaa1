// The best-fit framing on n fiducial points.
//
// With p_i the survey points less their centroid and q_i the official ones less theirs
// (x East, y North), a turn by r clockwise maps p to (px cos r + py sin r, -px sin r + py cos r).
// The sum of squared distances |q_i - s R(r) p_i|^2 is least when r maximises
// cos r * A + sin r * B, with A = sum(px qx + py qy) and B = sum(py qx - px qy): so
// r = atan2(B, A), closed form, no iteration. The scale, when asked, is then
// s = sqrt(A^2 + B^2) / sum |p_i|^2; the centroid goes onto the centroid.
#include "survey/Inquadramento.h"

#include <cmath>

#include "survey/Convenzioni.h"

namespace varena {

PuntoXYZ EsitoInquadramento::Applica(const PuntoXYZ& p) const {
  const AzimutEDistanza ad = AzimutDistanza(Origine, p);
  const PuntoXYZ q = Polare(NuovaOrigine.X, NuovaOrigine.Y, ad.Azimut + Rotazione, ad.Distanza * Scala);
  return {q.X, q.Y, p.Z};
}

namespace {

// The two-point framing as the legacy command makes it: the difference of the azimuths
// first PF to second, the first PF as the pivot.
void DuePunti(const CoppiaPF& a, const CoppiaPF& b, EsitoInquadramento& e) {
  e.Origine = a.Rilievo;
  e.NuovaOrigine = a.Ufficiale;
  e.Rotazione = AzimutDistanza(a.Ufficiale, b.Ufficiale).Azimut - AzimutDistanza(a.Rilievo, b.Rilievo).Azimut;
}

void MinimiQuadrati(std::span<const CoppiaPF> coppie, bool conScala, EsitoInquadramento& e) {
  PuntoXYZ cp, cq;
  for (const CoppiaPF& c : coppie) {
    if (c.Esclusa) continue;
    cp.X += c.Rilievo.X, cp.Y += c.Rilievo.Y;
    cq.X += c.Ufficiale.X, cq.Y += c.Ufficiale.Y;
  }
  const double n = e.Usati;
  cp.X /= n, cp.Y /= n, cq.X /= n, cq.Y /= n;
  double a = 0, b = 0, pp = 0;
  for (const CoppiaPF& c : coppie) {
    if (c.Esclusa) continue;
    const double px = c.Rilievo.X - cp.X, py = c.Rilievo.Y - cp.Y;
    const double qx = c.Ufficiale.X - cq.X, qy = c.Ufficiale.Y - cq.Y;
    a += px * qx + py * qy;
    b += py * qx - px * qy;
    pp += px * px + py * py;
  }
  e.Origine = cp;
  e.NuovaOrigine = cq;
  e.Rotazione = std::atan2(b, a);
  if (conScala) e.Scala = std::hypot(a, b) / pp;
}

}  // namespace

EsitoInquadramento Inquadra(std::span<const CoppiaPF> coppie, bool conScala) {
  EsitoInquadramento e;
  const CoppiaPF* usate[2] = {nullptr, nullptr};
  for (const CoppiaPF& c : coppie) {
    if (c.Esclusa) continue;
    if (e.Usati < 2) usate[e.Usati] = &c;
    ++e.Usati;
  }
  if (e.Usati < 2) {
    e.Motivo = "Servono almeno 2 PF";
    return e;
  }
  // The survey's PF all in one place give no direction to turn.
  bool distinti = false;
  for (const CoppiaPF& c : coppie)
    if (!c.Esclusa && Distanza2D(c.Rilievo.X, c.Rilievo.Y, usate[0]->Rilievo.X, usate[0]->Rilievo.Y) > 1e-6)
      distinti = true;
  if (!distinti) {
    e.Motivo = "PF coincidenti nel rilievo";
    return e;
  }
  if (e.Usati == 2 && !conScala)
    DuePunti(*usate[0], *usate[1], e);
  else
    MinimiQuadrati(coppie, conScala, e);
  double somma = 0, peggiore = -1;
  for (size_t k = 0; k < coppie.size(); ++k) {
    const CoppiaPF& c = coppie[k];
    const PuntoXYZ f = e.Applica(c.Rilievo);
    ResiduoPF r{c.Ufficiale.Y - f.Y, c.Ufficiale.X - f.X, 0};
    r.Distanza = std::hypot(r.DNord, r.DEst);
    e.Residui.push_back(r);
    if (c.Esclusa) continue;
    somma += r.Distanza * r.Distanza;
    if (r.Distanza > peggiore) peggiore = r.Distanza, e.Peggiore = static_cast<int>(k);
  }
  e.Sqm = std::sqrt(somma / e.Usati);
  e.Riuscito = true;
  return e;
}

}  // namespace varena
