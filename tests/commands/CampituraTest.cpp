// The hatch of a contour: the lines against a clipping worked out another way, concave
// contours, edges and corners on a scan line, the cap on vertices, and the command with its
// dialog, its one undo generation and the end of the fill.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>
#include <vector>

#include "commands/Campitura.h"
#include "commands/Attese.h"
#include "store/Undo.h"

namespace varena {
namespace {

using namespace prova;

struct CampituraBanco : BancoProva {};

struct Tratto {
  double X1, Y1, X2, Y2;
};

// The hatch of the square [0, 10]² at `gon` (both direction components positive), `passo`
// apart, measured from the corner (0, 0) on the normal: each scan line clipped against the
// four sides by their slabs.
std::vector<Tratto> QuadratoAtteso(double gon, double passo) {
  const double a = gon * M_PI / 200;
  const double dx = std::sin(a), dy = std::cos(a), nx = std::cos(a), ny = -std::sin(a);
  // The corner farthest back along the normal is (0, 10); the farthest ahead (10, 0).
  const double inizio = 10 * ny, fine = 10 * nx;
  std::vector<Tratto> attesi;
  for (int k = 1; inizio + k * passo <= fine; ++k) {
    const double t = inizio + k * passo;
    const double bx = t * nx, by = t * ny;
    const double u0 = std::max(-bx / dx, -by / dy), u1 = std::min((10 - bx) / dx, (10 - by) / dy);
    if (u1 > u0) attesi.push_back({bx + u0 * dx, by + u0 * dy, bx + u1 * dx, by + u1 * dy});
  }
  return attesi;
}

// Value 4k to 4k + 3 of the message are the ends of the k-th line.
void Uguali(const std::vector<SegmentoCampitura>& fatti, const std::vector<Tratto>& attesi) {
  Valori f, a;
  for (const SegmentoCampitura& l : fatti) f.insert(f.end(), {l.A.X, l.A.Y, l.B.X, l.B.Y});
  for (const Tratto& l : attesi) a.insert(a.end(), {l.X1, l.Y1, l.X2, l.Y2});
  EXPECT_TRUE(Vicini(f, a));
}

TEST(SegmentiCampitura, QuadratoRovescioConcavoEAngoliSullaLinea) {
  // Walked clockwise, the square hatches as the one the command traces anticlockwise (below).
  const std::vector<PuntoXYZ> quadrato{{0, 10, 0}, {10, 10, 0}, {10, 0, 0}, {0, 0, 0}};
  Uguali(SegmentiCampitura(quadrato, 45, 1), QuadratoAtteso(45, 1));

  // A U lying open to the North, hatched with East-West lines from the top down: two pieces
  // across the arms, one across the base.
  const std::vector<PuntoXYZ> u{{0, 0, 0}, {9, 0, 0}, {9, 9, 0}, {6, 9, 0},
                                {6, 3, 0}, {3, 3, 0}, {3, 9, 0}, {0, 9, 0}};
  Uguali(SegmentiCampitura(u, 100, 2.5),
         {{0, 6.5, 3, 6.5}, {6, 6.5, 9, 6.5}, {0, 4, 3, 4}, {6, 4, 9, 4}, {0, 1.5, 9, 1.5}});

  // An L with its arms 3 wide, hatched 1 apart so that scan lines run along its edges: no
  // line along the outer edges at either end of the sweep, nor along the inner ones, where
  // only the stretch with the inside on both of its sides is drawn; the same whichever way
  // the sweep runs.
  const std::vector<PuntoXYZ> elle{{0, 0, 0}, {6, 0, 0}, {6, 3, 0}, {3, 3, 0}, {3, 6, 0}, {0, 6, 0}};
  Uguali(SegmentiCampitura(elle, 100, 1), {{0, 5, 3, 5}, {0, 4, 3, 4}, {0, 3, 3, 3}, {0, 2, 6, 2}, {0, 1, 6, 1}});
  Uguali(SegmentiCampitura(elle, 300, 1), {{6, 1, 0, 1}, {6, 2, 0, 2}, {3, 3, 0, 3}, {3, 4, 0, 4}, {3, 5, 0, 5}});
  Uguali(SegmentiCampitura(elle, 0, 1), {{1, 0, 1, 6}, {2, 0, 2, 6}, {3, 0, 3, 3}, {4, 0, 4, 3}, {5, 0, 5, 3}});

  // A diamond: the line through the side corners crosses each of them once; the top and
  // bottom corners, only grazed, make no line.
  const std::vector<PuntoXYZ> rombo{{5, 0, 0}, {10, 5, 0}, {5, 10, 0}, {0, 5, 0}};
  Uguali(SegmentiCampitura(rombo, 100, 2.5), {{2.5, 7.5, 7.5, 7.5}, {0, 5, 10, 5}, {2.5, 2.5, 7.5, 2.5}});

  // Degenerate inputs: no spacing, fewer than three vertices.
  EXPECT_TRUE(SegmentiCampitura(quadrato, 45, 0).empty());
  EXPECT_TRUE(SegmentiCampitura(std::vector<PuntoXYZ>(quadrato.begin(), quadrato.begin() + 2), 45, 1).empty());
}

TEST(SegmentiCampitura, OltreIMilleVerticiIlContornoSiFerma) {
  // The square's outline walked in 1000 vertices, then a 1001st far out to the North-East.
  std::vector<PuntoXYZ> contorno;
  for (int i = 0; i < 250; ++i) contorno.push_back({i * 0.04, 0, 0});
  for (int i = 0; i < 250; ++i) contorno.push_back({10, i * 0.04, 0});
  for (int i = 0; i < 250; ++i) contorno.push_back({10 - i * 0.04, 10, 0});
  for (int i = 0; i < 250; ++i) contorno.push_back({0, 10 - i * 0.04, 0});
  ASSERT_EQ(contorno.size(), kMassimoVerticiCampitura);
  contorno.push_back({500, 500, 0});
  Uguali(SegmentiCampitura(contorno, 45, 1), QuadratoAtteso(45, 1));
  // A spacing that would sweep millions of lines is refused.
  EXPECT_TRUE(SegmentiCampitura(contorno, 45, 1e-6).empty());
}

TEST_F(CampituraBanco, DISEGNACAMPITURADialogoContornoEUnSoloUndoPerTuttaLaCampitura) {
  ApriLavoro(*this, "5,5,40", RecordPuntoBase("1", 0, 0, 10).Byte());
  s.Imp.Colore_Default = 6;
  s.PianoCorrente = "CAMPITURA";
  const int64_t prima = LeggiDiario(s)->Passo;
  EXPECT_TRUE(Stampa("> TAG DISEGNA_CAMPITURA\n"
                     "DIALOGO + Imputa2 [Campitura] Angolo_Campitura=\"45\" Distanza_Campitura=\"1\" (OK, Annulla)\n"
                     "PROMPT Seleziona Contorno - Primo Punto\n> FIELD Imputa2.Angolo_Campitura 45\n"
                     "> FIELD Distanza_Campitura 1\n> PRESS Imputa2.OK\nDIALOGO - Imputa2\n> KEY P\n"
                     "> CLICK left 0 1\nPROMPT Seleziona Contorno - Punto Contorno\n> CLICK left 10 0\n"
                     "PROMPT Seleziona Contorno - Punto Contorno\n> CLICK left 10 10\n"
                     "PROMPT Seleziona Contorno - Punto Contorno\n> CLICK left 0 10\n"
                     "PROMPT Seleziona Contorno - Punto Contorno\n> CLICK right 0 0\n"
                     "DIALOGO + FormSelezionaContorno [Seleziona Contorno] "
                     "Contorno=\"Progr\tNome\tNord\tEst\tQuota | 1\t1\t0.000\t0.000\t10.000 | "
                     "2\t*\t0.000\t10.000\t0.000 | 3\t*\t10.000\t10.000\t0.000 | 4\t*\t10.000\t0.000\t0.000\" "
                     "(Chiudi)\nPROMPT Seleziona Contorno - Primo Punto\n"));
  // 45 gon is 40.5°: the square is 10 (cos + sin) = 14.098 wide across the hatch, 14 lines.
  ASSERT_EQ(s.ContaEntita[SlotLinee], 14);
  std::vector<SegmentoCampitura> righe;
  for (size_t k = 0; k < 14; ++k) {
    righe.push_back({{s.LineaX1[k], s.LineaY1[k], 0}, {s.LineaX2[k], s.LineaY2[k], 0}});
    EXPECT_EQ(std::tie(s.LineaColore[k], s.LineaPiano[k]), std::make_tuple(6, "CAMPITURA"));
  }
  Uguali(righe, QuadratoAtteso(45, 1));
  // One generation for the whole fill, and the contour cleared for the next.
  EXPECT_EQ(std::make_tuple(LeggiDiario(s)->Passo, s.SpezzataTemporanea.Conta(), s.ComandoCorrente),
            std::make_tuple(prima + 1, 0u, 196));
  Script("KEY F9\n");
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotLinee], LeggiDiario(s)->Passo), std::make_tuple(0, prima));
  // The settings went to `Configura.ini`; a spacing of 0 ends the command.
  EXPECT_NE(LeggiFileProva(s.CartellaLavoro + "Configura.ini").find("Angolo_Campitura,45"), std::string::npos);
  Script("TAG G\nFIELD Distanza_Campitura 0\nPRESS Imputa2.OK\n");
  EXPECT_EQ(s.ComandoCorrente, 0);
}

}  // namespace
}  // namespace varena
