// Savers of the job members.
#include "store/Salva.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Piani.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "sections/FileSezioni.h"
#include "store/Cfg.h"
#include "store/Inclusi.h"
#include "store/Slot.h"

namespace varena {

namespace {

// One pass of saving: the files of `NomeLavoro` as they stood when it began, kept up to
// date as the savers remove them, so that no saver asks the disk for a name.
struct Passata {
  Sessione& s;
  FileLavoro file;
  bool soloSeDiverso;  // text members: leave a file that already holds the bytes
  // A whole save tells its progress member by member: a large job takes a while to write.
  bool conAvanzamento = false;
  int64_t scritti = 0;
};

// The members a whole save writes at most.
constexpr int64_t kMembriSalvati = 17;

Passata Inizia(Sessione& s, bool soloSeDiverso) { return {s, ElencaFileLavoro(s.NomeLavoro), soloSeDiverso}; }

void Togli(std::string& percorso) {
  if (percorso.empty()) return;
  EliminaFileEsatto(percorso);
  percorso.clear();
}

// Where a member goes: over the file that stands (whatever its letter case), else under
// the name of the slot table.
std::string Destinazione(const Passata& p, int slot) {
  const std::string& c = p.file.Membro[static_cast<size_t>(slot)];
  return c.empty() ? p.s.NomeLavoro + EstensioneFile(slot) : c;
}

void Scrivi(Passata& p, int slot, std::string_view byte) {
  const std::string dest = Destinazione(p, slot);
  ScriviByte(dest, byte);
  p.file.Membro[static_cast<size_t>(slot)] = dest;
  if (p.conAvanzamento) p.s.Ui->Progresso(std::min(++p.scritti, kMembriSalvati - 1), kMembriSalvati);
}

// The file holds exactly these bytes.
// Compared a piece at a time: the member of a large job read whole would be a second copy
// of it in fresh memory, every page of which costs more than the comparison.
bool StessiByte(const std::string& percorso, std::string_view byte) {
  if (percorso.empty() || LunghezzaFile(percorso) != static_cast<int64_t>(byte.size())) return false;
  std::unique_ptr<FILE, int (*)(FILE*)> f(std::fopen(percorso.c_str(), "rb"), &std::fclose);
  if (!f) return false;
  std::vector<char> pezzo(size_t{1} << 20);
  for (size_t fatto = 0; fatto < byte.size();) {
    const size_t n = std::fread(pezzo.data(), 1, std::min(pezzo.size(), byte.size() - fatto), f.get());
    if (n == 0 || std::memcmp(pezzo.data(), byte.data() + fatto, n) != 0) return false;
    fatto += n;
  }
  return std::fgetc(f.get()) == EOF;
}

// A record member. The legacy saver removed the file and wrote it anew; here the new file
// replaces the old in one rename, so that the member is never missing or half written.
template <class Tab, class Filtro>
void SalvaRecord(Passata& p, const LayoutRecord<Tab>& layout, const char* routine, Filtro tieni) {
  Sessione& s = p.s;
  s.RoutineCorrente = routine;
  const int slot = layout.Slot;
  Togli(p.file.Backup[static_cast<size_t>(slot)]);
  if (s.ContaEntita[slot] < 1) {
    Togli(p.file.Membro[static_cast<size_t>(slot)]);
    return;
  }
  std::vector<int64_t> righe;
  righe.reserve(static_cast<size_t>(s.ContaEntita[slot]));
  for (int32_t r = 0; r < s.ContaEntita[slot]; ++r)
    if (tieni(static_cast<size_t>(r))) righe.push_back(r);
  const auto L = static_cast<size_t>(layout.Lunghezza);
  std::unique_ptr<char[]> byte(new char[righe.size() * L]);
  const Tab& tab = s;
  CodificaRighe(layout, tab, righe, reinterpret_cast<unsigned char*>(byte.get()));
  const std::string_view dati(byte.get(), righe.size() * L);
  // A table that nothing changed since it was read gives back, most often, the very bytes of
  // its member: then the file stays, shared with the generations, and opening a large job
  // does not write it all again.
  if (p.soloSeDiverso && !s.CambiatoDaCaricamento[static_cast<size_t>(slot)] &&
      StessiByte(p.file.Membro[static_cast<size_t>(slot)], dati))
    return;
  // A count of rows none of which passes still opens the file: it stays, empty.
  Scrivi(p, slot, dati);
}

// A text member, given as the bytes of the file (no value: the member must not exist). In a
// snapshot a file that already holds exactly those bytes is not touched, so that it stays
// shared with the undo generations.
void Deponi(Passata& p, int slot, const std::optional<std::string>& byte, std::string* backup) {
  std::string& ora = p.file.Membro[static_cast<size_t>(slot)];
  if (p.soloSeDiverso) {
    if (!byte && ora.empty()) return;
    if (byte && !ora.empty() && LeggiByte(ora) == byte) return;
  }
  if (backup) Togli(*backup);
  if (!byte) {
    Togli(ora);
    return;
  }
  Scrivi(p, slot, *byte);
}

std::string* BackupDi(Passata& p, int slot) { return &p.file.Backup[static_cast<size_t>(slot)]; }

void SalvaPunti(Passata& p) {
  Sessione& s = p.s;
  SalvaRecord(p, LayoutPunti(), "SalvaPunti",
              [&](size_t r) { return IdentVivo(s.PuntoIdent[r]) && !PianoIncluso(s.PuntoPiano[r]); });
}
void SalvaLinee(Passata& p) {
  Sessione& s = p.s;
  SalvaRecord(p, LayoutLinee(), "SalvaLinee",
              [&](size_t r) {
    return IdentVivo(s.LineaIdent[r]) && Rifila(s.LineaPiano[r]) != "ZZZ" && !PianoIncluso(s.LineaPiano[r]);
  });
}
void SalvaCerchi(Passata& p) {
  SalvaRecord(p, LayoutCerchi(), "SalvaCerchi",
              [&](size_t r) { return IdentVivo(p.s.CerchioIdent[r]) && !PianoIncluso(p.s.CerchioPiano[r]); });
}
void SalvaArchi(Passata& p) {
  SalvaRecord(p, LayoutArchi(), "SalvaArchi",
              [&](size_t r) { return IdentVivo(p.s.ArcoIdent[r]) && !PianoIncluso(p.s.ArcoPiano[r]); });
}
void SalvaTesti(Passata& p) {
  SalvaRecord(p, LayoutTesti(), "SalvaTesti",
              [&](size_t r) { return IdentVivo(p.s.TestoIdent[r]) && !PianoIncluso(p.s.TestoPiano[r]); });
}
void SalvaFalde(Passata& p) {
  SalvaRecord(p, LayoutFalde(), "SalvaFalde", [&](size_t r) { return IdentVivo(p.s.FaldaIdent[r]); });
}

void SalvaCurve(Passata& p) {
  Sessione& s = p.s;
  s.RoutineCorrente = "SalvaCurve";
  // The contour vertices keep one backup of their own: the old file becomes it.
  std::string& backup = p.file.Backup[SlotCurve];
  std::string& membro = p.file.Membro[SlotCurve];
  Togli(backup);
  if (!membro.empty()) {
    backup = s.NomeLavoro + EstensioneBackup(SlotCurve);
    RinominaFile(membro, backup);
    membro.clear();
  }
  if (s.ContaEntita[SlotCurve] < 1) return;
  std::vector<int64_t> righe(static_cast<size_t>(s.ContaEntita[SlotCurve]));
  for (size_t r = 0; r < righe.size(); ++r) righe[r] = static_cast<int64_t>(r);
  std::string byte(righe.size() * 17, '\0');
  const TabellaCurve& tab = s;
  CodificaRighe(LayoutCurve(), tab, righe, reinterpret_cast<unsigned char*>(byte.data()));
  Scrivi(p, SlotCurve, byte);
}

void SalvaSette(Passata& p) {
  Sessione& s = p.s;
  s.RoutineCorrente = "SalvaSette";
  std::optional<std::string> testo;
  if (s.ContaEntita[SlotSette] >= 1) {
    testo.emplace();
    for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k) {
      const auto r = static_cast<size_t>(k);
      *testo += IstruzioneLista()
                    .Numero(s.SetteIdent[r])
                    .Testo(s.SetteContorno[r])
                    .Testo(s.SetteCommento[r])
                    .Testo(s.SetteParticella[r])
                    .Numero(s.SetteColore[r])
                    .Numero(s.SetteTratteggio[r])
                    .Riga();
    }
    testo = Utf8InCp1252(*testo);
  }
  // This saver has always removed its backup as ".haK": the same name as ".HAK" to a
  // folder that ignores letter case, which is how the listing finds it.
  Deponi(p, SlotSette, testo, BackupDi(p, SlotSette));
}

void SalvaInf(Passata& p) {
  p.s.RoutineCorrente = "SalvaInf";
  Deponi(p, SlotInf, Utf8InCp1252(IstruzioneLista().Testo(p.s.NomeOriginale).Riga()), nullptr);
}

void SalvaSezioni(Passata& p) {
  p.s.RoutineCorrente = "Salva Sezioni";
  Deponi(p, SlotSezioni, ByteSezioni(p.s), nullptr);
}

void SalvaBitmap(Passata& p) {
  Sessione& s = p.s;
  s.RoutineCorrente = "sALVA BIT MAP1";
  std::optional<std::string> testo;
  if (s.ContaEntita[SlotBitmap] >= 1) {
    testo.emplace();
    for (int32_t k = 0; k < s.ContaEntita[SlotBitmap]; ++k) {
      const auto r = static_cast<size_t>(k);
      if (!IdentVivo(s.BitmapIdent[r])) continue;
      *testo += IstruzioneLista()
                    .Numero(s.BitmapIdent[r])
                    .Testo(s.BitmapNomeFile[r])
                    .Numero(s.BitmapX[r])
                    .Numero(s.BitmapY[r])
                    .Numero(s.BitmapLarghezza[r])
                    .Numero(s.BitmapAltezza[r])
                    .Numero(s.BitmapCongela[r])
                    .Testo("++++++++")
                    .Numero(s.BitmapZoom[r])
                    .Numero(s.BitmapScalaLar[r])
                    .Numero(s.BitmapScalaAlt[r])
                    .Numero(s.BitmapRotazione[r])
                    .Testo(s.BitmapPiano[r])
                    .Riga();
    }
    testo = Utf8InCp1252(*testo);
  }
  Deponi(p, SlotBitmap, testo, BackupDi(p, SlotBitmap));
}

void SalvaLibretto(Passata& p) {
  Sessione& s = p.s;
  s.RoutineCorrente = "sALVA lIBRETTO 1";
  std::optional<std::string> testo;
  if (!s.LibrettoMisure.empty()) {
    testo.emplace();
    for (const std::string& riga : s.LibrettoMisure) *testo += riga + "\r\n";
    testo = Utf8InCp1252(*testo);
  }
  Deponi(p, SlotLibretto, testo, BackupDi(p, SlotLibretto));
}

void SalvaListaL(Passata& p) {
  Sessione& s = p.s;
  s.RoutineCorrente = "SalvaListaL";
  if (s.ContaEntita[SlotPunti] < 2) return;
  std::string testo = Utf8InCp1252(IstruzioneLista().Numero(1001).Riga());
  testo += Utf8InCp1252(IstruzioneLista().Testo("0").Testo("0").Numero(0).Numero(0).Numero(0).Riga());
  // The statements written straight into one buffer in the code page, the two texts of each
  // converted on their own (a character never runs past a quote): the numbers are ASCII, and
  // a list of a million points is written in one pass, as the snapshot of a large job needs.
  testo.reserve(testo.size() + static_cast<size_t>(s.ContaEntita[SlotPunti]) * 64);
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (PianoIncluso(s.PuntoPiano[r])) continue;  // another drawing's: not the job's to hand on
    testo += '"';
    testo += Utf8InCp1252(s.PuntoNome[r]);
    testo += "\",\"";
    testo += Utf8InCp1252(s.PuntoDescrizione[r]);
    testo += '"';
    for (const double v : {s.PuntoX[r], s.PuntoY[r], s.PuntoZ[r]}) {
      testo += ',';
      testo += FormaSemplice(v);
    }
    testo += "\r\n";
  }
  Scrivi(p, SlotL, testo);
}

std::optional<std::string> Blocco(const std::string& testo) {
  if (testo.empty()) return std::nullopt;
  return Utf8InCp1252(testo);
}

void Salva126(Passata& p) {
  p.s.RoutineCorrente = "Salva126";
  Deponi(p, Slot126, Blocco(p.s.Testo126), BackupDi(p, Slot126));
}

void SalvaCel(Passata& p) {
  p.s.RoutineCorrente = "SalvaCel";
  // This saver removes ".CEK", the circles' backup name, not its own ".CKK": kept so.
  Deponi(p, SlotCel, Blocco(p.s.TestoCel), BackupDi(p, SlotCerchi));
}

void SalvaCfg(Passata& p) {
  p.s.RoutineCorrente = "SalvaCfg";
  Deponi(p, SlotCfg, Utf8InCp1252(TestoCfg(p.s)), nullptr);
}

void SalvaPiani(Passata& p) {
  Sessione& s = p.s;
  s.RoutineCorrente = "SalvaPiani";
  std::string testo;
  for (const Piano& piano : s.Piani) testo += ScriviRigaPiano(piano) + "\r\n";
  Deponi(p, SlotPiani, Blocco(testo), BackupDi(p, SlotPiani));
}

template <void (*F)(Passata&)>
void DaSolo(Sessione& s) {
  Passata p = Inizia(s, false);
  F(p);
}

}  // namespace

void SalvaPunti(Sessione& s) { DaSolo<SalvaPunti>(s); }
void SalvaLinee(Sessione& s) { DaSolo<SalvaLinee>(s); }
void SalvaCerchi(Sessione& s) { DaSolo<SalvaCerchi>(s); }
void SalvaArchi(Sessione& s) { DaSolo<SalvaArchi>(s); }
void SalvaTesti(Sessione& s) { DaSolo<SalvaTesti>(s); }
void SalvaFalde(Sessione& s) { DaSolo<SalvaFalde>(s); }
void SalvaSette(Sessione& s) { DaSolo<SalvaSette>(s); }
void SalvaCurve(Sessione& s) { DaSolo<SalvaCurve>(s); }
void SalvaInf(Sessione& s) { DaSolo<SalvaInf>(s); }
void SalvaSezioni(Sessione& s) { DaSolo<SalvaSezioni>(s); }
void SalvaBitmap(Sessione& s) { DaSolo<SalvaBitmap>(s); }
void SalvaLibretto(Sessione& s) { DaSolo<SalvaLibretto>(s); }
void SalvaListaL(Sessione& s) { DaSolo<SalvaListaL>(s); }
void Salva126(Sessione& s) { DaSolo<Salva126>(s); }
void SalvaCel(Sessione& s) { DaSolo<SalvaCel>(s); }
void SalvaCfg(Sessione& s) { DaSolo<SalvaCfg>(s); }
void SalvaPiani(Sessione& s) { DaSolo<SalvaPiani>(s); }

bool SalvaTutto(Sessione& s, bool completo) {
  const bool fatto = Protetto(s, [&] {
    Passata p = Inizia(s, !completo);
    p.conAvanzamento = true;
    s.Ui->Progresso(0, kMembriSalvati);
    // A member read with an error stays as it was read: the tables hold only part of it.
    auto integro = [&](int slot) { return !s.MembroGuasto[static_cast<size_t>(slot)]; };
    auto serve = [&](int slot) { return integro(slot) && (completo || s.SlotModificato[static_cast<size_t>(slot)]); };
    if (serve(SlotPunti)) SalvaPunti(p);
    if (serve(SlotLinee)) SalvaLinee(p);
    if (serve(SlotCerchi)) SalvaCerchi(p);
    if (serve(SlotArchi)) SalvaArchi(p);
    if (serve(SlotTesti)) SalvaTesti(p);
    if (serve(SlotFalde)) SalvaFalde(p);
    if (integro(SlotSette)) SalvaSette(p);
    if (serve(SlotCurve)) SalvaCurve(p);
    if (integro(SlotInf)) SalvaInf(p);
    if (serve(SlotSezioni)) SalvaSezioni(p);
    if (integro(SlotBitmap)) SalvaBitmap(p);
    if (integro(SlotLibretto)) SalvaLibretto(p);
    if (serve(SlotPunti) || serve(SlotL)) SalvaListaL(p);
    if (integro(Slot126)) Salva126(p);
    if (integro(SlotCel)) SalvaCel(p);
    if (integro(SlotCfg)) SalvaCfg(p);
    if (integro(SlotPiani)) SalvaPiani(p);
    SegnaTuttoSalvato(s);
  });
  s.Ui->Progresso(kMembriSalvati, kMembriSalvati);
  return fatto;
}

}  // namespace varena
