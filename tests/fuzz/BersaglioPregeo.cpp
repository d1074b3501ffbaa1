// What the sibling tools hand back: the input stands as the file a tool wrote, and the
// hand-off that started it reads it. The first byte chooses the hand-off: the proposal of
// Pregeo (a `.DAT`), the book and points of the hub, the book of the field-book manager,
// Pregeo's table of municipalities read for the book's heading, or a computed `.DAT` whose
// rows go into the book.
#include "Bersagli.h"
#include "cadastre/ElaboratoPregeo.h"
#include "cadastre/Libretto.h"
#include "cadastre/LibrettoDaDisegno.h"
#include "cadastre/Pregeo.h"
#include "core/Avvio.h"
#include "core/File.h"
#include "core/Porte.h"
#include "core/Sessione.h"
#include "store/Carica.h"
#include "view/Rigenera.h"

namespace varena::fuzz {

namespace {

// A tool that writes the input into each of the files it is expected to leave.
class StrumentoFinto : public Processi {
 public:
  StrumentoFinto(std::vector<std::string> file, std::string_view byte) : file_(std::move(file)), byte_(byte) {}
  std::optional<int> Esegui(const std::string&, const std::vector<std::string>&, const std::string&) override {
    for (const std::string& f : file_) ScriviFileFuzz(f, byte_);
    return 0;
  }

 private:
  std::vector<std::string> file_;
  std::string_view byte_;
};

}  // namespace

void FuzzPregeo(const Ambiente& a, std::string_view byte) {
  const size_t scelta = Scelta(byte, 5);
  Sessione s;
  a.Prepara(s);
  InizializzaDefault(s);
  s.Imp.Strumento_ZN_Omnia = s.Imp.Strumento_ZN_SuiteMappa = s.Imp.Strumento_SondaIII = "strumento";
  if (scelta == 2) {
    s.NomeOriginale = a.Esempio();
    VR_ApriLavoro(s);
  }
  const std::string temp = FileSuite(s, "ZN_Suite/Temp/");
  std::vector<std::string> file;
  if (scelta == 0) file = {temp + "ESPORTA_PROPOSTA.TXT"};
  if (scelta == 1) file = {temp + "ESPORTA_LIBRETTO.TXT", temp + "ESPORTA_PUNTI_ELABORATI.TXT"};
  if (scelta == 2) file = {s.NomeLavoro + ".TXT"};
  StrumentoFinto strumento(file, byte);
  s.Proc = &strumento;
  if (scelta == 0) AzionePropostaDaPregeo(s);
  if (scelta == 1) AzioneDaPregeo(s);
  if (scelta == 2) AzioneLibrettoDaDisegno(s);
  if (scelta == 3) {
    NuovaCartella(s.Imp.Cartella_Pregeo);
    NuovaCartella(s.Imp.Cartella_Pregeo + "/EXE");
    ScriviFileFuzz(PercorsoProsigle(s), byte);
    DatiDaRigaZero(s);
  }
  if (scelta == 4)
    for (const RigaElaborato& r : RigheElaborato(byte)) AggiungiRigaLibretto(s, r.Libro);
  RigeneraModifiche(s);
  Dipingi(s);
}

}  // namespace varena::fuzz
