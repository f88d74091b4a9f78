// main of tests that need windows; the offscreen platform stands in for a screen.
#include <gtest/gtest.h>

#include <QApplication>

#include "ui/board_accessible.h"

int main(int argc, char* argv[]) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  brontavia::InstallAccessibleFactory();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
