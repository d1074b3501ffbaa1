// `Selezentita`, `SelezPerPiano`, `SelezPunti` and `DN`, and the clicks of a selection.
#include "commands/DialoghiSelezione.h"

#include <functional>

#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "commands/RoutineModifica.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Esportazioni.h"
#include "selection/Selezione.h"
#include "snap/Vicino.h"
#include "terrain/Triangolazione.h"
#include "view/Elastico.h"
#include "view/Ridisegna.h"
#include "view/Zoom.h"

namespace varena {

namespace {

constexpr const char* kSelezentita = "Selezentita";
constexpr const char* kSelezPunti = "SelezPunti";

std::string TestoPunti(const Sessione& s) { return s.PuntiInSelezione == 1 ? "Punti SI " : "Punti NO"; }
std::string TestoModo(const Sessione& s) { return s.ValoreSelezione != 0 ? "Aggiungi" : "Togli"; }

// A click on one row: in the adding mode it toggles, a row already selected being taken
// away again; in the remove mode it only takes away.
void Scrivi(Sessione& s, int tipo, int32_t riga) {
  if (!Selezionabile(s, tipo, riga)) return;
  MarcaEntita(s, tipo, riga, s.ValoreSelezione != 0 && StatoDi(s, tipo, riga) != 1 ? 1 : 0);
}

// A phase that picks on the drawing: the dialog steps aside until the right button or Esc.
void Raccogli(Sessione& s, uint8_t fase, const char* prompt) {
  s.FaseSelezione = fase;
  ChiudiDialogo(s, kSelezentita);
  MostraPrompt(s, prompt);
}

// The window borrows the guide of the zoom window; the right button or Esc takes it back as
// they take back a zoom, and the prompt before it returns.
void ArmaFinestra(Sessione& s, const char* prompt) {
  s.FaseSelezione = 2;
  s.Vista.PromptSalvato = s.Prompt;
  s.Vista.ModoZoom = ZoomFinestra;
  s.Vista.PrimoPuntoZoom = 0;
  MostraPrompt(s, prompt);
}

void TornaAlDialogo(Sessione& s) {
  s.FaseSelezione = 0;
  ApriSelezentita(s);
}

template <class Fai>
std::function<void(Sessione&)> Azione(Fai fai) {
  return [fai](Sessione& x) {
    x.RoutineCorrente = "Selezentita";
    Protetto(x, [&] { fai(x); });
  };
}

void AlternaPunti(Sessione& s) {
  s.PuntiInSelezione = s.PuntiInSelezione == 1 ? 0 : 1;
  ScriviImpostazioneUtente(s, "SELEZIONE", "PUNTI", std::to_string(s.PuntiInSelezione));
  if (Dialogo* d = TrovaDialogo(s, kSelezentita)) {
    for (BottoneDialogo& b : d->Bottoni)
      if (b.Nome == "PuntiSiNo") b.Etichetta = TestoPunti(s);
    AggiornaCampo(s, kSelezentita, "Punti", TestoPunti(s));
  }
}

void AlternaModo(Sessione& s, const char* dialogo) {
  s.ValoreSelezione = s.ValoreSelezione != 0 ? 0 : 1;
  AggiornaCampo(s, dialogo, "Modo", TestoModo(s));
}

// The entity under a click of the phases by colour and by layer.
void PrendiColore(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1, colore = 0;
  if (EntitaVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY, tipo, riga) && ColoreDi(s, tipo, riga, colore)) {
    SelezionaColore(s, colore);
    DopoSelezione(s);
  }
  TornaAlDialogo(s);
}

void PrendiPiano(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1;
  std::string piano;
  if (!EntitaVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY, tipo, riga) || !PianoDi(s, tipo, riga, piano)) {
    TornaAlDialogo(s);
    return;
  }
  s.FaseSelezione = 0;
  s.PianoDaSelezionare = Rifila(piano);
  ApriSelezPerPiano(s);
}

// A click on one entity of any kind, of the facets or of the images.
void Alterna(Sessione& s, uint8_t tipo, int32_t riga) {
  if (riga < 0) return;
  Scrivi(s, tipo, riga);
  DopoSelezione(s);
}

void Finestra(Sessione& s) {
  StatoVista& v = s.Vista;
  if (v.PrimoPuntoZoom == 0) {
    v.ModoZoom = ZoomFinestra;
    v.PrimoZoomEst = s.PuntoCorrenteX;
    v.PrimoZoomNord = s.PuntoCorrenteY;
    v.PrimoPuntoZoom = 255;
    MostraPrompt(s, "Secondo punto per Finestra : ");
    return;
  }
  const bool punti = s.SottoFaseSelezione == 6;
  SelezionaFinestra(s, v.PrimoZoomEst, v.PrimoZoomNord, s.PuntoCorrenteX, s.PuntoCorrenteY, punti);
  AnnullaZoom(s);
  NascondiRiquadro(s);
  s.FaseSelezione = 0;
  DopoSelezione(s);
  if (punti) {
    ApriSelezPunti(s);
  } else {
    ApriSelezentita(s);
  }
}

int16_t AzioneDaTagDN(const std::string& tag) {
  if (tag == "ALTEZZA_NOME") return 111;
  if (tag == "ALTEZZA_SIMBOLO") return 117;
  if (tag == "ALTEZZA_QUOTA") return 122;
  if (tag == "ALTEZZA_DESCRIZIONE") return 126;
  return 0;
}

// The dialog put away: the clicks go back to the drawing and no action waits.
void ChiudiSelezPunti(Sessione& s) {
  ChiudiDialogo(s, kSelezPunti);
  s.AzionePuntiInAttesa = 0;
  s.SottoFaseSelezione = 0;
  s.FaseSelezione = 0;
}

// The live points selected, in table order.
std::vector<int32_t> PuntiSelezionati(const Sessione& s) {
  std::vector<int32_t> righe;
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    if (s.StatoPunto[static_cast<size_t>(r)] == 1 && IdentVivo(s.PuntoIdent[static_cast<size_t>(r)]))
      righe.push_back(r);
  return righe;
}

// The action of `SelezPunti` over the points selected.
void EseguiSelezPunti(Sessione& s) {
  const int32_t azione = s.AzionePuntiInAttesa;
  if (ContaPuntiSelezionati(s) == 0) {
    s.Ui->Messaggio("Attenzione!! Nessun Punto Selezionato", "Selezione Punti", Icona::Avviso);
    return;
  }
  if (azione == 253 || azione == 254) {
    // The hand-off to the triangulator consumes the selection; the dialog's work is done.
    // 254 keeps the facets there and adds the new ones.
    ChiudiSelezPunti(s);
    if (!VR_TriangolaPunti(s, azione == 253)) Ridisegna(s);
    AzzeraSelezione(s);
    return;
  }
  if (azione == kAzioneEsportaPunti) {
    if (const Dialogo* d = TrovaDialogo(s, kSelezPunti); d && d->Campo("Decimali"))
      ImpostaDecimaliEsportazione(s, InteroLungo(d->Numero("Decimali")));
    // The export goes on with its file only once the selection is off the screen.
    const std::vector<int32_t> righe = PuntiSelezionati(s);
    ChiudiSelezPunti(s);
    AzzeraSelezione(s);
    Ridisegna(s);
    EsportaPuntiScelti(s, righe);
    return;
  }
  if (const Dialogo* d = TrovaDialogo(s, kSelezPunti); d && d->Campo("Simbolo"))
    s.SimboloCorrente = InteroCorto(d->Numero("Simbolo"));
  bool fatto = false;
  for (const int32_t r : PuntiSelezionati(s)) {
    const auto k = static_cast<size_t>(r);
    switch (azione) {
      case 113: s.PuntoIdent[k] = -1; break;
      case 118: s.PuntoSimbolo[k] = s.SimboloCorrente; break;
      case 111: s.PuntoDimensioneNome[k] = s.DimensioneEtichetta; break;
      case 117: s.PuntoDimensioneSimbolo[k] = s.DimensioneEtichetta; break;
      case 122: s.PuntoDimensioneQuota[k] = s.DimensioneEtichetta; break;
      case 126: s.PuntoDimensioneDescrizione[k] = s.DimensioneEtichetta; break;
      default: continue;
    }
    fatto = true;
  }
  ChiudiSelezPunti(s);
  AzzeraSelezione(s);
  if (fatto) {
    SegnaModificato(s, SlotPunti);
    FineModifica(s);
  } else {
    Ridisegna(s);
  }
}

void AnnullaSelezPunti(Sessione& s) {
  ChiudiSelezPunti(s);
  AnnullaZoom(s);
  AzzeraSelezione(s);
  Ridisegna(s);
}

int64_t PuntiPerNome(Sessione& s, bool (*prendi)(const std::string&)) {
  int64_t n = 0;
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    if (Selezionabile(s, SlotPunti, r) && prendi(Rifila(s.PuntoNome[static_cast<size_t>(r)]))) {
      MarcaEntita(s, SlotPunti, r);
      ++n;
    }
  return n;
}

}  // namespace

std::string TitoloSelezione(int32_t codice) {
  switch (codice) {
    case 138: return "Cambia Elimina ";
    case 139: return "Cambia - Colore";
    case 140: return "Cambia - Congela";
    case 141: return "Cambia - Scongela";
    case 142: return "Cambia Copia ";
    case 143: return "Cambia Sposta ";
    case 144: return "Cambia Scala ";
    case 146: return "Cambia Ruota ";
    case 147: return "Cambia Specchio ";
    case 148: return "Cambia - Tratteggio";
    case 163: return "Cambia - Piano";
    case 192: return "Rototraslazione con Selezione-Seleziona Entità";
    case 216: return "Cambia - Quota";
    case 218: return "Copia Comandi Per Cad.";
    case 246: return "Punti Estremo Linea-Seleziona Linee";
    case 256: return "Simbolo Nuovo-Seleziona Linee";
    case 265: return "Crea Gruppo - Seleziona Entità";
    case 327: return "Lista Falde ";
    case 414: return "Cambia Allinea ";
    default: return "Seleziona Entità";
  }
}

void DopoSelezione(Sessione& s) {
  SpecchiaSelezione(s);
  Ridisegna(s);
  s.ContaSelezione = ContaSelezionati(s);
  AggiornaCampo(s, kSelezentita, "Selezione", std::to_string(s.ContaSelezione));
  AggiornaCampo(s, kSelezPunti, "Selezione", std::to_string(ContaPuntiSelezionati(s)));
}

bool ApriSelezentita(Sessione& s) {
  s.PuntiInSelezione = Val(LeggiImpostazioneUtente(s, "SELEZIONE", "PUNTI", "1")) != 0 ? 1 : 0;
  s.SelezioneConfermata = false;
  // The dialog back on screen ends any picking on the drawing.
  s.FaseSelezione = 0;
  if (s.Vista.ModoZoom == ZoomFinestra) {
    AnnullaZoom(s);
    NascondiRiquadro(s);
  }
  s.ContaSelezione = ContaSelezionati(s);
  Dialogo d;
  d.Nome = kSelezentita;
  d.Titolo = TitoloSelezione(s.ComandoCorrente);
  d.AggiungiCampo("Selezione", "Selezione Entità= ", std::to_string(s.ContaSelezione))
      .AggiungiCampo("Punti", "", TestoPunti(s))
      .AggiungiCampo("Modo", "", TestoModo(s));
  d.AggiungiBottone("Singola", "Seleziona Entità", Azione([](Sessione& x) {
    Raccogli(x, 1, "Seleziona Entità (ESC/Dx Mouse - Interrompe): ");
  }));
  d.AggiungiBottone("Finestra", "Finestra", Azione([](Sessione& x) {
    ChiudiDialogo(x, kSelezentita);
    ArmaFinestra(x, "Primo punto per Finestra : ");
  }));
  d.AggiungiBottone("Tutto", "Tutto", Azione([](Sessione& x) {
    SelezionaTutto(x);
    DopoSelezione(x);
  }));
  d.AggiungiBottone("Colore", "Per Colore", Azione([](Sessione& x) {
    Raccogli(x, 4, "Seleziona Colore - Indica il Colore : ");
  }));
  d.AggiungiBottone("Piano", "Per Piano", Azione([](Sessione& x) {
    Raccogli(x, 5, "Seleziona Piano - Indica il Piano : ");
  }));
  d.AggiungiBottone("Falde", "Falde", Azione([](Sessione& x) {
    Raccogli(x, 6, "Seleziona Falda - Indica una Falda : ");
  }));
  d.AggiungiBottone("Immagini", "Immagini", Azione([](Sessione& x) {
    Raccogli(x, 13, "Seleziona Immagine - Indica una Immagine :");
  }));
  d.AggiungiBottone("Ultima", "Ultima Selezione", Azione([](Sessione& x) {
    if (CaricaUls(x)) DopoSelezione(x);
  }));
  d.AggiungiBottone("PuntiSiNo", TestoPunti(s), Azione([](Sessione& x) { AlternaPunti(x); }));
  static constexpr struct {
    const char* Nome;
    const char* Etichetta;
    int Tipo;
  } kGeneri[] = {{"TuttiPunti", "Tutti i Punti", SlotPunti},  {"TutteLinee", "Tutte le Linee", SlotLinee},
                 {"TuttiCerchi", "Tutti i Cerchi", SlotCerchi}, {"TuttiArchi", "Tutti gli Archi", SlotArchi},
                 {"TuttiTesti", "Tutti i Testi", SlotTesti},  {"TutteFalde", "Tutte le Falde", SlotFalde}};
  for (const auto& g : kGeneri) {
    const int tipo = g.Tipo;
    d.AggiungiBottone(g.Nome, g.Etichetta, Azione([tipo](Sessione& x) {
      SelezionaGenere(x, tipo);
      DopoSelezione(x);
    }));
  }
  d.AggiungiBottone("Contorni", "Contorni", Azione([](Sessione& x) {
    SelezionaGenere(x, SlotCurve);
    DopoSelezione(x);
  }));
  d.AggiungiBottone("Annulla", "Annulla", Azione([](Sessione& x) {
    x.FaseSelezione = 0;
    InterrompiComando(x);
  }));
  d.AggiungiBottone("OK", "OK", Azione([](Sessione& x) { ConfermaSelezione(x); }));
  d.AggiungiBottone("AggiungiTogli", "Aggiungi/Togli", Azione([](Sessione& x) { AlternaModo(x, kSelezentita); }));
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriSelezPerPiano(Sessione& s) {
  Dialogo d;
  d.Nome = "SelezPerPiano";
  d.Titolo = "Seleziona Piano";
  std::string elenco;
  for (const Piano& p : s.Piani) elenco += p.Nome + "\n";
  d.AggiungiCampo("Piano", "Piano :", s.PianoDaSelezionare).AggiungiCampo("Elenco", "", elenco);
  d.AggiungiBottone("OK", "OK", Azione([](Sessione& x) {
    const Dialogo* dd = TrovaDialogo(x, "SelezPerPiano");
    const std::string piano = dd ? Rifila(dd->Valore("Piano")) : std::string();
    ChiudiDialogo(x, "SelezPerPiano");
    if (!piano.empty()) {
      SelezionaPiano(x, piano);
      DopoSelezione(x);
    }
    TornaAlDialogo(x);
  }));
  d.AggiungiBottone("Annulla", "Annulla", Azione([](Sessione& x) {
    ChiudiDialogo(x, "SelezPerPiano");
    TornaAlDialogo(x);
  }));
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriSelezPunti(Sessione& s) {
  // A click now toggles the nearest point; the dialog back ends any window in progress.
  s.SottoFaseSelezione = 1;
  s.FaseSelezione = 0;
  if (s.Vista.ModoZoom == ZoomFinestra) {
    AnnullaZoom(s);
    NascondiRiquadro(s);
  }
  Dialogo d;
  d.Nome = kSelezPunti;
  d.Titolo = "Selezione Punti";
  d.AggiungiCampo("Selezione", "Selezione Punti = ", std::to_string(ContaPuntiSelezionati(s)))
      .AggiungiCampo("Modo", "", TestoModo(s));
  if (s.AzionePuntiInAttesa == 118) d.AggiungiCampo("Simbolo", "Simbolo :", std::to_string(s.SimboloCorrente));
  if (s.AzionePuntiInAttesa == kAzioneEsportaPunti)
    d.AggiungiCampo("Decimali", "Decimali :", std::to_string(DecimaliEsportazione(s)));
  auto azione = [](auto fai) {
    return [fai](Sessione& x) {
      x.RoutineCorrente = "SelezPunti";
      Protetto(x, [&] { fai(x); });
    };
  };
  d.AggiungiBottone("Finestra", "Finestra", azione([](Sessione& x) {
    ChiudiDialogo(x, kSelezPunti);
    x.SottoFaseSelezione = 6;
    ArmaFinestra(x, "Primo punto per Finestra : ");
  }));
  d.AggiungiBottone("Tutti", "Tutti", azione([](Sessione& x) {
    PuntiPerNome(x, [](const std::string&) { return true; });
    DopoSelezione(x);
  }));
  d.AggiungiBottone("PF", "Punti PF", azione([](Sessione& x) {
    PuntiPerNome(x, [](const std::string& n) { return IniziaCon(n, "PF"); });
    DopoSelezione(x);
  }));
  d.AggiungiBottone("Stazioni", "Stazioni", azione([](Sessione& x) {
    // "000" ends in "00" as well.
    PuntiPerNome(x, [](const std::string& n) { return FinisceCon(n, "00"); });
    DopoSelezione(x);
  }));
  d.AggiungiBottone("Salva", "Salva", azione([](Sessione& x) { SalvaSelePunt(x); }));
  d.AggiungiBottone("Carica", "Carica", azione([](Sessione& x) {
    CaricaSelePunt(x);
    DopoSelezione(x);
  }));
  d.AggiungiBottone("AggiungiTogli", "Aggiungi/Togli", azione([](Sessione& x) { AlternaModo(x, kSelezPunti); }));
  d.AggiungiBottone("OK", "OK", azione([](Sessione& x) { EseguiSelezPunti(x); }));
  d.AggiungiBottone("Annulla", "Annulla", azione([](Sessione& x) { AnnullaSelezPunti(x); }));
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

bool ApriDN(Sessione& s) {
  const int16_t azione = AzioneDaTagDN(s.ComandoTag);
  Dialogo d;
  d.Nome = "DN";
  d.Titolo = "Dimensione Etichette";
  d.AggiungiCampo("Dimensione", "Dimensione :", FormaSemplice(s.DimensioneEtichetta));
  d.AggiungiBottone("OK", "OK", [azione](Sessione& x) {
    const Dialogo* dd = TrovaDialogo(x, "DN");
    if (!dd) return;
    x.DimensioneEtichetta = dd->Numero("Dimensione");
    ChiudiDialogo(x, "DN");
    // The size is written into the points chosen next.
    x.AzionePuntiInAttesa = azione;
    if (azione != 0) ApriSelezPunti(x);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "DN"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

void ClicDiSelezione(Sessione& s) {
  s.RoutineCorrente = "ClicSelezione";
  const double x = s.PuntoCorrenteX, y = s.PuntoCorrenteY;
  switch (s.FaseSelezione) {
    case 1: {
      uint8_t tipo = 0;
      int32_t riga = -1;
      if (EntitaVicina(s, x, y, tipo, riga)) Alterna(s, tipo, riga);
      break;
    }
    case 2: Finestra(s); break;
    case 4: PrendiColore(s); break;
    case 5: PrendiPiano(s); break;
    case 6: {
      const Vicina v = IlPiuVicinoFalda(s, x, y);
      if (v.RigaLista >= 0) Alterna(s, SlotFalde, s.ListaDisegno.Riga[static_cast<size_t>(v.RigaLista)]);
      break;
    }
    case 12: Alterna(s, SlotSezioni, RigaSezioneVicina(s, x, y)); break;
    case 13: Alterna(s, SlotBitmap, IlPiuVicinoBitMap(s, x, y).Riga); break;
    case 7:
    case 8: break;  // contours are picked through their own commands
    default: {
      uint8_t tipo = 0;
      int32_t riga = -1;
      if (EntitaVicina(s, x, y, tipo, riga)) subEditaEntita(s, tipo, riga);
      break;
    }
  }
}

void ClicSelezPunti(Sessione& s, double x, double y) {
  const Vicina v = IlPiuVicinoPunto(s, x, y);
  if (v.Riga < 0) return;
  Scrivi(s, SlotPunti, v.Riga);
  // Points are painted from their table: a redraw shows the change.
  Ridisegna(s);
  AggiornaCampo(s, kSelezPunti, "Selezione", std::to_string(ContaPuntiSelezionati(s)));
}

}  // namespace varena
