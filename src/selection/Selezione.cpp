// The state bytes and the ways of filling them.
#include "selection/Selezione.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <vector>

#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

std::vector<uint8_t>* ColonnaStato(Sessione& s, int tipo) {
  switch (tipo) {
    case SlotPunti: return &s.StatoPunto;
    case SlotLinee: return &s.StatoLinea;
    case SlotCerchi: return &s.StatoCerchio;
    case SlotArchi: return &s.StatoArco;
    case SlotTesti: return &s.StatoTesto;
    case SlotFalde: return &s.StatoFalda;
    case SlotCurve: return &s.StatoCurva;
    case SlotSezioni: return &s.StatoSezione;
    case SlotBitmap: return &s.StatoBitmap;
    default: return nullptr;
  }
}

const std::vector<uint8_t>* ColonnaStato(const Sessione& s, int tipo) {
  return ColonnaStato(const_cast<Sessione&>(s), tipo);
}

// The rows of a kind that exist both in the count and in the columns.
size_t Righe(const Sessione& s, int tipo) {
  const std::vector<uint8_t>* c = ColonnaStato(s, tipo);
  if (!c) return 0;
  return std::min(static_cast<size_t>(std::max(s.ContaEntita[static_cast<size_t>(tipo)], 0)), c->size());
}

bool Prendibile(const Sessione& s, int tipo, size_t r) {
  return RigaViva(s, tipo, static_cast<int64_t>(r)) && (s.ComandoCorrente == 141 || !Congelato(s, tipo, r));
}

uint8_t Valore(const Sessione& s) { return s.ValoreSelezione != 0 ? 1 : 0; }

// Every row of a kind that passes `prendi` gets the value; the rows gone over are counted.
template <class Prendi>
int64_t Marca(Sessione& s, int tipo, Prendi prendi) {
  std::vector<uint8_t>& stato = *ColonnaStato(s, tipo);
  const uint8_t v = Valore(s);
  const size_t n = Righe(s, tipo);
  int64_t presi = 0;
  for (size_t r = 0; r < n; ++r)
    if (Prendibile(s, tipo, r) && prendi(r)) {
      stato[r] = v;
      ++presi;
    }
  return presi;
}

bool GeneroInGioco(const Sessione& s, int tipo) { return tipo != SlotPunti || s.PuntiInSelezione == 1; }

// --- The window ------------------------------------------------------------------------

struct Box {
  double X1, Y1, X2, Y2;  // X1 <= X2, Y1 <= Y2
  bool Dentro(double x, double y) const { return x >= X1 && x <= X2 && y >= Y1 && y <= Y2; }
};

double Croce(double ax, double ay, double bx, double by, double cx, double cy) {
  return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
}

// Two closed segments share a point (collinear overlaps included).
bool SegmentiToccano(double ax, double ay, double bx, double by, double cx, double cy, double dx, double dy) {
  const double d1 = Croce(cx, cy, dx, dy, ax, ay), d2 = Croce(cx, cy, dx, dy, bx, by);
  const double d3 = Croce(ax, ay, bx, by, cx, cy), d4 = Croce(ax, ay, bx, by, dx, dy);
  if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0))) return true;
  auto sopra = [](double px, double py, double qx, double qy, double x, double y) {
    return std::min(px, qx) <= x && x <= std::max(px, qx) && std::min(py, qy) <= y && y <= std::max(py, qy);
  };
  return (d1 == 0 && sopra(cx, cy, dx, dy, ax, ay)) || (d2 == 0 && sopra(cx, cy, dx, dy, bx, by)) ||
         (d3 == 0 && sopra(ax, ay, bx, by, cx, cy)) || (d4 == 0 && sopra(ax, ay, bx, by, dx, dy));
}

// The segment has a point in the box: an end inside, or a side crossed.
bool SegmentoTocca(const Box& b, double x1, double y1, double x2, double y2) {
  if (b.Dentro(x1, y1) || b.Dentro(x2, y2)) return true;
  return SegmentiToccano(x1, y1, x2, y2, b.X1, b.Y1, b.X2, b.Y1) ||
         SegmentiToccano(x1, y1, x2, y2, b.X2, b.Y1, b.X2, b.Y2) ||
         SegmentiToccano(x1, y1, x2, y2, b.X2, b.Y2, b.X1, b.Y2) ||
         SegmentiToccano(x1, y1, x2, y2, b.X1, b.Y2, b.X1, b.Y1);
}

// The whole circle lies in the box.
bool CerchioDentro(const Box& b, double xc, double yc, double r) {
  r = std::fabs(r);
  return xc - r >= b.X1 && xc + r <= b.X2 && yc - r >= b.Y1 && yc + r <= b.Y2;
}

// The curve of the circle has a point in the box: the box comes nearer to the centre than
// the radius and reaches farther.
bool CerchioTocca(const Box& b, double xc, double yc, double r) {
  r = std::fabs(r);
  const double dx = std::max({b.X1 - xc, 0.0, xc - b.X2}), dy = std::max({b.Y1 - yc, 0.0, yc - b.Y2});
  const double vicino = std::hypot(dx, dy);
  const double lontano = std::hypot(std::max(std::fabs(xc - b.X1), std::fabs(xc - b.X2)),
                                    std::max(std::fabs(yc - b.Y1), std::fabs(yc - b.Y2)));
  return vicino <= r && r <= lontano;
}

// An arc in radians: start azimuth and sweep, with the height kept aside.
struct ArcoGeom {
  double Xc, Yc, R, Inizio, Ampiezza;
  double X(double a) const { return Xc + R * std::sin(a); }
  double Y(double a) const { return Yc + R * std::cos(a); }
  // The direction `a` falls within the sweep.
  bool Copre(double a) const {
    double rel = std::fmod(a - Inizio, 2 * PiGreco);
    if (rel < 0) rel += 2 * PiGreco;
    return rel <= Ampiezza;
  }
};

ArcoGeom ArcoDi(const Sessione& s, size_t r) {
  double ampiezza = std::fabs(s.ArcoFine[r]) * GonToRad;
  if (ampiezza > 2 * PiGreco) ampiezza = 2 * PiGreco;
  return {s.ArcoX[r], s.ArcoY[r], std::fabs(s.ArcoRaggio[r]), s.ArcoInizio[r] * GonToRad, ampiezza};
}

// The arc wholly inside: both ends and every extreme of the axes that it sweeps over.
bool ArcoDentro(const Box& b, const ArcoGeom& a) {
  const double fine = a.Inizio + a.Ampiezza;
  if (!b.Dentro(a.X(a.Inizio), a.Y(a.Inizio)) || !b.Dentro(a.X(fine), a.Y(fine))) return false;
  for (int q = 0; q < 4; ++q) {
    const double az = q * PiGreco / 2;
    if (a.Copre(az) && !b.Dentro(a.X(az), a.Y(az))) return false;
  }
  return true;
}

// The arc touches the box: an end inside, or the curve crosses a side within the sweep.
bool ArcoTocca(const Box& b, const ArcoGeom& a) {
  const double fine = a.Inizio + a.Ampiezza;
  if (b.Dentro(a.X(a.Inizio), a.Y(a.Inizio)) || b.Dentro(a.X(fine), a.Y(fine))) return true;
  // Each side against the circle: x fixed on the vertical sides, y on the horizontal ones.
  auto incrocia = [&](bool verticale, double fisso, double da, double a2) {
    const double d = verticale ? fisso - a.Xc : fisso - a.Yc;
    if (std::fabs(d) > a.R) return false;
    const double h = std::sqrt(a.R * a.R - d * d);
    for (double segno : {-1.0, 1.0}) {
      const double altro = (verticale ? a.Yc : a.Xc) + segno * h;
      if (altro < da || altro > a2) continue;
      const double x = verticale ? fisso : altro, y = verticale ? altro : fisso;
      const double az = std::atan2(x - a.Xc, y - a.Yc);
      if (a.Copre(az)) return true;
    }
    return false;
  };
  return incrocia(true, b.X1, b.Y1, b.Y2) || incrocia(true, b.X2, b.Y1, b.Y2) ||
         incrocia(false, b.Y1, b.X1, b.X2) || incrocia(false, b.Y2, b.X1, b.X2);
}

// A closed outline given by its corners.
template <size_t N>
bool ContornoDentro(const Box& b, const double (&x)[N], const double (&y)[N]) {
  for (size_t i = 0; i < N; ++i)
    if (!b.Dentro(x[i], y[i])) return false;
  return true;
}
template <size_t N>
bool ContornoTocca(const Box& b, const double (&x)[N], const double (&y)[N]) {
  for (size_t i = 0; i < N; ++i)
    if (SegmentoTocca(b, x[i], y[i], x[(i + 1) % N], y[(i + 1) % N])) return true;
  return false;
}

void AngoliImmagine(const Sessione& s, size_t r, double (&x)[4], double (&y)[4]) {
  const double x0 = s.BitmapX[r], y0 = s.BitmapY[r];
  const double x1 = x0 + s.BitmapLarghezza[r] * s.BitmapScalaLar[r];
  const double y1 = y0 - s.BitmapAltezza[r] * s.BitmapScalaAlt[r];
  x[0] = x0, y[0] = y0, x[1] = x1, y[1] = y0, x[2] = x1, y[2] = y1, x[3] = x0, y[3] = y1;
}

}  // namespace

bool Congelato(const Sessione& s, int tipo, size_t r) {
  switch (tipo) {
    case SlotPunti: return s.PuntoCongelaSimbolo[r] != 0 && s.PuntoCongelaNome[r] != 0;
    case SlotLinee: return s.LineaCongela[r] != 0;
    case SlotCerchi: return s.CerchioCongela[r] != 0;
    case SlotArchi: return s.ArcoCongela[r] != 0;
    case SlotTesti: return s.TestoCongela[r] != 0;
    case SlotFalde: return s.FaldaCongela[r] != 0;
    case SlotSezioni: return s.SezioneDati[r].Cfg.Congela != 0;
    case SlotBitmap: return s.BitmapCongela[r] != 0;
    default: return false;
  }
}

uint8_t* ByteStato(Sessione& s, int tipo, int32_t riga) {
  if (riga < 0 || static_cast<size_t>(riga) >= Righe(s, tipo)) return nullptr;
  return &(*ColonnaStato(s, tipo))[static_cast<size_t>(riga)];
}

uint8_t StatoDi(const Sessione& s, int tipo, int32_t riga) {
  const uint8_t* b = ByteStato(const_cast<Sessione&>(s), tipo, riga);
  return b ? *b : 0;
}

bool Selezionabile(const Sessione& s, int tipo, int32_t riga) {
  return riga >= 0 && static_cast<size_t>(riga) < Righe(s, tipo) && Prendibile(s, tipo, static_cast<size_t>(riga));
}

void MarcaEntita(Sessione& s, int tipo, int32_t riga) { MarcaEntita(s, tipo, riga, Valore(s)); }

void MarcaEntita(Sessione& s, int tipo, int32_t riga, uint8_t valore) {
  uint8_t* b = ByteStato(s, tipo, riga);
  if (!b) return;
  *b = valore;
  s.UltimaSelezioneTipo = static_cast<uint8_t>(tipo);
  s.UltimaSelezioneRiga = riga;
}

int64_t ContaSelezionati(const Sessione& s) {
  int64_t n = 0;
  for (int tipo : kGeneriSelezione) {
    const std::vector<uint8_t>& c = *ColonnaStato(s, tipo);
    n += std::count(c.begin(), c.begin() + static_cast<std::ptrdiff_t>(Righe(s, tipo)), uint8_t{1});
  }
  return n;
}

int64_t ContaPuntiSelezionati(const Sessione& s) {
  int64_t n = 0;
  for (size_t r = 0; r < Righe(s, SlotPunti); ++r)
    if (s.StatoPunto[r] == 1 && IdentVivo(s.PuntoIdent[r])) ++n;
  return n;
}

void SpecchiaSelezione(Sessione& s) {
  ElencoDisegno& l = s.ListaDisegno;
  const auto n = static_cast<size_t>(l.Conta());
  for (size_t k = 0; k < n; ++k) l.Stato[k] = StatoDi(s, l.Tipo[k], l.Riga[k]);
}

void AzzeraSelezione(Sessione& s) {
  for (int tipo : kGeneriSelezione) {
    std::vector<uint8_t>& c = *ColonnaStato(s, tipo);
    std::fill(c.begin(), c.end(), uint8_t{0});
  }
  std::fill(s.ListaDisegno.Stato.begin(), s.ListaDisegno.Stato.end(), int16_t{0});
}

int64_t SelezionaTutto(Sessione& s) {
  int64_t n = 0;
  for (int tipo : kGeneriSelezione)
    if (GeneroInGioco(s, tipo)) n += Marca(s, tipo, [](size_t) { return true; });
  return n;
}

int64_t SelezionaGenere(Sessione& s, int tipo) {
  if (!ColonnaStato(s, tipo) || !GeneroInGioco(s, tipo)) return 0;
  return Marca(s, tipo, [](size_t) { return true; });
}

bool ColoreDi(const Sessione& s, int tipo, int32_t riga, int32_t& colore) {
  if (riga < 0 || static_cast<size_t>(riga) >= Righe(s, tipo)) return false;
  const auto r = static_cast<size_t>(riga);
  switch (tipo) {
    case SlotPunti: colore = s.PuntoColoreSimbolo[r]; return true;
    case SlotLinee: colore = s.LineaColore[r]; return true;
    case SlotCerchi: colore = s.CerchioColore[r]; return true;
    case SlotArchi: colore = s.ArcoColore[r]; return true;
    case SlotTesti: colore = s.TestoColore[r]; return true;
    case SlotFalde: colore = s.FaldaColore[r]; return true;
    default: return false;
  }
}

bool PianoDi(const Sessione& s, int tipo, int32_t riga, std::string& piano) {
  if (riga < 0 || static_cast<size_t>(riga) >= Righe(s, tipo)) return false;
  const auto r = static_cast<size_t>(riga);
  switch (tipo) {
    case SlotPunti: piano = s.PuntoPiano[r]; return true;
    case SlotLinee: piano = s.LineaPiano[r]; return true;
    case SlotCerchi: piano = s.CerchioPiano[r]; return true;
    case SlotArchi: piano = s.ArcoPiano[r]; return true;
    case SlotTesti: piano = s.TestoPiano[r]; return true;
    case SlotFalde: piano = s.FaldaPiano[r]; return true;
    case SlotBitmap: piano = s.BitmapPiano[r]; return true;
    default: return false;
  }
}

int64_t SelezionaColore(Sessione& s, int32_t colore) {
  int64_t n = 0;
  for (int tipo : kGeneriSelezione) {
    if (!GeneroInGioco(s, tipo)) continue;
    int32_t c = 0;
    n += Marca(s, tipo, [&](size_t r) { return ColoreDi(s, tipo, static_cast<int32_t>(r), c) && c == colore; });
  }
  return n;
}

int64_t SelezionaPiano(Sessione& s, std::string_view piano) {
  const std::string cercato = Rifila(piano);
  int64_t n = 0;
  for (int tipo : kGeneriSelezione) {
    if (!GeneroInGioco(s, tipo)) continue;
    std::string p;
    n += Marca(s, tipo, [&](size_t r) {
      return PianoDi(s, tipo, static_cast<int32_t>(r), p) && UgualeSenzaCaso(Rifila(p), cercato);
    });
  }
  return n;
}

std::optional<Rettangolo> IngombroSelezione(const Sessione& s) {
  Ingombro ingombro;
  auto cerchio = [&ingombro](double x, double y, double r) {
    ingombro.Aggiungi(x - std::fabs(r), y - std::fabs(r));
    ingombro.Aggiungi(x + std::fabs(r), y + std::fabs(r));
  };
  auto righe = [&s](int tipo, const std::vector<uint8_t>& stato) { return std::min(Righe(s, tipo), stato.size()); };
  for (size_t r = 0; r < righe(SlotPunti, s.StatoPunto); ++r)
    if (s.StatoPunto[r] == 1) ingombro.Aggiungi(s.PuntoX[r], s.PuntoY[r]);
  for (size_t r = 0; r < righe(SlotLinee, s.StatoLinea); ++r)
    if (s.StatoLinea[r] == 1) {
      ingombro.Aggiungi(s.LineaX1[r], s.LineaY1[r]);
      ingombro.Aggiungi(s.LineaX2[r], s.LineaY2[r]);
    }
  for (size_t r = 0; r < righe(SlotCerchi, s.StatoCerchio); ++r)
    if (s.StatoCerchio[r] == 1) cerchio(s.CerchioX[r], s.CerchioY[r], s.CerchioRaggio[r]);
  for (size_t r = 0; r < righe(SlotArchi, s.StatoArco); ++r)
    if (s.StatoArco[r] == 1) cerchio(s.ArcoX[r], s.ArcoY[r], s.ArcoRaggio[r]);
  for (size_t r = 0; r < righe(SlotTesti, s.StatoTesto); ++r)
    if (s.StatoTesto[r] == 1) ingombro.Aggiungi(s.TestoX[r], s.TestoY[r]);
  for (size_t r = 0; r < righe(SlotFalde, s.StatoFalda); ++r)
    if (s.StatoFalda[r] == 1) {
      ingombro.Aggiungi(s.FaldaX1[r], s.FaldaY1[r]);
      ingombro.Aggiungi(s.FaldaX2[r], s.FaldaY2[r]);
      ingombro.Aggiungi(s.FaldaX3[r], s.FaldaY3[r]);
    }
  for (size_t r = 0; r < righe(SlotBitmap, s.StatoBitmap); ++r)
    if (s.StatoBitmap[r] == 1) {
      double x[4], y[4];
      AngoliImmagine(s, r, x, y);
      for (int k = 0; k < 4; ++k) ingombro.Aggiungi(x[k], y[k]);
    }
  return ingombro.Risultato();
}

int64_t SelezionaFinestra(Sessione& s, double x1, double y1, double x2, double y2, bool soloPunti) {
  const Box b{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
  // Drawn left to right, only what is wholly inside; the other way, whatever it touches.
  const bool dentro = x2 > x1;
  int64_t n = 0;
  if (soloPunti || s.PuntiInSelezione == 1)
    n += Marca(s, SlotPunti, [&](size_t r) { return b.Dentro(s.PuntoX[r], s.PuntoY[r]); });
  if (soloPunti) return n;
  n += Marca(s, SlotLinee, [&](size_t r) {
    return dentro ? b.Dentro(s.LineaX1[r], s.LineaY1[r]) && b.Dentro(s.LineaX2[r], s.LineaY2[r])
                  : SegmentoTocca(b, s.LineaX1[r], s.LineaY1[r], s.LineaX2[r], s.LineaY2[r]);
  });
  n += Marca(s, SlotCerchi, [&](size_t r) {
    return dentro ? CerchioDentro(b, s.CerchioX[r], s.CerchioY[r], s.CerchioRaggio[r])
                  : CerchioTocca(b, s.CerchioX[r], s.CerchioY[r], s.CerchioRaggio[r]);
  });
  n += Marca(s, SlotArchi, [&](size_t r) { return dentro ? ArcoDentro(b, ArcoDi(s, r)) : ArcoTocca(b, ArcoDi(s, r)); });
  // A text by its insertion point, whichever the direction.
  n += Marca(s, SlotTesti, [&](size_t r) { return b.Dentro(s.TestoX[r], s.TestoY[r]); });
  n += Marca(s, SlotFalde, [&](size_t r) {
    const double x[3] = {s.FaldaX1[r], s.FaldaX2[r], s.FaldaX3[r]}, y[3] = {s.FaldaY1[r], s.FaldaY2[r], s.FaldaY3[r]};
    return dentro ? ContornoDentro(b, x, y) : ContornoTocca(b, x, y);
  });
  n += Marca(s, SlotCurve, [&](size_t r) { return b.Dentro(s.CurvaX[r], s.CurvaY[r]); });
  // A section by the frame its drawing fills on the sheet.
  n += Marca(s, SlotSezioni, [&](size_t r) {
    const double x1 = s.SezioneBoxX1[r], y1 = s.SezioneBoxY1[r], x2 = s.SezioneBoxX2[r], y2 = s.SezioneBoxY2[r];
    const double x[4] = {x1, x2, x2, x1}, y[4] = {y1, y1, y2, y2};
    return dentro ? ContornoDentro(b, x, y) : ContornoTocca(b, x, y);
  });
  n += Marca(s, SlotBitmap, [&](size_t r) {
    double x[4], y[4];
    AngoliImmagine(s, r, x, y);
    return dentro ? ContornoDentro(b, x, y) : ContornoTocca(b, x, y);
  });
  return n;
}

// --- The list files ----------------------------------------------------------------------

std::string PercorsoUls(const Sessione& s) {
  // Not beside the provisional copy: that folder is one for every job, and the row numbers
  // of one job's list mean other rows in another.
  const std::string lavoro = Rifila(s.NomeOriginale);
  if (lavoro.empty()) return {};
  const std::string base = Rifila(s.NomeGruppo).empty() ? Foglia(lavoro) : Rifila(s.NomeGruppo);
  if (base.empty()) return {};
  // A run with a folder of its own (a script) leaves the user's job folder alone.
  return (s.CartellaUtente.empty() ? Cartella(lavoro) : s.CartellaUtente) + "/" + base + ".uls";
}

void ScriviUls(Sessione& s) {
  const std::string percorso = PercorsoUls(s);
  if (percorso.empty() || s.SolaLettura) return;
  std::string testo;
  for (int slot = 1; slot <= 13; ++slot) {
    std::vector<int32_t> righe;
    if (ColonnaStato(s, slot)) {
      const std::vector<uint8_t>& c = *ColonnaStato(s, slot);
      for (size_t r = 0; r < Righe(s, slot); ++r)
        if (c[r] == 1) righe.push_back(static_cast<int32_t>(r));
    }
    testo += std::to_string(righe.size()) + "\r\n";
    for (int32_t r : righe) testo += std::to_string(r) + "\r\n";
  }
  ScriviTesto(percorso, testo);
}

bool CaricaUls(Sessione& s) {
  const std::string percorso = PercorsoUls(s);
  if (percorso.empty() || !EsisteFile(percorso)) return false;
  const std::vector<std::string> righe = RigheFile(percorso);
  size_t i = 0;
  for (int slot = 1; slot <= 13 && i < righe.size(); ++slot) {
    const int64_t scritte = InteroLungo(Val(righe[i]));
    ++i;
    const int64_t quante = std::clamp<int64_t>(scritte, 0, static_cast<int64_t>(righe.size() - i));
    for (int64_t k = 0; k < quante; ++k) {
      const int32_t r = InteroLungo(Val(righe[i++]));
      // The tables may have changed since: a row that is no longer there, or no longer
      // selectable, is left alone.
      if (Selezionabile(s, slot, r)) MarcaEntita(s, slot, r);
    }
  }
  return true;
}

std::string PercorsoSelePunt(const Sessione& s) { return s.CartellaLavoro + "TEMP/selepunt.ini"; }

void SalvaSelePunt(Sessione& s) {
  if (s.CartellaLavoro.empty() || s.SolaLettura) return;
  NuovaCartella(s.CartellaLavoro + "TEMP");
  std::string testo;
  for (size_t r = 0; r < Righe(s, SlotPunti); ++r)
    if (s.StatoPunto[r] == 1 && IdentVivo(s.PuntoIdent[r])) testo += Rifila(s.PuntoNome[r]) + "\r\n";
  ScriviTesto(PercorsoSelePunt(s), testo);
}

int64_t CaricaSelePunt(Sessione& s) {
  if (s.CartellaLavoro.empty()) return 0;
  std::unordered_set<std::string> nomi;
  for (const std::string& riga : RigheFile(PercorsoSelePunt(s))) {
    const std::string n = Rifila(riga);
    if (!n.empty()) nomi.insert(n);
  }
  if (nomi.empty()) return 0;
  return Marca(s, SlotPunti, [&](size_t r) { return nomi.contains(Rifila(s.PuntoNome[r])); });
}

}  // namespace varena
