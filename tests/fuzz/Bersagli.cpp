// The table of targets, and the two readers that work on bytes in memory.
#include "Bersagli.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "core/Avvio.h"
#include "core/CodicePagina.h"
#include "core/Errori.h"
#include "core/Lista.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "view/DimensioniImmagine.h"

namespace varena::fuzz {

namespace {

constexpr Bersaglio kBersagli[] = {
    {"lista", FuzzLista, false},
    {"immagine", FuzzImmagine, false},
    {"cfg", FuzzCfg, true},
    {"record", FuzzRecord, true},
    {"hat", FuzzHat, true},
    {"btm", FuzzBtm, true},
    {"pia", FuzzPia, true},
    {"txt", FuzzTxt, true},
    {"inf", FuzzInf, true},
    {"126", Fuzz126, true},
    {"fff", FuzzFFF, true},
    {"impostazioni", FuzzImpostazioni, true},
    {"tabelle", FuzzTabelle, true},
    {"undo", FuzzUndo, true},
    {"script", FuzzScript, true},
    {"libretto", FuzzLibretto, true},
    {"dxf", FuzzDxf, true},
    {"mesh", FuzzMesh, false},
    {"due", FuzzDue, false},
    {"cxf", FuzzCxf, true},
    {"taf", FuzzTaf, true},
    {"ril", FuzzRil, true},
    {"sho", FuzzSho, true},
    {"gsi", FuzzGsi, true},
    {"asc", FuzzAsc, true},
    {"nuvola", FuzzNuvola, true},
    {"testopunti", FuzzTestoPunti, true},
    {"vr4", FuzzVr4, true},
    {"lineedxf", FuzzLineeDxf, true},
    {"flusso", FuzzFlusso, false},
    {"rtf", FuzzRtf, true},
    {"grafica", FuzzGrafica, true},
    {"estratto", FuzzEstratto, true},
    {"sez", FuzzSez, true},
    {"vrz", FuzzVrz, true},
    {"xvr", FuzzXvr, true},
    {"dacad", FuzzDaCad, true},
    {"tabellaincollata", FuzzTabellaIncollata, true},
    {"copiainfile", FuzzCopiaInFile, true},
    {"pregeo", FuzzPregeo, true},
    {"ggg", FuzzGgg, true},
    {"lavori", FuzzLavori, true},
    {"impagina", FuzzImpagina, true},
};

}  // namespace

std::span<const Bersaglio> Bersagli() { return kBersagli; }

const Bersaglio* TrovaBersaglio(std::string_view nome) {
  for (const Bersaglio& b : kBersagli)
    if (nome == b.Nome) return &b;
  return nullptr;
}

void EseguiBersaglio(const Bersaglio& b, const Ambiente& a, std::string_view byte) {
  if (b.Disco) a.Ripristina();
  b.Esegui(a, byte);
}

void Verifica(bool vero, const char* formato, ...) {
  if (vero) return;
  va_list argomenti;
  va_start(argomenti, formato);
  std::vfprintf(stderr, formato, argomenti);
  va_end(argomenti);
  std::abort();
}

void ApriEsempio(const Ambiente& a, Sessione& s, Interfaccia* ui) {
  a.Prepara(s);
  if (ui) s.Ui = ui;
  InizializzaDefault(s);
  s.NomeOriginale = a.Esempio();
  VR_ApriLavoro(s);
}

// List statements as every text member reaches them, after the code page, read by each kind
// of read in turn until nothing is left. A read that consumed nothing would leave every
// reader that reads to the end of its member turning for ever: the run stops there.
void FuzzLista(const Ambiente&, std::string_view byte) {
  LettoreLista in(Cp1252InUtf8(byte));
  for (size_t k = 0; !in.Fine(); ++k) {
    const size_t prima = in.Posizione();
    try {
      switch (k % 6) {
        case 0: (void)in.Elemento(); break;
        case 1: (void)in.LeggiNumero(); break;
        case 2: (void)in.LeggiI16(); break;
        case 3: (void)in.LeggiI32(); break;
        case 4: (void)in.LeggiU8(); break;
        default: (void)in.LeggiRiga(); break;
      }
      (void)in.RigaElemento();
    } catch (const ErroreVarena&) {
      return;
    }
    Verifica(in.Posizione() != prima, "Una lettura della lista non ha preso nulla alla posizione %zu\n", prima);
  }
}

// The header of a picture chosen for the drawing.
void FuzzImmagine(const Ambiente&, std::string_view byte) {
  if (const auto d = DimensioniImmagine(byte))
    Verifica(d->Larghezza > 0 && d->Altezza > 0, "Dimensioni di immagine non positive: %d x %d\n", d->Larghezza,
             d->Altezza);
}

}  // namespace varena::fuzz
