// The DXF import: drawings written by ezdxf load as ezdxf reads them; the quirks the import
// keeps; damaged files.
#include <gtest/gtest.h>

#include "core/Testo.h"
#include "exchange/DxfLettura.h"
#include "exchange/DxfTestiInPunto.h"
#include "commands/Comandi.h"
#include "core/Dialoghi.h"
#include "commands/Attese.h"

namespace varena {
namespace {

std::string Dati(const std::string& nome) { return std::string(VARENA_SORGENTI) + "/tests/data/dxf/" + nome; }

// Every kind, every layer.
OpzioniDxfIn Tutto() {
  OpzioniDxfIn o;
  for (int i = DxfPolilinee; i <= DxfArchi; ++i) o.Check[static_cast<size_t>(i)] = true;
  return o;
}

// A drawing written pair by pair: "0|LINE|8|A|..." with LF ends.
std::string Coppie(const std::string& elenco, const char* fine = "\n") {
  std::string r;
  for (const std::string& riga : Dividi(elenco, '|')) r += riga + fine;
  return r;
}

std::string Entita(const std::string& corpo) { return Coppie("0|SECTION|2|ENTITIES|" + corpo + "0|ENDSEC|0|EOF"); }

class DxfIn : public ::testing::Test, protected prova::SessioneProva {
 protected:
  prova::CartellaTemporanea& dir = cartella;
  EsitoDxfIn Leggi(const std::string& byte, const OpzioniDxfIn& o = Tutto()) {
    std::string errore;
    const auto f = RiduciDxf(byte, errore);
    EXPECT_TRUE(f) << errore;
    return f ? CaricaEntitaDxf(s, *f, o) : EsitoDxfIn{};
  }
  // The rows of the job in the form of attesi.txt.
  std::vector<std::vector<std::string>> Righe() const {
    std::vector<std::vector<std::string>> r;
    auto n = [](double v) { return std::to_string(v); };
    for (size_t i = 0; i < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++i)
      r.push_back({"L", n(s.LineaX1[i]), n(s.LineaY1[i]), n(s.LineaZ1[i]), n(s.LineaX2[i]), n(s.LineaY2[i]),
                   n(s.LineaZ2[i]), s.LineaPiano[i]});
    for (size_t i = 0; i < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++i)
      r.push_back({"P", n(s.PuntoX[i]), n(s.PuntoY[i]), n(s.PuntoZ[i]), s.PuntoPiano[i]});
    for (size_t i = 0; i < static_cast<size_t>(s.ContaEntita[SlotTesti]); ++i)
      r.push_back({"T", n(s.TestoX[i]), n(s.TestoY[i]), n(s.TestoAltezza[i]), n(s.TestoRotazione[i]),
                   s.TestoPiano[i], s.TestoTesto[i]});
    for (size_t i = 0; i < static_cast<size_t>(s.ContaEntita[SlotCerchi]); ++i)
      r.push_back({"C", n(s.CerchioX[i]), n(s.CerchioY[i]), n(s.CerchioZ[i]), n(s.CerchioRaggio[i]),
                   s.CerchioPiano[i]});
    for (size_t i = 0; i < static_cast<size_t>(s.ContaEntita[SlotArchi]); ++i)
      r.push_back({"A", n(s.ArcoX[i]), n(s.ArcoY[i]), n(s.ArcoZ[i]), n(s.ArcoRaggio[i]), n(s.ArcoInizio[i]),
                   n(s.ArcoFine[i]), s.ArcoPiano[i]});
    return r;
  }
};

// attesi.txt: for each drawing, the rows ezdxf's reading gives, written by genera.py.
std::map<std::string, std::vector<std::vector<std::string>>> Attesi() {
  std::ifstream f(Dati("attesi.txt"));
  std::map<std::string, std::vector<std::vector<std::string>>> r;
  std::string riga, corrente;
  while (std::getline(f, riga)) {
    if (riga.rfind("# ", 0) == 0) {
      corrente = riga.substr(2);
      continue;
    }
    std::vector<std::string> campi = Dividi(riga, '\t');
    // Numbers in the same print as the job's, so that the rows compare whole.
    const std::map<std::string, size_t> numeri = {{"L", 6}, {"P", 3}, {"T", 4}, {"C", 4}, {"A", 6}};
    for (size_t k = 1; k <= numeri.at(campi.at(0)); ++k) campi[k] = std::to_string(std::stod(campi[k]));
    r[corrente].push_back(campi);
  }
  return r;
}

TEST_F(DxfIn, DisegniDiEzdxfComeEzdxfLiLegge) {
  const auto attesi = Attesi();
  ASSERT_EQ(attesi.size(), 3u);
  for (const auto& [nome, righe] : attesi) {
    SCOPED_TRACE(nome);
    ClearAllTables(s);
    const auto byte = prova::LeggiFileProva(Dati(nome));
    Leggi(byte);
    EXPECT_EQ(Righe(), righe);
  }
}

TEST_F(DxfIn, FileDiLavoroEPiani) {
  // The work file keeps the pairs of the codes read, as they stand, CR LF ended; the layer
  // pass reads it by lines, so the code after a value "8" stands in the list too.
  const std::string dxf = Coppie(
      "999|commento|0|SECTION|2|ENTITIES|0|LINE|5|2F|8|  STRADE |62|3|10|1|20|2|30|0|11|3|21|4|31|0|39|7|"
      "0|TEXT|8|B|1|8|40|1|0|ENDSEC|0|EOF");
  std::string errore;
  const auto f = RiduciDxf(dxf, errore);
  ASSERT_TRUE(f);
  EXPECT_FALSE(f->Troncato);
  EXPECT_EQ(f->Testo,
            "0\r\nLINE\r\n8\r\n  STRADE \r\n10\r\n1\r\n20\r\n2\r\n30\r\n0\r\n11\r\n3\r\n21\r\n4\r\n31\r\n0\r\n"
            "0\r\nTEXT\r\n8\r\nB\r\n1\r\n8\r\n40\r\n1\r\n0\r\nENDSEC\r\n");
  EXPECT_EQ(PianiDxf(*f), (std::vector<std::string>{"40", "B", "STRADE"}));

  ASSERT_TRUE(ImportaDxf(s, (dir / "a.dxf"), Tutto()) == false);  // absent: nothing
  prova::ScriviFileProva(dir / "a.dxf", dxf);
  ASSERT_TRUE(ImportaDxf(s, dir / "a.dxf", Tutto())) << ui.Messaggi.back().Testo;
  EXPECT_EQ(prova::LeggiFileProva(PercorsoFileLavoroDxf(s)), f->Testo);
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.ContaEntita[SlotTesti]), std::make_tuple(1, 1));
  EXPECT_EQ(prova::LeggiFileProva(dir / "programma/PIANI.INI"), "\"STRADE|B|\"\r\n");
}

TEST_F(DxfIn, StranezzeConservate) {
  s.Imp.Colore_Default = 5;
  s.Imp.Tratteggio_Default = 3;
  // A one-vertex polyline draws from the vertex held before it; a vertex's own 70 decides
  // the closing; a layer is cut to 8 characters; a comma ends a number; an entity on a
  // layer left out still leaves its coordinates and layer to the next one; a text height is
  // doubled; group 39 never arrives.
  const std::string dxf = Entita(
      "0|POLYLINE|8|P|70|1|0|VERTEX|10|1|20|1|30|0|0|VERTEX|10|2|20|1|0|VERTEX|10|2|20|2|0|SEQEND|"
      "0|POLYLINE|70|1|0|VERTEX|10|5|20|5|70|0|0|VERTEX|10|6|20|5|0|VERTEX|10|6|20|6|70|0|0|SEQEND|"
      "0|POLYLINE|0|VERTEX|10|9|20|9|0|SEQEND|"
      "0|LINE|8|FUORI|10|100|20|100|30|7|11|101|21|101|31|7|"
      "0|LINE|8|PIANO_MOLTO_LUNGO|11|3,75|21|4|39|12|"
      "0|TEXT|8|FUORI|10|1|20|1|40|1.5|50|90|1|uno|0|TEXT|8|T|1|due|0|CIRCLE|8|T|10|1|20|2|30|3|40|4|");
  OpzioniDxfIn o = Tutto();
  o.Check[DxfQuotaElevazione] = true;
  o.Piani = std::vector<std::string>{"P", "PIANO_MOLTO_LUNGO", "T"};
  const EsitoDxfIn e = Leggi(dxf, o);
  EXPECT_EQ(std::tie(e.Righe[DxfPolilinee], e.Righe[DxfLinee]), std::make_tuple(6, 1));
  const auto r = Righe();
  ASSERT_EQ(r.size(), 9u);
  auto L = [](double x1, double y1, double z1, double x2, double y2, double z2, std::string p) {
    return std::vector<std::string>{"L", std::to_string(x1), std::to_string(y1), std::to_string(z1), std::to_string(x2),
                                    std::to_string(y2), std::to_string(z2), p};
  };
  EXPECT_EQ(r[0], L(1, 1, 0, 2, 1, 0, "P"));
  EXPECT_EQ(r[1], L(2, 1, 0, 2, 2, 0, "P"));
  EXPECT_EQ(r[2], L(2, 2, 0, 1, 1, 0, "P"));  // closed by the header's 70
  EXPECT_EQ(r[3], L(5, 5, 0, 6, 5, 0, "P"));
  EXPECT_EQ(r[4], L(6, 5, 0, 6, 6, 0, "P"));  // the last vertex's 70 0 keeps it open
  EXPECT_EQ(r[5], L(6, 5, 0, 9, 9, 0, "P"));  // one vertex: from the one held before
  EXPECT_EQ(r[6], L(100, 100, 7, 3, 4, 7, "PIANO_MO"));
  EXPECT_EQ(r[7], (std::vector<std::string>{"T", "1.000000", "1.000000", "3.000000", "300.000000", "T", "due"}));
  EXPECT_EQ(r[8], (std::vector<std::string>{"C", "1.000000", "2.000000", "3.000000", "4.000000", "T"}));
  EXPECT_EQ(std::tie(s.LineaTratteggio[0], s.LineaColore[6], s.TestoColore[0], s.CerchioTratteggio[0]),
            std::make_tuple(1, 5, 5, 3));
  EXPECT_TRUE(s.SlotModificato[SlotLinee]);
}

TEST_F(DxfIn, PuntiNumerati) {
  OpzioniDxfIn o;
  o.Check[DxfPunti] = o.Check[DxfNumeraPunti] = true;
  o.PrimoNome = "A98b";
  o.Passo = 1;
  Leggi(Entita("0|POINT|10|1|20|2|30|3|0|POINT|10|4|0|POINT|0|LINE|10|1|11|2|"), o);
  ASSERT_EQ(s.ContaEntita[SlotPunti], 3);
  EXPECT_EQ(std::tie(s.PuntoNome[0], s.PuntoNome[1], s.PuntoNome[2]), std::make_tuple("A98b", "A99b", "A100b"));
  EXPECT_EQ(std::tie(s.PuntoX[2], s.PuntoY[2], s.ContaEntita[SlotLinee]), std::make_tuple(4.0, 2.0, 0));
  o.Check[DxfNumeraPunti] = false;
  Leggi(Entita("0|POINT|10|1|20|2|0|ENDSEC|"), o);
  EXPECT_EQ(s.PuntoNome[3], "");
}

TEST_F(DxfIn, FileGuasti) {
  auto errore = [](const std::string& byte) {
    std::string e;
    return RiduciDxf(byte, e) ? std::string("letto") : e;
  };
  EXPECT_EQ(errore(Coppie("0|SECTION|2|HEADER|0|ENDSEC|0|EOF")),
            "Sezione ENTITIES non trovata: il file non contiene entità DXF leggibili");
  EXPECT_EQ(errore(std::string("AutoCAD Binary DXF\r\n\x1a\0\x00\x01", 24)),
            "Il file è un DXF binario: si leggono solo i DXF di testo (ASCII)");
  EXPECT_EQ(errore(""), "Sezione ENTITIES non trovata: il file non contiene entità DXF leggibili");

  // Cut in the middle of an entity: the ones before it load, the damaged one does not.
  const std::string intero = Entita("0|LINE|10|1|20|2|11|3|21|4|0|LINE|10|5|20|6|11|7|21|8|");
  const std::string troncato = intero.substr(0, intero.find("11\n7"));
  std::string e;
  auto f = RiduciDxf(troncato, e);
  ASSERT_TRUE(f);
  EXPECT_TRUE(f->Troncato);
  EXPECT_EQ(CaricaEntitaDxf(s, *f, Tutto()).Righe[DxfLinee], 1);
  // An odd line at the end: the code without its value ends the section there.
  ClearAllTables(s);
  EXPECT_EQ(Leggi(Coppie("0|SECTION|2|ENTITIES|0|LINE|10|1|20|1|11|2|0|POINT|10")).Righe[DxfLinee], 1);

  // A value of 10 MB, NUL bytes, numbers out of range and not numbers at all.
  ClearAllTables(s);
  std::string grande(10u << 20, 'x');
  // A height that doubled would leave the numbers a double holds: that text is left out.
  const std::string strano = Entita(std::string("0|TEXT|8|A") + '\0' + "B|10|1e400|20|nan|40|-1e400|1|uno|0|TEXT|40|2|1|" +
                                    grande + "|0|LINE|10|inf|20|1e-400|");
  Leggi(strano);
  ASSERT_EQ(s.ContaEntita[SlotTesti], 1);
  EXPECT_EQ(s.TestoTesto[0].size(), grande.size());
  EXPECT_EQ(std::tie(s.TestoX[0], s.TestoY[0], s.TestoAltezza[0], s.TestoPiano[0]),
            std::make_tuple(std::numeric_limits<double>::max(), 0.0, 4.0, std::string("A\0B", 3)));
  ASSERT_EQ(s.ContaEntita[SlotLinee], 1);
  EXPECT_EQ(std::tie(s.LineaX1[0], s.LineaY1[0]), std::make_tuple(0.0, 0.0));

  // Nothing read: the job is as it was, and the user is told.
  ClearAllTables(s);
  prova::ScriviFileProva(dir / "b.dxf", Coppie("0|SECTION|2|HEADER|0|ENDSEC"));
  EXPECT_FALSE(ImportaDxf(s, dir / "b.dxf", Tutto()));
  ASSERT_EQ(ui.Messaggi.size(), 1u);
  EXPECT_EQ(ui.Messaggi[0].Testo,
            "Sezione ENTITIES non trovata: il file non contiene entità DXF leggibili:\n" + (dir / "b.dxf"));
  EXPECT_EQ(s.ContaEntita[SlotLinee], 0);

  // Stopped after the first pass: the line it added goes again.
  prova::ScriviFileProva(dir / "c.dxf", Entita("0|LINE|10|1|20|1|11|2|21|2|0|CIRCLE|40|1|"));
  int chiamate = 0;
  EsitoDxfIn esito;
  EXPECT_FALSE(ImportaDxf(s, dir / "c.dxf", Tutto(), &esito, [&](int64_t, int64_t) { return ++chiamate < 3; }));
  EXPECT_TRUE(esito.Interrotto);
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.ContaEntita[SlotCerchi]), std::make_tuple(0, 0));
}

TEST_F(DxfIn, CheckDaDadxfUnaVolta) {
  prova::ScriviFileProva(dir / "programma/Dadxf.ini", "1\r\n0,1\r\n0\r\n0\r\n1\r\n");
  s.CartellaUtente = dir / "utente";
  std::array<bool, NumeroCheckDxf> atteso{true, false, true, false, false, true, false, false, false};
  EXPECT_EQ(LeggiCheckDxf(s), atteso);
  EXPECT_FALSE(prova::Esiste(dir / "programma/Dadxf.ini"));
  atteso = {};
  atteso[DxfTesti] = atteso[DxfTestiInPunto] = true;
  ScriviCheckDxf(s, atteso);
  EXPECT_EQ(LeggiCheckDxf(s), atteso);
}

TEST(DxfTestiInPunto, CoincidentiPoiIlPiuVicino) {
  Sessione s;
  auto punto = [&](double x, double y, const char* piano) {
    const int32_t r = prova::MettiPunto(s, "", x, y);
    s.PuntoPiano[static_cast<size_t>(r)] = piano;
    return static_cast<size_t>(r);
  };
  auto testo = [&](double x, double y, const char* t, const char* piano) {
    const int32_t r = prova::MettiTesto(s, x, y, t);
    s.TestoPiano[static_cast<size_t>(r)] = piano;
  };
  const size_t p0 = punto(0, 0, "PUNTI"), p1 = punto(10, 0, "punti"), altro = punto(5, 5, "ALTRO");
  testo(0, 0, " 101 ", "nomi");   // on p0: taken first ...
  testo(10.5, 0, "102", "NOMI");  // the nearest to p1
  testo(0.3, 0, "103", "NOMI");   // ... and then overwritten by the nearest left to p0
  testo(1, 1, "spigolo", "DESCRIZIONI");
  testo(10, 1, "14,5", "QUOTE");
  testo(0, -1, "12.25", "QUOTE");
  testo(5, 5, "resta", "ALTRO");
  prova::MettiLinea(s, 0, 0, 10, 0);
  prova::MettiLinea(s, 0, 0, 3, 3);
  prova::MettiLinea(s, 20, 20, 30, 30);
  OpzioniTestiInPunto o;
  o.EliminaLinee = true;
  EXPECT_EQ(ElaboraTestiInPunto(s, o), 6);
  EXPECT_EQ(std::tie(s.PuntoNome[p0], s.PuntoNome[p1], s.PuntoNome[altro]), std::make_tuple("103", "102", ""));
  EXPECT_EQ(std::tie(s.PuntoDescrizione[p0], s.PuntoDescrizione[p1]), std::make_tuple("spigolo", ""));
  EXPECT_EQ(std::tie(s.PuntoZ[p0], s.PuntoZ[p1]), std::make_tuple(12.25, 14.0));  // the comma ends the number
  EXPECT_EQ(std::vector<int16_t>(s.TestoIdent.begin(), s.TestoIdent.begin() + 7), (std::vector<int16_t>{-1, -1, -1, -1, -1, -1, 0}));
  EXPECT_EQ(std::tie(s.LineaIdent[0], s.LineaIdent[1], s.LineaIdent[2]), std::make_tuple(0, 0, -1));
}

// The two dialogs as the user goes through them: a drawing of a point with its name comes in,
// the name goes onto the point, and the job goes out again.
TEST_F(DxfIn, ImportaPoiEsporta) {
  s.CartellaUtente = s.CartellaProgramma;
  s.NomeOriginale = s.NomeLavoro = dir / "LAVORO";
  s.ConfiguraPunti.Classi[ClassePunti].DimNome = 1.5;  // points come in drawn as the class says
  prova::ScriviFileProva(dir / "a.dxf", Coppie("0|SECTION|2|ENTITIES|0|POINT|8|PUNTI|10|5|20|6|30|7|"
                                               "0|TEXT|8|NOMI|10|5.2|20|6.1|40|1|1|P12|0|LINE|8|ALTRO|10|0|20|0|"
                                               "11|1|21|1|0|ENDSEC|0|EOF"));
  ui.RispondiFile(dir / "a.dxf");
  EseguiTag(s, "CARICA_DXF");
  ASSERT_TRUE(DialogoAperto(s, "FormDaDxf"));
  EXPECT_EQ(TrovaDialogo(s, "FormDaDxf")->Valore("Piani"), "ALTRO|NOMI|PUNTI");
  ASSERT_TRUE(PremiBottone(s, "FormDaDxf", "Inverti"));
  EXPECT_EQ(TrovaDialogo(s, "FormDaDxf")->Valore("Piani"), "");
  ASSERT_TRUE(PremiBottone(s, "FormDaDxf", "Tutti"));
  for (const char* c : {"Check0", "Check1", "Check2", "Check3", "Check8"}) ASSERT_TRUE(ScriviCampo(s, "FormDaDxf", c, "1"));
  ASSERT_TRUE(ScriviCampo(s, "FormDaDxf", "Piani", "NOMI|PUNTI"));
  ASSERT_TRUE(PremiBottone(s, "FormDaDxf", "Carica"));
  EXPECT_FALSE(DialogoAperto(s, "FormDaDxf"));
  // The line's layer was left out.
  EXPECT_EQ(std::tie(s.ContaEntita[SlotPunti], s.ContaEntita[SlotTesti], s.ContaEntita[SlotLinee]), std::make_tuple(1, 1, 0));
  EXPECT_FALSE(ui.Avanzamento.empty());
  ASSERT_TRUE(PremiBottone(s, "FormConvertiAutomatico", "OK"));
  EXPECT_EQ(std::tie(s.PuntoNome[0], s.TestoIdent[0]), std::make_tuple("P12", -1));
  // The checks are kept for the next import.
  EXPECT_EQ(LeggiCheckDxf(s)[DxfTestiInPunto], true);

  EseguiTag(s, "ESPORTA_DXF");
  ASSERT_TRUE(DialogoAperto(s, "EsportaDxf"));
  ASSERT_TRUE(ScriviCampo(s, "EsportaDxf", "NOMI", "1"));
  ASSERT_TRUE(ScriviCampo(s, "EsportaDxf", "ESCLUDI_SIMBOLI", "1"));
  prova::ScriviFileProva(dir / "b.dxf", "vecchio");
  ui.RispondiFile(dir / "b.dxf");
  ui.Rispondi(Risposta::Si);  // replace it
  ui.Rispondi(Risposta::No);  // do not open it
  ASSERT_TRUE(PremiBottone(s, "EsportaDxf", "OK"));
  ASSERT_EQ(ui.Domande.size(), 2u);
  EXPECT_EQ(std::tie(ui.Domande[0].Testo, ui.Domande[0].Titolo),
            std::make_tuple("Il File\n" + (dir / "b.dxf") + "\nè esistente!\nSostituire con il nuovo?", "File Esistente!!"));
  EXPECT_EQ(ui.Domande[1].Titolo, "Apertura file DXF ");
  EXPECT_EQ(prova::LeggiFileProva(dir / "b.dxf"),
            " 0\r\nSECTION\r\n 2\r\nENTITIES\r\n 0\r\nTEXT\r\n 8\r\nPUNTI_N\r\n62\r\n1\r\n 10\r\n5\r\n 20\r\n6\r\n"
            " 40\r\n1.5\r\n 1\r\n P12\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
  EXPECT_TRUE(prova::Esiste(dir / "programma/CFGDXF2000.ini"));
}

// The pairing by hand: a text picked, then its point, into the field the dialog names.
TEST(DxfDialoghi, TestoInPuntoAMano) {
  prova::Banco b;
  prova::MettiPunto(b.s, "1", 0, 0, 0);
  prova::MettiPunto(b.s, "2", 20, 0, 0);
  prova::MettiTesto(b.s, 19, 2, "CIGLIO");
  prova::MettiTesto(b.s, 1, 2, "12,75");
  b.Pronto(10, 0, 50);
  b.Script("TAG TESTO_IN_PUNTO\nFIELD FormTestoInPunto.Campo Descrizione\nCLICK left 19 2\n"
           "EXPECT prompt Testo in Punto - Punto :\nCLICK left 20 0\n"
           "FIELD FormTestoInPunto.Campo Quota\nCLICK left 1 2\nCLICK left 0 0\n");
  EXPECT_EQ(std::tie(b.s.PuntoDescrizione[1], b.s.PuntoDescrizione[0]), std::make_tuple("CIGLIO", ""));
  EXPECT_EQ(b.s.PuntoZ[0], 12);  // the comma ends the number
  EXPECT_EQ(std::tie(b.s.TestoIdent[0], b.s.TestoIdent[1]), std::make_tuple(-1, -1));
}

}  // namespace
}  // namespace varena
