// Whole-file input and output with the error texts of the common error path.
#include "core/File.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

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

SondaGuasti gSonda;

bool Guasto(OperazioneFile op, std::string_view percorso) { return gSonda && gSonda(op, percorso); }

// A name read from a file may hold a NUL byte, where every call of the system would cut it:
// each member of a job would then be one and the same file. Such a name names no file.
bool Nominabile(std::string_view p) { return p.find('\0') == std::string_view::npos; }

bool Esiste(const std::string& p, bool* cartella = nullptr) {
  std::error_code ec;
  const auto st = fs::status(p, ec);
  if (ec || !fs::exists(st)) return false;
  if (cartella) *cartella = fs::is_directory(st);
  return true;
}

}  // namespace

std::string NormalizzaPercorso(std::string_view p) { return Sostituisci(p, "\\", "/"); }

std::string PercorsoAssoluto(std::string_view percorso) {
  const std::string n = NormalizzaPercorso(percorso);
  if (Rifila(n).empty()) return n;
  std::error_code ec;
  fs::path p = fs::absolute(fs::path(n), ec);
  if (ec) p = n;  // no current folder to stand on: left as given
  std::string r = p.lexically_normal().string();
  while (r.size() > 1 && r.back() == '/') r.pop_back();
  return r;
}

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
  if (p.empty() || !Nominabile(p)) return std::nullopt;
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
  if (!Nominabile(p)) throw ErroreVarena(kErroreNomeFile);
  if (auto t = TrovaFile(p)) return *t;
  const std::string dir = Cartella(p);
  if (auto d = TrovaFile(dir)) return (*d == "/" ? "" : *d) + "/" + Foglia(p);
  return p;
}

namespace {

// An existing regular file opened for reading: `riempi(f, length)` takes its bytes when there
// are any. False when there is no such file; an error of the device is thrown.
template <class Riempi>
bool LeggiFile(std::string_view percorso, Riempi riempi) {
  const auto trovato = TrovaFile(percorso);
  if (!trovato) return false;
  bool cartella = false;
  if (!Esiste(*trovato, &cartella) || cartella) return false;
  std::unique_ptr<FILE, int (*)(FILE*)> f(std::fopen(trovato->c_str(), "rb"), &std::fclose);
  if (!f) FallisceErrno(errno);
  std::fseek(f.get(), 0, SEEK_END);
  const long n = std::ftell(f.get());
  std::fseek(f.get(), 0, SEEK_SET);
  if (n > 0) riempi(f.get(), static_cast<size_t>(n));
  if (std::ferror(f.get())) throw ErroreVarena("Device I/O error");
  return true;
}

}  // namespace

std::optional<std::string> LeggiByte(std::string_view percorso) {
  std::string dati;
  const bool letto = LeggiFile(percorso, [&](FILE* f, size_t n) {
    dati.resize(n);
    dati.resize(std::fread(dati.data(), 1, n, f));
  });
  if (!letto) return std::nullopt;
  return dati;
}

std::optional<std::string> LeggiByte(std::string_view percorso,
                                     const std::function<bool(int64_t fatto, int64_t totale)>& avanzamento) {
  constexpr size_t kPezzo = size_t{1} << 24;
  std::string dati;
  const bool letto = LeggiFile(percorso, [&](FILE* f, size_t n) {
    dati.resize(n);
    size_t fatto = 0;
    while (fatto < n) {
      const size_t letti = std::fread(dati.data() + fatto, 1, std::min(kPezzo, n - fatto), f);
      fatto += letti;
      if (letti == 0 || !avanzamento(static_cast<int64_t>(fatto), static_cast<int64_t>(n))) break;
    }
    dati.resize(fatto);
  });
  if (!letto) return std::nullopt;
  return dati;
}

namespace {

// The write beside the file and the rename into place; `produci` hands the bytes over in
// as many pieces as it likes. With the fault seam set the seam is asked after the first
// piece, so that a fault (or a test that kills the process there) meets a temporary that
// is really half written.
void ScriviAccanto(const std::string& p, const ProduttoreByte& produci) {
  // A file the user made read-only is refused, as a write in place would be.
  if (::access(p.c_str(), F_OK) == 0 && ::access(p.c_str(), W_OK) != 0) FallisceErrno(EACCES);
  const std::string tmp = p + kSuffissoTemporaneo;
  FILE* f = std::fopen(tmp.c_str(), "wb");
  if (!f) FallisceErrno(errno);
  bool completo = true, guasto = false, chiesto = false;
  try {
    produci([&](std::string_view pezzo) {
      if (guasto) return;
      if (!pezzo.empty() && std::fwrite(pezzo.data(), 1, pezzo.size(), f) != pezzo.size()) completo = false;
      if (gSonda && !chiesto) {
        chiesto = true;
        std::fflush(f);
        guasto = Guasto(OperazioneFile::Scrittura, p);
      }
    });
  } catch (...) {
    std::fclose(f);
    std::remove(tmp.c_str());
    throw;
  }
  const bool chiuso = std::fclose(f) == 0;
  if (guasto || !completo || !chiuso) {
    std::remove(tmp.c_str());
    throw ErroreVarena("Disk full");
  }
  if (std::rename(tmp.c_str(), p.c_str()) != 0) {
    const int e = errno;
    std::remove(tmp.c_str());
    FallisceErrno(e);
  }
}

// Bytes held whole go in two halves when the fault seam is set.
void ScriviAccanto(const std::string& p, std::string_view byte) {
  const size_t prima = gSonda ? byte.size() / 2 : byte.size();
  ScriviAccanto(p, [&](const std::function<void(std::string_view)>& scrivi) {
    scrivi(byte.substr(0, prima));
    if (byte.size() > prima) scrivi(byte.substr(prima));
  });
}

}  // namespace

void ImpostaSondaGuasti(SondaGuasti sonda) { gSonda = std::move(sonda); }

void ScriviByte(std::string_view percorso, std::string_view byte) { ScriviAccanto(PercorsoPerScrivere(percorso), byte); }
void ScriviByte(std::string_view percorso, const ProduttoreByte& produci) {
  ScriviAccanto(PercorsoPerScrivere(percorso), produci);
}
void ScriviTesto(std::string_view percorso, std::string_view utf8) {
  ScriviAccanto(PercorsoPerScrivere(percorso), Utf8InCp1252(utf8));
}
// The small lists that grow a line at a time (the recent jobs): rewritten whole beside
// themselves, so that they too are never left half written.
void AggiungiTesto(std::string_view percorso, std::string_view utf8) {
  const std::string p = PercorsoPerScrivere(percorso);
  std::string byte = LeggiByte(p).value_or(std::string());
  byte += Utf8InCp1252(utf8);
  ScriviAccanto(p, byte);
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
  if (!Nominabile(p)) return false;
  if (EsisteCartella(p)) return true;
  std::error_code ec;
  return fs::create_directory(PercorsoPerScrivere(p), ec) && !ec;
}

namespace {

// Where the file system shares blocks between files (a reflink), a copy of any size costs
// nothing until one of the two is written; elsewhere the caller copies, in the kernel.
bool Clona(const std::string& da, const std::string& a) {
  const int in = ::open(da.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0) return false;
  const int out = ::open(a.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  bool fatto = false;
  if (out >= 0) {
    // The permissions go with the copy, as they do with the kernel's copy.
    struct stat st {};
    fatto = ::ioctl(out, FICLONE, in) == 0 && ::fstat(in, &st) == 0 && ::fchmod(out, st.st_mode & 07777) == 0;
    ::close(out);
    if (!fatto) ::unlink(a.c_str());
  }
  ::close(in);
  return fatto;
}

}  // namespace

void CopiaFile(std::string_view da, std::string_view a) {
  const auto sorgente = TrovaFile(da);
  if (!sorgente) throw ErroreVarena(kErroreFileNonTrovato);
  const std::string dest = PercorsoPerScrivere(a);
  if (gSonda) {
    // Under the fault seam the copy is a write, so that it can fail or be cut half way.
    if (Guasto(OperazioneFile::Copia, dest)) throw ErroreVarena("Disk full");
    ScriviAccanto(dest, LeggiByte(*sorgente).value_or(std::string()));
    return;
  }
  const std::string tmp = dest + kSuffissoTemporaneo;
  std::error_code ec;
  if (!Clona(*sorgente, tmp)) fs::copy_file(*sorgente, tmp, fs::copy_options::overwrite_existing, ec);
  if (!ec) fs::rename(tmp, dest, ec);
  if (ec) {
    std::error_code via;
    fs::remove(tmp, via);
    FallisceErrno(ec.value());
  }
}

bool EliminaFile(std::string_view percorso) {
  const auto t = TrovaFile(percorso);
  if (!t) return false;
  if (Guasto(OperazioneFile::Eliminazione, *t)) throw ErroreVarena(kErrorePermesso);
  std::error_code ec;
  const bool fatto = fs::remove(*t, ec);
  if (ec) FallisceErrno(ec.value());
  return fatto;
}

void RinominaFile(std::string_view da, std::string_view a) {
  const auto sorgente = TrovaFile(da);
  if (!sorgente) throw ErroreVarena(kErroreFileNonTrovato);
  const std::string dest = PercorsoPerScrivere(a);
  if (Guasto(OperazioneFile::Rinomina, dest)) throw ErroreVarena(kErrorePermesso);
  std::error_code ec;
  fs::rename(*sorgente, dest, ec);
  if (ec) FallisceErrno(ec.value());
}

bool EliminaFileEsatto(std::string_view percorso) {
  const std::string p = NormalizzaPercorso(percorso);
  if (!Nominabile(p)) return false;
  if (Guasto(OperazioneFile::Eliminazione, p)) throw ErroreVarena(kErrorePermesso);
  if (::unlink(p.c_str()) == 0) return true;
  if (errno == ENOENT || errno == ENOTDIR) return false;
  FallisceErrno(errno);
}

void RinominaFileEsatto(std::string_view da, std::string_view a) {
  const std::string sorgente = NormalizzaPercorso(da), dest = NormalizzaPercorso(a);
  if (Guasto(OperazioneFile::Rinomina, dest)) throw ErroreVarena(kErrorePermesso);
  if (std::rename(sorgente.c_str(), dest.c_str()) != 0) FallisceErrno(errno);
}

bool CollegaFile(std::string_view da, std::string_view a) {
  const std::string sorgente = NormalizzaPercorso(da), dest = NormalizzaPercorso(a);
  if (!Nominabile(sorgente) || !Nominabile(dest)) return false;
  if (Guasto(OperazioneFile::Collegamento, dest)) return false;
  if (::link(sorgente.c_str(), dest.c_str()) == 0) return true;
  if (errno != EEXIST) return false;
  // The target stands: the new name goes beside it and replaces it in one rename.
  const std::string tmp = dest + kSuffissoTemporaneo;
  ::unlink(tmp.c_str());
  if (::link(sorgente.c_str(), tmp.c_str()) != 0) return false;
  if (std::rename(tmp.c_str(), dest.c_str()) != 0) {
    ::unlink(tmp.c_str());
    return false;
  }
  return true;
}

bool StessoFile(std::string_view a, std::string_view b) {
  struct stat sa {}, sb {};
  if (!Nominabile(a) || !Nominabile(b)) return false;
  if (::stat(NormalizzaPercorso(a).c_str(), &sa) != 0 || ::stat(NormalizzaPercorso(b).c_str(), &sb) != 0) return false;
  return sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

int64_t LunghezzaFile(std::string_view percorso) {
  const auto t = TrovaFile(percorso);
  if (!t) return -1;
  std::error_code ec;
  const auto n = fs::file_size(*t, ec);
  return ec ? -1 : static_cast<int64_t>(n);
}

std::optional<DatiFile> LeggiDati(std::string_view percorso) {
  // Raw storage: a std::string would zero-fill it first, and the large record members come this way.
  DatiFile d;
  const bool letto = LeggiFile(percorso, [&](FILE* f, size_t n) {
    d.Byte.reset(new unsigned char[n]);
    d.Lunghezza = std::fread(d.Byte.get(), 1, n, f);
  });
  if (!letto) return std::nullopt;
  return d;
}

}  // namespace varena
