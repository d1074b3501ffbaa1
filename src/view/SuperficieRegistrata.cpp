#include "view/SuperficieRegistrata.h"

#include <cstdio>

#include "core/Testo.h"

namespace varena {

namespace {
std::string N(double v) { return FormaSemplice(static_cast<double>(static_cast<float>(v))); }
}  // namespace

std::string EsadecimaleColore(ColoreRGB c) {
  char buf[16];
  std::snprintf(buf, sizeof buf, "#%06x", c & 0xFFFFFF);
  return buf;
}

void SuperficieRegistrata::ScalaUtente(double sinistra, double alto, double larghezza, double altezza) {
  Scrivi("ScalaUtente " + FormaSemplice(sinistra) + " " + FormaSemplice(alto) + " " + FormaSemplice(larghezza) +
         " " + FormaSemplice(altezza));
}
void SuperficieRegistrata::ColoreFondo(ColoreRGB c) { Scrivi("ColoreFondo " + EsadecimaleColore(c)); }
void SuperficieRegistrata::ColorePenna(ColoreRGB c) { Scrivi("ColorePenna " + EsadecimaleColore(c)); }
void SuperficieRegistrata::Modo(ModoPenna m) { Scrivi("Modo " + std::to_string(static_cast<int>(m))); }
void SuperficieRegistrata::Stile(StilePenna s) { Scrivi("Stile " + std::to_string(static_cast<int>(s))); }
void SuperficieRegistrata::Spessore(int pixel) { Scrivi("Spessore " + std::to_string(pixel)); }
void SuperficieRegistrata::Carattere(std::string_view nome, double dimensione) {
  Scrivi("Carattere " + std::string(nome) + " " + N(dimensione));
}
void SuperficieRegistrata::Linea(float x1, float y1, float x2, float y2, ColoreRGB c) {
  Scrivi("Linea " + N(x1) + " " + N(y1) + " " + N(x2) + " " + N(y2) + " " + EsadecimaleColore(c));
}
void SuperficieRegistrata::Riquadro(float x1, float y1, float x2, float y2, ColoreRGB c, bool pieno) {
  Scrivi(std::string(pieno ? "RiquadroPieno " : "Riquadro ") + N(x1) + " " + N(y1) + " " + N(x2) + " " + N(y2) + " " +
         EsadecimaleColore(c));
}
void SuperficieRegistrata::Cerchio(float x, float y, float r, ColoreRGB c) {
  Scrivi("Cerchio " + N(x) + " " + N(y) + " " + N(r) + " " + EsadecimaleColore(c));
}
void SuperficieRegistrata::Arco(float x, float y, float r, float inizio, float fine, ColoreRGB c) {
  Scrivi("Arco " + N(x) + " " + N(y) + " " + N(r) + " " + N(inizio) + " " + N(fine) + " " + EsadecimaleColore(c));
}
void SuperficieRegistrata::Pixel(float x, float y, ColoreRGB c) {
  Scrivi("Pixel " + N(x) + " " + N(y) + " " + EsadecimaleColore(c));
}
void SuperficieRegistrata::Testo(float x, float y, std::string_view testo, float rotazione) {
  Scrivi("Testo " + N(x) + " " + N(y) + (rotazione != 0 ? " @" + N(rotazione) : std::string()) + " " +
         std::string(testo));
}
bool SuperficieRegistrata::Immagine(const std::string& file, float x1, float y1, float x2, float y2) {
  Scrivi("Immagine " + file + " " + N(x1) + " " + N(y1) + " " + N(x2) + " " + N(y2));
  return true;
}

std::vector<std::string> SuperficieRegistrata::Solo(const std::string& prefisso) const {
  std::vector<std::string> out;
  for (const std::string& c : Chiamate)
    if (c.compare(0, prefisso.size(), prefisso) == 0) out.push_back(c);
  return out;
}

}  // namespace varena
