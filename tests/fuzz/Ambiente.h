// The folder a fuzz target works in: a working root, the program's data and a copy of the
// example job under a temporary root, brought back to how it was made before each input,
// and a guard that stops the run at any change of the disk outside it.
#pragma once

#include <map>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

#include "view/Superficie.h"

namespace varena {
struct Sessione;
}

namespace varena::fuzz {

class Ambiente {
 public:
  // Made under $TMPDIR (or /tmp), with the tables a first start writes and the example job
  // in `Lavori()`; from here on the file layer refuses, and the run stops at, any change
  // outside it.
  Ambiente();
  ~Ambiente();
  Ambiente(const Ambiente&) = delete;
  Ambiente& operator=(const Ambiente&) = delete;

  const std::string& Radice() const { return radice_; }
  // Where the user's jobs stand; the example job is `Lavori() + "/RILIEVO"`.
  std::string Lavori() const { return radice_ + "/lavori"; }
  std::string Esempio() const { return Lavori() + "/RILIEVO"; }

  // Every file and folder as they were when the root was made: what an input changed, added
  // or removed is put back, so that each input starts from the same disk.
  void Ripristina() const;

  // A session over the root as a start of the program sets it: folders, a fixed clock.
  void Prepara(Sessione& s) const;

 private:
  std::string radice_;
  std::map<std::string, std::string> file_;  // path -> bytes
  std::map<std::string, bool> cartelle_;
};

// Bytes to a file of the root, folders made as needed, past the program's own file layer.
void ScriviFileFuzz(const std::string& percorso, std::string_view byte);

// The first byte of an input chooses among `quanti` things; the rest is the content.
size_t Scelta(std::string_view& byte, size_t quanti);

// A surface that paints nothing, with a size and text extents, so that a redraw runs whole.
class SuperficieNulla : public Superficie {
 public:
  double LarghezzaMm() const override { return 320; }
  double AltezzaMm() const override { return 200; }
  void ScalaUtente(double, double, double, double) override {}
  void Pulisci() override {}
  void ColoreFondo(ColoreRGB) override {}
  void ColorePenna(ColoreRGB) override {}
  void Modo(ModoPenna) override {}
  void Stile(StilePenna) override {}
  void Spessore(int) override {}
  void Carattere(std::string_view, double dimensione) override { dimensione_ = dimensione; }
  void Linea(float, float, float, float, ColoreRGB) override {}
  void Riquadro(float, float, float, float, ColoreRGB, bool) override {}
  void Cerchio(float, float, float, ColoreRGB) override {}
  void Arco(float, float, float, float, float, ColoreRGB) override {}
  void Pixel(float, float, ColoreRGB) override {}
  void Testo(float, float, std::string_view, float) override {}
  bool Immagine(const std::string&, float, float, float, float) override { return false; }
  double LarghezzaTesto(std::string_view t) const override { return 0.6 * dimensione_ * static_cast<double>(t.size()); }
  double AltezzaTesto(std::string_view) const override { return dimensione_; }

 private:
  double dimensione_ = 1;
};

// The redraw of the main window, on a surface that paints nothing.
void Dipingi(Sessione& s);

// A stream that drops what it is given.
class FlussoNullo : public std::ostream {
 public:
  FlussoNullo() : std::ostream(&buffer_) {}

 private:
  struct Buffer : std::streambuf {
    int overflow(int c) override { return c; }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
  } buffer_;
};

}  // namespace varena::fuzz
