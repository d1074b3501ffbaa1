// Savers of the job members.
#include "store/Salva.h"

#include <string>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Piani.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Cfg.h"
#include "store/Slot.h"

namespace varena {

namespace {

std::string Membro(const Sessione& s, int slot) { return s.NomeLavoro + EstensioneFile(slot); }

// The common start of a saver: the backup and the old member go; false when there is
// nothing to write.
bool Prepara(Sessione& s, int slot) {
  EliminaFile(s.NomeLavoro + EstensioneBackup(slot));
  EliminaFile(Membro(s, slot));
  return s.ContaEntita[slot] >= 1;
}

template <class Tab, class Filtro>
void SalvaRecord(Sessione& s, const LayoutRecord<Tab>& layout, const char* routine, Filtro tieni) {
  s.RoutineCorrente = routine;
  if (!Prepara(s, layout.Slot)) return;
  const Tab& tab = s;
  const auto L = static_cast<size_t>(layout.Lunghezza);
  std::string byte;
  byte.resize(static_cast<size_t>(s.ContaEntita[layout.Slot]) * L);
  size_t scritti = 0;
  for (int32_t r = 0; r < s.ContaEntita[layout.Slot]; ++r) {
    if (!tieni(static_cast<size_t>(r))) continue;
    CodificaRecord(layout, tab, r, reinterpret_cast<unsigned char*>(byte.data()) + scritti * L);
    ++scritti;
  }
  byte.resize(scritti * L);
  ScriviByte(Membro(s, layout.Slot), byte);
}

}  // namespace

void SalvaPunti(Sessione& s) {
  SalvaRecord(s, LayoutPunti(), "SalvaPunti",
              [&](size_t r) { return s.PuntoIdent[r] == 0 && Rifila(s.PuntoPiano[r]) != "INCLUSI"; });
}
void SalvaLinee(Sessione& s) {
  SalvaRecord(s, LayoutLinee(), "SalvaLinee",
              [&](size_t r) { return s.LineaIdent[r] == 0 && Rifila(s.LineaPiano[r]) != "ZZZ"; });
}
void SalvaCerchi(Sessione& s) {
  SalvaRecord(s, LayoutCerchi(), "SalvaCerchi", [&](size_t r) { return s.CerchioIdent[r] == 0; });
}
void SalvaArchi(Sessione& s) {
  SalvaRecord(s, LayoutArchi(), "SalvaArchi", [&](size_t r) { return s.ArcoIdent[r] == 0; });
}
void SalvaTesti(Sessione& s) {
  SalvaRecord(s, LayoutTesti(), "SalvaTesti", [&](size_t r) { return s.TestoIdent[r] == 0; });
}
void SalvaFalde(Sessione& s) {
  SalvaRecord(s, LayoutFalde(), "SalvaFalde", [&](size_t r) { return s.FaldaIdent[r] == 0; });
}

void SalvaCurve(Sessione& s) {
  s.RoutineCorrente = "SalvaCurve";
  // The contour vertices keep one backup of their own: the old file becomes it.
  EliminaFile(s.NomeLavoro + EstensioneBackup(SlotCurve));
  if (EsisteFile(Membro(s, SlotCurve))) RinominaFile(Membro(s, SlotCurve), s.NomeLavoro + EstensioneBackup(SlotCurve));
  if (s.ContaEntita[SlotCurve] < 1) return;
  const TabellaCurve& tab = s;
  std::string byte(static_cast<size_t>(s.ContaEntita[SlotCurve]) * 17, '\0');
  for (int32_t r = 0; r < s.ContaEntita[SlotCurve]; ++r)
    CodificaRecord(LayoutCurve(), tab, r, reinterpret_cast<unsigned char*>(byte.data()) + static_cast<size_t>(r) * 17);
  ScriviByte(Membro(s, SlotCurve), byte);
}

void SalvaSette(Sessione& s) {
  s.RoutineCorrente = "SalvaSette";
  // This saver has always removed its backup under the name ".haK".
  EliminaFile(s.NomeLavoro + ".haK");
  EliminaFile(Membro(s, SlotSette));
  if (s.ContaEntita[SlotSette] < 1) return;
  std::string testo;
  for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k) {
    const auto r = static_cast<size_t>(k);
    testo += IstruzioneLista()
                 .Numero(s.SetteIdent[r])
                 .Testo(s.SetteContorno[r])
                 .Testo(s.SetteCommento[r])
                 .Testo(s.SetteParticella[r])
                 .Numero(s.SetteColore[r])
                 .Numero(s.SetteTratteggio[r])
                 .Riga();
  }
  ScriviTesto(Membro(s, SlotSette), testo);
}

void SalvaInf(Sessione& s) {
  s.RoutineCorrente = "SalvaInf";
  ScriviTesto(Membro(s, SlotInf), IstruzioneLista().Testo(s.NomeOriginale).Riga());
}

void SalvaSezioni(Sessione& s) {
  s.RoutineCorrente = "Salva Sezioni";
  // The section tables are kept as read until their editor exists: written back whole.
  const auto it = s.MembriConservati.find(SlotSezioni);
  if (it != s.MembriConservati.end()) ScriviByte(Membro(s, SlotSezioni), it->second);
}

void SalvaBitmap(Sessione& s) {
  s.RoutineCorrente = "sALVA BIT MAP1";
  if (!Prepara(s, SlotBitmap)) return;
  std::string testo;
  for (int32_t k = 0; k < s.ContaEntita[SlotBitmap]; ++k) {
    const auto r = static_cast<size_t>(k);
    if (s.BitmapIdent[r] != 0) continue;
    testo += IstruzioneLista()
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
  ScriviTesto(Membro(s, SlotBitmap), testo);
}

void SalvaLibretto(Sessione& s) {
  s.RoutineCorrente = "sALVA lIBRETTO 1";
  EliminaFile(s.NomeLavoro + EstensioneBackup(SlotLibretto));
  EliminaFile(Membro(s, SlotLibretto));
  if (s.LibrettoMisure.empty()) return;
  std::string testo;
  for (const std::string& riga : s.LibrettoMisure) testo += riga + "\r\n";
  ScriviTesto(Membro(s, SlotLibretto), testo);
}

void SalvaListaL(Sessione& s) {
  s.RoutineCorrente = "SalvaListaL";
  if (s.ContaEntita[SlotPunti] < 2) return;
  std::string testo = IstruzioneLista().Numero(1001).Riga();
  testo += IstruzioneLista().Testo("0").Testo("0").Numero(0).Numero(0).Numero(0).Riga();
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    const auto r = static_cast<size_t>(k);
    testo += IstruzioneLista()
                 .Testo(s.PuntoNome[r])
                 .Testo(s.PuntoDescrizione[r])
                 .Numero(s.PuntoX[r])
                 .Numero(s.PuntoY[r])
                 .Numero(s.PuntoZ[r])
                 .Riga();
  }
  ScriviTesto(Membro(s, SlotL), testo);
}

void Salva126(Sessione& s) {
  s.RoutineCorrente = "Salva126";
  EliminaFile(s.NomeLavoro + EstensioneBackup(Slot126));
  EliminaFile(Membro(s, Slot126));
  if (!s.Testo126.empty()) ScriviTesto(Membro(s, Slot126), s.Testo126);
}

void SalvaCel(Sessione& s) {
  s.RoutineCorrente = "SalvaCel";
  // This saver removes ".CEK", the circles' backup name, not its own ".CKK": kept so.
  EliminaFile(s.NomeLavoro + ".CEK");
  EliminaFile(Membro(s, SlotCel));
  if (!s.TestoCel.empty()) ScriviTesto(Membro(s, SlotCel), s.TestoCel);
}

void SalvaCfg(Sessione& s) {
  s.RoutineCorrente = "SalvaCfg";
  ScriviTesto(Membro(s, SlotCfg), TestoCfg(s));
}

void SalvaPiani(Sessione& s) {
  s.RoutineCorrente = "SalvaPiani";
  EliminaFile(s.NomeLavoro + EstensioneBackup(SlotPiani));
  EliminaFile(Membro(s, SlotPiani));
  std::string testo;
  for (const Piano& p : s.Piani) testo += ScriviRigaPiano(p) + "\r\n";
  if (!testo.empty()) ScriviTesto(Membro(s, SlotPiani), testo);
}

bool SalvaTutto(Sessione& s) {
  return Protetto(s, [&] {
    SalvaPunti(s);
    SalvaLinee(s);
    SalvaCerchi(s);
    SalvaArchi(s);
    SalvaTesti(s);
    SalvaFalde(s);
    SalvaSette(s);
    SalvaCurve(s);
    SalvaInf(s);
    SalvaSezioni(s);
    SalvaBitmap(s);
    SalvaLibretto(s);
    SalvaListaL(s);
    Salva126(s);
    SalvaCel(s);
    SalvaCfg(s);
    SalvaPiani(s);
  });
}

}  // namespace varena
