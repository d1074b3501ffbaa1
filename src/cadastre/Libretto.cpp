// The field book's grammar and what the book gives the points.
#include "cadastre/Libretto.h"

#include <cstdlib>

#include "cadastre/CodiciPunto.h"
#include "commands/AiutiDisegno.h"
#include "core/Errori.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"

namespace varena {

namespace {

bool HaVirgola(std::string_view riga) { return riga.find(',') != std::string_view::npos; }

// Where the text holds its n-th character, in bytes.
size_t ByteDelCarattere(std::string_view utf8, size_t n) {
  size_t i = 0;
  for (size_t contati = 0; i < utf8.size(); ++i) {
    if ((static_cast<unsigned char>(utf8[i]) & 0xC0) == 0x80) continue;
    if (contati++ == n) return i;
  }
  return utf8.size();
}

// A field that ends a contour's vertices: one of the letters of the line codes, or no
// number above 0, or nothing.
bool FermaVertici(const std::string& campo) {
  if (campo.empty()) return true;
  if (campo.find_first_of("RNVTCP") != std::string::npos) return true;
  return Val(campo) == 0;
}

}  // namespace

int TipoRiga(std::string_view riga) {
  const double v = Val(riga);
  for (int t = 0; t <= 9; ++t)
    if (v == t) return t;
  return -1;
}

bool Numerico(std::string_view testo) {
  const std::string t = Rifila(testo);
  if (t.empty()) return false;
  char* fine = nullptr;
  (void)std::strtod(t.c_str(), &fine);
  // strtod would take "inf", "nan" and hexadecimal: a reading is digits, point, exponent.
  return fine == t.c_str() + t.size() && t.find_first_not_of("0123456789.+-eE") == std::string::npos;
}

std::vector<std::string> PartiRiga(std::string_view riga) { return Dividi(riga, '|'); }

void CampiRiga(std::string_view riga, CampiLibretto& c) {
  for (std::string& campo : c.Campo) campo.clear();
  c.UltimoCampo = 0;
  c.NumeroVerticiRiga = 0;
  if (Rifila(riga).empty()) return;
  const int tipo = TipoRiga(riga);
  if (tipo == 6 && Caratteri(riga) >= 41) {
    c.Campo[0] = "6";
    c.Campo[1] = std::string(riga.substr(ByteDelCarattere(riga, 2)));
    c.UltimoCampo = 1;
    return;
  }
  size_t n = 0;
  for (size_t i = 0; i < riga.size();) {
    const size_t fine = std::min(riga.find('|', i), riga.size());
    if (n >= kMassimoCampi && (fine > i || fine < riga.size())) throw ErroreVarena(kErroreIndice);
    if (n < kMassimoCampi) c.Campo[n].assign(riga.substr(i, fine - i));
    if (fine == riga.size()) break;
    ++n;
    i = fine + 1;
  }
  for (int k = kMassimoCampi - 1; k > 0; --k)
    if (!c.Campo[static_cast<size_t>(k)].empty()) {
      c.UltimoCampo = k;
      break;
    }
  if (tipo != 7) return;
  for (int k = 2; k < kMassimoCampi; ++k)
    if (FermaVertici(c.Campo[static_cast<size_t>(k)])) {
      c.NumeroVerticiRiga = k - 1;
      break;
    }
}

std::string DataCompleta(std::string_view data) {
  if (Caratteri(data) >= 8) return std::string(data);
  const std::string_view anno = data.size() >= 2 ? data.substr(data.size() - 2) : data;
  const std::string secolo = Val(anno) >= 80 ? "19" : "20";
  const size_t quattro = ByteDelCarattere(data, 4);
  return std::string(data.substr(0, quattro)) + secolo + std::string(data.substr(quattro));
}

void DatiDaRigaZero(Sessione& s) {
  s.RoutineCorrente = "DatiDaRigaZero";
  std::vector<std::string> parti;
  if (!s.LibrettoMisure.empty()) parti = PartiRiga(s.LibrettoMisure[0]);
  if (parti.size() < 9) {
    // A heading too short to read is replaced, without a word: the office program would
    // refuse the book otherwise.
    const std::string predefinita = RigaZeroLibrettoDefault(s);
    if (!s.LibrettoMisure.empty()) s.LibrettoMisure[0] = predefinita;
    parti = PartiRiga(predefinita);
  }
  DatiRigaZero& d = s.RigaZero;
  d = {};
  d.Data = DataCompleta(parti[1]);
  d.CampoDue = parti[2];
  d.CodiceComune = parti[3];
  d.Foglio = parti[4];
  d.CampoCinque = parti[5];
  d.CampoSei = parti[6];
  d.CampoSette = parti[7];
  d.CampoOtto = parti[8];
  d.DataBreve = d.CampoDue + (d.Data.size() >= 2 ? d.Data.substr(d.Data.size() - 2) : d.Data);
  d.Anno = d.Data.size() >= 4 ? d.Data.substr(d.Data.size() - 4) : d.Data;
  d.NomeComune = NomeComune(s, d.CodiceComune);
}

std::string ValoreRigaSei(std::string_view riga) {
  const std::vector<std::string> parti = PartiRiga(riga);
  if (parti.size() < 2) return {};
  const std::vector<std::string> valore = Dividi(parti[1], '>');
  return valore.size() < 2 ? std::string() : valore[1];
}

void ValoriRigheSei(Sessione& s) {
  for (const std::string& riga : s.LibrettoMisure) {
    if (riga.find("6|<EST>") != std::string::npos) s.FileEstratto = ValoreRigaSei(riga);
    if (riga.find("6|<COD>") != std::string::npos) s.CodiceLibretto = ValoreRigaSei(riga);
    if (riga.find("6|<ISC>") != std::string::npos) s.CodiceIscrizione = ValoreRigaSei(riga);
  }
}

void AggiornaRigaEstratto(Sessione& s) {
  std::erase_if(s.LibrettoMisure, [](const std::string& r) { return r.find("6|<EST>") != std::string::npos; });
  s.LibrettoMisure.push_back("6|<EST>" + s.FileEstratto + "|");
  s.ContaEntita[SlotLibretto] = static_cast<int32_t>(s.LibrettoMisure.size());
}

void RinominaPuntoLibretto(Sessione& s, std::string_view vecchio, std::string_view nuovo) {
  const std::string v = std::string(vecchio) + "|", n = std::string(nuovo) + "|";
  for (std::string& riga : s.LibrettoMisure) {
    const int tipo = TipoRiga(riga);
    if (tipo == 1) riga = Sostituisci(riga, "1|" + v, "1|" + n);
    if (tipo == 2) riga = Sostituisci(riga, "2|" + v, "2|" + n);
  }
}

IndiceNomi::IndiceNomi(const Sessione& s) {
  for (int32_t k = 0; k < s.ContaEntita[SlotPunti]; ++k)
    if (IdentVivo(s.PuntoIdent[static_cast<size_t>(k)])) righe_[Rifila(s.PuntoNome[static_cast<size_t>(k)])].push_back(k);
}

const std::vector<int32_t>& IndiceNomi::Righe(const std::string& nome) const {
  static const std::vector<int32_t> nessuna;
  const auto it = righe_.find(Rifila(nome));
  return it == righe_.end() ? nessuna : it->second;
}

int32_t IndiceNomi::Primo(const std::string& nome) const {
  const std::vector<int32_t>& r = Righe(nome);
  return r.empty() ? -1 : r.front();
}

void HPSDaLibrettoMisure(Sessione& s) {
  s.RoutineCorrente = "HPSDaLibrettoMisure";
  Protetto(s, [&] {
    const IndiceNomi indice(s);
    CampiLibretto c;
    for (const std::string& riga : s.LibrettoMisure) {
      const int tipo = TipoRiga(riga);
      if ((tipo != 1 && tipo != 2) || HaVirgola(riga)) continue;
      CampiRiga(riga, c);
      const size_t campo = tipo == 1 ? 2 : 5;
      if (!Numerico(c.Campo[campo]) || (tipo == 2 && c.UltimoCampo < 5)) continue;
      for (int32_t k : indice.Righe(c.Campo[1])) s.PuntoHPrisma[static_cast<size_t>(k)] = static_cast<float>(Val(c.Campo[campo]));
    }
    SegnaModificato(s, SlotPunti);
  });
}

void DescrizioniDaLibrettoMisure(Sessione& s) {
  s.RoutineCorrente = "DescrizioniDaLibrettoMisure";
  Protetto(s, [&] {
    const IndiceNomi indice(s);
    CampiLibretto c;
    for (const std::string& riga : s.LibrettoMisure) {
      const int tipo = TipoRiga(riga);
      if ((tipo != 1 && tipo != 2) || HaVirgola(riga)) continue;
      CampiRiga(riga, c);
      // The name alone is no note.
      if (c.UltimoCampo < 2) continue;
      const std::string& nota = c.Campo[static_cast<size_t>(c.UltimoCampo)];
      if (Numerico(nota)) continue;
      for (int32_t k : indice.Righe(c.Campo[1])) {
        const auto r = static_cast<size_t>(k);
        // A row 2 puts its note's leading number in the prism height, 0 for a plain note:
        // the office program's files rely on it.
        if (tipo == 1) s.PuntoDescrizione[r] = nota;
        else s.PuntoHPrisma[r] = static_cast<float>(Val(nota));
      }
    }
    SegnaModificato(s, SlotPunti);
  });
}

void EtichetteDaLibretto(Sessione& s) {
  s.RoutineCorrente = "EtichetteDaLibretto";
  Protetto(s, [&] {
    const IndiceNomi indice(s);
    auto aOgni = [&](const std::string& nome, auto&& f) {
      for (int32_t k : indice.Righe(nome)) f(s.PuntoDescrizione[static_cast<size_t>(k)]);
    };
    // Pass 1: the vertices and directions of rows 7 of one point.
    for (const std::string& riga : s.LibrettoMisure) {
      if (TipoRiga(riga) != 7) continue;
      const std::vector<std::string> p = PartiRiga(riga);
      const std::string codice = p.size() == 5 ? Maiuscolo(p[3]) : std::string();
      if (codice != "PV" && codice != "PD") continue;
      const std::string_view tag = codice == "PV" ? kCodiceVertice : kCodiceDirezione;
      aOgni(p[2], [&](std::string& d) { d = MettiCodice(d, tag); });
    }
    // Passes 2 and 3: a reading of no distance, in the plan form and in the full one.
    for (int passo = 2; passo <= 3; ++passo)
      for (const std::string& riga : s.LibrettoMisure) {
        if (TipoRiga(riga) != 2 || HaVirgola(riga)) continue;
        const std::vector<std::string> p = PartiRiga(riga);
        const size_t ub = p.size() - 1;
        const bool senza = passo == 2 ? ub == 5 && Val(p[3]) == 0 : ub > 5 && Val(p[4]) == 0;
        if (senza) aOgni(p[1], [](std::string& d) { d = MettiCodice(d, kCodiceSoloDirezione); });
      }
    // Pass 4: plan readings, and stations of no height.
    for (const std::string& riga : s.LibrettoMisure) {
      const int tipo = TipoRiga(riga);
      if ((tipo != 1 && tipo != 2) || HaVirgola(riga)) continue;
      const std::vector<std::string> p = PartiRiga(riga);
      const size_t ub = p.size() - 1;
      const bool piano = tipo == 2 ? ub < 6 : ub == 3 && !Numerico(p[2]);
      if (piano && p.size() > 1) aOgni(p[1], [](std::string& d) { d = MettiCodice(d, kCodicePlanimetrico); });
    }
    SegnaModificato(s, SlotPunti);
  });
}

}  // namespace varena
