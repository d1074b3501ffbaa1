// Whole-file input and output with the error texts of the common error path.
#include "core/File.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/Testo.h"

namespace fs = std::filesystem;

namespace varena {

namespace {

[[noreturn]] void FallisceErrno(int e) {
  switch (e) {
    case ENOENT: throw ErroreVarena(kErrorePercorso);
    case EACCES:
    case EPERM:
    case EROFS: throw ErroreVarena(kErrorePermesso);
    case ENOMEM: throw ErroreVarena(kErroreMemoria);
    default: throw ErroreVarena(std::strerror(e));
  }
}

bool Esiste(const std::string& p, bool* cartella = nullptr) {
  std::error_code ec;
  const auto st = fs::status(p, ec);
  if (ec || !fs::exists(st)) return false;
  if (cartella) *cartella = fs::is_directory(st);
  return true;
}

}  // namespace

std::string NormalizzaPercorso(std::string_view p) { return Sostituisci(p, "\\", "/"); }

std::string Cartella(std::string_view p) {
  const std::string n = NormalizzaPercorso(p);
  const size_t k = n.find_last_of('/');
  if (k == std::string::npos) return ".";
  if (k == 0) return "/";
  return n.substr(0, k);
}

std::string Foglia(std::string_view p) {
  const std::string n = NormalizzaPercorso(p);
  const size_t k = n.find_last_of('/');
  return k == std::string::npos ? n : n.substr(k + 1);
}

std::optional<std::string> TrovaFile(std::string_view percorso) {
  std::string p = NormalizzaPercorso(percorso);
  if (p.empty()) return std::nullopt;
  if (Esiste(p)) return p;
  // Walk the components, taking each as it is when it exists, else the first entry of the
  // folder that matches it without regard to case.
  std::string fatto = p.front() == '/' ? "/" : "";
  for (const std::string& pezzo : Dividi(p, '/')) {
    if (pezzo.empty()) continue;
    std::string prova = fatto.empty() || fatto.back() == '/' ? fatto + pezzo : fatto + "/" + pezzo;
    if (!Esiste(prova)) {
      bool trovato = false;
      std::error_code ec;
      const std::string base = fatto.empty() ? "." : fatto;
      for (fs::directory_iterator it(base, ec), fine; !ec && it != fine; it.increment(ec)) {
        const std::string nome = it->path().filename().string();
        if (UgualeSenzaCaso(nome, pezzo)) {
          prova = fatto.empty() ? nome : (fatto.back() == '/' ? fatto + nome : fatto + "/" + nome);
          trovato = true;
          break;
        }
      }
      if (!trovato) return std::nullopt;
    }
    fatto = prova;
  }
  return fatto;
}

bool EsisteFile(std::string_view percorso) {
  const auto t = TrovaFile(percorso);
  bool cartella = false;
  return t && Esiste(*t, &cartella) && !cartella;
}

bool EsisteCartella(std::string_view percorso) {
  const auto t = TrovaFile(percorso);
  bool cartella = false;
  return t && Esiste(*t, &cartella) && cartella;
}

std::string PercorsoPerScrivere(std::string_view percorso) {
  const std::string p = NormalizzaPercorso(percorso);
  if (auto t = TrovaFile(p)) return *t;
  const std::string dir = Cartella(p);
  if (auto d = TrovaFile(dir)) return (*d == "/" ? "" : *d) + "/" + Foglia(p);
  return p;
}

std::optional<std::string> LeggiByte(std::string_view percorso) {
  const auto trovato = TrovaFile(percorso);
  if (!trovato) return std::nullopt;
  bool cartella = false;
  if (!Esiste(*trovato, &cartella) || cartella) return std::nullopt;
  FILE* f = std::fopen(trovato->c_str(), "rb");
  if (!f) FallisceErrno(errno);
  std::string dati;
  std::fseek(f, 0, SEEK_END);
  const long n = std::ftell(f);
  std::fseek(f, 0, SEEK_SET);
  if (n > 0) {
    dati.resize(static_cast<size_t>(n));
    const size_t letti = std::fread(dati.data(), 1, dati.size(), f);
    dati.resize(letti);
  }
  const bool errore = std::ferror(f);
  std::fclose(f);
  if (errore) throw ErroreVarena("Device I/O error");
  return dati;
}

namespace {

void Scrivi(std::string_view percorso, std::string_view byte, const char* modo) {
  const std::string p = PercorsoPerScrivere(percorso);
  FILE* f = std::fopen(p.c_str(), modo);
  if (!f) FallisceErrno(errno);
  const size_t scritti = byte.empty() ? 0 : std::fwrite(byte.data(), 1, byte.size(), f);
  const bool ok = scritti == byte.size() && std::fclose(f) == 0;
  if (!ok) throw ErroreVarena("Disk full");
}

}  // namespace

void ScriviByte(std::string_view percorso, std::string_view byte) { Scrivi(percorso, byte, "wb"); }
void ScriviTesto(std::string_view percorso, std::string_view utf8) {
  Scrivi(percorso, Utf8InCp1252(utf8), "wb");
}
void AggiungiTesto(std::string_view percorso, std::string_view utf8) {
  Scrivi(percorso, Utf8InCp1252(utf8), "ab");
}

std::vector<std::string> RigheTesto(std::string_view t) {
  std::vector<std::string> righe;
  size_t i = 0;
  while (i < t.size()) {
    size_t j = i;
    while (j < t.size() && t[j] != '\r' && t[j] != '\n') ++j;
    righe.emplace_back(t.substr(i, j - i));
    if (j < t.size() && t[j] == '\r') ++j;
    if (j < t.size() && t[j] == '\n') ++j;
    i = j;
  }
  return righe;
}

std::vector<std::string> RigheFile(std::string_view percorso) {
  const auto byte = LeggiByte(percorso);
  if (!byte) return {};
  return RigheTesto(Cp1252InUtf8(*byte));
}

std::string CaricaFileIntero(std::string_view percorso) {
  std::string testo;
  for (const std::string& riga : RigheFile(percorso)) {
    testo += riga;
    testo += "\r\n";
  }
  return testo;
}

bool NuovaCartella(std::string_view percorso) {
  const std::string p = NormalizzaPercorso(percorso);
  if (EsisteCartella(p)) return true;
  std::error_code ec;
  return fs::create_directory(PercorsoPerScrivere(p), ec) && !ec;
}

void CopiaFile(std::string_view da, std::string_view a) {
  const auto sorgente = TrovaFile(da);
  if (!sorgente) throw ErroreVarena(kErroreFileNonTrovato);
  std::error_code ec;
  fs::copy_file(*sorgente, PercorsoPerScrivere(a), fs::copy_options::overwrite_existing, ec);
  if (ec) FallisceErrno(ec.value());
}

bool EliminaFile(std::string_view percorso) {
  const auto t = TrovaFile(percorso);
  if (!t) return false;
  std::error_code ec;
  const bool fatto = fs::remove(*t, ec);
  if (ec) FallisceErrno(ec.value());
  return fatto;
}

void RinominaFile(std::string_view da, std::string_view a) {
  const auto sorgente = TrovaFile(da);
  if (!sorgente) throw ErroreVarena(kErroreFileNonTrovato);
  std::error_code ec;
  fs::rename(*sorgente, PercorsoPerScrivere(a), ec);
  if (ec) FallisceErrno(ec.value());
}

int64_t LunghezzaFile(std::string_view percorso) {
  const auto t = TrovaFile(percorso);
  if (!t) return -1;
  std::error_code ec;
  const auto n = fs::file_size(*t, ec);
  return ec ? -1 : static_cast<int64_t>(n);
}

}  // namespace varena

namespace varena {

std::optional<DatiFile> LeggiDati(std::string_view percorso) {
  const auto trovato = TrovaFile(percorso);
  if (!trovato) return std::nullopt;
  bool cartella = false;
  if (!Esiste(*trovato, &cartella) || cartella) return std::nullopt;
  FILE* f = std::fopen(trovato->c_str(), "rb");
  if (!f) FallisceErrno(errno);
  DatiFile d;
  std::fseek(f, 0, SEEK_END);
  const long n = std::ftell(f);
  std::fseek(f, 0, SEEK_SET);
  if (n > 0) {
    d.Byte.reset(new unsigned char[static_cast<size_t>(n)]);
    d.Lunghezza = std::fread(d.Byte.get(), 1, static_cast<size_t>(n), f);
  }
  const bool errore = std::ferror(f);
  std::fclose(f);
  if (errore) throw ErroreVarena("Device I/O error");
  return d;
}

}  // namespace varena
