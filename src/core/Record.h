// The fixed binary records of the job files, one field table per kind: offsets, widths and
// the column each field fills. Reading, writing and the field dump all walk these tables.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "core/Tabelle.h"

namespace varena {

enum class TipoCampo : uint8_t {
  I16,        // 16-bit on disk and in memory
  I16Lungo,   // 16-bit on disk, 32-bit in memory (colours)
  U8,
  F32,
  F64,
  Caratteri,  // fixed field of single bytes, blank padded
  Riservato,  // carried in the record, never read; written as blanks
  RiservatoNumerico,  // the same, written as zero bytes
};

template <class Tab>
using MembroColonna =
    std::variant<std::monostate, Colonna<int16_t> Tab::*, Colonna<int32_t> Tab::*,
                 Colonna<uint8_t> Tab::*, Colonna<float> Tab::*, Colonna<double> Tab::*,
                 Colonna<std::string> Tab::*>;

template <class Tab>
struct CampoRecord {
  const char* Nome;  // as the record tables spell it, accents dropped
  int Offset;        // -1 for the kinds kept as text
  int Larghezza;
  TipoCampo Tipo;
  MembroColonna<Tab> Membro;
  bool Rifila = false;  // layer names are trimmed on both sides
};

template <class Tab>
struct LayoutRecord {
  using Tabella = Tab;
  int Slot;
  int Lunghezza;
  std::span<const CampoRecord<Tab>> Campi;
};

const LayoutRecord<TabellaPunti>& LayoutPunti();
const LayoutRecord<TabellaLinee>& LayoutLinee();
const LayoutRecord<TabellaCerchi>& LayoutCerchi();
const LayoutRecord<TabellaArchi>& LayoutArchi();
const LayoutRecord<TabellaTesti>& LayoutTesti();
const LayoutRecord<TabellaFalde>& LayoutFalde();
const LayoutRecord<TabellaCurve>& LayoutCurve();
// The text kinds, for the field dump only.
const LayoutRecord<TabellaSette>& LayoutSette();
const LayoutRecord<TabellaBitmap>& LayoutBitmap();

// Copies `quanti` whole records, laid end to end in `dati`, into rows `primaRiga` onward.
// The rows must already exist. Nothing is repaired here.
template <class Tab>
void DecodificaRecord(const LayoutRecord<Tab>& layout, Tab& tab, int64_t primaRiga,
                      const unsigned char* dati, int64_t quanti);

// Writes row `riga` as one record of `layout.Lunghezza` bytes at `record`.
template <class Tab>
void CodificaRecord(const LayoutRecord<Tab>& layout, const Tab& tab, int64_t riga, unsigned char* record);

// The rows listed in `righe`, in that order, as whole records laid end to end at `dati`:
// the saver's bulk form, with the field table resolved once for the whole run.
template <class Tab>
void CodificaRighe(const LayoutRecord<Tab>& layout, const Tab& tab, std::span<const int64_t> righe, unsigned char* dati);

// One value of one field of one row, for the dump and the text formats.
using ValoreCampo = std::variant<int64_t, double, std::string>;
template <class Tab>
ValoreCampo ValoreDi(const CampoRecord<Tab>& campo, const Tab& tab, int64_t riga);

// The kinds whose rows have named fields: the record kinds and the text kinds of the dump.
bool SlotConCampi(int slot);
// Every field of row `riga` of a slot, by name in the order of its record, the reserved bytes
// left out: what the dump lists and a script checks. Nothing for a row that is not counted.
void PerOgniCampo(const TabelleEntita& t, int slot, int64_t riga,
                  const std::function<void(std::string_view nome, const ValoreCampo& valore)>& f);

// A fixed string field as read: cut at the first NUL, blank padding removed, code page to
// UTF-8; `rifila` also removes leading blanks.
std::string LeggiCaratteri(const unsigned char* p, int larghezza, bool rifila);
// Into a fixed field: to the code page, cut to the width, padded with blanks.
void ScriviCaratteri(unsigned char* p, int larghezza, const std::string& utf8);

}  // namespace varena
