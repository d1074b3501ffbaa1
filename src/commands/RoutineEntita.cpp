// The commands on one picked entity: trim to a corner, cut, extend, divide, the single
// pastes of line type, colour and layer, and the editor of one entity's fields.
#include <cmath>
#include <functional>
#include <vector>

#include "cadastre/CodiciPunto.h"
#include "cadastre/Pregeo.h"
#include "commands/Comandi.h"
#include "commands/DialoghiSelezione.h"
#include "commands/Modifica.h"
#include "commands/RoutineModifica.h"
#include "core/Dialoghi.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "sections/DialoghiSezioni.h"
#include "core/Testo.h"
#include "selection/Selezione.h"
#include "survey/Convenzioni.h"
#include "survey/Primitive.h"
#include "view/Ridisegna.h"

namespace varena {

namespace {

// Below this a crossing stands on an end of the entity, which it does not divide.
constexpr double kMargine = 1e-9;

double Norma(double a) {
  a = std::fmod(a, 2 * PiGreco);
  return a < 0 ? a + 2 * PiGreco : a;
}

// The carrier of an entity: the infinite line of a line, the whole circle of a circle or
// an arc.
struct Portante {
  bool Retta = true;
  PuntoXYZ A, B;
  double Xc = 0, Yc = 0, R = 0;
};

bool PortanteDi(const Sessione& s, uint8_t tipo, int32_t riga, Portante& p) {
  if (riga < 0 || riga >= s.ContaEntita[tipo]) return false;
  const auto k = static_cast<size_t>(riga);
  switch (tipo) {
    case SlotLinee:
      p.Retta = true;
      p.A = {s.LineaX1[k], s.LineaY1[k], s.LineaZ1[k]};
      p.B = {s.LineaX2[k], s.LineaY2[k], s.LineaZ2[k]};
      return Distanza2D(p.A.X, p.A.Y, p.B.X, p.B.Y) > 0;
    case SlotCerchi:
      p.Retta = false;
      p.Xc = s.CerchioX[k], p.Yc = s.CerchioY[k], p.R = std::fabs(s.CerchioRaggio[k]);
      return p.R > 0;
    case SlotArchi:
      p.Retta = false;
      p.Xc = s.ArcoX[k], p.Yc = s.ArcoY[k], p.R = std::fabs(s.ArcoRaggio[k]);
      return p.R > 0;
    default: return false;
  }
}

// Where two carriers meet: none, one or two points.
int Incroci(const Portante& a, const Portante& b, PuntoXYZ (&fuori)[2]) {
  if (a.Retta && b.Retta) {
    double x = 0, y = 0;
    if (IncrocioRette(a.A, a.B, b.A, b.B, x, y) >= 2) return 0;
    fuori[0] = {x, y, 0};
    return 1;
  }
  if (a.Retta != b.Retta) {
    const Portante& r = a.Retta ? a : b;
    const Portante& c = a.Retta ? b : a;
    PuntoXYZ piede, p1, p2;
    if (RettaCerchio(r.A, r.B, c.Xc, c.Yc, c.R, piede, p1, p2) >= 2) return 0;
    fuori[0] = p1, fuori[1] = p2;
    return Distanza2D(p1.X, p1.Y, p2.X, p2.Y) > 0 ? 2 : 1;
  }
  if (Distanza2D(a.Xc, a.Yc, b.Xc, b.Yc) == 0) return 0;
  PuntoXYZ d, sx;
  if (PuntiBilatera({a.Xc, a.Yc, 0}, {b.Xc, b.Yc, 0}, a.R, b.R, d, sx) >= 2) return 0;
  fuori[0] = d, fuori[1] = sx;
  return Distanza2D(d.X, d.Y, sx.X, sx.Y) > 0 ? 2 : 1;
}

// --- Lines ---------------------------------------------------------------------------------

// Where `p` falls along the line, 0 at its first end and 1 at its second.
double Lungo(const Sessione& s, size_t k, double x, double y) {
  const double dx = s.LineaX2[k] - s.LineaX1[k], dy = s.LineaY2[k] - s.LineaY1[k];
  const double l2 = dx * dx + dy * dy;
  return l2 > 0 ? ((x - s.LineaX1[k]) * dx + (y - s.LineaY1[k]) * dy) / l2 : 0;
}

// The point at `t` along the line, with the height of the line there.
PuntoXYZ SullaLinea(const Sessione& s, size_t k, double t) {
  return {s.LineaX1[k] + t * (s.LineaX2[k] - s.LineaX1[k]), s.LineaY1[k] + t * (s.LineaY2[k] - s.LineaY1[k]),
          s.LineaZ1[k] + t * (s.LineaZ2[k] - s.LineaZ1[k])};
}

void MettiPrimo(Sessione& s, size_t k, const PuntoXYZ& p) { s.LineaX1[k] = p.X, s.LineaY1[k] = p.Y, s.LineaZ1[k] = p.Z; }
void MettiSecondo(Sessione& s, size_t k, const PuntoXYZ& p) { s.LineaX2[k] = p.X, s.LineaY2[k] = p.Y, s.LineaZ2[k] = p.Z; }

template <class Tab>
size_t CopiaInCoda(Sessione& s, int slot, void (*dimensiona)(TabelleEntita&), Tab& tab, size_t r) {
  dimensiona(s);
  const auto nuova = static_cast<size_t>(s.ContaEntita[static_cast<size_t>(slot)]);
  tab.PerOgniColonna([r, nuova](auto& c) { c[nuova] = c[r]; });
  s.ContaEntita[static_cast<size_t>(slot)] += 1;
  return nuova;
}

// --- Arcs ----------------------------------------------------------------------------------

struct Arco {
  double Inizio, Ampiezza;  // radians
  double Z0, Z1;
  double Rel(double az) const { return Norma(az - Inizio); }
  // The height along the sweep, carried on past the ends.
  double Quota(double rel) const { return Ampiezza > 0 ? Z0 + (Z1 - Z0) * rel / Ampiezza : Z0; }
};

Arco ArcoDi(const Sessione& s, size_t k) {
  return {s.ArcoInizio[k] * GonToRad, s.ArcoFine[k] * GonToRad, s.ArcoQuotaInizio[k], s.ArcoQuotaFinale[k]};
}

void MettiArco(Sessione& s, size_t k, double inizio, double ampiezza, double z0, double z1) {
  s.ArcoInizio[k] = Norma(inizio) * RadToGon;
  s.ArcoFine[k] = ampiezza * RadToGon;
  s.ArcoQuotaInizio[k] = z0;
  s.ArcoQuotaFinale[k] = z1;
}

double AzimutDaCentro(double xc, double yc, double x, double y) { return AzimutDistanza(xc, yc, x, y).Azimut; }

// --- Trim ----------------------------------------------------------------------------------

// The line cut or carried to `i`, keeping the part on the side of the pick.
void RifilaLinea(Sessione& s, size_t k, const PuntoXYZ& pick, const PuntoXYZ& i) {
  const double ti = Lungo(s, k, i.X, i.Y), tp = Lungo(s, k, pick.X, pick.Y);
  const PuntoXYZ nuovo = SullaLinea(s, k, ti);
  if ((0 - ti) * (tp - ti) < 0) {
    MettiPrimo(s, k, nuovo);
  } else if ((1 - ti) * (tp - ti) < 0) {
    MettiSecondo(s, k, nuovo);
  } else if (std::fabs(ti) <= std::fabs(1 - ti)) {
    // The corner lies beyond the line: the nearer end reaches it.
    MettiPrimo(s, k, nuovo);
  } else {
    MettiSecondo(s, k, nuovo);
  }
}

void RifilaArco(Sessione& s, size_t k, const PuntoXYZ& pick, const PuntoXYZ& i) {
  const Arco a = ArcoDi(s, k);
  const double xc = s.ArcoX[k], yc = s.ArcoY[k];
  const double ri = a.Rel(AzimutDaCentro(xc, yc, i.X, i.Y)), rp = a.Rel(AzimutDaCentro(xc, yc, pick.X, pick.Y));
  if (ri <= a.Ampiezza) {
    if (rp < ri)
      MettiArco(s, k, a.Inizio, ri, a.Z0, a.Quota(ri));
    else
      MettiArco(s, k, a.Inizio + ri, a.Ampiezza - ri, a.Quota(ri), a.Z1);
    return;
  }
  // Beyond the arc: the end nearer by angle goes round to the corner.
  const double dopo = ri - a.Ampiezza, prima = 2 * PiGreco - ri;
  if (dopo <= prima)
    MettiArco(s, k, a.Inizio, ri, a.Z0, a.Quota(ri));
  else
    MettiArco(s, k, a.Inizio - prima, a.Ampiezza + prima, a.Quota(-prima), a.Z1);
}

bool RifilaEntita(Sessione& s, uint8_t tipo, int32_t riga, const PuntoXYZ& pick, const PuntoXYZ& i) {
  const auto k = static_cast<size_t>(riga);
  switch (tipo) {
    case SlotLinee: RifilaLinea(s, k, pick, i); break;
    case SlotArchi: RifilaArco(s, k, pick, i); break;
    default: return false;  // a whole circle has no end to bring to the corner
  }
  SegnaModificato(s, tipo);
  return true;
}

// --- Cut -----------------------------------------------------------------------------------

// Of the values in `t`, the greatest below `p` and the least above it.
void Attorno(const std::vector<double>& t, double p, double& sotto, double& sopra, bool& haSotto, bool& haSopra) {
  haSotto = haSopra = false;
  for (double v : t) {
    if (v < p && (!haSotto || v > sotto)) sotto = v, haSotto = true;
    if (v > p && (!haSopra || v < sopra)) sopra = v, haSopra = true;
  }
}

bool TagliaLinea(Sessione& s, size_t k, const PuntoXYZ (&incroci)[2], int n, const PuntoXYZ& pick) {
  std::vector<double> t;
  for (int i = 0; i < n; ++i) {
    const double v = Lungo(s, k, incroci[i].X, incroci[i].Y);
    if (v > kMargine && v < 1 - kMargine) t.push_back(v);
  }
  double sotto = 0, sopra = 0;
  bool haSotto = false, haSopra = false;
  Attorno(t, Lungo(s, k, pick.X, pick.Y), sotto, sopra, haSotto, haSopra);
  if (!haSotto && !haSopra) return false;
  const PuntoXYZ a = SullaLinea(s, k, sotto), b = SullaLinea(s, k, sopra);
  if (haSotto && haSopra) {
    // The middle goes: the row keeps the first part, a copy of it the second.
    const size_t nuova = CopiaInCoda(s, SlotLinee, DimensionaLinee, static_cast<TabellaLinee&>(s), k);
    s.StatoLinea[nuova] = 0;
    MettiSecondo(s, k, a);
    MettiPrimo(s, nuova, b);
  } else if (haSopra) {
    MettiPrimo(s, k, b);
  } else {
    MettiSecondo(s, k, a);
  }
  SegnaModificato(s, SlotLinee);
  return true;
}

bool TagliaCerchio(Sessione& s, size_t k, const PuntoXYZ (&incroci)[2], int n, const PuntoXYZ& pick) {
  if (n < 2) return false;
  const double xc = s.CerchioX[k], yc = s.CerchioY[k];
  const double a1 = AzimutDaCentro(xc, yc, incroci[0].X, incroci[0].Y);
  const double a2 = AzimutDaCentro(xc, yc, incroci[1].X, incroci[1].Y);
  const double r2 = Norma(a2 - a1), rp = Norma(AzimutDaCentro(xc, yc, pick.X, pick.Y) - a1);
  // The part between the crossings that holds the pick goes; the rest becomes an arc.
  const double inizio = rp < r2 ? a2 : a1, ampiezza = rp < r2 ? 2 * PiGreco - r2 : r2;
  DimensionaArchi(s);
  const auto a = static_cast<size_t>(s.ContaEntita[SlotArchi]);
  s.ArcoIdent[a] = 0;
  s.ArcoX[a] = xc, s.ArcoY[a] = yc, s.ArcoZ[a] = s.CerchioZ[k];
  s.ArcoRaggio[a] = s.CerchioRaggio[k];
  MettiArco(s, a, inizio, ampiezza, s.CerchioZ[k], s.CerchioZ[k]);
  s.ArcoColore[a] = s.CerchioColore[k];
  s.ArcoTratteggio[a] = s.CerchioTratteggio[k];
  s.ArcoCongela[a] = s.CerchioCongela[k];
  s.ArcoPiano[a] = s.CerchioPiano[k];
  s.StatoArco[a] = 0;
  s.ContaEntita[SlotArchi] += 1;
  s.CerchioIdent[k] = -1;
  SegnaModificato(s, SlotCerchi);
  SegnaModificato(s, SlotArchi);
  return true;
}

bool TagliaArco(Sessione& s, size_t k, const PuntoXYZ (&incroci)[2], int n, const PuntoXYZ& pick) {
  const Arco a = ArcoDi(s, k);
  const double xc = s.ArcoX[k], yc = s.ArcoY[k];
  std::vector<double> t;
  for (int i = 0; i < n; ++i) {
    const double v = a.Rel(AzimutDaCentro(xc, yc, incroci[i].X, incroci[i].Y));
    if (v > kMargine && v < a.Ampiezza - kMargine) t.push_back(v);
  }
  double sotto = 0, sopra = 0;
  bool haSotto = false, haSopra = false;
  Attorno(t, a.Rel(AzimutDaCentro(xc, yc, pick.X, pick.Y)), sotto, sopra, haSotto, haSopra);
  if (!haSotto && !haSopra) return false;
  if (haSotto && haSopra) {
    const size_t nuova = CopiaInCoda(s, SlotArchi, DimensionaArchi, static_cast<TabellaArchi&>(s), k);
    s.StatoArco[nuova] = 0;
    MettiArco(s, k, a.Inizio, sotto, a.Z0, a.Quota(sotto));
    MettiArco(s, nuova, a.Inizio + sopra, a.Ampiezza - sopra, a.Quota(sopra), a.Z1);
  } else if (haSopra) {
    MettiArco(s, k, a.Inizio + sopra, a.Ampiezza - sopra, a.Quota(sopra), a.Z1);
  } else {
    MettiArco(s, k, a.Inizio, sotto, a.Z0, a.Quota(sotto));
  }
  SegnaModificato(s, SlotArchi);
  return true;
}

// --- Extend --------------------------------------------------------------------------------

bool AllungaLinea(Sessione& s, size_t k, const PuntoXYZ (&incroci)[2], int n) {
  int scelto = -1;
  bool primo = true;
  double migliore = 0;
  for (int i = 0; i < n; ++i) {
    const double d1 = Distanza2D(incroci[i].X, incroci[i].Y, s.LineaX1[k], s.LineaY1[k]);
    const double d2 = Distanza2D(incroci[i].X, incroci[i].Y, s.LineaX2[k], s.LineaY2[k]);
    const double d = std::min(d1, d2);
    if (scelto < 0 || d < migliore) scelto = i, migliore = d, primo = d1 <= d2;
  }
  if (scelto < 0) return false;
  const PuntoXYZ p = SullaLinea(s, k, Lungo(s, k, incroci[scelto].X, incroci[scelto].Y));
  if (primo)
    MettiPrimo(s, k, p);
  else
    MettiSecondo(s, k, p);
  SegnaModificato(s, SlotLinee);
  return true;
}

bool AllungaArco(Sessione& s, size_t k, const PuntoXYZ (&incroci)[2], int n) {
  const Arco a = ArcoDi(s, k);
  const double xc = s.ArcoX[k], yc = s.ArcoY[k], r = s.ArcoRaggio[k];
  const double xi = xc + r * std::sin(a.Inizio), yi = yc + r * std::cos(a.Inizio);
  const double xf = xc + r * std::sin(a.Inizio + a.Ampiezza), yf = yc + r * std::cos(a.Inizio + a.Ampiezza);
  int scelto = -1;
  bool inizio = true;
  double migliore = 0;
  for (int i = 0; i < n; ++i) {
    const double di = Distanza2D(incroci[i].X, incroci[i].Y, xi, yi);
    const double df = Distanza2D(incroci[i].X, incroci[i].Y, xf, yf);
    const double d = std::min(di, df);
    if (scelto < 0 || d < migliore) scelto = i, migliore = d, inizio = di <= df;
  }
  if (scelto < 0) return false;
  const double az = AzimutDaCentro(xc, yc, incroci[scelto].X, incroci[scelto].Y);
  // The end goes round the circle to the crossing; the other end stays where it is.
  if (inizio)
    MettiArco(s, k, az, Norma(a.Inizio + a.Ampiezza - az), a.Z0, a.Z1);
  else
    MettiArco(s, k, a.Inizio, Norma(az - a.Inizio), a.Z0, a.Z1);
  SegnaModificato(s, SlotArchi);
  return true;
}

// --- The first pick of the commands on one entity ---------------------------------------

bool Lineare(uint8_t tipo) { return tipo == SlotLinee || tipo == SlotCerchi || tipo == SlotArchi; }

// The entity under the click, if of a kind the command takes.
bool Presa(const Sessione& s, uint8_t& tipo, int32_t& riga) {
  return EntitaVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY, tipo, riga) && Lineare(tipo);
}

void TieniPrima(Sessione& s, uint8_t tipo, int32_t riga) {
  s.PrimaEntitaTipo = tipo;
  s.PrimaEntitaRiga = riga;
  s.PrimaEntitaX = s.PuntoCorrenteX;
  s.PrimaEntitaY = s.PuntoCorrenteY;
}

// The reference of cut and extend is shown selected while the command lasts.
void Evidenzia(Sessione& s, uint8_t tipo, int32_t riga) {
  if (uint8_t* b = ByteStato(s, tipo, riga)) *b = 1;
  SpecchiaSelezione(s);
  Ridisegna(s);
}

// --- The editor ----------------------------------------------------------------------------

struct CampoEntita {
  std::string Nome, Etichetta;
  std::function<std::string(const Sessione&, size_t)> Leggi;
  std::function<void(Sessione&, size_t, const std::string&)> Scrivi;
};

std::string Testo(double v) { return FormaSemplice(v); }
std::string Testo(float v) { return FormaSemplice(static_cast<double>(v)); }
std::string Testo(int16_t v) { return std::to_string(v); }
std::string Testo(int32_t v) { return std::to_string(v); }
std::string Testo(const std::string& v) { return v; }
void Assegna(double& c, const std::string& v) { c = Val(VirgolaInPunto(v)); }
void Assegna(float& c, const std::string& v) { c = static_cast<float>(Val(VirgolaInPunto(v))); }
void Assegna(int16_t& c, const std::string& v) { c = InteroCorto(Val(VirgolaInPunto(v))); }
void Assegna(int32_t& c, const std::string& v) { c = InteroLungo(Val(VirgolaInPunto(v))); }
void Assegna(std::string& c, const std::string& v) { c = Rifila(v); }

template <class Tab, class T>
CampoEntita C(const char* nome, const char* etichetta, Colonna<T> Tab::*col) {
  return {nome, etichetta, [col](const Sessione& s, size_t r) { return Testo((s.*col)[r]); },
          [col](Sessione& s, size_t r, const std::string& v) { Assegna((s.*col)[r], v); }};
}

// Coordinates as the point editor shows them: at least three decimals.
template <class Tab>
CampoEntita Coord(const char* nome, const char* etichetta, Colonna<double> Tab::*col) {
  CampoEntita c = C(nome, etichetta, col);
  c.Leggi = [col](const Sessione& s, size_t r) { return Rifila(FormatoMaschera((s.*col)[r], "#########0.000########")); };
  return c;
}

// The point editor shows the free text and the tags apart, and writes the tags back at the
// front in its own order.
CampoEntita TestoLibero() {
  return {"Descrizione", "Descrizione :", [](const Sessione& s, size_t r) { return SenzaCodici(s.PuntoDescrizione[r]); },
          [](Sessione& s, size_t r, const std::string& v) {
            s.PuntoDescrizione[r] = SoloCodici(s.PuntoDescrizione[r]) + Rifila(v);
          }};
}

CampoEntita Spunta(const char* nome, const char* etichetta, std::string_view codice) {
  return {nome, etichetta,
          [codice](const Sessione& s, size_t r) { return std::string(HaCodice(s.PuntoDescrizione[r], codice) ? "1" : "0"); },
          [codice](Sessione& s, size_t r, const std::string& v) {
            std::string& d = s.PuntoDescrizione[r];
            d = CodiciInTesta(Val(v) != 0 ? MettiCodice(d, codice) : TogliCodice(d, codice));
          }};
}

// One of a pair that exclude each other, or neither: "PV", "PD" or empty.
CampoEntita Scelta(const char* nome, const char* etichetta, std::string_view primo, std::string_view secondo) {
  auto parola = [](std::string_view c) { return std::string(c.substr(1, c.size() - 2)); };
  return {nome, etichetta,
          [=](const Sessione& s, size_t r) {
            const std::string& d = s.PuntoDescrizione[r];
            return HaCodice(d, primo) ? parola(primo) : HaCodice(d, secondo) ? parola(secondo) : std::string();
          },
          [=](Sessione& s, size_t r, const std::string& v) {
            std::string& d = s.PuntoDescrizione[r];
            const std::string scelta = Maiuscolo(Rifila(v));
            d = TogliCodice(TogliCodice(d, primo), secondo);
            if (scelta == parola(primo)) d = MettiCodice(d, primo);
            if (scelta == parola(secondo)) d = MettiCodice(d, secondo);
            d = CodiciInTesta(d);
          }};
}

std::vector<CampoEntita> CampiDi(uint8_t tipo) {
  using P = TabellaPunti;
  using L = TabellaLinee;
  using Ce = TabellaCerchi;
  using A = TabellaArchi;
  using T = TabellaTesti;
  using F = TabellaFalde;
  using B = TabellaBitmap;
  switch (tipo) {
    case SlotPunti:
      return {C("Nome", "Nome :", &P::PuntoNome), Coord("Nord", " N :", &P::PuntoY), Coord("Est", " E :", &P::PuntoX),
              Coord("Quota", " Q :", &P::PuntoZ), C("HPrisma", "H. Prisma :", &P::PuntoHPrisma),
              TestoLibero(), Spunta("Planimetrico", "<P!> (1/0) :", kCodicePlanimetrico),
              Spunta("SoloDirezione", "<00> (1/0) :", kCodiceSoloDirezione),
              Spunta("Escluso", "<EL> (1/0) :", kCodiceEscluso), Spunta("Ausiliario", "[P.A.] (1/0) :", kCodiceAusiliario),
              Scelta("VerticeDirezione", "PV / PD :", kCodiceVertice, kCodiceDirezione),
              Spunta("Riga8Quota", "<8Q> (1/0) :", kCodiceRiga8Quota),
              Scelta("Riga8", "8P / 8= :", kCodiceRiga8Planim, kCodiceRiga8Uguale), C("Piano", "Piano :", &P::PuntoPiano),
              C("Simbolo", "Simbolo :", &P::PuntoSimbolo),
              C("DimensioneSimbolo", "Dim. Simbolo :", &P::PuntoDimensioneSimbolo),
              C("DimensioneNome", "Dim. Nome :", &P::PuntoDimensioneNome),
              C("DimensioneQuota", "Dim. Quota :", &P::PuntoDimensioneQuota),
              C("DimensioneDescrizione", "Dim. Descrizione :", &P::PuntoDimensioneDescrizione),
              C("ColoreSimbolo", "Colore Simbolo :", &P::PuntoColoreSimbolo),
              C("ColoreNome", "Colore Nome :", &P::PuntoColoreNome),
              C("ColoreQuota", "Colore Quota :", &P::PuntoColoreQuota),
              C("ColoreDescrizione", "Colore Descrizione :", &P::PuntoColoreDescrizione),
              C("CongelaSimbolo", "Congela Simbolo :", &P::PuntoCongelaSimbolo),
              C("CongelaNome", "Congela Nome :", &P::PuntoCongelaNome),
              C("CongelaQuota", "Congela Quota :", &P::PuntoCongelaQuota),
              C("CongelaDescrizione", "Congela Descrizione :", &P::PuntoCongelaDescrizione),
              C("Attendibilita", "Attendibilità :", &P::PuntoAttendibilita),
              C("SpostamentoX", "Spostamento E :", &P::PuntoSpoX), C("SpostamentoY", "Spostamento N :", &P::PuntoSpoY),
              C("SpostamentoZ", "Spostamento Q :", &P::PuntoSpoZ), C("Font", "Font :", &P::PuntoFont),
              C("ErroreOrientamento", "Errore Orientamento :", &P::PuntoErroreOrientamento)};
    case SlotLinee:
      return {Coord("Nord1", " N1 :", &L::LineaY1), Coord("Est1", " E1 :", &L::LineaX1), Coord("Quota1", " Q1 :", &L::LineaZ1),
              Coord("Nord2", " N2 :", &L::LineaY2), Coord("Est2", " E2 :", &L::LineaX2), Coord("Quota2", " Q2 :", &L::LineaZ2),
              C("Colore", "Colore :", &L::LineaColore), C("Tratteggio", "Tratteggio :", &L::LineaTratteggio),
              C("Congela", "Congela :", &L::LineaCongela), C("Quotata", "Quotata :", &L::LineaQuotata),
              C("OffsetQuota", "Distanza Quota :", &L::LineaOffsetQuota), C("Piano", "Piano :", &L::LineaPiano),
              C("Tronca", "Tronca :", &L::LineaTronca)};
    case SlotCerchi:
      return {Coord("Nord", " N :", &Ce::CerchioY), Coord("Est", " E :", &Ce::CerchioX), Coord("Quota", " Q :", &Ce::CerchioZ),
              C("Raggio", "Raggio :", &Ce::CerchioRaggio), C("Colore", "Colore :", &Ce::CerchioColore),
              C("Tratteggio", "Tratteggio :", &Ce::CerchioTratteggio), C("Congela", "Congela :", &Ce::CerchioCongela),
              C("Piano", "Piano :", &Ce::CerchioPiano)};
    case SlotArchi:
      return {Coord("Nord", " N :", &A::ArcoY), Coord("Est", " E :", &A::ArcoX), Coord("Quota", " Q :", &A::ArcoZ),
              C("Raggio", "Raggio :", &A::ArcoRaggio), C("Inizio", "Azim. Inizio", &A::ArcoInizio),
              C("Fine", "Ang. Centro", &A::ArcoFine), C("Colore", "Colore :", &A::ArcoColore),
              C("Tratteggio", "Tratteggio :", &A::ArcoTratteggio), C("Congela", "Congela :", &A::ArcoCongela),
              C("QuotaInizio", "Quota Inizio :", &A::ArcoQuotaInizio),
              C("QuotaFinale", "Quota Finale :", &A::ArcoQuotaFinale), C("Piano", "Piano :", &A::ArcoPiano)};
    case SlotTesti:
      return {C("Testo", "Testo :", &T::TestoTesto), Coord("Nord", " N :", &T::TestoY), Coord("Est", " E :", &T::TestoX),
              C("Rotazione", "Angolo", &T::TestoRotazione), C("Altezza", "Altezza :", &T::TestoAltezza),
              C("Righe", "Righe", &T::TestoRighe), C("Colonne", "Colonne", &T::TestoColonne),
              C("Colore", "Colore :", &T::TestoColore), C("Congela", "Congela :", &T::TestoCongela),
              C("Piano", "Piano :", &T::TestoPiano), C("Font", "Font :", &T::TestoFont)};
    case SlotFalde:
      return {Coord("Nord1", " N1 :", &F::FaldaY1), Coord("Est1", " E1 :", &F::FaldaX1), Coord("Quota1", " Q1 :", &F::FaldaZ1),
              Coord("Nord2", " N2 :", &F::FaldaY2), Coord("Est2", " E2 :", &F::FaldaX2), Coord("Quota2", " Q2 :", &F::FaldaZ2),
              Coord("Nord3", " N3 :", &F::FaldaY3), Coord("Est3", " E3 :", &F::FaldaX3), Coord("Quota3", " Q3 :", &F::FaldaZ3),
              C("Colore", "Colore :", &F::FaldaColore), C("Congela", "Congela :", &F::FaldaCongela),
              C("Piano", "Piano :", &F::FaldaPiano)};
    case SlotBitmap:
      return {C("NomeFile", "Nome File", &B::BitmapNomeFile), C("X", "X", &B::BitmapX), C("Y", "Y", &B::BitmapY),
              C("Larghezza", "Larghezza", &B::BitmapLarghezza), C("Altezza", "Altezza", &B::BitmapAltezza),
              C("Congela", "Congela", &B::BitmapCongela), C("Piano", "Piano", &B::BitmapPiano),
              C("Zoom", "Zoom", &B::BitmapZoom), C("ScalaLar", "Scala Lar", &B::BitmapScalaLar),
              C("ScalaAlt", "Scala Alt", &B::BitmapScalaAlt), C("Rotazione", "Rotazione", &B::BitmapRotazione)};
    default: return {};
  }
}

const char* TitoloEditor(uint8_t tipo) {
  switch (tipo) {
    case SlotPunti: return "Edit Punto";
    case SlotLinee: return "Edit Linea";
    case SlotCerchi: return "Edit Cerchio";
    case SlotArchi: return "Edit Arco";
    case SlotTesti: return "Edit Testo";
    case SlotFalde: return "Edit Falda";
    case SlotBitmap: return "Edit Immagine";
    default: return "Edit";
  }
}

bool RigaValida(const Sessione& s, uint8_t tipo, int32_t riga) {
  return tipo < NumeroSlot && riga >= 0 && riga < s.ContaEntita[tipo];
}

// `ModificaEntita`: the fields the user changed go back into the row; the others are left
// to the last bit as they were, whatever their text shows.
bool ModificaEntita(Sessione& s, const Dialogo& d, uint8_t tipo, int32_t riga, const std::vector<std::string>& prima) {
  if (!RigaValida(s, tipo, riga)) return false;
  const auto k = static_cast<size_t>(riga);
  const std::vector<CampoEntita> campi = CampiDi(tipo);
  if (tipo == SlotPunti) {
    const std::string nome = Rifila(d.Valore("Nome"));
    if (nome != Rifila(s.PuntoNome[k]))
      for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
        if (r != riga && IdentVivo(s.PuntoIdent[static_cast<size_t>(r)]) && Rifila(s.PuntoNome[static_cast<size_t>(r)]) == nome) {
          if (s.Ui->Domanda("Nome Punto " + nome + " esistente!! Procedere ugualmente ? ", "Nome esistente",
                            Bottoni::SiNo, Icona::Domanda, Risposta::No) != Risposta::Si)
            return false;
          break;
        }
  }
  for (size_t i = 0; i < campi.size(); ++i) {
    const std::string v = d.Valore(campi[i].Nome);
    if (i < prima.size() && v == prima[i]) continue;
    campi[i].Scrivi(s, k, v);
  }
  SegnaModificato(s, tipo);
  return true;
}

// `subEliminaEntita`.
bool EliminaEntita(Sessione& s, uint8_t tipo, int32_t riga) {
  if (!RigaValida(s, tipo, riga)) return false;
  const auto k = static_cast<size_t>(riga);
  switch (tipo) {
    case SlotPunti: s.PuntoIdent[k] = -1; break;
    case SlotLinee: s.LineaIdent[k] = -1; break;
    case SlotCerchi: s.CerchioIdent[k] = -1; break;
    case SlotArchi: s.ArcoIdent[k] = -1; break;
    case SlotTesti: s.TestoIdent[k] = -1; break;
    case SlotFalde: s.FaldaIdent[k] = -1; break;
    case SlotBitmap: s.BitmapIdent[k] = -1; break;
    default: return false;
  }
  SegnaModificato(s, tipo);
  return true;
}

}  // namespace

void subCambiaRifila(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1;
  if (!Presa(s, tipo, riga)) return;
  if (s.PassoComando == 0) {
    TieniPrima(s, tipo, riga);
    s.PassoComando = 1;
    MostraPrompt(s, "Cambia Rifila - Seconda Entità");
    return;
  }
  if (tipo == s.PrimaEntitaTipo && riga == s.PrimaEntitaRiga) return;
  Portante a, b;
  PuntoXYZ incroci[2];
  const int n = PortanteDi(s, s.PrimaEntitaTipo, s.PrimaEntitaRiga, a) && PortanteDi(s, tipo, riga, b)
                    ? Incroci(a, b, incroci)
                    : 0;
  if (n == 0) {
    // Parallel lines, or curves that never meet: nothing changes, the first pick again.
    ArmaComando(s);
    return;
  }
  const PuntoXYZ secondo{s.PuntoCorrenteX, s.PuntoCorrenteY, 0};
  PuntoXYZ i = incroci[0];
  if (n == 2 && Distanza2D(incroci[1].X, incroci[1].Y, secondo.X, secondo.Y) <
                    Distanza2D(incroci[0].X, incroci[0].Y, secondo.X, secondo.Y))
    i = incroci[1];
  bool fatto = RifilaEntita(s, s.PrimaEntitaTipo, s.PrimaEntitaRiga, {s.PrimaEntitaX, s.PrimaEntitaY, 0}, i);
  fatto |= RifilaEntita(s, tipo, riga, secondo, i);
  if (fatto) FineModifica(s);
  ArmaComando(s);
}

namespace {

// The steps that cut and extend share: the first pick gives the reference, shown selected;
// each later one an entity, and where its carrier meets the reference's. False while there
// is nothing to work on.
bool ControRiferimento(Sessione& s, const char* prompt, uint8_t& tipo, int32_t& riga, PuntoXYZ (&incroci)[2],
                       int& n) {
  if (!Presa(s, tipo, riga)) return false;
  if (s.PassoComando == 0) {
    TieniPrima(s, tipo, riga);
    Evidenzia(s, tipo, riga);
    s.PassoComando = 1;
    MostraPrompt(s, prompt);
    return false;
  }
  if (tipo == s.PrimaEntitaTipo && riga == s.PrimaEntitaRiga) return false;
  Portante riferimento, questa;
  if (!PortanteDi(s, s.PrimaEntitaTipo, s.PrimaEntitaRiga, riferimento) || !PortanteDi(s, tipo, riga, questa))
    return false;
  n = Incroci(riferimento, questa, incroci);
  return true;
}

}  // namespace

void subCambiaTaglia(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1;
  PuntoXYZ incroci[2];
  int n = 0;
  if (!ControRiferimento(s, "Cambia Taglia - Parte da Tagliare:", tipo, riga, incroci, n)) return;
  const PuntoXYZ pick{s.PuntoCorrenteX, s.PuntoCorrenteY, 0};
  const auto k = static_cast<size_t>(riga);
  bool fatto = false;
  switch (tipo) {
    case SlotLinee: fatto = TagliaLinea(s, k, incroci, n, pick); break;
    case SlotCerchi: fatto = TagliaCerchio(s, k, incroci, n, pick); break;
    case SlotArchi: fatto = TagliaArco(s, k, incroci, n, pick); break;
    default: break;
  }
  // The command stays on its second step: more entities may be cut against the same one.
  if (fatto) FineModifica(s);
}

void subCambiaAllunga(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1;
  PuntoXYZ incroci[2];
  int n = 0;
  if (!ControRiferimento(s, "Cambia Allunga - Entità da Allungare:", tipo, riga, incroci, n)) return;
  const auto k = static_cast<size_t>(riga);
  bool fatto = false;
  if (tipo == SlotLinee) fatto = AllungaLinea(s, k, incroci, n);
  if (tipo == SlotArchi) fatto = AllungaArco(s, k, incroci, n);
  if (fatto) FineModifica(s);
}

void subCambiaDivide(Sessione& s) {
  if (s.PassoComando == 0) {
    uint8_t tipo = 0;
    int32_t riga = -1;
    // A circle has no ends to divide between: it is refused, as every other kind.
    if (!Presa(s, tipo, riga) || tipo == SlotCerchi) return;
    TieniPrima(s, tipo, riga);
    s.PassoComando = 1;
    MostraPrompt(s, "Cambia Divide - Punto per Divisione:");
    return;
  }
  const int32_t riga = s.PrimaEntitaRiga;
  if (!RigaValida(s, s.PrimaEntitaTipo, riga)) return;
  const auto k = static_cast<size_t>(riga);
  bool fatto = false;
  if (s.PrimaEntitaTipo == SlotLinee) {
    // The foot of the point on the line divides it.
    const double t = Lungo(s, k, s.PuntoCorrenteX, s.PuntoCorrenteY);
    if (t > kMargine && t < 1 - kMargine) {
      const PuntoXYZ piede = SullaLinea(s, k, t);
      const size_t nuova = CopiaInCoda(s, SlotLinee, DimensionaLinee, static_cast<TabellaLinee&>(s), k);
      s.StatoLinea[nuova] = 0;
      MettiSecondo(s, k, piede);
      MettiPrimo(s, nuova, piede);
      SegnaModificato(s, SlotLinee);
      fatto = true;
    }
  } else {
    const Arco a = ArcoDi(s, k);
    const double rel = a.Rel(AzimutDaCentro(s.ArcoX[k], s.ArcoY[k], s.PuntoCorrenteX, s.PuntoCorrenteY));
    if (rel > kMargine && rel < a.Ampiezza - kMargine) {
      const size_t nuova = CopiaInCoda(s, SlotArchi, DimensionaArchi, static_cast<TabellaArchi&>(s), k);
      s.StatoArco[nuova] = 0;
      MettiArco(s, k, a.Inizio, rel, a.Z0, a.Quota(rel));
      MettiArco(s, nuova, a.Inizio + rel, a.Ampiezza - rel, a.Quota(rel), a.Z1);
      SegnaModificato(s, SlotArchi);
      fatto = true;
    }
  }
  // A point that falls off the entity divides nothing: the point is asked again.
  if (!fatto) return;
  FineModifica(s);
  ArmaComando(s);
}

void subCambiaTratteggioEntitaSingola(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1;
  if (!EntitaVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY, tipo, riga)) return;
  const auto k = static_cast<size_t>(riga);
  const int32_t colore = s.Imp.Colore_Default;
  const int16_t tratteggio = InteroCorto(s.Imp.Tratteggio_Default);
  const std::string piano = Rifila(s.PianoCorrente);
  bool fatto = true;
  switch (s.ComandoCorrente) {
    case 306:
      switch (tipo) {
        case SlotLinee: s.LineaTratteggio[k] = tratteggio; break;
        case SlotCerchi: s.CerchioTratteggio[k] = tratteggio; break;
        case SlotArchi: s.ArcoTratteggio[k] = tratteggio; break;
        default: fatto = false; break;
      }
      break;
    case 307:
      switch (tipo) {
        case SlotPunti:
          s.PuntoColoreSimbolo[k] = s.PuntoColoreNome[k] = s.PuntoColoreQuota[k] = s.PuntoColoreDescrizione[k] = colore;
          break;
        case SlotLinee: s.LineaColore[k] = colore; break;
        case SlotCerchi: s.CerchioColore[k] = colore; break;
        case SlotArchi: s.ArcoColore[k] = colore; break;
        case SlotTesti: s.TestoColore[k] = colore; break;
        case SlotFalde: s.FaldaColore[k] = colore; break;
        default: fatto = false; break;
      }
      break;
    case 308:
      switch (tipo) {
        case SlotPunti: s.PuntoPiano[k] = piano; break;
        case SlotLinee: s.LineaPiano[k] = piano; break;
        case SlotCerchi: s.CerchioPiano[k] = piano; break;
        case SlotArchi: s.ArcoPiano[k] = piano; break;
        case SlotTesti: s.TestoPiano[k] = piano; break;
        case SlotFalde: s.FaldaPiano[k] = piano; break;
        case SlotBitmap: s.BitmapPiano[k] = piano; break;
        default: fatto = false; break;
      }
      break;
    default: fatto = false; break;
  }
  if (!fatto) return;
  SegnaModificato(s, tipo);
  FineModifica(s);
  ArmaComando(s);
}

void subEditaEntitaComando(Sessione& s) {
  uint8_t tipo = 0;
  int32_t riga = -1;
  if (EntitaVicina(s, s.PuntoCorrenteX, s.PuntoCorrenteY, tipo, riga)) subEditaEntita(s, tipo, riga);
}

void subEditaEntita(Sessione& s, uint8_t tipo, int32_t riga) {
  // A section is edited by its stations.
  if (tipo == SlotSezioni) {
    ApriEditaPunti(s, riga);
    return;
  }
  if (!RigaValida(s, tipo, riga)) return;
  const std::vector<CampoEntita> campi = CampiDi(tipo);
  if (campi.empty()) return;
  const std::string nome = tipo == SlotPunti ? "formEditaPunto" : "FormEditModifica1";
  // One editor at a time: the other closes.
  ChiudiDialogo(s, tipo == SlotPunti ? "FormEditModifica1" : "formEditaPunto");
  Dialogo d;
  d.Nome = nome;
  d.Titolo = TitoloEditor(tipo);
  std::vector<std::string> prima;
  for (const CampoEntita& c : campi) {
    prima.push_back(c.Leggi(s, static_cast<size_t>(riga)));
    d.AggiungiCampo(c.Nome, c.Etichetta, prima.back());
  }
  d.AggiungiBottone("OK", "OK", [nome, tipo, riga, prima](Sessione& x) {
    x.RoutineCorrente = "ModificaEntita";
    Protetto(x, [&] {
      const Dialogo* dd = TrovaDialogo(x, nome);
      if (!dd || !ModificaEntita(x, *dd, tipo, riga, prima)) return;
      ChiudiDialogo(x, nome);
      FineModifica(x);
    });
  });
  d.AggiungiBottone("Elimina", "Elimina", [nome, tipo, riga](Sessione& x) {
    x.RoutineCorrente = "subEliminaEntita";
    Protetto(x, [&] {
      ChiudiDialogo(x, nome);
      if (EliminaEntita(x, tipo, riga)) FineModifica(x);
    });
  });
  d.AggiungiBottone("Annulla", "Annulla", [nome](Sessione& x) { ChiudiDialogo(x, nome); });
  // The point's monograph card is kept by the field-book manager.
  if (tipo == SlotPunti)
    d.AggiungiBottone("MONOGRAFIE", "Monografia", [riga](Sessione& x) {
      if (RigaValida(x, SlotPunti, riga)) LancioSondaIII(x, x.PuntoNome[static_cast<size_t>(riga)] + " |MONOGRAFIE|");
    });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

}  // namespace varena
