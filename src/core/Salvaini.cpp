// Reading and writing of the carried-over settings blocks.
#include "core/Salvaini.h"

#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "store/Cfg.h"

namespace varena {

std::string PercorsoSalvaini5(const Sessione& s) { return s.CartellaLavoro + "SALVAINI5.INI"; }
std::string PercorsoSalvaini(const Sessione& s) { return s.CartellaLavoro + "SALVAINI.INI"; }

void CaricaSalvaini(Sessione& s) {
  s.RoutineCorrente = "CaricaSalvaini";
  if (!Protetto(s, [&] {
        const auto testo = LeggiTestoImpostazioni(s, "SALVAINI.INI", PercorsoSalvaini(s));
        if (!testo) return;
        LettoreLista in(*testo);
        BloccoCfg b = s.Cfg.B;
        LeggiBloccoB(in, b);
        s.Cfg.B = std::move(b);
        ApplicaBloccoB(s);
      }))
    MarcaErrato(s, "SALVAINI.INI", PercorsoSalvaini(s));
  if (!Protetto(s, [&] {
        const auto testo = LeggiTestoImpostazioni(s, "SALVAINI5.INI", PercorsoSalvaini5(s));
        if (!testo) return;
        LettoreLista in(*testo);
        BloccoCfg a = s.Cfg.A;
        LeggiBloccoA(in, a);
        s.Cfg.A = std::move(a);
      }))
    MarcaErrato(s, "SALVAINI5.INI", PercorsoSalvaini5(s));
}

void ScriviSalvaini(Sessione& s) {
  if (s.SolaLettura) return;
  s.RoutineCorrente = "ScriviSalvaini";
  Protetto(s, [&] {
    RaccogliBloccoB(s);
    ScriviTesto(PercorsoSalvaini5(s), ScriviBloccoA(s.Cfg.A));
    ScriviTesto(PercorsoSalvaini(s), ScriviBloccoB(s.Cfg.B));
  });
}

}  // namespace varena
