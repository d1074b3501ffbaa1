// The icons of the commands: line drawings of our own, kept as SVG in the program's
// resources and painted at the size asked, in the text colour of the palette in force, so
// that they stay sharp at any size and on a 2x screen and follow a light or a dark theme.
#pragma once

#include <QIcon>
#include <QString>
#include <string_view>

namespace varena {

// The icon file of a command tag ("salva" for `SALVA_VELOCE`), or empty when it has none.
QString NomeIcona(std::string_view tag);
// The icon of that file name; a null icon when the resources lack it.
QIcon IconaFile(const QString& nome);
// The icon of a tag, or a null icon.
QIcon IconaTag(std::string_view tag);

}  // namespace varena
