// The members of a job: the input stands as one member of the example job, which is then
// opened as the program opens a job the user chose (provisional copy, load, first undo
// generation with its save of every member, regeneration) and painted. The provisional
// copies left behind and the undo journal are reached the way the program reaches them.
#include <array>

#include "Bersagli.h"
#include "core/Avvio.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "store/Registro.h"
#include "store/Slot.h"
#include "store/Undo.h"

namespace varena::fuzz {

namespace {

void ApriConMembro(const Ambiente& a, int slot, std::string_view byte) {
  ScriviFileFuzz(a.Esempio() + EstensioneFile(slot), byte);
  Sessione s;
  ApriEsempio(a, s);
  Dipingi(s);
}

}  // namespace

void FuzzCfg(const Ambiente& a, std::string_view byte) { ApriConMembro(a, SlotCfg, byte); }

// The first byte chooses the kind of record.
void FuzzRecord(const Ambiente& a, std::string_view byte) {
  constexpr std::array kSlot = {SlotPunti, SlotLinee, SlotCerchi, SlotArchi, SlotTesti, SlotFalde, SlotCurve};
  const int slot = kSlot[Scelta(byte, kSlot.size())];
  ApriConMembro(a, slot, byte);
}

void FuzzHat(const Ambiente& a, std::string_view byte) { ApriConMembro(a, SlotSette, byte); }
void FuzzBtm(const Ambiente& a, std::string_view byte) { ApriConMembro(a, SlotBitmap, byte); }
void FuzzPia(const Ambiente& a, std::string_view byte) { ApriConMembro(a, SlotPiani, byte); }
void FuzzTxt(const Ambiente& a, std::string_view byte) { ApriConMembro(a, SlotLibretto, byte); }
void Fuzz126(const Ambiente& a, std::string_view byte) { ApriConMembro(a, Slot126, byte); }

// The opening writes `.INF` itself: the one it reads is that of a provisional copy left by a
// run that did not close, listed and recovered as the window of open jobs does.
void FuzzInf(const Ambiente& a, std::string_view byte) {
  Sessione s;
  a.Prepara(s);
  InizializzaDefault(s);
  const std::string copia = s.CartellaLavoro + "PROVVISO/RILIEVO_20261121103015";
  ScriviFileFuzz(copia + ".INF", byte);
  ScriviFileFuzz(copia + ".CFG", *LeggiByte(a.Esempio() + ".CFG"));
  for (const LavoroProvvisorio& l : ElencaLavoriAperti(s)) RecuperaLavoroAperto(s, l.Voce);
  Dipingi(s);
}

// The journal of the example job's provisional copy, then undo and redo both ways and a new
// generation, as the keys and the next edit would ask for them.
void FuzzUndo(const Ambiente& a, std::string_view byte) {
  Sessione s;
  ApriEsempio(a, s);
  ScriviFileFuzz(PercorsoDiario(s), byte);
  VR_UNDO(s);
  VR_REDO(s);
  VR_SalvaUndo(s);
  VR_UNDO(s);
  VR_REDO(s);
  Dipingi(s);
}

}  // namespace varena::fuzz
