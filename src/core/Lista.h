// The list-statement form of the text members: quoted strings, numbers with a point,
// commas between items, one statement a line. A writer and the matching tokenising reader.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varena {

// One statement being written, UTF-8 in memory; `Riga()` ends it with CR LF.
class IstruzioneLista {
 public:
  IstruzioneLista& Testo(std::string_view utf8);
  IstruzioneLista& Numero(double valore);
  std::string Riga() const { return testo_ + "\r\n"; }
  const std::string& Corpo() const { return testo_; }

 private:
  void Separa();
  std::string testo_;
  bool primo_ = true;
};

// Reads the items of list statements as a stream: a comma and a line end both end an item,
// so a statement split over lines or joined on one reads the same values. A quoted item runs
// to the next quote; anything after it up to the delimiter is dropped.
class LettoreLista {
 public:
  explicit LettoreLista(std::string testoUtf8) : testo_(std::move(testoUtf8)) {}

  // No item is left: only blanks and line ends remain.
  bool Fine();
  // The next item as text. Past the end it fails with "Input past end of file".
  std::string Elemento();
  std::string LeggiTesto() { return Elemento(); }
  double LeggiNumero();
  int16_t LeggiI16();
  int32_t LeggiI32();
  uint8_t LeggiU8();
  float LeggiF32() { return static_cast<float>(LeggiNumero()); }
  // The rest of the current line, as a whole-line read.
  std::string LeggiRiga();
  size_t Posizione() const { return pos_; }
  // Of the item read last: whether it stood between quotes, and the line it began on,
  // counted from 1.
  bool TraVirgolette() const { return virgolette_; }
  size_t RigaElemento() const;

 private:
  void SaltaVuoti();
  std::string testo_;
  size_t pos_ = 0;
  size_t inizio_ = 0;
  bool dopoVirgola_ = false;
  bool virgolette_ = false;
};

}  // namespace varena
