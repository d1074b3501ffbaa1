// The plot stream `stampe.vr`: the drawing of one page as text records, one a line, that a
// spooler turns into paper. Written here from the display list and the point table; read
// back by `LeggiFlussoStampa` for our own spooler.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

// Builds records: fields joined by "|", then every comma of the line (a locale's decimal
// mark, or one typed in a text) becomes a point and every "|" a comma.
class ScrittoreFlusso {
 public:
  void Record(std::initializer_list<std::string_view> campi);
  const std::string& Testo() const { return testo_; }
  std::string& Testo() { return testo_; }

 private:
  std::string testo_;
};

// The window of the plot in world units and the page it makes.
struct FinestraStampa {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  double PaginaLarghezza() const;
  double PaginaAltezza() const;
};

std::string PercorsoFlussoStampa(const Sessione& s);

// The records of the drawing inside `f`, coordinates from the window's centre, after the
// "SCALA," record. Colours of thickness 0, frozen rows and hidden layers give nothing.
std::string FlussoPagina(Sessione& s, const FinestraStampa& f);

// `GeneraPagina`: only while `ModoStampa` is 5, the stream of the page written anew.
// False when it could not be written (the common error box was shown).
bool GeneraPagina(Sessione& s, const FinestraStampa& f);

// What takes a page once its stream is written: the spooler. False stops the plot.
using Spooler = std::function<bool(const std::string& flusso)>;
// The legacy hand-off: "plotter.exe" of the program folder run and waited for; its absence
// is quiet and leaves the stream on disk.
bool LanciaPlotter(Sessione& s, const std::string& flusso);

// The page loop alone: `f` as one page, or with pagination on (`s.Paginato`) the pages
// across and down around its centre, each asked for by its question; `pagina` takes each
// page sent, and false from it stops. Returns the pages taken.
int PagineStampa(Sessione& s, const FinestraStampa& f, const std::function<bool(const FinestraStampa&)>& pagina);

// `StampaPaginata`: one page, or with `StampaPaginato.ini` on the pages across and down
// around the window's centre, each asked for by its question. `ModoStampa` is 0 after it
// whatever happened. Returns the pages handed to the spooler.
int StampaPaginata(Sessione& s, const FinestraStampa& f, const Spooler& spooler);

// `ANTEPRIMA_STAMPA` without a desktop: the view as the page, pagination as
// `StampaPaginato.ini` says, each page handed to "plotter.exe" when there is one.
void AnteprimaStampa(Sessione& s);

// The rewrite of `Spessori1.ini` by the thickness dialog: for each colour row of cells, the
// first cell from the third on holding "X" gives the thickness of its index less 2 (none:
// the thickness stays). The table takes the values and the file one number a line.
void ScriviSpessoriDaGriglia(Sessione& s, const std::vector<std::vector<std::string>>& righe);

}  // namespace varena
