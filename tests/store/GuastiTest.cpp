// A save that fails half way, by a fault at a chosen member or by the process being killed,
// never leaves the user without a whole job: the original set, its backups or the
// provisional copy is complete, and opening it gives the job back.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salva.h"
#include "store/Salvataggio.h"
#include "store/Slot.h"
#include "store/Undo.h"
#include "store/LavoroProva.h"
#include "support/Supporto.h"

namespace varena {
namespace {

namespace fs = std::filesystem;
using prova::LeggiFileProva;
using prova::MembriDi;
using Insieme = std::map<std::string, std::string>;

class Guasti : public ::testing::Test {
 protected:
  prova::SessioneProva p;
  Sessione& s = p.s;
  std::string lavori, base, provvisorio;
  Insieme vecchio;
  void Prepara(int punti) {
    lavori = s.CartellaLavoro + "LAVORI/";
    fs::create_directories(lavori);
    base = lavori + "ROSSI";
    provvisorio = s.CartellaLavoro + "PROVVISO/ROSSI_20262111103015";
    prova::PreparaLavoro(base, punti, punti / 10);
    vecchio = MembriDi(base);
  }
  // What a save does in the program: open, one edit of the points and one of the lines, save.
  static void AperturaModificaSalvataggio(Sessione& t, const std::string& base, const std::function<void()>& poi) {
    t.NomeOriginale = base;
    VR_ApriLavoro(t);
    t.PuntoX[0] = 1;
    SegnaModificato(t, SlotPunti);
    t.LineaIdent[1] = -1;
    SegnaModificato(t, SlotLinee);
    poi();
    Salva(t);
  }
  // The same in a child process, in a session of its own.
  pid_t Figlio(const std::function<void()>& poi) {
    const pid_t figlio = fork();
    if (figlio == 0) {
      Sessione t;
      t.CartellaLavoro = s.CartellaLavoro;
      t.Orologio = s.Orologio;
      AperturaModificaSalvataggio(t, base, poi);
      ::_exit(0);
    }
    return figlio;
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
      if (EstensioneFile(slot)[0] != '\0' && fs::is_regular_file(b)) m[EstensioneFile(slot)] = LeggiFileProva(b);
    }
    return m;
  }
  void Ripristina() {
    fs::remove_all(lavori);
    fs::remove_all(s.CartellaLavoro + "PROVVISO");
    fs::create_directories(lavori);
    fs::create_directories(s.CartellaLavoro + "PROVVISO");
    std::remove((s.CartellaLavoro + "LavoriRecenti.txt").c_str());
    for (const auto& [est, byte] : vecchio) prova::ScriviFileProva(base + est, byte);
  }
  // One of the three sets is whole, and opening it gives the job as saved or as before.
  void UnInsiemeEIntegro(const Insieme& nuovo, const std::string& quando) {
    const Insieme originale = MembriDi(base);
    const bool vecchioIntegro = originale == vecchio;
    const bool nuovoIntegro = originale == nuovo;
    const bool backupIntegri = BackupComeMembri() == vecchio;
    const bool provvisorioIntegro = MembriDi(provvisorio) == nuovo;
    ASSERT_TRUE(vecchioIntegro || nuovoIntegro || backupIntegri || provvisorioIntegro) << quando;
    prova::SessioneProva q;
    q.s.CartellaLavoro = s.CartellaLavoro;
    if (vecchioIntegro || nuovoIntegro) {
      q.s.NomeOriginale = base;
      q.s.NomeLavoro = base;
      q.s.SolaLettura = true;
    } else {
      q.s.NomeLavoro = provvisorio;  // the copy the registry offers to recover
    }
    CaricaLavoro(q.s);
    const bool salvato = nuovoIntegro || (!vecchioIntegro && provvisorioIntegro);
    EXPECT_EQ(q.s.PuntoX[0], salvato ? 1 : 1725000) << quando;
    EXPECT_EQ(q.s.ContaEntita[SlotLinee], static_cast<int32_t>(vecchio.at(".LIN").size() / 128) - (salvato ? 1 : 0))
        << quando;
    EXPECT_TRUE(q.ui.Messaggi.empty()) << quando;
  }
};

TEST_F(Guasti, UnGuastoAOgniMembroLasciaLOriginaleComEra) {
  Prepara(50);
  s.NomeOriginale = base;
  VR_ApriLavoro(s);
  s.PuntoX[0] = 1;
  SegnaModificato(s, SlotPunti);
  ASSERT_TRUE(VR_SalvaUndo(s));
  const Insieme prima = Cartella();
  const Insieme membri = MembriDi(s.NomeLavoro);
  ASSERT_GE(membri.size(), 8u);
  for (const auto& [est, byte] : membri) {
    p.ui.Messaggi.clear();
    {
      prova::SondaProva sonda([est = est](OperazioneFile op, std::string_view pp) {
        return (op == OperazioneFile::Copia || op == OperazioneFile::Scrittura) && FinisceCon(pp, est + ".~nuovo");
      });
      EXPECT_FALSE(VR_DaProvvisoAOriginale(s)) << est;
    }
    EXPECT_EQ(Cartella(), prima) << est;  // nothing changed, no temporary left behind
    ASSERT_EQ(p.ui.Messaggi.size(), 1u) << est;
    EXPECT_EQ(p.ui.Messaggi[0].Testo,
              "Si è verificato questo errore : Disk full o il file potrebbe essere di sola lettura!\n"
              "Nella Routine VR_DaProvvisoAOriginale");
    EXPECT_EQ(MembriDi(s.NomeLavoro), membri);
  }
  // A member that cannot be written where it must land: a folder stands in the way.
  fs::create_directory(base + ".TES.~nuovo");
  EXPECT_FALSE(VR_DaProvvisoAOriginale(s));
  fs::remove(base + ".TES.~nuovo");
  EXPECT_EQ(Cartella(), prima);
  ASSERT_TRUE(VR_DaProvvisoAOriginale(s));
  EXPECT_EQ(MembriDi(base), membri);
  EXPECT_EQ(BackupComeMembri(), vecchio);
}

TEST_F(Guasti, ProcessoUccisoInOgniPassoDelSalvataggio) {
  Prepara(50);
  // The save carried to its end, for the set it must produce.
  AperturaModificaSalvataggio(s, base, [] {});
  const Insieme nuovo = MembriDi(base);
  ASSERT_NE(nuovo, vecchio);
  int uccisi = 0;
  for (int passo = 1;; ++passo) {
    Ripristina();
    int operazioni = 0;
    const pid_t figlio = Figlio([&] {
      ImpostaSondaGuasti([&](OperazioneFile op, std::string_view percorso) {
        // The removal of a name that is not there changes nothing: not a step worth a kill.
        if (op == OperazioneFile::Eliminazione && !fs::exists(percorso)) return false;
        if (++operazioni == passo) ::kill(::getpid(), SIGKILL);
        return false;
      });
    });
    ASSERT_GE(figlio, 0);
    int stato = 0;
    ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
    UnInsiemeEIntegro(nuovo, "ucciso al passo " + std::to_string(passo));
    if (!WIFSIGNALED(stato)) {
      EXPECT_EQ(MembriDi(base), nuovo);  // past the last step the save ran to its end
      break;
    }
    ++uccisi;
    ASSERT_LT(passo, 1000);
  }
  EXPECT_GT(uccisi, 40);  // every operation of the snapshot and of the save was a kill point
}

TEST_F(Guasti, ProcessoUccisoDuranteIlSalvataggioDiUnLavoroGrande) {
  Prepara(40000);
  auto lancia = [&] { return Figlio([] {}); };
  const auto inizio = std::chrono::steady_clock::now();
  const pid_t intero = lancia();
  ASSERT_GT(intero, 0);
  int stato = 0;
  ASSERT_EQ(::waitpid(intero, &stato, 0), intero);
  const auto durata = std::chrono::steady_clock::now() - inizio;
  ASSERT_TRUE(WIFEXITED(stato));
  const Insieme nuovo = MembriDi(base);
  for (int decimi = 1; decimi <= 9; decimi += 2) {
    Ripristina();
    const pid_t figlio = lancia();
    ASSERT_GT(figlio, 0);
    std::this_thread::sleep_for(durata * decimi / 10);
    ::kill(figlio, SIGKILL);
    ASSERT_EQ(::waitpid(figlio, &stato, 0), figlio);
    UnInsiemeEIntegro(nuovo, "ucciso a " + std::to_string(decimi) + "/10");
  }
}

}  // namespace
}  // namespace varena
