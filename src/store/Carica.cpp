// The member loaders and the load sequence of a job.
#include "store/Carica.h"

#include <algorithm>
#include <cstring>
#include <ctime>

#include "cadastre/CodiciPunto.h"
#include "cadastre/Estratto.h"
#include "core/CodicePagina.h"
#include "core/Configura.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Record.h"
#include "core/Riparazioni.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "exchange/Importatori.h"
#include "sections/FileSezioni.h"
#include "store/Cfg.h"
#include "store/Inclusi.h"
#include "store/Provvisorio.h"
#include "store/SalvataggioInterrotto.h"
#include "store/Slot.h"
#include "store/Undo.h"
#include "terrain/Curve.h"
#include "view/Rigenera.h"
#include "view/Zoom.h"

namespace varena {

namespace {

bool Vr2000(const Sessione& s) { return s.Edizione == "VR2000"; }

// A record member: read whole, counted half to even, copied, repaired row by row. A
// partial last record is completed with the bytes the record buffer held before it, as
// the legacy read of a short record leaves them.
template <class Tab>
void CaricaRecord(Sessione& s, const LayoutRecord<Tab>& layout, const char* routine,
                  bool (*ripara)(TabelleEntita&, int64_t, bool)) {
  s.RoutineCorrente = routine;
  Protetto(s, [&] {
    const int slot = layout.Slot;
    const auto dati = LeggiDati(s.NomeLavoro + EstensioneFile(slot));
    if (!dati) return;
    const int L = layout.Lunghezza;
    const int64_t n = NumeroRecord(static_cast<int64_t>(dati->Lunghezza), L);
    if (n <= 0) return;
    const int64_t interi = std::min<int64_t>(n, static_cast<int64_t>(dati->Lunghezza) / L);
    const int64_t primo = s.ContaEntita[slot];
    PreparaRighe(s, slot, primo + n);
    Tab& tab = s;
    DecodificaRecord(layout, tab, primo, dati->Byte.get(), interi);
    if (interi < n) {
      std::string buffer(static_cast<size_t>(L), '\0');
      if (interi > 0) std::memcpy(buffer.data(), dati->Byte.get() + (interi - 1) * L, static_cast<size_t>(L));
      const size_t resto = dati->Lunghezza - static_cast<size_t>(interi * L);
      std::memcpy(buffer.data(), dati->Byte.get() + interi * L, resto);
      DecodificaRecord(layout, tab, primo + interi, reinterpret_cast<const unsigned char*>(buffer.data()), 1);
    }
    const bool vr2000 = Vr2000(s);
    for (int64_t r = primo; r < primo + n; ++r) {
      if (ripara && ripara(s, r, vr2000)) ++s.RigheNonValide[static_cast<size_t>(slot)];
      s.ContaEntita[slot] = static_cast<int32_t>(r + 1);
    }
  });
}

// The rows left out for values that are not numbers, one line per member.
void SegnalaRigheNonValide(Sessione& s) {
  std::string righe;
  for (int slot = 0; slot < NumeroSlot; ++slot)
    if (const int32_t n = s.RigheNonValide[static_cast<size_t>(slot)]; n > 0)
      righe += std::string("\n") + EstensioneFile(slot) + ": " + std::to_string(n);
  if (righe.empty()) return;
  s.Ui->Messaggio("Righe scartate perché con valori non numerici o infiniti:" + righe, "Caricamento Lavoro",
                  Icona::Avviso);
}

}  // namespace

void CaricaPunti(Sessione& s) { CaricaRecord(s, LayoutPunti(), "CaricaPunti", RiparaPunto); }
void CaricaLinee(Sessione& s) { CaricaRecord(s, LayoutLinee(), "CaricaLinee", RiparaLinea); }
void CaricaCerchi(Sessione& s) { CaricaRecord(s, LayoutCerchi(), "CaricaCerchi", RiparaCerchio); }
void CaricaArchi(Sessione& s) { CaricaRecord(s, LayoutArchi(), "CaricaArchi", RiparaArco); }
void CaricaTesti(Sessione& s) { CaricaRecord(s, LayoutTesti(), "CaricaTesti", RiparaTesto); }
void CaricaFalde(Sessione& s) { CaricaRecord(s, LayoutFalde(), "CaricaFalde", RiparaFalda); }
void CaricaCurveCuv(Sessione& s) { CaricaRecord(s, LayoutCurve(), "CaricaCurveCuv", nullptr); }
// Step 4 of the load. `.CUV` holds the curves as their last generation smoothed them, by the
// cubic of `CalcolaContur` or by a spline of `Spliner`, which `.DUE` does not tell apart: a job
// that has it loads it as it stands, and a rebuild would put the cubic in place of a spline.
// Only a job whose `.CUV` is missing has its curves made again from `.DUE`, by the cubic. A
// `.DUE` that cannot be read says so and gives no curves; the curve member, absent, holds
// nothing read in part that a save must keep from being written.
void CaricaCurveLivello(Sessione& s) {
  if (EsisteFile(s.NomeLavoro + EstensioneFile(SlotCurve))) {
    CaricaCurveCuv(s);
    return;
  }
  CalcolaContur(s);
  s.UltimoErrore.clear();
}

void CaricaSette(Sessione& s) {
  s.RoutineCorrente = "CaricaSette";
  Protetto(s, [&] {
    const auto byte = LeggiByte(s.NomeLavoro + EstensioneFile(SlotSette));
    if (!byte || byte->size() < 5) return;  // a file of a few bytes is an empty one
    LettoreLista in(Cp1252InUtf8(*byte));
    const bool vr2000 = Vr2000(s);
    while (!in.Fine()) {
      DimensionaSette(s);
      const auto r = static_cast<size_t>(s.ContaEntita[SlotSette]);
      s.SetteIdent[r] = in.LeggiI16();
      s.SetteContorno[r] = in.LeggiTesto();
      s.SetteCommento[r] = in.LeggiTesto();
      s.SetteParticella[r] = in.LeggiTesto();
      s.SetteColore[r] = in.LeggiI32();
      s.SetteTratteggio[r] = in.LeggiI16();
      if (vr2000) s.SetteColore[r] = ColoreVecchiaTavolozza(s.SetteColore[r]);
      ++s.ContaEntita[SlotSette];
    }
  });
}

void CaricaBitmap(Sessione& s) {
  s.RoutineCorrente = "CaricaBitmap";
  Protetto(s, [&] {
    const auto byte = LeggiByte(s.NomeLavoro + EstensioneFile(SlotBitmap));
    if (!byte) return;
    LettoreLista in(Cp1252InUtf8(*byte));
    int32_t ultima = -1;
    while (!in.Fine()) {
      s.ContaEntita[SlotBitmap] = ultima + 1;
      DimensionaBitmap(s);
      const auto r = static_cast<size_t>(ultima + 1);
      s.BitmapIdent[r] = in.LeggiI16();
      s.BitmapNomeFile[r] = in.LeggiTesto();
      s.BitmapX[r] = in.LeggiNumero();
      s.BitmapY[r] = in.LeggiNumero();
      s.BitmapLarghezza[r] = in.LeggiNumero();
      s.BitmapAltezza[r] = in.LeggiNumero();
      s.BitmapCongela[r] = in.LeggiI16();
      s.BitmapPiano[r] = in.LeggiTesto();
      s.BitmapZoom[r] = in.LeggiI16();
      s.BitmapScalaLar[r] = in.LeggiNumero();
      s.BitmapScalaAlt[r] = in.LeggiNumero();
      s.BitmapRotazione[r] = 0;
      // Rows written since rotation exists carry a marker where the layer stood.
      if (s.BitmapPiano[r] == "++++++++") {
        s.BitmapRotazione[r] = in.LeggiNumero();
        s.BitmapPiano[r] = in.LeggiTesto();
      }
      ultima = static_cast<int32_t>(r);
      s.BitmapPiano[r] = Rifila(s.BitmapPiano[r]);
      s.BitmapNomeFile[r] = Rifila(s.BitmapNomeFile[r]);
      if (s.BitmapNomeFile[r].empty()) s.BitmapIdent[r] = -1;
      if (RiparaBitmap(s, static_cast<int64_t>(r))) ++s.RigheNonValide[SlotBitmap];
    }
    s.ContaEntita[SlotBitmap] = ultima + 1;
  });
}

void CaricaInf(Sessione& s) {
  s.RoutineCorrente = "CaricaInf";
  Protetto(s, [&] {
    const auto byte = LeggiByte(s.NomeLavoro + EstensioneFile(SlotInf));
    if (!byte) return;
    LettoreLista in(Cp1252InUtf8(*byte));
    if (!in.Fine()) s.NomeOriginale = PercorsoAssoluto(in.LeggiTesto());
  });
}

namespace {

void Carica126(Sessione& s) {
  s.RoutineCorrente = "CaricaTesto126";
  Protetto(s, [&] { s.Testo126 = CaricaFileIntero(s.NomeLavoro + EstensioneFile(Slot126)); });
}

void CaricaCel(Sessione& s) {
  s.RoutineCorrente = "CaricaTestoCel";
  Protetto(s, [&] { s.TestoCel = CaricaFileIntero(s.NomeLavoro + EstensioneFile(SlotCel)); });
}

}  // namespace

void CaricaTesto126Cel(Sessione& s) {
  Carica126(s);
  CaricaCel(s);
}

std::string RigaZeroLibrettoDefault(const Sessione& s) {
  const std::time_t t = s.Orologio();
  std::tm tm{};
  localtime_r(&t, &tm);
  char data[32];
  std::snprintf(data, sizeof data, "%02d%02d%04d", tm.tm_mday, tm.tm_mon + 1, tm.tm_year + 1900);
  return std::string("0|") + data + "|1|G693|0010|1|COGNOME NOME|GEOMETRA|PADOVA|";
}

void CaricaLibretto(Sessione& s) {
  s.RoutineCorrente = "CaricaLibretto";
  Protetto(s, [&] {
    s.LibrettoMisure.clear();
    s.ContaEntita[SlotLibretto] = 0;
    std::optional<std::string> percorso = TrovaFile(s.NomeLavoro + ".txt");
    if (!percorso) percorso = TrovaFile(s.CartellaLavoro + "catasto1.txt");
    if (percorso) {
      for (const std::string& riga : RigheFile(*percorso)) AggiungiRigaLibretto(s, riga);
      return;
    }
    AggiungiRigaLibretto(s, RigaZeroLibrettoDefault(s));
    AggiungiRigaLibretto(s, kRigaNoveLibrettoDefault);
  });
}

namespace {

// A member whose meaning belongs to later work, kept as read so that a save loses nothing.
template <int Slot>
void Conserva(Sessione& s) {
  s.RoutineCorrente = "ConservaMembri";
  Protetto(s, [&] {
    if (auto byte = LeggiByte(s.NomeLavoro + EstensioneFile(Slot))) s.MembriConservati[Slot] = std::move(*byte);
  });
}

}  // namespace

void ConvertiPuntiPDPV(Sessione& s) {
  for (int32_t k = 0; k < s.ContaEntita[SlotSette]; ++k) {
    const std::string commento = s.SetteCommento[static_cast<size_t>(k)];
    if (commento != "PD" && commento != "PV") continue;
    s.SetteIdent[static_cast<size_t>(k)] = -1;
    const std::string nome = Dividi(s.SetteContorno[static_cast<size_t>(k)], '|').front();
    for (int32_t p = 0; p < s.ContaEntita[SlotPunti]; ++p) {
      const auto r = static_cast<size_t>(p);
      if (s.PuntoNome[r] != nome) continue;
      s.PuntoDescrizione[r] = MettiCodice(s.PuntoDescrizione[r], commento == "PV" ? kCodiceVertice : kCodiceDirezione);
      break;
    }
  }
}

std::string NomeLavoroNuovo(const Sessione& s) { return s.CartellaLavoro + "LAVORI/NUOVO/NUOVO"; }

namespace {

// One member in the fixed load order: its loader and its slot.
struct PassoCarica {
  void (*Carica)(Sessione&);
  int Slot;
};

constexpr PassoCarica kPassiCarica[] = {
    {CaricaCFGProvvisorio, SlotCfg},
    {CaricaPunti, SlotPunti},
    {CaricaLinee, SlotLinee},
    {CaricaCerchi, SlotCerchi},
    {CaricaArchi, SlotArchi},
    {CaricaTesti, SlotTesti},
    {CaricaFalde, SlotFalde},
    {CaricaSette, SlotSette},
    {CaricaCurveLivello, SlotCurve},
    {CaricaBitmap, SlotBitmap},
    {CaricaInf, SlotInf},
    {Carica126, Slot126},
    {CaricaCel, SlotCel},
    {Conserva<SlotDue>, SlotDue},
    {CaricaSezioni, SlotSezioni},
    {Conserva<SlotEdm>, SlotEdm},
    {Conserva<SlotEstratto>, SlotEstratto},
    {CaricaEstratto, SlotEstratto},
    {Conserva<SlotPng>, SlotPng},
    {Conserva<SlotSmp>, SlotSmp},
    {Conserva<SlotFot>, SlotFot},
    {CaricaLibretto, SlotLibretto},
    {CaricaPiani, SlotPiani},
};


// The start of every load: what the loaders repair or convert differs from the files, so
// the next snapshot writes all.
void IniziaCaricamento(Sessione& s) {
  s.SlotModificato.fill(true);
  ++s.Modifiche;
  s.MembroGuasto.fill(false);
  if (Rifila(s.NomeOriginale).empty()) s.NomeOriginale = NomeLavoroNuovo(s);
  s.Edizione.clear();
  s.RigheNonValide.fill(0);
}

// One member in the load order. A loader that meets an error shows the common box and keeps
// the rows read before it: the tables then hold only part of its member, which must never be
// written back.
template <class Carica>
void CaricaMembro(Sessione& s, int slot, Carica carica) {
  s.UltimoErrore.clear();
  carica();
  if (!s.UltimoErrore.empty()) s.MembroGuasto[static_cast<size_t>(slot)] = true;
}

// The end of every load. A job with no stored view is framed whole: the list is built
// first, so that its lines count in the extent and not only its points.
void FineCaricamento(Sessione& s) {
  // Each table now holds what a load of its member gives.
  s.CambiatoDaCaricamento.fill(false);
  if (s.Vista.AltezzaVista <= 0) {
    RigeneraLista(s);
    (void)TuttoTutto(s);
  }
}

// The table of one kind read again from its member, and compared row by row with the one it
// replaces: only the rows that differ are marked for the regeneration.
template <class Tab>
void RileggiTabella(Sessione& s, int slot, void (*carica)(Sessione&)) {
  Tab& tab = s;
  Tab vecchia = std::move(tab);
  tab = Tab{};
  RidimensionaTabella(tab, kLimiteIniziale + 1);
  const auto k = static_cast<size_t>(slot);
  const auto prima = static_cast<size_t>(std::max(s.ContaEntita[k], 0));
  // Rows changed since the last regeneration and not yet regenerated stay marked: the list
  // still shows them as they were before.
  RigheCambiate segnate = s.DaRigenerare[k];
  s.ContaEntita[k] = 0;
  CaricaMembro(s, slot, [&] { carica(s); });
  const auto ora = static_cast<size_t>(std::max(s.ContaEntita[k], 0));
  std::vector<bool> diversa(std::min(prima, ora), false);
  // Each column beside the same column of the old table: both walks go in the same order.
  std::vector<const void*> colonne;
  vecchia.PerOgniColonna([&](const auto& colonna) { colonne.push_back(&colonna); });
  size_t n = 0;
  tab.PerOgniColonna([&](auto& colonna) {
    const auto& era = *static_cast<const std::remove_reference_t<decltype(colonna)>*>(colonne[n++]);
    for (size_t r = 0; r < diversa.size(); ++r)
      if (!(colonna[r] == era[r])) diversa[r] = true;
  });
  RigheCambiate& m = s.DaRigenerare[k];
  m = std::move(segnate);
  for (size_t r = 0; r < diversa.size(); ++r)
    if (diversa[r]) m.Segna(static_cast<int32_t>(r), static_cast<int32_t>(r));
  if (prima != ora) m.Segna(static_cast<int32_t>(std::min(prima, ora)), static_cast<int32_t>(std::max(prima, ora) - 1));
}

// The kinds a restore may read again alone: none of their rows depends on another table.
// False for a member that is not one of them.
bool Rileggi(Sessione& s, int slot, void (*carica)(Sessione&)) {
  switch (slot) {
    case SlotLinee: RileggiTabella<TabellaLinee>(s, slot, carica); return true;
    case SlotCerchi: RileggiTabella<TabellaCerchi>(s, slot, carica); return true;
    case SlotArchi: RileggiTabella<TabellaArchi>(s, slot, carica); return true;
    case SlotTesti: RileggiTabella<TabellaTesti>(s, slot, carica); return true;
    case SlotFalde: RileggiTabella<TabellaFalde>(s, slot, carica); return true;
    case SlotCurve: RileggiTabella<TabellaCurve>(s, slot, carica); return true;
    case SlotBitmap: RileggiTabella<TabellaBitmap>(s, slot, carica); return true;
    default: return false;
  }
}
bool DiTabella(int slot) {
  return slot == SlotLinee || slot == SlotCerchi || slot == SlotArchi || slot == SlotTesti || slot == SlotFalde ||
         slot == SlotCurve || slot == SlotBitmap;
}

}  // namespace

void CaricaLavoro(Sessione& s) {
  SegnaTuttoModificato(s);
  IniziaCaricamento(s);
  // The members in their fixed order; the interface shows how far a large job has come.
  constexpr auto kQuanti = static_cast<int64_t>(std::size(kPassiCarica));
  for (int64_t k = 0; k < kQuanti; ++k) {
    const PassoCarica& passo = kPassiCarica[k];
    CaricaMembro(s, passo.Slot, [&] { passo.Carica(s); });
    s.Ui->Progresso(k + 1, kQuanti);
  }
  SegnalaRigheNonValide(s);
  ConvertiPuntiPDPV(s);
  ConfiguraLeggi(s);
  RicordaBloccoB(s);
  CaricaDisegniInclusi(s);
  FineCaricamento(s);
}

bool RicaricaLavoro(Sessione& s, const std::array<bool, NumeroSlot>& cambiati) {
  auto daLeggere = [&](int slot) {
    const auto k = static_cast<size_t>(slot);
    return cambiati[k] || s.CambiatoDaCaricamento[k];
  };
  // A load that left something out or read an error says so again at every load; the points
  // and the Contorno-7 rows are converted together, and included points come with the
  // points: these go through the whole load.
  const auto vero = [](auto v) { return v != 0; };
  if (std::any_of(s.MembroGuasto.begin(), s.MembroGuasto.end(), vero) ||
      std::any_of(s.RigheNonValide.begin(), s.RigheNonValide.end(), vero) || daLeggere(SlotPunti) ||
      daLeggere(SlotSette) || NominaInclusi(s))
    return false;
  IniziaCaricamento(s);
  // The rest of what a clear of the tables would empty, that is not the tables themselves.
  s.LibrettoMisure.clear();
  s.Testo126.clear();
  s.TestoCel.clear();
  s.MembriConservati.clear();
  s.ImmagineInCima = -1;
  // The selection is not in the files: the tables kept lose it as those read again do.
  for (std::vector<uint8_t>* stato : {&s.StatoPunto, &s.StatoLinea, &s.StatoCerchio, &s.StatoArco, &s.StatoTesto,
                                      &s.StatoFalda, &s.StatoCurva, &s.StatoBitmap})
    std::fill(stato->begin(), stato->end(), uint8_t{0});
  constexpr auto kQuanti = static_cast<int64_t>(std::size(kPassiCarica));
  for (int64_t k = 0; k < kQuanti; ++k) {
    const PassoCarica& passo = kPassiCarica[k];
    // The small members, settings first, are always read again; a table is kept when its
    // member is the very file it was read from and nothing changed it since.
    if (passo.Slot == SlotPunti || passo.Slot == SlotSette) continue;
    if (!DiTabella(passo.Slot))
      CaricaMembro(s, passo.Slot, [&] { passo.Carica(s); });
    else if (daLeggere(passo.Slot))
      Rileggi(s, passo.Slot, passo.Carica);
    // The settings just read name included drawings: their rows come with a whole load.
    if (passo.Slot == SlotCfg && NominaInclusi(s)) return false;
    s.Ui->Progresso(k + 1, kQuanti);
  }
  SegnalaRigheNonValide(s);
  ConfiguraLeggi(s);
  RicordaBloccoB(s);
  FineCaricamento(s);
  return true;
}

void VR_ApriLavoro(Sessione& s) {
  AzzeraTabelleLavoro(s);
  EliminaProvviso(s);
  ImpostaNomeProvvisorio(s);
  s.RoutineCorrente = "VR_ApriLavoro";
  if (!Protetto(s, [&] {
        RiprendiSalvataggio(s);
        CopiaInProvvisorio(s);
      }))
    return;
  CaricaLavoro(s);
  FineApertura(s);
}

void FineApertura(Sessione& s) {
  AvvisaInclusiMancanti(s);
  VR_SalvaUndo(s);
  for (int32_t p = 0; p < s.ContaEntita[SlotPunti]; ++p) {
    const auto r = static_cast<size_t>(p);
    if (!IniziaCon(Maiuscolo(s.PuntoNome[r]), "PF")) continue;
    const std::string maiuscolo = Maiuscolo(s.PuntoNome[r]);
    if (maiuscolo == s.PuntoNome[r]) continue;
    s.PuntoNome[r] = maiuscolo;
    SegnaModificato(s, SlotPunti);
  }
  if (s.Vista.AltezzaVista <= 0) {
    RigeneraLista(s);
    (void)TuttoTutto(s);
  }
}

}  // namespace varena
