// Dash patterns in metres and the flattening of arcs into chords, as regeneration applies
// them, and the decomposition of a point's symbol code into what it paints.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

namespace varena {

struct Tratto {
  double X1, Y1, X2, Y2;  // equal ends: a dot
};

// A pattern: up to 20 lengths (stroke above 0, gap below 0, dot 0) and the angle in gon,
// from the line's azimuth, of aslant pieces (0 for plain ones).
struct StileLinea {
  std::span<const double> Elementi;
  double AngoloGon = 0;
};

// A pattern whose pieces would be more than this many on one line is drawn plain: a pattern
// of millimetres on a line of kilometres would only paint a solid line slowly.
inline constexpr int64_t kMassimoPezzi = 200000;

// A line as its pattern cuts it. The pieces are never all made at once unless asked for:
// the painter takes those in view, the snap those near the pointer, each by the distance
// along the line at which a piece starts, and any window gives the same pieces, to the
// bit, as the whole line does.
class PercorsoMotivo {
 public:
  // Plain: one piece, the line itself (no elements, a pattern of no length, or one that
  // would give more than `kMassimoPezzi` pieces). Nulla: no piece at all (gaps only, or a
  // line that ends before its first stroke). Motivo: the pieces of the pattern.
  enum class Modo { Piena, Nulla, Motivo };

  PercorsoMotivo(double x1, double y1, double x2, double y2, const StileLinea& stile);
  Modo Come() const { return modo_; }
  double Lunghezza() const { return L_; }
  // The length of one repeat of the pattern, and of its longest element.
  double Giro() const { return giro_; }
  double Massimo() const { return massimo_; }

  // Each piece whose start lies from `da` to `a` metres along the line, in order; a plain
  // line is its one piece whenever the stretch meets it.
  template <class F>
  void Pezzi(double da, double a, F&& f) const;
  // The stretch of the line, as distances along it, that lies in the rectangle; false when
  // none does.
  bool Dentro(double xmin, double ymin, double xmax, double ymax, double& da, double& a) const;
  // The box of every piece, from the first repeat and the last two alone: along a straight
  // line each element's pieces reach furthest in the first repeat or in one of the last two.
  // False when there is no piece.
  bool Riquadro(double& xmin, double& ymin, double& xmax, double& ymax) const;

 private:
  Tratto Pezzo(double d, double utile, double elemento, bool ultimo) const;

  double x1_, y1_, x2_, y2_;
  StileLinea stile_;
  Modo modo_ = Modo::Piena;
  double L_ = 0, giro_ = 0, massimo_ = 0;
  double sa_ = 0, ca_ = 0, so_ = 0, co_ = 0;
  double inizi_[24] = {};  // where each element starts within a repeat
};

template <class F>
void PercorsoMotivo::Pezzi(double da, double a, F&& f) const {
  if (modo_ == Modo::Piena) {
    if (da <= L_ && a >= 0) f(Tratto{x1_, y1_, x2_, y2_});
    return;
  }
  if (modo_ != Modo::Motivo || !(da <= a) || a < 0) return;
  // The repeat where `da` falls, one early for the rounding of the division.
  const double primo = std::floor(std::max(da, 0.0) / giro_) - 1;
  for (double p = std::max(primo, 0.0);; p += 1) {
    const double base = p * giro_;
    for (size_t k = 0; k < stile_.Elementi.size(); ++k) {
      const double e = stile_.Elementi[k], passo = std::fabs(e), d = base + inizi_[k];
      if (d > a) return;
      // The element that reaches the end is the last, cut there.
      const bool ultimo = d + passo >= L_;
      if (e >= 0 && d >= da) f(Pezzo(d, ultimo ? L_ - d : passo, e, ultimo));
      if (ultimo) return;
    }
  }
}

// Cuts the line from (x1, y1) to (x2, y2) into all the pieces of its pattern. The last piece
// always stops at the line's end. A pattern of gaps only gives nothing.
void EspandiLinea(double x1, double y1, double x2, double y2, const StileLinea& stile, std::vector<Tratto>& out);

// The finest detail of a curve, in metres on the ground: a tenth of a millimetre, which is
// about a tenth of a pixel at the closest zoom (a view one metre high). A chord shorter
// than this draws nothing that its neighbours do not.
inline constexpr double kCordaMinima = 0.0001;

// The chords of `angolo` radians of a curve of radius r: enough that none strays more than
// half a millimetre from the curve, never shorter than `kCordaMinima`, at least one.
int NumeroCorde(double r, double angolo);

// The sweep of an arc as it is drawn, in gon: whole turns dropped, and whole turns alone are
// one turn. 4e7 gon are a hundred thousand turns that look as one.
double AmpiezzaInUnGiro(double gon);

// The points of an arc of centre (xc, yc) and radius r from azimuth `inizio` through
// `ampiezza` radians clockwise, as the pieces of its pattern; a plain arc (no elements) as
// chords of `NumeroCorde`. A sweep past a full turn is drawn as one turn: the work is that of
// one turn at most, whatever the caller asks.
// `t0`, `t1` of each piece: its ends as fractions of the sweep, for the heights.
struct TrattoArco {
  double X1, Y1, X2, Y2, T1, T2;
};
void EspandiArco(double xc, double yc, double r, double inizio, double ampiezza, const StileLinea& stile,
                 std::vector<TrattoArco>& out);

// An arc as its pattern cuts it, piece by piece where they are wanted, as `PercorsoMotivo`
// does for a line. A stretch of the curve is given in metres along it from its start; the
// pieces are those of `EspandiArco`, whose start (a dash's, or a plain chord's) lies in it.
class PercorsoArco {
 public:
  // Corde: a plain curve, its chords. Nulla: nothing (no sweep, gaps only). Motivo: the
  // dashes of the pattern, each as its own chords.
  enum class Modo { Corde, Nulla, Motivo };

  PercorsoArco(double xc, double yc, double r, double inizio, double ampiezza, const StileLinea& stile);
  Modo Come() const { return modo_; }
  double Lunghezza() const { return r_ * ampiezza_; }
  double Inizio() const { return inizio_; }
  double Ampiezza() const { return ampiezza_; }
  // One repeat of the pattern, and how far along the curve a piece may reach from where it
  // starts: its longest element, or a plain chord.
  double Giro() const { return giro_; }
  double Massimo() const;

  template <class F>
  void Pezzi(double da, double a, F&& f) const;
  // The stretches of the curve, at most three, whose points may lie in the rectangle: from
  // the angle the rectangle spans seen from the centre. Gives how many.
  int Dentro(double xmin, double ymin, double xmax, double ymax, double tratti[3][2]) const;
  // The box of the curve: its ends and the points due North, East, South and West on it.
  void Riquadro(double& xmin, double& ymin, double& xmax, double& ymax) const;

 private:
  void Punto(double a, double& x, double& y) const {
    x = xc_ + r_ * std::sin(a);
    y = yc_ + r_ * std::cos(a);
  }
  template <class F>
  void Corde(double a0, double a1, int primo, int ultimo, F&& f) const;

  double xc_, yc_, r_, inizio_ = 0, ampiezza_ = 0;
  StileLinea stile_;
  Modo modo_ = Modo::Nulla;
  double giro_ = 0, massimo_ = 0;
  int corde_ = 1;  // chords of the plain curve
  double inizi_[24] = {};
};

// The chords of the curve from angle a0 to a1, the `primo`-th to the `ultimo`-th (1 the
// first), each end computed as the whole run computes it.
template <class F>
void PercorsoArco::Corde(double a0, double a1, int primo, int ultimo, F&& f) const {
  const int n = NumeroCorde(r_, a1 - a0);
  auto angolo = [&](int k) { return k == n ? a1 : a0 + (a1 - a0) * k / n; };
  primo = std::max(primo, 1);
  double xa, ya;
  Punto(primo == 1 ? a0 : angolo(primo - 1), xa, ya);
  for (int k = primo; k <= std::min(ultimo, n); ++k) {
    const double a = angolo(k);
    double xb, yb;
    Punto(a, xb, yb);
    f(TrattoArco{xa, ya, xb, yb, (a0 + (a1 - a0) * (k - 1) / n - inizio_) / ampiezza_, (a - inizio_) / ampiezza_});
    xa = xb;
    ya = yb;
  }
}

template <class F>
void PercorsoArco::Pezzi(double da, double a, F&& f) const {
  if (modo_ == Modo::Nulla || !(da <= a) || a < 0) return;
  const double fine = inizio_ + ampiezza_;
  if (modo_ == Modo::Corde) {
    // The plain chords start at equal steps of the sweep; one more on each side for the
    // rounding of the division.
    const double passo = Lunghezza() / corde_;
    const double primo = std::floor(std::max(da, 0.0) / passo), ultimo = std::floor(a / passo) + 2;
    if (primo >= corde_) return;
    Corde(inizio_, fine, static_cast<int>(primo), static_cast<int>(std::min(ultimo, static_cast<double>(corde_))), f);
    return;
  }
  // Each element turned into an angle along the curve.
  const double primo = std::floor(std::max(da, 0.0) / giro_) - 1;
  for (double p = std::max(primo, 0.0);; p += 1) {
    for (size_t k = 0; k < stile_.Elementi.size(); ++k) {
      const double e = stile_.Elementi[k], d = p * giro_ + inizi_[k];
      if (d > a) return;
      const double a0 = inizio_ + d / r_, a1 = a0 + std::fabs(e) / r_;
      const double b = std::min(a1, fine);
      if (d >= da) {
        if (e > 0) {
          Corde(a0, b, 1, 1 << 30, f);
        } else if (e == 0) {
          double x, y;
          Punto(a0, x, y);
          f(TrattoArco{x, y, x, y, (a0 - inizio_) / ampiezza_, (a0 - inizio_) / ampiezza_});
        }
      }
      if (a1 >= fine) return;
    }
  }
}

// What a symbol code paints, in metres from the point, for a symbol of size s.
struct ElementoSimbolo {
  enum Tipo : uint8_t { Linea, Cerchio, Riquadro, Punto, Arco } Tipo;
  double A, B, C, D;  // line: both ends; circle: centre and radius; box: centre and half side
  // Arc (user symbols): centre A, B, radius C, from azimuth D through E radians clockwise.
  double E = 0;
};
// The decorations are taken off the code in a fixed order (box and circle at 96, box at 64,
// triangle at 42, circle at 32), what is left is the base. `carta`: a dot is a small cross.
void ScomponiSimbolo(int codice, double s, bool carta, std::vector<ElementoSimbolo>& out);
// An angle brought into 0 .. `giro` (2 pi, or 360): one a rounding short of the whole turn, as
// a user symbol's arc ending at East gives after gon, radians and degrees, is 0 itself.
inline double NelGiro(double a, double giro) {
  a = std::fmod(a, giro);
  if (a < 0) a += giro;
  return a > giro * (1 - 1e-12) ? 0 : a;
}

}  // namespace varena
