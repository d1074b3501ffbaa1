// The point constructions driven by scripts as the user drives them: the clicks on the known
// points, the measures typed into the dialogs, the buttons. Every expected coordinate is
// worked by hand from the figure (right triangles, isosceles triangles, quarter turns), not
// from the code under test.
#include <gtest/gtest.h>

#include <sstream>

#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "store/Undo.h"

namespace varena {
namespace {

using namespace prova;

struct CostruzioneBanco : BancoProva {};

constexpr double kMm = 1e-9;  // far below any survey tolerance, above the rounding of sin and cos

// The row of the live point of that name, -1 when none.
int32_t Riga(const Sessione& s, const std::string& nome) {
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    if (s.PuntoIdent[static_cast<size_t>(r)] == 0 && s.PuntoNome[static_cast<size_t>(r)] == nome) return r;
  return -1;
}

// The point of that name is at (x, y, z).
::testing::AssertionResult In(const Sessione& s, const std::string& nome, double x, double y, double z) {
  const int32_t r = Riga(s, nome);
  if (r < 0) return ::testing::AssertionFailure() << "no point " << nome;
  const auto k = static_cast<size_t>(r);
  return Vicini({s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]}, {x, y, z}, kMm) << " (" << nome << ")";
}

// The named fields of an open dialog, "|" between them: what each holds, or after the
// caption the words beside each.
std::string Campi(Sessione& s, const char* dialogo, const std::string& nomi, bool etichette) {
  const Dialogo* d = TrovaDialogo(s, dialogo);
  if (!d) return "no dialog";
  std::string t;
  std::istringstream in(nomi);
  for (std::string n; in >> n;) {
    const CampoDialogo* c = d->Campo(n);
    t += "|" + (c ? (etichette ? c->Etichetta : c->Testo) : "?");
  }
  return etichette ? d->Titolo + t : t.erase(0, 1);
}
std::string Valori(Sessione& s, const char* dialogo, const std::string& nomi) { return Campi(s, dialogo, nomi, false); }
std::string Etichette(Sessione& s, const char* dialogo, const std::string& nomi) {
  return Campi(s, dialogo, nomi, true);
}

TEST_F(CostruzioneBanco, PuntoBilateraUnTriangoloNotoDaiDueLatiEDistanzeCheNonChiudono) {
  // The base runs North for 5 m and climbs 10 m. With 3 from A and 4 from B the angle at the
  // new point is right: its foot is 3²/5 = 1.8 from A, its offset 3·4/5 = 2.4.
  MettiPunti(s, {{"A", 100, 200, 10}, {"B", 100, 205, 20}});
  s.PianoCorrente = "RILIEVO";
  Pronto(100, 200, 50);
  EXPECT_TRUE(Stampa("> TAG PUNTO_BILATERA\n"
                     "DIALOGO + NuovoPunto [Nuovo Punto] Nome=\"B1\" Descrizione=\"\" Piano=\"RILIEVO\" "
                     "Automatico=\"1\" Passo=\"1\" (Prendi, Annulla)\nPROMPT Punto Bilatera - Primo Punto:\n"
                     "> CLICK left 100 200\nPROMPT Punto Bilatera - Secondo Punto:\n> CLICK left 100 205.2\n"
                     "DIALOGO + PuntoBilatera [Punto Bilatera] Primo=\"A\" Secondo=\"B\" Azimut=\"0.0000\" "
                     "Base=\"5.000\" Distanza1=\"\" Distanza2=\"\" (OK, Chiudi)\n"
                     "PROMPT Punto Bilatera - Primo Punto:\n"));
  EXPECT_EQ(Etichette(s, "PuntoBilatera", "Primo Azimut Base Distanza1 Distanza2"),
            "Punto Bilatera|Primo Punto   : |Azimut   : |Distanza : |Distanza da A :|Distanza da B :");
  Script("FIELD NuovoPunto.Descrizione spigolo\nFIELD Distanza1 3\nFIELD Distanza2 4\nPRESS OK\n");
  // Right of A to B, which runs North: East. The height of the foot, 1.8 of 5 up the slope.
  EXPECT_TRUE(In(s, "B1", 102.4, 201.8, 13.6));
  const auto k = static_cast<size_t>(Riga(s, "B1"));
  EXPECT_EQ(std::make_tuple(s.PuntoPiano[k], s.PuntoDescrizione[k], DialogoAperto(s, "PuntoBilatera"),
                            Valori(s, "NuovoPunto", "Nome"), s.PassoComando),
            std::make_tuple("RILIEVO", "spigolo", false, "B2", 0));

  // The other side: from B to A, 4 from B and 3 from A, right of South is West.
  Script("CLICK left 100 205\nCLICK left 100 200\nFIELD Distanza1 4\nFIELD Distanza2 3\nPRESS OK\n");
  EXPECT_TRUE(In(s, "B2", 97.6, 201.8, 13.6));

  // 1 + 1 cannot reach across 5: the box, the command ends, nothing is made.
  EXPECT_EQ(Da(Script("CLICK left 100 200\nCLICK left 100 205\nFIELD Distanza1 1\nFIELD Distanza2 1\nPRESS OK\n"),
               "> PRESS OK"),
            "> PRESS OK\nMESSAGGIO [Punto Bilatera] Distanze non ammissibili!\n"
            "DIALOGO - NuovoPunto\nDIALOGO - PuntoBilatera\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.ComandoCorrente), std::make_tuple(4, 0));
}

TEST_F(CostruzioneBanco, PuntoStazioneLiberaLaBaseMisurataCentrataSullaVeraConLErroreDivisoAMeta) {
  MettiPunti(s, {{"A", 0, 0, 10}, {"B", 100, 0, 10}});
  Pronto(50, 0, 200);
  Script("TAG PUNTO_STAZIONE_LIBERA\nFIELD NuovoPunto.Nome 300\nCLICK left 0 0\nCLICK left 100 0\n");
  EXPECT_EQ(Etichette(s, "StazioneLibera", "Lettura1 Lettura2"),
            "Punto Stazione Libera|Azimut e Distanza da A :|Azimut e Distanza da B :");
  // A right angle between two sights of 71 m: the measured base is 71·√2 = 100.40916 m,
  // 0.40916 longer than the true one. Laid centred on the true base, each end moves out by
  // half of it, and the station stands c/2 = 71/√2 = 50.20458 square off the middle, to the
  // right of A to B (South). The readings carry any orientation of the instrument.
  EXPECT_EQ(Da(Script("FIELD Lettura1 123.4567\nFIELD Distanza1 71\nFIELD Lettura2 223.4567\nFIELD Distanza2 71\n"
                        "PRESS OK\n"),
               "> PRESS OK"),
            "> PRESS OK\nMESSAGGIO [Punto Stazione Libera] Distanza Reale = 100.0000 | Distanza Rilevata = 100.4092 | "
            "Differenza = -0.4092\nDIALOGO - StazioneLibera\nPROMPT Punto StazioneLibera - Primo Punto:\n");
  EXPECT_TRUE(In(s, "300", 50, -50.20458146424487, 10));
  // The irradiation that follows offers the station.
  Script("TAG IRRAGGIAMENTO\n");
  EXPECT_EQ(s.Prompt, "Irraggiamento - Punto di Stazione: 300");

  // No angle between the sights: the base shrinks to 30 - 10 = 20 about (50, 0) and the
  // station lies on it, 30 from its first end (40, 0).
  Script("TAG PUNTO_STAZIONE_LIBERA\nFIELD NuovoPunto.Nome 401\nCLICK left 0 0\nCLICK left 100 0\n"
           "FIELD Lettura1 50\nFIELD Distanza1 30\nFIELD Lettura2 50\nFIELD Distanza2 10\nPRESS OK\n");
  EXPECT_TRUE(In(s, "401", 70, 0, 10));

  // Equal sights with no angle make no triangle: the report, then the failure.
  EXPECT_TRUE(Contiene(
      Script("CLICK left 0 0\nCLICK left 100 0\nFIELD Distanza1 10\nFIELD Distanza2 10\nPRESS OK\n"),
      "MESSAGGIO [Punto Stazione Libera] Distanza Reale = 100.0000 | Distanza Rilevata = 0.0000 | "
      "Differenza = 100.0000\nMESSAGGIO [Punto Stazione Libera] Distanze non ammissibili!\n"));
  EXPECT_EQ(std::tie(s.ComandoCorrente, s.ContaEntita[SlotPunti]), std::make_tuple(0, 4));
}

// Three points from one station, the dialog left up, each point one generation of undo.
TEST_F(CostruzioneBanco, IrraggiamentoUnVentaglioDiTrePuntiConLeAltezze) {
  ApriLavoro(*this, "1000,2000,100",
             RecordPuntoBase("100", 1000, 2000, 50).Byte() + RecordPuntoBase("101", 1000, 2100, 60).Byte());
  ASSERT_EQ(s.ContaEntita[SlotPunti], 2);
  s.PuntoHPrisma[0] = 1.5f;
  const int64_t prima = LeggiDiario(s)->Passo;

  Script("TAG IRRAGGIAMENTO\nFIELD NuovoPunto.Nome 1\nCLICK left 1000 2000\nCLICK left 1000 2100\n");
  EXPECT_EQ(Valori(s, "Irraggiamento",
                   "Stazione Orientamento Azimut Base QuotaStazione AltezzaStazione LetturaOrientamento Zenitale"),
            "100|101|0.0000|100.000|50.000|1.500|0|100");
  EXPECT_EQ(Etichette(s, "Irraggiamento", "Stazione LetturaOrientamento AltezzaStazione"),
            "Irraggiamento|Stazione     : |Lettura Orientamento : |Altezza Stazione : ");

  // The orientation point, due North, was read at 30: the correction is 370, and a reading
  // of 130 looks East. A level sight: the height of the station plus the instrument less
  // the prism.
  Script("FIELD LetturaOrientamento 30\nFIELD Lettura 130\nFIELD Distanza 10\nFIELD Prisma 1.5\nPRESS OK\n");
  EXPECT_TRUE(In(s, "1", 1010, 2000, 50));
  // 230 looks South; 90 gon above the horizon the sight climbs 20·cos(81°) = 3.12869.
  Script("FIELD Lettura 230\nFIELD Distanza 20\nFIELD Zenitale 90\nFIELD Prisma 2\nPRESS OK\n");
  EXPECT_TRUE(In(s, "2", 1000, 1980, 1.5 + 50 + 3.1286893008046174 - 2));
  // 80 looks North-East; the distance is horizontal as typed; no zenith means a level sight.
  Script("FIELD Lettura 80\nFIELD Distanza 14.142135623730951\nFIELD Zenitale\nFIELD Prisma 0\nPRESS OK\n");
  EXPECT_TRUE(In(s, "3", 1010, 2010, 51.5));
  EXPECT_EQ(std::make_tuple(Valori(s, "Irraggiamento", "Zenitale"), Valori(s, "NuovoPunto", "Nome"), LeggiDiario(s)->Passo),
            std::make_tuple("100", "4", prima + 3));
  // Closed by its second button: the command ends and nothing more is made.
  Script("PRESS Irraggiamento.Chiudi\n");
  EXPECT_EQ(std::make_tuple(DialogoAperto(s, "Irraggiamento"), s.ComandoCorrente, s.ContaEntita[SlotPunti],
                            LeggiDiario(s)->Passo),
            std::make_tuple(false, 0, 5, prima + 3));
  // One undo takes back the last point only.
  Script("KEY F9\n");
  EXPECT_EQ(s.ContaEntita[SlotPunti], 4);
  EXPECT_TRUE(In(s, "2", 1000, 1980, 1.5 + 50 + 3.1286893008046174 - 2));
}

// The construction dialogs end as the user leaves them: Esc, another tag, a new click.
TEST_F(CostruzioneBanco, PuntoInAvantiDueAngoliSullaBaseSiIncontranoAllaSuaDestraEIDialoghiSiChiudono) {
  MettiPunti(s, {{"A", 0, 0}, {"B", 10, 0}});
  Pronto(5, 0, 40);
  Script("TAG PUNTO_IN_AVANTI\nFIELD NuovoPunto.Nome 20\nCLICK left 0 0\nCLICK left 10 0\n");
  EXPECT_EQ(Etichette(s, "PuntoInAvanti", "Angolo1 Angolo2"), "Punto In Avanti|Primo Angolo :|Secondo Angolo :");
  // Half a right angle at each end of a base running East: the apex of the right isosceles
  // triangle, 5 South of the middle.
  Script("FIELD Angolo1 50\nFIELD Angolo2 50\nPRESS OK\n");
  EXPECT_TRUE(In(s, "20", 5, -5, 0));
  EXPECT_FALSE(DialogoAperto(s, "PuntoInAvanti"));
  // Angles that add up to a half turn never meet: the box, no point, the command ends.
  EXPECT_EQ(Da(Script("CLICK left 0 0\nCLICK left 10 0\nFIELD Angolo1 120\nFIELD Angolo2 80\nPRESS OK\n"),
               "> PRESS OK"),
            "> PRESS OK\nMESSAGGIO [Punto In Avanti] Punto Non Trovato\n"
            "DIALOGO - NuovoPunto\nDIALOGO - PuntoInAvanti\n");
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.ComandoCorrente), std::make_tuple(3, 0));

  // Esc on the dialog presses its second button: no point, the command ends.
  Script("TAG PUNTO_SQUADRO\nCLICK left 0 0\nCLICK left 10 0\nFIELD Lato1 3\n");
  ASSERT_EQ(TrovaDialogo(s, "PuntoSquadro")->BottoneEsc, "Chiudi");
  Script("PRESS Chiudi\n");
  EXPECT_EQ(std::make_tuple(s.ComandoCorrente, s.ContaEntita[SlotPunti], s.Dialoghi.size()), std::make_tuple(0, 3, 0u));
  // Another tag closes the dialog of the command it replaces.
  Script("TAG IRRAGGIAMENTO\nCLICK left 0 0\nCLICK left 10 0\nTAG PUNTO_MEDIO\n");
  EXPECT_EQ(std::make_tuple(DialogoAperto(s, "Irraggiamento"), DialogoAperto(s, "NuovoPunto")), std::make_tuple(false, true));
  // A click while the dialog is up starts the construction again from that point.
  Script("TAG PUNTO_BILATERA\nCLICK left 0 0\nCLICK left 10 0\nCLICK left 10 0\n");
  EXPECT_EQ(std::make_tuple(DialogoAperto(s, "PuntoBilatera"), s.PassoComando), std::make_tuple(false, 1));
  Script("CLICK left 0 0\n");
  EXPECT_EQ(Valori(s, "PuntoBilatera", "Primo"), "B");
  // The end of the command by the keyboard closes it too.
  Script("KEY ESC\n");
  EXPECT_TRUE(s.Dialoghi.empty());
}

// Squadro, Apertura and Irraggiamento turn a typed "," into "." at the key press and read
// the text as it stands; the other dialogs read a "," as a point whatever way it came.
TEST_F(CostruzioneBanco, PuntoSquadroDueLatiAdAngoloRettoUnPrimoLatoNegativoELaVirgola) {
  MettiPunti(s, {{"O", 0, 0}, {"N", 0, 10}});
  Pronto(0, 5, 40);
  Script("TAG PUNTO_SQUADRO\nFIELD NuovoPunto.Nome 1\nCLICK left 0 0\nCLICK left 0 10\n");
  EXPECT_EQ(Valori(s, "PuntoSquadro", "Angolo"), "0");
  EXPECT_EQ(TrovaDialogo(s, "PuntoSquadro")->Campo("Angolo")->Scelte,
            (std::vector<std::string>{"0", "100", "200", "300"}));
  // 3 along the orientation (North), 4 to its right (East); the dialog stays for the next,
  // which an angle of 200 turns round.
  Script("FIELD Lato1 3\nFIELD Lato2 4\nPRESS OK\nFIELD Angolo 200\nPRESS OK\n");
  EXPECT_TRUE(In(s, "1", 4, 3, 0));
  EXPECT_TRUE(In(s, "2", -4, -3, 0));
  // A negative first leg: the box, and nothing happens; the dialog waits.
  EXPECT_TRUE(Stampa("> FIELD Lato1 -1\n> PRESS OK\nMESSAGGIO [Impossibile continuare] Distanza Negativa!\n"));
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotPunti], DialogoAperto(s, "PuntoSquadro"), s.ComandoCorrente),
            std::make_tuple(4, true, 161));

  // Typed: the comma became a point as the key went down. A quarter turn from North.
  Script("TAG PUNTO_APERTURA\nFIELD NuovoPunto.Nome 5\nCLICK left 0 0\nCLICK left 0 10\nPRESS 100\n"
           "FIELD Distanza 5,5\n");
  EXPECT_EQ(Valori(s, "PuntoApertura", "Distanza"), "5.5");
  Script("PRESS OK\n");
  EXPECT_TRUE(In(s, "5", 5.5, 0, 0));
  // Pasted: no key press saw it, and the comma ends the number.
  Script("PRESS 200\nPASTE Distanza 5,5\nPRESS OK\n");
  EXPECT_TRUE(In(s, "6", 0, -5, 0));
  // The bilateration reads a comma as a point, typed or pasted: 6 and 8 on a base of 10.
  Script("TAG PUNTO_BILATERA\nFIELD NuovoPunto.Nome 7\nCLICK left 0 0\nCLICK left 0 10\n"
           "PASTE Distanza1 6,0\nFIELD Distanza2 8,0\n");
  EXPECT_EQ(Valori(s, "PuntoBilatera", "Distanza2"), "8,0");
  Script("PRESS OK\n");
  EXPECT_TRUE(In(s, "7", 4.8, 3.6, 0));
  // A value the dialog only shows takes no typing.
  Script("CLICK left 0 0\nCLICK left 0 10\nFIELD Base 3\n");
  EXPECT_EQ(UltimoEsito.Codice, 2);
}

TEST_F(CostruzioneBanco, PuntoAperturaAngoloDAperturaDallOrientamentoEQuotaDelPiede) {
  MettiPunti(s, {{"O", 0, 0}, {"N", 0, 10, 10}});
  Pronto(0, 5, 40);
  // Half a right angle off North, 4√2 away: (4, 4), whose foot (0, 4) is 0.4 up the slope;
  // then a button sets the angle, the dialog still up.
  Script("TAG PUNTO_APERTURA\nFIELD NuovoPunto.Nome 1\nCLICK left 0 0\nCLICK left 0 10\nFIELD Angolo 50\n"
           "FIELD Distanza 5.656854249492381\nPRESS OK\nPRESS 300\nFIELD Distanza 2\nPRESS OK\n");
  EXPECT_TRUE(In(s, "1", 4, 4, 4));
  EXPECT_TRUE(In(s, "2", -2, 0, 10));  // the foot falls on O, which takes N's height
  EXPECT_TRUE(DialogoAperto(s, "PuntoApertura"));
}

TEST_F(CostruzioneBanco, PuntoPiedePiedeConAscissaEDistaccoConIlSegno) {
  MettiPunti(s, {{"A", 0, 0}, {"B", 10, 0, 10}, {"P", 4, 3}});
  Pronto(0, 0, 40);
  EXPECT_TRUE(Contiene(Script("TAG PUNTO_PIEDE\nFIELD NuovoPunto.Nome 1\nCLICK left 0 0\nCLICK left 10 0\n"
                                "CLICK left 4 3\n"),
                       "PROMPT Punto Piede - Primo Punto :\n> FIELD NuovoPunto.Nome 1\n> CLICK left 0 0\n"
                       "PROMPT Punto Piede - Secondo Punto:\n> CLICK left 10 0\n"
                       "PROMPT Punto Piede - Punto da Proiettare:\n> CLICK left 4 3\n"
                       "DIALOGO + PuntoPiede [Punto Piede]"));
  // The foot of (4, 3) on the line running East is (4, 0), 0.4 up the slope; the point lies
  // left of the line.
  EXPECT_TRUE(In(s, "1", 4, 0, 4));
  EXPECT_EQ(Valori(s, "PuntoPiede", "Terzo QuotaPiede Ascissa Distacco"), "P|4.000|4.000|-3.000");
  EXPECT_EQ(Etichette(s, "PuntoPiede", "Terzo QuotaPiede"), "Punto Piede|Terzo Punto : |Quota Piede : ");
  // The first button starts again at the first point.
  Script("CLICK left 0 0\nPRESS PuntoPiede.OK\n");
  EXPECT_EQ(std::make_tuple(DialogoAperto(s, "PuntoPiede"), s.PassoComando, s.Prompt),
            std::make_tuple(false, 0, "Punto Piede - Primo Punto :"));
}

TEST_F(CostruzioneBanco, PuntoIncrocioDueRetteEParalleleCheRipetonoIlPuntoDiPrima) {
  MettiPunti(s, {{"A", 0, 0}, {"B", 10, 10, 10}, {"C", 0, 10}, {"D", 10, 0}, {"E", 0, 20, 7}, {"F", 10, 20, 7},
                   {"G", 0, 30, 7}, {"H", 10, 30, 7}});
  Pronto(5, 15, 60);
  EXPECT_TRUE(Contiene(Script("TAG PUNTO_INCROCIO\nFIELD NuovoPunto.Nome 1\nCLICK left 0 0\n"
                                "CLICK left 10 10\nCLICK left 0 10\nCLICK left 10 0\n"),
                       "PROMPT Punto Incrocio - Secondo Punto:\n> CLICK left 10 10\n"
                       "PROMPT Punto Incrocio - Terzo Punto:\n> CLICK left 0 10\n"
                       "PROMPT Punto Incrocio - Quarto Punto:\n> CLICK left 10 0\n"
                       "PROMPT Punto Incrocio - Primo Punto:\n"));
  // The diagonals of the square meet in its middle, half way up A-B.
  EXPECT_TRUE(In(s, "1", 5, 5, 5));
  // Two parallel lines: the point made before is made again, with the height of the first
  // line there.
  Script("CLICK left 0 20\nCLICK left 10 20\nCLICK left 0 30\nCLICK left 10 30\n");
  EXPECT_TRUE(In(s, "2", 5, 5, 7));
}

TEST_F(CostruzioneBanco, PuntoMedioETangenteIlMezzoDiDuePuntiEIlTangenteDaUnPuntoAUnCerchio) {
  MettiPunti(s, {{"A", 0, 0, 3}, {"B", 10, 20, 4}});
  MettiCerchio(s, 10, 0, 5);
  Pronto(5, 5, 60);
  Script("TAG PUNTO_MEDIO\nFIELD NuovoPunto.Nome 1\nCLICK left 0 0\nCLICK left 10 20\n");
  EXPECT_TRUE(In(s, "1", 5, 10, 3.5));
  EXPECT_EQ(s.Prompt, "Punto Medio - Primo Punto:");
  // From A, 10 from the centre of a circle of radius 5: the tangent is √75 long, 30° off
  // the line of centres, so it touches at (7.5, ±4.33013), at the height of A.
  Script("TAG PUNTO_TANGENTE\nFIELD NuovoPunto.Nome 2\nCLICK left 0 0\n");
  EXPECT_EQ(std::tie(s.Prompt, s.ModoSnap), std::make_tuple("Punto Tangente - Indica Entità:", 8));
  Script("CLICK left 7.6 4.5\n");
  EXPECT_TRUE(In(s, "2", 7.5, 4.330127018922193, 3));
  EXPECT_EQ(std::tie(s.Prompt, s.ModoSnap), std::make_tuple("Punto Tangente - Dal Punto:", 1));
}

TEST_F(CostruzioneBanco, PolariCartesianeAzimutEDistanzaDaUnOrigine) {
  MettiPunto(s, "O", 100, 200, 7);
  Pronto(100, 200, 40);
  Script("TAG POLARI_CARTESIANE\nFIELD NuovoPunto.Nome 1\nCLICK left 100 200\n");
  EXPECT_EQ(Valori(s, "PolariCartesiane", "Nord Est Quota"), "200.000|100.000|7.000");
  EXPECT_EQ(Etichette(s, "PolariCartesiane", "Origine Nord Est Quota"),
            "Polari > Cartesiane|Punto Origine : |         Nord : |          Est : |        Quota : ");
  // West by 5, at the origin's height; the dialog stays up.
  Script("FIELD Azimut 300\nFIELD Distanza 5\nPRESS OK\n");
  EXPECT_TRUE(In(s, "1", 95, 200, 7));
  EXPECT_TRUE(DialogoAperto(s, "PolariCartesiane"));
}

TEST_F(CostruzioneBanco, IntersecaDirezioneUnaDirezioneLettaInStazioneIncontraLaLinea) {
  MettiPunti(s, {{"A", 0, 10}, {"B", 20, 10}, {"S", 5, 0, 100}, {"O", 5, 50}});
  s.PuntoHPrisma[2] = 1.5f;
  s.PuntoErroreOrientamento[2] = 10;
  Pronto(5, 10, 60);
  Script("TAG INTERSECA_DIREZIONE\nFIELD NuovoPunto.Nome 1\nCLICK left 0 10\nCLICK left 20 10\nCLICK left 5 0\n");
  EXPECT_EQ(Valori(s, "IntersecaDirezione", "Stazione AltezzaStrumento LetturaOrientamento Orientamento"),
            "S|1.500|10.0000|A");
  EXPECT_EQ(Etichette(s, "IntersecaDirezione", "Azimutale Zenitale"),
            "Interseca Direzione|Lettura Azimutale : |Lettura Zenitale :");
  // An orientation no point bears: the box, nothing made, the name can be typed again.
  EXPECT_TRUE(Stampa("> FIELD Orientamento Q\n> FIELD Azimutale 10\n> PRESS OK\n"
                     "MESSAGGIO [Punto non Trovato] Punto Non Trovato\n"));
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotPunti], DialogoAperto(s, "IntersecaDirezione")), std::make_tuple(4, true));
  // Oriented on O, due North, read at 10: a reading of 10 looks North and meets y = 10 at
  // (5, 10), 10 away. 90 gon over the horizon over 10 m of plan climbs 10·cot(81°).
  Script("FIELD Orientamento O\nFIELD Zenitale 90\nPRESS OK\n");
  EXPECT_TRUE(In(s, "1", 5, 10, 10 * 0.15838444032453627 + 1.5 + 100));
  EXPECT_FALSE(DialogoAperto(s, "IntersecaDirezione"));
  // A reading of 110 looks East, along the line: no crossing, the box, the command ends.
  EXPECT_TRUE(Contiene(Script("CLICK left 0 10\nCLICK left 20 10\nCLICK left 5 0\nFIELD Orientamento O\n"
                                "FIELD Azimutale 110\nPRESS OK\n"),
                       "> PRESS OK\nMESSAGGIO [Interseca Direzione] Punto Non Trovato\n"));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.ComandoCorrente), std::make_tuple(5, 0));
}

TEST_F(CostruzioneBanco, PuntoDistanzaConfermeRipetuteCamminanoLungoLaLinea) {
  MettiPunti(s, {{"A", 0, 0}, {"B", 0, 30, 6}});
  Pronto(0, 15, 60);
  Script("TAG PUNTO_DISTANZA\nFIELD NuovoPunto.Nome 1\nCLICK left 0 0\nCLICK left 0 30\n");
  EXPECT_EQ(Valori(s, "PuntoDistanza", "Distanza Dislivello"), "30.|6.000");
  EXPECT_EQ(Etichette(s, "PuntoDistanza", "Azimut Dislivello"), "Punto Distanza|Azimut     : |Dislivello : ");
  // Steps of 10 up a slope of 1 in 5, each from the point made before.
  Script("FIELD Distanza 10\nPRESS OK\nPRESS OK\nPRESS OK\n");
  EXPECT_TRUE(In(s, "1", 0, 10, 2));
  EXPECT_TRUE(In(s, "2", 0, 20, 4));
  EXPECT_TRUE(In(s, "3", 0, 30, 6));
  EXPECT_EQ(Valori(s, "PuntoDistanza", "Primo Base"), "3|0.000");
}

}  // namespace
}  // namespace varena
