// The operations of the point list.
#include "cadastre/OperazioniElenco.h"

#include "cadastre/CodiciPunto.h"
#include "cadastre/ElencoPunti.h"
#include "cadastre/Libretto.h"
#include "commands/Modifica.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Incolla.h"
#include "store/TestoLavoro.h"

#include <unordered_set>

namespace varena {

namespace {

std::string& D(Sessione& s, size_t k) { return s.PuntoDescrizione[k]; }
bool Planimetrico(const Sessione& s, size_t k) { return HaCodice(s.PuntoDescrizione[k], kCodicePlanimetrico); }

template <const std::string_view& C>
void Metti(Sessione& s, size_t k, const std::string&, int64_t) { D(s, k) = MettiCodice(D(s, k), C); }
template <const std::string_view& C>
void Togli(Sessione& s, size_t k, const std::string&, int64_t) { D(s, k) = TogliCodice(D(s, k), C); }

// A plan point's rows in the book take the short form: the station without its height, the
// reading without zenith and prism height. Rows with a comma are of another form.
void FormaBreveNelLibretto(Sessione& s, const std::string& nome) {
  for (std::string& riga : s.LibrettoMisure) {
    const int tipo = TipoRiga(riga);
    if ((tipo != 1 && tipo != 2) || riga.find(',') != std::string::npos) continue;
    std::vector<std::string> p = PartiRiga(riga);
    if (p.size() < 3 || p[1] != nome) continue;
    if (tipo == 1 && Numerico(p[2]))
      p.erase(p.begin() + 2);
    else if (tipo == 2 && p.size() > 6)
      p.erase(p.begin() + 5), p.erase(p.begin() + 3);
    else
      continue;
    std::string r;
    for (size_t k = 0; k < p.size(); ++k) r += (k ? "|" : "") + p[k];
    riga = r;
  }
}

void Planimetrici(Sessione& s, size_t k, const std::string&, int64_t) {
  D(s, k) = MettiCodice(D(s, k), kCodicePlanimetrico);
  if (!s.PuntoNome[k].empty()) FormaBreveNelLibretto(s, s.PuntoNome[k]);
}

void Cancella(Sessione& s, size_t k, const std::string&, int64_t) { s.PuntoIdent[k] = -1; }

void TogliVerticeDirezione(Sessione& s, size_t k, const std::string&, int64_t) {
  D(s, k) = TogliCodice(TogliCodice(D(s, k), kCodiceVertice), kCodiceDirezione);
}

void AssegnaQuota(Sessione& s, size_t k, const std::string& v, int64_t) {
  s.PuntoZ[k] = Val(VirgolaInPunto(v));
  D(s, k) = TogliCodice(D(s, k), kCodicePlanimetrico);
}

// A point with no height has none to raise or a prism to set.
void IncrementaQuota(Sessione& s, size_t k, const std::string& v, int64_t) {
  if (!Planimetrico(s, k)) s.PuntoZ[k] += Val(VirgolaInPunto(v));
}
void AssegnaHPrisma(Sessione& s, size_t k, const std::string& v, int64_t) {
  if (!Planimetrico(s, k)) s.PuntoHPrisma[k] = static_cast<float>(Val(VirgolaInPunto(v)));
}

void AssegnaDescrizione(Sessione& s, size_t k, const std::string& v, int64_t) { D(s, k) = ConCodici(D(s, k), v); }

// The next names after a base: its last digits counted on, "PF10" then "PF11"; a base with
// no digits gets them, "A" then "A1".
std::string NomeDaBase(const std::string& base, int64_t ordine) {
  size_t cifre = base.size();
  while (cifre > 0 && base[cifre - 1] >= '0' && base[cifre - 1] <= '9') --cifre;
  if (cifre == base.size()) return ordine == 0 ? base : base + std::to_string(ordine);
  const std::string numero = base.substr(cifre);
  std::string n = std::to_string(std::stoll(numero.substr(0, 17)) + ordine);
  if (n.size() < numero.size()) n.insert(0, numero.size() - n.size(), '0');  // "007" then "008"
  return base.substr(0, cifre) + n;
}

void Rinumera(Sessione& s, size_t k, const std::string& v, int64_t ordine) {
  const std::string vecchio = s.PuntoNome[k];
  const std::string nuovo = NomeDaBase(Rifila(v), ordine);
  s.PuntoNome[k] = nuovo;
  if (vecchio.empty()) return;
  RinominaPuntoLibretto(s, vecchio, nuovo);
  RinominaPuntoContorni(s, vecchio, nuovo);
}

void AzzeraNome(Sessione& s, size_t k, const std::string&, int64_t) { s.PuntoNome[k].clear(); }
void AssegnaPiano(Sessione& s, size_t k, const std::string&, int64_t) { s.PuntoPiano[k] = s.PianoCorrente; }

// The free text changes case; the tags keep theirs.
void Maiuscole(Sessione& s, size_t k, const std::string&, int64_t) {
  D(s, k) = ConCodici(D(s, k), Maiuscolo(PulisciCodici(D(s, k))));
}
void Minuscole(Sessione& s, size_t k, const std::string&, int64_t) {
  D(s, k) = ConCodici(D(s, k), Minuscolo(PulisciCodici(D(s, k))));
}

// A code of `VRPUNTI.COD` at the head of the free text gives way to its description:
// "3 lato nord" becomes "PICCHETTO IN FERRO lato nord"; the tags stay in front.
void CodiciInDescrizione(Sessione& s, size_t k, const std::string&, int64_t) {
  const std::string libero = PulisciCodici(D(s, k));
  const size_t fine = std::min(libero.find(' '), libero.size());
  if (fine == 0) return;
  if (const CodicePunto* c = CercaCodice(s.Codici, libero.substr(0, fine)))
    D(s, k) = ConCodici(D(s, k), c->Descrizione + libero.substr(fine));
}

void DescrizioneInPiano(Sessione& s, size_t k, const std::string&, int64_t) {
  const std::string t = PulisciCodici(D(s, k));
  if (!t.empty()) s.PuntoPiano[k] = t;
}

// The points of the free text go; those of "[P.A.]" and of "Note:" stay as they are.
void TogliPuntiDescrizione(Sessione& s, size_t k, const std::string&, int64_t) {
  std::string& d = D(s, k);
  std::string r;
  for (size_t i = 0; i < d.size();) {
    if (d.compare(i, kCodiceAusiliario.size(), kCodiceAusiliario) == 0) {
      r += kCodiceAusiliario;
      i += kCodiceAusiliario.size();
    } else if (d.compare(i, 5, "Note:") == 0) {
      r += d.substr(i);
      break;
    } else {
      if (d[i] != '.') r += d[i];
      ++i;
    }
  }
  d = r;
}

void Riga8Quota(Sessione& s, size_t k, const std::string&, int64_t) {
  D(s, k) = MettiCodice(TogliCodice(D(s, k), kCodicePlanimetrico), kCodiceRiga8Quota);
}
void TogliRiga8Planim(Sessione& s, size_t k, const std::string&, int64_t) {
  D(s, k) = TogliCodice(TogliCodice(D(s, k), kCodiceRiga8Planim), kCodiceRiga8Uguale);
}
void PianoPlanimet(Sessione& s, size_t k, const std::string&, int64_t) {
  if (Planimetrico(s, k)) s.PuntoPiano[k] = "PLANIMET";
}
void PlanimetricoSenzaPrisma(Sessione& s, size_t k, const std::string&, int64_t) {
  if (s.PuntoHPrisma[k] == 0) D(s, k) = MettiCodice(D(s, k), kCodicePlanimetrico);
}

// The names standing in the lists of the live contours.
std::unordered_set<std::string> VerticiContorni(const Sessione& s) {
  std::unordered_set<std::string> nomi;
  for (size_t r = 0; r < static_cast<size_t>(std::max(0, s.ContaEntita[SlotSette])); ++r)
    if (s.SetteIdent[r] == 0)
      for (const std::string& n : PartiRiga(s.SetteContorno[r]))
        if (!Rifila(n).empty()) nomi.insert(Rifila(n));
  return nomi;
}

// Heights stay only where the book asks for them: a station keeps its own and is marked
// "RC" in its free text, a PF or a vertex of a contour gets a row 8 carrying its height;
// every other selected point becomes planimetric.
bool CodiciAltimetrici(Sessione& s, const std::vector<int32_t>& righe) {
  const std::unordered_set<std::string> vertici = VerticiContorni(s);
  for (int32_t r : righe) {
    const auto k = static_cast<size_t>(r);
    const std::string& nome = s.PuntoNome[k];
    std::string d = TogliCodice(D(s, k), kCodicePlanimetrico);
    // A PF is one whatever its name ends with, as the classes of the points have it.
    const bool pf = IniziaCon(Maiuscolo(nome), "PF");
    if (!pf && FinisceCon(nome, "00")) {
      const std::string libero = SenzaCodici(d);
      if (!IniziaCon(libero, "RC")) d = SoloCodici(d) + Rifila("RC " + libero);
    } else if (pf || vertici.count(nome)) {
      d = MettiCodice(d, kCodiceRiga8Quota);
    } else {
      d = MettiCodice(d, kCodicePlanimetrico);
    }
    D(s, k) = d;
  }
  SegnaModificato(s, SlotPunti);
  return true;
}

// Rows 8 from the list's cells: the name, then Nord and Est as the list shows them.
bool RigheOtto(Sessione& s, const std::vector<int32_t>& righe) {
  for (size_t i = 0; i < righe.size(); ++i) {
    auto c = [&](int colonna) { return CellaElencoPunti(s, righe, i, colonna); };
    AggiungiRigaLibretto(s, PulisciRiga("8|" + c(ColonnaNome) + "|" + c(ColonnaNord) + "|04|" + c(ColonnaEst) + "|"));
  }
  SegnaModificato(s, SlotLibretto);
  return true;
}

// Rows 8 of the fiducial points among the selected: Y, X and the description, code 12.
bool RigheOttoPF(Sessione& s, const std::vector<int32_t>& righe) {
  bool fatto = false;
  for (size_t i = 0; i < righe.size(); ++i) {
    auto c = [&](int colonna) { return CellaElencoPunti(s, righe, i, colonna); };
    if (!IniziaCon(Maiuscolo(c(ColonnaNome)), "PF")) continue;
    AggiungiRigaLibretto(s, PulisciRiga("8|" + c(ColonnaNome) + "|" + c(ColonnaNord) + "|" + c(ColonnaEst) + "|" +
                                        c(ColonnaDescrizione) + "12|"));
    fatto = true;
  }
  if (fatto) SegnaModificato(s, SlotLibretto);
  return fatto;
}

// The selected points into the hand-over file of the copy commands, for a paste here or in
// another job; the user is told where they went.
bool CopiaSelezione(Sessione& s, const std::vector<int32_t>& righe) {
  std::string testo;
  for (int32_t r : righe) IstruzionePunto(s, static_cast<size_t>(r), "P", testo);
  const std::string percorso = PercorsoCopiaInFile(s);
  if (Protetto(s, [&] {
        NuovaCartella(Cartella(percorso));
        ScriviTesto(percorso, testo);
      }))
    s.Ui->Messaggio("I Punti selezionati sono stati", "Copia Selezione!", Icona::Informazione);
  return false;
}

// The selected points as the list shows them, a tab between the cells, for a spreadsheet.
bool CopiaPerExcel(Sessione& s, const std::vector<int32_t>& righe) {
  std::string t;
  for (int c = 0; c < NumeroColonneElenco; ++c) t += (c ? "\t" : "") + std::string(TitoloColonnaElenco(c));
  t += "\r\n";
  for (size_t i = 0; i < righe.size(); ++i) {
    for (int c = 0; c < NumeroColonneElenco; ++c) t += (c ? "\t" : "") + CellaElencoPunti(s, righe, i, c);
    t += "\r\n";
  }
  if (s.Clip) s.Clip->Scrivi(t);
  return false;
}

void Nessuno(Sessione&, size_t, const std::string&, int64_t) {}

constexpr OperazioneElenco kOperazioni[] = {
    {"CANCELLA", "Cancella Punti", "Eliminare i Punti Selezionati", nullptr, Cancella, nullptr},
    {"AUSILIARIO", "Punto Ausiliario", "Assegnare Punto Ausiliario?", nullptr, Metti<kCodiceAusiliario>, nullptr},
    {"AZZERA_AUSILIARIO", "Azzera Ausiliario", "Azerare Punto Ausiliario?", nullptr, Togli<kCodiceAusiliario>, nullptr},
    {"PLANIMETRICI", "Punti Planimetrici", "Rendere Planimetrici i Punti Selezionati\nsu Libretto Misure ??", nullptr,
     Planimetrici, nullptr},
    {"ALTIMETRICI", "Punti Altimetrici", "Rendere Altimetrici i Punti Selezionati\nsu Libretto Misure ??", nullptr,
     Togli<kCodicePlanimetrico>, nullptr},
    {"QUOTA", "Assegna Quota ai Punti", "Assegnare la quota ai Punti Selezionati ??", "Quota :", AssegnaQuota, nullptr},
    {"INCREMENTA_QUOTA", "Incrementa Quota ai Punti", "Incrementare la quota ai Punti Selezionati ??", "Incremento :",
     IncrementaQuota, nullptr},
    {"HP", "Assegna HP/HS ai Punti", "Assegnare la HP/HS ai Punti Selezionati ??", "HP/HS :", AssegnaHPrisma, nullptr},
    {"DESCRIZIONE", "Assegna Descrizione ai Punti", "Assegnare la Descrizione ai Punti Selezionati", "Descrizione :",
     AssegnaDescrizione, nullptr},
    {"RINUMERA", "Rinumera Punti", "Rinumerare i Punti Selezionati", "Primo Nome :", Rinumera, nullptr},
    {"AZZERA_NOMI", "Azzera Nomi Punti", "Azzerare il nome ai Punti selezionati", nullptr, AzzeraNome, nullptr},
    {"PIANO", "Assegna Piano ai Punti", "Assegnare il Piano ", nullptr, AssegnaPiano, nullptr},
    {"PV", "Assegna <PV> ai Punti", "Assegnare il codice <PV> \nai Punti Selezionati ??", nullptr, Metti<kCodiceVertice>, nullptr},
    {"PD", "Assegna <PD> ai Punti", "Assegnare il codice <PD> \nai Punti Selezionati ??", nullptr, Metti<kCodiceDirezione>, nullptr},
    {"TOGLI_PV_PD", "Assegna <PV><PD> ai Punti", "Togliere il codice <PD><PV> \nai Punti Selezionati ??", nullptr,
     TogliVerticeDirezione, nullptr},
    {"00", "Assegna <00> ai Punti", "Assegnare il codice <00> \nai Punti Selezionati ??", nullptr,
     Metti<kCodiceSoloDirezione>, nullptr},
    {"TOGLI_00", "Toglie <00> ai Punti", "Togliere il codice <00> \nai Punti Selezionati ??", nullptr,
     Togli<kCodiceSoloDirezione>, nullptr},
    {"EL", "Escludi Punti dal Libretto", "Assegnare il codice <EL> \nai Punti Selezionati ??", nullptr,
     Metti<kCodiceEscluso>, nullptr},
    {"TOGLI_EL", "Comprendi Punti Libretto", "Comprendere i Punti selezionati\nnel Libretto??", nullptr,
     Togli<kCodiceEscluso>, nullptr},
    {"MAIUSCOLE", "Descrizioni Maiuscole", "Assegna Descrizioni Maiuscole \nai Punti Selezionati ??", nullptr, Maiuscole, nullptr},
    {"MINUSCOLE", "Descrizioni Minuscole", "Assegna Descrizioni Minuscole \nai Punti Selezionati ??", nullptr, Minuscole, nullptr},
    {"CODICI_IN_DESCRIZIONI", "Codici in Descrizioni", "Trasforma i Codici in Descrizi", nullptr, CodiciInDescrizione,
     nullptr},
    {"DESCRIZIONI_IN_PIANI", "Descrizioni in Piani", "Trasforma le Descrizioni in Piani", nullptr, DescrizioneInPiano, nullptr},
    {"TOGLI_PUNTI_DESCRIZIONI", "Elimina Punti Descrizioni", "Elimina i punti nelle Descrizioni\ndei Punti Selezionati ??",
     nullptr, TogliPuntiDescrizione, nullptr},
    {"CODICI_ALTIMETRICI", "Assegna Codici Altimetrici",
     "Assegnare Codici Altimetrici solo\na Stazioni, PF e Punti su Contorni??", nullptr, Nessuno, CodiciAltimetrici},
    {"8Q", "Assegna Codice Riga 8 Quota", "Assegnare Codice Riga 8 Quota <8Q>\nai Punti Selezionati ??", nullptr,
     Riga8Quota, nullptr},
    {"8P", "Assegna Codice Riga 8 Planim", "Assegnare Codice Riga 8 <8P>\nai Punti Selezionati ??", nullptr,
     Metti<kCodiceRiga8Planim>, nullptr},
    {"8=", "Assegna Codice Riga 8 Planim", "Assegnare Codice Riga 8 <8=>\nai Punti Selezionati ??", nullptr,
     Metti<kCodiceRiga8Uguale>, nullptr},
    {"TOGLI_8Q", "Azzera Codice Riga <8Q>", "Azzerare Codice Riga 8 <8Q>\nai Punti Selezionati ??", nullptr,
     Togli<kCodiceRiga8Quota>, nullptr},
    {"TOGLI_8P", "Azzera Codice Riga <8P><8=>", "Azzerare Codici Riga 8 <8P><8=>\nai Punti Selezionati ??", nullptr,
     TogliRiga8Planim, nullptr},
    {"PIANO_PLANIMET", "Assegna Piano Planimet", "Assegnare Piano ''Planimet'' a Punti Planimetrici?", nullptr,
     PianoPlanimet, nullptr},
    {"PLANIMETRICO_HP0", "Assegna Planimetrico", "Assegnare Punto Planimetrico ai Punti con H.Prisma=0 ?", nullptr,
     PlanimetricoSenzaPrisma, nullptr},
    {"COPIA_SELEZIONE", "Copia Selezione!", nullptr, nullptr, Nessuno, CopiaSelezione},
    {"COPIA_EXCEL", "Copia x Excel", "Copia per Excel\ni Punti Selezionati ?", nullptr, Nessuno, CopiaPerExcel},
    {"RIGHE_8", "Righe 8 nel Libretto", nullptr, nullptr, Nessuno, RigheOtto},
    {"RIGHE_8_PF", "Righe 8 PF nel Libretto", nullptr, nullptr, Nessuno, RigheOttoPF},
};

}  // namespace

std::string PulisciRiga(std::string_view riga) {
  return Sostituisci(TogliCodice(riga, kCodicePlanimetrico), "||", "|NOTE:|");
}

std::span<const OperazioneElenco> OperazioniElenco() { return kOperazioni; }

const OperazioneElenco* TrovaOperazioneElenco(std::string_view chiave) {
  for (const OperazioneElenco& o : kOperazioni)
    if (chiave == o.Chiave) return &o;
  return nullptr;
}

void RinominaPuntoContorni(Sessione& s, std::string_view vecchio, std::string_view nuovo) {
  for (int32_t r = 0; r < s.ContaEntita[SlotSette]; ++r) {
    std::string& c = s.SetteContorno[static_cast<size_t>(r)];
    std::string fatto;
    bool cambiato = false;
    size_t i = 0;
    while (i <= c.size()) {
      const size_t fine = std::min(c.find('|', i), c.size());
      const std::string_view nome = std::string_view(c).substr(i, fine - i);
      cambiato = cambiato || nome == vecchio;
      fatto += nome == vecchio ? nuovo : nome;
      if (fine < c.size()) fatto += '|';
      i = fine + 1;
    }
    if (cambiato) {
      c = fatto;
      SegnaModificato(s, SlotSette);
    }
  }
}

bool EseguiOperazioneElenco(Sessione& s, const OperazioneElenco& op, const std::vector<int32_t>& righe) {
  if (righe.empty()) return false;
  s.RoutineCorrente = op.Titolo;
  if (op.Domanda) {
    std::string domanda = op.Domanda;
    if (op.Effetto == AssegnaPiano) domanda += s.PianoCorrente;
    if (s.Ui->Domanda(domanda, op.Titolo, Bottoni::SiNo, Icona::Domanda, Risposta::No) != Risposta::Si) return false;
  }
  std::string valore;
  if (op.Richiesta) {
    const auto v = s.Ui->Imputa(op.Richiesta, op.Titolo, "");
    if (!v) return false;
    valore = *v;
  }
  std::vector<int32_t> valide;
  for (int32_t r : righe)
    if (r >= 0 && r < s.ContaEntita[SlotPunti]) valide.push_back(r);
  if (op.Insieme) {
    if (!op.Insieme(s, valide)) return true;
  } else {
    int64_t ordine = 0;
    for (int32_t r : valide) op.Effetto(s, static_cast<size_t>(r), valore, ordine++);
    SegnaModificato(s, SlotPunti);
    if (op.Effetto == Rinumera || op.Effetto == Planimetrici) SegnaModificato(s, SlotLibretto);
  }
  FineModifica(s, true);
  return true;
}

}  // namespace varena
