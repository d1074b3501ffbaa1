// The snap modes at a click.
#include "snap/Snap.h"

#include "core/Sessione.h"
#include "core/Testo.h"
#include "snap/Incrocio.h"
#include "snap/Vicino.h"
#include "view/Ridisegna.h"

namespace varena {

namespace {

PuntoXYZ Punto1(const Sessione& s) { return {s.Punto1X, s.Punto1Y, s.Punto1Z}; }

void Prendi(Sessione& s, const PuntoXYZ& p) {
  s.PuntoCorrenteX = p.X;
  s.PuntoCorrenteY = p.Y;
  s.PuntoCorrenteZ = p.Z;
  s.UltimoPuntoCalcolato = p;
}

const RisultatoVicina& VicinaPreparata(Sessione& s) {
  const double x = s.PuntoCorrenteX, y = s.PuntoCorrenteY;
  if (!s.UltimaVicinaValida || s.UltimaVicinaX != x || s.UltimaVicinaY != y) PreparaVicina(s, x, y);
  return s.UltimaVicina;
}

EsitoSnap Nodo(Sessione& s) {
  const Vicina v = IlPiuVicinoPunto(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (v.Riga < 0) return EsitoSnap::Ignorato;
  const auto k = static_cast<size_t>(v.Riga);
  s.PuntoCorrenteX = s.PuntoX[k];
  s.PuntoCorrenteY = s.PuntoY[k];
  s.PuntoCorrenteZ = s.PuntoZ[k];
  s.PuntoCorrenteNome = Rifila(s.PuntoNome[k]);
  s.PuntoCorrenteIndice = v.Riga;
  s.TipoEntita = SlotPunti;
  s.RigaEntita = v.Riga;
  if (s.SoloPunti) {
    // Forced points: the click only names the point in the new-point dialog.
    AggiornaCampo(s, "NuovoPunto", "Nome", s.PuntoCorrenteNome);
    return EsitoSnap::Ignorato;
  }
  return EsitoSnap::Punto;
}

bool StessaEntita(const RisultatoVicina& a, const RisultatoVicina& b) {
  return a.VicinaTipo == b.VicinaTipo && a.VicinaRiga == b.VicinaRiga;
}

void Evidenzia(Sessione& s, int64_t rigaLista, int16_t stato) {
  if (rigaLista < 0 || rigaLista >= s.ListaDisegno.Conta()) return;
  s.ListaDisegno.Stato[static_cast<size_t>(rigaLista)] = stato;
}

EsitoSnap Incrocio(Sessione& s) {
  const RisultatoVicina r = LapiuvicinaBitMap(s, s.PuntoCorrenteX, s.PuntoCorrenteY, Punto1(s));
  // Points and texts have no line to cross.
  if (r.VicinaTipo == 0 || r.VicinaTipo == SlotPunti || r.VicinaTipo == SlotTesti) return EsitoSnap::Ignorato;
  if (s.FaseIncrocio == 0) {
    s.PrimaEntitaIncrocio = r;
    s.FaseIncrocio = 1;
    const bool soloLista = r.VicinaTipo == SlotFalde || r.VicinaTipo == SlotSette || r.VicinaTipo == SlotSezioni ||
                           r.VicinaTipo == 14;
    if (soloLista) {
      Evidenzia(s, r.VicinaRigaLista, 1);
      Ridisegna(s);
    }
    MostraPrompt(s, "Incrocio - Seconda Entità");
    return EsitoSnap::Ignorato;
  }
  if (StessaEntita(r, s.PrimaEntitaIncrocio)) return EsitoSnap::Ignorato;
  s.FaseIncrocio = 0;
  Evidenzia(s, s.PrimaEntitaIncrocio.VicinaRigaLista, 0);
  PuntoXYZ p;
  if (IncrociaEntita(s.PrimaEntitaIncrocio, r, s.PuntoCorrenteX, s.PuntoCorrenteY, p) >= 2) return EsitoSnap::FineComando;
  Prendi(s, p);
  return EsitoSnap::Punto;
}

}  // namespace

void PreparaVicina(Sessione& s, double x, double y) {
  s.UltimaVicina = LapiuvicinaBitMap(s, x, y, Punto1(s));
  s.UltimaVicinaValida = true;
  s.UltimaVicinaX = x;
  s.UltimaVicinaY = y;
}

namespace {

EsitoSnap RisolviModo(Sessione& s) {
  const int16_t modo = s.SoloPunti ? int16_t{SnapNodo} : s.ModoSnap;
  switch (modo) {
    case SnapNodo: return Nodo(s);
    case SnapPiede: {
      if (s.PassoComando == 0) return EsitoSnap::Ignorato;
      const RisultatoVicina& r = VicinaPreparata(s);
      if (r.VicinaTipo == 0) return EsitoSnap::Ignorato;
      Prendi(s, r.Ortogonale);
      break;
    }
    case SnapVicino:
    case SnapFine:
    case SnapCentro:
    case SnapQuadrante:
    case SnapTangente:
    case SnapMedio: {
      const RisultatoVicina& r = VicinaPreparata(s);
      if (r.VicinaTipo == 0) return EsitoSnap::Ignorato;
      switch (modo) {
        case SnapVicino: Prendi(s, r.Vicino); break;
        case SnapFine: Prendi(s, r.PiuVicinoFine); break;
        case SnapCentro: Prendi(s, r.Centro); break;
        case SnapQuadrante: Prendi(s, r.Quadrante); break;
        case SnapTangente: Prendi(s, r.Tangente); break;
        default: Prendi(s, r.Medio); break;
      }
      s.TipoEntita = r.VicinaTipo;
      s.RigaEntita = r.VicinaRiga;
      break;
    }
    case SnapIncrocio: return Incrocio(s);
    case SnapTesto: {
      const Vicina v = IlPiuVicinoTesto(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
      if (v.Riga < 0) return EsitoSnap::Ignorato;
      const auto k = static_cast<size_t>(v.Riga);
      // The height is the reference height of the job: a text has none of its own.
      Prendi(s, {s.TestoX[k], s.TestoY[k], s.QuotaRiferimento});
      s.TipoEntita = SlotTesti;
      s.RigaEntita = v.Riga;
      break;
    }
    default: break;
  }
  return EsitoSnap::Punto;
}

}  // namespace

EsitoSnap RisolviSnap(Sessione& s) {
  const EsitoSnap esito = RisolviModo(s);
  // What the move prepared serves this click only: the click may change the drawing.
  s.UltimaVicinaValida = false;
  return esito;
}

int16_t ModoDaTagSnap(std::string_view tag) {
  static constexpr struct {
    std::string_view Tag;
    int16_t Modo;
  } kTag[] = {
      {"SNAP_NODO", SnapNodo},       {"SNAP_PIEDE", SnapPiede},         {"SNAP_NEQ", SnapNEQ},
      {"SNAP_VICINO", SnapVicino},   {"SNAP_FINE", SnapFine},           {"SNAP_CENTRO", SnapCentro},
      {"SNAP_QUADRANTE", SnapQuadrante}, {"SNAP_TANGENTE", SnapTangente}, {"SNAP_INCROCIO", SnapIncrocio},
      {"SNAP_TESTO", SnapTesto},     {"SNAP_POLARE", SnapPolare},       {"SNAP_APERTURA", SnapApertura},
      {"SNAP_MEDIO", SnapMedio},     {"SNAP_RNEQ", SnapRNEQ},           {"SNAP_LIBERO", SnapLibero},
      {"MEMO_PUNTO", SnapMemoPunto}, {"RICHIAMA_MEMO", SnapRichiamaMemo},
  };
  for (const auto& t : kTag)
    if (t.Tag == tag) return t.Modo;
  return -1;
}

int16_t ModoDaLettera(char lettera) {
  switch (lettera) {
    case 'A': return SnapApertura;
    case 'B': return SnapTesto;
    case 'C': return SnapCentro;
    case 'F': return SnapFine;
    case 'H': return SnapRichiamaMemo;
    case 'I': return SnapIncrocio;
    case 'L': return SnapLibero;
    case 'M': return SnapMedio;
    case 'N': return SnapNEQ;
    case 'O': return SnapPiede;
    case 'P': return SnapNodo;
    case 'Q': return SnapQuadrante;
    case 'R': return SnapRNEQ;
    case 'T': return SnapTangente;
    case 'U': return SnapPolare;
    case 'V': return SnapVicino;
    default: return -1;
  }
}

std::string EtichettaModoSnap(const Sessione& s) {
  switch (s.ModoSnap) {
    case SnapNodo: return "  Punto Noto";
    case SnapPiede: return "  Ortogonale a ...";
    case SnapVicino: return "  Vicino a ...";
    case SnapFine: return "  Fine di ...";
    case SnapCentro: return "  Centro di ...";
    case SnapQuadrante: return "  Quadrante di ...";
    case SnapTangente: return "  Tangente a ...";
    case SnapIncrocio: return s.FaseIncrocio == 0 ? "  Prima Entità" : "  Seconda Entità";
    case SnapTesto: return "  Inserim. Testo";
    case SnapMedio: return "  Punto Medio";
    case SnapLibero: return "  Punto Libero";
    default: return {};
  }
}

}  // namespace varena
