// plot: the job plotted at a true scale on sheets of paper, as a PDF or an SVG, with the
// plot stream of its pages beside it.
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <optional>

#include "ApplicazioneRender.h"
#include "Comandi.h"
#include "Plotter.h"
#include "Terminale.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "output/FlussoStampa.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena::cli {

namespace {

const char* kUsoPlot =
    "uso: varena-cli plot LAVORO[.CFG] USCITA.pdf|USCITA.svg --scale N --paper A4|A3|A2|A1|A0 [--landscape] "
    "[--window X1,Y1,X2,Y2]\n";

// The options read and checked before anything is loaded or written.
struct RichiestaPlot {
  OpzioniPlot Opzioni;
  bool Finestra = false;
  FinestraStampa Area;
  bool Svg = false;
};

bool LeggiRichiesta(const Argomenti& a, RichiestaPlot& r, std::ostream& err) {
  const std::string uscita = a.Posizionali[1];
  const std::string estensione = Maiuscolo(uscita.size() > 4 ? uscita.substr(uscita.size() - 4) : "");
  if (estensione != ".PDF" && estensione != ".SVG") {
    err << "Formato di uscita non riconosciuto (pdf o svg): " << uscita << "\n";
    return false;
  }
  r.Svg = estensione == ".SVG";
  const std::string scala = a.Valore("--scale", "1000");
  r.Opzioni.Scala = Val(VirgolaInPunto(scala));
  // Beyond 1:10,000,000 a sheet would cover a continent: such a number is a slip.
  if (!std::isfinite(r.Opzioni.Scala) || r.Opzioni.Scala <= 0 || r.Opzioni.Scala > 1e7) {
    err << "Scala non valida: " << scala << " (un numero da 0 a 10000000, come 1000 per 1:1000)\n";
    return false;
  }
  const std::string carta = a.Valore("--paper", "A4");
  const auto foglio = FoglioDaNome(carta, a.Ha("--landscape"));
  if (!foglio) {
    err << "Formato carta sconosciuto: " << carta << " (A4, A3, A2, A1, A0)\n";
    return false;
  }
  r.Opzioni.Foglio = *foglio;
  const std::string finestra = a.Valore("--window");
  if (!finestra.empty()) {
    const auto v = Dividi(finestra, ',');
    if (v.size() != 4) {
      err << "Finestra non valida: " << finestra << " (X1,Y1,X2,Y2)\n";
      return false;
    }
    r.Area = {Val(v[0]), Val(v[1]), Val(v[2]), Val(v[3])};
    const double l = std::fabs(r.Area.X2 - r.Area.X1), h = std::fabs(r.Area.Y2 - r.Area.Y1);
    if (!std::isfinite(l) || !std::isfinite(h) || !(l > 0) || !(h > 0)) {
      err << "Finestra di area nulla: " << finestra << "\n";
      return false;
    }
    r.Finestra = true;
  }
  return true;
}

// A window so large for its scale that it would take more sheets than this is refused
// before anything is written.
constexpr double kPagineMassime = 1000;

// The sheet at the scale, in metres on the ground, over the area: as many sheets across
// and down as cover it, around its centre. None when they would be too many.
std::optional<FinestraStampa> PaginaCentrale(Sessione& s, const RichiestaPlot& r, const FinestraStampa& area,
                                             std::ostream& err) {
  const double pl = r.Opzioni.Foglio.LarghezzaMm * r.Opzioni.Scala / 1000;
  const double pa = r.Opzioni.Foglio.AltezzaMm * r.Opzioni.Scala / 1000;
  const double cx = (area.X1 + area.X2) / 2, cy = (area.Y1 + area.Y2) / 2;
  // A hair over a whole number of sheets is rounding, not one more row of them.
  auto quante = [](double l, double p) { return std::max(1.0, std::ceil(l / p - 1e-9)); };
  const double colonne = quante(std::fabs(area.X2 - area.X1), pl), righe = quante(std::fabs(area.Y2 - area.Y1), pa);
  if (!(colonne * righe <= kPagineMassime)) {
    err << "Troppe pagine: " << FormaSemplice(colonne) << " x " << FormaSemplice(righe)
        << " fogli a questa scala (al massimo " << FormaSemplice(kPagineMassime) << ")\n";
    return std::nullopt;
  }
  s.Paginato = {};
  if (colonne * righe > 1) s.Paginato = {-1, FormaSemplice(colonne), FormaSemplice(righe)};
  return FinestraStampa{cx - pl / 2, cy - pa / 2, cx + pl / 2, cy + pa / 2};
}

std::string Sostituto(const std::string& uscita, const std::string& estensione) {
  const auto punto = uscita.find_last_of('.');
  return (punto == std::string::npos ? uscita : uscita.substr(0, punto)) + estensione;
}

int ComandoPlot(const Argomenti& a, std::ostream& out, std::ostream& err) {
  if (a.Posizionali.size() != 2) {
    err << kUsoPlot;
    return 64;
  }
  RichiestaPlot r;
  if (!LeggiRichiesta(a, r, err)) {
    err << kUsoPlot;
    return 64;
  }
  const std::string uscita = a.Posizionali[1];
  Sessione s;
  InterfacciaTerminale ui(err);
  s.Ui = &ui;
  if (!CaricaInLettura(s, a.Posizionali[0], err)) return 1;
  RigeneraLista(s);
  r.Opzioni.Colori = s.Colori;
  FinestraStampa area = r.Area;
  if (!r.Finestra) {
    const auto box = IngombroDisegno(s);
    if (!box) {
      err << "Il disegno e' vuoto: nulla da stampare\n";
      return 1;
    }
    area = {box->XMin, box->YMin, box->XMax, box->YMax};
  }
  const auto centrale = PaginaCentrale(s, r, area, err);
  if (!centrale) return 64;
  const FinestraStampa pagina = *centrale;
  AssicuraApplicazione();
  PlotterPdf pdf(uscita, r.Opzioni);
  std::string flussi;
  int numero = 0;
  bool scritto = true;
  const int pagine = PagineStampa(s, pagina, [&](const FinestraStampa& p) {
    const std::string flusso = FlussoPagina(s, p);
    flussi += flusso;
    ++numero;
    if (!r.Svg) return scritto = pdf.Pagina(LeggiFlussoStampa(flusso));
    const std::string svg = SvgPaginaFlusso(LeggiFlussoStampa(flusso), r.Opzioni);
    const std::string nome = numero == 1 ? uscita : Sostituto(uscita, "-" + std::to_string(numero) + ".svg");
    return scritto = Protetto(s, [&] { ScriviByte(nome, svg); });
  });
  if (scritto && !r.Svg) scritto = pdf.Chiudi();
  if (scritto) scritto = Protetto(s, [&] { ScriviByte(Sostituto(uscita, ".vr"), flussi); });
  if (!scritto) {
    err << "Impossibile scrivere " << uscita << "\n";
    return 1;
  }
  out << "Scritto " << uscita << " (" << pagine << (pagine == 1 ? " pagina" : " pagine") << ", "
      << r.Opzioni.Foglio.Nome << (a.Ha("--landscape") ? " orizzontale" : " verticale") << ", scala 1:"
      << FormaSemplice(r.Opzioni.Scala) << ")\n";
  return ui.Errori ? 2 : 0;
}

const RegistraComando kPlot("plot",
                            "plot LAVORO[.CFG] USCITA.pdf|USCITA.svg --scale N --paper A4..A0 [--landscape] "
                            "[--window X1,Y1,X2,Y2]",
                            ComandoPlot, {"--scale", "--paper", "--window"});

}  // namespace

}  // namespace varena::cli
