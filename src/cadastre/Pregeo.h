// The bridges to Pregeo and to the sibling tools: the files handed over and read back, and
// the tools started through the `Processi` port from the command lines of the settings
// (section `Strumenti` of `Configura.ini`, "%1" standing for the file handed over).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varena {

struct Sessione;

// The tools, by the names the settings and the messages use.
inline constexpr const char* kSondaIII = "SondaIII";
inline constexpr const char* kOmnia = "ZN_Omnia";
inline constexpr const char* kOmniaMappa = "ZN_SuiteMappa";
inline constexpr const char* kSuiteLibretti = "ZN_SuiteLibretti";
inline constexpr const char* kEstratti = "ZN_Estratti";
inline constexpr const char* kPregeo = "Pregeo";
inline constexpr const char* kCalcoloGPS = "CalcoloGPS";

// The command line of a tool split into words, "%1" replaced by `argomento` (added at the
// end when the line has no "%1"). Double quotes keep blanks inside a word. Empty when the
// tool is not configured.
std::vector<std::string> RigaStrumento(const Sessione& s, std::string_view strumento, const std::string& argomento);
// Starts the tool and waits for it. False, with a message naming the tool, when it is not
// configured, not found, ended with an error, or the user stopped waiting: then nothing it
// may have written is to be read.
bool LanciaStrumento(Sessione& s, std::string_view strumento, const std::string& argomento);

// The files of the suite's data root.
std::string FileSuite(const Sessione& s, std::string_view nome);

// The book to `<job>.TXT`, with its extract row. False when it could not be written.
bool SalvaTestoLibretto(Sessione& s);
// The book from a file: cleared, then each row appended, the tagged rows of the extract,
// book code and enrolment taken as values. False, the book untouched, when the file is
// absent.
bool CaricaLibrettoDaFile(Sessione& s, const std::string& percorso);
bool CaricaLibrettoDaSondaIII(Sessione& s);    // `<job>.TXT`
bool CaricaLibrettoDaCopiaInFile(Sessione& s);  // the suite's `LIBRETTO.DAT`

// `LancioSondaIII`: the book saved, the field-book manager started with `argomento`.
bool LancioSondaIII(Sessione& s, const std::string& argomento);
// The reload hand-off: the name of the book to the suite's default file, the book manager
// started, the book read back. Nothing when that manager is not configured.
void RicaricaLibretto(Sessione& s);

// A line of a proposal or extract read from a `.DAT`.
struct LineaProposta {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  std::string Piano;
  int32_t Penna = 0;
  int16_t Tratteggio = 0;
};
// The lines of the map extract and of the updated map a Pregeo file holds. Sides of names
// that no row 8 gives are left out.
std::vector<LineaProposta> LeggiProposta(std::string_view testo);
// `CaricaDATconNomefile`: those lines drawn in the job. False when the file is absent.
bool CaricaDATconNomefile(Sessione& s, const std::string& percorso);

// `Importa Elaborazione Pregeo`: the lines of Pregeo's computation report, as its window
// copies them, become texts of layer "Tabella", one a line, blanks folded, from the top left
// of the view down. The number of texts made.
int32_t TabellaElaborazione(Sessione& s, std::string_view testo);

// A record made with "|" between the fields: the commas of the values become points first,
// and only then the bars become the commas of the file, so that a description or a name
// with a comma cannot split its record.
std::string RecordConVirgole(std::string_view conBarre);
// A name in a column of the tools' lists: blanks in front up to `larghezza`, and of a longer
// one only its last `larghezza` characters.
std::string AllineaADestra(std::string testo, size_t larghezza);

// `FormGPS`: the rows of `calcololocale.csv` for the points given, "name,Est,Nord,Quota,0,0,0"
// each, commas of a name turned into points.
std::vector<std::string> RigheCalcoloLocale(const Sessione& s, const std::vector<int32_t>& punti);

// The menu's actions.
void AzioneCaricaDAT(Sessione& s);          // CaricaDAT: a file chosen by the user
void AzioneDaPregeo(Sessione& s);           // IMPORTA_DA_PREGEO: `dapregeo`
void AzionePropostaDaPregeo(Sessione& s);   // `proposta_dapregeo`
void AzioneLibrettoMisure(Sessione& s);     // LIBRETTO_MISURE, in the book manager
void AzioneLanciaEstratto(Sessione& s);     // `Lanciaestratto`
void AzionePregeo(Sessione& s);             // PREGEO: the book handed to Pregeo
void AzioneModulistica(Sessione& s);        // "Importa Modulistica PDF"
void AzioneElaborazionePregeo(Sessione& s); // `Importa Elaborazione Pregeo`, from the clipboard
void AzioneCalcoloGPS(Sessione& s);         // `FormGPS`: the selected points to the GPS tool

}  // namespace varena
