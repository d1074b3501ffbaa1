// The map extract's text read into lines and texts of kind 14, and the raster under them.
#include "cadastre/Estratto.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <unordered_map>
#include <unordered_set>

#include "cadastre/Libretto.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Cfg.h"
#include "view/DimensioniImmagine.h"
#include "view/Rigenera.h"
#include "view/Superficie.h"

namespace varena {

namespace {

constexpr const char* kTitolo = "Estratto di Mappa";
constexpr const char* kInquadramento = "6|INQUADRAMENTO|";

// A name as rows 7 and 8 write it: a trailing "%" marks a name of the sheet and is not part
// of it, so that a row 8 with it and a row 7 without it name the same vertex.
std::string Chiave(std::string_view nome) {
  std::string n = Rifila(nome);
  if (!n.empty() && n.back() == '%') n.pop_back();
  return Rifila(n);
}

double Numero(std::string_view campo) { return Val(VirgolaInPunto(Rifila(campo))); }

// The rows of the text split at its line ends, each trimmed.
std::vector<std::string> Righe(std::string_view testo) {
  std::vector<std::string> righe;
  for (const std::string& r : Dividi(testo, '\n')) righe.push_back(Rifila(Sostituisci(r, "\r", "")));
  return righe;
}

// The fields of a row after its split at "|", trimmed, and the last that is not empty.
struct Campi {
  std::vector<std::string> Parti;
  size_t Ultimo = 0;
  explicit Campi(std::string_view riga) {
    for (const std::string& p : PartiRiga(riga)) Parti.push_back(Rifila(p));
    for (size_t k = Parti.size(); k-- > 1;)
      if (!Parti[k].empty()) {
        Ultimo = k;
        break;
      }
  }
  const std::string& operator[](size_t k) const {
    static const std::string vuoto;
    return k < Parti.size() ? Parti[k] : vuoto;
  }
};

struct Vertice {
  double X = 0, Y = 0;
};

// The style code of a chain from the letters after its vertices: 1 unless they say
// otherwise, and of two codes the one tested later wins.
int CodiceStile(const std::string& codici) {
  int stile = 1;
  if (codici.find("NP") != std::string::npos) stile = 5;
  if (codici.find("NT") != std::string::npos) stile = 0;
  if (codici.find("+|") != std::string::npos) stile = 3;
  if (codici.find("-|") != std::string::npos) stile = 4;
  return stile;
}

// Pen, style and width of a side by its style code.
ElementoEstratto LatoDiStile(int codice, int32_t colore, int32_t fondo) {
  ElementoEstratto e;
  e.Penna = colore;
  switch (codice) {
    case 0: e.Tratto = 1; break;
    case 3:
    case 4: e.Spessore = 2.0f; break;
    case 5: e.Tratto = 2; break;
    default:
      // A pen the colour of the background would hide the parcels' sides.
      if (colore == fondo) e.Penna = 250;
      break;
  }
  return e;
}

// The sides of the chains of rows 7, each once: a side shared by two parcels is met twice,
// once in each direction, and its smaller name first makes the two the same.
class Catene {
 public:
  void Riga(const Campi& c) {
    const int n = static_cast<int>(std::clamp(Numero(c[1]), -1.0, 1e6));
    const bool continua = c[1] == "0" && aperta_;
    if (!continua) Chiudi();
    // The vertices of this row: those the count still asks for, the first of a continuation
    // being the last of the row before; what follows them is the code.
    size_t quanti = c.Ultimo >= 2 ? c.Ultimo - 1 : 0;
    if (continua && restanti_ > 0) quanti = std::min<size_t>(quanti, static_cast<size_t>(restanti_) + 1);
    if (!continua && n > 0) quanti = std::min<size_t>(quanti, static_cast<size_t>(n));
    for (size_t k = 1; k < quanti; ++k) coppie_.emplace_back(c[k + 1], c[k + 2]);
    for (size_t k = 2 + quanti; k <= c.Ultimo; ++k) codici_ += "|" + c[k];
    if (!continua) restanti_ = n > 0 ? n - static_cast<int>(quanti) : 0;
    else if (restanti_ > 0) restanti_ -= static_cast<int>(quanti > 0 ? quanti - 1 : 0);
    aperta_ = true;
  }
  void Chiudi() {
    if (!aperta_) return;
    const std::string stile = std::to_string(CodiceStile(codici_ + "|"));
    for (auto& [a, b] : coppie_) {
      std::string x = Chiave(a), y = Chiave(b);
      if (y < x) std::swap(x, y);
      std::string lato = stile + "|" + x + "|" + y + "|";
      if (visti_.insert(lato).second) Lati.push_back(std::move(lato));
    }
    coppie_.clear();
    codici_.clear();
    restanti_ = 0;
    aperta_ = false;
  }
  std::vector<std::string> Lati;

 private:
  bool aperta_ = false;
  int restanti_ = 0;
  std::string codici_;
  std::vector<std::pair<std::string, std::string>> coppie_;
  std::unordered_set<std::string> visti_;
};

// The texts of the sheet by the letter of their code: size and font.
void StileTesto(const std::string& codice, ElementoEstratto& e) {
  e.Font = "Arial";
  e.Altezza = 2.0f;
  if (codice.find('T') != std::string::npos) e.Altezza = 3.0f;
  if (codice.find('%') != std::string::npos) e.Font = "Courier New", e.Altezza = 4.0f;
  if (codice.find('S') != std::string::npos) e.Font = "Courier New";
}

bool RigaSpeciale(const std::string& testo) {
  const std::string t = Maiuscolo(testo);
  return t == "INQUADRAMENTO" || IniziaCon(t, "ESTRATTO DI MAPPA") || t.find("DISTANZA") != std::string::npos;
}

class Lettore {
 public:
  Lettore(int32_t colore, int32_t fondo) : colore_(colore), fondo_(fondo) {}

  LetturaEstratto Leggi(std::string_view testo) {
    const std::vector<std::string> righe = Righe(testo);
    // Pass 1: the named vertices.
    for (const std::string& r : righe)
      if (IniziaCon(r, "8|")) {
        const Campi c(r);
        nomi_.try_emplace(Chiave(c[1]), Vertice{Numero(c[3]), Numero(c[2])});
      }
    Lati(righe);
    Misurate(righe);
    Fiduciali(righe);
    Testi(righe);
    return std::move(esito_);
  }

 private:
  // Pass 2 and 3: the chains of rows 7 into sides, the sides into lines.
  void Lati(const std::vector<std::string>& righe) {
    Catene catene;
    for (const std::string& r : righe)
      if (IniziaCon(r, "7|"))
        catene.Riga(Campi(r));
      else if (!r.empty())
        catene.Chiudi();
    catene.Chiudi();
    for (const std::string& lato : catene.Lati) {
      const std::vector<std::string> p = Dividi(lato, '|');
      Linea(LatoDiStile(static_cast<int>(Val(p[0])), colore_, fondo_), p[1], p[2]);
    }
    esito_.Lati = std::move(catene.Lati);
  }

  // The measured distances: "6|DISTANZA|a|b|value|", drawn dashed, the value at the middle.
  void Misurate(const std::vector<std::string>& righe) {
    for (const std::string& r : righe) {
      if (!IniziaCon(r, "6|")) continue;
      const Campi c(r);
      if (Maiuscolo(c[1]).find("DISTANZA") == std::string::npos) continue;
      if (!Linea(LatoDiStile(0, colore_, fondo_), c[2], c[3]) || c[4].empty()) continue;
      const ElementoEstratto& l = esito_.Elementi.back();
      Testo(Scritta(c[4], ""), (l.X1 + l.X2) / 2, (l.Y1 + l.Y2) / 2);
    }
  }

  // The fiducial points: a ring and the name.
  void Fiduciali(const std::vector<std::string>& righe) {
    for (const std::string& r : righe) {
      if (!IniziaCon(r, "8|")) continue;
      const std::string nome = Chiave(Campi(r)[1]);
      if (!IniziaCon(Maiuscolo(nome), "PF") || !fiduciali_.insert(nome).second) continue;
      const Vertice v = nomi_.at(nome);
      ElementoEstratto o;
      o.Primitiva = PrimCerchio;
      o.Penna = colore_;
      o.X1 = o.X2 = v.X, o.Y1 = o.Y2 = v.Y;
      o.Altezza = 1.0f;
      esito_.Elementi.push_back(o);
      Testo(Scritta(nome, ""), v.X + 1.5, v.Y + 1.5);
    }
  }

  // The texts of the sheet: "6|text|code|Nord|Est|height|rotation|", or a vertex's name in
  // place of the two coordinates. A text row with neither is a note, not drawn.
  void Testi(const std::vector<std::string>& righe) {
    for (const std::string& r : righe) {
      if (!IniziaCon(r, "6|")) continue;
      const Campi c(r);
      if (c[1].empty() || RigaSpeciale(c[1]) || IniziaCon(c[1], "<")) continue;
      ElementoEstratto t = Scritta(c[1], Maiuscolo(c[2]));
      if (Numero(c[5]) > 0) t.Altezza = static_cast<float>(Numero(c[5]));
      t.Rotazione = static_cast<float>(Numero(c[6]));
      if (Numerico(c[3]) && Numerico(c[4])) {
        Testo(t, Numero(c[4]), Numero(c[3]));
      } else if (!c[3].empty()) {
        if (const Vertice* v = Trova(c[3])) Testo(t, v->X, v->Y);
      }
    }
  }

  ElementoEstratto Scritta(const std::string& testo, const std::string& codice) const {
    ElementoEstratto t;
    t.Primitiva = PrimTesto;
    t.Penna = colore_;
    t.Testo = testo;
    StileTesto(codice, t);
    return t;
  }

  const Vertice* Trova(const std::string& nome) {
    const std::string k = Chiave(nome);
    auto it = nomi_.find(k);
    if (it != nomi_.end()) return &it->second;
    if (mancanti_.insert(k).second) esito_.NomiMancanti.push_back(k);
    return nullptr;
  }
  // A side between two named vertices. An end whose name no row 8 defines keeps the
  // coordinates that end had in the side before, as the extracts already drawn by the
  // surveyors' jobs have it; false then, so that nothing is written along it.
  bool Linea(ElementoEstratto e, const std::string& a, const std::string& b) {
    const Vertice* va = Trova(a);
    const Vertice* vb = Trova(b);
    if (va) inizio_ = *va;
    if (vb) fine_ = *vb;
    e.Primitiva = PrimLinea;
    e.X1 = inizio_.X, e.Y1 = inizio_.Y, e.X2 = fine_.X, e.Y2 = fine_.Y;
    esito_.Elementi.push_back(std::move(e));
    return va && vb;
  }
  // The second point closes the line of the text, roughly, so that it is found and framed
  // where it stands.
  void Testo(ElementoEstratto t, double x, double y) {
    const double a = t.Rotazione * GonInRad, l = 0.6 * t.Altezza * static_cast<double>(t.Testo.size());
    t.X1 = x, t.Y1 = y;
    t.X2 = x + l * std::cos(a), t.Y2 = y + l * std::sin(a);
    esito_.Elementi.push_back(std::move(t));
  }

  static constexpr double GonInRad = 3.14159265358979323846 / 200.0;
  int32_t colore_, fondo_;
  std::unordered_map<std::string, Vertice> nomi_;
  Vertice inizio_{}, fine_{};  // the ends of the side before
  std::unordered_set<std::string> mancanti_, fiduciali_;
  LetturaEstratto esito_;
};

// The frame of the raster: four lines, pen 3, dotted, width 2.
void DisegnaCornice(const Sessione& s, std::vector<ElementoEstratto>& elementi) {
  if (s.EstrattoImmagineCongelata == 1) return;
  double x0 = s.OrigineEstrattoX, y0 = s.OrigineEstrattoY;
  PosizioneSpostata(s, x0, y0);
  const double x1 = x0 + s.ScalaEstratto * s.LarghezzaPixel, y1 = y0 - s.ScalaEstratto * s.AltezzaPixel;
  const double x[5] = {x0, x1, x1, x0, x0}, y[5] = {y0, y0, y1, y1, y0};
  for (int k = 0; k < 4; ++k) {
    ElementoEstratto e;
    e.Penna = 3;
    e.Tratto = 2;
    e.Spessore = 2.0f;
    e.X1 = x[k], e.Y1 = y[k], e.X2 = x[k + 1], e.Y2 = y[k + 1];
    elementi.push_back(e);
  }
}

// The first bytes of a file, enough for any header, and whether a PNG among them ends as
// one must: a file cut short loses its closing chunk.
struct TestaImmagine {
  std::string Testa;
  bool PngIntero = true;
};
TestaImmagine LeggiTesta(const std::string& percorso) {
  TestaImmagine t;
  std::ifstream f(percorso, std::ios::binary);
  t.Testa.resize(1 << 18);
  f.read(t.Testa.data(), static_cast<std::streamsize>(t.Testa.size()));
  t.Testa.resize(static_cast<size_t>(std::max<std::streamsize>(f.gcount(), 0)));
  if (!IniziaCon(t.Testa, "\x89PNG\r\n\x1a\n")) return t;
  std::string coda(12, '\0');
  f.clear();
  f.seekg(-12, std::ios::end);
  f.read(coda.data(), 12);
  t.PngIntero = f.gcount() == 12 && coda.substr(4, 4) == "IEND";
  return t;
}

// A field of the parameter row by position, the row grown with empty fields as needed.
std::string& CampoParametri(std::vector<std::string>& campi, size_t k) {
  if (campi.size() <= k) campi.resize(k + 1);
  return campi[k];
}
// The extract's fields of the parameter row: the name, its freeze, the raster's name, then
// the raster's freeze, the pen, the origin and the scale.
enum : size_t {
  kPNome = 17,
  kPCongelato = 18,
  kPImmagine = 19,
  kPImmagineCongelata = 21,
  kPColore = 22,
  kPOrigineX = 23,
  kPOrigineY = 24,
  kPScala = 25,
  kPSpostamentoX = 26,
  kPSpostamentoY = 27,
  kPRotazione = 28
};

// A word on the extract, once for each job opened.
void Avvisa(Sessione& s, const std::string& testo) {
  if (s.AvvisiEstratto.insert(testo).second) s.Ui->Messaggio(testo, kTitolo, Icona::Avviso);
}

ParametriEstratto ParametriAttuali(const Sessione& s) {
  return {Maiuscolo(Rifila(s.FileEstratto)), Rifila(s.FileImmagineEstratto), s.EstrattoCongelato,
          s.EstrattoImmagineCongelata, s.ColoreEstratto, s.SpostamentoEstrattoX, s.SpostamentoEstrattoY,
          s.RotazioneEstratto};
}

}  // namespace

Inquadramento LeggiInquadramento(std::string_view testo) {
  const std::vector<std::string> el = Dividi(testo, '\n');
  std::string riga = el.empty() ? std::string() : el.back();
  if (Rifila(Sostituisci(riga, "\r", "")).empty() && el.size() >= 2) riga = el[el.size() - 2];
  riga = Rifila(Sostituisci(riga, "\r", ""));
  Inquadramento q;
  if (!IniziaCon(Maiuscolo(riga), kInquadramento)) return q;
  const Campi c(riga);
  q.Trovato = true;
  q.Y = Numero(c[2]), q.X = Numero(c[3]), q.Scala = Numero(c[4]);
  return q;
}

LetturaEstratto LeggiEstratto(std::string_view testo, int32_t colore, int32_t fondo) {
  return Lettore(colore, fondo).Leggi(testo);
}

std::string PercorsoEstratti(const Sessione& s, std::string_view nome) {
  std::string cartella = NormalizzaPercorso(s.Imp.Cartella_Estratti);
  if (!cartella.empty() && cartella.back() != '/') cartella += '/';
  return cartella + NormalizzaPercorso(Rifila(nome));
}

void CaricaEMP(Sessione& s) {
  s.RoutineCorrente = "Carica EMP";
  s.TestoEstratto.clear();
  s.PercorsoImmagineEstratto.clear();
  if (Rifila(s.FileEstratto).empty()) {
    s.EstrattoCongelato = s.EstrattoImmagineCongelata = 1;
    return;
  }
  std::string nome = Rifila(s.FileEstratto);
  if (Foglia(nome).find('.') == std::string::npos) nome += ".EMP";
  const std::optional<std::string> percorso = TrovaFile(PercorsoEstratti(s, nome));
  if (!percorso) {
    s.EstrattoCongelato = s.EstrattoImmagineCongelata = 1;
    return;
  }
  Protetto(s, [&] {
    // The freezes stay as the job's settings, or the association just made, left them.
    s.TestoEstratto = CaricaFileIntero(*percorso);
    const std::string associa = FileProgramma(s, "temp/Associa.EMP");
    if (LunghezzaFile(associa) > 0) s.TestoEstratto += CaricaFileIntero(associa);
  });
}

void CaricaPNG(Sessione& s) {
  s.RoutineCorrente = "Carica-PNG";
  s.PercorsoImmagineEstratto.clear();
  if (Rifila(s.FileImmagineEstratto).empty() && !Rifila(s.FileEstratto).empty()) {
    // The raster goes with its extract, under the same name.
    const std::string nome = Rifila(s.FileEstratto);
    const size_t punto = nome.rfind('.');
    s.FileImmagineEstratto = (punto == std::string::npos || punto < nome.rfind('/') + 1 ? nome : nome.substr(0, punto)) + ".PNG";
  }
  if (Rifila(s.FileEstratto).empty() || Rifila(s.FileImmagineEstratto).empty() || s.TestoEstratto.size() < 20) {
    s.EstrattoImmagineCongelata = 1;
    return;
  }
  const Inquadramento q = LeggiInquadramento(s.TestoEstratto);
  s.OrigineEstrattoX = q.X, s.OrigineEstrattoY = q.Y, s.ScalaEstratto = q.Scala;
  const std::optional<std::string> percorso = TrovaFile(PercorsoEstratti(s, s.FileImmagineEstratto));
  if (!percorso) {
    s.EstrattoImmagineCongelata = 1;
    return;
  }
  const TestaImmagine t = LeggiTesta(*percorso);
  const std::optional<DimensioniPixel> d = DimensioniImmagine(t.Testa);
  if (!d || !t.PngIntero) {
    s.EstrattoImmagineCongelata = 1;
    Avvisa(s, "Immagine dell'estratto non leggibile: " + s.FileImmagineEstratto);
    return;
  }
  s.LarghezzaPixel = d->Larghezza, s.AltezzaPixel = d->Altezza;
  if (!(q.Scala > 0) || !std::isfinite(q.Scala)) {
    s.EstrattoImmagineCongelata = 1;
    Avvisa(s, "Inquadramento dell'estratto senza scala: l'immagine non viene disegnata");
    return;
  }
  s.PercorsoImmagineEstratto = *percorso;
}

void RiGeneraEDM(Sessione& s) {
  s.RoutineCorrente = "RiGeneraEDM";
  std::vector<ElementoEstratto> elementi;
  if (s.EstrattoCongelato != 1 && Rifila(s.TestoEstratto).size() >= 10) {
    LetturaEstratto l = LeggiEstratto(s.TestoEstratto, s.ColoreEstratto, s.Imp.Colore_Fondo_Default);
    elementi = std::move(l.Elementi);
    for (ElementoEstratto& e : elementi) {
      PosizioneSpostata(s, e.X1, e.Y1);
      PosizioneSpostata(s, e.X2, e.Y2);
      // Texts turn with the sheet; their angle runs counter-clockwise.
      if (e.Primitiva == PrimTesto) e.Rotazione = static_cast<float>(e.Rotazione - s.RotazioneEstratto);
    }
    if (!l.NomiMancanti.empty()) {
      std::string elenco;
      for (size_t k = 0; k < l.NomiMancanti.size() && k < 10; ++k) elenco += (k ? ", " : "") + l.NomiMancanti[k];
      if (l.NomiMancanti.size() > 10) elenco += ", ...";
      Avvisa(s, "Vertici dell'estratto non definiti (" + std::to_string(l.NomiMancanti.size()) + "): " + elenco);
    }
  }
  DisegnaCornice(s, elementi);
  s.RoutineCorrente = "fINE RiGeneraEDM7";
  // Only a change makes the kind's records again.
  if (elementi == s.ElementiEstratto) return;
  s.ElementiEstratto = std::move(elementi);
  s.ContaEntita[SlotEdm] = static_cast<int32_t>(s.ElementiEstratto.size());
  s.DaRigenerare[SlotEdm].SegnaTutte();
}

void PosizioneSpostata(const Sessione& s, double& x, double& y) {
  // Clockwise, as azimuths run.
  if (s.RotazioneEstratto != 0) {
    const double a = s.RotazioneEstratto * 3.14159265358979323846 / 200.0, c = std::cos(a), n = std::sin(a);
    const double x1 = x * c + y * n, y1 = -x * n + y * c;
    x = x1, y = y1;
  }
  x += s.SpostamentoEstrattoX, y += s.SpostamentoEstrattoY;
}

void SpostaEstratto(Sessione& s, double dx, double dy, double gon, double cx, double cy) {
  // The new move after the old: p -> R'(R p + t + d - c) + c.
  const double a = gon * 3.14159265358979323846 / 200.0, c = std::cos(a), n = std::sin(a);
  const double tx = s.SpostamentoEstrattoX + dx - cx, ty = s.SpostamentoEstrattoY + dy - cy;
  s.SpostamentoEstrattoX = tx * c + ty * n + cx;
  s.SpostamentoEstrattoY = -tx * n + ty * c + cy;
  s.RotazioneEstratto += gon;
  RiGeneraEDM(s);
}

void CaricaEstratto(Sessione& s) {
  // The job's own settings name its extract; a job with none has none.
  if (!s.Edizione.empty()) LeggiParametriEstratto(s);
  CaricaEMP(s);
  CaricaPNG(s);
  RiGeneraEDM(s);
}

void RigeneraRigaEstratto(Sessione& s, int32_t riga) {
  if (riga < 0 || static_cast<size_t>(riga) >= s.ElementiEstratto.size()) return;
  const ElementoEstratto& e = s.ElementiEstratto[static_cast<size_t>(riga)];
  RecordDisegno r;
  r.Tipo = SlotEdm;
  r.Riga = riga;
  r.X1 = e.X1, r.Y1 = e.Y1, r.X2 = e.X2, r.Y2 = e.Y2;
  r.Colore = ColoreVisibile(s, e.Penna);
  r.Penna = static_cast<int16_t>(std::clamp<int32_t>(e.Penna, -32768, 32767));
  r.Primitiva = e.Primitiva;
  r.Tratto = e.Tratto;
  r.Spessore = e.Spessore;
  r.Altezza = e.Altezza;
  r.Rotazione = e.Rotazione;
  r.Testo = e.Testo;
  r.Font = e.Font;
  r.Piano = "ESTRATTO";
  s.ListaDisegno.Aggiungi(r);
}

void DisegnaImmagineEstratto(const Sessione& s, Superficie& sup) {
  if (s.EstrattoImmagineCongelata == 1 || s.PercorsoImmagineEstratto.empty()) return;
  double x0 = s.OrigineEstrattoX, y0 = s.OrigineEstrattoY;
  PosizioneSpostata(s, x0, y0);
  x0 -= s.Vista.CentroEst, y0 -= s.Vista.CentroNord;
  sup.Immagine(s.PercorsoImmagineEstratto, static_cast<float>(x0), static_cast<float>(y0),
               static_cast<float>(x0 + s.ScalaEstratto * s.LarghezzaPixel),
               static_cast<float>(y0 - s.ScalaEstratto * s.AltezzaPixel));
}

void LeggiParametriEstratto(Sessione& s) {
  std::vector<std::string> campi = Dividi(s.Cfg.VB(B_Parametri, 0).Testo, '|');
  ParametriEstratto p;
  p.Nome = Rifila(CampoParametri(campi, kPNome));
  p.Congelato = InteroCorto(Val(CampoParametri(campi, kPCongelato)));
  p.Immagine = Rifila(CampoParametri(campi, kPImmagine));
  p.ImmagineCongelata = InteroCorto(Val(CampoParametri(campi, kPImmagineCongelata)));
  p.Colore = InteroLungo(Val(CampoParametri(campi, kPColore)));
  p.SpostamentoX = Val(CampoParametri(campi, kPSpostamentoX));
  p.SpostamentoY = Val(CampoParametri(campi, kPSpostamentoY));
  p.Rotazione = Val(CampoParametri(campi, kPRotazione));
  s.ParametriLetti = p;
  s.SpostamentoEstrattoX = p.SpostamentoX, s.SpostamentoEstrattoY = p.SpostamentoY, s.RotazioneEstratto = p.Rotazione;
  s.FileEstratto = p.Nome;
  s.FileImmagineEstratto = p.Immagine;
  s.EstrattoCongelato = p.Congelato;
  s.EstrattoImmagineCongelata = p.ImmagineCongelata;
  s.ColoreEstratto = p.Colore;
}

void ScriviParametriEstratto(Sessione& s) {
  ParametriEstratto p = ParametriAttuali(s);
  // The freezes a missing file forced are not the user's: a file found again shows as it
  // was left.
  if (s.TestoEstratto.empty()) p.Congelato = s.ParametriLetti.Congelato;
  if (s.PercorsoImmagineEstratto.empty()) p.ImmagineCongelata = s.ParametriLetti.ImmagineCongelata;
  if (p == s.ParametriLetti) return;
  std::string& testo = s.Cfg.VB(B_Parametri, 0).Testo;
  std::vector<std::string> campi = Dividi(testo, '|');
  if (campi.empty() || Rifila(campi[0]).empty()) CampoParametri(campi, 0) = "7";
  CampoParametri(campi, kPNome) = p.Nome;
  CampoParametri(campi, kPCongelato) = std::to_string(p.Congelato);
  CampoParametri(campi, kPImmagine) = p.Immagine;
  CampoParametri(campi, kPImmagineCongelata) = std::to_string(p.ImmagineCongelata);
  CampoParametri(campi, kPColore) = std::to_string(p.Colore);
  CampoParametri(campi, kPOrigineX) = FormaSemplice(s.OrigineEstrattoX);
  CampoParametri(campi, kPOrigineY) = FormaSemplice(s.OrigineEstrattoY);
  CampoParametri(campi, kPScala) = FormaSemplice(s.ScalaEstratto);
  CampoParametri(campi, kPSpostamentoX) = FormaSemplice(p.SpostamentoX);
  CampoParametri(campi, kPSpostamentoY) = FormaSemplice(p.SpostamentoY);
  CampoParametri(campi, kPRotazione) = FormaSemplice(p.Rotazione);
  testo.clear();
  for (size_t k = 0; k < campi.size(); ++k) testo += (k ? "|" : "") + campi[k];
  s.ParametriLetti = p;
}

}  // namespace varena
