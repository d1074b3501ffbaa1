// The DXF writer and its options.
#include "exchange/DxfScrittura.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "cadastre/CodiciPunto.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/ImpostazioniUtente.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "view/Rigenera.h"
#include "view/StiliLinea.h"

namespace varena {

namespace {

bool DaFile(const std::string& campo) { return Maiuscolo(Rifila(campo)) == "DA FILE"; }

// The file as it grows: every line ended by CR LF, texts in the code page.
class Uscita {
 public:
  explicit Uscita(std::string& b) : b_(b) {}
  Uscita& R(std::string_view riga) {
    bool ascii = true;
    for (char c : riga) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    if (ascii)
      b_.append(riga);
    else
      b_.append(Utf8InCp1252(riga));
    b_.append("\r\n");
    return *this;
  }
  // The plain form: no blanks, at most 15 significant digits.
  Uscita& N(double v) {
    char buf[40];
    if (!std::isfinite(v) || v == 0.0) {
      b_.append("0\r\n");
      return *this;
    }
    const auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 15);
    b_.append(buf, r.ptr).append("\r\n");
    return *this;
  }
  // The print form: " 5 ", "-5 ".
  Uscita& S(double v) { return R(FormaStampa(v)); }

 private:
  std::string& b_;
};

class Scrittore {
 public:
  Scrittore(const Sessione& s, const OpzioniDxfOut& o, std::string& b) : s_(s), o_(o), u_(b) {
    decimali_ = std::max(0, s.DecimaliQuota);
    altezzaDefault_ = Val(o.Text1[9]);
  }
  void Tutto();

 private:
  void Punto(size_t i);
  void Etichetta(const std::string& piano, int32_t colore, double x, double y, double z, double h,
                 const std::string& testo);
  std::string PianoEtichetta(size_t i, int campo, const char* suffisso, const char* parola) const;
  double Altezza(double d) const { return d < 0 ? altezzaDefault_ : d; }
  void Simbolo(size_t i);
  void SimboloUtente(size_t i);
  void LineaDXF(double x1, double y1, double z1, double x2, double y2, double z2, const std::string& piano);
  void CerchioDXF(double x, double y, double r, const std::string& piano);
  std::string PianoEntita(const std::string& piano, int32_t colore, int tratteggio, bool conTratteggio) const;
  void Linee();
  void Cerchi();
  void Archi();
  void Testi();
  void Curve();
  void Falde();
  void Lista();
  void Font() {
    if (!o_.Font.empty()) u_.S(7).R(o_.Font);
  }

  const Sessione& s_;
  const OpzioniDxfOut& o_;
  Uscita u_;
  int decimali_ = 0;
  double altezzaDefault_ = 0;
  double ultimaHq_ = 0;  // the height label of the last point that had one
};

void Scrittore::Tutto() {
  u_.R(" 0").R("SECTION").R(" 2").R("ENTITIES");
  for (size_t i = 0; i < static_cast<size_t>(s_.ContaEntita[SlotPunti]); ++i)
    if (IdentVivo(s_.PuntoIdent[i])) Punto(i);
  Linee();
  Cerchi();
  Archi();
  Testi();
  if (o_.Curve && s_.ContaEntita[SlotCurve] > 3) Curve();
  Falde();
  Lista();
  u_.R("  0").R("ENDSEC").R("  0").R("EOF");
}

std::string Scrittore::PianoEtichetta(size_t i, int campo, const char* suffisso, const char* parola) const {
  std::string p;
  if (o_.PianiSemplificati)
    p = parola;
  else if (o_.DescrizioniPiani)
    p = Maiuscolo(Rifila(s_.PuntoDescrizione[i])) + suffisso;
  else if (DaFile(o_.Text1[static_cast<size_t>(campo)]))
    p = Rifila(s_.PuntoPiano[i]) + suffisso;
  else
    p = Rifila(o_.Text1[static_cast<size_t>(campo)]) + suffisso;
  return PulisciPianoDxf(p);
}

void Scrittore::Etichetta(const std::string& piano, int32_t colore, double x, double y, double z, double h,
                          const std::string& testo) {
  u_.R(" 0").R("TEXT").R(" 8").R(piano).R("62").N(colore).R(" 10").N(x).R(" 20").N(y);
  if (o_.TreD) u_.R(" 30").N(z);
  u_.R(" 40").N(h);
  Font();
  u_.R(" 1").R(testo);
}

void Scrittore::Punto(size_t i) {
  const double x = s_.PuntoX[i], y = s_.PuntoY[i], z = s_.PuntoZ[i];
  if (o_.Simboli) {
    u_.R(" 0").R("POINT").R(" 8").R(PianoEtichetta(i, 1, "_S", "PUNTI")).R("62").N(s_.PuntoColoreSimbolo[i]);
    u_.R(" 10").N(x).R(" 20").N(y);
    if (o_.TreD) u_.R(" 30").N(z);
  }
  if (!o_.EscludiSimboli) Simbolo(i);
  const double xe = x + s_.PuntoSpoX[i], ye = y + s_.PuntoSpoY[i];
  if (o_.Nomi)
    Etichetta(PianoEtichetta(i, 0, "_N", "NOMI"), s_.PuntoColoreNome[i], xe, ye, z,
              Altezza(s_.PuntoDimensioneNome[i]), " " + s_.PuntoNome[i]);
  if (o_.Quote) {
    ultimaHq_ = Altezza(s_.PuntoDimensioneQuota[i]);
    std::string piano = PianoEtichetta(i, 2, "_Q", "QUOTE");
    if (o_.PuntiPlanimetrici && HaCodice(s_.PuntoDescrizione[i], kCodicePlanimetrico))
      piano = "PUNTO_PLANIMETRICO";
    const double valore = s_.ModoQuota == 1 ? s_.QuotaRiferimento - z : z;
    const std::string testo = VirgolaInPunto(FormatoMaschera(valore, "#########0." + std::string(static_cast<size_t>(decimali_), '0')));
    Etichetta(piano, s_.PuntoColoreQuota[i], xe, o_.Coincidenti ? ye : ye - 1.3 * ultimaHq_, z, ultimaHq_,
              " " + testo);
  }
  if (o_.Descrizioni) {
    const double hd = Altezza(s_.PuntoDimensioneDescrizione[i]);
    Etichetta(PianoEtichetta(i, 3, "_D", "DESCRIZIONI"), s_.PuntoColoreDescrizione[i], xe,
              o_.Coincidenti ? ye : ye - (1.3 * hd + 1.3 * ultimaHq_), z, hd,
              " " + PulisciCodici(s_.PuntoDescrizione[i]));
  }
}

void Scrittore::LineaDXF(double x1, double y1, double z1, double x2, double y2, double z2, const std::string& piano) {
  u_.R(" 0").R("LINE").R(" 8").R(piano).R(" 10").N(x1).R(" 20").N(y1);
  if (o_.TreD) u_.R(" 30").N(z1);
  u_.R(" 11").N(x2).R(" 21").N(y2);
  if (o_.TreD) u_.R(" 31").N(z2);
}

void Scrittore::CerchioDXF(double x, double y, double r, const std::string& piano) {
  u_.R(" 0").R("CIRCLE").R(" 8").R(piano).R(" 10").N(x).R(" 20").N(y).R(" 40").N(r);
}

// `SimboloDXF`: the decorations taken off the code one after the other, then the base.
void Scrittore::Simbolo(size_t i) {
  static const std::string piano = "SimboliPunto";
  int codice = s_.PuntoSimbolo[i];
  if (codice < 0) {
    SimboloUtente(i);
    return;
  }
  const double S = Altezza(s_.PuntoDimensioneSimbolo[i]);
  const double x = s_.PuntoX[i], y = s_.PuntoY[i], z = s_.PuntoZ[i];
  const double pi = 4 * std::atan(1.0);
  auto linea = [&](double x1, double y1, double x2, double y2) { LineaDXF(x1, y1, z, x2, y2, z, piano); };
  auto quadrato = [&] {
    const double h = S / 4;
    linea(x - h, y - h, x + h, y - h);
    linea(x + h, y - h, x + h, y + h);
    linea(x + h, y + h, x - h, y + h);
    linea(x - h, y + h, x - h, y - h);
  };
  if (codice > 90) {
    codice -= 96;
    quadrato();
    CerchioDXF(x, y, S / 4, piano);
  }
  if (codice > 60) {
    codice -= 64;
    quadrato();
  }
  if (codice > 40) {
    codice -= 42;
    for (int k = 0; k < 3; ++k) {
      const double a0 = 2 * pi / 3 * k, a1 = 2 * pi / 3 * (k + 1);
      linea(x + 0.4 * S * std::cos(a0), y + 0.4 * S * std::sin(a0), x + 0.4 * S * std::cos(a1),
            y + 0.4 * S * std::sin(a1));
    }
  }
  if (codice > 30) {
    codice -= 32;
    CerchioDXF(x, y, S / 4, piano);
  }
  switch (codice) {
    case 2:
      linea(x - S / 2, y, x + S / 2, y);
      linea(x, y - S / 2, x, y + S / 2);
      break;
    case 3:
      linea(x - S / 2, y - S / 2, x + S / 2, y + S / 2);
      linea(x - S / 2, y + S / 2, x + S / 2, y - S / 2);
      break;
    case 4: linea(x, y, x, y + S / 2); break;
    case 5:
      for (int k = 0; k < 8; ++k) linea(x, y, x + S / 2 * std::cos(pi / 4 * k), y + S / 2 * std::sin(pi / 4 * k));
      break;
    default: break;
  }
}

// `DisegnaPuntoProDXF`: a negative code is the user's symbol of that number, its lines,
// circles and arcs written as such on the layer of the symbols.
void Scrittore::SimboloUtente(size_t i) {
  static const std::string piano = "SimboliPunto";
  thread_local std::vector<ElementoSimbolo> elementi;
  elementi.clear();
  ScomponiSimboloUtente(s_.Simboli, -s_.PuntoSimbolo[i], Altezza(s_.PuntoDimensioneSimbolo[i]), 0, elementi);
  const double x = s_.PuntoX[i], y = s_.PuntoY[i], z = s_.PuntoZ[i];
  const double gradi = 45 / std::atan(1.0);
  for (const ElementoSimbolo& e : elementi) {
    if (e.Tipo == ElementoSimbolo::Linea) {
      LineaDXF(x + e.A, y + e.B, z, x + e.C, y + e.D, z, piano);
    } else if (e.Tipo == ElementoSimbolo::Cerchio) {
      CerchioDXF(x + e.A, y + e.B, e.C, piano);
    } else if (e.Tipo == ElementoSimbolo::Arco) {
      // DXF arcs run counter-clockwise from East in degrees: from the end's direction to the start's.
      u_.R(" 0").R("ARC").R(" 8").R(piano).R(" 10").N(x + e.A).R(" 20").N(y + e.B).R(" 40").N(e.C);
      u_.R(" 50").N(NelGiro(90 - (e.D + e.E) * gradi, 360)).R(" 51").N(NelGiro(90 - e.D * gradi, 360));
    }
  }
}

std::string Scrittore::PianoEntita(const std::string& piano, int32_t colore, int tratteggio,
                                   bool conTratteggio) const {
  std::string p = DaFile(o_.Text1[7]) ? piano : Rifila(o_.Text1[7]);
  if (o_.AssegnaColore) p = std::to_string(int64_t{colore} * 1000);
  if (o_.AssegnaTratteggio && conTratteggio) p += "-" + std::to_string(tratteggio);
  return PulisciPianoDxf(p);
}

void Scrittore::Linee() {
  std::vector<Tratto> pezzi;
  std::string ultimo, pulito;
  for (size_t i = 0; i < static_cast<size_t>(s_.ContaEntita[SlotLinee]); ++i) {
    if (!IdentVivo(s_.LineaIdent[i]) || s_.LineaCongela[i] != 0) continue;
    const std::string piano = PianoEntita(s_.LineaPiano[i], s_.LineaColore[i], s_.LineaTratteggio[i], true);
    const int t = s_.LineaTratteggio[i];
    const bool inclinato = t > 0 && t < kMassimoTratteggi && s_.Tratteggi.Stili[static_cast<size_t>(t)].AngoloElemento != 0;
    if (!inclinato) {
      const double z1 = o_.LineeSenzaQuota ? 0 : s_.LineaZ1[i], z2 = o_.LineeSenzaQuota ? 0 : s_.LineaZ2[i];
      u_.R(" 0").R("LINE").R(" 8").R(piano).R("62").N(s_.LineaColore[i]);
      u_.R(" 10").N(s_.LineaX1[i]).R(" 20").N(s_.LineaY1[i]);
      if (o_.TreD) u_.R(" 30").N(z1);
      u_.R(" 11").N(s_.LineaX2[i]).R(" 21").N(s_.LineaY2[i]);
      if (o_.TreD) u_.R(" 31").N(z2);
      continue;
    }
    // A line type with slanted strokes has no DXF form of its own: its strokes go out plain.
    pezzi.clear();
    EspandiLinea(s_.LineaX1[i], s_.LineaY1[i], s_.LineaX2[i], s_.LineaY2[i], StileDi(s_, t), pezzi);
    for (const Tratto& p : pezzi) LineaDXF(p.X1, p.Y1, s_.LineaZ1[i], p.X2, p.Y2, s_.LineaZ1[i], piano);
  }
}

void Scrittore::Cerchi() {
  for (size_t i = 0; i < static_cast<size_t>(s_.ContaEntita[SlotCerchi]); ++i) {
    if (!IdentVivo(s_.CerchioIdent[i]) || s_.CerchioCongela[i] != 0) continue;
    u_.S(0).R("CIRCLE").S(8).R(PianoEntita(s_.CerchioPiano[i], s_.CerchioColore[i], s_.CerchioTratteggio[i], true));
    u_.R("62").N(s_.CerchioColore[i]).S(10).N(s_.CerchioX[i]).S(20).N(s_.CerchioY[i]).S(40).N(s_.CerchioRaggio[i]);
  }
}

void Scrittore::Archi() {
  for (size_t i = 0; i < static_cast<size_t>(s_.ContaEntita[SlotArchi]); ++i) {
    if (!IdentVivo(s_.ArcoIdent[i]) || s_.ArcoCongela[i] != 0) continue;
    u_.S(0).R("ARC").S(8).R(PianoEntita(s_.ArcoPiano[i], s_.ArcoColore[i], s_.ArcoTratteggio[i], true));
    u_.R("62").N(s_.ArcoColore[i]).S(10).N(s_.ArcoX[i]).S(20).N(s_.ArcoY[i]).S(40).N(s_.ArcoRaggio[i]);
    // The clockwise arc from its start azimuth is the counter-clockwise one from its end.
    u_.S(50).N((100 - (s_.ArcoInizio[i] + s_.ArcoFine[i])) / 400 * 360);
    u_.S(51).N((100 - s_.ArcoInizio[i]) / 400 * 360);
  }
}

void Scrittore::Testi() {
  for (size_t i = 0; i < static_cast<size_t>(s_.ContaEntita[SlotTesti]); ++i) {
    if (!IdentVivo(s_.TestoIdent[i]) || s_.TestoCongela[i] != 0) continue;
    u_.S(0).R("TEXT").S(8).R(PianoEntita(s_.TestoPiano[i], s_.TestoColore[i], 0, false));
    u_.R("62").N(s_.TestoColore[i]).S(10).N(s_.TestoX[i]).S(20).N(s_.TestoY[i]).S(40).N(s_.TestoAltezza[i]);
    Font();
    u_.S(1).R(s_.TestoTesto[i]).S(50).N((400 - s_.TestoRotazione[i]) / 400 * 360);
  }
}

void Scrittore::Curve() {
  const size_t n = static_cast<size_t>(s_.ContaEntita[SlotCurve]);
  std::string piano;
  double quota = 0, colore = 0, ultimaX = 0, ultimaY = 0;
  bool testa = true;
  // The labels as the drawing shows them: the job's height and decimals.
  const int decimali = std::clamp(s_.Terreno.DecimaliCurve, 0, 9);
  const std::string maschera =
      decimali == 0 ? std::string("#########0") : "#########0." + std::string(static_cast<size_t>(decimali), '0');
  for (size_t i = 0; i < n; ++i) {
    if (testa) {
      quota = s_.CurvaX[i];
      colore = s_.CurvaY[i] < 0 ? 250 : s_.CurvaY[i];
      const std::string suffisso = FormatoMaschera(colore, "00");
      piano = PulisciPianoDxf((DaFile(o_.Text1[4]) ? std::string("Curve") : Rifila(o_.Text1[4])) + suffisso);
      u_.R(" 0").R("POLYLINE").R(" 8").R(piano).R("62").S(colore).R(" 66").R("     1");
      u_.R(" 10").S(0).R(" 20").S(0);
      if (o_.TreD) u_.R(" 30").S(quota);
      testa = false;
    } else {
      ultimaX = s_.CurvaX[i], ultimaY = s_.CurvaY[i];
      u_.R("0").R("VERTEX").R(" 8").R(piano).R("62").N(colore);
      u_.R(" 10").R(VirgolaInPunto(FormatoMaschera(ultimaX, "####0.0#####")));
      u_.R(" 20").R(VirgolaInPunto(FormatoMaschera(ultimaY, "####0.0#####")));
      if (o_.TreD) u_.R(" 30").N(quota);
    }
    if (s_.CurvaFlag[i] == 1) {
      testa = true;
      if (i + 1 < n) {
        u_.R(" 0").R("SEQEND").R(" 8").R("0");
        u_.S(0).R("TEXT").S(8).R(piano).R("62").N(colore).S(10).N(ultimaX).S(20).N(ultimaY).S(40).N(s_.Terreno.AltezzaEtichettaCurve);
        Font();
        u_.S(1).R(VirgolaInPunto(FormatoMaschera(quota, maschera))).S(50).S(0);
      }
    }
  }
  u_.R(" 0").R("SEQEND").R(" 8").R("0");
}

// `GeneraFaldeIn3DFace`: the fourth corner repeats the first; heights whatever the choice.
void Scrittore::Falde() {
  for (size_t i = 0; i < static_cast<size_t>(s_.ContaEntita[SlotFalde]); ++i) {
    if (s_.FaldaIdent[i] < 0) continue;
    u_.R(" 0").R("3DFACE").R(" 8").R("3DFACE");
    u_.R(" 10").N(s_.FaldaX1[i]).R(" 20").N(s_.FaldaY1[i]).R(" 30").N(s_.FaldaZ1[i]);
    u_.R(" 11").N(s_.FaldaX2[i]).R(" 21").N(s_.FaldaY2[i]).R(" 31").N(s_.FaldaZ2[i]);
    u_.R(" 12").N(s_.FaldaX3[i]).R(" 22").N(s_.FaldaY3[i]).R(" 32").N(s_.FaldaZ3[i]);
    u_.R(" 13").N(s_.FaldaX1[i]).R(" 23").N(s_.FaldaY1[i]).R(" 33").N(s_.FaldaZ1[i]);
  }
}

// What regeneration drew of the kinds that have no entity of their own here: hatches,
// sections, pictures, the map extract (and facets' labels).
void Scrittore::Lista() {
  const ElencoDisegno& l = s_.ListaDisegno;
  for (int64_t k = 0; k < l.Conta(); ++k) {
    const auto i = static_cast<size_t>(k);
    const int tipo = l.Tipo[i];
    if (tipo != SlotFalde && tipo != SlotSette && tipo != SlotSezioni && tipo != SlotBitmap && tipo != SlotEdm) continue;
    const std::string piano = PulisciPianoDxf(l.Piano(k));
    if (l.Primitiva[i] == PrimLinea) {
      u_.R(" 0").R("LINE").R(" 8").R(piano).R("62").N(l.Colore[i]).R(" 10").N(l.X1[i]).R(" 20").N(l.Y1[i]);
      if (o_.TreD) u_.R(" 30").S(0);
      u_.R(" 11").N(l.X2[i]).R(" 21").N(l.Y2[i]);
      if (o_.TreD) u_.R(" 31").S(0);
    } else if (l.Primitiva[i] == PrimTesto) {
      const double h = l.Altezza[i];
      u_.R(" 0").R("TEXT").R(" 8").R(piano).R("62").N(l.Colore[i]);
      if (l.Rotazione[i] == 0)
        u_.R(" 10").N(l.X1[i]).R(" 20").N(l.Y1[i] - 1.2 * h);
      else
        u_.R(" 10").N(l.X1[i] + 1.2 * h).R(" 20").N(l.Y1[i]);
      if (o_.TreD) u_.R(" 30").S(0);
      u_.R(" 40").N(h).S(7).R(l.Font(k)).R(" 1").R(l.Testo(k)).S(50).N(l.Rotazione[i] * 0.9);
    }
  }
}

}  // namespace

std::string PulisciPianoDxf(std::string_view piano) {
  std::string p = Rifila(piano);
  for (char& c : p)
    if (c == ',' || c == '.' || c == ' ' || c == '\\' || c == '/') c = '_';
  p = PulisciCodici(p);
  return p.empty() ? std::string("0") : p;
}

std::string TestoDxfOut(const Sessione& s, const OpzioniDxfOut& o) {
  std::string b;
  b.reserve(static_cast<size_t>(s.ContaEntita[SlotLinee]) * 160 + 4096);
  Scrittore(s, o, b).Tutto();
  return b;
}

bool DxfOut(Sessione& s, const OpzioniDxfOut& o, const std::string& percorso) {
  s.RoutineCorrente = " DxfOut";
  return Protetto(s, [&] { ScriviByte(percorso, TestoDxfOut(s, o)); });
}

void ApriDxF(Sessione& s, const std::string& percorso) {
  if (s.Proc) (void)s.Proc->Esegui("xdg-open", {percorso}, Cartella(percorso));
}

namespace {

struct Chiave {
  const char* nome;
  bool OpzioniDxfOut::*campo;
};
constexpr Chiave kChiavi[] = {
    {"CURVE", &OpzioniDxfOut::Curve},
    {"DESCRIZIONI-PIANI", &OpzioniDxfOut::DescrizioniPiani},
    {"DESCRIZIONI", &OpzioniDxfOut::Descrizioni},
    {"QUOTE", &OpzioniDxfOut::Quote},
    {"SIMBOLI", &OpzioniDxfOut::Simboli},
    {"NOMI", &OpzioniDxfOut::Nomi},
    {"SETUP", &OpzioniDxfOut::Coincidenti},
    {"PIANI_SEMPLIFICATI", &OpzioniDxfOut::PianiSemplificati},
    {"PUNTI_PLANIMETRICI", &OpzioniDxfOut::PuntiPlanimetrici},
    {"ESCLUDI_SIMBOLI", &OpzioniDxfOut::EscludiSimboli},
};

std::string Citato(std::string_view t) { return "\"" + std::string(t) + "\"\r\n"; }
std::string SenzaVirgolette(std::string t) {
  t = Rifila(t);
  if (t.size() >= 2 && t.front() == '"' && t.back() == '"') t = t.substr(1, t.size() - 2);
  return t;
}

}  // namespace

std::string PercorsoCfgDxf2000(const Sessione& s) { return s.CartellaProgramma + "/CFGDXF2000.ini"; }

OpzioniDxfOut LeggiOpzioniDxfOut(Sessione& s) {
  OpzioniDxfOut o;
  for (int k = 3; k <= 5; ++k)
    if (Val(LeggiImpostazioneUtente(s, "DXF_OUT", "OPTION" + std::to_string(k), "0")) != 0) o.Percorso = k;
  for (const Chiave& c : kChiavi) {
    const std::string v = Maiuscolo(Rifila(LeggiImpostazioneUtente(s, "DXF_OUT", c.nome, "0")));
    o.*c.campo = v == "1" || v == "TRUE" || v == "VERO";
  }
  o.FileName = LeggiImpostazioneUtente(s, "DXF_OUT", "FILENAME", "");
  const std::vector<std::string> r = RigheFile(PercorsoCfgDxf2000(s));
  if (r.size() >= 5) {
    o.Riservato = SenzaVirgolette(r[0]);
    o.TreD = Val(r[2]) == 1;
    o.Font = SenzaVirgolette(r[3]);
    o.LineeSenzaQuota = Val(r[4]) == 1;
    for (size_t k = 0; k < 9 && 5 + k < r.size(); ++k) o.Text1[k] = SenzaVirgolette(r[5 + k]);
  }
  return o;
}

void ScriviOpzioniDxfOut(Sessione& s, const OpzioniDxfOut& o) {
  for (int k = 3; k <= 5; ++k)
    ScriviImpostazioneUtente(s, "DXF_OUT", "OPTION" + std::to_string(k), o.Percorso == k ? "1" : "0");
  for (const Chiave& c : kChiavi) ScriviImpostazioneUtente(s, "DXF_OUT", c.nome, o.*c.campo ? "True" : "False");
  ScriviImpostazioneUtente(s, "DXF_OUT", "FILENAME", o.FileName);
  if (s.SolaLettura) return;
  std::string t = Citato(o.Riservato) + Citato(o.FileName) + (o.TreD ? "1" : "0") + "\r\n" + Citato(o.Font) +
                  (o.LineeSenzaQuota ? "1" : "0") + "\r\n";
  for (size_t k = 0; k < 9; ++k) t += Citato(Maiuscolo(o.Text1[k]));
  ScriviTesto(PercorsoCfgDxf2000(s), t);
}

}  // namespace varena
