// The coordinate file readers on files written from the formats' own descriptions: GSI
// words (index, unit digit, sign, 8 or 16 digits), RIL tags, SHO records, clouds and text
// tables; damaged lines named, and nothing of a file that did not come in left behind.
#include <gtest/gtest.h>

#include <array>

#include "core/Avvio.h"
#include "core/ImpostazioniUtente.h"
#include "exchange/ImportaPunti.h"
#include "exchange/PuntiFile.h"
#include "support/Supporto.h"

namespace varena {
namespace {

struct Letto {
  std::string Nome, Descrizione, Font;
  double X, Y, Z;
  bool operator==(const Letto&) const = default;
};

std::ostream& operator<<(std::ostream& o, const Letto& p) {
  return o << p.Nome << "|" << p.Descrizione << "|" << p.Font << "|" << p.X << "|" << p.Y << "|" << p.Z;
}

struct Raccolta : DestinoPunti {
  std::vector<Letto> Punti;
  std::vector<std::string> Libretto;
  void Punto(std::string_view n, std::string_view d, double x, double y, double z, std::string_view f) override {
    Punti.push_back({std::string(n), std::string(d), std::string(f), x, y, z});
  }
  void RigaLibretto(std::string r) override { Libretto.push_back(r); }
  std::vector<std::array<double, 6>> Linee;
  void Linea(double x1, double y1, double z1, double x2, double y2, double z2, std::string_view) override {
    Linee.push_back({x1, y1, z1, x2, y2, z2});
  }
};

TEST(LeggiPuntiGsi, ParoleDaOttoESedici) {
  // Word: index, four characters of information whose last is the unit, the sign, data.
  // Unit 0: the last digit a millimetre; 6 a tenth of one; 8 a hundredth; 1 a thousandth
  // of a foot (0.3048 m).
  const std::string gsi =
      "*110001+000000000000PT12 81..10+0000000001234567 82..10-0000000000765432 83..10+0000000000012345 \r\n"
      "110002+00000017 81..16+12345678 82..18+12345678 \r\n"
      "110003+00000021 21.324+12345678 22.324+09876543 31..00+00012345 \r\n"
      "sporcizia\r\n"
      "110004+0000000A 81..11+00010000 82..10-00000001 83..10+00000000 \r\n";
  Raccolta r;
  const EsitoLettura e = LeggiPuntiGsi(gsi, r);
  ASSERT_EQ(r.Punti.size(), 3u);
  EXPECT_EQ(r.Punti[0], (Letto{"PT12", "", "monotxt", 1234.567, -765.432, 12.345}));
  // No word 83: the height stays 0.
  EXPECT_EQ(r.Punti[1], (Letto{"17", "", "monotxt", 1234.5678, 123.45678, 0}));
  EXPECT_EQ(r.Punti[2], (Letto{"A", "", "monotxt", 3.048, -0.001, 0}));
  EXPECT_EQ(e.Punti, 3);
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{4}));
  EXPECT_EQ(DescriviRigheDanneggiate(e), "Riga non letta: 4");
}

TEST(LeggiPuntiRil, RecordApertiDaCinque) {
  const std::string ril =
      "2=ST1\r\n3=1.50\r\n5=100\r\n4=spigolo\r\n7=123.4560\r\n8=99.8760\r\n9=45.678\r\n6=1.60\r\n"
      "37=5000123.456\r\n38=1500987.654\r\n39=101.25\r\n50=JOB\r\nriga rotta\r\n5=101\r\n37=1.0\r\n38=2.0\r\n";
  Raccolta r;
  const EsitoLettura e = LeggiPuntiRil(ril, r);
  ASSERT_EQ(r.Punti.size(), 2u);
  // 37 is North, 38 East.
  EXPECT_EQ(r.Punti[0], (Letto{"100", "spigolo", "Arial", 1500987.654, 5000123.456, 101.25}));
  EXPECT_EQ(r.Punti[1], (Letto{"101", "", "Arial", 2, 1, 0}));
  EXPECT_EQ(r.Libretto, (std::vector<std::string>{"1|ST1|1.50|", "2|100|123.4560|99.8760|45.678|1.60|"}));
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{13}));

  Raccolta vuota;
  EXPECT_EQ(LeggiPuntiRil("4=nessun punto\r\n37=1\r\n38=2\r\n", vuota).Punti, 0);
  EXPECT_TRUE(vuota.Punti.empty());
}

TEST(LeggiPuntiSho, DueFormeFinoAEnd) {
  const std::string sho =
      "**** RILIEVO\r\nPT/10 100.5 200.25 3.5 muro di cinta\r\nPT/11/recinzione 1 2 3\r\nPT/12 1 2\r\n"
      "End\r\nPT/13 1 2 3\r\n";
  Raccolta r;
  const EsitoLettura e = LeggiPuntiSho(sho, r);
  ASSERT_EQ(r.Punti.size(), 2u);
  EXPECT_EQ(r.Punti[0], (Letto{"10", "muro di cinta", "monotxt", 100.5, 200.25, 3.5}));
  EXPECT_EQ(r.Punti[1], (Letto{"11", "recinzione", "txt", 1, 2, 3}));
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{4}));
}

TEST(LeggiPuntiAsc, StazioniMisureECodici) {
  // East, North, height after the readings; the code names the points measured after it.
  const std::string asc =
      "TPS,TS06,REPORT\r\nCOD,SPIGOLO\r\nSTN,100,1.55,1000.000,2000.000,50.000\r\nORT,101,0,100,25,1.6\r\n"
      "102,123.45678,99.8765,45.6789,1.6,1010.123,2010.456,51.789\r\nrotta,x,y\r\nCOD,\r\n103,1,2,3\r\n";
  Raccolta r;
  const EsitoLettura e = LeggiPuntiAsc(asc, r);
  ASSERT_EQ(r.Punti.size(), 2u);
  EXPECT_EQ(r.Punti[0], (Letto{"100", "SPIGOLO", "", 1000, 2000, 50}));
  EXPECT_EQ(r.Punti[1], (Letto{"102", "SPIGOLO", "", 1010.123, 2010.456, 51.789}));
  EXPECT_EQ(r.Libretto, (std::vector<std::string>{"0|24012018|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|",
                                                  "9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|",
                                                  "1|100|1.550|SPIGOLO|", "2|101|0.0000|100.0000|25.000|1.600|SPIGOLO|",
                                                  "2|102|123.4568|99.8765|45.679|1.600|SPIGOLO|",
                                                  "2|103|1.0000|2.0000|3.000|0.000|"}));
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{6}));
  Raccolta altro;
  EXPECT_EQ(LeggiPuntiAsc("STN,1,1.5,1,2,3\r\n", altro).RigheDanneggiate, (std::vector<int64_t>{1}));
  EXPECT_TRUE(altro.Punti.empty() && altro.Libretto.empty());
}

TEST(LeggiLineeDxf, SoloLeLineeFinoAEof) {
  const std::string dxf =
      "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\nA\n10\n1.5\n20\n2.5\n30\n0\n11\n3\n21\n4\n31\n1\n"
      "0\nCIRCLE\n10\n9\n20\n9\n40\n1\n0\nLINEA\n10\n5\n20\n6\n11\n7\n21\n8\nxx\nxx\n0\nEOF\n0\nLINE\n10\n1\n";
  Raccolta r;
  const EsitoLettura e = LeggiLineeDxf(dxf, r);
  EXPECT_EQ(r.Linee, (std::vector<std::array<double, 6>>{{1.5, 2.5, 0, 3, 4, 1}, {5, 6, 0, 7, 8, 0}}));
  EXPECT_EQ(std::make_tuple(e.Altre, e.RigheDanneggiate), std::make_tuple(int64_t{2}, std::vector<int64_t>{39, 40}));
}

TEST(LeggiPuntiVR4, ListaDelLavoroVecchio) {
  // As the list statements of the job write it: texts quoted in the code page, numbers plain.
  Raccolta r;
  const EsitoLettura e = LeggiPuntiVR4(
      "1001\r\n\"0\",\"0\",0,0,0\r\n\"100\",\"stazione\",1500.25,5000.5,12.125\r\n\"rotto\"\r\n"
      "\"P\xe8\",\"\",-1,2,3\r\n",
      r);
  ASSERT_EQ(r.Punti.size(), 2u);
  EXPECT_EQ(r.Punti[0], (Letto{"100", "stazione", "", 1500.25, 5000.5, 12.125}));
  EXPECT_EQ(r.Punti[1], (Letto{"P\xc3\xa8", "", "", -1, 2, 3}));
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{4}));
  Raccolta altro;
  EXPECT_EQ(LeggiPuntiVR4("\"non una lista\"\r\n\"a\",\"b\",1,2,3\r\n", altro).RigheDanneggiate,
            (std::vector<int64_t>{1}));
  EXPECT_TRUE(altro.Punti.empty());
}

TEST(LeggiNuvola, BlankSingoliERigheRotte) {
  Raccolta r;
  const EsitoLettura e = LeggiNuvola("1.5 2.5 3.5\n1  2 3\nX Y Z\n4 5\n\x01\x02\x03\n-7 8 9.25\n", r);
  ASSERT_EQ(r.Punti.size(), 3u);
  EXPECT_EQ(r.Punti[0], (Letto{"", "", "monotxt", 1.5, 2.5, 3.5}));
  // Two blanks make an empty second field: Y reads 0, and Z is the third field.
  EXPECT_EQ(r.Punti[1], (Letto{"", "", "monotxt", 1, 0, 2}));
  EXPECT_EQ(r.Punti[2], (Letto{"", "", "monotxt", -7, 8, 9.25}));
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{3, 4, 5}));
  EXPECT_EQ(DescriviRigheDanneggiate(e), "Righe non lette: 3, 4, 5");
  // Many: counted, the first ten named.
  std::string rotte;
  for (int k = 0; k < 12; ++k) rotte += "rotta\n";
  EXPECT_EQ(DescriviRigheDanneggiate(LeggiNuvola(rotte, r)), "Righe non lette: 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 e altre 2");
}

TEST(LeggiPuntiTesto, SeparatoriColonneEPrefisso) {
  OpzioniTesto o;
  o.Colonne = "NYXZD";
  o.Prefisso = "PF";
  Raccolta r;
  const EsitoLettura e = LeggiPuntiTesto(
      "Nome;Nord;Est;Quota;Descrizione\r\n1;5000.5;1500.25;10;muro\r\nA2\t5000,5\t1500,25\t9999\tfosso\r\n"
      "B3   7  8 9\r\n\"C4\",\"1\",\"2\",\"3\",\"casa\"\r\nrotta,x,y\r\n",
      o, r);
  ASSERT_EQ(r.Punti.size(), 4u);
  EXPECT_EQ(r.Punti[0], (Letto{"PF1", "muro", "", 1500.25, 5000.5, 10}));
  // Tabs with decimal commas; 9999 is a point of no height.
  EXPECT_EQ(r.Punti[1], (Letto{"A2", "<P!>fosso", "", 1500.25, 5000.5, 0}));
  EXPECT_EQ(r.Punti[2], (Letto{"B3", "", "", 8, 7, 9}));
  EXPECT_EQ(r.Punti[3], (Letto{"C4", "casa", "", 2, 1, 3}));
  EXPECT_EQ(e.RigheDanneggiate, (std::vector<int64_t>{6}));
}

class ImportaPuntiProva : public ::testing::Test, protected prova::SessioneProva {
 protected:
  prova::CartellaTemporanea& dir = cartella;
  void SetUp() override { s.SolaLettura = true; }  // no PIANI.INI written beside the tests
};

TEST_F(ImportaPuntiProva, RigaDanneggiataInMezzo) {
  prova::ScriviFileProva(dir / "a.ril", "5=1\r\n38=10\r\n37=20\r\n\x7f\x01garbage\r\n5=2\r\n38=30\r\n37=40\r\n");
  ASSERT_TRUE(ImportaPunti(s, FormatoPunti::Ril, dir / "a.ril", {}));
  ASSERT_EQ(s.ContaEntita[SlotPunti], 2);
  EXPECT_EQ(std::tie(s.PuntoNome[1], s.PuntoX[1], s.PuntoPiano[0], s.PuntoFont[0]), std::make_tuple("2", 30.0, "RIL", "Arial"));
  ASSERT_EQ(ui.Messaggi.size(), 1u);
  EXPECT_EQ(std::tie(ui.Messaggi[0].Testo, ui.Messaggi[0].Titolo),
            std::make_tuple("Riga non letta: 4\n" + (dir / "a.ril"), "CaricaPuntiRil"));
}

TEST_F(ImportaPuntiProva, VuotoBinarioAssenteInterrotto) {
  prova::ScriviFileProva(dir / "v.xyz", "");
  EXPECT_FALSE(ImportaPunti(s, FormatoPunti::Nuvola, dir / "v.xyz", {}));
  EXPECT_EQ(ui.Messaggi.back().Testo, "Nessun punto letto:\n" + (dir / "v.xyz"));
  prova::ScriviFileProva(dir / "b.gsi", std::string("\x00\x01\x02\n\xff\xfe", 6));
  EXPECT_FALSE(ImportaPunti(s, FormatoPunti::Gsi, dir / "b.gsi", {}));
  EXPECT_EQ(ui.Messaggi.back().Testo, "Nessun punto letto:\n" + (dir / "b.gsi") + "\nRighe non lette: 1, 2");
  EXPECT_FALSE(ImportaPunti(s, FormatoPunti::Sho, dir / "no.sho", {}));
  EXPECT_EQ(ui.Messaggi.back().Testo, "File non trovato:\n" + (dir / "no.sho"));
  EXPECT_EQ(s.ContaEntita[SlotPunti], 0);

  // Stopped at the first report of progress: the lines read before go again.
  std::string nuvola;
  for (int k = 0; k < 70000; ++k) nuvola += "1 2 3\n";
  prova::ScriviFileProva(dir / "n.xyz", nuvola);
  EsitoLettura e;
  EXPECT_FALSE(ImportaPunti(s, FormatoPunti::Nuvola, dir / "n.xyz", {}, &e, [](int64_t, int64_t) { return false; }));
  EXPECT_TRUE(e.Interrotto);
  EXPECT_EQ(s.ContaEntita[SlotPunti], 0);

  // A huge file is read in pieces of 16 MiB, the first half of the bar, and lines that long
  // report by their bytes: either can be stopped.
  const std::string lunga(size_t{17} << 20, '1');
  prova::ScriviFileProva(dir / "g.xyz", lunga + " 2 3\n");
  std::vector<std::pair<int64_t, int64_t>> avvisi;
  auto ferma = [&](int64_t fatto, int64_t totale) { return avvisi.emplace_back(fatto, totale), false; };
  EXPECT_FALSE(ImportaPunti(s, FormatoPunti::Nuvola, dir / "g.xyz", {}, &e, ferma));
  const auto totale = static_cast<int64_t>(lunga.size() + 5);
  EXPECT_EQ(avvisi, (std::vector<std::pair<int64_t, int64_t>>{{int64_t{8} << 20, totale}}));
  EXPECT_TRUE(e.Interrotto);
  Raccolta r;
  avvisi.clear();
  EXPECT_TRUE(LeggiNuvola(lunga + " 2 3\n" + lunga + " 2 3\n", r, ferma).Interrotto);
  EXPECT_EQ(avvisi, (std::vector<std::pair<int64_t, int64_t>>{{totale, 2 * totale}}));
}

TEST_F(ImportaPuntiProva, AscInUnLibrettoGiaAperto) {
  // A station of no coordinates: a row of the book and no point, and the import stands.
  s.LibrettoMisure = {"0|01012020|x|"};
  prova::ScriviFileProva(dir / "a.asc", "TPS\r\nSTN,1,1.5\r\n");
  ASSERT_TRUE(ImportaPunti(s, FormatoPunti::Asc, dir / "a.asc", {}));
  EXPECT_EQ(std::make_tuple(s.LibrettoMisure, s.ContaEntita[SlotPunti]),
            std::make_tuple(std::vector<std::string>{"0|01012020|x|", "1|1|1.500|"}, 0));
}

TEST_F(ImportaPuntiProva, TestoConLeColonneDellUtente) {
  // Kept by hand: list 3 holds a letter that is no column, list 5 an order; 5 picked last.
  prova::ScriviFileProva(PercorsoImpostazioniUtente(s), "[CaricaTXT]\r\nDAT3=NQXYZ\r\nDAT5= x y n\r\nCARICA_TIPO_FILE=5\r\n");
  prova::ScriviFileProva(dir / "p.txt", "x 7 1.5 2.5 muro\r\n");
  ui.RispondiFile(dir / "p.txt");
  CaricaPuntiCXF(s);
  const Dialogo* d = TrovaDialogo(s, "CaricaTXT");
  ASSERT_TRUE(d);
  EXPECT_EQ(std::make_tuple(d->Valore("Colonne"), d->Campo("Colonne")->Scelte[2], d->Campo("Colonne")->Scelte[4]),
            std::make_tuple("DAT5 XYN", "DAT3 NDXYZ", "DAT5 XYN"));
  ScriviCampo(s, "CaricaTXT", "Colonne", "DAT4 NXX");
  PremiBottone(s, "CaricaTXT", "Importa");
  EXPECT_EQ(std::make_tuple(ui.Messaggi.back().Testo, s.ContaEntita[SlotPunti]), std::make_tuple("Colonne non valide: DAT4 NXX", 0));
  // List 4 as the user changed it reads the file, and is kept and picked the next time.
  ScriviCampo(s, "CaricaTXT", "Colonne", "DAT4 -nyxd"), ScriviCampo(s, "CaricaTXT", "Prefisso", "S");
  PremiBottone(s, "CaricaTXT", "Importa");
  ASSERT_EQ(s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(std::make_tuple(s.PuntoNome[0], s.PuntoX[0], s.PuntoY[0], s.PuntoDescrizione[0], ListaColonne(s, 4), UltimaListaColonne(s)),
            std::make_tuple("S7", 2.5, 1.5, "muro", "-NYXD", 4));
}

TEST_F(ImportaPuntiProva, ColoriVR4ScrittiAMano) {
  prova::ScriviFileProva(s.CartellaLavoro + "ColoriVR4.ini",
                         "[COLORI]\r\n nome = 4 ; verde\r\nDescrizione=300\r\nSIMBOLO=x\r\nQuota=7\r\nALTRO=2\r\n");
  prova::ScriviFileProva(dir / "v.L", "1001\r\n\"0\",\"0\",0,0,0\r\n\"100\",\"\",1,2,3\r\n");
  ASSERT_TRUE(ImportaPunti(s, FormatoPunti::Vr4, dir / "v.L", {}));
  // 300 is no colour and "x" no number: those parts keep the class's.
  const StilePunto& c = s.ConfiguraPunti.Classi[ClassePunti];
  EXPECT_EQ(std::tie(s.PuntoColoreNome[0], s.PuntoColoreDescrizione[0], s.PuntoColoreSimbolo[0], s.PuntoColoreQuota[0]),
            std::make_tuple(4, c.ColDescrizione, c.ColSimbolo, 7));
}

TEST_F(ImportaPuntiProva, TabellaDiUnCad) {
  // The first line names the columns; the first column of each row names the kind. Angles
  // in degrees counter-clockwise from East.
  prova::ScriviFileProva(dir / "cad.csv",
                         "Conteggio;Nome;Layer;Posizione X;Posizione Y;Posizione Z;Inizio X;Inizio Y;Inizio Z;Fine X;"
                         "Fine Y;Fine Z;Centro X;Centro Y;Centro Z;Raggio;Valore;Angolo iniziale;Angolo totale\r\n"
                         "Punto;PF1;CONFINI;10.5;20.25;3;;;;;;;;;;;;;\r\n"
                         "Linea;;STRADE;;;;1;2;0;3;4;0;;;;;;;\r\n"
                         "Linea;;LINEE_NT;;;;1;2;0;3;4;0;;;;;;;\r\nLinea;;LINEE_SCHEMA;;;;1;2;0;3;4;0;;;;;;;\r\n"
                         "Punto;;PUNTI_S;30;40;0;;;;;;;;;;;;;\r\n"
                         "Cerchio;;;;;;;;;;;;5;6;0;1.5;;;\r\n"
                         "Arco;;ARCHI;;;;;;;;;;7;8;0;2;;45;90\r\n"
                         "Testo;;SCRITTE;1;2;0;;;;;;;;;;;Casa Rossi;;\r\n"
                         "Testo;;PUNTI_D;10.5;20.25;0;;;;;;;;;;;spigolo;;\r\n");
  ASSERT_TRUE(ImportaPunti(s, FormatoPunti::Csv, dir / "cad.csv", {})) << ui.Messaggi[0].Testo;
  ASSERT_EQ(std::tie(s.ContaEntita[SlotPunti], s.ContaEntita[SlotLinee], s.ContaEntita[SlotCerchi], s.ContaEntita[SlotArchi],
                     s.ContaEntita[SlotTesti]),
            std::make_tuple(2, 3, 1, 1, 1));
  EXPECT_EQ(s.PuntoNome[1], "PuntiSenzaNome2");  // a symbol of no name, by its progressive number
  // The text on the layer of descriptions is the description of the point at its place.
  EXPECT_EQ(std::make_tuple(s.PuntoNome[0], s.PuntoPiano[0], s.PuntoX[0], s.PuntoY[0], s.PuntoZ[0], s.PuntoDescrizione[0]),
            std::make_tuple(std::string("PF1"), std::string("CONFINI"), 10.5, 20.25, 3.0, std::string("spigolo")));
  EXPECT_EQ(std::make_tuple(s.LineaX1[0], s.LineaY1[0], s.LineaX2[0], s.LineaY2[0], s.LineaPiano[0]),
            std::make_tuple(1.0, 2.0, 3.0, 4.0, std::string("STRADE")));
  // The layers of the book's structures: a contour's codes N, T; the scheme's pen and type.
  EXPECT_EQ(std::make_tuple(s.LineaColore[0], s.LineaColore[1], s.LineaTratteggio[1], s.LineaColore[2], s.LineaTratteggio[2]),
            std::make_tuple(s.Imp.Colore_Default, 250, int16_t{2}, 12, int16_t{2}));
  EXPECT_EQ(std::make_tuple(s.CerchioX[0], s.CerchioY[0], s.CerchioRaggio[0]), std::make_tuple(5.0, 6.0, 1.5));
  // From 45 to 135 degrees: clockwise from North-West (350 gon) over a quarter turn.
  EXPECT_EQ(std::make_tuple(s.ArcoX[0], s.ArcoY[0], s.ArcoRaggio[0], s.ArcoInizio[0], s.ArcoFine[0], s.ArcoPiano[0]),
            std::make_tuple(7.0, 8.0, 2.0, 350.0, 100.0, std::string("ARCHI")));
  EXPECT_EQ(std::make_tuple(s.TestoX[0], s.TestoY[0], s.TestoTesto[0], s.TestoPiano[0]),
            std::make_tuple(1.0, 2.0, std::string("Casa Rossi"), std::string("SCRITTE")));
}

TEST(ImportaPuntiAvvio, GsiECsvDallaRigaDiComando) {
  const struct {
    const char *file, *byte, *tipo;
    bool virgolette;
    Letto atteso;
  } casi[] = {  // a point of no font takes the job's, Arial
              {"rilievo.gsi", "110001+00000007 81..10+00001000 82..10+00002000 \r\n", "GSI", true, {"7", "", "monotxt", 1, 2, 0}},
              {"punti.csv", "5,10.5,20.25,3,muro\r\n", "CSV", false, {"5", "muro", "Arial", 20.25, 10.5, 3}}};
  for (const auto& c : casi) {
    SCOPED_TRACE(c.file);
    prova::SessioneProva p;
    InizializzaDefault(p.s);
    prova::ScriviFileProva(p.cartella / c.file, c.byte);
    ApriLavoroIniziale(p.s, c.virgolette ? "\"" + (p.cartella / c.file) + "\"" : p.cartella / c.file);
    EXPECT_TRUE(p.ui.Messaggi.empty()) << p.ui.Messaggi[0].Testo;
    EXPECT_EQ(p.s.TipoFile, c.tipo);
    ASSERT_EQ(p.s.ContaEntita[SlotPunti], 1);
    EXPECT_EQ((Letto{p.s.PuntoNome[0], p.s.PuntoDescrizione[0], p.s.PuntoFont[0], p.s.PuntoX[0], p.s.PuntoY[0], p.s.PuntoZ[0]}),
              c.atteso);
  }
}

}  // namespace
}  // namespace varena
