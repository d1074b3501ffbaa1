// The drawing surface as an SVG document: every stroke a vector, every text a text in the
// font the job names, so that the drawing can be scaled and edited in any SVG program.
#pragma once

#include <QHash>
#include <QImage>
#include <QFont>
#include <map>
#include <string>
#include <tuple>

#include "view/Superficie.h"

namespace varena {

class SuperficieSvg : public Superficie {
 public:
  // A document of `larghezzaPx` x `altezzaPx` user units of 1/`dpi` inch.
  SuperficieSvg(int larghezzaPx, int altezzaPx, double dpi);

  double LarghezzaMm() const override { return larghezza_ * 25.4 / dpi_; }
  double AltezzaMm() const override { return altezza_ * 25.4 / dpi_; }
  double PixelMm() const override { return 25.4 / dpi_; }

  void ScalaUtente(double sinistra, double alto, double larghezza, double altezza) override;
  void Pulisci() override;
  void ColoreFondo(ColoreRGB c) override { fondo_ = c; }
  void ColorePenna(ColoreRGB c) override { penna_ = c; }
  // A file is painted once: inversion and exclusive or, which exist so that a second
  // painting takes the first away, have nothing to take away here and paint as copy does.
  void Modo(ModoPenna) override {}
  void Stile(StilePenna s) override { stile_ = s; }
  void Spessore(int pixel) override { spessore_ = pixel < 1 ? 1 : pixel; }
  void Carattere(std::string_view nome, double dimensione) override;

  void Linea(float x1, float y1, float x2, float y2, ColoreRGB c) override;
  void Riquadro(float x1, float y1, float x2, float y2, ColoreRGB c, bool pieno) override;
  void Cerchio(float x, float y, float raggio, ColoreRGB c) override;
  void Arco(float x, float y, float raggio, float inizio, float fine, ColoreRGB c) override;
  void Pixel(float x, float y, ColoreRGB c) override;
  void Testo(float x, float y, std::string_view testo, float rotazione) override;
  bool Immagine(const std::string& file, float x1, float y1, float x2, float y2) override;
  double LarghezzaTesto(std::string_view testo) const override;
  double AltezzaTesto(std::string_view testo) const override;
  // Each symbol is drawn once, as strokes, among the definitions; the points then only
  // place it: a survey of thousands of points names a handful of symbols.
  void Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta) override;

  // The whole document, with `titolo` as its title.
  std::string Documento(std::string_view titolo);

 private:
  struct Tratto {
    ColoreRGB Colore;
    int Spessore;
    StilePenna Stile;
    bool operator==(const Tratto&) const = default;
  };
  void Mappa(double x, double y, double& px, double& py) const;
  // Appends path data in the pen `t`: strokes of one pen in a row share one path.
  void Traccia(const Tratto& t, const std::string& dati);
  void ChiudiTraccia();
  std::string Punto(double x, double y) const;

  int larghezza_, altezza_;
  double dpi_;
  double sinistra_ = 0, alto_ = 0, sx_ = 1, sy_ = 1;
  ColoreRGB fondo_ = 0xFFFFFF, penna_ = 0;
  StilePenna stile_ = StilePenna::Continuo;
  int spessore_ = 1;
  // The font as the job names it, the twin that measures it, and its size in points.
  std::string nomeCarattere_;
  double dimensioneCarattere_ = -1;
  QFont carattere_;
  double ascesa_ = 0;
  QImage misura_;  // a device of this document's resolution, for the font's metrics

  std::string corpo_, definizioni_;
  std::string* uscita_ = &corpo_;  // the definitions while a symbol is being drawn
  bool tracciaAperta_ = false;
  Tratto traccia_{};
  std::string fineTraccia_;  // where the open path's last line ended, as written
  std::map<std::tuple<int, double, ColoreRGB, int, bool, double, double>, int> simboli_;
  QHash<QString, std::string> immagini_;  // picture files as data addresses
};

}  // namespace varena
