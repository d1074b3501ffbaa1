// varena-mesh: the triangulator the program hands its terrain to. Started with no arguments
// in the program folder, it reads provviso.tom and provviso.dsq there and writes the facets
// to provviso.EQU. The clipboard text, its one option, comes in $VARENA_APPUNTI; "!3D!"
// asks for the viewer's data, which is the same set of facets here.
//
// On any fault it writes no provviso.EQU, puts its message in provviso.err, and ends with
// status 1, so that the program keeps the facets it has.
#include <cstdio>
#include <exception>
#include <string>

#include "Triangola.h"
#include "core/File.h"

namespace {

int Fallito(const std::string& messaggio) {
  try {
    varena::ScriviByte("provviso.err", messaggio + "\r\n");
  } catch (const std::exception&) {
  }
  std::fprintf(stderr, "varena-mesh: %s\n", messaggio.c_str());
  return 1;
}

}  // namespace

int main(int argc, char**) {
  using namespace varena;
  if (argc > 1) return Fallito("nessun argomento atteso: i file sono nella cartella corrente");
  try {
    EliminaFileEsatto("provviso.err");
    const auto tom = LeggiByte(kFileTom);
    if (!tom) return Fallito(std::string(kFileTom) + " non trovato");
    const std::string dsq = LeggiByte(kFileDsq).value_or("");
    DatiMesh d;
    if (std::string e = LeggiConsegna(*tom, dsq, d); !e.empty()) return Fallito(e);
    if (d.X.size() < 3) return Fallito(std::string(kFileTom) + ": meno di tre punti");
    std::vector<std::array<int32_t, 3>> triangoli;
    if (std::string e = mesh::Triangola(d, triangoli); !e.empty()) return Fallito(e);
    // Written aside and renamed into place: the program never reads half a file. A block of
    // records at a time, from a buffer that stays in the cache: the facets of a large
    // terrain are half a gigabyte.
    ScriviByte(kFileEquMesh, [&](const std::function<void(std::string_view)>& scrivi) {
      CodificaFaldeMesh(d, triangoli, scrivi);
    });
  } catch (const std::exception& e) {
    return Fallito(e.what());
  }
  return 0;
}
