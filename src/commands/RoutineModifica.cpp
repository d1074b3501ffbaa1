// The commands on a selection: the confirmation of `Selezentita`, the steps of copy, move,
// scale, rotate, mirror, align, height change and roto-translation, the vertical rotation
// and the folding down of a face, and the end that every one of them shares.
#include "commands/RoutineModifica.h"

#include <array>
#include <cmath>

#include "commands/Comandi.h"
#include "commands/ComandiGruppi.h"
#include "commands/DialoghiSelezione.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Incolla.h"
#include "selection/EsportaSelezione.h"
#include "selection/Selezione.h"
#include "snap/Vicino.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"
#include "view/Elastico.h"
#include "view/Ridisegna.h"
#include "view/Zoom.h"

namespace varena {

namespace {

PuntoXYZ Corrente(const Sessione& s) { return {s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ}; }
PuntoXYZ Punto1(const Sessione& s) { return {s.Punto1X, s.Punto1Y, s.Punto1Z}; }

// The end of every command on a selection: the selection goes, the snapshot is taken when
// something was done, and the command starts again with a new `Selezentita`.
void FineLavoro(Sessione& s, bool fatto) {
  AzzeraSelezione(s);
  if (fatto)
    FineModifica(s);
  else
    Ridisegna(s);
  ArmaComando(s);
}

void Esegui(Sessione& s) { FineLavoro(s, ApplicaSelezione(s)); }

// The first prompt of the steps that follow the confirmation; none for the commands that
// work at once.
const char* PromptDopoSelezione(int32_t codice) {
  switch (codice) {
    case 142:
    case 143: return "Dal Punto :";
    case 144: return "Centro di Riduzione:";
    case 146: return "Centro di Rotazione:";
    case 147: return "Asse di Simmetria - Primo Punto:";
    case 414: return "Cambia Allinea - Centro di Rotazione:";
    case 192: return "Rototraslazione con Selezione - Centro di Rotazione :";
    case 216: return "Cambia Quota - Dal Punto :";
    case 256: return "Simbolo Nuovo - Punto di Inserimento :";
    default: return nullptr;
  }
}

bool LavoroImmediato(int32_t codice) {
  switch (codice) {
    case 138:
    case 139:
    case 140:
    case 141:
    case 148:
    case 163:
    case 215:
    case 218:
    case 265: return true;
    default: return false;
  }
}

double Numero(const std::string& testo) { return Val(VirgolaInPunto(testo)); }

// --- The roto-translation -------------------------------------------------------------------

constexpr const char* kRigheRT[] = {"Origine", "Orientamento", "NuovaOrigine", "NuovoOrientamento"};
constexpr const char* kTitoliRT[] = {"Origine", "Orientamento", "Nuova Origine", "Nuovo Orientamento", "Differenza"};

std::string Coordinata(double v) { return Rifila(FormatoRilievo(v, "########0.##0")); }
std::string AzimutGon(double v) { return Rifila(FormatoRilievo(v, "#####0.###0")); }
std::string Lunghezza(double v) { return Rifila(FormatoRilievo(v, "#####0.##0")); }

std::string Campo(const std::string& riga, const char* colonna) { return riga + "_" + colonna; }

// The grid as it stands: five rows of six cells, the row's title in front.
struct GrigliaRT {
  std::array<std::array<std::string, 7>, 5> Celle;
};

GrigliaRT Griglia(const Sessione& s) {
  GrigliaRT g;
  const auto& p = s.PuntiRotoTraslazione;
  for (size_t i = 0; i < 4; ++i) {
    g.Celle[i] = {kTitoliRT[i], p[i].Nome, Coordinata(p[i].Y), Coordinata(p[i].X), Coordinata(p[i].Z), "", ""};
  }
  const AzimutEDistanza a1 = AzimutDistanza(p[0].X, p[0].Y, p[1].X, p[1].Y);
  const AzimutEDistanza a2 = AzimutDistanza(p[2].X, p[2].Y, p[3].X, p[3].Y);
  g.Celle[1][5] = AzimutGon(a1.Azimut * RadToGon), g.Celle[1][6] = Lunghezza(a1.Distanza);
  g.Celle[3][5] = AzimutGon(a2.Azimut * RadToGon), g.Celle[3][6] = Lunghezza(a2.Distanza);
  g.Celle[4] = {kTitoliRT[4], "", "", "", "", AzimutGon((a2.Azimut - a1.Azimut) * RadToGon),
                Lunghezza(a2.Distanza - a1.Distanza)};
  return g;
}

void MostraGriglia(Sessione& s) {
  const GrigliaRT g = Griglia(s);
  static constexpr const char* kColonne[] = {"", "Nome", "Nord", "Est", "Quota", "Azimut", "Distanza"};
  for (size_t i = 0; i < 5; ++i) {
    const std::string riga = i < 4 ? kRigheRT[i] : "Differenza";
    for (size_t c = 1; c < 7; ++c) AggiornaCampo(s, "FormRotoTraslazione", Campo(riga, kColonne[c]), g.Celle[i][c]);
  }
}

// The four points as the grid holds them: the user may have typed the targets. A cell left
// as it was shown keeps the picked value to the last bit, not its rounding to the millimetre.
void LeggiGriglia(Sessione& s, const Dialogo& d) {
  auto leggi = [&](double& v, const std::string& campo) {
    const std::string testo = d.Valore(campo);
    if (Rifila(testo) != Coordinata(v)) v = Numero(testo);
  };
  for (size_t i = 0; i < 4; ++i) {
    PuntoNominato& p = s.PuntiRotoTraslazione[i];
    p.Nome = Rifila(d.Valore(Campo(kRigheRT[i], "Nome")));
    leggi(p.Y, Campo(kRigheRT[i], "Nord"));
    leggi(p.X, Campo(kRigheRT[i], "Est"));
    leggi(p.Z, Campo(kRigheRT[i], "Quota"));
  }
}

std::string Colonna(const std::string& testo, size_t larghezza) {
  return testo.size() >= larghezza ? testo : testo + std::string(larghezza - testo.size(), ' ');
}

void ScriviReportRotoTraslazione(Sessione& s) {
  if (!ScriveNelProgramma(s)) return;
  const GrigliaRT g = Griglia(s);
  static constexpr const char* kTesta[] = {"", "Nome", "Nord", "Est", "Quota", "Azimut", "Distanza"};
  std::string csv = "Rootraslazione\r\n\r\n", txt = "Rototraslazione\r\n";
  auto riga = [&](const auto& celle) {
    std::string c, t;
    for (size_t k = 0; k < 7; ++k) {
      c += (k ? ";" : "") + std::string(celle[k]);
      t += Colonna(celle[k], k < 2 ? 22 : 15);
    }
    csv += c + "\r\n";
    txt += RifilaDestra(t) + "\r\n";
  };
  riga(kTesta);
  for (const auto& r : g.Celle) riga(r);
  NuovaCartella(s.CartellaProgramma + "/temp");
  ScriviTesto(PercorsoReportRotoTraslazione(s, "CSV"), csv);
  ScriviTesto(PercorsoReportRotoTraslazione(s, "TXT"), txt);
}

// --- The vertical rotation -----------------------------------------------------------------

struct AsseOrizzontale {
  PuntoXYZ A;
  double Ux = 0, Uy = 0, Nx = 0, Ny = 0;  // along A to B, and square to its right
  double L = 0, DZ = 0;
  double Seno = 0, Coseno = 1;
  // Where along the axis the point falls, from A.
  double Lungo(double x, double y) const { return (x - A.X) * Ux + (y - A.Y) * Uy; }
  bool Tra(double x, double y) const {
    const double t = Lungo(x, y), tolleranza = 1e-9 * std::max(1.0, L);
    return t >= -tolleranza && t <= L + tolleranza;
  }
  // The plane through the axis square to it: the offset to the right and the height above
  // the axis turn together by the angle.
  void Ruota(double& x, double& y, double& z) const {
    const double t = Lungo(x, y);
    const double u = (x - A.X) * Nx + (y - A.Y) * Ny;
    const double zAsse = A.Z + DZ * t / L;
    const double w = z - zAsse;
    const double u2 = u * Coseno + w * Seno, w2 = -u * Seno + w * Coseno;
    x = A.X + t * Ux + u2 * Nx;
    y = A.Y + t * Uy + u2 * Ny;
    z = zAsse + w2;
  }
};

bool RuotaTra(Sessione& s, const AsseOrizzontale& asse) {
  AzzeraSelezione(s);
  s.ValoreSelezione = 1;
  bool fatto = false;
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (!Selezionabile(s, SlotPunti, r) || !asse.Tra(s.PuntoX[k], s.PuntoY[k])) continue;
    MarcaEntita(s, SlotPunti, r);
    asse.Ruota(s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]);
    fatto = true;
  }
  if (fatto) SegnaModificato(s, SlotPunti);
  bool linee = false;
  for (int32_t r = 0; r < s.ContaEntita[SlotLinee]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (!Selezionabile(s, SlotLinee, r) || !asse.Tra(s.LineaX1[k], s.LineaY1[k]) ||
        !asse.Tra(s.LineaX2[k], s.LineaY2[k]))
      continue;
    MarcaEntita(s, SlotLinee, r);
    asse.Ruota(s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k]);
    asse.Ruota(s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]);
    linee = true;
  }
  if (linee) SegnaModificato(s, SlotLinee);
  bool falde = false;
  for (int32_t r = 0; r < s.ContaEntita[SlotFalde]; ++r) {
    const auto k = static_cast<size_t>(r);
    if (!Selezionabile(s, SlotFalde, r) || !asse.Tra(s.FaldaX1[k], s.FaldaY1[k]) ||
        !asse.Tra(s.FaldaX2[k], s.FaldaY2[k]) || !asse.Tra(s.FaldaX3[k], s.FaldaY3[k]))
      continue;
    MarcaEntita(s, SlotFalde, r);
    asse.Ruota(s.FaldaX1[k], s.FaldaY1[k], s.FaldaZ1[k]);
    asse.Ruota(s.FaldaX2[k], s.FaldaY2[k], s.FaldaZ2[k]);
    asse.Ruota(s.FaldaX3[k], s.FaldaY3[k], s.FaldaZ3[k]);
    falde = true;
  }
  if (falde) SegnaModificato(s, SlotFalde);
  return fatto || linee || falde;
}

}  // namespace

bool EntitaVicina(const Sessione& s, double x, double y, uint8_t& tipo, int32_t& riga) {
  const RisultatoVicina r = LapiuvicinaBitMap(s, x, y, {s.Punto1X, s.Punto1Y, s.Punto1Z});
  switch (r.VicinaTipo) {
    case SlotPunti:
    case SlotLinee:
    case SlotCerchi:
    case SlotArchi:
    case SlotTesti:
    case SlotBitmap:
      tipo = r.VicinaTipo;
      riga = r.VicinaRiga;
      return riga >= 0;
    case SlotFalde:
      if (r.VicinaRigaLista < 0 || r.VicinaRigaLista >= s.ListaDisegno.Conta()) return false;
      tipo = SlotFalde;
      riga = s.ListaDisegno.Riga[static_cast<size_t>(r.VicinaRigaLista)];
      return riga >= 0 && riga < s.ContaEntita[SlotFalde];
    case SlotSezioni:
      tipo = SlotSezioni;
      riga = RigaSezioneVicina(s, x, y);
      return riga >= 0;
    default: return false;
  }
}

bool LavoroSuSelezione(int32_t codice) { return PromptDopoSelezione(codice) || LavoroImmediato(codice); }

void ConfermaSelezione(Sessione& s) {
  s.RoutineCorrente = "ConfermaSelezione";
  // The list goes to disk first, so that the next selection can repeat this one.
  Protetto(s, [&] { ScriviUls(s); });
  s.FaseSelezione = 0;
  AnnullaZoom(s);
  NascondiRiquadro(s);
  ChiudiDialogo(s, "Selezentita");
  const int32_t c = s.ComandoCorrente;
  if (ContaSelezionati(s) == 0 || !LavoroSuSelezione(c)) {
    // Nothing selected, or a command whose work on a selection is not here: it ends.
    InterrompiComando(s);
    return;
  }
  s.SelezioneConfermata = true;
  s.PassoComando = 0;
  if (const char* prompt = PromptDopoSelezione(c)) {
    MostraPrompt(s, prompt);
    return;
  }
  if (c == 218 || c == 215) {
    if (c == 218) s.Clip->Scrivi(EsportaSelezione(s));
    else CopiaInFile(s);
    FineLavoro(s, false);
    return;
  }
  if (c == 265) {
    SalvaGruppoSelezionato(s);
    return;
  }
  Esegui(s);
}

void subCambiaCopiaSpostaSpecchioScalaRuota(Sessione& s) {
  if (!s.SelezioneConfermata) return;
  const int32_t c = s.ComandoCorrente;
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.CentroModifica = Punto1(s);
    if (c == 144 || c == 146) {
      // The value at once, and the work with no further click.
      const auto v = c == 144 ? s.Ui->Imputa("Fattore di Scala :", "Cambia Scala", "1")
                              : s.Ui->Imputa("Angolo di Rotazione (gon) :", "Cambia Ruota", "0");
      if (!v) return;
      if (c == 144)
        s.FattoreScala = Numero(*v);
      else
        s.AngoloRotazione = Numero(*v);
      Esegui(s);
      return;
    }
    s.PassoComando = 1;
    MostraPrompt(s, c == 142   ? "Cambia Copia - Al Punto:"
                    : c == 143 ? "Cambia Sposta - Al Punto:"
                               : "Cambia Specchio - Secondo Punto:");
    return;
  }
  s.PassoComando = 0;
  if (c == 147) {
    const Risposta r = s.Ui->Domanda("Cancellare le entità di partenza?", "Cambia Specchio", Bottoni::SiNo,
                                     Icona::Domanda, Risposta::No);
    s.CancellaOriginali = r == Risposta::Si ? -1 : 0;
  }
  s.TraslazioneX = s.PuntoCorrenteX - s.Punto1X;
  s.TraslazioneY = s.PuntoCorrenteY - s.Punto1Y;
  s.TraslazioneZ = s.PuntoCorrenteZ - s.Punto1Z;
  s.SecondoModifica = Corrente(s);
  Esegui(s);
}

void subCambiaAllinea(Sessione& s) {
  if (!s.SelezioneConfermata) return;
  if (s.PassoComando < 2) {
    SpostaPunti(s);
    if (s.PassoComando == 0) s.CentroModifica = Punto1(s);
    s.PassoComando = static_cast<int16_t>(s.PassoComando + 1);
    MostraPrompt(s, s.PassoComando == 1 ? "Cambia Allinea - Dal Punto:" : "Cambia Allinea - Al Punto:");
    return;
  }
  // The direction from the centre to the first point turns onto the direction to the
  // second, and then the first point is carried onto the second.
  const PuntoXYZ c = s.CentroModifica, da = Punto1(s), a = Corrente(s);
  s.AngoloRotazione = (AzimutDistanza(c, a).Azimut - AzimutDistanza(c, da).Azimut) * RadToGon;
  const PuntoXYZ girato = RuotaPunto(da, c, s.AngoloRotazione);
  s.TraslazioneX = a.X - girato.X;
  s.TraslazioneY = a.Y - girato.Y;
  s.PassoComando = 0;
  Esegui(s);
}

void subCambiaQuota(Sessione& s) {
  if (!s.SelezioneConfermata) return;
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Cambia Quota - Al Punto :");
    return;
  }
  s.TraslazioneZ = s.PuntoCorrenteZ - s.Punto1Z;
  s.PassoComando = 0;
  Esegui(s);
}

void subRotoTraslazione(Sessione& s) {
  if (!s.SelezioneConfermata || s.PassoComando > 3) return;
  PuntoNominato& p = s.PuntiRotoTraslazione[static_cast<size_t>(s.PassoComando)];
  p = {s.PuntoCorrenteNome, s.PuntoCorrenteX, s.PuntoCorrenteY, s.PuntoCorrenteZ};
  SpostaPunti(s);
  s.PassoComando = static_cast<int16_t>(s.PassoComando + 1);
  switch (s.PassoComando) {
    case 1: MostraPrompt(s, "Rototralsazione - Punto Orientamento"); break;
    case 2: MostraPrompt(s, "Rototraslazione - Nuovo Centro"); break;
    case 3: MostraPrompt(s, "Rototraslazione - Nuovo Orientamento"); break;
    default:
      // The grid takes over; the clicks wait for it.
      MostraPrompt(s, "");
      ApriRotoTraslazione(s);
      break;
  }
}

std::string PercorsoReportRotoTraslazione(const Sessione& s, const char* estensione) {
  return s.CartellaProgramma + "/temp/Rototraslazione." + estensione;
}

bool ApriRotoTraslazione(Sessione& s) {
  Dialogo d;
  d.Nome = "FormRotoTraslazione";
  d.Titolo = s.ComandoCorrente == kCodiceInquadra2PF ? "Punto - Inquadra su 2 PF"
                                                     : "Punto - Rototraslazione con Selezione";
  const GrigliaRT g = Griglia(s);
  static constexpr const char* kColonne[] = {"", "Nome", "Nord", "Est", "Quota", "Azimut", "Distanza"};
  for (size_t i = 0; i < 5; ++i) {
    const std::string riga = i < 4 ? kRigheRT[i] : "Differenza";
    for (size_t c = 1; c < 7; ++c)
      d.AggiungiCampo(Campo(riga, kColonne[c]), std::string(kTitoliRT[i]) + " - " + kColonne[c], g.Celle[i][c]);
  }
  d.AggiungiBottone("Calcola", "Calcola", [](Sessione& x) {
    if (const Dialogo* dd = TrovaDialogo(x, "FormRotoTraslazione")) {
      LeggiGriglia(x, *dd);
      MostraGriglia(x);
    }
  });
  d.AggiungiBottone("OK", "OK", [](Sessione& x) {
    const Dialogo* dd = TrovaDialogo(x, "FormRotoTraslazione");
    if (!dd) return;
    LeggiGriglia(x, *dd);
    ChiudiDialogo(x, "FormRotoTraslazione");
    x.RoutineCorrente = "subRotoTraslazione";
    Protetto(x, [&] { ScriviReportRotoTraslazione(x); });
    x.PassoComando = 0;
    Esegui(x);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) {
    ChiudiDialogo(x, "FormRotoTraslazione");
    InterrompiComando(x);
  });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
  return true;
}

void subRotazioneVerticale(Sessione& s) {
  const bool ribalta = s.ComandoCorrente == 415;
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, ribalta ? "Ribaltamento - Secondo Punto:" : "Rotazione Verticale - Secondo Punto:");
    return;
  }
  const PuntoXYZ a = Punto1(s), b = Corrente(s);
  const AzimutEDistanza ad = AzimutDistanza(a, b);
  // Two clicks on one place give no axis.
  if (ad.Distanza < 1e-6) return;
  double gon = 100;
  if (!ribalta) {
    const auto v = s.Ui->Imputa("Angolo di Rotazione (gon) :", "Rotazione Verticale", "100");
    if (!v) {
      ArmaComando(s);
      return;
    }
    gon = Numero(*v);
  }
  AsseOrizzontale asse;
  asse.A = a;
  // Along the axis, and square to it on its right: a North axis has East on its right.
  asse.Ux = (b.X - a.X) / ad.Distanza, asse.Uy = (b.Y - a.Y) / ad.Distanza;
  asse.Nx = asse.Uy, asse.Ny = -asse.Ux;
  asse.L = ad.Distanza;
  asse.DZ = b.Z - a.Z;
  asse.Seno = std::sin(gon * GonToRad), asse.Coseno = std::cos(gon * GonToRad);
  // A right angle is exact, as the folding down of a face must be.
  if (gon == 100) asse.Seno = 1, asse.Coseno = 0;
  const bool fatto = RuotaTra(s, asse);
  if (fatto) Protetto(s, [&] { ScriviUls(s); });
  FineLavoro(s, fatto);
}

}  // namespace varena
