// The drawing surface port: what regeneration, redraw, the rubber bands and the plot ask of
// a surface. Coordinates are view coordinates (metres from the view centre) narrowed to
// 32-bit floats only here, after the centre was subtracted in 64 bits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

// Colours travel as 0xRRGGBB.
using ColoreRGB = uint32_t;

enum class ModoPenna : int { Copia = 13, Inverti = 6, Esclusivo = 7 };
enum class StilePenna : int { Continuo = 0, Punteggiato = 2 };

class Superficie {
 public:
  virtual ~Superficie() = default;

  // Size of the drawable area in millimetres; 0 when unknown.
  virtual double LarghezzaMm() const = 0;
  virtual double AltezzaMm() const = 0;
  // The height, in millimetres, that a label sized as a share of the view is a share of:
  // the surface's own, or for a window the height of its screen, so that the labels of a
  // small window are as readable as those of a large one.
  virtual double AltezzaRiferimentoMm() const { return AltezzaMm(); }
  // The side of one pixel in millimetres: the finest detail the surface shows.
  virtual double PixelMm() const { return 25.4 / 96.0; }
  // A minimised window is not drawn on.
  virtual bool Minimizzata() const { return false; }

  // The user scale: `sinistra`, `alto` is the top left corner; a negative `altezza` puts
  // North up.
  virtual void ScalaUtente(double sinistra, double alto, double larghezza, double altezza) = 0;
  virtual void Pulisci() = 0;
  virtual void ColoreFondo(ColoreRGB c) = 0;
  virtual void ColorePenna(ColoreRGB c) = 0;
  // Copy paints; invert and exclusive or undo themselves when the same item is painted twice.
  virtual void Modo(ModoPenna m) = 0;
  virtual void Stile(StilePenna s) = 0;
  virtual void Spessore(int pixel) = 0;
  virtual void Carattere(std::string_view nome, double dimensione) = 0;

  virtual void Linea(float x1, float y1, float x2, float y2, ColoreRGB c) = 0;
  virtual void Riquadro(float x1, float y1, float x2, float y2, ColoreRGB c, bool pieno) = 0;
  virtual void Cerchio(float x, float y, float raggio, ColoreRGB c) = 0;
  // Angles in radians, counter-clockwise from East, as surfaces draw arcs.
  virtual void Arco(float x, float y, float raggio, float inizio, float fine, ColoreRGB c) = 0;
  virtual void Pixel(float x, float y, ColoreRGB c) = 0;
  // Text with its top left corner at (x, y), in the current font and fore colour, turned by
  // `rotazione` radians counter-clockwise about that corner.
  virtual void Testo(float x, float y, std::string_view testo, float rotazione) = 0;
  // A picture file painted in a rectangle; false when it could not be read.
  virtual bool Immagine(const std::string& file, float x1, float y1, float x2, float y2) = 0;
  // Extent of a text in the current font, in user units.
  virtual double LarghezzaTesto(std::string_view testo) const = 0;
  virtual double AltezzaTesto(std::string_view testo) const = 0;

  // A point's symbol of code `codice` and size `dimensione` at (x, y). By default it is
  // painted element by element; a surface may keep ready-made symbols instead.
  virtual void Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta);
};

struct ElementoSimbolo;
// The elements of a symbol painted at (x, y), each through the surface's own call.
void DipingiElementi(Superficie& sup, const std::vector<ElementoSimbolo>& elementi, float x, float y, ColoreRGB c);

}  // namespace varena
