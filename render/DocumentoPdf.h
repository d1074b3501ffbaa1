// A PDF file written object by object: the few objects a plot needs (pages of vector
// content, the three standard fonts, pictures) and nothing else. Qt's own PDF writer takes
// seconds over a survey's sheet, most of it compressing at its fixed level and shaping
// every label; a plot's content is simple enough to be written here directly.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

// The standard fonts every PDF reader has, with the metrics of the legacy fonts' twins.
enum class FontPdf : uint8_t { Sans, Serif, Mono };

class DocumentoPdf {
 public:
  // Nothing is opened yet: `Apri` does.
  DocumentoPdf() = default;
  ~DocumentoPdf();
  DocumentoPdf(const DocumentoPdf&) = delete;
  DocumentoPdf& operator=(const DocumentoPdf&) = delete;

  // False when the file cannot be created.
  bool Apri(const std::string& percorso);
  // A picture of `larghezza` x `altezza` pixels of 3 bytes each, row by row from the top,
  // as an object of its own; returns its name in the page's resources ("/I3").
  std::string Immagine(int larghezza, int altezza, std::string_view rgb);
  // One page of `larghezzaPt` x `altezzaPt` points drawing `contenuto`, which may name
  // the fonts /F0 /F1 /F2 (sans, serif, mono) and the pictures made so far.
  void Pagina(double larghezzaPt, double altezzaPt, std::string_view contenuto);
  // The page tree and the cross-reference table written and the file closed; false when
  // any write failed.
  bool Chiudi();

 private:
  int Inizia();
  void Scrivi(std::string_view s);
  void Flusso(std::string_view dizionario, std::string_view dati);

  std::FILE* f_ = nullptr;
  bool errore_ = false;
  uint64_t posizione_ = 0;
  std::vector<uint64_t> inizi_;  // offset of every object, by number - 1
  std::vector<int> pagine_;
  std::vector<int> immagini_;
};

// `v` with two decimals at most and no trailing zeros, a point whatever the locale.
void AggiungiNumeroPdf(std::string& s, double v);

}  // namespace varena
