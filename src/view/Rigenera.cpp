// The regenerators of each kind, in the order of painting.
#include "view/Rigenera.h"

#include <cmath>

#include "cadastre/ContornoSette.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"
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


void RigeneraImmagini(Sessione& s) {
  for (int32_t r = 0; r < s.ContaEntita[SlotBitmap]; ++r) RigeneraBitMapSingola(s, r);
}
void RigeneraArchi(Sessione& s) {
  for (int32_t r = 0; r < s.ContaEntita[SlotArchi]; ++r) RigeneraArco(s, r);
}
void RigeneraCerchi(Sessione& s) {
  for (int32_t r = 0; r < s.ContaEntita[SlotCerchi]; ++r) RigeneraCerchio(s, r);
}
void RigeneraLinee(Sessione& s) {
  for (int32_t r = 0; r < s.ContaEntita[SlotLinee]; ++r) RigeneraLineaSingola(s, r);
}
void RigeneraTesti(Sessione& s) {
  for (int32_t r = 0; r < s.ContaEntita[SlotTesti]; ++r) RigeneraTesto(s, r);
}

// The frame of the drawing's extent, when the setting asks for it.
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

// The order of painting: what comes later lies over what comes before. Kinds that join the
// list take their place in this table.
using Rigeneratore = void (*)(Sessione&);
constexpr Rigeneratore kOrdine[] = {
    RigeneraImmagini,  // then the map extract and its stations
    RigeneraFalde,     // then sections
    RigeneraArchi,   RigeneraCerchi, RigeneraLinee,
    RigeneraSetteSette,
    RigeneraTesti,     // after the Contorno-7 outlines
    RigeneraCorniceIngombro,
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

void IndicizzaDisegno(Sessione& s) {
  const ElencoDisegno& l = s.ListaDisegno;
  s.IndiceLista.Costruisci(l.Conta(), [&l](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    if (l.Primitiva[k] == PrimCerchio) {
      a = l.X1[k] - l.Altezza[k], b = l.Y1[k] - l.Altezza[k];
      c = l.X1[k] + l.Altezza[k], d = l.Y1[k] + l.Altezza[k];
    } else {
      a = l.X1[k], b = l.Y1[k], c = l.X2[k], d = l.Y2[k];
    }
  });
  const int64_t punti = s.ContaEntita[SlotPunti];
  s.IndicePunti.Costruisci(punti, [&s](int64_t i, double& a, double& b, double& c, double& d) {
    a = c = s.PuntoX[static_cast<size_t>(i)];
    b = d = s.PuntoY[static_cast<size_t>(i)];
  });
  IndicizzaVicinanza(s);
}

void IndicizzaVicinanza(Sessione& s) {
  IndiciVicinanza& v = s.Vicinanza;
  const ElencoDisegno& l = s.ListaDisegno;
  // A point is measured at the North offset of its label.
  v.Punti.Costruisci(s.ContaEntita[SlotPunti], [&s](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    a = c = s.PuntoX[k];
    b = d = s.PuntoY[k] + s.PuntoSpoY[k];
    return true;
  });
  auto segmenti = [&l](auto tipo) {
    return [&l, tipo](int64_t i, double& a, double& b, double& c, double& d) {
      const auto k = static_cast<size_t>(i);
      if ((l.Primitiva[k] != PrimLinea && l.Primitiva[k] != PrimMotivo) || !tipo(l.Tipo[k])) return false;
      a = l.X1[k], b = l.Y1[k], c = l.X2[k], d = l.Y2[k];
      return true;
    };
  };
  v.Linee.Costruisci(l.Conta(), segmenti([](uint8_t t) { return t == SlotLinee; }));
  v.AltreLinee.Costruisci(l.Conta(), segmenti([](uint8_t t) {
    return t == SlotFalde || t == SlotSette || t == SlotSezioni || t == SlotBitmap || t == 14;
  }));
  v.Cerchi.Costruisci(s.ContaEntita[SlotCerchi], [&s](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    const double r = std::fabs(s.CerchioRaggio[k]);
    a = s.CerchioX[k] - r, b = s.CerchioY[k] - r, c = s.CerchioX[k] + r, d = s.CerchioY[k] + r;
    return true;
  });
  // An arc by the box of its whole circle: a little more than it covers, never less.
  v.Archi.Costruisci(s.ContaEntita[SlotArchi], [&s](int64_t i, double& a, double& b, double& c, double& d) {
    const auto k = static_cast<size_t>(i);
    const double r = std::fabs(s.ArcoRaggio[k]);
    a = s.ArcoX[k] - r, b = s.ArcoY[k] - r, c = s.ArcoX[k] + r, d = s.ArcoY[k] + r;
    return true;
  });
  v.Testi.Costruisci(s.ContaEntita[SlotTesti], [&s](int64_t i, double& a, double& b, double& c, double& d) {
    a = c = s.TestoX[static_cast<size_t>(i)];
    b = d = s.TestoY[static_cast<size_t>(i)];
    return true;
  });
}

void RigeneraLista(Sessione& s) {
  s.RoutineCorrente = "Rigenerazione1";
  s.ListaDisegno.Svuota();
  // A large job takes a while: each kind done, and the indexes, are a step of its progress.
  constexpr auto kPassi = static_cast<int64_t>(std::size(kOrdine)) + 1;
  int64_t passo = 0;
  s.Ui->Progresso(passo, kPassi);
  for (Rigeneratore f : kOrdine) {
    f(s);
    s.Ui->Progresso(++passo, kPassi);
  }
  IndicizzaDisegno(s);
  s.Ui->Progresso(kPassi, kPassi);
}

void Rigenerazione1(Sessione& s) {
  RigeneraLista(s);
  Ridisegna(s);
}

}  // namespace varena
