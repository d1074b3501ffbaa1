// The desktop program's tests run its widgets on the offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "Traduzioni.h"

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication app(argc, argv);
  varena::CaricaTraduzioniQt();  // as the program does at start
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
