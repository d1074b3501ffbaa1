// The commands of the field book and of the survey structures.
#include "cadastre/ComandiContorno.h"

#include <algorithm>
#include <vector>

#include "cadastre/CodiciPunto.h"
#include "cadastre/ContornoSette.h"
#include "cadastre/Libretto.h"
#include "cadastre/LibrettoDisegno.h"
#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Elastico.h"
#include "view/Ridisegna.h"

namespace varena {

namespace {

bool Conferma(Sessione& s, const std::string& testo, const std::string& titolo) {
  return s.Ui->Domanda(testo, titolo, Bottoni::SiNo, Icona::Domanda, Risposta::No) == Risposta::Si;
}

// What each deletion works on, and how it asks.
struct Eliminazione {
  const char* Tag;
  const char* Titolo;
  const char* Domanda;
  bool (*Tocca)(const std::string& commento);
};

bool Piano(const std::string& c) { return !TipoStrutturaRilievo(c) && c != kSezione && c != "PD" && c != "PV"; }
bool Squadri(const std::string& c) { return c == kSquadro || c == kCogo; }
bool Livellazioni(const std::string& c) { return c == kLivellazioneRaggiante || c == kLivellazioneDalMezzo; }
bool PuntiPVPD(const std::string& c) { return c == "PD" || c == "PV"; }

constexpr Eliminazione kEliminazioni[] = {
    {"ELIMINA_CONTORNI_7", "Elimina Contorni 7", "Eliminare Tutti i Contorni 7 dal Disegno?", Piano},
    {"ELIMINA_SQUADRI", "Elimina Squadri", "Eliminare Tutti gli Squadri nel Disegno?", Squadri},
    {"ELIMINA_LIVELLAZIONI", "Elimina Livellazioni", "Eliminare Tutte le Livellazioni nel Disegno?", Livellazioni},
    {"ELIMINA_PV_PD", "Elimina PV PD", "Eliminare Tutti i Punti Vertice-Direzione?", PuntiPVPD},
};

std::vector<std::string> Vertici(const Dialogo& d) {
  std::vector<std::string> v;
  for (const std::string& n : Dividi(d.Valore("Vertici"), '|'))
    if (!Rifila(n).empty()) v.push_back(Rifila(n));
  return v;
}

std::string Unisci(const std::vector<std::string>& v) {
  std::string t;
  for (const std::string& n : v) t += (t.empty() ? "" : "|") + n;
  return t;
}

// The place typed for an insertion or a deletion, from 1; 0 when there is none within `fino`.
size_t Posizione(Sessione& s, const Dialogo& d, size_t fino) {
  const double p = d.Numero("Posizione");
  if (p >= 1 && p <= static_cast<double>(fino) && p == static_cast<double>(static_cast<size_t>(p))) return static_cast<size_t>(p);
  s.Ui->Messaggio("Selezionare la posizione di inserimento!", "Posizone di inserimento", Icona::Avviso);
  return 0;
}

void CambiaVertici(Sessione& s, void (*f)(Sessione&, const Dialogo&, std::vector<std::string>&)) {
  Dialogo* d = TrovaDialogo(s, "ContornoSette");
  if (!d) return;
  std::vector<std::string> v = Vertici(*d);
  f(s, *d, v);
  AggiornaCampo(s, "ContornoSette", "Vertici", Unisci(v));
}

void Aggiungi(Sessione&, const Dialogo& d, std::vector<std::string>& v) {
  if (const std::string n = Rifila(d.Valore("Nome")); !n.empty()) v.push_back(n);
}
void Inserisci(Sessione& s, const Dialogo& d, std::vector<std::string>& v) {
  const std::string n = Rifila(d.Valore("Nome"));
  if (n.empty()) return;
  if (const size_t p = Posizione(s, d, v.size() + 1)) v.insert(v.begin() + static_cast<std::ptrdiff_t>(p - 1), n);
}
void Elimina(Sessione& s, const Dialogo& d, std::vector<std::string>& v) {
  if (const size_t p = Posizione(s, d, v.size())) v.erase(v.begin() + static_cast<std::ptrdiff_t>(p - 1));
}

void Definisci(Sessione& s) {
  Dialogo* d = TrovaDialogo(s, "ContornoSette");
  if (!d) return;
  const std::vector<std::string> v = Vertici(*d);
  const std::string tipo = TipoDelComando(s.ComandoCorrente);
  s.TipoSettePendente = tipo.empty() ? Rifila(d->Valore("Commento")) : tipo;
  if (tipo == kSquadro || tipo == kCogo) {
    s.ParticellaPendente = d->Valore("Rilievo") == "*S*" ? "*S*" : "*V*";
  } else {
    // The label and its place, in the order the file keeps them.
    s.ParticellaPendente = d->Valore("Text3") + "|" + d->Valore("Text2") + "|" + d->Valore("Text4") + "|" +
                           d->Valore("Text5") + "|" + d->Valore("Text6");
    if (s.ParticellaPendente == "||||") s.ParticellaPendente.clear();
  }
  s.ColorePendente = s.Imp.Colore_Default;
  s.TratteggioPendente = InteroCorto(s.Imp.Tratteggio_Default);
  ChiudiDialogo(s, "ContornoSette");
  InterrompiComando(s);
  if (v.empty()) return;
  DefinizioneContornoSette(s, "|" + Unisci(v) + "|");
  FineModifica(s, true);
}

// The records the list of `SelezionaContorno7` shows, in its order.
std::vector<int32_t> SetteVivi(const Sessione& s) {
  std::vector<int32_t> r;
  for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k)
    if (IdentVivo(s.SetteIdent[static_cast<size_t>(k)])) r.push_back(k);
  return r;
}

// The lines of the record picked, and only those, painted as selected.
void SelezionaSette(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, "SelezionaContorno7");
  if (!d) return;
  const std::vector<int32_t> vivi = SetteVivi(s);
  const double n = d->Numero("Riga");
  const int32_t scelto = n >= 1 && n <= static_cast<double>(vivi.size()) ? vivi[static_cast<size_t>(n) - 1] : -1;
  ElencoDisegno& l = s.ListaDisegno;
  for (size_t i = 0; i < static_cast<size_t>(l.Conta()); ++i)
    if (l.Tipo[i] == SlotSette) l.Stato[i] = l.Riga[i] == scelto ? 1 : 0;
  Ridisegna(s);
}

}  // namespace

void AzioneHPSDaLibretto(Sessione& s) {
  if (!Conferma(s, "Assegnare ai Punti \nle H.Stazione e H.Prisma\ndal Libretto Delle Misure ?",
                "HP/HS da Libretto Misure ??"))
    return;
  HPSDaLibrettoMisure(s);
  FineModifica(s, false);
}

void AzioneSchemaDaLibretto(Sessione& s) {
  SchemaDaTxt(s);
  FineModifica(s, true);
}

void AzioneDisegnoDaLibretto(Sessione& s) {
  AssumeTuttoDaTXT(s);
  FineModifica(s, true);
}

void AzioneEliminaStrutture(Sessione& s) {
  const auto e = std::find_if(std::begin(kEliminazioni), std::end(kEliminazioni),
                              [&](const Eliminazione& x) { return s.ComandoTag == x.Tag; });
  if (e == std::end(kEliminazioni) || !Conferma(s, e->Domanda, e->Titolo)) return;
  for (int32_t r = 0; r < s.ContaEntita[SlotSette]; ++r)
    if (e->Tocca(s.SetteCommento[static_cast<size_t>(r)])) s.SetteIdent[static_cast<size_t>(r)] = -1;
  SegnaModificato(s, SlotSette);
  if (e->Tocca("PV")) {
    // The vertices and directions are marks in the points' descriptions too.
    for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
      std::string& d = s.PuntoDescrizione[static_cast<size_t>(k)];
      d = TogliCodice(TogliCodice(d, kCodiceVertice), kCodiceDirezione);
    }
    SegnaModificato(s, SlotPunti);
  }
  FineModifica(s, true);
}

std::string TipoDelComando(int32_t codice) {
  switch (codice) {
    case 230: return kSquadro;
    case 430: return kCogo;
    case 298: return kLivellazioneDalMezzo;
    case 299: return kLivellazioneRaggiante;
    case 300: return kPoligonale;
    default: return {};
  }
}

void subContornoSette(Sessione& s) {
  // A structure holds names: a click away from any point adds nothing.
  const std::string nome = Rifila(s.PuntoCorrenteNome);
  if (nome.empty() || nome == "*") return;
  s.SpezzataTemporanea.Aggiungi(s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ, nome);
  // The vertices so far stay on screen until the dialog takes over.
  DipingiSpezzata(s);
  const int32_t c = s.ComandoCorrente;
  const bool base = c == 230 || c == 430;
  const char* prompt = base && s.PassoComando == 0 ? (c == 230 ? "Disegna Squadro - Punto Orientamento :"
                                                               : "Disegna Bilatera - Punto Orientamento :")
                       : base      ? (c == 230 ? "Disegna Squadro - Punto Rilevato :" : "Disegna Bilatera - Punto Rilevato :")
                       : c == 299 ? "Livellazione Raggiante - Punto Battuto :"
                                  : nullptr;
  ++s.PassoComando;
  MostraPrompt(s, prompt ? prompt : s.Prompt);
}

bool ApriContornoSette(Sessione& s) {
  const std::string tipo = TipoDelComando(s.ComandoCorrente);
  static const std::pair<const char*, const char*> kTitoli[] = {
      {"Definizione Squadro", "Origine-Orientamento + Punti Rilevati"},
      {"Definizione Bilatera", "Origine-Orientamento + Punti Rilevati"},
      {"Definizione Livellazione Dal Mezzo", "Punti Battuti"},
      {"Definizione Livellazione Raggiante", "Stazione + Punti Battuti"},
      {"Definizione Poligonale", "Elenco Vertici"},
      {"Definizione Contorno 7", "Elenco Vertici"}};
  const size_t k = tipo == kSquadro ? 0 : tipo == kCogo ? 1 : tipo == kLivellazioneDalMezzo ? 2
                 : tipo == kLivellazioneRaggiante ? 3 : tipo == kPoligonale ? 4 : 5;
  Dialogo d;
  d.Nome = "ContornoSette";
  d.Titolo = kTitoli[k].first;
  d.DiLavoro = true;
  // A plain contour's title is typed each time: the kind left pending by the book's reader
  // must not turn a contour into a levelling.
  if (tipo.empty()) d.AggiungiCampo("Commento", "Commento");
  d.AggiungiCampo("Vertici", kTitoli[k].second, Unisci(s.SpezzataTemporanea.Nome));
  d.AggiungiCampo("Nome", "Nome");
  d.AggiungiCampo("Posizione", "Posizone di inserimento");
  if (tipo == kSquadro || tipo == kCogo) {
    d.AggiungiCampo("Rilievo", "Rilievo", "*V*");
    d.Campo("Rilievo")->Scelte = {"*V*", "*S*"};
  } else if (tipo.empty()) {
    d.AggiungiCampo("Text3", "Particella").AggiungiCampo("Text2", "").AggiungiCampo("Text4", "");
    d.AggiungiCampo("Text5", "Nord").AggiungiCampo("Text6", "Est");
  }
  d.AggiungiBottone("Aggiungi", "Aggiungi", [](Sessione& x) { CambiaVertici(x, Aggiungi); });
  d.AggiungiBottone("Inserisci", "Inserisci", [](Sessione& x) { CambiaVertici(x, Inserisci); });
  d.AggiungiBottone("Elimina", "Elimina", [](Sessione& x) { CambiaVertici(x, Elimina); });
  d.AggiungiBottone("Conferma", "Conferma", Definisci);
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) {
    ChiudiDialogo(x, "ContornoSette");
    InterrompiComando(x);
  });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriSelezionaContorno7(Sessione& s) {
  std::string elenco = "Commento\tPunti Contorno";
  for (int32_t k : SetteVivi(s))
    elenco += "\n" + s.SetteCommento[static_cast<size_t>(k)] + "\t" + s.SetteContorno[static_cast<size_t>(k)];
  Dialogo d;
  d.Nome = "SelezionaContorno7";
  d.Titolo = "Seleziona Contorno 7";
  d.AggiungiDato("Elenco", "", elenco);
  d.AggiungiCampo("Riga", "Riga");
  d.AggiungiBottone("Seleziona", "Seleziona", SelezionaSette);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, "SelezionaContorno7"); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
