// The entry of one fuzz target for libFuzzer: `VARENA_BERSAGLIO` names the row of the table.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "Bersagli.h"

namespace {

const varena::fuzz::Bersaglio* gBersaglio = nullptr;
std::unique_ptr<varena::fuzz::Ambiente> gAmbiente;

void Chiudi() { gAmbiente.reset(); }

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  gBersaglio = varena::fuzz::TrovaBersaglio(VARENA_BERSAGLIO);
  if (!gBersaglio) {
    std::fprintf(stderr, "Bersaglio sconosciuto: %s\n", VARENA_BERSAGLIO);
    std::abort();
  }
  gAmbiente = std::make_unique<varena::fuzz::Ambiente>();
  std::atexit(Chiudi);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* dati, size_t n) {
  varena::fuzz::EseguiBersaglio(*gBersaglio, *gAmbiente, {reinterpret_cast<const char*>(dati), n});
  return 0;
}
