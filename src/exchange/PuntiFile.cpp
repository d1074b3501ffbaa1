// The coordinate file readers: one pass over the text, line by line, no copy of a line.
#include "exchange/PuntiFile.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "cadastre/CodiciPunto.h"
#include "cadastre/Libretto.h"
#include "core/CodicePagina.h"
#include "core/Lista.h"
#include "core/Testo.h"

namespace varena {

namespace {

constexpr int64_t kRigheTraAvanzamenti = 1 << 16;
constexpr size_t kByteTraAvanzamenti = size_t{1} << 24;
constexpr size_t kRigheNominate = 10;

// A number as `Val` reads it; the plain form of instruments ("-123.456") straight through
// `from_chars`, which is what keeps a cloud of millions of lines quick.
double Numero(std::string_view t) {
  size_t i = 0;
  while (i < t.size() && t[i] == ' ') ++i;
  const char* b = t.data() + i;
  const char* e = t.data() + t.size();
  const char* c = b < e && *b == '-' ? b + 1 : b;
  if (c < e && ((*c >= '0' && *c <= '9') || *c == '.')) {
    double v = 0;
    const auto r = std::from_chars(b, e, v, std::chars_format::fixed);
    if (r.ec == std::errc() && r.ptr == e) return v;
  }
  return Val(t);
}

std::string_view Rifilata(std::string_view t) {
  while (!t.empty() && (t.front() == ' ' || t.front() == '\t')) t.remove_prefix(1);
  while (!t.empty() && (t.back() == ' ' || t.back() == '\t')) t.remove_suffix(1);
  return t;
}

// Bytes no text file of these formats holds: a line with one is damage, not a record.
bool Binaria(std::string_view riga) {
  for (char c : riga) {
    const auto u = static_cast<unsigned char>(c);
    if (u < 0x20 && u != '\t') return true;
  }
  return false;
}

// The next field of a line cut at every `sep`: two separators in a row give an empty field.
std::string_view Campo(std::string_view& resto, char sep) {
  const size_t p = resto.find(sep);
  const std::string_view c = resto.substr(0, p);
  resto = p == std::string_view::npos ? std::string_view() : resto.substr(p + 1);
  return c;
}

// The fields of a line cut at runs of blanks.
std::vector<std::string_view> Parole(std::string_view riga) {
  std::vector<std::string_view> v;
  size_t i = 0;
  while (i < riga.size()) {
    while (i < riga.size() && (riga[i] == ' ' || riga[i] == '\t')) ++i;
    const size_t inizio = i;
    while (i < riga.size() && riga[i] != ' ' && riga[i] != '\t') ++i;
    if (i > inizio) v.push_back(riga.substr(inizio, i - inizio));
  }
  return v;
}

// Every line in turn to `f`, which says whether the line could be read; a line of control
// bytes never reaches it. Progress every so many lines.
template <class F>
EsitoLettura PerOgniRiga(std::string_view testo, const AvanzamentoLettura& a, F&& f) {
  EsitoLettura e;
  size_t pos = 0, avvisato = 0;
  while (pos < testo.size()) {
    const void* nl = std::memchr(testo.data() + pos, '\n', testo.size() - pos);
    const size_t fine = nl ? static_cast<size_t>(static_cast<const char*>(nl) - testo.data()) : testo.size();
    std::string_view riga = testo.substr(pos, fine - pos);
    pos = fine + 1;
    if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    ++e.Righe;
    bool letta = !Binaria(riga);
    if (letta) {
      const int esito = f(riga, e);
      if (esito < 0) break;  // the end record of the format
      letta = esito > 0;
    }
    if (!letta) {
      if (e.RigheDanneggiate.size() < kRigheNominate) e.RigheDanneggiate.push_back(e.Righe);
      ++e.TotaleDanneggiate;
    }
    // Every so many lines, or so many bytes when the lines are long.
    if (a && (e.Righe % kRigheTraAvanzamenti == 0 || pos - avvisato > kByteTraAvanzamenti)) {
      avvisato = pos;
      if (!a(static_cast<int64_t>(std::min(pos, testo.size())), static_cast<int64_t>(testo.size()))) {
        e.Interrotto = true;
        break;
      }
    }
  }
  return e;
}

// A file whose first line is not its format's opening: that line is named, unless the
// reading already named one.
void NominaPrimaRiga(EsitoLettura& e) {
  if (e.Righe == 0 || e.TotaleDanneggiate > 0) return;
  e.RigheDanneggiate.push_back(1);
  e.TotaleDanneggiate = 1;
}

}  // namespace

// RIL: "n=value" lines; "5=" opens the record of a point and closes the one before.
EsitoLettura LeggiPuntiRil(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a) {
  struct Record {
    bool aperto = false;
    std::string nome, descrizione;
    double x = 0, y = 0, z = 0;
    std::string misure[4];  // 7, 8, 9 and 6: angle, zenith, distance, prism height
  } r;
  std::string stazione, altezzaStrumento;
  bool stazioneAperta = false;
  int64_t punti = 0;
  auto chiudiStazione = [&] {
    if (!stazioneAperta) return;
    d.RigaLibretto("1|" + stazione + "|" + (altezzaStrumento.empty() ? "" : altezzaStrumento + "|"));
    stazioneAperta = false;
  };
  auto chiudi = [&] {
    chiudiStazione();
    if (!r.aperto) return;
    d.Punto(r.nome, r.descrizione, r.x, r.y, r.z, "Arial");
    ++punti;
    std::string riga;
    for (const std::string& m : r.misure)
      if (!m.empty()) riga += m + "|";
    if (!riga.empty()) d.RigaLibretto("2|" + r.nome + "|" + riga);
    r = Record{};
  };
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view riga, EsitoLettura&) {
    if (Rifilata(riga).empty()) return 1;
    const size_t uguale = riga.find('=');
    if (uguale == 0 || uguale > 2) return 0;
    int tag = 0;
    for (size_t i = 0; i < uguale; ++i) {
      if (riga[i] < '0' || riga[i] > '9') return 0;
      tag = tag * 10 + (riga[i] - '0');
    }
    const std::string valore(Rifilata(riga.substr(uguale + 1)));
    switch (tag) {
      case 5:
        chiudi();
        r.aperto = true;
        r.nome = valore;
        break;
      case 2:
        chiudi();
        stazione = valore;
        altezzaStrumento.clear();
        stazioneAperta = true;
        break;
      case 3: altezzaStrumento = valore; break;
      case 4: r.descrizione = valore; break;
      case 7: r.misure[0] = valore; break;
      case 8: r.misure[1] = valore; break;
      case 9: r.misure[2] = valore; break;
      case 6: r.misure[3] = valore; break;
      // North first, as the exporter writes them.
      case 37: r.y = Numero(valore); break;
      case 38: r.x = Numero(valore); break;
      case 39: r.z = Numero(valore); break;
      default: break;  // a tag of the instrument this program has no use for
    }
    return 1;
  });
  if (!e.Interrotto) chiudi();
  e.Punti = punti;
  return e;
}

// SHO: "PT/" records; "End" closes the file, "****" lines are headings.
EsitoLettura LeggiPuntiSho(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a) {
  int64_t punti = 0;
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view riga, EsitoLettura&) {
    if (IniziaCon(riga, "End")) return -1;
    if (!IniziaCon(riga, "PT/")) return 1;
    std::string_view resto = riga.substr(3);
    // The second form names the point and its description apart by a second "/".
    const size_t barra = resto.find('/');
    const bool conBarra = barra != std::string_view::npos;
    std::vector<std::string_view> f = Parole(conBarra ? resto.substr(barra + 1) : resto);
    std::string nome, descrizione;
    if (conBarra) {
      nome = Rifilata(resto.substr(0, barra));
      if (f.size() < 4) return 0;
      descrizione = f[0];
      f.erase(f.begin());
    } else {
      if (f.size() < 4) return 0;
      nome = f[0];
      for (size_t k = 4; k < f.size(); ++k) descrizione += (k > 4 ? " " : "") + std::string(f[k]);
      f.erase(f.begin());
    }
    d.Punto(nome, descrizione, Numero(f[0]), Numero(f[1]), Numero(f[2]), conBarra ? "txt" : "monotxt");
    ++punti;
    return 1;
  });
  e.Punti = punti;
  return e;
}

namespace {

// A word of a GSI line: "WI" + four characters of information, the last one the unit,
// a sign and the data (8 characters, or 16 in the long form whose lines begin with "*").
struct ParolaGsi {
  int Indice = -1;
  char Unita = '0';
  bool Negativa = false;
  std::string_view Dato;
};

bool LeggiParolaGsi(std::string_view w, ParolaGsi& p) {
  if (!w.empty() && w.front() == '*') w.remove_prefix(1);
  if (w.size() < 8 || w[0] < '0' || w[0] > '9' || w[1] < '0' || w[1] > '9') return false;
  if (w[6] != '+' && w[6] != '-') return false;
  p.Indice = (w[0] - '0') * 10 + (w[1] - '0');
  p.Unita = w[5];
  p.Negativa = w[6] == '-';
  p.Dato = w.substr(7);
  return true;
}

// The metres of a distance word by its unit: the last digit is a millimetre, a tenth or a
// hundredth of one, or a thousandth or ten-thousandth of a foot.
double MetriGsi(const ParolaGsi& p) {
  double v = 0;
  for (char c : p.Dato) {
    if (c < '0' || c > '9') break;
    v = v * 10 + (c - '0');
  }
  switch (p.Unita) {
    case '1': v = v / 1000.0 * 0.3048; break;
    case '6': v /= 10000.0; break;
    case '7': v = v / 10000.0 * 0.3048; break;
    case '8': v /= 100000.0; break;
    default: v /= 1000.0; break;
  }
  return p.Negativa ? -v : v;
}

}  // namespace

// GSI: word 11 names the point, 81, 82 and 83 are East, North and height. A line of words
// without coordinates is a measurement, not a point.
EsitoLettura LeggiPuntiGsi(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a) {
  int64_t punti = 0;
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view riga, EsitoLettura&) {
    std::string_view nome;
    double c[3] = {0, 0, 0};
    bool parole = false, coordinate = false;
    size_t i = 0;
    while (i < riga.size()) {
      while (i < riga.size() && riga[i] == ' ') ++i;
      const size_t inizio = i;
      while (i < riga.size() && riga[i] != ' ') ++i;
      ParolaGsi p;
      if (i == inizio || !LeggiParolaGsi(riga.substr(inizio, i - inizio), p)) continue;
      parole = true;
      if (p.Indice == 11) {
        nome = p.Dato;
        while (!nome.empty() && nome.front() == '0') nome.remove_prefix(1);
      } else if (p.Indice >= 81 && p.Indice <= 83) {
        c[p.Indice - 81] = MetriGsi(p);
        coordinate = true;
      }
    }
    if (!parole) return Rifilata(riga).empty() ? 1 : 0;
    if (!coordinate) return 1;
    d.Punto(nome, {}, c[0], c[1], c[2], "monotxt");
    ++punti;
    return 1;
  });
  e.Punti = punti;
  return e;
}

EsitoLettura LeggiPuntiVR4(std::string_view byte, DestinoPunti& d, const AvanzamentoLettura& a) {
  int64_t punti = 0;
  bool lista = false;
  EsitoLettura e = PerOgniRiga(byte, a, [&](std::string_view riga, EsitoLettura& es) {
    if (Rifilata(riga).empty()) return 1;
    // Each statement read on its own: a damaged one never shifts the fields of the next.
    LettoreLista in(Cp1252InUtf8(riga));
    try {
      if (es.Righe == 1) {
        lista = in.LeggiI16() == 1001;
        return lista ? 1 : -1;
      }
      if (es.Righe == 2) return 1;
      const std::string nome = in.LeggiTesto(), descrizione = in.LeggiTesto();
      const double x = in.LeggiNumero(), y = in.LeggiNumero(), z = in.LeggiNumero();
      d.Punto(nome, descrizione, x, y, z, {});
      ++punti;
      return 1;
    } catch (const std::exception&) {
      return 0;
    }
  });
  // A file that does not open as a point list is named by its first line.
  if (!lista) NominaPrimaRiga(e);
  e.Punti = punti;
  return e;
}

// A cloud: "X Y Z" cut at single blanks, a point with no name for each line.
EsitoLettura LeggiNuvola(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a) {
  int64_t punti = 0;
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view riga, EsitoLettura&) {
    if (Rifilata(riga).empty()) return 1;
    std::string_view resto = riga;
    const std::string_view x = Campo(resto, ' ');
    const bool treCampi = resto.data() != nullptr && resto.find(' ') != std::string_view::npos;
    const std::string_view y = Campo(resto, ' ');
    const std::string_view z = Campo(resto, ' ');
    // A heading or a line cut short is no point: it is named, not read as one at 0.
    const char c = x.empty() ? ' ' : x.front();
    if (!treCampi || !((c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.')) return 0;
    d.Punto({}, {}, Numero(x), Numero(y), Numero(z), "monotxt");
    ++punti;
    return 1;
  });
  e.Punti = punti;
  return e;
}

namespace {

bool SoloCifre(std::string_view t) {
  if (t.empty()) return false;
  for (char c : t)
    if (c < '0' || c > '9') return false;
  return true;
}

bool HaCifra(std::string_view t) {
  for (char c : t)
    if (c >= '0' && c <= '9') return true;
  return false;
}

std::string_view SenzaVirgolette(std::string_view t) {
  t = Rifilata(t);
  if (t.size() >= 2 && t.front() == '"' && t.back() == '"') t = t.substr(1, t.size() - 2);
  return t;
}

// The separators of a text line turned to commas: a tab-separated line may carry decimal
// commas, a line with no comma at all is cut at its blanks.
std::string PreparaRiga(std::string_view riga) {
  std::string r(riga);
  if (r.find('\t') != std::string::npos) {
    for (char& c : r)
      if (c == ',') c = '.';
    for (char& c : r)
      if (c == '\t') c = ',';
    return r;
  }
  for (char& c : r)
    if (c == ';') c = ',';
  if (r.find(',') != std::string::npos) return r;
  std::string u;
  for (std::string_view p : Parole(r)) u += std::string(p) + ",";
  return u;
}

// The columns of a CAD table, found by their titles in Italian or English.
enum CampoCad { CadNome, CadPiano, CadSX, CadSY, CadSZ, CadEX, CadEY, CadEZ, CadPX, CadPY, CadPZ, CadCX, CadCY, CadCZ,
                CadRaggio, CadValore, CadAngoloIniziale, CadAngoloTotale, NumeroCampiCad };

struct TitoloCad {
  CampoCad Campo;
  const char *Italiano, *Inglese;
};

constexpr TitoloCad kTitoliCad[] = {
    {CadNome, "nome", "name"},           {CadPiano, "layer", "layer"},        {CadSX, "inizio x", "start x"},
    {CadSY, "inizio y", "start y"},      {CadSZ, "inizio z", "start z"},      {CadEX, "fine x", "end x"},
    {CadEY, "fine y", "end y"},          {CadEZ, "fine z", "end z"},          {CadPX, "posizione x", "position x"},
    {CadPY, "posizione y", "position y"}, {CadPZ, "posizione z", "position z"}, {CadCX, "centro x", "center x"},
    {CadCY, "centro y", "center y"},     {CadCZ, "centro z", "center z"},     {CadRaggio, "raggio", "radius"},
    {CadValore, "valore", "value"},      {CadAngoloIniziale, "angolo iniziale", "start angle"},
    {CadAngoloTotale, "angolo totale", "total angle"},
};

using ColonneCad = std::array<int, NumeroCampiCad>;

std::vector<std::string_view> CampiVirgola(std::string_view r) {
  std::vector<std::string_view> f;
  while (r.data() != nullptr) f.push_back(SenzaVirgolette(Campo(r, ',')));
  return f;
}

// The titles of the first line, when it is the heading of a CAD table.
bool TitoliCad(std::string_view riga, ColonneCad& colonne) {
  colonne.fill(-1);
  bool trovato = false;
  const std::vector<std::string_view> f = CampiVirgola(riga);
  for (size_t k = 0; k < f.size(); ++k) {
    const std::string t = Minuscolo(f[k]);
    for (const TitoloCad& c : kTitoliCad)
      if (t == c.Italiano || t == c.Inglese) {
        colonne[c.Campo] = static_cast<int>(k);
        trovato = trovato || c.Campo != CadNome;
      }
  }
  return trovato;
}

// One data row of a CAD table: what it is stands in its first column.
int RigaCad(std::string_view riga, const ColonneCad& colonne, DestinoPunti& d, int64_t& punti, int64_t& altre) {
  const std::vector<std::string_view> f = CampiVirgola(riga);
  auto testo = [&](CampoCad c) {
    const int k = colonne[c];
    return k >= 0 && static_cast<size_t>(k) < f.size() ? f[static_cast<size_t>(k)] : std::string_view();
  };
  auto n = [&](CampoCad c) { return Numero(testo(c)); };
  const std::string tipo = Minuscolo(f.empty() ? std::string_view() : f[0]);
  const std::string piano(testo(CadPiano));
  if (tipo == "punto" || tipo == "point") {
    d.PuntoSuPiano(testo(CadNome), n(CadPX), n(CadPY), n(CadPZ), piano);
    ++punti;
  } else if (tipo == "linea" || tipo == "line") {
    d.Linea(n(CadSX), n(CadSY), n(CadSZ), n(CadEX), n(CadEY), n(CadEZ), piano);
    ++altre;
  } else if (tipo == "cerchio" || tipo == "circle") {
    d.Cerchio(n(CadCX), n(CadCY), n(CadCZ), n(CadRaggio), piano);
    ++altre;
  } else if (tipo == "arco" || tipo == "arc") {
    // Degrees counter-clockwise from East, as the CAD counts them, made the job's azimuth of
    // the arc's clockwise start (its CAD end) and sweep in gon.
    const double totale = n(CadAngoloTotale) * 400 / 360;
    double inizio = std::fmod(500 - n(CadAngoloIniziale) * 400 / 360 - totale, 400.0);
    if (inizio < 0) inizio += 400;
    if (!std::isfinite(inizio) || !std::isfinite(totale)) return 0;
    d.Arco(n(CadCX), n(CadCY), n(CadCZ), n(CadRaggio), inizio, totale, piano);
    ++altre;
  } else if (tipo == "testo" || tipo == "teston") {
    d.Testo(n(CadPX), n(CadPY), testo(CadValore), piano);
    ++altre;
  }
  // Other kinds of the table (polylines, blocks) are not read here.
  return 1;
}

}  // namespace

namespace {

// The fixed opening of the book an ASC report starts: heading row 0 and row 9.
constexpr const char* kApertureAsc[] = {"0|24012018|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|",
                                        "9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|"};

// The fields of an ASC record, counted so that the name is field 1 whether or not the record
// opens with its kind: then the readings, the coordinates.
struct RecordAsc {
  std::vector<std::string_view> f;
  size_t Salto = 0;  // 1 for a measure, whose name opens the record
  std::string_view Testo(size_t k) const {
    return k >= Salto && k - Salto < f.size() ? Rifilata(f[k - Salto]) : std::string_view();
  }
  bool Numero(size_t k) const { return Numerico(Testo(k)); }
  std::string Maschera(size_t k, const char* m) const { return FormatoMaschera(varena::Numero(Testo(k)), m); }
};

}  // namespace

// ASC: a total-station report. "TPS" opens it; "COD,code" names what is measured next;
// "STN,name,hi[,E,N,H]" a station; "ORT,name,Hz,V,SD,HP" its orientation; any other record
// "name,Hz,V,SD,HP[,E,N,H]" a measure. Stations and measures carrying E and N are points.
EsitoLettura LeggiPuntiAsc(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a) {
  int64_t punti = 0;
  bool aperto = false, libretto = false;
  std::string codice;
  auto riga = [&](const std::string& r) {
    if (!libretto)
      for (const char* l : kApertureAsc) d.RigaLibretto(l);
    libretto = true;
    d.RigaLibretto(r);
  };
  // The coordinates at `k`, when the record has them: a point of the job.
  auto punto = [&](const RecordAsc& r, size_t k) {
    if (!r.Numero(k) || !r.Numero(k + 1)) return;
    d.Punto(r.Testo(1), codice, varena::Numero(r.Testo(k)), varena::Numero(r.Testo(k + 1)),
            varena::Numero(r.Testo(k + 2)), {});
    ++punti;
  };
  auto nota = [&] { return codice.empty() ? std::string() : codice + "|"; };
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view linea, EsitoLettura&) {
    if (Rifilata(linea).empty()) return 1;
    if (!aperto) {
      aperto = IniziaCon(Rifilata(linea), "TPS");
      return aperto ? 1 : -1;
    }
    RecordAsc r{CampiVirgola(linea), 0};
    const std::string_view tipo = r.Testo(0);
    if (tipo == "COD") {
      codice = r.Testo(1);
      return 1;
    }
    if (tipo == "STN") {
      if (r.Testo(1).empty() || !r.Numero(2)) return 0;
      riga("1|" + std::string(r.Testo(1)) + "|" + r.Maschera(2, "####0.000") + "|" + nota());
      punto(r, 3);
      return 1;
    }
    // An orientation is a reading like a measure, to a point already known.
    const bool orientamento = tipo == "ORT";
    r.Salto = orientamento ? 0 : 1;
    if (r.Testo(1).empty() || !r.Numero(2) || !r.Numero(3) || !r.Numero(4)) return 0;
    riga("2|" + std::string(r.Testo(1)) + "|" + r.Maschera(2, "######0.0000") + "|" + r.Maschera(3, "######0.0000") +
         "|" + r.Maschera(4, "######0.000") + "|" + r.Maschera(5, "####0.000") + "|" + nota());
    if (!orientamento) punto(r, 6);
    return 1;
  });
  // A file that does not open with "TPS" is no report.
  if (!aperto) NominaPrimaRiga(e);
  e.Punti = punti;
  return e;
}

// A text table: the columns in the order the options give.
EsitoLettura LeggiPuntiTesto(std::string_view testo, const OpzioniTesto& o, DestinoPunti& d,
                             const AvanzamentoLettura& a) {
  int64_t punti = 0;
  const size_t indiceX = o.Colonne.find('X'), indiceY = o.Colonne.find('Y');
  ColonneCad colonne{};
  bool tabellaCad = false;
  int64_t altre = 0;
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view riga, EsitoLettura& es) {
    if (Rifilata(riga).empty()) return 1;
    const std::string r = PreparaRiga(riga);
    if (es.Righe == 1 && TitoliCad(r, colonne)) {
      tabellaCad = true;
      return 1;
    }
    if (tabellaCad) return RigaCad(r, colonne, d, punti, altre);
    std::string_view resto = r;
    std::string nome, descrizione;
    double v[3] = {0, 0, 0};
    std::string_view campoX, campoY;
    for (size_t k = 0; k < o.Colonne.size() && resto.data() != nullptr; ++k) {
      const std::string_view f = SenzaVirgolette(Campo(resto, ','));
      switch (o.Colonne[k]) {
        case 'N': nome = f; break;
        case 'D': descrizione = f; break;
        case 'X': v[0] = Numero(f), campoX = f; break;
        case 'Y': v[1] = Numero(f), campoY = f; break;
        case 'Z': v[2] = Numero(f); break;
        default: break;
      }
    }
    // A row with no number where the coordinates stand: the heading of the first line, or
    // damage anywhere else.
    const bool numeri = (indiceX == std::string::npos || HaCifra(campoX)) && (indiceY == std::string::npos || HaCifra(campoY));
    if (!numeri) return es.Righe == 1 ? 1 : 0;
    if (!o.Prefisso.empty() && SoloCifre(nome)) nome = o.Prefisso + nome;
    // 9999 is how the tables write a point of no height.
    if (v[2] == 9999) {
      v[2] = 0;
      descrizione = MettiCodice(descrizione, kCodicePlanimetrico);
    }
    d.Punto(nome, descrizione, v[0], v[1], v[2], {});
    ++punti;
    return 1;
  });
  e.Punti = punti;
  e.Altre = altre;
  return e;
}

EsitoLettura LeggiLineeDxf(std::string_view testo, DestinoPunti& d, const AvanzamentoLettura& a) {
  int64_t linee = 0;
  int codice = -1;
  bool valore = false, linea = false;
  double v[6] = {0, 0, 0, 0, 0, 0};
  auto chiudi = [&] {
    if (linea) d.Linea(v[0], v[1], v[2], v[3], v[4], v[5], {}), ++linee;
    linea = false;
  };
  EsitoLettura e = PerOgniRiga(testo, a, [&](std::string_view riga, EsitoLettura&) {
    const std::string_view r = Rifilata(riga);
    if (!valore) {
      // A group code is a whole number; anything else puts the pairs out of step, and the
      // line is named.
      int c = 0;
      const auto [fine, errore] = std::from_chars(r.data(), r.data() + r.size(), c);
      if (errore != std::errc() || fine != r.data() + r.size()) return 0;
      codice = c, valore = true;
      return 1;
    }
    valore = false;
    if (codice == 0) {
      chiudi();
      if (r == "EOF") return -1;
      linea = r == "LINE" || r == "LINEA";
      std::fill(std::begin(v), std::end(v), 0.0);
      return 1;
    }
    constexpr int kGruppi[] = {10, 20, 30, 11, 21, 31};
    for (size_t k = 0; k < 6; ++k)
      if (codice == kGruppi[k]) v[k] = Numero(r);
    return 1;
  });
  if (!e.Interrotto) chiudi();
  e.Altre = linee;
  return e;
}

std::string DescriviRigheDanneggiate(const EsitoLettura& e) {
  if (e.TotaleDanneggiate == 0) return {};
  std::string t = e.TotaleDanneggiate == 1 ? "Riga non letta: " : "Righe non lette: ";
  for (size_t k = 0; k < e.RigheDanneggiate.size(); ++k) t += (k ? ", " : "") + std::to_string(e.RigheDanneggiate[k]);
  const int64_t altre = e.TotaleDanneggiate - static_cast<int64_t>(e.RigheDanneggiate.size());
  if (altre > 0) t += " e altre " + std::to_string(altre);
  return t;
}

}  // namespace varena
