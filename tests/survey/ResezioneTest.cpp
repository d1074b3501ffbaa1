// The resection against stations chosen first, whose angles tests/survey/dati/pothenot.py
// works forward from atan2 of the sights: the program must find each station back.
#include <gtest/gtest.h>

#include <string>

#include "commands/Attese.h"
#include "core/File.h"
#include "snap/Vicino.h"
#include "survey/Resezione.h"

namespace varena {
namespace {

using namespace prova;

constexpr double kDecimoDiMm = 1e-4;

TEST(Pothenot, StazioniNoteRitrovateSullaGrigliaEVicinoAllOrigine) {
  struct Caso {
    const char* nome;
    PuntoXYZ p1, p2, p3;
    double alfa, beta, x, y;
  };
  const Caso casi[] = {
      {"griglia", {1700612.41, 5003890.12}, {1702950.73, 5003105.33}, {1702011.05, 5000405.98}, 97.849988788415,
       102.288425330088, 1701234.567, 5002345.678},
      {"casuale", {288.825, -108.5645}, {389.7722, -613.0914}, {-247.5186, -982.6461}, 82.322382500803,
       96.516875225927, 3.0257, -416.1061},
  };
  for (const Caso& c : casi) {
    const EsitoPothenot e = Pothenot(c.p1, c.p2, c.p3, c.alfa, c.beta);
    SCOPED_TRACE(c.nome);
    ASSERT_EQ(e.Stato, kRiuscito);
    EXPECT_TRUE(Vicini({e.Stazione.X, e.Stazione.Y}, {c.x, c.y}, kDecimoDiMm));
    EXPECT_EQ(e.Stazione.Z, 0);
  }
  // Three points in a row, the station off their line: the circle is the line, the station
  // is well away from it, and it is found.
  const double al = std::atan2(50.0, 100.0) * 200 / M_PI;  // each pair 50 m apart seen from 100 m
  const EsitoPothenot riga = Pothenot({-50, 100}, {0, 100}, {50, 100}, al, al);
  ASSERT_EQ(riga.Stato, kRiuscito);
  EXPECT_TRUE(Vicini({riga.Stazione.X, riga.Stazione.Y}, {0, 0}, kDecimoDiMm));
  // Refusals (the dangerous circle is the command's case below).
  EXPECT_EQ(Pothenot({0, 0}, {0, 0.0005}, {50, 0}, 50, 50).Motivo, "Punti noti coincidenti!");
  for (double alfa : {0.0, 200.0})
    EXPECT_EQ(Pothenot({0, 0}, {10, 0}, {50, 30}, alfa, 50).Motivo, "Angolo Alfa non ammissibile (0 o 200 gon)!");
  EXPECT_EQ(Pothenot({0, 0}, {10, 0}, {50, 30}, 100, 50).Stato, kRiuscito);  // 100 gon is a fair angle
}

TEST(Pothenot, ComandoTrePuntiDueAngoliEStazioneInserita) {
  Banco b;
  MettiPunti(b.s, {{"T1", 612.41, 3890.12, 0}, {"T2", 2950.73, 3105.33, 0}, {"T3", 2011.05, 405.98, 0},
                   {"C1", 100, 150, 0}, {"C2", 149.3844170298, 107.821723252, 0},
                   {"C3", 129.3892626146, 59.5491502813, 0}});
  b.Pronto(1500, 2000, 5000);
  const std::string uscita =
      b.Script("TAG POTHENOT\nCLICK left @T1\nCLICK left @T2\nCLICK left @T3\nFIELD NuovoPunto.Nome 100\n"
               "FIELD Alfa 97.849988788401\nFIELD Beta 102.288425330096\nPRESS OK\n");
  EXPECT_TRUE(Contiene(uscita, "PROMPT Snellius/Pothenot - Primo Trigonometrico :\n"));
  EXPECT_TRUE(Contiene(uscita, "PROMPT Pothenot - Terzo Trigonometrico\n"));
  EXPECT_TRUE(Contiene(uscita,
                       "DIALOGO + CalcoloPothenot [Calcolo Pothenot] Primo=\"T1\" Secondo=\"T2\" Terzo=\"T3\""));
  const int32_t r = IlPiuVicinoPerNome(b.s, "100");
  ASSERT_GE(r, 0);
  EXPECT_TRUE(Vicini({b.s.PuntoX[static_cast<size_t>(r)], b.s.PuntoY[static_cast<size_t>(r)]}, {1234.567, 2345.678}, kDecimoDiMm));

  // On the dangerous circle: said, nothing inserted, the dialog up for other angles.
  const int32_t prima = b.s.ContaEntita[SlotPunti];
  b.Script("CLICK left @C1\nCLICK left @C2\nCLICK left @C3\nFIELD Alfa 45\nFIELD Beta 35\nPRESS OK\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Stazione sul cerchio pericoloso: il punto è indeterminato!"));
  EXPECT_EQ(std::make_tuple(b.s.ContaEntita[SlotPunti], DialogoAperto(b.s, "CalcoloPothenot")), std::make_tuple(prima, true));
}

// tests/survey/dati/fuoricentro.py: the instrument 2.35 m from the centre on 137.5 gon, its
// circle turned by 123.4567 gon; the directions are worked forward from the true station.
const std::vector<RigaFuoriCentro> kEccentrico = {
    {"Centro", "C", 5002000, 1701000, 60.9566999988},
    {"Orientamento", "O1", 5002410.3, 1701350.8, 168.2146013033},
    {"Orientamento", "O2", 5002205.7, 1700620.45, 55.1060743895},
    {"Orientamento", "O3", 5001480.25, 1701105, 310.9660269038},
};

// The station each row and the mean give are the command's case below, to the fifth decimal.
TEST(FuoriCentro, SenzaEccentricitaOOrientamentiNienteEUnaVisualeTroppoCortaFallisceDaSola) {
  // No eccentricity, or no orientation point: nothing.
  EXPECT_FALSE(FuoriCentro(kEccentrico, 0).Media);
  EXPECT_FALSE(FuoriCentro({kEccentrico[0]}, 2.35).Media);
  // An eccentricity longer than the sight cannot be seen at that angle: the row fails alone.
  std::vector<RigaFuoriCentro> vicino = kEccentrico;
  vicino[1].Nord = 5002001;
  vicino[1].Est = 1701000;
  const EsitoFuoriCentro v = FuoriCentro(vicino, 2.35);
  EXPECT_EQ(std::make_pair(v.Righe[0].Riuscita, v.Righe[1].Riuscita), std::make_pair(false, true));
}

TEST(FuoriCentro, FileFFFScrittoRilettoETroncato) {
  std::vector<RigaFuoriCentro> righe;
  const std::string testo = TestoFFF(kEccentrico);
  EXPECT_EQ(testo.substr(0, testo.find("Orientamento")),
            "Centro\tC\t5002000.000\t1701000.000\t60.9567\r\n");
  EXPECT_EQ(LeggiFFF(testo, righe), "");
  ASSERT_EQ(righe.size(), 4u);
  EXPECT_EQ(std::tie(righe[3].Nome, righe[3].Direzione), std::make_tuple("O3", 310.966));
  // Garbage, nothing, too much: said, and the rows as they were (a row cut short is the
  // command's case below).
  std::string lungo;
  for (int i = 0; i < 1001; ++i) lungo += "Orientamento\tP\t1\t2\t3\n";
  for (const auto& [guasto, motivo] : {std::pair<std::string, std::string>{"Centro\tC\tx\t1\t2\r\n", "Riga 1 incompleta o non numerica"},
                                       {"", "Nessuna riga"}, {lungo, "Più di 1000 righe"}}) {
    EXPECT_EQ(LeggiFFF(guasto, righe), motivo);
    EXPECT_EQ(righe.size(), 4u) << motivo;
  }
}

TEST(FuoriCentro, ComandoTabelleMediaInserimentoEFile) {
  Banco b;
  ApriLavoroVuoto(b);
  for (const RigaFuoriCentro& r : kEccentrico) MettiPunto(b.s, r.Nome, r.Est, r.Nord, 0);
  b.Pronto(1701000, 5002000, 2000);
  b.Script("TAG FUORI_CENTRO\nANSWER 60.9566999988\nCLICK left @C\nANSWER 168.2146013033\nCLICK left @O1\n"
           "ANSWER 55.1060743895\nCLICK left @O2\nANSWER 310.9660269038\nCLICK left @O3\n");
  const Dialogo* d = TrovaDialogo(b.s, "FormFuoricentro");
  ASSERT_TRUE(d);
  EXPECT_EQ(d->Valore("Tabella1"),
            "\tNome\tNord\tEst\tDirezione\nCentro\tC\t5002000.000\t1701000.000\t60.9567\n"
            "Orientamento\tO1\t5002410.300\t1701350.800\t168.2146\nOrientamento\tO2\t5002205.700\t1700620.450\t55.1061\n"
            "Orientamento\tO3\t5001480.250\t1701105.000\t310.9660");
  // No eccentricity: said, nothing computed.
  b.Script("PRESS Calcola\n");
  EXPECT_TRUE(Contiene(b.ui.UltimoMessaggio, "Eccentricità non ammissibile!"));
  b.Script("FIELD Eccentricita 2,35\nFIELD Stazione 200\nPRESS Calcola\n");
  const std::string t2 = TrovaDialogo(b.s, "FormFuoricentro")->Valore("Tabella2");
  EXPECT_TRUE(Contiene(t2, "\nO2\t200\t5001998.694\t1701001.954\t276.5433\t431.707\t331.6176\t"));
  EXPECT_TRUE(Contiene(t2, "\nMedie\t200\t5001998.694\t1701001.954\t276.5433"));
  b.Script("PRESS Relazione\n");
  const std::string relazione = TrovaDialogo(b.s, "FormFuoricentro")->Valore("Relazione");
  EXPECT_EQ(relazione.substr(0, relazione.find("Dalla")),
            "          RILEVAMENTO  ESEGUITO  DAL SOTTOSCRITTO A MEZZO DI TEODOLITE A GRADUAZIONE CENTESIMALE DESTRORSA "
            "E GEODIMETRO\n          MEDIANTE CALCOLO DELLA CORREZIONE DI ORIENTAMENTO E COORDINATE DELLA STAZIONE 200 "
            "FUORI CENTRO. ORIGINE C\n");
  EXPECT_TRUE(Contiene(relazione, "\nC           5002000.000  1701000.000     60.9567   2.350\n"));
  EXPECT_TRUE(Contiene(relazione, "VALORI MEDI:    276.5433 5001998.694  1701001.954\n"));
  EXPECT_TRUE(Contiene(relazione,
                       "\nPUNTO O2    5002205.700  1700620.450     55.1061          431.707  331.6176    "
                       "5.8506  137.5000  276.5433 5001998.694  1701001.954\n"));
  b.Script("PRESS Inserisci\n");
  ASSERT_GE(IlPiuVicinoPerNome(b.s, "200"), 0);
  EXPECT_NEAR(b.s.PuntoX[static_cast<size_t>(IlPiuVicinoPerNome(b.s, "200"))], 1701001.9540, kDecimoDiMm);
  // Each station and the mean as fuoricentro.py gives S, to the fifth decimal.
  b.Script("PRESS Esporta\n");
  const std::string s200 = "200|5001998.69441|1701001.95395|0.0000\r\n";
  EXPECT_EQ(LeggiByte(b.s.CartellaProgramma + "/temp/MemopuntiSnap.CSV"), s200 + s200 + s200 + s200);

  // Written, emptied, read back; then a file cut short leaves the table as it stands.
  b.Script("PRESS Scrivi\nPRESS Svuota\nPRESS Leggi\n");
  EXPECT_EQ(TrovaDialogo(b.s, "FormFuoricentro")->Valore("Tabella1").substr(0, 60),
            d->Valore("Tabella1").substr(0, 60));
  EXPECT_EQ(b.s.Calcoli.FuoriCentro.size(), 4u);
  const std::string fff = b.s.NomeOriginale + ".FFF";
  const std::string intero = *LeggiByte(fff);
  ScriviByte(fff, intero.substr(0, intero.size() / 2));
  b.Script("PRESS Leggi\n");
  EXPECT_EQ(std::make_tuple(b.ui.UltimoMessaggio, b.s.Calcoli.FuoriCentro.size(), DialogoAperto(b.s, "FormFuoricentro")),
            std::make_tuple("File ROSSI.FFF non valido: Riga 3 incompleta o non numerica!", 4u, true));
}

}  // namespace
}  // namespace varena
