// What the job takes from its field book and what the survey structures carry from the book
// reader or the dialog to the record they make.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace varena {

class IndiceNomi;

// The job-level values of the heading row 0 of the book.
struct DatiRigaZero {
  std::string Data, CampoDue, CodiceComune, Foglio, CampoCinque, CampoSei, CampoSette, CampoOtto;
  std::string DataBreve;   // `CampoDue` and the last two digits of `Data`
  std::string Anno;        // the last four characters of `Data`
  std::string NomeComune;  // from the municipality table; empty when the code is not there
};

struct StatoLibretto {
  DatiRigaZero RigaZero;
  // The values of the tagged note rows "6|<EST>", "6|<COD>", "6|<ISC>".
  std::string FileEstratto, CodiceLibretto, CodiceIscrizione;

  // The next Contorno-7 record: its kind (or a plain contour's title), its label and pen.
  std::string TipoSettePendente, ParticellaPendente;
  int32_t ColorePendente = 0;
  int16_t TratteggioPendente = 0;
  // The points by name for the structures of one regeneration, and which one it was made for.
  std::shared_ptr<const IndiceNomi> IndiceStrutture;
  uint64_t PassataIndiceStrutture = 0;

  // How the map extract is shown, as the book's reader leaves it.
  int16_t EstrattoCongelato = 0;
  bool MostraContorni = false, MostraEstratto = false, MostraVistaEstratto = false;
  int32_t ColoreEstratto = 0;
};

}  // namespace varena
