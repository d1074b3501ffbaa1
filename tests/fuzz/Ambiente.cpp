#include "Ambiente.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "core/Avvio.h"
#include "core/File.h"
#include "core/Sessione.h"
#include "view/Ridisegna.h"

namespace fs = std::filesystem;

namespace varena::fuzz {

namespace {

std::string LeggiTutto(const fs::path& p) {
  std::ifstream f(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

// 21 November 2026, 10:30:15 local time: the provisional names and the field book's date
// come out the same at every input.
std::time_t Orologio() {
  std::tm tm{};
  tm.tm_year = 126, tm.tm_mon = 10, tm.tm_mday = 21, tm.tm_hour = 10, tm.tm_min = 30, tm.tm_sec = 15;
  tm.tm_isdst = -1;
  return std::mktime(&tm);
}

// Whether `percorso`, made absolute by its names, lies under `radice`.
bool Dentro(std::string_view percorso, const std::string& radice) {
  const std::string p = fs::absolute(fs::path(percorso)).lexically_normal().string();
  return p.size() > radice.size() && p.compare(0, radice.size(), radice) == 0 && p[radice.size()] == '/';
}

}  // namespace

Ambiente::Ambiente() {
  const char* tmp = std::getenv("TMPDIR");
  std::string modello = std::string(tmp && *tmp ? tmp : "/tmp") + "/varena-fuzz-XXXXXX";
  if (!::mkdtemp(modello.data())) {
    std::perror("mkdtemp");
    std::abort();
  }
  radice_ = fs::canonical(modello).string();
  fs::create_directories(Lavori());
  for (const char* est : {".ARC", ".CER", ".CFG", ".HAT", ".L", ".LIN", ".LLL", ".PIA", ".TES", ".TXT"})
    ScriviFileFuzz(Esempio() + est, LeggiTutto(std::string(VARENA_SORGENTI "/examples/RILIEVO") + est));
  // A first start: the folder tree and the tables it writes when they are missing.
  {
    Sessione s;
    Prepara(s);
    CreaAlberoCartelle(s);
    InizializzaDefault(s);
  }
  for (const fs::directory_entry& e : fs::recursive_directory_iterator(radice_)) {
    if (e.is_directory())
      cartelle_[e.path().string()] = true;
    else
      file_[e.path().string()] = LeggiTutto(e.path());
  }
  const std::string radice = radice_;
  ImpostaSondaGuasti([radice](OperazioneFile, std::string_view percorso) {
    if (Dentro(percorso, radice)) return false;
    std::fprintf(stderr, "Il bersaglio cambierebbe un file fuori dalla sua cartella: %.*s\n",
                 static_cast<int>(percorso.size()), percorso.data());
    std::abort();
    return true;
  });
}

Ambiente::~Ambiente() {
  ImpostaSondaGuasti(nullptr);
  std::error_code ec;
  fs::remove_all(radice_, ec);
}

void Ambiente::Ripristina() const {
  std::vector<fs::path> via;
  std::error_code ec;
  for (auto it = fs::recursive_directory_iterator(radice_, ec); !ec && it != fs::recursive_directory_iterator();
       it.increment(ec)) {
    const std::string p = it->path().string();
    if (it->is_directory() ? !cartelle_.count(p) : !file_.count(p)) {
      via.push_back(it->path());
      if (it->is_directory()) it.disable_recursion_pending();
    }
  }
  for (const fs::path& p : via) fs::remove_all(p, ec);
  for (const auto& [cartella, _] : cartelle_) fs::create_directories(cartella, ec);
  for (const auto& [percorso, byte] : file_) {
    if (fs::file_size(percorso, ec) == byte.size() && !ec && LeggiTutto(percorso) == byte) continue;
    ScriviFileFuzz(percorso, byte);
  }
}

void Ambiente::Prepara(Sessione& s) const {
  s.CartellaDocumenti = radice_ + "/documenti";
  s.CartellaLavoro = s.CartellaDocumenti + "/VR2000/";
  s.CartellaProgramma = radice_ + "/programma";
  s.Orologio = Orologio;
}

void ScriviFileFuzz(const std::string& percorso, std::string_view byte) {
  std::error_code ec;
  fs::create_directories(fs::path(percorso).parent_path(), ec);
  fs::remove(percorso, ec);  // a hard link of an undo generation is left whole
  std::ofstream f(percorso, std::ios::binary | std::ios::trunc);
  f.write(byte.data(), static_cast<std::streamsize>(byte.size()));
}

size_t Scelta(std::string_view& byte, size_t quanti) {
  if (byte.empty()) return 0;
  const auto c = static_cast<unsigned char>(byte.front());
  byte.remove_prefix(1);
  return c % quanti;
}

void Dipingi(Sessione& s) {
  SuperficieNulla sup;
  s.Schermo = &sup;
  Ridisegna(s);
  s.Schermo = nullptr;
}

}  // namespace varena::fuzz
