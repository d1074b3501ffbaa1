// The drawing of one section, in a fixed order: verticals, project and terrain profiles,
// datum line and title, the rows of values, the invaso line, the frame. Every element goes
// through one line helper and one text helper, which also grow the section's box, so that
// the frame drawn last encloses all that came before it.
#include "sections/DisegnoSezioni.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string>

#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "view/Rigenera.h"

namespace varena {

std::vector<double> Progressive(const Sezione& z) {
  std::vector<double> p(z.Stazioni.size(), 0);
  const std::vector<double> d = DistanzePiane(z);
  for (size_t i = 1; i < p.size(); ++i) p[i] = p[i - 1] + d[i - 1];
  return p;
}

double ScalaSezione(double scalaLunghezze) { return scalaLunghezze > 0 ? scalaLunghezze / 50.0 : 20.0; }

namespace {

bool Finiti(std::initializer_list<double> v) {
  return std::all_of(v.begin(), v.end(), [](double x) { return std::isfinite(x); });
}

// The width of a text as the list frames it: the same estimate the texts of the drawing use.
double LunghezzaTesto(const std::string& t, double h) { return 0.6 * h * static_cast<double>(t.size()); }

class Disegnatore {
 public:
  Disegnatore(Sessione& s, int32_t riga) : s_(s), riga_(riga), z_(s.SezioneDati[static_cast<size_t>(riga)]) {
    box_[0] = box_[2] = z_.OrigineX;
    box_[1] = box_[3] = z_.OrigineY;
  }

  // The layer and colour of the elements that follow.
  void Gruppo(const char* suffisso, int32_t colore) {
    piano_ = z_.Cfg.NomeBase + suffisso;
    colore_ = colore;
  }

  // `GeneraLineaSezione`. Values each finite may still overflow together (a height far off
  // the datum times a large exaggeration): such an element has no place on the sheet.
  void Linea(double x1, double y1, double x2, double y2) {
    if (!Finiti({x1, y1, x2, y2})) return;
    RecordDisegno r = Base();
    r.X1 = x1, r.Y1 = y1, r.X2 = x2, r.Y2 = y2;
    s_.ListaDisegno.Aggiungi(r);
    Includi(x1, y1);
    Includi(x2, y2);
  }

  // `GeneraTestoSezione`: the insertion point is the foot of the text, at its left.
  void Testo(const std::string& testo, double h, double rotazioneGon, double x, double y) {
    if (testo.empty() || !Finiti({x, y, h, LunghezzaTesto(testo, h)})) return;
    RecordDisegno r = Base();
    r.Primitiva = PrimTesto;
    const double a = rotazioneGon * GonToRad, l = LunghezzaTesto(testo, h);
    r.X1 = x, r.Y1 = y;
    r.X2 = x + l * std::cos(a), r.Y2 = y + l * std::sin(a);
    r.Altezza = static_cast<float>(h);
    r.Rotazione = static_cast<float>(rotazioneGon);
    r.Font = "Arial";
    r.Testo = testo;
    s_.ListaDisegno.Aggiungi(r);
    // Its corners: from a fifth of its height under the foot (the descenders) to its top.
    const double ux = -std::sin(a), uy = std::cos(a);
    for (double k : {-0.2 * h, h}) {
      Includi(r.X1 + k * ux, r.Y1 + k * uy);
      Includi(r.X2 + k * ux, r.Y2 + k * uy);
    }
  }

  double* Box() { return box_; }

 private:
  RecordDisegno Base() const {
    RecordDisegno r;
    r.Tipo = SlotSezioni;
    r.Riga = riga_;
    r.Colore = ColoreVisibile(s_, colore_);
    r.Stato = s_.StatoSezione[static_cast<size_t>(riga_)];
    r.Piano = piano_;
    r.Penna = static_cast<int16_t>(std::clamp<int32_t>(colore_, -32768, 32767));
    return r;
  }
  void Includi(double x, double y) {
    box_[0] = std::min(box_[0], x), box_[1] = std::min(box_[1], y);
    box_[2] = std::max(box_[2], x), box_[3] = std::max(box_[3], y);
  }

  Sessione& s_;
  int32_t riga_;
  const Sezione& z_;
  std::string piano_;
  int32_t colore_ = 7;
  double box_[4];
};

// What the rows below the datum line share: where they start and end across, where the
// next one begins down.
struct Fincatura {
  double XTitoli, XFine, Y;
};

void Riga(Disegnatore& d, Fincatura& f, const GruppoSezione& g, const char* suffisso, const std::vector<double>& xs,
          const std::vector<std::string>& testi, const std::vector<double>& xTesti) {
  if (g.Disegna != 1) return;
  d.Gruppo(suffisso, g.Colore);
  const double R = g.AltezzaFincatura, T = g.AltezzaTesto;
  const double alto = f.Y, basso = f.Y - R;
  d.Testo(g.Titolo, T, 0, f.XTitoli + 0.2 * T, alto - R / 2 - T / 2);
  for (double x : xs) {
    d.Linea(x, alto, x, alto - 0.2 * R);
    d.Linea(x, basso, x, basso + 0.2 * R);
  }
  for (size_t i = 0; i < testi.size(); ++i) {
    const double x = xTesti[i];
    // Upright, the text stands on the lower tick's top, centred on the station; lying, it
    // hangs from the upper tick's foot.
    if (g.OrientamentoVerticale == 1)
      d.Testo(testi[i], T, 100, x + T / 2, basso + 0.2 * R);
    else
      d.Testo(testi[i], T, 0, x - LunghezzaTesto(testi[i], T) / 2, alto - 0.2 * R - T);
  }
  d.Linea(f.XTitoli, basso, f.XFine, basso);
  f.Y = basso;
}

std::string ZeriDecimali(int n) { return std::string(static_cast<size_t>(std::clamp(n, 0, 9)), '0'); }

// A piece of the title row: its text, height and colour.
struct PezzoTitolo {
  std::string Testo;
  double Altezza;
  int32_t Colore;
};

// The blocks of the title row that are switched on: name, number, distance from the
// previous section, and with a project its cut and fill.
std::vector<PezzoTitolo> PezziTitolo(const Sessione& s, const Sezione& z, int32_t riga) {
  const ConfigurazioneSezione& c = z.Cfg;
  std::vector<PezzoTitolo> p;
  if (c.NomeSezione.Disegna == 1) p.push_back({z.IndiceSezione, c.NomeSezione.AltezzaTesto, c.NomeSezione.Colore});
  const double h = c.NumeroSezione.AltezzaTesto;
  if (c.NumeroSezione.Disegna == 1)
    p.push_back({"Sezione N° " + FormatoMaschera(riga + 1, "########0"), h, c.NumeroSezione.Colore});
  if (c.DistanzaPrecedente.Disegna == 1)
    if (const std::optional<double> d = DistanzaDaPrecedente(s, riga))
      p.push_back({"Distanza Da Precedente= " + FormatoMaschera(*d, "########0.#0"), c.DistanzaPrecedente.AltezzaTesto,
                   c.DistanzaPrecedente.Colore});
  if (c.ProfiloProgetto == 1 && c.TestoSterroRiporto == 1) {
    const AreeSezione a = AreeSterroRiporto(z);
    p.push_back({"Area Sterro= " + FormatoMaschera(a.Sterro, "########0.#0"), h, c.ColoreProgetto});
    p.push_back({"Area Riporto= " + FormatoMaschera(a.Riporto, "########0.#0"), h, c.ColoreProgetto});
    p.push_back({"Area Totale= " + FormatoMaschera(a.Sterro + a.Riporto, "########0.#0"), h, c.ColoreProgetto});
  }
  std::erase_if(p, [](const PezzoTitolo& x) { return x.Testo.empty(); });
  return p;
}

// The title over the profile, its blocks one after the other a text height apart, then
// the plan coordinates of the ends.
void Titolo(Disegnatore& d, const Sessione& s, const Sezione& z, int32_t riga, double totale) {
  const ConfigurazioneSezione& c = z.Cfg;
  const double alto = d.Box()[3];
  const std::vector<PezzoTitolo> pezzi = PezziTitolo(s, z, riga);
  double h = 0, w = 0;
  for (const PezzoTitolo& p : pezzi) {
    h = std::max(h, p.Altezza);
    w += (w > 0 ? p.Altezza : 0) + LunghezzaTesto(p.Testo, p.Altezza);
  }
  const double y = alto + 1.5 * h;
  double x = z.OrigineX;
  if (c.CentraNomeSezione == 1) x += totale / 2 - w / 2;
  for (const PezzoTitolo& p : pezzi) {
    d.Gruppo("_QuotaRif", p.Colore);
    d.Testo(p.Testo, p.Altezza, 0, x, y);
    x += LunghezzaTesto(p.Testo, p.Altezza) + p.Altezza;
  }
  if (c.NumeroSezione.Disegna != 1) return;
  // The plan position of the first and last station, under the title, at the two ends.
  d.Gruppo("_QuotaRif", c.NumeroSezione.Colore);
  const double hc = c.NumeroSezione.AltezzaTesto * 0.7;
  const auto& a = z.Stazioni.front();
  const auto& b = z.Stazioni.back();
  const std::string primo = "N= " + FormatoMaschera(a.Y, "##########0.##0") + " E= " + FormatoMaschera(a.X, "##########0.##0");
  const std::string ultimo = "N= " + FormatoMaschera(b.Y, "##########0.##0") + " E= " + FormatoMaschera(b.X, "##########0.##0");
  const double yc = alto + 0.3 * hc;
  d.Testo(primo, hc, 0, z.OrigineX, yc);
  d.Testo(ultimo, hc, 0, z.OrigineX + totale - LunghezzaTesto(ultimo, hc), yc);
}

// The grade of each stretch of the project, in percent, over its middle: what the builder
// reads off a profile. A stretch of no length has none.
template <class Quota>
void EtichetteProgetto(Disegnatore& d, const Sezione& z, const std::vector<double>& xs,
                       const std::vector<double>& parziali, Quota Y) {
  const double H = z.Cfg.Terreno.AltezzaTesto;
  for (size_t i = 0; i + 1 < xs.size(); ++i) {
    if (!(parziali[i] > 0)) continue;
    const double q0 = z.Stazioni[i].QuotaProgetto, q1 = z.Stazioni[i + 1].QuotaProgetto;
    const std::string t = "i= " + FormatoMaschera(100 * (q1 - q0) / parziali[i], "##0.#0") + "%";
    d.Testo(t, H, 0, (xs[i] + xs[i + 1]) / 2 - LunghezzaTesto(t, H) / 2, Y((q0 + q1) / 2) + 0.3 * H);
  }
}

// The height of a profile at progressive p, along the stretch that holds it.
double QuotaA(const Sezione& z, const std::vector<double>& xs, double p, double StazioneSezione::*quota) {
  const double x = xs.front() + p;
  for (size_t i = 0; i + 1 < xs.size(); ++i)
    if (x <= xs[i + 1] && xs[i + 1] > xs[i]) {
      const double t = std::clamp((x - xs[i]) / (xs[i + 1] - xs[i]), 0.0, 1.0);
      return z.Stazioni[i].*quota + t * (z.Stazioni[i + 1].*quota - z.Stazioni[i].*quota);
    }
  return z.Stazioni.back().*quota;
}

// Each zone of cut ("S= ") or fill ("R= ") labelled with its area in its middle, halfway
// between the two profiles.
template <class Quota>
void EtichetteAree(Disegnatore& d, const Sezione& z, const std::vector<double>& xs, Quota Y) {
  d.Gruppo("_ProfProg", z.Cfg.ColoreProgetto);
  const double H = z.Cfg.Terreno.AltezzaTesto;
  for (const ZonaArea& k : ZoneSterroRiporto(z)) {
    const double p = (k.Da + k.A) / 2;
    const double q = (QuotaA(z, xs, p, &StazioneSezione::QuotaTerreno) + QuotaA(z, xs, p, &StazioneSezione::QuotaProgetto)) / 2;
    const std::string t = (k.Sterro ? "S= " : "R= ") + FormatoMaschera(k.Area, "########0.#0");
    d.Testo(t, H, 0, xs.front() + p - LunghezzaTesto(t, H) / 2, Y(q) - H / 2);
  }
}

// The column of the row titles: 2 cm of paper, or the width of the description block when
// the user gave it one.
double LarghezzaTitoli(const ConfigurazioneSezione& c, double scala) {
  return c.BloccoDescrizioni == 1 && c.LarghezzaBox > 0 ? c.LarghezzaBox : 2 * scala;
}

// `_Box`: the description block, a rectangle round the row titles from the datum line to the
// foot of the last row.
void BloccoDescrizioni(Disegnatore& d, const Sezione& z, double xTitoli, double fondo) {
  if (z.Cfg.BloccoDescrizioni != 1 || !(fondo < z.OrigineY)) return;
  d.Gruppo("_Box", z.Cfg.ColoreQuotaRiferimento);
  const double x0 = xTitoli, x1 = z.OrigineX, y0 = fondo, y1 = z.OrigineY;
  d.Linea(x0, y1, x1, y1);
  d.Linea(x1, y1, x1, y0);
  d.Linea(x1, y0, x0, y0);
  d.Linea(x0, y0, x0, y1);
}

void Disegna(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  const Sezione& z = s.SezioneDati[r];
  const ConfigurazioneSezione& c = z.Cfg;
  const size_t n = z.Stazioni.size();
  const double fattore = FattoreAltezze(c);
  auto Y = [&](double q) { return (q - c.QuotaRiferimento) * fattore + z.OrigineY; };
  const std::vector<double> parziali = DistanzePiane(z);
  std::vector<double> xs = Progressive(z);
  for (double& x : xs) x += z.OrigineX;
  const double totale = xs.back() - z.OrigineX;
  auto alta = [&](size_t i) { return std::max(z.Stazioni[i].QuotaTerreno, z.Stazioni[i].QuotaProgetto); };
  Disegnatore d(s, riga);

  if (c.Verticali.Disegna == 1) {
    d.Gruppo("_Vertical", c.Verticali.Colore);
    for (size_t i = 0; i < n; ++i) d.Linea(xs[i], Y(alta(i)), xs[i], z.OrigineY);
  }
  if (c.ProfiloProgetto == 1) {
    d.Gruppo("_ProfProg", c.ColoreProgetto);
    for (size_t i = 0; i + 1 < n; ++i)
      d.Linea(xs[i], Y(z.Stazioni[i].QuotaProgetto), xs[i + 1], Y(z.Stazioni[i + 1].QuotaProgetto));
    if (c.DisegnaQuotatura == 1) EtichetteProgetto(d, z, xs, parziali, Y);
  }
  d.Gruppo("_ProfRili", c.Terreno.Colore);
  for (size_t i = 0; i + 1 < n; ++i)
    d.Linea(xs[i], Y(z.Stazioni[i].QuotaTerreno), xs[i + 1], Y(z.Stazioni[i + 1].QuotaTerreno));
  if (c.QuoteRosse == 1) {
    d.Gruppo("_ProfRili", c.ColoreQuoteRosse);
    const double H = c.Terreno.AltezzaTesto;
    for (size_t i = 0; i < n; ++i) {
      const auto& p = z.Stazioni[i];
      // Two stations at one place keep both labels readable.
      const double spostamento = i + 1 < n && parziali[i] == 0 ? 1.3 * H : 0;
      d.Testo(VirgolaInPunto(FormatoMaschera(p.QuotaProgetto - p.QuotaTerreno, "#####0.##0")), H, 100,
              xs[i] - H + spostamento, Y(alta(i)) + 0.3 * H);
    }
  }

  if (c.ProfiloProgetto == 1 && c.TestoSterroRiporto == 1) EtichetteAree(d, z, xs, Y);

  const double scala = ScalaSezione(c.ScalaLunghezze);
  d.Gruppo("_QuotaRif", c.ColoreQuotaRiferimento);
  d.Linea(z.OrigineX, z.OrigineY, xs.back(), z.OrigineY);
  if (c.BloccoQuotaRiferimento.Disegna == 1) {
    d.Gruppo("_QuotaRif", c.BloccoQuotaRiferimento.Colore);
    const double h = c.BloccoQuotaRiferimento.AltezzaTesto;
    d.Testo("Q.Rif. " + FormatoMaschera(c.QuotaRiferimento, "########0.##0"), h, 0, z.OrigineX - 2 * scala,
            z.OrigineY + 0.3 * h);
  }
  Titolo(d, s, z, riga, totale);

  // The rows, from the datum line down.
  Fincatura f{z.OrigineX - LarghezzaTitoli(c, scala), xs.back(), z.OrigineY};
  std::vector<std::string> nomi, terreno, progetto, progressive, parz, incl;
  std::vector<double> xParz, xIncl;
  for (size_t i = 0; i < n; ++i) {
    const auto& p = z.Stazioni[i];
    nomi.push_back(c.NomiPuntiOrdinati == 1 ? std::to_string(i + 1) : p.Nome);
    terreno.push_back(FormatoMaschera(p.QuotaTerreno, "###0.##0"));
    progetto.push_back(FormatoMaschera(p.QuotaProgetto, "###0.#0"));
    const double prog = c.OrigineQuotatura + (xs[i] - z.OrigineX);
    progressive.push_back(i == 0 && prog == 0 ? "0.00" : FormatoMaschera(prog, "###0.#0"));
    parz.push_back(i == 0 ? "0" : FormatoMaschera(parziali[i - 1], "######0." + ZeriDecimali(c.DecimaliParziali)));
    xParz.push_back(i == 0 ? xs[0] : xs[i] - parziali[i - 1] / 2);
    if (i == 0) continue;
    const double dz = p.QuotaTerreno - z.Stazioni[i - 1].QuotaTerreno, dd = parziali[i - 1];
    if (c.MostraPendenza == 1 && dd == 0) continue;
    const double v = c.MostraPendenza != 1 ? std::hypot(dd, dz) : dz / dd * (c.PendenzaPercentuale == 1 ? 100 : 1);
    incl.push_back(FormatoMaschera(v, "###0.0"));
    xIncl.push_back(xs[i] - dd / 2);
  }
  Riga(d, f, c.NomiPunti, "_NomiPunti", xs, nomi, xs);
  Riga(d, f, c.QuoteTerreno, "_QuotaTer", xs, terreno, xs);
  Riga(d, f, c.QuoteProgetto, "_QuotaPro", xs, progetto, xs);
  Riga(d, f, c.DistanzeProgressive, "_DistProgr", xs, progressive, xs);
  Riga(d, f, c.DistanzeParziali, "_DistParz", xs, parz, xParz);
  Riga(d, f, c.DistanzeInclinate, "_DistIncl", xs, incl, xIncl);
  BloccoDescrizioni(d, z, f.XTitoli, f.Y);

  if (c.LineaInvaso.Disegna == 1) {
    d.Gruppo("_QuotaInvaso", c.LineaInvaso.Colore);
    d.Linea(z.OrigineX, Y(c.QuotaInvaso), xs.back(), Y(c.QuotaInvaso));
  }

  // The frame, the last step, reports its failures under a tag of its own.
  s.RoutineCorrente = "Rigenera Sezione1";
  double* b = d.Box();
  b[0] -= 2 * scala;
  b[1] -= scala;
  b[2] += 3 * std::max(c.DistanzeParziali.AltezzaFincatura, 0.0);
  b[3] += 6 * std::max(c.Terreno.AltezzaTesto, 0.0);
  if (!Finiti({b[0], b[1], b[2], b[3]})) b[0] = b[1] = b[2] = b[3] = 0;
  s.SezioneBoxX1[r] = b[0], s.SezioneBoxY1[r] = b[1], s.SezioneBoxX2[r] = b[2], s.SezioneBoxY2[r] = b[3];
  const double x0 = b[0], y0 = b[1], x1 = b[2], y1 = b[3];
  d.Gruppo("_CORNICE", 30);
  d.Linea(x0, y0, x1, y0);
  d.Linea(x1, y0, x1, y1);
  d.Linea(x1, y1, x0, y1);
  d.Linea(x0, y1, x0, y0);
}

}  // namespace

// The stretches where terrain and project part, each a run of one sign: its progressives
// and its area. The height of terrain over project is linear along a stretch, so a stretch
// where they cross is two triangles meeting at the crossing; a stretch where they agree
// ends a run.
std::vector<ZonaArea> ZoneSterroRiporto(const Sezione& z) {
  std::vector<ZonaArea> zone;
  const std::vector<double> d = DistanzePiane(z);
  double p = 0;
  bool aperta = false;
  auto pezzo = [&](double e, double da, double a) {
    const double area = std::fabs(e) * (a - da) / 2;
    if (!(area > 0)) {
      aperta = false;
      return;
    }
    if (aperta && zone.back().Sterro == (e > 0)) {
      zone.back().Area += area, zone.back().A = a;
    } else {
      zone.push_back({e > 0, area, da, a});
      aperta = true;
    }
  };
  for (size_t i = 0; i < d.size(); ++i) {
    const double e0 = z.Stazioni[i].QuotaTerreno - z.Stazioni[i].QuotaProgetto;
    const double e1 = z.Stazioni[i + 1].QuotaTerreno - z.Stazioni[i + 1].QuotaProgetto;
    if ((e0 > 0 && e1 < 0) || (e0 < 0 && e1 > 0)) {
      const double t = e0 / (e0 - e1);
      pezzo(e0, p, p + t * d[i]);
      pezzo(e1, p + t * d[i], p + d[i]);
    } else {
      pezzo(e0 + e1, p, p + d[i]);
    }
    p += d[i];
  }
  return zone;
}

AreeSezione AreeSterroRiporto(const Sezione& z) {
  AreeSezione a;
  for (const ZonaArea& k : ZoneSterroRiporto(z)) (k.Sterro ? a.Sterro : a.Riporto) += k.Area;
  return a;
}

std::optional<double> DistanzaDaPrecedente(const Sessione& s, int32_t riga) {
  auto mezzo = [&s](int32_t k, double& x, double& y) {
    const auto& st = s.SezioneDati[static_cast<size_t>(k)].Stazioni;
    if (st.empty()) return false;
    x = (st.front().X + st.back().X) / 2, y = (st.front().Y + st.back().Y) / 2;
    return true;
  };
  double x = 0, y = 0, xp = 0, yp = 0;
  if (!mezzo(riga, x, y)) return std::nullopt;
  for (int32_t k = riga - 1; k >= 0; --k)
    if (IdentVivo(s.SezioneIdent[static_cast<size_t>(k)]) && mezzo(k, xp, yp)) return std::hypot(x - xp, y - yp);
  return std::nullopt;
}

void RigeneraSezione(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  const Sezione& z = s.SezioneDati[r];
  // A deleted or frozen section draws nothing; nor does one of a single station, which has
  // no profile to show.
  if (!IdentVivo(s.SezioneIdent[r]) || z.Cfg.Congela < 0 || z.Stazioni.size() < 2) return;
  const std::string routine = s.RoutineCorrente;
  s.RoutineCorrente = "Rigenera sezione";
  Protetto(s, [&] { Disegna(s, riga); });
  s.RoutineCorrente = routine;
}

}  // namespace varena
