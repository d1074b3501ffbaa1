// The per-user store of a few toggles, by section and key, that the program keeps apart
// from its setting files: the display toggles of the points and lines among them. One
// small file in the program's data folder, read at the first use.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

struct ImpostazioniUtente {
  bool Lette = false;
  std::map<std::string, std::string> Valori;  // "SEZIONE|CHIAVE" in upper case -> value
};

std::string PercorsoImpostazioniUtente(const Sessione& s);

// The value stored, or `predefinito` when there is none.
std::string LeggiImpostazioneUtente(Sessione& s, std::string_view sezione, std::string_view chiave,
                                    std::string_view predefinito);
// Kept at once, and written to the file unless the session may not write or has no data
// folder.
void ScriviImpostazioneUtente(Sessione& s, std::string_view sezione, std::string_view chiave, std::string valore);

}  // namespace varena
