// Texts into points, and the lines left without points at their ends.
#include "exchange/DxfTestiInPunto.h"

#include <cmath>
#include <unordered_map>
#include <vector>

#include "core/ImpostazioniUtente.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

void AssegnaTestoAPunto(Sessione& s, size_t punto, size_t testo, Bersaglio b) {
  const std::string t = Rifila(s.TestoTesto[testo]);
  switch (b) {
    case Bersaglio::Nome: s.PuntoNome[punto] = t; break;
    case Bersaglio::Descrizione: s.PuntoDescrizione[punto] = t; break;
    case Bersaglio::Quota: s.PuntoZ[punto] = Val(t); break;  // a comma ends the number, as it always did
  }
  s.TestoIdent[testo] = -1;
}

namespace {

int64_t Abbina(Sessione& s, const std::vector<size_t>& punti, const std::string& piano, Bersaglio b) {
  std::vector<size_t> testi;
  for (size_t t = 0; t < static_cast<size_t>(s.ContaEntita[SlotTesti]); ++t)
    if (IdentVivo(s.TestoIdent[t]) && Maiuscolo(Rifila(s.TestoPiano[t])) == piano) testi.push_back(t);
  int64_t usati = 0;
  // The texts that stand on a point.
  for (size_t p : punti)
    for (size_t t : testi)
      if (IdentVivo(s.TestoIdent[t]) && std::hypot(s.TestoX[t] - s.PuntoX[p], s.TestoY[t] - s.PuntoY[p]) < 0.001) {
        AssegnaTestoAPunto(s, p, t, b);
        ++usati;
      }
  // Then the nearest one left to each point, the first in the table of two at one distance;
  // a point already given a text takes one more if any is left.
  for (size_t p : punti) {
    double minima = 500000;
    size_t scelto = SIZE_MAX;
    for (size_t t : testi) {
      if (!IdentVivo(s.TestoIdent[t])) continue;
      const double d = std::hypot(s.TestoX[t] - s.PuntoX[p], s.TestoY[t] - s.PuntoY[p]);
      if (d < minima) minima = d, scelto = t;
    }
    if (scelto == SIZE_MAX) continue;
    AssegnaTestoAPunto(s, p, scelto, b);
    ++usati;
  }
  return usati;
}

// A point stands at a line's end when closer than a millimetre: the points go in cells of
// that size, and an end looks in its cell and the eight around it.
class PuntiVicini {
 public:
  explicit PuntiVicini(const Sessione& s) : s_(s) {
    for (size_t p = 0; p < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++p)
      if (IdentVivo(s.PuntoIdent[p])) celle_[Chiave(Cella(s.PuntoX[p]), Cella(s.PuntoY[p]))].push_back(p);
  }
  bool Cerca(double x, double y) const {
    const int64_t cx = Cella(x), cy = Cella(y);
    for (int64_t i = cx - 1; i <= cx + 1; ++i)
      for (int64_t j = cy - 1; j <= cy + 1; ++j) {
        const auto c = celle_.find(Chiave(i, j));
        if (c == celle_.end()) continue;
        for (size_t p : c->second)
          if (std::hypot(s_.PuntoX[p] - x, s_.PuntoY[p] - y) < 0.001) return true;
      }
    return false;
  }

 private:
  static int64_t Cella(double v) {
    const double c = std::floor(v / 0.001);
    return std::isfinite(c) && std::fabs(c) < 1e15 ? static_cast<int64_t>(c) : 0;
  }
  static uint64_t Chiave(int64_t i, int64_t j) {
    return static_cast<uint64_t>(i) * 0x9E3779B97F4A7C15ull ^ static_cast<uint64_t>(j);
  }
  const Sessione& s_;
  std::unordered_map<uint64_t, std::vector<size_t>> celle_;
};

}  // namespace

OpzioniTestiInPunto LeggiOpzioniTestiInPunto(Sessione& s) {
  OpzioniTestiInPunto o;
  o.Nodi = LeggiImpostazioneUtente(s, "TestoInPunto", "Nodi", o.Nodi);
  o.Nomi = LeggiImpostazioneUtente(s, "TestoInPunto", "Nomi", o.Nomi);
  o.Quote = LeggiImpostazioneUtente(s, "TestoInPunto", "Quote", o.Quote);
  o.Note = LeggiImpostazioneUtente(s, "TestoInPunto", "Note", o.Note);
  o.ConNomi = Val(LeggiImpostazioneUtente(s, "TestoInPunto", "CNomi", "1")) != 0;
  o.ConQuoteENote = Val(LeggiImpostazioneUtente(s, "TestoInPunto", "CQuote", "1")) != 0;
  o.EliminaLinee = Val(LeggiImpostazioneUtente(s, "TestoInPunto", "CPiccole", "0")) != 0;
  return o;
}

void ScriviOpzioniTestiInPunto(Sessione& s, const OpzioniTestiInPunto& o) {
  ScriviImpostazioneUtente(s, "TestoInPunto", "Nodi", o.Nodi);
  ScriviImpostazioneUtente(s, "TestoInPunto", "Nomi", o.Nomi);
  ScriviImpostazioneUtente(s, "TestoInPunto", "Quote", o.Quote);
  ScriviImpostazioneUtente(s, "TestoInPunto", "Note", o.Note);
  ScriviImpostazioneUtente(s, "TestoInPunto", "CNomi", o.ConNomi ? "1" : "0");
  ScriviImpostazioneUtente(s, "TestoInPunto", "CQuote", o.ConQuoteENote ? "1" : "0");
  ScriviImpostazioneUtente(s, "TestoInPunto", "CNote", o.ConQuoteENote ? "1" : "0");
  ScriviImpostazioneUtente(s, "TestoInPunto", "CPiccole", o.EliminaLinee ? "1" : "0");
}

int64_t ElaboraTestiInPunto(Sessione& s, const OpzioniTestiInPunto& o) {
  std::vector<size_t> punti;
  const std::string nodi = Maiuscolo(Rifila(o.Nodi));
  for (size_t p = 0; p < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++p)
    if (IdentVivo(s.PuntoIdent[p]) && Maiuscolo(Rifila(s.PuntoPiano[p])) == nodi) punti.push_back(p);
  int64_t usati = 0;
  if (o.ConNomi) usati += Abbina(s, punti, Maiuscolo(Rifila(o.Nomi)), Bersaglio::Nome);
  if (o.ConQuoteENote) {
    usati += Abbina(s, punti, Maiuscolo(Rifila(o.Note)), Bersaglio::Descrizione);
    usati += Abbina(s, punti, Maiuscolo(Rifila(o.Quote)), Bersaglio::Quota);
  }
  if (o.EliminaLinee) {
    // A line that meets no point at either end is no side of the survey.
    const PuntiVicini vicini(s);
    for (size_t l = 0; l < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++l)
      if (IdentVivo(s.LineaIdent[l]) && !vicini.Cerca(s.LineaX1[l], s.LineaY1[l]) &&
          !vicini.Cerca(s.LineaX2[l], s.LineaY2[l]))
        s.LineaIdent[l] = -1;
    SegnaModificato(s, SlotLinee);
  }
  if (usati > 0) {
    SegnaModificato(s, SlotPunti);
    SegnaModificato(s, SlotTesti);
  }
  return usati;
}

}  // namespace varena
