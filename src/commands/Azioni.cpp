// The tags that act at once: display toggles, menus, view changes and the like.
#include "commands/Azioni.h"

#include <cmath>
#include <vector>

#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "commands/TabellaDialoghi.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena {

void AzioneVisualizza(Sessione& s) {
  if (s.ComandoTag.size() == 1) AlternaVisualizzazione(s, s.ComandoTag[0]);
}

void AzioneInterrompi(Sessione& s) { InterrompiComando(s); }

void AzioneOrtogonale(Sessione& s) { s.Ortogonale = s.Ortogonale != 0 ? 0 : -1; }

void AzioneAnteprimaFoglio(Sessione& s) {
  s.AnteprimaFoglio = !s.AnteprimaFoglio;
  Ridisegna(s);
}

void AzioneMenu(Sessione& s) {
  if (s.ComandoTag.size() != 1) {
    s.Ui->MenuContestuale(s.ComandoTag);
    return;
  }
  // The letters of the command bar name the menus of the main window.
  switch (s.ComandoTag[0]) {
    case 'C': s.Ui->MenuContestuale("MENU_CAMBIA"); break;
    case 'D': s.Ui->MenuContestuale("MENU_DISEGNO"); break;
    case 'E': s.Ui->MenuContestuale("MENU_EDIT"); break;
    case 'F': s.Ui->MenuContestuale("MENU_FILE"); break;
    case 'I': s.Ui->MenuContestuale("MENU_INFO"); break;
    case 'P': s.Ui->MenuContestuale("MENU_PUNTO"); break;
    case 'Z': s.Ui->MenuContestuale("MENU_ZOOM"); break;
    default: break;
  }
}

void AzionePassoDimensioni(Sessione& s) {
  const std::string& tag = s.ComandoTag;
  if (tag.size() != 3) return;
  // A tenth up or down; a negative size (a share of the view) keeps its sign.
  const double fattore = tag[2] == '+' ? 1.1 : 1 / 1.1;
  auto& colonna = tag[1] == 'N' ? s.PuntoDimensioneNome : s.PuntoDimensioneSimbolo;
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    if (IdentVivo(s.PuntoIdent[static_cast<size_t>(r)])) colonna[static_cast<size_t>(r)] *= fattore;
  SegnaModificato(s, SlotPunti);
  FineModifica(s, false);
}

void AzioneSelezPunti(Sessione& s) {
  const std::string& tag = s.ComandoTag;
  s.AzionePuntiInAttesa = tag == "INCOLLA_SIMBOLO" ? 118 : tag == "PUNTO_ELIMINA" ? 113 : tag == "TRIANGOLA_AGGIUNGI" ? 254 : 253;
  ApriDialogoDiTabella(s, "SelezPunti");
}

void AzioneProgrammaEsterno(Sessione& s) {
  const std::string programma = s.ComandoTag == "CALCOLATRICE" ? "calc.exe" : "ZN_Istantanea.exe";
  std::optional<int> esito;
  if (s.Proc) esito = s.Proc->Esegui(programma, {}, s.CartellaProgramma);
  if (!esito) s.Ui->Messaggio("Programma non trovato: " + programma, "Programma Esterno", Icona::Avviso);
}

void AzioneEstrattoNonAssociato(Sessione& s) {
  s.Ui->Messaggio("Impossibile continuare", "Estratto Non Associato", Icona::Nessuna);
}

namespace {

// The tables were read again: no row number of the command in progress means anything any
// more, so the command starts again from its first step.
void DopoRilettura(Sessione& s) {
  // The list already follows the tables: the reload regenerated what it read again.
  Ridisegna(s);
  if (s.ComandoCorrente != 0) ArmaComando(s);
}

}  // namespace

void AzioneAnnulla(Sessione& s) {
  if (VR_UNDO(s)) DopoRilettura(s);
}

void AzioneRipristina(Sessione& s) {
  if (VR_REDO(s)) DopoRilettura(s);
}

void AzioneSalva(Sessione& s) { Salva(s); }

void AzioneSalvaConNome(Sessione& s) {
  if (VR_SalvaConNome(s)) DopoRilettura(s);
}

void AzioneNuovoVuoto(Sessione& s) {
  // The work in hand first: saved, dropped, or the new job not made.
  if (!Rifila(s.NomeLavoro).empty() && !ChiusuraLavoro(s, false)) return;
  InterrompiComando(s);
  if (VR_CreaNuovoLavoroVuoto(s)) Rigenerazione1(s);
}

void AzioneZoomTutto(Sessione& s) { EseguiSeguito(s, TuttoTutto(s)); }
void AzioneZoomFinestra(Sessione& s) { ArmaZoom(s, ZoomFinestra); }
void AzioneZoomSposta(Sessione& s) { ArmaZoom(s, ZoomSposta); }
void AzioneZoomCentro(Sessione& s) { ArmaZoom(s, ZoomCentro); }
void AzioneZoomRiquadro(Sessione& s) { ArmaZoom(s, ZoomRiquadro); }
void AzioneZoomScala(Sessione& s) { ApriZoomScala(s); }
void AzioneZoomRichiama(Sessione& s) { EseguiSeguito(s, RichiamaMemoVista(s)); }
void AzioneZoomMemorizza(Sessione& s) { MemorizzaVista(s); }

void AzioneZoomEstratto(Sessione& s) {
  // The records of kind 14, as the extract's regeneration leaves them.
  struct Record {
    uint8_t Tipo, Primitiva;
    double X1, Y1, X2, Y2;
  };
  std::vector<Record> estratto;
  const ElencoDisegno& l = s.ListaDisegno;
  for (int64_t i = 0; i < l.Conta(); ++i) {
    const auto k = static_cast<size_t>(i);
    if (l.Tipo[k] == 14) estratto.push_back({l.Tipo[k], l.Primitiva[k], l.X1[k], l.Y1[k], l.X2[k], l.Y2[k]});
  }
  EseguiSeguito(s, ZoomEstratto(s, s.FileEstratto, s.FileImmagineEstratto, s.EstrattoCongelato,
                                s.EstrattoImmagineCongelata, std::span<const Record>(estratto)));
}

void AzioneZoomSu(Sessione& s) { EseguiSeguito(s, ZoomPasso(s, PassoZoom::Su)); }
void AzioneZoomGiu(Sessione& s) { EseguiSeguito(s, ZoomPasso(s, PassoZoom::Giu)); }
void AzioneZoomSinistra(Sessione& s) { EseguiSeguito(s, ZoomPasso(s, PassoZoom::Sinistra)); }
void AzioneZoomDestra(Sessione& s) { EseguiSeguito(s, ZoomPasso(s, PassoZoom::Destra)); }
void AzioneZoomAvanti(Sessione& s) { EseguiSeguito(s, ZoomPasso(s, PassoZoom::Avanti)); }
void AzioneZoomIndietro(Sessione& s) { EseguiSeguito(s, ZoomPasso(s, PassoZoom::Indietro)); }
void AzioneZoomPrecedente(Sessione& s) { EseguiSeguito(s, VistaPrecedente(s)); }
void AzioneRidisegna(Sessione& s) { Ridisegna(s); }
void AzioneCentraPuntatore(Sessione& s) { EseguiSeguito(s, CentraSulPuntatore(s)); }

}  // namespace varena
