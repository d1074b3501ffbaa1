// The fuzz targets: one for each reader of what a user, or anyone who hands him a file, can
// put before the program. Each calls its reader through the way the program itself reaches
// it (a job opened, the settings read at start, a script run) and goes on as the program
// would (regeneration, redraw, the save of the first undo generation), inside an
// `Ambiente`. A reader added later gets a row here, a folder of seeds under corpus/ and one
// of regression inputs under regressioni/, named as the row.
#pragma once

#include <span>
#include <string_view>

#include "Ambiente.h"

namespace varena {
class Interfaccia;
}

namespace varena::fuzz {

struct Bersaglio {
  const char* Nome;
  void (*Esegui)(const Ambiente& a, std::string_view byte);
  // Works on the disk: the root is put back before each input.
  bool Disco;
};

std::span<const Bersaglio> Bersagli();
const Bersaglio* TrovaBersaglio(std::string_view nome);

// One input, from the same disk every time.
void EseguiBersaglio(const Bersaglio& b, const Ambiente& a, std::string_view byte);

// The example job opened in `s` as a start of the program opens it; `ui`, when given, answers
// from the start on.
void ApriEsempio(const Ambiente& a, Sessione& s, Interfaccia* ui = nullptr);

// A property every input must keep: when it does not hold, the message (printf's form) and
// the stop that the fuzzer reports as a crash.
void Verifica(bool vero, const char* formato, ...) __attribute__((format(printf, 2, 3)));

// The targets, by family.
void FuzzLista(const Ambiente& a, std::string_view byte);
void FuzzImmagine(const Ambiente& a, std::string_view byte);
void FuzzCfg(const Ambiente& a, std::string_view byte);
void FuzzRecord(const Ambiente& a, std::string_view byte);
void FuzzHat(const Ambiente& a, std::string_view byte);
void FuzzBtm(const Ambiente& a, std::string_view byte);
void FuzzPia(const Ambiente& a, std::string_view byte);
void FuzzTxt(const Ambiente& a, std::string_view byte);
void FuzzInf(const Ambiente& a, std::string_view byte);
void Fuzz126(const Ambiente& a, std::string_view byte);
void FuzzFFF(const Ambiente& a, std::string_view byte);
void FuzzImpostazioni(const Ambiente& a, std::string_view byte);
void FuzzTabelle(const Ambiente& a, std::string_view byte);
void FuzzUndo(const Ambiente& a, std::string_view byte);
void FuzzScript(const Ambiente& a, std::string_view byte);
void FuzzLibretto(const Ambiente& a, std::string_view byte);
void FuzzDxf(const Ambiente& a, std::string_view byte);
void FuzzMesh(const Ambiente& a, std::string_view byte);
void FuzzDue(const Ambiente& a, std::string_view byte);
void FuzzCxf(const Ambiente& a, std::string_view byte);
void FuzzTaf(const Ambiente& a, std::string_view byte);
void FuzzRil(const Ambiente& a, std::string_view byte);
void FuzzSho(const Ambiente& a, std::string_view byte);
void FuzzGsi(const Ambiente& a, std::string_view byte);
void FuzzAsc(const Ambiente& a, std::string_view byte);
void FuzzNuvola(const Ambiente& a, std::string_view byte);
void FuzzTestoPunti(const Ambiente& a, std::string_view byte);
void FuzzVr4(const Ambiente& a, std::string_view byte);
void FuzzLineeDxf(const Ambiente& a, std::string_view byte);
void FuzzFlusso(const Ambiente& a, std::string_view byte);
void FuzzRtf(const Ambiente& a, std::string_view byte);
void FuzzGrafica(const Ambiente& a, std::string_view byte);
void FuzzEstratto(const Ambiente& a, std::string_view byte);
void FuzzSez(const Ambiente& a, std::string_view byte);
void FuzzVrz(const Ambiente& a, std::string_view byte);
void FuzzXvr(const Ambiente& a, std::string_view byte);
void FuzzDaCad(const Ambiente& a, std::string_view byte);
void FuzzTabellaIncollata(const Ambiente& a, std::string_view byte);
void FuzzCopiaInFile(const Ambiente& a, std::string_view byte);
void FuzzPregeo(const Ambiente& a, std::string_view byte);
void FuzzGgg(const Ambiente& a, std::string_view byte);
void FuzzLavori(const Ambiente& a, std::string_view byte);
void FuzzImpagina(const Ambiente& a, std::string_view byte);

}  // namespace varena::fuzz
