// The framing on fiducial points: a survey made from the official points by a known turn and
// shift is framed back; with noise, the residuals of tests/survey/dati/inquadramento.py
// (a fit by singular value decomposition); two points as the two-point framing.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <vector>

#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "core/Sessione.h"
#include "support/ProvaComandi.h"
#include "survey/Inquadramento.h"

namespace varena {
namespace {

using prova::Vicini;

constexpr std::array<PuntoXYZ, 5> kUfficiali = {
    {{1523.417, -2310.255, 0}, {2840.902, -1977.61, 0}, {2105.33, -640.125, 0}, {980.06, -1104.8, 0}, {2410.75, -2950.4, 0}}};

// The survey as the script makes it: official points less the shift, turned back, rounded to
// the tenth of a millimetre, plus noise.
constexpr std::array<PuntoXYZ, 5> kRilievo = {{{391.2752, -400.9679, 0},
                                               {1149.1657, 726.8697, 0},
                                               {-291.7945, 1230.4055, 0},
                                               {-818.4663, 132.7856, 0},
                                               {1479.1792, -284.2886, 0}}};

std::vector<CoppiaPF> Coppie(const std::array<PuntoXYZ, 5>& rilievo) {
  std::vector<CoppiaPF> c;
  for (size_t k = 0; k < 5; ++k) c.push_back({"PF" + std::to_string(k + 1), rilievo[k], kUfficiali[k]});
  return c;
}

TEST(Inquadramento, SenzaRumoreRitrovaRotazioneETraslazione) {
  // Official = turn clockwise by 0.7318 of (survey) + shift, and for the similarity a scale.
  constexpr double giro = 0.7318, ex = 1500.25, nx = -1750.5;
  for (const double scala : {1.0, 1.0002}) {
    SCOPED_TRACE(scala);
    std::array<PuntoXYZ, 5> rilievo;
    for (size_t k = 0; k < 5; ++k) {
      const double x = (kUfficiali[k].X - ex) / scala, y = (kUfficiali[k].Y - nx) / scala;
      rilievo[k] = {x * std::cos(giro) - y * std::sin(giro), x * std::sin(giro) + y * std::cos(giro), 12.5};
    }
    const EsitoInquadramento e = Inquadra(Coppie(rilievo), scala != 1.0);
    ASSERT_TRUE(e.Riuscito);
    EXPECT_TRUE(Vicini({e.Rotazione, e.Scala}, {giro, scala}));
    EXPECT_LT(e.Sqm, 1e-9);
    // The survey's origin lands on the shift.
    const PuntoXYZ o = e.Applica({0, 0, 3});
    EXPECT_TRUE(Vicini({o.X, o.Y}, {ex, nx}));
    EXPECT_EQ(std::make_tuple(o.Z, e.Usati), std::make_tuple(3.0, 5));
  }
}

struct Attesi {
  double Rotazione, Scala, Sqm;
  int Peggiore;
  std::array<std::array<double, 3>, 5> Residui;  // dN, dE, distance
};

void Confronta(const EsitoInquadramento& e, const Attesi& a) {
  ASSERT_TRUE(e.Riuscito);
  EXPECT_EQ(std::make_tuple(e.Peggiore, e.Residui.size()), std::make_tuple(a.Peggiore, 5u));
  prova::Valori fatti{e.Rotazione, e.Scala, e.Sqm}, attesi{a.Rotazione, a.Scala, a.Sqm};
  for (size_t k = 0; k < std::min<size_t>(e.Residui.size(), 5); ++k) {
    fatti.insert(fatti.end(), {e.Residui[k].DNord, e.Residui[k].DEst, e.Residui[k].Distanza});
    attesi.insert(attesi.end(), a.Residui[k].begin(), a.Residui[k].end());
  }
  EXPECT_TRUE(Vicini(fatti, attesi));
}

TEST(Inquadramento, ConRumoreIResiduiDelloScript) {
  std::vector<CoppiaPF> c = Coppie(kRilievo);
  Confronta(Inquadra(c, false), {0.731800667846, 1.0, 0.002986965, 1,
                                 {{{0.002574687, 0.001240163, 0.002857800},
                                   {-0.002166149, 0.003863854, 0.004429624},
                                   {0.001563382, -0.001381180, 0.002086102},
                                   {-0.002098235, -0.001112722, 0.002375024},
                                   {0.000126314, -0.002610115, 0.002613170}}}});
  Confronta(Inquadra(c, true), {0.731800667846, 1.000000331706, 0.002966286, 1,
                                {{{0.002745058, 0.001388991, 0.003076465},
                                  {-0.002106120, 0.003575666, 0.004149835},
                                  {0.001179761, -0.001425377, 0.001850279},
                                  {-0.002327722, -0.000783659, 0.002456097},
                                  {0.000509024, -0.002755621, 0.002802241}}}});
  // The fourth left out: its residual is shown, the largest of all, but the worst point
  // marked is among those used.
  c[3].Esclusa = true;
  const EsitoInquadramento e = Inquadra(c, false);
  EXPECT_EQ(e.Usati, 4);
  Confronta(e, {0.731801614289, 1.0, 0.002923422, 1,
                {{{0.001390757, 0.001284397, 0.001893114},
                  {-0.002103157, 0.003593254, 0.004163502},
                  {0.000930203, -0.002917630, 0.003062326},
                  {-0.003796419, -0.002209386, 0.004392515},
                  {-0.000217802, -0.001960022, 0.001972086}}}});
}

TEST(Inquadramento, DuePuntiComeLInquadramentoSu2PF) {
  // Official PF1 at 0/0 and PF2 100 m East; the survey has them 100.05 m apart due North.
  // The first falls on its place, the turn is 100 gon, the 5 cm stay at the second.
  const std::vector<CoppiaPF> c = {{"PF1", {10, 10, 0}, {0, 0, 0}}, {"PF2", {10, 110.05, 0}, {100, 0, 0}}};
  const EsitoInquadramento e = Inquadra(c, false);
  ASSERT_TRUE(e.Riuscito);
  EXPECT_TRUE(Vicini({e.Residui[1].DEst, e.Residui[1].DNord}, {-0.05, 0}));
  EXPECT_EQ(e.Peggiore, 1);
  EXPECT_NEAR(e.Sqm, 0.05 / std::sqrt(2.0), 1e-9);
  // With the scale the two fall on their places.
  const EsitoInquadramento s = Inquadra(c, true);
  EXPECT_NEAR(s.Scala, 100 / 100.05, 1e-12);
  EXPECT_LT(s.Sqm, 1e-9);
}

TEST(Inquadramento, SenzaDuePFDistintiNonSiInquadra) {
  std::vector<CoppiaPF> c = {{"PF1", {10, 10, 0}, {0, 0, 0}}, {"PF2", {10, 10, 0}, {100, 0, 0}}};
  EXPECT_EQ(Inquadra(c, false).Motivo, "PF coincidenti nel rilievo");
  c[1].Esclusa = true;
  const EsitoInquadramento e = Inquadra(c, true);
  EXPECT_FALSE(e.Riuscito);
  EXPECT_EQ(e.Motivo, "Servono almeno 2 PF");
}

// --- The commands on the drawing -----------------------------------------------------------

using prova::Banco;
using prova::Contiene;
using prova::MettiLinea;
using prova::MettiPunti;
using prova::MettiTesto;

// A line of the archive of municipality A123, sheet 12: the number in columns 14-17, North
// in 102-113, East in 115-126; `lunghezza` cuts it.
std::string RigaArchivio(int numero, double nord, double est, size_t lunghezza = 130) {
  char r[160];
  std::snprintf(r, sizeof r, "A123    12 %6d%84s%12.3f %12.3f  2", numero, "", nord, est);
  return std::string(r).substr(0, lunghezza) + "\r\n";
}

void Archivio(Sessione& s, const std::string& cartella, const std::string& righe) {
  s.Imp.Cartella_Fiducial = cartella + "/FIDUCIAL";
  std::filesystem::create_directories(s.Imp.Cartella_Fiducial + "/dati");
  std::ofstream(s.Imp.Cartella_Fiducial + "/dati/A123.taf", std::ios::binary) << righe;
}

TEST(InquadraSu2PF, IDuePFSulleLoroCoordinateUfficiali) {
  Banco b;
  Sessione& s = b.s;
  Archivio(s, b.cartella.Percorso(), RigaArchivio(1, 2000, 1000) + RigaArchivio(2, 2000, 1100));
  MettiPunti(s, {{"PF01/0120/A123", 10, 10, 5}, {"PF02/0120/A123", 10, 110.05}, {"12", 50, 60, 7}});
  MettiTesto(s, 50, 60, "T");
  b.Pronto(50, 60, 300);
  b.Opzioni.Rigoroso = false;  // the pick of a point that is no PF does nothing, as it should
  const std::string uscita =
      b.Script("TAG INQUADRA_2_PF\nKEY P\nCLICK left 50 60\nKEY P\nCLICK left 10 10\nKEY P\nCLICK left 10 110.05\n");
  EXPECT_TRUE(Contiene(uscita,
                       "PROMPT Inquadra su 2 PF - Primo PF :\n> KEY P\n> CLICK left 50 60\n> KEY P\n> CLICK left 10 10\n"
                       "PROMPT Inquadra su 2 PF - Punto Orientamento :\n"));
  const Dialogo* d = TrovaDialogo(s, "FormRotoTraslazione");
  ASSERT_NE(d, nullptr);
  std::string valori = d->Titolo;
  for (const char* c : {"NuovaOrigine_Nome", "NuovaOrigine_Nord", "NuovoOrientamento_Est", "Differenza_Azimut",
                        "Differenza_Distanza"})
    valori += "|" + d->Valore(c);
  EXPECT_EQ(valori, "Punto - Inquadra su 2 PF|PF01/0120/A123|2000.000|1100.000|100.0000|-0.050");
  b.Script("PRESS FormRotoTraslazione.OK\n");
  // Turned by 100 gon about PF01, which falls on its place; the 5 cm stay at PF02. Heights
  // stay as they were.
  EXPECT_EQ(std::tie(s.PuntoX[0], s.PuntoY[0], s.PuntoZ[0]), std::make_tuple(1000.0, 2000.0, 5.0));
  EXPECT_TRUE(Vicini({s.PuntoX[1], s.PuntoY[1]}, {1100.05, 2000}));
  EXPECT_TRUE(Vicini({s.PuntoX[2], s.PuntoY[2]}, {1050, 1960}));
  EXPECT_EQ(s.PuntoZ[2], 7);
  EXPECT_NEAR(s.TestoRotazione[0], 300, 1e-9);
  // The framing on n PF with these two gives the same places to the last bit.
  const std::vector<CoppiaPF> c = {{"PF01", {10, 10, 0}, {1000, 2000, 0}}, {"PF02", {10, 110.05, 0}, {1100, 2000, 0}}};
  const EsitoInquadramento e = Inquadra(c, false);
  const PuntoXYZ p = e.Applica({50, 60, 0}), q = e.Applica({10, 110.05, 0});
  EXPECT_EQ(std::tie(s.PuntoX[2], s.PuntoY[2], s.PuntoX[1], s.PuntoY[1]), std::tie(p.X, p.Y, q.X, q.Y));
}

TEST(InquadraSu2PF, UnPFSenzaCoordinateNellArchivioNonMuoveNulla) {
  Banco b;
  Sessione& s = b.s;
  Archivio(s, b.cartella.Percorso(), RigaArchivio(1, 2000, 1000) + RigaArchivio(2, 2000, 1100, 110));
  // Local coordinates, where a polar round trip would leave the last bits changed.
  MettiPunti(s, {{"PF01/0120/A123", 10.1, 20.3}, {"PF02/0120/A123", 5.5, 90.25}, {"7", 37.123, -13.917}});
  b.Pronto(10, 60, 300);
  b.Script("TAG INQUADRA_2_PF\nKEY P\nCLICK left 10.1 20.3\nKEY P\nCLICK left 5.5 90.25\n");
  EXPECT_EQ(TrovaDialogo(s, "FormRotoTraslazione"), nullptr);
  EXPECT_TRUE(Contiene(b.uscita.str(), "Coordinate mancanti nell'archivio TAF: PF02/0120/A123"));
  EXPECT_EQ(std::tie(s.PuntoX[0], s.PuntoY[0], s.PuntoX[1], s.PuntoY[1], s.PuntoX[2], s.PuntoY[2]),
            std::make_tuple(10.1, 20.3, 5.5, 90.25, 37.123, -13.917));
}

TEST(InquadraSuNPF, LaTabellaDeiResiduiUnPFEsclusoEIlDisegnoInquadrato) {
  Banco b;
  Sessione& s = b.s;
  // Official = survey turned by 100 gon about 0/0 and carried by (1000, 2000); PF03 is 3 cm
  // off in the survey, PF09 is not in the archive.
  Archivio(s, b.cartella.Percorso(),
           RigaArchivio(1, 2000, 1000) + RigaArchivio(2, 1900, 1000) + RigaArchivio(3, 1900, 1100));
  MettiPunti(s, {{"PF01/0120/A123", 0, 0}, {"PF02/0120/A123", 100, 0}, {"PF03/0120/A123", 99.97, 100},
                 {"PF09/0120/A123", 5, 5}});
  MettiLinea(s, 0, 0, 0, 10);
  b.Pronto(0, 0, 300);
  b.Script("TAG INQUADRA_N_PF\n");
  const Dialogo* d = TrovaDialogo(s, "FormInquadraPF");
  ASSERT_NE(d, nullptr);
  EXPECT_EQ(d->Valore("Mancanti"), "PF non presente nell'archivio TAF: PF09/0120/A123\n");
  EXPECT_TRUE(Contiene(d->Valore("Tabella"), "PF03/0120/A123\t"));
  EXPECT_TRUE(Contiene(d->Valore("Tabella"), "<<"));
  // PF03 left out: the other two agree to the last digit shown, and PF03 shows its 3 cm.
  b.Script("FIELD FormInquadraPF.Esclusi pf03/0120/a123\nPRESS FormInquadraPF.Calcola\n");
  EXPECT_EQ(TrovaDialogo(s, "FormInquadraPF")->Valore("Tabella"),
            "Nome\tdN\tdE\tDistanza\t\n"
            "PF01/0120/A123\t0.0000\t0.0000\t0.0000\t<<\n"
            "PF02/0120/A123\t0.0000\t0.0000\t0.0000\t\n"
            "PF03/0120/A123\t-0.0300\t0.0000\t0.0300\tescluso\n"
            "Rotazione (gon)\t100.0000\nScala\t1.000000000\nS.q.m.\t0.0000");
  b.Script("PRESS FormInquadraPF.OK\n");
  EXPECT_FALSE(DialogoAperto(s, "FormInquadraPF"));
  EXPECT_TRUE(Vicini({s.PuntoX[2], s.PuntoY[2]}, {1100, 1900.03}));
  EXPECT_TRUE(Vicini({s.LineaX2[0], s.LineaY2[0]}, {1010, 2000}));
}

}  // namespace
}  // namespace varena
