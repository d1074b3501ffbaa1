#include "Terminale.h"

#include "core/Avvio.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/SalvataggioInterrotto.h"

namespace varena::cli {

void InterfacciaTerminale::Messaggio(std::string_view testo, std::string_view titolo, Icona icona) {
  err_ << titolo << ": " << testo << "\n";
  if (icona == Icona::Critico) ++Errori;
}

std::optional<std::string> BaseLavoro(const std::string& argomento) {
  std::string base = PercorsoAssoluto(argomento);
  if (base.size() > 4 && UgualeSenzaCaso(base.substr(base.size() - 4), ".CFG")) base.resize(base.size() - 4);
  // As it stands on disk, so that reports name the job as the user's files do.
  const auto cfg = TrovaFile(base + ".CFG");
  if (!cfg || !EsisteFile(*cfg)) return std::nullopt;
  return cfg->substr(0, cfg->size() - 4);
}

std::optional<std::string> TrovaLavoro(const std::string& argomento, std::ostream& err) {
  auto base = BaseLavoro(argomento);
  if (!base) err << "Lavoro non trovato: " << argomento << "\n";
  return base;
}

bool ApriInCopia(Sessione& s, const std::string& base) {
  if (!AvviaSessione(s)) return false;
  s.NomeOriginale = base;
  VR_ApriLavoro(s);
  return true;
}

bool CaricaInLettura(Sessione& s, const std::string& argomento, std::ostream& err) {
  const auto base = TrovaLavoro(argomento, err);
  if (!base) return false;
  s.SolaLettura = true;
  // The settings and tables in force, read where they stand or taken as defaults: colours,
  // line types and point configurations shape what a report shows and a picture paints.
  AvviaSessione(s);
  s.NomeOriginale = *base;
  s.NomeLavoro = *base;
  // A save cut short is only reported here: the files are read as they stand.
  Protetto(s, [&] { RiprendiSalvataggio(s); });
  CaricaLavoro(s);
  return true;
}

}  // namespace varena::cli
