// The paste readers: the input is the clipboard's text (an outside CAD's listing, a
// spreadsheet's rows) or the hand-over file, pasted into the example job as the commands do,
// then the undo snapshot, regeneration and redraw.
#include "Bersagli.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "exchange/Incolla.h"

namespace varena::fuzz {

namespace {

void Incolla(const Ambiente& a, std::string_view byte, void (*comando)(Sessione&)) {
  Sessione s;
  ApriEsempio(a, s);
  AppuntiInterni appunti;
  appunti.Scrivi(byte);
  s.Clip = &appunti;
  comando(s);
  Dipingi(s);
}

void DaFile(Sessione& s) {
  NuovaCartella(s.CartellaLavoro + "temp");
  ScriviByte(PercorsoCopiaInFile(s), s.Clip->Leggi());
  IncollaDaFile(s);
}

}  // namespace

void FuzzDaCad(const Ambiente& a, std::string_view byte) { Incolla(a, byte, DaCad); }
void FuzzTabellaIncollata(const Ambiente& a, std::string_view byte) { Incolla(a, byte, IncollaDaTabella); }
void FuzzCopiaInFile(const Ambiente& a, std::string_view byte) { Incolla(a, byte, DaFile); }

}  // namespace varena::fuzz
