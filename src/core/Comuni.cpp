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

}  // namespace varena
