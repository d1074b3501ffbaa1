// The "Rilevato errore" box of every routine that does input or output.
#include "core/Errori.h"

#include "core/Sessione.h"

namespace varena {

std::string TestoErroreComune(std::string_view descrizione, std::string_view routine) {
  std::string t = "Si è verificato questo errore : ";
  t += descrizione;
  t += " o il file potrebbe essere di sola lettura!";
  t += "\n";
  t += "Nella Routine ";
  t += routine;
  return t;
}

void MostraErroreComune(Sessione& s, std::string_view descrizione) {
  s.UltimoErrore = std::string(descrizione);
  s.Ui->Messaggio(TestoErroreComune(descrizione, s.RoutineCorrente), "Rilevato errore", Icona::Critico);
}

}  // namespace varena
