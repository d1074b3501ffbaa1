// Reading and writing of the carried-over settings blocks.
#include "core/Salvaini.h"

#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Lista.h"
#include "store/Cfg.h"
#include "terrain/ImpostazioniTerreno.h"

namespace varena {

std::string PercorsoSalvaini5(const Sessione& s) { return s.CartellaLavoro + "SALVAINI5.INI"; }
std::string PercorsoSalvaini(const Sessione& s) { return s.CartellaLavoro + "SALVAINI.INI"; }

namespace {

// One block read whole into a copy, which replaces the block in force only at the end.
template <class Leggi>
void CaricaBlocco(Sessione& s, const char* nome, const std::string& percorso, BloccoCfg& blocco, Leggi leggi) {
  const bool fatto = Protetto(s, [&] {
    const auto testo = LeggiTestoImpostazioni(s, nome, percorso);
    if (!testo) return;
    LettoreLista in(*testo);
    BloccoCfg copia = blocco;
    leggi(in, copia);
    blocco = std::move(copia);
  });
  if (!fatto) MarcaErrato(s, nome, percorso);
}

}  // namespace

void CaricaSalvaini(Sessione& s) {
  s.RoutineCorrente = "CaricaSalvaini";
  CaricaBlocco(s, "SALVAINI.INI", PercorsoSalvaini(s), s.Cfg.B, LeggiBloccoB);
  if (TrovaOrigine(s, "SALVAINI.INI")->Stato == StatoFile::Letto) ApplicaBloccoB(s);
  CaricaBlocco(s, "SALVAINI5.INI", PercorsoSalvaini5(s), s.Cfg.A, LeggiBloccoA);
  ImpostazioniDaBloccoA(s);
}

void ScriviSalvaini(Sessione& s) {
  if (s.SolaLettura) return;
  s.RoutineCorrente = "ScriviSalvaini";
  Protetto(s, [&] {
    RaccogliBloccoB(s);
    ImpostazioniInBloccoA(s);
    ScriviTesto(PercorsoSalvaini5(s), ScriviBloccoA(s.Cfg.A));
    ScriviTesto(PercorsoSalvaini(s), ScriviBloccoB(s.Cfg.B));
  });
}

}  // namespace varena
