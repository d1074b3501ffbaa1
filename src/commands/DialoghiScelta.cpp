// `MenuPiani`, `MenuTratteggi` and `FormSelezColore`.
#include "commands/DialoghiScelta.h"

#include <cmath>
#include <functional>

#include "commands/Comandi.h"
#include "core/Conversioni.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

// The two buttons of a picker. `OK` hands the text of `campo` to `prendi`, which stores the
// choice and says whether the text named one; the dialog then closes and a command waiting
// for it goes on. A text that names nothing is said so, and the dialog stays for another.
void BottoniScelta(Dialogo& d, const char* campo, const char* nonValido,
                   bool (*prendi)(Sessione&, const std::string&)) {
  const std::string nome = d.Nome, titolo = d.Titolo;
  d.AggiungiBottone("OK", "OK", [nome, titolo, campo, nonValido, prendi](Sessione& x) {
    const Dialogo* dd = TrovaDialogo(x, nome);
    if (!dd) return;
    if (!prendi(x, Rifila(dd->Valore(campo)))) {
      x.Ui->Messaggio(nonValido, titolo, Icona::Avviso);
      return;
    }
    // The settings that carry the current layer, line type and colour to the next job.
    SalvaImpostazioniComando(x);
    ChiudiDialogo(x, nome);
    DialogoInizialeRisposto(x, nome, true);
  });
  d.AggiungiBottone("Annulla", "Annulla", [nome](Sessione& x) {
    ChiudiDialogo(x, nome);
    DialogoInizialeRisposto(x, nome, false);
  });
  d.BottoneEsc = "Annulla";
}

// A picker a command waits for belongs to that command: another tag, or the end of the
// command, closes it. Opened by its own tag or key it stays until answered.
Dialogo& Apri(Sessione& s, Dialogo d) {
  d.DiLavoro = UgualeSenzaCaso(DialogoIniziale(s), d.Nome);
  return ApriDialogo(s, std::move(d));
}

// After "Elementi:", each element of the line type: its length ("#######.##") and what it
// is, a stroke, a gap or a dot.
std::string ElementiTratteggio(const Sessione& s, int indice) {
  if (indice < 0 || indice >= kMassimoTratteggi) return {};
  const Tratteggio& t = s.Tratteggi.Stili[static_cast<size_t>(indice)];
  std::string testo = "Elementi:";
  for (int k = 1; k <= t.NumeroElementi() && k <= kMassimoElementi; ++k) {
    const double e = t.Elementi[static_cast<size_t>(k)];
    // A dot has no length to show.
    const std::string lunghezza = e != 0 ? Rifila(FormatoMaschera(std::fabs(e), "#######.##")) : std::string();
    testo += " " + Rifila(lunghezza + (e > 0 ? " [ TRATTO ]" : e < 0 ? " [ SPAZIO ]" : " [ PUNTO ]"));
  }
  return testo;
}

// The line of a line type in the list: its index, name, sample and elements.
std::string VoceTratteggio(const Sessione& s, int indice) {
  if (indice < 1 || indice > s.Tratteggi.NumeroTratteggi) return {};
  const Tratteggio& t = s.Tratteggi.Stili[static_cast<size_t>(indice)];
  return std::to_string(indice) + " " + t.NomeTratteggio + "   " + Rifila(t.DisegnoTratteggio) + "   " +
         ElementiTratteggio(s, indice);
}

// The line type a text names, by its index (a list line begins with it) or by its name; -1
// when it names none of the table.
int TratteggioScelto(const Sessione& s, const std::string& testo) {
  const std::string t = Rifila(testo);
  if (t.empty()) return -1;
  int scelto = -1;
  if (t[0] >= '0' && t[0] <= '9') {
    const double v = Val(t);
    if (v >= 1 && v <= s.Tratteggi.NumeroTratteggi) scelto = InteroSaturato<int>(v);
  } else {
    // By its name: the first word, as a list line or a name typed gives it.
    const std::string nome = t.substr(0, t.find(' '));
    for (int i = 1; i <= s.Tratteggi.NumeroTratteggi && scelto < 0; ++i)
      if (UgualeSenzaCaso(Rifila(s.Tratteggi.Stili[static_cast<size_t>(i)].NomeTratteggio), nome)) scelto = i;
  }
  return scelto >= 1 && scelto <= s.Tratteggi.NumeroTratteggi ? scelto : -1;
}

bool PrendiPiano(Sessione& s, const std::string& testo) {
  if (testo.empty()) return false;
  // A layer of the table keeps the table's spelling; any other name is a new layer.
  s.PianoCorrente = testo;
  for (const Piano& p : s.Piani)
    if (UgualeSenzaCaso(Rifila(p.Nome), testo)) s.PianoCorrente = Rifila(p.Nome);
  return true;
}

bool PrendiTratteggio(Sessione& s, const std::string& testo) {
  const int t = TratteggioScelto(s, testo);
  if (t < 0) return false;
  s.Imp.Tratteggio_Default = t;
  return true;
}

bool PrendiColore(Sessione& s, const std::string& testo) {
  const double v = Val(VirgolaInPunto(testo));
  if (!(v >= 1 && v <= kMassimoColori) || v != std::floor(v)) return false;
  s.Imp.Colore_Default = InteroSaturato<int32_t>(v);
  return true;
}

}  // namespace

bool ApriMenuPiani(Sessione& s) {
  Dialogo d;
  d.Nome = "MenuPiani";
  d.Titolo = "Menu Piani";
  std::string elenco;
  for (const Piano& p : s.Piani) elenco += Rifila(p.Nome) + "\n";
  d.AggiungiCampo("Piano", "Piano :", s.PianoCorrente).AggiungiCampo("Elenco", "", elenco);
  BottoniScelta(d, "Piano", "Piano non valido", PrendiPiano);
  Apri(s, std::move(d));
  return true;
}

bool ApriMenuTratteggi(Sessione& s) {
  Dialogo d;
  d.Nome = "MenuTratteggi";
  d.Titolo = "Menu Tratteggi";
  std::string elenco;
  for (int i = 1; i <= s.Tratteggi.NumeroTratteggi; ++i) elenco += VoceTratteggio(s, i) + "\n";
  const int corrente = s.Imp.Tratteggio_Default;
  const std::string scelto = VoceTratteggio(s, corrente);
  d.AggiungiCampo("Tratteggio", "Tratteggio :", scelto.empty() ? std::to_string(corrente) : scelto)
      .AggiungiCampo("Elenco", "", elenco);
  BottoniScelta(d, "Tratteggio", "Tratteggio non valido", PrendiTratteggio);
  Apri(s, std::move(d));
  return true;
}

bool ApriFormSelezColore(Sessione& s) {
  Dialogo d;
  d.Nome = "FormSelezColore";
  d.Titolo = "Seleziona Colore";
  // An index of the colour table; the desktop shows each one's swatch.
  d.AggiungiCampo("Colore", "Colore :", std::to_string(s.Imp.Colore_Default));
  BottoniScelta(d, "Colore", "Colore non valido", PrendiColore);
  Apri(s, std::move(d));
  return true;
}

}  // namespace varena
