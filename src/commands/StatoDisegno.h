// What the drawing commands carry from click to click and from one figure to the next: the
// entity picked at a first step, the text properties and the image chosen in their dialogs.
#pragma once

#include <cstdint>
#include <string>

namespace varena {

// The text of `ProprietaTesto`: what the next click writes.
struct ProprietaTestoScelte {
  bool Scelte = false;  // false until a dialog was confirmed: the defaults of the settings then
  std::string Testo;
  double Altezza = 0;
  double Angolo = 0;    // gon, counter-clockwise from East, as the text records hold it
  int32_t Colore = 0;
  std::string Font;
};

// The picture of `FormSelezionaImmagine`.
struct ImmagineScelta {
  std::string File;
  double Larghezza = 0, Altezza = 0;  // pixels
  double Scala = 1;                    // metres a pixel
};

struct StatoDisegno {
  // The entity a first step picked: its slot and row, and where the click fell.
  uint8_t TipoScelto = 0;
  int32_t RigaScelta = -1;
  double SceltaX = 0, SceltaY = 0;
  // A length typed at a middle step (the perpendicular, the orthogonals, the axis).
  double Lunghezza = 0;
  // The first line of a fillet and where it was picked.
  int32_t PrimaLinea = -1;
  double PrimaX = 0, PrimaY = 0;
  ProprietaTestoScelte Testo;
  ImmagineScelta Immagine;
};

}  // namespace varena
