// The operations of the point list on the selected points: each its title, its question and
// its effect, in one table that the desktop list turns into its menu and the tests run by key.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

struct OperazioneElenco {
  const char* Chiave;   // the name of the operation for scripts and menus
  const char* Titolo;   // the title of the question and of the messages
  const char* Domanda;  // its lines joined by "\n"; none: the operation runs without asking
  // What is asked after Yes, if anything: the prompt of the value.
  const char* Richiesta;
  void (*Effetto)(Sessione& s, size_t riga, const std::string& valore, int64_t ordine);
  // An operation on the selected rows together: true when it changed the job (and marked
  // what it changed), false when it only read them.
  bool (*Insieme)(Sessione& s, const std::vector<int32_t>& righe);
};

std::span<const OperazioneElenco> OperazioniElenco();
const OperazioneElenco* TrovaOperazioneElenco(std::string_view chiave);

// The operation on the table rows `righe`, in their order: nothing when there are none or
// the answer is No; else the rows changed, the undo step, and true.
bool EseguiOperazioneElenco(Sessione& s, const OperazioneElenco& op, const std::vector<int32_t>& righe);

// `PulisciRiga`: a book row made from the list's cells loses "<P!>", and an empty field
// takes the word of a note.
std::string PulisciRiga(std::string_view riga);

// Every `vecchio` among the names of the contour lists becomes `nuovo`.
void RinominaPuntoContorni(Sessione& s, std::string_view vecchio, std::string_view nuovo);

}  // namespace varena
