// What the job holds of its cadastral map extract: the text of the `.EMP`, its raster, where
// the raster stands on the sheet, and the lines and texts made from the text (kind 14).
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace varena {

// One line, text or circle of the extract, as the display list will take it.
struct ElementoEstratto {
  double X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
  uint8_t Primitiva = 2;  // 0 circle, 2 line, 5 text: the display list's own codes
  int32_t Penna = 0;
  int16_t Tratto = 0;
  float Spessore = 1;
  float Altezza = 0;  // text height, or circle radius
  float Rotazione = 0;
  std::string Testo, Font;
  bool operator==(const ElementoEstratto&) const = default;
};

// The values the job's settings keep for the extract, as the last load read them.
struct ParametriEstratto {
  std::string Nome, Immagine;
  int16_t Congelato = 0, ImmagineCongelata = 0;
  int32_t Colore = 0;
  double SpostamentoX = 0, SpostamentoY = 0, Rotazione = 0;
  bool operator==(const ParametriEstratto&) const = default;
};

struct StatoEstratto {
  std::string FileImmagineEstratto;
  std::string TestoEstratto;
  int16_t EstrattoImmagineCongelata = 1;
  double OrigineEstrattoX = 0, OrigineEstrattoY = 0;
  double AltezzaPixel = 0, LarghezzaPixel = 0;
  double ScalaEstratto = 0;
  // Where the user moved the extract: every point p of the sheet stands at R p + t, R the
  // turn of `RotazioneEstratto` gon clockwise, t (`SpostamentoEstrattoX`, `...Y`). The
  // raster cannot turn: its corner follows the move.
  double SpostamentoEstrattoX = 0, SpostamentoEstrattoY = 0, RotazioneEstratto = 0;
  // The raster as found in the folder of extracts; empty when there is none.
  std::string PercorsoImmagineEstratto;
  // The rows of kind 14; their count is `ContaEntita[14]`.
  std::vector<ElementoEstratto> ElementiEstratto;
  ParametriEstratto ParametriLetti;
  // What was said of this job's extract: an undo reads it again, and says nothing new.
  std::set<std::string> AvvisiEstratto;
};

}  // namespace varena
