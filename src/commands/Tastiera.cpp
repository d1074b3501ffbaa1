// `Comandi a Mano`: the keys of the main window, in the order they are tested.
#include "commands/Tastiera.h"

#include "commands/Comandi.h"
#include "commands/Puntatore.h"
#include "commands/TabellaComandi.h"
#include "commands/TabellaDialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Snap.h"
#include "view/Ridisegna.h"
#include "view/Zoom.h"

namespace varena {

namespace {

// What a tag does at once, without the closing of dialogs of the dispatcher: a key of the
// main window leaves the command's dialogs open.
void AzioneDiTag(Sessione& s, std::string_view tag) {
  const VoceComando* v = CercaTag(tag);
  if (!v) return;
  s.ComandoTag = std::string(tag);
  if (v->Azione)
    v->Azione(s);
  else if (!v->Dialogo.empty())
    ApriDialogoDiTabella(s, v->Dialogo);
}

bool TastiVista(Sessione& s, const EventoTasto& e) {
  switch (e.T) {
    case Tasto::NumPiu:
      if (!e.Ctrl) return false;
      [[fallthrough]];
    case Tasto::PagSu: EseguiSeguito(s, ZoomPasso(s, PassoZoom::Avanti)); return true;
    case Tasto::NumMeno:
      if (!e.Ctrl) return false;
      [[fallthrough]];
    case Tasto::PagGiu: EseguiSeguito(s, ZoomPasso(s, PassoZoom::Indietro)); return true;
    case Tasto::Fine: Ridisegna(s); return true;
    case Tasto::Su: EseguiSeguito(s, ZoomPasso(s, PassoZoom::Su)); return true;
    case Tasto::Giu: EseguiSeguito(s, ZoomPasso(s, PassoZoom::Giu)); return true;
    case Tasto::Sinistra: EseguiSeguito(s, ZoomPasso(s, PassoZoom::Sinistra)); return true;
    case Tasto::Destra: EseguiSeguito(s, ZoomPasso(s, PassoZoom::Destra)); return true;
    case Tasto::Ins: EseguiSeguito(s, TuttoTutto(s)); return true;
    case Tasto::Inizio: EseguiSeguito(s, VistaPrecedente(s)); return true;
    case Tasto::F8: s.Ortogonale = s.Ortogonale != 0 ? 0 : -1; return true;
    case Tasto::Spazio:
      if (!e.Ctrl) return false;
      EseguiSeguito(s, CentraSulPuntatore(s));
      return true;
    case Tasto::Carattere:
      if (e.Ctrl && e.Carattere == 'R') {
        Ridisegna(s);
        return true;
      }
      return false;
    default: return false;
  }
}

// Key D at step 1 of the point and the line: a point at a typed distance from the last one,
// towards the pointer.
void DistanzaDigitata(Sessione& s) {
  const auto testo = s.Ui->Imputa("Distanza :", "Distanza", "");
  if (!testo) return;
  const double d = Val(VirgolaInPunto(*testo));
  const double az = AzimutDistanza(s.Punto1X, s.Punto1Y, s.Vista.PuntatoreEst, s.Vista.PuntatoreNord).Azimut;
  const PuntoXYZ p = Polare(s.Punto1X, s.Punto1Y, az, d);
  s.PuntoCorrenteX = p.X;
  s.PuntoCorrenteY = p.Y;
  s.PuntoCorrenteZ = s.Punto1Z;
  s.PuntoCorrenteNome = "*";
  s.PuntoCorrenteIndice = -1;
  Disegno(s);
}

bool LetteraDiSnap(Sessione& s, char c) {
  if (c == 'D') {
    if (s.PassoComando != 1) {
      ImpostaSnap(s, SnapDistanza);
    } else if (s.ComandoCorrente == 1 || s.ComandoCorrente == 2) {
      ChiudiSnapPunto(s);
      DistanzaDigitata(s);
    }
    return true;
  }
  const int16_t modo = ModoDaLettera(c);
  if (modo < 0) return false;
  ImpostaSnap(s, modo);
  return true;
}

bool TastiFunzione(Sessione& s, Tasto t) {
  switch (t) {
    case Tasto::F1: ApriDialogoDiTabella(s, "FormComandi"); return true;
    case Tasto::F4: EseguiTag(s, "DISEGNA_PARALLELA"); return true;
    case Tasto::F5: AzioneDiTag(s, "MENU_DESCRIZIONI"); return true;
    case Tasto::F6: AzioneDiTag(s, "MENU_TRATTEGGI"); return true;
    case Tasto::F7: AzioneDiTag(s, "MENU_PIANI"); return true;
    case Tasto::F9: AzioneDiTag(s, "ANNULLA"); return true;
    case Tasto::F10: AzioneDiTag(s, "REDO"); return true;
    case Tasto::F12: AzioneDiTag(s, "SALVA_VELOCE"); return true;
    case Tasto::NumDiviso: ApriZoomScala(s); return true;
    default: return false;
  }
}

void Esc(Sessione& s) {
  if (s.Vista.ModoZoom != ZoomNessuno) {
    // A zoom waiting for its point is taken back alone, as with the right button.
    AnnullaZoom(s);
    NascondiRiquadro(s);
    NascondiLinea(s, s.Elastico.GuidaLinea);
    MostraPrompt(s, s.Vista.PromptSalvato);
    return;
  }
  if (s.AzionePuntiInAttesa != 0) {
    // The selection of points brings its dialog back, whatever command stands.
    ApriDialogoDiTabella(s, "SelezPunti");
  } else if (s.ComandoCorrente == 0) {
    RipetiComando(s);
  } else if (s.FaseSelezione == 0) {
    InterrompiComando(s);
  } else {
    ApriDialogoDiTabella(s, "Selezentita");
  }
}

bool TastoInterno(Sessione& s, const EventoTasto& e, bool casellaAttiva) {
  if (TastiVista(s, e)) return true;
  if (e.T != Tasto::Esc && casellaAttiva) return false;
  Dialogo* d = TrovaDialogo(s, "formEditaPunto");
  if (!d) d = TrovaDialogo(s, "FormEditModifica1");
  if (d) {
    if (e.T == Tasto::Canc) {
      PremiBottone(s, d->Nome, "Elimina");
      return true;
    }
    if (e.T == Tasto::Esc) {
      InterrompiComando(s);
      return true;
    }
  }
  if (e.T == Tasto::Carattere && !e.Ctrl && s.ComandoCorrente != 0 && LetteraDiSnap(s, e.Carattere)) return true;
  if (TastiFunzione(s, e.T)) return true;
  if (e.T == Tasto::Esc) {
    Esc(s);
    return true;
  }
  return false;
}

}  // namespace

bool TastoGiu(Sessione& s, const EventoTasto& e, bool casellaAttiva) {
  s.RoutineCorrente = "Comandi a Mano";
  bool usato = false;
  Protetto(s, [&] { usato = TastoInterno(s, e, casellaAttiva); });
  return usato;
}

void InvioCasella(Sessione& s, std::string_view testo) {
  s.RoutineCorrente = "Text1_KeyPress";
  Protetto(s, [&] {
    const std::string t = Rifila(testo);
    if (t.size() == 2 && t[0] == '_') {
      AlternaVisualizzazione(s, Maiuscolo(t.substr(1))[0]);
      return;
    }
    EseguiSeguito(s, CentraSuPunto(s, t));
  });
}

}  // namespace varena
