// The drawing commands that make or change lines: extend, length, line from an end,
// projection, perpendicular from an entity, orthogonals and axis, parallels, the check of
// two parallels, the path by azimuth and distance, rectangle and square-corner figure, the
// fillet arc between two lines.
#include <cmath>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Costruttori.h"
#include "commands/GeometriaDisegno.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "commands/Routine.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

// Below a micrometre a depth or an offset is rounding, not a figure.
constexpr double kNulla = 1e-6;

void ScriviFine(Sessione& s, int32_t riga, bool fine, const PuntoXYZ& p) {
  const auto k = static_cast<size_t>(riga);
  if (fine) {
    s.LineaX2[k] = p.X, s.LineaY2[k] = p.Y, s.LineaZ2[k] = p.Z;
  } else {
    s.LineaX1[k] = p.X, s.LineaY1[k] = p.Y, s.LineaZ1[k] = p.Z;
  }
  SegnaModificato(s, SlotLinee);
}

// True when the second end of the line is the one nearer to (x, y); on a tie the second.
bool FineVicina(const Sessione& s, int32_t riga, double x, double y) {
  const PuntoXYZ a = InizioLinea(s, riga), b = FineLinea(s, riga);
  return !(Distanza2D(x, y, a.X, a.Y) < Distanza2D(x, y, b.X, b.Y));
}

// The end of line `riga` that moves to `t`, a point of the line: the end beyond `t` from the
// part that holds `q`; when no end lies beyond, the line is lengthened at its nearer end.
void TagliaAlPunto(Sessione& s, int32_t riga, const PuntoXYZ& t, const PuntoXYZ& q) {
  const PuntoXYZ a = InizioLinea(s, riga), b = FineLinea(s, riga);
  const AzimutEDistanza ad = AzimutDistanza(a, b);
  if (ad.Distanza == 0) return;
  const double ux = std::sin(ad.Azimut), uy = std::cos(ad.Azimut);
  auto lungo = [&](const PuntoXYZ& p) { return (p.X - a.X) * ux + (p.Y - a.Y) * uy; };
  const double tt = lungo(t), tq = lungo(q);
  bool fine;
  if ((0 - tt) * (tq - tt) < 0)
    fine = false;
  else if ((ad.Distanza - tt) * (tq - tt) < 0)
    fine = true;
  else
    fine = std::fabs(ad.Distanza - tt) < std::fabs(tt);
  ScriviFine(s, riga, fine, t);
}

std::string Gon4(double gon) { return Rifila(FormatoMaschera(gon, "####0.###0")); }

void DisegnaRettangolo(Sessione& s, bool squadrato) {
  const std::string nome = squadrato ? "Disegno Squadrato" : "Disegno Rettangolo";
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, nome + " - Secondo Punto:");
    return;
  }
  if (s.PassoComando == 1) {
    if (Distanza2D(s.Punto1X, s.Punto1Y, s.PuntoCorrenteX, s.PuntoCorrenteY) == 0) return;
    SpostaPunti(s);
    s.PassoComando = 2;
    MostraPrompt(s, nome + " - Terzo Punto:");
    return;
  }
  // The third point gives the depth: how far it stands from the first side, and on which side.
  const PuntoXYZ a = PuntoDue(s), b = PuntoUno(s);
  Piede f;
  if (PiedePerpendicolare(a, b, PuntoCorrente(s), f) != kRiuscito || f.DistanzaPF < kNulla) return;
  const double dx = s.PuntoCorrenteX - f.F.X, dy = s.PuntoCorrenteY - f.F.Y;
  const PuntoXYZ c{b.X + dx, b.Y + dy, b.Z}, d{a.X + dx, a.Y + dy, a.Z};
  ScriviLinea(s, a, b, s.PianoCorrente);
  ScriviLinea(s, b, c, s.PianoCorrente);
  if (!squadrato) {
    ScriviLinea(s, c, d, s.PianoCorrente);
    ScriviLinea(s, d, a, s.PianoCorrente);
  }
  FineModifica(s, false);
  ArmaComando(s);
}

// Orthogonals at the ends (302) or the axis at the middle (315) of a picked line.
void OrtogonaliOAsse(Sessione& s, bool asse) {
  StatoDisegno& v = s.ValoriDisegno;
  const std::string nome = asse ? "Disegno AsseLinea" : "Disegno Ortogonali";
  if (s.PassoComando == 0) {
    const int32_t riga = LineaCliccata(s);
    if (riga < 0) return;
    const auto lunghezza = ChiediNumero(s, nome + " - Lunghezza", asse ? "Disegno Asse Linea" : "Disegno Ortogonali",
                                        v.Lunghezza > 0 ? TestoMetri(v.Lunghezza) : std::string());
    if (!lunghezza || *lunghezza == 0) return;
    v.RigaScelta = riga;
    v.Lunghezza = std::fabs(*lunghezza);
    EvidenziaEntita(s, SlotLinee, riga, 1);
    s.PassoComando = 1;
    MostraPrompt(s, nome + " - Da quale parte");
    return;
  }
  if (!LineaViva(s, v.RigaScelta)) return;
  const PuntoXYZ a = InizioLinea(s, v.RigaScelta), b = FineLinea(s, v.RigaScelta);
  const double az = AzimutDistanza(a, b).Azimut;
  EvidenziaEntita(s, SlotLinee, v.RigaScelta, 0);
  auto perpendicolare = [&](const PuntoXYZ& da) {
    PuntoXYZ p = Polare(da.X, da.Y, AzimutVersoLato(az, da, s.PuntoCorrenteX, s.PuntoCorrenteY), v.Lunghezza);
    p.Z = da.Z;
    ScriviLinea(s, da, p, s.PianoCorrente);
  };
  if (asse) {
    perpendicolare({(a.X + b.X) / 2, (a.Y + b.Y) / 2, (a.Z + b.Z) / 2});
  } else {
    perpendicolare(a);
    perpendicolare(b);
  }
  FineModifica(s, false);
  ArmaComando(s);
}

}  // namespace

void subDisegnoLineaAllunga(Sessione& s) {
  const int32_t riga = LineaCliccata(s);
  if (riga < 0) return;
  const double aggiunta = Val(VirgolaInPunto(s.ValoreImputato));
  const bool fine = FineVicina(s, riga, s.PuntoCorrenteX, s.PuntoCorrenteY);
  const PuntoXYZ fermo = fine ? InizioLinea(s, riga) : FineLinea(s, riga);
  const PuntoXYZ mosso = fine ? FineLinea(s, riga) : InizioLinea(s, riga);
  const AzimutEDistanza ad = AzimutDistanza(fermo, mosso);
  if (aggiunta == 0 || ad.Distanza == 0 || ad.Distanza + aggiunta <= 0) return;
  PuntoXYZ nuovo = Polare(fermo.X, fermo.Y, ad.Azimut, ad.Distanza + aggiunta);
  nuovo.Z = mosso.Z;
  ScriviFine(s, riga, fine, nuovo);
  FineModifica(s);
  Riprendi(s);
}

void subLineaLunghezza(Sessione& s) {
  const int32_t riga = LineaCliccata(s);
  if (riga < 0) return;
  const bool fine = FineVicina(s, riga, s.PuntoCorrenteX, s.PuntoCorrenteY);
  const PuntoXYZ fermo = fine ? InizioLinea(s, riga) : FineLinea(s, riga);
  const PuntoXYZ mosso = fine ? FineLinea(s, riga) : InizioLinea(s, riga);
  const AzimutEDistanza ad = AzimutDistanza(fermo, mosso);
  const auto lunghezza = ChiediNumero(s, "Nuova Lunghezza della Linea :", "Linea Lunghezza", TestoMetri(ad.Distanza));
  if (!lunghezza || *lunghezza <= 0 || ad.Distanza == 0) return;
  PuntoXYZ nuovo = Polare(fermo.X, fermo.Y, ad.Azimut, *lunghezza);
  nuovo.Z = mosso.Z;
  ScriviFine(s, riga, fine, nuovo);
  FineModifica(s);
  ArmaComando(s);
}

void subDisegnoLineaEstremo(Sessione& s) {
  const char* prompt = "Disegno Linea - Al Punto:";
  if (s.PassoComando == 0) {
    const int32_t riga = LineaCliccata(s);
    if (riga < 0) return;
    const PuntoXYZ e = FineVicina(s, riga, s.PuntoCorrenteX, s.PuntoCorrenteY) ? FineLinea(s, riga)
                                                                                 : InizioLinea(s, riga);
    s.PuntoCorrenteX = e.X, s.PuntoCorrenteY = e.Y, s.PuntoCorrenteZ = e.Z;
    s.PuntoCorrenteNome = "*";
    s.PuntoCorrenteIndice = -1;
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, prompt);
    return;
  }
  // From the end on, a free line: each click goes on from the last.
  if (s.PuntoCorrenteIndice >= 0 && s.PuntoCorrenteIndice == s.Punto1Indice) return;
  ScriviLinea(s, PuntoUno(s), PuntoCorrente(s), s.PianoCorrente);
  SpostaPunti(s);
  FineModifica(s, false);
  s.PassoComando = 1;
  MostraPrompt(s, prompt);
}

void subLineaProietta(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  if (s.PassoComando == 0) {
    const int32_t riga = LineaCliccata(s);
    if (riga < 0) return;
    v.RigaScelta = riga;
    SpostaPunti(s);
    EvidenziaEntita(s, SlotLinee, riga, 1);
    s.PassoComando = 1;
    MostraPrompt(s, "Punto da Proiettare:");
    return;
  }
  if (!LineaViva(s, v.RigaScelta)) return;
  const PuntoXYZ p = PuntoCorrente(s);
  Piede f;
  if (PiedePerpendicolare(InizioLinea(s, v.RigaScelta), FineLinea(s, v.RigaScelta), p, f) != kRiuscito ||
      f.DistanzaPF < kNulla)
    return;
  EvidenziaEntita(s, SlotLinee, v.RigaScelta, 0);
  ScriviLinea(s, p, f.F, s.PianoCorrente);
  FineModifica(s, false);
  ArmaComando(s);
}

void subDisegnoPerpenDa(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  switch (s.PassoComando) {
    case 0: {
      if (!CurvaCliccata(s, v.TipoScelto, v.RigaScelta)) return;
      EvidenziaEntita(s, v.TipoScelto, v.RigaScelta, 1);
      s.PassoComando = 1;
      MostraPrompt(s, "Perpen .. Da .. - Punto di Attacco");
      return;
    }
    case 1: {
      const PuntoXYZ attacco = PuntoCorrente(s);
      const auto lunghezza = ChiediNumero(s, "Lunghezza della Perpendicolare :", "Disegno Perpen.. Da ...",
                                          v.Lunghezza > 0 ? TestoMetri(v.Lunghezza) : std::string());
      if (!lunghezza || *lunghezza == 0) return;
      v.Lunghezza = std::fabs(*lunghezza);
      s.PuntoCorrenteX = attacco.X, s.PuntoCorrenteY = attacco.Y, s.PuntoCorrenteZ = attacco.Z;
      SpostaPunti(s);
      s.PassoComando = 2;
      MostraPrompt(s, "Perpen Da ... - Da quale parte");
      return;
    }
    default: {
      if (!EntitaViva(s, v.TipoScelto, v.RigaScelta)) return;
      const PuntoXYZ attacco = PuntoUno(s);
      const auto k = static_cast<size_t>(v.RigaScelta);
      // The direction of the entity at the point of attachment: a line's own, a curve's
      // tangent, square to its radius.
      double tangente = 0;
      if (v.TipoScelto == SlotLinee)
        tangente = AzimutDistanza(InizioLinea(s, v.RigaScelta), FineLinea(s, v.RigaScelta)).Azimut;
      else if (v.TipoScelto == SlotCerchi)
        tangente = AzimutDistanza(s.CerchioX[k], s.CerchioY[k], attacco.X, attacco.Y).Azimut + PiGreco / 2;
      else
        tangente = AzimutDistanza(s.ArcoX[k], s.ArcoY[k], attacco.X, attacco.Y).Azimut + PiGreco / 2;
      PuntoXYZ fine = Polare(attacco.X, attacco.Y,
                             AzimutVersoLato(tangente, attacco, s.PuntoCorrenteX, s.PuntoCorrenteY), v.Lunghezza);
      fine.Z = attacco.Z;
      EvidenziaEntita(s, v.TipoScelto, v.RigaScelta, 0);
      ScriviLinea(s, attacco, fine, s.PianoCorrente);
      FineModifica(s, false);
      ArmaComando(s);
      return;
    }
  }
}

void subDisegnoOrtogonali(Sessione& s) { OrtogonaliOAsse(s, false); }
void subDisegnoAsseLinea(Sessione& s) { OrtogonaliOAsse(s, true); }

void subDisegnoParallela(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  const double distanza = ValoreArmato(s);
  if (s.PassoComando == 0) {
    if (distanza == 0 || !CurvaCliccata(s, v.TipoScelto, v.RigaScelta)) return;
    EvidenziaEntita(s, v.TipoScelto, v.RigaScelta, 1);
    s.PassoComando = 1;
    MostraPrompt(s, "Disegno parallela - Da quale parte");
    return;
  }
  if (!EntitaViva(s, v.TipoScelto, v.RigaScelta)) return;
  const auto k = static_cast<size_t>(v.RigaScelta);
  const double x = s.PuntoCorrenteX, y = s.PuntoCorrenteY;
  if (v.TipoScelto == SlotLinee) {
    const PuntoXYZ a = InizioLinea(s, v.RigaScelta), b = FineLinea(s, v.RigaScelta);
    const double verso = AzimutVersoLato(AzimutDistanza(a, b).Azimut, a, x, y);
    const double dx = distanza * std::sin(verso), dy = distanza * std::cos(verso);
    EvidenziaEntita(s, SlotLinee, v.RigaScelta, 0);
    ScriviLineaCome(s, {a.X + dx, a.Y + dy, a.Z}, {b.X + dx, b.Y + dy, b.Z}, v.RigaScelta);
  } else {
    // A curve grows outwards when the click falls outside it, shrinks when inside.
    const bool cerchio = v.TipoScelto == SlotCerchi;
    const PuntoXYZ c = cerchio ? PuntoXYZ{s.CerchioX[k], s.CerchioY[k], s.CerchioZ[k]}
                               : PuntoXYZ{s.ArcoX[k], s.ArcoY[k], s.ArcoZ[k]};
    const double r = cerchio ? s.CerchioRaggio[k] : s.ArcoRaggio[k];
    const double nuovo = Distanza2D(x, y, c.X, c.Y) > r ? r + distanza : r - distanza;
    if (nuovo <= 0) return;
    EvidenziaEntita(s, v.TipoScelto, v.RigaScelta, 0);
    if (cerchio)
      ScriviCerchioCome(s, c, nuovo, v.RigaScelta);
    else
      ScriviArcoCome(s, c, nuovo, s.ArcoInizio[k], s.ArcoFine[k], v.RigaScelta);
  }
  FineModifica(s, false);
  Riprendi(s);
}

void subParallelaPerPunto(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  if (s.PassoComando == 0) {
    const int32_t riga = LineaCliccata(s);
    if (riga < 0) return;
    v.RigaScelta = riga;
    EvidenziaEntita(s, SlotLinee, riga, 1);
    s.PassoComando = 1;
    MostraPrompt(s, "Parallelaperpunto - Indica Punto :");
    return;
  }
  if (!LineaViva(s, v.RigaScelta)) return;
  const PuntoXYZ a = InizioLinea(s, v.RigaScelta), b = FineLinea(s, v.RigaScelta);
  Piede f;
  if (PiedePerpendicolare(a, b, PuntoCorrente(s), f) != kRiuscito || f.DistanzaPF < kNulla) return;
  // The old line moved square to itself until it passes by the point: the same length.
  const double dx = s.PuntoCorrenteX - f.F.X, dy = s.PuntoCorrenteY - f.F.Y;
  EvidenziaEntita(s, SlotLinee, v.RigaScelta, 0);
  ScriviLineaCome(s, {a.X + dx, a.Y + dy, a.Z}, {b.X + dx, b.Y + dy, b.Z}, v.RigaScelta);
  FineModifica(s, false);
  ArmaComando(s);
}

void subVerificaParallele(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  const int32_t riga = LineaCliccata(s);
  if (riga < 0) return;
  if (s.PassoComando == 0) {
    v.RigaScelta = riga;
    SpostaPunti(s);
    s.PassoComando = 1;
    MostraPrompt(s, "Seconda Linea :");
    return;
  }
  if (!LineaViva(s, v.RigaScelta)) return;
  const double az1 = AzimutDistanza(InizioLinea(s, v.RigaScelta), FineLinea(s, v.RigaScelta)).Azimut * RadToGon;
  const double az2 = AzimutDistanza(InizioLinea(s, riga), FineLinea(s, riga)).Azimut * RadToGon;
  s.Ui->Messaggio("Azimut 1 = " + Gon4(az1) + "\nAzimut 2 = " + Gon4(az2) + "\nDifferenza = " +
                      Gon4(std::fabs(az1 - az2)),
                  "Verifica Parallele", Icona::Informazione);
  ArmaComando(s);
}

void subDisegnoPercorso(Sessione& s) {
  if (s.PassoComando == 0) {
    SpostaPunti(s);
    s.PassoComando = 1;
  }
  // Each left click asks one more side from the last point; any other button ends the path.
  const auto azimut = ChiediNumero(s, "Azimut (gon) :", "Disegno Percorso");
  if (!azimut) return;
  const auto distanza = ChiediNumero(s, "Distanza :", "Disegno Percorso");
  if (!distanza) return;
  MostraPrompt(s, "Disegno Percorso - Prossimo Lato:");
  if (*distanza == 0) return;
  const PuntoXYZ da = PuntoUno(s);
  PuntoXYZ a = Polare(da.X, da.Y, *azimut * GonToRad, *distanza);
  a.Z = da.Z;
  ScriviLinea(s, da, a, s.PianoCorrente);
  s.PuntoCorrenteX = a.X, s.PuntoCorrenteY = a.Y, s.PuntoCorrenteZ = a.Z;
  s.PuntoCorrenteNome = "*";
  s.PuntoCorrenteIndice = -1;
  SpostaPunti(s);
  FineModifica(s, false);
}

void subRettangolo(Sessione& s) { DisegnaRettangolo(s, false); }
void subSquadrato(Sessione& s) { DisegnaRettangolo(s, true); }

void subArcoRaccordo(Sessione& s) {
  StatoDisegno& v = s.ValoriDisegno;
  const int32_t riga = LineaCliccata(s);
  if (riga < 0) return;
  if (s.PassoComando == 0) {
    v.PrimaLinea = riga;
    v.PrimaX = s.PuntoCorrenteX, v.PrimaY = s.PuntoCorrenteY;
    EvidenziaEntita(s, SlotLinee, riga, 1);
    s.PassoComando = 1;
    MostraPrompt(s, "Arco Raccorda - Seconda Linea:");
    return;
  }
  const double r = ValoreArmato(s);
  if (riga == v.PrimaLinea || !LineaViva(s, v.PrimaLinea) || r == 0) return;
  const PuntoXYZ q1{v.PrimaX, v.PrimaY, 0}, q2 = PuntoCorrente(s);
  const PuntoXYZ a1 = InizioLinea(s, v.PrimaLinea), b1 = FineLinea(s, v.PrimaLinea);
  const PuntoXYZ a2 = InizioLinea(s, riga), b2 = FineLinea(s, riga);
  // Each line is offset by the radius towards the other's pick: the offsets meet at the centre.
  auto scostata = [r](const PuntoXYZ& a, const PuntoXYZ& b, const PuntoXYZ& verso, PuntoXYZ& u, PuntoXYZ& w) {
    const double az = AzimutVersoLato(AzimutDistanza(a, b).Azimut, a, verso.X, verso.Y);
    u = Polare(a.X, a.Y, az, r);
    w = Polare(b.X, b.Y, az, r);
  };
  PuntoXYZ u1, w1, u2, w2;
  scostata(a1, b1, q2, u1, w1);
  scostata(a2, b2, q1, u2, w2);
  PuntoXYZ centro;
  if (IncrocioRette(u1, w1, u2, w2, centro.X, centro.Y) != kRiuscito) return;
  Piede f1, f2;
  if (PiedePerpendicolare(a1, b1, centro, f1) != kRiuscito || PiedePerpendicolare(a2, b2, centro, f2) != kRiuscito)
    return;
  EvidenziaEntita(s, SlotLinee, v.PrimaLinea, 0);
  TagliaAlPunto(s, v.PrimaLinea, f1.F, q1);
  TagliaAlPunto(s, riga, f2.F, q2);
  // The short way round from one foot to the other: a fillet never turns half a circle.
  const double i1 = AzimutDistanza(centro, f1.F).Azimut * RadToGon;
  const double i2 = AzimutDistanza(centro, f2.F).Azimut * RadToGon;
  const double ampiezza = GonPositivo(i2 - i1);
  if (ampiezza <= 200)
    ScriviArco(s, centro, r, i1, ampiezza, f1.F.Z, f2.F.Z, s.PianoCorrente);
  else
    ScriviArco(s, centro, r, i2, 400 - ampiezza, f2.F.Z, f1.F.Z, s.PianoCorrente);
  FineModifica(s);
  Riprendi(s);
}

}  // namespace varena
