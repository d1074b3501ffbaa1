// The staking-out table and its three files.
#include "survey/Tracciamento.h"

#include <string>

#include "survey/Convenzioni.h"

namespace varena {

namespace {

constexpr const char* kMarcatore = "     O     O     O";
constexpr const char* kA = "\r\n";

std::string M(double v, const char* maschera) { return FormatoRilievo(v, maschera); }

// A value right-aligned in its column: eleven blanks and more, so that grid coordinates of
// seven integer digits stand whole and every column of a run lines up.
std::string Colonna(const std::string& v) {
  constexpr size_t kLarghezza = 13;
  return v.size() >= kLarghezza ? v : std::string(kLarghezza - v.size(), ' ') + v;
}

std::string Riempi(std::string v, size_t larghezza) {
  if (v.size() < larghezza) v.append(larghezza - v.size(), ' ');
  return v;
}

}  // namespace

void CalcolaTracciamento(TabellaTracciamento& t) {
  const AzimutEDistanza o = AzimutDistanza(t.S, t.O);
  t.Direzione = RadToGon * o.Azimut;
  t.DistanzaOrientamento = o.Distanza;
  for (PuntoTracciato& p : t.Punti) {
    const AzimutEDistanza ad = AzimutDistanza(t.S, p.P);
    double angolo = RadToGon * ad.Azimut - t.Direzione + t.Lettura;
    if (angolo < 0) angolo += 400;
    if (angolo >= 400) angolo -= 400;
    p.Angolo = angolo;
    p.Distanza = ad.Distanza;
  }
}

std::string RelazioneTracciamento(const TabellaTracciamento& t, const std::string& titolo, const std::string& data,
                                  bool quote) {
  std::string r = "     --------------------------------------------------------------" + std::string(kA);
  r += "     Info - Tracciamento  " + titolo + "  " + data + kA;
  r += "     Stazione     : " + t.Stazione + "  Nord: " + TestoMetri(t.S.Y) + "  Est: " + TestoMetri(t.S.X) + kA;
  r += "     Orientamento : " + t.Orientamento + "  Nord: " + TestoMetri(t.O.Y) + "  Est: " + TestoMetri(t.O.X) + kA;
  r += "     Direzione all'Orientamento : " + M(t.Direzione, "###0.###0") + kA;
  std::string testa = "     Nome Punto             Nord         Est   Angolo      Distanza";
  if (quote) testa += "       Quota";
  r += kMarcatore + testa + kA;
  r += "     " + std::string(testa.size() + std::string(kMarcatore).size() - 5, '-') + kA;
  for (const PuntoTracciato& p : t.Punti) {
    r += std::string(kMarcatore) + "     " + Riempi(p.Nome, 16) + Colonna(M(p.P.Y, "#######0.##0")) +
         Colonna(M(p.P.X, "#######0.##0")) + Colonna(M(p.Angolo, "###0.###0")) + Colonna(M(p.Distanza, "######0.##0"));
    if (quote) r += Colonna(M(p.P.Z, "######0.##0"));
    r += kA;
  }
  return r;
}

std::string CsvTracciamento(const TabellaTracciamento& t, bool quote) {
  std::string c = "Stazione;" + t.Stazione + ";Nord;" + TestoMetri(t.S.Y) + ";EST;" + TestoMetri(t.S.X) + kA;
  c += "Orientamento;" + t.Orientamento + ";  Nord;" + TestoMetri(t.O.Y) + ";Est;" + TestoMetri(t.O.X) + kA;
  c += "Direzione all'Orientamento;" + TestoGon(t.Direzione) + kA;
  c += std::string("Nome Punto;Nord;Est;Angolo;Distanza") + (quote ? ";Quota" : "") + kA;
  for (const PuntoTracciato& p : t.Punti) {
    c += p.Nome + ";" + TestoMetri(p.P.Y) + ";" + TestoMetri(p.P.X) + ";" + TestoGon(p.Angolo) + ";" +
         TestoMetri(p.Distanza);
    if (quote) c += ";" + TestoMetri(p.P.Z);
    c += kA;
  }
  return c;
}

std::string LibrettoTracciamento(const TabellaTracciamento& t) {
  std::string l = "1|" + t.Stazione + "|" + TestoMetri(t.AltezzaStazione) + "|" + kA;
  l += "2|" + t.Orientamento + "|" + TestoGon(t.Lettura) + "|" + TestoMetri(t.DistanzaOrientamento) + "||" + kA;
  for (const PuntoTracciato& p : t.Punti)
    l += "2|" + p.Nome + "|" + TestoGon(p.Angolo) + "|" + TestoMetri(p.Distanza) + "|" + p.Descrizione + "|" + kA;
  return l;
}

}  // namespace varena
