// The `.VRZ` archive: writer on zlib, reader on libzip.
#include "store/Archivio.h"

#include <sys/stat.h>
#include <zip.h>
#include <zlib.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

#include "core/Errori.h"
#include "core/File.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Carica.h"
#include "store/Provvisorio.h"
#include "store/Slot.h"

namespace varena {

namespace {

void Metti16(std::string& out, uint32_t v) {
  out.push_back(static_cast<char>(v & 0xFF));
  out.push_back(static_cast<char>((v >> 8) & 0xFF));
}
void Metti32(std::string& out, uint32_t v) {
  Metti16(out, v & 0xFFFF);
  Metti16(out, v >> 16);
}

// Level 1: the records of a job are mostly padding, which the fastest level packs nearly as
// tight as the default one, at more than twice its speed.
constexpr int kLivello = 1;
// A large member is deflated in pieces of this size, on as many threads as there are cores.
constexpr size_t kPezzo = size_t{4} << 20;

struct Pezzo {
  std::string Dati;
  uLong Crc = 0;
  size_t Lunghezza = 0;
};

// One piece as raw deflate. The pieces before the last end with a sync flush, which closes
// them on a byte boundary without a final block, so that their concatenation is one stream.
void Deflaziona(const unsigned char* dati, size_t n, bool ultimo, Pezzo& p) {
  z_stream z{};
  if (deflateInit2(&z, kLivello, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK) throw ErroreVarena(kErroreMemoria);
  p.Dati.resize(deflateBound(&z, static_cast<uLong>(n)) + 16);
  z.next_in = const_cast<unsigned char*>(dati);
  z.avail_in = static_cast<uInt>(n);
  z.next_out = reinterpret_cast<unsigned char*>(p.Dati.data());
  z.avail_out = static_cast<uInt>(p.Dati.size());
  const int r = deflate(&z, ultimo ? Z_FINISH : Z_SYNC_FLUSH);
  const size_t scritti = p.Dati.size() - z.avail_out;
  deflateEnd(&z);
  if (r != (ultimo ? Z_STREAM_END : Z_OK)) throw ErroreVarena(kErroreMemoria);
  p.Dati.resize(scritti);
  p.Crc = crc32(0, dati, static_cast<uInt>(n));
  p.Lunghezza = n;
}

// The raw deflate of a whole member and its CRC-32.
uint32_t Comprimi(const unsigned char* dati, size_t n, std::string& out) {
  const size_t pezzi = std::max<size_t>(1, (n + kPezzo - 1) / kPezzo);
  std::vector<Pezzo> fatti(pezzi);
  std::atomic<size_t> prossimo{0};
  std::exception_ptr errore;
  std::atomic<bool> fallito{false};
  auto lavora = [&] {
    for (size_t k; (k = prossimo++) < pezzi && !fallito;) {
      try {
        const size_t da = k * kPezzo;
        Deflaziona(dati + da, std::min(kPezzo, n - da), k + 1 == pezzi, fatti[k]);
      } catch (...) {
        if (!fallito.exchange(true)) errore = std::current_exception();
      }
    }
  };
  const size_t aiutanti = std::min<size_t>(pezzi, std::max(1u, std::thread::hardware_concurrency())) - 1;
  std::vector<std::thread> fili;
  for (size_t k = 0; k < aiutanti; ++k) fili.emplace_back(lavora);
  lavora();
  for (std::thread& f : fili) f.join();
  if (errore) std::rethrow_exception(errore);
  size_t totale = 0;
  for (const Pezzo& p : fatti) totale += p.Dati.size();
  out.clear();
  out.reserve(totale);
  uLong crc = 0;
  for (const Pezzo& p : fatti) {
    out += p.Dati;
    crc = crc32_combine(crc, p.Crc, static_cast<z_off_t>(p.Lunghezza));
  }
  return static_cast<uint32_t>(crc);
}

// Past 4 GiB the plain ZIP headers cannot say a size.
uint32_t Misura32(size_t n) {
  if (n > 0xFFFFFFFFu) throw ErroreVarena("Membro troppo grande per l'archivio");
  return static_cast<uint32_t>(n);
}

}  // namespace

uint16_t DataDos(std::time_t t) {
  std::tm tm{};
  localtime_r(&t, &tm);
  // Seven bits of years from 1980: a file dated outside them gets the nearest year they hold.
  const int anni = std::clamp(tm.tm_year + 1900 - 1980, 0, 127);
  return static_cast<uint16_t>(tm.tm_mday + 32 * (tm.tm_mon + 1) + 512 * anni);
}

uint16_t OraDos(std::time_t t) {
  std::tm tm{};
  localtime_r(&t, &tm);
  return static_cast<uint16_t>(tm.tm_sec / 2 + 32 * tm.tm_min + 2048 * tm.tm_hour);
}

void ZipFile::DaFile(const std::string& percorso) {
  const auto dati = LeggiDati(percorso);
  if (!dati) throw ErroreVarena(kErroreFileNonTrovato);
  struct stat st {};
  const std::time_t quando = ::stat(percorso.c_str(), &st) == 0 ? st.st_mtime : std::time(nullptr);
  nome_ = Foglia(percorso);
  ora_ = OraDos(quando);
  data_ = DataDos(quando);
  lunghezza_ = Misura32(dati->Lunghezza);
  crc_ = Comprimi(dati->Byte.get(), dati->Lunghezza, dati_);
}

void ZipFile::ScriviLocale(std::string& out, uint32_t posizione) {
  posizione_ = posizione;
  Metti32(out, 0x04034B50);
  for (uint32_t v : {20u, 2u, 8u, uint32_t{ora_}, uint32_t{data_}}) Metti16(out, v);
  for (uint32_t v : {crc_, Misura32(dati_.size()), lunghezza_}) Metti32(out, v);
  Metti16(out, Misura32(nome_.size()));
  Metti16(out, 0);
  out += nome_;
  out += dati_;
}

void ZipFile::ScriviCentrale(std::string& out) const {
  Metti32(out, 0x02014B50);
  for (uint32_t v : {20u, 20u, 2u, 8u, uint32_t{ora_}, uint32_t{data_}}) Metti16(out, v);
  for (uint32_t v : {crc_, Misura32(dati_.size()), lunghezza_}) Metti32(out, v);
  for (uint32_t v : {Misura32(nome_.size()), 0u, 0u, 0u, 0u}) Metti16(out, v);
  Metti32(out, 32);
  Metti32(out, posizione_);
  out += nome_;
}

void ZipClass::Aggiungi(const std::string& percorso, const std::string& nome) {
  if (LunghezzaFile(percorso) < 1) return;
  ZipFile f;
  f.DaFile(percorso);
  if (!nome.empty()) f.ImpostaNome(nome);
  membri_.push_back(std::move(f));
}

void ZipClass::Scrivi(const std::string& percorso, bool sovrascrivi) {
  if (EsisteFile(percorso)) {
    if (!sovrascrivi) throw ErroreVarena("File already exists");
    EliminaFile(percorso);
  }
  std::string out;
  for (ZipFile& f : membri_) f.ScriviLocale(out, Misura32(out.size()));
  const uint32_t inizio = Misura32(out.size());
  for (const ZipFile& f : membri_) f.ScriviCentrale(out);
  const uint32_t lunghezza = Misura32(out.size()) - inizio;
  Metti32(out, 0x06054B50);
  const auto quanti = static_cast<uint32_t>(membri_.size());
  if (quanti > 0xFFFF) throw ErroreVarena("Troppi membri per l'archivio");
  for (uint32_t v : {0u, 0u, quanti, quanti}) Metti16(out, v);
  Metti32(out, lunghezza);
  Metti32(out, inizio);
  Metti16(out, 0);
  ScriviByte(percorso, out);
}

void ScriviArchivioLavoro(const std::string& base, const std::string& nome, const std::string& destinazione) {
  const FileLavoro membri = ElencaFileLavoro(base);
  ZipClass zip;
  for (int slot = 1; slot < NumeroSlot; ++slot) {
    const std::string& m = membri.Membro[static_cast<size_t>(slot)];
    if (!m.empty()) zip.Aggiungi(m, nome + EstensioneFile(slot));
  }
  zip.Scrivi(destinazione, true);
}

void SalvaZippatoInProvvisorio(Sessione& s) {
  s.RoutineCorrente = "ZipFile";
  ScriviArchivioLavoro(s.NomeLavoro, Foglia(s.NomeOriginale), s.NomeLavoro + EstensioneFile(SlotArchivio));
  s.RoutineCorrente = "UscitoDaZipFile";
}

namespace {

// libzip's handles, closed on every way out.
struct ChiudiArchivio {
  void operator()(zip_t* z) const { zip_discard(z); }
};
struct ChiudiMembro {
  void operator()(zip_file_t* f) const { zip_fclose(f); }
};

[[noreturn]] void Rifiuta(const std::string& motivo) { throw ErroreVarena(motivo); }

// The leaf a member is extracted to; a name that could lead out of the job's folder is
// refused, never cut down to something harmless.
std::string FogliaSicura(std::string nome) {
  std::replace(nome.begin(), nome.end(), '\\', '/');
  if (nome.empty() || nome[0] == '/' || (nome.size() > 1 && nome[1] == ':'))
    Rifiuta("il nome " + nome + " è un percorso assoluto");
  for (const std::string& parte : Dividi(nome, '/'))
    if (parte == "..") Rifiuta("il nome " + nome + " esce dalla cartella del Lavoro");
  return Foglia(nome);
}

bool Collegamento(zip_t* z, zip_uint64_t k) {
  zip_uint8_t sistema = 0;
  zip_uint32_t attributi = 0;
  if (zip_file_get_external_attributes(z, k, 0, &sistema, &attributi) != 0) return false;
  return sistema == ZIP_OPSYS_UNIX && ((attributi >> 16) & S_IFMT) == S_IFLNK;
}

std::string LeggiMembro(zip_t* z, zip_uint64_t k, uint64_t dichiarata) {
  std::unique_ptr<zip_file_t, ChiudiMembro> f(zip_fopen_index(z, k, 0));
  if (!f) Rifiuta(zip_strerror(z));
  std::string byte;
  char buf[1 << 16];
  for (;;) {
    const zip_int64_t n = zip_fread(f.get(), buf, sizeof buf);
    if (n < 0) Rifiuta(zip_file_strerror(f.get()));
    if (n == 0) break;
    byte.append(buf, static_cast<size_t>(n));
    if (byte.size() > dichiarata) Rifiuta("un membro è più lungo di quanto dichiara");
  }
  if (byte.size() != dichiarata) Rifiuta("un membro è più corto di quanto dichiara");
  return byte;
}

}  // namespace

std::vector<MembroArchivio> LeggiArchivio(const std::string& byte) {
  zip_error_t errore;
  zip_error_init(&errore);
  zip_source_t* sorgente = zip_source_buffer_create(byte.data(), byte.size(), 0, &errore);
  if (!sorgente) Rifiuta(zip_error_strerror(&errore));
  std::unique_ptr<zip_t, ChiudiArchivio> z(zip_open_from_source(sorgente, ZIP_RDONLY | ZIP_CHECKCONS, &errore));
  if (!z) {
    zip_source_free(sorgente);
    const std::string motivo = zip_error_strerror(&errore);
    zip_error_fini(&errore);
    Rifiuta(motivo);
  }
  const zip_int64_t quanti = zip_get_num_entries(z.get(), 0);
  // The sizes the archive declares are checked before anything is expanded.
  std::vector<zip_stat_t> stat(static_cast<size_t>(std::max<zip_int64_t>(quanti, 0)));
  uint64_t totale = 0;
  for (zip_uint64_t k = 0; k < stat.size(); ++k) {
    zip_stat_t& st = stat[k];
    if (zip_stat_index(z.get(), k, 0, &st) != 0) Rifiuta(zip_strerror(z.get()));
    if (!(st.valid & ZIP_STAT_NAME) || !(st.valid & ZIP_STAT_SIZE)) Rifiuta("un membro è senza nome o lunghezza");
    if (Collegamento(z.get(), k)) Rifiuta(std::string("il membro ") + st.name + " è un collegamento");
    FogliaSicura(st.name);
    totale += st.size;
    if (st.size > kLimiteArchivio || totale > kLimiteArchivio)
      Rifiuta("i membri si espandono oltre " + std::to_string(kLimiteArchivio >> 30) + " GB");
  }
  std::vector<MembroArchivio> membri;
  for (zip_uint64_t k = 0; k < stat.size(); ++k) {
    const std::string nome = stat[k].name;
    if (nome.empty() || nome.back() == '/' || nome.back() == '\\') continue;  // a folder
    membri.push_back({FogliaSicura(nome), LeggiMembro(z.get(), k, stat[k].size)});
  }
  return membri;
}

namespace {

// The slot a member belongs to by the text after its last ".", or -1.
int SlotDelMembro(const std::string& nome) {
  const size_t punto = nome.find_last_of('.');
  if (punto == std::string::npos) return -1;
  const std::string est = nome.substr(punto);
  for (int slot = 1; slot < NumeroSlot; ++slot)
    if (EstensioneFile(slot)[0] != '\0' && UgualeSenzaCaso(est, EstensioneFile(slot))) return slot;
  return -1;
}

}  // namespace

bool Esplodi_VRZ(Sessione& s, const std::string& percorso) {
  s.RoutineCorrente = "Esplodi_VRZ";
  std::vector<MembroArchivio> membri;
  try {
    const auto byte = LeggiByte(percorso);
    if (!byte) Rifiuta(kErroreFileNonTrovato);
    membri = LeggiArchivio(*byte);
  } catch (const std::exception& e) {
    s.Ui->Messaggio("L'archivio " + percorso + " non si può aprire: " + e.what() + ".\nNulla è stato cambiato.",
                    kTitoloArchivio, Icona::Avviso);
    return false;
  }
  std::string base = PercorsoAssoluto(percorso);
  if (base.size() > 4 && UgualeSenzaCaso(std::string_view(base).substr(base.size() - 4), ".VRZ")) base.resize(base.size() - 4);
  AzzeraTabelleLavoro(s);
  EliminaProvviso(s);
  s.NomeOriginale = base;
  s.TipoFile = "VRZ";
  ImpostaNomeProvvisorio(s);
  if (!Protetto(s, [&] {
        for (const MembroArchivio& m : membri) {
          const int slot = SlotDelMembro(m.Nome);
          if (slot > 0 && slot != SlotInf) ScriviByte(s.NomeLavoro + EstensioneFile(slot), m.Byte);
        }
        ScriviTesto(s.NomeLavoro + EstensioneFile(SlotInf), IstruzioneLista().Testo(s.NomeOriginale).Riga());
      }))
    return false;
  CaricaLavoro(s);
  FineApertura(s);
  return true;
}

}  // namespace varena
