// The CXF sheet: its keyword loop over the free-form values, and the records into the job.
#include "exchange/CxfLettura.h"

#include <cmath>

#include "commands/Costruttori.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfLettura.h"

namespace varena {

namespace {

class LettoreCxf {
 public:
  explicit LettoreCxf(std::string_view testo) : in_(std::string(testo)), lunghezza_(testo.size()) {}

  bool Fine() { return in_.Fine(); }
  std::string Testo() { return Rifila(in_.Elemento()); }
  double Numero() { return in_.LeggiNumero(); }

  // A count that says how many values follow, `valori` each. Every value takes at least one
  // character and a separator, so a count the rest of the file cannot hold is refused here,
  // before anything is sized on it: a count of 10^9 in a damaged file is no loop of 10^9.
  size_t Conta(const char* cosa, size_t valori) {
    const double n = Numero();
    if (!(n >= 0) || n != std::floor(n))
      throw ErroreVarena(std::string("Numero di ") + cosa + " non valido: " + FormaSemplice(n));
    const size_t resto = lunghezza_ - std::min(lunghezza_, in_.Posizione());
    if (n * static_cast<double>(valori) > static_cast<double>(resto / 2 + 1))
      throw ErroreVarena(std::string("Numero di ") + cosa + " oltre la fine del file: " + FormaSemplice(n));
    return static_cast<size_t>(n);
  }

  PuntoXYZ Vertice() {
    PuntoXYZ p;
    p.X = Numero();
    p.Y = Numero();
    return p;
  }

 private:
  LettoreLista in_;
  size_t lunghezza_;
};

// Layer string, scale of the label, its height, rotation, flags, the label and its place,
// the counts of islands and of all vertices, each island's count, then the vertices: the
// outline's come first, the islands' after them in order.
BordoCxf LeggiBordo(LettoreCxf& in) {
  BordoCxf b;
  b.Piano = in.Testo();
  b.ScalaTesto = in.Numero();
  b.AltezzaTesto = in.Numero();
  b.Rotazione = in.Numero();
  in.Testo();  // flags
  b.Testo = in.Testo();
  b.TestoX = in.Numero();
  b.TestoY = in.Numero();
  const size_t isole = in.Conta("isole", 1);
  const size_t vertici = in.Conta("vertici", 2);
  std::vector<size_t> conte(isole);
  size_t inIsole = 0;
  for (size_t& c : conte) {
    c = in.Conta("vertici dell'isola", 2);
    inIsole += c;
  }
  if (inIsole > vertici)
    throw ErroreVarena("Vertici delle isole (" + std::to_string(inIsole) + ") oltre i vertici del bordo (" +
                       std::to_string(vertici) + ")");
  conte.insert(conte.begin(), vertici - inIsole);
  for (const size_t c : conte) {
    std::vector<PuntoXYZ>& anello = b.Anelli.emplace_back();
    anello.reserve(c);
    for (size_t k = 0; k < c; ++k) anello.push_back(in.Vertice());
  }
  return b;
}

FiducialeCxf LeggiFiduciale(LettoreCxf& in) {
  FiducialeCxf f;
  f.Numero = in.Testo();
  f.Nome = in.Testo();
  const PuntoXYZ p = in.Vertice();
  f.X = p.X, f.Y = p.Y;
  return f;
}

LineaCxf LeggiLinea(LettoreCxf& in) {
  LineaCxf l;
  l.Piano = in.Testo();
  const size_t n = in.Conta("vertici", 2);
  l.Vertici.reserve(n);
  for (size_t k = 0; k < n; ++k) l.Vertici.push_back(in.Vertice());
  return l;
}

void Spezzata(Sessione& s, const std::vector<PuntoXYZ>& v, const std::string& piano, EsitoCxf& e) {
  for (size_t k = 1; k < v.size(); ++k) {
    ScriviLinea(s, v[k - 1], v[k], piano);
    ++e.Linee;
  }
}

}  // namespace

FoglioCxf LeggiCxf(std::string_view testo) {
  LettoreCxf in(testo);
  FoglioCxf f;
  // The header: the sheet, two values of no use here; its fourth value is already the
  // first keyword, which the loop reads.
  f.Identita = in.Testo();
  in.Testo();
  in.Testo();
  while (!in.Fine()) {
    const std::string parola = Maiuscolo(in.Testo());
    if (parola == "BORDO")
      f.Bordi.push_back(LeggiBordo(in));
    else if (parola == "FIDUCIALE")
      f.Fiduciali.push_back(LeggiFiduciale(in));
    else if (parola == "LINEA")
      f.Linee.push_back(LeggiLinea(in));
    // Any other value (the objects not drawn here, the end mark) is passed over.
  }
  return f;
}

EsitoCxf CaricaFoglioCxf(Sessione& s, const FoglioCxf& f) {
  EsitoCxf e;
  for (const BordoCxf& b : f.Bordi) {
    ScriviTesto(s, b.TestoX, b.TestoY, b.Testo, b.AltezzaTesto, b.Rotazione, s.Imp.Colore_Default,
                s.Imp.FontTestoDefault, "BORDO");
    ++e.Testi;
    for (const std::vector<PuntoXYZ>& anello : b.Anelli) Spezzata(s, anello, b.Piano, e);
  }
  for (const FiducialeCxf& p : f.Fiduciali) {
    const int32_t riga = ScriviPunto(s, "PF" + p.Numero, {p.X, p.Y, 0}, "", "FIDUCIALE");
    s.PuntoFont[static_cast<size_t>(riga)] = "Courier New";
    ++e.Punti;
  }
  for (const LineaCxf& l : f.Linee) Spezzata(s, l.Vertici, l.Piano, e);
  return e;
}

bool ImportaCxf(Sessione& s, const std::string& percorso, EsitoCxf* esito) {
  s.RoutineCorrente = "carica CXF";
  const auto prima = s.ContaEntita;
  bool letto = false;
  const bool ok = Protetto(s, [&] {
    const auto byte = LeggiByte(percorso);
    if (!byte) throw ErroreVarena(std::string(kErroreFileNonTrovato) + ": " + percorso);
    const FoglioCxf f = LeggiCxf(Cp1252InUtf8(*byte));
    const EsitoCxf e = CaricaFoglioCxf(s, f);
    if (esito) *esito = e;
    letto = true;
    // The layers the sheet names join the job's table, as those of a drawing do.
    RicostruisciPianiDxf(s);
  });
  // A failure while appending takes back what was added.
  if (!ok) s.ContaEntita = prima;
  return ok && letto;
}

}  // namespace varena
