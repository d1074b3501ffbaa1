// The thumbnail of a group beside the list of the groups' dialog.
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
// Puts the thumbnail under the fields of the groups' dialog, following the name chosen.
void AggiungiAnteprimaGruppo(DialogoQt& d, const Sessione& s);

}  // namespace varena
