// Every seed and every regression input of the fuzz targets through its reader, in the normal
// test run: a fault a fuzzer once found stays found with any compiler and without the
// sanitizers. The inputs named in regressioni/in-attesa.txt wait for a fix made elsewhere
// and are left out, by name, until it is in.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "Bersagli.h"
#include "core/Testo.h"

namespace fs = std::filesystem;

namespace varena::fuzz {
namespace {

const fs::path kCartella = fs::path(VARENA_SORGENTI) / "tests" / "fuzz";

std::set<std::string> InAttesa() {
  std::set<std::string> nomi;
  std::ifstream f(kCartella / "regressioni" / "in-attesa.txt");
  for (std::string riga; std::getline(f, riga);) {
    riga = Rifila(riga.substr(0, riga.find('#')));
    if (!riga.empty()) nomi.insert(riga.substr(0, riga.find_first_of(" \t")));
  }
  return nomi;
}

std::vector<fs::path> Ingressi(const std::string& cartella, const std::string& bersaglio) {
  std::vector<fs::path> file;
  std::error_code ec;
  for (const fs::directory_entry& e : fs::directory_iterator(kCartella / cartella / bersaglio, ec))
    if (e.is_regular_file()) file.push_back(e.path());
  std::sort(file.begin(), file.end());
  return file;
}

std::string Leggi(const fs::path& p) {
  std::ifstream f(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

TEST(Fuzz, OgniBersaglioHaLaSuaCartellaDiSemi) {
  std::set<std::string> tabella, cartelle;
  for (const Bersaglio& b : Bersagli()) {
    tabella.insert(b.Nome);
    EXPECT_FALSE(Ingressi("corpus", b.Nome).empty()) << b.Nome;
  }
  for (const fs::directory_entry& e : fs::directory_iterator(kCartella / "corpus")) cartelle.insert(e.path().filename());
  EXPECT_EQ(cartelle, tabella);
  for (const std::string& nome : InAttesa())
    EXPECT_TRUE(fs::is_regular_file(kCartella / "regressioni" / nome)) << nome;
}

class FuzzRegressioni : public testing::TestWithParam<const char*> {};

TEST_P(FuzzRegressioni, SemiEIngressiTrovatiPassanoSenzaGuasti) {
  const Bersaglio* b = TrovaBersaglio(GetParam());
  ASSERT_NE(b, nullptr);
  const std::set<std::string> inAttesa = InAttesa();
  Ambiente a;
  std::vector<fs::path> ingressi = Ingressi("corpus", b->Nome);
  for (const fs::path& p : Ingressi("regressioni", b->Nome))
    if (!inAttesa.count(std::string(b->Nome) + "/" + p.filename().string())) ingressi.push_back(p);
  // A crash takes the test binary down with the target's name; `scripts/fuzz.sh 0 TARGET`
  // names the input.
  for (const fs::path& p : ingressi) EseguiBersaglio(*b, a, Leggi(p));
}

std::vector<const char*> NomiBersagli() {
  std::vector<const char*> nomi;
  for (const Bersaglio& b : Bersagli()) nomi.push_back(b.Nome);
  return nomi;
}

INSTANTIATE_TEST_SUITE_P(Lettori, FuzzRegressioni, testing::ValuesIn(NomiBersagli()),
                         [](const testing::TestParamInfo<const char*>& i) { return std::string(i.param); });

}  // namespace
}  // namespace varena::fuzz
