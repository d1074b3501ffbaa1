// `ApplicaSelezione`: what each command on a selection does to each selected row.
#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <unordered_set>
#include <vector>

#include "commands/RoutineModifica.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"

namespace varena {

namespace {

double Norma400(double g) {
  g = std::fmod(g, 400.0);
  return g < 0 ? g + 400.0 : g;
}

// The plan transform of a command, with what it does to directions and sizes.
struct Trasformazione {
  int32_t Codice = 0;
  double DX = 0, DY = 0, DZ = 0;  // translation (142, 143, 216; the second part of 414)
  double Fattore = 1;             // 144; the scale of a framing's similarity for 192
  PuntoXYZ Centro;                // 144, 146, 414; a point of the axis for 147
  double Angolo = 0;              // radians, clockwise as azimuths: 146, 414, 192
  double Asse = 0;                // azimuth of the mirror's axis, radians
  PuntoXYZ Origine, NuovaOrigine; // 192

  PuntoXYZ Punto(double x, double y, double z) const {
    switch (Codice) {
      case 142:
      case 143: return {x + DX, y + DY, z + DZ};
      case 216: return {x, y, z + DZ};
      case 144:
        // The unit factor is the identity to the last bit, as the user expects of it.
        if (Fattore == 1) return {x, y, z};
        return {Centro.X + Fattore * (x - Centro.X), Centro.Y + Fattore * (y - Centro.Y), z};
      case 146: {
        const PuntoXYZ p = RuotaPunto({x, y, z}, Centro, Angolo * RadToGon);
        return {p.X, p.Y, z};
      }
      case 147: {
        const double ux = std::sin(Asse), uy = std::cos(Asse);
        const double vx = x - Centro.X, vy = y - Centro.Y;
        const double d = vx * ux + vy * uy;
        return {Centro.X + 2 * d * ux - vx, Centro.Y + 2 * d * uy - vy, z};
      }
      case 414: {
        const PuntoXYZ p = RuotaPunto({x, y, z}, Centro, Angolo * RadToGon);
        return {p.X + DX, p.Y + DY, z};
      }
      case 192: {
        // Targets equal to the sources (two PF the archive lacks) are the identity to the
        // last bit: the drawing must not creep by the rounding of a polar round trip.
        if (Angolo == 0 && Fattore == 1 && NuovaOrigine.X == Origine.X && NuovaOrigine.Y == Origine.Y)
          return {x, y, z};
        const AzimutEDistanza ad = AzimutDistanza(Origine.X, Origine.Y, x, y);
        const PuntoXYZ p = Polare(NuovaOrigine.X, NuovaOrigine.Y, ad.Azimut + Angolo, ad.Distanza * Fattore);
        return {p.X, p.Y, z};
      }
      default: return {x, y, z};
    }
  }
  void Piano(double& x, double& y) const {
    const PuntoXYZ p = Punto(x, y, 0);
    x = p.X, y = p.Y;
  }
  // A direction turns clockwise by the rotation of the command, in gon.
  double Rotazione() const { return Codice == 146 || Codice == 414 || Codice == 192 ? Angolo * RadToGon : 0; }
  // The roto-translation scales only when a framing asks for the similarity.
  double Scala() const { return Codice == 144 || Codice == 192 ? Fattore : 1; }
};

// The names of the points copied: after the name of each original, the first free one, as
// the next name of a new point is found. A survey numbered 1 to 10^5 copied whole must not
// look at every taken number once per point: for each head of a name the run of numbers
// found taken is remembered.
class NomiNuovi {
 public:
  explicit NomiNuovi(const Sessione& s) {
    for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
      if (IdentVivo(s.PuntoIdent[static_cast<size_t>(r)])) presi_.insert(s.PuntoNome[static_cast<size_t>(r)]);
  }
  std::string Dopo(const std::string& nome) {
    size_t coda = nome.size();
    while (coda > 0 && nome[coda - 1] >= '0' && nome[coda - 1] <= '9') --coda;
    const std::string testa = nome.substr(0, coda);
    double n = Val(std::string_view(nome).substr(coda)) + 1;
    Tratto& t = tratti_[testa];
    std::string precedente = nome;
    for (;;) {
      if (t.Valido && n >= t.Da && n <= t.A) n = t.A + 1;
      std::string candidato = testa + FormatoMaschera(n, "#################");
      // A tail too long for a double to grow leaves the name as it is.
      if (candidato == precedente || !presi_.contains(candidato)) {
        Allunga(t, n);
        presi_.insert(candidato);
        return candidato;
      }
      Allunga(t, n);
      precedente = std::move(candidato);
      n += 1;
    }
  }

 private:
  struct Tratto {
    bool Valido = false;
    double Da = 0, A = 0;
  };
  // `n` is taken now: the run grows when it touches it, or a run starts there.
  static void Allunga(Tratto& t, double n) {
    if (t.Valido && n == t.A + 1) {
      t.A = n;
    } else if (t.Valido && n == t.Da - 1) {
      t.Da = n;
    } else if (!t.Valido || !(n >= t.Da && n <= t.A)) {
      t = {true, n, n};
    }
  }
  std::unordered_set<std::string> presi_;
  std::map<std::string, Tratto> tratti_;
};

template <class Tab>
void CopiaRiga(Tab& tab, size_t da, size_t a) {
  tab.PerOgniColonna([da, a](auto& c) { c[a] = c[da]; });
}

// A copy of row `r` appended at the end of its table; its state byte is 0. Returns it.
template <class Tab>
size_t Accoda(Sessione& s, int slot, void (*dimensiona)(TabelleEntita&), Tab& tab, size_t r) {
  dimensiona(s);
  const auto nuova = static_cast<size_t>(s.ContaEntita[static_cast<size_t>(slot)]);
  CopiaRiga(tab, r, nuova);
  s.ContaEntita[static_cast<size_t>(slot)] += 1;
  return nuova;
}

// Every selected row of a kind, or a copy of it when the command makes copies; `fai` works
// on the row given. Each row touched is marked, and each copy appended.
template <class Tab, class Fai>
bool PerOgniSelezionata(Sessione& s, int slot, void (*dimensiona)(TabelleEntita&), Tab& tab,
                        std::vector<uint8_t>& stato, bool copia, Fai fai) {
  const auto n = static_cast<size_t>(std::max(s.ContaEntita[static_cast<size_t>(slot)], 0));
  bool fatto = false;
  if (copia) {
    size_t quante = 0;
    for (size_t r = 0; r < n && r < stato.size(); ++r) quante += stato[r] == 1;
    if (quante == 0) return false;
    if (slot != SlotBitmap) PreparaRighe(s, slot, static_cast<int64_t>(n + quante));
  }
  for (size_t r = 0; r < n && r < stato.size(); ++r) {
    if (stato[r] != 1) continue;
    if (copia) {
      const size_t k = Accoda(s, slot, dimensiona, tab, r);
      stato[k] = 0;
      fai(k);
    } else {
      fai(r);
      SegnaRiga(s, slot, static_cast<int64_t>(r));
    }
    fatto = true;
  }
  return fatto;
}

bool Trasforma(Sessione& s, const Trasformazione& t, bool copia) {
  const double giro = t.Rotazione(), f = t.Scala();
  const bool riflessione = t.Codice == 147;
  const double asseGon = t.Asse * RadToGon;
  bool fatto = false;
  std::optional<NomiNuovi> nomi;
  if (copia) nomi.emplace(s);

  fatto |= PerOgniSelezionata(s, SlotPunti, DimensionaPunti, static_cast<TabellaPunti&>(s), s.StatoPunto, copia,
                              [&](size_t k) {
                                const PuntoXYZ p = t.Punto(s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]);
                                if (t.Codice == 192) {
                                  // The label's offset turns with the point.
                                  const PuntoXYZ q = t.Punto(s.PuntoX[k] + s.PuntoSpoX[k], s.PuntoY[k] + s.PuntoSpoY[k], 0);
                                  s.PuntoSpoX[k] = q.X - p.X;
                                  s.PuntoSpoY[k] = q.Y - p.Y;
                                }
                                s.PuntoX[k] = p.X, s.PuntoY[k] = p.Y, s.PuntoZ[k] = p.Z;
                                if (copia) s.PuntoNome[k] = nomi->Dopo(Rifila(s.PuntoNome[k]));
                              });
  fatto |= PerOgniSelezionata(s, SlotLinee, DimensionaLinee, static_cast<TabellaLinee&>(s), s.StatoLinea, copia,
                              [&](size_t k) {
                                const PuntoXYZ a = t.Punto(s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k]);
                                const PuntoXYZ b = t.Punto(s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]);
                                s.LineaX1[k] = a.X, s.LineaY1[k] = a.Y, s.LineaZ1[k] = a.Z;
                                s.LineaX2[k] = b.X, s.LineaY2[k] = b.Y, s.LineaZ2[k] = b.Z;
                              });
  fatto |= PerOgniSelezionata(s, SlotCerchi, DimensionaCerchi, static_cast<TabellaCerchi&>(s), s.StatoCerchio, copia,
                              [&](size_t k) {
                                const PuntoXYZ c = t.Punto(s.CerchioX[k], s.CerchioY[k], s.CerchioZ[k]);
                                s.CerchioX[k] = c.X, s.CerchioY[k] = c.Y, s.CerchioZ[k] = c.Z;
                                s.CerchioRaggio[k] *= f;
                              });
  fatto |= PerOgniSelezionata(s, SlotArchi, DimensionaArchi, static_cast<TabellaArchi&>(s), s.StatoArco, copia,
                              [&](size_t k) {
                                const PuntoXYZ c = t.Punto(s.ArcoX[k], s.ArcoY[k], s.ArcoZ[k]);
                                const double dz = c.Z - s.ArcoZ[k];
                                s.ArcoX[k] = c.X, s.ArcoY[k] = c.Y, s.ArcoZ[k] = c.Z;
                                s.ArcoQuotaInizio[k] += dz;
                                s.ArcoQuotaFinale[k] += dz;
                                s.ArcoRaggio[k] *= f;
                                if (riflessione) {
                                  // The ends change places across the axis: the reflected end
                                  // is the new start, the sweep stays.
                                  s.ArcoInizio[k] = Norma400(2 * asseGon - s.ArcoInizio[k] - s.ArcoFine[k]);
                                  std::swap(s.ArcoQuotaInizio[k], s.ArcoQuotaFinale[k]);
                                } else if (giro != 0) {
                                  s.ArcoInizio[k] = Norma400(s.ArcoInizio[k] + giro);
                                }
                              });
  fatto |= PerOgniSelezionata(s, SlotTesti, DimensionaTesti, static_cast<TabellaTesti&>(s), s.StatoTesto, copia,
                              [&](size_t k) {
                                t.Piano(s.TestoX[k], s.TestoY[k]);
                                s.TestoAltezza[k] *= f;
                                // A text's angle runs counter-clockwise from East, the other
                                // way round from an azimuth.
                                if (giro != 0) s.TestoRotazione[k] = Norma400(s.TestoRotazione[k] - giro);
                              });
  fatto |= PerOgniSelezionata(s, SlotFalde, DimensionaFalde, static_cast<TabellaFalde&>(s), s.StatoFalda, copia,
                              [&](size_t k) {
                                const PuntoXYZ a = t.Punto(s.FaldaX1[k], s.FaldaY1[k], s.FaldaZ1[k]);
                                const PuntoXYZ b = t.Punto(s.FaldaX2[k], s.FaldaY2[k], s.FaldaZ2[k]);
                                const PuntoXYZ c = t.Punto(s.FaldaX3[k], s.FaldaY3[k], s.FaldaZ3[k]);
                                s.FaldaX1[k] = a.X, s.FaldaY1[k] = a.Y, s.FaldaZ1[k] = a.Z;
                                s.FaldaX2[k] = b.X, s.FaldaY2[k] = b.Y, s.FaldaZ2[k] = b.Z;
                                s.FaldaX3[k] = c.X, s.FaldaY3[k] = c.Y, s.FaldaZ3[k] = c.Z;
                                // The labels of the facet go with it.
                                t.Piano(s.FaldaNumeroX1[k], s.FaldaNumeroY1[k]);
                                t.Piano(s.FaldaInvasoX1[k], s.FaldaInvasoY1[k]);
                                t.Piano(s.FaldaInvasoX2[k], s.FaldaInvasoY2[k]);
                                t.Piano(s.FaldaInsSteX1[k], s.FaldaInsSteY1[k]);
                                t.Piano(s.FaldaInsRiportoX1[k], s.FaldaInsRiportoY1[k]);
                                t.Piano(s.FaldaInsAreaX1[k], s.FaldaInsAreaY1[k]);
                              });
  if (t.Codice != 216)
    fatto |= PerOgniSelezionata(s, SlotCurve, DimensionaCurve, static_cast<TabellaCurve&>(s), s.StatoCurva, copia,
                                [&](size_t k) { t.Piano(s.CurvaX[k], s.CurvaY[k]); });
  // A section moves as a drawing on the sheet: its origin, never the plan positions of its
  // stations, which belong to the survey.
  if (t.Codice != 216)
    fatto |= PerOgniSelezionata(s, SlotSezioni, DimensionaSezioni, static_cast<TabellaSezioni&>(s), s.StatoSezione,
                                copia, [&](size_t k) { t.Piano(s.SezioneDati[k].OrigineX, s.SezioneDati[k].OrigineY); });
  if (t.Codice != 216)
    fatto |= PerOgniSelezionata(s, SlotBitmap, DimensionaBitmap, static_cast<TabellaBitmap&>(s), s.StatoBitmap, copia,
                                [&](size_t k) {
                                  t.Piano(s.BitmapX[k], s.BitmapY[k]);
                                  s.BitmapScalaLar[k] *= f;
                                  s.BitmapScalaAlt[k] *= f;
                                  if (t.Codice == 146) s.BitmapRotazione[k] += s.AngoloRotazione;
                                });
  return fatto;
}

// The bulk changes of a field: every selected row of every kind that has it.
template <class Fai>
bool Proprieta(Sessione& s, Fai fai) {
  bool fatto = false;
  auto kind = [&](int slot, std::vector<uint8_t>& stato) {
    const auto n = std::min(static_cast<size_t>(std::max(s.ContaEntita[static_cast<size_t>(slot)], 0)), stato.size());
    bool qui = false;
    for (size_t r = 0; r < n; ++r)
      if (stato[r] == 1 && fai(slot, r)) {
        SegnaRiga(s, slot, static_cast<int64_t>(r));
        qui = true;
      }
    fatto |= qui;
  };
  kind(SlotPunti, s.StatoPunto);
  kind(SlotLinee, s.StatoLinea);
  kind(SlotCerchi, s.StatoCerchio);
  kind(SlotArchi, s.StatoArco);
  kind(SlotTesti, s.StatoTesto);
  kind(SlotFalde, s.StatoFalda);
  kind(SlotSezioni, s.StatoSezione);
  kind(SlotBitmap, s.StatoBitmap);
  return fatto;
}

bool Elimina(Sessione& s) {
  return Proprieta(s, [&](int slot, size_t r) {
    switch (slot) {
      case SlotPunti: s.PuntoIdent[r] = -1; return true;
      case SlotLinee: s.LineaIdent[r] = -1; return true;
      case SlotCerchi: s.CerchioIdent[r] = -1; return true;
      case SlotArchi: s.ArcoIdent[r] = -1; return true;
      case SlotTesti: s.TestoIdent[r] = -1; return true;
      case SlotFalde: s.FaldaIdent[r] = -1; return true;
      case SlotSezioni: s.SezioneIdent[r] = -1; return true;
      case SlotBitmap: s.BitmapIdent[r] = -1; return true;
      default: return false;
    }
  });
}

bool Colora(Sessione& s, int32_t c) {
  return Proprieta(s, [&](int slot, size_t r) {
    switch (slot) {
      case SlotPunti:
        s.PuntoColoreSimbolo[r] = s.PuntoColoreNome[r] = s.PuntoColoreQuota[r] = s.PuntoColoreDescrizione[r] = c;
        return true;
      case SlotLinee: s.LineaColore[r] = c; return true;
      case SlotCerchi: s.CerchioColore[r] = c; return true;
      case SlotArchi: s.ArcoColore[r] = c; return true;
      case SlotTesti: s.TestoColore[r] = c; return true;
      case SlotFalde: s.FaldaColore[r] = c; return true;
      default: return false;
    }
  });
}

bool Congela(Sessione& s, int16_t v) {
  return Proprieta(s, [&](int slot, size_t r) {
    switch (slot) {
      case SlotPunti:
        s.PuntoCongelaSimbolo[r] = s.PuntoCongelaNome[r] = s.PuntoCongelaQuota[r] = s.PuntoCongelaDescrizione[r] = v;
        return true;
      case SlotLinee: s.LineaCongela[r] = v; return true;
      case SlotCerchi: s.CerchioCongela[r] = v; return true;
      case SlotArchi: s.ArcoCongela[r] = v; return true;
      case SlotTesti: s.TestoCongela[r] = v; return true;
      case SlotFalde: s.FaldaCongela[r] = v; return true;
      case SlotSezioni: s.SezioneDati[r].Cfg.Congela = v; return true;
      case SlotBitmap: s.BitmapCongela[r] = v; return true;
      default: return false;
    }
  });
}

bool MettiPiano(Sessione& s, const std::string& p) {
  return Proprieta(s, [&](int slot, size_t r) {
    switch (slot) {
      case SlotPunti: s.PuntoPiano[r] = p; return true;
      case SlotLinee: s.LineaPiano[r] = p; return true;
      case SlotCerchi: s.CerchioPiano[r] = p; return true;
      case SlotArchi: s.ArcoPiano[r] = p; return true;
      case SlotTesti: s.TestoPiano[r] = p; return true;
      case SlotFalde: s.FaldaPiano[r] = p; return true;
      case SlotBitmap: s.BitmapPiano[r] = p; return true;
      default: return false;
    }
  });
}

bool MettiTratteggio(Sessione& s, int16_t t) {
  return Proprieta(s, [&](int slot, size_t r) {
    switch (slot) {
      case SlotLinee: s.LineaTratteggio[r] = t; return true;
      case SlotCerchi: s.CerchioTratteggio[r] = t; return true;
      case SlotArchi: s.ArcoTratteggio[r] = t; return true;
      default: return false;
    }
  });
}

}  // namespace

bool RotoTraslaSelezione(Sessione& s, const PuntoXYZ& origine, const PuntoXYZ& nuova, double angolo,
                         double scala) {
  Trasformazione t;
  t.Codice = 192;
  t.Origine = origine;
  t.NuovaOrigine = nuova;
  t.Angolo = angolo;
  t.Fattore = scala;
  return Trasforma(s, t, false);
}

bool ApplicaSelezione(Sessione& s) {
  s.RoutineCorrente = "ApplicaSelezione";
  Trasformazione t;
  t.Codice = s.ComandoCorrente;
  switch (s.ComandoCorrente) {
    case 138: return Elimina(s);
    case 139: return Colora(s, s.Imp.Colore_Default);
    case 140: return Congela(s, -1);
    case 141: return Congela(s, 0);
    case 163: return MettiPiano(s, Rifila(s.PianoCorrente));
    case 148: return MettiTratteggio(s, InteroCorto(s.Imp.Tratteggio_Default));
    case 142:
    case 143:
      t.DX = s.TraslazioneX, t.DY = s.TraslazioneY, t.DZ = s.TraslazioneZ;
      return Trasforma(s, t, s.ComandoCorrente == 142);
    case 216:
      t.DZ = s.TraslazioneZ;
      return Trasforma(s, t, false);
    case 144:
      t.Centro = s.CentroModifica;
      t.Fattore = s.FattoreScala;
      return Trasforma(s, t, false);
    case 146:
      t.Centro = s.CentroModifica;
      t.Angolo = s.AngoloRotazione * GonToRad;
      return Trasforma(s, t, false);
    case 147:
      t.Centro = s.CentroModifica;
      t.Asse = AzimutDistanza(s.CentroModifica, s.SecondoModifica).Azimut;
      // "Yes" to the question changes the rows; "No" keeps them and mirrors copies.
      return Trasforma(s, t, s.CancellaOriginali == 0);
    case 414:
      t.Centro = s.CentroModifica;
      t.Angolo = s.AngoloRotazione * GonToRad;
      t.DX = s.TraslazioneX, t.DY = s.TraslazioneY;
      return Trasforma(s, t, false);
    case 192:
    case kCodiceInquadra2PF: {
      const auto& p = s.PuntiRotoTraslazione;
      const double angolo = AzimutDistanza(p[2].X, p[2].Y, p[3].X, p[3].Y).Azimut -
                            AzimutDistanza(p[0].X, p[0].Y, p[1].X, p[1].Y).Azimut;
      return RotoTraslaSelezione(s, {p[0].X, p[0].Y, p[0].Z}, {p[2].X, p[2].Y, p[2].Z}, angolo);
    }
    default: return false;
  }
}

}  // namespace varena
