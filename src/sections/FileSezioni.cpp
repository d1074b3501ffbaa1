// Reader and writer of the section blocks. The layout is written group by group, one
// statement each, in the order the dialog shows them; what has no place in a group goes into
// the last statement, a text of fields split at "|" that begins with the version mark.
#include "sections/FileSezioni.h"

#include <cmath>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Slot.h"

namespace varena {

namespace {

constexpr const char* kVersione = "7";
constexpr const char* kMascheraAltezza = "#######0.0##";

// A text inside quotes can hold no quote, and one inside the "|" line no bar either: the
// writer turns them into what reads back as the same text on every later round.
std::string Quotabile(std::string_view t) {
  std::string r(t);
  for (char& c : r)
    if (c == '"') c = '\'';
    else if (c == '\r' || c == '\n') c = ' ';
  return r;
}
std::string Campo(std::string_view t) { return Sostituisci(Quotabile(t), "|", "/"); }

std::string Altezza(double v) { return FormatoMaschera(v, kMascheraAltezza); }

std::string UltimaRiga(const ConfigurazioneSezione& c) {
  const std::string campi[] = {
      kVersione,
      FormaSemplice(c.ColoreProgetto),
      FormaSemplice(c.ColoreQuoteRosse),
      Altezza(c.AreaSterro),
      Altezza(c.AreaRiporto),
      Altezza(c.QuotaProgetto),
      FormaSemplice(c.TestoSterroRiporto),
      FormaSemplice(c.DisegnaQuotatura),
      FormaSemplice(c.BloccoDescrizioni),
      Altezza(c.LarghezzaBox),
      Altezza(c.DistanzeProgressive.AltezzaFincatura),
      Altezza(c.QuoteTerreno.AltezzaFincatura),
      FormaSemplice(c.QuoteProgetto.Disegna),
      Altezza(c.QuoteProgetto.AltezzaFincatura),
      Altezza(c.QuoteProgetto.AltezzaTesto),
      FormaSemplice(c.QuoteProgetto.Colore),
      Campo(c.QuoteProgetto.Titolo),
      Campo(c.DistanzeInclinate.Titolo),
      FormaSemplice(c.DecimaliParziali),
      Altezza(c.Inizio),
      Altezza(c.Fine),
      FormaSemplice(c.XInizio),
      FormaSemplice(c.YInizio),
      FormaSemplice(c.XFine),
      FormaSemplice(c.YFine),
      FormaSemplice(c.Congela),
      FormaSemplice(c.QuoteTerreno.OrientamentoVerticale),
      FormaSemplice(c.QuoteProgetto.OrientamentoVerticale),
      FormaSemplice(c.DistanzeProgressive.OrientamentoVerticale),
      FormaSemplice(c.NomiPunti.OrientamentoVerticale),
  };
  std::string r;
  for (const std::string& campo : campi) r += campo + "|";
  return r;
}

void LeggiUltimaRiga(ConfigurazioneSezione& c, const std::string& riga) {
  // A shorter line, from an older layout, reads its missing fields as empty.
  const std::vector<std::string> f = Dividi(riga + "|||||||", '|');
  size_t k = 1;  // after the version mark
  auto testo = [&]() -> std::string { return k < f.size() ? f[k++] : std::string(); };
  auto numero = [&] { return Val(testo()); };
  auto i16 = [&] { return InteroCorto(numero()); };
  auto i32 = [&] { return InteroLungo(numero()); };
  c.ColoreProgetto = i32();
  c.ColoreQuoteRosse = i32();
  c.AreaSterro = numero();
  c.AreaRiporto = numero();
  c.QuotaProgetto = numero();
  c.TestoSterroRiporto = i16();
  c.DisegnaQuotatura = i16();
  c.BloccoDescrizioni = i16();
  c.LarghezzaBox = numero();
  c.DistanzeProgressive.AltezzaFincatura = numero();
  c.QuoteTerreno.AltezzaFincatura = numero();
  c.QuoteProgetto.Disegna = i16();
  c.QuoteProgetto.AltezzaFincatura = numero();
  c.QuoteProgetto.AltezzaTesto = numero();
  c.QuoteProgetto.Colore = i32();
  c.QuoteProgetto.Titolo = testo();
  c.DistanzeInclinate.Titolo = testo();
  c.DecimaliParziali = i16();
  c.Inizio = numero();
  c.Fine = numero();
  c.XInizio = numero();
  c.YInizio = numero();
  c.XFine = numero();
  c.YFine = numero();
  c.Congela = i16();
  c.QuoteTerreno.OrientamentoVerticale = i16();
  c.QuoteProgetto.OrientamentoVerticale = i16();
  c.DistanzeProgressive.OrientamentoVerticale = i16();
  c.NomiPunti.OrientamentoVerticale = i16();
}

IstruzioneLista Blocco(const BloccoCornice& b) {
  IstruzioneLista i;
  i.Numero(b.Disegna).Numero(b.AltezzaTesto).Numero(b.Colore);
  return i;
}
BloccoCornice LeggiBlocco(LettoreLista& in) {
  BloccoCornice b;
  b.Disegna = in.LeggiI16();
  b.AltezzaTesto = in.LeggiNumero();
  b.Colore = in.LeggiI32();
  return b;
}

// A number read from a file that is no number of its own (infinite, not a number) is one
// a drawing cannot place: it refuses the block.
double Finito(double v) {
  if (!std::isfinite(v)) throw ErroreVarena(kErroreTipo);
  return v;
}

}  // namespace

std::string TestoConfigurazione(const ConfigurazioneSezione& c) {
  std::string t;
  t += IstruzioneLista().Numero(c.ScalaLunghezze).Numero(c.ScalaAltezze).Riga();
  t += IstruzioneLista().Numero(c.Terreno.AltezzaTesto).Numero(c.QuoteRosse).Numero(c.Terreno.Colore).Riga();
  t += IstruzioneLista().Numero(c.Verticali.Disegna).Numero(c.Verticali.Colore).Riga();
  t += IstruzioneLista().Numero(c.ColoreQuotaRiferimento).Riga();
  const GruppoSezione& n = c.NomiPunti;
  t += IstruzioneLista()
           .Numero(n.Disegna)
           .Numero(n.AltezzaFincatura)
           .Numero(n.AltezzaTesto)
           .Numero(n.Colore)
           .Numero(c.NomiPuntiOrdinati)
           .Testo(Quotabile(n.Titolo))
           .Riga();
  t += IstruzioneLista().Numero(c.ProfiloProgetto).Numero(c.QuotaRiferimento).Riga();
  const GruppoSezione& p = c.DistanzeParziali;
  t += IstruzioneLista()
           .Numero(p.Disegna)
           .Numero(p.AltezzaFincatura)
           .Numero(p.AltezzaTesto)
           .Numero(p.Colore)
           .Numero(p.OrientamentoVerticale)
           .Testo(Quotabile(p.Titolo))
           .Riga();
  const GruppoSezione& g = c.DistanzeProgressive;
  t += IstruzioneLista()
           .Numero(g.Disegna)
           .Numero(g.AltezzaTesto)
           .Numero(g.Colore)
           .Numero(c.OrigineQuotatura)
           .Testo(Quotabile(g.Titolo))
           .Riga();
  const GruppoSezione& d = c.DistanzeInclinate;
  t += IstruzioneLista()
           .Numero(d.Disegna)
           .Numero(d.AltezzaFincatura)
           .Numero(d.AltezzaTesto)
           .Numero(d.Colore)
           .Numero(c.MostraPendenza)
           .Numero(d.OrientamentoVerticale)
           .Numero(c.PendenzaPercentuale)
           .Riga();
  const GruppoSezione& q = c.QuoteTerreno;
  t += IstruzioneLista().Numero(q.Disegna).Numero(q.AltezzaTesto).Numero(q.Colore).Testo(Quotabile(q.Titolo)).Riga();
  t += IstruzioneLista().Numero(c.LineaInvaso.Disegna).Numero(c.LineaInvaso.Colore).Numero(c.QuotaInvaso).Riga();
  t += IstruzioneLista().Testo(Quotabile(c.NomeBase)).Numero(c.FlagNomeBase).Riga();
  t += Blocco(c.NomeSezione).Riga();
  t += Blocco(c.NumeroSezione).Numero(c.CentraNomeSezione).Riga();
  t += Blocco(c.DistanzaPrecedente).Riga();
  t += Blocco(c.BloccoQuotaRiferimento).Riga();
  t += IstruzioneLista().Testo(UltimaRiga(c)).Riga();
  return t;
}

ConfigurazioneSezione LeggiConfigurazione(LettoreLista& in) {
  ConfigurazioneSezione c;
  c.ScalaLunghezze = Finito(in.LeggiNumero());
  c.ScalaAltezze = Finito(in.LeggiNumero());
  c.Terreno.AltezzaTesto = Finito(in.LeggiNumero());
  c.QuoteRosse = in.LeggiI16();
  c.Terreno.Colore = in.LeggiI32();
  c.Verticali.Disegna = in.LeggiI16();
  c.Verticali.Colore = in.LeggiI32();
  c.ColoreQuotaRiferimento = in.LeggiI32();
  GruppoSezione& n = c.NomiPunti;
  n.Disegna = in.LeggiI16();
  n.AltezzaFincatura = Finito(in.LeggiNumero());
  n.AltezzaTesto = Finito(in.LeggiNumero());
  n.Colore = in.LeggiI32();
  c.NomiPuntiOrdinati = in.LeggiI16();
  n.Titolo = in.LeggiTesto();
  c.ProfiloProgetto = in.LeggiI16();
  c.QuotaRiferimento = Finito(in.LeggiNumero());
  GruppoSezione& p = c.DistanzeParziali;
  p.Disegna = in.LeggiI16();
  p.AltezzaFincatura = Finito(in.LeggiNumero());
  p.AltezzaTesto = Finito(in.LeggiNumero());
  p.Colore = in.LeggiI32();
  p.OrientamentoVerticale = in.LeggiI16();
  p.Titolo = in.LeggiTesto();
  GruppoSezione& g = c.DistanzeProgressive;
  g.Disegna = in.LeggiI16();
  g.AltezzaTesto = Finito(in.LeggiNumero());
  g.Colore = in.LeggiI32();
  c.OrigineQuotatura = Finito(in.LeggiNumero());
  g.Titolo = in.LeggiTesto();
  GruppoSezione& d = c.DistanzeInclinate;
  d.Disegna = in.LeggiI16();
  d.AltezzaFincatura = Finito(in.LeggiNumero());
  d.AltezzaTesto = Finito(in.LeggiNumero());
  d.Colore = in.LeggiI32();
  c.MostraPendenza = in.LeggiI16();
  d.OrientamentoVerticale = in.LeggiI16();
  c.PendenzaPercentuale = in.LeggiI16();
  GruppoSezione& q = c.QuoteTerreno;
  q.Disegna = in.LeggiI16();
  q.AltezzaTesto = Finito(in.LeggiNumero());
  q.Colore = in.LeggiI32();
  q.Titolo = in.LeggiTesto();
  c.LineaInvaso.Disegna = in.LeggiI16();
  c.LineaInvaso.Colore = in.LeggiI32();
  c.QuotaInvaso = Finito(in.LeggiNumero());
  c.NomeBase = in.LeggiTesto();
  c.FlagNomeBase = in.LeggiI16();
  c.NomeSezione = LeggiBlocco(in);
  c.NumeroSezione = LeggiBlocco(in);
  c.CentraNomeSezione = in.LeggiI16();
  c.DistanzaPrecedente = LeggiBlocco(in);
  c.BloccoQuotaRiferimento = LeggiBlocco(in);
  LeggiUltimaRiga(c, in.LeggiTesto());
  for (double v : {c.AreaSterro, c.AreaRiporto, c.QuotaProgetto, c.LarghezzaBox, c.Inizio, c.Fine, c.XInizio,
                   c.YInizio, c.XFine, c.YFine, c.DistanzeProgressive.AltezzaFincatura,
                   c.QuoteTerreno.AltezzaFincatura, c.QuoteProgetto.AltezzaFincatura, c.QuoteProgetto.AltezzaTesto})
    (void)Finito(v);
  return c;
}

std::string TestoSezioni(const Sessione& s) {
  std::string t;
  for (int32_t k = 0; k < s.ContaEntita[SlotSezioni]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (!IdentVivo(s.SezioneIdent[r])) continue;
    const Sezione& z = s.SezioneDati[r];
    t += IstruzioneLista().Testo(kInizioSezione).Riga();
    t += TestoConfigurazione(z.Cfg);
    t += IstruzioneLista().Testo(Quotabile(z.IndiceSezione)).Numero(z.OrigineX).Numero(z.OrigineY).Riga();
    t += IstruzioneLista().Numero(static_cast<double>(z.Stazioni.size())).Riga();
    for (const StazioneSezione& p : z.Stazioni)
      t += IstruzioneLista()
               .Testo(Quotabile(p.Nome))
               .Numero(p.X)
               .Numero(p.Y)
               .Numero(p.QuotaTerreno)
               .Numero(p.QuotaProgetto)
               .Riga();
    t += IstruzioneLista().Testo(kFineSezione).Riga();
  }
  return t;
}

std::vector<Sezione> LeggiSezioni(const std::string& testo, int32_t primaRiga) {
  std::vector<Sezione> out;
  LettoreLista in(testo);
  while (!in.Fine()) {
    const int32_t riga = primaRiga + static_cast<int32_t>(out.size());
    const std::string numero = std::to_string(riga + 1);
    if (in.LeggiTesto() != kInizioSezione)
      throw ErroreVarena("la sezione " + numero + " non comincia con " + std::string(kInizioSezione));
    Sezione z;
    z.Cfg = LeggiConfigurazione(in);
    z.IndiceSezione = in.LeggiTesto();
    z.OrigineX = Finito(in.LeggiNumero());
    z.OrigineY = Finito(in.LeggiNumero());
    const double n = in.LeggiNumero();
    // The working arrays end at 500: a longer section is refused whole, as it never fitted.
    if (!(n >= 0 && n <= kMassimoPuntiSezione))
      throw ErroreVarena(std::string(kErroreIndice) + ": la sezione " + numero + " dichiara " + FormaSemplice(n) +
                         " punti, al massimo " + std::to_string(kMassimoPuntiSezione));
    z.Stazioni.resize(static_cast<size_t>(ArrotondaPari(n)));
    for (StazioneSezione& p : z.Stazioni) {
      p.Nome = in.LeggiTesto();
      p.X = Finito(in.LeggiNumero());
      p.Y = Finito(in.LeggiNumero());
      p.QuotaTerreno = Finito(in.LeggiNumero());
      p.QuotaProgetto = Finito(in.LeggiNumero());
    }
    if (in.LeggiTesto() != kFineSezione)
      throw ErroreVarena("la sezione " + numero + " non finisce con " + std::string(kFineSezione));
    // A section with no name of its own is known by its row.
    if (Rifila(z.IndiceSezione).empty()) z.IndiceSezione = std::to_string(riga);
    out.push_back(std::move(z));
  }
  return out;
}

int32_t AggiungiSezione(Sessione& s, Sezione z) {
  DimensionaSezioni(s);
  const int32_t k = s.ContaEntita[SlotSezioni];
  const auto r = static_cast<size_t>(k);
  s.SezioneIdent[r] = 0;
  s.SezioneDati[r] = std::move(z);
  s.SezioneBoxX1[r] = s.SezioneBoxY1[r] = s.SezioneBoxX2[r] = s.SezioneBoxY2[r] = 0;
  s.StatoSezione[r] = 0;
  ++s.ContaEntita[SlotSezioni];
  return k;
}

void CaricaSezioni(Sessione& s) {
  s.RoutineCorrente = "Carica Sezioni";
  s.ContaEntita[SlotSezioni] = 0;
  s.MembriConservati.erase(SlotSezioni);
  std::optional<std::string> byte;
  Protetto(s, [&] {
    byte = LeggiByte(s.NomeLavoro + EstensioneFile(SlotSezioni));
    if (!byte) return;
    // Read whole before a row is added: a member that does not read leaves no half of it.
    std::vector<Sezione> lette = LeggiSezioni(Cp1252InUtf8(*byte), 0);
    for (Sezione& z : lette) AggiungiSezione(s, std::move(z));
    byte.reset();
  });
  // What did not read stays as it stands: the saver writes these very bytes back.
  if (byte) s.MembriConservati[SlotSezioni] = std::move(*byte);
}

std::optional<std::string> ByteSezioni(const Sessione& s) {
  const auto it = s.MembriConservati.find(SlotSezioni);
  if (it != s.MembriConservati.end()) return it->second;
  if (RigheVive(s, SlotSezioni) == 0) return std::nullopt;
  return Utf8InCp1252(TestoSezioni(s));
}

std::string PercorsoConfigurazioneDefault(const Sessione& s) { return FileProgramma(s, "glainalploz.ini"); }

ConfigurazioneSezione CaricaConfigurazione(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "Carica Configurazione Sezioni";
  ConfigurazioneSezione c = ConfigurazioneIniziale();
  Protetto(s, [&] {
    const auto byte = LeggiByte(percorso);
    if (!byte) return;
    LettoreLista in(Cp1252InUtf8(*byte));
    c = LeggiConfigurazione(in);
  });
  return c;
}

bool SalvaConfigurazione(Sessione& s, const std::string& percorso, const ConfigurazioneSezione& c) {
  s.RoutineCorrente = "Salva Configurazione Sezioni";
  return Protetto(s, [&] { ScriviByte(percorso, Utf8InCp1252(TestoConfigurazione(c))); });
}

}  // namespace varena
