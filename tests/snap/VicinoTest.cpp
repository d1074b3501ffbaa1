// The nearest-entity searches: their limits, the order of kinds of the general search, every
// field of its record, and the trees giving the same winner as a plain scan of the tables,
// ties, frozen and deleted rows included.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "snap/Vicino.h"
#include "commands/Attese.h"
#include "survey/Convenzioni.h"
#include "view/Rigenera.h"

namespace varena {
namespace {

using namespace prova;

struct VicinanzaBanco : BancoProva {};

// The coordinates of the points one after another, for Vicini: value 3k + 1 is the North
// of the k-th point.
Valori Xyz(std::initializer_list<PuntoXYZ> punti) {
  Valori v;
  for (const PuntoXYZ& p : punti) v.insert(v.end(), {p.X, p.Y, p.Z});
  return v;
}

TEST_F(VicinanzaBanco, IlPiuVicinoLimitiInAltezzeDiVistaConIlConfine) {
  MettiPunto(s, "a 20 km", 20000, 0);
  MettiLinea(s, 0, 2000, 10, 2000);
  MettiCerchio(s, 0, -2100, 100);
  Pronto(0, 0, 10);
  // Points to 2000 view heights, the rest to 200; the limit itself still counts.
  EXPECT_EQ(std::make_tuple(IlPiuVicinoPunto(s, 0, 0).Riga, IlPiuVicinoPunto(s, -0.5, 0).Riga), std::make_tuple(0, -1));
  EXPECT_EQ(std::make_tuple(IlPiuVicinoLinea(s, 0, 0).Riga, IlPiuVicinoLinea(s, 0, -0.5).Riga), std::make_tuple(0, -1));
  EXPECT_EQ(IlPiuVicinoCerchio(s, 0, 0).Riga, 0);
  EXPECT_EQ(IlPiuVicinoCerchio(s, 0, 0.5).Riga, -1);
}

TEST_F(VicinanzaBanco, DisegnoVuotoEPerNomeNomeRifilatoPrimoTrovatoSaltaICancellati) {
  Pronto();
  EXPECT_EQ(std::make_tuple(IlPiuVicinoPunto(s, 3, 4).Riga, IlPiuVicinoLinea(s, 3, 4).Riga), std::make_tuple(-1, -1));
  EXPECT_EQ(std::make_tuple(IlPiuVicinoBitMap(s, 3, 4).Riga, LapiuvicinaBitMap(s, 3, 4, {}).VicinaTipo), std::make_tuple(-1, 0));
  EXPECT_EQ(IlPiuVicinoPerNome(s, "101"), -1);
  MettiPunto(s, "101", 0, 0);
  s.PuntoIdent[0] = -1;
  MettiPunti(s, {{" 101 ", 1, 0}, {"101", 2, 0}});
  EXPECT_EQ(std::make_tuple(IlPiuVicinoPerNome(s, "101  "), IlPiuVicinoPerNome(s, "102")), std::make_tuple(1, -1));
}

// Between the kinds of list records only: against an equal facet the contour does not win;
// strictly nearer it does, giving its list record as facets do.
TEST_F(VicinanzaBanco, LapiuvicinaBitMapIlContornoVinceSoloSePiuVicino) {
  Pronto();
  DimensionaSette(s);
  s.ContaEntita[SlotSette] = 1;
  DimensionaFalde(s);
  s.ContaEntita[SlotFalde] = 1;
  const int64_t contorno = MettiRecordLista(s, SlotSette, 0, 0, 5, 0, 5);  // of no length, at (0, 5)
  MettiRecordLista(s, SlotFalde, 0, 0, -5, 0, -5);
  IndicizzaDisegno(s);
  EXPECT_EQ(LapiuvicinaBitMap(s, 0, 0, {}).VicinaTipo, SlotFalde);
  const RisultatoVicina r = LapiuvicinaBitMap(s, 0, 0.5, {});
  EXPECT_EQ(std::tie(r.VicinaTipo, r.VicinaRiga), std::make_tuple(SlotSette, contorno));
}

TEST_F(VicinanzaBanco, LapiuvicinaBitMapUnPuntoOltreMilleAltezzeNonBasta) {
  MettiPunto(s, "lontano", 1500, 0);
  Pronto(0, 0, 1);
  EXPECT_EQ(IlPiuVicinoPunto(s, 0, 0).Riga, 0);  // found by its own search
  EXPECT_EQ(LapiuvicinaBitMap(s, 0, 0, {}).VicinaTipo, 0);  // but not beyond the general limit
}

TEST_F(VicinanzaBanco, LapiuvicinaBitMapRecordDiUnaLinea) {
  MettiLinea(s, 0, 0, 8, 0, 0, 4);
  Pronto();
  const RisultatoVicina r = LapiuvicinaBitMap(s, 1, 3, {6, -2, 0});
  EXPECT_EQ(std::tie(r.VicinaTipo, r.VicinaRiga), std::make_tuple(SlotLinee, 0));
  EXPECT_DOUBLE_EQ(r.VicinaDistanza, 3.0);
  // The ends, quarters and middle along the line with its heights; the centre is the middle;
  // the foot of (6, -2) at the line's height there; the foot of the pointer; the nearer end.
  EXPECT_TRUE(Vicini(Xyz({r.Inizio, r.PrimoQuarto, r.Medio, r.TerzoQuarto, r.Fine, r.Centro, r.Ortogonale, r.Vicino,
                          r.PiuVicinoFine}),
                     {0, 0, 0, 2, 0, 1, 4, 0, 2, 6, 0, 3, 8, 0, 4, 4, 0, 2, 6, 0, 3, 1, 0, 0.5, 0, 0, 0}));
  // (0, 0) and (2, 0) are both sqrt(10) from (1, 3): the first of equals. The tangent: the
  // foot, at the height of Punto1.
  EXPECT_TRUE(Vicini(Xyz({r.Quadrante, r.Tangente}), {0, 0, 0, 6, 0, 0}));

  // Equally far from both ends: the second end.
  EXPECT_EQ(LapiuvicinaBitMap(s, 4, 1, {}).PiuVicinoFine.X, 8.0);

  // A dashed line, 3 m strokes and 3 m gaps, from (0, 10) at height 0 to (20, 10) at 20:
  // the entity found is the stroke nearest to the pointer, 6 to 9, ends and heights its own.
  s.Tratteggi.Stili[2].Elementi = {2, 3, -3};
  s.LineaTratteggio[static_cast<size_t>(MettiLinea(s, 0, 10, 20, 10, 0, 20))] = 2;
  Pronto();
  const RisultatoVicina t = LapiuvicinaBitMap(s, 7.5, 11, {});
  EXPECT_EQ(t.VicinaRiga, 1);
  EXPECT_DOUBLE_EQ(t.VicinaDistanza, 1.0);
  // Start, end and middle of the stroke. In a gap the nearer stroke: at 10.4 the one from 6
  // to 9 (1.4 away), not 12 to 15. Halfway in a gap the two strokes are as near: the later,
  // as between records.
  EXPECT_TRUE(Vicini(Xyz({t.Inizio, t.Fine, t.Medio, LapiuvicinaBitMap(s, 10.4, 10, {}).PiuVicinoFine,
                          LapiuvicinaBitMap(s, 10.5, 10, {}).Inizio}),
                     {6, 10, 6, 9, 10, 9, 7.5, 10, 7.5, 9, 10, 9, 12, 10, 12}));
}

TEST_F(VicinanzaBanco, LapiuvicinaBitMapRecordDiUnCerchioEDegliArchi) {
  MettiCerchio(s, 10, 0, 2, 7);
  Pronto();
  const PuntoXYZ p1{0, 0, 3};
  const RisultatoVicina c = LapiuvicinaBitMap(s, 10.5, 2.5, p1);
  EXPECT_EQ(c.VicinaTipo, SlotCerchi);
  // The centre; the start and the quarters East, North, West, South, East. The foot: on the
  // line from Punto1 through the centre lie (8, 0) and (12, 0); the circle keeps the one
  // nearer to the pointer.
  EXPECT_TRUE(Vicini(Xyz({c.Centro, c.Inizio, c.PrimoQuarto, c.Medio, c.TerzoQuarto, c.Fine, c.Ortogonale}),
                     {10, 0, 7, 12, 0, 7, 10, 2, 7, 8, 0, 7, 10, -2, 7, 12, 0, 7, 12, 0, 7}));
  // Near: from the pointer through the centre, the side of the pointer, 2 along (0.5, 2.5).
  // The tangents from (0, 0): their feet stand R²/d = 0.4 short of the centre, at
  // R·sqrt(1 - (R/d)²) to each side. The quadrant: North.
  const double l = std::hypot(0.5, 2.5);
  EXPECT_TRUE(Vicini(Xyz({c.Vicino, c.Tangente, c.Quadrante}),
                     {10 + 2 * 0.5 / l, 2 * 2.5 / l, 7, 9.6, 2 * std::sqrt(0.96), 3, 10, 2, 7}));

  // The same ring as an arc keeps, for the foot, the candidate nearer to Punto1.
  s.CerchioIdent[0] = -1;
  MettiArco(s, 10, 0, 2, 0, 400, 7, 7);
  s.ArcoZ[0] = 7;
  Pronto();
  const RisultatoVicina a = LapiuvicinaBitMap(s, 10.5, 2.5, p1);
  EXPECT_EQ(a.VicinaTipo, SlotArchi);
  EXPECT_TRUE(Vicini(Xyz({a.Ortogonale}), {8, 0, 7}));

  // The points along a quarter arc, with the heights from its start to its end.
  s.ArcoIdent[0] = -1;
  s.ArcoZ[static_cast<size_t>(MettiArco(s, 0, 0, 10, 0, 100, 0, 8))] = 1;
  Pronto();
  const RisultatoVicina r = LapiuvicinaBitMap(s, 7, 7, {});
  ASSERT_EQ(r.VicinaTipo, SlotArchi);
  const double q = 10 * std::sin(PiGreco / 8), t = 10 * std::cos(PiGreco / 8), m = 10 * std::sqrt(0.5);
  EXPECT_TRUE(Vicini(Xyz({r.Inizio, r.PrimoQuarto, r.Medio, r.TerzoQuarto, r.Fine, r.Centro}),
                     {0, 10, 0, q, t, 2, m, m, 4, t, q, 6, 10, 0, 8, 0, 0, 1}));
}

// A plain scan of each table from row 0 up, "not farther" replacing: the reference the
// trees must agree with. Distances by the plane primitives, to the last bit as the searches
// take them, so that ties are ties for both.
struct Scansione {
  const Sessione& s;
  double x, y;
  template <class Valido, class Distanza>
  std::pair<int64_t, double> Scorri(int64_t n, double limite, Valido valido, Distanza distanza) const {
    int64_t riga = -1;
    double migliore = limite;
    for (int64_t i = 0; i < n; ++i) {
      if (!valido(static_cast<size_t>(i))) continue;
      const double d = distanza(static_cast<size_t>(i));
      if (d <= migliore) migliore = d, riga = i;
    }
    return {riga, migliore};
  }
  std::pair<int64_t, double> Punti() const {
    return Scorri(
        s.ContaEntita[SlotPunti], s.Vista.AltezzaVista * 2000,
        [&](size_t k) { return s.PuntoIdent[k] == 0 && !(s.PuntoCongelaSimbolo[k] && s.PuntoCongelaNome[k]); },
        [&](size_t k) { return Distanza2D(x, y, s.PuntoX[k], s.PuntoY[k] + s.PuntoSpoY[k]); });
  }
  std::pair<int64_t, double> Linee() const {
    const ElencoDisegno& l = s.ListaDisegno;
    return Scorri(
        l.Conta(), s.Vista.AltezzaVista * 200,
        [&](size_t k) {
          const auto r = static_cast<size_t>(l.Riga[k]);
          return l.Tipo[k] == SlotLinee && (l.Primitiva[k] == PrimLinea || l.Primitiva[k] == PrimMotivo) &&
                 s.LineaIdent[r] == 0 && s.LineaCongela[r] == 0;
        },
        [&](size_t k) {
          const MotivoLinea* m = l.Motivo(static_cast<int64_t>(k));
          if (!m) return DistanzaDaSegmento({l.X1[k], l.Y1[k], 0}, {l.X2[k], l.Y2[k], 0}, {x, y, 0});
          // A line with its pattern: the nearest of all its pieces.
          std::vector<Tratto> pezzi;
          EspandiLinea(m->X1, m->Y1, m->X2, m->Y2, StileDi(s, m->Tratteggio), pezzi);
          double d = 1e300;
          for (const Tratto& t : pezzi) d = std::min(d, DistanzaDaSegmento({t.X1, t.Y1, 0}, {t.X2, t.Y2, 0}, {x, y, 0}));
          return d;
        });
  }
  std::pair<int64_t, double> Cerchi() const {
    return Scorri(
        s.ContaEntita[SlotCerchi], s.Vista.AltezzaVista * 200,
        [&](size_t k) { return s.CerchioIdent[k] == 0 && s.CerchioCongela[k] == 0; },
        [&](size_t k) { return std::fabs(Distanza2D(x, y, s.CerchioX[k], s.CerchioY[k]) - s.CerchioRaggio[k]); });
  }
  std::pair<int64_t, double> Archi() const {
    return Scorri(
        s.ContaEntita[SlotArchi], s.Vista.AltezzaVista * 200,
        [&](size_t k) { return s.ArcoIdent[k] == 0 && s.ArcoCongela[k] == 0; },
        [&](size_t k) {
          const double xc = s.ArcoX[k], yc = s.ArcoY[k], r = s.ArcoRaggio[k];
          if (AngoloInArco(xc, yc, s.ArcoInizio[k], s.ArcoFine[k], x, y).Dentro) return std::fabs(Distanza2D(x, y, xc, yc) - r);
          const double a = s.ArcoInizio[k] * GonToRad, b = (s.ArcoInizio[k] + s.ArcoFine[k]) * GonToRad;
          return std::min(Distanza2D(x, y, xc + r * std::sin(a), yc + r * std::cos(a)),
                          Distanza2D(x, y, xc + r * std::sin(b), yc + r * std::cos(b)));
        });
  }
  std::pair<int64_t, double> Testi() const {
    return Scorri(
        s.ContaEntita[SlotTesti], s.Vista.AltezzaVista * 200,
        [&](size_t k) { return s.TestoIdent[k] == 0 && s.TestoCongela[k] == 0; },
        [&](size_t k) { return Distanza2D(x, y, s.TestoX[k], s.TestoY[k]); });
  }
};

// At cadastral coordinates, whole metres from an origin: the differences stay exact, and
// the trees' boxes must hold them.
TEST(Alberi, StessoVincitoreDellaScansioneConLeParita) {
  const double ox = 1725000, oy = 5030000;
  Banco b;
  Sessione& s = b.s;
  std::mt19937 caso(8);
  // Whole metres on a small field: many entities exactly as far as others.
  auto c = [&](int n) { return static_cast<double>(static_cast<int>(caso() % static_cast<unsigned>(n)) - n / 2); };
  auto x = [&](int n) { return ox + c(n); };
  auto y = [&](int n) { return oy + c(n); };
  // Dashes of a metre, and aslant strokes with dots between them: each such line is one
  // record that stands for all its pieces, and must be found as its nearest piece would be.
  s.Tratteggi.Stili[2].Elementi = {2, 1, -1};
  s.Tratteggi.Stili[3].Elementi = {4, 0.5, -1.5, 0, -1};
  s.Tratteggi.Stili[3].AngoloElemento = 50;
  for (int i = 0; i < 2500; ++i) {
    const double x1 = x(400), y1 = y(400);
    s.LineaTratteggio[static_cast<size_t>(MettiLinea(s, x1, y1, x1 + c(30), y1 + c(30)))] = static_cast<int16_t>(1 + i % 3);
    if (i % 50 == 0) MettiLinea(s, x1, y1, s.LineaX2[static_cast<size_t>(i)], s.LineaY2[static_cast<size_t>(i)]);
  }
  for (int i = 0; i < 2000; ++i) {
    const auto r = static_cast<size_t>(MettiPunto(s, std::to_string(i), x(400), y(400)));
    // The name's offset: North moves where the point is measured, East does not.
    if (i % 7 == 0) s.PuntoSpoY[r] = c(6), s.PuntoSpoX[r] = c(6);
    if (i % 31 == 0) s.PuntoIdent[r] = -1;
    // Hidden only with both its symbol and its name frozen.
    if (i % 11 == 0) s.PuntoCongelaSimbolo[r] = -1;
    if (i % 13 == 0) s.PuntoCongelaNome[r] = -1;
  }
  for (int i = 0; i < 300; ++i) MettiCerchio(s, x(400), y(400), 1 + std::fabs(c(20)));
  for (int i = 0; i < 300; ++i) MettiTesto(s, x(400), y(400), "t");
  for (int i = 0; i < 300; ++i) MettiArco(s, x(400), y(400), 1 + std::fabs(c(20)), 100 * std::fabs(c(8)), 100);
  b.Pronto(ox, oy, 30);
  // Frozen or deleted after the list was made: its records stay, the row decides.
  for (size_t r = 0; r < 2500; r += 97) s.LineaCongela[r] = -1;
  for (size_t r = 40; r < 2500; r += 89) s.LineaIdent[r] = -1;
  // Rows added after the trees were made are searched as well.
  for (int i = 0; i < 20; ++i) {
    MettiPunto(s, "nuovo", x(400), y(400));
    RigeneraLineaSingola(s, MettiLinea(s, x(400), y(400), x(400), y(400)));
  }
  for (int q = 0; q < 400; ++q) {
    const double px = x(500), py = y(500);
    const Scansione scan{s, px, py};
    const auto [rp, dp] = scan.Punti();
    const auto [rl, dl] = scan.Linee();
    const auto [rc, dc] = scan.Cerchi();
    const auto [ra, da] = scan.Archi();
    const auto [rt, dt] = scan.Testi();
    ASSERT_EQ(IlPiuVicinoPunto(s, px, py).Riga, rp) << px << "," << py;
    ASSERT_EQ(IlPiuVicinoLinea(s, px, py).RigaLista, rl) << px << "," << py;
    ASSERT_EQ(IlPiuVicinoCerchio(s, px, py).Riga, rc) << px << "," << py;
    ASSERT_EQ(IlPiuVicinoArco(s, px, py).Riga, ra) << px << "," << py;
    ASSERT_EQ(IlPiuVicinoTesto(s, px, py).Riga, rt) << px << "," << py;
    // The general search: the nearest of all, a later kind first at a tie.
    int tipo = 0;
    int64_t riga = -1;
    double migliore = s.Vista.AltezzaVista * 1000;
    const int64_t rigaLinea = rl >= 0 ? s.ListaDisegno.Riga[static_cast<size_t>(rl)] : -1;
    for (auto [t, r, d] : {std::tuple{int(SlotLinee), rigaLinea, dl}, std::tuple{int(SlotCerchi), rc, dc},
                           std::tuple{int(SlotArchi), ra, da}, std::tuple{int(SlotTesti), rt, dt},
                           std::tuple{int(SlotPunti), rp, dp}})
      if (r >= 0 && d <= migliore) migliore = d, tipo = t, riga = r;
    const RisultatoVicina g = LapiuvicinaBitMap(s, px, py, {});
    ASSERT_EQ(g.VicinaTipo, tipo) << px << "," << py;
    ASSERT_EQ(g.VicinaRiga, riga) << px << "," << py;
    ASSERT_EQ(g.VicinaDistanza, tipo ? migliore : 0.0) << px << "," << py;
  }
}

}  // namespace
}  // namespace varena
