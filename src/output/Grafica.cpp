// The preview control's model and its three exports.
#include "output/Grafica.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <limits>
#include <set>
#include <unordered_map>
#include <stdexcept>

#include "cadastre/Estratto.h"
#include "cadastre/Libretto.h"
#include "core/AltreImpostazioni.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/ImpostazioniUtente.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfScrittura.h"
#include "exchange/Incolla.h"
#include "output/FlussoStampa.h"

namespace varena {

namespace {

constexpr const char* kMaschera = "##########0.000";

std::string M(double v) { return VirgolaInPunto(FormatoMaschera(v, kMaschera)); }

// The layer of a point in the DXF by its class, the last letter of its kind.
const char* StratoPunto(const std::string& tipo) {
  const char classe = tipo.empty() ? 'P' : tipo.back();
  return classe == 'C' ? "RC" : classe == 'T' ? "RT" : "RP";
}

}  // namespace

void Grafica::LeggiOpzioni(Sessione& s) {
  auto si = [&s](const char* chiave) { return LeggiImpostazioneUtente(s, "CONFIGURA_GRAFICA1", chiave, "1") != "0"; };
  MostraNomi = si("NOMISINO"), MostraToponimi = si("TOPONIMISINO"), MostraPF = si("PFSINO");
}

void Grafica::ScriviOpzioni(Sessione& s) const {
  ScriviImpostazioneUtente(s, "CONFIGURA_GRAFICA1", "NOMISINO", MostraNomi ? "1" : "0");
  ScriviImpostazioneUtente(s, "CONFIGURA_GRAFICA1", "TOPONIMISINO", MostraToponimi ? "1" : "0");
  ScriviImpostazioneUtente(s, "CONFIGURA_GRAFICA1", "PFSINO", MostraPF ? "1" : "0");
}

bool Grafica::Visibile(const Punto& p) const { return MostraPF || !IniziaCon(Maiuscolo(p.Nome), "PF"); }

void Grafica::VR_ZoomTutto() {
  double x0 = std::numeric_limits<double>::infinity(), y0 = x0, x1 = -x0, y1 = -x0;
  auto estendi = [&](double x, double y) {
    x0 = std::min(x0, x), x1 = std::max(x1, x), y0 = std::min(y0, y), y1 = std::max(y1, y);
  };
  for (const Punto& p : punti_) estendi(p.Est, p.Nord);
  for (const Linea& l : linee_) estendi(l.X1, l.Y1), estendi(l.X2, l.Y2);
  for (const Nome& n : nomi_) estendi(n.Est, n.Nord);
  if (x0 > x1) return;
  CentroEst = (x0 + x1) / 2, CentroNord = (y0 + y1) / 2;
  // A tenth more than the content, so that nothing touches the border; a single point
  // gets a view of 10 m.
  const double altezza = std::max(y1 - y0, (x1 - x0) / (Rapporto > 0 ? Rapporto : 1)) * 1.1;
  Altezza = altezza > 0 ? altezza : 10;
}

void Grafica::VR_AggiungiPuntoGraf(double est, double nord, std::string_view nome, std::string_view tipo,
                                   int32_t colore) {
  const std::string t = Maiuscolo(Rifila(tipo));
  const bool noto = t.size() == 2 && std::string_view(kTipiPunto).find("|" + t + "|") != std::string_view::npos;
  punti_.push_back({est, nord, std::string(nome), noto ? t : "NP", colore});
}

bool Grafica::VR_AggiungiLineaGraf(std::string_view nome1, std::string_view nome2, int32_t tipo) {
  auto cerca = [this](std::string_view n) -> const Punto* {
    for (const Punto& p : punti_)
      if (p.Nome == n) return &p;
    return nullptr;
  };
  const Punto* a = cerca(nome1);
  const Punto* b = cerca(nome2);
  if (!a || !b) {
    MostraErrore("Punto non trovato: " + std::string(a ? nome2 : nome1));
    return false;
  }
  linee_.push_back({a->Est, a->Nord, b->Est, b->Nord, tipo});
  return true;
}

void Grafica::VR_AggiungiLineaGraf2Punti(double x1, double y1, double x2, double y2, int32_t tipo) {
  linee_.push_back({x1, y1, x2, y2, tipo});
}

void Grafica::VR_AggiungiNomeParticella(double est, double nord, std::string_view testo) {
  nomi_.push_back({est, nord, std::string(testo)});
}

void Grafica::VR_Clear() {
  punti_.clear();
  linee_.clear();
  nomi_.clear();
}

int Grafica::AggiungiGrafica(const std::vector<std::string>& righe) {
  int prese = 0;
  for (size_t i = 0; i < righe.size(); ++i) {
    const std::vector<std::string> c = Dividi(Rifila(righe[i]), '|');
    const std::string tipo = Rifila(c[0]);
    auto campo = [&c](size_t k) { return k < c.size() ? Rifila(c[k]) : std::string(); };
    // A coordinate must be a number: an empty or wordy field is an error of the row.
    auto numero = [&](size_t k, double& v) {
      const std::string t = VirgolaInPunto(campo(k));
      if (t.empty() || !(std::isdigit(static_cast<unsigned char>(t[0])) || t[0] == '-' || t[0] == '+' || t[0] == '.'))
        return false;
      v = Val(t);
      return std::isfinite(v);
    };
    double e = 0, n = 0;
    bool fatto = true;
    if (tipo == "%" || tipo == "*" || tipo == "#" || tipo == "PV") {
      fatto = numero(2, e) && numero(3, n);
      if (fatto) VR_AggiungiPuntoGraf(e, n, campo(1), tipo == "%" ? "NC" : tipo == "*" ? "NT" : "NP", 0);
      if (fatto && tipo == "PV") punti_.back().Tipo = "PV";
    } else if (tipo == "8") {
      fatto = numero(2, n) && numero(3, e);
      const std::string nome = campo(1);
      if (fatto) VR_AggiungiPuntoGraf(e, n, nome, IniziaCon(nome, "*") ? "NT" : "NP", 0);
    } else if (tipo == "@") {
      fatto = numero(2, e) && numero(3, n);
      if (fatto) VR_AggiungiNomeParticella(e, n, campo(1));
    } else if (tipo == "L") {
      fatto = VR_AggiungiLineaGraf(campo(1), campo(2));
      if (!fatto) Errori.pop_back();  // told once, as the row's error, below
    } else {
      continue;
    }
    if (fatto) {
      ++prese;
    } else {
      MostraErrore("AggiungiGrafica: riga " + std::to_string(i + 1) + " " + righe[i]);
    }
  }
  return prese;
}

void Grafica::ClicMouse(Sessione& s, double est, double nord) {
  if (TagMouse != tagPrima_) clicPrima_.reset(), tagPrima_ = TagMouse;
  if (TagMouse == "NUOVOPUNTO") {
    VR_AggiungiPuntoGraf(est, nord, std::to_string(punti_.size() + 1), "NP", 0);
  } else if (TagMouse == "PUNTOMEDIO") {
    if (clicPrima_) {
      const auto a = VR_IlPiuVicinoAlMouse(clicPrima_->first, clicPrima_->second), b = VR_IlPiuVicinoAlMouse(est, nord);
      if (a && b) {
        const Punto m = PuntoMedio(*a, *b);
        VR_AggiungiPuntoGraf(m.Est, m.Nord, std::to_string(punti_.size() + 1), "NP", 0);
      }
      clicPrima_.reset();
      return;
    }
  } else if (TagMouse == "CONTORNOROSSO" || TagMouse == "CONTORNONERO") {
    if (clicPrima_)
      VR_AggiungiLineaGraf2Punti(clicPrima_->first, clicPrima_->second, est, nord, TagMouse == "CONTORNOROSSO" ? 0 : 2);
    const std::string riga = "al punto  X= " + VirgolaInPunto(FormatoMaschera(est, "###########.000")) + "  Y= " +
                             VirgolaInPunto(FormatoMaschera(nord, "##########.000")) + "  Z=   0\r\n";
    s.RoutineCorrente = "CONTORNO";
    Protetto(s, [&] {
      NuovaCartella(s.CartellaLavoro + "TEMP");
      AggiungiTesto(s.CartellaLavoro + "TEMP/CONTORNO.TXT", riga);
    });
  } else {
    return;
  }
  clicPrima_ = std::make_pair(est, nord);
}

void Grafica::ApriCopiaInFile() { copia_.clear(); }

void Grafica::SalvaPuntoCopiaInFile(const Sessione& s, const Punto& p) {
  const char classe = p.Tipo.empty() ? 'P' : p.Tipo.back();
  const StilePunto& st = s.ConfiguraPunti.Classi[classe == 'C'                                  ? ClasseStazioni
                                                 : classe == 'T' || IniziaCon(Maiuscolo(p.Nome), "PF") ? ClassePF
                                                                                                        : ClassePunti];
  // A double quote would end the name's item early: it becomes a single one, as in the
  // field-book statements of the whole-job text.
  IstruzioneLista i;
  i.Testo("<PUNTO>").Testo(Sostituisci(p.Nome, "\"", "'"));
  i.Numero(st.ColNome).Numero(0).Numero(st.DimNome).Testo("");
  i.Numero(st.ColDescrizione).Numero(0).Numero(st.DimDescrizione);
  i.Numero(p.Est).Numero(p.Nord).Numero(0).Numero(0).Numero(0).Numero(0);
  i.Numero(st.Simbolo).Numero(st.ColSimbolo).Numero(0).Numero(st.DimSimbolo);
  i.Numero(st.ColQuota).Numero(0).Numero(st.DimQuota).Numero(0);
  i.Testo(s.PianoCorrente).Testo(st.Font).Numero(0).Numero(0);
  copia_ += i.Riga();
}

void Grafica::SalvaLineaCopiaInFile(const Sessione& s, const Linea& l) {
  IstruzioneLista i;
  i.Testo("<LINEA>").Numero(l.X1).Numero(l.Y1).Numero(0).Numero(l.X2).Numero(l.Y2).Numero(0);
  i.Numero(s.Imp.Colore_Default).Numero(s.Imp.Tratteggio_Default).Numero(0).Testo(s.PianoCorrente).Numero(0);
  copia_ += i.Riga();
}

bool Grafica::ChiudiCopiaInFile(Sessione& s) {
  s.RoutineCorrente = "VR_CopiaInFile";
  const bool fatto = Protetto(s, [&] {
    NuovaCartella(s.CartellaLavoro + "temp");
    ScriviTesto(PercorsoCopiaInFile(s), copia_);
  });
  copia_.clear();
  return fatto;
}

bool Grafica::VR_CopiaInFile(Sessione& s) {
  ApriCopiaInFile();
  for (const Punto& p : punti_)
    if (Visibile(p)) SalvaPuntoCopiaInFile(s, p);
  for (const Linea& l : linee_) SalvaLineaCopiaInFile(s, l);
  return ChiudiCopiaInFile(s);
}

bool Grafica::AggiungiPuntoAFile(Sessione& s, const Punto& p) {
  s.RoutineCorrente = "AggiungiPuntoAFile";
  const std::string prima = std::move(copia_);
  ApriCopiaInFile();
  SalvaPuntoCopiaInFile(s, p);
  const bool fatto = Protetto(s, [&] {
    NuovaCartella(s.CartellaLavoro + "temp");
    AggiungiTesto(PercorsoCopiaInFile(s), copia_);
  });
  copia_ = prima;
  return fatto;
}

namespace {

// The text of a file for a loader; none, with the error kept, when it is absent.
std::optional<std::string> TestoDaCaricare(Sessione& s, Grafica& g, const std::string& percorso) {
  std::optional<std::string> byte;
  if (!Protetto(s, [&] { byte = LeggiByte(percorso); })) return std::nullopt;
  if (!byte) g.MostraErrore(percorso + " Non è stato trovato!");
  if (!byte) return std::nullopt;
  return Cp1252InUtf8(*byte);
}

}  // namespace

bool Grafica::VR_CaricaXVR(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "VR_CaricaXVR";
  const std::optional<std::string> testo = TestoDaCaricare(s, *this, percorso);
  if (!testo) return false;
  const std::vector<std::string> righe = RigheTesto(*testo);
  for (size_t r = 0; r < righe.size(); ++r) {
    // One reader a row: a statement cut short must not take its items from the next.
    LettoreLista l(righe[r]);
    try {
      const std::string tag = l.Fine() ? std::string() : l.Elemento();
      if (tag != "<PUNTO>" && tag != "<LINEA>") continue;
      std::vector<double> v;
      std::string nome;
      if (tag == "<PUNTO>") {
        nome = l.Elemento();
        for (int k = 0; k < 7; ++k) l.Elemento();  // the attributes of the name and description
      }
      for (int k = 0; k < (tag == "<PUNTO>" ? 2 : 5); ++k) v.push_back(l.LeggiNumero());
      if (!std::all_of(v.begin(), v.end(), [](double x) { return std::isfinite(x); }))
        throw std::runtime_error("numero non valido");
      if (tag == "<PUNTO>") {
        VR_AggiungiPuntoGraf(v[0], v[1], nome, FinisceCon(Rifila(nome), "00") ? "NC" : "NP", 0);
      } else {
        VR_AggiungiLineaGraf2Punti(v[0], v[1], v[3], v[4]);
      }
    } catch (const std::exception&) {
      MostraErrore("VR_CaricaXVR: riga " + std::to_string(r + 1) + " " + righe[r]);
    }
  }
  VR_ZoomTutto();
  return true;
}

bool Grafica::VR_CaricaEstratto_EMP(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "VR_CaricaEstratto_EMP";
  const std::optional<std::string> testo = TestoDaCaricare(s, *this, percorso);
  if (!testo) return false;
  CaricaEstratto(*testo);
  return true;
}

void Grafica::CaricaEstratto(std::string_view testo) {
  // The vertices are the rows 8 of the field-book grammar; the sides and the labels as the
  // drawing of the extract makes them.
  std::vector<std::string> vertici;
  for (const std::string& riga : RigheTesto(testo))
    if (IniziaCon(Rifila(riga), "8|")) vertici.push_back(riga);
  AggiungiGrafica(vertici);
  for (const ElementoEstratto& e : LeggiEstratto(testo, 0, 0).Elementi) {
    if (e.Primitiva == 2) VR_AggiungiLineaGraf2Punti(e.X1, e.Y1, e.X2, e.Y2);
    if (e.Primitiva == 5) VR_AggiungiNomeParticella(e.X1, e.Y1, e.Testo);
  }
  VR_ZoomTutto();
}

namespace {

// The line letter of a contour's code as the kind of a line of the control; none when the
// field is not one of the nine codes.
std::optional<int32_t> TrattoCodice(const std::string& campo) {
  const std::string c = Maiuscolo(Rifila(campo));
  if (c.size() != 2 || std::string_view(Grafica::kTipiPunto).find("|" + c + "|") == std::string_view::npos)
    return std::nullopt;
  return c[1] == 'C' ? 0 : c[1] == 'T' ? 1 : 2;
}

}  // namespace

void Grafica::CaricaLibretto(const Sessione& s) {
  std::unordered_map<std::string, size_t> delLavoro;  // the first live point of each name
  for (size_t k = static_cast<size_t>(s.ContaEntita[SlotPunti]); k-- > 0;)
    if (s.PuntoIdent[k] == 0) delLavoro[s.PuntoNome[k]] = k;
  std::vector<std::string> righe;
  std::set<std::string> nomi;
  // A name the book uses, once, where the job has it: "%" a station, "#" another point.
  auto dalLavoro = [&](const std::string& nome, const char* marca) {
    const auto k = delLavoro.find(nome);
    if (nome.empty() || nomi.count(nome) || k == delLavoro.end()) return;
    righe.push_back(std::string(marca) + "|" + nome + "|" + FormaSemplice(s.PuntoX[k->second]) + "|" +
                    FormaSemplice(s.PuntoY[k->second]) + "|");
    nomi.insert(nome);
  };
  std::vector<std::pair<std::vector<std::string>, int32_t>> contorni;
  for (const std::string& riga : s.LibrettoMisure) {
    const std::vector<std::string> parti = PartiRiga(riga);
    const std::string nome = parti.size() > 1 ? Rifila(parti[1]) : std::string();
    const int tipo = TipoRiga(riga);
    if (tipo == 1 || tipo == 2) {
      dalLavoro(nome, tipo == 1 ? "%" : "#");
    } else if (tipo == 8 && !nomi.count(nome)) {
      righe.push_back(riga);
      nomi.insert(nome);
    } else if (tipo == 7 && parti.size() > 2) {
      const double n = Val(nome);
      if (n > 1) contorni.push_back({{}, 0});
      if (n <= 1 && (n != 0 || contorni.empty())) continue;
      for (size_t i = 2; i + 1 < parti.size(); ++i) {
        const auto tratto = TrattoCodice(parti[i]);
        if (tratto) contorni.back().second = *tratto;
        if (!tratto && !Rifila(parti[i]).empty()) contorni.back().first.push_back(Rifila(parti[i]));
      }
    }
  }
  for (const auto& contorno : contorni)
    for (const std::string& v : contorno.first) dalLavoro(v, "#");
  AggiungiGrafica(righe);
  for (const auto& [vertici, tratto] : contorni)
    for (size_t i = 1; i < vertici.size(); ++i)
      if (nomi.count(vertici[i - 1]) && nomi.count(vertici[i])) VR_AggiungiLineaGraf(vertici[i - 1], vertici[i], tratto);
  VR_ZoomTutto();
}

bool AnteprimaDialogo(const Sessione& s, std::string_view dialogo, Grafica& g) {
  if (dialogo == "FormConfiguraEstratto") {
    g.CaricaEstratto(s.TestoEstratto);
  } else if (dialogo == "ContornoSette") {
    const SpezzataTemporanea& v = s.SpezzataTemporanea;
    for (size_t i = 0; i < v.Conta(); ++i) {
      g.VR_AggiungiPuntoGraf(v.X[i], v.Y[i], i < v.Nome.size() && v.Nome[i] != "*" ? v.Nome[i] : "", "NP", 0);
      if (i > 0) g.VR_AggiungiLineaGraf2Punti(v.X[i - 1], v.Y[i - 1], v.X[i], v.Y[i]);
    }
    g.VR_ZoomTutto();
  } else {
    return false;
  }
  return true;
}

double Grafica::DistanzaDuePuntiNuova(size_t a, size_t b) const {
  if (a >= punti_.size() || b >= punti_.size()) return 0;
  return std::hypot(punti_[b].Est - punti_[a].Est, punti_[b].Nord - punti_[a].Nord);
}

Grafica::Punto Grafica::PuntoMedio(size_t a, size_t b) const {
  if (a >= punti_.size() || b >= punti_.size()) return {};
  return {(punti_[a].Est + punti_[b].Est) / 2, (punti_[a].Nord + punti_[b].Nord) / 2, "", "NP", 0};
}

std::optional<size_t> Grafica::VR_IlPiuVicinoAlMouse(double est, double nord) const {
  std::optional<size_t> migliore;
  double d = std::numeric_limits<double>::infinity();
  for (size_t i = 0; i < punti_.size(); ++i) {
    const double di = std::hypot(punti_[i].Est - est, punti_[i].Nord - nord);
    if (di < d) d = di, migliore = i;
  }
  return migliore;
}

std::string Grafica::FontDidascalia(std::string_view tipoRiga, std::string_view tipoTesto) {
  return tipoRiga == "L" && tipoTesto == "T" ? "Arial Narrow" : "Courier New";
}

std::string Grafica::TestoDXF() const {
  std::string d;
  auto g = [&d](const char* codice, const std::string& valore) { d += std::string(codice) + "\r\n" + valore + "\r\n"; };
  g(" 0", "SECTION");
  g(" 2", "ENTITIES");
  for (const Punto& p : punti_) {
    if (!Visibile(p)) continue;
    g(" 0", "POINT"), g(" 8", StratoPunto(p.Tipo)), g(" 10", M(p.Est)), g(" 20", M(p.Nord));
  }
  for (const Punto& p : punti_) {
    if (p.Nome.empty() || !MostraNomi || !Visibile(p)) continue;
    g(" 0", "TEXT"), g(" 8", "Punti"), g(" 10", M(p.Est)), g(" 20", M(p.Nord)), g(" 40", "1.000"), g("  1", p.Nome);
  }
  for (const Nome& n : MostraToponimi ? nomi_ : std::vector<Nome>{}) {
    g(" 0", "TEXT"), g(" 8", "Nomi"), g(" 10", M(n.Est)), g(" 20", M(n.Nord)), g(" 40", "1.000"), g("  1", n.Testo);
  }
  for (const Linea& l : linee_) {
    g(" 0", "LINE"), g(" 8", "Linee"), g(" 10", M(l.X1)), g(" 20", M(l.Y1)), g(" 11", M(l.X2)), g(" 21", M(l.Y2));
  }
  g(" 0", "ENDSEC");
  g(" 0", "EOF");
  return d;
}

std::string Grafica::TestoStampa() const {
  ScrittoreFlusso w;
  auto x = [this](double v) { return FormatoMaschera(v - CentroEst, "#########0.000"); };
  auto y = [this](double v) { return FormatoMaschera(v - CentroNord, "#########0.000"); };
  w.Record({"SCALA", FormaSemplice(Altezza)});
  // The names with their font and an empty field after it, as the spooler has them.
  for (const Punto& p : punti_)
    if (!p.Nome.empty() && MostraNomi && Visibile(p)) w.Record({"T", p.Nome, x(p.Est), y(p.Nord), "Courier New", ""});
  if (MostraToponimi)
    for (const Nome& n : nomi_) w.Record({"T", n.Testo, x(n.Est), y(n.Nord), "Courier New", ""});
  // A point is a small circle, a two-hundredth of the view across, of the finest pen.
  const std::string raggio = FormatoMaschera(Altezza / 200, "#########0.00");
  for (const Punto& p : punti_)
    if (Visibile(p)) w.Record({"C", x(p.Est), y(p.Nord), raggio, ".01"});
  for (const Linea& l : linee_) w.Record({"L", x(l.X1), y(l.Y1), x(l.X2), y(l.Y2), "0.1"});
  return std::move(w.Testo());
}

std::string Grafica::TestoHTML() const {
  // The content's extent into the 1000-unit canvas, North up, with a margin of 50 all round.
  double x0 = std::numeric_limits<double>::infinity(), y0 = x0, x1 = -x0, y1 = -x0;
  auto estendi = [&](double x, double y) {
    x0 = std::min(x0, x), x1 = std::max(x1, x), y0 = std::min(y0, y), y1 = std::max(y1, y);
  };
  for (const Punto& p : punti_) estendi(p.Est, p.Nord);
  for (const Linea& l : linee_) estendi(l.X1, l.Y1), estendi(l.X2, l.Y2);
  for (const Nome& n : nomi_) estendi(n.Est, n.Nord);
  if (x0 > x1) x0 = x1 = y0 = y1 = 0;
  const double lato = std::max(x1 - x0, y1 - y0);
  const double k = lato > 0 ? 900 / lato : 1;
  auto X = [&](double v) { return M(50 + (v - x0) * k); };
  auto Y = [&](double v) { return M(50 + (y1 - v) * k); };
  std::string h = "<!DOCTYPE HTML>\r\n<html>\r\n  <body>\r\n";
  h += "  <canvas id=\"myCanvas\" width=\"1000\" height=\"1000\"style=\"border:2px solid #c3c3c3;\"></canvas>\r\n";
  h += "    <script>\r\n      var canvas = document.getElementById('myCanvas');\r\n"
       "      var context = canvas.getContext('2d');\r\n";
  // The three kinds of line: plain red, green dashed, black finely dashed.
  const struct {
    const char* Colore;
    const char* Tratto;
  } kGruppi[] = {{"red", nullptr}, {"green", "context.setLineDash([5]);"}, {"black", "context.setLineDash([2]);"}};
  for (int g = 0; g < 3; ++g) {
    h += "    context.strokeStyle = '" + std::string(kGruppi[g].Colore) + "';\r\n";
    if (kGruppi[g].Tratto) h += "    " + std::string(kGruppi[g].Tratto) + "\r\n";
    for (const Linea& l : linee_) {
      if (std::clamp(l.Tipo, 0, 2) != g) continue;
      h += "      context.moveTo(" + X(l.X1) + ", " + Y(l.Y1) + ");\r\n";
      h += "      context.lineTo(" + X(l.X2) + ", " + Y(l.Y2) + ");\r\n";
    }
    h += " context.lineWidth  = 1;\r\n     context.stroke();\r\n     context.beginPath();\r\n";
  }
  h += "    context.setLineDash([]);\r\n";
  for (const Punto& p : punti_) {
    if (!Visibile(p)) continue;
    h += "context.beginPath();\r\ncontext.arc(" + X(p.Est) + ", " + Y(p.Nord) + ", 2, 0, 2 * Math.PI);\r\n";
    h += "context.fillStyle = '#333';\r\ncontext.fill();\r\n";
  }
  h += "context.font = '14px Courier New';\r\ncontext.fillStyle = 'red';\r\n";
  auto testo = [](const std::string& t) { return Sostituisci(Sostituisci(t, "\\", "\\\\"), "'", "\\'"); };
  for (const Punto& p : punti_)
    if (!p.Nome.empty() && MostraNomi && Visibile(p)) h += "context.fillText('" + testo(p.Nome) + "', " + X(p.Est) + ", " + Y(p.Nord) + ");\r\n";
  for (const Nome& n : MostraToponimi ? nomi_ : std::vector<Nome>{})
    h += "context.fillText('" + testo(n.Testo) + "', " + X(n.Est) + ", " + Y(n.Nord) + ");\r\n";
  h += "     context.stroke();\r\n   </script>\r\n </body>\r\n</html>\r\n";
  return h;
}

bool Grafica::VR_SalvaDXF(Sessione& s) const {
  s.RoutineCorrente = "VR_SalvaDXF";
  const std::string percorso = s.CartellaLavoro + "TEMP/GraficaDXF.DXF";
  if (!Protetto(s, [&] {
        NuovaCartella(s.CartellaLavoro + "TEMP");
        ScriviByte(percorso, TestoDXF());
      }))
    return false;
  s.Ui->Messaggio("Salvato il file " + percorso, "Salva in DXF", Icona::Informazione);
  if (s.Ui->Domanda("Aprire il file DXF ?", "Apertura file DXF ", Bottoni::SiNo, Icona::Domanda, Risposta::No) ==
      Risposta::Si)
    ApriDxF(s, percorso);
  return true;
}

bool Grafica::GeneraStampa(Sessione& s) const {
  s.RoutineCorrente = "Shellwhite 1";
  const std::string percorso = s.CartellaLavoro + "TEMP/stampe.vr";
  if (!Protetto(s, [&] {
        NuovaCartella(s.CartellaLavoro + "TEMP");
        ScriviByte(percorso, TestoStampa());
      }))
    return false;
  s.RoutineCorrente = "Shellwhite 2";
  return LanciaPlotter(s, percorso);
}

bool Grafica::GeneraHTML5_CANVAS(Sessione& s) const {
  s.RoutineCorrente = "GeneraHTML5_CANVAS";
  const std::string percorso = s.CartellaProgramma + "/Stampe.HTML";
  if (!Protetto(s, [&] { ScriviByte(percorso, TestoHTML()); })) return false;
  if (s.Proc) s.Proc->Esegui("xdg-open", {percorso}, s.CartellaProgramma);
  return true;
}

}  // namespace varena
