// The user's point symbols: `TipoPunto1.ini` in the program folder, read at start into
// `TabellaSimboli`, made of lines, circles and arcs in polar form about the symbol's origin
// for a symbol of size 1. A point whose symbol code is -n is drawn with user symbol n.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "view/StiliLinea.h"

namespace varena {

struct Sessione;
struct PuntoXYZ;

struct RigaSimbolo {
  double TipoElemento = 0;  // 1 line, 2 circle, 3 arc
  double Distanza1 = 0;     // first point, or centre: distance for size 1 and azimuth in gon
  double Angolo1 = 0;
  double Distanza2 = 0;     // second point, or radius
  double Angolo2 = 0;       // second point's azimuth, or the arc's start, gon
  double Ampiezza = 0;      // the arc's clockwise sweep, gon
  int16_t Simbolo = 0;      // the symbol the row belongs to
};

// The rows of a symbol stand one after the other; `Indicizza` finds each symbol's run once,
// so that drawing a point does not scan the table.
struct TabellaSimboli {
  std::vector<RigaSimbolo> Righe;
  void Indicizza();
  std::span<const RigaSimbolo> Simbolo(int numero) const;
  // The symbol numbers, in the order they first appear.
  std::vector<int> Numeri() const;

 private:
  std::vector<std::pair<int, std::pair<size_t, size_t>>> indice_;  // sorted by number
};

std::string PercorsoSimboli(const Sessione& s);
// The file: the row count on the first line, then one list statement a row with the fields
// in the order of `RigaSimbolo`. The read stops at the count or at a row cut short.
TabellaSimboli LeggiSimboli(const std::string& testoUtf8);
std::string TestoSimboli(const TabellaSimboli& t);
// Read at start, and again after a new symbol; an absent file is an empty table.
void CaricaSimboli(Sessione& s);

// `DisegnaPuntoPro` as elements: user symbol `numero` at size `s` turned by `rotazione`
// gon, in metres from the point. A number with no rows gives nothing.
void ScomponiSimboloUtente(const TabellaSimboli& t, int numero, double s, double rotazione,
                           std::vector<ElementoSimbolo>& out);
// Any point symbol code: the negative ones from the user's table, the others from the
// decorations and bases of `ScomponiSimbolo`.
void ScomponiSimboloPunto(const TabellaSimboli& t, int codice, double s, bool carta, std::vector<ElementoSimbolo>& out);

// Code 256 confirmed: the selected lines, circles and arcs become symbol `numero` about the
// origin `o`, scaled so that the element reaching farthest from it stands at distance 1, and
// go to the end of the file; the table is read again. The entities stay. False when nothing
// usable was selected (the message shown) or the file could not be written.
bool NuovoSimbolo(Sessione& s, const PuntoXYZ& o, int numero);
// Symbol `numero` taken out of the file, the table read again; a point that carried it then
// shows no symbol. False when there is no such symbol or the file could not be written.
bool EliminaSimbolo(Sessione& s, int numero);

}  // namespace varena
