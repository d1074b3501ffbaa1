// The thumbnails of a group beside the list of the groups' dialog, and of a point symbol
// (`AnteprimaSimbolo`) beside the list of `MenuSimboli`.
#pragma once

#include <QImage>
#include <QSize>
#include <string>

namespace varena {

struct Sessione;
class DialogoQt;

// The group `nome` of the library painted whole, framed, as the drawing paints it; a blank
// image when there is no such group.
QImage AnteprimaGruppo(const Sessione& s, const std::string& nome, QSize misura);
// The point symbol of code `codice` (a text, as typed) painted as a point carrying it alone;
// a blank image when the text is no symbol code.
QImage AnteprimaSimbolo(const Sessione& s, const std::string& codice, QSize misura);
inline const QSize kMisuraAnteprima(240, 160);
// Puts the thumbnail under the fields of the groups' dialog, following the name chosen; and
// under those of `MenuSimboli`, following the code.
void AggiungiAnteprimaGruppo(DialogoQt& d, const Sessione& s);
void AggiungiAnteprimaSimbolo(DialogoQt& d, const Sessione& s);

}  // namespace varena
