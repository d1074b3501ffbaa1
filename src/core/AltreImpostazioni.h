// The smaller setting files of the working root: the toolbar layout
// `CfgToolbarBottoni.ini`, the point configurations `.CPP` and the pagination of plots
// `StampaPaginato.ini`.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace varena {

struct Sessione;

// First line the number of toolbar columns, second the groups of the toolbars, "|"-separated.
struct ToolbarBottoni {
  int32_t NumeroColonne = 0;
  std::vector<int16_t> Gruppi;
};
inline constexpr const char* kTestoToolbarBottoni = "16\r\n1|1|2|2|3|3|3|4|4|3|3|3|4|1|\r\n";
std::string PercorsoToolbarBottoni(const Sessione& s);
// Creates the file when absent. The repair of a column count below 1 comes later in the
// start-up, after the entity tables exist.
void CaricaToolbarBottoni(Sessione& s);

// How the points of one class are drawn: "Font", "Dim.Nome", "Col.Nome", "Simbolo",
// "Dim.Simb.", "Col.Simb.", "Dim.Quota", "Col.Quota", "Dim.Desc.", "Col.Desc.".
struct StilePunto {
  std::string Font;
  double DimNome = 0;
  int32_t ColNome = 0;
  int32_t Simbolo = 0;
  double DimSimbolo = 0;
  int32_t ColSimbolo = 0;
  double DimQuota = 0;
  int32_t ColQuota = 0;
  double DimDescrizione = 0;
  int32_t ColDescrizione = 0;
};

// The three classes: "PF", the stations ("00", "000") and the other points.
enum ClassePunto : size_t { ClassePF = 0, ClasseStazioni = 1, ClassePunti = 2 };
struct ConfigurazionePunti {
  std::array<StilePunto, 3> Classi;
};
inline constexpr const char* kTestoConfiguraPunti =
    "Arial,-1.5,10,32,-1.5,20,-1.5,10,-1.5,60,\r\n"
    "Arial,-1.5,10,66,-1.5,21,-1.5,32,-1.5,60,\r\n"
    "Arial,-1.5,6,35,-1.5,24,-1.5,40,-1.5,3,\r\n";
// One row as the file holds it, with its closing comma.
std::string RigaStilePunto(const StilePunto& p);

// The default configuration file, and the active one named by `NomeFileConfiguraPunti`
// (".CPP" added when the name has no extension).
std::string PercorsoConfiguraPuntiDefault(const Sessione& s);
std::string PercorsoConfiguraPuntiAttivo(const Sessione& s);
// The active file when it exists, else the default file, created when absent. Rows beyond
// the third are not read; a missing row keeps the defaults of its class.
void CaricaConfiguraPunti(Sessione& s);

// `StampaPaginato.ini`: one statement of an i32 and two texts. Pagination is on only when
// the file exists and its first value is -1.
struct StampaPaginato {
  int32_t ModoPaginato = 0;
  std::string Colonne;
  std::string Righe;
  bool Attiva() const { return ModoPaginato == -1; }
};
std::string PercorsoStampaPaginato(const Sessione& s);
// Read when a plot starts; an absent file means no pagination and is not created.
void LeggiStampaPaginato(Sessione& s);

}  // namespace varena
