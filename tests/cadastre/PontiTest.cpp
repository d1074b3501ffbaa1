// The bridges to Pregeo and the sibling tools: the files written, worked out by hand from the
// file layouts, and each hand-off run end to end against a stand-in tool; Pregeo's municipalities.
#include <gtest/gtest.h>

#include <sys/stat.h>

#include <array>

#include "cadastre/Autoallestito.h"
#include "cadastre/ContornoSette.h"
#include "cadastre/ElaboratoPregeo.h"
#include "cadastre/Libretto.h"
#include "cadastre/LibrettoDaDisegno.h"
#include "cadastre/Pregeo.h"
#include "Terminale.h"
#include "commands/RoutineModifica.h"
#include "commands/Attese.h"
#include "core/Dialoghi.h"
#include "core/ProcessiSistema.h"
#include "core/Testo.h"
#include "store/Undo.h"
#include "support/ProvaCli.h"
#include "support/ProvaComandi.h"

namespace varena {
namespace {

using prova::Banco;

// Points (one deleted, one with a comma and a prism, one of a long name, one with a blank),
// a frozen line, and three contours: one of no kind, one with a code, one of no label.
void Disegno(Sessione& s) {
  prova::MettiPunto(s, "101", 10.5, 20.25, 3);
  s.PuntoDescrizione[0] = "muro, est";
  s.PuntoHPrisma[0] = 1.6f;
  s.PuntoIdent[prova::MettiPunto(s, "102", 7, 7)] = -1;
  prova::MettiPunto(s, "5 B", 1, 2);
  prova::MettiPunto(s, "1234567890AB", -5.5, 0.0004);
  prova::MettiLinea(s, 0, 0, 1.5, 2);
  s.LineaCongela[prova::MettiLinea(s, 5, 5, 6, 6)] = 1;
  subAggiungiSetteSingolo(s, "|101|5 B|", "", "9|8|7||", 1, 1);
  subAggiungiSetteSingolo(s, "|101|1234567890AB|NC|", "CONTORNO", "12|345|6||", 1, 1);
  subAggiungiSetteSingolo(s, "|5 B|101|", "POLIGONALE", "", 1, 1);
}

// The stand-in of the field-book manager: "%1" is "JOB.LXC|LIBRETTO_DA_DISEGNO".
std::string Sonda(Banco& b, const std::string& corpo) {
  const std::string f = b.cartella / "sonda.sh";
  prova::ScriviFileProva(f, "#!/bin/sh\nlxc=\"${1%%|*}\"\nlibro=\"${lxc%.LXC}.TXT\"\n" + corpo + "\n");
  chmod(f.c_str(), 0755);
  return f + " %1";
}

std::string Ultimo(const InterfacciaRegistrata& ui) { return ui.Messaggi.empty() ? "" : ui.Messaggi.back().Testo; }

// The proposal of the map hub kept with the fuzz seeds, without the seed's leading byte.
std::string Proposta() {
  return prova::LeggiFileProva(VARENA_SORGENTI "/tests/fuzz/corpus/pregeo/proposta.dat").substr(1);
}

// An empty job open, its boxes recorded in `reg`, the tools run for real.
struct BancoPonti : Banco {
  InterfacciaRegistrata reg;
  ProcessiSistema sistema;
  BancoPonti() {
    prova::ApriLavoroVuoto(*this);
    s.Ui = &reg;
    s.Proc = &sistema;
  }
};

// A wait the user stopped.
struct Interrotto : Processi {
  std::optional<int> Esegui(const std::string&, const std::vector<std::string>&, const std::string&) override {
    return kAttesaInterrotta;
  }
};

TEST(Ponti, LxcDelDisegno) {
  Banco b;
  Disegno(b.s);
  EXPECT_EQ(RigheLXC(b.s), (std::vector<std::string>{"P,101,10.5,20.25,3,muro. est,1.6", "P,5 B,1,2,0,,0",
                                                     "P,1234567890AB,-5.5,0.0004,0,,0", "L,0,0,0,1.5,2,0",
                                                     "7,|101|1234567890AB|NC|,CONTORNO,12_345_6",
                                                     "7,|5 B|101|,POLIGONALE,__"}));
}

TEST(Ponti, AutoallestitoConImmagine) {
  Banco b;
  Disegno(b.s);
  prova::ScriviFileProva(b.cartella / "foto.png", "PNG!");
  prova::MettiImmagine(b.s, 1000.5, 2000.25, 100, 50, 0.5);
  b.s.BitmapNomeFile[0] = b.cartella / "foto.png";
  b.s.Imp.Cartella_Estratti = b.cartella / "estratti";
  EXPECT_EQ(ScriviAutoallestito(b.s, "Prova.EMP"), b.cartella / "estratti/Prova.emp");
  EXPECT_EQ(prova::LeggiFileProva(b.cartella / "estratti/Prova.emp"),
            "0|AUTOALLESTITO|0|0|0|8,345,|0|0|0|0|\r\n6|INQUADRAMENTO|2000.25|1000.5|0.50000000|0|0|0|\r\n"
            "8|101%|20.250|10.500|\r\n8|5B%|2.000|1.000|\r\n8|4567890AB%|0.000|-5.500|\r\n"
            "7|2|101%|5 B%|NC|\r\n7|2|101%|1234567890AB%|NC|\r\n7|2|5 B%|101%|NC|\r\n");
  EXPECT_EQ(prova::LeggiFileProva(b.cartella / "estratti/Prova.PNG"), "PNG!");
  Banco vuoto;
  EXPECT_EQ(RigheAutoallestito(vuoto.s)[0], "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");
}

TEST(Ponti, PropostaDaDat) {
  std::vector<std::string> letto;
  for (const LineaProposta& l : LeggiProposta(Proposta()))
    letto.push_back(l.Piano + " " + FormaSemplice(l.X1) + "," + FormaSemplice(l.Y1) + " " + FormaSemplice(l.X2) +
                    "," + FormaSemplice(l.Y2) + " " + std::to_string(l.Penna) + "/" + std::to_string(l.Tratteggio));
  EXPECT_EQ(letto, (std::vector<std::string>{"ESTRATTO 200,100 200,110 250/1", "ESTRATTO 200,110 210,110 250/1",
                                             "ESTRATTO 210,110 200,100 250/1", "PROPOSTA 200,100 210,110 1/2"}));
  EXPECT_TRUE(LeggiProposta("8|1|0|0|\r\n7|1|1|2|\r\n").empty());  // no extract heading: nothing
}

TEST(Ponti, ElaborazioneInTabella) {
  Banco b;
  EXPECT_EQ(TabellaElaborazione(b.s, "  Punto   101  +/-   0.01 \r\n\r\nSQM    0.02"), 2);
  EXPECT_EQ(b.s.TestoTesto[0] + "|" + b.s.TestoTesto[1] + "|" + b.s.TestoPiano[1], "Punto 101 +/- 0.01|SQM 0.02|Tabella");
}

// The rows picked from a computed `.DAT` go to the end of the book as one step; a choice of
// rows that are not there leaves the book as it was.
TEST(Ponti, ElaboratoDatNelLibretto) {
  BancoPonti b;
  InterfacciaRegistrata& ui = b.reg;
  prova::ScriviFileProva(b.cartella / "elab.dat",
                         "0|01012020|1|G693|\r\n6|PUNTI ELABORATI|\r\n6|<EST>F1.EMP|\r\n8|101|5020.25|1000.5|12.3456|\r\n"
                         "8|PF01/0010/G693|100.1234567|-7.5|\r\n8|X|abc|1|\r\n7|3|1|2|3|NC|\r\n"
                         "6|CONFINE A|B VEDI ALLEGATO DEL 12 MARZO 2020|\r\n");
  b.s.LibrettoMisure = {"0|x|"};
  for (const char* righe : {"1,2", "3-1", "2-5", ""}) {  // nothing typed: every row
    ui.RispondiFile(b.cartella / "elab.dat");
    AzioneImportaElaboraDat(b.s);
    ASSERT_TRUE(ScriviCampo(b.s, "FormImportaElaboraDatPregeo", "Righe", righe));
    ASSERT_TRUE(PremiBottone(b.s, "FormImportaElaboraDatPregeo", "Aggiungi"));
    if (*righe == '2') {
      EXPECT_EQ(Ultimo(ui), "Righe non valide: 2-5\nIndicare numeri da 1 a 4, come 1-3,5.");
    }
  }
  const std::string nota = "6|PUNTI ELABORATI|0.00|0.00|0.00|", punto = "8|101|5020.25|1000.5|12.346|";
  EXPECT_EQ(b.s.LibrettoMisure, (std::vector<std::string>{"0|x|", nota, punto, nota, punto,
                                                          "8|PF01/0010/G693|100.123457|-7.5|.000|",
                                                          "6|CONFINE A|B VEDI ALLEGATO DEL 12 MARZO 2020|0.00|0.00|0.00|"}));
  ASSERT_TRUE(VR_UNDO(b.s));  // the four rows go back together
  EXPECT_EQ(b.s.LibrettoMisure.size(), 3u);
}

TEST(Ponti, LibrettoDaDisegnoConLoStrumento) {
  const std::string ok = "awk -F, '{sub(/\\r$/,\"\")} $1==\"P\"{printf \"2|%s|0|0|0|%s|\\r\\n\",$2,$7}' \"$lxc\" > \"$libro\"\n"
                         "printf '6|<EST>F9.EMP|\\r\\n' >> \"$libro\"";
  struct Caso {
    std::string comando, messaggio;
    std::vector<std::string> libro;
  } casi[] = {
      {"sonda", "", {"2|101|0|0|0|1.6|", "2|5 B|0|0|0|0|", "2|1234567890AB|0|0|0|0|"}},
      {"", "Strumento non configurato: SondaIII\nIndicarne il comando in Configura.ini, sezione Strumenti.", {"0|x|"}},
      {"/nessuno/sonda %1", "Strumento non trovato: SondaIII (/nessuno/sonda)", {"0|x|"}},
      {"fallisce", "SondaIII è terminato con errore 3\nIl lavoro resta com'era.", {"0|x|"}},
      {"interrotto", "Attesa interrotta: SondaIII\nIl lavoro resta com'era.", {"0|x|"}},
      {"garbuglio", "", {"xyz|||", "7|||"}},
  };
  for (const Caso& c : casi) {
    BancoPonti b;
    Disegno(b.s);
    Interrotto interrotto;
    if (c.comando == "interrotto") b.s.Proc = &interrotto;
    b.s.Imp.Strumento_SondaIII = c.comando == "sonda"       ? Sonda(b, ok)
                                 : c.comando == "fallisce"  ? Sonda(b, "echo '9|' > \"$libro\"; exit 3")
                                 : c.comando == "garbuglio" ? Sonda(b, "printf 'xyz|||\\r\\n7|||' > \"$libro\"")
                                                            : c.comando;
    b.s.LibrettoMisure = {"0|x|"};
    AzioneLibrettoDaDisegno(b.s);
    EXPECT_EQ(b.s.LibrettoMisure, c.libro) << c.comando;
    EXPECT_EQ(Ultimo(b.reg), c.messaggio) << c.comando;
    if (c.comando == "sonda") {
      EXPECT_EQ(b.s.FileEstratto, "F9.EMP");
    }
  }
}

// Lines on named points, worked out by hand: a 3-4-5 side, a side of 1.234, a side whose end
// is on an unnamed point, one whose end point is frozen but has a shown point 4 mm away, a
// deleted side, and one from a deleted point to a long station name 3 mm from it.
TEST(Ponti, LineePuntiEstremi) {
  BancoPonti b;
  InterfacciaRegistrata& ui = b.reg;
  b.s.Imp.Strumento_SondaIII = Sonda(b, "printf '%s' \"$1\" > \"$(dirname \"$0\")/argomento\"");
  AzioneMisurateDaStazione(b.s);
  EXPECT_EQ(Ultimo(ui), "Non è stata trovata nessuna Stazione nel Disegno!");
  const std::pair<const char*, std::array<double, 2>> punti[] = {
      {"100", {0, 0}},    {"101", {3, 4}},      {"102", {1.234, 0}},      {"", {10, 10}},  {"103", {3, 9}},
      {"104", {3.004, 9}}, {"105", {30, 30}}, {"ABCDEFGHIJKLMNO00", {30.003, 30}}, {"106", {30, 34}},
      {"107", {-0.001, 0}}};  // 1 mm from 100, drawn after it: 100 stands
  for (const auto& [nome, xy] : punti) prova::MettiPunto(b.s, nome, xy[0], xy[1]);
  b.s.PuntoCongelaNome[4] = b.s.PuntoCongelaSimbolo[4] = -1;  // 103
  b.s.PuntoIdent[6] = -1;                                     // 105
  for (const auto& l : {std::array<double, 4>{0, 0, 3, 4}, {1.234, 0, 0, 0}, {0, 0, 10, 10}, {3, 4, 3, 9},
                        {3, 4, 0, 0}, {30, 30, 30, 34}})
    prova::MettiLinea(b.s, l[0], l[1], l[2], l[3]);
  b.s.LineaIdent[4] = -1;
  const EstremiLinee info = LineePuntiEstremi(b.s, 0);
  EXPECT_EQ(info.Righe, (std::vector<std::string>{"            100            101 : 5.0",
                                                  "            102            100 : 1.234",
                                                  "            101            104 : 5.0",
                                                  "CDEFGHIJKLMNO00            106 : 4.0"}));
  EXPECT_EQ(info.Stazioni, (std::vector<std::string>{"100", "ABCDEFGHIJKLMNO00"}));
  EXPECT_EQ(LineePuntiEstremi(b.s, kCodiceMisurate).Righe,
            (std::vector<std::string>{"100 - 101", "102 - 100", "101 - 104", "ABCDEFGHIJKLMNO00 - 106"}));
  // The station picked goes to the manager; "OK" puts the list at the end of the job's text.
  AzioneMisurateDaStazione(b.s);
  ASSERT_TRUE(ScriviCampo(b.s, "LineePuntiEstremi", "Stazione", "ABCDEFGHIJKLMNO00"));
  ASSERT_TRUE(PremiBottone(b.s, "LineePuntiEstremi", "Misurate"));
  EXPECT_EQ(prova::LeggiFileProva(b.cartella / "argomento"), "ABCDEFGHIJKLMNO00||MISURATE_DA1_PF");
  b.s.Testo126 = "nota\r\n";
  ASSERT_TRUE(PremiBottone(b.s, "LineePuntiEstremi", "OK"));
  EXPECT_EQ(b.s.Testo126, "nota\r\n100 - 101\r\n102 - 100\r\n101 - 104\r\nABCDEFGHIJKLMNO00 - 106\r\n");
}

TEST(Ponti, DaPregeoEDat) {
  BancoPonti b;
  InterfacciaRegistrata& ui = b.reg;
  const std::string temp = b.s.CartellaDocumenti + "/ZN_Suite/Temp/";
  const std::string omnia = b.cartella / "omnia.sh";
  prova::ScriviFileProva(omnia, "#!/bin/sh\nmkdir -p '" + temp + "'\nprintf '0|01012020|1|G693|0010|\\r\\n' > '" + temp +
                                    "ESPORTA_LIBRETTO.TXT'\n[ -n \"$1\" ] && printf '101|10,5|20|3|muro|\\r\\n' > '" +
                                    temp + "ESPORTA_PUNTI_ELABORATI.TXT'\nexit 0\n");
  chmod(omnia.c_str(), 0755);
  b.s.Imp.Strumento_ZN_Omnia = omnia + " %1";  // "%1" is empty: the hub writes no points
  ui.Rispondi(Risposta::No);
  AzioneDaPregeo(b.s);
  EXPECT_EQ(Ultimo(ui), "Nessun dato caricato!");
  EXPECT_EQ(b.s.ContaEntita[SlotPunti], 0);
  b.s.Imp.Strumento_ZN_Omnia = omnia + " punti";
  ui.Rispondi(Risposta::No);
  AzioneDaPregeo(b.s);
  ASSERT_EQ(b.s.ContaEntita[SlotPunti], 1);
  EXPECT_EQ(b.s.PuntoNome[0] + " " + FormaSemplice(b.s.PuntoX[0]) + " " + FormaSemplice(b.s.PuntoY[0]), "101 10.5 20");
  EXPECT_EQ(b.s.LibrettoMisure, std::vector<std::string>{"0|01012020|1|G693|0010|"});
  EXPECT_TRUE(prova::Contiene(b.s.NomeOriginale, "LAVORI/NUOVO/NUOVO"));
  // The extract manager names its choice in lower case: the job takes it in upper case.
  b.s.Imp.Strumento_ZN_Estratti = "/bin/sh -c \"mkdir -p '" + temp + "../TEMP'; printf 'f12.png\\r\\n' > '" + temp +
                                  "../TEMP/ESTRATTOASSOCIATO.txt'\"";
  AzioneLanciaEstratto(b.s);
  EXPECT_EQ(b.s.FileEstratto + " " + b.s.FileImmagineEstratto, "F12.EMP F12.PNG");
  // The map hub leaves its proposal; the book manager adds a row to the book it is named.
  const std::string dat = b.cartella / "p.dat";
  prova::ScriviFileProva(dat, Proposta());
  b.s.Imp.Strumento_ZN_SuiteMappa = "cp " + dat + " " + temp + "ESPORTA_PROPOSTA.TXT";
  ui.Rispondi(Risposta::No);
  AzionePropostaDaPregeo(b.s);
  EXPECT_EQ(b.s.ContaEntita[SlotLinee], 4);
  b.s.Imp.Strumento_ZN_SuiteLibretti = "/bin/sh -c \"printf '9|x|\\r\\n' >> $0\"";
  std::vector<std::string> libro = b.s.LibrettoMisure;
  libro.push_back("9|x|");
  AzioneLibrettoMisure(b.s);
  EXPECT_EQ(b.s.LibrettoMisure, libro);
}

TEST(Ponti, RigaDiComando) {
  prova::RadiceCli r;
  const prova::CartellaTemporanea& radice = r.radice;
  prova::ScriviFileProva(radice / "rossi.cfg", prova::CfgNuovo());
  prova::ScriviFileProva(radice / "rossi.lll", prova::RecordPuntoBase("101", 10.5, 20, 3).Byte());
  prova::ScriviFileProva(radice / "p.dat", Proposta());
  const auto dat = prova::Cli({"dat", radice / "rossi", radice / "p.dat"});
  EXPECT_EQ(std::tie(dat.stato, dat.out), std::make_tuple(0, "Linee: 4\n")) << dat.err;
  const auto manca = prova::Cli({"dat", radice / "rossi", radice / "nessuno.dat"});
  EXPECT_EQ(manca.err, "Il file " + radice / "nessuno.dat" + " NON è stato trovato!\n");
  Sessione s;
  std::ostringstream err;
  ASSERT_TRUE(cli::CaricaInLettura(s, radice / "rossi", err));
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.LineaPiano[3]), std::make_tuple(4, "PROPOSTA"));
  EXPECT_EQ(prova::Cli({"lxc", radice / "rossi"}).stato, 0);
  EXPECT_EQ(prova::LeggiFileProva(radice / "rossi.LXC").substr(0, 20), "P,101,10.5,20,3,,0\r\n");
  EXPECT_EQ(prova::Cli({"autoallestito", radice / "rossi", "F1", "--cartella", radice / "e"}).out, radice / "e/F1.emp\n");
  EXPECT_EQ(prova::LeggiFileProva(radice / "e/F1.emp").substr(0, 34), "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n");
}

TEST(Ponti, CalcoloGpsEMonografia) {
  BancoPonti b;
  const std::string copia = b.cartella / "copia";  // what the stand-in tools were handed
  b.s.Imp.Strumento_CalcoloGPS = "cp %1 " + copia;
  b.s.Imp.Strumento_SondaIII = "/bin/sh -c \"echo $0 > " + copia + "\" %1";
  prova::MettiPunti(b.s, {{"101", 10.5, 20.25, 3}, {"A,1", -5.5, 0.0004, 1234.123456789}, {"5 B", 1, 2, 3}});
  b.s.StatoPunto[0] = b.s.StatoPunto[1] = 1;  // only the picked points go
  AzioneCalcoloGPS(b.s);
  EXPECT_EQ(prova::LeggiFileProva(copia), "101,10.500,20.250,3.000,0,0,0\r\nA.1,-5.500,0.0004,1234.123456789,0,0,0\r\n");
  subEditaEntita(b.s, SlotPunti, 2);
  ASSERT_TRUE(PremiBottone(b.s, "formEditaPunto", "MONOGRAFIE"));
  EXPECT_EQ(prova::LeggiFileProva(copia), "5 B |MONOGRAFIE|\n");
}

// Pregeo's table before "comunt.dat"; a line of no name is no row; the file's code page.
TEST(Ponti, ComuniDaProsigle) {
  Banco b;
  b.s.Imp.Cartella_Pregeo = b.s.Imp.Cartella_Archivio_Pregeo = b.cartella / "pregeo";
  std::filesystem::create_directories(b.cartella / "pregeo/exe");
  prova::ScriviFileProva(b.cartella / "pregeo/exe/PROSIGLE", "X999\r\nA001;PADOVA\r\nG693\t CITT\xC0 DI PADOVA \r\n");
  prova::ScriviFileProva(b.cartella / "pregeo/comunt.dat", "G693 ALTRO@BB0001BOLOGNA@B");
  for (const auto& [codice, nome] : {std::pair{"G693", "CITTÀ DI PADOVA"}, {"B0001", "BOLOGNA"}, {"X999", ""}}) {
    b.s.LibrettoMisure = {std::string("0|01012020|1|") + codice + "|0010|1|COGNOME NOME|GEOMETRA|PADOVA|"};
    DatiDaRigaZero(b.s);
    EXPECT_EQ(b.s.RigaZero.NomeComune, nome) << codice;
  }
}

}  // namespace
}  // namespace varena
