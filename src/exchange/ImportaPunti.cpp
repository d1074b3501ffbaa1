// The point file imports: the table of formats, the adapter into the job, the commands.
#include "exchange/ImportaPunti.h"

#include <algorithm>

#include "commands/Costruttori.h"
#include "core/Errori.h"
#include "core/File.h"
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
    {FormatoPunti::Nuvola, "nuvola", "ImportaNuvola", "File Nuvola   (*.XYZ)|*.XYZ|", "VR4", ""},
    {FormatoPunti::Vr4, "vr4", "CaricaVR4", "File VR100 / VR4     (*.L)|*.L|", "VR4", ""},
    // The tables of the text import: the CSV as the point export writes it (North before
    // East), the xyz of Pregeo and a generic text East before North.
    {FormatoPunti::Csv, "csv", "CaricaTXT", "Importa file CSV (*.CSV)|*.CSV|", "", "NYXZD"},
    {FormatoPunti::Xyz, "xyz", "CaricaTXT", "Importa file xyz di Pregeo (*.xyz)|*.xyz|", "", "NXYZD"},
    {FormatoPunti::Txt, "txt", "CaricaTXT", "Generico file TXT (*.TXT)|*.TXT|", "", "NXYZD"},
};

constexpr const char* kFiltroTesti =
    "Importa file CSV (*.CSV)|*.CSV|Importa file xyz di Pregeo (*.xyz)|*.xyz|Generico file TXT (*.TXT)|*.TXT|"
    "Generico (*.*)|*.*|";

// The adapter: each point a row with the drawing defaults, its origin in the font field.
class PuntiNelLavoro : public DestinoPunti {
 public:
  PuntiNelLavoro(Sessione& s, std::string piano) : s_(s), piano_(std::move(piano)) {}
  void Punto(std::string_view nome, std::string_view descrizione, double x, double y, double z,
             std::string_view font) override {
    const int32_t r = ScriviPunto(s_, nome, {x, y, z}, descrizione, piano_);
    if (!font.empty()) s_.PuntoFont[static_cast<size_t>(r)] = std::string(font);
  }
  void RigaLibretto(std::string riga) override { s_.LibrettoMisure.push_back(Rifila(riga)); }
  void PuntoSuPiano(std::string_view nome, double x, double y, double z, std::string_view piano) override {
    ScriviPunto(s_, nome, {x, y, z}, {}, piano.empty() ? piano_ : piano);
  }
  void Linea(double x1, double y1, double z1, double x2, double y2, double z2, std::string_view piano) override {
    ScriviLinea(s_, {x1, y1, z1}, {x2, y2, z2}, piano.empty() ? piano_ : piano);
    SegnaModificato(s_, SlotLinee);
  }
  void Cerchio(double x, double y, double z, double raggio, std::string_view piano) override {
    ScriviCerchio(s_, {x, y, z}, raggio, piano.empty() ? piano_ : piano);
    SegnaModificato(s_, SlotCerchi);
  }

 private:
  Sessione& s_;
  std::string piano_;
};

// Room for a point on every line of the file, asked once: columns grown by doubling would
// allocate, clear and copy twice what a large cloud fills. Room asked and not used costs
// no memory, only addresses.
void RiservaPunti(Sessione& s, std::string_view byte) {
  const auto righe = static_cast<size_t>(std::count(byte.begin(), byte.end(), '\n')) + 1;
  const size_t n = static_cast<size_t>(s.ContaEntita[SlotPunti]) + righe + 12;
  static_cast<TabellaPunti&>(s).PerOgniColonna([n](auto& colonna) { colonna.reserve(n); });
}

EsitoLettura Leggi(FormatoPunti f, std::string_view testo, const OpzioniTesto& o, DestinoPunti& d,
                   const AvanzamentoLettura& a) {
  switch (f) {
    case FormatoPunti::Ril: return LeggiPuntiRil(testo, d, a);
    case FormatoPunti::Sho: return LeggiPuntiSho(testo, d, a);
    case FormatoPunti::Gsi: return LeggiPuntiGsi(testo, d, a);
    case FormatoPunti::Nuvola: return LeggiNuvola(testo, d, a);
    case FormatoPunti::Vr4: return LeggiPuntiVR4(testo, d, a);
    case FormatoPunti::Csv:
    case FormatoPunti::Xyz:
    case FormatoPunti::Txt: return LeggiPuntiTesto(testo, o, d, a);
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
    // Raw storage: a cloud is hundreds of megabytes, not worth zeroing before the read.
    const auto dati = LeggiDati(percorso);
    if (!dati) {
      s.Ui->Messaggio("File non trovato:\n" + percorso, d.Routine, Icona::Avviso);
      return;
    }
    const std::string_view byte(reinterpret_cast<const char*>(dati->Byte.get()), dati->Lunghezza);
    RiservaPunti(s, byte);
    PuntiNelLavoro destino(s, *d.Piano ? std::string(d.Piano) : s.PianoCorrente);
    const EsitoLettura e = Leggi(f, byte, o, destino, avanzamento);
    if (esito) *esito = e;
    if (avanzamento) s.Ui->Progresso(0, 0);
    if (e.Interrotto) return;
    const std::string danni = DescriviRigheDanneggiate(e);
    if (e.Punti + e.Altre == 0) {
      s.Ui->Messaggio("Nessun punto letto:\n" + percorso + (danni.empty() ? "" : "\n" + danni), d.Routine,
                      Icona::Avviso);
      return;
    }
    if (!danni.empty()) s.Ui->Messaggio(danni + "\n" + percorso, d.Routine, Icona::Avviso);
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
void ImportaNuvola(Sessione& s) { Comando(s, FormatoPunti::Nuvola); }
void CaricaVR4(Sessione& s) { Comando(s, FormatoPunti::Vr4); }

void CaricaPuntiCXF(Sessione& s) {
  s.RoutineCorrente = "CaricaTXT0-0";
  const auto scelto = s.Ui->ScegliFile(false, "Importa da File Testo : ", kFiltroTesti, "", "");
  if (!scelto || scelto->empty()) return;
  const std::string estensione = Maiuscolo(scelto->substr(scelto->rfind('.') == std::string::npos ? scelto->size()
                                                                                                   : scelto->rfind('.') + 1));
  const FormatoPunti f = estensione == "CSV" ? FormatoPunti::Csv : estensione == "XYZ" ? FormatoPunti::Xyz : FormatoPunti::Txt;
  OpzioniTesto o;
  o.Colonne = FormatoDi(f).Colonne;
  if (!ImportaPunti(s, f, *scelto, o, nullptr, BarraDi(s))) return;
  TuttoTutto(s);
  VR_SalvaUndo(s);
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
