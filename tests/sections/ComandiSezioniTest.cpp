// The section commands driven by scripts as a user drives them: a section captured from
// picked points, one through a terrain model of two facets, a project height given.
#include <gtest/gtest.h>

#include "sections/ComandiSezioni.h"
#include "cadastre/ContornoSette.h"
#include "commands/Attese.h"
#include "support/ProvaFalde.h"
#include "core/ImpostazioniUtente.h"
#include "sections/FileSezioni.h"
#include "sections/ImpaginaSezioni.h"
#include "sections/CopiaSezioni.h"
#include "sections/ProgettoSezioni.h"
#include "exchange/Incolla.h"
#include "core/File.h"

namespace varena {
namespace {

using namespace prova;

// Every case starts from the empty job.
struct SezioniBanco : BancoProva {
  void SetUp() override { ApriLavoroVuoto(*this); }
  // A section of the default layout on these stations, heights drawn at the scale of lengths
  // unless `piana` is false.
  Sezione& Aggiungi(const std::vector<StazioneSezione>& stazioni, double origineY = 0, bool piana = true) {
    Sezione z;
    z.Cfg = ConfigurazioneIniziale();
    if (piana) z.Cfg.ScalaAltezze = z.Cfg.ScalaLunghezze;
    z.Stazioni = stazioni, z.OrigineY = origineY;
    return s.SezioneDati[static_cast<size_t>(AggiungiSezione(s, z))];
  }
};

// Two facets of one plane, z = 100 + x/10 + y/5, sharing the side x + y = 100.
void DueFalde(Sessione& s) {
  MettiFalda(s, 0, 0, 100, 100, 0, 110, 0, 100, 120);
  MettiFalda(s, 100, 0, 110, 100, 100, 130, 0, 100, 120);
}

TEST_F(SezioniBanco, ComandiSezioniSezioneDaiPuntiPresiEQuotaDiProgetto) {
  MettiPunti(s, {{"1", 0, 0, 10}, {"2", 30, 40, 12}, {"3", 30, 60, 11}});
  Pronto(0, 0, 400);
  Script("TAG SEZIONI_QUOTA_PROGETTO\nCLICK left 0 0\n");
  EXPECT_EQ(ui.UltimoMessaggio, "Sezioni assenti!!");
  Script("TAG SEZIONI_CATTURA_PUNTI\nCLICK left @1\nCLICK left @2\nCLICK left @3\nCLICK right 0 0\nCLICK right 0 0\n");
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 1);
  const Sezione& z = s.SezioneDati[0];
  ASSERT_EQ(z.Stazioni.size(), 3u);
  EXPECT_EQ(z.Stazioni[1], (StazioneSezione{"2", 30, 40, 12, 12}));
  EXPECT_EQ(std::tie(z.Stazioni[2].Nome, z.IndiceSezione), std::make_tuple("3", "1"));
  // The datum a metre under the lowest ground, the sheet beside the points: 4 cm of paper
  // at 1:200 to the right of the easternmost and under the southernmost.
  EXPECT_EQ(std::tie(z.Cfg.QuotaRiferimento, z.OrigineX, z.OrigineY), std::make_tuple(9, 30 + 32, 0 - 32));
  EXPECT_GT(InLista(s, SlotSezioni), 30);

  // The first station's vertical stands at the origin, up to the ground at 10: ten times
  // a metre over the datum.
  ui.Accoda("105.5");
  Script("TAG SEZIONI_QUOTA_PROGETTO\nCLICK left 62 -27\n");
  for (const StazioneSezione& p : s.SezioneDati[0].Stazioni) EXPECT_EQ(p.QuotaProgetto, 105.5);
  EXPECT_EQ(s.SezioneDati[0].Cfg.ProfiloProgetto, 1);
}

TEST_F(SezioniBanco, ComandiSezioniSezioneAttraversoLeFalde) {
  DueFalde(s);
  MettiPunti(s, {{"A", 10, 10, 0}, {"B", 80, 50, 0}});
  Pronto(50, 50, 400);
  // The options on: stations renumbered, a point where the side is crossed, the trace drawn.
  for (const char* chiave : {kRinumeraPunti, kGeneraPunti, kGeneraLinee}) ScriviImpostazioneUtente(s, "SEZIONI", chiave, "1");
  ui.Accoda("yes");
  Script("TAG SEZIONI_CATTURA_PUNTI\nCLICK left @A\nCLICK left @B\nCLICK right 0 0\nCLICK right 0 0\n");
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 1);
  const auto& st = s.SezioneDati[0].Stazioni;
  ASSERT_EQ(st.size(), 3u);
  EXPECT_EQ(std::make_tuple(st[0].Nome, st[1].Nome, st[2].Nome, s.ContaEntita[SlotLinee]),
            std::make_tuple("1", "S1-2", "3", 2));
  ASSERT_EQ(s.ContaEntita[SlotPunti], 3);
  EXPECT_EQ(std::make_tuple(s.PuntoNome[2], s.PuntoX[2], s.PuntoZ[2]), std::make_tuple("S1-2", st[1].X, st[1].QuotaTerreno));
  // The shared side is crossed at t = 8/11 of the way: (670/11, 430/11), at 100 + 153/11.
  EXPECT_TRUE(Vicini({st[0].QuotaTerreno, st[1].X, st[1].Y, st[1].QuotaTerreno, st[2].QuotaTerreno},
                     {103, 670.0 / 11, 430.0 / 11, 100 + 153.0 / 11, 118}, 1e-12));
}

// A section drawn on the sheet is reached by a click as any entity: the editing commands
// select it, move it by its origin, delete it; its own commands find its row, not the
// record of the drawing under the pointer.
TEST_F(SezioniBanco, ComandiSezioniUnaSezioneSulFoglioSiPrendeColClic) {
  // Over the datum at 0: their terrain from (0, 5) to (30, 5) and from (0, -95) to (30, -95).
  const std::vector<StazioneSezione> st = {{"A", 0, 0, 5, 5}, {"B", 30, 0, 5, 5}};
  for (double y : {0, -100}) Aggiungi(st, y).Cfg.QuotaRiferimento = 0;
  Pronto(15, -50, 200);
  Script("TAG CAMBIA_SPOSTA\nPRESS Singola\nCLICK left 15 -94\nKEY ESC\nPRESS OK\nCLICK left 0 0\nCLICK left 100 50\n");
  EXPECT_EQ(std::make_tuple(s.SezioneDati[0].OrigineX, s.SezioneDati[1].OrigineX, s.SezioneDati[1].OrigineY),
            std::make_tuple(0, 100, -50));
  ui.Accoda("7");
  Script("KEY ESC\nTAG SEZIONI_QUOTA_PROGETTO\nCLICK left 115 -44\n");
  EXPECT_EQ(std::make_tuple(s.SezioneDati[0].Stazioni[0].QuotaProgetto, s.SezioneDati[1].Stazioni[1].QuotaProgetto),
            std::make_tuple(5, 7));
  // A window drawn right to left takes the section whose frame it crosses.
  Script("KEY ESC\nTAG CAMBIA_ELIMINA\nPRESS Finestra\nCLICK left 20 10\nCLICK left 10 4\nPRESS OK\n");
  EXPECT_EQ(std::make_tuple(s.SezioneIdent[0], s.SezioneIdent[1]), std::make_tuple(-1, 0));
}

// The stations edited one at a time and the layout through its dialog, kept in a file of
// the user's and read back the same.
TEST_F(SezioniBanco, ComandiSezioniEditaPuntiEConfiguraSezioni) {
  Aggiungi({{"A", 0, 0, 5, 5}, {"B", 30, 0, 5, 5}});
  Pronto(15, 0, 100);
  Script("TAG SEZIONI_EDITA_PUNTI\nCLICK left 15 5\nPRESS EditaPunti.Successivo\n");
  EXPECT_EQ(TrovaDialogo(s, "EditaPunti")->Valore("Nome"), "B");
  Script("FIELD EditaPunti.QuotaProgetto 7,5\nPRESS EditaPunti.Precedente\nPRESS EditaPunti.Inserisci\n"
         "FIELD EditaPunti.Nome M\nFIELD EditaPunti.X 15\nPRESS EditaPunti.OK\n");
  EXPECT_EQ(s.SezioneDati[0].Stazioni,
            (std::vector<StazioneSezione>{{"A", 0, 0, 5, 5}, {"M", 15, 0, 5, 5}, {"B", 30, 0, 5, 7.5}}));

  const std::string file = cartella / "STRADA.INI";
  ui.Accoda(file);
  Script("KEY ESC\nTAG SEZIONI_CONFIGURA\nCLICK left 15 5\nFIELD Sezioni.Piani_Titolo PROVA\nFIELD Sezioni.Scale_Valore2 20\n"
         "FIELD Sezioni.Opzioni_Disegna 1\n"
         "PRESS Sezioni.mnuSalvaConfigurazioneConNome\nPRESS Sezioni.OK\n");
  EXPECT_EQ(ui.UltimoMessaggio, "La configurazione  | " + file + " |  è stata salvata su disco con successo.");
  const ConfigurazioneSezione& c = s.SezioneDati[0].Cfg;
  EXPECT_EQ(std::make_tuple(c.NomeBase, c.ScalaAltezze, c.ScalaLunghezze), std::make_tuple("PROVA", 20, 200));
  EXPECT_EQ(CaricaConfigurazione(s, file), c);
  EXPECT_TRUE(ImpostazioneSezioni(s, kGeneraLinee));
  int64_t profilo = 0;
  for (int64_t i = 0; i < s.ListaDisegno.Conta(); ++i) profilo += s.ListaDisegno.Piano(i) == "PROVA_ProfRili";
  EXPECT_GT(profilo, 0);
}

// Two sections summed end to end, the station they share taken once; then one divided at a
// station, which both parts keep.
TEST_F(SezioniBanco, ComandiSezioniSommaEDividi) {
  const std::vector<StazioneSezione> tutte = {
      {"A", 0, 0, 5, 5}, {"B", 10, 0, 6, 6}, {"C", 20, 0, 7, 7}, {"D", 30, 0, 8, 8}};
  Aggiungi({tutte.begin(), tutte.begin() + 3});  // terrain at y 5 to 7 over x 0 to 20
  Aggiungi({tutte.begin() + 2, tutte.end()}, -100);  // terrain at y -93 to -92
  Pronto(15, -50, 200);
  Script("TAG SEZIONI_SOMMA\nCLICK left 5 5.5\nCLICK left 5 -92.5\n");
  EXPECT_EQ(std::make_tuple(s.SezioneDati[0].Stazioni, s.SezioneIdent[1]), std::make_tuple(tutte, -1));
  ui.Accoda("2");
  Script("KEY ESC\nTAG SEZIONI_DIVIDI\nCLICK left 5 5.5\n");
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 3);
  EXPECT_EQ(std::make_pair(s.SezioneDati[0].Stazioni, s.SezioneDati[2].Stazioni),
            std::make_pair(std::vector(tutte.begin(), tutte.begin() + 2), std::vector(tutte.begin() + 1, tutte.end())));
}

// A section along lines that meet end to end, whatever their direction and order, with
// the lines' heights; a line apart is not taken.
TEST_F(SezioniBanco, ComandiSezioniCatturaSpezzata) {
  MettiLinea(s, 10, 0, 20, 5, 11, 12);
  MettiLinea(s, 30, 5, 20, 5, 13, 12);
  MettiLinea(s, 0, 0, 10, 0, 10, 11);
  MettiLinea(s, 31, 5, 40, 5, 1, 1);
  Pronto(15, 0, 100);
  Script("TAG CATTURA_SPEZZATA\nCLICK left 25 5\n");
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 1);
  std::vector<std::tuple<double, double, double>> st;
  for (const StazioneSezione& p : s.SezioneDati[0].Stazioni) st.emplace_back(p.X, p.Y, p.QuotaTerreno);
  EXPECT_EQ(st, (std::vector<std::tuple<double, double, double>>{{0, 0, 10}, {10, 0, 11}, {20, 5, 12}, {30, 5, 13}}));
}

// A profile along a levelling from the middle: its legs, recorded in any order, joined into
// one run through 1, 2 and 3; a run whose far point is not in the table makes no profile.
TEST_F(SezioniBanco, ComandiSezioniProfiloDaLivellazione) {
  Pronto(0, 0, 400);
  Script("TAG SEZIONI_DA_LIVELLAZIONE\n");
  EXPECT_EQ(ui.UltimoMessaggio, "Livellazione assente!");
  MettiPunti(s, {{"1", 0, 0, 10}, {"2", 30, 40, 12}, {"3", 30, 60, 11}, {"7", 5, 5, 5}});
  subAggiungiSetteSingolo(s, "|2|3|", kLivellazioneDalMezzo, "", 8, 3);
  subAggiungiSetteSingolo(s, "|7|8|", kLivellazioneDalMezzo, "", 8, 3);
  subAggiungiSetteSingolo(s, "|1|2|", kLivellazioneDalMezzo, "", 8, 3);
  subAggiungiSetteSingolo(s, "|3|7|", kPoligonale, "", 8, 3);
  Script("TAG SEZIONI_DA_LIVELLAZIONE\n");
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 1);
  const std::vector<StazioneSezione> attese = {{"1", 0, 0, 10, 10}, {"2", 30, 40, 12, 12}, {"3", 30, 60, 11, 11}};
  EXPECT_EQ(s.SezioneDati[0].Stazioni, attese);
}

// Cross sections every 40 metres along an axis going East, 20 wide, from North to South,
// through the plane z = 100 + x/10 + y/5 of two facets.
TEST_F(SezioniBanco, ComandiSezioniInSerie) {
  DueFalde(s);
  MettiPunti(s, {{"A", 10, 50, 0}, {"B", 90, 50, 0}});
  Pronto(50, 50, 400);
  for (const char* r : {"40", "20"}) ui.Accoda(r);
  Script("TAG SEZIONI_IN_SERIE\nCLICK left @A\nCLICK left @B\nCLICK right 0 0\nCLICK right 0 0\n");
  ASSERT_EQ(s.ContaEntita[SlotSezioni], 3);
  std::vector<std::vector<double>> quote;
  for (const Sezione& z : {s.SezioneDati[0], s.SezioneDati[1], s.SezioneDati[2]}) {
    quote.emplace_back();
    for (const StazioneSezione& p : z.Stazioni) quote.back().push_back(p.QuotaTerreno);
  }
  // At x 10 from (10, 60) to (10, 40); at 50 the shared side crossed at (50, 50); at 90.
  EXPECT_EQ(quote, (std::vector<std::vector<double>>{{113, 109}, {117, 115, 113}, {121, 117}}));
  // One under the other, each clear of the one before.
  EXPECT_LT(s.SezioneBoxY2[1], s.SezioneBoxY1[0]);
  EXPECT_LT(s.SezioneBoxY2[2], s.SezioneBoxY1[1]);
  // A spacing that would make more than a thousand sections is refused.
  for (const char* r : {"0.07", "20"}) ui.Accoda(r);
  Script("TAG SEZIONI_IN_SERIE\nCLICK left @A\nCLICK left @B\nCLICK right 0 0\nCLICK right 0 0\n");
  EXPECT_EQ(std::make_tuple(ui.UltimoMessaggio, s.ContaEntita[SlotSezioni]),
            std::make_tuple("Troppe sezioni: aumentare l'interasse!", 3));
}


// The page file as a user edits it: keys in any case, decimal commas, comments; what is no
// use is named and left at the default; garbage and a cut line read as nothing; margins
// wider than the page leave the default page.
TEST(ImpaginaSezioni, IlFileSiLeggeConTolleranza) {
  const ImpaginazioneLetta l = LeggiImpaginazione(
      "[ImpaginaSezioni]\r\n; A4\r\nlarghezza = 210\r\nMargineSinistro=12,5\r\nMargineAlto=-3\r\n"
      "Colonne=2.5\r\nRighe=abc\r\nScala=1e300\r\n\xff\x01=\r\nDistanzaFogli");
  Impaginazione attesa;
  attesa.Larghezza = 210, attesa.MargineSinistro = 12.5;
  EXPECT_EQ(std::make_tuple(l.Pagina, l.Scartati),
            std::make_tuple(attesa, std::vector<std::string>{"MargineAlto", "Colonne", "Righe", "Scala"}));
  const ImpaginazioneLetta m = LeggiImpaginazione("Larghezza=100\nMargineDestro=95\nAltezza=50\n");
  EXPECT_EQ(std::make_tuple(m.Pagina, m.Scartati), std::make_tuple(Impaginazione{}, std::vector<std::string>{"Margini"}));
  attesa.Colonne = 3, attesa.Scala = 500, attesa.DisegnaFogli = 0;
  EXPECT_EQ(LeggiImpaginazione(TestoImpaginazione(attesa)).Pagina, attesa);
}

// Pages of 100 by 80, margins 10, spacing 5, 20 apart, from (0, 0). By hand: two frames a
// row, a third under them, the fourth too tall for what is left, the fifth too wide for any
// row; then one a row and two rows a page.
TEST(ImpaginaSezioni, LeCorniciFoglioPerFoglio) {
  Impaginazione p;
  p.Larghezza = 100, p.Altezza = 80;
  p.MargineSinistro = p.MargineDestro = p.MargineAlto = p.MargineBasso = 10;
  p.SpaziaturaOrizzontale = p.SpaziaturaVerticale = 5;
  using Posti = std::vector<std::tuple<int, double, double>>;
  auto posti = [&] {
    Posti v;
    for (const Posto& x : Impagina(p, 1, {{35, 25}, {35, 25}, {35, 25}, {70, 50}, {90, 70}}, 0, 0))
      v.emplace_back(x.Foglio, x.X, x.Y);
    return v;
  };
  EXPECT_EQ(posti(), (Posti{{0, 10, -10}, {0, 50, -10}, {0, 10, -40}, {1, 130, -10}, {2, 250, -10}}));
  p.Colonne = 1, p.Righe = 2;
  EXPECT_EQ(posti(), (Posti{{0, 10, -10}, {0, 10, -40}, {1, 130, -10}, {2, 250, -10}, {3, 370, -10}}));
}

// Two sections laid out one a row from the click, at a metre a millimetre: each frame's top
// left corner inside the default margins (20, 10), the second a spacing (10) under the
// first; the page drawn once however many times the command runs.
TEST_F(SezioniBanco, ImpaginaSezioniSpostaLeCornici) {
  for (double x : {0, 300}) Aggiungi({{"A", 0, 0, 5, 5}, {"B", 30, 0, 6, 5}}, 0, false).OrigineX = x;
  Pronto(0, 0, 400);
  const double h = s.SezioneBoxY2[0] - s.SezioneBoxY1[0];
  ScriviFileProva(PercorsoImpaginazione(s), "Larghezza=500\r\nAltezza=400\r\nColonne=1\r\nScala=1000\r\nRighe=-1\r\n");
  for (int volta = 0; volta < 2; ++volta) {
    Script("TAG SEZIONI_IMPAGINA\nCLICK left 1000 2000\n");
    EXPECT_EQ(ui.UltimoMessaggio, "ImpaginaSezioni.ini: valori non validi (Righe), usati i predefiniti.");
    EXPECT_TRUE(Vicini({s.SezioneBoxX1[0], s.SezioneBoxY2[0], s.SezioneBoxX1[1], s.SezioneBoxY2[1]},
                       {1020, 1990, 1020, 1990 - h - 10}, 1e-6));
    EXPECT_EQ(RigheVive(s, SlotLinee), 4);
  }
}

// A section copied out: its values as a table worked by hand (partials 5 and 6; cut and fill
// split where the profiles cross, at 5/3 and at 8), and its drawing as the hand-over file's
// statements, one a record of the display list, read back by the paste; a name with a tab
// and a quote breaks neither.
TEST_F(SezioniBanco, CopiaSezioneValoriEDisegno) {
  Aggiungi({{"A", 0, 0, 5, 5.5}, {"B\"1\t2", 3, 4, 6, 5}, {"C", 3, 10, 4, 5}}).IndiceSezione = "PROVA";
  Pronto(5, 5, 100);
  Script("TAG SEZIONI_COPIA_VALORI\nCLICK left 2.5 5.5\nKEY ESC\nTAG SEZIONI_COPIA_IN_FILE\nCLICK left 2.5 5.5\n");
  const std::string tabella =
      "Sezione\tPROVA\r\nPunto\tProgressiva\tParziale\tEst\tNord\tQuota Terreno\tQuota Progetto\tQuota Rossa\r\n"
      "A\t0.000\t0.000\t0.000\t0.000\t5.000\t5.500\t0.500\r\nB\"1 2\t5.000\t5.000\t3.000\t4.000\t6.000\t5.000\t-1.000\r\n"
      "C\t11.000\t6.000\t3.000\t10.000\t4.000\t5.000\t1.000\r\nArea Sterro\t3.167\r\nArea Riporto\t1.917\r\n"
      "Area Totale\t5.083\r\n";
  EXPECT_EQ(std::make_pair(LeggiByte(PercorsoValoriSezione(s)).value_or(""), s.Clip->Leggi()),
            std::make_pair(tabella, tabella));
  const EsitoIncolla e = LeggiCopiaInFile(LeggiByte(PercorsoCopiaInFile(s)).value_or(""));
  // The terrain from A to B as drawn, over the datum at 0, in the colour and on the layer of its group.
  const std::vector<std::string> terreno = {"3", "1", "0", "SEZ_ProfRili", "0"};
  EXPECT_EQ(std::count_if(e.Entita.begin(), e.Entita.end(), [&](const EntitaIncollata& x) {
              return x.A.X == 0 && x.A.Y == 5 && x.B.X == 5 && x.B.Y == 6 && x.Attributi == terreno;
            }), 1);
  EXPECT_EQ(static_cast<int64_t>(e.Entita.size()), InLista(s, SlotSezioni));
}

// Five stations ten metres apart, terrain 100 to 104, drawn ten times higher over a datum
// at 95: a grade of -2.5% from the second at 100; a straight stretch from the first to the
// fourth; the last picked at the level of 103.5 and typed 98. Each is one undo step.
TEST_F(SezioniBanco, ProgettoInPendenzaInterpolatoEPuntoPerPunto) {
  std::vector<StazioneSezione> st;
  for (int i = 0; i < 5; ++i) st.push_back({std::to_string(i + 1), 10.0 * i, 0, 100.0 + i, 100.0 + i});
  Aggiungi(st, 0, false).Cfg.QuotaRiferimento = 95;
  Pronto(20, 40, 200);
  auto progetto = [&] {
    std::vector<double> q;
    for (const StazioneSezione& p : s.SezioneDati[0].Stazioni) q.push_back(p.QuotaProgetto);
    return q;
  };
  const int64_t passo = PassoUndo(s);
  for (const char* r : {"2", "100", "-2,5"}) ui.Accoda(r);
  Script("TAG SEZIONI_PROGETTO_PENDENZA\nCLICK left 5 55\n");
  EXPECT_TRUE(Vicini(progetto(), {100, 100, 99.75, 99.5, 99.25}));
  for (const char* r : {"1", "4"}) ui.Accoda(r);
  Script("KEY ESC\nTAG SEZIONI_PROGETTO_INTERPOLA\nCLICK left 5 55\n");
  EXPECT_TRUE(Vicini(progetto(), {100, 100 - 1.0 / 6, 100 - 1.0 / 3, 99.5, 99.25}));
  const StazioneCliccata c = StazioneSulFoglio(s.SezioneDati[0], 39, 85);
  EXPECT_EQ(std::make_pair(c.Indice, c.Quota), std::make_pair(size_t{4}, 103.5));
  for (const char* r : {"98", "9"}) ui.Accoda(r);
  Script("KEY ESC\nTAG SEZIONI_PROGETTO_PUNTO\nCLICK left 39 85\nKEY ESC\nTAG SEZIONI_PROGETTO_PENDENZA\nCLICK left 5 55\n");
  EXPECT_EQ(std::make_tuple(ui.UltimoMessaggio, progetto().back(), PassoUndo(s)),
            std::make_tuple("Punto fuori dalla sezione!", 98, passo + 3));
  // A grade that runs past any number leaves the section as it was.
  for (const char* r : {"1", "1e999", "1e999"}) ui.Accoda(r);
  Script("KEY ESC\nTAG SEZIONI_PROGETTO_PENDENZA\nCLICK left 5 55\n");
  EXPECT_EQ(std::make_tuple(ui.UltimoMessaggio, progetto().back(), PassoUndo(s)),
            std::make_tuple("Quote di progetto fuori misura!", 98, passo + 3));
}

}  // namespace
}  // namespace varena
