// The point file readers (and the point list of an older job): the input is a file of each format imported into the example job
// as its command reads it, then the undo snapshot, regeneration and redraw.
#include "Bersagli.h"
#include "core/Sessione.h"
#include "exchange/ImportaPunti.h"
#include "store/Undo.h"

namespace varena::fuzz {

namespace {

void Importa(const Ambiente& a, std::string_view byte, FormatoPunti f) {
  Sessione s;
  ApriEsempio(a, s);
  const std::string percorso = a.Radice() + "/punti.txt";
  ScriviFileFuzz(percorso, byte);
  OpzioniTesto o;
  o.Colonne = FormatoDi(f).Colonne;
  o.Prefisso = "PF";
  if (ImportaPunti(s, f, percorso, o)) VR_SalvaUndo(s);
  Dipingi(s);
}

}  // namespace

void FuzzRil(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Ril); }
void FuzzSho(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Sho); }
void FuzzGsi(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Gsi); }
void FuzzAsc(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Asc); }
void FuzzNuvola(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Nuvola); }
void FuzzTestoPunti(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Csv); }
void FuzzLineeDxf(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::LineeDxf); }
void FuzzVr4(const Ambiente& a, std::string_view byte) { Importa(a, byte, FormatoPunti::Vr4); }

}  // namespace varena::fuzz
