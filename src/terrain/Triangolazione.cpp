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
// neighbours without comparing every pair.
class Griglia {
 public:
  explicit Griglia(double lato) : lato_(lato) {}
  void Aggiungi(double x, double y, int32_t i) { celle_[Chiave(Cella(x), Cella(y))].push_back(i); }
  void Togli(double x, double y, int32_t i) {
    auto& v = celle_[Chiave(Cella(x), Cella(y))];
    v.erase(std::find(v.begin(), v.end(), i));
  }
  // Calls f on every point of the nine squares about (x, y).
  template <class F>
  void Intorno(double x, double y, F f) const {
    const int64_t cx = Cella(x), cy = Cella(y);
    for (int64_t a = cx - 1; a <= cx + 1; ++a)
      for (int64_t b = cy - 1; b <= cy + 1; ++b)
        if (auto it = celle_.find(Chiave(a, b)); it != celle_.end())
          for (int32_t i : it->second) f(i);
  }

 private:
  int64_t Cella(double v) const { return static_cast<int64_t>(std::floor(v / lato_)); }
  static uint64_t Chiave(int64_t a, int64_t b) {
    return static_cast<uint64_t>(a) * 0x9E3779B97F4A7C15ull ^ static_cast<uint64_t>(b);
  }
  double lato_;
  std::unordered_map<uint64_t, std::vector<int32_t>> celle_;
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
  Griglia g(kGrappolo);
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
    tom += RigaTom(s.PuntoX[k], s.PuntoY[k], s.PuntoZ[k]);
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
  Griglia g(kEstremo);
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

bool LeggiFaldeConsegna(Sessione& s) {
  s.RoutineCorrente = "LeggiFaldeConsegna";
  const auto byte = LeggiByte(FileConsegna(s, kFileEquMesh));
  if (!byte) return false;
  const LayoutRecord<TabellaFalde>& l = LayoutFalde();
  const size_t L = static_cast<size_t>(l.Lunghezza);
  if (byte->size() % L != 0) {
    MostraErroreComune(s, kErroreFineFile);
    return false;
  }
  const auto n = static_cast<int64_t>(byte->size() / L);
  s.ContaEntita[SlotFalde] = 0;
  PreparaRighe(s, SlotFalde, n);
  TabellaFalde& t = s;
  DecodificaRecord(l, t, 0, reinterpret_cast<const unsigned char*>(byte->data()), n);
  for (int64_t r = 0; r < n; ++r) s.StatoFalda[static_cast<size_t>(r)] = 0;
  s.ContaEntita[SlotFalde] = static_cast<int32_t>(n);
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
    letto = LeggiFaldeConsegna(s);
  });
  if (!fatto || !letto) return false;
  AggiornaFalde(s);
  FineModifica(s);
  return true;
}

}  // namespace varena
