// The texts of an imported drawing turned into the names, descriptions and heights of its
// points (`ElaboraTestiInPunto`, dialog "Testo in Punto Automatico").
#pragma once

#include <cstddef>
#include <string>

namespace varena {

struct Sessione;

struct OpzioniTestiInPunto {
  // The layers, compared in upper case: the points', and those of the three kinds of text.
  std::string Nodi = "PUNTI", Nomi = "NOMI", Quote = "QUOTE", Note = "DESCRIZIONI";
  bool ConNomi = true;            // check 0
  bool ConQuoteENote = true;      // check 1
  bool EliminaLinee = false;      // check 3, "Elimina Linee Senza Punti Estremi"
};

// What a text becomes on its point.
enum class Bersaglio { Nome, Descrizione, Quota };
// The text made the name, description or height of the point, and deleted.
void AssegnaTestoAPunto(Sessione& s, size_t punto, size_t testo, Bersaglio b);

// `FormTestoInPunto`, the same pairing by hand: a text picked, then its point (397).
bool ApriFormTestoInPunto(Sessione& s);
void subTestoInPunto(Sessione& s);

// Section "TestoInPunto" of the settings, and back.
OpzioniTestiInPunto LeggiOpzioniTestiInPunto(Sessione& s);
void ScriviOpzioniTestiInPunto(Sessione& s, const OpzioniTestiInPunto& o);

// Names, then descriptions, then heights: first each text that stands on a point, then for
// each point the nearest text left. Each text used is deleted. Returns the texts used.
int64_t ElaboraTestiInPunto(Sessione& s, const OpzioniTestiInPunto& o);

}  // namespace varena
