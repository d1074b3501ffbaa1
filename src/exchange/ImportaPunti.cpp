// The point file imports: the table of formats, the adapter into the job, the commands.
#include "exchange/ImportaPunti.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "cadastre/ContornoSette.h"
#include "commands/Costruttori.h"
#include "core/Errori.h"
#include "core/Colori.h"
#include "core/Dialoghi.h"
#include "core/ImpostazioniUtente.h"
#include "core/File.h"
#include "core/FileTabella.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/DxfLettura.h"
#include "store/Provvisorio.h"
#include "store/Undo.h"
#include "view/Zoom.h"

namespace varena {

namespace {

constexpr DescrizioneFormatoPunti kFormati[] = {
    {FormatoPunti::Ril, "ril", "CaricaPuntiRil",
     "File RIL xyz   (*.RIL)|*.RIL|File RIL xyz   (*.RAW)|*.RAW|Generico file *.* (*.*)|*.*|", "RIL", ""},
    {FormatoPunti::Sho, "sho", "CaricaPuntiSHO", "File SHO xyz   (*.SHO)|*.SHO|", "", ""},
    {FormatoPunti::Gsi, "gsi", "CaricaPuntiGSI", "File Leica XYZ (*.GSI)|*.GSI|", "", ""},
    {FormatoPunti::Asc, "asc", "CaricaPuntiASC", "File asc   (*.asc)|*.asc|Generico file *.* (*.*)|*.*|", "ASC", ""},
    {FormatoPunti::Nuvola, "nuvola", "ImportaNuvola", "File Nuvola   (*.XYZ)|*.XYZ|", "VR4", ""},
    {FormatoPunti::Vr4, "vr4", "CaricaVR4", "File VR100 / VR4     (*.L)|*.L|", "VR4", ""},
    // The tables of the text import: the CSV as the point export writes it (North before
    // East), the xyz of Pregeo and a generic text East before North.
    {FormatoPunti::Csv, "csv", "CaricaTXT", "Importa file CSV (*.CSV)|*.CSV|", "", "NYXZD"},
    {FormatoPunti::Xyz, "xyz", "CaricaTXT", "Importa file xyz di Pregeo (*.xyz)|*.xyz|", "", "NXYZD"},
    {FormatoPunti::Txt, "txt", "CaricaTXT", "Generico file TXT (*.TXT)|*.TXT|", "", "NXYZD"},
    {FormatoPunti::LineeDxf, "linee-dxf", "CaricaLineeDaDXF", "Generico (*.*)|*.*|", "", ""},
};

constexpr const char* kFiltroTesti =
    "Importa file CSV (*.CSV)|*.CSV|Importa file xyz di Pregeo (*.xyz)|*.xyz|Generico file TXT (*.TXT)|*.TXT|"
    "Generico (*.*)|*.*|";

// A line drawn by a field-book manager on the layer of one of its structures takes the pen
// this program draws that structure with: the links of the scheme as the book's scheme, the
// contours by their codes (R, N the pen; C, T, P the line type), as a contour's own codes
// set them. The triangles and the extract, which the book does not draw here, take the
// colours the script for an outside CAD gives their layers: green and yellow.
void PennaStruttura(std::string_view piano, int32_t& penna, int16_t& tratteggio) {
  if (piano == "LINEE_SCHEMA") {
    penna = 12, tratteggio = 2;
  } else if (piano == "LINEE_TRIANGOLO") {
    penna = 3;
  } else if (piano == "LINEE_ESTRATTO") {
    penna = 2;
  } else if (piano.size() == 8 && IniziaCon(piano, "LINEE_") && (piano[6] == 'R' || piano[6] == 'N') &&
             (piano[7] == 'C' || piano[7] == 'T' || piano[7] == 'P')) {
    int stile = tratteggio;
    CodiceLinea(piano.substr(6), penna, stile);
    tratteggio = static_cast<int16_t>(stile);
  }
}

// The adapter: each point a row with the drawing defaults, its origin in the font field.
class PuntiNelLavoro : public DestinoPunti {
 public:
  PuntiNelLavoro(Sessione& s, std::string piano)
      : s_(s), piano_(std::move(piano)), librettoAperto_(!s.LibrettoMisure.empty()) {}
  void Punto(std::string_view nome, std::string_view descrizione, double x, double y, double z,
             std::string_view font) override {
    const int32_t r = ScriviPunto(s_, nome, {x, y, z}, descrizione, piano_);
    if (!font.empty()) s_.PuntoFont[static_cast<size_t>(r)] = std::string(font);
  }
  // A book already begun keeps its own heading: the opening rows 0 and 9 of a report go
  // only into an empty one.
  void RigaLibretto(std::string riga) override {
    if (librettoAperto_ && (IniziaCon(riga, "0|") || IniziaCon(riga, "9|"))) return;
    s_.LibrettoMisure.push_back(Rifila(riga));
  }
  void PuntoSuPiano(std::string_view nome, double x, double y, double z, std::string_view piano) override {
    // A symbol with no name stands in for a point whose name is a text of its own: it gets
    // one until that text, tied to it afterwards, names it.
    std::string nominato(nome);
    if (piano == "PUNTI_S" && Rifila(nome).empty())
      nominato = "PuntiSenzaNome" + FormatoMaschera(s_.ContaEntita[SlotPunti] + 1, "############");
    ScriviPunto(s_, nominato, {x, y, z}, {}, piano.empty() ? piano_ : piano);
  }
  void Linea(double x1, double y1, double z1, double x2, double y2, double z2, std::string_view piano) override {
    const auto k = static_cast<size_t>(ScriviLinea(s_, {x1, y1, z1}, {x2, y2, z2}, piano.empty() ? piano_ : piano));
    PennaStruttura(piano, s_.LineaColore[k], s_.LineaTratteggio[k]);
    SegnaModificato(s_, SlotLinee);
  }
  void Cerchio(double x, double y, double z, double raggio, std::string_view piano) override {
    ScriviCerchio(s_, {x, y, z}, raggio, piano.empty() ? piano_ : piano);
    SegnaModificato(s_, SlotCerchi);
  }
  void Arco(double x, double y, double z, double raggio, double inizio, double ampiezza, std::string_view piano) override {
    ScriviArco(s_, {x, y, z}, raggio, inizio, ampiezza, z, z, piano.empty() ? piano_ : piano);
    SegnaModificato(s_, SlotArchi);
  }
  void Testo(double x, double y, std::string_view testo, std::string_view piano) override {
    if (CampoDelPunto(piano)) {
      legati_.push_back({x, y, std::string(testo), std::string(piano)});
      return;
    }
    ScriviTesto(s_, x, y, testo, s_.Imp.AltezzaTestoDefault, 0, s_.Imp.Colore_Default, s_.Imp.FontTestoDefault,
                piano.empty() ? piano_ : piano);
    SegnaModificato(s_, SlotTesti);
  }
  // The texts of the point layers given to the point read at their place, among those from
  // `primo` on; one with no point there stays a text.
  void LegaTesti(int32_t primo);

 private:
  struct TestoLegato {
    double X, Y;
    std::string Testo, Piano;
  };
  // The layers on which a CAD drawing of this program's points writes their labels.
  static bool CampoDelPunto(std::string_view piano) {
    return piano == "PUNTI_N" || piano == "PUNTI_D" || piano == "PUNTI_Q" || piano == "PUNTI_HPS";
  }
  Sessione& s_;
  std::string piano_;
  bool librettoAperto_;
  std::vector<TestoLegato> legati_;
};

// Room for a point on every line of the file, asked once: columns grown by doubling would
// allocate, clear and copy twice what a large cloud fills. Room asked and not used costs
// no memory, only addresses.
void RiservaPunti(Sessione& s, std::string_view byte) {
  const auto righe = static_cast<size_t>(std::count(byte.begin(), byte.end(), '\n')) + 1;
  const size_t n = static_cast<size_t>(s.ContaEntita[SlotPunti]) + righe + 12;
  static_cast<TabellaPunti&>(s).PerOgniColonna([n](auto& colonna) { colonna.reserve(n); });
}

void PuntiNelLavoro::LegaTesti(int32_t primo) {
  // Only a CAD table brings such texts: a cloud of millions of points is not indexed for none.
  if (legati_.empty()) return;
  // A point by its place to the millimetre, as the drawing that wrote the table placed it.
  auto chiave = [](double x, double y) {
    return std::to_string(std::llround(x * 1000)) + "," + std::to_string(std::llround(y * 1000));
  };
  std::unordered_map<std::string, size_t> posti;
  for (auto k = static_cast<size_t>(primo); k < static_cast<size_t>(s_.ContaEntita[SlotPunti]); ++k)
    posti.emplace(chiave(s_.PuntoX[k], s_.PuntoY[k]), k);
  for (const TestoLegato& t : legati_) {
    const auto p = std::isfinite(t.X) && std::isfinite(t.Y) && std::abs(t.X) < 1e12 && std::abs(t.Y) < 1e12
                       ? posti.find(chiave(t.X, t.Y))
                       : posti.end();
    if (p == posti.end()) {
      ScriviTesto(s_, t.X, t.Y, t.Testo, s_.Imp.AltezzaTestoDefault, 0, s_.Imp.Colore_Default,
                  s_.Imp.FontTestoDefault, t.Piano);
      SegnaModificato(s_, SlotTesti);
      continue;
    }
    const size_t k = p->second;
    if (t.Piano == "PUNTI_N") s_.PuntoNome[k] = t.Testo;
    if (t.Piano == "PUNTI_D") s_.PuntoDescrizione[k] = t.Testo;
    if (t.Piano == "PUNTI_Q") s_.PuntoZ[k] = Val(VirgolaInPunto(t.Testo));
    if (t.Piano == "PUNTI_HPS") s_.PuntoHPrisma[k] = static_cast<float>(Val(VirgolaInPunto(t.Testo)));
  }
  legati_.clear();
}

// `ColoriVR4.ini` of the working root: "NOME=", "DESCRIZIONE=", "SIMBOLO=", "QUOTA=" give the
// colours of the four parts of the points of an older job. Read tolerantly, since users
// write it by hand: any case, blanks anywhere, ";" comments, "[...]" headings passed over; a
// key unknown, a value that is no colour index, or a file that is not text change nothing.
void ColoriVR4(Sessione& s, int32_t primo) {
  std::optional<std::string> testo;
  try {
    testo = LeggiTestoImpostazioni(s, "ColoriVR4.ini", s.CartellaLavoro + "ColoriVR4.ini");
  } catch (const std::exception&) {
    return;
  }
  if (!testo) return;
  struct Parte {
    const char* Chiave;
    Colonna<int32_t> Sessione::*Campo;
  };
  static constexpr Parte kParti[] = {{"NOME", &Sessione::PuntoColoreNome},
                                     {"DESCRIZIONE", &Sessione::PuntoColoreDescrizione},
                                     {"SIMBOLO", &Sessione::PuntoColoreSimbolo},
                                     {"QUOTA", &Sessione::PuntoColoreQuota}};
  for (const std::string& riga : RigheTesto(*testo)) {
    const std::string r = riga.substr(0, riga.find(';'));
    const size_t uguale = r.find('=');
    if (uguale == std::string::npos) continue;
    const std::string chiave = Maiuscolo(Rifila(r.substr(0, uguale))), valore = Rifila(r.substr(uguale + 1));
    if (!EUnNumero(valore) || Val(valore) < 0 || Val(valore) > kMassimoColori || Val(valore) != std::floor(Val(valore)))
      continue;
    for (const Parte& p : kParti)
      if (chiave == p.Chiave)
        for (auto k = static_cast<size_t>(primo); k < static_cast<size_t>(s.ContaEntita[SlotPunti]); ++k)
          (s.*p.Campo)[k] = static_cast<int32_t>(Val(valore));
  }
}

EsitoLettura Leggi(FormatoPunti f, std::string_view testo, const OpzioniTesto& o, DestinoPunti& d,
                   const AvanzamentoLettura& a) {
  switch (f) {
    case FormatoPunti::Ril: return LeggiPuntiRil(testo, d, a);
    case FormatoPunti::Sho: return LeggiPuntiSho(testo, d, a);
    case FormatoPunti::Gsi: return LeggiPuntiGsi(testo, d, a);
    case FormatoPunti::Asc: return LeggiPuntiAsc(testo, d, a);
    case FormatoPunti::Nuvola: return LeggiNuvola(testo, d, a);
    case FormatoPunti::Vr4: return LeggiPuntiVR4(testo, d, a);
    case FormatoPunti::Csv:
    case FormatoPunti::Xyz:
    case FormatoPunti::Txt: return LeggiPuntiTesto(testo, o, d, a);
    case FormatoPunti::LineeDxf: return LeggiLineeDxf(testo, d, a);
  }
  return {};
}

// The bar of the desktop follows the reading, and its button stops it.
AvanzamentoLettura BarraDi(Sessione& s) {
  return [&s](int64_t fatto, int64_t totale) {
    s.Ui->Progresso(fatto, totale);
    return !s.Ui->Interrotto();
  };
}

void Comando(Sessione& s, FormatoPunti f) {
  const DescrizioneFormatoPunti& d = FormatoDi(f);
  s.RoutineCorrente = d.Routine;
  // No armed command may pick up the points' clicks afterwards.
  s.ComandoCorrente = 0;
  const auto scelto = s.Ui->ScegliFile(false, "Importa Punti", d.Filtro, "", "");
  if (!scelto || scelto->empty()) return;
  OpzioniTesto o;
  o.Colonne = d.Colonne;
  if (!ImportaPunti(s, f, *scelto, o, nullptr, BarraDi(s))) return;
  TuttoTutto(s);
  VR_SalvaUndo(s);
}

// The reading of a text table and what follows it, under the tags of its phases.
void CaricaTesto(Sessione& s, FormatoPunti f, const std::string& percorso, const OpzioniTesto& o) {
  s.RoutineCorrente = "Caricatxt";
  if (!ImportaPunti(s, f, percorso, o, nullptr, BarraDi(s))) return;
  s.RoutineCorrente = "CaricaTXT1";
  TuttoTutto(s);
  VR_SalvaUndo(s);
  s.RoutineCorrente = "CaricaTXT0-1";
}

constexpr const char* kSezioneTesti = "CaricaTXT";
// The orders a surveyor meets most: East before North as Pregeo and most instruments write,
// North first as the CSV export does, the description before the coordinates, the bare
// coordinates of a scanner, and the point list's copy with its progressive number first.
constexpr const char* kColonneDefault[] = {"NXYZD", "NYXZD", "NDXYZ", "NDYXZ", "XYZ", "YXZ", "-NYXZD"};
static_assert(std::size(kColonneDefault) == kListeColonne);

std::string VoceLista(Sessione& s, int n) { return "DAT" + std::to_string(n) + " " + ListaColonne(s, n); }

// "Importa da File Testo : " on the chosen file: the stored column lists offered, the last one
// picked shown (at first the one of the file's kind), and the prefix of names made of digits.
// What is picked, and a list the user changed, are kept for the next time.
void ApriCaricaTXT(Sessione& s, FormatoPunti f, const std::string& percorso) {
  const std::string predefinite = FormatoDi(f).Colonne;
  int ultima = UltimaListaColonne(s);
  for (int n = 1; n <= kListeColonne && ultima == 0; ++n)
    if (ListaColonne(s, n) == predefinite) ultima = n;
  Dialogo d;
  d.Nome = "CaricaTXT";
  d.Titolo = "Importa da File Testo : " + percorso;
  d.AggiungiCampo("Colonne", "Colonne (N Nome, X Est, Y Nord, Z Quota, D Descrizione, - nessuna) :",
                  ultima ? VoceLista(s, ultima) : predefinite);
  for (int n = 1; n <= kListeColonne; ++n) d.Campo("Colonne")->Scelte.push_back(VoceLista(s, n));
  d.AggiungiCampo("Prefisso", "Prefisso dei Nomi numerici :", "PF");
  d.AggiungiBottone("Importa", "Importa", [f, percorso](Sessione& x) {
    const Dialogo* g = TrovaDialogo(x, "CaricaTXT");
    if (!g) return;
    const auto scelta = LeggiSceltaColonne(x, g->Valore("Colonne"));
    if (!scelta) {
      x.Ui->Messaggio("Colonne non valide: " + g->Valore("Colonne"), "Importa da File Testo : ", Icona::Avviso);
      return;
    }
    if (scelta->Lista) {
      ScriviImpostazioneUtente(x, kSezioneTesti, "DAT" + std::to_string(scelta->Lista), scelta->Colonne);
      ScriviImpostazioneUtente(x, kSezioneTesti, "CARICA_TIPO_FILE", std::to_string(scelta->Lista));
    }
    OpzioniTesto o;
    o.Colonne = scelta->Colonne;
    o.Prefisso = Rifila(g->Valore("Prefisso"));
    ChiudiDialogo(x, "CaricaTXT");
    CaricaTesto(x, f, percorso, o);
  });
  d.AggiungiBottone("Annulla", "Annulla", [](Sessione& x) { ChiudiDialogo(x, "CaricaTXT"); });
  d.BottoneEsc = "Annulla";
  ApriDialogo(s, std::move(d));
}

}  // namespace

std::span<const DescrizioneFormatoPunti> FormatiPunti() { return kFormati; }

const DescrizioneFormatoPunti* TrovaFormatoPunti(std::string_view parola) {
  for (const DescrizioneFormatoPunti& d : kFormati)
    if (UgualeSenzaCaso(parola, d.Parola)) return &d;
  return nullptr;
}

const DescrizioneFormatoPunti& FormatoDi(FormatoPunti f) {
  for (const DescrizioneFormatoPunti& d : kFormati)
    if (d.Formato == f) return d;
  return kFormati[0];
}

bool ImportaPunti(Sessione& s, FormatoPunti f, const std::string& percorso, const OpzioniTesto& o,
                  EsitoLettura* esito, const AvanzamentoLettura& avanzamento) {
  const DescrizioneFormatoPunti& d = FormatoDi(f);
  s.RoutineCorrente = d.Routine;
  const auto prima = s.ContaEntita;
  const size_t righeLibretto = s.LibrettoMisure.size();
  bool letto = false;
  const bool ok = Protetto(s, [&] {
    // The bar runs over the reading of the file, then over its lines: a file of gigabytes
    // shows both and can be stopped in either.
    bool fermato = false;
    const auto byte = avanzamento ? LeggiByte(percorso, [&](int64_t fatto, int64_t totale) {
      fermato = !avanzamento(fatto / 2, totale);
      return !fermato;
    })
                                  : LeggiByte(percorso);
    if (fermato) {
      if (esito) esito->Interrotto = true;
      s.Ui->Progresso(0, 0);
      return;
    }
    if (!byte) {
      s.Ui->Messaggio("File non trovato:\n" + percorso, d.Routine, Icona::Avviso);
      return;
    }
    RiservaPunti(s, *byte);
    PuntiNelLavoro destino(s, *d.Piano ? std::string(d.Piano) : s.PianoCorrente);
    const AvanzamentoLettura secondaMeta = [&](int64_t fatto, int64_t totale) {
      return avanzamento(totale / 2 + fatto / 2, totale);
    };
    const EsitoLettura e = Leggi(f, *byte, o, destino, avanzamento ? secondaMeta : AvanzamentoLettura());
    if (esito) *esito = e;
    if (avanzamento) s.Ui->Progresso(0, 0);
    if (e.Interrotto) return;
    const std::string danni = DescriviRigheDanneggiate(e);
    // A report of readings alone brings only field-book rows: those are what it is for.
    if (e.Punti + e.Altre == 0 && s.LibrettoMisure.size() == righeLibretto) {
      s.Ui->Messaggio("Nessun punto letto:\n" + percorso + (danni.empty() ? "" : "\n" + danni), d.Routine,
                      Icona::Avviso);
      return;
    }
    if (!danni.empty()) s.Ui->Messaggio(danni + "\n" + percorso, d.Routine, Icona::Avviso);
    destino.LegaTesti(prima[SlotPunti]);
    if (f == FormatoPunti::Vr4) ColoriVR4(s, prima[SlotPunti]);
    letto = true;
    RicostruisciPianiDxf(s);
  });
  // Nothing of a file that did not come in stays behind.
  if (!letto) {
    s.ContaEntita = prima;
    s.LibrettoMisure.resize(righeLibretto);
  }
  if (s.ContaEntita[SlotPunti] != prima[SlotPunti]) SegnaModificato(s, SlotPunti);
  if (s.LibrettoMisure.size() != righeLibretto) SegnaModificato(s, SlotLibretto);
  s.ContaEntita[SlotLibretto] = static_cast<int32_t>(s.LibrettoMisure.size());
  return ok && letto;
}

void CaricaPuntiRil(Sessione& s) { Comando(s, FormatoPunti::Ril); }
void CaricaPuntiSHO(Sessione& s) { Comando(s, FormatoPunti::Sho); }
void CaricaPuntiGSI(Sessione& s) { Comando(s, FormatoPunti::Gsi); }
void CaricaPuntiASC(Sessione& s) { Comando(s, FormatoPunti::Asc); }
void ImportaNuvola(Sessione& s) { Comando(s, FormatoPunti::Nuvola); }
void CaricaVR4(Sessione& s) { Comando(s, FormatoPunti::Vr4); }

std::string ListaColonne(Sessione& s, int n) {
  if (n < 1 || n > kListeColonne) return {};
  const std::string letta = LeggiImpostazioneUtente(s, kSezioneTesti, "DAT" + std::to_string(n), "");
  return ColonneValide(letta).value_or(kColonneDefault[n - 1]);
}

int UltimaListaColonne(Sessione& s) {
  const std::string t = Rifila(LeggiImpostazioneUtente(s, kSezioneTesti, "CARICA_TIPO_FILE", ""));
  const int n = t.size() == 1 ? t[0] - '0' : 0;
  return n >= 1 && n <= kListeColonne ? n : 0;
}

std::optional<std::string> ColonneValide(std::string_view testo) {
  std::string c;
  for (char k : Maiuscolo(testo)) {
    if (k == ' ' || k == '\t') continue;
    if (std::string_view("NXYZD-").find(k) == std::string_view::npos) return std::nullopt;
    if (k != '-' && c.find(k) != std::string::npos) return std::nullopt;
    c += k;
  }
  if (c.find('X') == std::string::npos || c.find('Y') == std::string::npos) return std::nullopt;
  return c;
}

std::optional<SceltaColonne> LeggiSceltaColonne(Sessione& s, std::string_view testo) {
  const std::string t = Rifila(testo);
  // "DAT" and the list's number, then what the user left or typed of its order.
  const int n = t.size() >= 4 && UgualeSenzaCaso(t.substr(0, 3), "DAT") ? t[3] - '0' : 0;
  if (n >= 1 && n <= kListeColonne && (t.size() == 4 || t[4] == ' ')) {
    if (t.size() == 4) return SceltaColonne{ListaColonne(s, n), n};
    const auto c = ColonneValide(t.substr(5));
    return c ? std::optional(SceltaColonne{*c, n}) : std::nullopt;
  }
  const auto c = ColonneValide(t);
  return c ? std::optional(SceltaColonne{*c, 0}) : std::nullopt;
}

void CaricaPuntiCXF(Sessione& s) {
  s.RoutineCorrente = "CaricaTXT0-0";
  const auto scelto = s.Ui->ScegliFile(false, "Importa da File Testo : ", kFiltroTesti, "", "");
  if (!scelto || scelto->empty()) return;
  const std::string estensione = Maiuscolo(scelto->substr(scelto->rfind('.') == std::string::npos ? scelto->size()
                                                                                                   : scelto->rfind('.') + 1));
  const FormatoPunti f = estensione == "CSV"   ? FormatoPunti::Csv
                         : estensione == "XYZ" ? FormatoPunti::Xyz
                         : estensione == "DXF" ? FormatoPunti::LineeDxf
                                               : FormatoPunti::Txt;
  if (f == FormatoPunti::LineeDxf) {
    CaricaTesto(s, f, *scelto, {});
    return;
  }
  ApriCaricaTXT(s, f, *scelto);
}

bool ImportaPuntiAvvio(Sessione& s, FormatoPunti f, const std::string& percorso) {
  ImpostaNomeProvvisorio(s);
  OpzioniTesto o;
  o.Colonne = FormatoDi(f).Colonne;
  if (!ImportaPunti(s, f, percorso, o, nullptr, BarraDi(s))) return false;
  TuttoTutto(s);
  VR_SalvaUndo(s);
  return true;
}

}  // namespace varena
