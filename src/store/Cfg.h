// The job settings member `.CFG`: the edition tag, block A (legacy values carried through
// unchanged) and block B (the drawing defaults and the stored view). The same two blocks
// are the content of SALVAINI5.INI and SALVAINI.INI.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varena {

class LettoreLista;
struct Sessione;

// Item types of a statement: i i16, l i32, b u8, d f64, s string.
struct ValoreCfg {
  char Tipo = 'd';
  double Numero = 0;
  std::string Testo;
};

struct IstruzioneCfg {
  std::string Etichetta;  // block A only: the first item, "" in the statements written now
  std::vector<ValoreCfg> Valori;
};

struct BloccoCfg {
  std::vector<IstruzioneCfg> Istruzioni;
  ValoreCfg& operator()(size_t istruzione, size_t valore) { return Istruzioni.at(istruzione).Valori.at(valore); }
  const ValoreCfg& operator()(size_t istruzione, size_t valore) const {
    return Istruzioni.at(istruzione).Valori.at(valore);
  }
};

// The statement shapes, one string of item types per statement, in file order.
const std::vector<std::string>& FormaBloccoA();
const std::vector<std::string>& FormaBloccoB();
// Block B statements from this index on (0-based: statement 18) stand only if the file
// has not ended.
inline constexpr size_t kPrimaFacoltativaB = 17;

// Numbering of the block B statements as the file lists them, 1-based.
enum IstruzioneB : size_t {
  B_FattoreZoom = 1,
  B_ColoreSfondo = 2,
  B_DimensioniPunti = 3,
  B_FontPunti = 4,
  B_Testo = 5,
  B_ColoreDefault = 6,
  B_PianoCorrente = 7,
  B_ModoDisegno = 8,
  B_RapportoVista = 9,
  B_Vista = 15,
  B_TipoDistanza = 12,
  B_MostraDescrizione = 19,
  B_PianoCorrente2 = 21,
  B_Parametri = 23,
  B_FileAssociati = 24,
};

// The settings that block B carries, as the block last gave them (and, after a job's load,
// as the environment settings read over them left them). A value goes back into the block
// only once the setting differs from this, so that a load and a save keep every value of
// the file.
struct SettaggiB {
  double FattoreZoom = 50;
  int32_t ColoreDefault = 1;
  uint8_t TipoDistanza = 1;
  int32_t MostraDescrizione = 1;
  std::string PianoCorrente = "0";
};

struct CfgLavoro {
  BloccoCfg A;
  BloccoCfg B;
  SettaggiB AlCaricamento;
  CfgLavoro();  // every statement present with its default value
  ValoreCfg& VB(size_t istruzione1, size_t valore) { return B(istruzione1 - 1, valore); }
  const ValoreCfg& VB(size_t istruzione1, size_t valore) const { return B(istruzione1 - 1, valore); }
};

// Block A statements whose first column carries a label in the files written now.
struct EtichettaA {
  size_t Istruzione;
  const char* Testo;
};
const std::vector<EtichettaA>& EtichetteBloccoA();

// Reading consumes exactly what the writer emits. A file that ends early stops the read
// with the common error; what was read so far stays. An item of the wrong kind for its
// place (a quoted text where a number belongs, a bare number where a text belongs, a quoted
// text running over its line's end) stops it with "Type mismatch: riga N".
void LeggiBloccoA(LettoreLista& in, BloccoCfg& a);
void LeggiBloccoB(LettoreLista& in, BloccoCfg& b);
std::string ScriviBloccoA(const BloccoCfg& a);
std::string ScriviBloccoB(const BloccoCfg& b);

// The named values of block B and the settings they carry, both ways.
void ApplicaBloccoB(Sessione& s);
void RaccogliBloccoB(Sessione& s);
// The settings as they now stand become `AlCaricamento`: when block B has been applied, and
// at the end of a load.
void RicordaBloccoB(Sessione& s);

// `CaricaCFGProvvisorio`: the `.CFG` of `NomeLavoro`. When its items are out of place,
// nothing of it is taken. The whole text of a `.CFG` is `TestoCfg`.
void CaricaCFGProvvisorio(Sessione& s);
std::string TestoCfg(Sessione& s);

inline constexpr const char* kEdizioneCorrente = "VR2020";

}  // namespace varena
