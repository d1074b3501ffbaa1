// A surface that paints nothing and writes down every call, in order, as one line of text:
// the tests read back what the drawing code asked for.
#pragma once

#include <string>
#include <vector>

#include "view/Superficie.h"

namespace varena {

class SuperficieRegistrata : public Superficie {
 public:
  SuperficieRegistrata(double larghezzaMm = 160, double altezzaMm = 100) : lmm_(larghezzaMm), amm_(altezzaMm) {}

  double LarghezzaMm() const override { return lmm_; }
  double AltezzaMm() const override { return amm_; }
  double AltezzaRiferimentoMm() const override { return riferimentoMm > 0 ? riferimentoMm : amm_; }
  bool Minimizzata() const override { return minimizzata; }

  void ScalaUtente(double sinistra, double alto, double larghezza, double altezza) override;
  void Pulisci() override { Scrivi("Pulisci"); }
  void ColoreFondo(ColoreRGB c) override;
  void ColorePenna(ColoreRGB c) override;
  void Modo(ModoPenna m) override;
  void Stile(StilePenna s) override;
  void Spessore(int pixel) override;
  void Carattere(std::string_view nome, double dimensione) override;
  void Linea(float x1, float y1, float x2, float y2, ColoreRGB c) override;
  void Riquadro(float x1, float y1, float x2, float y2, ColoreRGB c, bool pieno) override;
  void Cerchio(float x, float y, float raggio, ColoreRGB c) override;
  void Arco(float x, float y, float raggio, float inizio, float fine, ColoreRGB c) override;
  void Pixel(float x, float y, ColoreRGB c) override;
  void Testo(float x, float y, std::string_view testo, float rotazione) override;
  bool Immagine(const std::string& file, float x1, float y1, float x2, float y2) override;
  // Half a unit a character, one unit high: enough to place labels predictably.
  double LarghezzaTesto(std::string_view testo) const override { return 0.5 * static_cast<double>(testo.size()); }
  double AltezzaTesto(std::string_view) const override { return 1.0; }

  std::vector<std::string> Chiamate;
  bool minimizzata = false;
  double riferimentoMm = 0;  // the screen's height, for a surface that stands for a window
  // Only the calls that begin with `prefisso`.
  std::vector<std::string> Solo(const std::string& prefisso) const;

 private:
  void Scrivi(std::string riga) { Chiamate.push_back(std::move(riga)); }
  double lmm_, amm_;
};

// A colour as "#rrggbb", the way the recording writes it.
std::string EsadecimaleColore(ColoreRGB c);

}  // namespace varena
