// The hand-off files of the triangulator, written and read.
#include "terrain/Consegna.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "core/Testo.h"
#include "core/Record.h"

namespace varena {

namespace {

// The value rounded to 3 decimals in the plain write form (15 significant digits, trailing
// zeros dropped). Below 10^11 the thousandths have at most 14 digits, and the 15 digits of
// the rounded double are exactly those thousandths: they are written out as integers, which
// a million rows a terrain asks for do far sooner than the general conversion.
void AggiungiTre(std::string& t, double v) {
  const double millesimi = std::round(v * 1000.0);
  if (!(std::fabs(millesimi) < 1e14)) {
    t += FormaSemplice(millesimi / 1000.0);
    return;
  }
  if (millesimi == 0) {
    t += '0';
    return;
  }
  if (millesimi < 0) t += '-';
  const auto m = static_cast<uint64_t>(std::fabs(millesimi));
  char buf[24];
  char* fine = std::to_chars(buf, buf + sizeof buf, m / 1000).ptr;
  if (uint64_t resto = m % 1000; resto != 0) {
    *fine++ = '.';
    for (uint64_t cifra = 100; resto != 0; cifra /= 10) {
      *fine++ = static_cast<char>('0' + resto / cifra);
      resto %= cifra;
    }
  }
  t.append(buf, fine);
}

// A reader of the comma-separated numbers of one line at a time, quick enough for a
// survey of a million points.
class Righe {
 public:
  explicit Righe(std::string_view t) : t_(t) {}
  // The next line that is not blank; false at the end.
  bool Prossima(std::string_view& riga) {
    while (p_ < t_.size()) {
      size_t f = t_.find('\n', p_);
      if (f == std::string_view::npos) f = t_.size();
      riga = t_.substr(p_, f - p_);
      p_ = f + 1;
      ++numero_;
      while (!riga.empty() && (riga.back() == '\r' || riga.back() == ' ' || riga.back() == '\t')) riga.remove_suffix(1);
      if (!riga.empty()) return true;
    }
    return false;
  }
  size_t Numero() const { return numero_; }

 private:
  std::string_view t_;
  size_t p_ = 0;
  size_t numero_ = 0;
};

// The numbers of one line, split at commas; false when an item is not a whole number.
template <class T>
bool Numeri(std::string_view riga, std::vector<T>& out) {
  out.clear();
  size_t p = 0;
  while (true) {
    size_t f = riga.find(',', p);
    if (f == std::string_view::npos) f = riga.size();
    std::string_view v = riga.substr(p, f - p);
    while (!v.empty() && v.front() == ' ') v.remove_prefix(1);
    while (!v.empty() && v.back() == ' ') v.remove_suffix(1);
    if (!v.empty() && v.front() == '+') v.remove_prefix(1);
    T x{};
    const auto r = std::from_chars(v.data(), v.data() + v.size(), x);
    if (v.empty() || r.ec != std::errc() || r.ptr != v.data() + v.size()) return false;
    out.push_back(x);
    if (f == riga.size()) return true;
    p = f + 1;
  }
}

std::string Riga(const char* file, size_t n, const char* cosa) {
  return std::string(file) + ", riga " + std::to_string(n) + ": " + cosa;
}

}  // namespace

void AggiungiRigaTom(std::string& tom, double x, double y, double z) {
  AggiungiTre(tom, x);
  tom += ',';
  AggiungiTre(tom, y);
  tom += ',';
  AggiungiTre(tom, z);
  tom += "\r\n";
}

std::string LeggiConsegna(std::string_view tom, std::string_view dsq, DatiMesh& d) {
  d = {};
  std::string_view riga;
  std::vector<double> v;
  for (Righe r(tom); r.Prossima(riga);) {
    if (!Numeri(riga, v) || v.size() != 3) return Riga(kFileTom, r.Numero(), "non sono tre numeri");
    if (!std::isfinite(v[0]) || !std::isfinite(v[1]) || !std::isfinite(v[2]))
      return Riga(kFileTom, r.Numero(), "valore non numerico");
    d.X.push_back(v[0]), d.Y.push_back(v[1]), d.Z.push_back(v[2]);
  }
  const auto n = static_cast<int64_t>(d.X.size());
  std::vector<int64_t> c;
  for (Righe r(dsq); r.Prossima(riga);) {
    if (!Numeri(riga, c) || c.size() < 3) return Riga(kFileDsq, r.Numero(), "non e' una catena di punti");
    if (c[0] != static_cast<int64_t>(c.size()) - 1) return Riga(kFileDsq, r.Numero(), "il numero dei punti non torna");
    std::vector<int32_t> catena;
    for (size_t k = 1; k < c.size(); ++k) {
      if (c[k] < 1 || c[k] > n) return Riga(kFileDsq, r.Numero(), "punto fuori dall'elenco");
      catena.push_back(static_cast<int32_t>(c[k] - 1));
    }
    d.Catene.push_back(std::move(catena));
  }
  return {};
}

void CodificaFaldeMesh(const DatiMesh& d, const std::vector<std::array<int32_t, 3>>& triangoli,
                       const std::function<void(std::string_view)>& scrivi) {
  const LayoutRecord<TabellaFalde>& l = LayoutFalde();
  const auto L = static_cast<size_t>(l.Lunghezza);
  // A few thousand rows at a time through one small table and one buffer that stays in the
  // cache: a table and a text of every facet would be the thirty columns of two million
  // rows (all zero but nine) and half a gigabyte of fresh memory copied once more.
  constexpr size_t kBlocco = 4096;
  TabellaFalde t;
  RidimensionaTabella(t, std::min(kBlocco, triangoli.size()));
  std::vector<int64_t> righe;
  std::string blocco;
  for (size_t inizio = 0; inizio < triangoli.size(); inizio += kBlocco) {
    const size_t quanti = std::min(kBlocco, triangoli.size() - inizio);
    righe.resize(quanti);
    for (size_t k = 0; k < quanti; ++k) {
      const auto& v = triangoli[inizio + k];
      const auto a = static_cast<size_t>(v[0]), b = static_cast<size_t>(v[1]), c = static_cast<size_t>(v[2]);
      t.FaldaX1[k] = d.X[a], t.FaldaY1[k] = d.Y[a], t.FaldaZ1[k] = d.Z[a];
      t.FaldaX2[k] = d.X[b], t.FaldaY2[k] = d.Y[b], t.FaldaZ2[k] = d.Z[b];
      t.FaldaX3[k] = d.X[c], t.FaldaY3[k] = d.Y[c], t.FaldaZ3[k] = d.Z[c];
      righe[k] = static_cast<int64_t>(k);
    }
    blocco.resize(quanti * L);
    CodificaRighe(l, t, righe, reinterpret_cast<unsigned char*>(blocco.data()));
    scrivi(blocco);
  }
}

std::string CodificaFaldeMesh(const DatiMesh& d, const std::vector<std::array<int32_t, 3>>& triangoli) {
  std::string out;
  CodificaFaldeMesh(d, triangoli, [&out](std::string_view blocco) { out += blocco; });
  return out;
}

}  // namespace varena
