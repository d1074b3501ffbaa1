// The setting files and the reference tables: the input stands as one of them (the first
// byte chooses which), the program starts over them, and goes on to what uses them.
#include <array>
#include <string>

#include "Bersagli.h"
#include "commands/Costruttori.h"
#include "core/AltreImpostazioni.h"
#include "core/Avvio.h"
#include "core/Codici.h"
#include "core/Colori.h"
#include "core/Comuni.h"
#include "core/Configura.h"
#include "core/ImpostazioniUtente.h"
#include "core/Piani.h"
#include "core/Salvaini.h"
#include "core/Sessione.h"
#include "core/Tratteggi.h"
#include "exchange/ImportaPunti.h"
#include "store/Carica.h"
#include "store/Registro.h"
#include "view/Rigenera.h"

namespace varena::fuzz {

namespace {

using Percorso = std::string (*)(const Sessione&);

std::string Griglia(const Sessione& s) { return s.CartellaLavoro + "VRLAVORI.LAV"; }
std::string Recenti(const Sessione& s) { return s.CartellaLavoro + "LavoriRecenti.txt"; }
std::string Comune(const Sessione& s) { return s.CartellaLavoro + "COMMON.CFG"; }

}  // namespace

// The settings of the working root and of the program's data, then the start that reads
// them, the job it reopens, the lists of jobs, and the writing of the settings at the end.
void FuzzImpostazioni(const Ambiente& a, std::string_view byte) {
  constexpr std::array<Percorso, 10> kFile = {
      PercorsoConfigura,     PercorsoSalvaini, PercorsoSalvaini5, PercorsoToolbarBottoni,
      PercorsoConfiguraPuntiDefault, PercorsoStampaPaginato, PercorsoImpostazioniUtente, Griglia, Recenti, Comune};
  const Percorso file = kFile[Scelta(byte, kFile.size())];
  Sessione s;
  a.Prepara(s);
  ScriviFileFuzz(file(s), byte);
  InizializzaDefault(s);
  ClearAllTables(s);
  ApriLavoroIniziale(s, "");
  LeggiStampaPaginato(s);
  (void)LeggiImpostazioneUtente(s, "Visualizza", "Nomi", "1");
  // The text import's column lists, which the user may edit there.
  for (int n = 0; n <= kListeColonne + 1; ++n) (void)LeggiSceltaColonne(s, "DAT" + std::to_string(n));
  (void)UltimaListaColonne(s);
  (void)CaricaGriglia(s);
  (void)LavoriRecenti(s);
  Dipingi(s);
  ScriviSalvaini(s);
  ConfiguraScrivi(s);
}

// The reference tables, then the example job with a line, a circle and an arc of every line
// type and colour index the tables can name and one beyond, regenerated and painted.
void FuzzTabelle(const Ambiente& a, std::string_view byte) {
  constexpr std::array<Percorso, 7> kFile = {PercorsoColori,     PercorsoSpessori,     PercorsoTratteggi, PercorsoPianoDefault,
                                             PercorsoCodici,     PercorsoArchivioNote, PercorsoComuni};
  const Percorso file = kFile[Scelta(byte, kFile.size())];
  Sessione s;
  a.Prepara(s);
  // The municipalities live where the Pregeo setting says, which the defaults give.
  ImpostazioniDefault(s);
  ScriviFileFuzz(file(s), byte);
  InizializzaDefault(s);
  s.NomeOriginale = a.Esempio();
  VR_ApriLavoro(s);
  for (int k = 0; k <= kMassimoTratteggi; ++k) {
    const double x = 1725300, y = 5031200 + 2.0 * k;
    const auto l = static_cast<size_t>(ScriviLinea(s, {x, y, 0}, {x + 40, y, 0}, "0"));
    s.LineaTratteggio[l] = static_cast<int16_t>(k);
    s.LineaColore[l] = 5 * k + 3;
    const auto c = static_cast<size_t>(ScriviCerchio(s, {x + 60, y, 0}, 0.2 + 0.01 * k, "0"));
    s.CerchioTratteggio[c] = static_cast<int16_t>(k);
    s.CerchioColore[c] = 5 * k + 4;
    const auto r = static_cast<size_t>(ScriviArco(s, {x + 120, y, 0}, 0.3 + 0.01 * k, 50, 250, 0, 1, "0"));
    s.ArcoTratteggio[r] = static_cast<int16_t>(k);
    s.ArcoColore[r] = 5 * k + 5;
  }
  RigeneraLista(s);
  Dipingi(s);
  (void)TestoTratteggi(s.Tratteggi);
  (void)CercaCodice(s.Codici, "PF");
}

}  // namespace varena::fuzz
