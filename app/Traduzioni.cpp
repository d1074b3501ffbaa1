#include "Traduzioni.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace varena {

bool CaricaTraduzioniQt() {
  // The program speaks Italian whatever the desktop's language: its own words are Italian.
  auto* traduttore = new QTranslator(QCoreApplication::instance());
  if (!traduttore->load(QLocale(QLocale::Italian, QLocale::Italy), "qtbase", "_",
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    delete traduttore;
    return false;
  }
  return QCoreApplication::installTranslator(traduttore);
}

}  // namespace varena
