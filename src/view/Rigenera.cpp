// The regenerators of each kind, in the order of painting.
#include "view/Rigenera.h"

#include <cmath>

#include "cadastre/ContornoSette.h"
#include "cadastre/Estratto.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/DisegnoSezioni.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"
#include "terrain/Curve.h"
#include "terrain/DisegnoFalde.h"
#include "view/Ridisegna.h"
#include "view/Zoom.h"

namespace varena {

namespace {


// Heights follow a line by the distance in plan from its start, so that a dashed 3-D line
// keeps its slope piece by piece.
double QuotaLungo(double x1, double y1, double z1, double z2, double L, double x, double y) {
  return L > 0 ? z1 + (z2 - z1) * std::hypot(x - x1, y - y1) / L : z1;
}

float SpessoreDi(const Sessione& s, int32_t colore) {
  return colore >= 0 && colore <= kMassimoSpessori ? s.Spessori.Spessore[static_cast<size_t>(colore)] : 1.0f;
}

// The attributes every record of one entity shares.
RecordDisegno RecordDi(const Sessione& s, uint8_t tipo, int32_t riga, int32_t colore, uint8_t stato,
                       const std::string& piano) {
  RecordDisegno b;
  b.Tipo = tipo;
  b.Riga = riga;
  b.Colore = ColoreVisibile(s, colore);
  b.Stato = stato;
  b.Piano = piano;
  b.Penna = static_cast<int16_t>(std::clamp<int32_t>(colore, -32768, 32767));
  b.Spessore = SpessoreDi(s, colore);
  return b;
}


}  // namespace

void RigeneraCorniceIngombro(Sessione& s) {
  if (s.Imp.MostraIngombroDisegno <= 0) return;
  const auto box = IngombroDisegno(s);
  if (!box) return;
  RecordDisegno r;
  r.Colore = ColoreVisibile(s, 250);
  r.Penna = 250;
  r.Tratto = static_cast<int16_t>(StilePenna::Punteggiato);
  const double x[5] = {box->XMin, box->XMax, box->XMax, box->XMin, box->XMin};
  const double y[5] = {box->YMin, box->YMin, box->YMax, box->YMax, box->YMin};
  for (int k = 0; k < 4; ++k) {
    r.X1 = x[k], r.Y1 = y[k], r.X2 = x[k + 1], r.Y2 = y[k + 1];
    s.ListaDisegno.Aggiungi(r);
  }
}

namespace {

// The kinds in the order of painting: what comes later lies over what comes before. Kinds
// that join the list take their place in this table.
constexpr GenereLista kOrdine[] = {
    {SlotBitmap, RigeneraBitMapSingola, &TabelleEntita::StatoBitmap},
    {SlotEdm, RigeneraRigaEstratto, nullptr},  // the map extract; then its stations
    {SlotFalde, RigeneraFalda, &TabelleEntita::StatoFalda},
    {SlotSezioni, RigeneraSezione, &TabelleEntita::StatoSezione},
    {SlotCurve, RigeneraCurva, &TabelleEntita::StatoCurva},
    {SlotArchi, RigeneraArco, &TabelleEntita::StatoArco},
    {SlotCerchi, RigeneraCerchio, &TabelleEntita::StatoCerchio},
    {SlotLinee, RigeneraLineaSingola, &TabelleEntita::StatoLinea},
    // Drawn from their points: a point moved moves every structure through it.
    {SlotSette, RigeneraSetteRiga, nullptr, SlotPunti},
    {SlotTesti, RigeneraTesto, &TabelleEntita::StatoTesto},  // after the Contorno-7 outlines
};

}  // namespace

int16_t ColoreVisibile(const Sessione& s, int32_t colore) {
  if (colore < 1 || colore == 8 || colore == 255) colore = 250;
  if (colore == s.Imp.Colore_Fondo_Default) return kIndiceEvidenza;
  return static_cast<int16_t>(std::min<int32_t>(colore, 32767));
}

bool ColoreDaIndice(const Sessione& s, int32_t indice, ColoreRGB& rgb) {
  if (indice == kIndiceEvidenza) {
    rgb = kColoreEvidenza;
    return true;
  }
  if (indice < 0 || indice > kMassimoColori) return false;
  rgb = s.Colori[indice];
  return true;
}

StileLinea StileDi(const Sessione& s, int t) {
  if (t < 2 || t >= kMassimoTratteggi) return {};
  const Tratteggio& stile = s.Tratteggi.Stili[static_cast<size_t>(t)];
  const int n = std::min(stile.NumeroElementi(), kMassimoElementi);
  if (n <= 0) return {};
  return {std::span<const double>(stile.Elementi.data() + 1, static_cast<size_t>(n)), stile.AngoloElemento};
}

void RigeneraLineaTutto(Sessione& s, RecordDisegno base, int tratteggio) {
  const double x1 = base.X1, y1 = base.Y1, x2 = base.X2, y2 = base.Y2;
  const PercorsoMotivo percorso(x1, y1, x2, y2, StileDi(s, tratteggio));
  switch (percorso.Come()) {
    case PercorsoMotivo::Modo::Nulla: return;
    case PercorsoMotivo::Modo::Piena: {
      base.Primitiva = PrimLinea;
      const double L = std::hypot(x2 - x1, y2 - y1), z1 = base.Z1, z2 = base.Z2;
      base.Z1 = QuotaLungo(x1, y1, z1, z2, L, x1, y1);
      base.Z2 = QuotaLungo(x1, y1, z1, z2, L, x2, y2);
      s.ListaDisegno.Aggiungi(base);
      return;
    }
    case PercorsoMotivo::Modo::Motivo: {
      // The pieces are not kept: a line of kilometres in dashes of metres would be thousands
      // of records, and a drawing of such lines millions. The record holds their box.
      const MotivoLinea m{0, x1, y1, base.Z1, x2, y2, base.Z2, tratteggio};
      if (!percorso.Riquadro(base.X1, base.Y1, base.X2, base.Y2)) return;
      s.ListaDisegno.AggiungiMotivo(base, m);
      return;
    }
  }
}

bool PezzoPiuVicino(const Sessione& s, int64_t i, double x, double y, double limite, PezzoMotivo& pezzo,
                    double& distanza) {
  const MotivoLinea* m = s.ListaDisegno.Motivo(i);
  if (!m || m->Arco) return false;
  const PercorsoMotivo percorso(m->X1, m->Y1, m->X2, m->Y2, StileDi(s, m->Tratteggio));
  const double L = percorso.Lunghezza();
  // Where the pointer falls along the line, and how far from it.
  const double ux = L > 0 ? (m->X2 - m->X1) / L : 0, uy = L > 0 ? (m->Y2 - m->Y1) / L : 0;
  const double t = (x - m->X1) * ux + (y - m->Y1) * uy, h = std::fabs((y - m->Y1) * ux - (x - m->X1) * uy);
  const double tc = std::clamp(t, 0.0, std::max(L, 0.0));
  // Some piece starts within two repeats before the foot or one after it, so none farther
  // than this can win; a piece is no longer than the longest element, so only those that
  // start this far along the line, and that much more, need a look.
  const double certo = h + std::fabs(t - tc) + 2 * percorso.Giro() + percorso.Massimo();
  const double raggio = std::min(std::isfinite(limite) ? limite : certo, certo) + percorso.Massimo();
  const double margine = 1e-9 * (std::fabs(m->X1) + std::fabs(m->Y1) + L) + 1e-9;
  bool trovato = false;
  distanza = limite;
  percorso.Pezzi(t - raggio - margine, t + raggio + margine, [&](const Tratto& p) {
    const double d = DistanzaDaSegmento({p.X1, p.Y1, 0}, {p.X2, p.Y2, 0}, {x, y, 0});
    // As when each piece was a record of its own: the later of two as near wins.
    if (!(d <= distanza)) return;
    distanza = d;
    trovato = true;
    pezzo = {p.X1, p.Y1, QuotaLungo(m->X1, m->Y1, m->Z1, m->Z2, L, p.X1, p.Y1),
             p.X2, p.Y2, QuotaLungo(m->X1, m->Y1, m->Z1, m->Z2, L, p.X2, p.Y2)};
  });
  return trovato;
}

void RigeneraLineaSingola(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.LineaIdent[r]) || s.LineaCongela[r] != 0) return;
  RecordDisegno b = RecordDi(s, SlotLinee, riga, s.LineaColore[r], s.StatoLinea[r], s.LineaPiano[r]);
  b.X1 = s.LineaX1[r], b.Y1 = s.LineaY1[r], b.Z1 = s.LineaZ1[r];
  b.X2 = s.LineaX2[r], b.Y2 = s.LineaY2[r], b.Z2 = s.LineaZ2[r];
  const AzimutEDistanza ad = AzimutDistanza(b.X1, b.Y1, b.X2, b.Y2);
  const double L = ad.Distanza, az = ad.Azimut;
  const double sa = std::sin(az), ca = std::cos(az);
  if (s.LineaQuotata[r] > 0) {
    // The length label stands along the line, at its distance from the start.
    const int decimali = std::clamp(static_cast<int>(s.Imp.LineaDecimali), 0, 5);
    const std::string testo = FormatoMaschera(L, "######0." + std::string("00000").substr(0, static_cast<size_t>(decimali)));
    RecordDisegno t = b;
    const double d = s.LineaOffsetQuota[r];
    t.X1 = t.X2 = b.X1 + d * sa;
    t.Y1 = t.Y2 = b.Y1 + d * ca;
    t.Primitiva = PrimTesto;
    t.Altezza = s.Imp.LineaMostraLunghezza;
    t.Rotazione = static_cast<float>(400.0 - az * RadToGon + 100.0);
    t.Testo = testo;
    t.Font = "Arial";
    s.ListaDisegno.Aggiungi(t);
  }
  if (s.LineaTronca[r] != 0) {
    // Shortened by the same length at both ends; a negative value lengthens.
    const double t = s.LineaTronca[r];
    b.X1 += t * sa, b.Y1 += t * ca;
    b.X2 -= t * sa, b.Y2 -= t * ca;
  }
  RigeneraLineaTutto(s, b, s.LineaTratteggio[r]);
}

void RigeneraArcoTratteggio(Sessione& s, RecordDisegno base, double xc, double yc, double raggio, double inizio,
                            double ampiezza, int tratteggio, double z0, double z1) {
  const PercorsoArco percorso(xc, yc, raggio, inizio, ampiezza, StileDi(s, tratteggio));
  if (percorso.Come() == PercorsoArco::Modo::Motivo) {
    // As for lines: the dashes of a great circle are made where they are painted.
    MotivoLinea m{0, xc, yc, z0, 0, 0, z1, tratteggio, true, raggio, percorso.Inizio(), percorso.Ampiezza()};
    percorso.Riquadro(base.X1, base.Y1, base.X2, base.Y2);
    s.ListaDisegno.AggiungiMotivo(base, m);
    return;
  }
  // A plain curve is at most some thousands of chords: kept.
  base.Primitiva = PrimLinea;
  percorso.Pezzi(0, percorso.Lunghezza(), [&](const TrattoArco& p) {
    base.X1 = p.X1, base.Y1 = p.Y1, base.Z1 = z0 + (z1 - z0) * p.T1;
    base.X2 = p.X2, base.Y2 = p.Y2, base.Z2 = z0 + (z1 - z0) * p.T2;
    s.ListaDisegno.Aggiungi(base);
  });
}

void RigeneraCerchio(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.CerchioIdent[r]) || s.CerchioCongela[r] != 0) return;
  const RecordDisegno b = RecordDi(s, SlotCerchi, riga, s.CerchioColore[r], s.StatoCerchio[r], s.CerchioPiano[r]);
  // A circle runs from azimuth 0 through 399.99 gon: the old program never closed the turn.
  RigeneraArcoTratteggio(s, b, s.CerchioX[r], s.CerchioY[r], s.CerchioRaggio[r], 0.0, 399.99 * GonToRad,
                         s.CerchioTratteggio[r], s.CerchioZ[r], s.CerchioZ[r]);
}

void RigeneraArco(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.ArcoIdent[r]) || s.ArcoCongela[r] != 0) return;
  const RecordDisegno b = RecordDi(s, SlotArchi, riga, s.ArcoColore[r], s.StatoArco[r], s.ArcoPiano[r]);
  // The record holds gon, as the user reads them; the curve is walked in radians. Angles past
  // a turn are taken in gon, where whole turns come off exactly.
  RigeneraArcoTratteggio(s, b, s.ArcoX[r], s.ArcoY[r], s.ArcoRaggio[r], std::fmod(s.ArcoInizio[r], 400.0) * GonToRad,
                         AmpiezzaInUnGiro(s.ArcoFine[r]) * GonToRad, s.ArcoTratteggio[r], s.ArcoQuotaInizio[r],
                         s.ArcoQuotaFinale[r]);
}

void RigeneraTesto(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.TestoIdent[r]) || s.TestoCongela[r] != 0) return;
  RecordDisegno t;
  t.Tipo = SlotTesti;
  t.Riga = riga;
  t.Primitiva = PrimTesto;
  t.X1 = s.TestoX[r], t.Y1 = s.TestoY[r];
  // The second point closes the line of the text, roughly, so that the text is found and
  // framed where it stands and not only at its insertion.
  const double a = s.TestoRotazione[r] * GonToRad;
  const double lunghezza = 0.6 * s.TestoAltezza[r] * static_cast<double>(s.TestoTesto[r].size());
  t.X2 = t.X1 + lunghezza * std::cos(a);
  t.Y2 = t.Y1 + lunghezza * std::sin(a);
  t.Colore = ColoreVisibile(s, s.TestoColore[r]);
  t.Stato = s.StatoTesto[r];
  t.Altezza = static_cast<float>(s.TestoAltezza[r]);
  t.Rotazione = static_cast<float>(s.TestoRotazione[r]);
  t.Font = s.TestoFont[r];
  t.Testo = s.TestoTesto[r];
  t.Piano = s.TestoPiano[r];
  t.Penna = static_cast<int16_t>(std::clamp<int32_t>(s.TestoColore[r], -32768, 32767));
  s.ListaDisegno.Aggiungi(t);
}

void RigeneraBitMapSingola(Sessione& s, int32_t riga) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.BitmapIdent[r]) || s.BitmapCongela[r] != 0) return;
  const double x0 = s.BitmapX[r], y0 = s.BitmapY[r];
  const double x1 = x0 + s.BitmapLarghezza[r] * s.BitmapScalaLar[r];
  const double y1 = y0 - s.BitmapAltezza[r] * s.BitmapScalaAlt[r];
  RecordDisegno b;
  b.Tipo = SlotBitmap;
  b.Riga = riga;
  b.Colore = ColoreVisibile(s, 250);
  b.Stato = s.StatoBitmap[r];
  b.Piano = s.BitmapPiano[r];
  b.Penna = 250;
  b.Tratto = static_cast<int16_t>(StilePenna::Punteggiato);
  const double x[5] = {x0, x1, x1, x0, x0}, y[5] = {y0, y0, y1, y1, y0};
  for (int k = 0; k < 4; ++k) {
    b.X1 = x[k], b.Y1 = y[k], b.X2 = x[k + 1], b.Y2 = y[k + 1];
    s.ListaDisegno.Aggiungi(b);
  }
}

namespace {

// The boxes the grids and the trees hold. The list's grid: a circle by its square, any
// other record by its two points.
auto AngoliLista(const ElencoDisegno& l) {
  return [&l](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    if (l.Primitiva[k] == PrimCerchio) {
      a = l.X1[k] - l.Altezza[k], b = l.Y1[k] - l.Altezza[k];
      c = l.X1[k] + l.Altezza[k], d = l.Y1[k] + l.Altezza[k];
    } else {
      a = l.X1[k], b = l.Y1[k], c = l.X2[k], d = l.Y2[k];
    }
  };
}

auto AngoliPunto(const Sessione& s) {
  return [&s](int64_t i, double& a, double& b, double& c, double& d) {
    a = c = s.PuntoX[static_cast<size_t>(i)];
    b = d = s.PuntoY[static_cast<size_t>(i)];
  };
}

// A point is measured at the North offset of its label.
auto VicinoPunto(const Sessione& s) {
  return [&s](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    a = c = s.PuntoX[k];
    b = d = s.PuntoY[k] + s.PuntoSpoY[k];
    return true;
  };
}

template <class Tipo>
auto Segmenti(const ElencoDisegno& l, Tipo tipo) {
  return [&l, tipo](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    if ((l.Primitiva[k] != PrimLinea && l.Primitiva[k] != PrimMotivo) || !tipo(l.Tipo[k])) return false;
    a = l.X1[k], b = l.Y1[k], c = l.X2[k], d = l.Y2[k];
    return true;
  };
}
constexpr auto kSoloLinee = [](uint8_t t) { return t == SlotLinee; };
constexpr auto kAltreLinee = [](uint8_t t) {
  return t == SlotFalde || t == SlotSette || t == SlotSezioni || t == SlotBitmap || t == 14;
};

auto VicinoCerchio(const Sessione& s) {
  return [&s](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    const double r = std::fabs(s.CerchioRaggio[k]);
    a = s.CerchioX[k] - r, b = s.CerchioY[k] - r, c = s.CerchioX[k] + r, d = s.CerchioY[k] + r;
    return true;
  };
}

// An arc by the box of its whole circle: a little more than it covers, never less.
auto VicinoArco(const Sessione& s) {
  return [&s](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    const double r = std::fabs(s.ArcoRaggio[k]);
    a = s.ArcoX[k] - r, b = s.ArcoY[k] - r, c = s.ArcoX[k] + r, d = s.ArcoY[k] + r;
    return true;
  };
}

auto VicinoTesto(const Sessione& s) {
  return [&s](int64_t i, double& a, double& b, double& c, double& d) {
    a = c = s.TestoX[static_cast<size_t>(i)];
    b = d = s.TestoY[static_cast<size_t>(i)];
    return true;
  };
}

// The runs of rows of a slot to make again, in order and apart: those marked, clamped to the
// rows there were and are, and the rows added or gone since.
std::vector<std::pair<int32_t, int32_t>> RigheDaRifare(const RigheCambiate& c, int64_t prima, int64_t ora) {
  const auto fine = static_cast<int32_t>(std::max(prima, ora));
  std::vector<std::pair<int32_t, int32_t>> t;
  if (c.Tutte) {
    if (fine > 0) t.emplace_back(0, fine - 1);
    return t;
  }
  for (auto [da, a] : c.Tratti)
    if (da < fine) t.emplace_back(da, std::min(a, fine - 1));
  const auto minimo = static_cast<int32_t>(std::min(prima, ora));
  if (minimo < fine) t.emplace_back(minimo, fine - 1);
  std::sort(t.begin(), t.end());
  std::vector<std::pair<int32_t, int32_t>> uniti;
  for (const auto& r : t) {
    if (!uniti.empty() && r.first <= static_cast<int64_t>(uniti.back().second) + 1)
      uniti.back().second = std::max(uniti.back().second, r.second);
    else
      uniti.push_back(r);
  }
  return uniti;
}

// Rows of a table index after a change: those in `tratti` are gone from their old places
// and come again, with those past the end gone.
template <class Indice, class Angoli>
void AggiornaRighe(Indice& indice, const std::vector<std::pair<int32_t, int32_t>>& tratti, int64_t righe,
                   Angoli angoli) {
  if (tratti.empty()) return;
  std::vector<int64_t> nuovi;
  for (auto [da, a] : tratti)
    for (int64_t r = da; r <= a && r < righe; ++r) nuovi.push_back(r);
  auto mappa = [&tratti, righe](int64_t i) -> int64_t {
    if (i >= righe) return -1;
    auto it = std::upper_bound(tratti.begin(), tratti.end(), i,
                               [](int64_t v, const std::pair<int32_t, int32_t>& t) { return v < t.first; });
    return it != tratti.begin() && i <= std::prev(it)->second ? -1 : i;
  };
  indice.Aggiorna(righe, mappa, nuovi, angoli);
}

// Old records to new ones, after runs of the list were replaced.
class Spostamenti {
 public:
  explicit Spostamenti(const std::vector<Sostituzione>& sost) : sost_(sost), prima_(sost.size() + 1, 0) {
    for (size_t k = 0; k < sost.size(); ++k) prima_[k + 1] = prima_[k] + sost[k].QuantiNuovi - sost[k].Quanti;
  }
  // The shift of the records before run `k`.
  int64_t Prima(size_t k) const { return prima_[k]; }
  // The new place of old record `i`; -1 for a record replaced.
  int64_t operator()(int64_t i) const {
    auto it = std::upper_bound(sost_.begin(), sost_.end(), i, [](int64_t v, const Sostituzione& r) { return v < r.Da; });
    if (it == sost_.begin()) return i;
    const auto k = static_cast<size_t>(it - sost_.begin());
    const Sostituzione& r = sost_[k - 1];
    return i < r.Da + r.Quanti ? -1 : i + prima_[k];
  }

 private:
  const std::vector<Sostituzione>& sost_;
  std::vector<int64_t> prima_;
};

// Every record's selection state as its row's byte, as a regeneration copies it: the
// selection changes the tables' bytes without marking rows.
void CopiaStati(Sessione& s) {
  std::array<const std::vector<uint8_t>*, 256> colonna{};
  for (const GenereLista& g : kOrdine)
    if (g.Stato) colonna[static_cast<size_t>(g.Slot)] = &(s.*g.Stato);
  ElencoDisegno& l = s.ListaDisegno;
  for (size_t k = 0; k < static_cast<size_t>(l.Conta()); ++k)
    if (const auto* c = colonna[l.Tipo[k]]) l.Stato[k] = (*c)[static_cast<size_t>(l.Riga[k])];
}

void Mescola(uint64_t& h, const void* dati, size_t n) {
  const auto* p = static_cast<const unsigned char*>(dati);
  for (size_t k = 0; k < n; ++k) h = (h ^ p[k]) * 1099511628211ull;
}

// The rows of one kind made again: the runs remade, the first of them in the list of runs,
// and where each row remade begins in the list apart, with the end last.
struct Rifatto {
  size_t PrimaSost;
  std::vector<std::pair<int32_t, int32_t>> Tratti;
  std::vector<int64_t> Inizio;
};

// The records of the rows changed, made in `nuovi` in the order of the list, each run of rows
// replacing the records its rows had.
std::vector<Rifatto> RifaiRighe(Sessione& s, ElencoDisegno& nuovi, std::vector<Sostituzione>& sost) {
  const StatoRigenerazione& st = s.Rigenerazione;
  std::vector<Rifatto> rifatti;
  // The regenerators append to the session's list: they are given the list apart.
  std::swap(s.ListaDisegno, nuovi);
  for (const GenereLista& g : kOrdine) {
    const std::vector<int64_t>& primo = st.Primo[static_cast<size_t>(g.Slot)];
    const auto prima = static_cast<int64_t>(primo.size()) - 1;
    const int64_t ora = std::max(s.ContaEntita[static_cast<size_t>(g.Slot)], 0);
    RigheCambiate segnate = s.DaRigenerare[static_cast<size_t>(g.Slot)];
    if (g.Dipende >= 0 && !s.DaRigenerare[static_cast<size_t>(g.Dipende)].Vuote()) segnate.SegnaTutte();
    Rifatto f{sost.size(), RigheDaRifare(segnate, prima, ora), {}};
    for (auto [da, a] : f.Tratti) {
      Sostituzione r;
      r.Da = primo[static_cast<size_t>(std::min<int64_t>(da, prima))];
      r.Quanti = primo[static_cast<size_t>(std::min<int64_t>(int64_t{a} + 1, prima))] - r.Da;
      r.DaNuovi = s.ListaDisegno.Conta();
      for (int32_t riga = da; riga <= a && riga < ora; ++riga) {
        f.Inizio.push_back(s.ListaDisegno.Conta());
        g.Riga(s, riga);
      }
      r.QuantiNuovi = s.ListaDisegno.Conta() - r.DaNuovi;
      sost.push_back(r);
    }
    f.Inizio.push_back(s.ListaDisegno.Conta());
    rifatti.push_back(std::move(f));
  }
  std::swap(s.ListaDisegno, nuovi);
  return rifatti;
}

// Where each row of a kind now begins: a row remade by its new records, any other by its old
// ones, all after the shift of the runs before the kind.
void SpostaPrimi(std::vector<int64_t>& primo, const Rifatto& f, int32_t righe, int64_t spostamento) {
  const auto ora = static_cast<int64_t>(std::max(righe, 0));
  const auto prima = static_cast<int64_t>(primo.size()) - 1;
  std::vector<int64_t> nuovo(static_cast<size_t>(ora) + 1);
  int64_t pos = primo[0] + spostamento;
  size_t t = 0, rifatta = 0;
  for (int64_t r = 0; r < ora; ++r) {
    while (t < f.Tratti.size() && f.Tratti[t].second < r) ++t;
    nuovo[static_cast<size_t>(r)] = pos;
    if (t < f.Tratti.size() && f.Tratti[t].first <= r) {
      pos += f.Inizio[rifatta + 1] - f.Inizio[rifatta];
      ++rifatta;
    } else if (r < prima) {
      pos += primo[static_cast<size_t>(r) + 1] - primo[static_cast<size_t>(r)];
    }
  }
  nuovo.back() = pos;
  primo.swap(nuovo);
}

// The indexes after the list changed: its records by their new places, the tables' rows
// that changed.
void AggiornaIndici(Sessione& s, const Spostamenti& sposta, const std::vector<int64_t>& recordNuovi) {
  const ElencoDisegno& l = s.ListaDisegno;
  s.IndiceLista.Aggiorna(l.Conta(), sposta, recordNuovi, AngoliLista(l));
  s.Vicinanza.Linee.Aggiorna(l.Conta(), sposta, recordNuovi, Segmenti(l, kSoloLinee));
  s.Vicinanza.AltreLinee.Aggiorna(l.Conta(), sposta, recordNuovi, Segmenti(l, kAltreLinee));
  auto tratti = [&s](int slot, const auto& indice) {
    return RigheDaRifare(s.DaRigenerare[static_cast<size_t>(slot)], indice.Elementi(),
                         s.ContaEntita[static_cast<size_t>(slot)]);
  };
  const int64_t punti = s.ContaEntita[SlotPunti];
  AggiornaRighe(s.IndicePunti, tratti(SlotPunti, s.IndicePunti), punti, AngoliPunto(s));
  AggiornaRighe(s.Vicinanza.Punti, tratti(SlotPunti, s.Vicinanza.Punti), punti, VicinoPunto(s));
  AggiornaRighe(s.Vicinanza.Cerchi, tratti(SlotCerchi, s.Vicinanza.Cerchi), s.ContaEntita[SlotCerchi], VicinoCerchio(s));
  AggiornaRighe(s.Vicinanza.Archi, tratti(SlotArchi, s.Vicinanza.Archi), s.ContaEntita[SlotArchi], VicinoArco(s));
  AggiornaRighe(s.Vicinanza.Testi, tratti(SlotTesti, s.Vicinanza.Testi), s.ContaEntita[SlotTesti], VicinoTesto(s));
}

}  // namespace

std::span<const GenereLista> GeneriLista() { return kOrdine; }

uint64_t ImprontaRigenerazione(const Sessione& s) {
  uint64_t h = 14695981039346656037ull;
  const Impostazioni& i = s.Imp;
  Mescola(h, &i.Colore_Fondo_Default, sizeof i.Colore_Fondo_Default);
  Mescola(h, &i.LineaDecimali, sizeof i.LineaDecimali);
  Mescola(h, &i.LineaMostraLunghezza, sizeof i.LineaMostraLunghezza);
  Mescola(h, &i.MostraIngombroDisegno, sizeof i.MostraIngombroDisegno);
  const StatoTerreno& t = s.Terreno;
  Mescola(h, &t.EtichetteFalde, sizeof t.EtichetteFalde);
  Mescola(h, &t.AltezzaNumero, sizeof t.AltezzaNumero);
  Mescola(h, &t.AltezzaValori, sizeof t.AltezzaValori);
  Mescola(h, &t.EtichetteCurve, sizeof t.EtichetteCurve);
  Mescola(h, &t.AltezzaEtichettaCurve, sizeof t.AltezzaEtichettaCurve);
  Mescola(h, &t.DecimaliCurve, sizeof t.DecimaliCurve);
  Mescola(h, s.Spessori.Spessore.data(), sizeof s.Spessori.Spessore);
  for (const Tratteggio& t : s.Tratteggi.Stili) {
    Mescola(h, t.Elementi.data(), sizeof t.Elementi);
    Mescola(h, &t.AngoloElemento, sizeof t.AngoloElemento);
  }
  return h;
}

void IndicizzaDisegno(Sessione& s) {
  s.IndiceLista.Costruisci(s.ListaDisegno.Conta(), AngoliLista(s.ListaDisegno));
  s.IndicePunti.Costruisci(s.ContaEntita[SlotPunti], AngoliPunto(s));
  IndicizzaVicinanza(s);
}

void IndicizzaVicinanza(Sessione& s) {
  IndiciVicinanza& v = s.Vicinanza;
  const ElencoDisegno& l = s.ListaDisegno;
  v.Punti.Costruisci(s.ContaEntita[SlotPunti], VicinoPunto(s));
  v.Linee.Costruisci(l.Conta(), Segmenti(l, kSoloLinee));
  v.AltreLinee.Costruisci(l.Conta(), Segmenti(l, kAltreLinee));
  v.Cerchi.Costruisci(s.ContaEntita[SlotCerchi], VicinoCerchio(s));
  v.Archi.Costruisci(s.ContaEntita[SlotArchi], VicinoArco(s));
  v.Testi.Costruisci(s.ContaEntita[SlotTesti], VicinoTesto(s));
}

void RigeneraLista(Sessione& s) {
  s.RoutineCorrente = "Rigenerazione1";
  s.ListaDisegno.Svuota();
  StatoRigenerazione& st = s.Rigenerazione;
  ++st.Passata;
  // A large job takes a while: each kind done, and the indexes, are a step of its progress.
  constexpr auto kPassi = static_cast<int64_t>(std::size(kOrdine)) + 2;
  int64_t passo = 0;
  s.Ui->Progresso(passo, kPassi);
  for (const GenereLista& g : kOrdine) {
    const int32_t righe = std::max(s.ContaEntita[static_cast<size_t>(g.Slot)], 0);
    std::vector<int64_t>& primo = st.Primo[static_cast<size_t>(g.Slot)];
    primo.assign(static_cast<size_t>(righe) + 1, 0);
    for (int32_t r = 0; r < righe; ++r) {
      primo[static_cast<size_t>(r)] = s.ListaDisegno.Conta();
      g.Riga(s, r);
    }
    primo.back() = s.ListaDisegno.Conta();
    s.Ui->Progresso(++passo, kPassi);
  }
  st.PrimoCornice = s.ListaDisegno.Conta();
  RigeneraCorniceIngombro(s);
  s.Ui->Progresso(++passo, kPassi);
  IndicizzaDisegno(s);
  for (RigheCambiate& c : s.DaRigenerare) c.Azzera();
  st.Conta = s.ListaDisegno.Conta();
  st.Impronta = ImprontaRigenerazione(s);
  st.Valida = true;
  s.Ui->Progresso(kPassi, kPassi);
}

void RigeneraModifiche(Sessione& s) {
  StatoRigenerazione& st = s.Rigenerazione;
  if (!st.Valida || s.ListaDisegno.Conta() < st.Conta || st.Impronta != ImprontaRigenerazione(s)) {
    RigeneraLista(s);
    return;
  }
  s.RoutineCorrente = "Rigenerazione1";
  ++st.Passata;
  ElencoDisegno nuovi;
  std::vector<Sostituzione> sost;
  const std::vector<Rifatto> rifatti = RifaiRighe(s, nuovi, sost);
  // The frame of the extent goes, and is made again over the list as it now stands. So do
  // the records appended since for a quick look (a line just drawn): their rows are marked,
  // and come back in their places.
  sost.push_back({st.PrimoCornice, st.Conta - st.PrimoCornice, nuovi.Conta(), 0});
  sost.push_back({st.Conta, s.ListaDisegno.Conta() - st.Conta, nuovi.Conta(), 0});
  const Spostamenti sposta(sost);
  s.ListaDisegno.Sostituisci(sost, nuovi);
  std::vector<int64_t> recordNuovi;
  for (size_t k = 0; k < sost.size(); ++k)
    for (int64_t j = 0; j < sost[k].QuantiNuovi; ++j) recordNuovi.push_back(sost[k].Da + sposta.Prima(k) + j);
  for (size_t n = 0; n < std::size(kOrdine); ++n)
    SpostaPrimi(st.Primo[static_cast<size_t>(kOrdine[n].Slot)], rifatti[n], s.ContaEntita[static_cast<size_t>(kOrdine[n].Slot)],
                sposta.Prima(std::min(rifatti[n].PrimaSost, sost.size())));
  st.PrimoCornice = s.ListaDisegno.Conta();
  RigeneraCorniceIngombro(s);
  for (int64_t i = st.PrimoCornice; i < s.ListaDisegno.Conta(); ++i) recordNuovi.push_back(i);
  CopiaStati(s);
  AggiornaIndici(s, sposta, recordNuovi);
  for (RigheCambiate& c : s.DaRigenerare) c.Azzera();
  st.Conta = s.ListaDisegno.Conta();
}

void Rigenerazione1(Sessione& s) {
  RigeneraLista(s);
  Ridisegna(s);
}

}  // namespace varena
