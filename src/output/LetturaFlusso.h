// The reader of a plot stream: the records of `stampe.vr` as items our own spooler draws.
// Anything it does not know, or whose numbers are not finite, it passes over.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct ElementoFlusso {
  enum Genere : uint8_t { Linea, Cerchio, Scritta, Immagine } Tipo = Linea;
  // Metres from the page's centre. Line: both ends. Circle: centre and radius in X2. Text:
  // the foot of its first letter. Picture: top left corner, width and height in X2, Y2.
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  double Spessore = 0;  // millimetres on paper
  double Altezza = 0;   // text height in metres
  double Angolo = 0;    // degrees, clockwise
  int32_t Colore = 0;
  std::string Testo;    // the text, or the picture's file
  std::string Font;
};

struct PaginaFlusso {
  double AltezzaVista = 0;  // the "SCALA" record: the height of the page in metres
  std::vector<ElementoFlusso> Elementi;
};

PaginaFlusso LeggiFlussoStampa(std::string_view testo);

}  // namespace varena
