// The rich text of the report models: the part of RTF a report needs (paragraphs and their
// alignment, bold, italic, underline, font and size, tabs and line breaks), read from and
// written to bytes without any widget. Tables are read as rows of cells apart by tabs;
// pictures, headers, fields' codes and the other destinations are passed over.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct CorsaRicca {
  std::string Testo;  // UTF-8; "\t" a tab, "\n" a line break inside the paragraph
  bool Grassetto = false, Corsivo = false, Sottolineato = false;
  int Punti = 12;  // the size, 1 to 1638 points
  std::string Font;

  bool StessoAspetto(const CorsaRicca& c) const {
    return Grassetto == c.Grassetto && Corsivo == c.Corsivo && Sottolineato == c.Sottolineato && Punti == c.Punti &&
           Font == c.Font;
  }
  bool operator==(const CorsaRicca&) const = default;
};

struct ParagrafoRicco {
  char Allineamento = 'l';  // 'l' left, 'c' centre, 'r' right, 'j' justified
  std::vector<CorsaRicca> Corse;
  bool operator==(const ParagrafoRicco&) const = default;
};

struct TestoRicco {
  std::vector<ParagrafoRicco> Paragrafi;
  bool operator==(const TestoRicco&) const = default;
};

// No value when the bytes do not begin as RTF ("{\rtf"). Anything after that reads: an
// unbalanced brace or a cut file gives what came before it.
std::optional<TestoRicco> LeggiRtf(std::string_view byte);
// RTF of the Windows code page, the characters outside it as Unicode escapes.
std::string ScriviRtf(const TestoRicco& t);

}  // namespace varena
