// The staking out as a command: the station and the orientation picked, then
// `FormTracciamento`, where the reading is typed and the list of points grows by clicks, by
// name, by class or from a contour; each run appends its table to the report, the CSV and the small field
// book of the dialog's run number.
#include <algorithm>
#include <ctime>
#include <string>

#include "commands/Comandi.h"
#include "commands/RoutineCostruzione.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "survey/DialoghiCalcoli.h"
#include "survey/Tracciamento.h"

namespace varena {

namespace {

constexpr const char* kDialogo = "FormTracciamento";
constexpr int kCodice = 290;

StatoTracciamento& Stato(Sessione& s) { return s.Calcoli.Tracciamento; }

std::string Elenco(const StatoTracciamento& t) {
  std::string r;
  for (const std::string& n : t.Elenco) r += n + "\n";
  return r;
}

void Aggiungi(Sessione& s, const std::string& nome) {
  StatoTracciamento& t = Stato(s);
  if (nome.empty() || std::find(t.Elenco.begin(), t.Elenco.end(), nome) != t.Elenco.end()) return;
  t.Elenco.push_back(nome);
  AggiornaCampo(s, kDialogo, "Elenco", Elenco(t));
}

// The live point of that name, or the box and -1.
int32_t Cerca(Sessione& s, const std::string& nome) {
  const int32_t r = IlPiuVicinoPerNome(s, nome);
  if (r < 0) s.Ui->Messaggio("Punto Non Trovato", "Punto non Trovato", Icona::Avviso);
  return r;
}

PuntoXYZ Posizione(const Sessione& s, int32_t r) {
  const auto k = static_cast<size_t>(r);
  return {s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]};
}

void AggiungiPerNome(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  const std::string nome = Rifila(d->Valore("Nome"));
  if (Cerca(s, nome) >= 0) Aggiungi(s, nome);
}

// Every live point whose name passes `scelta`, in the order of the table.
template <class F>
void AggiungiClasse(Sessione& s, F scelta) {
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (!IdentVivo(s.PuntoIdent[k])) continue;
    const std::string n = Rifila(s.PuntoNome[k]);
    if (scelta(n)) Aggiungi(s, n);
  }
}

void AggiungiStazioni(Sessione& s) {
  AggiungiClasse(s, [](const std::string& n) {
    return n.size() > 2 && n.compare(n.size() - 2, 2, "00") == 0;  // "00" and "000" alike
  });
}

void AggiungiPF(Sessione& s) {
  AggiungiClasse(s, [](const std::string& n) { return n.rfind("PF", 0) == 0; });
}

void ScegliContorno(Sessione& s) {
  Stato(s).DaContorno = true;
  MostraPrompt(s, "Tracciamento - Selezionare il Contorno :");
}

// The points of the Contorno-7 drawn nearest the click, in the order of its list; the codes
// and names that no point has are passed over.
void AggiungiContorno(Sessione& s) {
  Stato(s).DaContorno = false;
  MostraPrompt(s, "Tracciamento - Punto da Tracciare :");
  const Vicina v = IlPiuVicinoSette(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (v.Riga < 0) return;
  const auto riga = static_cast<size_t>(s.ListaDisegno.Riga[static_cast<size_t>(v.Riga)]);
  for (const std::string& campo : Dividi(s.SetteContorno[riga], '|'))
    if (const std::string nome = Rifila(campo); !nome.empty() && IlPiuVicinoPerNome(s, nome) >= 0) Aggiungi(s, nome);
}

void Elimina(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  const std::string nome = Rifila(d->Valore("Nome"));
  StatoTracciamento& t = Stato(s);
  const auto i = std::find(t.Elenco.begin(), t.Elenco.end(), nome);
  if (i == t.Elenco.end()) return;
  if (s.Ui->Domanda("Eliminare il punto " + nome + " dalla selezione?", "Elimina Punti da Tracciare", Bottoni::SiNo,
                    Icona::Domanda, Risposta::No) != Risposta::Si)
    return;
  t.Elenco.erase(i);
  AggiornaCampo(s, kDialogo, "Elenco", Elenco(t));
}

std::string Data(const Sessione& s) {
  const std::time_t t = s.Orologio();
  std::tm tm{};
  localtime_r(&t, &tm);
  char testo[32];
  std::strftime(testo, sizeof testo, "%d/%m/%Y", &tm);
  return testo;
}

// The base of this dialog's files: the first run number with no report yet.
std::string Base(Sessione& s) {
  StatoTracciamento& t = Stato(s);
  const std::string cartella = s.CartellaProgramma + "/temp";
  NuovaCartella(cartella);
  if (t.Corsa == 0)
    for (t.Corsa = 1; LunghezzaFile(cartella + "/TRACCIAMENTO" + std::to_string(t.Corsa) + ".TXT") >= 0;) ++t.Corsa;
  return cartella + "/TRACCIAMENTO" + std::to_string(t.Corsa);
}

void Calcola(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  TabellaTracciamento t;
  t.Stazione = Rifila(d->Valore("Stazione"));
  t.Orientamento = Rifila(d->Valore("Orientamento"));
  const int32_t rs = Cerca(s, t.Stazione);
  if (rs < 0) return;
  const int32_t ro = Cerca(s, t.Orientamento);
  if (ro < 0) return;
  const std::string lettura = d->Valore("Lettura");
  if (!Rifila(lettura).empty() && !TestoNumerico(lettura)) {
    s.Ui->Messaggio("Dati incongruenti nella casella", "Impossibile continuare!!", Icona::Avviso);
    return;
  }
  t.S = Posizione(s, rs);
  t.O = Posizione(s, ro);
  t.AltezzaStazione = s.PuntoHPrisma[static_cast<size_t>(rs)];
  t.Lettura = LeggiNumero(lettura);
  for (const std::string& n : Stato(s).Elenco) {
    const int32_t r = Cerca(s, n);
    if (r < 0) return;
    t.Punti.push_back({n, Posizione(s, r), Rifila(s.PuntoDescrizione[static_cast<size_t>(r)])});
  }
  CalcolaTracciamento(t);
  const bool quote = Rifila(d->Valore("Quote")) == "1";
  if (ScriveNelProgramma(s)) {
    const std::string base = Base(s);
    AggiungiTesto(base + ".TXT", RelazioneTracciamento(t, Rifila(d->Valore("Titolo")), Data(s), quote));
    AggiungiTesto(base + ".CSV", CsvTracciamento(t, quote));
    AggiungiTesto(base + ".LIB", LibrettoTracciamento(t));
  }
  std::string tabella = "Nome\tNord\tEst\tAngolo\tDistanza";
  for (const PuntoTracciato& p : t.Punti)
    tabella += "\n" + p.Nome + "\t" + TestoMetri(p.P.Y) + "\t" + TestoMetri(p.P.X) + "\t" + TestoGon(p.Angolo) + "\t" +
               TestoMetri(p.Distanza);
  AggiornaCampo(s, kDialogo, "Direzione", TestoGon(t.Direzione) + "   " + TestoMetri(t.DistanzaOrientamento));
  AggiornaCampo(s, kDialogo, "Tabella", tabella);
  if (t.Punti.empty())
    s.Ui->Messaggio("Nessun punto da tracciare: scritta solo l'intestazione.", "Tracciamento", Icona::Avviso);
}

}  // namespace

bool ApriFormTracciamento(Sessione& s) {
  const SchedaCostruzione& c = s.Costruzione;
  Stato(s) = {};
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = "Tracciamento";
  d.DiLavoro = true;
  d.AggiungiCampo("Stazione", "Stazione :", c.Primo.Nome)
      .AggiungiCampo("Orientamento", "Orientamento :", c.Secondo.Nome)
      .AggiungiCampo("Lettura", "Lettura Orientamento :", "0")
      .AggiungiCampo("Titolo", "Titolo :")
      .AggiungiCampo("Quote", "Quote (1 = sì) :", "0")
      .AggiungiDato("Direzione", "Azimut e Distanza all'Orientamento : ", "")
      .AggiungiCampo("Nome", "Punto :")
      .AggiungiDato("Elenco", "Punti da Tracciare", "")
      .AggiungiDato("Tabella", "", "");
  BottoneCalcolo(d, "Aggiungi", "Aggiungi", AggiungiPerNome);
  BottoneCalcolo(d, "Stazioni", "Stazioni (00)", AggiungiStazioni);
  BottoneCalcolo(d, "PF", "PF", AggiungiPF);
  BottoneCalcolo(d, "Contorno", "Contorno", ScegliContorno);
  BottoneCalcolo(d, "Elimina", "Elimina", Elimina);
  BottoneCalcolo(d, "Calcola", "Calcola", Calcola);
  BottoneChiudi(d, kCodice);
  ApriDialogo(s, std::move(d));
  return true;
}

void subTracciamento(Sessione& s) {
  if (DialogoAperto(s, kDialogo)) {
    // A click while the table is up adds the point clicked, or the points of a contour.
    if (Stato(s).DaContorno)
      AggiungiContorno(s);
    else if (s.PuntoCorrenteIndice >= 0)
      Aggiungi(s, Rifila(s.PuntoCorrenteNome));
    return;
  }
  if (Raccogli(s, 2, nullptr, {"Tracciamento - Orientamento :"})) {
    ApriMisure(s, kDialogo);
    MostraPrompt(s, "Tracciamento - Punto da Tracciare :");
  }
}

}  // namespace varena
