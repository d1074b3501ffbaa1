// The archive of jobs `VRLAVORI.LAV` of the working root, read as the open window fills its
// grid: every row must come out with a path that ends in ".CFG".
#include <cstdio>
#include <cstdlib>

#include "Bersagli.h"
#include "core/Sessione.h"
#include "core/Testo.h"
#include "store/Registro.h"

namespace varena::fuzz {

void FuzzLavori(const Ambiente& a, std::string_view byte) {
  Sessione s;
  a.Prepara(s);
  ScriviFileFuzz(s.CartellaLavoro + "VRLAVORI.LAV", byte);
  for (const VoceArchivio& v : CaricaGriglia(s))
    if (!FinisceCon(Maiuscolo(v.Percorso), ".CFG")) {
      std::fprintf(stderr, "Percorso senza .CFG: %s\n", v.Percorso.c_str());
      std::abort();
    }
}

}  // namespace varena::fuzz
