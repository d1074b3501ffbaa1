// The resection and the eccentric station.
#include "survey/Resezione.h"

#include <algorithm>
#include <cmath>

#include "core/Testo.h"

namespace varena {

namespace {

constexpr double kPuntiCoincidenti = 0.001;  // metres: two known points closer are one
// How near the circle through the three points a station may stand, as a fraction of the
// figure: N and D below fall to 0 in proportion to the station's distance from the circle
// (about 3/4 of it for a well-shaped figure), and a station a thousandth of the figure off
// the circle already turns a tenth of a milligon of reading into decimetres.
constexpr double kCerchioPericoloso = 1e-3;

}  // namespace

EsitoPothenot Pothenot(const PuntoXYZ& p1, const PuntoXYZ& p2, const PuntoXYZ& p3, double alfaGon, double betaGon) {
  EsitoPothenot e;
  auto rifiuta = [&e](const char* motivo) {
    e.Stato = kResezioneDegenere;
    e.Motivo = motivo;
    return e;
  };
  const double l12 = Distanza2D(p1.X, p1.Y, p2.X, p2.Y), l23 = Distanza2D(p2.X, p2.Y, p3.X, p3.Y),
               l13 = Distanza2D(p1.X, p1.Y, p3.X, p3.Y);
  if (std::min({l12, l23, l13}) < kPuntiCoincidenti) return rifiuta("Punti noti coincidenti!");
  const double k = GonToRad;
  const double ta = std::tan(k * alfaGon);
  if (std::fabs(ta) < 1e-7) return rifiuta("Angolo Alfa non ammissibile (0 o 200 gon)!");
  const double tb = std::tan(k * (alfaGon + betaGon));
  // On the first known point, so that grid coordinates keep their millimetres.
  const OrigineLocale o(p1);
  const PuntoXYZ a = o.Locale(p1), b = o.Locale(p2), c = o.Locale(p3);
  const double n = (a.X - c.X) / tb + (b.X - a.X) / ta + c.Y - b.Y;
  const double d = (a.Y - c.Y) / tb + (b.Y - a.Y) / ta + b.X - c.X;
  const char* kPericoloso = "Stazione sul cerchio pericoloso: il punto è indeterminato!";
  if (d == 0 || std::hypot(n, d) < kCerchioPericoloso * std::max({l12, l23, l13})) return rifiuta(kPericoloso);
  double phi = 0;  // the azimuth from the station to point 1
  if (n == 0) {
    phi = d > 0 ? 0 : PiGreco;
  } else {
    phi = std::atan(n / d);
    if (d < 0) phi += PiGreco;
    if (phi < 0) phi += 2 * PiGreco;
  }
  const double t0 = std::tan(phi), t1 = std::tan(k * alfaGon + phi);
  const double y = (a.Y * n / d + b.X - a.X - b.Y * t1) / (t0 - t1);
  // X along the sight to point 1, unless that sight runs nearly East-West: its tangent is
  // then huge and would multiply the last bits of Y; the sight to point 2 is then the
  // steadier, as the two differ by alfa.
  const double x = std::fabs(t0) <= std::fabs(t1) ? (y - a.Y) * t0 + a.X : (y - b.Y) * t1 + b.X;
  if (!std::isfinite(x) || !std::isfinite(y)) return rifiuta(kPericoloso);
  e.Stazione = o.Globale({x, y, 0});
  e.Stazione.Z = 0;
  return e;
}

}  // namespace varena

namespace varena {

namespace {

double Giro(double gon) {
  while (gon < 0) gon += 400;
  while (gon >= 400) gon -= 400;
  return gon;
}

// The azimuth from the centre to the orientation point, by quadrants and the plain arc
// tangent, as the eccentric tables were always worked.
double AzimutQuadranti(double dx, double dy) {
  if (dx == 0) return dy >= 0 ? 0 : PiGreco;
  if (dy == 0) return dx >= 0 ? PiGreco / 2 : 3 * PiGreco / 2;
  double a = std::atan(dx / dy);
  if (dy < 0) a += PiGreco;
  if (a < 0) a += 2 * PiGreco;
  return a;
}

}  // namespace

EsitoFuoriCentro FuoriCentro(const std::vector<RigaFuoriCentro>& righe, double e) {
  EsitoFuoriCentro r;
  if (righe.size() < 2 || !(e > 0)) return r;
  const RigaFuoriCentro& c = righe[0];
  const double rc = c.Direzione;
  double sx = 0, sy = 0;
  int n = 0;
  for (size_t i = 1; i < righe.size(); ++i) {
    const RigaFuoriCentro& o = righe[i];
    StazioneRidotta st;
    // Differences from the centre: grid coordinates are subtracted once, here.
    const double dx = o.Est - c.Est, dy = o.Nord - c.Nord;
    st.Distanza = std::sqrt(dx * dx + dy * dy);
    const double a = AzimutQuadranti(dx, dy);
    st.Azimut = RadToGon * a;
    double g = a + PiGreco;  // the point read in the direction of the centre: beyond it
    const double w = Giro(o.Direzione - rc);
    st.AngoloV = w > 200 ? 400 - w : w;
    if (w != 0) {
      // The triangle station, centre, point: the angle at the station is read, the side
      // opposite it is known, the eccentricity gives the angle at the point by the sines,
      // and the angle at the centre turns the azimuth to the point into the one to the
      // station.
      const double theta = GonToRad * w;
      const double thetaf = theta > PiGreco ? 2 * PiGreco - theta : theta;
      const double s = e * std::sin(thetaf) / st.Distanza;
      if (!(s < 1) || !std::isfinite(s)) {
        r.Righe.push_back(st);
        continue;
      }
      const double eps = std::atan(s / std::sqrt(1 - s * s));
      const double gamma = PiGreco - thetaf - eps;
      g = theta < PiGreco ? a + gamma : a - gamma;
    }
    st.S = Polare(c.Est, c.Nord, g, e);
    st.DR = Giro(RadToGon * g);
    st.CO = Giro(RadToGon * g + 200 - rc);
    st.Riuscita = true;
    sx += st.S.X - c.Est;
    sy += st.S.Y - c.Nord;
    ++n;
    r.Righe.push_back(st);
  }
  if (n == 0) return r;
  r.Media = true;
  r.S = {c.Est + sx / n, c.Nord + sy / n, 0};
  r.CO = Giro(RadToGon * AzimutDistanza(r.S.X, r.S.Y, c.Est, c.Nord).Azimut - rc);
  return r;
}

namespace {

// A value right-aligned under a head of `larghezza` characters; a wider one stands whole,
// still a blank apart from the value before it.
std::string Sotto(const std::string& v, size_t larghezza) {
  return std::string(v.size() < larghezza ? larghezza - v.size() : 1, ' ') + v;
}

}  // namespace

std::vector<std::string> RelazioneFuoriCentro(const std::vector<RigaFuoriCentro>& righe, const EsitoFuoriCentro& esito,
                                              double e, const std::string& stazione) {
  const std::string trattini =
      "--------------------------------------  ----------------  -------------------------------------  "
      "----------------------------------";
  std::vector<std::string> r = {
      "          RILEVAMENTO  ESEGUITO  DAL SOTTOSCRITTO A MEZZO DI TEODOLITE A GRADUAZIONE CENTESIMALE DESTRORSA E "
      "GEODIMETRO",
      "          MEDIANTE CALCOLO DELLA CORREZIONE DI ORIENTAMENTO E COORDINATE DELLA STAZIONE " + stazione +
          " FUORI CENTRO. ORIGINE " + (righe.empty() ? std::string() : righe[0].Nome),
      "Dalla stazione " + stazione,
      "               ELEMENTI DATI:           DI CAMPAGNA:      DI CALCOLO:                            RICAVATI:",
      trattini,
      "PU.APP/OR.         (N)X         (E)Y      DIREZ.    ECC.    DIST.    AZIMUT     ANG.V      D.R.      C.O.  "
      "     (N)X         (E)Y",
      trattini};
  if (righe.empty()) return r;
  auto m = [](double v, const char* maschera) { return FormatoRilievo(v, maschera); };
  // Each value under its head: the widths of the heads of the line above.
  auto dati = [&](const std::string& nome, const RigaFuoriCentro& x) {
    std::string l = nome.size() >= 10 ? nome : nome + std::string(10 - nome.size(), ' ');
    return l + Sotto(m(x.Nord, "######0.##0"), 13) + Sotto(m(x.Est, "######0.##0"), 13) +
           Sotto(m(x.Direzione, "###0.###0"), 12);
  };
  r.push_back(dati(righe[0].Nome, righe[0]) + Sotto(m(e, "###0.##0"), 8));
  for (size_t i = 0; i < esito.Righe.size() && i + 1 < righe.size(); ++i) {
    const StazioneRidotta& st = esito.Righe[i];
    std::string l = dati("PUNTO " + righe[i + 1].Nome, righe[i + 1]) + std::string(8, ' ');
    if (st.Riuscita)
      l += Sotto(m(st.Distanza, "#####0.##0"), 9) + Sotto(m(st.Azimut, "###0.###0"), 10) +
           Sotto(m(st.AngoloV, "###0.###0"), 10) + Sotto(m(st.DR, "###0.###0"), 10) +
           Sotto(m(st.CO, "###0.###0"), 10) + Sotto(m(st.S.Y, "#######0.##0"), 11) +
           Sotto(m(st.S.X, "#######0.##0"), 13);
    r.push_back(l);
  }
  if (esito.Media) {
    r.push_back(std::string(r[5].size() - 34, ' ') + "----------------------------------");
    r.push_back(std::string(r[5].size() - 34 - 14, ' ') + "VALORI MEDI:  " + Sotto(m(esito.CO, "##0.###0"), 10) +
                Sotto(m(esito.S.Y, "#######0.##0"), 11) + Sotto(m(esito.S.X, "#######0.##0"), 13));
  }
  return r;
}

std::string CsvFuoriCentro(const EsitoFuoriCentro& esito, const std::string& stazione) {
  auto riga = [&](const PuntoXYZ& p) {
    return stazione + "|" + FormatoRilievo(p.Y, "#############0.00000") + "|" + FormatoRilievo(p.X, "#############0.00000") +
           "|0.0000\r\n";
  };
  std::string t;
  for (const StazioneRidotta& st : esito.Righe)
    if (st.Riuscita) t += riga(st.S);
  if (esito.Media) t += riga(esito.S);
  return t;
}

std::string TestoFFF(const std::vector<RigaFuoriCentro>& righe) {
  std::string t;
  auto m = [](double v) { return FormatoRilievo(v, "##########0.##0"); };
  for (const RigaFuoriCentro& r : righe)
    t += r.Ruolo + "\t" + r.Nome + "\t" + m(r.Nord) + "\t" + m(r.Est) + "\t" + TestoGon(r.Direzione) + "\r\n";
  return t;
}

std::string LeggiFFF(std::string_view testo, std::vector<RigaFuoriCentro>& righe) {
  std::vector<RigaFuoriCentro> lette;
  size_t numero = 0;
  while (!testo.empty()) {
    const size_t fine = testo.find('\n');
    std::string_view riga = testo.substr(0, fine);
    testo = fine == std::string_view::npos ? std::string_view{} : testo.substr(fine + 1);
    ++numero;
    if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    if (Rifila(riga).empty()) continue;
    std::vector<std::string> campi;
    for (size_t inizio = 0;;) {
      const size_t tab = riga.find('\t', inizio);
      campi.emplace_back(riga.substr(inizio, tab == std::string_view::npos ? std::string_view::npos : tab - inizio));
      if (tab == std::string_view::npos) break;
      inizio = tab + 1;
    }
    if (campi.size() < 5 || !TestoNumerico(campi[2]) || !TestoNumerico(campi[3]) || !TestoNumerico(campi[4]))
      return "Riga " + std::to_string(numero) + " incompleta o non numerica";
    if (lette.size() == kMassimoRigheFuoriCentro)
      return "Più di " + std::to_string(kMassimoRigheFuoriCentro) + " righe";
    lette.push_back({Rifila(campi[0]), Rifila(campi[1]), LeggiNumero(campi[2]), LeggiNumero(campi[3]),
                     LeggiNumero(campi[4])});
  }
  if (lette.empty()) return "Nessuna riga";
  righe = std::move(lette);
  return {};
}

}  // namespace varena
