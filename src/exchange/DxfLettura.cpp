// The DXF reader: copy pass, layer pass and the passes of each kind, as the import dialog
// runs them.
#include "exchange/DxfLettura.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "commands/ComandiPiani.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/ImpostazioniUtente.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"

namespace varena {

namespace {

// The codes the copy pass keeps; all the others (39 thickness, 42 bulge, 62 colour, 6 line
// type, 7 style, 72, 73, 210 ...) are dropped there.
constexpr std::array<std::string_view, 13> kCodiciCopiati = {"0",  "8",  "10", "11", "20", "21", "30",
                                                             "31", "70", "40", "1",  "50", "51"};
// Group 39 would carry the elevation, but the copy pass never keeps it: the option that uses
// it reads nothing. The branch stays, waiting for a copy list that keeps it.
constexpr int16_t kCodiceElevazione = 39;

std::string_view RifilaBlank(std::string_view t) {
  size_t a = 0, b = t.size();
  while (a < b && t[a] == ' ') ++a;
  while (b > a && t[b - 1] == ' ') --b;
  return t.substr(a, b - a);
}

// Lines end at LF; a CR before it belongs to the end too, so CR LF and LF files read alike.
class Righe {
 public:
  explicit Righe(std::string_view t) : t_(t) {}
  bool Prossima(std::string_view& riga) {
    if (pos_ >= t_.size()) return false;
    const void* lf = std::memchr(t_.data() + pos_, '\n', t_.size() - pos_);
    const size_t fine = lf ? static_cast<size_t>(static_cast<const char*>(lf) - t_.data()) : t_.size();
    riga = t_.substr(pos_, fine - pos_);
    if (!riga.empty() && riga.back() == '\r') riga.remove_suffix(1);
    pos_ = lf ? fine + 1 : t_.size();
    return true;
  }

 private:
  std::string_view t_;
  size_t pos_ = 0;
};

int16_t CodiceCopiato(std::string_view riga) {
  // The trimmed line must be one of the codes as written: digits only, no leading zero.
  const std::string_view c = RifilaBlank(riga);
  if (c.empty() || c.size() > 2 || (c.size() == 2 && c[0] == '0')) return -1;
  int n = 0;
  for (char ch : c) {
    if (ch < '0' || ch > '9') return -1;
    n = n * 10 + (ch - '0');
  }
  for (std::string_view k : kCodiciCopiati)
    if (c == k) return static_cast<int16_t>(n);
  return -1;
}

// `Val` of a value line, with a quick road for the plain numbers a writer puts there.
double Numero(std::string_view v) {
  size_t i = 0;
  while (i < v.size() && v[i] == ' ') ++i;
  const char* p = v.data() + i;
  const char* fine = v.data() + v.size();
  if (p < fine && (*p == '-' || (*p >= '0' && *p <= '9'))) {
    double x = 0;
    const auto [q, ec] = std::from_chars(p, fine, x);
    // What from_chars stops at and `Val` would read on (a D exponent, "1E" without digits,
    // a number out of range) goes the long road.
    if (ec == std::errc() && (q == fine || (*q != 'D' && *q != 'd' && *q != 'E' && *q != 'e'))) return x;
  }
  return Val(v);
}

bool Utf8Valido(std::string_view t) {
  size_t i = 0;
  while (i < t.size()) {
    const auto c = static_cast<unsigned char>(t[i]);
    size_t seguono = 0;
    if (c < 0x80) seguono = 0;
    else if (c >= 0xC2 && c <= 0xDF) seguono = 1;
    else if (c >= 0xE0 && c <= 0xEF) seguono = 2;
    else if (c >= 0xF0 && c <= 0xF4) seguono = 3;
    else return false;
    if (seguono >= t.size() - i) return false;
    for (size_t k = 1; k <= seguono; ++k)
      if ((static_cast<unsigned char>(t[i + k]) & 0xC0) != 0x80) return false;
    i += seguono + 1;
  }
  return true;
}

// A name or a text of the file as the tables keep it: the drawings of the newer editions are
// UTF-8, the older ones in the code page of their system.
std::string TestoDxf(std::string_view v) { return Utf8Valido(v) ? std::string(v) : Cp1252InUtf8(v); }

// A layer keeps 8 characters.
std::string PianoTagliato(const std::string& piano) {
  size_t pos = 0, caratteri = 0;
  while (pos < piano.size() && caratteri < 8) {
    ProssimoCarattere(piano, pos);
    ++caratteri;
  }
  return piano.substr(0, pos);
}

struct Vertice {
  double X = 0, Y = 0, Z = 0;
};

// The state of one pass: the layer test and the rows it adds.
class Passo {
 public:
  Passo(Sessione& s, const OpzioniDxfIn& o, const std::string& scelti) : s_(s), o_(o), scelti_(scelti) {}

  void Piano(std::string_view valore) {
    const std::string_view p = RifilaBlank(valore);
    if (p == corrente_) return;
    corrente_.assign(p);
    // A layer is chosen when " name " stands in the string of the chosen ones, as spelt.
    scelto_ = !o_.Piani || scelti_.find(" " + corrente_ + " ") != std::string::npos;
    tagliato_ = PianoTagliato(TestoDxf(corrente_));
  }
  bool Scelto() const { return scelto_; }
  // Before the first group 8 the layer is the empty name.
  void Inizia() { Piano(""); }

  void Linea(const Vertice& a, const Vertice& b) {
    DimensionaLinee(s_);
    const auto k = static_cast<size_t>(s_.ContaEntita[SlotLinee]);
    s_.LineaIdent[k] = 0;
    s_.LineaX1[k] = a.X, s_.LineaY1[k] = a.Y, s_.LineaZ1[k] = a.Z;
    s_.LineaX2[k] = b.X, s_.LineaY2[k] = b.Y, s_.LineaZ2[k] = b.Z;
    s_.LineaColore[k] = s_.Imp.Colore_Default;
    // The lines of a drawing come in plain, whatever the line type in force.
    s_.LineaTratteggio[k] = 1;
    s_.LineaCongela[k] = 0;
    s_.LineaQuotata[k] = 0;
    s_.LineaOffsetQuota[k] = 0;
    s_.LineaPiano[k] = tagliato_;
    s_.LineaTronca[k] = 0;
    s_.StatoLinea[k] = 0;
    ++s_.ContaEntita[SlotLinee];
  }

  void Punto(const Vertice& v, std::string nome);
  void Testo(const Vertice& v, double altezza, double rotazione, std::string_view testo);
  void Cerchio(const Vertice& c, double raggio);
  void Arco(const Vertice& c, double raggio, double inizio, double ampiezza);

 private:
  Sessione& s_;
  const OpzioniDxfIn& o_;
  const std::string& scelti_;
  std::string corrente_{"\x01"};  // no layer read yet: the first group 8 is always news
  bool scelto_ = false;
  std::string tagliato_;
};

void Passo::Punto(const Vertice& v, std::string nome) {
  DimensionaPunti(s_);
  const auto k = static_cast<size_t>(s_.ContaEntita[SlotPunti]);
  const StilePunto& stile = s_.ConfiguraPunti.Classi[ClassePunti];
  s_.PuntoIdent[k] = 0;
  s_.PuntoNome[k] = std::move(nome);
  s_.PuntoDescrizione[k].clear();
  s_.PuntoX[k] = v.X, s_.PuntoY[k] = v.Y, s_.PuntoZ[k] = v.Z;
  s_.PuntoDimensioneSimbolo[k] = stile.DimSimbolo;
  s_.PuntoDimensioneNome[k] = stile.DimNome;
  s_.PuntoDimensioneQuota[k] = stile.DimQuota;
  s_.PuntoDimensioneDescrizione[k] = stile.DimDescrizione;
  // The colours of the drawing are never taken: the point has the one in force.
  s_.PuntoColoreSimbolo[k] = s_.PuntoColoreNome[k] = s_.PuntoColoreQuota[k] = s_.PuntoColoreDescrizione[k] =
      s_.Imp.Colore_Default;
  s_.PuntoCongelaSimbolo[k] = s_.PuntoCongelaNome[k] = s_.PuntoCongelaQuota[k] = s_.PuntoCongelaDescrizione[k] = 0;
  s_.PuntoAttendibilita[k] = 0;
  s_.PuntoSimbolo[k] = InteroCorto(stile.Simbolo);
  s_.PuntoPiano[k] = tagliato_;
  s_.PuntoSpoX[k] = s_.PuntoSpoY[k] = s_.PuntoSpoZ[k] = 0;
  s_.PuntoFont[k] = stile.Font;
  s_.PuntoErroreOrientamento[k] = 0;
  s_.PuntoHPrisma[k] = 0;
  s_.StatoPunto[k] = 0;
  ++s_.ContaEntita[SlotPunti];
}

void Passo::Testo(const Vertice& v, double altezza, double rotazione, std::string_view testo) {
  // A number read is always finite; one made from it may not be, and no row holds that.
  if (!std::isfinite(altezza) || !std::isfinite(rotazione)) return;
  DimensionaTesti(s_);
  const auto k = static_cast<size_t>(s_.ContaEntita[SlotTesti]);
  s_.TestoIdent[k] = 0;
  s_.TestoX[k] = v.X, s_.TestoY[k] = v.Y;
  s_.TestoRotazione[k] = rotazione;
  s_.TestoAltezza[k] = altezza;
  s_.TestoRighe[k] = 1;
  s_.TestoColore[k] = s_.Imp.Colore_Default;
  s_.TestoCongela[k] = 0;
  s_.TestoColonne[k] = 1;
  s_.TestoPiano[k] = tagliato_;
  s_.TestoFont[k] = Rifila(s_.Imp.FontTestoDefault).empty() ? std::string("Arial") : Rifila(s_.Imp.FontTestoDefault);
  s_.TestoTesto[k] = TestoDxf(testo);
  s_.StatoTesto[k] = 0;
  ++s_.ContaEntita[SlotTesti];
}

void Passo::Cerchio(const Vertice& c, double raggio) {
  DimensionaCerchi(s_);
  const auto k = static_cast<size_t>(s_.ContaEntita[SlotCerchi]);
  s_.CerchioIdent[k] = 0;
  s_.CerchioX[k] = c.X, s_.CerchioY[k] = c.Y, s_.CerchioZ[k] = c.Z;
  s_.CerchioRaggio[k] = raggio;
  s_.CerchioColore[k] = s_.Imp.Colore_Default;
  s_.CerchioTratteggio[k] = InteroCorto(s_.Imp.Tratteggio_Default);
  s_.CerchioCongela[k] = 0;
  s_.CerchioPiano[k] = tagliato_;
  s_.StatoCerchio[k] = 0;
  ++s_.ContaEntita[SlotCerchi];
}

void Passo::Arco(const Vertice& c, double raggio, double inizio, double ampiezza) {
  if (!std::isfinite(inizio) || !std::isfinite(ampiezza)) return;
  DimensionaArchi(s_);
  const auto k = static_cast<size_t>(s_.ContaEntita[SlotArchi]);
  s_.ArcoIdent[k] = 0;
  s_.ArcoX[k] = c.X, s_.ArcoY[k] = c.Y, s_.ArcoZ[k] = c.Z;
  s_.ArcoRaggio[k] = raggio;
  s_.ArcoInizio[k] = inizio;
  s_.ArcoFine[k] = ampiezza;
  s_.ArcoColore[k] = s_.Imp.Colore_Default;
  s_.ArcoTratteggio[k] = InteroCorto(s_.Imp.Tratteggio_Default);
  s_.ArcoCongela[k] = 0;
  s_.ArcoQuotaInizio[k] = s_.ArcoQuotaFinale[k] = c.Z;
  s_.ArcoPiano[k] = tagliato_;
  s_.StatoArco[k] = 0;
  ++s_.ContaEntita[SlotArchi];
}

// What every pass shares: the pairs in order up to the value "EOF", the group 0 that acts
// on the entity just ended, the progress every so many pairs.
class Lettore {
 public:
  Lettore(const FileDxfRidotto& f, int64_t base, int64_t totale, const AvanzamentoDxf& a)
      : f_(f), base_(base), totale_(totale), avanzamento_(a) {}

  // `f(coppia)` for each pair; false when the user stopped it.
  template <class F>
  bool Scorri(F&& f) {
    const size_t n = f_.Coppie.size();
    for (size_t i = 0; i < n; ++i) {
      const CoppiaDxf& c = f_.Coppie[i];
      if (RifilaBlank(c.Valore) == "EOF") break;
      f(c);
      if ((i & 0xFFFF) == 0xFFFF && avanzamento_ &&
          !avanzamento_(base_ + static_cast<int64_t>(i), totale_))
        return false;
    }
    return true;
  }

 private:
  const FileDxfRidotto& f_;
  int64_t base_, totale_;
  const AvanzamentoDxf& avanzamento_;
};

// The values of an entity are kept as they stand and read only when the entity is written:
// most passes go over entities of other kinds, whose numbers they never need.
struct VerticeDxf {
  std::string_view X, Y, Z;
  Vertice Valore() const { return {Numero(X), Numero(Y), Numero(Z)}; }
};

// The kinds, each a pass of its own.
void PassoPolilinee(Passo& p, Lettore& l, bool elevazione) {
  std::string_view precedente, flag70;
  int stato = 0;
  VerticeDxf primo, prima, corrente;
  l.Scorri([&](const CoppiaDxf& c) {
    switch (c.Codice) {
      case 0: {
        const std::string_view nuovo = RifilaBlank(c.Valore);
        if (p.Scelto() && precedente == "VERTEX") {
          if (nuovo == "VERTEX") {
            // `SalvaPlinea`: the first vertex is only held; each later one closes a segment.
            if (stato == 0) {
              primo = prima = corrente;
              stato = 1;
            } else {
              p.Linea(prima.Valore(), corrente.Valore());
              prima = corrente;
              stato = 2;
            }
          } else if (nuovo == "SEQEND") {
            // `FinePlinea`: the last segment is added whatever the state, so a polyline of one
            // vertex draws from the vertex held before it.
            p.Linea(prima.Valore(), corrente.Valore());
            if (stato == 2 && ArrotondaPari(Numero(flag70)) == 1) p.Linea(corrente.Valore(), primo.Valore());
            stato = 0;
            flag70 = {};
          }
        }
        precedente = nuovo;
        break;
      }
      case 8: p.Piano(c.Valore); break;
      case 10: corrente.X = c.Valore; break;
      case 20: corrente.Y = c.Valore; break;
      case 30: corrente.Z = c.Valore; break;
      case 70: flag70 = c.Valore; break;
      case kCodiceElevazione:
        if (elevazione) corrente.Z = c.Valore;
        break;
      default: break;
    }
  });
}

void PassoLwPolilinee(Passo& p, Lettore& l) {
  std::string_view precedente;
  bool tenuto = false;
  VerticeDxf vecchio, nuovo;
  l.Scorri([&](const CoppiaDxf& c) {
    switch (c.Codice) {
      case 0:
        precedente = RifilaBlank(c.Valore);
        if (precedente == "LWPOLYLINE") tenuto = false;
        break;
      case 8: p.Piano(c.Valore); break;
      case 10: nuovo.X = c.Valore; break;
      case 20:
        nuovo.Y = c.Valore;
        // The new vertex is the first end of the segment, the one held the second; the
        // closed flag is not read, so a closed outline stays open. No height: Z 0.
        if (p.Scelto() && precedente == "LWPOLYLINE" && tenuto) p.Linea(nuovo.Valore(), vecchio.Valore());
        vecchio = nuovo;
        tenuto = true;
        break;
      default: break;
    }
  });
}

// What one entity of the simpler kinds has given so far. Nothing is cleared between
// entities: a code an entity leaves out keeps the value of the one before, as the files
// this reads were always read.
struct EntitaDxf {
  VerticeDxf A, B;  // 10/20/30 and 11/21/31
  std::string_view Testo, Misura, Angolo, Angolo2;  // 1, 40 (height, radius), 50, 51
};

// Walks the pairs once, handing each entity of kind `tipo` on the chosen layers to `fatta`
// when the next entity begins. The elevation code, when read, is the height of both ends.
template <class F>
void ScorriEntita(Passo& p, Lettore& l, std::string_view tipo, bool elevazione, F&& fatta) {
  std::string_view precedente;
  EntitaDxf e;
  l.Scorri([&](const CoppiaDxf& c) {
    switch (c.Codice) {
      case 0:
        if (p.Scelto() && precedente == tipo) fatta(e);
        precedente = RifilaBlank(c.Valore);
        break;
      case 1: e.Testo = c.Valore; break;
      case 8: p.Piano(c.Valore); break;
      case 10: e.A.X = c.Valore; break;
      case 20: e.A.Y = c.Valore; break;
      case 30: e.A.Z = c.Valore; break;
      case 11: e.B.X = c.Valore; break;
      case 21: e.B.Y = c.Valore; break;
      case 31: e.B.Z = c.Valore; break;
      case 40: e.Misura = c.Valore; break;
      case 50: e.Angolo = c.Valore; break;
      case 51: e.Angolo2 = c.Valore; break;
      case kCodiceElevazione:
        if (elevazione) e.A.Z = e.B.Z = c.Valore;
        break;
      default: break;
    }
  });
}

void PassoLinee(Passo& p, Lettore& l, bool elevazione) {
  ScorriEntita(p, l, "LINE", elevazione, [&](const EntitaDxf& e) { p.Linea(e.A.Valore(), e.B.Valore()); });
}

// The trailing digits of a name raised by the step, what stands before and after them kept.
std::string NomeSeguente(const std::string& nome, double passo) {
  size_t fine = nome.size();
  while (fine > 0 && !(nome[fine - 1] >= '0' && nome[fine - 1] <= '9')) --fine;
  size_t inizio = fine;
  while (inizio > 0 && nome[inizio - 1] >= '0' && nome[inizio - 1] <= '9') --inizio;
  const double n = Val(std::string_view(nome).substr(inizio, fine - inizio)) + passo;
  return nome.substr(0, inizio) + FormatoMaschera(n, "#################") + nome.substr(fine);
}

void PassoPunti(Passo& p, Lettore& l, const OpzioniDxfIn& o) {
  std::string nome = Rifila(o.PrimoNome);
  ScorriEntita(p, l, "POINT", false, [&](const EntitaDxf& e) {
    if (!o.Check[DxfNumeraPunti]) return p.Punto(e.A.Valore(), {});
    p.Punto(e.A.Valore(), nome);
    nome = NomeSeguente(nome, o.Passo);
  });
}

void PassoTesti(Passo& p, Lettore& l) {
  // The height is kept doubled, and the angle turned to gon clockwise.
  ScorriEntita(p, l, "TEXT", false, [&](const EntitaDxf& e) {
    p.Testo(e.A.Valore(), 2 * Numero(e.Misura), 400 - 400 * Numero(e.Angolo) / 360, e.Testo);
  });
}

void PassoCerchi(Passo& p, Lettore& l) {
  ScorriEntita(p, l, "CIRCLE", false, [&](const EntitaDxf& e) { p.Cerchio(e.A.Valore(), Numero(e.Misura)); });
}

// A DXF angle (degrees counter-clockwise from East) as an azimuth clockwise from North, in
// radians, not brought into one turn.
double Azimut(double gradi) { return 2 * PiGreco - 2 * PiGreco * gradi / 360 + PiGreco / 2; }

void PassoArchi(Passo& p, Lettore& l) {
  ScorriEntita(p, l, "ARC", false, [&](const EntitaDxf& e) {
    const double t50 = Azimut(Numero(e.Angolo)), t51 = Azimut(Numero(e.Angolo2));
    double ampiezza = t50 - t51;
    if (ampiezza < 0) ampiezza += 2 * PiGreco;
    p.Arco(e.A.Valore(), Numero(e.Misura), t51 * 200 / PiGreco, ampiezza * 200 / PiGreco);
  });
}

// The pairs from where `righe` stands to the value "ENDSEC", those of the codes read kept.
FileDxfRidotto CopiaCoppie(Righe& righe, size_t resto) {
  FileDxfRidotto f;
  // Room for every line left, each of which may grow by the CR of its end: the text then
  // never moves while it is written, and the pairs can point into it as they are made.
  f.Testo.reserve(resto + resto / 2 + 16);
  f.Coppie.reserve(resto / 16);
  f.Troncato = true;
  std::string_view codice, valore;
  while (righe.Prossima(codice)) {
    // A code without its value ends the section where it stands.
    if (!righe.Prossima(valore)) break;
    const int16_t n = CodiceCopiato(codice);
    if (n >= 0) {
      f.Testo.append(codice).append("\r\n");
      const size_t inizio = f.Testo.size();
      f.Testo.append(valore).append("\r\n");
      f.Coppie.push_back({n, std::string_view(f.Testo).substr(inizio, valore.size())});
    }
    if (RifilaBlank(valore) == "ENDSEC") {
      f.Troncato = false;
      break;
    }
  }
  return f;
}

constexpr std::string_view kIntestazioneBinaria = "AutoCAD Binary DXF";

}  // namespace

std::optional<FileDxfRidotto> RiduciDxf(std::string_view byte, std::string& errore) {
  if (byte.substr(0, kIntestazioneBinaria.size()) == kIntestazioneBinaria) {
    errore = "Il file è un DXF binario: si leggono solo i DXF di testo (ASCII)";
    return std::nullopt;
  }
  Righe righe(byte);
  std::string_view riga;
  bool trovata = false;
  while (righe.Prossima(riga))
    if (RifilaBlank(riga) == "ENTITIES") {
      trovata = true;
      break;
    }
  if (!trovata) {
    errore = "Sezione ENTITIES non trovata: il file non contiene entità DXF leggibili";
    return std::nullopt;
  }
  const size_t resto = byte.size() - std::min(byte.size(), static_cast<size_t>(riga.data() - byte.data()));
  return CopiaCoppie(righe, resto);
}

FileDxfRidotto LeggiFileLavoroDxf(std::string_view byte) {
  Righe righe(byte);
  return CopiaCoppie(righe, byte.size());
}

std::vector<std::string> PianiDxf(const FileDxfRidotto& f) {
  // Line by line, not by pairs: a value "8" makes the code line after it a layer too.
  std::vector<std::string> piani;
  bool prossima = false;
  auto riga = [&](std::string_view r) {
    const std::string_view t = RifilaBlank(r);
    if (prossima) piani.emplace_back(t);
    prossima = t == "8";
  };
  for (const CoppiaDxf& c : f.Coppie) {
    // The code line as it was copied: only its trimmed text counts, and that is the number.
    riga(std::to_string(c.Codice));
    riga(c.Valore);
  }
  std::sort(piani.begin(), piani.end());
  piani.erase(std::unique(piani.begin(), piani.end()), piani.end());
  return piani;
}

EsitoDxfIn CaricaEntitaDxf(Sessione& s, const FileDxfRidotto& f, const OpzioniDxfIn& o,
                           const AvanzamentoDxf& avanzamento) {
  EsitoDxfIn esito;
  std::string scelti;
  if (o.Piani)
    for (const std::string& p : *o.Piani) scelti += " " + p + " ";
  const auto prima = s.ContaEntita;
  const bool elevazione = o.Check[DxfQuotaElevazione];

  struct Fase {
    int check;
    int slot;
    std::function<void(Passo&, Lettore&)> passo;
  };
  const std::vector<Fase> fasi = {
      {DxfPolilinee, SlotLinee, [&](Passo& p, Lettore& l) { PassoPolilinee(p, l, elevazione); }},
      {DxfPolilinee, SlotLinee, [&](Passo& p, Lettore& l) { PassoLwPolilinee(p, l); }},
      {DxfLinee, SlotLinee, [&](Passo& p, Lettore& l) { PassoLinee(p, l, elevazione); }},
      {DxfPunti, SlotPunti, [&](Passo& p, Lettore& l) { PassoPunti(p, l, o); }},
      {DxfTesti, SlotTesti, [&](Passo& p, Lettore& l) { PassoTesti(p, l); }},
      {DxfCerchi, SlotCerchi, [&](Passo& p, Lettore& l) { PassoCerchi(p, l); }},
      {DxfArchi, SlotArchi, [&](Passo& p, Lettore& l) { PassoArchi(p, l); }},
  };
  int64_t quante = 0;
  for (const Fase& fa : fasi) quante += o.Check[static_cast<size_t>(fa.check)] ? 1 : 0;
  const int64_t totale = std::max<int64_t>(1, quante * static_cast<int64_t>(f.Coppie.size()));
  int64_t base = 0;
  for (const Fase& fa : fasi) {
    if (!o.Check[static_cast<size_t>(fa.check)]) continue;
    if (avanzamento && !avanzamento(base, totale)) {
      esito.Interrotto = true;
      break;
    }
    const int32_t righe = s.ContaEntita[static_cast<size_t>(fa.slot)];
    Passo p(s, o, scelti);
    p.Inizia();
    Lettore l(f, base, totale, avanzamento);
    fa.passo(p, l);
    esito.Righe[static_cast<size_t>(fa.check)] += s.ContaEntita[static_cast<size_t>(fa.slot)] - righe;
    base += static_cast<int64_t>(f.Coppie.size());
  }
  if (!esito.Interrotto && avanzamento && !avanzamento(totale, totale)) esito.Interrotto = true;
  if (esito.Interrotto) {
    // The rows beyond the counts are no rows: the job is as it was.
    s.ContaEntita = prima;
    esito.Righe = {};
    return esito;
  }
  for (int slot : {SlotPunti, SlotLinee, SlotCerchi, SlotArchi, SlotTesti})
    if (s.ContaEntita[static_cast<size_t>(slot)] != prima[static_cast<size_t>(slot)]) SegnaModificato(s, slot);
  return esito;
}

std::array<bool, NumeroCheckDxf> LeggiCheckDxf(Sessione& s) {
  std::array<bool, NumeroCheckDxf> check{};
  for (size_t i = 0; i < check.size(); ++i)
    check[i] = Val(LeggiImpostazioneUtente(s, "TestoInPunto", std::to_string(i), "0")) != 0;
  const std::string vecchio = s.CartellaProgramma + "/Dadxf.ini";
  if (const auto righe = TrovaFile(vecchio)) {
    // The six kinds of an older edition, read once: the file goes and the settings take over.
    // Read as list items: one a line or several on a line, between commas.
    std::vector<std::string> valori;
    for (const std::string& riga : RigheFile(*righe))
      for (const std::string& v : Dividi(riga, ',')) valori.push_back(v);
    for (size_t i = 0; i < 6; ++i) check[i] = i < valori.size() && Val(Rifila(valori[i])) != 0;
    if (!s.SolaLettura) EliminaFile(*righe);
  }
  return check;
}

void ScriviCheckDxf(Sessione& s, const std::array<bool, NumeroCheckDxf>& check) {
  for (size_t i = 0; i < check.size(); ++i)
    ScriviImpostazioneUtente(s, "TestoInPunto", std::to_string(i), check[i] ? "1" : "0");
}

std::string PercorsoFileLavoroDxf(const Sessione& s) {
  return s.CartellaProgramma + "/temp/PROVVISO.DXF";
}

bool ImportaDxf(Sessione& s, const std::string& percorso, const OpzioniDxfIn& o, EsitoDxfIn* esito,
                const AvanzamentoDxf& avanzamento) {
  s.RoutineCorrente = "CaricaDXF";
  const auto prima = s.ContaEntita;
  bool letto = false;
  const bool ok = Protetto(s, [&] {
    const auto byte = LeggiByte(percorso);
    if (!byte) {
      s.Ui->Messaggio("File DXF non trovato:\n" + percorso, "Importa Da DXF ", Icona::Avviso);
      return;
    }
    std::string errore;
    const auto f = RiduciDxf(*byte, errore);
    if (!f) {
      s.Ui->Messaggio(errore + ":\n" + percorso, "Importa Da DXF ", Icona::Avviso);
      return;
    }
    if (ScriveNelProgramma(s)) {
      NuovaCartella(FileProgramma(s, "temp"));
      ScriviByte(PercorsoFileLavoroDxf(s), f->Testo);
    }
    const EsitoDxfIn e = CaricaEntitaDxf(s, *f, o, avanzamento);
    if (esito) *esito = e;
    if (e.Interrotto) return;
    if (f->Troncato)
      s.Ui->Messaggio("Il file DXF è incompleto (manca la fine della sezione ENTITIES): "
                      "caricate le entità lette fino al danno\n" + percorso,
                      "Importa Da DXF ", Icona::Avviso);
    letto = true;
    RicostruisciPianiDxf(s);
  });
  // A failure before the passes ended leaves no half of a drawing behind.
  if (!ok && !letto) s.ContaEntita = prima;
  return ok && letto;
}

void RicostruisciPianiDxf(Sessione& s) {
  std::string nomi;
  for (const VocePiano& v : ElencoPiani(s)) {
    if (!v.NellaTabella && s.Piani.size() < static_cast<size_t>(kMassimoPiani)) {
      Piano p;
      p.Nome = v.Nome;
      s.Piani.push_back(p);
      SegnaModificato(s, SlotPiani);
    }
  }
  for (const Piano& p : s.Piani) nomi += p.Nome + "|";
  if (ScriveNelProgramma(s))
    ScriviByte(FileProgramma(s, "PIANI.INI"), "\"" + Utf8InCp1252(nomi) + "\"\r\n");
}

}  // namespace varena
