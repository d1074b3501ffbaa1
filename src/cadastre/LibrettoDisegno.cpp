// The drawing rebuilt from the field book.
#include "cadastre/LibrettoDisegno.h"

#include <string>
#include <vector>

#include "cadastre/ContornoSette.h"
#include "cadastre/Libretto.h"
#include "commands/AiutiDisegno.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"

namespace varena {

namespace {

bool HaVirgola(std::string_view riga) { return riga.find(',') != std::string_view::npos; }

// A link of the scheme: a line of the table, dashed, in pen 12.
void LineaSchema(Sessione& s, int32_t da, int32_t a) {
  DimensionaLinee(s);
  const int32_t riga = s.ContaEntita[SlotLinee];
  const auto k = static_cast<size_t>(riga), p = static_cast<size_t>(da), q = static_cast<size_t>(a);
  s.LineaIdent[k] = 0;
  s.LineaX1[k] = s.PuntoX[p], s.LineaY1[k] = s.PuntoY[p], s.LineaZ1[k] = s.PuntoZ[p];
  s.LineaX2[k] = s.PuntoX[q], s.LineaY2[k] = s.PuntoY[q], s.LineaZ2[k] = s.PuntoZ[q];
  s.LineaColore[k] = 12;
  s.LineaTratteggio[k] = 2;
  s.LineaCongela[k] = 0;
  s.LineaQuotata[k] = 0;
  s.LineaOffsetQuota[k] = 0;
  s.LineaPiano[k] = "SCHEMALI";
  s.LineaTronca[k] = 0;
  s.StatoLinea[k] = 0;
  s.ContaEntita[SlotLinee] = riga + 1;
}

// The rows of a run that the structure passes read, with their split and upper bound.
struct Riga {
  int tipo = -1;
  std::vector<std::string> p;
  size_t ub() const { return p.size() - 1; }
};

Riga Leggi(const Sessione& s, size_t i) {
  Riga r;
  if (i >= s.LibrettoMisure.size()) return r;
  r.tipo = TipoRiga(s.LibrettoMisure[i]);
  r.p = PartiRiga(s.LibrettoMisure[i]);
  return r;
}

void Pendente(Sessione& s, const std::string& tipo, const std::string& particella, int32_t colore,
              int16_t tratteggio) {
  s.TipoSettePendente = tipo;
  s.ParticellaPendente = particella;
  s.ColorePendente = colore;
  s.TratteggioPendente = tratteggio;
}

}  // namespace

bool LegameSchema(std::string_view st, std::string_view nome) {
  const size_t ls = Caratteri(st), ln = Caratteri(nome);
  if (IniziaCon(nome, "PF")) return true;
  if (ln == 3 && FinisceCon(nome, "00") && Val(st) != Val(nome)) return true;
  if (ln >= 4 && FinisceCon(nome, "000")) return true;
  if (ls == 3 && ln == 3 && st[0] != nome[0] && Val(st) != Val(nome)) return true;
  if (ls != ln) return true;
  return ls > 3 && st.substr(0, st.size() - 3) != nome.substr(0, nome.size() - 3);
}

void SchemaDaTxt(Sessione& s) {
  s.RoutineCorrente = "SchemaDaTxt";
  Protetto(s, [&] {
    const IndiceNomi indice(s);
    int32_t stazione = -1;
    std::string st;
    for (const std::string& riga : s.LibrettoMisure) {
      const int tipo = TipoRiga(riga);
      if ((tipo != 1 && tipo != 2) || HaVirgola(riga)) continue;
      const std::vector<std::string> p = PartiRiga(riga);
      if (p.size() < 2) continue;
      if (tipo == 1) {
        stazione = indice.Primo(p[1]);
        st = p[1];
        continue;
      }
      if (stazione < 0 || !LegameSchema(st, p[1])) continue;
      if (const int32_t k = indice.Primo(p[1]); k >= 0) LineaSchema(s, stazione, k);
    }
    AspettoPuntiSchema(s);
  });
}

void AspettoPuntiSchema(Sessione& s) {
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    const auto r = static_cast<size_t>(k);
    const bool pf = IniziaCon(s.PuntoNome[r], "PF");
    s.PuntoDimensioneNome[r] = 3.0;
    s.PuntoDimensioneSimbolo[r] = 3.0;
    s.PuntoSimbolo[r] = pf ? 33 : 2;
    s.PuntoColoreNome[r] = s.PuntoColoreSimbolo[r] = pf ? 12 : 0;
  }
  SegnaModificato(s, SlotPunti);
}

void PoligonaliDaLibretto(Sessione& s) {
  Pendente(s, kPoligonale, "", 0, 0);
  for (const std::string& riga : s.LibrettoMisure) {
    if (TipoRiga(riga) != 3) continue;
    const size_t primo = riga.find('|');
    const size_t secondo = primo == std::string::npos ? primo : riga.find('|', primo + 1);
    if (secondo == std::string::npos) continue;
    DefinizioneContornoSette(s, riga.substr(secondo), false);
  }
}

void ContorniDaLibretto(Sessione& s) {
  std::string titolo, elenco;
  for (size_t i = 1; i < s.LibrettoMisure.size(); ++i) {
    const Riga r = Leggi(s, i);
    if (r.tipo == 6) {
      titolo = r.ub() >= 1 ? r.p[1] : std::string();
      continue;
    }
    if (r.tipo != 7 || r.ub() < 2) continue;
    const double n = Val(r.p[1]);
    if (n == 1) continue;
    if (n > 1 && elenco.empty()) {
      elenco = "|";
      for (size_t k = 2; k < r.ub(); ++k) {
        elenco += r.p[k] + "|";
        // The line code closes the list.
        if (Caratteri(r.p[k]) == 2 && Val(r.p[k]) == 0) break;
      }
    } else if (n == 0) {
      if (elenco.empty()) elenco = "|";
      for (size_t k = 2; k < r.ub(); ++k) elenco += r.p[k] + "|";
    }
    const bool ultima = i + 1 == s.LibrettoMisure.size() || !IniziaCon(s.LibrettoMisure[i + 1], "7|0|");
    if (ultima && !elenco.empty()) {
      Pendente(s, titolo, "", s.Imp.Colore_Default, InteroCorto(s.Imp.Tratteggio_Default));
      DefinizioneContornoSette(s, elenco, false);
      elenco.clear();
    }
  }
}

void SquadriDaLibretto(Sessione& s) {
  std::string elenco;
  for (size_t i = 0; i < s.LibrettoMisure.size(); ++i) {
    const Riga r = Leggi(s, i);
    if (r.tipo == 4 && r.ub() == 5) {
      elenco.clear();
      // Only a row marked "*S*" begins a right-angle traverse.
      if (Maiuscolo(r.p[4]).find("*S*") == std::string::npos) continue;
      Pendente(s, kSquadro, "*S*", 0, 0);
      elenco = "|" + r.p[1] + "|" + r.p[2] + "|";
    } else if (r.tipo == 5 && r.ub() == 5) {
      if (elenco.empty()) continue;
      if (elenco.find("|" + r.p[1] + "|") == std::string::npos) elenco += r.p[1] + "|";
    } else {
      continue;
    }
    const Riga dopo = Leggi(s, i + 1);
    if (!(dopo.tipo == 5 && dopo.ub() == 5)) {
      DefinizioneContornoSette(s, elenco, false);
      elenco.clear();
    }
  }
}

void LivellazioniDaLibretto(Sessione& s) {
  Pendente(s, kLivellazioneDalMezzo, "", 0, 0);
  for (size_t i = 0; i < s.LibrettoMisure.size(); ++i)
    if (const Riga r = Leggi(s, i); r.tipo == 4 && r.ub() == 6) DefinizioneContornoSette(s, "|" + r.p[1] + "|" + r.p[2] + "|", false);
  Pendente(s, kLivellazioneRaggiante, "", 0, 0);
  std::string elenco;
  for (size_t i = 0; i < s.LibrettoMisure.size(); ++i) {
    const Riga r = Leggi(s, i);
    if (r.tipo == 4 && r.ub() == 6) {
      elenco = "|" + r.p[1] + "|";
      continue;
    }
    if (!(r.tipo == 5 && r.ub() == 4) || elenco.empty()) {
      elenco.clear();
      continue;
    }
    elenco += r.p[1] + "|";
    const Riga dopo = Leggi(s, i + 1);
    if (!(dopo.tipo == 5 && dopo.ub() == 4)) {
      DefinizioneContornoSette(s, elenco, false);
      elenco.clear();
    }
  }
}

void CompletaNomiPF(Sessione& s) {
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k) {
    std::string& nome = s.PuntoNome[static_cast<size_t>(k)];
    if (!IniziaCon(Maiuscolo(nome), "PF")) continue;
    nome = Maiuscolo(nome);
    if (Caratteri(nome) < 5) nome += "/" + s.RigaZero.Foglio;
    if (Caratteri(nome) < 10) nome += "/" + s.RigaZero.CodiceComune;
  }
  SegnaModificato(s, SlotPunti);
}

void AssumeTuttoDaTXT(Sessione& s) {
  SchemaDaTxt(s);
  HPSDaLibrettoMisure(s);
  EtichetteDaLibretto(s);
  s.RoutineCorrente = "AssumeTuttoDaTXT";
  Protetto(s, [&] {
    s.ContaEntita[SlotSette] = 0;
    SegnaModificato(s, SlotSette);
    PoligonaliDaLibretto(s);
    ContorniDaLibretto(s);
    SquadriDaLibretto(s);
    LivellazioniDaLibretto(s);
  });
  s.EstrattoCongelato = 0;
  s.MostraContorni = s.MostraEstratto = s.MostraVistaEstratto = true;
  s.ColoreEstratto = 7;
}

}  // namespace varena
