#include "Terminale.h"

#include <stdlib.h>

#include <filesystem>

#include "core/Avvio.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Archivio.h"
#include "store/Carica.h"
#include "store/SalvataggioInterrotto.h"

namespace varena::cli {

void InterfacciaTerminale::Messaggio(std::string_view testo, std::string_view titolo, Icona icona) {
  err_ << titolo << ": " << testo << "\n";
  if (icona == Icona::Critico) ++Errori;
}

namespace {

bool Archivio(const std::string& percorso) {
  return percorso.size() > 4 && UgualeSenzaCaso(percorso.substr(percorso.size() - 4), ".VRZ");
}

// Where an archive read in place is expanded: a folder of its own, gone when the program ends.
class CartellaEspansa {
 public:
  ~CartellaEspansa() {
    std::error_code ec;
    if (!percorso_.empty()) std::filesystem::remove_all(percorso_, ec);
  }
  const std::string& Percorso() {
    if (percorso_.empty()) {
      std::string modello = (std::filesystem::temp_directory_path() / "varena-vrz-XXXXXX").string();
      if (::mkdtemp(modello.data())) percorso_ = modello;
    }
    return percorso_;
  }

 private:
  std::string percorso_;
};

// The members of the archive `percorso` written to a folder of their own; the job's base
// path there, or a message.
std::optional<std::string> EspandiArchivio(const std::string& percorso, std::ostream& err) {
  static CartellaEspansa cartella;
  try {
    if (cartella.Percorso().empty()) throw ErroreVarena(kErrorePercorso);
    const auto byte = LeggiByte(percorso);
    if (!byte) throw ErroreVarena(kErroreFileNonTrovato);
    std::string nome = Foglia(percorso);
    nome.resize(nome.size() - 4);
    for (const MembroArchivio& m : LeggiArchivio(*byte)) {
      const size_t punto = m.Nome.find_last_of('.');
      if (punto != std::string::npos) ScriviByte(cartella.Percorso() + "/" + nome + m.Nome.substr(punto), m.Byte);
    }
    return cartella.Percorso() + "/" + nome;
  } catch (const std::exception& e) {
    err << "L'archivio " << percorso << " non si può aprire: " << e.what() << "\n";
    return std::nullopt;
  }
}

}  // namespace

std::optional<std::string> BaseLavoro(const std::string& argomento) {
  if (Archivio(argomento)) {
    const auto vrz = TrovaFile(PercorsoAssoluto(argomento));
    if (vrz && EsisteFile(*vrz) && !EsisteCartella(*vrz)) return vrz;
    return std::nullopt;
  }
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
  if (Archivio(base)) return Esplodi_VRZ(s, base);
  s.NomeOriginale = base;
  VR_ApriLavoro(s);
  return true;
}

bool CaricaInLettura(Sessione& s, const std::string& argomento, std::ostream& err) {
  auto base = TrovaLavoro(argomento, err);
  const std::string archivio = base && Archivio(*base) ? *base : std::string();
  if (!archivio.empty()) base = EspandiArchivio(archivio, err);
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
  // Reports name the archive the user gave, not the folder it was expanded to.
  if (!archivio.empty()) s.NomeOriginale = archivio.substr(0, archivio.size() - 4);
  return true;
}

}  // namespace varena::cli
