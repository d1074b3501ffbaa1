// Reading and creating the small text files of tables and settings.
#include "core/FileTabella.h"

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

const char* NomeStato(StatoFile stato) {
  switch (stato) {
    case StatoFile::Letto: return "letto";
    case StatoFile::Creato: return "creato";
    case StatoFile::Assente: return "assente";
    case StatoFile::Errato: return "errato";
  }
  return "";
}

void RegistraOrigine(Sessione& s, const std::string& nome, const std::string& percorso, StatoFile stato) {
  for (OrigineFile& o : s.FileRiferimento) {
    if (o.Nome != nome) continue;
    o.Percorso = percorso;
    o.Stato = stato;
    return;
  }
  s.FileRiferimento.push_back({nome, percorso, stato});
}

void MarcaErrato(Sessione& s, const std::string& nome, const std::string& percorso) {
  for (OrigineFile& o : s.FileRiferimento) {
    if (o.Nome != nome) continue;
    o.Stato = StatoFile::Errato;
    return;
  }
  s.FileRiferimento.push_back({nome, percorso, StatoFile::Errato});
}

const OrigineFile* TrovaOrigine(const Sessione& s, std::string_view nome) {
  for (const OrigineFile& o : s.FileRiferimento)
    if (o.Nome == nome) return &o;
  return nullptr;
}

void ControllaTesto(std::string_view byte) {
  for (size_t i = 0; i < byte.size(); ++i) {
    const auto c = static_cast<unsigned char>(byte[i]);
    if (c >= 0x20 || c == '\t' || c == '\r' || c == '\n') continue;
    if (c == 0x1A && i + 1 == byte.size()) continue;
    throw ErroreVarena(kErroreFormato);
  }
}

std::optional<std::string> LeggiTestoImpostazioni(Sessione& s, const std::string& nome, const std::string& percorso) {
  const auto trovato = TrovaFile(percorso);
  const auto byte = trovato ? LeggiByte(*trovato) : std::nullopt;
  if (!byte) {
    RegistraOrigine(s, nome, percorso, StatoFile::Assente);
    return std::nullopt;
  }
  // Recorded before the check, so that a file that fails it is still named in the report.
  RegistraOrigine(s, nome, *trovato, StatoFile::Letto);
  ControllaTesto(*byte);
  return Cp1252InUtf8(*byte);
}

std::string LeggiOCreaTabella(Sessione& s, const std::string& nome, const std::string& percorso,
                              std::string_view predefinito) {
  if (auto testo = LeggiTestoImpostazioni(s, nome, percorso)) return std::move(*testo);
  if (s.SolaLettura) return std::string(predefinito);
  ScriviTesto(percorso, predefinito);
  // Read back what reached the disk: the table in force is the file's.
  const auto trovato = TrovaFile(percorso);
  const auto byte = trovato ? LeggiByte(*trovato) : std::nullopt;
  if (!byte) throw ErroreVarena(kErroreFileNonTrovato);
  RegistraOrigine(s, nome, *trovato, StatoFile::Creato);
  return Cp1252InUtf8(*byte);
}

bool EUnNumero(std::string_view t) {
  const std::string r = Rifila(t);
  size_t i = 0;
  if (i < r.size() && (r[i] == '+' || r[i] == '-')) ++i;
  bool cifre = false;
  while (i < r.size() && r[i] >= '0' && r[i] <= '9') ++i, cifre = true;
  if (i < r.size() && r[i] == '.') {
    ++i;
    while (i < r.size() && r[i] >= '0' && r[i] <= '9') ++i, cifre = true;
  }
  if (!cifre) return false;
  if (i < r.size() && (r[i] == 'E' || r[i] == 'e' || r[i] == 'D' || r[i] == 'd')) {
    ++i;
    if (i < r.size() && (r[i] == '+' || r[i] == '-')) ++i;
    const size_t inizio = i;
    while (i < r.size() && r[i] >= '0' && r[i] <= '9') ++i;
    if (i == inizio) return false;
  }
  return i == r.size();
}

std::vector<double> NumeriRiga(std::string_view riga, char separatore) {
  std::vector<std::string> campi = Dividi(riga, separatore);
  while (!campi.empty() && Rifila(campi.back()).empty()) campi.pop_back();
  std::vector<double> numeri;
  numeri.reserve(campi.size());
  for (const std::string& c : campi) {
    if (!EUnNumero(c)) throw ErroreVarena(kErroreTipo);
    numeri.push_back(Val(c));
  }
  return numeri;
}

}  // namespace varena
