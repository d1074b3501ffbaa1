// The plot stream written from the display list and the points, the page loop and the
// thickness table of the plot.
#include "output/FlussoStampa.h"

#include <algorithm>
#include <cmath>

#include "cadastre/CodiciPunto.h"
#include "core/AltreImpostazioni.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Convenzioni.h"
#include "view/Rigenera.h"
#include "view/StiliLinea.h"

namespace varena {

namespace {

constexpr const char* kMascheraLinea = "##########0.000";
constexpr const char* kMascheraPunto = "#########0.000";

// The thickness of a colour on paper, in the table's tenths; 0 hides the colour.
double SpessoreCarta(const Sessione& s, int32_t colore) {
  if (colore < 0 || colore > kMassimoSpessori) return 0.1;
  return static_cast<double>(s.Spessori.Spessore[static_cast<size_t>(colore)]) / 10.0;
}

// What a page needs while its records are written: the window's centre and box, and the
// records so far.
struct Pagina {
  Sessione& s;
  ScrittoreFlusso& w;
  double Ce, Cn;                         // world coordinates of the page's centre
  double XMin, YMin, XMax, YMax;         // world box of the page
  int32_t UltimoCerchio = -1;            // the circle whose record was written last
  std::string M(double v, const char* maschera = kMascheraLinea) const { return FormatoMaschera(v, maschera); }

  void Linea(double x1, double y1, double x2, double y2, double spessore) {
    w.Record({"L", M(x1 - Ce), M(y1 - Cn), M(x2 - Ce), M(y2 - Cn), FormaSemplice(spessore)});
  }
  void Cerchio(double x, double y, double r, double spessore) {
    w.Record({"C", M(x - Ce, kMascheraPunto), M(y - Cn, kMascheraPunto), M(r, "#########0.00"), FormaSemplice(spessore)});
  }
  bool Fuori(double x1, double y1, double x2, double y2) const {
    return std::max(x1, x2) < XMin || std::min(x1, x2) > XMax || std::max(y1, y2) < YMin || std::min(y1, y2) > YMax;
  }
};

// A line with its line type as the strokes of its pattern that may touch the page.
void ScriviMotivo(Pagina& p, const MotivoLinea& m, double spessore) {
  const StileLinea stile = StileDi(p.s, m.Tratteggio);
  if (m.Arco) {
    const PercorsoArco percorso(m.X1, m.Y1, m.Raggio, m.Inizio, m.Ampiezza, stile);
    const double margine = percorso.Massimo();
    double tratti[3][2];
    const int n = percorso.Dentro(p.XMin - margine, p.YMin - margine, p.XMax + margine, p.YMax + margine, tratti);
    for (int t = 0; t < n; ++t)
      percorso.Pezzi(tratti[t][0] - margine, tratti[t][1] + margine, [&](const TrattoArco& c) {
        if (!p.Fuori(c.X1, c.Y1, c.X2, c.Y2)) p.Linea(c.X1, c.Y1, c.X2, c.Y2, spessore);
      });
    return;
  }
  const PercorsoMotivo percorso(m.X1, m.Y1, m.X2, m.Y2, stile);
  if (percorso.Come() == PercorsoMotivo::Modo::Nulla) return;
  const double margine = percorso.Massimo();
  double da = 0, a = 0;
  if (!percorso.Dentro(p.XMin - margine, p.YMin - margine, p.XMax + margine, p.YMax + margine, da, a)) return;
  percorso.Pezzi(da - margine, a + margine, [&](const Tratto& t) {
    if (!p.Fuori(t.X1, t.Y1, t.X2, t.Y2)) p.Linea(t.X1, t.Y1, t.X2, t.Y2, spessore);
  });
}

bool CerchioPieno(const Sessione& s, int32_t riga) {
  if (riga < 0 || riga >= s.ContaEntita[SlotCerchi]) return false;
  const auto r = static_cast<size_t>(riga);
  const PercorsoArco percorso(s.CerchioX[r], s.CerchioY[r], s.CerchioRaggio[r], 0, 2 * PiGreco,
                              StileDi(s, s.CerchioTratteggio[r]));
  return percorso.Come() == PercorsoArco::Modo::Corde;
}

void ScriviRecordLista(Pagina& p, int64_t i) {
  const ElencoDisegno& l = p.s.ListaDisegno;
  const auto k = static_cast<size_t>(i);
  // A colour that is not painted on screen is not plotted either.
  ColoreRGB rgb = 0;
  if (!ColoreDaIndice(p.s, l.Colore[k], rgb)) return;
  const double spessore = SpessoreCarta(p.s, l.Penna[k]);
  if (!(spessore > 0)) return;
  // A plain circle, which the list holds as its chords, is one record the spooler draws
  // round: written at the first of its chords, the others passed over.
  if (l.Tipo[k] == SlotCerchi && CerchioPieno(p.s, l.Riga[k])) {
    const auto r = static_cast<size_t>(l.Riga[k]);
    if (l.Riga[k] != p.UltimoCerchio) p.Cerchio(p.s.CerchioX[r], p.s.CerchioY[r], p.s.CerchioRaggio[r], spessore);
    p.UltimoCerchio = l.Riga[k];
    return;
  }
  switch (l.Primitiva[k]) {
    case PrimLinea:
      if (!p.Fuori(l.X1[k], l.Y1[k], l.X2[k], l.Y2[k])) p.Linea(l.X1[k], l.Y1[k], l.X2[k], l.Y2[k], spessore);
      break;
    case PrimMotivo:
      if (const MotivoLinea* m = l.Motivo(i)) ScriviMotivo(p, *m, spessore);
      break;
    case PrimCerchio: p.Cerchio(l.X1[k], l.Y1[k], l.Altezza[k], spessore); break;
    case PrimTesto: {
      // The angle in degrees clockwise, as the spooler turns its texts.
      // Plus 0 so that an upright text writes 0.000, not the minus of a negative zero.
      const double angolo = -(static_cast<double>(l.Rotazione[k]) / 400.0 * 360.0) + 0.0;
      const std::string& font = l.Font(i).empty() ? std::string("Courier New") : l.Font(i);
      p.w.Record({"TT", l.Testo(i), p.M(l.X1[k] - p.Ce), p.M(l.Y1[k] - p.Cn), p.M(angolo), font,
                  p.M(l.Altezza[k]), std::to_string(l.Penna[k])});
      break;
    }
    default: break;
  }
}

void ScriviImmagine(Pagina& p, int32_t riga) {
  const Sessione& s = p.s;
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.BitmapIdent[r]) || s.BitmapCongela[r] != 0) return;
  const double l = s.BitmapLarghezza[r] * s.BitmapScalaLar[r], a = s.BitmapAltezza[r] * s.BitmapScalaAlt[r];
  p.w.Record({"IM", p.M(s.BitmapX[r] - p.Ce), p.M(s.BitmapY[r] - p.Cn), p.M(l), p.M(a), s.BitmapNomeFile[r]});
}

// A share of the view, as label and symbol sizes are given when negative.
double Misura(const Sessione& s, double valore) {
  return valore < 0 ? std::fabs(valore) * s.Vista.AltezzaVista / 100.0 : valore;
}

// One label of a point: its top left corner where the screen prints it, lifted one line of
// 1.5 h when h is given in metres.
void ScriviEtichetta(Pagina& p, const char* tag, double x, double y, double h, const std::string& testo,
                     const std::string& font, int32_t colore) {
  if (testo.empty() || !(SpessoreCarta(p.s, colore) > 0)) return;
  const double ys = h >= 0 ? y + 1.5 * h : y;
  p.w.Record({tag, testo, p.M(x, kMascheraPunto), p.M(ys, kMascheraPunto), font, p.M(std::fabs(h), kMascheraPunto),
              std::to_string(colore)});
}

void ScriviSimbolo(Pagina& p, int32_t riga, double dimensione) {
  const Sessione& s = p.s;
  const auto r = static_cast<size_t>(riga);
  const double spessore = SpessoreCarta(s, s.PuntoColoreSimbolo[r]);
  if (!(spessore > 0)) return;
  thread_local std::vector<ElementoSimbolo> elementi;
  elementi.clear();
  ScomponiSimboloPunto(s.Simboli, s.PuntoSimbolo[r], dimensione, true, elementi);
  const double x = s.PuntoX[r], y = s.PuntoY[r];
  for (const ElementoSimbolo& e : elementi) {
    switch (e.Tipo) {
      case ElementoSimbolo::Linea: p.Linea(x + e.A, y + e.B, x + e.C, y + e.D, spessore); break;
      case ElementoSimbolo::Cerchio: p.Cerchio(x + e.A, y + e.B, e.C, spessore); break;
      case ElementoSimbolo::Riquadro: {
        const double x1 = x + e.A - e.C, y1 = y + e.B - e.C, x2 = x + e.A + e.C, y2 = y + e.B + e.C;
        p.Linea(x1, y1, x2, y1, spessore);
        p.Linea(x2, y1, x2, y2, spessore);
        p.Linea(x2, y2, x1, y2, spessore);
        p.Linea(x1, y2, x1, y1, spessore);
        break;
      }
      case ElementoSimbolo::Punto: break;
      case ElementoSimbolo::Arco: {
        // The plot has no arc record: a symbol's arc goes as its chords, as a plain arc does.
        thread_local std::vector<TrattoArco> corde;
        corde.clear();
        EspandiArco(x + e.A, y + e.B, e.C, e.D, e.E, StileLinea{}, corde);
        for (const TrattoArco& t : corde) p.Linea(t.X1, t.Y1, t.X2, t.Y2, spessore);
        break;
      }
    }
  }
}

// A point as the screen paints it: the symbol, the leader to a moved label, then name,
// height and description one under the other, the frozen ones skipped (and the height of a
// planimetric point).
void ScriviPunto(Pagina& p, int32_t riga) {
  Sessione& s = p.s;
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.PuntoIdent[r])) return;
  const double dimensione = Misura(s, s.PuntoDimensioneSimbolo[r]);
  if (s.PuntoCongelaSimbolo[r] == 0) ScriviSimbolo(p, riga, dimensione);
  const double x = s.PuntoX[r] - p.Ce, y0 = s.PuntoY[r] - p.Cn;
  const double xn = x + s.PuntoSpoX[r] + dimensione / 2;
  double y = y0 + s.PuntoSpoY[r];
  const std::string& font = s.PuntoFont[r];
  auto h = [&s](double v) { return v < 0 ? -Misura(s, v) : v; };
  bool primo = true;
  if (s.PuntoCongelaNome[r] == 0 && s.Imp.MostraNome != 0) {
    if (s.Imp.CollegaPuntoSimbolo == 1 && (s.PuntoSpoX[r] != 0 || s.PuntoSpoY[r] != 0)) {
      const double spessore = SpessoreCarta(s, s.PuntoColoreNome[r]);
      if (spessore > 0)
        p.w.Record({"CN", p.M(x), p.M(y0), p.M(x + s.PuntoSpoX[r]), p.M(y0 + s.PuntoSpoY[r]), FormaSemplice(spessore)});
    }
    ScriviEtichetta(p, "PN", xn, y, h(s.PuntoDimensioneNome[r]), s.PuntoNome[r], font, s.PuntoColoreNome[r]);
    primo = false;
  }
  if (s.PuntoCongelaQuota[r] == 0 && s.Imp.MostraQuota != 0 && !HaCodice(s.PuntoDescrizione[r], kCodicePlanimetrico)) {
    const double hq = h(s.PuntoDimensioneQuota[r]);
    if (!primo) y -= 1.5 * std::fabs(hq);
    const double valore = s.ModoQuota == 1 ? s.QuotaRiferimento - s.PuntoZ[r] : s.PuntoZ[r];
    ScriviEtichetta(p, "PQ", xn, y, hq, Rifila(FormatoMaschera(valore, "#########0.")), font, s.PuntoColoreQuota[r]);
    primo = false;
  }
  if (s.PuntoCongelaDescrizione[r] == 0 && s.Imp.MostraDescrizione != 0) {
    const double hd = h(s.PuntoDimensioneDescrizione[r]);
    if (!primo) y -= 1.5 * std::fabs(hd);
    const int32_t colore = s.PuntoColoreDescrizione[r] > 257 ? 1 : s.PuntoColoreDescrizione[r];
    ScriviEtichetta(p, "PD", xn, y, hd, s.PuntoDescrizione[r], font, colore);
  }
}

}  // namespace

void ScrittoreFlusso::Record(std::initializer_list<std::string_view> campi) {
  const size_t inizio = testo_.size();
  bool primo = true;
  for (std::string_view c : campi) {
    if (!primo) testo_ += '|';
    testo_ += c;
    primo = false;
  }
  for (size_t i = inizio; i < testo_.size(); ++i) {
    if (testo_[i] == ',') testo_[i] = '.';
  }
  for (size_t i = inizio; i < testo_.size(); ++i) {
    if (testo_[i] == '|') testo_[i] = ',';
  }
  testo_ += "\r\n";
}

double FinestraStampa::PaginaLarghezza() const { return std::fabs(X2 - X1); }
double FinestraStampa::PaginaAltezza() const { return Y2 - Y1; }

std::string PercorsoFlussoStampa(const Sessione& s) { return s.CartellaProgramma + "/stampe.vr"; }

std::string FlussoPagina(Sessione& s, const FinestraStampa& f) {
  ScrittoreFlusso w;
  const double altezza = std::fabs(f.PaginaAltezza()), larghezza = f.PaginaLarghezza();
  Pagina p{s, w, (f.X1 + f.X2) / 2, (f.Y1 + f.Y2) / 2, 0, 0, 0, 0, -1};
  p.XMin = p.Ce - larghezza / 2, p.XMax = p.Ce + larghezza / 2;
  p.YMin = p.Cn - altezza / 2, p.YMax = p.Cn + altezza / 2;
  // The page is the view while it is plotted: sizes given as a share of the view are
  // shares of the page.
  // Given back however the page ends, a failure of memory included.
  struct RipristinaVista {
    Sessione& s;
    const double e, n, h;
    ~RipristinaVista() { s.Vista.CentroEst = e, s.Vista.CentroNord = n, s.Vista.AltezzaVista = h; }
  } ripristina{s, s.Vista.CentroEst, s.Vista.CentroNord, s.Vista.AltezzaVista};
  s.Vista.CentroEst = p.Ce, s.Vista.CentroNord = p.Cn, s.Vista.AltezzaVista = altezza;
  w.Record({"SCALA", FormaSemplice(altezza)});
  for (int32_t r = 0; r < s.ContaEntita[SlotBitmap]; ++r)
    if (r != s.ImmagineInCima) ScriviImmagine(p, r);
  if (s.ImmagineInCima >= 0 && s.ImmagineInCima < s.ContaEntita[SlotBitmap]) ScriviImmagine(p, s.ImmagineInCima);
  std::vector<int64_t> vicini;
  s.IndiceLista.Cerca(p.XMin, p.YMin, p.XMax, p.YMax, vicini);
  for (int64_t i : vicini)
    if (i < s.ListaDisegno.Conta()) ScriviRecordLista(p, i);
  for (int64_t i = s.IndiceLista.Elementi(); i < s.ListaDisegno.Conta(); ++i) ScriviRecordLista(p, i);
  // A point just off the page may still have its labels on it: half a page of margin.
  vicini.clear();
  s.IndicePunti.Cerca(p.XMin - larghezza / 2, p.YMin - altezza / 2, p.XMax + larghezza / 2, p.YMax + altezza / 2, vicini);
  for (int64_t i : vicini)
    if (i < s.ContaEntita[SlotPunti]) ScriviPunto(p, static_cast<int32_t>(i));
  for (int64_t i = s.IndicePunti.Elementi(); i < s.ContaEntita[SlotPunti]; ++i) ScriviPunto(p, static_cast<int32_t>(i));
  return std::move(w.Testo());
}

bool GeneraPagina(Sessione& s, const FinestraStampa& f) {
  if (s.ModoStampa != 5) return false;
  s.RoutineCorrente = "GeneraPagina";
  return Protetto(s, [&] { ScriviByte(PercorsoFlussoStampa(s), FlussoPagina(s, f)); });
}

bool LanciaPlotter(Sessione& s, const std::string& flusso) {
  const std::string plotter = s.CartellaProgramma + "/plotter.exe";
  if (!s.Proc || !EsisteFile(plotter)) return true;
  s.RoutineCorrente = "Shellwhite 1";
  return Protetto(s, [&] { s.Proc->Esegui(plotter, {flusso}, s.CartellaProgramma); });
}

namespace {

std::string DomandaPagina(const FinestraStampa& p) {
  auto m = [](double v) { return Rifila(FormatoMaschera(v, "#############0.##0")); };
  return "N= " + m(p.Y1) + " E = " + m(p.X1) + "\r\n" + "N= " + m(p.Y2) + " E= " + m(p.X2) + "\r\n" + "Inviare Stampa?";
}

}  // namespace

int PagineStampa(Sessione& s, const FinestraStampa& f, const std::function<bool(const FinestraStampa&)>& pagina) {
  const int colonne = InteroLungo(Val(s.Paginato.Colonne)), righe = InteroLungo(Val(s.Paginato.Righe));
  if (!s.Paginato.Attiva() || colonne < 1 || righe < 1) return pagina(f) ? 1 : 0;
  const double pl = f.PaginaLarghezza(), pa = f.PaginaAltezza();
  const double cx = (f.X1 + f.X2) / 2 - colonne * pl / 2, cy = (f.Y1 + f.Y2) / 2 - righe * pa / 2;
  // In 64 bits: a file may ask for more pages than an int counts.
  const int64_t totale = static_cast<int64_t>(colonne) * righe;
  int inviate = 0;
  int64_t indice = 0;
  for (int r = 0; r < righe; ++r) {
    for (int c = 0; c < colonne; ++c) {
      FinestraStampa p;
      p.X1 = c * pl + cx, p.Y1 = r * pa + cy;
      p.X2 = p.X1 + pl, p.Y2 = p.Y1 + pa;
      ++indice;
      const Risposta risposta =
          s.Ui->Domanda(DomandaPagina(p), "Pagina " + std::to_string(indice) + " / " + std::to_string(totale),
                        Bottoni::SiNoAnnulla, Icona::Domanda, Risposta::Si);
      if (risposta == Risposta::Annulla) return inviate;
      if (risposta != Risposta::Si) continue;
      if (!pagina(p)) return inviate;
      ++inviate;
    }
  }
  return inviate;
}

int StampaPaginata(Sessione& s, const FinestraStampa& f, const Spooler& spooler) {
  const int inviate =
      PagineStampa(s, f, [&](const FinestraStampa& p) { return GeneraPagina(s, p) && spooler(PercorsoFlussoStampa(s)); });
  s.ModoStampa = 0;
  return inviate;
}

void AnteprimaStampa(Sessione& s) {
  const StatoVista& v = s.Vista;
  const double l = v.AltezzaVista * v.RapportoVista / 2, h = v.AltezzaVista / 2;
  LeggiStampaPaginato(s);
  s.ModoStampa = 5;
  StampaPaginata(s, {v.CentroEst - l, v.CentroNord - h, v.CentroEst + l, v.CentroNord + h},
                 [&s](const std::string& flusso) { return LanciaPlotter(s, flusso); });
}

void ScriviSpessoriDaGriglia(Sessione& s, const std::vector<std::vector<std::string>>& righe) {
  s.RoutineCorrente = "FormSelezSpessore";
  std::string testo;
  for (size_t r = 0; r < righe.size() && r < static_cast<size_t>(kMassimoSpessori); ++r) {
    const auto& celle = righe[r];
    float& spessore = s.Spessori.Spessore[r + 1];
    for (size_t c = 2; c < celle.size(); ++c) {
      if (Rifila(celle[c]) == "X") {
        spessore = static_cast<float>(c - 2);
        break;
      }
    }
    testo += FormaSemplice(spessore) + "\r\n";
  }
  s.Spessori.Letti = static_cast<int>(std::min<size_t>(righe.size(), kMassimoSpessori));
  Protetto(s, [&] { ScriviTesto(PercorsoSpessori(s), testo); });
}

}  // namespace varena
