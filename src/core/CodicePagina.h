// The Windows-1252 code page of every legacy file, turned into UTF-8 in memory and back.
#pragma once

#include <string>
#include <string_view>

namespace varena {

// Every byte has a meaning: the five holes of the code page map to the C1 controls of the
// same number, so that any file reads and writes back unchanged.
std::string Cp1252InUtf8(std::string_view byte);
void Cp1252InUtf8(std::string_view byte, std::string& destinazione);
// A character the code page does not hold becomes "?".
std::string Utf8InCp1252(std::string_view utf8);

// One code point of a UTF-8 text at `pos`, advancing it; a broken sequence yields U+FFFD.
char32_t ProssimoCarattere(std::string_view utf8, size_t& pos);
void AggiungiUtf8(std::string& s, char32_t c);

}  // namespace varena
