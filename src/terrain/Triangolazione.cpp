// The triangulator's hand-off, as the program prepares it and reads its answer.
#include "terrain/Triangolazione.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <unordered_map>

#include "cadastre/CodiciPunto.h"
#include "core/Errori.h"
#include "core/File.h"
#include "core/Record.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "terrain/Consegna.h"
#include "terrain/Falde.h"
#include "commands/Modifica.h"

namespace varena {

namespace {

// Points bucketed by a square of the search distance, so that a million points find their
// neighbours without comparing every pair. The squares live in one open table of chains
// threaded through the rows (a hash map of vectors allocated a million small blocks and
// spent more time than the search): `testa_` holds the first row of a slot, `seguente_` the
// next row of the same slot, `cella_` the square of each row, compared so that a slot shared
// by two squares gives only the rows of the one asked.
class Griglia {
 public:
  // `righe`: rows go from 0 to righe - 1.
  Griglia(double lato, size_t righe) : lato_(lato), seguente_(righe, -1), cella_(righe) {
    while ((size_t{1} << bit_) < 2 * righe) ++bit_;
    testa_.assign(size_t{1} << bit_, -1);
  }
  void Aggiungi(double x, double y, int32_t i) {
    const uint64_t c = Chiave(Cella(x), Cella(y));
    const auto k = static_cast<size_t>(i);
    cella_[k] = c;
    int32_t& t = testa_[Slot(c)];
    seguente_[k] = t;
    t = i;
  }
  void Togli(double x, double y, int32_t i) {
    int32_t* p = &testa_[Slot(Chiave(Cella(x), Cella(y)))];
    while (*p != i) p = &seguente_[static_cast<size_t>(*p)];
    *p = seguente_[static_cast<size_t>(i)];
  }
  // Calls f on every point of the nine squares about (x, y).
  template <class F>
  void Intorno(double x, double y, F f) const {
    const int64_t cx = Cella(x), cy = Cella(y);
    for (int64_t a = cx - 1; a <= cx + 1; ++a)
      for (int64_t b = cy - 1; b <= cy + 1; ++b) {
        const uint64_t c = Chiave(a, b);
        for (int32_t i = testa_[Slot(c)]; i >= 0; i = seguente_[static_cast<size_t>(i)])
          if (cella_[static_cast<size_t>(i)] == c) f(i);
      }
  }

 private:
  int64_t Cella(double v) const { return static_cast<int64_t>(std::floor(v / lato_)); }
  static uint64_t Chiave(int64_t a, int64_t b) {
    return static_cast<uint64_t>(a) * 0x9E3779B97F4A7C15ull ^ static_cast<uint64_t>(b);
  }
  // The high bits of a second multiplication: neighbouring squares spread over the table.
  size_t Slot(uint64_t c) const { return static_cast<size_t>((c * 0xD6E8FEB86659FD93ull) >> (64 - bit_)); }
  double lato_;
  int bit_ = 1;
  std::vector<int32_t> testa_, seguente_;
  std::vector<uint64_t> cella_;
};

constexpr double kGrappolo = 0.025;  // points closer than this are one for the triangulator
constexpr double kEstremo = 0.001;   // a line's end on a point

// A row number in a field of six, right-justified: the joining compares whole fields.
std::string Campo6(int32_t n) {
  const std::string t = FormatoMaschera(n, "######");
  return t.size() < 6 ? std::string(6 - t.size(), ' ') + t : t;
}

}  // namespace

std::string FileConsegna(const Sessione& s, const char* nome) { return s.CartellaProgramma + "/" + nome; }

bool FaldeAttive(Sessione& s) {
  if (s.Terreno.FaldeAttive) return true;
  s.Ui->Messaggio("Falde NON Attive!", "Falde", Icona::Avviso);
  return false;
}

std::vector<int32_t> PreparaConsegna(Sessione& s, bool& troppi) {
  s.RoutineCorrente = "PreparaConsegna";
  troppi = false;
  const int32_t n = s.ContaEntita[SlotPunti];
  auto& sel = s.StatoPunto;
  auto scelto = [&](int32_t i) { return sel[static_cast<size_t>(i)] == 1 && IdentVivo(s.PuntoIdent[static_cast<size_t>(i)]); };
  // Of a cluster only the last one survives: each point deselects the first earlier one
  // still selected within the distance.
  Griglia g(kGrappolo, static_cast<size_t>(std::max(n, 0)));
  for (int32_t i = 0; i < n; ++i) {
    if (!scelto(i)) continue;
    const double x = s.PuntoX[static_cast<size_t>(i)], y = s.PuntoY[static_cast<size_t>(i)];
    int32_t primo = -1;
    g.Intorno(x, y, [&](int32_t j) {
      if ((primo < 0 || j < primo) && std::hypot(s.PuntoX[static_cast<size_t>(j)] - x, s.PuntoY[static_cast<size_t>(j)] - y) < kGrappolo)
        primo = j;
    });
    if (primo >= 0) {
      sel[static_cast<size_t>(primo)] = 0;
      g.Togli(s.PuntoX[static_cast<size_t>(primo)], s.PuntoY[static_cast<size_t>(primo)], primo);
    }
    g.Aggiungi(x, y, i);
  }
  std::vector<int32_t> righe;
  for (int32_t i = 0; i < n; ++i) {
    if (!scelto(i)) continue;
    sel[static_cast<size_t>(i)] = 0;
    // Planimetric points have no height to give the terrain.
    if (HaCodice(s.PuntoDescrizione[static_cast<size_t>(i)], kCodicePlanimetrico)) continue;
    righe.push_back(i);
  }
  for (int32_t i : righe) {
    const auto k = static_cast<size_t>(i);
    // A value that is not a number would reach the file as 0: a terrain of invented heights.
    if (!std::isfinite(s.PuntoX[k]) || !std::isfinite(s.PuntoY[k]) || !std::isfinite(s.PuntoZ[k])) {
      s.Ui->Messaggio("Il punto " + s.PuntoNome[k] + " non ha coordinate valide", "Triangolazione", Icona::Avviso);
      return {};
    }
  }
  const int64_t limite = s.Imp.Limite_Punti_Triangolazione;
  if (limite > 0 && static_cast<int64_t>(righe.size()) > limite) {
    troppi = true;
    return {};
  }
  std::string tom;
  tom.reserve(righe.size() * 40);
  for (int32_t i : righe) {
    const auto k = static_cast<size_t>(i);
    AggiungiRigaTom(tom, s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]);
  }
  ScriviByte(FileConsegna(s, kFileTom), tom);
  return righe;
}

std::vector<std::vector<int32_t>> UnisciCatene(std::vector<std::vector<int32_t>> e) {
  // The legacy rule: the first pair (a before b) that can be joined is joined into a, b goes,
  // and the search starts again from the top. Entries before `pulito` are known to join with
  // nothing after them; only a changed entry can make an earlier one joinable again.
  std::vector<bool> vivo(e.size(), true);
  auto tocca = [](const std::vector<int32_t>& a, const std::vector<int32_t>& b) {
    return a.front() == b.front() || a.back() == b.back() || a.front() == b.back() || a.back() == b.front();
  };
  size_t pulito = 0;
  while (true) {
    size_t ia = e.size(), ib = 0;
    for (size_t a = pulito; a < e.size() && ia == e.size(); ++a) {
      if (!vivo[a]) continue;
      for (size_t b = a + 1; b < e.size(); ++b)
        if (vivo[b] && tocca(e[a], e[b])) {
          ia = a, ib = b;
          break;
        }
      if (ia == e.size()) pulito = a + 1;
    }
    if (ia == e.size()) break;
    std::vector<int32_t>& a = e[ia];
    std::vector<int32_t> b = std::move(e[ib]);
    vivo[ib] = false;
    std::vector<int32_t> nuova;
    if (a.front() == b.front()) {
      nuova.assign(b.rbegin(), b.rend());
      nuova.insert(nuova.end(), a.begin() + 1, a.end());
    } else if (a.back() == b.back()) {
      // Appended whole, the shared row twice: the chains come out as they always have.
      nuova = a;
      nuova.insert(nuova.end(), b.rbegin(), b.rend());
    } else if (a.front() == b.back()) {
      nuova.assign(b.begin(), b.end() - 1);
      nuova.insert(nuova.end(), a.begin(), a.end());
    } else {
      nuova = a;
      nuova.insert(nuova.end(), b.begin() + 1, b.end());
    }
    a = std::move(nuova);
    for (size_t x = 0; x < ia; ++x)
      if (vivo[x] && tocca(e[x], a)) {
        pulito = std::min(pulito, x);
        break;
      }
    pulito = std::min(pulito, ia);
  }
  std::vector<std::vector<int32_t>> catene;
  for (size_t k = 0; k < e.size(); ++k)
    if (vivo[k]) catene.push_back(std::move(e[k]));
  return catene;
}

std::vector<std::string> FormDSQ(Sessione& s) {
  s.RoutineCorrente = "FormDSQ";
  const auto tom = LeggiByte(FileConsegna(s, kFileTom));
  if (!tom) return {};
  DatiMesh d;
  // Our own file: a fault here is a fault of the disk, and the chains are simply none.
  if (!LeggiConsegna(*tom, {}, d).empty()) return {};
  Griglia g(kEstremo, d.X.size());
  for (size_t k = 0; k < d.X.size(); ++k) g.Aggiungi(d.X[k], d.Y[k], static_cast<int32_t>(k));
  auto riga = [&](double x, double y) {
    int32_t ultima = -1;
    g.Intorno(x, y, [&](int32_t j) {
      if (j > ultima && std::hypot(d.X[static_cast<size_t>(j)] - x, d.Y[static_cast<size_t>(j)] - y) < kEstremo) ultima = j;
    });
    return ultima;
  };
  std::vector<std::vector<int32_t>> voci;
  for (size_t r = 0; r < static_cast<size_t>(s.ContaEntita[SlotLinee]); ++r) {
    if (!IdentVivo(s.LineaIdent[r]) || Rifila(s.LineaPiano[r]) != "DISCONTI") continue;
    const int32_t a = riga(s.LineaX1[r], s.LineaY1[r]), b = riga(s.LineaX2[r], s.LineaY2[r]);
    if (a < 0 || b < 0) continue;
    voci.push_back({std::min(a, b) + 1, std::max(a, b) + 1});
  }
  std::sort(voci.begin(), voci.end());
  voci.erase(std::unique(voci.begin(), voci.end()), voci.end());
  std::vector<std::string> righe;
  std::string dsq;
  for (const std::vector<int32_t>& c : UnisciCatene(std::move(voci))) {
    std::string t = std::to_string(c.size());
    for (int32_t n : c) t += "," + Campo6(n);
    dsq += t + "\r\n";
    righe.push_back(std::move(t));
  }
  ScriviByte(FileConsegna(s, kFileDsq), dsq);
  return righe;
}

bool LeggiFaldeConsegna(Sessione& s, bool aggiungi) {
  s.RoutineCorrente = "LeggiFaldeConsegna";
  // Raw storage: the facets of a large terrain are half a gigabyte, not worth zeroing first.
  const auto byte = LeggiDati(FileConsegna(s, kFileEquMesh));
  if (!byte) return false;
  const LayoutRecord<TabellaFalde>& l = LayoutFalde();
  const size_t L = static_cast<size_t>(l.Lunghezza);
  if (byte->Lunghezza % L != 0) {
    MostraErroreComune(s, kErroreFineFile);
    return false;
  }
  const auto n = static_cast<int64_t>(byte->Lunghezza / L);
  const int64_t prima = aggiungi ? std::max(s.ContaEntita[SlotFalde], 0) : 0;
  if (prima + n > INT32_MAX) {
    MostraErroreComune(s, kErroreIndice);
    return false;
  }
  s.ContaEntita[SlotFalde] = static_cast<int32_t>(prima);
  PreparaRighe(s, SlotFalde, prima + n);
  TabellaFalde& t = s;
  DecodificaRecord(l, t, prima, byte->Byte.get(), n);
  for (int64_t r = prima; r < prima + n; ++r) s.StatoFalda[static_cast<size_t>(r)] = 0;
  s.ContaEntita[SlotFalde] = static_cast<int32_t>(prima + n);
  SegnaModificato(s, SlotFalde);
  return true;
}

bool VR_TriangolaPunti(Sessione& s, bool daCapo) {
  if (!FaldeAttive(s)) return false;
  const std::string equ = FileConsegna(s, kFileEquMesh);
  bool letto = false;
  const bool fatto = Protetto(s, [&] {
    if (daCapo) EliminaFileEsatto(equ);
    bool troppi = false;
    const std::vector<int32_t> righe = PreparaConsegna(s, troppi);
    if (troppi) {
      // The legacy array bound, reported as the legacy program did.
      MostraErroreComune(s, kErroreIndice);
      return;
    }
    if (righe.empty()) return;
    FormDSQ(s);
    s.Clip->Scrivi(" ");
    EliminaFileEsatto(FileConsegna(s, "provviso.err"));
    const std::optional<int> esito = s.Proc ? s.Proc->Esegui("varena-mesh", {}, s.CartellaProgramma) : std::nullopt;
    // A missing triangulator passes silently: the facets stay as they are.
    if (!esito) return;
    if (*esito != 0) {
      const std::vector<std::string> err = RigheTesto(LeggiByte(FileConsegna(s, "provviso.err")).value_or(""));
      const std::string perche = err.empty() ? std::string("errore del triangolatore") : Rifila(err.front());
      s.Ui->Messaggio("Triangolazione non eseguita: " + perche, "Triangolazione", Icona::Avviso);
      return;
    }
    letto = LeggiFaldeConsegna(s, !daCapo);
  });
  if (!fatto || !letto) return false;
  AggiornaFalde(s);
  FineModifica(s);
  return true;
}

}  // namespace varena
