// The setting files read at start: SALVAINI, the toolbar layout, the point configurations,
// the pagination of plots, and the whole of `InizializzaDefault`.
#include <gtest/gtest.h>

#include "core/AltreImpostazioni.h"
#include "core/Avvio.h"
#include "core/FileTabella.h"
#include "core/Salvaini.h"
#include "store/Cfg.h"
#include "support/ProvaTabelle.h"

namespace varena {
namespace {

using prova::Esiste;
using prova::LeggiFileProva;
using prova::ScriviFileProva;

class AvvioImpostazioni : public prova::ProvaTabelle {};

// Block B as a file holds it, all 24 statements, for a job with its own view and layer.
const char* const kBloccoBScritto =
    "12.5\r\n7\r\n1,1,0,1,1\r\n\"Courier New\"\r\n5,0\r\n3\r\n\"STRADE\"\r\n0\r\n1.7\r\n\"\",\"\"\r\n\"\"\r\n2\r\n"
    "0\r\n0\r\n1725000.5,5031000.25,80\r\n\"\"\r\n0\r\n0,0,0,0,0,0,\"\"\r\n0\r\n0\r\n\"STRADE\"\r\n0\r\n"
    "\"7\"\r\n\"\"\r\n";

TEST_F(AvvioImpostazioni, SalvainiScrittiQuandoSiAzzeraIlLavoro) {
  s.Imp.FATTORE_DI_ZOOM = 12.5, s.Imp.Colore_Default = 3, s.Imp.TIPODISTANZA = 2, s.Imp.MostraDescrizione = 0;
  s.PianoCorrente = "STRADE";
  s.Vista.CentroEst = 1725000.5, s.Vista.CentroNord = 5031000.25, s.Vista.AltezzaVista = 80;
  s.ContaEntita[1] = 4;
  ClearAllTables(s);
  EXPECT_FALSE(Esiste(Lavoro("SALVAINI.INI")));  // the plain clear touches no file
  s.ContaEntita[1] = 4;
  AzzeraTabelleLavoro(s);
  EXPECT_EQ(std::make_tuple(s.ContaEntita[1], p.ui.Messaggi.size()), std::make_tuple(0, 0u));
  EXPECT_EQ(LeggiFileProva(Lavoro("SALVAINI.INI")), kBloccoBScritto);
  const std::string a = LeggiFileProva(Lavoro("SALVAINI5.INI"));
  EXPECT_EQ(a.rfind("\"\",0\r\n\"\",0\r\n\"\",\"\"\r\n", 0), 0u);
  EXPECT_NE(a.find("\"\",1,0,0\r\n\"\",2,0,0\r\n"), std::string::npos);  // section 2 numbers its rows
  EXPECT_NE(a.find("\"\",\"COM2:9600,N,8,1,RS,CS65535,DS,CD\"\r\n"), std::string::npos);
  EXPECT_EQ(std::count(a.begin(), a.end(), '\n'), 152);

  // The next start takes them back.
  prova::SessioneProva q;
  q.s.CartellaLavoro = s.CartellaLavoro;
  CaricaSalvaini(q.s);
  RaccogliBloccoB(q.s);  // block B taken again from the settings it was applied to
  EXPECT_EQ(std::make_tuple(ScriviBloccoB(q.s.Cfg.B), ScriviBloccoA(q.s.Cfg.A), q.ui.Messaggi.size()),
            std::make_tuple(kBloccoBScritto, a, 0u));

  // A report session writes nothing.
  prova::SessioneProva r;
  r.s.SolaLettura = true;
  AzzeraTabelleLavoro(r.s);
  EXPECT_FALSE(Esiste(r.s.CartellaLavoro + "SALVAINI.INI"));
}

TEST_F(AvvioImpostazioni, SalvainiLettiAMano) {
  // An older block B that ends after statement 17: the later ones keep their values.
  ScriviFileProva(Lavoro("salvaini.ini"),
                  "0.5\r\n7\r\n1,1,0,1,1\r\n\"Arial\"\r\n5,0\r\n9\r\n\"CONFINI\"\r\n0\r\n1.6\r\n\"a\",\"b\"\r\n"
                  "\"c\"\r\n0\r\n0\r\n0\r\n10,20,0\r\n\"\"\r\n0\r\n");
  std::string a;
  for (const std::string& forma : FormaBloccoA()) {
    a += "\"\"";
    for (char t : forma) a += t == 's' ? ",\"s\"" : ",4";
    a += "\r\n";
  }
  ScriviFileProva(Lavoro("SALVAINI5.INI"), a);
  CaricaSalvaini(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  // A zoom step below 1 becomes 1.
  EXPECT_EQ(std::tie(s.Imp.FATTORE_DI_ZOOM, s.Imp.Colore_Default, s.PianoCorrente, s.Vista.RapportoVista),
            std::make_tuple(1.0, 9, "CONFINI", 1.6));
  EXPECT_EQ(std::tie(s.Vista.AltezzaVista, s.Cfg.VB(B_Parametri, 0).Testo, s.Cfg.A(0, 0).Numero, s.Cfg.A(151, 0).Testo),
            std::make_tuple(0.0, "7", 4.0, "s"));
  EXPECT_EQ(TrovaOrigine(s, "SALVAINI5.INI")->Stato, StatoFile::Letto);

  // A block A that breaks off: the box, and block A stays as it was.
  prova::SessioneProva q;
  ScriviFileProva(q.s.CartellaLavoro + "SALVAINI5.INI", "\"\",3\r\n\"\",3\r\n");
  ScriviFileProva(q.s.CartellaLavoro + "SALVAINI.INI", std::string("12\r\n\0\x01\x02", 7));
  CaricaSalvaini(q.s);
  ASSERT_EQ(q.ui.Messaggi.size(), 2u);
  EXPECT_NE(q.ui.Messaggi[0].Testo.find("Invalid file format"), std::string::npos);
  EXPECT_NE(q.ui.Messaggi[1].Testo.find("Input past end of file"), std::string::npos);
  EXPECT_NE(q.ui.Messaggi[1].Testo.find("Nella Routine CaricaSalvaini"), std::string::npos);
  EXPECT_EQ(std::tie(q.s.Cfg.A(0, 0).Numero, q.s.Imp.FATTORE_DI_ZOOM, q.s.Vista.AltezzaVista), std::make_tuple(0.0, 50.0, 100.0));
}

TEST_F(AvvioImpostazioni, ToolbarBottoni) {
  CaricaToolbarBottoni(s);
  EXPECT_EQ(LeggiFileProva(Lavoro("CfgToolbarBottoni.ini")), "16\r\n1|1|2|2|3|3|3|4|4|3|3|3|4|1|\r\n");
  ScriviFileProva(Lavoro("CfgToolbarBottoni.ini"), "0\r\n2|2|1\r\n");
  CaricaToolbarBottoni(s);
  // The columns are repaired later in the start-up, not here.
  EXPECT_EQ(std::make_tuple(s.Toolbar.NumeroColonne, s.Toolbar.Gruppi), std::make_tuple(0, std::vector<int16_t>{2, 2, 1}));
  ScriviFileProva(Lavoro("CfgToolbarBottoni.ini"), "8\r\n1|x|3|\r\n");
  CaricaToolbarBottoni(s);
  AttesoErrore("CaricaToolbarBottoni", "Type mismatch");
  // The defaults, whole.
  EXPECT_EQ(std::make_tuple(s.Toolbar.NumeroColonne, s.Toolbar.Gruppi),
            std::make_tuple(16, std::vector<int16_t>{1, 1, 2, 2, 3, 3, 3, 4, 4, 3, 3, 3, 4, 1}));
}

TEST_F(AvvioImpostazioni, ConfigurazioniDeiPunti) {
  CaricaConfiguraPunti(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  // As typed from the table of defaults.
  EXPECT_EQ(LeggiFileProva(Lavoro("ConfiguraPUNTI.CPP")),
            LeggiFileProva(VARENA_SORGENTI "/tests/data/impostazioni/ConfiguraPUNTI.CPP"));
  EXPECT_EQ(RigaStilePunto(s.ConfiguraPunti.Classi[ClasseStazioni]), "Arial,-1.5,10,66,-1.5,21,-1.5,32,-1.5,60,");

  // The active configuration named in the settings, in any letter case; a class it does
  // not reach keeps its default.
  s.Imp.NomeFileConfiguraPunti = "Catasto";
  ScriviFileProva(Lavoro("catasto.cpp"), "Courier New, 2.5,1,40,3,2,1,4,0.5,5\r\n\r\n");
  CaricaConfiguraPunti(s);
  EXPECT_EQ(RigaStilePunto(s.ConfiguraPunti.Classi[ClassePF]), "Courier New,2.5,1,40,3,2,1,4,0.5,5,");
  EXPECT_EQ(std::make_tuple(s.ConfiguraPunti.Classi[ClasseStazioni].Simbolo, p.ui.Messaggi.size()), std::make_tuple(66, 0u));
  EXPECT_EQ(TrovaOrigine(s, ".CPP")->Percorso, Lavoro("catasto.cpp"));

  ScriviFileProva(Lavoro("catasto.cpp"), "Arial,1,2,3\r\n");
  CaricaConfiguraPunti(s);
  AttesoErrore("CaricaConfiguraPunti", "Type mismatch");
  EXPECT_EQ(s.ConfiguraPunti.Classi[ClassePF].Simbolo, 32);
}

TEST_F(AvvioImpostazioni, StampaPaginato) {
  LeggiStampaPaginato(s);
  EXPECT_EQ(std::make_tuple(s.Paginato.Attiva(), Esiste(Lavoro("StampaPaginato.ini"))), std::make_tuple(false, false));
  // The active pagination is read back by the settings command of the command line.
  ScriviFileProva(Lavoro("StampaPaginato.ini"), "1,\"3\",\"2\"\r\n");
  LeggiStampaPaginato(s);
  EXPECT_FALSE(s.Paginato.Attiva());
  ScriviFileProva(Lavoro("StampaPaginato.ini"), "-1\r\n");
  LeggiStampaPaginato(s);
  AttesoErrore("StampaPaginata", "Input past end of file");
  EXPECT_FALSE(s.Paginato.Attiva());
}

TEST_F(AvvioImpostazioni, InizializzaDefaultCreaLeTabelleNelLoroOrdine) {
  ScriviFileProva(Lavoro("Configura.ini"), "x,Colore_Default,4\r\n");
  ScriviFileProva(Lavoro("SALVAINI.INI"), kBloccoBScritto);  // its colour is 3: it comes later
  ScriviFileProva(Lavoro("PIANI.INI"), "\"EDIFICI\"\r\n");    // and the current layer after both
  ScriviFileProva(Lavoro("CfgToolbarBottoni.ini"), "-2\r\n1|2|\r\n");
  ScriviFileProva(Lavoro("vecchio.uls"), "x");
  InizializzaDefault(s);
  EXPECT_EQ(std::make_tuple(s.Imp.Colore_Default, s.PianoCorrente, s.Toolbar.NumeroColonne, p.ui.Messaggi.size(),
                            Esiste(Lavoro("vecchio.uls"))),
            std::make_tuple(3, "EDIFICI", 16, 0u, false));
  for (const char* f : {"VRPUNTI.COD", "ArchivioNote.ini", "ConfiguraPUNTI.CPP"}) EXPECT_TRUE(Esiste(Lavoro(f))) << f;
  for (const char* f : {"COLORI.ini", "linee.ini"}) EXPECT_TRUE(Esiste(Programma(f))) << f;
  std::vector<std::string> ordine;
  for (const OrigineFile& o : s.FileRiferimento) ordine.push_back(o.Nome);
  EXPECT_EQ(ordine, (std::vector<std::string>{"CfgToolbarBottoni.ini", "Configura.ini", "SALVAINI.INI",
                                              "SALVAINI5.INI", "VRPUNTI.COD", "COLORI.ini", "SPESSORI1.ini",
                                              "PIANI.INI", "linee.ini", ".CPP", "ArchivioNote.ini", "comunt.dat"}));
}

TEST_F(AvvioImpostazioni, InizializzaDefaultInSolaLetturaNonToccaNulla) {
  ScriviFileProva(Lavoro("vecchio.uls"), "x");
  s.SolaLettura = true;
  InizializzaDefault(s);
  EXPECT_EQ(std::make_tuple(p.ui.Messaggi.size(), Esiste(Lavoro("vecchio.uls"))), std::make_tuple(0u, true));
  size_t file = 0;
  for (const auto& voce : std::filesystem::recursive_directory_iterator(p.cartella.Percorso()))
    file += voce.is_regular_file();
  EXPECT_EQ(file, 1u);
  EXPECT_EQ(std::tie(s.Colori.NumeroColori, s.Tratteggi.Stili[18].NomeTratteggio, s.ConfiguraPunti.Classi[ClassePunti].Simbolo),
            std::make_tuple(9, "TRATT8", 35));
  EXPECT_EQ(TrovaOrigine(s, "COLORI.ini")->Stato, StatoFile::Assente);
}

}  // namespace
}  // namespace varena
