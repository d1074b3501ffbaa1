// Our own spooler: the plot stream drawn at its true scale on a sheet of paper, into a PDF
// (one page per page of the plot), an SVG, or any Qt paint device such as a printer.
#pragma once

#include <QPainter>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/Colori.h"
#include "output/LetturaFlusso.h"

namespace varena {

// A sheet as it lies on the table: width and height in millimetres.
struct FoglioCarta {
  std::string Nome;  // "A3"
  double LarghezzaMm = 0, AltezzaMm = 0;
};
// The ISO sheets A4 to A0, upright or `orizzontale`; none for any other name.
std::optional<FoglioCarta> FoglioDaNome(std::string_view nome, bool orizzontale);

struct OpzioniPlot {
  double Scala = 1000;  // 1:Scala; a metre on the ground is 1000 / Scala mm on paper
  FoglioCarta Foglio;
  TabellaColori Colori;  // the job's colours for the texts; lines are plotted in black
};

// From metres about the page's centre to millimetres of the sheet, y down.
struct Carta {
  double k, cx, cy;
  explicit Carta(const OpzioniPlot& o)
      : k(1000.0 / o.Scala), cx(o.Foglio.LarghezzaMm / 2), cy(o.Foglio.AltezzaMm / 2) {}
  double X(double x) const { return cx + x * k; }
  double Y(double y) const { return cy - y * k; }
};

// Texts in the job's colours, except those that would not show on white paper.
QColor ColoreCarta(const TabellaColori& colori, int32_t indice);

// One page drawn on `p`, whose device is the sheet at `dpi` dots per inch: the page's
// centre at the sheet's centre.
void DisegnaPaginaFlusso(QPainter& p, const PaginaFlusso& pagina, const OpzioniPlot& o, double dpi);

// The page as an SVG document whose units are millimetres of the sheet.
std::string SvgPaginaFlusso(const PaginaFlusso& pagina, const OpzioniPlot& o);

class DocumentoPdf;

// A PDF written page by page beside its place and renamed into it by `Chiudi`: a plot that
// fails halfway leaves no file, nor an old one damaged. Its texts are in the standard PDF
// fonts of the same metrics as the twins (Helvetica, Times, Courier), in the Latin letters
// those fonts hold.
class PlotterPdf {
 public:
  PlotterPdf(std::string percorso, OpzioniPlot o);
  ~PlotterPdf();
  PlotterPdf(const PlotterPdf&) = delete;
  PlotterPdf& operator=(const PlotterPdf&) = delete;
  // False when the file could not be started.
  bool Pagina(const PaginaFlusso& pagina);
  // The file put in place; false (and nothing left) when it could not be.
  bool Chiudi();
  int Pagine() const { return pagine_; }

 private:
  std::string percorso_, temporaneo_;
  OpzioniPlot o_;
  std::unique_ptr<DocumentoPdf> documento_;
  // The pictures already in the file by their path, each written once; "" for a file
  // that is no picture.
  std::map<std::string, std::string> immagini_;
  int pagine_ = 0;

  std::string ContenutoPagina(const PaginaFlusso& pagina, double altezzaPt);
  const std::string& NomeImmagine(const std::string& file);
};

}  // namespace varena
