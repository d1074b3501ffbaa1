// Field tables of the binary records and the generic copy between records and tables.
#include "core/Record.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "core/CodicePagina.h"

namespace varena {

using T = TipoCampo;

namespace {

using P = TabellaPunti;
constexpr CampoRecord<P> kPunti[] = {
    {"Ident", 0, 2, T::I16, &P::PuntoIdent},
    {"Nome", 2, 40, T::Caratteri, &P::PuntoNome},
    {"Descrizione", 42, 40, T::Caratteri, &P::PuntoDescrizione},
    {"X", 82, 8, T::F64, &P::PuntoX},
    {"Y", 90, 8, T::F64, &P::PuntoY},
    {"Z", 98, 8, T::F64, &P::PuntoZ},
    {"Dimensione Simbolo", 106, 8, T::F64, &P::PuntoDimensioneSimbolo},
    {"Dimensione Nome", 114, 8, T::F64, &P::PuntoDimensioneNome},
    {"Colore Simbolo", 122, 2, T::I16Lungo, &P::PuntoColoreSimbolo},
    {"Colore Nome", 124, 2, T::I16Lungo, &P::PuntoColoreNome},
    {"Congela Simbolo", 126, 2, T::I16, &P::PuntoCongelaSimbolo},
    {"Congela Nome", 128, 2, T::I16, &P::PuntoCongelaNome},
    {"Congela Quota", 130, 2, T::I16, &P::PuntoCongelaQuota},
    {"Colore Quota", 132, 2, T::I16Lungo, &P::PuntoColoreQuota},
    {"Dimensione Quota", 134, 8, T::F64, &P::PuntoDimensioneQuota},
    {"Attendibilita", 142, 2, T::I16, &P::PuntoAttendibilita},
    {"", 144, 2, T::Riservato, {}},
    {"Simbolo", 146, 2, T::I16, &P::PuntoSimbolo},
    {"Piano", 148, 8, T::Caratteri, &P::PuntoPiano, true},
    {"", 156, 2, T::Riservato, {}},
    {"Spostamento X", 158, 8, T::F64, &P::PuntoSpoX},
    {"Spostamento Y", 166, 8, T::F64, &P::PuntoSpoY},
    {"Spostamento Z", 174, 8, T::F64, &P::PuntoSpoZ},
    {"Colore Descrizione", 182, 2, T::I16Lungo, &P::PuntoColoreDescrizione},
    {"Congela Descrizione", 184, 2, T::I16, &P::PuntoCongelaDescrizione},
    {"Dimensione Descrizione", 186, 8, T::F64, &P::PuntoDimensioneDescrizione},
    {"Font", 194, 30, T::Caratteri, &P::PuntoFont},
    {"", 224, 8, T::Riservato, {}},
    {"Errore Orientamento", 232, 8, T::F64, &P::PuntoErroreOrientamento},
    {"HPrisma/HStazione", 240, 4, T::F32, &P::PuntoHPrisma},
    {"", 244, 12, T::Riservato, {}},
};

using L = TabellaLinee;
constexpr CampoRecord<L> kLinee[] = {
    {"Ident", 0, 2, T::I16, &L::LineaIdent},
    {"X1", 2, 8, T::F64, &L::LineaX1},
    {"Y1", 10, 8, T::F64, &L::LineaY1},
    {"Z1", 18, 8, T::F64, &L::LineaZ1},
    {"X2", 26, 8, T::F64, &L::LineaX2},
    {"Y2", 34, 8, T::F64, &L::LineaY2},
    {"Z2", 42, 8, T::F64, &L::LineaZ2},
    {"Colore", 50, 2, T::I16Lungo, &L::LineaColore},
    {"Tratteggio", 52, 2, T::I16, &L::LineaTratteggio},
    {"Congela", 54, 2, T::I16, &L::LineaCongela},
    {"quoted", 56, 2, T::I16, &L::LineaQuotata},
    {"label offset", 58, 4, T::F32, &L::LineaOffsetQuota},
    {"", 62, 22, T::Riservato, {}},
    {"Piano", 84, 8, T::Caratteri, &L::LineaPiano, true},
    {"Tronca", 92, 8, T::F64, &L::LineaTronca},
    {"", 100, 28, T::Riservato, {}},
};

using C = TabellaCerchi;
constexpr CampoRecord<C> kCerchi[] = {
    {"Ident", 0, 2, T::I16, &C::CerchioIdent},
    {"X", 2, 8, T::F64, &C::CerchioX},
    {"Y", 10, 8, T::F64, &C::CerchioY},
    {"Z", 18, 8, T::F64, &C::CerchioZ},
    {"Raggio", 26, 8, T::F64, &C::CerchioRaggio},
    {"", 34, 16, T::Riservato, {}},
    {"Colore", 50, 2, T::I16Lungo, &C::CerchioColore},
    {"Tratteggio", 52, 2, T::I16, &C::CerchioTratteggio},
    {"Congela", 54, 2, T::I16, &C::CerchioCongela},
    {"", 56, 28, T::Riservato, {}},
    {"Piano", 84, 8, T::Caratteri, &C::CerchioPiano, true},
    {"", 92, 36, T::Riservato, {}},
};

using A = TabellaArchi;
constexpr CampoRecord<A> kArchi[] = {
    {"Ident", 0, 2, T::I16, &A::ArcoIdent},
    {"X", 2, 8, T::F64, &A::ArcoX},
    {"Y", 10, 8, T::F64, &A::ArcoY},
    {"Z", 18, 8, T::F64, &A::ArcoZ},
    {"Raggio", 26, 8, T::F64, &A::ArcoRaggio},
    {"Inizio", 34, 8, T::F64, &A::ArcoInizio},
    {"Fine", 42, 8, T::F64, &A::ArcoFine},
    {"Colore", 50, 2, T::I16Lungo, &A::ArcoColore},
    {"Tratteggio", 52, 2, T::I16, &A::ArcoTratteggio},
    {"Congela", 54, 2, T::I16, &A::ArcoCongela},
    {"", 56, 4, T::Riservato, {}},
    {"Quota Inizio", 60, 8, T::F64, &A::ArcoQuotaInizio},
    {"Quota Finale", 68, 8, T::F64, &A::ArcoQuotaFinale},
    {"", 76, 8, T::Riservato, {}},
    {"Piano", 84, 8, T::Caratteri, &A::ArcoPiano, true},
    {"", 92, 36, T::Riservato, {}},
};

using X = TabellaTesti;
constexpr CampoRecord<X> kTesti[] = {
    {"Ident", 0, 2, T::I16, &X::TestoIdent},
    {"X1", 2, 8, T::F64, &X::TestoX},
    {"Y1", 10, 8, T::F64, &X::TestoY},
    {"Rotazione", 18, 8, T::F64, &X::TestoRotazione},
    {"Altezza", 26, 8, T::F64, &X::TestoAltezza},
    {"", 34, 8, T::RiservatoNumerico, {}},
    {"Righe", 42, 8, T::F64, &X::TestoRighe},
    {"Colore", 50, 2, T::I16Lungo, &X::TestoColore},
    {"", 52, 2, T::Riservato, {}},
    {"Congela", 54, 2, T::I16, &X::TestoCongela},
    {"Colonne", 56, 8, T::F64, &X::TestoColonne},
    {"", 64, 20, T::Riservato, {}},
    {"Piano", 84, 8, T::Caratteri, &X::TestoPiano, true},
    {"Font", 92, 23, T::Caratteri, &X::TestoFont},
    {"Testo", 115, 132, T::Caratteri, &X::TestoTesto},
    {"", 247, 9, T::Riservato, {}},
};

using F = TabellaFalde;
constexpr CampoRecord<F> kFalde[] = {
    {"Ident", 0, 2, T::I16, &F::FaldaIdent},
    {"X1", 2, 8, T::F64, &F::FaldaX1},
    {"Y1", 10, 8, T::F64, &F::FaldaY1},
    {"Z1", 18, 8, T::F64, &F::FaldaZ1},
    {"X2", 26, 8, T::F64, &F::FaldaX2},
    {"Y2", 34, 8, T::F64, &F::FaldaY2},
    {"Z2", 42, 8, T::F64, &F::FaldaZ2},
    {"Colore", 50, 2, T::I16Lungo, &F::FaldaColore},
    {"X3", 52, 8, T::F64, &F::FaldaX3},
    {"Y3", 60, 8, T::F64, &F::FaldaY3},
    {"Z3", 68, 8, T::F64, &F::FaldaZ3},
    {"Congela", 76, 2, T::I16, &F::FaldaCongela},
    {"", 78, 6, T::Riservato, {}},
    {"AreaDiBase", 84, 8, T::F64, &F::FaldaAreaDiBase},
    {"Volume Sterro", 92, 8, T::F64, &F::FaldaVolumeSterro},
    {"Volume Riporto", 100, 8, T::F64, &F::FaldaVolumeRiporto},
    {"Piano", 108, 8, T::Caratteri, &F::FaldaPiano, true},
    {"NumeroX1", 116, 8, T::F64, &F::FaldaNumeroX1},
    {"NumeroY1", 124, 8, T::F64, &F::FaldaNumeroY1},
    {"InvasoX1", 132, 8, T::F64, &F::FaldaInvasoX1},
    {"InvasoY1", 140, 8, T::F64, &F::FaldaInvasoY1},
    {"InvasoX2", 148, 8, T::F64, &F::FaldaInvasoX2},
    {"InvasoY2", 156, 8, T::F64, &F::FaldaInvasoY2},
    {"InsSteX1", 164, 8, T::F64, &F::FaldaInsSteX1},
    {"InsSteY1", 172, 8, T::F64, &F::FaldaInsSteY1},
    {"InsRiportoX1", 180, 8, T::F64, &F::FaldaInsRiportoX1},
    {"InsRiportoY1", 188, 8, T::F64, &F::FaldaInsRiportoY1},
    {"InsAreaX1", 196, 8, T::F64, &F::FaldaInsAreaX1},
    {"InsAreaY1", 204, 8, T::F64, &F::FaldaInsAreaY1},
    {"", 212, 44, T::Riservato, {}},
};

using V = TabellaCurve;
constexpr CampoRecord<V> kCurve[] = {
    {"Flag", 0, 1, T::U8, &V::CurvaFlag},
    {"X", 1, 8, T::F64, &V::CurvaX},
    {"Y", 9, 8, T::F64, &V::CurvaY},
};

using S = TabellaSette;
constexpr CampoRecord<S> kSette[] = {
    {"Ident", -1, 0, T::I16, &S::SetteIdent},
    {"Contorno", -1, 0, T::Caratteri, &S::SetteContorno},
    {"Commento", -1, 0, T::Caratteri, &S::SetteCommento},
    {"Particella", -1, 0, T::Caratteri, &S::SetteParticella},
    {"Colore", -1, 0, T::I16Lungo, &S::SetteColore},
    {"Tratteggio", -1, 0, T::I16, &S::SetteTratteggio},
};

using B = TabellaBitmap;
constexpr CampoRecord<B> kBitmap[] = {
    {"Ident", -1, 0, T::I16, &B::BitmapIdent},
    {"NomeFile", -1, 0, T::Caratteri, &B::BitmapNomeFile},
    {"X", -1, 0, T::F64, &B::BitmapX},
    {"Y", -1, 0, T::F64, &B::BitmapY},
    {"Larghezza", -1, 0, T::F64, &B::BitmapLarghezza},
    {"Altezza", -1, 0, T::F64, &B::BitmapAltezza},
    {"Congela", -1, 0, T::I16, &B::BitmapCongela},
    {"Piano", -1, 0, T::Caratteri, &B::BitmapPiano},
    {"Zoom", -1, 0, T::I16, &B::BitmapZoom},
    {"ScalaLar", -1, 0, T::F64, &B::BitmapScalaLar},
    {"ScalaAlt", -1, 0, T::F64, &B::BitmapScalaAlt},
    {"Rotazione", -1, 0, T::F64, &B::BitmapRotazione},
};

template <class Num>
Num Leggi(const unsigned char* p) {
  Num v;
  std::memcpy(&v, p, sizeof v);  // the files are little-endian, as this machine is
  return v;
}

template <class Num>
void Metti(unsigned char* p, Num v) {
  std::memcpy(p, &v, sizeof v);
}

// A field resolved against one table: the column's first element, ready for a run of rows.
struct CampoRisolto {
  TipoCampo tipo;
  int offset, larghezza;
  void* base;
  bool rifila;
};

}  // namespace

const LayoutRecord<TabellaPunti>& LayoutPunti() {
  static const LayoutRecord<TabellaPunti> l{SlotPunti, 256, kPunti};
  return l;
}
const LayoutRecord<TabellaLinee>& LayoutLinee() {
  static const LayoutRecord<TabellaLinee> l{SlotLinee, 128, kLinee};
  return l;
}
const LayoutRecord<TabellaCerchi>& LayoutCerchi() {
  static const LayoutRecord<TabellaCerchi> l{SlotCerchi, 128, kCerchi};
  return l;
}
const LayoutRecord<TabellaArchi>& LayoutArchi() {
  static const LayoutRecord<TabellaArchi> l{SlotArchi, 128, kArchi};
  return l;
}
const LayoutRecord<TabellaTesti>& LayoutTesti() {
  static const LayoutRecord<TabellaTesti> l{SlotTesti, 256, kTesti};
  return l;
}
const LayoutRecord<TabellaFalde>& LayoutFalde() {
  static const LayoutRecord<TabellaFalde> l{SlotFalde, 256, kFalde};
  return l;
}
const LayoutRecord<TabellaCurve>& LayoutCurve() {
  static const LayoutRecord<TabellaCurve> l{SlotCurve, 17, kCurve};
  return l;
}
const LayoutRecord<TabellaSette>& LayoutSette() {
  static const LayoutRecord<TabellaSette> l{SlotSette, 0, kSette};
  return l;
}
const LayoutRecord<TabellaBitmap>& LayoutBitmap() {
  static const LayoutRecord<TabellaBitmap> l{SlotBitmap, 0, kBitmap};
  return l;
}

std::string LeggiCaratteri(const unsigned char* p, int larghezza, bool rifila) {
  int fine = 0;
  while (fine < larghezza && p[fine] != 0) ++fine;
  while (fine > 0 && p[fine - 1] == ' ') --fine;
  int inizio = 0;
  if (rifila)
    while (inizio < fine && p[inizio] == ' ') ++inizio;
  return Cp1252InUtf8(std::string_view(reinterpret_cast<const char*>(p) + inizio, static_cast<size_t>(fine - inizio)));
}

void ScriviCaratteri(unsigned char* p, int larghezza, const std::string& utf8) {
  const auto w = static_cast<size_t>(larghezza);
  // Names, layers and fonts are plain ASCII nearly always: no conversion, no allocation.
  if (utf8.size() <= w &&
      std::all_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
    std::memcpy(p, utf8.data(), utf8.size());
    std::memset(p + utf8.size(), ' ', w - utf8.size());
    return;
  }
  const std::string byte = Utf8InCp1252(utf8);
  const size_t n = std::min(byte.size(), w);
  std::memcpy(p, byte.data(), n);
  std::memset(p + n, ' ', w - n);
}

template <class Tab>
void DecodificaRecord(const LayoutRecord<Tab>& layout, Tab& tab, int64_t primaRiga,
                      const unsigned char* dati, int64_t quanti) {
  std::vector<CampoRisolto> campi;
  campi.reserve(layout.Campi.size());
  for (const auto& c : layout.Campi) {
    void* base = std::visit(
        [&tab](auto m) -> void* {
          if constexpr (std::is_same_v<decltype(m), std::monostate>)
            return nullptr;
          else
            return static_cast<void*>((tab.*m).data());
        },
        c.Membro);
    if (base) campi.push_back({c.Tipo, c.Offset, c.Larghezza, base, c.Rifila});
  }
  for (int64_t k = 0; k < quanti; ++k) {
    const unsigned char* rec = dati + k * layout.Lunghezza;
    const auto r = static_cast<size_t>(primaRiga + k);
    for (const CampoRisolto& c : campi) {
      const unsigned char* p = rec + c.offset;
      switch (c.tipo) {
        case T::I16: static_cast<int16_t*>(c.base)[r] = Leggi<int16_t>(p); break;
        case T::I16Lungo: static_cast<int32_t*>(c.base)[r] = Leggi<int16_t>(p); break;
        case T::U8: static_cast<uint8_t*>(c.base)[r] = *p; break;
        case T::F32: static_cast<float*>(c.base)[r] = Leggi<float>(p); break;
        case T::F64: static_cast<double*>(c.base)[r] = Leggi<double>(p); break;
        case T::Caratteri:
          static_cast<std::string*>(c.base)[r] = LeggiCaratteri(p, c.larghezza, c.rifila);
          break;
        case T::Riservato:
        case T::RiservatoNumerico: break;
      }
    }
  }
}

template <class Tab>
void CodificaRighe(const LayoutRecord<Tab>& layout, const Tab& tab, std::span<const int64_t> righe, unsigned char* dati) {
  const auto L = static_cast<size_t>(layout.Lunghezza);
  // The bytes that no column fills, the same in every record: blanks and zeros.
  std::vector<unsigned char> modello(L, 0);
  std::vector<CampoRisolto> campi;
  for (const auto& c : layout.Campi) {
    if (c.Tipo == T::Riservato) std::memset(modello.data() + c.Offset, ' ', static_cast<size_t>(c.Larghezza));
    const void* base = std::visit(
        [&tab](auto m) -> const void* {
          if constexpr (std::is_same_v<decltype(m), std::monostate>)
            return nullptr;
          else
            return static_cast<const void*>((tab.*m).data());
        },
        c.Membro);
    if (base) campi.push_back({c.Tipo, c.Offset, c.Larghezza, const_cast<void*>(base), c.Rifila});
  }
  for (size_t k = 0; k < righe.size(); ++k) {
    unsigned char* rec = dati + k * L;
    const auto r = static_cast<size_t>(righe[k]);
    std::memcpy(rec, modello.data(), L);
    for (const CampoRisolto& c : campi) {
      unsigned char* p = rec + c.offset;
      switch (c.tipo) {
        case T::I16: Metti<int16_t>(p, static_cast<const int16_t*>(c.base)[r]); break;
        // A colour wider than the field keeps its low 16 bits, as a fixed record stores it.
        case T::I16Lungo: Metti<int16_t>(p, static_cast<int16_t>(static_cast<const int32_t*>(c.base)[r])); break;
        case T::U8: *p = static_cast<const uint8_t*>(c.base)[r]; break;
        case T::F32: Metti<float>(p, static_cast<const float*>(c.base)[r]); break;
        case T::F64: Metti<double>(p, static_cast<const double*>(c.base)[r]); break;
        case T::Caratteri: ScriviCaratteri(p, c.larghezza, static_cast<const std::string*>(c.base)[r]); break;
        case T::Riservato:
        case T::RiservatoNumerico: break;
      }
    }
  }
}

template <class Tab>
void CodificaRecord(const LayoutRecord<Tab>& layout, const Tab& tab, int64_t riga, unsigned char* rec) {
  CodificaRighe(layout, tab, std::span<const int64_t>(&riga, 1), rec);
}

template <class Tab>
ValoreCampo ValoreDi(const CampoRecord<Tab>& campo, const Tab& tab, int64_t riga) {
  const auto r = static_cast<size_t>(riga);
  return std::visit(
      [&](auto m) -> ValoreCampo {
        if constexpr (std::is_same_v<decltype(m), std::monostate>) {
          return std::string();
        } else {
          const auto& v = (tab.*m)[r];
          using V = std::decay_t<decltype(v)>;
          if constexpr (std::is_same_v<V, std::string>)
            return v;
          else if constexpr (std::is_floating_point_v<V>)
            return static_cast<double>(v);
          else
            return static_cast<int64_t>(v);
        }
      },
      campo.Membro);
}

namespace {

template <class F>
bool ConLayout(int slot, F&& f) {
  switch (slot) {
    case SlotPunti: f(LayoutPunti()); return true;
    case SlotLinee: f(LayoutLinee()); return true;
    case SlotCerchi: f(LayoutCerchi()); return true;
    case SlotArchi: f(LayoutArchi()); return true;
    case SlotTesti: f(LayoutTesti()); return true;
    case SlotFalde: f(LayoutFalde()); return true;
    case SlotSette: f(LayoutSette()); return true;
    case SlotCurve: f(LayoutCurve()); return true;
    case SlotBitmap: f(LayoutBitmap()); return true;
    default: return false;
  }
}

}  // namespace

bool SlotConCampi(int slot) {
  return ConLayout(slot, [](const auto&) {});
}

void PerOgniCampo(const TabelleEntita& t, int slot, int64_t riga,
                  const std::function<void(std::string_view nome, const ValoreCampo& valore)>& f) {
  if (slot < 0 || slot >= NumeroSlot || riga < 0 || riga >= t.ContaEntita[static_cast<size_t>(slot)]) return;
  ConLayout(slot, [&](const auto& layout) {
    using Tab = typename std::decay_t<decltype(layout)>::Tabella;
    const Tab& tab = t;
    for (const auto& campo : layout.Campi)
      if (campo.Membro.index() != 0) f(campo.Nome, ValoreDi(campo, tab, riga));
  });
}

#define VARENA_ISTANZIA(Tab)                                                                       \
  template void DecodificaRecord<Tab>(const LayoutRecord<Tab>&, Tab&, int64_t, const unsigned char*, \
                                      int64_t);                                                    \
  template void CodificaRecord<Tab>(const LayoutRecord<Tab>&, const Tab&, int64_t, unsigned char*);  \
  template void CodificaRighe<Tab>(const LayoutRecord<Tab>&, const Tab&, std::span<const int64_t>,     \
                                   unsigned char*);                                                  \
  template ValoreCampo ValoreDi<Tab>(const CampoRecord<Tab>&, const Tab&, int64_t);

VARENA_ISTANZIA(TabellaPunti)
VARENA_ISTANZIA(TabellaLinee)
VARENA_ISTANZIA(TabellaCerchi)
VARENA_ISTANZIA(TabellaArchi)
VARENA_ISTANZIA(TabellaTesti)
VARENA_ISTANZIA(TabellaFalde)
VARENA_ISTANZIA(TabellaCurve)
VARENA_ISTANZIA(TabellaSette)
VARENA_ISTANZIA(TabellaBitmap)

#undef VARENA_ISTANZIA

}  // namespace varena
