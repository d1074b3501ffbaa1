// Windows-1252 <-> UTF-8 by table: the job files hold single bytes, memory holds UTF-8.
#include "core/CodicePagina.h"

#include <array>

namespace varena {

namespace {

// 0x80..0x9F of the code page; the holes keep the C1 control of the same number.
constexpr std::array<char16_t, 32> kAlti = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t DaByte(unsigned char b) {
  if (b >= 0x80 && b < 0xA0) return kAlti[b - 0x80];
  return b;
}

int InByte(char32_t c) {
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
  for (int i = 0; i < 32; ++i)
    if (kAlti[i] == c) return 0x80 + i;
  return -1;
}

}  // namespace

void AggiungiUtf8(std::string& s, char32_t c) {
  if (c < 0x80) {
    s.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    s.push_back(static_cast<char>(0xC0 | (c >> 6)));
    s.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else if (c < 0x10000) {
    s.push_back(static_cast<char>(0xE0 | (c >> 12)));
    s.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    s.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  } else {
    s.push_back(static_cast<char>(0xF0 | (c >> 18)));
    s.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
    s.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
    s.push_back(static_cast<char>(0x80 | (c & 0x3F)));
  }
}

char32_t ProssimoCarattere(std::string_view s, size_t& pos) {
  const auto b0 = static_cast<unsigned char>(s[pos++]);
  if (b0 < 0x80) return b0;
  int seguito = 0;
  char32_t c = 0;
  if ((b0 & 0xE0) == 0xC0) {
    seguito = 1;
    c = b0 & 0x1F;
  } else if ((b0 & 0xF0) == 0xE0) {
    seguito = 2;
    c = b0 & 0x0F;
  } else if ((b0 & 0xF8) == 0xF0) {
    seguito = 3;
    c = b0 & 0x07;
  } else {
    return 0xFFFD;
  }
  for (int i = 0; i < seguito; ++i) {
    if (pos >= s.size()) return 0xFFFD;
    const auto b = static_cast<unsigned char>(s[pos]);
    if ((b & 0xC0) != 0x80) return 0xFFFD;
    c = (c << 6) | (b & 0x3F);
    ++pos;
  }
  return c;
}

void Cp1252InUtf8(std::string_view byte, std::string& out) {
  out.clear();
  size_t i = 0;
  // Most job text is plain ASCII: copy it whole and convert only what needs it.
  while (i < byte.size() && static_cast<unsigned char>(byte[i]) < 0x80) ++i;
  if (i == byte.size()) {
    out.assign(byte.data(), byte.size());
    return;
  }
  out.reserve(byte.size() + 8);
  out.assign(byte.data(), i);
  for (; i < byte.size(); ++i) AggiungiUtf8(out, DaByte(static_cast<unsigned char>(byte[i])));
}

std::string Cp1252InUtf8(std::string_view byte) {
  std::string out;
  Cp1252InUtf8(byte, out);
  return out;
}

std::string Utf8InCp1252(std::string_view utf8) {
  // Plain ASCII, most of every job's text, is the same in both: copied whole.
  size_t pos = 0;
  while (pos < utf8.size() && static_cast<unsigned char>(utf8[pos]) < 0x80) ++pos;
  std::string out(utf8.substr(0, pos));
  if (pos == utf8.size()) return out;
  out.reserve(utf8.size());
  while (pos < utf8.size()) {
    const int v = InByte(ProssimoCarattere(utf8, pos));
    out.push_back(v < 0 ? '?' : static_cast<char>(v));
  }
  return out;
}

}  // namespace varena
