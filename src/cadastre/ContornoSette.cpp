// Contorno-7 records made and drawn.
#include "cadastre/ContornoSette.h"

#include <vector>

#include "cadastre/Libretto.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "survey/Primitive.h"
#include "view/Rigenera.h"

namespace varena {

namespace {

// Every line of one record shares its kind, its row and its layer.
struct TrattiSette {
  Sessione& s;
  int32_t riga;
  std::string_view piano;

  void Linea(const PuntoXYZ& a, const PuntoXYZ& b, int32_t penna, double spessore, int tratteggio) const {
    RecordDisegno r;
    r.Tipo = SlotSette;
    r.Riga = riga;
    r.Colore = ColoreVisibile(s, penna);
    r.Penna = static_cast<int16_t>(penna);
    r.Piano = piano;
    r.Spessore = static_cast<float>(spessore);
    r.X1 = a.X, r.Y1 = a.Y, r.Z1 = a.Z, r.X2 = b.X, r.Y2 = b.Y, r.Z2 = b.Z;
    RigeneraLineaTutto(s, r, tratteggio);
  }
};

PuntoXYZ Posizione(const Sessione& s, int32_t k) {
  const auto r = static_cast<size_t>(k);
  return {s.PuntoX[r], s.PuntoY[r], s.PuntoZ[r]};
}

// A plain contour or a traverse, walked from its last field so that a line code at the end
// sets pen and style before the first line is made.
void Contorno(const TrattiSette& t, const std::vector<std::string>& v, const IndiceNomi& indice, bool poligonale) {
  int32_t penna = poligonale ? 40 : 30;
  int stile = poligonale ? 4 : 0;
  int32_t ultimo = -1;
  for (size_t i = v.size(); i-- > 0;) {
    const std::string& campo = v[i];
    if (Val(campo) > 0 || IniziaCon(campo, "PF")) {
      const int32_t k = indice.Primo(campo);
      if (k < 0) continue;
      if (ultimo >= 0) t.Linea(Posizione(t.s, ultimo), Posizione(t.s, k), penna, stile < 1 ? 3.0 : 1.0, stile);
      ultimo = k;
      continue;
    }
    CodiceLinea(campo, penna, stile);
  }
}

// The vertices found, in order; those of no point are left out.
std::vector<PuntoXYZ> Trovati(const Sessione& s, const std::vector<std::string>& v, const IndiceNomi& indice) {
  std::vector<PuntoXYZ> p;
  for (const std::string& nome : v)
    if (const int32_t k = indice.Primo(nome); k >= 0) p.push_back(Posizione(s, k));
  return p;
}

// A right-angle traverse and a two-base survey: the base thick, then each point tied to it.
// The two need both ends of the base.
void SuBase(const TrattiSette& t, const std::vector<std::string>& v, const IndiceNomi& indice, bool squadro) {
  if (v.size() < 2) return;
  const int32_t ka = indice.Primo(v[0]), kb = indice.Primo(v[1]);
  if (ka < 0 || kb < 0) return;
  const PuntoXYZ a = Posizione(t.s, ka), b = Posizione(t.s, kb);
  t.Linea(a, b, 30, 3.0, squadro ? 0 : 1);
  for (size_t i = 2; i < v.size(); ++i) {
    const int32_t k = indice.Primo(v[i]);
    if (k < 0) continue;
    const PuntoXYZ p = Posizione(t.s, k);
    if (!squadro) {
      t.Linea(a, p, 30, 1.0, 2);
      t.Linea(b, p, 30, 1.0, 2);
      continue;
    }
    Piede piede;
    if (PiedePerpendicolare(a, b, p, piede) == kRiuscito) t.Linea(p, piede.F, 30, 1.0, 2);
  }
}

void Etichetta(Sessione& s, int32_t riga, const std::string& particella) {
  const std::vector<std::string> f = Dividi(particella, '|');
  // The label has no place until one is set: fields 3 and 4 hold it.
  if (f.size() < 5 || Rifila(f[0]).empty()) return;
  RecordDisegno r;
  r.Tipo = SlotSette;
  r.Riga = riga;
  r.Primitiva = PrimTesto;
  r.X1 = Val(f[4]), r.Y1 = Val(f[3]);
  r.Altezza = static_cast<float>(s.Imp.AltezzaTestoDefault);
  r.X2 = r.X1 + 0.6 * r.Altezza * static_cast<double>(f[0].size());
  r.Y2 = r.Y1;
  r.Colore = ColoreVisibile(s, 1);
  r.Penna = 1;
  r.Tratto = 1;
  r.Font = "Arial";
  r.Testo = f[0];
  r.Piano = s.SetteCommento[static_cast<size_t>(riga)];
  s.ListaDisegno.Aggiungi(r);
}

}  // namespace

void CodiceLinea(std::string_view campo, int32_t& penna, int& stile) {
  for (char c : campo) {
    switch (c) {
      case 'R': penna = 1; break;
      case 'N': penna = 250; break;
      case 'V': penna = 3; break;
      case 'C': stile = 1; break;
      case 'T': stile = 2; break;
      case 'P': stile = 3; break;
      default: break;
    }
  }
}

bool TipoStrutturaRilievo(std::string_view c) {
  return c == kSquadro || c == kPoligonale || c == kCogo || c == kLivellazioneRaggiante || c == kLivellazioneDalMezzo;
}

int32_t subAggiungiSetteSingolo(Sessione& s, const std::string& contorno, const std::string& commento,
                                const std::string& particella, int32_t colore, int16_t tratteggio) {
  DimensionaSette(s);
  const int32_t riga = s.ContaEntita[SlotSette];
  const auto k = static_cast<size_t>(riga);
  s.SetteIdent[k] = 0;
  s.SetteContorno[k] = contorno;
  s.SetteCommento[k] = commento;
  s.SetteParticella[k] = particella;
  s.SetteColore[k] = colore;
  s.SetteTratteggio[k] = tratteggio;
  s.ContaEntita[SlotSette] = riga + 1;
  return riga;
}

int32_t DefinizioneContornoSette(Sessione& s, const std::string& elenco, bool disegna) {
  const bool struttura = TipoStrutturaRilievo(s.TipoSettePendente);
  const int32_t riga = subAggiungiSetteSingolo(s, elenco, s.TipoSettePendente, s.ParticellaPendente,
                                               struttura ? 8 : s.ColorePendente,
                                               struttura ? int16_t{3} : s.TratteggioPendente);
  if (disegna) RigeneraSetteSingolo(s, riga, IndiceNomi(s));
  return riga;
}

void RigeneraSetteSingolo(Sessione& s, int32_t riga, const IndiceNomi& indice) {
  const auto r = static_cast<size_t>(riga);
  if (!IdentVivo(s.SetteIdent[r])) return;
  const std::vector<std::string> parti = Dividi(s.SetteContorno[r], '|');
  // No vertex between the bars: nothing to draw. The record stays as the file holds it, so
  // that a regeneration never changes the job behind the user's back.
  if (parti.size() < 3) return;
  const std::vector<std::string> v(parti.begin() + 1, parti.end() - 1);
  const std::string& tipo = s.SetteCommento[r];
  const bool sezione = tipo == kSezione;
  const bool contorno = !sezione && (tipo == kPoligonale || !TipoStrutturaRilievo(tipo));
  const TrattiSette t{s, riga, sezione ? kSezione : contorno ? "CONTORNO" : std::string_view(tipo)};
  if (tipo == kSquadro || tipo == kCogo) {
    SuBase(t, v, indice, tipo == kSquadro);
  } else if (sezione) {
    const std::vector<PuntoXYZ> p = Trovati(s, v, indice);
    for (size_t i = 1; i < p.size(); ++i) t.Linea(p[i - 1], p[i], 30, 1.0, 3);
  } else if (tipo == kLivellazioneRaggiante || tipo == kLivellazioneDalMezzo) {
    // A levelling from the middle is a fan of one point: its two ends tied.
    if (const int32_t k0 = indice.Primo(v[0]); k0 >= 0)
      for (size_t i = 1; i < v.size(); ++i)
        if (const int32_t k = indice.Primo(v[i]); k >= 0) t.Linea(Posizione(s, k0), Posizione(s, k), 30, 1.0, 2);
  } else {
    Contorno(t, v, indice, tipo == kPoligonale);
  }
  Etichetta(s, riga, s.SetteParticella[r]);
}

void RigeneraSetteRiga(Sessione& s, int32_t riga) {
  const uint64_t passata = s.Rigenerazione.Passata;
  if (!s.IndiceStrutture || s.PassataIndiceStrutture != passata) {
    s.IndiceStrutture = std::make_shared<const IndiceNomi>(s);
    s.PassataIndiceStrutture = passata;
  }
  RigeneraSetteSingolo(s, riga, *s.IndiceStrutture);
}

}  // namespace varena
