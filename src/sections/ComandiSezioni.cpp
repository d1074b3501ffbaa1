// The section commands. Each works on a copy of one section and puts it back whole; the
// snapshot at the end regenerates the drawing.
#include "sections/ComandiSezioni.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <optional>
#include <tuple>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "cadastre/ContornoSette.h"
#include "cadastre/Libretto.h"
#include "core/Sessione.h"
#include "core/ImpostazioniUtente.h"
#include "core/Testo.h"
#include "sections/DisegnoSezioni.h"
#include "sections/FileSezioni.h"
#include "snap/Vicino.h"
#include "terrain/Falde.h"
#include "view/Elastico.h"

namespace varena {

namespace {

constexpr const char* kImpossibile = "Impossibile continuare";
constexpr double kInfinito = std::numeric_limits<double>::infinity();
constexpr double kMassimoSezioniInSerie = 1000;

bool FaldaAttiva(const Sessione& s, size_t r) { return IdentVivo(s.FaldaIdent[r]) && s.FaldaCongela[r] == 0; }

// The height of the plane of facet r at (x, y).
double QuotaSuFalda(const Sessione& s, size_t r, double x, double y) {
  const double x1 = s.FaldaX1[r], y1 = s.FaldaY1[r], z1 = s.FaldaZ1[r];
  const double ax = s.FaldaX2[r] - x1, ay = s.FaldaY2[r] - y1, az = s.FaldaZ2[r] - z1;
  const double bx = s.FaldaX3[r] - x1, by = s.FaldaY3[r] - y1, bz = s.FaldaZ3[r] - z1;
  const double d = ax * by - ay * bx;
  if (d == 0) return z1;
  // (x - x1, y - y1) = u a + v b, solved by Cramer's rule.
  const double u = ((x - x1) * by - (y - y1) * bx) / d, v = (ax * (y - y1) - ay * (x - x1)) / d;
  return z1 + u * az + v * bz;
}

// Where segment p-q crosses segment a-b, as the fraction along p-q; none when parallel or apart.
bool Taglio(double px, double py, double qx, double qy, double ax, double ay, double bx, double by, double& t) {
  const double rx = qx - px, ry = qy - py, sx = bx - ax, sy = by - ay;
  const double d = rx * sy - ry * sx;
  if (d == 0) return false;
  t = ((ax - px) * sy - (ay - py) * sx) / d;
  const double u = ((ax - px) * ry - (ay - py) * rx) / d;
  return t > 0 && t < 1 && u >= 0 && u <= 1;
}

std::string Nome(size_t n) { return std::to_string(n); }

}  // namespace

std::vector<StazioneSezione> StazioniSuFalde(const Sessione& s, const std::vector<double>& x,
                                             const std::vector<double>& y) {
  std::vector<StazioneSezione> out;
  const auto falde = static_cast<size_t>(std::max(s.ContaEntita[SlotFalde], 0));
  auto aggiungi = [&](double px, double py) {
    // Two stations closer than a millimetre are one.
    if (!out.empty() && std::hypot(out.back().X - px, out.back().Y - py) < 0.001) return;
    for (size_t r = 0; r < falde; ++r)
      if (FaldaAttiva(s, r) && PuntoInternoFalda(s, static_cast<int32_t>(r), px, py)) {
        const double z = QuotaSuFalda(s, r, px, py);
        out.push_back({Nome(out.size() + 1), px, py, z, z});
        return;
      }
  };
  for (size_t i = 0; i < x.size(); ++i) {
    aggiungi(x[i], y[i]);
    if (i + 1 == x.size()) break;
    std::vector<double> tagli;
    for (size_t r = 0; r < falde; ++r) {
      if (!FaldaAttiva(s, r)) continue;
      const double fx[4] = {s.FaldaX1[r], s.FaldaX2[r], s.FaldaX3[r], s.FaldaX1[r]};
      const double fy[4] = {s.FaldaY1[r], s.FaldaY2[r], s.FaldaY3[r], s.FaldaY1[r]};
      for (int k = 0; k < 3; ++k)
        if (double t; Taglio(x[i], y[i], x[i + 1], y[i + 1], fx[k], fy[k], fx[k + 1], fy[k + 1], t))
          tagli.push_back(t);
    }
    std::sort(tagli.begin(), tagli.end());
    for (double t : tagli) aggiungi(x[i] + t * (x[i + 1] - x[i]), y[i] + t * (y[i + 1] - y[i]));
  }
  return out;
}

Sezione ScompattaSezione(const Sessione& s, int32_t riga) { return s.SezioneDati[static_cast<size_t>(riga)]; }

void CompattaSezione(Sessione& s, int32_t riga, Sezione z) {
  s.SezioneDati[static_cast<size_t>(riga)] = std::move(z);
  SegnaRiga(s, SlotSezioni, riga);
  FineModifica(s);
}

void subSezioniCatturaPunti(Sessione& s) {
  s.SpezzataTemporanea.Aggiungi(s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ, Rifila(s.PuntoCorrenteNome));
  DipingiSpezzata(s);
  ++s.PassoComando;
  MostraPrompt(s, "Sezione - Punto Successivo (tasto destro per finire) :");
}

namespace {

bool FaldeVive(const Sessione& s, bool& attive) {
  const auto falde = static_cast<size_t>(std::max(s.ContaEntita[SlotFalde], 0));
  bool vive = false;
  attive = false;
  for (size_t r = 0; r < falde; ++r) vive |= IdentVivo(s.FaldaIdent[r]), attive |= FaldaAttiva(s, r);
  return vive;
}

// With a terrain model the user chooses where the heights come from: Yes the facets, No
// the points or lines picked. False when the user cancels or every facet is frozen.
bool ScegliFalde(Sessione& s, bool& suFalde) {
  bool attive = false;
  suFalde = false;
  if (!FaldeVive(s, attive)) return true;
  const Risposta r =
      s.Ui->Domanda("Sezioni su Linee o su Falde!", "Sezioni", Bottoni::SiNoAnnulla, Icona::Domanda, Risposta::Si);
  if (r == Risposta::Annulla) return false;
  suFalde = r == Risposta::Si;
  if (suFalde && !attive) {
    s.Ui->Messaggio("Falde congelate!", kImpossibile, Icona::Avviso);
    return false;
  }
  return true;
}

// How far a section reaches under and over its origin, roughly as its drawing will: the
// ground over the datum, the title, the rows and the frame.
double IngombroVerticale(const Sezione& z) {
  const ConfigurazioneSezione& c = z.Cfg;
  double alta = c.QuotaRiferimento;
  for (const StazioneSezione& p : z.Stazioni) alta = std::max({alta, p.QuotaTerreno, p.QuotaProgetto});
  double righe = 0;
  for (const GruppoSezione* g : {&c.NomiPunti, &c.QuoteTerreno, &c.QuoteProgetto, &c.DistanzeProgressive,
                                 &c.DistanzeParziali, &c.DistanzeInclinate})
    if (g->Disegna == 1) righe += std::max(g->AltezzaFincatura, 0.0);
  return (alta - c.QuotaRiferimento) * FattoreAltezze(c) + 6 * c.Terreno.AltezzaTesto + 3 * c.NomeSezione.AltezzaTesto +
         righe + 2 * ScalaSezione(c.ScalaLunghezze);
}

// The options of the dialog on a section just made: its stations numbered in order, a
// point of the job at each station that stands on none (named after the section and the
// station), the trace of the section drawn on the plan.
void ImpostazioniCreazione(Sessione& s, int32_t riga) {
  std::vector<StazioneSezione>& st = s.SezioneDati[static_cast<size_t>(riga)].Stazioni;
  if (ImpostazioneSezioni(s, kRinumeraPunti))
    for (size_t i = 0; i < st.size(); ++i) st[i].Nome = Nome(i + 1);
  if (ImpostazioneSezioni(s, kGeneraPunti))
    for (size_t i = 0; i < st.size(); ++i) {
      const Vicina v = IlPiuVicinoPunto(s, st[i].X, st[i].Y);
      const bool sopra = v.Riga >= 0 && std::hypot(s.PuntoX[static_cast<size_t>(v.Riga)] - st[i].X,
                                                    s.PuntoY[static_cast<size_t>(v.Riga)] - st[i].Y) < 0.001;
      if (sopra) continue;
      st[i].Nome = "S" + std::to_string(riga + 1) + "-" + Nome(i + 1);
      ScriviPunto(s, st[i].Nome, {st[i].X, st[i].Y, st[i].QuotaTerreno}, "", "SEZIONI");
    }
  if (ImpostazioneSezioni(s, kGeneraLinee))
    for (size_t i = 0; i + 1 < st.size(); ++i)
      ScriviLinea(s, {st[i].X, st[i].Y, st[i].QuotaTerreno}, {st[i + 1].X, st[i + 1].Y, st[i + 1].QuotaTerreno},
                  "SEZIONI");
}

// A new section of these stations, taken along the plan line (x, y): the default layout, the
// datum a whole metre under the lowest ground, the sheet to the right of the line and under
// every section already drawn (and under `sotto`, for one made before it and not yet
// drawn). Its row, or -1 when it has fewer than two stations.
int32_t NuovaSezione(Sessione& s, std::vector<StazioneSezione> stazioni, const std::vector<double>& x,
                     const std::vector<double>& y, double sotto = kInfinito) {
  if (stazioni.size() > static_cast<size_t>(kMassimoPuntiSezione)) stazioni.resize(kMassimoPuntiSezione);
  if (stazioni.size() < 2 || x.empty()) return -1;
  Sezione z;
  z.Cfg = CaricaConfigurazione(s, PercorsoConfigurazioneDefault(s));
  z.Stazioni = std::move(stazioni);
  z.Cfg.XInizio = x.front(), z.Cfg.YInizio = y.front();
  z.Cfg.XFine = x.back(), z.Cfg.YFine = y.back();
  double minima = z.Stazioni.front().QuotaTerreno;
  for (const StazioneSezione& p : z.Stazioni) minima = std::min(minima, p.QuotaTerreno);
  z.Cfg.QuotaRiferimento = std::floor(minima) - 1;
  double xs = x.front(), ys = std::min(y.front(), sotto);
  for (size_t i = 0; i < x.size(); ++i) xs = std::max(xs, x[i]), ys = std::min(ys, y[i]);
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k)
    if (IdentVivo(s.SezioneIdent[static_cast<size_t>(k)]) && s.SezioneBoxY1[static_cast<size_t>(k)] != s.SezioneBoxY2[static_cast<size_t>(k)])
      ys = std::min(ys, s.SezioneBoxY1[static_cast<size_t>(k)]);
  const double scala = ScalaSezione(z.Cfg.ScalaLunghezze);
  z.OrigineX = xs + 8 * scala;
  z.OrigineY = ys - 8 * scala;
  const int32_t riga = AggiungiSezione(s, std::move(z));
  s.SezioneDati[static_cast<size_t>(riga)].IndiceSezione = std::to_string(riga + 1);
  SegnaRiga(s, SlotSezioni, riga);
  ImpostazioniCreazione(s, riga);
  return riga;
}

// The stations along a plan polyline: through the facets, or at its vertices with their
// own heights and names.
std::vector<StazioneSezione> StazioniDa(const Sessione& s, const SpezzataTemporanea& sp, bool suFalde) {
  if (suFalde) return StazioniSuFalde(s, sp.X, sp.Y);
  std::vector<StazioneSezione> st;
  for (size_t i = 0; i < sp.Conta(); ++i) {
    const std::string nome = i < sp.Nome.size() && sp.Nome[i] != "*" && !sp.Nome[i].empty() ? sp.Nome[i] : Nome(i + 1);
    st.push_back({nome, sp.X[i], sp.Y[i], sp.Z[i], sp.Z[i]});
  }
  return st;
}

void CreaDaSpezzata(Sessione& s, const SpezzataTemporanea& sp) {
  bool suFalde = false;
  if (sp.Conta() < 2 || !ScegliFalde(s, suFalde)) return;
  if (NuovaSezione(s, StazioniDa(s, sp, suFalde), sp.X, sp.Y) < 0) {
    s.Ui->Messaggio("Falde Assenti!", kImpossibile, Icona::Avviso);
    return;
  }
  FineModifica(s);
}

bool Vicini(double x1, double y1, double x2, double y2) { return std::hypot(x1 - x2, y1 - y2) < 0.001; }

// The chain of lines that meet end to end, grown from line r at both its ends.
SpezzataTemporanea Catena(const Sessione& s, int32_t r) {
  std::deque<PuntoXYZ> c;
  const auto k = static_cast<size_t>(r);
  c.push_back({s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k]});
  c.push_back({s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]});
  const auto n = static_cast<size_t>(std::max(s.ContaEntita[SlotLinee], 0));
  std::vector<bool> presa(n, false);
  presa[k] = true;
  for (bool cresce = true; cresce && c.size() <= static_cast<size_t>(kMassimoPuntiSezione);) {
    cresce = false;
    for (size_t i = 0; i < n; ++i) {
      if (presa[i] || !IdentVivo(s.LineaIdent[i]) || s.LineaCongela[i] != 0) continue;
      const PuntoXYZ a{s.LineaX1[i], s.LineaY1[i], s.LineaZ1[i]}, b{s.LineaX2[i], s.LineaY2[i], s.LineaZ2[i]};
      for (const auto& [da, a2] : {std::pair{a, b}, std::pair{b, a}}) {
        if (Vicini(da.X, da.Y, c.back().X, c.back().Y)) {
          c.push_back(a2);
        } else if (Vicini(da.X, da.Y, c.front().X, c.front().Y)) {
          c.push_front(a2);
        } else {
          continue;
        }
        presa[i] = cresce = true;
        break;
      }
    }
  }
  // A profile reads from left to right: the chain starts at its western end.
  if (std::tie(c.back().X, c.back().Y) < std::tie(c.front().X, c.front().Y)) std::reverse(c.begin(), c.end());
  SpezzataTemporanea sp;
  for (const PuntoXYZ& p : c) sp.Aggiungi(p.X, p.Y, p.Z, "*");
  return sp;
}

}  // namespace

bool ImpostazioneSezioni(Sessione& s, const char* chiave) {
  return Rifila(LeggiImpostazioneUtente(s, "SEZIONI", chiave, "0")) == "1";
}

int32_t SezioneCliccata(Sessione& s) {
  if (RigheVive(s, SlotSezioni) == 0) {
    s.Ui->Messaggio("Sezioni assenti!!", kImpossibile, Icona::Avviso);
    InterrompiComando(s);
    return -1;
  }
  return RigaSezioneVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
}

void FineCatturaSezione(Sessione& s) {
  const SpezzataTemporanea sp = s.SpezzataTemporanea;
  InterrompiComando(s);
  CreaDaSpezzata(s, sp);
}

void subCatturaSpezzata(Sessione& s) {
  if (RigheVive(s, SlotLinee) == 0) {
    s.Ui->Messaggio("Linee Assenti!", kImpossibile, Icona::Avviso);
    InterrompiComando(s);
    return;
  }
  const Vicina v = IlPiuVicinoLinea(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (!RigaViva(s, SlotLinee, v.Riga)) return;
  CreaDaSpezzata(s, Catena(s, v.Riga));
  Riprendi(s);
}

void FineSezioniInSerie(Sessione& s) {
  const SpezzataTemporanea asse = s.SpezzataTemporanea;
  InterrompiComando(s);
  if (asse.Conta() < 2) return;
  bool attive = false;
  if (!FaldeVive(s, attive) || !attive) {
    s.Ui->Messaggio(FaldeVive(s, attive) ? "Falde congelate!" : "Falde Assenti!", kImpossibile, Icona::Avviso);
    return;
  }
  const std::optional<double> passo = ChiediNumero(s, "Interasse Sezioni :", "Sezioni in Serie", "20");
  if (!passo) return;
  const std::optional<double> larghezza = ChiediNumero(s, "Larghezza Sezioni :", "Sezioni in Serie", "20");
  if (!larghezza || !(*passo > 0) || !(*larghezza > 0)) return;
  double lunghezza = 0;
  for (size_t i = 0; i + 1 < asse.Conta(); ++i) lunghezza += std::hypot(asse.X[i + 1] - asse.X[i], asse.Y[i + 1] - asse.Y[i]);
  // A spacing typed wrong (a millimetre for a metre) would fill the job with sections.
  if (lunghezza / *passo > kMassimoSezioniInSerie) {
    s.Ui->Messaggio("Troppe sezioni: aumentare l'interasse!", "Sezioni in Serie", Icona::Avviso);
    return;
  }
  // Along the axis every `passo` metres, from its start: a section square to the stretch it
  // falls on, half the width on each side, from the left of the axis to its right.
  double sotto = kInfinito, inizio = 0;
  bool fatta = false;
  for (size_t i = 0; i + 1 < asse.Conta(); ++i) {
    const double dx = asse.X[i + 1] - asse.X[i], dy = asse.Y[i + 1] - asse.Y[i], l = std::hypot(dx, dy);
    if (l == 0) continue;
    const double ux = -dy / l * *larghezza / 2, uy = dx / l * *larghezza / 2;
    double p = inizio;
    for (; p <= l + 1e-9; p += *passo) {
      const double cx = asse.X[i] + dx * p / l, cy = asse.Y[i] + dy * p / l;
      const std::vector<double> x = {cx + ux, cx - ux}, y = {cy + uy, cy - uy};
      const int32_t riga = NuovaSezione(s, StazioniSuFalde(s, x, y), x, y, sotto);
      if (riga < 0) continue;
      const Sezione& z = s.SezioneDati[static_cast<size_t>(riga)];
      // The next one's datum as far under this one's as this one reaches.
      sotto = z.OrigineY - IngombroVerticale(z) + 8 * ScalaSezione(z.Cfg.ScalaLunghezze);
      fatta = true;
    }
    inizio = p - l;
  }
  if (fatta) FineModifica(s);
}

namespace {

// The names of each levelling from the middle, a record "|A|B|" a leg, joined leg to leg
// where one ends at the point the next starts from: a run of the level is one profile.
std::vector<std::vector<std::string>> CorseLivellazione(const Sessione& s) {
  std::vector<std::vector<std::string>> tratti;
  for (int32_t r = 0; r < s.ContaEntita[SlotSette]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (!IdentVivo(s.SetteIdent[k]) || Rifila(s.SetteCommento[k]) != kLivellazioneDalMezzo) continue;
    std::vector<std::string> nomi;
    for (std::string_view n : Dividi(s.SetteContorno[k], '|'))
      if (!Rifila(n).empty()) nomi.emplace_back(Rifila(n));
    if (nomi.size() >= 2) tratti.push_back(std::move(nomi));
  }
  std::vector<std::vector<std::string>> corse;
  std::vector<bool> preso(tratti.size(), false);
  for (size_t i = 0; i < tratti.size(); ++i) {
    if (preso[i]) continue;
    std::deque<std::string> c(tratti[i].begin(), tratti[i].end());
    preso[i] = true;
    for (bool cresce = true; cresce;) {
      cresce = false;
      for (size_t j = 0; j < tratti.size(); ++j) {
        if (preso[j]) continue;
        const std::vector<std::string>& t = tratti[j];
        if (t.front() == c.back()) {
          c.insert(c.end(), t.begin() + 1, t.end());
        } else if (t.back() == c.front()) {
          c.insert(c.begin(), t.begin(), t.end() - 1);
        } else {
          continue;
        }
        preso[j] = cresce = true;
      }
    }
    corse.emplace_back(c.begin(), c.end());
  }
  return corse;
}

}  // namespace

// A longitudinal profile along each run of a levelling from the middle, through its points
// as the table holds them (a name missing from the table is left out of the profile).
void AzioneSezioniDaLivellazione(Sessione& s) {
  const std::vector<std::vector<std::string>> corse = CorseLivellazione(s);
  const IndiceNomi indice(s);
  double sotto = kInfinito;
  bool fatta = false;
  for (const std::vector<std::string>& corsa : corse) {
    std::vector<StazioneSezione> st;
    std::vector<double> x, y;
    for (const std::string& nome : corsa) {
      const int32_t k = indice.Primo(nome);
      if (k < 0) continue;
      const auto r = static_cast<size_t>(k);
      st.push_back({nome, s.PuntoX[r], s.PuntoY[r], s.PuntoZ[r], s.PuntoZ[r]});
      x.push_back(s.PuntoX[r]), y.push_back(s.PuntoY[r]);
    }
    const int32_t riga = NuovaSezione(s, std::move(st), x, y, sotto);
    if (riga < 0) continue;
    const Sezione& z = s.SezioneDati[static_cast<size_t>(riga)];
    sotto = z.OrigineY - IngombroVerticale(z) + 8 * ScalaSezione(z.Cfg.ScalaLunghezze);
    fatta = true;
  }
  if (!fatta) {
    s.Ui->Messaggio("Livellazione assente!", kImpossibile, Icona::Avviso);
    return;
  }
  FineModifica(s);
}

void subSommaSezioni(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return;
  if (s.PassoComando == 0) {
    // The first is found again from its click: no row number is kept across the clicks.
    s.Punto1X = s.PuntoCorrenteX, s.Punto1Y = s.PuntoCorrenteY;
    s.PassoComando = 1;
    EvidenziaEntita(s, SlotSezioni, riga, 1);
    MostraPrompt(s, "Somma Sezioni - Seconda Sezione :");
    return;
  }
  const int32_t prima = RigaSezioneVicina(s, s.Punto1X, s.Punto1Y);
  if (prima < 0 || prima == riga) return;
  Sezione a = ScompattaSezione(s, prima);
  const Sezione& b = s.SezioneDati[static_cast<size_t>(riga)];
  // The second goes on from where the first ends; a station where the first ends is one.
  size_t da = 0;
  if (!a.Stazioni.empty() && !b.Stazioni.empty() &&
      Vicini(a.Stazioni.back().X, a.Stazioni.back().Y, b.Stazioni.front().X, b.Stazioni.front().Y))
    da = 1;
  if (a.Stazioni.size() + b.Stazioni.size() - da > static_cast<size_t>(kMassimoPuntiSezione)) {
    s.Ui->Messaggio("Una sezione ha al massimo 500 punti!", kImpossibile, Icona::Avviso);
    Riprendi(s);
    return;
  }
  a.Stazioni.insert(a.Stazioni.end(), b.Stazioni.begin() + static_cast<std::ptrdiff_t>(da), b.Stazioni.end());
  a.Cfg.XFine = b.Cfg.XFine, a.Cfg.YFine = b.Cfg.YFine;
  s.SezioneIdent[static_cast<size_t>(riga)] = -1;
  SegnaRiga(s, SlotSezioni, riga);
  CompattaSezione(s, prima, std::move(a));
  Riprendi(s);
}

void subDividiSezione(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return;
  Sezione a = ScompattaSezione(s, riga);
  const auto n = a.Stazioni.size();
  const std::optional<double> k = ChiediNumero(s, "Dividi al punto n° :", "Dividi Sezione", std::to_string((n + 1) / 2));
  if (!k) return;
  // The station of the cut ends the first part and begins the second: both keep it.
  const int64_t taglio = InteroLungo(*k);
  if (taglio < 2 || taglio >= static_cast<int64_t>(n)) {
    s.Ui->Messaggio("Punto di divisione fuori dalla sezione!", "Dividi Sezione", Icona::Avviso);
    Riprendi(s);
    return;
  }
  Sezione b = a;
  b.Stazioni.erase(b.Stazioni.begin(), b.Stazioni.begin() + (taglio - 1));
  a.Stazioni.resize(static_cast<size_t>(taglio));
  a.Cfg.XFine = b.Cfg.XInizio = a.Stazioni.back().X;
  a.Cfg.YFine = b.Cfg.YInizio = a.Stazioni.back().Y;
  // The second part under the first, as far down as the first reaches.
  b.OrigineY = a.OrigineY - IngombroVerticale(a) - IngombroVerticale(b) + 2 * ScalaSezione(b.Cfg.ScalaLunghezze);
  s.SezioneDati[static_cast<size_t>(riga)] = std::move(a);
  SegnaRiga(s, SlotSezioni, riga);
  const int32_t nuova = AggiungiSezione(s, std::move(b));
  s.SezioneDati[static_cast<size_t>(nuova)].IndiceSezione = std::to_string(nuova + 1);
  SegnaRiga(s, SlotSezioni, nuova);
  FineModifica(s);
  Riprendi(s);
}

void AzioneApplicaDefaultSezioni(Sessione& s) {
  if (RigheVive(s, SlotSezioni) == 0) {
    s.Ui->Messaggio("Sezioni assenti!!", kImpossibile, Icona::Avviso);
    return;
  }
  const ConfigurazioneSezione c = CaricaConfigurazione(s, PercorsoConfigurazioneDefault(s));
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k) {
    ConfigurazioneSezione& mia = s.SezioneDati[static_cast<size_t>(k)].Cfg;
    // What belongs to the section and not to its look stays its own.
    ConfigurazioneSezione nuova = c;
    nuova.QuotaRiferimento = mia.QuotaRiferimento;
    nuova.XInizio = mia.XInizio, nuova.YInizio = mia.YInizio, nuova.XFine = mia.XFine, nuova.YFine = mia.YFine;
    nuova.Inizio = mia.Inizio, nuova.Fine = mia.Fine, nuova.Congela = mia.Congela;
    mia = nuova;
  }
  SegnaModificato(s, SlotSezioni);
  FineModifica(s);
  s.Ui->Messaggio("Fatto!", "Applica Default Sezioni", Icona::Informazione);
}

void AzioneSalvaDefaultSezioni(Sessione& s) {
  // The layout of the first live section becomes the default; none, the default stays.
  ConfigurazioneSezione c = CaricaConfigurazione(s, PercorsoConfigurazioneDefault(s));
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k)
    if (IdentVivo(s.SezioneIdent[static_cast<size_t>(k)])) {
      c = s.SezioneDati[static_cast<size_t>(k)].Cfg;
      break;
    }
  if (SalvaConfigurazione(s, PercorsoConfigurazioneDefault(s), c))
    s.Ui->Messaggio("La configurazione di default è stata salvata su disco.", "Sezioni", Icona::Informazione);
}

void AzioneCaricaDefaultSezioni(Sessione& s) {
  s.UltimoErrore.clear();
  (void)CaricaConfigurazione(s, PercorsoConfigurazioneDefault(s));
  if (s.UltimoErrore.empty())
    s.Ui->Messaggio("La configurazione di default è stata caricata con successo.", "Sezioni", Icona::Informazione);
}

}  // namespace varena
