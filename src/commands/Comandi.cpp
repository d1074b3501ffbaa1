// `Esegui_Comando_TAG`, `ArmaComando`, `InterrompiComando` and the snap modes of the keys
// and tags.
#include "commands/Comandi.h"

#include <algorithm>
#include <string>
#include <vector>

#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/TabellaComandi.h"
#include "commands/TabellaDialoghi.h"
#include "core/Errori.h"
#include "core/Salvaini.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

constexpr std::string_view kDialoghiLavoro[] = {
    "FormSelezionaContorno", "SpostaInquadramento", "FormEditModifica1", "FormDivisioneAree",
    "FormInfoDistanza",      "formEditaPunto",      "FormEditCambia",    "ContornoSette",
    "Lavori_Aperti",         "Selezentita",         "ElencoPunti",       "MenuSimboli",
    "SelezPunti",            "NuovoPunto",          "SnapPunto",         "Sezioni",
};

// The dialogs in which the point of the next click is typed belong with `SnapPunto`.
constexpr std::string_view kDialoghiSnap[] = {"SnapPunto",        "SnapNEQ",         "SnapRNEQ",
                                              "FormSnapPolare",   "FormSnapApertura", "VR_MemoPuntiSnap"};

void ArmaDaVoce(Sessione& s, const VoceComando& v) {
  // These two start from a clean state: the command before them ends first.
  if (v.Tag == "DISEGNA_CAMPITURA" || v.Tag == "G") InterrompiComando(s);
  s.ComandoCorrente = v.Codice;
  s.VoceArmata = IndiceVoce(&v);
  ArmaComando(s);
}

bool ColoreRapido(const std::string& tag) { return tag.find("COLORE_") != std::string::npos && tag.size() < 11; }

void EseguiInterno(Sessione& s) {
  s.ComandoTag = Maiuscolo(s.ComandoTag);
  const std::string tag = s.ComandoTag;
  if (s.Imp.INFOCOMANDI != 0) ApriDialogoDiTabella(s, "FormComandi");
  const VoceComando* v = CercaTag(tag);

  if (v && v->Genere == GenereComando::Zoom) {
    s.ZoomFatto = 1;
    if (v->Azione) v->Azione(s);
  }
  if (s.ZoomFatto) {
    s.ZoomFatto = 0;
    return;
  }

  if (v && v->Genere == GenereComando::Snap) {
    ImpostaSnap(s, v->Codice);
    s.SnapFatto = 1;
  }
  // Any "SNAP_" tag stops here, a mistyped one too: it neither acts nor closes dialogs.
  if (tag.compare(0, 5, "SNAP_") == 0) s.SnapFatto = 1;
  if (s.SnapFatto) {
    s.SnapFatto = 0;
    return;
  }

  if (tag == "CONFIGURAZIONE") {
    ApriDialogoDiTabella(s, "Configurazione");
    return;
  }
  if (tag != "FINE_CONTORNO") ChiudiDialoghiLavoro(s);

  if (ColoreRapido(tag)) {
    const auto pezzi = Dividi(tag, '_');
    s.Imp.Colore_Default = InteroLungo(Val(pezzi.size() > 1 ? pezzi[1] : std::string()));
    SalvaImpostazioniComando(s);
    if (s.ComandoCorrente == 0) {
      s.ComandoCorrente = 307;
      s.VoceArmata = -1;
      ArmaComando(s);
    }
    return;
  }

  if (!v) return;
  if (v->Genere == GenereComando::Arma) {
    ArmaDaVoce(s, *v);
  } else if (v->Azione) {
    v->Azione(s);
  } else if (!v->Dialogo.empty()) {
    ApriDialogoDiTabella(s, v->Dialogo);
  }
}

const VoceComando* VoceArmata(const Sessione& s) {
  const auto tabella = TabellaComandi();
  if (s.VoceArmata >= 0 && static_cast<size_t>(s.VoceArmata) < tabella.size() &&
      tabella[static_cast<size_t>(s.VoceArmata)].Codice == s.ComandoCorrente &&
      tabella[static_cast<size_t>(s.VoceArmata)].Genere == GenereComando::Arma)
    return &tabella[static_cast<size_t>(s.VoceArmata)];
  return VocePerCodice(s.ComandoCorrente);
}

template <class Colonna>
void Azzera(Colonna& c) {
  std::fill(c.begin(), c.end(), 0);
}

}  // namespace

void Esegui_Comando_TAG(Sessione& s) {
  s.RoutineCorrente = " Esegui_Comando_TAG";
  Protetto(s, [&] { EseguiInterno(s); });
}

void EseguiTag(Sessione& s, std::string_view tag) {
  s.ComandoTag = std::string(tag);
  Esegui_Comando_TAG(s);
}

void ArmaComando(Sessione& s) {
  s.FaseSelezione = 0;
  s.PassoComando = 0;
  s.FaseIncrocio = 0;
  ChiudiSnapPunto(s);
  s.ModoSnap = s.UltimoSnap == SnapNodo ? int16_t{SnapLibero} : s.UltimoSnap;
  // The mode of the command before: it lasts one click, as one asked by a key.
  s.SnapDaTasto = s.ModoSnap != SnapLibero;
  if (s.ComandoCorrente == 0) {
    if (s.ModoSnap < 1) s.ModoSnap = SnapLibero;
    return;
  }
  const VoceComando* voce = VoceArmata(s);
  s.VoceArmata = IndiceVoce(voce);
  if (voce && !voce->Dialogo.empty()) {
    if (voce->Dialogo == "Imputa") {
      const auto valore = s.Ui->Imputa(voce->Domanda, voce->Voce, s.ValoreImputato);
      if (!valore) {
        s.ComandoCorrente = 0;
        return;
      }
      s.ValoreImputato = *valore;
    } else if (!DialogoAperto(s, voce->Dialogo) && !ApriDialogoDiTabella(s, voce->Dialogo)) {
      s.ComandoCorrente = 0;
      return;
    }
  }
  // A choice the command asks first (a layer, a line type, a colour) comes before the
  // selection: its answer opens `Selezentita` (`DialogoInizialeRisposto`).
  const std::string_view iniziale = DialogoIniziale(s);
  const bool attende = !iniziale.empty() && DialogoAperto(s, iniziale);
  if (CodiceDiSelezione(s.ComandoCorrente) && !attende && !DialogoAperto(s, "Selezentita") &&
      !ApriDialogoDiTabella(s, "Selezentita")) {
    s.ComandoCorrente = 0;
    return;
  }
  const SchedaCodice* scheda = SchedaPerCodice(s.ComandoCorrente);
  if (scheda && scheda->PromptDinamico)
    MostraPrompt(s, scheda->PromptDinamico(s));
  else
    MostraPrompt(s, voce ? voce->Prompt : std::string_view());
  if (voce && voce->Snap != kSnapInVigore) {
    s.ModoSnap = voce->Snap;
    s.SnapDaTasto = false;
  }
  if (s.ModoSnap < 1) s.ModoSnap = SnapLibero;
}

void InterrompiComando(Sessione& s) {
  s.RoutineCorrente = "InterrompiComando";
  // The redraw at the end clears the screen: the shapes need only be forgotten.
  s.Elastico = {};
  s.SpezzataTemporanea.Svuota();
  ChiudiSnapPunto(s);
  if (s.ComandoCorrente == 225) s.ComandoCorrente = 224;
  Azzera(s.StatoPunto), Azzera(s.StatoLinea), Azzera(s.StatoCerchio), Azzera(s.StatoArco), Azzera(s.StatoTesto);
  Azzera(s.StatoFalda), Azzera(s.StatoCurva), Azzera(s.StatoBitmap);
  s.UltimoComando = s.ComandoCorrente;
  s.UltimaVoce = s.VoceArmata;
  s.UltimoSnap = s.ModoSnap;
  s.ModoSnap = SnapLibero;
  s.SnapDaTasto = false;
  s.ComandoCorrente = 0;
  s.PassoComando = 0;
  s.VoceArmata = -1;
  s.ComandoSospeso = 0;
  MostraPrompt(s, "");
  s.LetturaSegmento.clear();
  s.EtichettaSnap.clear();
  s.Suggerimento.Visibile = false;
  AnnullaZoom(s);
  s.AzionePuntiInAttesa = 0;
  s.FaseSelezione = 0;
  s.SottoFaseSelezione = 0;
  s.FaseIncrocio = 0;
  s.PuntoInDialogo = 0;
  SalvaImpostazioniComando(s);
  ChiudiDialoghiLavoro(s);
  Azzera(s.ListaDisegno.Stato);
  Ridisegna(s);
}

std::string_view DialogoIniziale(const Sessione& s) {
  const VoceComando* v = s.ComandoCorrente != 0 ? VoceArmata(s) : nullptr;
  // The value prompt is asked and answered within the arming: nothing waits for it.
  if (!v || v->Dialogo == "Imputa") return {};
  return v->Dialogo;
}

void DialogoInizialeRisposto(Sessione& s, std::string_view dialogo, bool confermato) {
  const std::string_view iniziale = DialogoIniziale(s);
  if (iniziale.empty() || !UgualeSenzaCaso(iniziale, dialogo)) return;
  if (!confermato) {
    InterrompiComando(s);
    return;
  }
  if (CodiceDiSelezione(s.ComandoCorrente) && !DialogoAperto(s, "Selezentita") &&
      !ApriDialogoDiTabella(s, "Selezentita"))
    s.ComandoCorrente = 0;
}

void RipetiComando(Sessione& s) {
  if (s.UltimoComando == 0) return;
  s.ComandoCorrente = s.UltimoComando;
  // The row of the tag that armed it: two tags of one code may open different dialogs.
  s.VoceArmata = s.UltimaVoce;
  ArmaComando(s);
}

void ChiudiDialoghiLavoro(Sessione& s) {
  for (std::string_view nome : kDialoghiLavoro) ChiudiDialogo(s, nome);
  // The dialogs a command opened for its own measures go with it.
  std::vector<std::string> diLavoro;
  for (const auto& d : s.Dialoghi)
    if (d->DiLavoro) diLavoro.push_back(d->Nome);
  for (const std::string& nome : diLavoro) ChiudiDialogo(s, nome);
  ChiudiSnapPunto(s);
}

void ChiudiSnapPunto(Sessione& s) {
  for (std::string_view nome : kDialoghiSnap) ChiudiDialogo(s, nome);
}

void EseguiSeguito(Sessione& s, Seguito seguito) {
  switch (seguito) {
    case Seguito::Ridisegno: Ridisegna(s); break;
    case Seguito::Rigenerazione: Rigenerazione1(s); break;
    case Seguito::Nessuno: break;
  }
}

void SalvaImpostazioniComando(Sessione& s) {
  if (!s.CartellaLavoro.empty()) ScriviSalvaini(s);
}

void AlternaVisualizzazione(Sessione& s, char tag) {
  const char* chiave = nullptr;
  switch (tag) {
    case 'N': chiave = "PUNTISINO"; break;
    case 'Q': chiave = "QUOTESINO"; break;
    case 'S': chiave = "SIMBOLISINO"; break;
    case 'W': chiave = "DESCRIZIONESINO"; break;
    case 'L': chiave = "LINEESINO"; break;
    case 'A': chiave = "PFSTAZSINO"; break;
    default: return;
  }
  const double prima = Val(LeggiImpostazioneUtente(s, "VISUALIZZA", chiave, "1"));
  const int nuovo = prima == 0 ? 1 : 0;
  ScriviImpostazioneUtente(s, "VISUALIZZA", chiave, std::to_string(nuovo));
  const int16_t congela = nuovo == 1 ? 0 : -1;
  SegnaModificato(s, tag == 'L' ? SlotLinee : SlotPunti);
  if (tag == 'L') {
    for (int32_t r = 0; r < s.ContaEntita[SlotLinee]; ++r)
      if (IdentVivo(s.LineaIdent[static_cast<size_t>(r)])) s.LineaCongela[static_cast<size_t>(r)] = congela;
  } else {
    for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
      const auto k = static_cast<size_t>(r);
      if (!IdentVivo(s.PuntoIdent[k])) continue;
      switch (tag) {
        case 'N': s.PuntoCongelaNome[k] = congela; break;
        case 'Q': s.PuntoCongelaQuota[k] = congela; break;
        case 'S': s.PuntoCongelaSimbolo[k] = congela; break;
        case 'W': s.PuntoCongelaDescrizione[k] = congela; break;
        default: {
          // The fiducial points and the stations keep their names on show.
          const std::string nome = Rifila(s.PuntoNome[k]);
          if (!IniziaCon(nome, "PF") && !FinisceCon(nome, "00")) s.PuntoCongelaNome[k] = congela;
          break;
        }
      }
    }
  }
  FineModifica(s);
}

}  // namespace varena
