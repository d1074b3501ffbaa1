// The field book's grammar: the splitter every reader of the rows shares, the heading row,
// the tagged note rows, and what the book gives the points (heights, notes, tags). The rows
// stay text: each routine reads them again, so a row nobody understands is never touched.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace varena {

struct Sessione;

inline constexpr int kMassimoCampi = 301;

// The fields of one row as `CampiRiga` leaves them.
struct CampiLibretto {
  std::array<std::string, kMassimoCampi> Campo;
  int UltimoCampo = 0;        // the last field that is not empty; 0 when none is
  int NumeroVerticiRiga = 0;  // rows 7: the index before the first field that is no vertex
};

// `CampiRiga`: the row cut at every "|", the fields cleared first. A note row 6 of 41
// characters or more is one field after the type, so that a long note may hold "|". A
// 302nd field throws `kErroreIndice`, for the common error path.
void CampiRiga(std::string_view riga, CampiLibretto& c);

// The number the row begins with, as a decimal prefix; -1 when it is not a whole number
// from 0 to 9. A row that does not begin with a digit is of type 0.
int TipoRiga(std::string_view riga);
// A text that is wholly a number, blanks around it allowed.
bool Numerico(std::string_view testo);
// The plain split on "|" the row tests use: one more piece than the row has fields.
std::vector<std::string> PartiRiga(std::string_view riga);

// `DatiDaRigaZero`: row 0 into `RigaZero`. A row 0 of fewer than nine pieces is replaced in
// the book by the default row, whose values are then taken.
void DatiDaRigaZero(Sessione& s);
// A date of two-digit year made whole: "010199" is "01011999", "010105" "01012005".
std::string DataCompleta(std::string_view data);

// The tagged note rows: their values into `FileEstratto`, `CodiceLibretto` and
// `CodiceIscrizione`; the last of each wins. The rows stay in the book.
void ValoriRigheSei(Sessione& s);
// The value of a row "6|<TAG>value|"; empty when the row has none.
std::string ValoreRigaSei(std::string_view riga);
// Every "6|<EST>" row dropped and one new, of `FileEstratto`, put at the end.
void AggiornaRigaEstratto(Sessione& s);

// `RinominaPuntoLibretto`: "1|old|" and "2|old|" become "1|new|" and "2|new|" in the rows of
// those types, rows with a comma included.
void RinominaPuntoLibretto(Sessione& s, std::string_view vecchio, std::string_view nuovo);

// The live points by name: the rows of each name, in table order.
class IndiceNomi {
 public:
  explicit IndiceNomi(const Sessione& s);
  const std::vector<int32_t>& Righe(const std::string& nome) const;
  // The first live point of that name, or -1.
  int32_t Primo(const std::string& nome) const;

 private:
  std::unordered_map<std::string, std::vector<int32_t>> righe_;
};

// `HPSDaLibrettoMisure`: the instrument height of rows 1 and the prism height of rows 2 to
// every live point of that name.
void HPSDaLibrettoMisure(Sessione& s);
// `DescrizioniDaLibrettoMisure`: the note of a row 1 becomes the station's description; that
// of a row 2 is read as a number into the prism height.
void DescrizioniDaLibrettoMisure(Sessione& s);
// The four passes of point tags: "<PV>"/"<PD>" from rows 7, "<00>" for readings of no
// distance, "<P!>" for plan readings and stations of no height.
void EtichetteDaLibretto(Sessione& s);

}  // namespace varena
