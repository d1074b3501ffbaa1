// A small RTF reader and writer for the report models.
#include "output/TestoRicco.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>

#include "core/CodicePagina.h"
#include "core/Testo.h"

namespace varena {

namespace {

// The groups of the header and of the objects a report model may carry but does not show.
bool DestinazioneSaltata(std::string_view parola) {
  static constexpr std::string_view kSaltate[] = {
      "colortbl", "stylesheet", "info",    "pict",      "object",  "header",  "headerl",     "headerr",
      "headerf",  "footer",     "footerl", "footerr",   "footerf", "footnote", "fldinst",    "listtable",
      "listoverridetable",      "rsidtbl", "generator", "xmlnstbl", "themedata", "latentstyles", "datastore",
      "pntext",   "pn",         "shp",     "shpinst",   "nonshppict", "filetbl", "revtbl",   "annotation"};
  return std::find(std::begin(kSaltate), std::end(kSaltate), parola) != std::end(kSaltate);
}

struct StatoGruppo {
  bool Grassetto = false, Corsivo = false, Sottolineato = false;
  int Punti = 12;
  int Font = 0;
  char Allineamento = 'l';
  bool Salta = false;        // a destination that is not shown
  bool TabellaFont = false;  // inside the font table: text names the fonts
  int Uc = 1;                // characters that stand in for each Unicode escape
};

// Deeper groups are counted, not kept: a file of braces only must not grow the stack.
constexpr size_t kProfonditaMassima = 256;

class LettoreRtf {
 public:
  explicit LettoreRtf(std::string_view b) : b_(b) {}

  TestoRicco Leggi() {
    pila_.push_back({});
    p_ = 0;
    while (p_ < b_.size() && !finito_) {
      const char c = b_[p_++];
      if (c == '{') {
        Apri();
      } else if (c == '}') {
        Chiudi();
      } else if (c == '\\') {
        Controllo();
      } else {
        Carattere(static_cast<unsigned char>(c));
      }
    }
    if (!cor_.Corse.empty()) FineParagrafo();
    return std::move(t_);
  }

 private:
  StatoGruppo& S() { return pila_.back(); }

  void Apri() {
    daSaltare_ = 0;
    if (pila_.size() >= kProfonditaMassima) {
      ++oltre_;
    } else {
      pila_.push_back(pila_.back());
    }
  }
  void Chiudi() {
    daSaltare_ = 0;
    if (oltre_ > 0) {
      --oltre_;
    } else if (pila_.size() > 1) {
      pila_.pop_back();
    } else {
      finito_ = true;  // the end of the document: what follows it is not read
    }
  }

  void Controllo() {
    if (p_ >= b_.size()) return;
    const char c = b_[p_];
    if (!std::isalpha(static_cast<unsigned char>(c))) {
      ++p_;
      Simbolo(c);
      return;
    }
    const size_t inizio = p_;
    while (p_ < b_.size() && p_ - inizio < 32 && std::isalpha(static_cast<unsigned char>(b_[p_]))) ++p_;
    const std::string_view parola = b_.substr(inizio, p_ - inizio);
    std::optional<int64_t> numero;
    bool meno = false;
    if (p_ < b_.size() && b_[p_] == '-') meno = true, ++p_;
    for (int cifre = 0; p_ < b_.size() && std::isdigit(static_cast<unsigned char>(b_[p_])); ++cifre, ++p_)
      if (cifre < 10) numero = numero.value_or(0) * 10 + (b_[p_] - '0');
    if (numero && meno) numero = -*numero;
    if (p_ < b_.size() && b_[p_] == ' ') ++p_;
    Parola(parola, numero);
  }

  void Simbolo(char c) {
    if (c == '\'') {
      const auto cifra = [](char h) {
        return h >= '0' && h <= '9' ? h - '0' : h >= 'a' && h <= 'f' ? h - 'a' + 10 : h >= 'A' && h <= 'F' ? h - 'A' + 10 : -1;
      };
      const int a = p_ < b_.size() ? cifra(b_[p_]) : -1, z = p_ + 1 < b_.size() ? cifra(b_[p_ + 1]) : -1;
      if (a < 0 || z < 0) return;
      p_ += 2;
      Carattere(static_cast<unsigned char>(a * 16 + z));
    } else if (c == '\\' || c == '{' || c == '}') {
      Carattere(static_cast<unsigned char>(c));
    } else if (c == '~') {
      Unicode(0xA0);
    } else if (c == '_') {
      Carattere('-');
    } else if (c == '*') {
      S().Salta = true;
    } else if (c == '\r' || c == '\n') {
      Parola("par", std::nullopt);
    }
  }

  void Parola(std::string_view w, std::optional<int64_t> n) {
    const int64_t v = n.value_or(1);
    const bool acceso = v != 0;
    StatoGruppo& s = S();
    if (w == "bin") {  // raw bytes of an object: passed over whole
      p_ += static_cast<size_t>(std::clamp<int64_t>(v, 0, static_cast<int64_t>(b_.size() - p_)));
      return;
    }
    if (daSaltare_ > 0) {
      --daSaltare_;
      return;
    }
    if (w == "fonttbl") {
      s.TabellaFont = true;
    } else if (DestinazioneSaltata(w)) {
      s.Salta = true;
    } else if (w == "f") {
      if (s.TabellaFont) {
        fontInDefinizione_ = static_cast<int>(std::clamp<int64_t>(v, -1, 1 << 20));
        fonts_[fontInDefinizione_].clear();
      } else {
        s.Font = static_cast<int>(std::clamp<int64_t>(v, -1, 1 << 20));
      }
    } else if (w == "deff") {
      s.Font = static_cast<int>(std::clamp<int64_t>(v, -1, 1 << 20));
    } else if (w == "b") {
      s.Grassetto = acceso;
    } else if (w == "i") {
      s.Corsivo = acceso;
    } else if (w == "ul") {
      s.Sottolineato = acceso;
    } else if (w == "ulnone") {
      s.Sottolineato = false;
    } else if (w == "fs") {
      s.Punti = static_cast<int>(std::clamp<int64_t>(n.value_or(24) / 2, 1, 1638));
    } else if (w == "plain") {
      s.Grassetto = s.Corsivo = s.Sottolineato = false, s.Punti = 12, s.Font = pila_.front().Font;
    } else if (w == "pard") {
      s.Allineamento = 'l';
    } else if (w == "ql" || w == "qc" || w == "qr" || w == "qj") {
      s.Allineamento = w[1];
    } else if (w == "par" || w == "page" || w == "sect" || w == "row") {
      if (!s.Salta && !s.TabellaFont) FineParagrafo();
    } else if (w == "cell") {
      if (!s.Salta) cellaAperta_ = true;
    } else if (w == "uc") {
      s.Uc = static_cast<int>(std::clamp<int64_t>(v, 0, 10));
    } else if (w == "u" && n && *n >= -32768 && *n <= 65535) {
      Unicode(static_cast<char32_t>(*n < 0 ? *n + 65536 : *n));
      daSaltare_ = s.Uc;
    } else {
      static const std::map<std::string_view, char32_t> kCaratteri = {
          {"tab", U'\t'},     {"line", U'\n'},      {"emdash", 0x2014},    {"endash", 0x2013}, {"bullet", 0x2022},
          {"lquote", 0x2018}, {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D}};
      if (const auto k = kCaratteri.find(w); k != kCaratteri.end()) Unicode(k->second);
    }
  }

  // A byte of the text, in the Windows code page. Control bytes other than the tab are not
  // text: a raw line end is only the file's layout.
  void Carattere(unsigned char c) {
    if (daSaltare_ > 0) {
      --daSaltare_;
      return;
    }
    if (c < 0x20 && c != '\t') return;
    StatoGruppo& s = S();
    if (s.Salta) return;
    if (s.TabellaFont) {
      if (c == ';') {
        fontInDefinizione_ = -1;
      } else if (c >= 0x20 && fontInDefinizione_ >= 0 && fonts_[fontInDefinizione_].size() < 64) {
        // A font's name is one line of printable characters: a tab in it could not be written back.
        fonts_[fontInDefinizione_] += Cp1252InUtf8(std::string(1, static_cast<char>(c)));
      }
      return;
    }
    Aggiungi(Cp1252InUtf8(std::string(1, static_cast<char>(c))));
  }

  void Unicode(char32_t c) {
    if (S().Salta || S().TabellaFont || (c < 0x20 && c != '\t' && c != '\n')) return;
    // A character beyond the first plane comes as two escapes, its surrogate halves.
    if (c >= 0xD800 && c < 0xDC00) {
      surrogato_ = c;
      return;
    }
    if (c >= 0xDC00 && c < 0xE000) {
      if (!surrogato_) return;
      c = 0x10000 + ((surrogato_ - 0xD800) << 10) + (c - 0xDC00);
    }
    surrogato_ = 0;
    std::string u;
    AggiungiUtf8(u, c);
    Aggiungi(u);
  }

  void Aggiungi(const std::string& utf8) {
    const StatoGruppo& s = S();
    CorsaRicca c;
    c.Grassetto = s.Grassetto, c.Corsivo = s.Corsivo, c.Sottolineato = s.Sottolineato, c.Punti = s.Punti;
    // Trimmed here, not when the table is read: a name may lack its closing ";".
    if (const auto f = fonts_.find(s.Font); f != fonts_.end()) c.Font = Rifila(f->second);
    if (cellaAperta_) cellaAperta_ = false, Aggiungi("\t");
    if (cor_.Corse.empty() || !cor_.Corse.back().StessoAspetto(c)) cor_.Corse.push_back(std::move(c));
    cor_.Corse.back().Testo += utf8;
  }

  void FineParagrafo() {
    cor_.Allineamento = S().Allineamento;
    cellaAperta_ = false;
    t_.Paragrafi.push_back(std::move(cor_));
    cor_ = {};
  }

  std::string_view b_;
  size_t p_ = 0;
  std::vector<StatoGruppo> pila_;
  size_t oltre_ = 0;
  bool finito_ = false;
  int daSaltare_ = 0;
  char32_t surrogato_ = 0;
  bool cellaAperta_ = false;
  std::map<int, std::string> fonts_;
  int fontInDefinizione_ = -1;
  ParagrafoRicco cor_;
  TestoRicco t_;
};

// The text of a run with RTF's three special characters escaped, the code page's own
// characters as "\'hh" and any other as "\uN?".
std::string Escape(std::string_view utf8) {
  static constexpr char kEsa[] = "0123456789abcdef";
  std::string r;
  for (size_t pos = 0; pos < utf8.size();) {
    const size_t inizio = pos;
    const char32_t c = ProssimoCarattere(utf8, pos);
    if (c == '\\' || c == '{' || c == '}') {
      r += '\\', r += static_cast<char>(c);
    } else if (c == '\t') {
      r += "\\tab ";
    } else if (c == '\n') {
      r += "\\line ";
    } else if (c < 0x20) {
      continue;
    } else if (c < 0x80) {
      r += static_cast<char>(c);
    } else if (const std::string b = Utf8InCp1252(utf8.substr(inizio, pos - inizio)); b != "?") {
      const auto v = static_cast<unsigned char>(b[0]);
      r += "\\'", r += kEsa[v >> 4], r += kEsa[v & 15];
    } else {
      auto u = [&r](uint32_t v) { r += "\\u" + std::to_string(v < 0x8000 ? int32_t(v) : int32_t(v) - 65536) + "?"; };
      if (c < 0x10000) {
        u(c);
      } else {
        u(0xD800 + ((c - 0x10000) >> 10)), u(0xDC00 + ((c - 0x10000) & 0x3FF));
      }
    }
  }
  return r;
}

}  // namespace

std::optional<TestoRicco> LeggiRtf(std::string_view byte) {
  if (!byte.starts_with("{\\rtf")) return std::nullopt;
  return LettoreRtf(byte.substr(1)).Leggi();
}

std::string ScriviRtf(const TestoRicco& t) {
  // The fonts in the order of first use, numbered from 1: a run of no font takes the
  // default \f0, which the table leaves unnamed.
  std::vector<std::string> fonts;
  for (const ParagrafoRicco& p : t.Paragrafi)
    for (const CorsaRicca& c : p.Corse)
      if (!c.Font.empty() && std::find(fonts.begin(), fonts.end(), c.Font) == fonts.end()) fonts.push_back(c.Font);
  std::string r = "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl";
  // A ";" would end the name early.
  for (size_t i = 0; i < fonts.size(); ++i)
    r += "{\\f" + std::to_string(i + 1) + " " + Escape(Sostituisci(fonts[i], ";", "")) + ";}";
  r += "}\r\n";
  for (const ParagrafoRicco& p : t.Paragrafi) {
    r += "\\pard\\q";
    r += p.Allineamento;
    for (const CorsaRicca& c : p.Corse) {
      r += "{";
      if (!c.Font.empty())
        r += "\\f" + std::to_string(std::find(fonts.begin(), fonts.end(), c.Font) - fonts.begin() + 1);
      r += "\\fs" + std::to_string(std::clamp(c.Punti, 1, 1638) * 2);
      if (c.Grassetto) r += "\\b";
      if (c.Corsivo) r += "\\i";
      if (c.Sottolineato) r += "\\ul";
      r += " " + Escape(c.Testo) + "}";
    }
    r += "\\par\r\n";
  }
  r += "}\r\n";
  return r;
}

}  // namespace varena
