// The wait for a sibling tool in the desktop: the tool's end closes the box with its exit
// code; the button stops the wait of a tool that hangs.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTimer>

#include "AttesaStrumento.h"

namespace varena {
namespace {

TEST(AttesaStrumento, FineDelloStrumentoOBottoneSmettiDiAttendere) {
  ProcessiDesktop p;
  EXPECT_EQ(p.Attendi("Veloce", "/bin/sh", {"-c", "sleep 0.2; exit 4"}, ""), 4);
  QTimer::singleShot(300, [] {
    for (QWidget* w : QApplication::topLevelWidgets())
      if (auto* b = w->findChild<QPushButton*>("SmettiDiAttendere"); b && w->isVisible()) b->click();
  });
  EXPECT_EQ(p.Attendi("Lenta", "/bin/sleep", {"30"}, ""), kAttesaInterrotta);
  EXPECT_FALSE(p.Attendi("Assente", "/nessuno/strumento", {}, ""));
}

}  // namespace
}  // namespace varena
