// The point tags in descriptions.
#include "cadastre/CodiciPunto.h"

#include "core/Testo.h"

namespace varena {

namespace {

// The order in which the free text is cleaned: "<PD>" before "<PV>", and the row-8 tags
// after the vertex marks of the book.
constexpr std::string_view kDaTogliere[] = {kCodiceDirezione, kCodiceVertice,     kCodicePlanimetrico,
                                            kCodiceSoloDirezione, kCodiceEscluso, "*V*",
                                            "*S*",               kCodiceRiga8Planim, kCodiceRiga8Uguale,
                                            kCodiceRiga8Quota,   kCodiceAusiliario};

constexpr std::string_view kOrdineCodici[] = {kCodicePlanimetrico, kCodiceVertice,     kCodiceDirezione,
                                              kCodiceSoloDirezione, kCodiceEscluso,    kCodiceRiga8Planim,
                                              kCodiceRiga8Uguale,  kCodiceRiga8Quota, kCodiceAusiliario};

std::string_view Alternativo(std::string_view codice) {
  if (codice == kCodiceVertice) return kCodiceDirezione;
  if (codice == kCodiceDirezione) return kCodiceVertice;
  if (codice == kCodiceRiga8Planim) return kCodiceRiga8Uguale;
  if (codice == kCodiceRiga8Uguale) return kCodiceRiga8Planim;
  return {};
}

}  // namespace

bool HaCodice(std::string_view descrizione, std::string_view codice) {
  return descrizione.find(codice) != std::string_view::npos;
}

std::string TogliCodice(std::string_view descrizione, std::string_view codice) {
  return Sostituisci(descrizione, codice, "");
}

std::string MettiCodice(std::string_view descrizione, std::string_view codice) {
  std::string d = TogliCodice(descrizione, codice);
  if (const std::string_view altro = Alternativo(codice); !altro.empty()) d = TogliCodice(d, altro);
  return std::string(codice) + d;
}

std::string PulisciCodici(std::string_view descrizione) {
  std::string d(descrizione);
  for (std::string_view c : kDaTogliere) d = Sostituisci(d, c, "");
  return Rifila(d);
}

std::string SoloCodici(std::string_view descrizione) {
  std::string codici;
  for (std::string_view c : kOrdineCodici)
    if (HaCodice(descrizione, c)) codici += c;
  return codici;
}

std::string SenzaCodici(std::string_view descrizione) {
  std::string d(descrizione);
  for (std::string_view c : kOrdineCodici) d = Sostituisci(d, c, "");
  return d;
}

std::string CodiciInTesta(std::string_view descrizione) { return SoloCodici(descrizione) + SenzaCodici(descrizione); }

std::string ConCodici(std::string_view descrizione, std::string_view testoLibero) {
  return SoloCodici(descrizione) + std::string(testoLibero);
}

}  // namespace varena
