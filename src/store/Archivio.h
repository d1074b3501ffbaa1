// The job as one ZIP file `.VRZ`, for transport: our own writer of plain deflate members,
// and the reader (libzip) that opens such an archive, or one made by any ZIP tool, as a job.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

// One member of the archive: the header fields and the raw deflate bytes.
class ZipFile {
 public:
  // Reads the source whole: its leaf as the name, its modification time, its CRC-32 and
  // its bytes compressed. Fails as the file layer does when it cannot be read.
  void DaFile(const std::string& percorso);
  void ImpostaNome(std::string nome) { nome_ = std::move(nome); }
  // The local header, the name and the compressed bytes; `posizione` is where they begin.
  void ScriviLocale(std::string& out, uint32_t posizione);
  void ScriviCentrale(std::string& out) const;

 private:
  std::string nome_, dati_;
  uint16_t ora_ = 0, data_ = 0;
  uint32_t crc_ = 0, lunghezza_ = 0, posizione_ = 0;
};

class ZipClass {
 public:
  // An absent or empty source is left out; `nome` stands for its leaf when given.
  void Aggiungi(const std::string& percorso, const std::string& nome = {});
  // The whole archive to `percorso`, written beside and renamed into place; `sovrascrivi`
  // removes an existing target first, without it an existing target fails.
  void Scrivi(const std::string& percorso, bool sovrascrivi);

 private:
  std::vector<ZipFile> membri_;
};

// DOS date and time of a moment, in local time, as the ZIP headers carry them.
uint16_t DataDos(std::time_t t);
uint16_t OraDos(std::time_t t);

// The archive of the job's members `base` + extension, stored under `nome` + extension
// (slots 1..30, members with some content), written to `destinazione`.
void ScriviArchivioLavoro(const std::string& base, const std::string& nome, const std::string& destinazione);

// `SalvaZippatoInProvvisorio`: at a save with `SalvaUnaCopiaZip`, the archive of the
// provisional copy as the member `.VRZ` of that copy, under the original's name, so that
// the save puts it in place (the previous one becoming `.VRK`) like every other member.
void SalvaZippatoInProvvisorio(Sessione& s);

struct MembroArchivio {
  std::string Nome;  // the leaf of the name in the archive
  std::string Byte;
};

// The members of an archive, read whole and checked: a damaged archive, a wrong CRC, a name
// with "..", an absolute one, a link, or members that would expand past `kLimiteArchivio`
// fail with a message for the user, and nothing is returned.
std::vector<MembroArchivio> LeggiArchivio(const std::string& byte);
inline constexpr uint64_t kLimiteArchivio = uint64_t{3} << 30;

// `Esplodi_VRZ`: the archive `percorso` opened as the current job, named after it less
// ".VRZ". An archive that does not read is reported and nothing changes: the job open
// stays open. True when the job was opened.
bool Esplodi_VRZ(Sessione& s, const std::string& percorso);

inline constexpr const char* kTitoloArchivio = "Apri Archivio";

}  // namespace varena
