// The triangle solver's dialog: six boxes, a button that solves and one that clears, and
// the report of the last run below them. It stays up between runs, as a calculator does.
#include <array>
#include <string>

#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/DialoghiCalcoli.h"
#include "survey/Triangoli.h"

namespace varena {

namespace {

constexpr const char* kNome = "Triangoli";
constexpr std::array<const char*, 6> kCaselle = {"a", "b", "c", "Alfa", "Beta", "Gamma"};

// The report as a table of two columns, caption and value, which the dialog shows as a grid.
std::string Tabella(const std::string& relazione) {
  std::string t;
  for (size_t inizio = 0; inizio < relazione.size();) {
    size_t fine = relazione.find('\n', inizio);
    if (fine == std::string::npos) fine = relazione.size();
    const std::string riga = relazione.substr(inizio, fine - inizio);
    const size_t uguale = riga.find(" = ");
    t += (t.empty() ? "" : "\n") + Rifila(riga.substr(0, uguale)) + "\t" +
         (uguale == std::string::npos ? std::string() : riga.substr(uguale + 3));
    inizio = fine + 1;
  }
  return t;
}

void Calcola(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kNome);
  if (!d) return;
  s.RoutineCorrente = "Triangoli";
  std::array<std::string, 6> testi;
  for (size_t i = 0; i < 6; ++i) testi[i] = d->Valore(kCaselle[i]);
  const EsitoTriangolo e = RisolviTriangolo(testi);
  if (!e.Messaggio.empty()) s.Ui->Messaggio(e.Messaggio, e.Titolo, Icona::Avviso);
  if (!e.Risolto) return;
  for (size_t i = 0; i < 6; ++i)
    AggiornaCampo(s, kNome, kCaselle[i], TestoElementoTriangolo(static_cast<int>(i), e.Valori[i]));
  AggiornaCampo(s, kNome, "Relazione", Tabella(e.Relazione));
}

void Pulisci(Sessione& s) {
  for (const char* c : kCaselle) AggiornaCampo(s, kNome, c, "");
  AggiornaCampo(s, kNome, "Relazione", "");
}

}  // namespace

bool ApriTriangoli(Sessione& s) {
  Dialogo d;
  d.Nome = kNome;
  d.Titolo = "Triangoli";
  d.AggiungiCampo("a", "Lato a :").AggiungiCampo("b", "Lato b :").AggiungiCampo("c", "Lato c :");
  d.AggiungiCampo("Alfa", "Angolo Alfa (opposto ad a) :")
      .AggiungiCampo("Beta", "Angolo Beta (opposto a b) :")
      .AggiungiCampo("Gamma", "Angolo Gamma (opposto a c) :");
  d.AggiungiDato("Relazione", "", "");
  d.AggiungiBottone("Calcola", "Calcola", [](Sessione& x) { Protetto(x, [&] { Calcola(x); }); });
  d.AggiungiBottone("Pulisci", "Pulisci", Pulisci);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kNome); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
