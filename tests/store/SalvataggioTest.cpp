// Saving back to the original: backups, save as, the default job, new job, the close
// question, and a job with every member through load, save and load again.
#include <gtest/gtest.h>

#include "core/Record.h"
#include "core/Testo.h"
#include "store/Cfg.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "store/Undo.h"
#include "store/LavoroProva.h"

namespace varena {
namespace {

using prova::BackupDi;
using prova::Esiste;
using prova::LeggiFileProva;
using prova::MembriDi;
using prova::Record;
using prova::ScriviFileProva;

using prova::RecordLinea;

// Block A of 152 statements with a value of its own in every place.
std::string BloccoA() {
  std::string a;
  int k = 0;
  for (const std::string& forma : FormaBloccoA()) {
    a += "\"\"";
    for (char t : forma) {
      ++k;
      a += t == 's' ? ",\"v" + std::to_string(k) + "\"" : (t == 'd' ? "," + std::to_string(k) + ".25" : "," + std::to_string(k % 200));
    }
    a += "\r\n";
  }
  return a;
}

const char* kBloccoB =
    "0.5\r\n7\r\n1.5,2.5,3,1.25,0.75\r\n\"Arial\"\r\n5,0.5\r\n3\r\n\"STRADE\"\r\n2\r\n1.6\r\n\"a\",\"b\"\r\n"
    "\"c\"\r\n2\r\n0.125\r\n4.5\r\n1725020,5031000,80\r\n\"scarto\"\r\n9\r\n1,2.5,3.5,4.5,5,6,\"L\"\r\n0\r\n"
    "7\r\n\"EDIFICI\"\r\n1\r\n\"7|1|2\"\r\n\"A.DWG|\"\r\n";

class Salvataggio : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  std::string lavori, base;
  void SetUp() override {
    lavori = s.CartellaLavoro + "LAVORI/";
    std::filesystem::create_directories(lavori + "NUOVO");
    base = lavori + "ROSSI";
    Scrivi(".CFG", "\"VR2020\"\r\n" + BloccoA() + kBloccoB);
    Scrivi(".LLL", prova::RecordPuntoBase("101", 1725000, 5031000, 14).Byte() +
                       prova::RecordPuntoBase("PF01/0010/G693", 1725010.25, 5031005.5, 15).Byte());
    Scrivi(".LIN", RecordLinea(1725000, 1725010, "RECINZ") + RecordLinea(1725010, 1725020, "FABBRIC"));
    Scrivi(".PIA", "0|0|1|0|1|Arial|0|0|0\r\n");
  }
  void Scrivi(const char* est, const std::string& byte) { ScriviFileProva(base + est, byte); }
  void Apri() {
    s.NomeOriginale = base;
    VR_ApriLavoro(s);
  }
  void ModificaLinea(double x2) {
    s.LineaX2[0] = x2;
    SegnaModificato(s, SlotLinee);
  }
};

TEST_F(Salvataggio, DueSalvataggiLascianoUnaSolaGenerazioneDiBackup) {
  const auto originale = MembriDi(base);
  Apri();
  ModificaLinea(1725011);
  ASSERT_TRUE(Salva(s));
  const auto primo = MembriDi(base);
  EXPECT_EQ(primo.at(".LIN").substr(26, 8), std::string("\0\0\0\0\x53\x52\x3A\x41", 8));
  // The backups are the files as they were before this save, under their backup names.
  EXPECT_EQ(BackupDi(base), (std::map<std::string, std::string>{{".CFK", originale.at(".CFG")},
                                                               {".LLK", originale.at(".LLL")},
                                                               {".LIK", originale.at(".LIN")},
                                                               {".PIK", originale.at(".PIA")}}));
  ModificaLinea(1725012);
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(BackupDi(base).at(".LIK"), primo.at(".LIN"));
  EXPECT_EQ(prova::NomiIn(lavori),
            (std::vector<std::string>{"NUOVO", "ROSSI.CFG", "ROSSI.CFK", "ROSSI.INF", "ROSSI.INK", "ROSSI.K", "ROSSI.L",
                                      "ROSSI.LIK", "ROSSI.LIN", "ROSSI.LLK", "ROSSI.LLL", "ROSSI.PIA", "ROSSI.PIK",
                                      "ROSSI.TXK", "ROSSI.TXT", "ROSSI.XVK", "ROSSI.XVR"}));
  EXPECT_EQ(LeggiFileProva(s.CartellaLavoro + "LavoriRecenti.txt"), base + ".CFG\r\n" + base + ".CFG\r\n");
}

TEST_F(Salvataggio, LaCopiaNellaCartellaDelleImpostazioniSegueIlLavoro) {
  const std::string condivisa = s.CartellaLavoro + "condivisa";
  Apri();
  s.Imp.Cartella_Copia_Salvataggio = condivisa;
  ASSERT_TRUE(Salva(s));
  const auto salvato = MembriDi(base);
  EXPECT_EQ(MembriDi(condivisa + "/ROSSI"), salvato);
  EXPECT_TRUE(BackupDi(condivisa + "/ROSSI").empty());  // a mirror of the job, not of its history

  // The job loses its lines: it has neither them nor their old backup after a save, and the
  // copy loses its lines as well.
  std::remove((base + ".LIN").c_str());
  Scrivi(".LIK", "linee di un tempo");
  EXPECT_TRUE(p.ui.Messaggi.empty());
  Apri();
  p.ui.Messaggi.clear();  // the opening tells of the lines' lone backup
  s.Imp.Cartella_Copia_Salvataggio = condivisa;
  ASSERT_TRUE(Salva(s));
  EXPECT_FALSE(Esiste(base + ".LIN") || Esiste(base + ".LIK") || Esiste(condivisa + "/ROSSI.LIN"));
  EXPECT_EQ(MembriDi(condivisa + "/ROSSI"), MembriDi(base));
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_F(Salvataggio, UnaCopiaCheNonRiesceNonDisfaIlSalvataggio) {
  // The folder of the setting cannot be made: a file stands where it should be.
  ScriviFileProva(s.CartellaLavoro + "occupato", "");
  Apri();
  s.Imp.Cartella_Copia_Salvataggio = s.CartellaLavoro + "occupato/copie";
  ModificaLinea(1725011);
  EXPECT_TRUE(Salva(s));
  EXPECT_EQ(MembriDi(base).at(".LIN").substr(26, 8), std::string("\0\0\0\0\x53\x52\x3A\x41", 8));
  ASSERT_EQ(p.ui.Messaggi.size(), 1u);
  EXPECT_NE(p.ui.Messaggi[0].Testo.find("Nella Routine SalvaUnaCopiaInDropBox"), std::string::npos)
      << p.ui.Messaggi[0].Testo;

  // A copy into the job's own folder would copy each file onto itself: it is left alone.
  p.ui.Messaggi.clear();
  s.Imp.Cartella_Copia_Salvataggio = lavori;
  EXPECT_TRUE(Salva(s));
  EXPECT_TRUE(p.ui.Messaggi.empty());
}

TEST_F(Salvataggio, UnMembroLettoConErroreNonVieneRiscrittoNeRuotato) {
  // Broken quoting in the second Contorno-7 row: the first row reads, then the file runs short.
  const std::string sette = "0,\"101|102\",\"COGO\",\"245\",3,1\r\n0,\"103|104,\"COGO\",\"246\",3,1\r\n";
  const std::string buono = "0,\"101|102\",\"COGO\",\"245\",3,1\r\n";
  Scrivi(".HAT", sette);
  Scrivi(".HAK", buono);  // what the save before left
  Apri();
  ASSERT_EQ(s.ContaEntita[SlotSette], 1);
  // An edit, undone and done again: undo and redo read the member from the generations, which
  // must still hold it as it was read.
  ModificaLinea(1725011);
  ASSERT_TRUE(VR_SalvaUndo(s));
  ASSERT_TRUE(VR_UNDO(s));
  ASSERT_TRUE(VR_REDO(s));
  p.ui.Messaggi.clear();
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(LeggiFileProva(base + ".HAT"), sette);
  EXPECT_EQ(LeggiFileProva(base + ".HAK"), buono);
  EXPECT_EQ(MembriDi(base).at(".LIN").substr(26, 8), std::string("\0\0\0\0\x53\x52\x3A\x41", 8));
  EXPECT_EQ(prova::Detti(p.ui), std::vector<std::string>{"Salva Lavoro: Questi file del Lavoro, letti con un errore, non "
                                                         "sono stati salvati e restano com'erano:\nROSSI.HAT"});
}

TEST_F(Salvataggio, LeRigheCancellateRestanoFinoAllaRiapertura) {
  Apri();
  s.LineaIdent[0] = -1;
  SegnaModificato(s, SlotLinee);
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(s.ContaEntita[SlotLinee], 2);
  Apri();
  EXPECT_EQ(std::tie(s.ContaEntita[SlotLinee], s.LineaPiano[0]), std::make_tuple(1, "FABBRIC"));
}

TEST_F(Salvataggio, IlLavoroNuovoPassaSempreDalSalvaConNome) {
  for (const std::string& nome : {lavori + "NUOVO/NUOVO", lavori + "nuovo/Nuovo", s.CartellaLavoro + "Lavori\\NUOVO\\nuovo"}) {
    p.ui.SceltePresentate.clear();
    s.NomeOriginale = nome;
    VR_ApriLavoro(s);
    EXPECT_FALSE(Salva(s));  // the dialog is cancelled: nothing is written
    ASSERT_EQ(p.ui.SceltePresentate.size(), 1u) << nome;
    EXPECT_EQ(p.ui.SceltePresentate[0], "Salva Con Nome ...|File VR2000 (*.CFG)|*.CFG|");
    EXPECT_TRUE(prova::NomiIn(lavori + "NUOVO").empty());
  }
  DimensionaTesti(s);
  s.TestoTesto[0] = "NOTA", s.TestoFont[0] = "Arial", s.TestoAltezza[0] = 2;
  s.ContaEntita[SlotTesti] = 1;
  const std::string vecchioProvvisorio = s.NomeLavoro;
  p.ui.RispondiFile(lavori + "bianchi.cfg");
  ASSERT_TRUE(Salva(s));
  EXPECT_EQ(std::tie(s.NomeOriginale, s.NomeLavoro),
            std::make_tuple(lavori + "BIANCHI", s.CartellaLavoro + "PROVVISO/BIANCHI_20262111103015"));
  EXPECT_EQ(LeggiFileProva(PercorsoDiario(s)), " 1 \r\n 1 \r\n");
  EXPECT_EQ(LeggiFileProva(lavori + "BIANCHI.TES").size(), 256u);
  EXPECT_TRUE(MembriDi(vecchioProvvisorio).empty());
}

TEST_F(Salvataggio, SalvaConNomeChiedePrimaDiSovrascrivere) {
  const auto rossi = MembriDi(lavori + "ROSSI");
  ScriviFileProva(lavori + "VERDI.CFG", "\"VR2020\"\r\n");
  ScriviFileProva(lavori + "VERDI.TES", prova::Record(256).Byte());
  Apri();
  s.LineaIdent[0] = -1;  // compacted by the reload that follows a save as
  SegnaModificato(s, SlotLinee);
  p.ui.RispondiFile(lavori + "VERDI.CFG");
  p.ui.Rispondi(Risposta::No);
  EXPECT_FALSE(VR_SalvaConNome(s));
  ASSERT_EQ(p.ui.Domande.size(), 1u);
  EXPECT_EQ(std::tie(p.ui.Domande[0].Testo, p.ui.Domande[0].Tipo),
            std::make_tuple("Il file :\r\n" + lavori + "VERDI\r\nè esistente!\r\nSalvare ugualmente?", Icona::Avviso));
  EXPECT_EQ(LeggiFileProva(lavori + "VERDI.CFG"), "\"VR2020\"\r\n");

  p.ui.RispondiFile(lavori + "VERDI.CFG");
  p.ui.Rispondi(Risposta::Si);
  ASSERT_TRUE(VR_SalvaConNome(s));
  EXPECT_EQ(std::tie(s.NomeOriginale, s.ContaEntita[SlotLinee]), std::make_tuple(lavori + "VERDI", 1));
  EXPECT_EQ(MembriDi(lavori + "ROSSI"), rossi);  // the old job is left as it was
  // The old set was copied over the new name first: it is what the backups hold now, and a
  // member only the overwritten job had became a backup too.
  const auto backup = BackupDi(lavori + "VERDI");
  EXPECT_EQ(backup.at(".LIK"), rossi.at(".LIN"));
  EXPECT_EQ(backup.at(".TEK"), prova::Record(256).Byte());
}

TEST_F(Salvataggio, NuovoLavoroVuotoConLeImpostazioniDelPrecedente) {
  Apri();
  s.Vista.AltezzaVista = 321;
  p.ui.RispondiFile(lavori + "Vuoto.CFG");
  ASSERT_TRUE(VR_CreaNuovoLavoroVuoto(s));
  EXPECT_EQ(std::tie(s.NomeOriginale, s.NomeLavoro),
            std::make_tuple(lavori + "Vuoto", s.CartellaLavoro + "PROVVISO/Vuoto_20262111103015"));
  EXPECT_EQ(std::make_tuple(s.ContaEntita[SlotPunti] + s.ContaEntita[SlotLinee], s.Vista.AltezzaVista, s.PianoCorrente),
            std::make_tuple(0, 321.0, "EDIFICI"));
  EXPECT_EQ(s.Cfg.A(151, 0).Testo, "v264");  // block A of the previous job, to its last value
  EXPECT_EQ(LeggiFileProva(PercorsoDiario(s)), " 1 \r\n 1 \r\n");
}

TEST_F(Salvataggio, LaDomandaDiChiusura) {
  Apri();
  ModificaLinea(1725011);
  const auto prima = MembriDi(base);
  p.ui.Rispondi(Risposta::Annulla);
  EXPECT_FALSE(ChiusuraLavoro(s, true));
  ASSERT_EQ(p.ui.Domande.size(), 1u);
  EXPECT_EQ(std::tie(p.ui.Domande[0].Titolo, p.ui.Domande[0].Testo), std::make_tuple("Chiusura Programma", "Salvare il Lavoro?"));
  EXPECT_FALSE(MembriDi(s.NomeLavoro).empty());

  ScriviFileProva(FileLibrettoPredefinito(s), s.NomeLavoro + ".TXT\r\n");
  p.ui.Rispondi(Risposta::No);
  EXPECT_TRUE(ChiusuraLavoro(s, false));
  EXPECT_FALSE(Esiste(FileLibrettoPredefinito(s)));
  EXPECT_EQ(std::tie(p.ui.Domande[1].Titolo, p.ui.Domande[1].Testo),
            std::make_tuple("Chiusura Lavoro Aperto", "Salvare le modifiche al Lavoro Attuale?"));
  EXPECT_TRUE(prova::NomiIn(s.CartellaLavoro + "PROVVISO").empty());
  EXPECT_EQ(MembriDi(base), prima);

  Apri();
  ModificaLinea(1725011);
  p.ui.Rispondi(Risposta::Si);
  EXPECT_TRUE(ChiusuraLavoro(s, false));
  EXPECT_NE(MembriDi(base).at(".LIN"), prima.at(".LIN"));

  // Yes on the default job, then the name dialog cancelled: the work stays open.
  s.NomeOriginale = lavori + "NUOVO/NUOVO";
  VR_ApriLavoro(s);
  p.ui.Rispondi(Risposta::Si);
  EXPECT_FALSE(ChiusuraLavoro(s, true));
  EXPECT_FALSE(MembriDi(s.NomeLavoro).empty());
}

// Every field of every record kind, the text kinds and the settings of two sessions.
template <class Tab>
void StesseRighe(const Sessione& a, const Sessione& b, const LayoutRecord<Tab>& layout) {
  ASSERT_EQ(a.ContaEntita[layout.Slot], b.ContaEntita[layout.Slot]) << layout.Slot;
  const Tab &ta = a, &tb = b;
  for (int32_t r = 0; r < a.ContaEntita[layout.Slot]; ++r)
    for (const auto& campo : layout.Campi) {
      if (campo.Membro.index() == 0) continue;
      EXPECT_EQ(ValoreDi(campo, ta, r), ValoreDi(campo, tb, r)) << layout.Slot << " " << r << " " << campo.Nome;
    }
}

void StessoLavoro(Sessione& a, Sessione& b) {
  auto righe = [&](const auto&... layout) { (StesseRighe(a, b, layout), ...); };
  righe(LayoutPunti(), LayoutLinee(), LayoutCerchi(), LayoutArchi(), LayoutTesti(), LayoutFalde(), LayoutCurve(),
        LayoutSette(), LayoutBitmap());
  EXPECT_EQ(TestoCfg(a), TestoCfg(b));  // blocks A and B, labels, the view
  EXPECT_EQ(a.LibrettoMisure, b.LibrettoMisure);
  EXPECT_EQ(a.Testo126 + a.TestoCel, b.Testo126 + b.TestoCel);
  EXPECT_EQ(a.MembriConservati, b.MembriConservati);
  ASSERT_EQ(a.Piani.size(), b.Piani.size());
  for (size_t i = 0; i < a.Piani.size(); ++i) EXPECT_EQ(ScriviRigaPiano(a.Piani[i]), ScriviRigaPiano(b.Piani[i]));
  EXPECT_EQ(a.PianoCorrente, b.PianoCorrente);
  EXPECT_EQ(a.Imp.FATTORE_DI_ZOOM, b.Imp.FATTORE_DI_ZOOM);
}

TEST_F(Salvataggio, CaricaSalvaCaricaConservaOgniValoreDiOgniMembro) {
  Scrivi(".CER", prova::RecordCerchio(7));
  Scrivi(".ARC", prova::RecordArco());
  Scrivi(".TES", prova::RecordTesto("VIA \xC0"));
  Scrivi(".EQU", prova::RecordFalda());
  Scrivi(".CUV", prova::Vertice(2, 10.5) + prova::Vertice(0, 11.5));
  Scrivi(".HAT", "0,\"101|PF01/0010/G693\",\"COGO\",\"245\",3,1\r\n");
  Scrivi(".BTM", "0,\"foto.jpg\",10,20,30,40,0,\"++++++++\",1,0.5,0.25,12.5,\"IMMAGINI\"\r\n");
  Scrivi(".INF", "\"" + base + "\"\r\n");
  Scrivi(".TXT", "0|21112026|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|\r\n1|100|1.550|\r\n");
  Scrivi(".126", "riga uno\r\nriga due\r\n");
  Scrivi(".CEL", "citt\xE0\r\n");
  Scrivi(".PIA", "0|0|1|0|1|Arial|0|0|0\r\nSTRADE|0|8|2|3|Courier New|0|0|0\r\n");
  Scrivi(".L", "vecchia lista");
  const std::string binario("\x00\x01\x02\xFF\r\n\x1A fine", 11);
  for (const char* est : {".VRZ", ".DUE", ".EDM", ".EMP", ".PNG", ".SMP", ".XVR", ".FOT"})
    Scrivi(est, binario + est);
  Scrivi(".SEZ",
         "\"<INIZIO SEZIONE>\"\r\n500,50\r\n1.5,1,3\r\n1,9\r\n7\r\n1,6,1.5,7,1,\"Picchetti\"\r\n0,12.5\r\n"
         "1,6,1.5,7,0,\"Parziali\"\r\n1,1.5,7,0,\"Progressive\"\r\n0,6,1.5,7,0,0,0\r\n1,1.5,3,\"Quote\"\r\n"
         "0,5,0\r\n\"FOSSO\",0\r\n1,2,7\r\n1,2,7,1\r\n0,2,7\r\n1,2,7\r\n\"7|1|1|0.0|0.0|0.0|0|1|0|0.0|6.0|6.0|0|6.0|1.5|1|Progetto|Inclinate|2|0.0|0.0|0|0|0|0|0|1|1|1|0|\"\r\n"
         "\"F1\",10,-20\r\n2\r\n\"A\",1,2,13.5,13.5\r\n\"B \xE8\",4,6,12.75,12\r\n\"<FINE SEZIONE>\"\r\n");
  const auto fissati = MembriDi(base);
  ASSERT_EQ(fissati.size(), 25u);

  Apri();
  EXPECT_TRUE(p.ui.Messaggi.empty());
  ASSERT_EQ(s.ContaEntita[SlotCurve], 2);
  ASSERT_TRUE(Salva(s));
  EXPECT_TRUE(p.ui.Messaggi.empty());
  // Every member as it was, but the height of a circle, which a load takes from its East
  // field, and the point list, made anew from the points.
  auto attesi = fissati;
  attesi[".CER"] = prova::RecordCerchio(100.5);
  attesi.erase(".XVR");  // the whole-job text, written anew at every save
  attesi[".L"] = "1001\r\n\"0\",\"0\",0,0,0\r\n\"101\",\"\",1725000,5031000,14\r\n"
                 "\"PF01/0010/G693\",\"\",1725010.25,5031005.5,15\r\n";
  auto salvati = MembriDi(base);
  salvati.erase(".XVR");
  EXPECT_EQ(salvati, attesi);
  EXPECT_EQ(BackupDi(base).at(".SEK"), fissati.at(".SEZ"));

  prova::SessioneProva q;
  q.s.CartellaLavoro = s.CartellaLavoro;
  q.s.NomeOriginale = base;
  VR_ApriLavoro(q.s);
  StessoLavoro(s, q.s);
  // The environment's settings are read over those the job carries, which the file keeps.
  EXPECT_EQ(std::tie(q.s.Cfg.VB(B_FattoreZoom, 0).Numero, q.s.Cfg.VB(B_ColoreDefault, 0).Numero, q.s.Imp.FATTORE_DI_ZOOM),
            std::make_tuple(0.5, 3.0, 50.0));
  EXPECT_EQ(q.s.TestoTesto[0], "VIA À");
}

}  // namespace
}  // namespace varena
