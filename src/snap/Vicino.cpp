// The searches by kind over the trees of the drawing, the general search, and the
// notable points of the entity found.
#include "snap/Vicino.h"

#include <cmath>
#include <limits>

#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

constexpr uint32_t Bit(int tipo) { return 1u << tipo; }
constexpr uint32_t kTipiLista =
    Bit(SlotLinee) | Bit(SlotFalde) | Bit(SlotSette) | Bit(SlotSezioni) | Bit(SlotBitmap) | Bit(14);

size_t Conta(const Sessione& s, int slot) { return static_cast<size_t>(std::max(s.ContaEntita[slot], 0)); }

bool PuntoCercabile(const Sessione& s, size_t k) {
  return IdentVivo(s.PuntoIdent[k]) && !(s.PuntoCongelaSimbolo[k] != 0 && s.PuntoCongelaNome[k] != 0);
}

// A list record stands for a row that may have been deleted or frozen since the list was
// made: the row decides, where the kind has a table.
bool RigaListaCercabile(const Sessione& s, uint8_t tipo, int32_t riga) {
  if (riga < 0) return tipo == SlotSezioni || tipo == 14;
  const auto r = static_cast<size_t>(riga);
  switch (tipo) {
    case SlotLinee: return r < Conta(s, SlotLinee) && IdentVivo(s.LineaIdent[r]) && s.LineaCongela[r] == 0;
    case SlotFalde: return r < Conta(s, SlotFalde) && IdentVivo(s.FaldaIdent[r]) && s.FaldaCongela[r] == 0;
    case SlotSette: return r < Conta(s, SlotSette) && IdentVivo(s.SetteIdent[r]);
    case SlotBitmap: return r < Conta(s, SlotBitmap) && IdentVivo(s.BitmapIdent[r]) && s.BitmapCongela[r] == 0;
    default: return true;
  }
}

double DistanzaArco(const Sessione& s, size_t k, double x, double y) {
  const double xc = s.ArcoX[k], yc = s.ArcoY[k], r = s.ArcoRaggio[k];
  if (AngoloInArco(xc, yc, s.ArcoInizio[k], s.ArcoFine[k], x, y).Dentro) return std::fabs(Distanza2D(x, y, xc, yc) - r);
  const double a0 = s.ArcoInizio[k] * GonToRad, a1 = (s.ArcoInizio[k] + s.ArcoFine[k]) * GonToRad;
  return std::min(Distanza2D(x, y, xc + r * std::sin(a0), yc + r * std::cos(a0)),
                  Distanza2D(x, y, xc + r * std::sin(a1), yc + r * std::cos(a1)));
}

// The best of one kind so far. A row replaces it when nearer, or as near and later: the
// outcome of a scan from row 0 up with a "not farther" test, whatever order the rows come in.
struct Migliore {
  double D;
  int64_t I;
};

// The searches of one pointer position, kind by kind: the rows added since the trees were
// made one by one, then the tree from the nearest box outwards, as far as the best so far.
class Ricerca {
 public:
  Ricerca(const Sessione& s, double x, double y)
      : s_(s), x_(x), y_(y), margine_(1e-8 * (std::fabs(x) + std::fabs(y)) + 1e-9) {}

  // The nearest row of `tipo` no farther than `limite`; row -1 when there is none.
  Migliore Tipo(int tipo, double limite) {
    Migliore m{limite, -1};
    const IndiciVicinanza& v = s_.Vicinanza;
    switch (tipo) {
      case SlotPunti: Scorri(m, v.Punti, s_.ContaEntita[SlotPunti], [&](int64_t i) { return Punto(i); }); break;
      case SlotCerchi: Scorri(m, v.Cerchi, s_.ContaEntita[SlotCerchi], [&](int64_t i) { return Cerchio(i); }); break;
      case SlotArchi: Scorri(m, v.Archi, s_.ContaEntita[SlotArchi], [&](int64_t i) { return Arco(i); }); break;
      case SlotTesti: Scorri(m, v.Testi, s_.ContaEntita[SlotTesti], [&](int64_t i) { return Testo(i); }); break;
      default:
        Scorri(m, tipo == SlotLinee ? v.Linee : v.AltreLinee, s_.ListaDisegno.Conta(),
               [&](int64_t i) { return Lista(tipo, i, m.D); });
        break;
    }
    return m;
  }

 private:
  static constexpr double kNulla = -1;  // a row that does not take part

  template <class Distanza>
  void Scorri(Migliore& m, const IndiceAlbero& albero, int64_t righe, Distanza distanza) const {
    auto considera = [&](int64_t i) {
      const double d = distanza(i);
      if (d >= 0 && (d < m.D || (d == m.D && i > m.I))) m = {d, i};
    };
    for (int64_t i = albero.Elementi(); i < righe; ++i) considera(i);
    // Rounding of the feet grows with the coordinates: a box is trusted to hold its entity
    // only this much inside the best distance.
    albero.Visita(
        x_, y_, [&](int64_t i) { if (i < righe) considera(i); }, [&] { return m.D + margine_; });
  }

  // A line with its pattern counts by its nearest piece, as when each piece was a record;
  // only pieces within the best distance so far need a look.
  double Lista(int tipo, int64_t i, double limite) const {
    const ElencoDisegno& l = s_.ListaDisegno;
    const auto k = static_cast<size_t>(i);
    if (l.Tipo[k] != tipo || !RigaListaCercabile(s_, l.Tipo[k], l.Riga[k])) return kNulla;
    if (l.Primitiva[k] == PrimMotivo) {
      PezzoMotivo p;
      double d = 0;
      return PezzoPiuVicino(s_, i, x_, y_, limite + margine_, p, d) ? d : kNulla;
    }
    if (l.Primitiva[k] != PrimLinea) return kNulla;
    return DistanzaDaSegmento({l.X1[k], l.Y1[k], 0}, {l.X2[k], l.Y2[k], 0}, {x_, y_, 0});
  }
  double Punto(int64_t i) const {
    const auto k = static_cast<size_t>(i);
    if (!PuntoCercabile(s_, k)) return kNulla;
    return Distanza2D(x_, y_, s_.PuntoX[k], s_.PuntoY[k] + s_.PuntoSpoY[k]);
  }
  double Cerchio(int64_t i) const {
    const auto k = static_cast<size_t>(i);
    if (!IdentVivo(s_.CerchioIdent[k]) || s_.CerchioCongela[k] != 0) return kNulla;
    return std::fabs(Distanza2D(x_, y_, s_.CerchioX[k], s_.CerchioY[k]) - s_.CerchioRaggio[k]);
  }
  double Arco(int64_t i) const {
    const auto k = static_cast<size_t>(i);
    if (!IdentVivo(s_.ArcoIdent[k]) || s_.ArcoCongela[k] != 0) return kNulla;
    return DistanzaArco(s_, k, x_, y_);
  }
  double Testo(int64_t i) const {
    const auto k = static_cast<size_t>(i);
    if (!IdentVivo(s_.TestoIdent[k]) || s_.TestoCongela[k] != 0) return kNulla;
    return Distanza2D(x_, y_, s_.TestoX[k], s_.TestoY[k]);
  }

  const Sessione& s_;
  double x_, y_, margine_;
};

Vicina DiUnTipo(const Sessione& s, double x, double y, int tipo, double altezze) {
  Ricerca r(s, x, y);
  const Migliore m = r.Tipo(tipo, s.Vista.AltezzaVista * altezze);
  Vicina v;
  if (m.I < 0) return v;
  v.Distanza = m.D;
  if (kTipiLista & Bit(tipo)) {
    v.RigaLista = m.I;
    const bool rigaDellaTabella = tipo == SlotLinee || tipo == SlotBitmap;
    v.Riga = rigaDellaTabella ? s.ListaDisegno.Riga[static_cast<size_t>(m.I)] : static_cast<int32_t>(m.I);
  } else {
    v.Riga = static_cast<int32_t>(m.I);
  }
  return v;
}

PuntoXYZ Tra(const PuntoXYZ& a, const PuntoXYZ& b, double t) {
  return {a.X + (b.X - a.X) * t, a.Y + (b.Y - a.Y) * t, a.Z + (b.Z - a.Z) * t};
}

bool DiLinea(uint8_t tipo) { return (kTipiLista & Bit(tipo)) != 0; }

double D(const PuntoXYZ& p, double x, double y) { return Distanza2D(x, y, p.X, p.Y); }

// The two points of a circle on the line from `da` through the centre; the one nearer to
// (x, y) is kept.
PuntoXYZ SulCerchio(const RisultatoVicina& r, const PuntoXYZ& da, double x, double y) {
  const double az = AzimutDistanza(da, r.Centro).Azimut;
  PuntoXYZ a = Polare(r.Centro.X, r.Centro.Y, az, r.Raggio);
  PuntoXYZ b = Polare(r.Centro.X, r.Centro.Y, az + PiGreco, r.Raggio);
  a.Z = b.Z = r.Centro.Z;
  return D(a, x, y) <= D(b, x, y) ? a : b;
}

// The foot on the infinite line of the record, with the line's height there; the first
// point when the record has no length.
PuntoXYZ PiedeSuRecord(const RisultatoVicina& r, const PuntoXYZ& p) {
  Piede f;
  if (PiedePerpendicolare(r.Inizio, r.Fine, p, f) != kRiuscito) return r.Inizio;
  return f.F;
}

}  // namespace

Vicina IlPiuVicinoPunto(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotPunti, kLimitePunti); }
Vicina IlPiuVicinoLinea(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotLinee, kLimiteEntita); }
Vicina IlPiuVicinoCerchio(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotCerchi, kLimiteEntita); }
Vicina IlPiuVicinoArco(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotArchi, kLimiteEntita); }
Vicina IlPiuVicinoTesto(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotTesti, kLimiteEntita); }
Vicina IlPiuVicinoFalda(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotFalde, kLimiteEntita); }
Vicina IlPiuVicinoSette(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotSette, kLimiteEntita); }
Vicina IlPiuVicinoSezione(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotSezioni, kLimiteEntita); }
int32_t RigaSezioneVicina(const Sessione& s, double x, double y) {
  const Vicina v = IlPiuVicinoSezione(s, x, y);
  if (v.RigaLista < 0 || v.RigaLista >= s.ListaDisegno.Conta()) return -1;
  const int32_t riga = s.ListaDisegno.Riga[static_cast<size_t>(v.RigaLista)];
  return RigaViva(s, SlotSezioni, riga) ? riga : -1;
}
Vicina IlPiuVicinoEstratto(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, 14, kLimiteEntita); }
Vicina IlPiuVicinoBitMap(const Sessione& s, double x, double y) { return DiUnTipo(s, x, y, SlotBitmap, kLimiteEntita); }

int32_t IlPiuVicinoPerNome(const Sessione& s, std::string_view nome) {
  const std::string cercato = Rifila(nome);
  for (size_t k = 0; k < Conta(s, SlotPunti); ++k)
    if (IdentVivo(s.PuntoIdent[k]) && Rifila(s.PuntoNome[k]) == cercato) return static_cast<int32_t>(k);
  return -1;
}

void IlPiuVicinoFine(RisultatoVicina& r, double x, double y) {
  // On a tie the second point.
  r.PiuVicinoFine = D(r.Inizio, x, y) < D(r.Fine, x, y) ? r.Inizio : r.Fine;
}

void IlPiuVicinoQuadrante(const Sessione& s, RisultatoVicina& r, double x, double y) {
  double migliore = s.Vista.AltezzaVista * kLimiteEntita;
  r.Quadrante = r.Inizio;
  // A strict test: the first of equals wins.
  for (const PuntoXYZ* p : {&r.Inizio, &r.PrimoQuarto, &r.Medio, &r.TerzoQuarto, &r.Fine}) {
    const double d = D(*p, x, y);
    if (d < migliore) {
      migliore = d;
      r.Quadrante = *p;
    }
  }
}

void IlPiuVicinoOrtogonale(RisultatoVicina& r, double x, double y, const PuntoXYZ& punto1) {
  if (DiLinea(r.VicinaTipo)) {
    r.Ortogonale = PiedeSuRecord(r, punto1);
  } else if (r.VicinaTipo == SlotCerchi) {
    r.Ortogonale = SulCerchio(r, punto1, x, y);
  } else if (r.VicinaTipo == SlotArchi) {
    // An arc keeps the candidate nearer to the command's point, a circle the one nearer to
    // the pointer: the two have always behaved differently here.
    r.Ortogonale = SulCerchio(r, punto1, punto1.X, punto1.Y);
  } else {
    r.Ortogonale = r.Inizio;
  }
}

void IlPiuVicinoVicino(RisultatoVicina& r, double x, double y) {
  const PuntoXYZ puntatore{x, y, 0};
  if (DiLinea(r.VicinaTipo))
    r.Vicino = PiedeSuRecord(r, puntatore);
  else if (r.VicinaTipo == SlotCerchi || r.VicinaTipo == SlotArchi)
    r.Vicino = SulCerchio(r, puntatore, x, y);
  else
    r.Vicino = r.Inizio;
}

void LaPiuVicinaTangente(RisultatoVicina& r, double x, double y, const PuntoXYZ& punto1) {
  if (DiLinea(r.VicinaTipo)) {
    r.Tangente = PiedeSuRecord(r, punto1);
    r.Tangente.Z = punto1.Z;
  } else if (r.VicinaTipo == SlotCerchi || r.VicinaTipo == SlotArchi) {
    const AzimutEDistanza ad = AzimutDistanza(punto1, r.Centro);
    const double raggio = std::fabs(r.Raggio);
    if (ad.Distanza > raggio) {
      // The right triangle: the radius at the tangent point is square to the tangent.
      const double lato = std::sqrt(ad.Distanza * ad.Distanza - raggio * raggio);
      const double angolo = std::asin(raggio / ad.Distanza);
      const PuntoXYZ a = Polare(punto1.X, punto1.Y, ad.Azimut + angolo, lato);
      const PuntoXYZ b = Polare(punto1.X, punto1.Y, ad.Azimut - angolo, lato);
      r.Tangente = D(a, x, y) <= D(b, x, y) ? a : b;
    } else {
      // From inside there is no tangent: the point of the curve nearest to the pointer.
      r.Tangente = SulCerchio(r, {x, y, 0}, x, y);
    }
    r.Tangente.Z = punto1.Z;
  } else {
    r.Tangente = r.Inizio;
  }
}

RisultatoVicina LapiuvicinaBitMap(const Sessione& s, double x, double y, const PuntoXYZ& punto1) {
  const double h = s.Vista.AltezzaVista;
  static constexpr int kOrdine[] = {SlotBitmap, SlotFalde, SlotSette, SlotSezioni, 14,
                                    SlotLinee,  SlotCerchi, SlotArchi, SlotTesti,  SlotPunti};
  Ricerca ricerca(s, x, y);
  RisultatoVicina r;
  double migliore = h * kLimiteGenerale;
  int64_t riga = -1;
  for (int t : kOrdine) {
    // A kind is sought only as far as it could still win: not beyond its own limit, nor
    // beyond the best of the kinds before it.
    const double limite = std::min(h * (t == SlotPunti ? kLimitePunti : kLimiteEntita), migliore);
    const Migliore m = ricerca.Tipo(t, limite);
    if (m.I < 0) continue;
    // A contour takes the place only when strictly nearer; every other kind also on a tie.
    if (t == SlotSette ? m.D < migliore : m.D <= migliore) {
      migliore = m.D;
      r.VicinaTipo = static_cast<uint8_t>(t);
      riga = m.I;
    }
  }
  if (r.VicinaTipo == 0) return r;
  r.VicinaDistanza = migliore;
  const auto k = static_cast<size_t>(riga);
  switch (r.VicinaTipo) {
    case SlotCerchi: {
      const double xc = s.CerchioX[k], yc = s.CerchioY[k], zc = s.CerchioZ[k], rr = s.CerchioRaggio[k];
      r.VicinaRiga = static_cast<int32_t>(riga);
      r.Raggio = rr;
      r.Centro = {xc, yc, zc};
      // East, North, West, South and East again.
      r.Inizio = {xc + rr, yc, zc};
      r.PrimoQuarto = {xc, yc + rr, zc};
      r.Medio = {xc - rr, yc, zc};
      r.TerzoQuarto = {xc, yc - rr, zc};
      r.Fine = r.Inizio;
      break;
    }
    case SlotArchi: {
      const double xc = s.ArcoX[k], yc = s.ArcoY[k], rr = s.ArcoRaggio[k];
      const double a0 = s.ArcoInizio[k] * GonToRad, ampiezza = s.ArcoFine[k] * GonToRad;
      const double z0 = s.ArcoQuotaInizio[k], z1 = s.ArcoQuotaFinale[k];
      auto lungo = [&](double t) {
        const double a = a0 + ampiezza * t;
        return PuntoXYZ{xc + rr * std::sin(a), yc + rr * std::cos(a), z0 + (z1 - z0) * t};
      };
      r.VicinaRiga = static_cast<int32_t>(riga);
      r.Raggio = rr;
      r.Centro = {xc, yc, s.ArcoZ[k]};
      r.Inizio = lungo(0);
      r.PrimoQuarto = lungo(0.25);
      r.Medio = lungo(0.5);
      r.TerzoQuarto = lungo(0.75);
      r.Fine = lungo(1);
      break;
    }
    case SlotTesti:
      r.VicinaRiga = static_cast<int32_t>(riga);
      r.Inizio = {s.TestoX[k], s.TestoY[k], 0};
      r.PrimoQuarto = r.Medio = r.TerzoQuarto = r.Fine = r.Centro = r.Inizio;
      break;
    case SlotPunti:
      r.VicinaRiga = static_cast<int32_t>(riga);
      r.Inizio = {s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]};
      r.PrimoQuarto = r.Medio = r.TerzoQuarto = r.Fine = r.Centro = r.Inizio;
      break;
    default: {
      const ElencoDisegno& l = s.ListaDisegno;
      r.VicinaRigaLista = riga;
      const bool rigaDellaTabella = r.VicinaTipo == SlotLinee || r.VicinaTipo == SlotBitmap;
      r.VicinaRiga = rigaDellaTabella ? l.Riga[k] : static_cast<int32_t>(riga);
      r.Inizio = {l.X1[k], l.Y1[k], l.Z1[k]};
      r.Fine = {l.X2[k], l.Y2[k], l.Z2[k]};
      PezzoMotivo p;
      double d = 0;
      if (l.Primitiva[k] == PrimMotivo && PezzoPiuVicino(s, riga, x, y, migliore * (1 + 1e-9) + 1e-9, p, d)) {
        r.Inizio = {p.X1, p.Y1, p.Z1};
        r.Fine = {p.X2, p.Y2, p.Z2};
      }
      r.PrimoQuarto = Tra(r.Inizio, r.Fine, 0.25);
      r.Medio = Tra(r.Inizio, r.Fine, 0.5);
      r.TerzoQuarto = Tra(r.Inizio, r.Fine, 0.75);
      r.Centro = r.Medio;
      break;
    }
  }
  IlPiuVicinoFine(r, x, y);
  IlPiuVicinoQuadrante(s, r, x, y);
  IlPiuVicinoOrtogonale(r, x, y, punto1);
  IlPiuVicinoVicino(r, x, y);
  LaPiuVicinaTangente(r, x, y, punto1);
  return r;
}

}  // namespace varena
