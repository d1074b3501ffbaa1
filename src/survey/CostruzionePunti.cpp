// The constructions of new points.
#include "survey/CostruzionePunti.h"

#include <algorithm>
#include <cmath>

namespace varena {

double QuotaDelPiede(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p) {
  Piede pf;
  return PiedePerpendicolare(a, b, p, pf) == kRiuscito ? pf.F.Z : a.Z;
}

RisultatoStazioneLibera StazioneLibera(const PuntoXYZ& a, const PuntoXYZ& b, double d1, double d2, double r1Gon,
                                       double r2Gon) {
  RisultatoStazioneLibera r;
  const AzimutEDistanza base = AzimutDistanza(a, b);
  r.BaseReale = base.Distanza;
  double alfa = r2Gon - r1Gon;
  if (alfa < 0) alfa += 400;
  // Carnot; a zero angle with equal distances may round below zero, which is no base.
  r.BaseMisurata = std::sqrt(std::max(0.0, d1 * d1 + d2 * d2 - 2 * d1 * d2 * std::cos(GonToRad * alfa)));
  const double mx = (a.X + b.X) / 2, my = (a.Y + b.Y) / 2;
  PuntoXYZ b2 = Polare(mx, my, base.Azimut, r.BaseMisurata / 2);
  PuntoXYZ a2 = Polare(mx, my, base.Azimut + PiGreco, r.BaseMisurata / 2);
  // Only the plan is laid again: the heights stay those of the known points.
  a2.Z = a.Z;
  b2.Z = b.Z;
  r.Stato = PuntoBilatera(a2, b2, d1, d2, r.Stazione);
  return r;
}

PiedeConSegni PiedeSegnato(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p) {
  PiedeConSegni r;
  const AzimutEDistanza ab = AzimutDistanza(a, b);
  r.Azimut = ab.Azimut;
  r.Lunghezza = ab.Distanza;
  Piede pf;
  r.Stato = PiedePerpendicolare(a, b, p, pf);
  if (r.Stato != kRiuscito) return r;
  r.F = pf.F;
  // The turn from the base to the point, clockwise: past a half turn the point is on the
  // left; in the half turn about the backward direction the foot is behind A.
  double delta = AzimutDistanza(a, p).Azimut - ab.Azimut;
  if (delta < 0) delta += 2 * PiGreco;
  r.Distacco = delta > PiGreco ? -pf.DistanzaPF : pf.DistanzaPF;
  r.Ascissa = delta > PiGreco / 2 && delta < 3 * PiGreco / 2 ? -pf.DistanzaAF : pf.DistanzaAF;
  return r;
}

PuntoXYZ PuntoApertura(const PuntoXYZ& a, const PuntoXYZ& b, double angoloGon, double d) {
  const double az = AzimutDistanza(a, b).Azimut;
  PuntoXYZ p = Polare(a.X, a.Y, az + GonToRad * angoloGon, d);
  p.Z = QuotaDelPiede(a, b, p);
  return p;
}

Esito PuntoSquadro(const PuntoXYZ& a, const PuntoXYZ& b, double lato1, double lato2, double angoloGon,
                   PuntoXYZ& punto) {
  if (lato1 < 0) return kNessunaSoluzione;
  const double az = AzimutDistanza(a, b).Azimut;
  // The two legs as the sides of a right angle: its hypotenuse and the turn off the first.
  const AzimutEDistanza gamba = AzimutDistanza(0, 0, lato2, lato1);
  PuntoXYZ p = Polare(a.X, a.Y, az + gamba.Azimut + GonToRad * angoloGon, gamba.Distanza);
  p.Z = QuotaDelPiede(a, b, p);
  punto = p;
  return kRiuscito;
}

double CorrezioneOrientamento(const PuntoXYZ& stazione, const PuntoXYZ& orientamento, double letturaGon) {
  double c = RadToGon * AzimutDistanza(stazione, orientamento).Azimut - letturaGon;
  if (c < 0) c += 400;
  return c;
}

PuntoXYZ Irraggia(const PuntoXYZ& stazione, double correzioneGon, double letturaGon, double distanza,
                  double zenitGon, double altezzaStazione, double altezzaPrisma) {
  // The distance is horizontal as the instrument gave it: no reduction by the zenith angle.
  PuntoXYZ p = Polare(stazione.X, stazione.Y, GonToRad * (correzioneGon + letturaGon), distanza);
  p.Z = altezzaStazione + stazione.Z + distanza * std::cos(GonToRad * zenitGon) - altezzaPrisma;
  return p;
}

Esito PuntoIncrocio(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& c, const PuntoXYZ& d, PuntoXYZ& nuovo) {
  const Esito e = IncrocioRette(a, b, c, d, nuovo.X, nuovo.Y);
  nuovo.Z = QuotaInterpolata(a, b, nuovo.X, nuovo.Y);
  return e;
}

PuntoXYZ PuntoMedio(const PuntoXYZ& a, const PuntoXYZ& b) {
  return {(a.X + b.X) / 2, (a.Y + b.Y) / 2, (a.Z + b.Z) / 2};
}

Esito PuntoInAvanti(const PuntoXYZ& a, const PuntoXYZ& b, double alfaGon, double betaGon, PuntoXYZ& punto) {
  const double az = AzimutDistanza(a, b).Azimut;
  const PuntoXYZ da = Polare(a.X, a.Y, az + GonToRad * alfaGon, 2);
  const PuntoXYZ db = Polare(b.X, b.Y, PiGreco + az - GonToRad * betaGon, 2);
  PuntoXYZ p;
  if (IncrocioRette(a, da, b, db, p.X, p.Y) != kRiuscito) return kNessunaSoluzione;
  p.Z = QuotaDelPiede(a, b, p);
  punto = p;
  return kRiuscito;
}

PuntoXYZ PolariCartesiane(const PuntoXYZ& origine, double azimutGon, double distanza) {
  PuntoXYZ p = Polare(origine.X, origine.Y, GonToRad * azimutGon, distanza);
  p.Z = origine.Z;
  return p;
}

Esito IntersecaDirezione(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& stazione,
                         const PuntoXYZ& orientamento, double letturaOrientamentoGon, double letturaGon,
                         double zenitGon, double altezzaStrumento, PuntoXYZ& punto) {
  const double g = letturaGon - letturaOrientamentoGon + RadToGon * AzimutDistanza(stazione, orientamento).Azimut;
  const PuntoXYZ lungo = Polare(stazione.X, stazione.Y, GonToRad * g, 10);
  double x = 0, y = 0;
  if (IncrocioRette(a, b, stazione, lungo, x, y) != kRiuscito) return kNessunaSoluzione;
  const double d = Distanza2D(stazione.X, stazione.Y, x, y);
  const double v = GonToRad * zenitGon;
  const double z = (d / std::sin(v)) * std::cos(v) + altezzaStrumento + stazione.Z;
  // A zenith reading of 0 or 400 has no plan distance to go with it.
  if (!std::isfinite(z)) return kNessunaSoluzione;
  punto = {x, y, z};
  return kRiuscito;
}

PuntoXYZ PuntoADistanza(const PuntoXYZ& a, const PuntoXYZ& b, double d) {
  const AzimutEDistanza ab = AzimutDistanza(a, b);
  PuntoXYZ p = Polare(a.X, a.Y, ab.Azimut, d);
  // Two points in one place give no slope: the height stays that of A.
  p.Z = ab.Distanza > 0 ? d * (b.Z - a.Z) / ab.Distanza + a.Z : a.Z;
  return p;
}

}  // namespace varena
