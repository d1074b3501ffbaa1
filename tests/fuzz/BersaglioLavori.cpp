// The archive of jobs `VRLAVORI.LAV` of the working root, read as the open window fills its
// grid: every row must come out with a path that ends in ".CFG".
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
    Verifica(FinisceCon(Maiuscolo(v.Percorso), ".CFG"), "Percorso senza .CFG: %s\n", v.Percorso.c_str());
}

}  // namespace varena::fuzz
