// What the tags that act at once do, for the command table.
#pragma once

namespace varena {

struct Sessione;

// The display toggles of points and lines: the tag in `ComandoTag` (N, Q, S, W, L, A).
void AzioneVisualizza(Sessione& s);
void AzioneInterrompi(Sessione& s);
void AzioneOrtogonale(Sessione& s);
void AzioneAnteprimaFoglio(Sessione& s);
// The popup menu named by the tag, or by the letter of the command bar.
void AzioneMenu(Sessione& s);
// DN+, DN-, DS+, DS-.
void AzionePassoDimensioni(Sessione& s);
// INCOLLA_SIMBOLO, PUNTO_ELIMINA, SELEZIONA_TRIANGOLA: the pending point action.
void AzioneSelezPunti(Sessione& s);
// CATTURA_SCHERMO, CALCOLATRICE: the outside program of the tag.
void AzioneProgrammaEsterno(Sessione& s);
// CONFIGURA_ESTRATTO, COLORE_ESTRATTO without an associated extract.
void AzioneEstrattoNonAssociato(Sessione& s);

// The job: undo, redo, save, save as, a new empty job.
void AzioneAnnulla(Sessione& s);
void AzioneRipristina(Sessione& s);
void AzioneSalva(Sessione& s);
void AzioneSalvaConNome(Sessione& s);
void AzioneNuovoVuoto(Sessione& s);

// Zoom tags.
void AzioneZoomTutto(Sessione& s);
void AzioneZoomFinestra(Sessione& s);
void AzioneZoomSposta(Sessione& s);
void AzioneZoomCentro(Sessione& s);
void AzioneZoomRiquadro(Sessione& s);
void AzioneZoomScala(Sessione& s);
void AzioneZoomRichiama(Sessione& s);
void AzioneZoomMemorizza(Sessione& s);
void AzioneZoomEstratto(Sessione& s);
void AzioneZoomSu(Sessione& s);
void AzioneZoomGiu(Sessione& s);
void AzioneZoomSinistra(Sessione& s);
void AzioneZoomDestra(Sessione& s);
void AzioneZoomAvanti(Sessione& s);
void AzioneZoomIndietro(Sessione& s);
void AzioneZoomPrecedente(Sessione& s);
void AzioneRidisegna(Sessione& s);
void AzioneCentraPuntatore(Sessione& s);

}  // namespace varena
