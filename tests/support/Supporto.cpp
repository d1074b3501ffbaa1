#include "support/Supporto.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "store/Cfg.h"
#include "store/Slot.h"

namespace varena::prova {

namespace fs = std::filesystem;

CartellaTemporanea::CartellaTemporanea() {
  std::string modello = (fs::temp_directory_path() / "varena-prova-XXXXXX").string();
  if (!mkdtemp(modello.data())) throw std::runtime_error("mkdtemp");
  percorso_ = modello;
}

CartellaTemporanea::~CartellaTemporanea() {
  std::error_code ec;
  fs::remove_all(percorso_, ec);
}

void ScriviFileProva(const std::string& percorso, const std::string& byte) {
  std::ofstream f(percorso, std::ios::binary | std::ios::trunc);
  f.write(byte.data(), static_cast<std::streamsize>(byte.size()));
}

std::string LeggiFileProva(const std::string& percorso) {
  std::ifstream f(percorso, std::ios::binary);
  std::ostringstream o;
  o << f.rdbuf();
  return o.str();
}

bool Esiste(const std::string& percorso) { return fs::exists(percorso); }

Record RecordPuntoBase(const std::string& nome, double x, double y, double z) {
  Record r(256);
  r.I16(0, 0).Car(2, 40, nome).Car(42, 40, "").F64(82, x).F64(90, y).F64(98, z);
  r.F64(106, 1.0).F64(114, 1.0).I16(122, 1).I16(124, 1).I16(132, 1).F64(134, 1.0).I16(142, 12);
  r.Car(144, 2, "").I16(146, 35).Car(148, 8, "0").Car(156, 2, "").I16(182, 1).F64(186, 1.0);
  r.Car(194, 30, "Arial").Car(224, 8, "").Car(244, 12, "");
  return r;
}

std::string BloccoAManuale() {
  std::string a;
  for (const std::string& forma : FormaBloccoA()) {
    a += "\"\"";
    for (char t : forma) a += t == 's' ? ",\"x\"" : ",1";
    a += "\r\n";
  }
  return a;
}

std::string CfgManuale(const std::string& edizione, const std::string& vista, const std::string& coda) {
  return "\"" + edizione + "\"\r\n" + BloccoAManuale() +
         "25\r\n7\r\n1,1,0,1,1\r\n\"Arial\"\r\n5,0\r\n3\r\n\"STRADE\"\r\n0\r\n1.6\r\n\"a\",\"b\"\r\n"
         "\"c\"\r\n2\r\n0\r\n0\r\n" +
         vista + "\r\n\"\"\r\n0\r\n" + coda;
}

std::time_t OrologioFisso() {
  std::tm tm{};
  tm.tm_year = 2026 - 1900, tm.tm_mon = 10, tm.tm_mday = 21, tm.tm_hour = 10, tm.tm_min = 30, tm.tm_sec = 15;
  tm.tm_isdst = -1;
  return std::mktime(&tm);
}

CartelleDelProgramma::CartelleDelProgramma(const std::string& documenti, const std::string& programma) {
  setenv("VARENA_DOCUMENTI", documenti.c_str(), 1);
  setenv("VARENA_PROGRAMMA", programma.c_str(), 1);
}

CartelleDelProgramma::~CartelleDelProgramma() {
  unsetenv("VARENA_DOCUMENTI");
  unsetenv("VARENA_PROGRAMMA");
}

std::string CopiaEsempio(const std::string& cartella) {
  fs::create_directories(cartella);
  for (const auto& f : fs::directory_iterator(std::string(VARENA_SORGENTI) + "/examples"))
    if (f.path().stem() == "RILIEVO") fs::copy_file(f.path(), cartella + "/" + f.path().filename().string());
  return cartella + "/RILIEVO";
}

std::string RigaFiduciale(int numero, const std::string& nord, const std::string& est) {
  std::string r(130, ' ');
  r.replace(0, 4, "A123").replace(8, 2, "12").replace(16, 1, std::to_string(numero));
  return r.replace(101, 12, nord).replace(114, 12, est);
}

std::string Spazzatura(size_t n) {
  std::string g;
  for (size_t i = 0; i < n; ++i) g.push_back(static_cast<char>((i * 7919 + 13) % 256));
  return g;
}

namespace {
std::map<std::string, std::string> Raccogli(const std::string& base, bool backup) {
  std::map<std::string, std::string> m;
  for (int slot = 0; slot < NumeroSlot; ++slot) {
    const std::string est = backup ? EstensioneBackup(slot) : EstensioneFile(slot);
    if (!est.empty() && fs::is_regular_file(base + est)) m[est] = LeggiFileProva(base + est);
  }
  return m;
}
}  // namespace

std::map<std::string, std::string> MembriDi(const std::string& base) { return Raccogli(base, false); }
std::map<std::string, std::string> BackupDi(const std::string& base) { return Raccogli(base, true); }

std::vector<std::string> NomiIn(const std::string& cartella) {
  std::vector<std::string> nomi;
  for (const auto& e : fs::directory_iterator(cartella)) nomi.push_back(e.path().filename().string());
  std::sort(nomi.begin(), nomi.end());
  return nomi;
}

void PreparaSessione(Sessione& s, Interfaccia& ui, const CartellaTemporanea& cartella) {
  s.Ui = &ui;
  s.Orologio = OrologioFisso;
  s.CartellaDocumenti = cartella.Percorso();
  s.CartellaLavoro = cartella.Percorso() + "/VR2000/";
  s.CartellaProgramma = cartella.Percorso() + "/programma";
  fs::create_directories(s.CartellaLavoro + "PROVVISO");
  fs::create_directories(s.CartellaProgramma);
}

SessioneProva::SessioneProva() { PreparaSessione(s, ui, cartella); }

}  // namespace varena::prova
