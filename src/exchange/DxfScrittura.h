// The DXF writer: the job as one ENTITIES section (points with their labels and symbols,
// lines, circles, arcs, texts, contour curves, facets and what regeneration drew of the
// other kinds), the options of the export dialog and of `CFGDXF2000.ini`.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace varena {

struct Sessione;

// The layer fields of the dialog: 0 names, 1 symbols, 2 heights, 3 descriptions, 4 contour
// curves, 5 6 8 kept only, 7 lines, circles, arcs and texts, 9 the height of characters that
// stands for a negative size.
inline constexpr const char* kDaFile = "Da File";

struct OpzioniDxfOut {
  bool Curve = false;              // CURVE
  bool DescrizioniPiani = false;   // DESCRIZIONI-PIANI
  bool Descrizioni = false;        // DESCRIZIONI
  bool Quote = false;              // QUOTE
  bool Simboli = false;            // SIMBOLI
  bool Nomi = false;               // NOMI
  bool Coincidenti = false;        // SETUP
  bool PianiSemplificati = false;  // PIANI_SEMPLIFICATI
  bool PuntiPlanimetrici = false;  // PUNTI_PLANIMETRICI
  bool EscludiSimboli = false;     // ESCLUDI_SIMBOLI
  int Percorso = 3;                // OPTION3, OPTION4 or OPTION5: how the path is proposed
  std::string FileName;            // FILENAME

  // Of `CFGDXF2000.ini`.
  std::string Riservato;
  bool TreD = false;
  std::string Font;  // empty: "Nessun Font"
  bool LineeSenzaQuota = false;
  std::array<std::string, 10> Text1{kDaFile, kDaFile, kDaFile, kDaFile, kDaFile,
                                    kDaFile, kDaFile, kDaFile, kDaFile, "1"};

  bool AssegnaColore = false;
  bool AssegnaTratteggio = false;
  // HEADER and TABLES before the same ENTITIES, for the readers that want them.
  bool Completo = false;
};

// The options as the dialog opens with them: settings of section "DXF_OUT", then the file.
OpzioniDxfOut LeggiOpzioniDxfOut(Sessione& s);
// Both back: the settings in the order of the dialog, then `CFGDXF2000.ini`.
void ScriviOpzioniDxfOut(Sessione& s, const OpzioniDxfOut& o);
std::string PercorsoCfgDxf2000(const Sessione& s);

// A layer as the file may hold it: trimmed, "," "." " " "\" "/" to "_", the point markers
// taken out, "0" when nothing is left.
std::string PulisciPianoDxf(std::string_view piano);

// The bytes of the whole file.
std::string TestoDxfOut(const Sessione& s, const OpzioniDxfOut& o);

// `DxfOut`: the file written at `percorso`. False when the writing failed (the error box
// has been shown).
bool DxfOut(Sessione& s, const OpzioniDxfOut& o, const std::string& percorso);

// `ApriDxF`: the file opened with the desktop's default application.
void ApriDxF(Sessione& s, const std::string& percorso);

}  // namespace varena
