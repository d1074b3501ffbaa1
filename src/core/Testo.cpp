// Number reading and printing with a point whatever the locale, and the small text routines.
#include "core/Testo.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "core/CodicePagina.h"
#include "core/Conversioni.h"

namespace varena {

namespace {

bool Blank(char c) { return c == ' ' || c == '\t'; }
bool Cifra(char c) { return c >= '0' && c <= '9'; }

}  // namespace

double Val(std::string_view t) {
  size_t i = 0;
  while (i < t.size() && (Blank(t[i]) || t[i] == '\r' || t[i] == '\n')) ++i;
  bool negativo = false;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) {
    negativo = t[i] == '-';
    ++i;
  }
  std::string numero;
  bool cifre = false;
  while (i < t.size() && Cifra(t[i])) {
    numero.push_back(t[i++]);
    cifre = true;
  }
  if (i < t.size() && t[i] == '.') {
    numero.push_back(t[i++]);
    while (i < t.size() && Cifra(t[i])) {
      numero.push_back(t[i++]);
      cifre = true;
    }
  }
  if (!cifre) return 0.0;
  // An exponent counts only when digits follow it: "12E" is 12, "1E3" is 1000.
  if (i < t.size() && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
    size_t j = i + 1;
    std::string esponente = "e";
    if (j < t.size() && (t[j] == '+' || t[j] == '-')) esponente.push_back(t[j++]);
    if (j < t.size() && Cifra(t[j])) {
      while (j < t.size() && Cifra(t[j])) esponente.push_back(t[j++]);
      numero += esponente;
    }
  }
  if (numero.front() == '.') numero.insert(numero.begin(), '0');
  double v = 0.0;
  auto [p, ec] = std::from_chars(numero.data(), numero.data() + numero.size(), v);
  (void)p;
  if (ec == std::errc::result_out_of_range) {
    // A huge exponent saturates, a tiny one goes to zero, as a reader of digits would.
    v = numero.find("e-") != std::string::npos ? 0.0 : std::numeric_limits<double>::max();
  } else if (ec != std::errc()) {
    return 0.0;
  }
  return negativo ? -v : v;
}

int64_t ArrotondaPari(double x) {
  double f = std::floor(x);
  const double d = x - f;
  if (d > 0.5 || (d == 0.5 && std::fmod(f, 2.0) != 0.0)) f += 1.0;
  return InteroSaturato<int64_t>(f);
}

int16_t InteroCorto(double x) {
  return static_cast<int16_t>(std::clamp<int64_t>(ArrotondaPari(x), -32768, 32767));
}

int32_t InteroLungo(double x) {
  return static_cast<int32_t>(
      std::clamp<int64_t>(ArrotondaPari(x), std::numeric_limits<int32_t>::min(),
                          std::numeric_limits<int32_t>::max()));
}

std::string FormatoMaschera(double valore, std::string_view maschera) {
  const size_t punto = maschera.find('.');
  const std::string_view sinistra = maschera.substr(0, punto);
  std::string decimaliMaschera;
  if (punto != std::string_view::npos)
    for (char c : maschera.substr(punto + 1))
      if (c == '0' || c == '#') decimaliMaschera.push_back(c);
  // Integer digits are padded from the first "0" of the picture on.
  const size_t primoZero = sinistra.find('0');
  const long minInteri = primoZero == std::string_view::npos ? 0 : static_cast<long>(sinistra.size() - primoZero);
  const long maxDecimali = static_cast<long>(decimaliMaschera.size());

  if (!std::isfinite(valore)) valore = 0.0;
  const bool negativo = std::signbit(valore);
  // The double is first taken to 15 significant digits, so that 1.0005 rounds as the
  // surveyor reads it, then rounded in decimal, half away from zero.
  char buf[40];
  auto r = std::to_chars(buf, buf + sizeof buf, std::fabs(valore), std::chars_format::scientific, 14);
  const std::string_view sci(buf, static_cast<size_t>(r.ptr - buf));
  const size_t e = sci.find('e');
  std::string cifre;
  for (char c : sci.substr(0, e))
    if (Cifra(c)) cifre.push_back(c);
  const int esponente = std::stoi(std::string(sci.substr(e + 1)));

  std::string interi, decimali;
  const int inPunto = esponente + 1;  // digits before the point
  if (inPunto <= 0) {
    interi = "0";
    decimali = std::string(static_cast<size_t>(-inPunto), '0') + cifre;
  } else if (inPunto >= static_cast<int>(cifre.size())) {
    interi = cifre + std::string(static_cast<size_t>(inPunto) - cifre.size(), '0');
  } else {
    interi = cifre.substr(0, static_cast<size_t>(inPunto));
    decimali = cifre.substr(static_cast<size_t>(inPunto));
  }
  if (static_cast<long>(decimali.size()) > maxDecimali) {
    const bool su = decimali[static_cast<size_t>(maxDecimali)] >= '5';
    decimali.resize(static_cast<size_t>(maxDecimali));
    if (su) {
      std::string tutto = interi + decimali;
      int k = static_cast<int>(tutto.size()) - 1;
      while (k >= 0 && tutto[static_cast<size_t>(k)] == '9') tutto[static_cast<size_t>(k--)] = '0';
      if (k >= 0)
        ++tutto[static_cast<size_t>(k)];
      else
        tutto.insert(tutto.begin(), '1');
      interi = tutto.substr(0, tutto.size() - decimali.size());
      decimali = tutto.substr(tutto.size() - decimali.size());
    }
  }
  while (static_cast<long>(decimali.size()) < maxDecimali) decimali.push_back('0');
  // Place by place: a "0" always shows its digit, a "#" only while a significant digit
  // stands at or after it.
  std::string mostrati;
  for (size_t i = 0; i < decimali.size(); ++i) {
    const bool significativo = decimali.find_first_not_of('0', i) != std::string::npos;
    if (decimaliMaschera[i] == '0' || significativo) mostrati.push_back(decimali[i]);
  }
  decimali = mostrati;
  size_t primo = interi.find_first_not_of('0');
  interi = primo == std::string::npos ? std::string() : interi.substr(primo);
  while (static_cast<long>(interi.size()) < minInteri) interi.insert(interi.begin(), '0');

  std::string out;
  const bool tuttiZero = (interi + decimali).find_first_not_of('0') == std::string::npos;
  if (negativo && !tuttiZero) out.push_back('-');
  out += interi;
  if (punto != std::string_view::npos) {
    out.push_back('.');
    out += decimali;
  }
  return out;
}

std::string FormaSemplice(double valore) {
  if (!std::isfinite(valore) || valore == 0.0) return "0";
  char buf[40];
  auto r = std::to_chars(buf, buf + sizeof buf, valore, std::chars_format::general, 15);
  return std::string(buf, r.ptr);
}

std::string FormaStampa(double valore) {
  std::string s = FormaSemplice(valore);
  if (s.front() != '-') s.insert(s.begin(), ' ');
  s.push_back(' ');
  return s;
}

std::string VirgolaInPunto(std::string_view testo) { return Sostituisci(testo, ",", "."); }

std::string RifilaDestra(std::string_view t) {
  size_t fine = t.size();
  while (fine > 0 && Blank(t[fine - 1])) --fine;
  return std::string(t.substr(0, fine));
}

std::string RifilaSinistra(std::string_view t) {
  size_t inizio = 0;
  while (inizio < t.size() && Blank(t[inizio])) ++inizio;
  return std::string(t.substr(inizio));
}

std::string Rifila(std::string_view t) {
  size_t inizio = 0, fine = t.size();
  while (inizio < fine && Blank(t[inizio])) ++inizio;
  while (fine > inizio && Blank(t[fine - 1])) --fine;
  return std::string(t.substr(inizio, fine - inizio));
}

namespace {

template <class F>
std::string MappaLettere(std::string_view utf8, F mappa) {
  std::string out;
  out.reserve(utf8.size());
  size_t pos = 0;
  while (pos < utf8.size()) {
    const auto b = static_cast<unsigned char>(utf8[pos]);
    if (b < 0x80) {
      out.push_back(static_cast<char>(mappa(b)));
      ++pos;
    } else {
      AggiungiUtf8(out, mappa(ProssimoCarattere(utf8, pos)));
    }
  }
  return out;
}

char32_t Su(char32_t c) {
  if (c >= 'a' && c <= 'z') return c - 32;
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
  switch (c) {
    case 0x0161: return 0x0160;
    case 0x0153: return 0x0152;
    case 0x017E: return 0x017D;
    case 0x00FF: return 0x0178;
    default: return c;
  }
}

char32_t Giu(char32_t c) {
  if (c >= 'A' && c <= 'Z') return c + 32;
  if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
  switch (c) {
    case 0x0160: return 0x0161;
    case 0x0152: return 0x0153;
    case 0x017D: return 0x017E;
    case 0x0178: return 0x00FF;
    default: return c;
  }
}

}  // namespace

std::string Maiuscolo(std::string_view utf8) { return MappaLettere(utf8, Su); }
std::string Minuscolo(std::string_view utf8) { return MappaLettere(utf8, Giu); }

bool UgualeSenzaCaso(std::string_view a, std::string_view b) {
  if (a.size() == b.size()) {
    bool ascii = true;
    for (size_t i = 0; i < a.size(); ++i) {
      const auto ca = static_cast<unsigned char>(a[i]), cb = static_cast<unsigned char>(b[i]);
      if (ca >= 0x80 || cb >= 0x80) {
        ascii = false;
        break;
      }
      if (Su(ca) != Su(cb)) return false;
    }
    if (ascii) return true;
  }
  return Maiuscolo(a) == Maiuscolo(b);
}

bool IniziaCon(std::string_view t, std::string_view p) { return t.substr(0, p.size()) == p; }
bool FinisceCon(std::string_view t, std::string_view s) {
  return t.size() >= s.size() && t.substr(t.size() - s.size()) == s;
}

std::string Sostituisci(std::string_view t, std::string_view cosa, std::string_view con) {
  if (cosa.empty()) return std::string(t);
  std::string out;
  size_t i = 0;
  while (true) {
    const size_t j = t.find(cosa, i);
    if (j == std::string_view::npos) break;
    out.append(t.substr(i, j - i));
    out.append(con);
    i = j + cosa.size();
  }
  out.append(t.substr(i));
  return out;
}

std::vector<std::string> Dividi(std::string_view t, char sep) {
  std::vector<std::string> pezzi;
  size_t i = 0;
  while (true) {
    const size_t j = t.find(sep, i);
    if (j == std::string_view::npos) {
      pezzi.emplace_back(t.substr(i));
      return pezzi;
    }
    pezzi.emplace_back(t.substr(i, j - i));
    i = j + 1;
  }
}

}  // namespace varena
