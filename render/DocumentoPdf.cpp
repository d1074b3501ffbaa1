#include "DocumentoPdf.h"

#include <zlib.h>

#include <cmath>

namespace varena {

namespace {

// Objects written at the start, whose numbers the pages name.
constexpr int kCatalogo = 1, kAlbero = 2, kInfo = 3, kPrimoFont = 4;
constexpr const char* kFonts[] = {"Helvetica", "Times-Roman", "Courier"};

// The fastest level: on a survey's A0 sheet the default one writes a file a sixth smaller
// in nearly three times as long.
std::string Comprimi(std::string_view dati) {
  uLongf n = compressBound(static_cast<uLong>(dati.size()));
  std::string r(n, '\0');
  if (compress2(reinterpret_cast<Bytef*>(r.data()), &n, reinterpret_cast<const Bytef*>(dati.data()),
                static_cast<uLong>(dati.size()), Z_BEST_SPEED) != Z_OK)
    return {};
  r.resize(n);
  return r;
}

}  // namespace

void AggiungiNumeroPdf(std::string& s, double v) {
  // Far beyond any sheet, and within the integers the hundredths are counted in.
  constexpr double kMassimo = 1e12;
  if (!(std::fabs(v) < kMassimo)) v = v > 0 ? kMassimo : std::isnan(v) ? 0 : -kMassimo;
  long long c = std::llround(v * 100);
  if (c < 0) s += '-', c = -c;
  const long long intero = c / 100, cent = c % 100;
  char b[24];
  int i = sizeof b;
  long long q = intero;
  do b[--i] = static_cast<char>('0' + q % 10), q /= 10;
  while (q);
  s.append(b + i, sizeof b - i);
  if (cent == 0) return;
  s += '.';
  s += static_cast<char>('0' + cent / 10);
  if (cent % 10) s += static_cast<char>('0' + cent % 10);
}

DocumentoPdf::~DocumentoPdf() {
  if (f_) std::fclose(f_);
}

void DocumentoPdf::Scrivi(std::string_view s) {
  if (!f_ || errore_) return;
  if (std::fwrite(s.data(), 1, s.size(), f_) != s.size()) errore_ = true;
  posizione_ += s.size();
}

int DocumentoPdf::Inizia() {
  inizi_.push_back(posizione_);
  const int n = static_cast<int>(inizi_.size());
  Scrivi(std::to_string(n) + " 0 obj\n");
  return n;
}

void DocumentoPdf::Flusso(std::string_view dizionario, std::string_view dati) {
  const std::string compresso = Comprimi(dati);
  if (compresso.empty() && !dati.empty()) errore_ = true;
  Scrivi("<<" + std::string(dizionario) + " /Filter /FlateDecode /Length " + std::to_string(compresso.size()) +
         ">>\nstream\n");
  Scrivi(compresso);
  Scrivi("\nendstream\nendobj\n");
}

bool DocumentoPdf::Apri(const std::string& percorso) {
  f_ = std::fopen(percorso.c_str(), "wb");
  if (!f_) return false;
  Scrivi("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
  Inizia();
  Scrivi("<</Type /Catalog /Pages 2 0 R>>\nendobj\n");
  inizi_.push_back(0);  // the page tree, written last when its pages are known
  Inizia();
  Scrivi("<</Creator (Varena) /Producer (Varena)>>\nendobj\n");
  for (const char* nome : kFonts) {
    Inizia();
    Scrivi(std::string("<</Type /Font /Subtype /Type1 /BaseFont /") + nome + " /Encoding /WinAnsiEncoding>>\nendobj\n");
  }
  return !errore_;
}

std::string DocumentoPdf::Immagine(int larghezza, int altezza, std::string_view rgb) {
  const int n = Inizia();
  Flusso("/Type /XObject /Subtype /Image /Width " + std::to_string(larghezza) + " /Height " + std::to_string(altezza) +
             " /ColorSpace /DeviceRGB /BitsPerComponent 8",
         rgb);
  immagini_.push_back(n);
  return "/I" + std::to_string(n);
}

void DocumentoPdf::Pagina(double larghezzaPt, double altezzaPt, std::string_view contenuto) {
  const int c = Inizia();
  Flusso("", contenuto);
  pagine_.push_back(Inizia());
  std::string p = "<</Type /Page /Parent 2 0 R /MediaBox [0 0 ";
  AggiungiNumeroPdf(p, larghezzaPt);
  p += ' ';
  AggiungiNumeroPdf(p, altezzaPt);
  p += "] /Contents " + std::to_string(c) + " 0 R /Resources <</Font <<";
  for (int i = 0; i < 3; ++i) p += "/F" + std::to_string(i) + " " + std::to_string(kPrimoFont + i) + " 0 R ";
  p += ">> /XObject <<";
  for (int i : immagini_) p += "/I" + std::to_string(i) + " " + std::to_string(i) + " 0 R ";
  p += ">>>>>>\nendobj\n";
  Scrivi(p);
}

bool DocumentoPdf::Chiudi() {
  if (!f_) return false;
  inizi_[kAlbero - 1] = posizione_;
  std::string albero = "2 0 obj\n<</Type /Pages /Count " + std::to_string(pagine_.size()) + " /Kids [";
  for (int p : pagine_) albero += std::to_string(p) + " 0 R ";
  Scrivi(albero + "]>>\nendobj\n");
  const uint64_t xref = posizione_;
  std::string t = "xref\n0 " + std::to_string(inizi_.size() + 1) + "\n0000000000 65535 f \n";
  char riga[24];
  for (uint64_t o : inizi_) {
    std::snprintf(riga, sizeof riga, "%010llu 00000 n \n", static_cast<unsigned long long>(o));
    t += riga;
  }
  t += "trailer\n<</Size " + std::to_string(inizi_.size() + 1) + " /Root " + std::to_string(kCatalogo) +
       " 0 R /Info " + std::to_string(kInfo) + " 0 R>>\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n";
  Scrivi(t);
  const bool chiuso = std::fclose(f_) == 0;
  f_ = nullptr;
  return chiuso && !errore_;
}

}  // namespace varena
