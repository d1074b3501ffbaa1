// terreno: the terrain model of a job in batch. Every live point is handed to the
// triangulator with the breaklines of `DISCONTI`, the facets come back, are recomputed
// against the reference height, cut into contour lines, and all saved into the job.
#include <string>

#include "Comandi.h"
#include "Json.h"
#include "Terminale.h"
#include "core/Avvio.h"
#include "core/ProcessiSistema.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Salvataggio.h"
#include "terrain/Curve.h"
#include "terrain/Falde.h"
#include "terrain/Triangolazione.h"

namespace varena::cli {

namespace {

int ComandoTerreno(const Argomenti& a, std::ostream& out, std::ostream& err) {
  const char* uso = "uso: varena-cli terreno LAVORO.CFG [--equidistanza M] [--quota-riferimento Q] [--limite-punti N] [--json]\n";
  if (a.Posizionali.size() != 1) {
    err << uso;
    return 64;
  }
  const auto base = TrovaLavoro(a.Posizionali[0], err);
  if (!base) return 1;
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  ProcessiSistema processi(s.Clip);
  s.Proc = &processi;
  if (!ApriInCopia(s, *base)) return 2;
  if (const std::string q = a.Valore("--quota-riferimento"); !q.empty()) s.QuotaRiferimento = Val(q);
  if (const std::string n = a.Valore("--limite-punti"); !n.empty())
    s.Imp.Limite_Punti_Triangolazione = InteroLungo(Val(n));
  for (int32_t r = 0; r < s.ContaEntita[SlotPunti]; ++r)
    s.StatoPunto[static_cast<size_t>(r)] = IdentVivo(s.PuntoIdent[static_cast<size_t>(r)]) ? 1 : 0;
  if (const std::string e = a.Valore("--equidistanza"); !e.empty()) s.Terreno.Equidistanza = Val(e);
  const bool fatto = VR_TriangolaPunti(s, true);
  if (fatto && GeneraSpezzate(s)) CalcolaContur(s);
  const bool salvato = fatto && Salva(s);
  EliminaProvviso(s);
  if (!salvato) {
    if (ui.Errori == 0) err << "Nessuna falda calcolata\n";
    return 2;
  }
  int64_t falde = 0;
  double area = 0, sterro = 0, riporto = 0;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotFalde]); ++r) {
    if (!IdentVivo(s.FaldaIdent[r])) continue;
    ++falde;
    area += s.FaldaAreaDiBase[r], sterro += s.FaldaVolumeSterro[r], riporto += s.FaldaVolumeRiporto[r];
  }
  int64_t curve = 0;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotCurve]); ++r) curve += s.CurvaFlag[r] == 2;
  if (a.Ha("--json")) {
    out << "{\"falde\": " << falde << ", \"area\": " << JsonNumero(area) << ", \"sterro\": " << JsonNumero(sterro)
        << ", \"riporto\": " << JsonNumero(riporto) << ", \"curve\": " << curve << "}\n";
  } else {
    out << "Falde " << falde << ", area " << FormatoMaschera(area, "#########0.00") << " m2, sterro "
        << FormatoMaschera(sterro, "#########0.00") << " m3, riporto " << FormatoMaschera(riporto, "#########0.00")
        << " m3, curve " << curve << "\n";
  }
  return ui.Errori == 0 ? 0 : 2;
}

const RegistraComando kTerreno("terreno", "terreno LAVORO.CFG [--equidistanza M] [--quota-riferimento Q] [--limite-punti N] [--json]",
                               ComandoTerreno, {"--equidistanza", "--quota-riferimento", "--limite-punti"});

}  // namespace

}  // namespace varena::cli
