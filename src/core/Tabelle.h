// The entity tables of a job: one growable array per field, all fields of one kind indexed
// by the same row number, as the job files and every routine expect them.
#pragma once

#include <array>
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "sections/Sezione.h"

namespace varena {

template <class T>
using Colonna = std::vector<T>;

// Slots: the small integer that names each kind of job file and entity.
enum Slot : int {
  SlotArchivio = 0,
  SlotPunti = 1,
  SlotLinee = 2,
  SlotCerchi = 3,
  SlotArchi = 4,
  SlotTesti = 5,
  SlotFalde = 6,
  SlotSette = 7,
  SlotDue = 8,
  SlotCurve = 9,
  SlotCfg = 10,
  SlotInf = 11,
  SlotSezioni = 12,
  SlotBitmap = 13,
  SlotEdm = 14,
  SlotLibretto = 15,
  SlotEstratto = 16,
  SlotPng = 17,
  SlotSmp = 18,
  SlotXvr = 19,
  SlotL = 20,
  SlotFot = 21,
  Slot126 = 22,
  SlotCel = 23,
  SlotPiani = 24,
  NumeroSlot = 31
};

// Row 0 .. count-1 of each kind. Points, slot 1.
struct TabellaPunti {
  Colonna<int16_t> PuntoIdent;
  Colonna<std::string> PuntoNome, PuntoDescrizione;
  Colonna<double> PuntoX, PuntoY, PuntoZ, PuntoDimensioneSimbolo, PuntoDimensioneNome;
  Colonna<int32_t> PuntoColoreSimbolo, PuntoColoreNome;
  Colonna<int16_t> PuntoCongelaSimbolo, PuntoCongelaNome, PuntoCongelaQuota;
  Colonna<int32_t> PuntoColoreQuota;
  Colonna<double> PuntoDimensioneQuota;
  Colonna<int16_t> PuntoAttendibilita, PuntoSimbolo;
  Colonna<std::string> PuntoPiano;
  Colonna<double> PuntoSpoX, PuntoSpoY, PuntoSpoZ;
  Colonna<int32_t> PuntoColoreDescrizione;
  Colonna<int16_t> PuntoCongelaDescrizione;
  Colonna<double> PuntoDimensioneDescrizione;
  Colonna<std::string> PuntoFont;
  Colonna<double> PuntoErroreOrientamento;
  Colonna<float> PuntoHPrisma;
  Colonna<uint8_t> StatoPunto;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(PuntoIdent), f(PuntoNome), f(PuntoDescrizione), f(PuntoX), f(PuntoY), f(PuntoZ);
    f(PuntoDimensioneSimbolo), f(PuntoDimensioneNome), f(PuntoColoreSimbolo), f(PuntoColoreNome);
    f(PuntoCongelaSimbolo), f(PuntoCongelaNome), f(PuntoCongelaQuota), f(PuntoColoreQuota);
    f(PuntoDimensioneQuota), f(PuntoAttendibilita), f(PuntoSimbolo), f(PuntoPiano), f(PuntoSpoX);
    f(PuntoSpoY), f(PuntoSpoZ), f(PuntoColoreDescrizione), f(PuntoCongelaDescrizione);
    f(PuntoDimensioneDescrizione), f(PuntoFont), f(PuntoErroreOrientamento), f(PuntoHPrisma);
    f(StatoPunto);
  }
};

struct TabellaLinee {
  Colonna<int16_t> LineaIdent;
  Colonna<double> LineaX1, LineaY1, LineaZ1, LineaX2, LineaY2, LineaZ2;
  Colonna<int32_t> LineaColore;
  Colonna<int16_t> LineaTratteggio, LineaCongela, LineaQuotata;
  Colonna<float> LineaOffsetQuota;
  Colonna<std::string> LineaPiano;
  Colonna<double> LineaTronca;
  Colonna<uint8_t> StatoLinea;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(LineaIdent), f(LineaX1), f(LineaY1), f(LineaZ1), f(LineaX2), f(LineaY2), f(LineaZ2);
    f(LineaColore), f(LineaTratteggio), f(LineaCongela), f(LineaQuotata), f(LineaOffsetQuota);
    f(LineaPiano), f(LineaTronca), f(StatoLinea);
  }
};

struct TabellaCerchi {
  Colonna<int16_t> CerchioIdent;
  Colonna<double> CerchioX, CerchioY, CerchioZ, CerchioRaggio;
  Colonna<int32_t> CerchioColore;
  Colonna<int16_t> CerchioTratteggio, CerchioCongela;
  Colonna<std::string> CerchioPiano;
  Colonna<uint8_t> StatoCerchio;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(CerchioIdent), f(CerchioX), f(CerchioY), f(CerchioZ), f(CerchioRaggio), f(CerchioColore);
    f(CerchioTratteggio), f(CerchioCongela), f(CerchioPiano), f(StatoCerchio);
  }
};

struct TabellaArchi {
  Colonna<int16_t> ArcoIdent;
  Colonna<double> ArcoX, ArcoY, ArcoZ, ArcoRaggio, ArcoInizio, ArcoFine;
  Colonna<int32_t> ArcoColore;
  Colonna<int16_t> ArcoTratteggio, ArcoCongela;
  Colonna<double> ArcoQuotaInizio, ArcoQuotaFinale;
  Colonna<std::string> ArcoPiano;
  Colonna<uint8_t> StatoArco;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(ArcoIdent), f(ArcoX), f(ArcoY), f(ArcoZ), f(ArcoRaggio), f(ArcoInizio), f(ArcoFine);
    f(ArcoColore), f(ArcoTratteggio), f(ArcoCongela), f(ArcoQuotaInizio), f(ArcoQuotaFinale);
    f(ArcoPiano), f(StatoArco);
  }
};

struct TabellaTesti {
  Colonna<int16_t> TestoIdent;
  Colonna<double> TestoX, TestoY, TestoRotazione, TestoAltezza, TestoRighe;
  Colonna<int32_t> TestoColore;
  Colonna<int16_t> TestoCongela;
  Colonna<double> TestoColonne;
  Colonna<std::string> TestoPiano, TestoFont, TestoTesto;
  Colonna<uint8_t> StatoTesto;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(TestoIdent), f(TestoX), f(TestoY), f(TestoRotazione), f(TestoAltezza), f(TestoRighe);
    f(TestoColore), f(TestoCongela), f(TestoColonne), f(TestoPiano), f(TestoFont), f(TestoTesto);
    f(StatoTesto);
  }
};

struct TabellaFalde {
  Colonna<int16_t> FaldaIdent;
  Colonna<double> FaldaX1, FaldaY1, FaldaZ1, FaldaX2, FaldaY2, FaldaZ2;
  Colonna<int32_t> FaldaColore;
  Colonna<double> FaldaX3, FaldaY3, FaldaZ3;
  Colonna<int16_t> FaldaCongela;
  Colonna<double> FaldaAreaDiBase, FaldaVolumeSterro, FaldaVolumeRiporto;
  Colonna<std::string> FaldaPiano;
  Colonna<double> FaldaNumeroX1, FaldaNumeroY1, FaldaInvasoX1, FaldaInvasoY1, FaldaInvasoX2,
      FaldaInvasoY2, FaldaInsSteX1, FaldaInsSteY1, FaldaInsRiportoX1, FaldaInsRiportoY1,
      FaldaInsAreaX1, FaldaInsAreaY1;
  // Shown in the lists beside the facet; not in the record, so it stays empty after a load.
  Colonna<std::string> FaldaNumero;
  Colonna<uint8_t> StatoFalda;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(FaldaIdent), f(FaldaX1), f(FaldaY1), f(FaldaZ1), f(FaldaX2), f(FaldaY2), f(FaldaZ2);
    f(FaldaColore), f(FaldaX3), f(FaldaY3), f(FaldaZ3), f(FaldaCongela), f(FaldaAreaDiBase);
    f(FaldaVolumeSterro), f(FaldaVolumeRiporto), f(FaldaPiano), f(FaldaNumeroX1);
    f(FaldaNumeroY1), f(FaldaInvasoX1), f(FaldaInvasoY1), f(FaldaInvasoX2), f(FaldaInvasoY2);
    f(FaldaInsSteX1), f(FaldaInsSteY1), f(FaldaInsRiportoX1), f(FaldaInsRiportoY1);
    f(FaldaInsAreaX1), f(FaldaInsAreaY1), f(FaldaNumero), f(StatoFalda);
  }
};

// Contorno-7 rows, slot 7: a text member, no selection state.
struct TabellaSette {
  Colonna<int16_t> SetteIdent;
  Colonna<std::string> SetteContorno, SetteCommento, SetteParticella;
  Colonna<int32_t> SetteColore;
  Colonna<int16_t> SetteTratteggio;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(SetteIdent), f(SetteContorno), f(SetteCommento), f(SetteParticella), f(SetteColore);
    f(SetteTratteggio);
  }
};

// Vertices of the contour curves, slot 9.
struct TabellaCurve {
  Colonna<uint8_t> CurvaFlag;
  Colonna<double> CurvaX, CurvaY;
  Colonna<uint8_t> StatoCurva;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(CurvaFlag), f(CurvaX), f(CurvaY), f(StatoCurva);
  }
};

// Pictures placed on the sheet, slot 13: a text member.
struct TabellaBitmap {
  Colonna<int16_t> BitmapIdent;
  Colonna<std::string> BitmapNomeFile;
  Colonna<double> BitmapX, BitmapY, BitmapLarghezza, BitmapAltezza;
  Colonna<int16_t> BitmapCongela;
  Colonna<std::string> BitmapPiano;
  Colonna<int16_t> BitmapZoom;
  Colonna<double> BitmapScalaLar, BitmapScalaAlt, BitmapRotazione;
  Colonna<uint8_t> StatoBitmap;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(BitmapIdent), f(BitmapNomeFile), f(BitmapX), f(BitmapY), f(BitmapLarghezza);
    f(BitmapAltezza), f(BitmapCongela), f(BitmapPiano), f(BitmapZoom), f(BitmapScalaLar);
    f(BitmapScalaAlt), f(BitmapRotazione), f(StatoBitmap);
  }
};

// Sections and profiles, slot 12: a row is a whole section with its stations and layout.
// The frame is the box the last drawing gave the section, for picking; it is in no file.
struct TabellaSezioni {
  Colonna<int16_t> SezioneIdent;
  Colonna<Sezione> SezioneDati;
  Colonna<double> SezioneBoxX1, SezioneBoxY1, SezioneBoxX2, SezioneBoxY2;
  Colonna<uint8_t> StatoSezione;

  template <class F>
  void PerOgniColonna(F&& f) {
    f(SezioneIdent), f(SezioneDati), f(SezioneBoxX1), f(SezioneBoxY1), f(SezioneBoxX2), f(SezioneBoxY2);
    f(StatoSezione);
  }
};

// The rows of one slot changed since some moment: runs of rows, first and last included, in
// the order they were marked, or the whole slot. Many scattered runs are worth no more than
// the whole slot, and become it.
struct RigheCambiate {
  bool Tutte = false;
  std::vector<std::pair<int32_t, int32_t>> Tratti;

  void Segna(int32_t da, int32_t a);
  void SegnaTutte() {
    Tutte = true;
    Tratti.clear();
  }
  void Azzera() {
    Tutte = false;
    Tratti.clear();
  }
  bool Vuote() const { return !Tutte && Tratti.empty(); }
};

// Every table of one job, with the row count of each slot. Deleted rows (`Ident` not 0)
// keep their place and their count until a save and reload.
// `SlotModificato[slot]`: the table of that slot has changed since the job files were last
// written from the tables, so the next snapshot must write its member again; the members of
// the other record tables are left as they stand, shared with the undo generations.
// Appending a row (the grow routines) sets it; every other change to a table calls
// `SegnaModificato`. Clearing or loading the tables sets every slot.
struct TabelleEntita : TabellaPunti,
                       TabellaLinee,
                       TabellaCerchi,
                       TabellaArchi,
                       TabellaTesti,
                       TabellaFalde,
                       TabellaSette,
                       TabellaCurve,
                       TabellaBitmap,
                       TabellaSezioni {
  std::array<int32_t, NumeroSlot> ContaEntita{};
  std::array<bool, NumeroSlot> SlotModificato{};
  // Grows at every change marked: a script tells by it whether a click changed a row.
  uint64_t Modifiche = 0;
  // The rows changed since the display list was last made, for the regeneration that
  // follows an edit: each slot's runs of rows, or the whole slot.
  std::array<RigheCambiate, NumeroSlot> DaRigenerare{};
  // The tables changed since each slot was last read from its member: an undo that finds
  // the member unchanged may keep such a table only when this is false.
  std::array<bool, NumeroSlot> CambiatoDaCaricamento{};
};

// The one test of deletion: 0 is a live row and any other value a deleted one. The program
// sets -1, older files carry 65535 (read back as -1), and a file may hold any other value:
// all of them are deleted, for drawing, snapping, lists and saving alike.
constexpr bool IdentVivo(int16_t ident) { return ident == 0; }

// Row `r` of a slot exists in the count and is live. Kinds without a deletion field (the
// contour vertices) are live while they are counted.
bool RigaViva(const TabelleEntita& t, int slot, int64_t r);

// The one entry point of a change to rows `da` .. `a` of a slot: the member is to be written
// again, the rows regenerated.
inline void SegnaRighe(TabelleEntita& t, int slot, int64_t da, int64_t a) {
  const auto k = static_cast<size_t>(slot);
  t.SlotModificato[k] = true;
  t.CambiatoDaCaricamento[k] = true;
  t.DaRigenerare[k].Segna(static_cast<int32_t>(std::max<int64_t>(da, 0)), static_cast<int32_t>(std::min<int64_t>(a, INT32_MAX)));
  ++t.Modifiche;
}
inline void SegnaRiga(TabelleEntita& t, int slot, int64_t riga) { SegnaRighe(t, slot, riga, riga); }
// A change to a slot that does not say which rows: all of them.
inline void SegnaModificato(TabelleEntita& t, int slot) {
  const auto k = static_cast<size_t>(slot);
  t.SlotModificato[k] = true;
  t.CambiatoDaCaricamento[k] = true;
  t.DaRigenerare[k].SegnaTutte();
  ++t.Modifiche;
}
inline void SegnaTuttoModificato(TabelleEntita& t) {
  for (int slot = 0; slot < NumeroSlot; ++slot) SegnaModificato(t, slot);
}
// The job files now hold exactly what the tables hold.
inline void SegnaTuttoSalvato(TabelleEntita& t) { t.SlotModificato.fill(false); }

// The upper bound every table starts with, as the legacy arrays did.
inline constexpr int kLimiteIniziale = 5;

// Re-creates every table with the initial capacity and sets every count to 0; every slot
// counts as changed.
void AzzeraTabelle(TabelleEntita& t);

// The grow routines: make row `ContaEntita[slot]` addressable. Every path that appends a row
// calls the routine of its kind first, writes the fields, then increments the count.
void DimensionaPunti(TabelleEntita& t);
void DimensionaLinee(TabelleEntita& t);
void DimensionaCerchi(TabelleEntita& t);
void DimensionaArchi(TabelleEntita& t);
void DimensionaTesti(TabelleEntita& t);
void DimensionaFalde(TabelleEntita& t);
void DimensionaSette(TabelleEntita& t);
void DimensionaCurve(TabelleEntita& t);
void DimensionaBitmap(TabelleEntita& t);
void DimensionaSezioni(TabelleEntita& t);

// Makes room at once for `righe` rows of a kind, as a long run of grow calls would.
void PreparaRighe(TabelleEntita& t, int slot, int64_t righe);

// Resizes every column of one kind to `n` rows.
template <class Tab>
void RidimensionaTabella(Tab& tab, size_t n) {
  tab.PerOgniColonna([n](auto& colonna) { colonna.resize(n); });
}

// The number of live rows (`Ident` 0) of a slot.
int64_t RigheVive(const TabelleEntita& t, int slot);

}  // namespace varena
