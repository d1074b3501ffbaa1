// The framing of a survey on the fiducial points: `Inquadra su 2 PF` (two picks, the targets
// from the archive, the roto-translation grid), `Inquadra su n PF` (every PF of the drawing,
// the least squares fit and its residuals, a point left out and the fit done again) and
// `Setup Inquadramento`.
#include <string>

#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "commands/RoutineModifica.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/TafLettura.h"
#include "selection/Selezione.h"
#include "survey/Convenzioni.h"
#include "survey/DialoghiCalcoli.h"
#include "survey/InquadraDisegno.h"

namespace varena {

namespace {

constexpr const char* kTitolo2PF = "Inquadra su 2 PF";

// A fiducial point of the survey bears its full name, "PFnn/ffff/cccc".
bool NomePF(const std::string& nome) { return IniziaCon(Maiuscolo(nome), "PF") && nome.size() >= 14; }

// Slots 2 and 3: the names of the two picked, at their official place. A PF the archive
// lacks stays where it was picked; one whose line has no coordinates stops the command.
bool Bersagli(Sessione& s) {
  auto& p = s.PuntiRotoTraslazione;
  for (size_t i = 0; i < 2; ++i) {
    bool corta = false;
    const std::optional<PuntoTaf> t = CercaPFInArchivio(s, p[i].Nome, &corta);
    if (corta) {
      s.Ui->Messaggio("Coordinate mancanti nell'archivio TAF: " + p[i].Nome, kTitolo2PF, Icona::Avviso);
      return false;
    }
    p[i + 2] = {p[i].Nome, t ? t->Est : p[i].X, t ? t->Nord : p[i].Y, 0};
  }
  return true;
}

}  // namespace

void subInquadraSuPF(Sessione& s) {
  const std::string nome = Rifila(s.PuntoCorrenteNome);
  if (s.PassoComando > 1 || !NomePF(nome)) return;
  s.PuntiRotoTraslazione[static_cast<size_t>(s.PassoComando)] = {nome, s.PuntoCorrenteX, s.PuntoCorrenteY,
                                                                 s.PuntoCorrenteZ};
  if (s.PassoComando == 0) {
    s.PassoComando = 1;
    MostraPrompt(s, "Inquadra su 2 PF - Punto Orientamento :");
    return;
  }
  s.PassoComando = 2;
  s.RoutineCorrente = "subInquadraSuPF";
  bool pronti = false;
  Protetto(s, [&] { pronti = Bersagli(s); });
  if (!pronti) {
    InterrompiComando(s);
    return;
  }
  AzzeraSelezione(s);
  SelezionaTutto(s);
  MostraPrompt(s, "");
  ApriRotoTraslazione(s);
}

// --- On n PF -------------------------------------------------------------------------------

namespace {

constexpr const char* kDialogoN = "FormInquadraPF";
constexpr const char* kTitoloN = "Inquadra su n PF";

// The names typed in "Esclusi", separated by blanks, commas or bars.
bool Escluso(const std::string& esclusi, const std::string& nome) {
  std::string t = Maiuscolo(esclusi);
  for (char& c : t)
    if (c == ',' || c == '|' || c == ';') c = ' ';
  for (const std::string& n : Dividi(t, ' '))
    if (!n.empty() && n == nome) return true;
  return false;
}

void Calcola(Sessione& s) {
  const Dialogo* d = TrovaDialogo(s, kDialogoN);
  if (!d) return;
  std::vector<CoppiaPF>& coppie = s.Calcoli.CoppieInquadramento;
  for (CoppiaPF& c : coppie) c.Esclusa = Escluso(d->Valore("Esclusi"), c.Nome);
  const EsitoInquadramento e = Inquadra(coppie, Val(d->Valore("Scala")) != 0);
  s.Calcoli.UltimoInquadramento = e;
  if (!e.Riuscito) {
    AggiornaCampo(s, kDialogoN, "Tabella", "");
    s.Ui->Messaggio(e.Motivo, kTitoloN, Icona::Avviso);
    return;
  }
  AggiornaCampo(s, kDialogoN, "Tabella", TabellaResidui(coppie, e));
}

void Conferma(Sessione& s) {
  const EsitoInquadramento& e = s.Calcoli.UltimoInquadramento;
  if (!e.Riuscito) {
    s.Ui->Messaggio("Eseguire prima il calcolo!", kTitoloN, Icona::Avviso);
    return;
  }
  const EsitoInquadramento copia = e;
  ChiudiDialogo(s, kDialogoN);
  s.Calcoli.UltimoInquadramento = {};
  if (InquadraTuttoIlDisegno(s, copia)) FineModifica(s);
}

void Bottone(Dialogo& d, const char* nome, void (*azione)(Sessione&)) {
  d.AggiungiBottone(nome, nome, [azione](Sessione& x) {
    x.RoutineCorrente = "InquadraSuNPF";
    Protetto(x, [&] { azione(x); });
  });
}

}  // namespace

bool ApriInquadraPF(Sessione& s) {
  s.RoutineCorrente = "InquadraSuNPF";
  std::vector<CoppiaPF> coppie;
  std::string mancanti;
  Protetto(s, [&] {
    for (const std::string& nome : NomiPFDelDisegno(s)) {
      std::string errore;
      std::vector<CoppiaPF> una = CoppieDaArchivio(s, {nome}, errore);
      if (una.empty())
        mancanti += errore + "\n";
      else
        coppie.push_back(una.front());
    }
  });
  if (coppie.size() < 2) {
    s.Ui->Messaggio(mancanti + "Servono almeno 2 PF presenti nell'archivio TAF", kTitoloN, Icona::Avviso);
    return false;
  }
  s.Calcoli.CoppieInquadramento = std::move(coppie);
  s.Calcoli.UltimoInquadramento = {};
  Dialogo d;
  d.Nome = kDialogoN;
  d.Titolo = kTitoloN;
  d.AggiungiCampo("Esclusi", "PF esclusi :")
      .AggiungiCampo("Scala", "Con fattore di scala (1/0) :", "0")
      .AggiungiDato("Tabella", "", "")
      .AggiungiDato("Mancanti", "", mancanti);
  Bottone(d, "Calcola", Calcola);
  Bottone(d, "OK", Conferma);
  d.AggiungiBottone("Chiudi", "Chiudi", [](Sessione& x) { ChiudiDialogo(x, kDialogoN); });
  d.BottoneEsc = "Chiudi";
  ApriDialogo(s, std::move(d));
  Calcola(s);
  return true;
}

// --- The steps of the extract's moves ------------------------------------------------------

bool ApriSetupInquadramento(Sessione& s) {
  Dialogo d;
  d.Nome = "SetupInquadramento";
  d.Titolo = "Setup Inquadramento";
  d.AggiungiDato("Nota", "", " Spostamento minimi")
      .AggiungiCampo("Angolo", "Angolo Rotazione:", FormatoRilievo(s.Calcoli.PassoAngoloInquadramento, "###0.####"))
      .AggiungiCampo("Spostamento", "Spostamento N-E :",
                     FormatoRilievo(s.Calcoli.PassoSpostamentoInquadramento, "#########0.0##"));
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    if (const Dialogo* g = TrovaDialogo(x, "SetupInquadramento")) {
      x.Calcoli.PassoAngoloInquadramento = g->Numero("Angolo");
      x.Calcoli.PassoSpostamentoInquadramento = g->Numero("Spostamento");
    }
    ChiudiDialogo(x, "SetupInquadramento");
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "SetupInquadramento"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

}  // namespace varena
