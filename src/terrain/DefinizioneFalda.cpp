// The manual facet: the third click tests the triangle against the facet table.
#include "terrain/DefinizioneFalda.h"

#include <cmath>

#include "commands/AiutiDisegno.h"
#include "commands/Comandi.h"
#include "commands/Modifica.h"
#include "commands/Puntatore.h"
#include "core/Sessione.h"
#include "terrain/Falde.h"
#include "terrain/Triangolazione.h"

namespace varena {

namespace {

double Orienta(double ax, double ay, double bx, double by, double cx, double cy) {
  return (bx - ax) * (cy - ay) - (by - ay) * (cx - ax);
}

// Two sides that cross at a point inside both; touching at an end or along a line is not.
bool SiTaglia(double ax, double ay, double bx, double by, double cx, double cy, double dx, double dy) {
  const double o1 = Orienta(ax, ay, bx, by, cx, cy), o2 = Orienta(ax, ay, bx, by, dx, dy);
  const double o3 = Orienta(cx, cy, dx, dy, ax, ay), o4 = Orienta(cx, cy, dx, dy, bx, by);
  return ((o1 > 0 && o2 < 0) || (o1 < 0 && o2 > 0)) && ((o3 > 0 && o4 < 0) || (o3 < 0 && o4 > 0));
}

bool Dentro(const double x[3], const double y[3], double px, double py) {
  const double a = Orienta(x[0], y[0], x[1], y[1], px, py), b = Orienta(x[1], y[1], x[2], y[2], px, py);
  const double c = Orienta(x[2], y[2], x[0], y[0], px, py);
  return (a > 0 && b > 0 && c > 0) || (a < 0 && b < 0 && c < 0);
}

}  // namespace

bool FaldaSovrapposta(const Sessione& s, const double x[3], const double y[3]) {
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
    if (!IdentVivo(s.FaldaIdent[r])) continue;
    const double fx[3] = {s.FaldaX1[r], s.FaldaX2[r], s.FaldaX3[r]};
    const double fy[3] = {s.FaldaY1[r], s.FaldaY2[r], s.FaldaY3[r]};
    for (int i = 0; i < 3; ++i)
      for (int j = 0; j < 3; ++j)
        if (SiTaglia(x[i], y[i], x[(i + 1) % 3], y[(i + 1) % 3], fx[j], fy[j], fx[(j + 1) % 3], fy[(j + 1) % 3]))
          return true;
    // No sides crossing: one holds the other (or they coincide) when the centre of one lies
    // inside the other.
    if (Dentro(fx, fy, (x[0] + x[1] + x[2]) / 3, (y[0] + y[1] + y[2]) / 3) ||
        Dentro(x, y, (fx[0] + fx[1] + fx[2]) / 3, (fy[0] + fy[1] + fy[2]) / 3))
      return true;
  }
  return false;
}

void subDefinizioneFalde(Sessione& s) {
  if (!FaldeAttive(s)) {
    InterrompiComando(s);
    return;
  }
  if (s.PassoComando < 2) {
    SpostaPunti(s);
    ++s.PassoComando;
    MostraPrompt(s, s.PassoComando == 1 ? "Definizione Falda - Secondo Punto:" : "Definizione Falda - Terzo Punto:");
    return;
  }
  const PuntoXYZ p[3] = {PuntoDue(s), PuntoUno(s), PuntoCorrente(s)};
  const double x[3] = {p[0].X, p[1].X, p[2].X}, y[3] = {p[0].Y, p[1].Y, p[2].Y};
  if (FaldaSovrapposta(s, x, y) &&
      s.Ui->Domanda("La falda Interseca o Coincide con Falde Esistenti!!\nContinuare ??", "Falda Impossibile",
                    Bottoni::SiNo, Icona::Domanda, Risposta::No) != Risposta::Si) {
    Riprendi(s);
    return;
  }
  DimensionaFalde(s);
  const auto r = static_cast<size_t>(s.ContaEntita[SlotFalde]++);
  s.FaldaIdent[r] = 0;
  s.FaldaX1[r] = p[0].X, s.FaldaY1[r] = p[0].Y, s.FaldaZ1[r] = p[0].Z;
  s.FaldaX2[r] = p[1].X, s.FaldaY2[r] = p[1].Y, s.FaldaZ2[r] = p[1].Z;
  s.FaldaX3[r] = p[2].X, s.FaldaY3[r] = p[2].Y, s.FaldaZ3[r] = p[2].Z;
  s.FaldaColore[r] = s.Imp.Colore_Default;
  s.FaldaPiano[r] = s.PianoCorrente;
  AggiornaFalde(s);
  FineModifica(s);
  Riprendi(s);
}

int32_t FaldaSottoIlPuntatore(const Sessione& s, double x, double y) {
  for (int32_t f = 0; f < s.ContaEntita[SlotFalde]; ++f) {
    const auto r = static_cast<size_t>(f);
    if (IdentVivo(s.FaldaIdent[r]) && s.FaldaCongela[r] == 0 && PuntoInternoFalda(s, f, x, y)) return f;
  }
  return -1;
}

namespace {

struct Vertice {
  double X, Y, Z;
};

void Vertici(const Sessione& s, size_t r, Vertice v[3]) {
  v[0] = {s.FaldaX1[r], s.FaldaY1[r], s.FaldaZ1[r]};
  v[1] = {s.FaldaX2[r], s.FaldaY2[r], s.FaldaZ2[r]};
  v[2] = {s.FaldaX3[r], s.FaldaY3[r], s.FaldaZ3[r]};
}

void Scrivi(Sessione& s, size_t r, const Vertice& a, const Vertice& b, const Vertice& c) {
  s.FaldaX1[r] = a.X, s.FaldaY1[r] = a.Y, s.FaldaZ1[r] = a.Z;
  s.FaldaX2[r] = b.X, s.FaldaY2[r] = b.Y, s.FaldaZ2[r] = b.Z;
  s.FaldaX3[r] = c.X, s.FaldaY3[r] = c.Y, s.FaldaZ3[r] = c.Z;
}

}  // namespace

void subInvertiFalde(Sessione& s) {
  if (!FaldeAttive(s)) {
    InterrompiComando(s);
    return;
  }
  const int32_t f = FaldaSottoIlPuntatore(s, s.PuntoCorrenteX, s.PuntoCorrenteY);
  if (f < 0) return;
  if (s.PassoComando == 0) {
    s.Terreno.FaldaScelta = f;
    s.PassoComando = 1;
    MostraPrompt(s, "Inverti Falde - Seconda Falda:");
    return;
  }
  const auto r1 = static_cast<size_t>(s.Terreno.FaldaScelta), r2 = static_cast<size_t>(f);
  Vertice a[3], b[3];
  Vertici(s, r1, a);
  Vertici(s, r2, b);
  // The vertices of the first found again in the second, within a tenth of a millimetre.
  int comuni = 0, libero1 = 0, libero2 = 3;
  int inB[3] = {-1, -1, -1};
  for (int i = 0; i < 3; ++i)
    for (int j = 0; j < 3; ++j)
      if (std::fabs(a[i].X - b[j].X) < 0.0001 && std::fabs(a[i].Y - b[j].Y) < 0.0001) inB[i] = j;
  for (int i = 0; i < 3; ++i) {
    if (inB[i] >= 0) ++comuni, libero2 -= inB[i];
    else libero1 = i;
  }
  if (r1 == r2 || comuni != 2) {
    s.Ui->Messaggio("Falde non adiacenti", "Inverti Falde", Icona::Nessuna);
    Riprendi(s);
    return;
  }
  // libero2 is what is left of 0 + 1 + 2 once the shared vertices of the second are taken.
  const Vertice& c = a[libero1];
  const Vertice& d = b[libero2];
  const Vertice& e1 = a[(libero1 + 1) % 3];
  const Vertice& e2 = a[(libero1 + 2) % 3];
  Scrivi(s, r1, c, e1, d);
  Scrivi(s, r2, d, e2, c);
  AggiornaFalde(s);
  FineModifica(s);
  Riprendi(s);
}

}  // namespace varena
