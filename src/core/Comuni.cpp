// Loading of the municipality table.
#include "core/Comuni.h"

#include "core/CodicePagina.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Testo.h"

namespace varena {

namespace {

// Blanks and line ends around a record are not part of it.
std::string_view Pulisci(std::string_view r) {
  auto vuoto = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\x1A'; };
  while (!r.empty() && vuoto(r.front())) r.remove_prefix(1);
  while (!r.empty() && vuoto(r.back())) r.remove_suffix(1);
  return r;
}

}  // namespace

std::string PercorsoComuni(const Sessione& s) { return s.Imp.Cartella_Archivio_Pregeo + "/comunt.dat"; }

void CaricaComuni(Sessione& s) {
  if (s.Comuni.NumeroComuni() > 0) return;
  s.RoutineCorrente = "CaricaComuni";
  const std::string percorso = PercorsoComuni(s);
  const bool fatto = Protetto(s, [&] {
    const auto trovato = TrovaFile(percorso);
    const auto byte = trovato ? LeggiByte(*trovato) : std::nullopt;
    if (!byte) {
      RegistraOrigine(s, "comunt.dat", percorso, StatoFile::Assente);
      return;
    }
    RegistraOrigine(s, "comunt.dat", *trovato, StatoFile::Letto);
    // Positions count in the bytes of the file's code page, before any conversion.
    const std::string_view tutto(*byte);
    size_t inizio = 0;
    while (inizio <= tutto.size()) {
      size_t fine = tutto.find("@B", inizio);
      if (fine == std::string_view::npos) fine = tutto.size();
      const std::string_view r = Pulisci(tutto.substr(inizio, fine - inizio));
      if (!r.empty()) {
        Comune c;
        c.Codice = Cp1252InUtf8(r.substr(0, 1)) + Rifila(Cp1252InUtf8(r.substr(1, 4)));
        c.Resto = Rifila(Cp1252InUtf8(r.size() > 5 ? r.substr(5) : std::string_view()));
        s.Comuni.Righe.push_back(std::move(c));
      }
      inizio = fine + 2;
    }
  });
  if (!fatto) MarcaErrato(s, "comunt.dat", percorso);
}

std::string PercorsoProsigle(const Sessione& s) { return s.Imp.Cartella_Pregeo + "/EXE/prosigle"; }

std::vector<Comune> LeggiProsigle(std::string_view testo) {
  constexpr std::string_view separatori = " \t;|";
  std::vector<Comune> righe;
  for (const std::string& grezza : RigheTesto(testo)) {
    const std::string riga = Rifila(grezza);
    const size_t fine = riga.find_first_of(separatori);
    if (fine == std::string::npos) continue;
    const size_t nome = riga.find_first_not_of(separatori, fine);
    if (nome == std::string::npos) continue;
    righe.push_back({riga.substr(0, fine), Rifila(riga.substr(nome))});
  }
  return righe;
}

void CaricaProsigle(Sessione& s) {
  if (!s.Comuni.Sigle.empty()) return;
  s.RoutineCorrente = "prosigle";
  const std::string percorso = PercorsoProsigle(s);
  const bool fatto = Protetto(s, [&] {
    const auto trovato = TrovaFile(percorso);
    const auto byte = trovato ? LeggiByte(*trovato) : std::nullopt;
    if (!byte) return;
    s.Comuni.Sigle = LeggiProsigle(Cp1252InUtf8(*byte));
  });
  if (!fatto) MarcaErrato(s, "prosigle", percorso);
}

std::string NomeComune(Sessione& s, std::string_view codice) {
  CaricaProsigle(s);
  for (const Comune& c : s.Comuni.Sigle)
    if (c.Codice == codice) return c.Resto;
  CaricaComuni(s);
  for (const Comune& c : s.Comuni.Righe)
    if (c.Codice == codice) return c.Resto;
  return {};
}

}  // namespace varena
