// The eccentric station as a command: the centre picked first, then the orientation
// points, each with the direction read on it; `FormFuoricentro` shows the two tables, runs
// the reduction, inserts the mean station and keeps the first table in the job's `.FFF`.
#include <string>

#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/Modifica.h"
#include "core/CodicePagina.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Vicino.h"
#include "survey/DialoghiCalcoli.h"
#include "survey/Resezione.h"

namespace varena {

namespace {

constexpr const char* kDialogo = "FormFuoricentro";
constexpr const char* kTitolo = "Fuoricentro";
constexpr int kCodice = 212;

std::vector<RigaFuoriCentro>& Righe(Sessione& s) { return s.Calcoli.FuoriCentro; }

std::string Tabella1(const std::vector<RigaFuoriCentro>& righe) {
  std::string t = "\tNome\tNord\tEst\tDirezione";
  for (const RigaFuoriCentro& r : righe)
    t += "\n" + r.Ruolo + "\t" + r.Nome + "\t" + FormatoRilievo(r.Nord, "##########0.##0") + "\t" +
         FormatoRilievo(r.Est, "##########0.##0") + "\t" + TestoGon(r.Direzione);
  return t;
}

void MostraTabella1(Sessione& s) {
  AggiornaCampo(s, kDialogo, "Tabella1", Tabella1(Righe(s)));
  AggiornaCampo(s, kDialogo, "Tabella2", "");
  s.Calcoli.UltimoFuoriCentro = {};
}

// A row for the point of that table row, its direction asked; none when the prompt is
// cancelled, and a word when the answer is not a number.
void AggiungiRiga(Sessione& s, int32_t riga) {
  if (Righe(s).size() >= kMassimoRigheFuoriCentro) {
    s.Ui->Messaggio("Al massimo 1000 righe!", kTitolo, Icona::Avviso);
    return;
  }
  const auto k = static_cast<size_t>(riga);
  const std::string nome = Rifila(s.PuntoNome[k]);
  const std::optional<std::string> d = s.Ui->Imputa("Direzione su " + nome + " :", kTitolo, "");
  if (!d) return;
  if (!TestoNumerico(*d)) {
    s.Ui->Messaggio("Dati incongruenti nella casella", "Impossibile continuare!!", Icona::Avviso);
    return;
  }
  Righe(s).push_back(
      {Righe(s).empty() ? "Centro" : "Orientamento", nome, s.PuntoY[k], s.PuntoX[k], LeggiNumero(*d)});
  MostraTabella1(s);
}

void Calcola(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  if (!d) return;
  if (Rifila(d->Valore("Stazione")).empty()) AggiornaCampo(s, kDialogo, "Stazione", "100");
  const double e = d->Numero("Eccentricita");
  if (!(e > 0)) {
    s.Ui->Messaggio("Eccentricità non ammissibile!", kTitolo, Icona::Avviso);
    return;
  }
  const std::vector<RigaFuoriCentro>& righe = Righe(s);
  if (righe.size() < 2) {
    s.Ui->Messaggio("Indicare il centro e almeno un orientamento!", kTitolo, Icona::Avviso);
    return;
  }
  const EsitoFuoriCentro r = FuoriCentro(righe, e);
  const std::string stazione = Rifila(d->Valore("Stazione"));
  auto m = [](double v) { return FormatoRilievo(v, "###########0.##0"); };
  auto g = [](double v) { return FormatoRilievo(v, "###########0.###0"); };
  std::string t = "Orientamento\tStazione\tNord\tEst\tC.O.\tDistanza\tAzimut\tAng.V.\tD.R.";
  for (size_t i = 0; i < r.Righe.size(); ++i) {
    const StazioneRidotta& st = r.Righe[i];
    t += "\n" + righe[i + 1].Nome + "\t" + stazione;
    if (st.Riuscita)
      t += "\t" + m(st.S.Y) + "\t" + m(st.S.X) + "\t" + g(st.CO) + "\t" + m(st.Distanza) + "\t" + g(st.Azimut) + "\t" +
           g(st.AngoloV) + "\t" + g(st.DR);
    else
      t += "\tEccentricità maggiore della distanza";
  }
  if (r.Media) t += "\nMedie\t" + stazione + "\t" + m(r.S.Y) + "\t" + m(r.S.X) + "\t" + g(r.CO);
  AggiornaCampo(s, kDialogo, "Tabella2", t);
  s.Calcoli.UltimoFuoriCentro = r;
}

void Relazione(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  const EsitoFuoriCentro& r = s.Calcoli.UltimoFuoriCentro;
  if (!d || !r.Media) {
    s.Ui->Messaggio("Eseguire prima il calcolo!", kTitolo, Icona::Avviso);
    return;
  }
  std::string testo;
  const std::string stazione = Rifila(d->Valore("Stazione"));
  for (const std::string& riga : RelazioneFuoriCentro(Righe(s), r, d->Numero("Eccentricita"), stazione))
    testo += riga + "\n";
  AggiornaCampo(s, kDialogo, "Relazione", testo);
}

void Inserisci(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  const EsitoFuoriCentro& r = s.Calcoli.UltimoFuoriCentro;
  if (!d || !r.Media) {
    s.Ui->Messaggio("Eseguire prima il calcolo!", kTitolo, Icona::Avviso);
    return;
  }
  ScriviPunto(s, Rifila(d->Valore("Stazione")), r.S, "", s.PianoCorrente);
  FineModifica(s);
}

void Esporta(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogo);
  const EsitoFuoriCentro& r = s.Calcoli.UltimoFuoriCentro;
  if (!d || !r.Media) {
    s.Ui->Messaggio("Eseguire prima il calcolo!", kTitolo, Icona::Avviso);
    return;
  }
  const std::string cartella = s.CartellaProgramma + "/temp";
  NuovaCartella(cartella);
  ScriviTesto(cartella + "/MemopuntiSnap.CSV", CsvFuoriCentro(r, Rifila(d->Valore("Stazione"))));
}

std::string FileFFF(Sessione& s) {
  if (s.NomeOriginale.empty()) s.Ui->Messaggio("Nessun lavoro aperto!", kTitolo, Icona::Avviso);
  return s.NomeOriginale.empty() ? std::string() : s.NomeOriginale + ".FFF";
}

void Scrivi(Sessione& s) {
  const std::string f = FileFFF(s);
  if (!f.empty() && !s.SolaLettura) ScriviTesto(f, TestoFFF(Righe(s)));
}

void Leggi(Sessione& s) {
  const std::string f = FileFFF(s);
  if (f.empty()) return;
  const std::optional<std::string> byte = LeggiByte(f);
  if (!byte) {
    s.Ui->Messaggio("File " + Foglia(f) + " non trovato!", kTitolo, Icona::Avviso);
    return;
  }
  const std::string errore = LeggiFFF(Cp1252InUtf8(*byte), Righe(s));
  if (!errore.empty()) {
    s.Ui->Messaggio("File " + Foglia(f) + " non valido: " + errore + "!", kTitolo, Icona::Avviso);
    return;
  }
  MostraTabella1(s);
}

void Svuota(Sessione& s) {
  Righe(s).clear();
  MostraTabella1(s);
}

}  // namespace

bool ApriFormFuoricentro(Sessione& s) {
  Dialogo d;
  d.Nome = kDialogo;
  d.Titolo = kTitolo;
  d.DiLavoro = true;
  d.AggiungiCampo("Eccentricita", "Eccentricità :")
      .AggiungiCampo("Stazione", "Nome Stazione :", "100")
      .AggiungiDato("Tabella1", "", Tabella1(Righe(s)))
      .AggiungiDato("Tabella2", "", "")
      .AggiungiDato("Relazione", "", "");
  BottoneCalcolo(d, "Calcola", "Calcola", Calcola);
  BottoneCalcolo(d, "Relazione", "Relazione", Relazione);
  BottoneCalcolo(d, "Inserisci", "Inserisci", Inserisci);
  BottoneCalcolo(d, "Esporta", "Esporta", Esporta);
  BottoneCalcolo(d, "Scrivi", "Scrivi .FFF", Scrivi);
  BottoneCalcolo(d, "Leggi", "Leggi .FFF", Leggi);
  BottoneCalcolo(d, "Svuota", "Svuota", Svuota);
  BottoneChiudi(d, kCodice);
  ApriDialogo(s, std::move(d));
  return true;
}

void subFuoriCentro(Sessione& s) {
  if (!DialogoAperto(s, kDialogo)) {
    Righe(s).clear();
    ApriFormFuoricentro(s);
  }
  if (s.PuntoCorrenteIndice < 0) return;
  AggiungiRiga(s, s.PuntoCorrenteIndice);
  MostraPrompt(s, "Fuoricentro - Indica Orientamento :");
}

}  // namespace varena
