// Paste: what another program leaves on the clipboard (the listing an outside CAD prints of
// its entities, a spreadsheet table) and the program's own hand-over file
// `temp/CopiaInFile.TXT`. Pure readers turn the text into entities; one routine appends them
// through the row builders on the current layer and takes one undo snapshot.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/PuntiFile.h"
#include "survey/Primitive.h"

namespace varena {

struct Sessione;

struct EntitaIncollata {
  char Genere = 'P';  // 'P' point, 'L' line, 'C' circle, 'A' arc, 'T' text, 'F' facet
  PuntoXYZ A;         // the point, the start of a line, a centre, a text's foot
  PuntoXYZ B;         // the end of a line
  double Raggio = 0, Inizio = 0, Ampiezza = 0, ZInizio = 0, ZFine = 0;
  double Altezza = 0, Rotazione = 0;
  std::string Nome, Descrizione, Testo;
  // The copy file's own attributes of the row, in its order after the coordinates; empty:
  // the drawing defaults in force.
  std::vector<std::string> Attributi;
};

struct EsitoIncolla {
  std::vector<EntitaIncollata> Entita;
  EsitoLettura Lettura;  // the lines that could not be read, counted from 1
};

// The listing of an outside CAD, in Italian or in English words.
EsitoIncolla LeggiListatoCad(std::string_view testo);
// A spreadsheet's rows: name, X, Y, Z, description at tabs (or semicolons), decimal commas.
EsitoIncolla LeggiTabellaIncollata(std::string_view testo);
// The hand-over file, list statements in UTF-8: one letter and the items of its kind.
EsitoIncolla LeggiCopiaInFile(std::string_view testo);

// The entities appended on the current layer, all in `colore` when given; then the undo
// snapshot, which regenerates and repaints. The number of rows appended.
int64_t AggiungiIncollate(Sessione& s, const std::vector<EntitaIncollata>& entita, std::optional<int32_t> colore);

std::string PercorsoCopiaInFile(const Sessione& s);
// The selected live rows as the hand-over file holds them, the counterpart of its reader:
// points, lines, circles, arcs, texts and facets, in that order.
std::string TestoCopiaInFile(const Sessione& s);
// Code 215 after its selection: that text written as the hand-over file, for a paste here or
// in another job. False when it could not be written (said).
bool CopiaInFile(Sessione& s);

// The commands. The clipboard's text (`DaCad`, the table) or the hand-over file, the
// questions of each, the rows, and a message that names the lines left out.
void DaCad(Sessione& s);
void IncollaDaTabella(Sessione& s);
// The hand-over file, or another of its form at `percorso`. False when the file is absent
// (said) or could not be read.
bool IncollaDaFile(Sessione& s, const std::string& percorso = {});
// The tag of the hand-over file, and the point list's paste: the file pasted, then the box
// that says it is done.
void AzioneIncollaDaFile(Sessione& s);

}  // namespace varena
