// Included drawings: read onto "INCLUSI" at every load, guarded against loops.
#include "store/Inclusi.h"

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/TafLettura.h"
#include "store/Carica.h"
#include "store/Cfg.h"
#include "store/Slot.h"

namespace varena {

namespace {

constexpr const char* kTitolo = "Disegno Incluso";

bool DiTaf(const std::string& nome) { return Maiuscolo(nome).find(".TAF") != std::string::npos; }
bool DiLavoro(const std::string& nome) { return FinisceCon(Maiuscolo(nome), ".CFG"); }

std::string SenzaCfg(const std::string& p) { return DiLavoro(p) ? p.substr(0, p.size() - 4) : p; }

// Two names of one job: separators, letter case and ".CFG" aside.
bool StessoLavoro(const std::string& a, const std::string& b) {
  auto chiave = [](const std::string& p) { return Maiuscolo(PercorsoAssoluto(NormalizzaPercorso(SenzaCfg(p)))); };
  return !Rifila(a).empty() && !Rifila(b).empty() && chiave(a) == chiave(b);
}

// What another job's settings tell about it: its edition (the colours of the oldest one are
// read through the old palette) and what it includes. A file that breaks off gives what it
// had.
struct CfgAltroLavoro {
  std::string Edizione;
  std::vector<std::string> Inclusi;
};
CfgAltroLavoro LeggiCfgAltroLavoro(const std::string& cfg) {
  CfgAltroLavoro c;
  CfgLavoro blocchi;
  try {
    const auto byte = LeggiByte(cfg);
    if (!byte) return c;
    LettoreLista in(Cp1252InUtf8(*byte));
    if (in.Fine()) return c;
    c.Edizione = in.LeggiTesto();
    LeggiBloccoA(in, blocchi.A);
    if (c.Edizione == "VR2020" || c.Edizione == "VR2000") LeggiBloccoB(in, blocchi.B);
  } catch (...) {
  }
  c.Inclusi = ElencoInclusi(blocchi.VB(B_FileAssociati, 0).Testo);
  return c;
}

// The kinds another job brings, each with its loader and its layer column.
struct TipoIncluso {
  int Slot;
  void (*Carica)(Sessione&);
  Colonna<std::string> Sessione::*Piano;
};
const TipoIncluso kTipiInclusi[] = {
    {SlotPunti, CaricaPunti, &Sessione::PuntoPiano},   {SlotLinee, CaricaLinee, &Sessione::LineaPiano},
    {SlotCerchi, CaricaCerchi, &Sessione::CerchioPiano}, {SlotArchi, CaricaArchi, &Sessione::ArcoPiano},
    {SlotTesti, CaricaTesti, &Sessione::TestoPiano},
};

// Another job's members appended to the tables, through the job's own loaders pointed at
// it for the while. Its rows left out stay out of this job's report, and its errors mark
// none of this job's members as damaged.
void IncludiLavoro(Sessione& s, const std::string& cfg) {
  if (StessoLavoro(cfg, s.NomeOriginale)) return;
  const std::string nome = s.NomeLavoro, edizione = s.Edizione, errore = s.UltimoErrore;
  const auto nonValide = s.RigheNonValide;
  s.NomeLavoro = SenzaCfg(cfg);
  s.Edizione = LeggiCfgAltroLavoro(cfg).Edizione;
  s.UltimoErrore.clear();
  for (const TipoIncluso& t : kTipiInclusi) {
    const int32_t primo = s.ContaEntita[t.Slot];
    t.Carica(s);
    Colonna<std::string>& piano = s.*t.Piano;
    for (int32_t r = primo; r < s.ContaEntita[t.Slot]; ++r) piano[static_cast<size_t>(r)] = kPianoInclusi;
  }
  const bool guasto = !s.UltimoErrore.empty();
  s.NomeLavoro = nome;
  s.Edizione = edizione;
  s.UltimoErrore = errore;
  s.RigheNonValide = nonValide;
  if (guasto) s.Ui->Messaggio("Disegno incluso danneggiato, letto in parte:\n" + cfg, kTitolo, Icona::Avviso);
}

}  // namespace

bool PianoIncluso(std::string_view piano) { return Rifila(piano) == kPianoInclusi; }

std::vector<std::string> ElencoInclusi(std::string_view associati) {
  std::vector<std::string> inclusi;
  for (const std::string& nome : Dividi(associati, '|'))
    if (!Rifila(nome).empty()) inclusi.push_back(Rifila(nome));
  return inclusi;
}

void CaricaDisegniInclusi(Sessione& s) {
  for (const std::string& nome : ElencoInclusi(s.Cfg.VB(B_FileAssociati, 0).Testo)) {
    if (DiTaf(nome)) {
      IncludiTaf(s, nome);
    } else if (DiLavoro(nome)) {
      if (const auto cfg = TrovaFile(NormalizzaPercorso(nome))) IncludiLavoro(s, *cfg);
    }
  }
}

bool NominaInclusi(const Sessione& s) {
  for (const std::string& nome : ElencoInclusi(s.Cfg.VB(B_FileAssociati, 0).Testo))
    if (DiTaf(nome) || DiLavoro(nome)) return true;
  return false;
}

void AvvisaInclusiMancanti(Sessione& s) {
  std::string mancanti;
  for (const std::string& nome : ElencoInclusi(s.Cfg.VB(B_FileAssociati, 0).Testo))
    if ((DiTaf(nome) || DiLavoro(nome)) && !TrovaFile(NormalizzaPercorso(nome))) mancanti += "\n" + nome;
  if (!mancanti.empty()) s.Ui->Messaggio("Disegni inclusi non trovati:" + mancanti, kTitolo, Icona::Avviso);
}

bool InclusioneCircolare(Sessione& s, const std::string& percorso) {
  if (!DiLavoro(percorso)) return false;
  std::string testo;
  if (StessoLavoro(percorso, s.NomeOriginale)) {
    testo = "Un Lavoro non può includere se stesso!";
  } else {
    const auto cfg = TrovaFile(NormalizzaPercorso(percorso));
    if (!cfg) return false;
    for (const std::string& suo : LeggiCfgAltroLavoro(*cfg).Inclusi)
      if (StessoLavoro(suo, s.NomeOriginale)) testo = "Il Lavoro " + Foglia(SenzaCfg(*cfg)) + " include già questo!";
    if (testo.empty()) return false;
  }
  s.Ui->Messaggio(testo, "Includi Disegno", Icona::Avviso);
  return true;
}

}  // namespace varena
