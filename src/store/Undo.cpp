// Snapshots, undo and redo of the provisional copy.
//
// A generation holds the same files as the provisional copy had when it was taken. Files are
// never changed in place (every write and copy goes beside the file and is renamed over it),
// so a member that an edit did not touch can be one file on disk under the provisional name
// and under the names of any number of generations: a snapshot costs what changed, and
// restoring a generation puts back exactly the set it recorded.
#include "store/Undo.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Salva.h"
#include "store/Slot.h"
#include "view/Ridisegna.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

// The numbers of the view that a snapshot must not disturb.
struct VistaSalvata {
  double CentroEst, CentroNord, AltezzaVista, RapportoVista;
  double BordoSinistro, BordoBasso, BordoDestro, BordoAlto;
  explicit VistaSalvata(const StatoVista& v)
      : CentroEst(v.CentroEst), CentroNord(v.CentroNord), AltezzaVista(v.AltezzaVista),
        RapportoVista(v.RapportoVista), BordoSinistro(v.BordoSinistro), BordoBasso(v.BordoBasso),
        BordoDestro(v.BordoDestro), BordoAlto(v.BordoAlto) {}
  void Rimetti(StatoVista& v) const {
    v.CentroEst = CentroEst, v.CentroNord = CentroNord, v.AltezzaVista = AltezzaVista;
    v.RapportoVista = RapportoVista, v.BordoSinistro = BordoSinistro, v.BordoBasso = BordoBasso;
    v.BordoDestro = BordoDestro, v.BordoAlto = BordoAlto;
  }
};

bool Estensione(int slot) { return EstensioneFile(slot)[0] != '\0'; }

// A member goes to a generation (or back) as a second name of the same file, or as a copy
// where the file system has no links.
void Condividi(const Sessione& s, const std::string& da, const std::string& a, bool collega) {
  if (collega && s.CollegaGenerazioni && CollegaFile(da, a)) return;
  CopiaFile(da, a);
}

// Step 4 of the snapshot: whatever generation `passo` held goes, then every member of the
// provisional copy joins it.
void ScriviGenerazione(Sessione& s, int64_t passo, bool collega) {
  const std::string radice = RadiceGenerazione(s, passo);
  for (int slot = 0; slot < NumeroSlot; ++slot)
    if (Estensione(slot)) EliminaFileEsatto(radice + EstensioneBackup(slot));
  for (int slot = 0; slot < NumeroSlot; ++slot)
    if (Estensione(slot)) EliminaFileEsatto(radice + EstensioneFile(slot));
  const FileLavoro p = ElencaFileLavoro(s.NomeLavoro);
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const std::string& membro = p.Membro[static_cast<size_t>(slot)];
    if (!membro.empty()) Condividi(s, membro, radice + EstensioneFile(slot), collega);
  }
}

// Steps 4 and 5 of undo and redo: the provisional copy becomes exactly generation `passo`.
// A member that is already the generation's very file is left where it is; `cambiati` tells
// the others, those put in place or taken away.
void RipristinaGenerazione(Sessione& s, int64_t passo, std::array<bool, NumeroSlot>& cambiati) {
  const std::string radice = RadiceGenerazione(s, passo);
  FileLavoro p = ElencaFileLavoro(s.NomeLavoro);
  // A member standing twice under two letter cases may have been read from either.
  cambiati.fill(!p.Doppioni.empty());
  for (const std::string& doppione : p.Doppioni) EliminaFileEsatto(doppione);
  std::array<bool, NumeroSlot> inGenerazione{};
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const auto k = static_cast<size_t>(slot);
    std::error_code ec;
    inGenerazione[k] = Estensione(slot) && std::filesystem::is_regular_file(radice + EstensioneFile(slot), ec);
    std::string& membro = p.Membro[k];
    if (membro.empty()) continue;
    if (inGenerazione[k] && StessoFile(membro, radice + EstensioneFile(slot))) continue;
    cambiati[k] = true;
    EliminaFileEsatto(membro);
    membro.clear();
  }
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const auto k = static_cast<size_t>(slot);
    if (inGenerazione[k] && p.Membro[k].empty()) {
      cambiati[k] = true;
      Condividi(s, radice + EstensioneFile(slot), s.NomeLavoro + EstensioneFile(slot), true);
    }
  }
}

bool GenerazioneSuDisco(const Sessione& s, int64_t passo) {
  const std::string radice = RadiceGenerazione(s, passo);
  std::error_code ec;
  for (int slot = 0; slot < NumeroSlot; ++slot)
    if (Estensione(slot) && std::filesystem::is_regular_file(radice + EstensioneFile(slot), ec)) return true;
  return false;
}

bool Sposta(Sessione& s, int verso) {
  const char* tag = verso < 0 ? "VR_UNDO" : "VR_REDO";
  s.RoutineCorrente = tag;
  std::optional<DiarioUndo> d;
  if (!Protetto(s, [&] { d = LeggiDiario(s); }) || !d) return false;
  const int64_t passo = d->Passo + verso;
  if (verso < 0 ? passo < 1 : passo > d->UltimoPasso) return false;
  // A damaged journal may name a generation of which nothing stands: restoring it would
  // empty the provisional copy.
  if (!GenerazioneSuDisco(s, passo)) return false;
  std::array<bool, NumeroSlot> cambiati{};
  const bool messa = Protetto(s, [&] { RipristinaGenerazione(s, passo, cambiati); });
  // When the generation could not be put in place, the one the journal still names goes
  // back, so that the tables, the provisional copy and the journal keep agreeing.
  const bool coerente = messa || Protetto(s, [&] { RipristinaGenerazione(s, d->Passo, cambiati); });
  // Only the members that changed are read again, when the tables allow it; a failure half
  // way reads everything.
  if (!messa || !RicaricaLavoro(s, cambiati)) {
    ClearAllTables(s);
    CaricaLavoro(s);
  }
  // The tables were just read from the provisional files: nothing is waiting to be written.
  if (coerente) SegnaTuttoSalvato(s);
  RigeneraModifiche(s);
  if (!messa) return false;
  s.RoutineCorrente = tag;
  return Protetto(s, [&] { ScriviDiario(s, {passo, d->UltimoPasso}); });
}

}  // namespace

std::string PercorsoDiario(const Sessione& s) { return s.NomeLavoro + "_ILN.UND"; }

std::string RadiceGenerazione(const Sessione& s, int64_t passo) {
  return s.NomeLavoro + "(" + std::to_string(passo) + ")";
}

std::optional<DiarioUndo> LeggiDiario(const Sessione& s) {
  const auto byte = LeggiByte(PercorsoDiario(s));
  if (!byte) return std::nullopt;
  const std::vector<std::string> righe = RigheTesto(*byte);
  // A step beyond fifteen digits is no session's: the print form would no longer write it
  // whole, and the next step would run past the integers.
  static constexpr int64_t kMassimoPasso = 999'999'999'999'999;
  auto passo = [](const std::string& riga) { return std::clamp<int64_t>(ArrotondaPari(Val(riga)), 0, kMassimoPasso); };
  DiarioUndo d;
  if (righe.size() > 0) d.Passo = passo(righe[0]);
  if (righe.size() > 1) d.UltimoPasso = passo(righe[1]);
  return d;
}

void ScriviDiario(const Sessione& s, const DiarioUndo& d) {
  // Two numbers as the print statement writes them: " 5 ".
  ScriviTesto(PercorsoDiario(s), FormaStampa(static_cast<double>(d.Passo)) + "\r\n" +
                                     FormaStampa(static_cast<double>(d.UltimoPasso)) + "\r\n");
}

bool VR_SalvaUndo(Sessione& s, bool completo) {
  if (Rifila(s.NomeLavoro).empty()) return false;  // no job open: nowhere to write
  const VistaSalvata vista(s.Vista);
  s.RoutineCorrente = "VR_ SalvaUndo";
  DiarioUndo d;
  bool ok = Protetto(s, [&] { d = LeggiDiario(s).value_or(DiarioUndo{}); });
  const int64_t passo = d.Passo + 1;
  ok = ok && SalvaTutto(s, completo);
  if (ok) {
    s.RoutineCorrente = "VR_ Salvaundo 2";
    ok = Protetto(s, [&] {
      // A redo into the generation about to be overwritten is given up before it is touched,
      // so that a failure half way never leaves the journal pointing at a broken one.
      if (d.UltimoPasso >= passo) ScriviDiario(s, {d.Passo, d.Passo});
      ScriviGenerazione(s, passo, !completo);
      ScriviDiario(s, {passo, passo});
    });
  }
  s.RoutineCorrente = "Uscito da VR_ Salvaundo ";
  // The display list follows the tables just committed, remade only where they changed; the
  // view stays as the user left it.
  if (ok) {
    RigeneraModifiche(s);
    Ridisegna(s);
  }
  vista.Rimetti(s.Vista);
  return ok;
}

bool VR_UNDO(Sessione& s) { return Sposta(s, -1); }
bool VR_REDO(Sessione& s) { return Sposta(s, +1); }

void StaccaMembro(Sessione& s, int slot) {
  s.RoutineCorrente = "StaccaMembro";
  Protetto(s, [&] {
    const std::string membro = ElencaFileLavoro(s.NomeLavoro).Membro[static_cast<size_t>(slot)];
    // A copy onto itself lands beside the file and replaces it: a new file, no other name.
    if (!membro.empty()) CopiaFile(membro, membro);
  });
}

}  // namespace varena
