// The desktop program's tests run its widgets on the offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "Traduzioni.h"

int main(int argc, char** argv) {
  // A screen of 1280 by 800 at 96 dpi, framing its windows as a desktop does.
  setenv("QT_QPA_PLATFORM", "offscreen:configfile=" VARENA_SORGENTI "/tests/app/schermo.json", 0);
  QApplication app(argc, argv);
  varena::CaricaTraduzioniQt();  // as the program does at start
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
