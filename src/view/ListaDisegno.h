// The display list: every entity but the points, flattened into records in world
// coordinates with dash patterns and truncations already expanded. The screen painter, the
// plot stream, the exports and the snap searches all read it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace varena {

// What a record asks the surface to paint. A line drawn with a line type is one record of
// `PrimMotivo`: its corners are the box of its pieces, and the line itself stands in the
// list's table of patterns, cut into pieces only where they are painted or sought.
enum PrimitivaDisegno : uint8_t { PrimCerchio = 0, PrimLinea = 2, PrimNulla = 3, PrimTesto = 5, PrimMotivo = 6 };

// A line and its line type, as a `PrimMotivo` record stands for it: ends already shortened
// by the truncation. Or a circle or an arc: centre in X1, Y1, heights at its ends in Z1, Z2,
// angles in radians.
struct MotivoLinea {
  int64_t Record = 0;
  double X1 = 0, Y1 = 0, Z1 = 0, X2 = 0, Y2 = 0, Z2 = 0;
  int Tratteggio = 0;
  bool Arco = false;
  double Raggio = 0, Inizio = 0, Ampiezza = 0;
};

// One record as the regenerators build it.
struct RecordDisegno {
  double X1 = 0, Y1 = 0, Z1 = 0, X2 = 0, Y2 = 0, Z2 = 0;
  uint8_t Tipo = 0;   // slot of the source entity
  int32_t Riga = 0;   // its row
  int16_t Colore = 0; // already through `ColoreVisibile`
  int16_t Stato = 0;  // 1 selected
  std::string_view Testo;
  float Altezza = 0;  // text height, or circle radius
  float Rotazione = 0;
  std::string_view Font;
  uint8_t Primitiva = PrimLinea;
  int16_t Penna = 0;
  std::string_view Piano;
  int16_t Tratto = 0;
  float Spessore = 1;
};

// A run of records of a list replaced by a run of records of another: `Da` and `Quanti` in
// the list, `DaNuovi` and `QuantiNuovi` in the other.
struct Sostituzione {
  int64_t Da = 0, Quanti = 0, DaNuovi = 0, QuantiNuovi = 0;
};

// Field per array, as the entity tables. Layer and font names repeat over and over and are
// kept once each; texts are kept only for text records.
class ElencoDisegno {
 public:
  std::vector<double> X1, Y1, Z1, X2, Y2, Z2;
  std::vector<uint8_t> Tipo;
  std::vector<int32_t> Riga;
  std::vector<int16_t> Colore, Stato;
  std::vector<float> Altezza, Rotazione;
  std::vector<uint8_t> Primitiva;
  std::vector<int16_t> Penna, Tratto;
  std::vector<float> Spessore;

  int64_t Conta() const { return static_cast<int64_t>(X1.size()); }
  void Svuota();
  // Appends a record, storing a blank layer as "0", a negative dash style as 0 and a width
  // below 1 as 1.
  int64_t Aggiungi(const RecordDisegno& r);
  // A record of `PrimMotivo`: `r` gives the box and the attributes, `m` the line.
  int64_t AggiungiMotivo(const RecordDisegno& r, MotivoLinea m);
  // The line of a `PrimMotivo` record; null for any other.
  const MotivoLinea* Motivo(int64_t i) const;
  // Runs of records, in increasing order and apart, replaced by runs of `nuovi`: in place
  // when every run keeps its length, else by one pass that moves the records after them.
  void Sostituisci(const std::vector<Sostituzione>& sost, const ElencoDisegno& nuovi);

  const std::string& Testo(int64_t i) const;
  const std::string& Font(int64_t i) const { return nomi_[static_cast<size_t>(font_[static_cast<size_t>(i)])]; }
  const std::string& Piano(int64_t i) const { return nomi_[static_cast<size_t>(piano_[static_cast<size_t>(i)])]; }

 private:
  int32_t Nome(std::string_view n);
  int32_t Cerca(std::string_view n);
  void SostituisciAlPosto(const std::vector<Sostituzione>& sost, const ElencoDisegno& nuovi);
  // Record `j` of `nuovi` copied over record `i`, its names and text taken into this list.
  void CopiaRecord(int64_t i, const ElencoDisegno& nuovi, int64_t j);
  // `f` on each column of this list beside the same column of `b`.
  template <class F>
  void Colonne(const ElencoDisegno& b, F&& f);
  int32_t recenti_[2] = {-1, -1};
  std::vector<int32_t> testo_, font_, piano_;
  std::vector<MotivoLinea> motivi_;  // by increasing record
  std::vector<std::string> testi_;
  std::vector<std::string> nomi_{""};
  std::unordered_map<std::string, int32_t> indiceNomi_{{"", 0}};
};

}  // namespace varena
