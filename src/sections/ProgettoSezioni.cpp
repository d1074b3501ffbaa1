// The project profile commands. The heights are set on a copy of the section; the project
// profile and its row are then switched on, so that what was set is seen at once.
#include "sections/ProgettoSezioni.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "commands/AiutiDisegno.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/ComandiSezioni.h"
#include "sections/DisegnoSezioni.h"

namespace varena {

namespace {

void SalvaProgetto(Sessione& s, int32_t riga, Sezione z) {
  // A grade typed far too large runs past any number: such heights would make the section
  // table unreadable at the next opening, so the section stays as it was.
  for (const StazioneSezione& p : z.Stazioni)
    if (!std::isfinite(p.QuotaProgetto)) {
      s.Ui->Messaggio("Quote di progetto fuori misura!", "Impossibile continuare", Icona::Avviso);
      Riprendi(s);
      return;
    }
  z.Cfg.ProfiloProgetto = 1;
  z.Cfg.QuoteProgetto.Disegna = 1;
  CompattaSezione(s, riga, std::move(z));
  Riprendi(s);
}

// A station asked by its number, 1 to the last; none when cancelled or outside (said).
std::optional<size_t> ChiediStazione(Sessione& s, const Sezione& z, const char* domanda, const char* titolo,
                                     size_t predefinita) {
  const std::optional<double> k = ChiediNumero(s, domanda, titolo, std::to_string(predefinita));
  if (!k) return std::nullopt;
  const int64_t n = InteroLungo(*k);
  if (n < 1 || n > static_cast<int64_t>(z.Stazioni.size())) {
    s.Ui->Messaggio("Punto fuori dalla sezione!", titolo, Icona::Avviso);
    Riprendi(s);
    return std::nullopt;
  }
  return static_cast<size_t>(n - 1);
}

// The section clicked, a copy of it and the station asked where the change starts; none
// when any of them is missing.
struct Scelta {
  int32_t Riga;
  Sezione Z;
  size_t Da;
};
std::optional<Scelta> SezioneDalPunto(Sessione& s, const char* titolo) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return std::nullopt;
  Scelta c{riga, ScompattaSezione(s, riga), 0};
  if (c.Z.Stazioni.empty()) return std::nullopt;
  const std::optional<size_t> da = ChiediStazione(s, c.Z, "Dal punto n° :", titolo, 1);
  if (!da) return std::nullopt;
  c.Da = *da;
  return c;
}

}  // namespace

void ProgettoInPendenza(Sezione& z, size_t da, double quota, double pendenza) {
  const std::vector<double> p = Progressive(z);
  for (size_t i = da; i < z.Stazioni.size(); ++i) z.Stazioni[i].QuotaProgetto = quota + pendenza / 100 * (p[i] - p[da]);
}

void ProgettoInterpolato(Sezione& z, size_t da, size_t a) {
  if (a < da) std::swap(da, a);
  const std::vector<double> p = Progressive(z);
  const double q0 = z.Stazioni[da].QuotaProgetto, q1 = z.Stazioni[a].QuotaProgetto, l = p[a] - p[da];
  // Stations all at one place have no slope between them: they take the first height.
  for (size_t i = da + 1; i < a; ++i) z.Stazioni[i].QuotaProgetto = l > 0 ? q0 + (q1 - q0) * (p[i] - p[da]) / l : q0;
}

StazioneCliccata StazioneSulFoglio(const Sezione& z, double x, double y) {
  const std::vector<double> p = Progressive(z);
  size_t k = 0;
  for (size_t i = 1; i < p.size(); ++i)
    if (std::fabs(z.OrigineX + p[i] - x) < std::fabs(z.OrigineX + p[k] - x)) k = i;
  return {k, (y - z.OrigineY) / FattoreAltezze(z.Cfg) + z.Cfg.QuotaRiferimento};
}

void subQuotaProgettoSezione(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return;
  Sezione z = ScompattaSezione(s, riga);
  const std::optional<double> q = ChiediNumero(s, "Quota Progetto :", "Quota Progetto",
                                               FormaSemplice(z.Stazioni.empty() ? 0 : z.Stazioni.front().QuotaProgetto));
  if (!q) return;
  for (StazioneSezione& p : z.Stazioni) p.QuotaProgetto = *q;
  z.Cfg.QuotaProgetto = *q;
  SalvaProgetto(s, riga, std::move(z));
}

void subProgettoPendenza(Sessione& s) {
  constexpr const char* kTitolo = "Progetto in Pendenza";
  std::optional<Scelta> c = SezioneDalPunto(s, kTitolo);
  if (!c) return;
  const std::optional<double> q =
      ChiediNumero(s, "Quota Progetto :", kTitolo, FormaSemplice(c->Z.Stazioni[c->Da].QuotaProgetto));
  if (!q) return;
  const std::optional<double> pendenza = ChiediNumero(s, "Pendenza % :", kTitolo, "0");
  if (!pendenza) return;
  ProgettoInPendenza(c->Z, c->Da, *q, *pendenza);
  SalvaProgetto(s, c->Riga, std::move(c->Z));
}

void subProgettoPunto(Sessione& s) {
  const int32_t riga = SezioneCliccata(s);
  if (riga < 0) return;
  Sezione z = ScompattaSezione(s, riga);
  if (z.Stazioni.empty()) return;
  // The level clicked over the station is offered: Enter takes it, a number typed replaces it.
  const StazioneCliccata c = StazioneSulFoglio(z, s.PuntoCorrenteX, s.PuntoCorrenteY);
  const std::optional<double> q = ChiediNumero(s, "Quota Progetto punto " + z.Stazioni[c.Indice].Nome + " :",
                                               "Quota Progetto Punto", FormatoMaschera(c.Quota, "#########0.0##"));
  if (!q) return;
  z.Stazioni[c.Indice].QuotaProgetto = *q;
  SalvaProgetto(s, riga, std::move(z));
}

void subProgettoInterpola(Sessione& s) {
  constexpr const char* kTitolo = "Interpola Progetto";
  std::optional<Scelta> c = SezioneDalPunto(s, kTitolo);
  if (!c) return;
  const std::optional<size_t> a = ChiediStazione(s, c->Z, "Al punto n° :", kTitolo, c->Z.Stazioni.size());
  if (!a) return;
  ProgettoInterpolato(c->Z, c->Da, *a);
  SalvaProgetto(s, c->Riga, std::move(c->Z));
}

}  // namespace varena
