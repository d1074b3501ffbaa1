// A save that fails half way, by a fault at a chosen member or by the process being killed,
// never costs the user the job: opened again, it is whole, as it was before the save or as
// saved, and the user is told which.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Archivio.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salva.h"
#include "store/Salvataggio.h"
#include "store/Slot.h"
#include "store/TestoLavoro.h"
#include "store/Undo.h"
#include "store/LavoroProva.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::LeggiFileProva;
using prova::MembriDi;
using Insieme = std::map<std::string, std::string>;

const std::string kCompletato =
    "L'ultimo salvataggio del Lavoro ROSSI si era interrotto: è stato completato, il Lavoro è quello salvato.";
const std::string kAnnullato =
    "L'ultimo salvataggio del Lavoro ROSSI si era interrotto: è stato annullato, il Lavoro è com'era prima.";

class Guasti : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  std::string lavori, base;
  Insieme prima, dopo;  // every file of the job's folder before the save and after it
  Insieme originali;    // the members before the save

  void Prepara(int punti) {
    lavori = s.CartellaLavoro + "LAVORI/";
    fs::create_directories(lavori);
    base = lavori + "ROSSI";
    prova::PreparaLavoro(base, punti, punti / 10);
    // The texts of the job were all deleted by the save before: it has their member, empty,
    // which the next save removes.
    prova::ScriviFileProva(base + ".TES", "");
    originali = Cartella();
    // The backups that save left, which this one replaces.
    prova::ScriviFileProva(base + ".LLK", prova::RecordPunto("1", 1724000));
    prova::ScriviFileProva(base + ".CFK", "\"VR2020\"\r\n");
    prima = Cartella();
  }
  // Everything in the folder of the job, by name.
  Insieme Cartella() const {
    Insieme m;
    for (const std::string& n : prova::NomiIn(lavori)) m[n] = LeggiFileProva(lavori + n);
    return m;
  }
  // The backups under the names of their members.
  Insieme BackupComeMembri() const {
    Insieme m;
    for (int slot = 0; slot < NumeroSlot; ++slot) {
      const std::string b = base + EstensioneBackup(slot);
      if (EstensioneFile(slot)[0] != '\0' && fs::is_regular_file(b))
        m["ROSSI" + std::string(EstensioneFile(slot))] = LeggiFileProva(b);
    }
    return m;
  }
  // The job opened as the user opens it, in a session of its own.
  void Apri(prova::SessioneProva& q) const {
    q.s.NomeOriginale = base;
    VR_ApriLavoro(q.s);
  }
  void Ripristina() {
    fs::remove_all(lavori);
    fs::create_directories(lavori);
    for (const auto& [nome, byte] : prima) prova::ScriviFileProva(lavori + nome, byte);
  }
  // The job opened and changed in several members: a point moved, a line deleted, a circle
  // the job did not have, a row of the field book and the view. Saved once to learn what the
  // save makes of it.
  void ApriEModifica() {
    Apri(p);
    s.Imp.SalvaUnaCopiaZip = 1;
    s.PuntoX[0] = 1;
    SegnaModificato(s, SlotPunti);
    s.LineaIdent[1] = -1;
    SegnaModificato(s, SlotLinee);
    PreparaRighe(s, SlotCerchi, 1);
    s.ContaEntita[SlotCerchi] = 1;
    s.CerchioX[0] = 1725005, s.CerchioY[0] = 5031005, s.CerchioRaggio[0] = 2.5, s.CerchioPiano[0] = "POZZI";
    SegnaModificato(s, SlotCerchi);
    AggiungiRigaLibretto(s, "9|20|10|20|1070|9.00-G|FR|rilievo celerimetrico|");
    s.Vista.CentroEst += 5;
    ASSERT_TRUE(VR_SalvaUndo(s));
    ASSERT_TRUE(Salva(s));
    dopo = Cartella();
    ASSERT_EQ(dopo.count("ROSSI.TES"), 0u);
    ASSERT_EQ(dopo.count("ROSSI.CER"), 1u);
  }
  // The save of the session, in a child process that `sonda` may kill; the status it ended with.
  int SalvaInUnFiglio(SondaGuasti sonda) {
    const pid_t figlio = fork();
    if (figlio == 0) {
      ImpostaSondaGuasti(std::move(sonda));
      Salva(s);
      ::_exit(0);
    }
    int stato = 0;
    EXPECT_EQ(::waitpid(figlio, &stato, 0), figlio);
    return stato;
  }
  // Kills the process at the n-th operation that changes the job's folder; removing a name
  // that is not there changes nothing and is not one.
  SondaGuasti UccidiAl(int n) {
    return [this, n, conta = 0](OperazioneFile op, std::string_view percorso) mutable {
      if (!IniziaCon(percorso, lavori)) return false;
      if (op == OperazioneFile::Eliminazione && !fs::exists(percorso)) return false;
      if (++conta == n) ::kill(::getpid(), SIGKILL);
      return false;
    };
  }
  // Kills the save as soon as its journal stands: all of it is left to the next opening.
  SondaGuasti UccidiDopoIlGiornale() {
    return [this, visto = false](OperazioneFile op, std::string_view percorso) mutable {
      if (!IniziaCon(percorso, lavori)) return false;
      if (visto) ::kill(::getpid(), SIGKILL);
      visto = op == OperazioneFile::Scrittura && percorso == base + ".~salvataggio";
      return false;
    };
  }
  // The job opened again as the user opens it: its folder holds exactly the files it held
  // before the save or after it, the tables are the ones of that job, and the user hears of a
  // save cut short. True when the save stands.
  bool Riaperto(const std::string& quando) {
    bool interrotto = false;
    for (const auto& [nome, byte] : Cartella()) interrotto |= nome.find(".~") != std::string::npos;
    prova::SessioneProva q;
    Apri(q);
    const Insieme ora = Cartella();
    const bool salvato = ora == dopo;
    EXPECT_TRUE(salvato || ora == prima) << quando;
    EXPECT_EQ(q.s.PuntoX[0], salvato ? 1 : 1725000) << quando;
    EXPECT_EQ(q.s.ContaEntita[SlotCerchi], salvato ? 1 : 0) << quando;
    std::vector<std::string> attesi;
    if (interrotto) attesi.push_back("Salvataggio interrotto: " + (salvato ? kCompletato : kAnnullato));
    EXPECT_EQ(prova::Detti(q.ui), attesi) << quando;
    EliminaProvviso(q.s);
    return salvato;
  }
};

TEST_F(Guasti, UnGuastoAOgniMembroLasciaLOriginaleComEra) {
  Prepara(50);
  Apri(p);
  s.PuntoX[0] = 1;
  SegnaModificato(s, SlotPunti);
  ASSERT_TRUE(VR_SalvaUndo(s));
  s.Imp.SalvaUnaCopiaZip = 1;
  SalvaTuttoIla7(s);
  SalvaZippatoInProvvisorio(s);
  const Insieme membri = MembriDi(s.NomeLavoro);
  ASSERT_EQ(membri.size(), 9u);  // all but the empty texts, with the whole-job text and the archive
  for (const auto& [est, byte] : membri) {
    p.ui.Messaggi.clear();
    {
      prova::SondaProva sonda([est = est](OperazioneFile op, std::string_view pp) {
        return (op == OperazioneFile::Copia || op == OperazioneFile::Scrittura) && FinisceCon(pp, est + ".~nuovo");
      });
      EXPECT_FALSE(VR_DaProvvisoAOriginale(s)) << est;
    }
    EXPECT_EQ(Cartella(), prima) << est;  // nothing changed, no temporary left behind
    EXPECT_EQ(prova::Detti(p.ui), std::vector<std::string>{"Rilevato errore: Si è verificato questo errore : Disk full o "
                                                           "il file potrebbe essere di sola lettura!\n"
                                                           "Nella Routine VR_DaProvvisoAOriginale"}) << est;
    EXPECT_EQ(MembriDi(s.NomeLavoro), membri);
  }
  // A member that cannot be written where it must land: a folder stands in the way.
  fs::create_directory(base + ".TES.~nuovo");
  EXPECT_FALSE(VR_DaProvvisoAOriginale(s));
  fs::remove(base + ".TES.~nuovo");
  EXPECT_EQ(Cartella(), prima);
  ASSERT_TRUE(VR_DaProvvisoAOriginale(s));
  EXPECT_EQ(MembriDi(base), membri);
  EXPECT_EQ(BackupComeMembri(), originali);
}

TEST_F(Guasti, ProcessoUccisoInOgniPassoDelSalvataggio) {
  Prepara(10000);  // some 3 MB
  ApriEModifica();
  int completati = 0, annullati = 0;
  for (int passo = 1;; ++passo) {
    Ripristina();
    const int stato = SalvaInUnFiglio(UccidiAl(passo));
    const bool salvato = Riaperto("ucciso al passo " + std::to_string(passo));
    if (!WIFSIGNALED(stato)) {
      EXPECT_TRUE(salvato);  // past the last step the save ran to its end
      break;
    }
    ++(salvato ? completati : annullati);
    ASSERT_LT(passo, 500);
  }
  // The save makes 10 members (points, lines, circles, settings, .INF, field book, point list,
  // layers, the whole-job text and the archive) over 8 (the same but circles, text and
  // archive, and the empty texts) and their 2 older backups. Before the journal stands: the
  // start and the middle of each copy, and the journal's own write. After: the 2 older
  // backups go, 8 originals become backups, 10 copies take their places, the journal goes.
  EXPECT_EQ(annullati, 2 * 10 + 1);
  EXPECT_EQ(completati, 2 + 8 + 10 + 1);
  // What the save left is the job: the archive holds its members, the text its points.
  std::map<std::string, std::string> archiviati;
  for (const MembroArchivio& m : LeggiArchivio(dopo.at("ROSSI.VRZ"))) archiviati[m.Nome] = m.Byte;
  Insieme attesi;
  for (int slot = 1; slot < NumeroSlot; ++slot) {
    const std::string nome = "ROSSI" + std::string(EstensioneFile(slot));
    if (EstensioneFile(slot)[0] != '\0' && dopo.count(nome)) attesi[nome] = dopo.at(nome);
  }
  EXPECT_EQ(archiviati, attesi);
  size_t punti = 0;
  for (size_t k = 0; (k = dopo.at("ROSSI.XVR").find("\"<PUNTO>\"", k)) != std::string::npos; ++k) ++punti;
  EXPECT_EQ(punti, 10000u);
}

TEST_F(Guasti, RipresaUccisaInOgniPasso) {
  Prepara(50);
  ApriEModifica();
  for (int passo = 1;; ++passo) {
    Ripristina();
    SalvaInUnFiglio(UccidiDopoIlGiornale());
    ASSERT_TRUE(fs::exists(base + ".~salvataggio"));
    // The opening that takes the save up, killed in its turn.
    const pid_t figlio = fork();
    if (figlio == 0) {
      ImpostaSondaGuasti(UccidiAl(passo));
      Sessione t;
      t.CartellaLavoro = s.CartellaLavoro;
      t.NomeOriginale = base;
      VR_ApriLavoro(t);
      ::_exit(0);
    }
    int stato = 0;
    ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
    EXPECT_TRUE(Riaperto("ripresa uccisa al passo " + std::to_string(passo)));
    if (!WIFSIGNALED(stato)) break;
    ASSERT_LT(passo, 200);
  }
}

TEST_F(Guasti, UnaCopiaPersaRiportaIlLavoroComEraPrima) {
  Prepara(50);
  ApriEModifica();
  Ripristina();
  // Killed half way through the renames into place: the members before the field book are new.
  SalvaInUnFiglio([this](OperazioneFile op, std::string_view percorso) {
    if (op == OperazioneFile::Rinomina && percorso == base + ".TXT") ::kill(::getpid(), SIGKILL);
    return false;
  });
  ASSERT_EQ(LeggiFileProva(base + ".LLL"), dopo.at("ROSSI.LLL"));
  ASSERT_EQ(LeggiFileProva(base + ".LLK"), originali.at("ROSSI.LLL"));
  // A copy still waiting is lost, as a disk switched off may lose it: the save cannot be
  // completed, and every member goes back.
  ASSERT_TRUE(fs::remove(base + ".PIA.~nuovo"));
  prova::SessioneProva q;
  Apri(q);
  // The older backups the save had removed stay removed: the job is the one before.
  EXPECT_EQ(Cartella(), originali);
  EXPECT_EQ(prova::Detti(q.ui), std::vector<std::string>{"Salvataggio interrotto: " + kAnnullato});
  EXPECT_EQ(q.s.PuntoX[0], 1725000);
  EliminaProvviso(q.s);
}

TEST_F(Guasti, UnGiornaleIlleggibileNonMuoveNulla) {
  Prepara(50);
  ApriEModifica();
  Ripristina();
  SalvaInUnFiglio(UccidiDopoIlGiornale());
  // A name outside the job's folder: the journal is not taken at its word.
  std::string giornale = LeggiFileProva(base + ".~salvataggio");
  const size_t k = giornale.find("\"ROSSI.LLK\"");
  ASSERT_NE(k, std::string::npos);
  giornale.replace(k, 11, "\"../ROSSI.LLK\"");
  prova::ScriviFileProva(base + ".~salvataggio", giornale);
  const Insieme lasciato = Cartella();
  prova::SessioneProva q;
  Apri(q);
  EXPECT_EQ(Cartella(), lasciato);
  EXPECT_EQ(prova::Detti(q.ui), std::vector<std::string>{"Rilevato errore: Si è verificato questo errore : Invalid file "
                                                         "format o il file potrebbe essere di sola lettura!\n"
                                                         "Nella Routine RiprendiSalvataggio"});
  EXPECT_EQ(q.s.ContaEntita[SlotPunti], 0);
}

TEST_F(Guasti, MembriMancantiAccantoAlBackupNonSiApronoInSilenzio) {
  Prepara(50);
  // What a save of an older program leaves when it is cut short: the points and the lines are
  // already their backups, and nothing stands in their place.
  fs::rename(base + ".LLL", base + ".LLK");
  fs::rename(base + ".LIN", base + ".LIK");
  const Insieme lasciato = Cartella();
  Apri(p);
  EXPECT_EQ(Cartella(), lasciato);
  EXPECT_EQ(prova::Detti(p.ui), std::vector<std::string>{
            "Apri Lavoro: Del Lavoro ROSSI mancano questi file, dei quali resta la copia di sicurezza:\nROSSI.LLL (ROSSI.LLK)\n"
            "ROSSI.LIN (ROSSI.LIK)\nSe l'ultimo salvataggio li ha tolti perché vuoti, va bene così; se mancano per "
            "errore, rinominare le copie prima di salvare, perché il salvataggio le sostituisce."});
}

}  // namespace
}  // namespace varena
