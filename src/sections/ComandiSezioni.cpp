// The section commands. Each works on a copy of one section and puts it back whole; the
// snapshot at the end regenerates the drawing.
#include "sections/ComandiSezioni.h"

#include <algorithm>
#include <cmath>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/DisegnoSezioni.h"
#include "sections/FileSezioni.h"
#include "snap/Vicino.h"
#include "terrain/Falde.h"
#include "view/Elastico.h"

namespace varena {

namespace {

constexpr const char* kImpossibile = "Impossibile continuare";

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

void FineCatturaSezione(Sessione& s) {
  const SpezzataTemporanea sp = s.SpezzataTemporanea;
  InterrompiComando(s);
  if (sp.Conta() < 2) return;
  bool suFalde = false;
  const auto falde = static_cast<size_t>(std::max(s.ContaEntita[SlotFalde], 0));
  bool vive = false, attive = false;
  for (size_t r = 0; r < falde; ++r) vive |= IdentVivo(s.FaldaIdent[r]), attive |= FaldaAttiva(s, r);
  // With a terrain model the user chooses where the heights come from: Yes the facets, No
  // the points picked.
  if (vive) {
    const Risposta r = s.Ui->Domanda("Sezioni su Linee o su Falde!", "Sezioni", Bottoni::SiNoAnnulla, Icona::Domanda,
                                     Risposta::Si);
    if (r == Risposta::Annulla) return;
    suFalde = r == Risposta::Si;
    if (suFalde && !attive) {
      s.Ui->Messaggio("Falde congelate!", kImpossibile, Icona::Avviso);
      return;
    }
  }
  Sezione z;
  z.Cfg = CaricaConfigurazione(s, PercorsoConfigurazioneDefault(s));
  if (suFalde) {
    z.Stazioni = StazioniSuFalde(s, sp.X, sp.Y);
  } else {
    for (size_t i = 0; i < sp.Conta(); ++i) {
      const std::string nome = i < sp.Nome.size() && sp.Nome[i] != "*" && !sp.Nome[i].empty() ? sp.Nome[i] : Nome(i + 1);
      z.Stazioni.push_back({nome, sp.X[i], sp.Y[i], sp.Z[i], sp.Z[i]});
    }
  }
  if (z.Stazioni.size() > static_cast<size_t>(kMassimoPuntiSezione)) z.Stazioni.resize(kMassimoPuntiSezione);
  if (z.Stazioni.size() < 2) {
    s.Ui->Messaggio("Falde Assenti!", kImpossibile, Icona::Avviso);
    return;
  }
  z.Cfg.XInizio = sp.X.front(), z.Cfg.YInizio = sp.Y.front();
  z.Cfg.XFine = sp.X.back(), z.Cfg.YFine = sp.Y.back();
  // The datum a whole metre under the lowest ground; the sheet to the right of the job's
  // extent, one section above the other.
  double minima = z.Stazioni.front().QuotaTerreno;
  for (const StazioneSezione& p : z.Stazioni) minima = std::min(minima, p.QuotaTerreno);
  z.Cfg.QuotaRiferimento = std::floor(minima) - 1;
  double x = sp.X.front(), y = sp.Y.front();
  for (size_t i = 0; i < sp.Conta(); ++i) x = std::max(x, sp.X[i]), y = std::min(y, sp.Y[i]);
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k)
    if (IdentVivo(s.SezioneIdent[static_cast<size_t>(k)])) y = std::min(y, s.SezioneBoxY1[static_cast<size_t>(k)]);
  const double scala = ScalaSezione(z.Cfg.ScalaLunghezze);
  z.OrigineX = x + 8 * scala;
  z.OrigineY = y - 8 * scala;
  const int32_t riga = AggiungiSezione(s, std::move(z));
  s.SezioneDati[static_cast<size_t>(riga)].IndiceSezione = std::to_string(riga + 1);
  FineModifica(s);
}

void subQuotaProgettoSezione(Sessione& s) {
  if (RigheVive(s, SlotSezioni) == 0) {
    s.Ui->Messaggio("Sezioni assenti!!", kImpossibile, Icona::Avviso);
    InterrompiComando(s);
    return;
  }
  const int32_t riga = RigaSezioneVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (riga < 0) return;
  Sezione z = ScompattaSezione(s, riga);
  const std::optional<double> q = ChiediNumero(s, "Quota Progetto :", "Quota Progetto",
                                               FormaSemplice(z.Stazioni.empty() ? 0 : z.Stazioni.front().QuotaProgetto));
  if (!q) return;
  for (StazioneSezione& p : z.Stazioni) p.QuotaProgetto = *q;
  z.Cfg.ProfiloProgetto = 1;
  z.Cfg.QuoteProgetto.Disegna = 1;
  z.Cfg.QuotaProgetto = *q;
  CompattaSezione(s, riga, std::move(z));
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
