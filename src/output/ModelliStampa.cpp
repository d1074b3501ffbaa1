#include "output/ModelliStampa.h"

#include <algorithm>
#include <filesystem>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

std::string CartellaModelli(const Sessione& s) { return s.CartellaLavoro + "MODELLI_STAMPA"; }
std::string PercorsoTempRtf(const Sessione& s) { return s.CartellaLavoro + "TEMP.rtf"; }

std::vector<std::string> VR_StampaGeneral(const Sessione& s) {
  std::vector<std::string> nomi;
  std::error_code e;
  for (const auto& voce : std::filesystem::directory_iterator(CartellaModelli(s), e)) {
    const std::string foglia = voce.path().filename().string();
    if (voce.is_regular_file(e) && FinisceCon(Maiuscolo(foglia), ".RTF")) nomi.push_back(foglia);
  }
  std::sort(nomi.begin(), nomi.end());
  return nomi;
}

std::optional<TestoRicco> VR_StampaGenerale(Sessione& s, const std::string& nome) {
  s.RoutineCorrente = "VR_StampaGenerale";
  const std::string modello = CartellaModelli(s) + "/" + nome;
  std::optional<std::string> byte;
  if (!Protetto(s, [&] { byte = LeggiByte(modello); })) return std::nullopt;
  if (!byte) {
    s.Ui->Messaggio(modello + " Non è stato trovato!", "Edit Stampe", Icona::Avviso);
    return std::nullopt;
  }
  std::optional<TestoRicco> t = LeggiRtf(*byte);
  if (!t) {
    s.Ui->Messaggio("Il modello " + nome + " non è un testo RTF.", "Edit Stampe", Icona::Avviso);
    return std::nullopt;
  }
  if (!Protetto(s, [&] { ScriviByte(PercorsoTempRtf(s), *byte); })) return std::nullopt;
  return t;
}

bool ChiudiEditorStampe(Sessione& s, const std::string& nome, const TestoRicco& t, bool modificato) {
  if (!modificato) return true;
  const Risposta r =
      s.Ui->Domanda("Salvare Stampa modificata?", "Uscita da Editor", Bottoni::SiNoAnnulla, Icona::Domanda, Risposta::Si);
  if (r == Risposta::Annulla) return false;
  if (r != Risposta::Si) return true;
  s.RoutineCorrente = "VR_StampaGenerale";
  // Each write lands beside its file and is renamed into place: a failure leaves the model whole.
  return Protetto(s, [&] {
    const std::string rtf = ScriviRtf(t);
    ScriviByte(PercorsoTempRtf(s), rtf);
    ScriviByte(CartellaModelli(s) + "/" + nome, rtf);
  });
}

}  // namespace varena
