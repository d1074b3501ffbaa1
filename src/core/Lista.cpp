// Writer and reader of list statements.
#include "core/Lista.h"

#include <algorithm>

#include "core/Errori.h"
#include "core/Testo.h"

namespace varena {

void IstruzioneLista::Separa() {
  if (!primo_) testo_.push_back(',');
  primo_ = false;
}

IstruzioneLista& IstruzioneLista::Testo(std::string_view utf8) {
  Separa();
  testo_.push_back('"');
  testo_.append(utf8);
  testo_.push_back('"');
  return *this;
}

IstruzioneLista& IstruzioneLista::Numero(double valore) {
  Separa();
  testo_ += FormaSemplice(valore);
  return *this;
}

namespace {
bool FineRiga(char c) { return c == '\r' || c == '\n'; }
bool Blank(char c) { return c == ' ' || c == '\t'; }
}  // namespace


void LettoreLista::SaltaVuoti() {
  while (pos_ < testo_.size() && (Blank(testo_[pos_]) || FineRiga(testo_[pos_]))) ++pos_;
}

bool LettoreLista::Fine() {
  size_t p = pos_;
  while (p < testo_.size() && (Blank(testo_[p]) || FineRiga(testo_[p]))) ++p;
  // A lone end-of-file mark of old DOS files counts as nothing.
  if (p < testo_.size() && testo_[p] == '\x1A' && p + 1 == testo_.size()) return true;
  return p >= testo_.size();
}

std::string LettoreLista::Elemento() {
  // After a comma an item may be empty when the line ends at once; at the start of a
  // statement, blank lines are passed over.
  while (pos_ < testo_.size() && Blank(testo_[pos_])) ++pos_;
  inizio_ = pos_;
  virgolette_ = false;
  if (dopoVirgola_ && pos_ < testo_.size() && FineRiga(testo_[pos_])) {
    dopoVirgola_ = false;
    if (testo_[pos_] == '\r' && pos_ + 1 < testo_.size() && testo_[pos_ + 1] == '\n') ++pos_;
    ++pos_;
    return {};
  }
  SaltaVuoti();
  inizio_ = pos_;
  if (pos_ >= testo_.size()) throw ErroreVarena(kErroreFineFile);
  std::string item;
  virgolette_ = testo_[pos_] == '"';
  if (virgolette_) {
    const size_t chiusa = testo_.find('"', pos_ + 1);
    if (chiusa == std::string::npos) {
      item = testo_.substr(pos_ + 1);
      pos_ = testo_.size();
      dopoVirgola_ = false;
      return item;
    }
    item = testo_.substr(pos_ + 1, chiusa - pos_ - 1);
    pos_ = chiusa + 1;
    while (pos_ < testo_.size() && testo_[pos_] != ',' && !FineRiga(testo_[pos_])) ++pos_;
  } else {
    const size_t inizio = pos_;
    while (pos_ < testo_.size() && testo_[pos_] != ',' && !FineRiga(testo_[pos_])) ++pos_;
    item = RifilaDestra(std::string_view(testo_).substr(inizio, pos_ - inizio));
  }
  dopoVirgola_ = false;
  if (pos_ < testo_.size()) {
    if (testo_[pos_] == ',') {
      dopoVirgola_ = true;
    } else if (testo_[pos_] == '\r' && pos_ + 1 < testo_.size() && testo_[pos_ + 1] == '\n') {
      ++pos_;
    }
    ++pos_;
  }
  return item;
}

double LettoreLista::LeggiNumero() { return Val(Elemento()); }
int16_t LettoreLista::LeggiI16() { return InteroCorto(LeggiNumero()); }
int32_t LettoreLista::LeggiI32() { return InteroLungo(LeggiNumero()); }
uint8_t LettoreLista::LeggiU8() {
  const int64_t v = ArrotondaPari(LeggiNumero());
  return static_cast<uint8_t>(v < 0 ? 0 : (v > 255 ? 255 : v));
}

size_t LettoreLista::RigaElemento() const {
  const auto fine = testo_.begin() + static_cast<std::ptrdiff_t>(std::min(inizio_, testo_.size()));
  return 1 + static_cast<size_t>(std::count(testo_.begin(), fine, '\n'));
}

std::string LettoreLista::LeggiRiga() {
  if (pos_ >= testo_.size()) throw ErroreVarena(kErroreFineFile);
  size_t fine = pos_;
  while (fine < testo_.size() && !FineRiga(testo_[fine])) ++fine;
  std::string riga = testo_.substr(pos_, fine - pos_);
  pos_ = fine;
  if (pos_ < testo_.size() && testo_[pos_] == '\r') ++pos_;
  if (pos_ < testo_.size() && testo_[pos_] == '\n') ++pos_;
  dopoVirgola_ = false;
  return riga;
}

}  // namespace varena
