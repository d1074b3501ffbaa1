// The plane primitives. Each formula is kept as surveyors' programs of this family wrote
// it: the order of the operations decides the last bits, and jobs computed years ago must
// come out the same.
#include "survey/Primitive.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include "core/Tabelle.h"
#include "core/Testo.h"

namespace varena {

PuntoXYZ Polare(double x, double y, double azimut, double d) {
  return {x + d * std::sin(azimut), y + d * std::cos(azimut), 0};
}

AzimutEDistanza AzimutDistanza(double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1, dy = y2 - y1;
  const double d = std::sqrt(dx * dx + dy * dy);
  // Only due South makes d + dY vanish; two coincident points land here too.
  if (d + dy == 0) return {PiGreco, d};
  double az = 2 * std::atan(dx / (d + dy));
  if (az < 0) az += 2 * PiGreco;
  return {az, d};
}

double Distanza2D(double x1, double y1, double x2, double y2) {
  const double dx = x2 - x1, dy = y2 - y1;
  return std::sqrt(dx * dx + dy * dy);
}

namespace {

double Distanza2D(const PuntoXYZ& p, const PuntoXYZ& q) { return varena::Distanza2D(p.X, p.Y, q.X, q.Y); }

}  // namespace

Esito IncrocioRette(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& c, const PuntoXYZ& d, double& x,
                    double& y) {
  // The products xa·yb below would lose the millimetres of grid coordinates: the figure is
  // moved onto A first.
  const OrigineLocale o(a);
  const PuntoXYZ la = o.Locale(a), lb = o.Locale(b), lc = o.Locale(c), ld = o.Locale(d);
  const double xa = la.X, ya = la.Y, xb = lb.X, yb = lb.Y, xc = lc.X, yc = lc.Y, xd = ld.X, yd = ld.Y;
  const double den = (xa - xb) * (yc - yd) - (ya - yb) * (xc - xd);
  // The test is on the raw determinant, so two short segments fail sooner than long ones.
  if (!(std::fabs(den) >= 1e-7)) return kNessunaSoluzione;
  const double pa = xa * yb - xb * ya;
  const double pc = xc * yd - xd * yc;
  x = (pa * (xc - xd) - (xa - xb) * pc) / den + o.X0;
  y = (pa * (yc - yd) - (ya - yb) * pc) / den + o.Y0;
  return kRiuscito;
}

Esito PiedePerpendicolare(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p, Piede& piede) {
  const AzimutEDistanza ab = AzimutDistanza(a, b);
  // A second point one metre from P square to A-B makes the perpendicular a line to cross;
  // placed on the grid, a metre would keep only nanometres of its direction.
  const OrigineLocale o(a);
  const PuntoXYZ lp = o.Locale(p);
  const PuntoXYZ q = Polare(lp.X, lp.Y, ab.Azimut + PiGreco / 2, 1);
  double fx = 0, fy = 0;
  if (IncrocioRette(o.Locale(a), o.Locale(b), lp, q, fx, fy) != kRiuscito) return kNessunaSoluzione;
  fx += o.X0;
  fy += o.Y0;
  piede.F = {fx, fy, QuotaInterpolata(a, b, fx, fy)};
  piede.DistanzaPF = Distanza2D(p, piede.F);
  piede.DistanzaAF = Distanza2D(a, piede.F);
  piede.LunghezzaAB = ab.Distanza;
  return kRiuscito;
}

double QuotaInterpolata(const PuntoXYZ& a, const PuntoXYZ& b, double x, double y) {
  double z = a.Z;
  if (std::fabs(b.Z - a.Z) < 1e-6) return z;
  const double l = varena::Distanza2D(a.X, a.Y, b.X, b.Y);
  const double da = varena::Distanza2D(x, y, a.X, a.Y);
  const double db = varena::Distanza2D(x, y, b.X, b.Y);
  // A point at distance L from A stands on B, yet takes the height of A, and the other
  // way round: the crossed ends are what every height computed so far was built on.
  if (std::fabs(l - da) < 1e-4) return a.Z;
  if (std::fabs(l - db) < 1e-4) return b.Z;
  if (std::fabs(da + db - l) < 1e-4) return a.Z + da * (b.Z - a.Z) / l;
  if (da > l && da > db) z = a.Z + (b.Z - a.Z) / l * da;
  if (db > l && db > da) z = b.Z + (a.Z - b.Z) / l * db;
  return z;
}

Esito PuntoBilatera(const PuntoXYZ& a, const PuntoXYZ& b, double ra, double rb, PuntoXYZ& punto) {
  const AzimutEDistanza ab = AzimutDistanza(a, b);
  const double c = ab.Distanza;
  const double s = (c + ra + rb) / 2;
  if (2 * s - c < c || 2 * s - ra < ra || 2 * s - rb < rb) return kNessunaSoluzione;
  double angolo = 0;
  if (ra + rb != c) angolo = 2 * std::atan(std::sqrt(((s - c) * (s - ra)) / (s * (s - rb))));
  PuntoXYZ p = Polare(a.X, a.Y, ab.Azimut + angolo, ra);
  // A and B in one place with equal distances leave no single point: say so rather than
  // hand a NaN to the job.
  if (!std::isfinite(p.X) || !std::isfinite(p.Y)) return kNessunaSoluzione;
  Piede piede;
  p.Z = PiedePerpendicolare(a, b, p, piede) == kRiuscito ? piede.F.Z : a.Z;
  punto = p;
  return kRiuscito;
}

Esito PuntiBilatera(const PuntoXYZ& a, const PuntoXYZ& b, double ra, double rb, PuntoXYZ& destra,
                    PuntoXYZ& sinistra) {
  Esito esito = PuntoBilatera(a, b, ra, rb, destra);
  if (esito < 2) esito = PuntoBilatera(b, a, rb, ra, sinistra);
  return esito;
}

Esito RettaCerchio(const PuntoXYZ& a, const PuntoXYZ& b, double xc, double yc, double r, PuntoXYZ& piede,
                   PuntoXYZ& primo, PuntoXYZ& secondo) {
  const PuntoXYZ c{xc, yc, 0};
  Piede pf;
  if (PiedePerpendicolare(a, b, c, pf) != kRiuscito) return kNessunaSoluzione;
  piede = pf.F;
  const double d = pf.DistanzaPF;
  // The miss comes before the tangency: a line farther by the smallest amount has no
  // crossing even though it is within the tangency tolerance.
  if (d > r) return kNessunaSoluzione;
  if (std::fabs(r - d) < 1e-6) {
    primo = secondo = pf.F;
    return kRiuscito;
  }
  if (d >= 1e-6) {
    const double h = std::sqrt(r * r - d * d);
    const double az = AzimutDistanza(pf.F, c).Azimut;
    primo = Polare(pf.F.X, pf.F.Y, az - PiGreco / 2, h);
    secondo = Polare(pf.F.X, pf.F.Y, az + PiGreco / 2, h);
  } else {
    // Through the centre there is no direction from the foot: go towards the farther end.
    const AzimutEDistanza ca = AzimutDistanza(c, a);
    const AzimutEDistanza cb = AzimutDistanza(c, b);
    const double az = cb.Distanza > ca.Distanza ? cb.Azimut : ca.Azimut;
    primo = Polare(xc, yc, az, r);
    secondo = Polare(xc, yc, az + PiGreco, r);
  }
  primo.Z = QuotaInterpolata(a, b, primo.X, primo.Y);
  secondo.Z = QuotaInterpolata(a, b, secondo.X, secondo.Y);
  return kRiuscito;
}

double DistanzaDaSegmento(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& p) {
  double risposta = std::min(Distanza2D(p, a), Distanza2D(p, b));
  Piede pf;
  if (PiedePerpendicolare(a, b, p, pf) != kRiuscito || pf.LunghezzaAB < 0.01) return risposta;
  const PuntoXYZ medio{(a.X + b.X) / 2, (a.Y + b.Y) / 2, 0};
  if (Distanza2D(pf.F, medio) < pf.LunghezzaAB / 2) risposta = std::min(risposta, pf.DistanzaPF);
  return risposta;
}

int16_t LatoCorda(const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& q) {
  const double l = Distanza2D(a, b);
  const PuntoXYZ medio{(a.X + b.X) / 2, (a.Y + b.Y) / 2, 0};
  return Distanza2D(q, medio) > l / 2 ? 2 : 1;
}

Esito CerchioInscritto(const PuntoXYZ& p1, const PuntoXYZ& p2, const PuntoXYZ& p3, double& xc, double& yc,
                       double& raggio) {
  // Plain means of the azimuths: across North the mean points the opposite way, which is
  // the same bisecting line, and only the line matters to the crossing.
  const double b1 = (AzimutDistanza(p1, p2).Azimut + AzimutDistanza(p1, p3).Azimut) / 2;
  const double b2 = (AzimutDistanza(p2, p1).Azimut + AzimutDistanza(p2, p3).Azimut) / 2;
  // The second point of each bisector stands as far as the first side is long, so that
  // the crossing's determinant grows with the triangle.
  const double lato = Distanza2D(p1, p2);
  const PuntoXYZ q1 = Polare(p1.X, p1.Y, b1, lato);
  const PuntoXYZ q2 = Polare(p2.X, p2.Y, b2, lato);
  PuntoXYZ centro;
  if (IncrocioRette(p1, q1, p2, q2, centro.X, centro.Y) != kRiuscito) return kNessunaSoluzione;
  Piede pf;
  if (PiedePerpendicolare(p1, p2, centro, pf) != kRiuscito) return kNessunaSoluzione;
  xc = centro.X;
  yc = centro.Y;
  raggio = pf.DistanzaPF;
  return kRiuscito;
}

std::optional<AreaEPerimetro> AreaPerimetro(std::span<const PuntoXYZ> v) {
  const size_t n = v.size();
  if (n < 3) return std::nullopt;
  AreaEPerimetro r;
  double trapezi = 0;
  // Heights of the trapezia from the first vertex, not from the Equator.
  const double y0 = v[0].Y;
  for (size_t i = 0; i < n; ++i) {
    const PuntoXYZ& p = v[i];
    const PuntoXYZ& q = v[(i + 1) % n];
    trapezi += ((p.Y - y0) + (q.Y - y0)) / 2 * (p.X - q.X);
    const double piano = Distanza2D(p, q);
    r.Perimetro += piano;
    r.PerimetroInclinato += std::sqrt(piano * piano + (p.Z - q.Z) * (p.Z - q.Z));
    r.Medio.X += p.X;
    r.Medio.Y += p.Y;
    r.Medio.Z += p.Z;
  }
  r.Area = std::fabs(trapezi);
  r.Medio.X /= static_cast<double>(n);
  r.Medio.Y /= static_cast<double>(n);
  r.Medio.Z /= static_cast<double>(n);
  return r;
}

PuntoXYZ RuotaPunto(const PuntoXYZ& punto, const PuntoXYZ& perno, double gon) {
  const AzimutEDistanza ad = AzimutDistanza(perno, punto);
  PuntoXYZ r = Polare(perno.X, perno.Y, ad.Azimut + gon * GonToRad, ad.Distanza);
  r.Z = punto.Z;
  return r;
}

PosizioneInArco AngoloInArco(double xc, double yc, double inizioGon, double ampiezzaGon, double x, double y) {
  double a = RadToGon * AzimutDistanza(xc, yc, x, y).Azimut - inizioGon;
  if (std::fabs(a) < 1e-7) return {true, 1};
  if (a < 0) a += 400;
  if (std::fabs(ampiezzaGon - a) < 1e-7) return {true, 2};
  return {a < ampiezzaGon, 0};
}

std::string ProssimoNomePunto(const TabelleEntita& t, std::string_view nome, bool numerazioneAutomatica,
                              std::string_view passo) {
  if (!numerazioneAutomatica || Rifila(passo).empty()) return {};
  const double incremento = LeggiNumero(passo);
  // One pass over the table, then each candidate is a lookup: a survey numbered 1 to 10^5
  // asked for the name after "1" must not scan the table 10^5 times.
  std::unordered_set<std::string_view> presi;
  const size_t righe = std::min<size_t>(static_cast<size_t>(std::max(t.ContaEntita[SlotPunti], 0)),
                                        std::min(t.PuntoNome.size(), t.PuntoIdent.size()));
  presi.reserve(righe);
  for (size_t i = 0; i < righe; ++i)
    if (IdentVivo(t.PuntoIdent[i])) presi.insert(t.PuntoNome[i]);

  std::string corrente(nome);
  // Distinct candidates cannot all be taken once there are more of them than names.
  for (size_t giro = 0; giro <= presi.size(); ++giro) {
    size_t coda = corrente.size();
    while (coda > 0 && corrente[coda - 1] >= '0' && corrente[coda - 1] <= '9') --coda;
    const double numero = Val(std::string_view(corrente).substr(coda)) + incremento;
    std::string prossimo = corrente.substr(0, coda) + FormatoMaschera(numero, "#################");
    // A step of 0, or a tail too long for a double to grow, leaves the name as it was.
    if (prossimo == corrente) break;
    corrente = std::move(prossimo);
    if (!presi.contains(corrente)) break;
  }
  return corrente;
}

std::string NomePulito(std::string_view nome) {
  std::string r = Rifila(nome);
  for (char& c : r)
    if (c == ',' || c == '.' || c == ' ' || c == '\\' || c == '/') c = '_';
  if (r.empty()) r = "0";
  return r;
}

}  // namespace varena
