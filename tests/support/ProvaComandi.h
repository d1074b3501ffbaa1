// Helpers of the tests of commands and snaps: entities written straight into the tables,
// and a session driven by script text whose printed output is read back.
#pragma once

#include <sstream>
#include <string>

#include "commands/Script.h"
#include "support/Supporto.h"

namespace varena::prova {

// Rows with the plain defaults: colour 1, line type 1, layer "0", nothing frozen.
int32_t MettiPunto(Sessione& s, const std::string& nome, double x, double y, double z = 0);
int32_t MettiLinea(Sessione& s, double x1, double y1, double x2, double y2, double z1 = 0, double z2 = 0);
int32_t MettiCerchio(Sessione& s, double x, double y, double raggio, double z = 0);
// Start azimuth and amplitude in gon, as the record holds them.
int32_t MettiArco(Sessione& s, double x, double y, double raggio, double inizio, double ampiezza, double z0 = 0,
                  double z1 = 0);
int32_t MettiTesto(Sessione& s, double x, double y, const std::string& testo);
// An image whose top left corner is (x, y), `larghezza` by `altezza` pixels at `scala`
// metres a pixel.
int32_t MettiImmagine(Sessione& s, double x, double y, double larghezza, double altezza, double scala);
// A line record of the display list of a kind that has no regenerator here (facets,
// contours, sections, the extract), for the searches of those kinds.
int64_t MettiRecordLista(Sessione& s, uint8_t tipo, int32_t riga, double x1, double y1, double x2, double y2);

// A session over a temporary working root whose interface prints as a script run does.
struct Banco {
  CartellaTemporanea cartella;
  std::ostringstream uscita;
  InterfacciaScript ui{uscita};
  Sessione s;
  Banco();
  // The view, then the display list and the grids made from the tables.
  void Pronto(double est = 0, double nord = 0, double altezza = 100);
  // Runs `testo` and gives what it printed; the printout starts afresh at each call. Strict
  // unless a test says otherwise: a click that does nothing or a question nobody answered
  // stops the script.
  std::string Script(const std::string& testo);
  OpzioniScript Opzioni{.Rigoroso = true, .Salva = {}};
  EsitoScript UltimoEsito;
};

// A job of no entities, "ROSSI" in the temporary folder, opened as the program opens one:
// its snapshots and list files then have a provisional folder. Rows put in afterwards are
// written by the next snapshot.
void ApriLavoroVuoto(Banco& b);
// The generation the undo journal stands at.
int64_t PassoUndo(const Sessione& s);

}  // namespace varena::prova
