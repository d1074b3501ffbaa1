#include "ApplicazioneRender.h"

#include <QGuiApplication>
#include <cstdlib>

namespace varena::cli {

void AssicuraApplicazione() {
  if (QGuiApplication::instance()) return;
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static int argc = 1;
  static char nome[] = "varena-cli";
  static char* argv[] = {nome, nullptr};
  static QGuiApplication app(argc, argv);
}

}  // namespace varena::cli
