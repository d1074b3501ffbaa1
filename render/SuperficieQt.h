// The drawing surface on a Qt raster device: the screen's picture and PNG files. Vector
// output has a surface of its own (SuperficieSvg).
#pragma once

#include <QFont>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QPen>

#include "view/Superficie.h"

namespace varena {

class SuperficieQt : public Superficie {
 public:
  // `dispositivo` is painted on, `larghezzaPx` x `altezzaPx` pixels at `dpi` dots per inch.
  SuperficieQt(QPaintDevice* dispositivo, int larghezzaPx, int altezzaPx, double dpi);
  ~SuperficieQt() override;

  double LarghezzaMm() const override { return larghezza_ * 25.4 / dpi_; }
  double AltezzaMm() const override { return altezza_ * 25.4 / dpi_; }
  double AltezzaRiferimentoMm() const override { return riferimentoMm_ > 0 ? riferimentoMm_ : AltezzaMm(); }
  // The window's: the height of the screen it stands on, for the labels sized as a share.
  void ImpostaRiferimentoMm(double mm) { riferimentoMm_ = mm; }
  // On a screen of more device pixels than logical ones the pens widen with it, so that a
  // line keeps its weight; the surface is then `ratio` times the window in pixels.
  void ImpostaRapportoPixel(double rapporto) { rapporto_ = rapporto > 0 ? rapporto : 1; }
  double PixelMm() const override { return 25.4 / dpi_; }

  void ScalaUtente(double sinistra, double alto, double larghezza, double altezza) override;
  void Pulisci() override;
  void ColoreFondo(ColoreRGB c) override;
  ColoreRGB Fondo() const { return fondo_; }
  void ColorePenna(ColoreRGB c) override { penna_ = c; }
  void Modo(ModoPenna m) override;
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
  // Small symbols painted in copy mode come from a cache of ready-made images: a survey of
  // many points paints the same few symbols thousands of times.
  void Simbolo(int codice, float x, float y, double dimensione, ColoreRGB c, bool carta) override;

  // Ends the painting, so that the device holds the whole picture.
  void Fine();
  // The font of the last text painted, as set by `Carattere`.
  const QFont& CarattereInUso() const { return carattere_; }

 private:
  QPointF Mappa(double x, double y) const { return {(x - sinistra_) * sx_, (y - alto_) * sy_}; }
  void Penna(ColoreRGB c);

  QPainter pittore_;
  int larghezza_, altezza_;
  double dpi_;
  double riferimentoMm_ = 0;
  double rapporto_ = 1;
  double sinistra_ = 0, alto_ = 0, sx_ = 1, sy_ = 1;
  ColoreRGB fondo_ = 0xFFFFFF, penna_ = 0;
  StilePenna stile_ = StilePenna::Continuo;
  ModoPenna modo_ = ModoPenna::Copia;
  int spessore_ = 1;
  QFont carattere_;
  // The font asked for last, and the distance from its top to its base line: a redraw asks
  // for the same few fonts thousands of times.
  std::string nomeCarattere_;
  double dimensioneCarattere_ = -1;
  double ascesa_ = 0;
  QHash<quint64, QImage> simboli_;
  // The pen last set, so that a run of lines in one colour sets it once.
  ColoreRGB pennaColore_ = 0xFFFFFFFF;
  int pennaSpessore_ = -1;
  StilePenna pennaStile_ = StilePenna::Continuo;
};

// The fonts the legacy jobs name, to the metric twins a Linux desktop has.
QString FamigliaCarattere(std::string_view nome);

}  // namespace varena
