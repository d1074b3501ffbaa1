// `Configura.ini`: defaults, the written file byte for byte, round trip, a file written by
// hand, repairs and bad files.
#include <gtest/gtest.h>

#include "core/Configura.h"
#include "core/FileTabella.h"
#include "support/ProvaTabelle.h"

namespace varena {
namespace {

using prova::LeggiFileProva;
using prova::ScriviFileProva;

class Configura : public prova::ProvaTabelle {
 protected:
  std::string File() { return Lavoro("Configura.ini"); }
};

// Every row in the order of the table, typed out into tests/data/impostazioni, with
// "%RADICE%" where the working root goes.
std::string FileDefault(const std::string& radice) {
  std::string f = LeggiFileProva(VARENA_SORGENTI "/tests/data/impostazioni/Configura.ini");
  for (size_t k = f.find("%RADICE%"); k != std::string::npos; k = f.find("%RADICE%", k)) f.replace(k, 8, radice);
  return f;
}

TEST_F(Configura, SenzaFileIPredefinitiEIlFileScrittoByteperByte) {
  s.Imp.AltezzaTestoDefault = 99;
  ConfiguraLeggi(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(s.Imp.AltezzaTestoDefault, 5.0);  // the defaults are set again before reading
  EXPECT_FALSE(prova::Esiste(File()));  // reading never creates it
  EXPECT_EQ(TrovaOrigine(s, "Configura.ini")->Stato, StatoFile::Assente);
  ConfiguraScrivi(s);
  EXPECT_EQ(LeggiFileProva(File()), FileDefault(s.CartellaLavoro));
}

TEST_F(Configura, AndataERitornoConservaOgniValore) {
  ConfiguraLeggi(s);
  Impostazioni& i = s.Imp;
  i.NomeFileConfiguraPunti = "Rilievo Città";  // a letter of the code page
  i.nomefileautoallestito = "/home/geom/modelli/auto.emp", i.MostraIngombroDisegno = -1, i.SalvaUnaCopiaZip = 1;
  i.RiapriUltimoLavoro = 1, i.MostraDescrizione = 0, i.MostraNome = 0, i.MostraQuota = 2;
  i.AngoloTestoDefault = 123.4567, i.AltezzaTestoDefault = 0.1, i.FontTestoDefault = "Courier New";
  i.ColoreTestoDefault = 257, i.Cornice = 1, i.Trasparenza = 1, i.MenuMouse = 0, i.Puntatore = 12;
  i.ComandiSuSnap = 1, i.Fai_Anteprima_SiNo = 1, i.Colore_Fondo_Default = 9, i.Tratteggio_Default = 18;
  i.Stira_Linee = 0, i.Info_Estesa = 0, i.VISUALIZZA_SNAP = 1, i.Stampa_Scala_Plottaggio = 0;
  i.Stampa_Nome_Lavoro = 0, i.Colore_Default = 250, i.Azzera_Codici_Catastali = 1, i.Cartella_Default = "/srv/lavori";
  i.FATTORE_DI_ZOOM = 1.25, i.Icone_grandi = 1, i.INFOCOMANDI = 1, i.Numero_Punti = 7, i.Distanza = 2.345;
  i.Numero_Righe = 3, i.Numero_Colonne = 4, i.Angolo_Campitura = 33.3333333333333, i.Distanza_Campitura = 0.25;
  i.Alfa = -1e-7, i.Beta = 1725000.125, i.D1 = 5031000.5, i.D2 = 1e20, i.Ambito_Laterale = -0.5, i.TIPODISTANZA = 255;
  i.CollegaPuntoSimbolo = -1, i.VPLOT = 3, i.TOOLTIPBELLA = -1, i.SOLOCOLORINELDISEGNO = 1, i.PNGCONG = 1;
  i.DIMENSIONEUNICAPUNTO = 1.5, i.LineaMostraLunghezza = 0, i.LineaDecimali = 0.1f, i.Cartella_Pregeo = "/opt/pregeo";
  i.Cartella_Estratti = "/mnt/estratti", i.Cartella_Archivio_Pregeo = "/opt/pregeo/arch";
  i.Cartella_Fiducial = "/mnt/fiducial", i.Cartella_Copia_Salvataggio = "/mnt/condivisa/lavori";
  i.Limite_Punti_Triangolazione = 2'500'000;
  ConfiguraScrivi(s);
  const std::string scritto = LeggiFileProva(File());
  EXPECT_NE(scritto.find("Configurazione_Ambiente,NomeFileConfiguraPunti,Rilievo Citt\xE0\r\n"), std::string::npos);
  EXPECT_NE(scritto.find("Testo,AltezzaTestoDefault,0.1\r\n"), std::string::npos);
  EXPECT_NE(scritto.find("Linea_Altezza_Testo,LineaDecimali,0.1\r\n"), std::string::npos);
  EXPECT_NE(scritto.find("Configurazione_Stampa,DIMENSIONEUNICAPUNTO,1.5\r\n"), std::string::npos);

  prova::SessioneProva q;
  q.s.CartellaLavoro = s.CartellaLavoro;
  ConfiguraLeggi(q.s);
  EXPECT_TRUE(q.ui.Messaggi.empty());
  EXPECT_EQ(q.s.Imp, s.Imp);
  ConfiguraScrivi(q.s);
  EXPECT_EQ(LeggiFileProva(File()), scritto);
}

TEST_F(Configura, FileScrittoAManoSiLeggeComeIlProgramma) {
  ScriviFileProva(File(),
                  "Qualunque,AltezzaTestoDefault,   7.25 metri\r\n"
                  "\r\n"
                  "Testo,FontTestoDefault,Times New Roman,Bold\r\n"
                  "Configurazione_Ambiente,ChiaveSconosciuta,5\r\n"
                  "Configurazione_Ambiente, MostraNome,0\r\n"
                  "configurazione_ambiente,mostradescrizione,0\r\n"
                  "Configurazione_Ambiente,FATTORE_DI_ZOOM,12,75\r\n"
                  "Configurazione_Ambiente,Colore_Default,12abc\r\n"
                  "Configurazione_Ambiente,Puntatore,\r\n"
                  "Configurazione_Ambiente,RiapriUltimoLavoro\r\n"
                  "INFO_DISTANZA,TIPODISTANZA,2.5\r\n"
                  "Configurazione_Ambiente,MostraQuota,\t3.5\r\n"
                  "Configurazione_Ambiente,Tratteggio_Default,4\r\n"
                  "Configurazione_Ambiente,Tratteggio_Default,6\r\n"
                  "Cartelle,Cartella_Pregeo,/opt/pregeo/\r\n"
                  "Terreno,Limite_Punti_Triangolazione,0\r\n"
                  "   \r\n"
                  "solo testo senza virgole\n"
                  "Visualizza,Cornice,1");  // the last line without its end
  ConfiguraLeggi(s);
  EXPECT_TRUE(p.ui.Messaggi.empty());
  EXPECT_EQ(s.Imp.AltezzaTestoDefault, 7.25);   // the section is not looked at
  EXPECT_EQ(s.Imp.FontTestoDefault, "Times New Roman");  // cut at its comma
  EXPECT_EQ(s.Imp.MostraNome, 1);                // " MostraNome" is not the key
  EXPECT_EQ(s.Imp.MostraDescrizione, 1);         // nor is the key in another case
  EXPECT_EQ(s.Imp.FATTORE_DI_ZOOM, 12.0);        // "12,75" is 12
  EXPECT_EQ(s.Imp.Colore_Default, 12);
  EXPECT_EQ(s.Imp.Puntatore, 0);                 // no number reads 0
  EXPECT_EQ(s.Imp.RiapriUltimoLavoro, 0);
  EXPECT_EQ(s.Imp.TIPODISTANZA, 2);              // half to even
  EXPECT_EQ(s.Imp.MostraQuota, 4);
  EXPECT_EQ(s.Imp.Tratteggio_Default, 6);        // the last line of a key wins
  EXPECT_EQ(s.Imp.Cornice, 1);
  EXPECT_EQ(s.Imp.MenuMouse, 1);                 // absent: its default
  EXPECT_EQ(s.Imp.Cartella_Pregeo, "/opt/pregeo/");
  EXPECT_EQ(s.Imp.Limite_Punti_Triangolazione, 0);  // the bound of the hand-off lifted
  // Folders not set apart follow the Pregeo root; the fiducial data do not.
  EXPECT_EQ(s.Imp.Cartella_Estratti, "/opt/pregeo/ESTRATTI");
  EXPECT_EQ(s.Imp.Cartella_Archivio_Pregeo, "/opt/pregeo/ARCH");
  EXPECT_EQ(s.Imp.Cartella_Fiducial, s.CartellaLavoro + "FIDUCIAL");
}

TEST_F(Configura, FattoreDiZoomSottoUnoDiventaUno) {
  const std::pair<const char*, double> casi[] = {{"0.5", 1}, {"0", 1}, {"-3", 1}, {"abc", 1}, {"1.5", 1.5}};
  for (const auto& [valore, atteso] : casi) {
    ScriviFileProva(File(), std::string("x,FATTORE_DI_ZOOM,") + valore + "\r\n");
    ConfiguraLeggi(s);
    EXPECT_EQ(s.Imp.FATTORE_DI_ZOOM, atteso) << valore;
  }
}

TEST_F(Configura, FileGuastiDannoIlBoxEIPredefiniti) {
  const std::string guasto = "Testo,AltezzaTestoDefault,9\r\n" + prova::Spazzatura(6000);
  ScriviFileProva(File(), guasto);
  ConfiguraLeggi(s);
  AttesoErrore("ConfiguraLeggi", "Invalid file format");
  EXPECT_EQ(s.Imp.AltezzaTestoDefault, 5.0);  // not even the good line before the garbage
  EXPECT_EQ(TrovaOrigine(s, "Configura.ini")->Stato, StatoFile::Errato);
  EXPECT_EQ(LeggiFileProva(File()), guasto);

  // Enormous lines of text are only long: the keys among them are read.
  const std::string lunga(4'000'000, 'z');
  ScriviFileProva(File(), lunga + "\r\nTesto,AltezzaTestoDefault,8" + std::string(1'000'000, ' ') + "\r\nx," + lunga +
                              ",1\r\nPuntatori,Puntatore,5," + lunga + "\r\n");
  ConfiguraLeggi(s);
  EXPECT_EQ(p.ui.Messaggi.size(), 1u);  // no second box
  EXPECT_EQ(s.Imp.AltezzaTestoDefault, 8.0);
  EXPECT_EQ(s.Imp.Puntatore, 5);
}

TEST_F(Configura, SessioneDiSolaLetturaNonScrive) {
  s.SolaLettura = true;
  ConfiguraScrivi(s);
  EXPECT_FALSE(prova::Esiste(File()));
}

}  // namespace
}  // namespace varena
