// The per-user toggles: "[SEZIONE]" lines and "CHIAVE=valore" lines beneath them.
#include "core/ImpostazioniUtente.h"

#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

// A run that keeps its own folder for the user keeps the toggles there.
const std::string& Cartella(const Sessione& s) { return s.CartellaUtente.empty() ? s.CartellaProgramma : s.CartellaUtente; }

std::string Chiave(std::string_view sezione, std::string_view chiave) {
  return Maiuscolo(Rifila(sezione)) + "|" + Maiuscolo(Rifila(chiave));
}

void Leggi(Sessione& s) {
  ImpostazioniUtente& u = s.PreferenzeUtente;
  if (u.Lette) return;
  u.Lette = true;
  if (Cartella(s).empty()) return;
  s.RoutineCorrente = "LeggiImpostazioniUtente";
  Protetto(s, [&] {
    std::string sezione;
    for (const std::string& riga : RigheFile(PercorsoImpostazioniUtente(s))) {
      const std::string r = Rifila(riga);
      if (r.size() >= 2 && r.front() == '[' && r.back() == ']') {
        sezione = r.substr(1, r.size() - 2);
        continue;
      }
      const auto uguale = r.find('=');
      if (uguale == std::string::npos || sezione.empty()) continue;
      u.Valori[Chiave(sezione, r.substr(0, uguale))] = r.substr(uguale + 1);
    }
  });
}

}  // namespace

std::string PercorsoImpostazioniUtente(const Sessione& s) {
  return Cartella(s) + "/ImpostazioniUtente.ini";
}

std::string LeggiImpostazioneUtente(Sessione& s, std::string_view sezione, std::string_view chiave,
                                    std::string_view predefinito) {
  Leggi(s);
  const auto it = s.PreferenzeUtente.Valori.find(Chiave(sezione, chiave));
  return it == s.PreferenzeUtente.Valori.end() ? std::string(predefinito) : it->second;
}

void ScriviImpostazioneUtente(Sessione& s, std::string_view sezione, std::string_view chiave, std::string valore) {
  Leggi(s);
  s.PreferenzeUtente.Valori[Chiave(sezione, chiave)] = std::move(valore);
  if (s.SolaLettura || Cartella(s).empty()) return;
  s.RoutineCorrente = "ScriviImpostazioniUtente";
  Protetto(s, [&] {
    std::string testo, sezioneCorrente;
    for (const auto& [k, v] : s.PreferenzeUtente.Valori) {
      const auto barra = k.find('|');
      const std::string sez = k.substr(0, barra);
      if (sez != sezioneCorrente) {
        testo += "[" + sez + "]\r\n";
        sezioneCorrente = sez;
      }
      testo += k.substr(barra + 1) + "=" + v + "\r\n";
    }
    ScriviTesto(PercorsoImpostazioniUtente(s), testo);
  });
}

}  // namespace varena
